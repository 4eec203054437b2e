// The properties every control's widget shows: place, visibility, enabled state, font, colours,
// tips.
#include "studio/peers/WidgetPeer.h"

#include <QApplication>
#include <QPalette>

#include "studio/peers/QtConvert.h"

namespace studio {

WidgetPeer::WidgetPeer(vb::Control& control, PeerHost& host) : control_(control), host_(host) {}

WidgetPeer::~WidgetPeer() {
  if (control_.Peer() == this) control_.SetPeer(nullptr);
  // The widget may be the one whose signal is running (a button that unloads its form), so
  // Qt deletes it once that is over.
  if (widget_) {
    widget_->hide();
    widget_->deleteLater();
  }
}

bool WidgetPeer::UserAction(const std::function<void()>& action) {
  std::weak_ptr<int> alive = alive_;
  host_.UserAction(action);
  return !alive.expired();
}

void WidgetPeer::SetWidget(QWidget* widget) {
  widget_ = widget;
  widget_->setObjectName(ToQt(control_.Name()));
}

void WidgetPeer::Changed(vb::Property property) {
  if (!widget_) return;
  ++applying_;
  try {
    ApplyCommon(property);
    Apply(property);
  } catch (...) {
    --applying_;
    throw;
  }
  --applying_;
}

void WidgetPeer::ApplyCommon(vb::Property property) {
  if (Is(property, vb::Property::Move) || Is(property, vb::Property::Container))
    host_.Place(control_);
  if (Is(property, vb::Property::Visible)) widget_->setVisible(control_.Visible());
  if (Is(property, vb::Property::Enabled)) widget_->setEnabled(control_.Enabled());
  if (Is(property, vb::Property::ToolTipText)) widget_->setToolTip(ToQt(control_.ToolTipText()));
  if (Is(property, vb::Property::Font))
    widget_->setFont(ToQt(control_.Font(), QApplication::font()));
  if (Is(property, vb::Property::ForeColor) || Is(property, vb::Property::BackColor)) {
    QPalette palette = QApplication::palette(widget_);
    if (!IsSystemColour(control_.ForeColor())) {
      for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, ToQtColour(control_.ForeColor()));
      }
    }
    if (!IsSystemColour(control_.BackColor())) {
      for (auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
        palette.setColor(role, ToQtColour(control_.BackColor()));
      }
      widget_->setAutoFillBackground(true);
    }
    widget_->setPalette(palette);
  }
}

}  // namespace studio
