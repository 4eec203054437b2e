// studio::DesignerView: a designer window: the form's controls drawn at their places, in z-order,
// with the designer's selection shown and set by clicking.
#pragma once

#include <QFontMetrics>
#include <QWidget>
#include <memory>
#include <vector>

#include "host/Component.h"
#include "host/Designer.h"

namespace studio {

class DesignerView final : public QWidget {
  Q_OBJECT
 public:
  explicit DesignerView(std::shared_ptr<host::Component> component, QWidget* parent = nullptr);

  const std::shared_ptr<host::Component>& Component() const { return component_; }
  // The control's rectangle in this widget's pixels; empty for controls without a place (menus,
  // timers). Twips scale by the screen's logical dpi: 1440 twips per inch.
  QRect PlaceOf(host::Control& control) const;
  // The topmost control under `point`, or null for the form itself.
  std::shared_ptr<host::Control> ControlAt(QPoint point) const;
  // The designed object's area in this widget's pixels, below the title bar a form has.
  QRect Surface() const;
  QSize sizeHint() const override;

  // A text the designer draws: the form's title and each control's caption, where and how VB
  // draws them (an "&" marks the access key, drawn underlined; a frame's caption sits on its
  // top edge).
  struct DrawnCaption {
    QRect place;
    QString text;
    int flags;
  };
  std::vector<DrawnCaption> Captions() const;

 Q_SIGNALS:
  void selectionChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  int Pixels(double twips, bool vertical) const;
  QString CaptionOf(host::Control& control) const;
  DrawnCaption TitleCaption(const QFontMetrics& metrics) const;
  DrawnCaption CaptionFor(host::Control& control, QRect place, const QFontMetrics& metrics) const;
  static constexpr int kCaptionBar = 22;               // the drawn form's title bar, in pixels
  static constexpr double kDesignerFontPoints = 8.25;  // VB's MS Sans Serif 8

  std::shared_ptr<host::Component> component_;
  int captionBar_;
};

}  // namespace studio
