// The desktop shell: .desktop lookup and Exec parsing, the Win32 result contract, no shell
// interpolation of arguments; the real process runner; the headless shell.
#include <gtest/gtest.h>

#include <cerrno>
#include <map>

#include "runtime/DesktopShell.h"
#include "runtime/FileSystem.h"
#include "runtime/Utf.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

// ---- Exec lines ----------------------------------------------------------------------------

// The command line a file gets, as "program|argument|...", the file written "@".
std::string Joined(const vb::DesktopCommand& command) {
  std::string text;
  for (const auto& word : command.WithFiles({"@"})) text += (text.empty() ? "" : "|") + word;
  return text;
}

TEST(ExecLine, GivesTheProgramItsArgumentsAndThePlaceForTheFiles) {
  const std::pair<std::string, std::string> cases[] = {
      {"[Desktop Entry]\nName=Fox\nExec=firefox %u\n", "firefox|@"},
      {"[Desktop Entry]\nExec=/usr/bin/chrome --new-window %U\n", "/usr/bin/chrome|--new-window|@"},
      {"[Desktop Entry]\nExec=view %f --x %F\n", "view|@|--x"},  // the first file code wins
      {"[Desktop Entry]\nExec=lynx -force_html\n", "lynx|-force_html|@"},
      {"[Desktop Entry]\nExec=\"/opt/My Browser/br\" %u --private\n",
       "/opt/My Browser/br|@|--private"},
      {"[Desktop Entry]\nExec=\"a\\\\\\\\b\" \"say \\\\\"hi\\\\\"\"\n", "a\\b|say \"hi\"|@"},
      {"[Desktop Entry]\nExec=br %i %c --x=%k %%u %u\n", "br|--x=|%u|@"},
      {"[Desktop Entry]\r\nExec = epiphany %U\r\n", "epiphany|@"},
      {"[Desktop Action new]\nExec=wrong\n[Desktop Entry]\nTryExec=no\nExec=right %u\n", "right|@"},
      {"[Desktop Entry]\nExec=/usr/bin/flatpak run org.x.Br @@u %u @@\n",
       "/usr/bin/flatpak|run|org.x.Br|@@u|@|@@"},
      {"[Desktop Entry]\nExec=br -a %u -b\n", "br|-a|@|-b"},
  };
  for (const auto& [desktop, command] : cases) {
    SCOPED_TRACE(desktop);
    auto parsed = vb::ParseDesktopEntry(desktop);
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(Joined(*parsed), command);
  }
}

TEST(ExecLineRejects, EntriesWithoutAUsableExec) {
  for (std::string text : {"", "[Desktop Entry]\nName=x\n", "[Other]\nExec=x\n",
                           "[Desktop Entry]\nExec=\"open quote %u\n", "[Desktop Entry]\nExec=\n",
                           "[Desktop Entry]\nExecutable=x\n"}) {
    EXPECT_FALSE(vb::ParseDesktopEntry(text).has_value()) << text;
  }
}

// ---- The desktop shell, with a fake process runner ------------------------------------------

class FakeRunner : public vb::ProcessRunner {
 public:
  std::optional<std::string> Capture(const std::vector<std::string>& argv) override {
    queries.push_back(argv);
    auto it = answers.find(argv);
    return it == answers.end() ? std::nullopt : std::optional<std::string>(it->second);
  }
  int StartDetached(const std::vector<std::string>& argv) override {
    started.push_back(argv);
    return startError;
  }
  std::map<std::vector<std::string>, std::string> answers;
  std::vector<std::vector<std::string>> queries;
  std::vector<std::vector<std::string>> started;
  int startError = 0;
};

const std::vector<std::string> kDefaultHtml{"xdg-mime", "query", "default", "text/html"};

