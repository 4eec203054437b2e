// quillmark options: the Options dialog set from the command line, its refusals, and the values
// it shows, kept in the folder given.
#include <gtest/gtest.h>

#include "cli/CliRun.h"
#include "support/TempFolder.h"

namespace {

using Result = qmtest::CliResult;
using qmtest::Quillmark;

Result Options(const qmtest::TempFolder& home, std::vector<std::string> args) {
  args.insert(args.begin(), {"options", "--config-dir", home.Path().string()});
  return Quillmark(args);
}

std::string Ini(const qmtest::TempFolder& home) {
  return qmtest::TempFolder::Read(home.Path() / "settings" / "Quillmark Tools.ini");
}

TEST(OptionsCommand, PrintsWhatTheDialogShowsAndStoresWhatOkSaves) {
  qmtest::TempFolder home;
  Result fresh = Options(home, {});
  ASSERT_EQ(fresh.status, 0) << fresh.err;
  EXPECT_EQ(fresh.out,
            "Auto-Save: off\nSave Interval: 5 minutes\nAuto-Save notification: Message\n"
            "Search Result Columns: Project,1|Module,1|Procedure,1|Line,1|Code,1\n");
  EXPECT_FALSE(std::filesystem::exists(home.Path() / "settings" / "Quillmark Tools.ini"));

  Result set = Options(home, {"--autosave", "on", "--interval", "15", "--notify", "beep",
                              "--columns", "Code,1|Project,1|Module,1|Procedure,1|Line,0"});
  ASSERT_EQ(set.status, 0) << set.err;
  EXPECT_EQ(set.out,
            "Auto-Save: on\nSave Interval: 15 minutes\nAuto-Save notification: Beep\n"
            "Search Result Columns: Code,1|Project,1|Module,1|Procedure,1|Line,0\n");
  std::string ini = Ini(home);
  for (auto line : {"AutoSave=1", "SaveInterval=15", "SaveNotify=1",
                    "Columns=Code,1|Project,1|Module,1|Procedure,1|Line,0"})
    EXPECT_NE(ini.find(line), std::string::npos) << line << "\n" << ini;

  // Auto-Save off: the interval is stored as typed, unchecked.
  Result off = Options(home, {"--autosave", "off", "--interval", "0"});
  ASSERT_EQ(off.status, 0) << off.err;
  EXPECT_NE(Ini(home).find("SaveInterval=0"), std::string::npos);
  EXPECT_EQ(Options(home, {}).out, off.out);
}

TEST(OptionsCommand, ARefusalPrintsTheDialogsMessageAndStoresNothing) {
  qmtest::TempFolder home;
  Result r = Options(home, {"--autosave", "on", "--interval", "1000"});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.err, "quillmark: Invalid Auto-Save Interval.\n");
  Result none = Options(home, {"--columns", "Project,0|Module,0|Procedure,0|Line,0|Code,0"});
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.err.find("You must select at least one column"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(home.Path() / "settings" / "Quillmark Tools.ini"));
}

TEST(OptionsCommand, RefusesValuesTheDialogCannotTake) {
  qmtest::TempFolder home;
  for (auto args : std::vector<std::vector<std::string>>{{"--autosave", "yes"},
                                                         {"--interval", "-3"},
                                                         {"--notify", "loud"},
                                                         {"--columns", "Code,1|Line,0"},
                                                         {"Ledger.vbp"}}) {
    Result r = Options(home, args);
    EXPECT_EQ(r.status, 2) << args[0];
  }
}

}  // namespace
