// vbide::CommandBars and friends: the IDE's menus and toolbars (the Office command-bar model).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "vbide/Enums.h"
#include "vbide/Fwd.h"

namespace vbide {

// "Menu Bar", each menu popup by its caption without "&" ("Tools"), and the toolbars.
class CommandBars {
 public:
  virtual ~CommandBars() = default;
  virtual int Count() = 0;
  virtual CommandBarPtr Item(int index) = 0;                 // 1-based
  virtual CommandBarPtr Item(std::u16string_view name) = 0;  // raises 9 when absent
  virtual std::vector<CommandBarPtr> Items() = 0;
  // A new, empty, visible toolbar.
  virtual CommandBarPtr Add(std::u16string_view name) = 0;
};

class CommandBar {
 public:
  virtual ~CommandBar() = default;
  virtual std::u16string Name() = 0;
  virtual CommandBarControlsPtr Controls() = 0;
  virtual int Position() = 0;  // MsoBarPosition
  virtual void SetPosition(int position) = 0;
  virtual int Left() = 0;  // pixels
  virtual void SetLeft(int left) = 0;
  virtual int Top() = 0;  // pixels
  virtual void SetTop(int top) = 0;
  virtual int RowIndex() = 0;
  virtual void SetRowIndex(int row) = 0;
  virtual bool Visible() = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual int Protection() = 0;  // MsoBarProtection bits
  virtual void SetProtection(int protection) = 0;
  virtual void Delete() = 0;
};

class CommandBarControls {
 public:
  virtual ~CommandBarControls() = default;
  virtual int Count() = 0;
  virtual CommandBarControlPtr Item(int index) = 0;  // 1-based
  virtual std::vector<CommandBarControlPtr> Items() = 0;
  // Appends a button (1), combo box (4) or popup (10); `before` (1-based) inserts instead.
  virtual CommandBarControlPtr Add(int type, int before = 0) = 0;
  virtual CommandBarPtr Parent() = 0;
};

class CommandBarControl {
 public:
  virtual ~CommandBarControl() = default;
  virtual int Type() = 0;                // MsoControlType
  virtual std::u16string Caption() = 0;  // "&" marks the access key
  virtual void SetCaption(std::u16string_view caption) = 0;
  virtual bool BeginGroup() = 0;  // a separator line before the control
  virtual void SetBeginGroup(bool value) = 0;
  virtual int Width() = 0;  // pixels
  virtual void SetWidth(int width) = 0;
  virtual bool Enabled() = 0;
  virtual void SetEnabled(bool value) = 0;
  virtual bool Visible() = 0;
  virtual void SetVisible(bool value) = 0;
  virtual std::u16string ToolTipText() = 0;
  virtual void SetToolTipText(std::u16string_view text) = 0;
  virtual std::u16string Tag() = 0;
  virtual void SetTag(std::u16string_view tag) = 0;
  // Takes the picture on the clipboard as the face; raises 5 when the clipboard holds none.
  virtual void PasteFace() = 0;
  virtual void Delete() = 0;
  virtual CommandBarPtr Parent() = 0;
  // For a popup: its own controls and command bar; null for other controls.
  virtual CommandBarControlsPtr Controls() = 0;
  virtual CommandBarPtr CommandBar() = 0;
};

// List positions count from 1; ListIndex 0 means the text was typed rather than picked.
class CommandBarComboBox : public CommandBarControl {
 public:
  virtual void AddItem(std::u16string_view text, int index = 0) = 0;  // 0 appends
  virtual void RemoveItem(int index) = 0;
  virtual void Clear() = 0;
  virtual std::u16string List(int index) = 0;
  virtual int ListCount() = 0;
  virtual int ListIndex() = 0;
  virtual void SetListIndex(int index) = 0;
  virtual std::u16string Text() = 0;
  virtual void SetText(std::u16string_view text) = 0;
};

}  // namespace vbide
