// Procedure regions and the declarations section of real-looking modules, awkward code included.
#include "host/CodeIndex.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/VbText.h"

namespace host {
namespace {

using testing_vb::Show;
using testing_vb::VbLines;

// "Name" for a Sub/Function, "Name/k" for a property accessor of kind k.
std::string ProcLabel(const ProcRegion& proc) {
  std::string label = Show(proc.name);
  if (proc.kind != vbide::vbext_pk_Proc) label += "/" + std::to_string(proc.kind);
  return label;
}

// "decl=N Name:start-body-end ..."
std::string Regions(const CodeIndex& index) {
  std::string text = "decl=" + std::to_string(index.CountOfDeclarationLines());
  for (const ProcRegion& proc : index.Procedures()) {
    text += " " + ProcLabel(proc) + ":" + std::to_string(proc.startLine) + "-" +
            std::to_string(proc.bodyLine) + "-" + std::to_string(proc.endLine);
  }
  return text;
}

// ProcOfLine for every line of the module: its label, or "-" for a declarations line.
std::string LineOwners(const CodeIndex& index, int count) {
  std::string text;
  for (int line = 1; line <= count; ++line) {
    const ProcRegion* proc = index.ProcOfLine(line);
    if (!text.empty()) text += " ";
    text += proc ? ProcLabel(*proc) : "-";
  }
  return text;
}

struct ModuleCase {
  const char* what;
  std::u16string code;
  std::string regions;
  std::string owners;
};

const std::vector<ModuleCase> kModules = {
    {"blank lines and comments above a procedure belong to it",
     u"Option Explicit\n\nSub A()\nEnd Sub\n\n' about B\nPrivate Function B() As Long\n"
     u"  B = 1\nEnd Function\n",
     "decl=1 A:2-3-4 B:5-7-10", "- A A A B B B B B B"},
    {"comments directly under the declarations extend the section",
     u"Option Explicit\n' one\n' two\nSub A()\nEnd Sub", "decl=3 A:4-4-5", "- - - A A"},
    {"a blank line ends the extension", u"Dim a\n' c1\n\n' c2\nSub A()\nEnd Sub", "decl=2 A:3-5-6",
     "- - A A A A"},
    {"a header continued over three lines counts from its first line",
     u"Dim x As Long\n\nPublic Function Foo( _\n    ByVal a As Long, _\n"
     u"    ByVal b As Long) As Long\n  Foo = a + b\nEnd Function",
     "decl=1 Foo:2-3-7", "- Foo Foo Foo Foo Foo Foo"},
    {"keywords in comments and strings",
     u"Sub A()\n  ' End Sub\n  s = \"End Sub\"\n  Rem End Sub\n  x = 1 ' : End Sub\nEnd Sub\n"
     u"Sub B()\nEnd Sub",
     "decl=0 A:1-1-6 B:7-7-8", "A A A A A A B B"},
    {"three accessors of one property are three regions",
     u"Private m As Long\nPublic Property Get Value() As Long\nEnd Property\n"
     u"Public Property Let Value(ByVal v As Long)\nEnd Property\n"
     u"Public Property Set Value(ByVal v As Object)\nEnd Property",
     "decl=1 Value/3:2-2-3 Value/1:4-4-5 Value/2:6-6-7",
     "- Value/3 Value/3 Value/1 Value/1 Value/2 Value/2"},
    {"a module without procedures is all declarations",
     u"Option Explicit\n\nDim x As Long\n' trailing\n", "decl=5", "- - - - -"},
    {"a module of comments and blank lines has no declarations", u"' a\n\n' b", "decl=0", "- - -"},
    {"an empty module", u"", "decl=0", ""},
    {"Type and Enum fields named like keywords are not procedures",
     u"Private Type T\n  Sub As Long\n  Function As String\nEnd Type\nEnum E\n  Sub = 1\n"
     u"  End\nEnd Enum\nSub Real()\nEnd Sub",
     "decl=8 Real:9-9-10", "- - - - - - - - Real Real"},
    {"Declare and Event are not procedures",
     u"Public Event Changed()\nPrivate Declare Sub Sleep Lib \"k\" (ByVal ms As Long)\n"
     u"Sub A()\nEnd Sub",
     "decl=2 A:3-3-4", "- - A A"},
    {"the first of two headers under #If owns the body",
     u"#If VBA7 Then\nPrivate Declare PtrSafe Function T Lib \"k\" () As Long\n#Else\n"
     u"Private Declare Function T Lib \"k\" () As Long\n#End If\n\n#If VBA7 Then\n"
     u"Public Function Handle() As LongPtr\n#Else\nPublic Function Handle() As Long\n"
     u"#End If\n  Handle = 0\nEnd Function",
     "decl=7 Handle:8-8-13", "- - - - - - - Handle Handle Handle Handle Handle Handle"},
    {"End Sub closes a Property Get", u"Property Get P() As Long\nEnd Sub\nSub Q()\nEnd Sub",
     "decl=0 P/3:1-1-2 Q:3-3-4", "P/3 P/3 Q Q"},
    {"one-line procedures", u"Sub X(): End Sub\nSub Y(): End Sub\nSub Z()\nEnd Sub",
     "decl=0 X:1-1-1 Y:2-2-2 Z:3-3-4", "X Y Z Z"},
    {"a second procedure on the line that closed one opens nothing",
     u"Sub A(): End Sub: Sub B(): End Sub\nSub C()\nEnd Sub", "decl=0 A:1-1-1 C:2-2-3", "A C C"},
    {"a truncated module: the open procedure runs to the end",
     u"Sub A()\nEnd Sub\nSub B()\n  x = 1\n", "decl=0 A:1-1-2 B:3-3-5", "A A B B B"},
    {"Exit Sub, End If and labels do not end a procedure",
     u"Sub A()\n  On Error GoTo Fail\n  Exit Sub\nFail:\n  If x Then Exit Sub\n"
     u"10 End If\nEnd Sub\nFunction B()\nDone: End Function\n",
     "decl=0 A:1-1-7 B:8-8-10", "A A A A A A A B B B"},
    {"a comment ending in \" _\" goes on in the next line",
     u"Sub A()\nEnd Sub\n' note _\nSub Fake()\nSub B()\nEnd Sub", "decl=0 A:1-1-2 B:3-5-6",
     "A A B B B B"},
    {"a continued declaration and a continued comment under it",
     u"Private Const X As Long = _\n    5\n' explains X _\n  still comment\nSub A()\nEnd Sub",
     "decl=4 A:5-5-6", "- - - - A A"},
    {"conditional compilation lines count as declarations",
     u"#Const DEBUG_ON = 1\n\nSub A()\nEnd Sub", "decl=1 A:2-3-4", "- A A A"},
    {"a stray End Sub at module level is ignored", u"End Sub\nSub A()\nEnd Sub", "decl=1 A:2-2-3",
     "- A A"},
    {"keywords in any case and names in DBCS",
     u"PRIVATE SUB \u691c\u7d22()\nend sub\npublic static function F()\nEND FUNCTION",
     "decl=0 \u691c\u7d22:1-1-2 F:3-3-4", "\u691c\u7d22 \u691c\u7d22 F F"},
};

TEST(CodeIndex, RegionsAndDeclarationsOfSampleModules) {
  for (const ModuleCase& c : kModules) {
    SCOPED_TRACE(c.what);
    const auto lines = VbLines(c.code);
    const CodeIndex index = CodeIndex::Build(lines);
    EXPECT_EQ(Regions(index), c.regions);
    EXPECT_EQ(LineOwners(index, lines.Count()), c.owners);
    EXPECT_EQ(index.ProcOfLine(0), nullptr);  // outside the module
    EXPECT_EQ(index.ProcOfLine(lines.Count() + 1), nullptr);
  }
}

const char16_t kFindModule[] =
    u"Public Property Get Value() As Long\nEnd Property\n"
    u"Public Property Let Value(ByVal v As Long)\nEnd Property\n"
    u"Sub Helper()\nEnd Sub\n"
    u"Sub \u00c4rger()\nEnd Sub\n"
    u"Sub HELPER()\nEnd Sub";

TEST(CodeIndex, FindIgnoresCaseButMatchesTheKind) {
  const auto lines = VbLines(kFindModule);
  const CodeIndex index = CodeIndex::Build(lines);
  struct Case {
    std::u16string name;
    vbide::vbext_ProcKind kind;
    int bodyLine;  // 0: not found
  };
  const std::vector<Case> cases = {
      {u"Value", vbide::vbext_pk_Get, 1},   {u"VALUE", vbide::vbext_pk_Let, 3},
      {u"value", vbide::vbext_pk_Set, 0},   {u"Value", vbide::vbext_pk_Proc, 0},
      {u"helper", vbide::vbext_pk_Proc, 5},  // the first of two equal names answers
      {u"Helper", vbide::vbext_pk_Get, 0},  {u"\u00e4RGER", vbide::vbext_pk_Proc, 7},
      {u"Help", vbide::vbext_pk_Proc, 0},   {u"Helpers", vbide::vbext_pk_Proc, 0},
      {u"", vbide::vbext_pk_Proc, 0},       {u"Zzz", vbide::vbext_pk_Proc, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(Show(c.name) + " kind " + std::to_string(c.kind));
    const ProcRegion* proc = index.Find(c.name, c.kind);
    EXPECT_EQ(proc ? proc->bodyLine : 0, c.bodyLine);
    if (proc) {
      EXPECT_EQ(proc->kind, c.kind);
    }
  }
  EXPECT_EQ(Show(index.Find(u"HELPER", vbide::vbext_pk_Proc)->name), "Helper");  // as written
}

TEST(CodeIndex, LineNumbersPastThe16BitRange) {
  host::files::CodeLines lines;
  lines.Append(u"Option Explicit", host::files::Eol::CrLf);
  for (int i = 0; i < 40000; ++i) lines.Append(u"", host::files::Eol::CrLf);
  lines.Append(u"Sub Far()", host::files::Eol::CrLf);
  lines.Append(u"End Sub", host::files::Eol::CrLf);
  const CodeIndex index = CodeIndex::Build(lines);
  const ProcRegion* proc = index.Find(u"Far", vbide::vbext_pk_Proc);
  ASSERT_NE(proc, nullptr);
  EXPECT_EQ(proc->startLine, 2);
  EXPECT_EQ(proc->bodyLine, 40002);
  EXPECT_EQ(proc->endLine, 40003);
  EXPECT_EQ(index.ProcOfLine(40003), proc);
}

TEST(CodeIndex, ManyProceduresAreFoundByLineAndName) {
  host::files::CodeLines lines;
  lines.Append(u"Option Explicit", host::files::Eol::CrLf);
  const int procs = 2000;
  for (int i = 0; i < procs; ++i) {
    const std::u16string name = u"P" + std::u16string(1, u'a' + i % 26) +
                                std::u16string(1, u'a' + (i / 26) % 26) +
                                std::u16string(1, u'a' + i / 676);
    lines.Append(u"Sub " + name + u"()", host::files::Eol::CrLf);
    lines.Append(u"End Sub", host::files::Eol::CrLf);
  }
  const CodeIndex index = CodeIndex::Build(lines);
  ASSERT_EQ(index.Procedures().size(), static_cast<std::size_t>(procs));
  for (int i = 0; i < procs; ++i) {
    const ProcRegion& proc = index.Procedures()[i];
    ASSERT_EQ(index.ProcOfLine(2 + 2 * i), &proc);
    ASSERT_EQ(index.ProcOfLine(3 + 2 * i), &proc);
    ASSERT_EQ(index.Find(proc.name, vbide::vbext_pk_Proc), &proc);
  }
}

}  // namespace
}  // namespace host
