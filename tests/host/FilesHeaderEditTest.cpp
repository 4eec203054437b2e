// Header edits: exactly the named lines change, every other byte of the file stays.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "FilesTestSupport.h"
#include "host/files/HeaderEdits.h"
#include "runtime/Error.h"
#include "support/VbErrorOf.h"

namespace host::files {
namespace {

using testing::Cp1252;
using testing::Cp932;
using testing::Fixture;

std::vector<std::string> SplitCrLf(std::string_view bytes) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end; (end = bytes.find("\r\n", start)) != std::string_view::npos;
       start = end + 2)
    lines.emplace_back(bytes.substr(start, end - start));
  return lines;
}

std::string JoinCrLf(const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\r\n";
  return bytes;
}

std::size_t IndexOf(const std::vector<std::string>& lines, std::string_view line) {
  auto it = std::find(lines.begin(), lines.end(), line);
  EXPECT_NE(it, lines.end()) << line;
  return static_cast<std::size_t>(it - lines.begin());
}

class FilesHeaderEdit : public ::testing::Test {
 protected:
  ModuleFile Load(const char* file, ModuleKind kind, const vb::CodePage& page = Cp1252()) {
    original = Fixture(file);
    lines = SplitCrLf(original);
    Problems problems;
    return ReadModule(original, kind, page, file, problems);
  }
  std::string original;
  std::vector<std::string> lines;  // the original's lines, edited into the expected file
};

TEST_F(FilesHeaderEdit, RenamingAFormChangesItsNameAttributeAndRootBeginLineOnly) {
  ModuleFile module = Load("form.frm", ModuleKind::Form);
  RenameComponent(module, u"frmHome", Cp1252());
  lines[IndexOf(lines, "Begin VB.Form frmMain ")] = "Begin VB.Form frmHome ";
  lines[IndexOf(lines, "Attribute VB_Name = \"frmMain\"")] = "Attribute VB_Name = \"frmHome\"";
  EXPECT_EQ(WriteModule(module, Cp1252()), JoinCrLf(lines));
  EXPECT_EQ(module.name, u"frmHome");
  EXPECT_EQ(module.designer->name, u"frmHome");
  EXPECT_EQ(module.designer->children.size(), 6u);
}

TEST_F(FilesHeaderEdit, RenamingAModuleChangesItsNameAttribute) {
  ModuleFile module = Load("standard.bas", ModuleKind::Standard);
  RenameComponent(module, u"modStart", Cp1252());
  lines[0] = "Attribute VB_Name = \"modStart\"";
  EXPECT_EQ(WriteModule(module, Cp1252()), JoinCrLf(lines));
}

TEST_F(FilesHeaderEdit, RenamingAModuleWithoutNameAttributeAddsOneOnTop) {
  ModuleFile module = Load("no_name.bas", ModuleKind::Standard);
  RenameComponent(module, u"modFound", Cp1252());
  lines.insert(lines.begin(), "Attribute VB_Name = \"modFound\"");
  EXPECT_EQ(WriteModule(module, Cp1252()), JoinCrLf(lines));
  EXPECT_EQ(module.code.Line(1), u"' a module someone wrote by hand");
}

TEST_F(FilesHeaderEdit, RenamingOneArrayElementLeavesTheOthers) {
  ModuleFile module = Load("form.frm", ModuleKind::Form);
  RenameControl(module, module.designer->children[3].beginLine, u"cmdGo", Cp1252());
  std::size_t second = IndexOf(lines, "      Caption         =   \"Cancel\"") - 1;
  lines[second] = "   Begin VB.CommandButton cmdGo ";
  EXPECT_EQ(WriteModule(module, Cp1252()), JoinCrLf(lines));
  EXPECT_EQ(module.designer->children[0].name, u"cmdAction");
  EXPECT_EQ(module.designer->children[3].name, u"cmdGo");
  EXPECT_EQ(module.designer->children[3].index, 1);
}

TEST_F(FilesHeaderEdit, RenamingANestedControlKeepsItsIndentation) {
  ModuleFile module = Load("form.frm", ModuleKind::Form);
  int label = module.designer->children[1].children[1].children[0].beginLine;
  RenameControl(module, label, u"lblDeeper", Cp1252());
  lines[IndexOf(lines, "         Begin VB.Label lblDeep ")] = "         Begin VB.Label lblDeeper ";
  EXPECT_EQ(WriteModule(module, Cp1252()), JoinCrLf(lines));
}

TEST_F(FilesHeaderEdit, RenamingWritesDoubleByteNamesInTheProjectsPage) {
  ModuleFile module = Load("dbcs_cp932.frm", ModuleKind::Form, Cp932());
  RenameControl(module, module.designer->children[0].beginLine, u"\u25CB\u25CB", Cp932());
  std::string expected = original;
  std::string old = "\x81\x9b\x81\x7eox1 \r\n";
  expected.replace(expected.find(old), old.size(), "\x81\x9b\x81\x9b \r\n");
  EXPECT_EQ(WriteModule(module, Cp932()), expected);
  EXPECT_EQ(module.designer->children[0].name, u"\u25CB\u25CB");
  EXPECT_EQ(module.designer->children[0].className, u"Project1.\u25CB\u00D7ox");
}

