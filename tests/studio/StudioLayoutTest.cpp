// What a user sees of the studio's layout: screenshots that hold the floating toolbars and
// dialogs, the Standard toolbar, where a new tool window opens, designer windows sized from
// their designers, and docks wide enough for their text.
#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QHeaderView>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableWidget>
#include <QToolBar>
#include <map>

#include "host/CodeModule.h"
#include "host/Component.h"
#include "host/Designer.h"
#include "host/Project.h"
#include "host/Window.h"
#include "studio/CodeEditor.h"
#include "studio/CommandBarView.h"
#include "studio/DesignerView.h"
#include "studio/ProjectExplorer.h"
#include "studio/StudioFixture.h"

namespace studiotest {
namespace {

QRect PlaceOver(QWidget& window, QWidget& main) {
  return QRect(window.mapToGlobal(QPoint(0, 0)) - main.mapToGlobal(QPoint(0, 0)), window.size());
}

QImage Pixels(const QImage& image) {
  return image.convertToFormat(QImage::Format_RGB32);
}

QDockWidget* Dock(studio::MainWindow& window, const QString& name) {
  return window.findChild<QDockWidget*>(name);
}

class StudioLayout : public StudioTest {
 protected:
  // The add-in's tool window behind that item of its menu, shown from there, and its dock.
  QDockWidget* ShowToolWindow(const QString& menuItem) {
    Item(Menu(QStringLiteral("&Quillmark Tools")), menuItem)->trigger();
    Settle();
    for (auto& window : Ide().WindowList()->List())
      if (window->Type() == vbide::vbext_wt_ToolWindow && window->Visible())
        return Window().ToolDock(QString::fromStdU16String(window->PersistentId()));
    return nullptr;
  }
};

TEST_F(StudioLayout, ScreenshotStacksVisibleWindowsAndLeavesHiddenOnesOut) {
  Start();
  auto solid = [](QColor colour, Qt::WindowFlags flags) {
    auto window = std::make_unique<QWidget>(nullptr, flags);
    window->setAutoFillBackground(true);
    QPalette palette = window->palette();
    palette.setColor(QPalette::Window, colour);
    window->setPalette(palette);
    window->resize(120, 90);
    return window;
  };
  QPoint origin = Window().mapToGlobal(QPoint(0, 0));
  auto dialog = solid(Qt::blue, Qt::Dialog);
  dialog->setWindowModality(Qt::ApplicationModal);
  dialog->move(origin + QPoint(360, 260));
  dialog->show();
  auto plain = solid(Qt::red, Qt::Window);
  plain->move(origin + QPoint(300, 200));
  plain->show();
  Window().activateWindow();  // the ordinary window is not the one in use
  Settle();
  QToolBar* floating = Window().Bars().ToolBarNamed(QStringLiteral("Quillmark Tools"));
  ASSERT_NE(floating, nullptr);
  ASSERT_TRUE(floating->isWindow()) << "the add-in floats its toolbar";
  QRect toolBar = PlaceOver(*floating, Window());
  QPoint underToolBar = toolBar.topLeft() + QPoint(110, 8);
  ASSERT_TRUE(PlaceOver(*plain, Window()).contains(underToolBar)) << "the test's own layout";
  QImage shot = studioPtr->Screenshot();
  EXPECT_EQ(shot.pixelColor(310, 250), QColor(Qt::red));
  EXPECT_EQ(shot.pixelColor(underToolBar),
            floating->grab().toImage().pixelColor(underToolBar - toolBar.topLeft()))
      << "a floating toolbar stays over an ordinary window";
  EXPECT_EQ(shot.pixelColor(400, 280), QColor(Qt::blue)) << "the modal dialog is on top";
  plain->hide();
  dialog->hide();
  shot = studioPtr->Screenshot();
  EXPECT_NE(shot.pixelColor(310, 250), QColor(Qt::red));
  EXPECT_NE(shot.pixelColor(400, 280), QColor(Qt::blue));
}

TEST_F(StudioLayout, StandardToolbarIsDockedWithAPictureOnEveryButton) {
  Start();
  QToolBar* standard = Window().Bars().ToolBarNamed(QStringLiteral("Standard"));
  ASSERT_NE(standard, nullptr);
  EXPECT_FALSE(standard->isWindow());
  EXPECT_EQ(Window().toolBarArea(standard), Qt::TopToolBarArea);
  QStringList buttons;
  for (QAction* action : standard->actions()) {
    if (action->isSeparator()) continue;
    buttons << action->text();
    EXPECT_FALSE(action->icon().isNull()) << action->text().toStdString();
  }
  EXPECT_TRUE(buttons.contains(QStringLiteral("Open Project")));
  EXPECT_GE(buttons.size(), 10);
}

// A key bound to two actions is ambiguous to Qt and runs neither.
TEST_F(StudioLayout, EveryShortcutIsBoundToOneActionOnly) {
  Start();
  std::map<QString, QStringList> bound;
  for (QAction* action : Window().findChildren<QAction*>())
    if (!action->shortcut().isEmpty()) bound[action->shortcut().toString()] << action->text();
  ASSERT_TRUE(bound.contains(QStringLiteral("Ctrl+O")));
  for (auto& [keys, actions] : bound)
    EXPECT_EQ(actions.size(), 1) << keys.toStdString() << ": " << actions.join(u',').toStdString();
}

TEST_F(StudioLayout, PasteButtonPastesIntoTheFocusedCodeWindow) {
  Start();
  auto module = Named(u"modTax")->Module();
  module->CodePane()->Show();
  Settle();
  studio::CodeEditor* editor = Window().CodeEditors().at(0);
  Window().activateWindow();
  Settle();
  editor->setFocus();
  editor->moveCursor(QTextCursor::Start);
  ASSERT_EQ(QApplication::focusWidget(), editor);
  QApplication::clipboard()->setText(QStringLiteral("' pasted"));
  QToolBar* standard = Window().Bars().ToolBarNamed(QStringLiteral("Standard"));
  for (QAction* action : standard->actions())
    if (action->text() == QStringLiteral("Paste")) action->trigger();
  Settle();
  EXPECT_EQ(module->LineView(1).substr(0, 8), u"' pasted");
}

TEST_F(StudioLayout, NewToolWindowOpensRaisedAsATabBesideTheImmediateWindow) {
  Start();
  QDockWidget* viewer = ShowToolWindow(QStringLiteral("&Component Viewer"));
  ASSERT_NE(viewer, nullptr);
  QDockWidget* immediate = Dock(Window(), QStringLiteral("ImmediateWindow"));
  EXPECT_EQ(Window().dockWidgetArea(viewer), Qt::BottomDockWidgetArea);
  EXPECT_FALSE(viewer->isFloating());
  EXPECT_TRUE(Window().tabifiedDockWidgets(viewer).contains(immediate));
  EXPECT_TRUE(viewer->widget()->isVisible()) << "its tab is the one shown";
  EXPECT_TRUE(Ide().Immediate()->Visible()) << "a tab behind is not a closed window";
  EXPECT_GE(viewer->width(), Window().width() / 2);
  EXPECT_GE(viewer->height(), 200);
}

TEST_F(StudioLayout, MovedToolWindowOpensWhereTheUserLeftItNextTime) {
  Start();
  QDockWidget* viewer = ShowToolWindow(QStringLiteral("&Component Viewer"));
  ASSERT_NE(viewer, nullptr);
  Window().addDockWidget(Qt::LeftDockWidgetArea, viewer);
  ASSERT_TRUE(Window().close());
  studioPtr.reset();
  Start();
  viewer = ShowToolWindow(QStringLiteral("&Component Viewer"));
  ASSERT_NE(viewer, nullptr);
  EXPECT_EQ(Window().dockWidgetArea(viewer), Qt::LeftDockWidgetArea);
  EXPECT_TRUE(Window().tabifiedDockWidgets(viewer).isEmpty());
}

TEST_F(StudioLayout, UserControlDesignerDrawsTheControlAtItsSizeInAUsableWindow) {
  Start();
  auto control = Named(u"AmountBox");
  ASSERT_NE(control, nullptr);
  control->Activate();
  Settle();
  ASSERT_EQ(Window().Designers().size(), 1u);
  studio::DesignerView* view = Window().Designers()[0];
  // The text box fills the whole control: the control is drawn at its own size, no title bar.
  std::shared_ptr<host::Control> text;
  for (auto& c : control->Form()->List())
    if (c->Properties(u"Name") == u"txtValue") text = c;
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(view->PlaceOf(*text), view->Surface());
  EXPECT_GT(view->Surface().width(), 60);
  QMdiSubWindow* sub = Window().Area().subWindowList().front();
  EXPECT_GE(sub->width(), 300);
  EXPECT_GE(sub->height(), 200);
}

TEST_F(StudioLayout, FormDesignerOpensShowingTheWholeForm) {
  Start();
  auto form = Named(u"frmPayment");
  ASSERT_NE(form, nullptr);
  form->Activate();
  Settle();
  ASSERT_EQ(Window().Designers().size(), 1u);
  studio::DesignerView* view = Window().Designers()[0];
  auto* scroller = qobject_cast<QScrollArea*>(Window().Area().subWindowList().front()->widget());
  ASSERT_NE(scroller, nullptr);
  EXPECT_GT(view->Surface().top(), 8) << "a form has its title bar";
  QSize seen = scroller->viewport()->size();
  EXPECT_GE(seen.width(), view->sizeHint().width());
  EXPECT_GE(seen.height(), view->sizeHint().height());
}

TEST_F(StudioLayout, WindowsOpenedOneAfterAnotherStayInsideTheArea) {
  Start();
  for (auto name : {u"frmPayment", u"AmountBox", u"frmCustomers", u"modTax", u"ppgAmount"}) {
    Named(name)->Activate();
    Settle();
  }
  QRect room(QPoint(0, 0), Window().Area().viewport()->size());
  ASSERT_EQ(Window().Area().subWindowList().size(), 5);
  for (QMdiSubWindow* sub : Window().Area().subWindowList())
    EXPECT_TRUE(room.contains(sub->geometry())) << sub->windowTitle().toStdString();
}

TEST_F(StudioLayout, ProjectAndPropertiesWindowsShowTheirTextWhole) {
  Start();
  auto& tree = Window().Explorer();
  EXPECT_GE(tree.columnWidth(0), tree.ContentWidth()) << "no item is cut short";
  EXPECT_EQ(tree.horizontalScrollBar()->maximum(), 0) << "and none needs scrolling to";
  QTableWidget& properties = Window().Properties();
  auto* header = properties.horizontalHeader();
  for (int column = 0; column < 2; ++column)
    EXPECT_GE(header->sectionSize(column), header->fontMetrics().horizontalAdvance(
                                               properties.horizontalHeaderItem(column)->text()));
}

// Written into the build folder for a person to look at: a form's designer, the add-in's
// search dialog over the main window, and the search's results.
TEST_F(StudioLayout, ScreenshotOfTheSearchDialogOverADesigner) {
  Start();
  Named(u"frmPayment")->Activate();
  Named(u"AmountBox")->Activate();
  Item(Menu(QStringLiteral("&Quillmark Tools")), QStringLiteral("&Visual Search and Replace"))
      ->trigger();
  Settle();
  QWidget* dialog = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window != &Window() && window->isVisible() && !qobject_cast<QToolBar*>(window))
      dialog = window;
  ASSERT_NE(dialog, nullptr) << "the search dialog is a window of its own";
  auto out = std::filesystem::path(QM_BINARY_DIR) / "studio-screenshots";
  std::filesystem::create_directories(out);
  QImage shot = studioPtr->Screenshot();
  ASSERT_TRUE(shot.save(QString::fromStdString((out / "main-with-search.png").string())));
  QRect place = PlaceOver(*dialog, Window()).intersected(shot.rect());
  ASSERT_FALSE(place.isEmpty());
  EXPECT_EQ(Pixels(shot.copy(place)),
            Pixels(dialog->grab().toImage().copy(QRect(QPoint(0, 0), place.size()))));
}

}  // namespace
}  // namespace studiotest
