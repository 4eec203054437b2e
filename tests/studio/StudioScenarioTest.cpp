// A person's paths through the studio, from start to quit, driven through the real widgets with
// Qt Test's key and mouse events: the toolbar's search box, the search dialog, the results list,
// the replace dialog, the floating toolbar, the results window's columns and tab, quitting.
#include <QAbstractButton>
#include <QComboBox>
#include <QDockWidget>
#include <QEventLoop>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <algorithm>

#include "addin/Connect.h"
#include "host/CodePane.h"
#include "host/Component.h"
#include "host/Designer.h"
#include "host/Project.h"
#include "runtime/CodePage.h"
#include "studio/AddInManager.h"
#include "studio/CodeEditor.h"
#include "studio/CommandBarView.h"
#include "studio/DesignerView.h"
#include "studio/StudioFixture.h"
#include "studio/peers/MessageBoxPlan.h"
#include "studio/peers/WidgetPeer.h"
#include "vbide/CodeModule.h"

namespace studiotest {
namespace {

class StudioScenario : public StudioTest {
 protected:
  QComboBox* SearchBox() {
    for (QToolBar* toolBar : Window().findChildren<QToolBar*>())
      if (auto* box = toolBar->findChild<QComboBox*>()) return box;
    return nullptr;
  }
  QToolBar* AddInToolBar() {
    return Window().Bars().ToolBarNamed(QStringLiteral("Quillmark Tools"));
  }
  void TypeSearch(const QString& text) {
    QComboBox* box = SearchBox();
    ASSERT_NE(box, nullptr);
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), text);
    Press(box->lineEdit(), Qt::Key_Return);
    Settle();
  }
  // A person's key, delivered from inside a running event loop as in the studio (an add-in's
  // search pumps that loop, so deferred deletions and queued redraws can run under the key's
  // handler). The widget that got the key must outlive its own handling of it; checked here,
  // because the reads of a widget deleted that way happen inside Qt, which the address
  // sanitizer does not see.
  static void Press(QWidget* target, int key) {
    QPointer<QWidget> alive = target;
    bool survived = false;
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
      QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
      QCoreApplication::sendEvent(target, &press);
      survived = !alive.isNull();
      loop.quit();
    });
    loop.exec();
    EXPECT_TRUE(survived) << "deleted while handling its own key";
  }
  QDockWidget* ResultsDock() {
    for (auto* dock : Window().findChildren<QDockWidget*>())
      if (dock->windowTitle() == QStringLiteral("Search Results")) return dock;
    return nullptr;
  }
  QTableView* ResultsTable() {
    QDockWidget* dock = ResultsDock();
    return dock ? dock->widget()->findChild<QTableView*>() : nullptr;
  }
  int ResultRows() {
    QTableView* table = ResultsTable();
    return table ? table->model()->rowCount() : -1;
  }
  quillmark::mdlMain& Main() { return studioPtr->Desk().Addin()->Main(); }
  // The engine's control on a shown add-in window, drawn by this widget.
  template <class Widget>
  Widget* Drawn(const char16_t* form, const char16_t* control, int index = -1) {
    auto* object = studioPtr->Desk().runtime->FindLoaded(form);
    auto* engine = object ? object->FindControl(control, index) : nullptr;
    auto* peer = engine ? dynamic_cast<studio::WidgetPeer*>(engine->Peer()) : nullptr;
    return peer ? qobject_cast<Widget*>(peer->Widget()) : nullptr;
  }
  // The search dialog's scope set to the whole group: "(All Projects)" heads its sorted list.
  // A search over several modules lets pending work run between them.
  void ScopeAllProjects() {
    Item(Menu(QStringLiteral("&Quillmark Tools")), QStringLiteral("&Visual Search and Replace"))
        ->trigger();
    Settle();
    auto* projects = Drawn<QComboBox>(u"frmSearch", u"cboProject");
    ASSERT_NE(projects, nullptr);
    QTest::keyClick(projects, Qt::Key_Home);
    ASSERT_EQ(projects->currentText(), QStringLiteral("(All Projects)"));
  }
  // Runs `inside` once the modal dialog that `open` shows is up, then closes it.
  void WithModal(const std::function<void()>& open, const std::function<void(QWidget&)>& inside) {
    bool seen = false;
    QTimer::singleShot(0, [&] {
      QWidget* modal = QApplication::activeModalWidget();
      if (!modal) return;
      seen = true;
      inside(*modal);
      if (QApplication::activeModalWidget() == modal) modal->close();
    });
    open();
    EXPECT_TRUE(seen) << "no modal dialog opened";
  }
};

