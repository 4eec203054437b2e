// host::ModuleWalker: walks a module's statements with the procedure and block state.
#include "host/ModuleWalker.h"

namespace host {

bool ModuleWalker::NextLine() {
  if (!reader_.Next(line_)) return false;
  splitter_ = StatementSplitter(line_.code, line_.plain);
  return true;
}

bool ModuleWalker::NextStatement(WalkedStatement& walked) {
  std::u16string_view text;
  if (!splitter_.Next(text)) return false;
  // Inside a procedure only its end matters, and most lines of a module stand there: a full
  // parse of every body line would double the cost of the walk.
  walked = WalkedStatement{place_ == Place::Procedure ? ParseEnd(text) : ParseStatement(text),
                           place_, false, false};
  const StatementKind kind = walked.statement.kind;
  switch (place_) {
    case Place::Module:
      if (kind == StatementKind::Procedure && lastClosedLine_ != line_.first) {
        walked.opensProcedure = true;
        place_ = Place::Procedure;
      } else if (kind == StatementKind::Block) {
        place_ = Place::Block;
      }
      break;
    case Place::Procedure:
      if (kind == StatementKind::EndProcedure) {
        walked.closesProcedure = true;
        place_ = Place::Module;
        lastClosedLine_ = line_.first;
      }
      break;
    case Place::Block:
      if (kind == StatementKind::EndBlock) place_ = Place::Module;
      break;
  }
  return true;
}

}  // namespace host
