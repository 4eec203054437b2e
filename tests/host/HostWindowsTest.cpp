// Contract: code panes, selections, the Windows collection, closing, focus, the Immediate
// window's keystrokes and tool windows created from registered documents.
#include <gtest/gtest.h>

#include "host/CodePane.h"
#include "runtime/Runtime.h"
#include "support/IdeBuilder.h"
#include "support/VbErrorOf.h"
#include "vbide/ClassRegistry.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/VBComponent.h"
#include "vbide/VBProject.h"
#include "vbide/Window.h"

namespace {

using qmtest::ErrorNumberOf;
using qmtest::IdeBuilder;

std::vector<int> TypesOf(const std::shared_ptr<host::Ide>& ide) {
  std::vector<int> types;
  for (auto& w : ide->Windows()->Items()) types.push_back(w->Type());
  return types;
}

TEST(CodePanes, ShowMakesThePaneActiveAndSelectionsAreCheckedAgainstTheText) {
  auto ide = IdeBuilder().Module(u"modA", u"Dim x As Long\nx = Count + 1").Build();
  auto module = ide->VBProjects()->Item(1)->VBComponents()->Item(1)->CodeModule();
  auto pane = module->CodePane();
  EXPECT_EQ(module->CodePane(), pane);      // one pane per module
  EXPECT_FALSE(pane->Window()->Visible());  // created hidden, on first use
  EXPECT_EQ(ide->ActiveCodePane(), nullptr);
  pane->Show();
  EXPECT_EQ(ide->ActiveCodePane(), pane);
  EXPECT_TRUE(pane->Window()->Visible());

  pane->SetSelection(2, 5, 2, 10);
  int sl, sc, el, ec;
  pane->GetSelection(sl, sc, el, ec);
  EXPECT_EQ((std::vector<int>{sl, sc, el, ec}), (std::vector<int>{2, 5, 2, 10}));
  pane->SetSelection(2, 14, 2, 14);  // a caret after the last character is inside the text
  EXPECT_EQ(ErrorNumberOf([&] { pane->SetSelection(2, 15, 2, 15); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { pane->SetSelection(3, 1, 3, 1); }), 5);
  EXPECT_EQ(ErrorNumberOf([&] { pane->SetSelection(0, 1, 1, 1); }), 5);
}

TEST(CodePanes, TopLineIsClampedToTheModule) {
  auto ide = IdeBuilder().Module(u"modA", u"a\nb\nc").Build();
  auto pane = ide->VBProjects()->Item(1)->VBComponents()->Item(1)->CodeModule()->CodePane();
  pane->SetTopLine(10);
  EXPECT_EQ(pane->TopLine(), 3);
  pane->SetTopLine(-4);
  EXPECT_EQ(pane->TopLine(), 1);
}

// A result double-clicked on line 71 left the window at line 1: the match was selected out of view.
TEST(CodePanes, SetSelectionScrollsTheSelectionIntoView) {
  std::u16string text;
  for (int line = 1; line <= 100; ++line) text += u"x = 1\n";
  auto ide = IdeBuilder().Module(u"modA", text).Build();
  auto pane = std::static_pointer_cast<host::CodePane>(
      ide->VBProjects()->Item(1)->VBComponents()->Item(1)->CodeModule()->CodePane());
  pane->SetCountOfVisibleLines(20);
  struct Case {
    int topBefore, selectedLine, topAfter;
  } cases[] = {
      {1, 71, 61},   // below the view: the line comes to the middle
      {60, 30, 20},  // above: the same
      {60, 4, 1},    // near the start: the window's top is line 1
      {5, 24, 5},    // inside the view (5..24): nothing moves
      {5, 25, 15},
  };
  for (auto c : cases) {
    pane->SetTopLine(c.topBefore);
    pane->SetSelection(c.selectedLine, 1, c.selectedLine, 3);
    EXPECT_EQ(pane->TopLine(), c.topAfter) << "top " << c.topBefore << ", line " << c.selectedLine;
  }
}

TEST(Windows, ClosingCodeAndDesignerWindowsRemovesThemOtherWindowsHide) {
  auto ide = IdeBuilder().Module(u"modA", u"x = 1").Form(u"frmMain").Build();
  auto components = ide->VBProjects()->Item(1)->VBComponents();
  EXPECT_TRUE(ide->Immediate()->Visible());  // the IDE's own windows come first
  components->Item(u"modA")->Activate();
  components->Item(u"frmMain")->Activate();
  EXPECT_EQ(TypesOf(ide), (std::vector<int>{12, 6, 7, 5, 0, 1}));

  auto code = ide->ActiveCodePane()->Window();
  code->Close();
  EXPECT_EQ(ErrorNumberOf([&] { code->Visible(); }), 91);
  EXPECT_EQ(ide->ActiveCodePane(), nullptr);
  components->Item(u"frmMain")->DesignerWindow()->Close();
  ide->Immediate()->Close();
  EXPECT_EQ(TypesOf(ide), (std::vector<int>{12, 6, 7, 5}));
  EXPECT_FALSE(ide->Immediate()->Visible());

  // The module makes a fresh pane when asked again.
  auto again = components->Item(u"modA")->CodeModule()->CodePane();
  EXPECT_NO_THROW(again->Show());
}

TEST(Windows, RemovingAComponentWithAnOpenCodeWindowFreedThePaneWhileItClosed) {
  auto ide = IdeBuilder().Module(u"modA", u"x = 1").Module(u"modB").Build();
  auto components = ide->VBProjects()->Item(1)->VBComponents();
  auto pane = components->Item(u"modA")->CodeModule()->CodePane();
  pane->Show();
  auto window = pane->Window();
  pane.reset();
  components->Remove(components->Item(u"modA"));
  EXPECT_EQ(TypesOf(ide), (std::vector<int>{12, 6, 7, 5}));
  EXPECT_EQ(ErrorNumberOf([&] { window->Visible(); }), 91);
  EXPECT_EQ(ide->ActiveCodePane(), nullptr);
}

TEST(ImmediateWindow, TakesKeystrokesOnlyWhileItHasTheFocus) {
  auto ide = IdeBuilder().Build();
  auto immediate = ide->Immediate();
  immediate->SetText(u"? 1 + 1\r\n 2 \r\n");
  using host::KeyStroke;
  ide->SendKeyStrokes({KeyStroke{.keyCode = 46}});  // the main window has the focus: dropped
  EXPECT_EQ(immediate->Text(), u"? 1 + 1\r\n 2 \r\n");

  immediate->SetFocus();
  EXPECT_EQ(ide->ActiveWindow(), immediate);
  // Ctrl+End, Shift+Ctrl+Home, Delete: what "Clear Debug Window" sends.
  ide->SendKeyStrokes({KeyStroke{.keyCode = 35, .ctrl = true},
                       KeyStroke{.keyCode = 36, .shift = true, .ctrl = true},
                       KeyStroke{.keyCode = 46}});
  EXPECT_EQ(immediate->Text(), u"");

  ide->SendKeyStrokes({KeyStroke{.character = u'a'}, KeyStroke{.character = u'b'},
                       KeyStroke{.keyCode = 13}, KeyStroke{.character = u'c'},
                       KeyStroke{.keyCode = 37}, KeyStroke{.keyCode = 8}});
  EXPECT_EQ(immediate->Text(), u"ab\rc");  // Backspace before "c" removed the LF of the CR LF
}

TEST(ImmediateWindow, HiddenLosesTheFocus) {
  auto ide = IdeBuilder().Build();
  ide->Immediate()->SetFocus();
  ide->Immediate()->SetVisible(false);
  EXPECT_EQ(ide->ActiveWindow(), nullptr);
  ide->Immediate()->SetText(u"kept");
  ide->SendKeyStrokes({host::KeyStroke{.keyCode = 46}});
  EXPECT_EQ(ide->Immediate()->Text(), u"kept");
}

struct Notes : vb::UserDocument {
  explicit Notes(vb::Runtime& runtime) : vb::UserDocument(runtime, u"docNotes") {}
};

TEST(ToolWindows, HoldANewDocumentOfTheRegisteredClassAndStartHidden) {
  auto runtime = vb::Runtime::CreateHeadless();
  auto classes = std::make_shared<vbide::ClassRegistry>();
  int made = 0;
  classes->RegisterDocument(u"Tools.docNotes", [&] {
    ++made;
    return std::make_shared<Notes>(*runtime);
  });
  auto ide =
      IdeBuilder()
          .Options(
              {.clipboard = nullptr, .classes = classes, .codePage = 1252, .reportAddInError = {}})
          .Build();
  std::shared_ptr<vb::UserDocument> document;
  auto window =
      ide->Windows()->CreateToolWindow(nullptr, u"tools.DOCNOTES", u"Notes", u"{0A}", document);
  EXPECT_EQ(made, 1);
  ASSERT_NE(std::dynamic_pointer_cast<Notes>(document), nullptr);
  EXPECT_EQ(window->Type(), vbide::vbext_wt_ToolWindow);
  EXPECT_EQ(window->Caption(), u"Notes");
  EXPECT_FALSE(window->Visible());
  EXPECT_EQ(std::static_pointer_cast<host::Window>(window)->PersistentId(), u"{0A}");
  window->Close();  // a tool window only hides
  EXPECT_EQ(ide->Windows()->Count(), 5);
  EXPECT_EQ(ErrorNumberOf([&] {
              ide->Windows()->CreateToolWindow(nullptr, u"Tools.docNone", u"x", u"{0B}", document);
            }),
            5);
}

}  // namespace
