// The add-in list in vbaddin.ini, the Add-In Manager's unload and reload, the code colouring,
// and screenshots of the studio written into the build folder for a person to look at.
#include <unistd.h>
#include <QDockWidget>
#include <QImage>

#include <cstring>

#include "host/Addins.h"
#include "host/Component.h"
#include "host/Project.h"
#include "studio/AddInList.h"
#include "studio/AddInManager.h"
#include "studio/CommandBarView.h"
#include "studio/StudioFixture.h"
#include "studio/VbHighlighter.h"

namespace studiotest {
namespace {

using qmtest::TempFolder;

// Each entry read as "ProgId=1" (loaded at start-up) or "ProgId=0", separated by blanks.
TEST(AddInList, ReadsTheEntriesOfTheAddInsSectionOnly) {
  struct Case {
    const char* name;
    const char* text;
    std::string entries;
    std::size_t problems;
  };
  const Case cases[] = {
      {"Plain", "[Add-Ins32]\r\nA.Connect=1\r\nB.Connect=0\r\n", "A.Connect=1 B.Connect=0", 0},
      {"OtherSectionsIgnored", "[Other]\nX.Connect=1\n[add-ins32]\nA.Connect=0\n[More]\nY=1\n",
       "A.Connect=0", 0},
      {"SpacesAndComments", "[Add-Ins32]\n; a note\n  A.Connect = 1 \n", "A.Connect=1", 0},
      {"BadValueListedNotLoaded", "[Add-Ins32]\nA.Connect=yes\n", "A.Connect=0", 1},
      {"Empty", "", "", 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    TempFolder folder;
    studio::AddInList list(folder.Write("vbaddin.ini", c.text));
    list.Load();
    std::string got;
    for (auto& entry : list.Entries())
      got += (got.empty() ? "" : " ") + entry.progId + (entry.loadOnStartup ? "=1" : "=0");
    EXPECT_EQ(got, c.entries);
    EXPECT_EQ(list.Problems().size(), c.problems);
  }
}

TEST(AddInList, BadValueIsReportedWithFileAndLine) {
  TempFolder folder;
  studio::AddInList list(folder.Write("vbaddin.ini", "[Add-Ins32]\nA.Connect=1\nB.Connect=2\n"));
  list.Load();
  ASSERT_EQ(list.Problems().size(), 1u);
  EXPECT_NE(list.Problems()[0].find("vbaddin.ini line 3"), std::string::npos) << list.Problems()[0];
  EXPECT_NE(list.Problems()[0].find("'2'"), std::string::npos);
}

TEST(AddInList, ChangingOneEntryKeepsEveryOtherLine) {
  TempFolder folder;
  auto file = folder.Write(
      "vbaddin.ini",
      "[Other]\r\nX=1\r\n[Add-Ins32]\r\nA.Connect=1\r\nB.Connect=0\r\n[Tail]\r\nZ=2\r\n");
  studio::AddInList list(file);
  list.Load();
  list.SetLoadOnStartup("a.connect", false);  // names ignore case, as ProgIDs do
  list.SetLoadOnStartup("C.Connect", true);
  list.Save();
  EXPECT_EQ(TempFolder::Read(file),
            "[Other]\r\nX=1\r\n[Add-Ins32]\r\na.connect=0\r\nB.Connect=0\r\nC.Connect=1\r\n[Tail]"
            "\r\nZ=2\r\n");
}

TEST(AddInList, FirstRunWritesTheDefaultEntryOnce) {
  TempFolder folder;
  studio::AddInList list(folder.Path() / "cfg" / "vbaddin.ini");
  EXPECT_TRUE(list.WriteDefaultIfMissing("QuillmarkTools.Connect"));
  EXPECT_EQ(TempFolder::Read(list.File()), "[Add-Ins32]\r\nQuillmarkTools.Connect=1\r\n");
  list.SetLoadOnStartup("QuillmarkTools.Connect", false);
  list.Save();
  EXPECT_FALSE(list.WriteDefaultIfMissing("QuillmarkTools.Connect"));
  EXPECT_EQ(TempFolder::Read(list.File()), "[Add-Ins32]\r\nQuillmarkTools.Connect=0\r\n");
}

TEST(AddInList, UnwritableFolderFailsNamingTheFileAndLeavesNothing) {
  TempFolder folder;
  std::filesystem::create_directories(folder.Path() / "locked");
  auto file = folder.Write("locked/vbaddin.ini", "[Add-Ins32]\nA.Connect=1\n");
  studio::AddInList list(file);
  list.Load();
  list.SetLoadOnStartup("A.Connect", false);
  std::filesystem::permissions(folder.Path() / "locked", std::filesystem::perms::owner_read |
                                                             std::filesystem::perms::owner_exec);
  if (::access((folder.Path() / "locked" / "probe").parent_path().c_str(), W_OK) == 0)
    GTEST_SKIP() << "running with rights that ignore folder permissions";
  try {
    list.Save();
    FAIL() << "no error";
  } catch (const std::runtime_error& e) {
    EXPECT_NE(std::string(e.what()).find(file.string()), std::string::npos);
  }
  std::filesystem::permissions(folder.Path() / "locked", std::filesystem::perms::owner_all);
  EXPECT_EQ(TempFolder::Read(file), "[Add-Ins32]\nA.Connect=1\n");
}

struct ColourCase {
  const char* line;
  const char* kinds;
};

TEST(VbHighlighter, ClassifiesKeywordsCommentsAndStrings) {
  const ColourCase cases[] = {
      {"Dim x As Long", "kkk   kk kkkk"},
      {"x = \"a \"\"b\"\" c\" ' note", "    sssssssssss cccccc"},
      {"Rem all of it", "ccccccccccccc"},
      {"x = 1: Rem tail", "       cccccccc"},
      {"Debug.Print obj.End", "                   "},
      {"Private Sub Form_Load()", "kkkkkkk kkk            "},
      {"s = \"it's\" & Now", "    ssssss      "},
  };
  for (auto& c : cases) {
    QString expected = QString::fromLatin1(c.kinds);
    expected = expected.leftJustified(static_cast<qsizetype>(std::strlen(c.line)), u' ');
    EXPECT_EQ(studio::VbHighlighter::Classify(QString::fromLatin1(c.line)), expected) << c.line;
  }
}

using StudioAddIns = StudioTest;

TEST_F(StudioAddIns, ManagerUnloadsAndReloadsTheAddIn) {
  Start();
  const std::string progId = "QuillmarkTools.Connect";
  ASSERT_TRUE(studioPtr->IsLoaded(progId));
  {
    studio::AddInManager manager(*studioPtr);
    int row = manager.RowOf(progId);
    ASSERT_GE(row, 0);
    EXPECT_EQ(manager.BehaviourText(row), QStringLiteral("Startup / Loaded"));
    manager.SetChoice(row, false, false);
    manager.accept();
  }
  Settle();
  EXPECT_FALSE(studioPtr->IsLoaded(progId));
  EXPECT_EQ(Menu(QStringLiteral("&Quillmark Tools")), nullptr)
      << "the add-in took its menu with it";
  EXPECT_NE(
      TempFolder::Read(folder.Path() / "config" / "vbaddin.ini").find("QuillmarkTools.Connect=0"),
      std::string::npos);
  {
    studio::AddInManager manager(*studioPtr);
    manager.SetChoice(manager.RowOf(progId), true, true);
    manager.accept();
  }
  Settle();
  EXPECT_TRUE(studioPtr->IsLoaded(progId));
  EXPECT_EQ(Ide().AddinList()->Find(u"QuillmarkTools.Connect")->Mode(), vbide::ext_cm_AfterStartup);
  EXPECT_NE(Menu(QStringLiteral("&Quillmark Tools")), nullptr);
}

TEST_F(StudioAddIns, AddInMarkedZeroIsListedButNotConnected) {
  folder.Write("config/vbaddin.ini", "[Add-Ins32]\r\nQuillmarkTools.Connect=0\r\n");
  Start();
  EXPECT_FALSE(studioPtr->IsLoaded("QuillmarkTools.Connect"));
  EXPECT_EQ(Menu(QStringLiteral("&Quillmark Tools")), nullptr);
}

TEST_F(StudioAddIns, ExitDisconnectsTheAddInBeforeTheWindowsGo) {
  Start();
  studioPtr->Shutdown();
  EXPECT_FALSE(studioPtr->IsLoaded("QuillmarkTools.Connect"));
  EXPECT_EQ(Ide().CommandBars()->Count(), Ide().Bars()->Count());
  Settle();
  EXPECT_EQ(Window().Bars().ToolBarNamed(QStringLiteral("Quillmark Tools")), nullptr);
}

TEST_F(StudioAddIns, ScreenshotsOfTheMainWindowAndTheAddInsWindows) {
  Start();
  auto out = std::filesystem::path(QM_BINARY_DIR) / "studio-screenshots";
  std::filesystem::create_directories(out);
  auto module = Ide().ProjectList()->List().front()->ComponentList()->List().front();
  module->Activate();
  Ide().Immediate()->Print(u"? Date");
  QString main = QString::fromStdString((out / "main-window.png").string());
  ASSERT_TRUE(studioPtr->WriteScreenshot(main));
  QImage image(main);
  EXPECT_EQ(image.size(), Window().size());
  Item(Menu(QStringLiteral("&Quillmark Tools")), QStringLiteral("&Component Viewer"))->trigger();
  Settle();
  for (auto* dock : Window().findChildren<QDockWidget*>()) {
    if (dock->isHidden() || !dock->widget()) continue;
    QString name = dock->objectName().remove(u'{').remove(u'}');
    EXPECT_TRUE(dock->grab().save(
        QString::fromStdString((out / ("dock-" + name.toStdString() + ".png")).string())));
  }
  ASSERT_TRUE(
      studioPtr->WriteScreenshot(QString::fromStdString((out / "main-with-viewer.png").string())));
}

}  // namespace
}  // namespace studiotest