class DesktopShellTest : public ::testing::Test {
 protected:
  void SetUp() override {
    program_ = folder_.Write("bin/test-browser", "#!/bin/sh\n");
    fs::permissions(program_, fs::perms::owner_all);
    page_ = folder_.Write("addin/qthtml.htm", "<HTML> <\\HTML>\n");
    environment_ = {{"XDG_DATA_HOME", (folder_.Path() / "home").string()},
                    {"XDG_DATA_DIRS",
                     (folder_.Path() / "sys1").string() + ":" + (folder_.Path() / "sys2").string()},
                    {"PATH", (folder_.Path() / "bin").string()}};
  }
  void Install(const std::string& relative, const std::string& exec) {
    folder_.Write(relative, "[Desktop Entry]\nType=Application\nExec=" + exec + "\n");
  }
  qmtest::TempFolder folder_;
  fs::path program_, page_;
  vb::Environment environment_;
  FakeRunner runner_;
};

TEST_F(DesktopShellTest, FindsTheDefaultBrowserAndStartsItWithTheAddressAsOneArgument) {
  Install("home/applications/test-browser.desktop", program_.string() + " --new-window %u");
  runner_.answers[kDefaultHtml] = "test-browser.desktop\n";
  vb::DesktopShell shell(environment_, runner_);
  std::u16string result;
  std::intptr_t code = shell.FindExecutable(
      u"qthtml.htm", vb::FromUtf8((folder_.Path() / "addin").string()), result);
  EXPECT_GT(code, 32);
  EXPECT_EQ(result, vb::FromUtf8(program_.string()));

  const std::u16string url = u"https://example.org/a?b=1&c=$(reboot);`x`";
  EXPECT_GT(shell.ShellExecute(0, u"open", result, url, u"", 1), 32);
  ASSERT_EQ(runner_.started.size(), 1u);
  EXPECT_EQ(runner_.started[0],
            (std::vector<std::string>{program_.string(), "--new-window", vb::ToUtf8(url)}));
}

TEST_F(DesktopShellTest, LooksInTheDataFoldersInOrderAndInSubFolders) {
  Install("sys2/applications/vendor/browser.desktop", "test-browser %U");
  Install("sys1/applications/other.desktop", "wrong %U");
  runner_.answers[kDefaultHtml] = "vendor-browser.desktop";
  vb::DesktopShell shell(environment_, runner_);
  std::u16string result;
  EXPECT_GT(shell.FindExecutable(vb::FromUtf8(page_.string()), u"", result), 32);
  EXPECT_EQ(result, vb::FromUtf8(program_.string())) << "resolved on PATH";
  Install("sys1/applications/vendor-browser.desktop", "nowhere-on-path %U");
  EXPECT_EQ(shell.FindDesktopFile("vendor-browser.desktop"),
            folder_.Path() / "sys1/applications/vendor-browser.desktop");
}

TEST_F(DesktopShellTest, FailuresAnswerThirtyTwoOrLessAndEmptyTheResult) {
  struct Case {
    const char* name;
    std::optional<std::string> handler;
    std::string exec;  // empty: no desktop file installed
    std::intptr_t expected;
  };
  const Case cases[] = {
      {"NoHandler", std::nullopt, "", vb::shellResult::kNoAssociation},
      {"EmptyHandler", "\n", "", vb::shellResult::kNoAssociation},
      {"MissingDesktopFile", "gone.desktop", "", vb::shellResult::kNoAssociation},
      {"ProgramNotOnPath", "b.desktop", "no-such-program %u", vb::shellResult::kNoAssociation},
      {"BrokenExec", "b.desktop", "\"unclosed %u", vb::shellResult::kNoAssociation},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    fs::remove_all(folder_.Path() / "home");
    if (!c.exec.empty()) Install("home/applications/b.desktop", c.exec);
    runner_.answers.erase(kDefaultHtml);
    if (c.handler) runner_.answers[kDefaultHtml] = *c.handler;
    vb::DesktopShell shell(environment_, runner_);
    std::u16string result = u"stale";
    EXPECT_EQ(shell.FindExecutable(vb::FromUtf8(page_.string()), u"", result), c.expected);
    EXPECT_EQ(result, u"");
  }
  EXPECT_TRUE(runner_.started.empty());
}

