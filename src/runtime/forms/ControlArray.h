// vb::ControlArray: controls sharing one name, addressed by their VB Index, with shared handlers.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "runtime/Utf.h"
#include "runtime/forms/ControlError.h"

namespace vb {

class FormBase;

// Indexes need not be contiguous. arr(i) with an index that has no element raises error 340.
// Wire gives every element, including ones loaded later, a handler that receives the Index
// first, as VB's array handlers do:
//   cmdToolbar.Wire(&CommandButton::Click, [this](int index) { cmdToolbar_Click(index); });
template <class T>
class ControlArray {
 public:
  ControlArray(FormBase& owner, std::u16string name, std::initializer_list<int> indexes)
      : owner_(owner), name_(std::move(name)) {
    for (int i : indexes) Load(i);
  }

  T& operator()(int index) const {
    auto it = elements_.find(index);
    if (it == elements_.end()) {
      throw ctlerr::NoArrayElement(name_ + u"(" + FromUtf8(std::to_string(index)) + u")");
    }
    return *it->second;
  }
  bool Exists(int index) const { return elements_.contains(index); }
  int Count() const { return static_cast<int>(elements_.size()); }
  int LBound() const { return elements_.empty() ? 0 : elements_.begin()->first; }
  int UBound() const { return elements_.empty() ? -1 : elements_.rbegin()->first; }
  const std::u16string& Name() const { return name_; }

  // VB's Load arr(i): a new element; error 360 when the index is taken.
  T& Load(int index) {
    if (elements_.contains(index)) {
      throw ctlerr::Make(360, u"Object already loaded",
                         name_ + u"(" + FromUtf8(std::to_string(index)) + u")");
    }
    auto& element =
        *elements_.emplace(index, std::make_unique<T>(owner_, name_, index)).first->second;
    for (auto& wire : wires_) wire(element);
    return element;
  }
  void Unload(int index) {
    (*this)(index);
    elements_.erase(index);
  }

  // `event` may be declared by T or by a base of T (Control::Click).
  template <class C, class... Args, class Handler>
  void Wire(std::function<void(Args...)> C::*event, Handler handler) {
    auto wire = [event, handler](T& element) {
      element.*event = [handler, index = element.Index()](Args... args) {
        handler(index, std::forward<Args>(args)...);
      };
    };
    for (auto& [index, element] : elements_) wire(*element);
    wires_.push_back(wire);
  }

  template <class F>
  void ForEach(F f) const {
    for (auto& [index, element] : elements_) f(*element);
  }

 private:
  FormBase& owner_;
  std::u16string name_;
  std::map<int, std::unique_ptr<T>> elements_;
  std::vector<std::function<void(T&)>> wires_;
};

}  // namespace vb
