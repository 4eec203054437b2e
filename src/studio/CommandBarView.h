// studio::CommandBarView: the IDE's menu bar and toolbars drawn from its command-bar model, and
// redrawn whenever the model changes.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/CommandBars.h"
#include "vbide/Event.h"

class QMainWindow;
class QMenu;
class QToolBar;
class QAction;

namespace studio {

class CommandBarView final : public QObject {
  Q_OBJECT
 public:
  // `guard` runs every user action (a click, a committed combo box) so that an error escaping
  // an add-in is reported, never thrown into Qt.
  using Guard = std::function<void(const std::function<void()>&)>;
  CommandBarView(QMainWindow& window, std::shared_ptr<host::CommandBars> bars, Guard guard);
  ~CommandBarView() override;

  // The studio's own work behind a built-in item, by the item's command (its tag). Clicking the
  // item raises its Click for the add-ins first, then runs the command.
  void SetCommand(host::IdeCommand ide, std::function<void()> command);
  // Actions of the studio's own (not in the model) shown at the end of a menu, by the menu's
  // name without "&" ("View").
  void AddExtraAction(const std::u16string& menuName, QAction* action);

  // Draws the model now; changes are otherwise drawn once per turn of the event loop.
  void Rebuild();
  // Opens the menu whose caption has `key` as its access key (Alt+letter). False when none has.
  bool OpenMenu(QChar key);
  // The drawn toolbar of the bar named `name`, or null when it is not drawn (hidden or absent).
  QToolBar* ToolBarNamed(const QString& name) const;
  int Rebuilds() const { return rebuilds_; }

 private:
  void ScheduleRebuild();
  // Runs a user's action on a drawn control. The bars are never redrawn while one runs (the
  // widget delivering it would be deleted under its own handler, and an add-in's search runs
  // DoEvents inside it); a change meanwhile is drawn once the outermost action is over.
  void RunUserAction(const std::function<void()>& action);
  // A floating toolbar the user moved: its place goes into the model, so a redraw keeps it and
  // the add-in saves it at disconnection.
  void RecordFloatingPlace(QToolBar& toolBar);
  bool eventFilter(QObject* watched, QEvent* event) override;
  void BuildMenuBar();
  void BuildToolBars();
  void FillMenu(QMenu& menu, host::CommandBar& bar);
  void AddControl(QMenu* menu, QToolBar* toolBar, const vbide::CommandBarControlPtr& control);
  QAction* MakeButtonAction(QObject* parent, const std::shared_ptr<host::CommandBarButton>& button);
  void AddComboBox(QToolBar& toolBar, const std::shared_ptr<host::CommandBarComboBox>& combo);
  void PlaceToolBar(QToolBar& toolBar, host::CommandBar& bar);

  QMainWindow& window_;
  std::shared_ptr<host::CommandBars> bars_;
  Guard guard_;
  vbide::Subscription changed_;
  std::map<std::u16string, std::function<void()>> commands_;
  std::multimap<std::u16string, QAction*> extras_;
  std::vector<QToolBar*> toolBars_;
  bool pending_ = false;
  int rebuilds_ = 0;
  int actionDepth_ = 0;
  int recording_ = 0;  // the view itself is writing a place into the model
};

}  // namespace studio
