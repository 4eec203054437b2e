// host::VbStatement: classifies one VB statement by its leading keywords.
#include "host/VbStatement.h"

#include "host/VbLexer.h"

namespace host {

namespace {

struct Modifiers {
  bool any = false;
  bool hasScope = false;
  vbide::vbext_Scope scope = vbide::vbext_Public;
  bool isStatic = false;
  bool dim = false;
  vbide::vbext_Scope Or(vbide::vbext_Scope fallback) const { return hasScope ? scope : fallback; }
};

// Scope keywords and Static in any order: VB accepts "Private Static" and real code also has
// "Static Private".
Modifiers ReadModifiers(VbWords& words) {
  Modifiers m;
  for (;;) {
    if (words.Accept(u"Public") || words.Accept(u"Global")) {
      m.hasScope = true;
      m.scope = vbide::vbext_Public;
    } else if (words.Accept(u"Private")) {
      m.hasScope = true;
      m.scope = vbide::vbext_Private;
    } else if (words.Accept(u"Friend")) {
      m.hasScope = true;
      m.scope = vbide::vbext_Friend;
    } else if (words.Accept(u"Static")) {
      m.isStatic = true;
    } else if (words.Accept(u"Dim")) {
      m.dim = true;
    } else {
      return m;
    }
    m.any = true;
  }
}

bool ReadProcedureKeyword(VbWords& words, vbide::vbext_ProcKind& kind) {
  kind = vbide::vbext_pk_Proc;
  if (words.Accept(u"Sub") || words.Accept(u"Function")) return true;
  if (!words.Accept(u"Property")) return false;
  if (words.Accept(u"Get")) {
    kind = vbide::vbext_pk_Get;
  } else if (words.Accept(u"Let")) {
    kind = vbide::vbext_pk_Let;
  } else if (words.Accept(u"Set")) {
    kind = vbide::vbext_pk_Set;
  } else {
    return false;
  }
  return true;
}

// A statement that declares one named thing: "Sub X", "Declare Function X", "Event X", "Type X".
Statement Named(StatementKind kind, VbWords& words) {
  Statement s;
  s.name = words.Identifier();
  s.kind = s.name.empty() ? StatementKind::Other : kind;
  return s;
}

Statement ParseDeclaration(VbWords& words, const Modifiers& m) {
  Statement s;
  vbide::vbext_ProcKind procKind;
  if (ReadProcedureKeyword(words, procKind)) {
    s = Named(StatementKind::Procedure, words);
    s.procKind = procKind;
  } else if (words.Accept(u"Declare")) {
    words.Accept(u"PtrSafe");
    if (words.Accept(u"Sub") || words.Accept(u"Function")) s = Named(StatementKind::Declare, words);
  } else if (words.Accept(u"Event")) {
    s = Named(StatementKind::Event, words);
  } else if (words.Accept(u"Type") || words.Accept(u"Enum")) {
    s = Named(StatementKind::Block, words);
  } else if (words.Accept(u"Const")) {
    s.kind = StatementKind::Constants;
    s.declarators = words.Rest();
    s.scope = m.Or(vbide::vbext_Private);
    s.isStatic = m.isStatic;
    return s;
  } else if (m.any && !words.AtEnd()) {
    s.kind = StatementKind::Variables;
    s.declarators = words.Rest();
    s.scope = m.Or(vbide::vbext_Private);
    s.isStatic = m.isStatic;
    return s;
  }
  s.scope = m.Or(vbide::vbext_Public);
  s.isStatic = m.isStatic;
  return s;
}

// Reads an End statement once "End" is consumed.
Statement ReadEnd(VbWords& words) {
  Statement s;
  if (words.Accept(u"Sub") || words.Accept(u"Function") || words.Accept(u"Property")) {
    s.kind = StatementKind::EndProcedure;
  } else if (words.Accept(u"Type") || words.Accept(u"Enum")) {
    s.kind = StatementKind::EndBlock;
  }
  return s;
}

}  // namespace

Statement ParseEnd(std::u16string_view text) {
  VbWords words(text);
  words.SkipLineNumber();
  if (words.Accept(u"End")) return ReadEnd(words);
  Statement s;
  if (words.AtEnd()) s.kind = StatementKind::Blank;
  return s;
}

Statement ParseStatement(std::u16string_view text) {
  VbWords words(text);
  words.SkipLineNumber();
  Statement s;
  if (words.AtEnd()) {
    s.kind = StatementKind::Blank;
    return s;
  }
  if (words.Peek(u'#')) {
    s.kind = StatementKind::Directive;
    return s;
  }
  if (words.Accept(u"End")) return ReadEnd(words);
  const Modifiers m = ReadModifiers(words);
  if (m.dim) {
    // "Dim" leaves only variables: "Dim Type As Long" declares a variable named Type.
    s.kind = words.AtEnd() ? StatementKind::Other : StatementKind::Variables;
    s.declarators = words.Rest();
    s.scope = m.Or(vbide::vbext_Private);
    s.isStatic = m.isStatic;
    return s;
  }
  return ParseDeclaration(words, m);
}

}  // namespace host
