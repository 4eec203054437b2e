// The studio's main window as a user meets it: the add-in's menu and toolbar, the Project
// window, code windows that edit their modules, the add-in's window commands, Alt+letter.
#include <QDockWidget>
#include <QMdiArea>
#include <QTextBlock>
#include <QTextCursor>
#include <QToolBar>

#include "host/CodeModule.h"
#include "host/CodePane.h"
#include "host/Component.h"
#include "host/Designer.h"
#include "host/Project.h"
#include "runtime/WindowSystem.h"
#include "studio/CodeEditor.h"
#include "studio/CommandBarView.h"
#include "studio/DesignerView.h"
#include "studio/ImmediateView.h"
#include "studio/ProjectExplorer.h"
#include "studio/QtText.h"
#include "studio/StudioFixture.h"

namespace studiotest {
namespace {

using StudioShell = StudioTest;

std::shared_ptr<host::Component> FirstOfType(host::Ide& ide, vbide::vbext_ComponentType type) {
  for (auto& project : ide.ProjectList()->List())
    for (auto& component : project->ComponentList()->List())
      if (component->Type() == type) return component;
  return nullptr;
}

TEST_F(StudioShell, StartsWithTheAddInsMenuAndToolbarWithFaces) {
  Start();
  QMenu* tools = Menu(QStringLiteral("&Quillmark Tools"));
  ASSERT_NE(tools, nullptr) << "the add-in's popup is drawn under Tools";
  for (const char* caption : {"&Component Viewer", "&Visual Search and Replace",
                              "Close All &Windows", "Clear &Debug Window"}) {
    QAction* item = Item(tools, QString::fromLatin1(caption));
    ASSERT_NE(item, nullptr) << caption;
    EXPECT_FALSE(item->icon().isNull()) << caption << " shows its face";
  }
  QToolBar* bar = Window().Bars().ToolBarNamed(QStringLiteral("Quillmark Tools"));
  ASSERT_NE(bar, nullptr);
  int withFaces = 0;
  for (QAction* action : bar->actions()) withFaces += action->icon().isNull() ? 0 : 1;
  EXPECT_GE(withFaces, 5);
  EXPECT_NE(qmtest::TempFolder::Read(folder.Path() / "config" / "vbaddin.ini")
                .find("QuillmarkTools.Connect=1"),
            std::string::npos);
}

TEST_F(StudioShell, ProjectWindowListsEveryProjectWithItsFileOrSaysItIsNotSaved) {
  Start();
  auto& tree = Window().Explorer();
  ASSERT_EQ(tree.topLevelItemCount(), Ide().VBProjects()->Count());
  for (int i = 0; i < tree.topLevelItemCount(); ++i) {
    auto project = Ide().VBProjects()->Item(i + 1);
    EXPECT_EQ(tree.topLevelItem(i)->text(0), studio::ProjectExplorer::ProjectCaption(*project));
    EXPECT_TRUE(tree.topLevelItem(i)->text(0).endsWith(QStringLiteral(".vbp)")));
  }
  Ide().NewProject(vbide::vbext_pt_StandardExe, u"Scratch");
  Settle();
  EXPECT_EQ(tree.topLevelItem(tree.topLevelItemCount() - 1)->text(0),
            QStringLiteral("Scratch (not saved)"));
}

TEST_F(StudioShell, SelectingInTheTreeSelectsAndDoubleClickActivates) {
  Start();
  auto module = FirstOfType(Ide(), vbide::vbext_ct_StdModule);
  ASSERT_NE(module, nullptr);
  QTreeWidgetItem* item = Window().Explorer().ItemOf(module);
  ASSERT_NE(item, nullptr);
  Window().Explorer().setCurrentItem(item);
  EXPECT_EQ(Ide().SelectedVBComponent(), module);
  Q_EMIT Window().Explorer().itemDoubleClicked(item, 0);
  Settle();
  auto editors = Window().CodeEditors();
  ASSERT_EQ(editors.size(), 1u);
  EXPECT_EQ(editors[0]->Pane()->Module(), module->Module());
  EXPECT_EQ(editors[0]->toPlainText().count(u'\n') + 1, module->Module()->CountOfLines());
}

TEST_F(StudioShell, ActivatingAFormShowsItsDesignerWithItsControls) {
  Start();
  auto form = FirstOfType(Ide(), vbide::vbext_ct_VBForm);
  ASSERT_NE(form, nullptr);
  form->Activate();
  Settle();
  auto designers = Window().Designers();
  ASSERT_EQ(designers.size(), 1u);
  int placed = 0;
  for (auto& control : form->Form()->List())
    placed += designers[0]->PlaceOf(*control).isEmpty() ? 0 : 1;
  EXPECT_GT(placed, 0);
}

// Typing, deleting and splitting lines in the editor edit the module the same way.
TEST_F(StudioShell, EditingTheEditorEditsTheModuleLineByLine) {
  Start();
  auto module = FirstOfType(Ide(), vbide::vbext_ct_StdModule)->Module();
  module->CodePane()->Show();
  Settle();
  studio::CodeEditor* editor = Window().CodeEditors().at(0);
  int before = module->CountOfLines();
  std::u16string first(module->LineView(1)), second(module->LineView(2));

  QTextCursor cursor(editor->document());
  cursor.insertText(QStringLiteral("' added on top\n"));
  EXPECT_EQ(module->CountOfLines(), before + 1);
  EXPECT_EQ(module->LineView(1), u"' added on top");
  EXPECT_EQ(module->LineView(2), first);

  cursor.movePosition(QTextCursor::Start);
  cursor.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor);
  cursor.removeSelectedText();
  EXPECT_EQ(module->CountOfLines(), before);
  EXPECT_EQ(module->LineView(1), first);

