// The New Member declaration texts: each rule as a table of fields and the exact text written.
// The dialog's own tests write a Static Function with arguments, the Color property with its
// variable and four constants through the dialog; the rows here are the other variants.
#include <gtest/gtest.h>

#include "newmember/Declarations.h"
#include "runtime/Utf.h"

namespace {

using quillmark::BuildArgument;
using quillmark::ConstantDeclaration;
using quillmark::MethodDeclaration;
using quillmark::PropertyDeclarations;
using quillmark::PropertyKind;

std::string Shown(const std::u16string& text) {
  return vb::ToUtf8(text);
}

TEST(NewMemberDeclarations, ArgumentEntriesReadAsInVb) {
  struct Case {
    const char16_t *name, *type, *defaultValue;
    bool isOptional, isByVal, isParamArray;
    const char* entry;
  } cases[] = {
      {u"Count", u"Long", u"", false, true, false, "ByVal Count As Long"},
      {u"Items", u"Variant", u"", false, false, true, "ParamArray Items() As Variant"},
      {u"Count", u"Long", u"1", true, false, false, "Optional Count As Long = 1"},
      {u"Title", u"String", u"abc", true, true, false, "Optional ByVal Title As String = abc"},
      {u"Name", u"String", u"", false, false, false, "Name As String"},
  };
  for (auto& c : cases)
    EXPECT_EQ(Shown(BuildArgument(c.name, c.type, c.defaultValue, c.isOptional, c.isByVal,
                                  c.isParamArray)),
              c.entry);
}

TEST(NewMemberDeclarations, MethodsAreHeaderEmptyLineAndEndWithoutTrailingBreak) {
  EXPECT_EQ(Shown(MethodDeclaration(
                {u"Friend", false, u"Mix", u"", {u"A As Long", u"B As String", u"C As Variant"}})),
            "Friend Sub Mix(A As Long, B As String, C As Variant)\r\n\r\nEnd Sub");
}

TEST(NewMemberDeclarations, PropertiesByKindTypeAndLocalVariable) {
  struct Case {
    quillmark::PropertyFields fields;
    const char *declaration, *get, *letSet;
  } cases[] = {
      // "Date" and "Variant" are intrinsic; "Object" and a class name are object types.
      {{u"Public", u"Due", u"Date", PropertyKind::Both, u"", u"", false},
       "",
       "Public Property Get Due() As Date\r\n\r\nEnd Property",
       "Public Property Let Due(varDue As Date)\r\n\r\nEnd Property"},
      {{u"Friend", u"Tag", u"Variant", PropertyKind::Both, u"mTag", u"Variant", true},
       "",
       "Friend Property Get Tag() As Variant\r\n\r\n\tTag = mTag\r\n\r\nEnd Property",
       "Friend Property Let Tag(varTag As Variant)\r\n\r\n\tmTag = varTag\r\n\r\nEnd Property"},
      {{u"Public", u"Owner", u"Object", PropertyKind::Both, u"mOwner", u"Object", false},
       "Private mOwner As Object",
       "Public Property Get Owner() As Object\r\n\r\n\tSet Owner = mOwner\r\n\r\nEnd Property",
       "Public Property Set Owner(objOwner As Object)\r\n\r\n\tSet mOwner = objOwner\r\n\r\nEnd "
       "Property"},
      {{u"Private", u"Invoice", u"CInvoice", PropertyKind::LetSet, u"", u"", false},
       "",
       "",
       "Private Property Set Invoice(objInvoice As CInvoice)\r\n\r\nEnd Property"},
      // "Get" writes no Let; "Let/Set" writes no Get but still declares a new local variable.
      {{u"Public", u"Count", u"Long", PropertyKind::Get, u"mCount", u"Long", true},
       "",
       "Public Property Get Count() As Long\r\n\r\n\tCount = mCount\r\n\r\nEnd Property",
       ""},
      {{u"Public", u"Count", u"Long", PropertyKind::LetSet, u"mCount", u"Long", false},
       "Private mCount As Long",
       "",
       "Public Property Let Count(varCount As Long)\r\n\r\n\tmCount = varCount\r\n\r\nEnd "
       "Property"},
      // A local variable without a type counts nowhere.
      {{u"Public", u"Count", u"Long", PropertyKind::Both, u"mCount", u"", false},
       "",
       "Public Property Get Count() As Long\r\n\r\nEnd Property",
       "Public Property Let Count(varCount As Long)\r\n\r\nEnd Property"},
  };
  for (auto& c : cases) {
    auto texts = PropertyDeclarations(c.fields);
    SCOPED_TRACE(Shown(c.fields.name) + " " + Shown(c.fields.type));
    EXPECT_EQ(Shown(texts.localDeclaration), c.declaration);
    EXPECT_EQ(Shown(texts.getProcedure), c.get);
    EXPECT_EQ(Shown(texts.letSetProcedure), c.letSet);
  }
}

TEST(NewMemberDeclarations, ConstantsQuoteByTypeOrByTheNumericTest) {
  struct Case {
    quillmark::ConstantFields fields;
    const char* text;
  } cases[] = {
      // Quotes typed into a String value get a second pair.
      {{false, u"Q", u"\"x\"", u"String", true}, "Private Const Q As String = \"\"x\"\""},
      {{false, u"N", u"12", u"", false}, "Private Const N = 12"},
      {{false, u"N", u"12a", u"", false}, "Private Const N = \"12a\""},
      // VB's numeric text: signs, exponents, thousands separators, a currency sign.
      {{false, u"N", u"-1.5E3", u"", false}, "Private Const N = -1.5E3"},
      {{false, u"N", u"$1,000", u"", false}, "Private Const N = $1,000"},
      // A type whose entry is not selected does not count; a selected one writes as typed.
      {{false, u"N", u"abc", u"Long", false}, "Private Const N = \"abc\""},
      {{false, u"N", u"abc", u"Long", true}, "Private Const N As Long = abc"},
  };
  for (auto& c : cases) EXPECT_EQ(Shown(ConstantDeclaration(c.fields)), c.text);
}

}  // namespace
