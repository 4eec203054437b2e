// quillmark under bad input and failing disks: no file is changed that should not be, nothing
// escapes as an abort, and the output and exit status say what really happened.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "cli/CliRun.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;
using qmtest::TempFolder;

using Result = qmtest::CliResult;
using qmtest::Quillmark;

std::string Bas(const std::string& name, const std::string& body = "") {
  return "Attribute VB_Name = \"" + name + "\"\r\nPublic Sub Run()\r\n" + body + "End Sub\r\n";
}

bool Has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(Resave, AMissingResourceFileOrRelatedDocumentGainsNoBogusLine) {
  TempFolder source, target;
  const std::string vbp =
      "Type=Exe\r\nModule=modMain; modMain.bas\r\nRelatedDoc=notes.ini\r\n"
      "ResFile32=\"app.res\"\r\nName=\"P\"\r\n";
  source.Write("proj/P.vbp", vbp);
  source.Write("proj/modMain.bas", Bas("modMain"));
  Result r = Quillmark({"resave", (source.Path() / "proj/P.vbp").string(), "--to",
                        (target.Path() / "out").string()});
  EXPECT_EQ(r.status, 1);  // the two missing files were reported at load
  EXPECT_TRUE(Has(r.err, (source.Path() / "proj/P.vbp").string() + ":3: file not found")) << r.err;
  EXPECT_EQ(TempFolder::Read(target.Path() / "out/P.vbp"), vbp);
  EXPECT_TRUE(Has(r.out, "saved 2 file(s)")) << r.out;  // the module and the project, once each
}

