// host::CodePane and host::CodePanes: code windows' views of code modules (selection, top line).
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/Liveness.h"
#include "vbide/CodePane.h"

namespace host {

class Ide;
class CodeModule;
class Window;

class CodePane final : public vbide::CodePane,
                       public Liveness,
                       public std::enable_shared_from_this<CodePane> {
 public:
  // Creates the pane with its code window (hidden) and registers both with the IDE.
  static std::shared_ptr<CodePane> Create(const std::shared_ptr<Ide>& ide,
                                          const std::shared_ptr<host::CodeModule>& module);

  vbide::CodeModulePtr CodeModule() override;
  vbide::WindowPtr Window() override;
  void Show() override;
  void GetSelection(int& startLine, int& startColumn, int& endLine, int& endColumn) override;
  void SetSelection(int startLine, int startColumn, int endLine, int endColumn) override;
  int TopLine() override;
  void SetTopLine(int line) override;
  int CountOfVisibleLines() override;
  vbide::CodePanesPtr Collection() override;

  // The front end that shows the pane tells it how many lines fit.
  void SetCountOfVisibleLines(int lines) { visibleLines_ = lines; }
  std::shared_ptr<host::Window> CodeWindow() const { return window_; }
  std::shared_ptr<host::CodeModule> Module() const { return module_.lock(); }
  void Detach();

  // Tells a front end that the selection or the top line changed.
  std::function<void()> onChange;

 private:
  CodePane(std::weak_ptr<Ide> ide, std::weak_ptr<host::CodeModule> module)
      : ide_(std::move(ide)), module_(std::move(module)) {}
  void CheckPosition(int line, int column);
  std::weak_ptr<Ide> ide_;
  std::weak_ptr<host::CodeModule> module_;
  std::shared_ptr<host::Window> window_;
  int startLine_ = 1, startColumn_ = 1, endLine_ = 1, endColumn_ = 1;
  int topLine_ = 1;
  int visibleLines_ = 40;
};

class CodePanes final : public vbide::CodePanes {
 public:
  explicit CodePanes(std::weak_ptr<Ide> ide) : ide_(std::move(ide)) {}
  int Count() override { return static_cast<int>(items_.size()); }
  vbide::CodePanePtr Item(int index) override;
  std::vector<vbide::CodePanePtr> Items() override;
  vbide::CodePanePtr Current() override;

  void Add(const std::shared_ptr<CodePane>& pane) { items_.push_back(pane); }
  void Remove(const CodePane* pane);

 private:
  std::weak_ptr<Ide> ide_;
  std::vector<std::shared_ptr<CodePane>> items_;
};

}  // namespace host
