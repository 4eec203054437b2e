// quillmark tour: the add-in connected headlessly to the sample, its menu and toolbar printed,
// and the settings it wrote at disconnection, kept in the folder given.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/CliRun.h"
#include "cli/Commands.h"
#include "support/TempFolder.h"

namespace {

using Result = qmtest::CliResult;
using qmtest::Quillmark;

TEST(Tour, ShowsTheMenuTheToolbarAndTheSettingsWrittenInTheFolderGiven) {
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
