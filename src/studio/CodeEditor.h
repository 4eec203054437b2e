// studio::CodeEditor: a code window's editor, kept in step with its code pane and code module:
// typing edits the module line by line, and the pane's selection and top line are the editor's.
#pragma once

#include <QPlainTextEdit>
#include <memory>

#include "host/CodePane.h"

namespace studio {

class CodeEditor final : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit CodeEditor(std::shared_ptr<host::CodePane> pane, QWidget* parent = nullptr);
  ~CodeEditor() override;

  const std::shared_ptr<host::CodePane>& Pane() const { return pane_; }
  void SetLineNumbersVisible(bool visible);
  bool LineNumbersVisible() const { return lineNumbers_; }
  // Shows the module's text again (an add-in or another window changed it).
  void ReloadFromModule();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  class Gutter;
  friend class Gutter;
  void PushEdits();
  void PushSelection();
  void PullSelection();
  void PushTopLine(int firstVisibleBlock);
  int GutterWidth() const;
  void PaintGutter(QPaintEvent* event);
  void LayoutGutter();

  std::shared_ptr<host::CodePane> pane_;
  std::shared_ptr<host::CodeModule> module_;
  QWidget* gutter_;
  bool lineNumbers_ = false;
  bool syncing_ = false;  // set while the editor itself writes to the pane or the module
};

}  // namespace studio
