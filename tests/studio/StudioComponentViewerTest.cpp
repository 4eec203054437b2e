// The Component Viewer in the studio, driven through its real widgets: it follows the Project
// window, picks a view, opens code or the designer on a double-click, and its right-button menu
// renames in place, selects and deletes, with the result at once in the open code window and on
// the designer.
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include "host/CodeModule.h"
#include "host/Component.h"
#include "host/Designer.h"
#include "host/Project.h"
#include "runtime/VbConstants.h"
#include "studio/CodeEditor.h"
#include "studio/CommandBarView.h"
#include "studio/DesignerView.h"
#include "studio/ProjectExplorer.h"
#include "studio/StudioFixture.h"
#include "vbide/CodePane.h"
#include "vbide/Member.h"
#include "vbide/VBForm.h"
#include "vbide/Window.h"

namespace studiotest {
namespace {

class StudioViewer : public StudioTest {
 protected:
  // Starts the studio and opens the viewer from the add-in's toolbar.
  void StartViewer() {
    Start();
    QToolBar* bar = Window().Bars().ToolBarNamed(QStringLiteral("Quillmark Tools"));
    ASSERT_NE(bar, nullptr);
    for (QAction* action : bar->actions())
      if (action->text() == QStringLiteral("Component Viewer")) action->trigger();
    Settle();
    for (auto* dock : Window().findChildren<QDockWidget*>())
      if (dock->windowTitle() == QStringLiteral("Component Viewer")) dock_ = dock;
    ASSERT_NE(dock_, nullptr);
    ASSERT_TRUE(dock_->isVisible());
  }
  QTableView* Table() { return dock_->widget()->findChild<QTableView*>(); }
  QComboBox* Selector() { return dock_->widget()->findChild<QComboBox*>(); }
  // A click on the component in the Project window.
  void ClickInProjectWindow(std::u16string_view name) {
    auto* tree = Window().findChild<studio::ProjectExplorer*>();
    ASSERT_NE(tree, nullptr);
    QTreeWidgetItem* item = tree->ItemOf(Named(name));
    ASSERT_NE(item, nullptr);
    tree->scrollToItem(item);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(item).center());
    Settle();
  }
  QStringList Rows() {
    QStringList rows;
    for (int r = 0; r < Table()->model()->rowCount(); ++r)
      rows << Table()->model()->index(r, 0).data().toString();
    return rows;
  }
  QPoint RowPoint(const QString& text) {
    int row = static_cast<int>(Rows().indexOf(text));
    EXPECT_GE(row, 0) << text.toStdString();
    return Table()->visualRect(Table()->model()->index(row, 0)).center();
  }
  void ClickRow(const QString& text, Qt::KeyboardModifiers modifiers = {}) {
    QTest::mouseClick(Table()->viewport(), Qt::LeftButton, modifiers, RowPoint(text));
    Settle();
  }
  // Right-clicks the row; `inside` runs while the popup menu is up, then the menu closes.
  void PopupOn(const QString& row, const std::function<void(QMenu&)>& inside) {
    bool seen = false;
    QTimer watch;
    watch.setInterval(0);
    QObject::connect(&watch, &QTimer::timeout, [&] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (!menu) return;
      watch.stop();
      seen = true;
      inside(*menu);
      menu->close();
    });
    watch.start();
    QTest::mouseClick(Table()->viewport(), Qt::RightButton, {}, RowPoint(row));
    Settle();
    EXPECT_TRUE(seen) << "no popup menu on " << row.toStdString();
  }
  static QAction* Action(QMenu& menu, const QString& caption) {
    for (QAction* action : menu.actions())
      if (action->text() == caption) return action;
    return nullptr;
  }
  QString CodeWindowText(std::u16string_view module) {
    for (auto* editor : Window().findChildren<studio::CodeEditor*>())
      if (editor->Pane()->CodeModule()->Parent()->Name() == module) return editor->toPlainText();
    return QStringLiteral("(no code window)");
  }

  QDockWidget* dock_ = nullptr;
};

TEST_F(StudioViewer, FollowsTheProjectWindowAndOpensCodeOrTheDesignerOnADoubleClick) {
  StartViewer();
  ClickInProjectWindow(u"frmCustomers");
  EXPECT_TRUE(Rows().contains(QStringLiteral("lblField (4)")));
  EXPECT_TRUE(Rows().contains(QStringLiteral("txtName")));
  ClickInProjectWindow(u"modTax");
  EXPECT_TRUE(Rows().isEmpty()) << "a module has no controls";

  // "(Methods/Properties)" picked from the selector's list.
  QComboBox* selector = Selector();
  selector->setFocus();
  QTest::keyClick(selector, Qt::Key_Down);
  Settle();
  ASSERT_EQ(selector->currentText(), QStringLiteral("(Methods/Properties)"));
  ASSERT_GT(Rows().size(), 1);
  EXPECT_EQ(Rows().front(), QStringLiteral("(Declarations)"));
  QString member = Rows().at(1);
  ClickRow(member);  // a person's double-click starts with a click
  QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, RowPoint(member));
  Settle();
  auto pane = Ide().ActiveCodePane();
  ASSERT_TRUE(pane) << member.toStdString();
  int sl, sc, el, ec;
  pane->GetSelection(sl, sc, el, ec);
  auto code = Named(u"modTax")->CodeModule();
  EXPECT_EQ(sl, code->Members()->Item(member.toStdU16String())->CodeLocation());
  EXPECT_EQ(std::vector<int>({sc, el - sl, ec}), std::vector<int>({1, 0, 1}));

  ClickInProjectWindow(u"frmCustomers");
  selector->setFocus();
  QTest::keyClick(selector, Qt::Key_Up);  // back to "(Controls)"
  Settle();
  ClickRow(QStringLiteral("txtCode"));
  QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, RowPoint(QStringLiteral("txtCode")));
  Settle();
  auto designer = Named(u"frmCustomers")->DesignerWindow();
  EXPECT_TRUE(designer->Visible());
  EXPECT_EQ(Ide().ActiveWindow(), designer);

  // Where the user left it, it comes back: open, in the same dock area.
  Qt::DockWidgetArea area = Window().dockWidgetArea(dock_);
  // The click on txtCode brought it to the front, a change the exit offers to save.
  studioPtr->Desk().runtime->MessageBoxService().ScriptAnswer(vb::vbNo);
  studioPtr->ExitThroughMenu();
  studioPtr.reset();
  Start();
  Settle();
  QDockWidget* again = nullptr;
  for (auto* dock : Window().findChildren<QDockWidget*>())
    if (dock->windowTitle() == QStringLiteral("Component Viewer")) again = dock;
  ASSERT_NE(again, nullptr);
  EXPECT_TRUE(again->isVisible());
  EXPECT_EQ(Window().dockWidgetArea(again), area);
}

