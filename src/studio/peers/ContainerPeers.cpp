// Peers of the frames and pictures: frames, picture boxes (containers) and images.
#include <QGroupBox>
#include <QLabel>

#include "runtime/forms/Frame.h"
#include "runtime/forms/Image.h"
#include "runtime/forms/PictureBox.h"
#include "studio/peers/ControlPeers.h"
#include "studio/peers/QtConvert.h"

namespace studio {
namespace {

// A frame's children count their place from the frame's outer corner, caption included.
class FramePeer : public WidgetPeer {
 public:
  FramePeer(vb::Frame& frame, PeerHost& host) : WidgetPeer(frame, host), frame_(frame) {
    SetWidget(new QGroupBox);
  }
  bool ClicksByMouse() const override { return true; }

 protected:
  void Apply(vb::Property property) override {
    if (Is(property, vb::Property::Caption))
      static_cast<QGroupBox*>(Widget())->setTitle(ToQt(frame_.Caption()));
  }

 private:
  vb::Frame& frame_;
};

// The picture sits at the top-left corner, unscaled; children count from inside the border.
class PictureBoxPeer : public WidgetPeer {
 public:
  PictureBoxPeer(vb::PictureBox& box, PeerHost& host) : WidgetPeer(box, host), box_(box) {
    auto* widget = new QLabel;
    widget->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    SetWidget(widget);
  }
  bool ClicksByMouse() const override { return true; }
  QPoint ChildOrigin() const override {
    int border = static_cast<QLabel*>(Widget())->frameWidth();
    return {border, border};
  }

 protected:
  void Apply(vb::Property property) override {
    auto* widget = static_cast<QLabel*>(Widget());
    if (Is(property, vb::Property::BorderStyle)) {
      widget->setFrameStyle(box_.BorderStyle() == 1 ? QFrame::StyledPanel | QFrame::Sunken
                                                    : QFrame::NoFrame);
      widget->setLineWidth(1);
    }
    if (Is(property, vb::Property::Picture))
      widget->setPixmap(QPixmap::fromImage(ToImage(box_.Picture())));
  }

 private:
  vb::PictureBox& box_;
};

class ImagePeer : public WidgetPeer {
 public:
  ImagePeer(vb::Image& image, PeerHost& host) : WidgetPeer(image, host), image_(image) {
    auto* widget = new QLabel;
    widget->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    SetWidget(widget);
  }
  bool ClicksByMouse() const override { return true; }

 protected:
  void Apply(vb::Property property) override {
    auto* widget = static_cast<QLabel*>(Widget());
    if (Is(property, vb::Property::Picture))
      widget->setPixmap(QPixmap::fromImage(ToImage(image_.Picture())));
    if (Is(property, vb::Property::Stretch)) widget->setScaledContents(image_.Stretch());
  }

 private:
  vb::Image& image_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeContainerPeer(vb::Control& control, PeerHost& host) {
  if (auto* frame = dynamic_cast<vb::Frame*>(&control)) {
    return std::make_unique<FramePeer>(*frame, host);
  }
  if (auto* box = dynamic_cast<vb::PictureBox*>(&control)) {
    return std::make_unique<PictureBoxPeer>(*box, host);
  }
  if (auto* image = dynamic_cast<vb::Image*>(&control)) {
    return std::make_unique<ImagePeer>(*image, host);
  }
  return nullptr;
}

}  // namespace studio
