// Project and group files: items and settings read from raw lines, edits that touch one line.
#include <gtest/gtest.h>

#include "FilesTestSupport.h"
#include "host/files/GroupFile.h"
#include "host/files/ProjectFile.h"
#include "runtime/Error.h"
#include "support/VbErrorOf.h"

namespace host::files {
namespace {

using testing::Cp1252;
using testing::Cp932;
using testing::Fixture;

ProjectFile Read(std::string_view bytes, Problems* problems = nullptr) {
  Problems local;
  ProjectFile project = ReadProject(bytes, Cp1252(), "p.vbp", problems ? *problems : local);
  if (!problems) {
    EXPECT_TRUE(local.empty()) << FormatProblem(local.front());
  }
  return project;
}

struct ExpectedItem {
  ItemKind kind;
  const char16_t* name;
  const char16_t* path;
  int line;
};

TEST(FilesProjectRead, ItemsComeInFileOrderWithNamesAndPaths) {
  std::string bytes = Fixture("project.vbp");
  ProjectFile project = Read(bytes);
  EXPECT_EQ(project.type, u"Exe");
  EXPECT_EQ(project.name, u"Ledger");
  std::vector<ExpectedItem> expected = {
      {ItemKind::Form, u"", u"frmMain.frm", 1},
      {ItemKind::Reference, u"OLE Automation", u"..\\..\\WINDOWS\\SysWOW64\\stdole2.tlb", 2},
      {ItemKind::Module, u"modMain", u"standard.bas", 3},
      {ItemKind::Reference, u"Microsoft Scripting Runtime", u"C:\\#Libs\\v#2\\scrrun.dll", 4},
      {ItemKind::Class, u"clsItems", u"Classes\\class.cls", 5},
      {ItemKind::Object, u"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0", u"MSCOMCTL.OCX", 6},
      {ItemKind::RelatedDoc, u"", u"readme.txt", 7},
      {ItemKind::UserControl, u"", u"control.ctl", 8},
      {ItemKind::PropertyPage, u"", u"page.pag", 9},
      {ItemKind::UserDocument, u"", u"document.dob", 10},
      {ItemKind::Designer, u"", u"designer.dsr", 11},
      {ItemKind::Object, u"", u"..\\Controls\\Controls.vbp", 12},
      {ItemKind::ResFile, u"", u"app.res", 13},
  };
  ASSERT_EQ(project.items.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(project.items[i].kind, expected[i].kind) << i;
    EXPECT_EQ(project.items[i].name, expected[i].name) << i;
    EXPECT_EQ(project.items[i].path, expected[i].path) << i;
    EXPECT_EQ(project.items[i].line, expected[i].line) << i;
  }
  EXPECT_EQ(WriteProject(project, Cp1252()), bytes);
}

TEST(FilesProjectRead, OtherLineEndsAndDoubleBytePathsSurvive) {
  std::string lf = "Type=Exe\nForm=\x83t\x83H\x81[\x83\x80.frm\nName=\"\x93\xfa\x96\x7b\"\n";
  Problems problems;
  ProjectFile project = ReadProject(lf, Cp932(), "jp.vbp", problems);
  EXPECT_TRUE(problems.empty());
  ASSERT_EQ(project.items.size(), 1u);
  EXPECT_EQ(project.items[0].path, u"\u30D5\u30A9\u30FC\u30E0.frm");
  EXPECT_EQ(project.name, u"\u65E5\u672C");
  EXPECT_EQ(WriteProject(project, Cp932()), lf);
  std::string unterminated = "Type=Exe\r\nModule=m; m.bas";
  EXPECT_EQ(WriteProject(Read(unterminated), Cp1252()), unterminated);
}

struct ReferenceCase {
  const char16_t* value;
  bool parses;
  bool project;
  const char16_t* libid;
  const char16_t* path;
  const char16_t* description;
};

TEST(FilesProjectRead, ReferencesSplitFromBothEnds) {
  std::vector<ReferenceCase> cases = {
      {u"*\\G{00020430-0000-0000-C000-000000000046}#2.0#0#C:\\stdole2.tlb#OLE Automation", true,
       false, u"*\\G{00020430-0000-0000-C000-000000000046}", u"C:\\stdole2.tlb", u"OLE Automation"},
      {u"*\\G{1}#1.0#409#D:\\#Libs\\a#b\\x.dll#Lib One", true, false, u"*\\G{1}",
       u"D:\\#Libs\\a#b\\x.dll", u"Lib One"},
      {u"*\\G{1}#1.0#0##", true, false, u"*\\G{1}", u"", u""},
      {u"*\\A..\\Ctl\\Ctl.vbp", true, true, u"", u"..\\Ctl\\Ctl.vbp", u""},
      {u"*\\G{1}#1.0#0", false, false, u"", u"", u""},
  };
  for (const ReferenceCase& c : cases) {
    std::optional<ReferenceParts> parts = ParseReference(c.value);
    ASSERT_EQ(parts.has_value(), c.parses);
    if (!parts) continue;
    EXPECT_EQ(parts->project, c.project);
    EXPECT_EQ(parts->libid, c.libid);
    EXPECT_EQ(parts->path, c.path);
    EXPECT_EQ(parts->description, c.description);
  }
  auto parts = ParseReference(u"*\\G{9}#2.1#409#p#d");
  EXPECT_EQ(parts->version, u"2.1");
  EXPECT_EQ(parts->lcid, u"409");
}

TEST(FilesProjectRead, OddLinesAreReportedWithTheirLineAndKept) {
  std::string bytes = Fixture("odd.vbp");
  Problems problems;
  ProjectFile project = Read(bytes, &problems);
  std::vector<std::string> texts;
  for (const Problem& p : problems) texts.push_back(FormatProblem(p));
  EXPECT_EQ(texts, (std::vector<std::string>{
                       "p.vbp:3: not a Key=Value line: \"this line has no equals sign\"",
                       "p.vbp:4: unknown key \"Frobnicate\": kept as written"}));
  EXPECT_FALSE(problems[0].warning);
  EXPECT_TRUE(problems[1].warning);
  EXPECT_EQ(project.name, u"Odd");
  EXPECT_EQ(project.items.size(), 1u);
  EXPECT_EQ(WriteProject(project, Cp1252()), bytes);

  Problems missingType;
  Read("Module=m; m.bas\r\n", &missingType);
  ASSERT_EQ(missingType.size(), 1u);
  EXPECT_EQ(FormatProblem(missingType[0]), "p.vbp: no Type= line: the project type is unknown");
}

class FilesProjectEdit : public ::testing::Test {
 protected:
  void SetUp() override {
    original = Fixture("project.vbp");
    project = Read(original);
  }
  // The original with the first `old` replaced by `fresh`.
  std::string Replaced(std::string_view old, std::string_view fresh) {
    std::string bytes = original;
    std::size_t at = bytes.find(old);
    EXPECT_NE(at, std::string::npos);
    return bytes.replace(at, old.size(), fresh);
  }
  std::string original;
  ProjectFile project;
};

TEST_F(FilesProjectEdit, RenamingTheProjectRewritesOnlyTheNameLine) {
  SetProjectName(project, u"Books", Cp1252());
  EXPECT_EQ(WriteProject(project, Cp1252()), Replaced("Name=\"Ledger\"\r\n", "Name=\"Books\"\r\n"));
  EXPECT_EQ(project.name, u"Books");
}

TEST_F(FilesProjectEdit, AProjectWithoutNameGetsOneAboveItsSections) {
  ProjectFile odd = Read("Type=Exe\r\nForm=a.frm\r\n\r\n[S]\r\nName=x\r\n");
  SetProjectName(odd, u"New", Cp1252());
  EXPECT_EQ(WriteProject(odd, Cp1252()),
            "Type=Exe\r\nForm=a.frm\r\nName=\"New\"\r\n\r\n[S]\r\nName=x\r\n");
  EXPECT_EQ(odd.name, u"New");
}

TEST_F(FilesProjectEdit, RenamingAModuleItemKeepsItsPath) {
  SetItemName(project, 2, u"modStart", Cp1252());
  EXPECT_EQ(WriteProject(project, Cp1252()),
            Replaced("Module=modMain; standard.bas", "Module=modStart; standard.bas"));
  EXPECT_EQ(project.items[2].name, u"modStart");
  EXPECT_EQ(project.items[2].path, u"standard.bas");
}

TEST_F(FilesProjectEdit, AddedItemsGoAtTheEndOfTheItemBlock) {
  std::size_t index = AddItem(project, ItemKind::Module, u"modNew", u"Mods\\new.bas", Cp1252());
  EXPECT_EQ(WriteProject(project, Cp1252()),
            Replaced("ResFile32=", "Module=modNew; Mods\\new.bas\r\nResFile32="));
  EXPECT_EQ(index, 12u);
  EXPECT_EQ(project.items[index].name, u"modNew");
  EXPECT_EQ(project.items.back().kind, ItemKind::ResFile);
  EXPECT_EQ(project.items.back().line, 14);

  ProjectFile empty = Read("Type=OleDll\r\nName=\"E\"");
  AddItem(empty, ItemKind::ResFile, u"", u"r.res", Cp1252());
  AddItem(empty, ItemKind::Form, u"", u"f.frm", Cp1252());
  EXPECT_EQ(WriteProject(empty, Cp1252()),
            "Type=OleDll\r\nForm=f.frm\r\nResFile32=\"r.res\"\r\nName=\"E\"");
}

TEST_F(FilesProjectEdit, RemovingAnItemRemovesItsLineOnly) {
  RemoveItem(project, 4, Cp1252());
  EXPECT_EQ(WriteProject(project, Cp1252()),
            Replaced("Class=clsItems; Classes\\class.cls\r\n", ""));
  EXPECT_EQ(project.items.size(), 12u);
  EXPECT_EQ(project.items[4].kind, ItemKind::Object);
  EXPECT_EQ(project.items[4].line, 5);

  ProjectFile tail = Read("Type=Exe\r\nForm=a.frm\r\nForm=b.frm");
  RemoveItem(tail, 1, Cp1252());
  EXPECT_EQ(WriteProject(tail, Cp1252()), "Type=Exe\r\nForm=a.frm");
}

TEST_F(FilesProjectEdit, RefusedEditsRaiseError5AndChangeNothing) {
  EXPECT_THROW(SetItemName(project, 0, u"frm", Cp1252()), vb::Error);  // a Form line has no name
  EXPECT_THROW(SetItemName(project, 99, u"x", Cp1252()), vb::Error);
  EXPECT_THROW(SetItemName(project, 2, u"a;b", Cp1252()), vb::Error);
  EXPECT_THROW(SetProjectName(project, u"say \"hi\"", Cp1252()), vb::Error);
  EXPECT_THROW(AddItem(project, ItemKind::Form, u"", u"\u540D.frm", Cp1252()), vb::Error);
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { RemoveItem(project, 13, Cp1252()); }), 5);
  EXPECT_EQ(WriteProject(project, Cp1252()), original);
}