TEST_F(DesktopShellTest, AMissingFileIsFileNotFound) {
  vb::DesktopShell shell(environment_, runner_);
  std::u16string result = u"stale";
  EXPECT_EQ(shell.FindExecutable(u"absent.htm", vb::FromUtf8(folder_.Path().string()), result),
            vb::shellResult::kFileNotFound);
  EXPECT_EQ(result, u"");
  EXPECT_EQ(shell.ShellExecute(0, u"open", u"/no/such/program", u"x", u"", 1),
            vb::shellResult::kFileNotFound);
  EXPECT_TRUE(runner_.queries.empty());
}

TEST_F(DesktopShellTest, OtherFileTypesAskXdgMimeForTheirType) {
  auto text = folder_.Write("notes.txt", "hello");
  runner_.answers[{"xdg-mime", "query", "filetype", text.string()}] = "text/plain\n";
  runner_.answers[{"xdg-mime", "query", "default", "text/plain"}] = "ed.desktop\n";
  Install("home/applications/ed.desktop", "test-browser %f");
  vb::DesktopShell shell(environment_, runner_);
  EXPECT_GT(shell.ShellExecute(0, u"", vb::FromUtf8(text.string()), u"", u"", 1), 32)
      << "a document opens with its handler";
  ASSERT_EQ(runner_.started.size(), 1u);
  EXPECT_EQ(runner_.started[0], (std::vector<std::string>{program_.string(), text.string()}));
}

TEST_F(DesktopShellTest, StartFailuresMapToWin32Codes) {
  const std::pair<int, std::intptr_t> cases[] = {{ENOENT, vb::shellResult::kFileNotFound},
                                                 {EACCES, vb::shellResult::kAccessDenied},
                                                 {ENOMEM, vb::shellResult::kOutOfResources}};
  vb::DesktopShell shell(environment_, runner_);
  for (auto [error, expected] : cases) {
    runner_.startError = error;
    EXPECT_EQ(shell.ShellExecute(0, u"open", vb::FromUtf8(program_.string()), u"a b", u"", 1),
              expected);
  }
  EXPECT_EQ(runner_.started.back(), (std::vector<std::string>{program_.string(), "a", "b"}));
  EXPECT_EQ(shell.ShellExecute(0, u"print", vb::FromUtf8(program_.string()), u"", u"", 1),
            vb::shellResult::kNoAssociation);
}

// ---- The real runner: harmless programs only --------------------------------------------------

TEST(PosixProcessRunner, CapturesOutputAndReportsFailures) {
  vb::PosixProcessRunner runner;
  EXPECT_EQ(runner.Capture({"echo", "$(not expanded)"}), "$(not expanded)\n");
  EXPECT_FALSE(runner.Capture({"false"}).has_value());
  EXPECT_FALSE(runner.Capture({"/no/such/program"}).has_value());
  EXPECT_EQ(runner.StartDetached({"/no/such/program"}), ENOENT);
  EXPECT_EQ(runner.StartDetached({"/bin/true"}), 0);
}

// ---- The headless shell --------------------------------------------------------------------

TEST(HeadlessShell, AnswersFromItsSettingsAndRecordsEveryCall) {
  vb::MemoryFileSystem files;
  vb::HeadlessShell shell(files);
  std::u16string result = u"stale";
  EXPECT_EQ(shell.FindExecutable(u"qthtml.htm", u"/addin", result), vb::shellResult::kFileNotFound);
  files.WriteFile(u"/addin/qthtml.htm", "x");
  EXPECT_EQ(shell.FindExecutable(u"qthtml.htm", u"/addin", result),
            vb::shellResult::kNoAssociation);
  EXPECT_EQ(result, u"");
  shell.browser = u"/usr/bin/browser";
  EXPECT_GT(shell.FindExecutable(u"qthtml.htm", u"/addin", result), 32);
  EXPECT_EQ(result, u"/usr/bin/browser");
  shell.executeResult = vb::shellResult::kAccessDenied;
  EXPECT_EQ(shell.ShellExecute(7, u"open", result, u"https://x", u"", 1),
            vb::shellResult::kAccessDenied);
  ASSERT_EQ(shell.calls.size(), 4u);
  EXPECT_EQ(shell.calls[3], (vb::HeadlessShell::Call{u"ShellExecute", u"open", u"/usr/bin/browser",
                                                     u"https://x", u"", 1}));
}

}  // namespace