TEST(Replace, AnEditNeverLandsInANamesakesFile) {
  TempFolder temp;
  temp.Write("P.vbp", "Type=Exe\r\nModule=Util; a.bas\r\nModule=Util2; b.bas\r\nName=\"P\"\r\n");
  const std::string a = Bas("Util", "    Keep = 1\r\n");
  const std::string b = Bas("Util", "    Target = 1\r\n");
  temp.Write("a.bas", a);
  temp.Write("b.bas", b);
  Result r = Quillmark({"replace", (temp.Path() / "P.vbp").string(), "Target", "--with", "Hit",
                        "--config-dir", (temp.Path() / "config").string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(Has(r.err, (temp.Path() / "P.vbp").string() + ":3: \"b.bas\": module \"Util\""))
      << r.err;
  EXPECT_EQ(TempFolder::Read(temp.Path() / "a.bas"), a);
  EXPECT_EQ(TempFolder::Read(temp.Path() / "b.bas"), b);
}

// Each case once aborted with status 134; now each says which file and why, and exits with 1.
TEST(Commands, NoErrorEscapesAsAnAbort) {
  TempFolder temp;
  temp.Write("G.vbg", "VBGROUP 5.0\r\nProject=Dir.vbp\r\n");
  fs::create_directories(temp.Path() / "Dir.vbp");
  temp.Write("P.vbp", "Type=Exe\r\nModule=M; m.bas\r\nName=\"A|B\"\r\n");
  temp.Write("m.bas", Bas("M", "    x = 1\r\n"));
  temp.Write("Q.vbp", "Type=Exe\r\nModule=M; m.bas\r\nName=\"Q\"\r\n");
  temp.Write("blocked", "a file where the target folder should go");
  struct Case {
    std::vector<std::string> args;
    std::string err;
  } cases[] = {
      {{"info", (temp.Path() / "G.vbg").string()}, (temp.Path() / "G.vbg").string() + ":2: "},
      {{"resave", (temp.Path() / "Q.vbp").string(), "--to", (temp.Path() / "blocked/x").string()},
       (temp.Path() / "m.bas").string() +
           ": Path not found: " + (temp.Path() / "blocked/x").string() + " ("},
      {{"replace", (temp.Path() / "P.vbp").string(), "x", "--with", "y", "--config-dir",
        (temp.Path() / "config").string()},
       (temp.Path() / "P.vbp").string() + ": project \"A|B\""},
  };
  for (auto& c : cases) {
    Result r = Quillmark(c.args);
    EXPECT_EQ(r.status, 1) << c.args[0] << "\n" << r.err;
    EXPECT_TRUE(Has(r.err, c.err)) << c.args[0] << "\n" << r.err;
  }
}

TEST(Replace, ItsOutputAndStatusSayWhatWasReallySaved) {
  TempFolder temp;
  temp.Write("P.vbp", "Type=Exe\r\nModule=M; m.bas\r\nModule=Gone; gone.bas\r\nName=\"P\"\r\n");
  const std::string m = Bas("M", "    Total = 1\r\n    Total = 2\r\n");
  auto file = temp.Write("m.bas", m);
  ASSERT_EQ(::chmod(file.c_str(), 0444), 0);  // VB refuses to save over a read-only file
  Result r = Quillmark({"replace", (temp.Path() / "P.vbp").string(), "Total", "--with", "Sum",
                        "--config-dir", (temp.Path() / "config").string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(Has(r.out, "0 line(s) changed; 2 line(s) replaced but not saved")) << r.out;
  EXPECT_TRUE(Has(r.err, file.string() + " (the file is read-only)")) << r.err;
  EXPECT_EQ(TempFolder::Read(file), m);
}

TEST(Resave, AFailedCompanionCopyIsReportedUnderItsOwnName) {
  TempFolder source, target;
  source.Write("P.vbp", "Type=Exe\r\nForm=frmA.frm\r\nName=\"P\"\r\n");
  source.Write("frmA.frm",
               "VERSION 5.00\r\nBegin VB.Form frmA \r\n   Icon = \"frmA.frx\":0000\r\nEnd\r\n"
               "Attribute VB_Name = \"frmA\"\r\n");
  fs::create_directories(source.Path() / "frmA.frx");  // unreadable as a file
  Result r =
      Quillmark({"resave", (source.Path() / "P.vbp").string(), "--to", target.Path().string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(Has(r.err, (source.Path() / "frmA.frx").string() + ": ")) << r.err;
  EXPECT_TRUE(Has(r.out, "saved 2 file(s)")) << r.out;
}

TEST(Resave, AGroupWhoseProjectsAreAllMissingIsStillWritten) {
  TempFolder source, target;
  const std::string vbg = "VBGROUP 5.0\r\nStartupProject=A\\A.vbp\r\n";
  source.Write("G.vbg", vbg);
  Result r = Quillmark({"resave", (source.Path() / "G.vbg").string(), "--to",
                        (target.Path() / "new/folder").string()});
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(TempFolder::Read(target.Path() / "new/folder/G.vbg"), vbg);
}

TEST(Output, ControlCharactersFromAFileAreEscapedNotSentToTheTerminal) {
  TempFolder temp;
  temp.Write("P.vbp", "Type=Exe\r\nName=\"Evil\x1B[2J\"\r\nBogus\x1B]0;title\x07=1\r\n");
  Result r = Quillmark({"info", (temp.Path() / "P.vbp").string()});
  EXPECT_FALSE(Has(r.out + r.err, "\x1B")) << r.out << r.err;
  EXPECT_FALSE(Has(r.out + r.err, "\x07"));
  EXPECT_TRUE(Has(r.out, "Evil\\x1B[2J")) << r.out;
}

class Settings : public ::testing::Test {
 protected:
  Result Tour() { return Quillmark({"tour", "--config-dir", home.Path().string()}); }
  TempFolder home;
};

TEST_F(Settings, ADamagedFileIsReportedAndKeptBesideTheNewOne) {
  const std::string damaged = "[Options]\nAutoSave=1\n[CommandBar\nLeft=5\n";
  auto ini = home.Write("settings/Quillmark Tools.ini", damaged);
  Result r = Tour();
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(Has(r.err, ini.string() + ":3: a section line must end with ']'")) << r.err;
  EXPECT_EQ(TempFolder::Read(ini.string() + ".damaged"), damaged);
  EXPECT_TRUE(Has(TempFolder::Read(ini), "AutoSave=1"));
  EXPECT_EQ(Tour().status, 0);  // reported once: the new file is sound
}

TEST_F(Settings, ASettingsFolderThatIsAFileSaysWhichFileAndWhy) {
  home.Write("settings", "not a folder");
  Result r = Tour();
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(Has(r.err, (home.Path() / "settings").string() + " (")) << r.err;
}

TEST_F(Settings, NoHomeIsRefusedInsteadOfWritingIntoTheCurrentFolder) {
  std::string saved[3];
  const char* names[] = {"HOME", "XDG_CONFIG_HOME", "QUILLMARK_HOME"};
  for (int i = 0; i < 3; ++i) {
    const char* value = std::getenv(names[i]);
    saved[i] = value ? value : "";
    ::unsetenv(names[i]);
  }
  Result r = Quillmark({"tour"});
  for (int i = 0; i < 3; ++i)
    if (!saved[i].empty()) ::setenv(names[i], saved[i].c_str(), 1);
  EXPECT_EQ(r.status, 1);
  EXPECT_TRUE(Has(r.err, "QUILLMARK_HOME, XDG_CONFIG_HOME and HOME are all unset")) << r.err;
  EXPECT_FALSE(fs::exists(".config/quillmark"));
}

}  // namespace