// Enter in the toolbar's box, and a pick from its list, rebuilt the toolbar under the box's own
// key handler (SIGSEGV in the lambda of CommandBarView::AddComboBox).
TEST_F(StudioScenario, ToolbarSearchBoxRedrawnUnderItsOwnKeyHandler) {
  Start();
  ScopeAllProjects();
  TypeSearch(QStringLiteral("Dim"));
  int dimRows = ResultRows();
  EXPECT_GT(dimRows, 0);
  TypeSearch(QStringLiteral("Function"));
  EXPECT_GT(ResultRows(), 0);
  EXPECT_NE(ResultRows(), dimRows);
  QComboBox* box = SearchBox();
  ASSERT_NE(box, nullptr);
  int dim = box->findText(QStringLiteral("Dim"));
  ASSERT_GT(dim, 0) << "the earlier text is listed below the latest";
  box->setCurrentIndex(dim - 1);
  Press(box, Qt::Key_Down);  // picks "Dim" from the list
  Settle();
  EXPECT_EQ(ResultRows(), dimRows);
  EXPECT_FALSE(Main().Searching);
}

// Right after a project opened nothing was selected, the dialog's module box was empty, and its
// Search ended in error 9 with Stop enabled and Searching stuck.
TEST_F(StudioScenario, FirstSearchFromTheDialogRightAfterOpeningFindsRows) {
  Start();
  Item(Menu(QStringLiteral("&Quillmark Tools")), QStringLiteral("&Visual Search and Replace"))
      ->trigger();
  Settle();
  auto* text = Drawn<QComboBox>(u"frmSearch", u"cboSearch");
  auto* search = Drawn<QAbstractButton>(u"frmSearch", u"cmdSearch");
  ASSERT_TRUE(text && search);
  EXPECT_FALSE(Drawn<QComboBox>(u"frmSearch", u"cboModule")->currentText().isEmpty());
  QTest::keyClicks(text->lineEdit(), QStringLiteral("Dim"));
  QTest::mouseClick(search, Qt::LeftButton);
  Settle();
  EXPECT_GT(ResultRows(), 0);
  EXPECT_TRUE(studioPtr->Desk().runtime->MessageBoxService().Transcript().empty());
  EXPECT_FALSE(Main().Searching);
  EXPECT_FALSE(Drawn<QAbstractButton>(u"docResults", u"cmdToolbar", 1)->isEnabled());
}

// A double-clicked match on line 132 was selected while the window stayed at line 1.
TEST_F(StudioScenario, DoubleClickedResultIsSelectedInView) {
  Start();
  ScopeAllProjects();
  TypeSearch(QStringLiteral("NumberWords"));
  QTableView* table = ResultsTable();
  ASSERT_NE(table, nullptr);
  int row = -1;
  for (int r = 0; r < table->model()->rowCount() && row < 0; ++r) {
    for (int c = 0; c < table->model()->columnCount(); ++c)
      if (table->model()->index(r, c).data().toString() == QStringLiteral("132")) row = r;
  }
  ASSERT_GE(row, 0) << "a match on code line 132 (modTax's NumberWords)";
  table->scrollTo(table->model()->index(row, 0));
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                    table->visualRect(table->model()->index(row, 0)).center());
  QTest::mouseDClick(table->viewport(), Qt::LeftButton, {},
                     table->visualRect(table->model()->index(row, 0)).center());
  Settle();
  auto editors = Window().CodeEditors();
  ASSERT_FALSE(editors.empty());
  studio::CodeEditor* editor = nullptr;
  for (auto* e : editors)
    if (e->textCursor().blockNumber() == 131) editor = e;
  ASSERT_NE(editor, nullptr) << "the caret on line 132";
  QRect caret = editor->cursorRect();
  EXPECT_TRUE(editor->viewport()->rect().contains(caret.center()))
      << "caret at y " << caret.center().y() << ", view " << editor->viewport()->height();
}

