// vb::ControlPeer and vb::FormPeer: the seam through which a toolkit draws the engine's objects.
#pragma once

#include <functional>
#include <string_view>

namespace vb {

class Control;
class Menu;

// A peer is told of every change of its object's state and reports the user's actions back by
// calling the object's User* methods. Objects without a peer are headless. The engine does not
// own peers; a peer must detach (SetPeer(nullptr)) before it dies.
class ControlPeer {
 public:
  virtual ~ControlPeer() = default;
  // `property` is the VB property name ("Caption", "Visible", "ListIndex" ...).
  virtual void Changed(std::string_view property) = 0;
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
