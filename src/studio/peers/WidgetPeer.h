// studio::WidgetPeer: a Qt widget drawing one control of the form engine and reporting its user.
#pragma once

#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string_view>

#include "runtime/forms/Control.h"
#include "runtime/forms/ControlPeer.h"
#include "studio/peers/TwipScale.h"

namespace studio {

// What every peer of a form needs from the form's peer.
class PeerHost {
 public:
  virtual ~PeerHost() = default;
  virtual const TwipScale& Scale() const = 0;
  // Runs a user's action as the engine's guard would: an error that escapes it is shown, never
  // thrown into Qt's event loop.
  virtual void UserAction(const std::function<void()>& action) = 0;
  // The control moved or changed container: the host places the widget.
  virtual void Place(vb::Control& control) = 0;
};

// Owns its widget (a child of the form's widget or of a container's) and deletes it with itself.
// Apply("") applies every property; the widget's signals that echo what the peer applied are
// ignored (Applying() is true meanwhile), so only the user's own actions reach the engine.
class WidgetPeer : public vb::ControlPeer {
 public:
  WidgetPeer(vb::Control& control, PeerHost& host);
  ~WidgetPeer() override;
  WidgetPeer(const WidgetPeer&) = delete;
  WidgetPeer& operator=(const WidgetPeer&) = delete;

  vb::Control& Control() const { return control_; }
  QWidget* Widget() const { return widget_; }
  // Where the children of a container go, and where their (0, 0) lies in it.
  virtual QWidget* ChildHost() const { return widget_; }
  virtual QPoint ChildOrigin() const { return {}; }
  // The widgets that take the keyboard for this control (a combo box's line edit too).
  virtual QList<QWidget*> KeyWidgets() const { return {widget_}; }
  // Whether the widget sits below the controls drawn over it (a tab strip's panel).
  virtual bool StaysBehind() const { return false; }
  // Whether a mouse click on the widget is the control's Click (widgets without a click signal
  // of their own: labels, images, picture boxes, frames).
  virtual bool ClicksByMouse() const { return false; }
  // Whether the engine types characters into the control (text boxes, editable combo boxes):
  // the form's key routing then keeps them from the widget, and shows the engine's result.
  virtual bool TypesThroughEngine() const { return false; }
  virtual void AfterEngineKey() {}
  // Whether the left button's MouseDown and MouseUp are reported (controls whose clicks are
  // not the engine's own UserClick, such as a list view's rows).
  virtual bool ReportsLeftMouse() const { return false; }

  void Changed(vb::Property property) final;
  void ApplyAll() { Changed(vb::Property::All); }

 protected:
  // Takes the widget, which the subclass made without a parent.
  void SetWidget(QWidget* widget);
  // The kind's own properties; "" means all of them.
  virtual void Apply(vb::Property property) = 0;
  bool Applying() const { return applying_ > 0; }
  // A user's action may unload the form and so destroy this peer: true when it still lives.
  bool UserAction(const std::function<void()>& action);
  const TwipScale& Scale() const { return host_.Scale(); }
  static bool Is(vb::Property property, vb::Property name) {
    return property == vb::Property::All || property == name;
  }

 private:
  void ApplyCommon(vb::Property property);

  vb::Control& control_;
  PeerHost& host_;
  QPointer<QWidget> widget_;
  int applying_ = 0;
  std::shared_ptr<int> alive_ = std::make_shared<int>(0);
};

}  // namespace studio
