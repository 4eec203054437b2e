// host::CodeModule.
#include "host/CodeModule.h"

#include <algorithm>

#include "host/CodePane.h"
#include "host/Component.h"
#include "host/Ide.h"
#include "host/Member.h"
#include "runtime/Utf.h"

namespace host {
namespace {

vb::Error InvalidCall(std::u16string_view detail) {
  return vb::Error::Standard(vb::err::kInvalidProcedureCall, detail);
}

std::u16string Number(long long n) {
  return vb::FromUtf8(std::to_string(n));
}

}  // namespace

std::u16string CodeModule::What() const {
  auto c = component_.lock();
  return u"code module " + (c ? c->What() : std::u16string());
}

files::CodeLines& CodeModule::Text() {
  // Every line read comes through here: the name is built only for the error.
  if (!Alive()) [[unlikely]]
    if (!Alive()) CheckAlive(What());
  auto c = component_.lock();
  if (!c) throw vb::Error::Standard(vb::err::kObjectNotSet, What());
  return c->File().code;
}

void CodeModule::CheckLine(int line, int last) {
  if (line < 1 || line > last)
    throw InvalidCall(u"line " + Number(line) + u" is outside 1.." + Number(last) + u" of " +
                      What());
}

void CodeModule::Edited() {
  if (auto c = component_.lock()) c->MarkChanged();
  if (onChange) onChange();
}

const CodeIndex& CodeModule::Index() {
  return Index(Text());
}

const CodeIndex& CodeModule::Index(const files::CodeLines& text) {
  if (!index_ || indexVersion_ != text.Version()) {
    index_ = CodeIndex::Build(text);
    indexVersion_ = text.Version();
  }
  return *index_;
}

vbide::VBComponentPtr CodeModule::Parent() {
  if (!Alive()) CheckAlive(What());
  return component_.lock();
}

vbide::CodePanePtr CodeModule::CodePane() {
  if (!Alive()) CheckAlive(What());
  if (!pane_) {
    auto component = component_.lock();
    auto ide = component->OwnerIde();
    pane_ = host::CodePane::Create(ide, shared_from_this());
  }
  return pane_;
}

int CodeModule::CountOfLines() {
  return Text().Count();
}

int CodeModule::CountOfDeclarationLines() {
  return Index().CountOfDeclarationLines();
}

std::u16string CodeModule::Lines(int startLine, int count) {
  auto& text = Text();
  if (count < 0) throw InvalidCall(u"a negative count of lines");
  if (count == 0) {
    if (startLine < 1 || startLine > text.Count() + 1) CheckLine(startLine, text.Count());
    return {};
  }
  CheckLine(startLine, text.Count());
  CheckLine(startLine + count - 1, text.Count());
  std::u16string out;
  for (int line = startLine; line < startLine + count; ++line) {
    if (line > startLine) out += u"\r\n";
    out += text.Line(line);
  }
  return out;
}

std::u16string_view CodeModule::LineView(int line) {
  auto& text = Text();
  CheckLine(line, text.Count());
  return text.Line(line);
}

int CodeModule::LineViews(int startLine, std::span<std::u16string_view> out) {
  auto& text = Text();
  CheckLine(startLine, text.Count());
  int count = std::min(static_cast<int>(out.size()), text.Count() - startLine + 1);
  for (int i = 0; i < count; ++i) out[static_cast<std::size_t>(i)] = text.Line(startLine + i);
  return count;
}

void CodeModule::InsertLines(int line, std::u16string_view text) {
  auto& lines = Text();
  CheckLine(line, lines.Count() + 1);
  lines.Insert(line, files::SplitLines(text));
  Edited();
}

void CodeModule::DeleteLines(int startLine, int count) {
  auto& lines = Text();
  if (count < 0) throw InvalidCall(u"a negative count of lines");
  if (count == 0) return;
  CheckLine(startLine, lines.Count());
  CheckLine(startLine + count - 1, lines.Count());
  lines.Erase(startLine, count);
  Edited();
}

void CodeModule::ReplaceLine(int line, std::u16string_view text) {
  auto& lines = Text();
  CheckLine(line, lines.Count());
  auto parts = files::SplitLines(text);
  lines.Replace(line, parts.front());
  if (parts.size() > 1)
    lines.Insert(line + 1, std::vector<std::u16string>(parts.begin() + 1, parts.end()));
  Edited();
}

void CodeModule::AddFromString(std::u16string_view text) {
  const auto& index = Index();
  int at = index.Procedures().empty() ? Text().Count() + 1 : index.Procedures().front().startLine;
  Text().Insert(at, files::SplitLines(text));
  Edited();
}

std::u16string CodeModule::ProcOfLine(int line, vbide::vbext_ProcKind& kind) {
  return std::u16string(ProcOfLineView(line, kind));
}

std::u16string_view CodeModule::ProcOfLineView(int line, vbide::vbext_ProcKind& kind) {
  auto& text = Text();
  CheckLine(line, text.Count());
  const ProcRegion* region = Index(text).ProcOfLine(line);
  kind = region ? region->kind : vbide::vbext_pk_Proc;
  return region ? std::u16string_view(region->name) : std::u16string_view();
}

const ProcRegion& CodeModule::FindProc(std::u16string_view name, vbide::vbext_ProcKind kind) {
  if (name.empty()) throw InvalidCall(u"an empty procedure name");
  if (const ProcRegion* region = Index().Find(name, kind)) return *region;
  throw vb::Error::Standard(vb::err::kSubNotDefined, std::u16string(name) + u" in " + What());
}

int CodeModule::ProcStartLine(std::u16string_view name, vbide::vbext_ProcKind kind) {
  return FindProc(name, kind).startLine;
}

int CodeModule::ProcBodyLine(std::u16string_view name, vbide::vbext_ProcKind kind) {
  return FindProc(name, kind).bodyLine;
}

int CodeModule::ProcCountLines(std::u16string_view name, vbide::vbext_ProcKind kind) {
  const ProcRegion& region = FindProc(name, kind);
  return region.endLine - region.startLine + 1;
}

vbide::MembersPtr CodeModule::Members() {
  auto& text = Text();
  if (!members_ || membersVersion_ != text.Version()) {
    members_ = std::make_shared<host::Members>(BuildMembers(text, Index()));
    membersVersion_ = text.Version();
  }
  return members_;
}

void CodeModule::Detach() {
  if (pane_) pane_->Detach();
  pane_.reset();
  MarkRemoved();
}

}  // namespace host
