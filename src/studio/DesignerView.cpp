// studio::DesignerView.
#include "studio/DesignerView.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "runtime/Error.h"
#include "studio/DesignerSurface.h"
#include "studio/QtText.h"

namespace studio {
namespace {

// A property's number, or `fallback` when the control has no such property.
double Number(host::Control& control, std::u16string_view name, double fallback) {
  try {
    return QString::fromStdU16String(control.Properties(name)).toDouble();
  } catch (const vb::Error&) {
    return fallback;  // controls without this property (a Timer has no Width) are not an error
  }
}

std::u16string Text(host::Control& control, std::u16string_view name) {
  try {
    return control.Properties(name);
  } catch (const vb::Error&) {
    return {};  // no caption written: VB shows none
  }
}

// The designer block's own properties; none for a designer never read from a file.
const std::vector<std::pair<std::u16string, std::u16string>>& RootProperties(
    host::Component& component) {
  static const std::vector<std::pair<std::u16string, std::u16string>> kNone;
  if (!component.HasFile() || !component.File().designer) return kNone;
  return component.File().designer->properties;
}

}  // namespace

DesignerView::DesignerView(std::shared_ptr<host::Component> component, QWidget* parent)
    : QWidget(parent),
      component_(std::move(component)),
      // Only a form has a frame and title bar in its designer; the other designers are bare
      // surfaces, as the thing they design is placed inside someone else's window.
      captionBar_(component_->Type() == vbide::vbext_ct_VBForm ||
                          component_->Type() == vbide::vbext_ct_VBMDIForm
                      ? kCaptionBar
                      : 0) {
  // VB lays forms out for its 8 point default font; a desktop's larger one would not fit the
  // captions in the controls drawn at their twips.
  QFont small = font();
  small.setPointSizeF(kDesignerFontPoints);
  setFont(small);
  setAutoFillBackground(true);
  QPalette p = palette();
  p.setColor(QPalette::Window, QColor(128, 128, 128));
  setPalette(p);
}

int DesignerView::Pixels(double twips, bool vertical) const {
  int dpi = vertical ? logicalDpiY() : logicalDpiX();
  return qRound(twips * dpi / 1440.0);
}

QRect DesignerView::PlaceOf(host::Control& control) const {
  if (control.ClassName() == u"VB.Menu") return {};
  double width = Number(control, u"Width", -1), height = Number(control, u"Height", -1);
  if (width < 0 || height < 0) return {};
  double left = Number(control, u"Left", 0), top = Number(control, u"Top", 0);
  // Inside a frame or picture box the place is relative to the container.
  for (auto container = std::dynamic_pointer_cast<host::Control>(control.Container()); container;
       container = std::dynamic_pointer_cast<host::Control>(container->Container())) {
    left += Number(*container, u"Left", 0);
    top += Number(*container, u"Top", 0);
  }
  return QRect(8 + Pixels(left, false), 8 + captionBar_ + Pixels(top, true), Pixels(width, false),
               Pixels(height, true));
}

QString DesignerView::CaptionOf(host::Control& control) const {
  std::u16string caption = Text(control, u"Caption");
  if (caption.empty()) caption = Text(control, u"Text");
  if (caption.empty()) caption = control.Properties(u"Name");
  return ToQt(caption);
}

std::shared_ptr<host::Control> DesignerView::ControlAt(QPoint point) const {
  auto designer = component_->Form();
  if (!designer) return nullptr;
  const auto& list = designer->List();
  for (auto it = list.rbegin(); it != list.rend(); ++it)  // last drawn is on top
    if (PlaceOf(**it).contains(point)) return *it;
  return nullptr;
}

QRect DesignerView::Surface() const {
  TwipSize twips = DesignerSurfaceTwips(component_->Type(), RootProperties(*component_));
  return QRect(8, 8 + captionBar_, Pixels(twips.width, false), Pixels(twips.height, true));
}

QSize DesignerView::sizeHint() const {
  QRect surface = Surface();
  return {surface.right() + 1 + 8, surface.bottom() + 1 + 8};
}

DesignerView::DrawnCaption DesignerView::TitleCaption(const QFontMetrics& metrics) const {
  QRect surface = Surface();
  QRect bar(surface.left() + 6, surface.top() - captionBar_, surface.width() - 10, captionBar_);
  QString title = ToQt(DesignerTitle(RootProperties(*component_)));
  return {bar, metrics.elidedText(title, Qt::ElideRight, bar.width()),
          Qt::AlignLeft | Qt::AlignVCenter};
}

DesignerView::DrawnCaption DesignerView::CaptionFor(host::Control& control, QRect place,
                                                    const QFontMetrics& metrics) const {
  constexpr int kAccessKey = Qt::TextShowMnemonic | Qt::TextSingleLine;
  QString caption = CaptionOf(control);
  if (control.ClassName() == u"VB.Frame") {
    int width = std::min(metrics.horizontalAdvance(caption) + 4, place.width() - 12);
    return {QRect(place.left() + 8, place.top(), width, metrics.height()),
            metrics.elidedText(caption, Qt::ElideRight, width, kAccessKey),
            Qt::AlignLeft | Qt::AlignTop | kAccessKey};
  }
  return {place.adjusted(3, 1, -2, -1),
          metrics.elidedText(caption, Qt::ElideRight, place.width() - 5, kAccessKey),
          Qt::AlignLeft | Qt::AlignVCenter | kAccessKey};
}

std::vector<DesignerView::DrawnCaption> DesignerView::Captions() const {
  std::vector<DrawnCaption> captions;
  QFontMetrics metrics(font());
  if (captionBar_ > 0) captions.push_back(TitleCaption(metrics));
  if (auto designer = component_->Form())
    for (auto& control : designer->List())
      if (QRect place = PlaceOf(*control); !place.isEmpty())
        captions.push_back(CaptionFor(*control, place, metrics));
  return captions;
}

void DesignerView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QRect surface = Surface();
  QColor face(212, 208, 200);
  painter.fillRect(surface, face);
  if (captionBar_ > 0) {
    DrawnCaption title = TitleCaption(painter.fontMetrics());
    painter.fillRect(QRect(surface.left(), title.place.top(), surface.width(), captionBar_),
                     QColor(10, 36, 106));
    painter.setPen(Qt::white);
    painter.drawText(title.place, title.flags, title.text);
  }
  auto designer = component_->Form();
  if (!designer) return;
  int half = painter.fontMetrics().height() / 2;
  for (auto& control : designer->List()) {
    QRect place = PlaceOf(*control);
    if (place.isEmpty()) continue;
    bool frame = control->ClassName() == u"VB.Frame";
    painter.setPen(QColor(64, 64, 64));
    painter.setBrush(control->ClassName() == u"VB.TextBox" ? QColor(Qt::white) : face);
    // A frame's border runs through the middle of its caption, which covers it.
    painter.drawRect((frame ? place.adjusted(0, half, 0, 0) : place).adjusted(0, 0, -1, -1));
    DrawnCaption caption = CaptionFor(*control, place, painter.fontMetrics());
    if (frame) painter.fillRect(caption.place, face);
    painter.setPen(Qt::black);
    painter.drawText(caption.place, caption.flags, caption.text);
    if (!control->InSelection()) continue;
    painter.setBrush(Qt::black);
    for (QPoint corner :
         {place.topLeft(), place.topRight(), place.bottomLeft(), place.bottomRight(),
          QPoint(place.center().x(), place.top()), QPoint(place.center().x(), place.bottom())})
      painter.drawRect(QRect(corner - QPoint(2, 2), QSize(5, 5)));
  }
}

void DesignerView::mousePressEvent(QMouseEvent* event) {
  auto designer = component_->Form();
  if (!designer) return;
  auto hit = ControlAt(event->position().toPoint());
  bool extend = event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
  for (auto& control : designer->List()) {
    if (control == hit)
      control->SetInSelection(extend ? !control->InSelection() : true);
    else if (!extend)
      control->SetInSelection(false);
  }
  update();
  Q_EMIT selectionChanged();
}

}  // namespace studio
