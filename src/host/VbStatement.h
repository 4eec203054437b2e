// host::VbStatement: what one VB statement is, as far as the code index needs to know.
#pragma once

#include <cstdint>
#include <string_view>

#include "vbide/Enums.h"

namespace host {

enum class StatementKind : std::uint8_t {
  Blank,
  Procedure,     // Sub, Function, Property Get/Let/Set
  EndProcedure,  // End Sub, End Function, End Property
  Block,         // Type or Enum: its fields follow
  EndBlock,      // End Type, End Enum
  Declare,
  Event,
  Variables,  // Dim, Private, Public, Global, Static followed by declarators
  Constants,
  Directive,  // #If, #ElseIf, #Else, #End If, #Const
  Other,
};

struct Statement {
  StatementKind kind = StatementKind::Other;
  vbide::vbext_ProcKind procKind = vbide::vbext_pk_Proc;
  // The written scope, or VB's default for the kind: Private for Dim, Static and Const, Public
  // for procedures, Declare and Event.
  vbide::vbext_Scope scope = vbide::vbext_Public;
  bool isStatic = false;
  std::u16string_view name;         // Procedure, Declare, Event, Block
  std::u16string_view declarators;  // Variables, Constants: the list after the keywords
};

// Reads one statement (no comment, no ':'), keywords in any case. A leading line number is
// skipped.
Statement ParseStatement(std::u16string_view text);

// The same for a statement inside a procedure, where only End Sub/Function/Property and End
// Type/Enum are told apart; everything else is Other (or Blank).
Statement ParseEnd(std::u16string_view text);

}  // namespace host
