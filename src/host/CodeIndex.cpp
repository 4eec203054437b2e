// host::CodeIndex: procedure regions, the declarations section and members of a module's code.
#include "host/CodeIndex.h"

#include <algorithm>
#include <unordered_set>

#include "host/ModuleWalker.h"
#include "runtime/CaseFold.h"

namespace host {

namespace {

char16_t FoldUnit(char16_t c) {
  if (c < 0x80) return c >= u'A' && c <= u'Z' ? c + (u'a' - u'A') : c;
  return vb::FoldCase(c);
}

std::u16string FoldName(std::u16string_view name) {
  std::u16string folded(name);
  for (char16_t& c : folded) c = FoldUnit(c);
  return folded;
}

// Compares a folded key with a name as the user wrote it, folding on the fly so that a lookup
// allocates nothing.
int CompareFolded(std::u16string_view folded, std::u16string_view name) {
  const std::size_t n = std::min(folded.size(), name.size());
  for (std::size_t i = 0; i < n; ++i) {
    const char16_t b = FoldUnit(name[i]);
    if (folded[i] != b) return folded[i] < b ? -1 : 1;
  }
  if (folded.size() == name.size()) return 0;
  return folded.size() < name.size() ? -1 : 1;
}

}  // namespace

CodeIndex CodeIndex::Build(const files::CodeLines& lines) {
  CodeIndex index;
  std::vector<ProcRegion>& procs = index.procedures_;
  const int count = lines.Count();
  ModuleWalker walker(lines);
  int declarationEnd = 0;
  // Comment lines right under the last declaration extend the section; a blank line ends that.
  bool extending = false;
  while (walker.NextLine()) {
    const LogicalLine& line = walker.Line();
    if (line.IsBlank()) {
      extending = false;
      continue;
    }
    if (!line.HasCode()) {
      if (extending) declarationEnd = line.last;
      continue;
    }
    WalkedStatement walked;
    while (walker.NextStatement(walked)) {
      const Statement& s = walked.statement;
      if (walked.opensProcedure) {
        procs.push_back(ProcRegion{std::u16string(s.name), s.procKind, 0, line.first, count,
                                   s.scope, s.isStatic});
      }
      if (walked.closesProcedure) procs.back().endLine = line.last;
    }
    extending = procs.empty();
    if (extending) declarationEnd = line.last;
  }
  if (procs.empty()) {
    // A module without procedures is all declarations, unless it holds no statement at all.
    index.declarationLines_ = declarationEnd > 0 ? count : 0;
    return index;
  }
  index.declarationLines_ = declarationEnd;
  int start = declarationEnd + 1;
  for (ProcRegion& proc : procs) {
    proc.startLine = start;
    start = proc.endLine + 1;
  }
  procs.back().endLine = count;

  index.byName_.reserve(procs.size());
  for (std::size_t i = 0; i < procs.size(); ++i) {
    index.byName_.push_back(NameKey{FoldName(procs[i].name), procs[i].kind, static_cast<int>(i)});
  }
  std::sort(index.byName_.begin(), index.byName_.end(), [](const NameKey& a, const NameKey& b) {
    if (a.folded != b.folded) return a.folded < b.folded;
    if (a.kind != b.kind) return a.kind < b.kind;
    return a.index < b.index;
  });
  return index;
}

const ProcRegion* CodeIndex::ProcOfLine(int line) const {
  if (procedures_.empty() || line < procedures_.front().startLine ||
      line > procedures_.back().endLine) {
    return nullptr;
  }
  // Asked line after line by a search's rows: the region found last usually answers again.
  auto holds = [&](std::size_t i) {
    return procedures_[i].startLine <= line &&
           (i + 1 == procedures_.size() || line < procedures_[i + 1].startLine);
  };
  if (lastFound_ < procedures_.size() && holds(lastFound_)) return &procedures_[lastFound_];
  // The last region starting at or before the line, halving without branches: the lines a
  // search asks about jump from procedure to procedure, which a branch would mispredict.
  const ProcRegion* base = procedures_.data();
  for (std::size_t n = procedures_.size(); n > 1;) {
    std::size_t half = n / 2;
    base = base[half].startLine <= line ? base + half : base;
    n -= half;
  }
  lastFound_ = static_cast<std::size_t>(base - procedures_.data());
  return base;
}

const ProcRegion* CodeIndex::Find(std::u16string_view name, vbide::vbext_ProcKind kind) const {
  // The first key not below (name, kind); equal keys stay in module order, so the first
  // procedure of a duplicated name answers.
  const auto it = std::partition_point(byName_.begin(), byName_.end(), [&](const NameKey& key) {
    const int c = CompareFolded(key.folded, name);
    return c < 0 || (c == 0 && key.kind < kind);
  });
  if (it == byName_.end() || it->kind != kind || CompareFolded(it->folded, name) != 0) {
    return nullptr;
  }
  return &procedures_[it->index];
}

namespace {

void AddDeclarators(std::vector<MemberInfo>& members, const Statement& s,
                    vbide::vbext_MemberType type, int line) {
  DeclaratorNames names(s.declarators);
  std::u16string_view name;
  while (names.Next(name)) {
    if (!name.empty()) members.push_back({std::u16string(name), type, s.scope, s.isStatic, line});
  }
}

// The members declared by statements at module level, in line order; procedures come from the
// index.
std::vector<MemberInfo> ModuleLevelMembers(const files::CodeLines& lines) {
  std::vector<MemberInfo> members;
  ModuleWalker walker(lines);
  while (walker.NextLine()) {
    const LogicalLine& line = walker.Line();
    if (!line.HasCode()) continue;
    WalkedStatement walked;
    while (walker.NextStatement(walked)) {
      if (walked.place != Place::Module) continue;
      const Statement& s = walked.statement;
      switch (s.kind) {
        case StatementKind::Declare:
          members.push_back(
              {std::u16string(s.name), vbide::vbext_mt_Method, s.scope, false, line.first});
          break;
        case StatementKind::Event:
          members.push_back(
              {std::u16string(s.name), vbide::vbext_mt_Event, s.scope, false, line.first});
          break;
        case StatementKind::Variables:
          AddDeclarators(members, s, vbide::vbext_mt_Variable, line.first);
          break;
        case StatementKind::Constants:
          AddDeclarators(members, s, vbide::vbext_mt_Const, line.first);
          break;
        default:
          break;
      }
    }
  }
  return members;
}

}  // namespace

std::vector<MemberInfo> BuildMembers(const files::CodeLines& lines, const CodeIndex& index) {
  const std::vector<MemberInfo> declared = ModuleLevelMembers(lines);
  const std::vector<ProcRegion>& procs = index.Procedures();
  std::vector<MemberInfo> members;
  members.reserve(declared.size() + procs.size());
  std::unordered_set<std::u16string> seen;
  auto add = [&](MemberInfo member) {
    // One member per name: the first appearance decides its type and line; intended.
    if (seen.insert(FoldName(member.name)).second) members.push_back(std::move(member));
  };
  std::size_t d = 0;
  for (const ProcRegion& proc : procs) {
    while (d < declared.size() && declared[d].codeLocation <= proc.bodyLine) add(declared[d++]);
    const auto type =
        proc.kind == vbide::vbext_pk_Proc ? vbide::vbext_mt_Method : vbide::vbext_mt_Property;
    add(MemberInfo{proc.name, type, proc.scope, proc.isStatic, proc.bodyLine});
  }
  while (d < declared.size()) add(declared[d++]);
  return members;
}

}  // namespace host
