// Classifying a statement by its leading keywords.
#include "host/VbStatement.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/VbText.h"

namespace host {
namespace {

using testing_vb::Show;
using vbide::vbext_Friend;
using vbide::vbext_Private;
using vbide::vbext_Public;
using K = StatementKind;

struct Case {
  std::u16string text;
  StatementKind kind;
  vbide::vbext_ProcKind procKind;
  vbide::vbext_Scope scope;
  bool isStatic;
  std::u16string name;
};

void Check(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    SCOPED_TRACE(Show(c.text));
    const Statement s = ParseStatement(c.text);
    EXPECT_EQ(static_cast<int>(s.kind), static_cast<int>(c.kind));
    EXPECT_EQ(s.procKind, c.procKind);
    EXPECT_EQ(s.scope, c.scope);
    EXPECT_EQ(s.isStatic, c.isStatic);
    EXPECT_EQ(Show(s.name), Show(c.name));
  }
}

TEST(ParseStatement, ProcedureHeaders) {
  using vbide::vbext_pk_Get, vbide::vbext_pk_Let, vbide::vbext_pk_Proc, vbide::vbext_pk_Set;
  Check({
      {u"Sub Main()", K::Procedure, vbext_pk_Proc, vbext_Public, false, u"Main"},
      {u"private function Calc$(ByVal x)", K::Procedure, vbext_pk_Proc, vbext_Private, false,
       u"Calc"},
      {u"Friend Sub Init()", K::Procedure, vbext_pk_Proc, vbext_Friend, false, u"Init"},
      {u"Static Sub Tick()", K::Procedure, vbext_pk_Proc, vbext_Public, true, u"Tick"},
      {u"Private Static Function F()", K::Procedure, vbext_pk_Proc, vbext_Private, true, u"F"},
      {u"Static Private Function G()", K::Procedure, vbext_pk_Proc, vbext_Private, true, u"G"},
      {u"Public Property Get Value() As Long", K::Procedure, vbext_pk_Get, vbext_Public, false,
       u"Value"},
      {u"Property Let Value(ByVal v As Long)", K::Procedure, vbext_pk_Let, vbext_Public, false,
       u"Value"},
      {u"Friend Property Set Obj(ByVal o As Object)", K::Procedure, vbext_pk_Set, vbext_Friend,
       false, u"Obj"},
      {u"Public Sub [Select]()", K::Procedure, vbext_pk_Proc, vbext_Public, false, u"Select"},
      {u"Sub \u691c\u7d22()", K::Procedure, vbext_pk_Proc, vbext_Public, false, u"\u691c\u7d22"},
      {u"10 Sub X()", K::Procedure, vbext_pk_Proc, vbext_Public, false, u"X"},
      {u"Property Value()", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
      {u"Sub", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
      {u"Subtotal = 1", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
  });
}

TEST(ParseStatement, EndsAndThingsThatAreNotEnds) {
  using vbide::vbext_pk_Proc;
  Check({
      {u"End Sub", K::EndProcedure, vbext_pk_Proc, vbext_Public, false, u""},
      {u"end function", K::EndProcedure, vbext_pk_Proc, vbext_Public, false, u""},
      {u"  End   Property", K::EndProcedure, vbext_pk_Proc, vbext_Public, false, u""},
      {u"End Type", K::EndBlock, vbext_pk_Proc, vbext_Public, false, u""},
      {u"End Enum", K::EndBlock, vbext_pk_Proc, vbext_Public, false, u""},
      {u"End If", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
      {u"End", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
      {u"Exit Sub", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
      {u"EndSub", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
      {u"Call EndSub", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
      {u"   ", K::Blank, vbext_pk_Proc, vbext_Public, false, u""},
      {u"#If VBA7 Then", K::Directive, vbext_pk_Proc, vbext_Public, false, u""},
      {u"  #Const DEBUG = 1", K::Directive, vbext_pk_Proc, vbext_Public, false, u""},
  });
}

TEST(ParseStatement, ModuleLevelDeclarations) {
  using vbide::vbext_pk_Proc;
  Check({
      {u"Private Declare Function GetTickCount Lib \"kernel32\" () As Long", K::Declare,
       vbext_pk_Proc, vbext_Private, false, u"GetTickCount"},
      {u"Declare PtrSafe Sub Sleep Lib \"kernel32\" (ByVal ms As Long)", K::Declare, vbext_pk_Proc,
       vbext_Public, false, u"Sleep"},
      {u"Event Changed(ByVal x As Long)", K::Event, vbext_pk_Proc, vbext_Public, false, u"Changed"},
      {u"Public Event Done()", K::Event, vbext_pk_Proc, vbext_Public, false, u"Done"},
      {u"Private Type POINTAPI", K::Block, vbext_pk_Proc, vbext_Private, false, u"POINTAPI"},
      {u"Enum Colors", K::Block, vbext_pk_Proc, vbext_Public, false, u"Colors"},
      {u"Const A = 1, B = 2", K::Constants, vbext_pk_Proc, vbext_Private, false, u""},
      {u"Global Const G = 1", K::Constants, vbext_pk_Proc, vbext_Public, false, u""},
      {u"Public Const X As String = \"a\"", K::Constants, vbext_pk_Proc, vbext_Public, false, u""},
      {u"Dim a, b As Long", K::Variables, vbext_pk_Proc, vbext_Private, false, u""},
      {u"Dim Type As Long", K::Variables, vbext_pk_Proc, vbext_Private, false, u""},
      {u"Private WithEvents x As Foo", K::Variables, vbext_pk_Proc, vbext_Private, false, u""},
      {u"Public Count As Long", K::Variables, vbext_pk_Proc, vbext_Public, false, u""},
      {u"Global g As Long", K::Variables, vbext_pk_Proc, vbext_Public, false, u""},
      {u"Static s As Long", K::Variables, vbext_pk_Proc, vbext_Private, true, u""},
      {u"Option Explicit", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
      {u"Implements IFoo", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
      {u"Public", K::Other, vbext_pk_Proc, vbext_Public, false, u""},
  });
}

TEST(ParseStatement, KeepsTheDeclaratorList) {
  EXPECT_EQ(Show(ParseStatement(u"Private WithEvents x As Foo").declarators),
            "WithEvents x As Foo");
  EXPECT_EQ(Show(ParseStatement(u"Public Const A = 1, B = 2").declarators), "A = 1, B = 2");
  EXPECT_EQ(Show(ParseStatement(u"Dim a(1 To 5) As Long").declarators), "a(1 To 5) As Long");
}

}  // namespace
}  // namespace host
