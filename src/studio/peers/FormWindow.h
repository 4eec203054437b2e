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

  // The size a layout (a dock) first gives the widget: a document's extent.
  void SetPreferredSize(QSize size) {
    preferred_ = size;
    updateGeometry();
  }
  QSize sizeHint() const override {
    return preferred_.isValid() ? preferred_ : QWidget::sizeHint();
  }
  QSize minimumSizeHint() const override { return {80, 40}; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QSize preferred_;
};

}  // namespace studio
