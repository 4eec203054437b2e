// vbide::VBForm, vbide::VBControls, vbide::VBControl: a designer and the controls on it.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vbide/Fwd.h"

namespace vbide {

class VBForm {
 public:
  virtual ~VBForm() = default;
  // In the designer's order: bottom of the z-order first, containers before their children.
  virtual VBControlsPtr VBControls() = 0;
  virtual VBControlsPtr SelectedVBControls() = 0;
  virtual VBComponentPtr Parent() = 0;
};

class VBControls {
 public:
  virtual ~VBControls() = default;
  virtual int Count() = 0;
  virtual VBControlPtr Item(int index) = 0;  // 1-based
  virtual std::vector<VBControlPtr> Items() = 0;
  // Removes the control at that position and its children; fires VBControlsEvents.ItemRemoved.
  virtual void Remove(int index) = 0;
  // Adds a control of the class `progId` ("VB.CommandButton") on top of the form's z-order,
  // named after its class with the first free number (Command1); fires ItemAdded.
  virtual VBControlPtr Add(std::u16string_view progId) = 0;
};

class VBControl {
 public:
  virtual ~VBControl() = default;
  // Property values as text. "Name" (writable: fires ItemRenamed and is saved into the file's
  // header), "Index" (the array index, "-1" outside a control array) and the control's own
  // properties as the file holds them. An unknown property raises 9 (ours: VB raises 438).
  virtual std::u16string Properties(std::u16string_view name) = 0;
  virtual void SetProperty(std::u16string_view name, std::u16string_view value) = 0;
  // Every property in the file's order, for the Properties window.
  virtual std::vector<std::pair<std::u16string, std::u16string>> PropertyList() = 0;
  virtual std::u16string ClassName() = 0;  // "VB.CommandButton", "MSComctlLib.ListView" ...
  virtual bool InSelection() = 0;
  virtual void SetInSelection(bool selected) = 0;
  virtual ControlObjectPtr ControlObject() = 0;
  virtual VBControlPtr Container() = 0;  // null for a control placed directly on the form
  virtual VBControlsPtr Collection() = 0;

  std::u16string Name() { return Properties(u"Name"); }
  int Index();  // Properties("Index") as a number
};

// The running control behind a designer control, as far as add-ins touch it.
class ControlObject {
 public:
  virtual ~ControlObject() = default;
  // 0 brings the control to the front (last among its siblings); 1 sends it to the back.
  virtual void ZOrder(int position = 0) = 0;
};

}  // namespace vbide
