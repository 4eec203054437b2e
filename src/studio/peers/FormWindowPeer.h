// studio::FormWindowPeer: the Qt window of a form, or the widget of a user document, and the
// peers of everything on it.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "runtime/forms/ControlPeer.h"
#include "runtime/forms/FormBase.h"
#include "studio/peers/WidgetPeer.h"

class QEventLoop;
class QMenu;
class QMenuBar;

namespace vb {
class Form;
class Runtime;
}  // namespace vb

namespace studio {

class FormWindow;

// A form is a top-level window (caption, place, border style, top-most, modal loop); a
// document is a plain widget that the shell puts in a dock and whose size the dock decides.
// Controls are placed in the client area at their twips scaled to pixels; menus make the menu
// bar and the popup menus. Keys, clicks and focus go to the engine's User* calls, so KeyPreview
// and the Default and Cancel buttons behave exactly as they do without a toolkit.
class FormWindowPeer : public QObject, public vb::FormPeer, public PeerHost {
 public:
  // `gone` runs when the engine destroys the object; the owner then destroys the peer.
  FormWindowPeer(vb::FormBase& object, TwipScale scale, std::function<void(FormWindowPeer*)> gone);
  ~FormWindowPeer() override;

  vb::FormBase& Object() const { return object_; }
  QWidget* Window() const;
  // The widget standing for a window handle of this object (the window, or a control's).
  QWidget* WidgetOf(vb::Hwnd hwnd) const;
  WidgetPeer* PeerOf(const vb::Control& control) const;
  void ShowTopMost();

  // vb::FormPeer
  void Changed(vb::Property property) override;
  bool RunModal(const std::function<bool()>& stillOpen) override;
  bool PopupMenu(vb::Menu& menu, float x, float y) override;
  void ControlAdded(vb::Control& control) override;
  void ControlRemoved(vb::Control& control) override;
  // The engine is destroying the object (its controls are gone): the owner destroys this peer.
  void ObjectDestroyed();

  // PeerHost
  const TwipScale& Scale() const override { return scale_; }
  void UserAction(const std::function<void()>& action) override;
  void Place(vb::Control& control) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class MenuWatch;
  void AddPeer(vb::Control& control);
  void AddPending();
  void Watch(WidgetPeer& peer);
  bool RouteKey(WidgetPeer* peer, QObject* watched, QEvent* event);
  bool RouteMouse(WidgetPeer& peer, QObject* watched, QEvent* event);
  void ApplyWindow(vb::Property property);
  void ApplyFlags();
  void ApplyGeometry();
  void ShowOrHide();
  bool AnotherTopMostShown() const;
  void PlaceFirstTime(vb::Form& form);
  void RebuildMenuBar();
  void ScheduleMenuBar();
  void FillMenu(QMenu& target, const vb::Menu& menu);
  void UserResized();
  void QuitModalIfClosed();
  vb::Form* AsForm() const;

  vb::FormBase& object_;
  vb::Runtime& runtime_;
  TwipScale scale_;
  std::function<void(FormWindowPeer*)> gone_;
  bool objectAlive_ = true;
  QPointer<FormWindow> window_;
  QPointer<QWidget> client_;
  QPointer<QMenuBar> menuBar_;
  std::unordered_map<const vb::Control*, std::unique_ptr<WidgetPeer>> peers_;
  std::unordered_map<const vb::Control*, std::unique_ptr<vb::ControlPeer>> menus_;
  std::unordered_map<const QObject*, WidgetPeer*> watched_;
  std::vector<vb::Control*> pending_;
  bool menuBarScheduled_ = false;
  int applying_ = 0;
  QEventLoop* modalLoop_ = nullptr;
  std::function<bool()> stillOpen_;
  bool topMost_ = false;
  bool overTopMost_ = false;  // kept on top because it opened over a top-most window
  bool shownOnce_ = false;
  int redelivering_ = 0;
  int quiet_ = 0;  // a key the engine has heard goes on to its widget
  std::shared_ptr<int> alive_ = std::make_shared<int>(0);  // expires with this peer
};

}  // namespace studio