  cursor.movePosition(QTextCursor::Start);
  cursor.movePosition(QTextCursor::EndOfLine);
  cursor.insertText(QStringLiteral(" ' note"));
  EXPECT_EQ(module->LineView(1), first + u" ' note");
  EXPECT_EQ(module->LineView(2), second);
}

TEST_F(StudioShell, ModuleEditedElsewhereShowsInTheEditor) {
  Start();
  auto module = FirstOfType(Ide(), vbide::vbext_ct_StdModule)->Module();
  module->CodePane()->Show();
  Settle();
  module->InsertLines(1, u"' from an add-in");
  EXPECT_TRUE(
      Window().CodeEditors().at(0)->toPlainText().startsWith(QStringLiteral("' from an add-in\n")));
}

TEST_F(StudioShell, SelectionIsThePanesBothWays) {
  Start();
  auto module = FirstOfType(Ide(), vbide::vbext_ct_StdModule)->Module();
  auto pane = std::static_pointer_cast<host::CodePane>(module->CodePane());
  pane->Show();
  Settle();
  studio::CodeEditor* editor = Window().CodeEditors().at(0);
  int line = 1;
  while (line < module->CountOfLines() && module->LineView(line).size() < 3) ++line;
  int length = static_cast<int>(module->LineView(line).size());
  ASSERT_GE(length, 3);
  pane->SetSelection(line, 2, line, length + 1);
  QTextCursor shown = editor->textCursor();
  EXPECT_EQ(shown.selectedText(), studio::ToQt(module->LineView(line).substr(1)));

  QTextCursor cursor(editor->document()->findBlockByNumber(0));
  cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 1);
  cursor.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor);
  editor->setTextCursor(cursor);
  int startLine = 0, startColumn = 0, endLine = 0, endColumn = 0;
  pane->GetSelection(startLine, startColumn, endLine, endColumn);
  EXPECT_EQ(std::tuple(startLine, startColumn, endLine), std::tuple(1, 2, 2));
  EXPECT_EQ(endColumn, std::min(2, static_cast<int>(module->LineView(2).size()) + 1));
}

TEST_F(StudioShell, CloseAllWindowsFromTheAddInsMenuClosesTheCodeWindows) {
  Start();
  FirstOfType(Ide(), vbide::vbext_ct_StdModule)->Activate();
  FirstOfType(Ide(), vbide::vbext_ct_ClassModule)->Activate();
  Settle();
  ASSERT_EQ(Window().CodeEditors().size(), 2u);
  Item(Menu(QStringLiteral("&Quillmark Tools")), QStringLiteral("Close All &Windows"))->trigger();
  Settle();
  EXPECT_TRUE(Window().CodeEditors().empty());
}

TEST_F(StudioShell, ClearDebugWindowEmptiesTheImmediateView) {
  Start();
  Ide().Immediate()->Print(u"? 1 + 1");
  Ide().Immediate()->Print(u" 2");
  ASSERT_TRUE(Window().Immediate().toPlainText().contains(QStringLiteral("? 1 + 1")));
  Item(Menu(QStringLiteral("&Quillmark Tools")), QStringLiteral("Clear &Debug Window"))->trigger();
  Settle();
  EXPECT_EQ(Ide().Immediate()->Text(), u"");
  EXPECT_EQ(Window().Immediate().toPlainText(), QString());
}

TEST_F(StudioShell, FocusingTheImmediateViewFocusesTheIdesImmediateWindow) {
  Start();
  Window().Immediate().setFocus();
  QFocusEvent focus(QEvent::FocusIn);
  QApplication::sendEvent(&Window().Immediate(), &focus);
  studioPtr->Desk().runtime->SendKeys(u"abc");
  Settle();
  EXPECT_NE(Ide().Immediate()->Text().find(u"abc"), std::u16string::npos);
}

TEST_F(StudioShell, PostedAltLetterOpensThatMenu) {
  Start();
  auto& windows = studioPtr->Desk().runtime->Windows();
  ASSERT_TRUE(
      windows.PostMessage(static_cast<vb::Hwnd>(Ide().Main()->HWnd()), vb::kWmSysKeyDown, 'T', 0));
  Settle();
  QAction* active = Window().menuBar()->activeAction();
  ASSERT_NE(active, nullptr);
  EXPECT_EQ(active->text(), QStringLiteral("&Tools"));
}

TEST_F(StudioShell, ToolbarChangesAreRedrawnOncePerBurst) {
  Start();
  int before = Window().Bars().Rebuilds();
  auto bar = Ide().CommandBars()->Add(u"Scratch");
  for (int i = 0; i < 5; ++i) bar->Controls()->Add(vbide::msoControlButton)->SetCaption(u"B");
  Settle();
  EXPECT_EQ(Window().Bars().Rebuilds(), before + 1);
  EXPECT_NE(Window().Bars().ToolBarNamed(QStringLiteral("Scratch")), nullptr);
  bar->SetVisible(false);
  Settle();
  EXPECT_EQ(Window().Bars().ToolBarNamed(QStringLiteral("Scratch")), nullptr);
}

}  // namespace
}  // namespace studiotest
