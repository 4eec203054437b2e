// Loading what VB itself would refuse or what no call stack could walk: names that would let an
// edit land in a namesake, a project listed twice or that is a folder, designers nested 200,000
// deep. What can load, loads; the rest is a "file:line: message" problem.
#include <gtest/gtest.h>

#include <map>

#include "host/Component.h"
#include "host/Ide.h"
#include "host/Project.h"
#include "host/files/Problem.h"
#include "support/TempFolder.h"
#include "vbide/VBForm.h"

namespace {

using qmtest::TempFolder;

std::string Bas(const std::string& name) {
  return "Attribute VB_Name = \"" + name + "\"\r\nPublic Sub Run()\r\nEnd Sub\r\n";
}
std::string Vbp(const std::string& name, const std::string& items) {
  return "Type=Exe\r\n" + items + "Name=\"" + name + "\"\r\n";
}

struct LoadCase {
  const char* name;
  std::map<std::string, std::string> files;  // an empty text makes a folder
  const char* open;
  const char* problem;  // "FILE:LINE: text" with FILE relative to the folder
  const char* loaded;   // "Project: Component Component; Project: ..."
};

class LoadRefusals : public ::testing::TestWithParam<LoadCase> {};

TEST_P(LoadRefusals, WhatWouldMisplaceAnEditIsReportedAndNotLoaded) {
  const LoadCase& c = GetParam();
  TempFolder folder;
  for (auto& [path, text] : c.files) {
    if (text.empty())
      std::filesystem::create_directories(folder.Path() / path);
    else
      folder.Write(path, text);
  }
  auto ide = host::Ide::Create({});
  auto problems = ide->Open(folder.Path() / c.open);
  ASSERT_EQ(problems.size(), 1u);
  std::string text = host::files::FormatProblem(problems[0]);
  EXPECT_EQ(text.rfind((folder.Path() / c.problem).string(), 0), 0u) << text;
  std::string loaded;
  for (auto& project : ide->ProjectList()->List()) {
    loaded += (loaded.empty() ? "" : "; ") + vb::ToUtf8(project->Name()) + ":";
    for (auto& component : project->ComponentList()->List())
      loaded += " " + vb::ToUtf8(component->Name());
  }
  EXPECT_EQ(loaded, c.loaded);
}

INSTANTIATE_TEST_SUITE_P(
    Load, LoadRefusals,
    ::testing::Values(
        LoadCase{"TwoModulesShareAVbName",
                 {{"P.vbp", Vbp("P", "Module=Util; a.bas\r\nModule=Util2; b.bas\r\n")},
                  {"a.bas", Bas("Util")},
                  {"b.bas", Bas("util")}},
                 "P.vbp",
                 "P.vbp:3: \"b.bas\": module \"util\" is not loaded: the name conflicts",
                 "P: Util"},
        LoadCase{"APipeInAModuleName",
                 {{"P.vbp", Vbp("P", "Module=A; a.bas\r\nModule=B; b.bas\r\n")},
                  {"a.bas", Bas("A|B")},
                  {"b.bas", Bas("B")}},
                 "P.vbp",
                 "P.vbp:2: \"a.bas\": module \"A|B\" is not loaded: \"|\" cannot be part",
                 "P: B"},
        LoadCase{"TwoProjectsShareAName",
                 {{"G.vbg", "VBGROUP 5.0\r\nStartupProject=A\\P.vbp\r\nProject=B\\P.vbp\r\n"},
                  {"A/P.vbp", Vbp("Same", "Module=M; m.bas\r\n")},
                  {"A/m.bas", Bas("M")},
                  {"B/P.vbp", Vbp("Same", "")}},
                 "G.vbg",
                 "G.vbg:3: project \"Same\" (",
                 "Same: M"},
        LoadCase{"APipeInAProjectName",
                 {{"G.vbg", "VBGROUP 5.0\r\nProject=A.vbp\r\nProject=B.vbp\r\n"},
                  {"A.vbp", Vbp("A|B", "")},
                  {"B.vbp", Vbp("B", "")}},
                 "G.vbg",
                 "G.vbg:2: project \"A|B\" (",
                 "B:"},
        LoadCase{
            "AGroupThatListsOneProjectTwice",
            {{"G.vbg", "VBGROUP 5.0\r\nStartupProject=A\\P.vbp\r\nProject=a\\..\\A\\P.vbp\r\n"},
             {"A/P.vbp", Vbp("P", "Module=M; m.bas\r\n")},
             {"A/m.bas", Bas("M")}},
            "G.vbg",
            "G.vbg:3: \"a\\..\\A\\P.vbp\" is already in the group; it is loaded once",
            "P: M"},
        LoadCase{"AProjectInAGroupThatIsAFolder",
                 {{"G.vbg", "VBGROUP 5.0\r\nProject=Dir.vbp\r\nProject=B.vbp\r\n"},
                  {"Dir.vbp", ""},
                  {"B.vbp", Vbp("B", "")}},
                 "G.vbg",
                 "G.vbg:2: Path/File access error: ",
                 "B:"}),
    [](const auto& info) { return std::string(info.param.name); });

// What load refuses, renaming refuses too: the old names stay and nothing is marked changed.
TEST(Renaming, ToANamesakeOrToANameWithAPipeIsRefused) {
  TempFolder folder;
  folder.Write("G.vbg", "VBGROUP 5.0\r\nProject=P.vbp\r\nProject=Q.vbp\r\n");
  folder.Write("P.vbp", Vbp("P", "Module=A; a.bas\r\nModule=B; b.bas\r\n"));
  folder.Write("Q.vbp", Vbp("Q", ""));
  folder.Write("a.bas", Bas("A"));
  folder.Write("b.bas", Bas("B"));
  auto ide = host::Ide::Create({});
  ASSERT_TRUE(ide->Open(folder.Path() / "G.vbg").empty());
  auto p = ide->ProjectList()->List()[0];
  auto q = ide->ProjectList()->List()[1];
  auto b = p->VBComponents()->Item(u"B");
  for (std::u16string_view name : {u"a", u"X|Y"}) {
    EXPECT_THROW(b->SetName(name), vb::Error);
    EXPECT_THROW(q->SetName(name == u"a" ? u"p" : name), vb::Error);
  }
  b->SetName(u"b");  // its own name in another case is no conflict
  EXPECT_EQ(b->Name(), u"b");
  EXPECT_EQ(q->Name(), u"Q");
  EXPECT_FALSE(q->IsDirty());
}

std::string DeepForm(int depth) {
  std::string frm = "VERSION 5.00\r\nBegin VB.Form frmDeep \r\n";
  for (int i = 0; i < depth; ++i) frm += "Begin VB.PictureBox P" + std::to_string(i) + "\r\n";
  for (int i = 0; i < depth; ++i) frm += "End\r\n";
  return frm + "End\r\nAttribute VB_Name = \"frmDeep\"\r\n";
}

TEST(DeepDesigners, BeginBlocksNested200000DeepDoNotOverflowTheStack) {
  constexpr int kDepth = 200000;
  TempFolder folder;
  folder.Write("Deep.vbp", "Type=Exe\r\nForm=frmDeep.frm\r\nName=\"Deep\"\r\n");
  folder.Write("frmDeep.frm", DeepForm(kDepth));
  {
    auto ide = host::Ide::Create({});
    ASSERT_TRUE(ide->Open(folder.Path() / "Deep.vbp").empty());
    auto form = ide->ProjectList()->List().front()->VBComponents()->Item(u"frmDeep");
    auto controls = form->Designer()->VBControls();
    ASSERT_EQ(controls->Count(), kDepth);
    EXPECT_EQ(controls->Item(kDepth)->Container()->Properties(u"Name"),
              u"P" + vb::FromUtf8(std::to_string(kDepth - 2)));
    controls->Remove(kDepth / 2 + 1);  // the inner half goes, with everything inside it
    EXPECT_EQ(form->Designer()->VBControls()->Count(), kDepth / 2);
    form->SaveAs(vb::FromUtf8((folder.Path() / "frmDeep.frm").string()));
  }  // the IDE and its tree go here, without recursion
  EXPECT_EQ(TempFolder::Read(folder.Path() / "frmDeep.frm"), DeepForm(kDepth / 2));
}

}  // namespace
