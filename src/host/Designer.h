// host::Designer, host::Controls and host::Control: a component's designer and its controls,
// kept in step with the designer block of the module file so that edits are saved.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Liveness.h"
#include "host/files/ModuleFile.h"
#include "vbide/VBForm.h"

namespace host {

class Component;
class Designer;

class Control final : public vbide::VBControl,
                      public vbide::ControlObject,
                      public Liveness,
                      public std::enable_shared_from_this<Control> {
 public:
  Control(std::weak_ptr<Designer> designer, int flatIndex)
      : designer_(std::move(designer)), flatIndex_(flatIndex) {}

  std::u16string Properties(std::u16string_view name) override;
  void SetProperty(std::u16string_view name, std::u16string_view value) override;
  std::vector<std::pair<std::u16string, std::u16string>> PropertyList() override;
  std::u16string ClassName() override;
  bool InSelection() override;
  void SetInSelection(bool selected) override;
  vbide::ControlObjectPtr ControlObject() override;
  vbide::VBControlPtr Container() override;
  vbide::VBControlsPtr Collection() override;
  // 0 brings it to the front; the designer keeps no other z-order moves (raises 5).
  void ZOrder(int position) override;

  int FlatIndex() const { return flatIndex_; }
  void SetFlatIndex(int index) { flatIndex_ = index; }

 private:
  const files::DesignerControl& Node();
  std::weak_ptr<Designer> designer_;
  int flatIndex_;
  bool selected_ = false;
};

class Controls final : public vbide::VBControls {
 public:
  Controls(std::weak_ptr<Designer> designer, bool selectedOnly)
      : designer_(std::move(designer)), selectedOnly_(selectedOnly) {}
  int Count() override;
  vbide::VBControlPtr Item(int index) override;
  std::vector<vbide::VBControlPtr> Items() override;
  void Remove(int index) override;
  vbide::VBControlPtr Add(std::u16string_view progId) override;

 private:
  std::weak_ptr<Designer> designer_;
  bool selectedOnly_;
};

class Designer final : public vbide::VBForm,
                       public Liveness,
                       public std::enable_shared_from_this<Designer> {
 public:
  explicit Designer(std::weak_ptr<Component> component) : component_(std::move(component)) {}
  void Init();

  vbide::VBControlsPtr VBControls() override;
  vbide::VBControlsPtr SelectedVBControls() override;
  vbide::VBComponentPtr Parent() override;

  // Controls in designer order: bottom of the z-order first, containers before their children.
  const std::vector<std::shared_ptr<Control>>& List() const { return controls_; }
  const files::DesignerControl& Node(int flatIndex) const { return *nodes_[flatIndex]; }
  std::shared_ptr<Control> ContainerOf(int flatIndex) const;
  // A name that is not a VB identifier raises 380, as the Properties window refuses it.
  void Rename(Control& control, std::u16string_view newName);
  void Remove(int flatIndex);
  std::shared_ptr<Control> Add(std::u16string_view className);
  void BringToFront(int flatIndex);
  void Detach();
  std::shared_ptr<Component> Owner() const { return component_.lock(); }

 private:
  void Reindex();  // nodes_ from the module file's designer tree, in designer order
  int SubtreeEnd(int flatIndex) const;  // one past the last descendant
  std::weak_ptr<Component> component_;
  std::vector<const files::DesignerControl*> nodes_;
  std::vector<int> parents_;  // flat index of the container, -1 for the form itself
  std::vector<int> depths_;   // 0 for the form's own controls, 1 inside them, ...
  std::vector<std::shared_ptr<Control>> controls_;
};

}  // namespace host
