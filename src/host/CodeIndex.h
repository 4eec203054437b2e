// host::CodeIndex: the procedures of a module's code and its declarations section, and the
// module-level members, read from the visible lines in one pass.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/files/CodeLines.h"
#include "vbide/Enums.h"

namespace host {

// A procedure's lines. Lines count from 1; regions are contiguous from the line after the
// declarations section to the module's last line.
struct ProcRegion {
  std::u16string name;         // as written, without [brackets]
  vbide::vbext_ProcKind kind;  // Proc for Sub/Function, Let/Set/Get for property accessors
  int startLine;               // first line of the region
  int bodyLine;                // first physical line of the Sub/Function/Property statement
  int endLine;  // the End line, or the module's last line for the last (or an unclosed) one
  vbide::vbext_Scope scope = vbide::vbext_Public;  // the header's, Public when none is written
  bool isStatic = false;
};

// Answers CountOfDeclarationLines, ProcOfLine and the Proc*Line queries of a code module. Built
// from a snapshot of the lines; the owner rebuilds it after an edit.
class CodeIndex {
 public:
  static CodeIndex Build(const files::CodeLines& lines);

  // The last line of the declarations section; 0 when it is empty.
  int CountOfDeclarationLines() const { return declarationLines_; }
  const std::vector<ProcRegion>& Procedures() const { return procedures_; }
  // The procedure whose region holds `line`; null for a declarations line or a line outside
  // the module.
  const ProcRegion* ProcOfLine(int line) const;
  // The first procedure of that name (case ignored) and kind; null when none.
  const ProcRegion* Find(std::u16string_view name, vbide::vbext_ProcKind kind) const;

 private:
  struct NameKey {
    std::u16string folded;
    vbide::vbext_ProcKind kind;
    int index;
  };
  int declarationLines_ = 0;
  std::vector<ProcRegion> procedures_;
  std::vector<NameKey> byName_;  // sorted by folded name, kind, module order
  mutable std::size_t lastFound_ = 0;  // the region ProcOfLine found last
};

struct MemberInfo {
  std::u16string name;
  vbide::vbext_MemberType type;
  vbide::vbext_Scope scope;
  bool isStatic;
  int codeLocation;  // the first physical line of its declaration; a property's first accessor
};

// One member per module-level name, in order of first appearance: Sub, Function and Declare are
// methods; a property's accessors make one property; each declarator of a module-level variable
// or Const statement is a variable or constant; each Event an event. Type and Enum blocks and
// their fields are not members. One O(n) pass.
std::vector<MemberInfo> BuildMembers(const files::CodeLines& lines, const CodeIndex& index);

}  // namespace host
