// Reading and writing module files: the split into header and code, and byte-exact round trips.
#include <gtest/gtest.h>

#include "FilesTestSupport.h"
#include "host/files/ModuleFile.h"

namespace host::files {
namespace {

using testing::Cp1252;
using testing::Cp932;
using testing::Fixture;

struct RoundTripCase {
  const char* file;
  ModuleKind kind;
  int codePage;
  ModuleKind readKind;  // after the root block has been looked at
  const char16_t* name;
  std::size_t headerLines;
  int codeLines;
};

void PrintTo(const RoundTripCase& c, std::ostream* out) {
  *out << c.file;
}

class FilesModuleRoundTrip : public ::testing::TestWithParam<RoundTripCase> {};

// Each file comes back byte for byte, and the header/code boundary lies where the code window
// of the IDE would start.
TEST_P(FilesModuleRoundTrip, GivesTheSameBytesAndSplitsAtTheLastModuleAttribute) {
  const RoundTripCase& c = GetParam();
  const vb::CodePage& page = *vb::CodePage::Find(c.codePage);
  std::string bytes = Fixture(c.file);
  Problems problems;
  ModuleFile module = ReadModule(bytes, c.kind, page, c.file, problems);
  EXPECT_TRUE(problems.empty()) << FormatProblem(problems.front());
  EXPECT_EQ(module.kind, c.readKind);
  EXPECT_EQ(module.name, c.name);
  EXPECT_EQ(module.header.size(), c.headerLines);
  EXPECT_EQ(module.code.Count(), c.codeLines);
  for (int i = 1; i <= module.code.Count(); ++i)
    EXPECT_FALSE(module.code.Line(i).starts_with(u"Attribute ")) << "line " << i;
  EXPECT_EQ(WriteModule(module, page), bytes);
}

INSTANTIATE_TEST_SUITE_P(
    EveryKindAndOddity, FilesModuleRoundTrip,
    ::testing::Values(
        RoundTripCase{"standard.bas", ModuleKind::Standard, 1252, ModuleKind::Standard, u"modMain",
                      1, 6},
        RoundTripCase{"class.cls", ModuleKind::Class, 1252, ModuleKind::Class, u"clsItems", 14, 12},
        RoundTripCase{"form.frm", ModuleKind::Form, 1252, ModuleKind::Form, u"frmMain", 72, 6},
        RoundTripCase{"mdi.frm", ModuleKind::Form, 1252, ModuleKind::MdiForm, u"mdiMain", 10, 0},
        RoundTripCase{"control.ctl", ModuleKind::UserControl, 1252, ModuleKind::UserControl,
                      u"ctlSlider", 14, 4},
        RoundTripCase{"page.pag", ModuleKind::PropertyPage, 1252, ModuleKind::PropertyPage,
                      u"ppgGeneral", 12, 3},
        RoundTripCase{"document.dob", ModuleKind::UserDocument, 1252, ModuleKind::UserDocument,
                      u"docMain", 10, 2},
        RoundTripCase{"designer.dsr", ModuleKind::Designer, 1252, ModuleKind::Designer, u"deMain",
                      21, 1},
        RoundTripCase{"no_code.frm", ModuleKind::Form, 1252, ModuleKind::Form, u"Form1", 10, 0},
        RoundTripCase{"lf_only.cls", ModuleKind::Class, 1252, ModuleKind::Class, u"clsLf", 9, 4},
        RoundTripCase{"lone_cr.bas", ModuleKind::Standard, 1252, ModuleKind::Standard, u"modCr", 1,
                      3},
        RoundTripCase{"mixed_terminators.bas", ModuleKind::Standard, 1252, ModuleKind::Standard,
                      u"modMixed", 1, 4},
        RoundTripCase{"no_final_terminator.bas", ModuleKind::Standard, 1252, ModuleKind::Standard,
                      u"modTail", 1, 3},
        RoundTripCase{"trailing_blank_lines.bas", ModuleKind::Standard, 1252, ModuleKind::Standard,
                      u"modBlank", 1, 7},
        RoundTripCase{"utf8_form.frm", ModuleKind::Form, 1252, ModuleKind::Form, u"frmUtf", 9, 2},
        RoundTripCase{"dbcs_cp932.frm", ModuleKind::Form, 932, ModuleKind::Form, u"frmJp", 9, 4},
        // Another page than the file's still keeps every byte.
        RoundTripCase{"dbcs_cp932.frm", ModuleKind::Form, 1252, ModuleKind::Form, u"frmJp", 9, 4}));

TEST(FilesModuleCode, MemberAttributesHangUnderTheirDeclarationAndAreHidden) {
  Problems problems;
  ModuleFile module = ReadModule(Fixture("class.cls"), ModuleKind::Class, Cp1252(), "c", problems);
  const CodeLines& code = module.code;
  EXPECT_EQ(code.Line(1), u"Option Explicit");
  EXPECT_EQ(code.Line(3), u"Public WithEvents Timer As Timer");
  ASSERT_EQ(code.Attributes(3).size(), 1u);
  EXPECT_EQ(code.Attributes(3)[0].bytes, "Attribute Timer.VB_VarHelpID = -1");
  EXPECT_EQ(code.Line(4), u"Public Event Changed(ByVal Index As Long)");
  ASSERT_EQ(code.Attributes(4).size(), 1u);
  EXPECT_EQ(code.Line(6), u"Public Property Get Item(ByVal Index As Variant) As Variant");
  ASSERT_EQ(code.Attributes(6).size(), 2u);
  EXPECT_EQ(code.Attributes(6)[1].bytes, "Attribute Item.VB_UserMemId = 0");
  EXPECT_EQ(code.Line(7), u"    Item = mCol(Index)");
  EXPECT_TRUE(code.Attributes(2).empty());
  // The module attribute written by a design tool stays in the header, not in the code.
  EXPECT_EQ(module.header.back().bytes,
            "Attribute VB_Ext_KEY = \"SavedWithClassBuilder6\" ,\"Yes\"");
  EXPECT_EQ(module.attributesStart, 8u);
}

TEST(FilesModuleCode, AStatementOnAVariableCalledAttributeStaysCode) {
  std::string bytes =
      "Attribute VB_Name = \"m\"\r\nSub A()\r\nAttribute = 5\r\nAttribute.Value = 1\r\nEnd Sub\r\n";
  Problems problems;
  ModuleFile module = ReadModule(bytes, ModuleKind::Standard, Cp1252(), "m.bas", problems);
  ASSERT_EQ(module.code.Count(), 4);
  EXPECT_EQ(module.code.Line(2), u"Attribute = 5");
  EXPECT_EQ(module.code.Line(3), u"Attribute.Value = 1");
  EXPECT_EQ(WriteModule(module, Cp1252()), bytes);
}

TEST(FilesModuleCode, EveryLineKeepsItsOwnTerminator) {
  Problems problems;
  ModuleFile module =
      ReadModule(Fixture("mixed_terminators.bas"), ModuleKind::Standard, Cp1252(), "m", problems);
  const CodeLines& code = module.code;
  EXPECT_EQ(module.header[0].eol, Eol::CrLf);
  EXPECT_EQ(code.Terminator(1), Eol::Lf);
  EXPECT_EQ(code.Terminator(2), Eol::Cr);
  EXPECT_EQ(code.Terminator(3), Eol::CrLf);
  EXPECT_EQ(code.Line(4), u"");
  EXPECT_EQ(code.Terminator(4), Eol::Lf);
}

TEST(FilesModuleCode, TheLastLineOfAFileWithoutFinalTerminatorHasNone) {
  Problems problems;
  ModuleFile module =
      ReadModule(Fixture("no_final_terminator.bas"), ModuleKind::Standard, Cp1252(), "m", problems);
  EXPECT_EQ(module.code.Line(3), u"#End If");
  EXPECT_EQ(module.code.Terminator(3), Eol::None);
}

TEST(FilesModuleCode, DoubleByteIdentifiersAreDecodedWithTheProjectsPage) {
  Problems problems;
  ModuleFile module =
      ReadModule(Fixture("dbcs_cp932.frm"), ModuleKind::Form, Cp932(), "f", problems);
  ASSERT_TRUE(module.designer);
  ASSERT_EQ(module.designer->children.size(), 1u);
  EXPECT_EQ(module.designer->children[0].className, u"Project1.\u25CB\u00D7ox");
  EXPECT_EQ(module.designer->children[0].name, u"\u25CB\u00D7ox1");
  EXPECT_EQ(module.code.Line(2), u"' \u8868\u793A");  // the trail byte of the first is '\'
  EXPECT_EQ(module.code.Line(3), u"Private Sub \u25CB\u00D7ox1_Click()");
}

TEST(FilesModuleCode, EditedLinesAreEncodedAndEverythingElseKept) {
  std::string bytes = Fixture("class.cls");
  Problems problems;
  ModuleFile module = ReadModule(bytes, ModuleKind::Class, Cp1252(), "c", problems);
  module.code.Replace(2, u"Private mCol As Collection ' \u00E4");
  std::string expected = bytes;
  std::string old = "Private mCol As Collection";
  expected.replace(expected.find(old), old.size(), old + " ' \xE4");
  EXPECT_EQ(WriteModule(module, Cp1252()), expected);
}

TEST(FilesModuleCode, CharactersThePageCannotWriteAreCountedSoTheSaveCanRefuse) {
  std::string bytes = Fixture("standard.bas");
  Problems problems;
  ModuleFile module = ReadModule(bytes, ModuleKind::Standard, Cp1252(), "m", problems);
  std::size_t unmappable = 0;
  EXPECT_EQ(WriteModule(module, Cp1252(), &unmappable), bytes);
  EXPECT_EQ(unmappable, 0u);
  module.code.Replace(3, u"' \u540D\u524D and caf\u00E9");
  std::string written = WriteModule(module, Cp1252(), &unmappable);
  EXPECT_EQ(unmappable, 2u);
  EXPECT_NE(written.find("' ?? and caf\xE9\r\n"), std::string::npos);
}

TEST(FilesModuleCode, CodeAddedAfterAnUnterminatedEndGetsALineBreakInBetween) {
  std::string bytes = "Attribute VB_Name = \"m\"";
  Problems problems;
  ModuleFile module = ReadModule(bytes, ModuleKind::Standard, Cp1252(), "m.bas", problems);
  EXPECT_EQ(module.code.Count(), 0);
  module.code.Insert(1, {u"Option Explicit"});
  EXPECT_EQ(WriteModule(module, Cp1252()), bytes + "\r\nOption Explicit\r\n");

  std::string tail = Fixture("no_final_terminator.bas");
  ModuleFile other = ReadModule(tail, ModuleKind::Standard, Cp1252(), "t.bas", problems);
  other.code.Insert(4, {u"' end"});
  EXPECT_EQ(WriteModule(other, Cp1252()), tail + "\r\n' end");
}

struct BadModuleCase {
  const char* file;
  ModuleKind kind;
  const char* problem;
  int codeLines;
};

void PrintTo(const BadModuleCase& c, std::ostream* out) {
  *out << c.file;
}

class FilesBadModule : public ::testing::TestWithParam<BadModuleCase> {};

// Bad input is reported with file and line, loads as far as it can, and loses no byte.
TEST_P(FilesBadModule, IsReportedWithItsLineAndKeptWhole) {
  const BadModuleCase& c = GetParam();
  std::string bytes = Fixture(c.file);
  Problems problems;
  ModuleFile module = ReadModule(bytes, c.kind, Cp1252(), c.file, problems);
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(FormatProblem(problems[0]), c.problem);
  EXPECT_FALSE(problems[0].warning);
  EXPECT_EQ(module.code.Count(), c.codeLines);
  EXPECT_EQ(WriteModule(module, Cp1252()), bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Problems, FilesBadModule,
    ::testing::Values(
        BadModuleCase{"truncated_begin.frm", ModuleKind::Form,
                      "truncated_begin.frm:7: \"Begin\" without \"End\": the header block runs to "
                      "the end of the file",
                      0},
        BadModuleCase{"version_only.cls", ModuleKind::Class,
                      "version_only.cls:1: the file ends after its VERSION line: no header block, "
                      "no VB_Name",
                      0},
        BadModuleCase{"no_name.bas", ModuleKind::Standard,
                      "no_name.bas:1: no Attribute VB_Name line: the module has no name", 4}));

TEST(FilesBadModule, AnEmptyFileIsReportedAsAWhole) {
  Problems problems;
  ModuleFile module = ReadModule("", ModuleKind::Standard, Cp1252(), "dir/empty.bas", problems);
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(FormatProblem(problems[0]),
            "dir/empty.bas: the file is empty: no Attribute VB_Name line");
  EXPECT_EQ(WriteModule(module, Cp1252()), "");
}

TEST(FilesBadModule, ATruncatedDesignerStillListsItsControls) {
  Problems problems;
  ModuleFile module =
      ReadModule(Fixture("truncated_begin.frm"), ModuleKind::Form, Cp1252(), "t", problems);
  ASSERT_TRUE(module.designer);
  EXPECT_EQ(module.designer->name, u"frmCut");
  ASSERT_EQ(module.designer->children.size(), 2u);
  EXPECT_EQ(module.designer->children[0].endLine, 5);
  EXPECT_EQ(module.designer->children[1].name, u"fraB");
  EXPECT_EQ(module.designer->children[1].endLine, 7);  // the last line of the file
}

}  // namespace
}  // namespace host::files
