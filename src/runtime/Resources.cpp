// The program's bitmap resources by number and by name.
#include "runtime/Resources.h"

#include <string>

#include "runtime/Error.h"

namespace vb {

namespace {

std::u16string Folded(std::u16string_view name) {
  std::u16string folded(name);
  for (char16_t& u : folded)
    if (u >= u'a' && u <= u'z') u = static_cast<char16_t>(u - (u'a' - u'A'));
  return folded;
}

[[noreturn]] void NotFound(std::u16string_view identifier) {
  throw Error(kResourceNotFound,
              u"Resource with identifier '" + std::u16string(identifier) + u"' not found");
}

}  // namespace

void Resources::Register(int id, Picture picture) {
  byNumber_[id] = std::move(picture);
}

void Resources::Register(std::u16string_view name, Picture picture) {
  byName_[Folded(name)] = {std::u16string(name), std::move(picture)};
}

const Picture& Resources::LoadResPicture(int id) const {
  auto it = byNumber_.find(id);
  if (it == byNumber_.end()) {
    std::string digits = std::to_string(id);
    NotFound(std::u16string(digits.begin(), digits.end()));
  }
  return it->second;
}

const Picture& Resources::LoadResPicture(std::u16string_view name) const {
  auto it = byName_.find(Folded(name));
  if (it == byName_.end()) NotFound(name);
  return it->second.second;
}

bool Resources::Contains(std::u16string_view name) const {
  return byName_.contains(Folded(name));
}

std::vector<int> Resources::Numbers() const {
  std::vector<int> numbers;
  for (const auto& entry : byNumber_) numbers.push_back(entry.first);
  return numbers;
}

std::vector<std::u16string> Resources::Names() const {
  std::vector<std::u16string> names;
  for (const auto& entry : byName_) names.push_back(entry.second.first);
  return names;
}

}  // namespace vb
