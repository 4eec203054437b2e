// studio::ImmediateView: the Immediate window's text; keys typed into it, and the keys SendKeys
// delivers while it has the focus, edit the IDE's Immediate window.
#pragma once

#include <QPlainTextEdit>
#include <memory>

#include "host/Window.h"

namespace studio {

class ImmediateView final : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit ImmediateView(std::shared_ptr<host::ImmediateWindow> window, QWidget* parent = nullptr);
  ~ImmediateView() override;
  void Refresh();  // shows the window's text, caret and selection

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  std::shared_ptr<host::ImmediateWindow> window_;
};

}  // namespace studio
