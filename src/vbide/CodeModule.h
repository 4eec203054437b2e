// vbide::CodeModule: the visible text of a component as numbered lines, with procedure bookkeeping.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "vbide/Enums.h"
#include "vbide/Fwd.h"

namespace vbide {

// Lines and columns count from 1; columns count UTF-16 units. Ranges outside the module raise 5;
// a procedure of that name and kind that does not exist raises 35. Every query is O(log n) or
// better: the procedure index is rebuilt lazily after an edit.
class CodeModule {
 public:
  virtual ~CodeModule() = default;

  virtual VBComponentPtr Parent() = 0;
  // The module's pane, created (with a hidden code window) on first use.
  virtual CodePanePtr CodePane() = 0;

  virtual int CountOfLines() = 0;
  // Last line of the declarations section; 0 when it is empty.
  virtual int CountOfDeclarationLines() = 0;
  // Lines start..start+count-1 joined by CR LF, without a trailing separator; count 0 gives "".
  virtual std::u16string Lines(int startLine, int count) = 0;
  // One line without copying (ours). The view is valid until the module is next changed.
  virtual std::u16string_view LineView(int line) = 0;
  // Views of lines startLine, startLine + 1, ... into `out`, as many as fit and exist (ours);
  // returns how many. One call per batch of lines: a search reads every line of a module.
  virtual int LineViews(int startLine, std::span<std::u16string_view> out) = 0;

  // Inserts before `line` (CountOfLines + 1 appends). The text is split at CR LF, CR and LF.
  virtual void InsertLines(int line, std::u16string_view text) = 0;
  virtual void DeleteLines(int startLine, int count = 1) = 0;
  virtual void ReplaceLine(int line, std::u16string_view text) = 0;
  // Inserts right after the declarations section, or appends when there is no procedure.
  virtual void AddFromString(std::u16string_view text) = 0;

  // The procedure whose region holds `line` ("" for the declarations section) and its kind.
  virtual std::u16string ProcOfLine(int line, vbext_ProcKind& kind) = 0;
  // The same without copying the name (ours); valid until the module is next changed.
  virtual std::u16string_view ProcOfLineView(int line, vbext_ProcKind& kind) = 0;
  virtual int ProcStartLine(std::u16string_view procName, vbext_ProcKind kind) = 0;
  virtual int ProcBodyLine(std::u16string_view procName, vbext_ProcKind kind) = 0;
  virtual int ProcCountLines(std::u16string_view procName, vbext_ProcKind kind) = 0;

  virtual MembersPtr Members() = 0;
};

}  // namespace vbide
