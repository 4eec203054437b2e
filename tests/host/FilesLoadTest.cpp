// Loading whole projects and groups from disk: every listed file found, problems reported, and
// every file written back byte for byte.
#include <gtest/gtest.h>

#include "FilesTestSupport.h"
#include "host/files/FileIo.h"
#include "host/files/ProjectLoader.h"
#include "runtime/Error.h"
#include "support/VbErrorOf.h"

namespace host::files {
namespace {

using qmtest::TempFolder;
using testing::Cp1252;
using testing::Fixture;

// The fixture project laid out as a checkout would have it, with names in other cases than
// the project file writes them.
void LayOutProject(const TempFolder& scratch) {
  scratch.Write("Ledger/project.vbp", Fixture("project.vbp"));
  scratch.Write("Ledger/FRMMAIN.FRM", Fixture("form.frm"));
  scratch.Write("Ledger/frmMain.FRX", "binary");
  scratch.Write("Ledger/Standard.bas", Fixture("standard.bas"));
  scratch.Write("Ledger/classes/class.cls", Fixture("class.cls"));
  scratch.Write("Ledger/control.ctl", Fixture("control.ctl"));
  scratch.Write("Ledger/control.ctx", "binary");
  scratch.Write("Ledger/page.pag", Fixture("page.pag"));
  scratch.Write("Ledger/document.dob", Fixture("document.dob"));
  scratch.Write("Ledger/designer.dsr", Fixture("designer.dsr"));
  scratch.Write("Ledger/designer.DCA", "binary");
  scratch.Write("Ledger/designer.dsx", "binary");
  scratch.Write("Ledger/README.TXT", "notes");
  scratch.Write("Ledger/app.res", "res");
}

TEST(FilesLoadProject, ReadsEveryListedFileAndWritesEachBackUnchanged) {
  TempFolder scratch;
  LayOutProject(scratch);
  Problems problems;
  LoadedProject loaded = LoadProject(scratch / "Ledger/project.vbp", Cp1252(), problems);
  EXPECT_TRUE(problems.empty()) << FormatProblem(problems.front());
  std::vector<std::pair<std::size_t, std::string>> modules;
  for (const LoadedModule& m : loaded.modules)
    modules.emplace_back(m.item, m.path.lexically_relative(scratch.Path()).string());
  EXPECT_EQ(modules,
            (std::vector<std::pair<std::size_t, std::string>>{{0, "Ledger/FRMMAIN.FRM"},
                                                              {2, "Ledger/Standard.bas"},
                                                              {4, "Ledger/classes/class.cls"},
                                                              {7, "Ledger/control.ctl"},
                                                              {8, "Ledger/page.pag"},
                                                              {9, "Ledger/document.dob"},
                                                              {10, "Ledger/designer.dsr"}}));
  for (const LoadedModule& m : loaded.modules)
    EXPECT_EQ(WriteModule(m.module, Cp1252()), ReadFileBytes(m.path)) << m.path;
  EXPECT_EQ(WriteProject(loaded.project, Cp1252()), Fixture("project.vbp"));
  EXPECT_EQ(loaded.modules[0].module.name, u"frmMain");
  EXPECT_EQ(loaded.modules[2].module.kind, ModuleKind::Class);
  ASSERT_EQ(loaded.documents.size(), 2u);
  EXPECT_EQ(loaded.documents[0].item, 6u);
  EXPECT_EQ(loaded.documents[0].path->filename(), "README.TXT");
  EXPECT_EQ(loaded.documents[1].path->filename(), "app.res");
}

TEST(FilesLoadProject, FindsTheBinaryCompanionsOfEachDesignerKind) {
  TempFolder scratch;
  LayOutProject(scratch);
  Problems problems;
  LoadedProject loaded = LoadProject(scratch / "Ledger/project.vbp", Cp1252(), problems);
  auto companions = [&](std::size_t module) {
    std::vector<std::string> names;
    for (const auto& path : loaded.modules[module].companions) names.push_back(path.filename());
    return names;
  };
  EXPECT_EQ(companions(0), (std::vector<std::string>{"frmMain.FRX"}));
  EXPECT_TRUE(companions(1).empty());
  EXPECT_EQ(companions(3), (std::vector<std::string>{"control.ctx"}));
  EXPECT_TRUE(companions(4).empty());  // the page has no .pgx
  EXPECT_EQ(companions(6), (std::vector<std::string>{"designer.dsx", "designer.DCA"}));
}

TEST(FilesLoadProject, MissingFilesAreReportedAgainstTheirItemAndNothingElseIsLost) {
  TempFolder scratch;
  LayOutProject(scratch);
  std::filesystem::remove(scratch / "Ledger/page.pag");
  std::filesystem::remove(scratch / "Ledger/app.res");
  scratch.Write("Ledger/Standard.bas", Fixture("no_name.bas"));
  auto vbp = scratch / "Ledger/project.vbp";
  Problems problems;
  LoadedProject loaded = LoadProject(vbp, Cp1252(), problems);
  std::vector<std::string> texts;
  for (const Problem& p : problems) texts.push_back(FormatProblem(p));
  EXPECT_EQ(texts,
            (std::vector<std::string>{(scratch / "Ledger/Standard.bas").string() +
                                          ":1: no Attribute VB_Name line: the module has no name",
                                      vbp.string() + ":10: file not found: \"page.pag\"",
                                      vbp.string() + ":14: file not found: \"app.res\""}));
  EXPECT_EQ(loaded.modules.size(), 6u);
  EXPECT_EQ(loaded.modules[1].module.code.Count(), 4);
  EXPECT_FALSE(loaded.documents[1].path);
  EXPECT_EQ(loaded.project.items.size(), 13u);
  EXPECT_EQ(WriteProject(loaded.project, Cp1252()), Fixture("project.vbp"));
}

TEST(FilesLoadProject, AMissingProjectFileRaisesFileNotFound) {
  TempFolder scratch;
  Problems problems;
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { LoadProject(scratch / "none.vbp", Cp1252(), problems); }),
            53);
}

TEST(FilesLoadGroup, LoadsEachProjectInGroupOrderAndReportsMissingOnes) {
  TempFolder scratch;
  LayOutProject(scratch);
  scratch.Write("Other/Other.vbp", "Type=OleDll\r\nModule=modA; a.bas\r\nName=\"Other\"\r\n");
  scratch.Write("Other/A.BAS", "Attribute VB_Name = \"modA\"\r\nOption Explicit\r\n");
  std::string vbg =
      "VBGROUP 5.0\r\nProject=other\\other.vbp\r\nStartupProject=Ledger\\Project.vbp\r\n"
      "Project=Gone\\Gone.vbp\r\n";
  scratch.Write("all.vbg", vbg);
  Problems problems;
  LoadedGroup loaded = LoadGroup(scratch / "all.vbg", Cp1252(), problems);
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(FormatProblem(problems[0]),
            (scratch / "all.vbg").string() + ":4: file not found: \"Gone\\Gone.vbp\"");
  ASSERT_EQ(loaded.projects.size(), 2u);
  EXPECT_EQ(loaded.entries, (std::vector<std::size_t>{0, 1}));
  EXPECT_EQ(loaded.projects[0].project.name, u"Other");
  EXPECT_EQ(loaded.projects[0].modules[0].module.code.Line(1), u"Option Explicit");
  EXPECT_EQ(loaded.projects[1].modules.size(), 7u);
  EXPECT_TRUE(loaded.group.projects[1].startup);
  EXPECT_EQ(WriteGroup(loaded.group), vbg);
}

}  // namespace
}  // namespace host::files
