// studio::FormWindow: the QWidget of a form or document, telling its peer what the user did to it.
#pragma once

#include <QWidget>
#include <functional>

namespace studio {

// Closing from the title bar is the engine's decision (QueryUnload may refuse), so the close
// event is always ignored here and reported; resizes and moves by the user are reported too.
class FormWindow : public QWidget {
 public:
  explicit FormWindow(QWidget* parent = nullptr) : QWidget(parent) {}

  std::function<void()> onClose;
  std::function<void()> onResized;
  std::function<void()> onMoved;
  std::function<void()> onActivated;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;
};

}  // namespace studio
