// host::ModuleWalker: walks a module's statements and knows where each one stands: at module
// level, inside a procedure, or inside a Type/Enum block.
#pragma once

#include <cstdint>

#include "host/VbLexer.h"
#include "host/VbStatement.h"
#include "host/files/CodeLines.h"

namespace host {

enum class Place : std::uint8_t { Module, Procedure, Block };

struct WalkedStatement {
  Statement statement;
  Place place = Place::Module;   // where it stands, before it takes effect
  bool opensProcedure = false;   // a procedure header at module level
  bool closesProcedure = false;  // any End Sub/Function/Property inside a procedure
};

// Real code bends the language, and the walk keeps its way through it: any End Sub, End Function
// or End Property closes the open procedure whatever opened it (Property Get ... End Sub); a
// header met inside a procedure opens nothing (the second header of an "#If VBA7" pair); Type
// and Enum fields are never headers (a field may be named Sub); a second header on the logical
// line that closed a procedure ("Sub A(): End Sub: Sub B()") opens nothing either, so that no
// region starts after its own body.
class ModuleWalker {
 public:
  explicit ModuleWalker(const files::CodeLines& lines) : reader_(lines) {}
  // Advances to the next logical line; false at the end.
  bool NextLine();
  const LogicalLine& Line() const { return line_; }
  // The statements of the current line in order; a line without code gives one Blank statement.
  bool NextStatement(WalkedStatement& walked);

 private:
  LogicalLineReader reader_;
  LogicalLine line_;
  StatementSplitter splitter_{u""};
  Place place_ = Place::Module;
  int lastClosedLine_ = 0;
};

}  // namespace host