struct GroupCase {
  const char* bytes;
  std::vector<bool> startup;
};

TEST(FilesGroupRead, TheStartupProjectIsFlaggedWhereverItStands) {
  std::vector<GroupCase> cases = {
      {"VBGROUP 5.0\r\nStartupProject=A\\A.vbp\r\nProject=B\\B.vbp\r\n", {true, false}},
      {"VBGROUP 5.0\r\nProject=A.vbp\r\nStartupProject=B.vbp\r\nProject=C.vbp\r\n",
       {false, true, false}},
      {"VBGROUP 5.0\r\nProject=A.vbp\r\nStartupProject=..\\B.vbp\r\n", {false, true}},
      {"VBGROUP 5.0\nProject=A.vbp\nProject=B.vbp", {false, false}},
  };
  for (const GroupCase& c : cases) {
    Problems problems;
    GroupFile group = ReadGroup(c.bytes, Cp1252(), "g.vbg", problems);
    EXPECT_TRUE(problems.empty()) << c.bytes;
    std::vector<bool> startup;
    for (const auto& entry : group.projects) startup.push_back(entry.startup);
    EXPECT_EQ(startup, c.startup) << c.bytes;
    EXPECT_EQ(WriteGroup(group), c.bytes);
  }
  Problems problems;
  GroupFile group = ReadGroup(cases[2].bytes, Cp1252(), "g.vbg", problems);
  EXPECT_EQ(group.projects[1].path, u"..\\B.vbp");
  EXPECT_EQ(group.projects[1].line, 2);
}

TEST(FilesGroupRead, OddLinesAreReportedAndKept) {
  std::string bytes = "VBGROUP 5.0\r\nProject=A.vbp\r\nWorkspace=1\r\njunk\r\n";
  Problems problems;
  GroupFile group = ReadGroup(bytes, Cp1252(), "g.vbg", problems);
  ASSERT_EQ(problems.size(), 2u);
  EXPECT_EQ(FormatProblem(problems[0]), "g.vbg:3: unknown key \"Workspace\": kept as written");
  EXPECT_EQ(FormatProblem(problems[1]), "g.vbg:4: not a Key=Value line: \"junk\"");
  EXPECT_EQ(WriteGroup(group), bytes);

  Problems notGroup;
  ReadGroup("Type=Exe\r\n", Cp1252(), "x.vbg", notGroup);
  ASSERT_FALSE(notGroup.empty());
  EXPECT_EQ(FormatProblem(notGroup[0]),
            "x.vbg:1: not a project group: the first line is not \"VBGROUP 5.0\"");
}

}  // namespace
}  // namespace host::files
