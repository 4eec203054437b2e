// The module-level members of a module: order, types, scopes, Static and their lines.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/CodeIndex.h"
#include "support/VbText.h"

namespace host {
namespace {

using testing_vb::Show;
using testing_vb::VbLines;

// "Name type scope [static] @line", one per member, separated by "; ".
std::string Describe(const std::vector<MemberInfo>& members) {
  std::string text;
  for (const MemberInfo& m : members) {
    if (!text.empty()) text += "; ";
    text += Show(m.name) + " " + std::to_string(m.type) + " " + std::to_string(m.scope) +
            (m.isStatic ? " static" : "") + " @" + std::to_string(m.codeLocation);
  }
  return text;
}

std::string MembersOf(std::u16string_view code) {
  const auto lines = VbLines(code);
  return Describe(BuildMembers(lines, CodeIndex::Build(lines)));
}

struct MembersCase {
  const char* what;
  std::u16string code;
  std::string members;  // type: 1 method, 2 property, 3 variable, 4 event, 5 const
};                      // scope: 1 Private, 2 Public, 3 Friend

const std::vector<MembersCase> kCases = {
    {"a class in declaration order",
     u"Option Explicit\n"
     u"Public Event Changed(ByVal x As Long)\n"
     u"Private Declare Function GetTickCount Lib \"kernel32\" () As Long\n"
     u"Private Const MAX_ITEMS = 10\n"
     u"Private WithEvents mButton As CommandButton\n"
     u"Dim a, b As Long\n"
     u"Public Sub Show()\nEnd Sub\n"
     u"Friend Function Calc() As Long\nEnd Function\n",
     "Changed 4 2 @2; GetTickCount 1 1 @3; MAX_ITEMS 5 1 @4; mButton 3 1 @5; a 3 1 @6; "
     "b 3 1 @6; Show 1 2 @7; Calc 1 3 @9"},
    {"default scopes",
     u"Const C = 1\nDeclare Sub Sleep Lib \"k\" (ByVal ms As Long)\nEvent E()\n"
     u"Global G As Long\nStatic S As Long\nSub P()\nEnd Sub\nProperty Get Q()\nEnd Property",
     "C 5 1 @1; Sleep 1 2 @2; E 4 2 @3; G 3 2 @4; S 3 1 static @5; P 1 2 @6; Q 2 2 @8"},
    {"a property with three accessors is one member at its first",
     u"Private m As Object\n"
     u"Public Property Let Item(ByVal v As Variant)\nEnd Property\n"
     u"Public Property Get Item() As Variant\nEnd Property\n"
     u"Sub Other()\nEnd Sub\n"
     u"Public Property Set Item(ByVal v As Object)\nEnd Property",
     "m 3 1 @1; Item 2 2 @2; Other 1 2 @6"},
    {"several constants on one line, with commas in strings and parentheses",
     u"Public Const A = 1, B = \"x, y\", C = (1 + 2)\n"
     u"Public Const X As String = \"a, b\"",
     "A 5 2 @1; B 5 2 @1; C 5 2 @1; X 5 2 @2"},
    {"arrays, New and continued declarations",
     u"Dim a(1 To 5, 1 To 2) As Long\nPublic x As New Collection\n"
     u"Private p As Long, _\n    q As String",
     "a 3 1 @1; x 3 2 @2; p 3 1 @3; q 3 1 @3"},
    {"Type and Enum blocks and their fields are not members",
     u"Private Type T\n  Sub As Long\n  Dim As Long\nEnd Type\n"
     u"Public Enum E\n  Const = 1\n  Public\nEnd Enum\nDim after As Long",
     "after 3 1 @9"},
    {"variables inside procedures are not members",
     u"Sub A()\n  Dim local As Long\n  Static s As Long\n  Const K = 1\nEnd Sub", "A 1 2 @1"},
    {"static procedures", u"Private Static Sub Tick()\nEnd Sub\nStatic Function F()\nEnd Function",
     "Tick 1 1 static @1; F 1 2 static @3"},
    {"the first header of an #If pair is the member",
     u"#If VBA7 Then\nPrivate Declare PtrSafe Function T Lib \"k\" () As LongPtr\n#Else\n"
     u"Private Declare Function T Lib \"k\" () As Long\n#End If\n"
     u"#If VBA7 Then\nPublic Function H() As LongPtr\n#Else\nFriend Function H() As Long\n"
     u"#End If\nEnd Function",
     "T 1 1 @2; H 1 2 @7"},
    {"one member per name: the first appearance decides",
     u"Dim Value As Long\nProperty Get value()\nEnd Property\nSub VALUE()\nEnd Sub",
     "Value 3 1 @1"},
    {"comments and strings hold no members",
     u"' Dim hidden As Long\nRem Const Z = 1\nPrivate s As String ' , t As Long\n"
     u"Dim u As String: Dim v As Long",
     "s 3 1 @3; u 3 1 @4; v 3 1 @4"},
    {"names in brackets and DBCS",
     u"Dim [my value] As Long\nPublic \u540d\u524d As String\nSub \u691c\u7d22()\nEnd Sub",
     "my value 3 1 @1; \u540d\u524d 3 2 @2; \u691c\u7d22 1 2 @3"},
    {"a declaration between procedures keeps its place in the order",
     u"Sub A()\nEnd Sub\nDim stray As Long\nSub B(): End Sub", "A 1 2 @1; stray 3 1 @3; B 1 2 @4"},
    {"an empty module", u"", ""},
};

TEST(BuildMembers, SampleModules) {
  for (const MembersCase& c : kCases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(MembersOf(c.code), c.members);
  }
}

}  // namespace
}  // namespace host