// The Replace dialog opened behind the top-most search dialog.
TEST_F(StudioScenario, ReplaceDialogOpensAboveTheTopMostSearchDialog) {
  Start();
  Item(Menu(QStringLiteral("&Quillmark Tools")), QStringLiteral("&Visual Search and Replace"))
      ->trigger();
  Settle();
  TypeSearch(QStringLiteral("Dim"));
  auto* replace = Drawn<QAbstractButton>(u"docResults", u"cmdToolbar", 2);
  ASSERT_NE(replace, nullptr);
  WithModal([&] { QTest::mouseClick(replace, Qt::LeftButton); },
            [&](QWidget& dialog) {
              EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
              EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
            });
}

TEST_F(StudioScenario, ReplaceThroughTheResultsWindowRewritesTheMatchedLines) {
  Start();
  TypeSearch(QStringLiteral("Dim"));
  int rows = ResultRows();
  ASSERT_GT(rows, 0);
  auto* replace = Drawn<QAbstractButton>(u"docResults", u"cmdToolbar", 2);
  ASSERT_NE(replace, nullptr);
  WithModal([&] { QTest::mouseClick(replace, Qt::LeftButton); },
            [&](QWidget&) {
              auto* text = Drawn<QLineEdit>(u"frmReplace", u"txtReplace");
              auto* go = Drawn<QAbstractButton>(u"frmReplace", u"cmdReplace");
              auto* all = Drawn<QAbstractButton>(u"frmReplace", u"optReplace", 0);
              ASSERT_TRUE(text && go && all);
              QTest::mouseClick(all, Qt::LeftButton, {}, QPoint(4, all->height() / 2));
              text->selectAll();
              QTest::keyClicks(text, QStringLiteral("Dimmed"));  // each event carries its letter
              QTest::mouseClick(go, Qt::LeftButton);
            });
  Settle();
  int replaced = 0;
  for (auto& project : Ide().ProjectList()->List()) {
    for (auto& component : project->VBComponents()->Items()) {
      auto module = component->CodeModule();
      if (!module || module->CountOfLines() == 0) continue;
      std::u16string code = module->Lines(1, module->CountOfLines());
      for (auto at = code.find(u"Dimmed"); at != std::u16string::npos;
           at = code.find(u"Dimmed", at + 1))
        ++replaced;
    }
  }
  EXPECT_EQ(replaced, rows);
}

TEST_F(StudioScenario, ExportWritesTheSelectedRowsToTheFileChosen) {
  Start();
  TypeSearch(QStringLiteral("Dim"));
  QTableView* table = ResultsTable();
  ASSERT_NE(table, nullptr);
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                    table->visualRect(table->model()->index(0, 0)).center());
  auto* exportButton = Drawn<QAbstractButton>(u"docResults", u"cmdToolbar", 3);
  ASSERT_NE(exportButton, nullptr);
  auto file = folder.Path() / "rows.txt";
  WithModal([&] { QTest::mouseClick(exportButton, Qt::LeftButton); },
            [&](QWidget& modal) {
              auto* dialog = qobject_cast<QFileDialog*>(&modal);
              ASSERT_NE(dialog, nullptr);
              dialog->selectFile(QString::fromStdString(file.string()));
              static_cast<QDialog*>(dialog)->accept();
            });
  Settle();
  std::string written = qmtest::TempFolder::Read(file);
  EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 1) << written;
  EXPECT_NE(written.find("Dim"), std::string::npos);
}