TEST_F(FilesHeaderEdit, RemovingAContainerRemovesItsWholeBlock) {
  ModuleFile module = Load("form.frm", ModuleKind::Form);
  std::size_t attributes = module.attributesStart;
  RemoveControl(module, module.designer->children[1].beginLine, Cp1252());
  std::size_t begin = IndexOf(lines, "   Begin VB.Frame fraOptions ");
  std::size_t end = IndexOf(lines, "   Begin MSComctlLib.ListView lvwItems ");
  lines.erase(lines.begin() + static_cast<long>(begin), lines.begin() + static_cast<long>(end));
  EXPECT_EQ(WriteModule(module, Cp1252()), JoinCrLf(lines));
  EXPECT_EQ(module.attributesStart, attributes - (end - begin));
  EXPECT_EQ(module.designer->children.size(), 5u);
  EXPECT_EQ(module.designer->children[1].name, u"lvwItems");
}

TEST_F(FilesHeaderEdit, BringingToFrontMovesTheBlockAfterTheLastControlBeforeTheMenus) {
  ModuleFile module = Load("form.frm", ModuleKind::Form);
  BringControlToFront(module, module.designer->children[0].beginLine, Cp1252());
  std::size_t begin = IndexOf(lines, "   Begin VB.CommandButton cmdAction ");
  std::vector<std::string> block(lines.begin() + static_cast<long>(begin),
                                 lines.begin() + static_cast<long>(begin) + 7);
  lines.erase(lines.begin() + static_cast<long>(begin),
              lines.begin() + static_cast<long>(begin) + 7);
  std::size_t menus = IndexOf(lines, "   Begin VB.Menu mnuFile ");
  lines.insert(lines.begin() + static_cast<long>(menus), block.begin(), block.end());
  EXPECT_EQ(WriteModule(module, Cp1252()), JoinCrLf(lines));
  std::vector<int> indexes;
  for (const DesignerControl& c : module.designer->children) indexes.push_back(c.index);
  EXPECT_EQ(indexes, (std::vector<int>{-1, -1, 1, 0, -1, -1}));
}

TEST_F(FilesHeaderEdit, BringingANestedControlToFrontStaysInsideItsContainer) {
  ModuleFile module = Load("form.frm", ModuleKind::Form);
  BringControlToFront(module, module.designer->children[1].children[0].beginLine, Cp1252());
  std::size_t begin = IndexOf(lines, "      Begin VB.CheckBox chkOne ");
  std::vector<std::string> block(lines.begin() + static_cast<long>(begin),
                                 lines.begin() + static_cast<long>(begin) + 4);
  lines.erase(lines.begin() + static_cast<long>(begin),
              lines.begin() + static_cast<long>(begin) + 4);
  std::size_t after = IndexOf(lines, "   Begin MSComctlLib.ListView lvwItems ") - 1;  // frame's End
  lines.insert(lines.begin() + static_cast<long>(after), block.begin(), block.end());
  EXPECT_EQ(WriteModule(module, Cp1252()), JoinCrLf(lines));
  EXPECT_EQ(module.designer->children[1].children[1].name, u"chkOne");
}

TEST_F(FilesHeaderEdit, BringingTheTopControlOrAMenuToFrontChangesNothing) {
  ModuleFile module = Load("form.frm", ModuleKind::Form);
  BringControlToFront(module, module.designer->children[3].beginLine, Cp1252());
  BringControlToFront(module, module.designer->children[4].beginLine, Cp1252());
  EXPECT_EQ(WriteModule(module, Cp1252()), original);
}

struct RefusedEdit {
  const char* what;
  std::function<void(ModuleFile&)> edit;
};

TEST_F(FilesHeaderEdit, RefusedEditsRaiseError5AndChangeNothing) {
  std::vector<RefusedEdit> edits = {
      {"the root is not a control", [](ModuleFile& m) { RemoveControl(m, 2, Cp1252()); }},
      {"no block on that line", [](ModuleFile& m) { RenameControl(m, 3, u"x", Cp1252()); }},
      {"beyond the header", [](ModuleFile& m) { BringControlToFront(m, 500, Cp1252()); }},
      {"a blank in a name", [](ModuleFile& m) { RenameControl(m, 13, u"cmd Go", Cp1252()); }},
      {"a quote in a name", [](ModuleFile& m) { RenameComponent(m, u"frm\"X", Cp1252()); }},
      {"an empty name", [](ModuleFile& m) { RenameComponent(m, u"", Cp1252()); }},
      {"not in the page", [](ModuleFile& m) { RenameControl(m, 13, u"\u540D", Cp1252()); }},
  };
  for (const RefusedEdit& refused : edits) {
    ModuleFile module = Load("form.frm", ModuleKind::Form);
    EXPECT_EQ(qmtest::ErrorNumberOf([&] { refused.edit(module); }), 5) << refused.what;
    EXPECT_EQ(WriteModule(module, Cp1252()), original) << refused.what;
  }
  ModuleFile cls = Load("class.cls", ModuleKind::Class);
  EXPECT_THROW(RemoveControl(cls, 1, Cp1252()), vb::Error);
}

}  // namespace
}  // namespace host::files
