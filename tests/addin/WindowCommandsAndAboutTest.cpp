// Close All Windows, Clear Debug Window and the About box.
#include <gtest/gtest.h>

#include "addin/frmAbout.h"
#include "runtime/UserActions.h"
#include "support/AddinWorld.h"
#include "vbide/CodeModule.h"
#include "vbide/CodePane.h"
#include "vbide/VBComponent.h"
#include "vbide/VBProject.h"
#include "vbide/Window.h"

namespace {

using qmtest::AddinWorld;
using qmtest::IdeBuilder;

std::vector<int> Types(AddinWorld& w) {
  std::vector<int> types;
  for (auto& window : w.ide->Windows()->Items()) types.push_back(window->Type());
  return types;
}

TEST(CloseAllWindows, ClosesCodeAndDesignerWindowsOnly) {
  AddinWorld w(IdeBuilder()
                   .Project(u"Billing")
                   .Module(u"modA", u"x = 1")
                   .Form(u"frmMain")
                   .Class(u"CItem", u"y = 2"));
  w.ConnectLater();
  w.Addin()->ShowResults();
  auto components = w.ide->VBProjects()->Item(1)->VBComponents();
  components->Item(u"modA")->Activate();
  components->Item(u"frmMain")->Activate();
  components->Item(u"CItem")->Activate();
  w.Addin()->Menu_ClosePane_Click();
  EXPECT_EQ(Types(w), (std::vector<int>{12, 6, 7, 5, 15}));
  w.Addin()->Button_ClosePane_Click();  // nothing left to close: nothing happens
  EXPECT_EQ(Types(w), (std::vector<int>{12, 6, 7, 5, 15}));
}

TEST(ClearDebugWindow, EmptiesTheVisibleImmediateWindowAndGivesTheFocusBack) {
  AddinWorld w;
  w.ConnectLater();
  w.ide->Immediate()->SetText(u"? Total\r\n 42 \r\n");
  w.Addin()->Menu_ClearDebug_Click();
  EXPECT_EQ(w.ide->Immediate()->Text(), u"");
  EXPECT_EQ(w.ide->ActiveWindow(), nullptr);  // the main window has the focus again
}

TEST(ClearDebugWindow, LeavesAHiddenImmediateWindowAndTheFocusAlone) {
  AddinWorld w(IdeBuilder().Module(u"modA", u"x = 1"));
  w.ConnectLater();
  w.ide->Immediate()->SetText(u"kept");
  w.ide->Immediate()->Close();  // hidden, not gone
  auto pane = w.ide->VBProjects()->Item(1)->VBComponents()->Item(1)->CodeModule()->CodePane();
  pane->Show();
  w.Addin()->Button_ClearDebug_Click();
  EXPECT_EQ(w.ide->Immediate()->Text(), u"kept");
  EXPECT_FALSE(w.ide->Immediate()->Visible());
  EXPECT_EQ(w.ide->ActiveWindow(), pane->Window());
}

class AboutBox : public ::testing::Test {
 protected:
  AboutBox() {
    world.ConnectLater();
    about = vb::New<quillmark::frmAbout>(world.Main());
    about->Load();
  }
  void ClickLink() { vb::UserActions(*about).Click(u"lblInfo", 4); }
  AddinWorld world;
  std::shared_ptr<quillmark::frmAbout> about;
};

TEST_F(AboutBox, ShowsTheVersionAndTheLinkInNavy) {
  EXPECT_EQ(about->lblInfo(1).Caption(), u"Version 1.2.3");  // the build's numbers, as given
  EXPECT_EQ(about->lblInfo(4).ForeColor(), 0x800000u);
  about->lblInfo(4).UserMouseDown(1, 0, 0, 0);
  EXPECT_EQ(about->lblInfo(4).ForeColor(), 0xFF0000u);  // pure blue while pressed
  about->lblInfo(4).UserMouseUp(1, 0, 0, 0);
  EXPECT_EQ(about->lblInfo(4).ForeColor(), 0x800000u);
}

TEST_F(AboutBox, NoRegisteredBrowserSaysSoAndDeletesTheTemporaryPage) {
  ClickLink();
  auto& boxes = world.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0],
            (vb::MsgBoxRecord{u"Could not find associated Browser", 48, u"Browser Not Found", 1}));
  EXPECT_EQ(world.shell->calls.front().file, u"/opt/quillmark/qthtml.htm");
  EXPECT_TRUE(world.files->files.empty());
  EXPECT_TRUE(about->IsLoaded());
}

TEST_F(AboutBox, TheBrowserGetsTheAddressDirectly) {
  world.shell->browser = u"  /usr/bin/firefox  ";
  ClickLink();
  ASSERT_EQ(world.shell->calls.size(), 2u);
  auto& run = world.shell->calls[1];
  EXPECT_EQ(run.operation, u"ShellExecute");
  EXPECT_EQ(run.verb, u"open");
  EXPECT_EQ(run.file, u"/usr/bin/firefox");  // trimmed
  EXPECT_EQ(run.parameters, quillmark::kWebPage);
  EXPECT_EQ(run.showCmd, 1);
  EXPECT_TRUE(world.runtime->MessageBoxService().Transcript().empty());
  EXPECT_TRUE(world.files->files.empty());
}

TEST_F(AboutBox, ABrowserThatWillNotStartIsReported) {
  world.shell->browser = u"/usr/bin/firefox";
  world.shell->executeResult = 31;
  ClickLink();
  auto& boxes = world.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].prompt, u"Web Page not Opened");
  EXPECT_EQ(boxes[0].title, u"URL Failed");
  EXPECT_TRUE(world.files->files.empty());
}

TEST_F(AboutBox, AnUnwritableFolderFailsBeforeAnyMessageOfItsOwn) {
  world.files->unwritableFolders.insert(u"/opt/quillmark");
  world.shell->browser = u"/usr/bin/firefox";
  ClickLink();
  EXPECT_TRUE(world.shell->calls.empty());
  auto& boxes = world.runtime->MessageBoxService().Transcript();
  ASSERT_EQ(boxes.size(), 1u);  // the run-time error, reported as for any add-in handler
  EXPECT_NE(boxes[0].prompt.find(u"70"), std::u16string::npos);
  EXPECT_NE(boxes[0].title, u"Browser Not Found");
}

TEST_F(AboutBox, OtherLabelsDoNothingAndCloseUnloads) {
  vb::UserActions(*about).Click(u"lblInfo", 0);
  EXPECT_TRUE(world.shell->calls.empty());
  vb::UserActions(*about).Click(u"cmdClose");
  EXPECT_FALSE(about->IsLoaded());
}

}  // namespace