// The floating toolbar was always saved at 200, 200 and jumped back there after every search.
TEST_F(StudioScenario, FloatingToolbarStaysWhereTheUserPutsItAcrossSearchesAndRestarts) {
  Start();
  QToolBar* bar = AddInToolBar();
  ASSERT_NE(bar, nullptr);
  EXPECT_FALSE(bar->windowFlags() & (Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint));
  bar->move(340, 310);
  TypeSearch(QStringLiteral("Dim"));
  bar = AddInToolBar();
  EXPECT_EQ(bar->pos(), QPoint(340, 310));
  studioPtr->ExitThroughMenu();
  studioPtr.reset();
  Start();
  ASSERT_NE(AddInToolBar(), nullptr);
  EXPECT_EQ(AddInToolBar()->pos(), QPoint(340, 310));
}

// The Code column was 80 pixels wide with most of the pane empty, and widths the user dragged
// were gone after a restart.
TEST_F(StudioScenario, ResultsColumnsFillThePaneAndKeepWhatTheUserDragged) {
  Start();
  TypeSearch(QStringLiteral("Dim"));
  QTableView* table = ResultsTable();
  ASSERT_NE(table, nullptr);
  QHeaderView* header = table->horizontalHeader();
  int last = header->count() - 1;
  EXPECT_EQ(header->sectionViewportPosition(last) + header->sectionSize(last),
            header->viewport()->width());
  QTest::mousePress(header->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
  header->resizeSection(0, 150);  // the user drags the first divider
  QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, QPoint(5, 5));
  studioPtr->ExitThroughMenu();
  studioPtr.reset();
  Start();
  TypeSearch(QStringLiteral("Dim"));
  ASSERT_NE(ResultsTable(), nullptr);
  // Saving takes 285 twips (19 pixels) off a width and nothing adds them back; intended.
  EXPECT_NEAR(ResultsTable()->horizontalHeader()->sectionSize(0), 150 - 19, 1);
}

// A restored Search Results tab stayed behind the Immediate window's tab when a search began.
TEST_F(StudioScenario, SearchBringsTheResultsTabToTheFront) {
  Start();
  TypeSearch(QStringLiteral("Dim"));
  QDockWidget* results = ResultsDock();
  ASSERT_NE(results, nullptr);
  QDockWidget* immediate = nullptr;
  for (auto* dock : Window().tabifiedDockWidgets(results))
    if (dock->windowTitle() == QStringLiteral("Immediate")) immediate = dock;
  ASSERT_NE(immediate, nullptr) << "the results open as a tab beside the Immediate window";
  immediate->raise();
  Settle();
  ASSERT_TRUE(results->visibleRegion().isEmpty());
  TypeSearch(QStringLiteral("Function"));
  EXPECT_FALSE(results->visibleRegion().isEmpty());
}

// The IDE keeps the tool windows after the add-in is unloaded; a click on the leftover results
// window's buttons read the freed connection (heap-use-after-free in docResults).
TEST_F(StudioScenario, LeftoverResultsWindowAfterUnloadingTheAddInSaysTheObjectIsGone) {
  Start();
  TypeSearch(QStringLiteral("Dim"));
  int rows = ResultRows();
  {
    studio::AddInManager manager(*studioPtr);
    manager.SetChoice(manager.RowOf("QuillmarkTools.Connect"), false, false);
    manager.accept();
  }
  Settle();
  ASSERT_FALSE(studioPtr->IsLoaded("QuillmarkTools.Connect"));
  auto& boxes = studioPtr->Desk().runtime->MessageBoxService();
  boxes.ClearTranscript();
  auto* search = Drawn<QAbstractButton>(u"docResults", u"cmdToolbar", 0);
  ASSERT_NE(search, nullptr) << "the window stays with its rows";
  QTest::mouseClick(search, Qt::LeftButton);
  Settle();
  ASSERT_EQ(boxes.Transcript().size(), 1u);
  EXPECT_NE(boxes.Transcript().front().prompt.find(u"91"), std::u16string::npos);
  EXPECT_EQ(ResultRows(), rows);
  studioPtr->ExitThroughMenu();
  studioPtr.reset();
}