TEST_F(StudioViewer, PopupMenuRenamesInPlaceSelectsAndDeletesWithTheResultShownAtOnce) {
  StartViewer();
  Named(u"frmCustomers")->Activate();  // the designer
  Named(u"frmCustomers")->CodeModule()->CodePane()->Show();
  ClickInProjectWindow(u"frmCustomers");

  // Rename: the label becomes an editor; Enter commits the typed name.
  ClickRow(QStringLiteral("txtName"));
  PopupOn(QStringLiteral("txtName"), [](QMenu& menu) {
    EXPECT_TRUE(Action(menu, QStringLiteral("&Select"))->isEnabled());
    EXPECT_TRUE(Action(menu, QStringLiteral("&Delete"))->isEnabled());
    Action(menu, QStringLiteral("&Rename"))->trigger();
  });
  auto* editor = Table()->viewport()->findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr) << "the label is edited in place";
  editor->selectAll();
  QTest::keyClicks(editor, QStringLiteral("txtFullName"));
  QTest::keyClick(editor, Qt::Key_Return);
  Settle();
  EXPECT_TRUE(Rows().contains(QStringLiteral("txtFullName")));
  EXPECT_TRUE(CodeWindowText(u"frmCustomers").contains(QStringLiteral("txtFullName.Text = ")))
      << CodeWindowText(u"frmCustomers").toStdString();
  auto controls = Named(u"frmCustomers")->Designer()->VBControls()->Items();
  EXPECT_TRUE(std::any_of(controls.begin(), controls.end(),
                          [](auto& c) { return c->Name() == u"txtFullName"; }));

  // Select: every selected row's control gets the designer's selection handles.
  ClickRow(QStringLiteral("txtCity"));
  ClickRow(QStringLiteral("lblField (2)"), Qt::ControlModifier);
  PopupOn(QStringLiteral("lblField (2)"),
          [](QMenu& menu) { Action(menu, QStringLiteral("&Select"))->trigger(); });
  auto selected = Named(u"frmCustomers")->Designer()->SelectedVBControls()->Items();
  QStringList names;
  for (auto& control : selected)
    names << QString::fromStdU16String(control->Name()) + QString::number(control->Index());
  names.sort();
  EXPECT_EQ(names, (QStringList{QStringLiteral("lblField2"), QStringLiteral("txtCity-1")}));
  Settle();
  if (auto* surface = Window().findChild<studio::DesignerView*>()) {
    // Written into the build folder for a person to look at: the handles on the two controls.
    QDir().mkpath(QString(QM_BINARY_DIR) + "/studio-screenshots");
    surface->grab().save(QString(QM_BINARY_DIR) + "/studio-screenshots/viewer-select.png");
  }

  // Delete with its code: the control leaves the list and the designer, its procedure the
  // code window.
  studioPtr->Desk().runtime->MessageBoxService().ScriptAnswer(vb::vbYes);
  ClickRow(QStringLiteral("txtCode"));
  PopupOn(QStringLiteral("txtCode"),
          [](QMenu& menu) { Action(menu, QStringLiteral("&Delete"))->trigger(); });
  EXPECT_FALSE(Rows().contains(QStringLiteral("txtCode")));
  EXPECT_FALSE(CodeWindowText(u"frmCustomers").contains(QStringLiteral("txtCode_KeyPress")));
  EXPECT_TRUE(CodeWindowText(u"frmCustomers").contains(QStringLiteral("Sub SaveDetails")));

  // The declarations row offers only New.
  Selector()->setFocus();
  for (int i = 0; i < 3; ++i) QTest::keyClick(Selector(), Qt::Key_Down);  // "(Events)"
  Settle();
  PopupOn(QStringLiteral("(Declarations)"), [](QMenu& menu) {
    EXPECT_FALSE(Action(menu, QStringLiteral("&Rename"))->isEnabled());
    EXPECT_FALSE(Action(menu, QStringLiteral("&Select"))->isEnabled());
    EXPECT_TRUE(Action(menu, QStringLiteral("&New"))->isEnabled());
  });
  studioPtr->Desk().runtime->MessageBoxService().ScriptAnswer(vb::vbNo);  // keep the files
  studioPtr->ExitThroughMenu();
}

}  // namespace
}  // namespace studiotest
