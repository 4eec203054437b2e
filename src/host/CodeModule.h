// host::CodeModule: the visible lines of a component, with the lazily rebuilt procedure index.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/CodeIndex.h"
#include "host/Liveness.h"
#include "vbide/CodeModule.h"

namespace host {

class Component;
class CodePane;

class CodeModule final : public vbide::CodeModule,
                         public Liveness,
                         public std::enable_shared_from_this<CodeModule> {
 public:
  explicit CodeModule(std::weak_ptr<Component> component) : component_(std::move(component)) {}

  vbide::VBComponentPtr Parent() override;
  vbide::CodePanePtr CodePane() override;
  int CountOfLines() override;
  int CountOfDeclarationLines() override;
  std::u16string Lines(int startLine, int count) override;
  std::u16string_view LineView(int line) override;
  int LineViews(int startLine, std::span<std::u16string_view> out) override;
  void InsertLines(int line, std::u16string_view text) override;
  void DeleteLines(int startLine, int count = 1) override;
  void ReplaceLine(int line, std::u16string_view text) override;
  void AddFromString(std::u16string_view text) override;
  std::u16string ProcOfLine(int line, vbide::vbext_ProcKind& kind) override;
  std::u16string_view ProcOfLineView(int line, vbide::vbext_ProcKind& kind) override;
  int ProcStartLine(std::u16string_view procName, vbide::vbext_ProcKind kind) override;
  int ProcBodyLine(std::u16string_view procName, vbide::vbext_ProcKind kind) override;
  int ProcCountLines(std::u16string_view procName, vbide::vbext_ProcKind kind) override;
  vbide::MembersPtr Members() override;

  // The pane if one was created (no creation), for the object model's own classes.
  std::shared_ptr<host::CodePane> ExistingPane() const { return pane_; }
  void PaneClosed() { pane_.reset(); }
  void Detach();

  // Tells a front end (the studio's editor) that lines changed.
  std::function<void()> onChange;

 private:
  files::CodeLines& Text();
  const CodeIndex& Index();
  const CodeIndex& Index(const files::CodeLines& text);
  const ProcRegion& FindProc(std::u16string_view name, vbide::vbext_ProcKind kind);
  void CheckLine(int line, int last);
  void Edited();
  std::u16string What() const;

  std::weak_ptr<Component> component_;
  std::shared_ptr<host::CodePane> pane_;
  std::optional<CodeIndex> index_;
  std::uint64_t indexVersion_ = ~0ull;
  vbide::MembersPtr members_;
  std::uint64_t membersVersion_ = ~0ull;
};

}  // namespace host