// Quitting crashed in ~ListViewPeer, after the main window had taken the table with it.
TEST_F(StudioScenario, ExitAfterASearchTearsDownCleanly) {
  Start();
  TypeSearch(QStringLiteral("Dim"));
  studioPtr->ExitThroughMenu();
  EXPECT_FALSE(studioPtr->IsLoaded("QuillmarkTools.Connect"));
  studioPtr.reset();
}

// The designer showed "frmCustomers" for "Customers", no frame caption, and "&New" with its "&".
TEST_F(StudioScenario, DesignerDrawsCaptionsAsVbDoes) {
  Start();
  for (auto& project : Ide().ProjectList()->List())
    if (project->Name() == u"Ledger") project->VBComponents()->Item(u"frmCustomers")->Activate();
  Settle();
  ASSERT_EQ(Window().Designers().size(), 1u);
  studio::DesignerView& view = *Window().Designers().front();
  auto captions = view.Captions();
  ASSERT_FALSE(captions.empty());
  EXPECT_EQ(captions.front().text, QStringLiteral("Customers"));
  auto find = [&](const QString& text) {
    for (auto& caption : captions)
      if (caption.text == text) return &caption;
    return static_cast<studio::DesignerView::DrawnCaption*>(nullptr);
  };
  ASSERT_NE(find(QStringLiteral("&New")), nullptr);
  EXPECT_TRUE(find(QStringLiteral("&New"))->flags & Qt::TextShowMnemonic);
  auto* details = find(QStringLiteral("Details"));
  ASSERT_NE(details, nullptr);
  auto component = std::static_pointer_cast<host::Component>(view.Component());
  for (auto& control : component->Form()->List()) {
    if (control->Properties(u"Name") != u"fraDetails") continue;
    EXPECT_EQ(details->place.top(), view.PlaceOf(*control).top()) << "on the frame's edge";
  }
}

// Each of the add-in's windows can be looked at without a display.
TEST_F(StudioScenario, ScreenshotShowsEachAddInWindowOverTheMainWindow) {
  Start();
  auto out = std::filesystem::path(QM_BINARY_DIR) / "studio-screenshots";
  std::filesystem::create_directories(out);
  for (const char* name : {"frmSearch", "docResults", "docListView", "frmReplace", "frmNewMember",
                           "frmOptions", "frmAutoSave", "frmAbout"}) {
    QString file = QString::fromStdString((out / ("show-" + std::string(name) + ".png")).string());
    EXPECT_TRUE(studioPtr->WriteScreenshotShowing(file, QString::fromLatin1(name))) << name;
    EXPECT_EQ(QImage(file).size(), Window().size()) << name;
  }
  EXPECT_FALSE(
      studioPtr->WriteScreenshotShowing(QStringLiteral("x.png"), QStringLiteral("frmNone")));
}

