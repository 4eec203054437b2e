// host::CodePane and host::CodePanes.
#include "host/CodePane.h"

#include "host/CodeModule.h"
#include "host/Component.h"
#include "host/ComponentKinds.h"
#include "host/Ide.h"
#include "host/Project.h"
#include "runtime/Utf.h"

namespace host {

std::shared_ptr<CodePane> CodePane::Create(const std::shared_ptr<Ide>& ide,
                                           const std::shared_ptr<host::CodeModule>& module) {
  std::shared_ptr<CodePane> pane(new CodePane(ide, module));
  auto component = std::static_pointer_cast<Component>(module->Parent());
  auto project = component->OwnerProject();
  std::u16string caption = WindowCaption(project ? project->Name() : std::u16string(),
                                         component->Name(), kCodeWindowWord);
  pane->window_ = std::make_shared<host::Window>(ide, vbide::vbext_wt_CodeWindow, caption,
                                                 ide->NewHandle(caption), false);
  ide->WindowList()->Add(pane->window_);
  std::static_pointer_cast<host::CodePanes>(ide->CodePanes())->Add(pane);
  ide->changed.Raise();
  return pane;
}

vbide::CodeModulePtr CodePane::CodeModule() {
  CheckAlive(u"code pane");
  return module_.lock();
}

vbide::WindowPtr CodePane::Window() {
  CheckAlive(u"code pane");
  return window_;
}

void CodePane::Show() {
  CheckAlive(u"code pane");
  window_->SetVisible(true);
  window_->SetFocus();
  if (auto ide = ide_.lock()) ide->PaneShown(shared_from_this());
}

void CodePane::GetSelection(int& startLine, int& startColumn, int& endLine, int& endColumn) {
  CheckAlive(u"code pane");
  startLine = startLine_;
  startColumn = startColumn_;
  endLine = endLine_;
  endColumn = endColumn_;
}

void CodePane::CheckPosition(int line, int column) {
  auto module = module_.lock();
  int count = module->CountOfLines();
  // An empty module still has a caret at line 1, column 1.
  int length = line >= 1 && line <= count ? static_cast<int>(module->LineView(line).size()) : 0;
  bool lineOk = (line >= 1 && line <= count) || (count == 0 && line == 1);
  if (!lineOk || column < 1 || column > length + 1) {
    throw vb::Error::Standard(vb::err::kInvalidProcedureCall,
                              u"position " + vb::FromUtf8(std::to_string(line)) + u"," +
                                  vb::FromUtf8(std::to_string(column)) + u" is outside the text");
  }
}

void CodePane::SetSelection(int startLine, int startColumn, int endLine, int endColumn) {
  CheckAlive(u"code pane");
  CheckPosition(startLine, startColumn);
  CheckPosition(endLine, endColumn);
  startLine_ = startLine;
  startColumn_ = startColumn;
  endLine_ = endLine;
  endColumn_ = endColumn;
  // A selection out of view is brought into it, its start line in the middle of the window, so
  // a match opened from elsewhere is seen with the code around it.
  int visible = std::max(1, visibleLines_);
  if (startLine < topLine_ || startLine > topLine_ + visible - 1)
    topLine_ = std::max(1, startLine - visible / 2);
  if (onChange) onChange();
}

int CodePane::TopLine() {
  CheckAlive(u"code pane");
  return topLine_;
}

void CodePane::SetTopLine(int line) {
  CheckAlive(u"code pane");
  int count = std::max(1, module_.lock()->CountOfLines());
  topLine_ = std::clamp(line, 1, count);
  if (onChange) onChange();
}

int CodePane::CountOfVisibleLines() {
  CheckAlive(u"code pane");
  return visibleLines_;
}

vbide::CodePanesPtr CodePane::Collection() {
  CheckAlive(u"code pane");
  auto ide = ide_.lock();
  return ide ? ide->CodePanes() : nullptr;
}

void CodePane::Detach() {
  // Closing the window makes the module let go of its pane: this one must outlive the steps.
  auto self = shared_from_this();
  if (window_ && window_->Alive()) {
    if (auto ide = ide_.lock()) {
      ide->WindowList()->Remove(window_.get());
      ide->WindowDestroyed(window_.get());
      std::static_pointer_cast<host::CodePanes>(ide->CodePanes())->Remove(this);
    }
    window_->MarkRemoved();
  }
  MarkRemoved();
}

vbide::CodePanePtr CodePanes::Item(int index) {
  if (index < 1 || index > Count())
    throw vb::Error::Standard(vb::err::kSubscriptOutOfRange, u"code pane");
  return items_[index - 1];
}

std::vector<vbide::CodePanePtr> CodePanes::Items() {
  return std::vector<vbide::CodePanePtr>(items_.begin(), items_.end());
}

vbide::CodePanePtr CodePanes::Current() {
  auto ide = ide_.lock();
  return ide ? ide->ActiveCodePane() : nullptr;
}

void CodePanes::Remove(const CodePane* pane) {
  std::erase_if(items_, [pane](auto& p) { return p.get() == pane; });
}

}  // namespace host
