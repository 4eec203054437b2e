// vb::ControlPeer and vb::FormPeer: the seam through which a toolkit draws the engine's objects.
#pragma once

#include <array>
#include <functional>
#include <string_view>

namespace vb {

// What changed on a control or a form, by its VB property name (Move: any of Left, Top, Width,
// Height; Extent: a document's size; Loaded: a form's load state). All: everything, as when a
// peer first draws its object.
enum class Property {
  All,
  Alignment,
  BackColor,
  BorderStyle,
  Cancel,
  Caption,
  Checked,
  Container,
  Default,
  EditingItem,
  Enabled,
  ExtendedStyle,
  Extent,
  Font,
  ForeColor,
  LabelEdit,
  ListIndex,
  Loaded,
  MousePointer,
  Move,
  MultiSelect,
  Panels,
  Picture,
  SelLength,
  SelStart,
  SelectedItem,
  SmallIcons,
  Stretch,
  Style,
  TabIndex,
  Tabs,
  Text,
  ToolTipText,
  Value,
  View,
  Visible,
  WindowState,
};

inline constexpr std::array<std::string_view, static_cast<std::size_t>(Property::WindowState) + 1>
    kPropertyNames{
        "",
        "Alignment",
        "BackColor",
        "BorderStyle",
        "Cancel",
        "Caption",
        "Checked",
        "Container",
        "Default",
        "EditingItem",
        "Enabled",
        "ExtendedStyle",
        "Extent",
        "Font",
        "ForeColor",
        "LabelEdit",
        "ListIndex",
        "Loaded",
        "MousePointer",
        "Move",
        "MultiSelect",
        "Panels",
        "Picture",
        "SelLength",
        "SelStart",
        "SelectedItem",
        "SmallIcons",
        "Stretch",
        "Style",
        "TabIndex",
        "Tabs",
        "Text",
        "ToolTipText",
        "Value",
        "View",
        "Visible",
        "WindowState",
    };

// The property's VB name ("" for All), for logs and tests.
constexpr std::string_view PropertyName(Property property) {
  return kPropertyNames[static_cast<std::size_t>(property)];
}

class Control;
class Menu;

// A peer is told of every change of its object's state and reports the user's actions back by
// calling the object's User* methods. Objects without a peer are headless. The engine does not
// own peers; a peer must detach (SetPeer(nullptr)) before it dies.
class ControlPeer {
 public:
  virtual ~ControlPeer() = default;
  virtual void Changed(Property property) = 0;
  // Lists (combo and list boxes, list views, column headers): rows count from 0 here, as in a
  // toolkit's item model, and every change is one of these, so a model/view peer never copies.
  virtual void RowsReset() {}
  virtual void RowsInserted(int /*first*/, int /*count*/) {}
  virtual void RowsRemoved(int /*first*/, int /*count*/) {}
  virtual void RowChanged(int /*row*/) {}
  virtual void ColumnsChanged() {}
};

class FormPeer : public ControlPeer {
 public:
  // Runs the toolkit's nested loop until `stillOpen` turns false. False: not taken over, and the
  // engine's headless modal loop runs instead.
  virtual bool RunModal(const std::function<bool()>& /*stillOpen*/) { return false; }
  // Shows the popup menu and returns after the user's choice (whose Click the peer raises
  // through Menu::UserClick). False: not shown, the engine records the popup instead.
  virtual bool PopupMenu(Menu& /*menu*/, float /*x*/, float /*y*/) { return false; }
  // A control joined or left the object after the peer was attached (a control array's Load
  // and Unload). ControlAdded runs from the control's base constructor: the control is not
  // complete yet, so a peer draws it later, and ControlRemoved runs before it is gone.
  virtual void ControlAdded(Control& /*control*/) {}
  virtual void ControlRemoved(Control& /*control*/) {}
};

}  // namespace vb
