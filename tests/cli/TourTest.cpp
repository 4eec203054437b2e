// quillmark tour: the add-in connected headlessly to the sample, its menu and toolbar printed, a
// search through the toolbar, and the settings it wrote at disconnection, in the folder given.
#include <gtest/gtest.h>

#include "cli/CliRun.h"
#include "support/TempFolder.h"

namespace {

using Result = qmtest::CliResult;
using qmtest::Quillmark;

TEST(Tour, ShowsTheMenuTheToolbarASearchAndTheSettingsWrittenInTheFolderGiven) {
  qmtest::TempFolder home;
  Result r = Quillmark({"tour", "--config-dir", home.Path().string()});
  ASSERT_EQ(r.status, 0) << r.err;
  for (auto text : {"Tools menu: &Quillmark Tools", "&Visual Search and Replace  (face)",
                    "&About Quillmark Tools\n",
                    "Toolbar: Quillmark Tools (floating, left 200, top 200, visible)",
                    "[search box, 150 pixels wide", "[Quillmark Tools] CommandBar / Visible = True",
                    "[Quillmark Tools] frmSearch / Visible = 0"})
    EXPECT_NE(r.out.find(text), std::string::npos) << text << "\n" << r.out;
  EXPECT_TRUE(std::filesystem::exists(home.Path() / "settings" / "Quillmark Tools.ini"));
  // It ends with a search through the toolbar's box, which goes into the history.
  auto heading = r.out.find("Toolbar search for \"Balance\" over (All Projects):\n");
  ASSERT_NE(heading, std::string::npos) << r.out;
  EXPECT_NE(
      r.out.find("  Ledger\tCCustomer\tBalance\t57\tPublic Property Get Balance() As Currency\n",
                 heading),
      std::string::npos);
  EXPECT_NE(r.out.find("Search Results status: Complete. | 31 Matching Line(s)\n", heading),
            std::string::npos);
  EXPECT_NE(qmtest::TempFolder::Read(home.Path() / "settings" / "QTools Search History.ini")
                .find("Recent1=Balance"),
            std::string::npos);

  // A second tour starts from what the first one left: the toolbar where it was.
  auto ini = home.Path() / "settings" / "Quillmark Tools.ini";
  std::string text = qmtest::TempFolder::Read(ini);
  auto at = text.find("Left=200");
  ASSERT_NE(at, std::string::npos) << text;
  text.replace(at, 8, "Left=333");
  home.Write("settings/Quillmark Tools.ini", text);
  Result again = Quillmark({"tour", "--config-dir", home.Path().string()});
  EXPECT_NE(again.out.find("left 333"), std::string::npos) << again.out;
}

TEST(Tour, RefusesWhatIsNotAProject) {
  EXPECT_EQ(Quillmark({"tour", "nothing.txt"}).status, 2);
  EXPECT_EQ(Quillmark({"tour", "a.vbp", "b.vbp"}).status, 2);
}

}  // namespace