// A group written in cp932 on a Japanese system: file names and comments in Japanese.
class StudioCodePage : public StudioScenario {
 protected:
  std::filesystem::path WriteJapaneseGroup() {
    const vb::CodePage& cp932 = *vb::CodePage::Find(932);
    auto bytes = [&](std::u16string_view text) {
      std::string out;
      cp932.Encode(text, out);
      return out;
    };
    folder.Write(std::filesystem::path(u8"jp") / u8"英単語.vbp",
                 bytes(u"Type=Exe\r\nModule=単語帳; 単語帳.bas\r\nStartup=\"Sub Main\"\r\n"
                       u"Name=\"英単語\"\r\n"));
    folder.Write(std::filesystem::path(u8"jp") / u8"単語帳.bas",
                 bytes(u"Attribute VB_Name = \"単語帳\"\r\n' 日本語のコメント\r\nSub Main()\r\n"
                       u"End Sub\r\n"));
    return folder.Write(std::filesystem::path(u8"jp") / u8"辞書.vbg",
                        bytes(u"VBGROUP 5.0\r\nStartupProject=英単語.vbp\r\n"));
  }
  void ExpectJapaneseReadable() {
    ASSERT_EQ(Ide().ProjectList()->List().size(), 1u);
    auto project = Ide().ProjectList()->List().front();
    EXPECT_EQ(project->Name(), u"英単語");
    auto module = project->VBComponents()->Item(u"単語帳");
    module->Activate();
    Settle();
    ASSERT_FALSE(Window().CodeEditors().empty());
    EXPECT_TRUE(Window().CodeEditors().front()->toPlainText().contains(
        QString::fromUtf8(u8"' 日本語のコメント")));
  }
};

// The studio read every project as cp1252: "file not found: ‰p’PŒê.vbp", comments in mojibake.
TEST_F(StudioCodePage, GroupOpensInItsCodePageWhichIsRememberedForIt) {
  auto group = WriteJapaneseGroup();
  studioPtr = std::make_unique<studio::Studio>(
      folder.Path() / "config",
      studio::QtToolkitOptions{.realClock = false, .showMessageBoxes = false}, 932);
  studioPtr->Start(group);
  ExpectJapaneseReadable();
  studioPtr.reset();
  Start(group);  // no code page named: the one it was last opened in
  ExpectJapaneseReadable();
}

TEST_F(StudioCodePage, FileOpenOffersTheCodePage) {
  auto group = WriteJapaneseGroup();
  Start(folder.Path() / "samples" / "LedgerServer" / "LedgerServer.vbp");
  Window().prepareOpenDialog = [&](QFileDialog& dialog) {
    auto* pages = dialog.findChild<QComboBox*>(QStringLiteral("codePage"));
    ASSERT_NE(pages, nullptr);
    pages->setCurrentIndex(pages->findData(932));
    dialog.selectFile(QString::fromStdString(group.string()));
    QTimer::singleShot(0, &dialog, [&dialog] { static_cast<QDialog&>(dialog).accept(); });
  };
  Ide().RemoveProject(Ide().ProjectList()->List().front());
  QAction* open = nullptr;
  for (QAction* action : Window().menuBar()->actions())
    if (!open && action->menu()) open = Item(action->menu(), QStringLiteral("&Open Project..."));
  ASSERT_NE(open, nullptr);
  open->trigger();
  Settle();
  ExpectJapaneseReadable();
}

// The load-warnings box of a project with dozens of missing companions was 2,900 pixels tall.
TEST(StudioMessageBox, LongTextScrollsInsideABoxThatFitsTheScreen) {
  App();
  QString text;
  for (int line = 1; line <= 300; ++line)
    text += QStringLiteral("Form%1.frx: file not found\n").arg(line);
  QMessageBox box(QMessageBox::Warning, QStringLiteral("Load"), text, QMessageBox::Ok);
  studio::FitMessageBoxTo(box, QSize(1024, 768));
  EXPECT_LE(box.sizeHint().height(), 768);
  QMessageBox shortBox(QMessageBox::Warning, QStringLiteral("Load"), QStringLiteral("one"),
                       QMessageBox::Ok);
  int before = shortBox.sizeHint().height();
  studio::FitMessageBoxTo(shortBox, QSize(1024, 768));
  EXPECT_EQ(shortBox.sizeHint().height(), before) << "a short box is left as it is";
}

// Every title read "... — Quillmark Studio": the platform appends a display name when one is set.
TEST(StudioApplication, WindowTitlesAreTheCaptionsAlone) {
  App();
  studio::NameApplication();
  EXPECT_EQ(QGuiApplication::applicationDisplayName(), QCoreApplication::applicationName());
}

}  // namespace
}  // namespace studiotest
