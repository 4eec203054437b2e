// Peers of the bars: tab strips and status bars.
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QTabBar>
#include <QVBoxLayout>

#include "runtime/forms/StatusBar.h"
#include "runtime/forms/TabStrip.h"
#include "studio/peers/ControlPeers.h"
#include "studio/peers/QtConvert.h"

namespace studio {
namespace {

// A row of tabs over a panel. The form's other controls are drawn over the panel (they are
// not its children), so the strip stays behind them.
class TabStripPeer : public WidgetPeer {
 public:
  TabStripPeer(vb::TabStrip& strip, PeerHost& host) : WidgetPeer(strip, host), strip_(strip) {
    auto* widget = new QWidget;
    auto* layout = new QVBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    tabs_ = new QTabBar;
    tabs_->setExpanding(false);
    tabs_->setDrawBase(false);
    auto* panel = new QFrame;
    panel->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    layout->addWidget(tabs_);
    layout->addWidget(panel, 1);
    QObject::connect(tabs_, &QTabBar::currentChanged, [this](int index) {
      if (Applying() || index < 0) return;
      if (UserAction([&] { strip_.UserSelectTab(index + 1); })) Changed(vb::Property::SelectedItem);
    });
    SetWidget(widget);
  }
  bool StaysBehind() const override { return true; }
  QList<QWidget*> KeyWidgets() const override { return {Widget(), tabs_}; }

 protected:
  void Apply(vb::Property property) override {
    if (Is(property, vb::Property::Tabs)) {
      while (tabs_->count() > 0) tabs_->removeTab(0);
      for (int i = 1; i <= strip_.Count(); ++i) {
        tabs_->addTab(ToQt(strip_.Tabs(i).caption));
        tabs_->setTabToolTip(i - 1, ToQt(strip_.Tabs(i).toolTipText));
      }
      // A hidden tab bar does not ask its layout again when tabs come; the height is fixed here.
      tabs_->setFixedHeight(tabs_->sizeHint().height());
    }
    if (Is(property, vb::Property::Tabs) || Is(property, vb::Property::SelectedItem)) {
      auto* selected = strip_.SelectedItem();
      tabs_->setCurrentIndex(selected ? selected->index - 1 : -1);
    }
  }

 private:
  vb::TabStrip& strip_;
  QTabBar* tabs_ = nullptr;
};

// Panels as sunken fields of their width, the last one taking what is left.
class StatusBarPeer : public WidgetPeer {
 public:
  StatusBarPeer(vb::StatusBar& bar, PeerHost& host) : WidgetPeer(bar, host), bar_(bar) {
    auto* widget = new QFrame;
    auto* layout = new QHBoxLayout(widget);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    SetWidget(widget);
  }

 protected:
  void Apply(vb::Property property) override {
    if (!Is(property, vb::Property::Panels)) return;
    auto* layout = static_cast<QHBoxLayout*>(Widget()->layout());
    while (static_cast<int>(panels_.size()) < bar_.PanelCount()) {
      auto* panel = new QLabel;
      panel->setFrameStyle(QFrame::Panel | QFrame::Sunken);
      panel->setTextFormat(Qt::PlainText);
      panels_.push_back(panel);
      layout->addWidget(panel);
    }
    for (int i = 0; i < bar_.PanelCount(); ++i) {
      const vb::Panel& panel = bar_.Panels(i + 1);
      panels_[i]->setText(ToQt(panel.text));
      bool last = i + 1 == bar_.PanelCount();
      if (last) {
        panels_[i]->setMinimumWidth(0);
        panels_[i]->setMaximumWidth(QWIDGETSIZE_MAX);
      } else {
        panels_[i]->setFixedWidth(Scale().ToPixels(panel.width));
      }
      layout->setStretchFactor(panels_[i], last ? 1 : 0);
    }
  }

 private:
  vb::StatusBar& bar_;
  std::vector<QLabel*> panels_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeBarPeer(vb::Control& control, PeerHost& host) {
  if (auto* strip = dynamic_cast<vb::TabStrip*>(&control)) {
    return std::make_unique<TabStripPeer>(*strip, host);
  }
  if (auto* bar = dynamic_cast<vb::StatusBar*>(&control)) {
    return std::make_unique<StatusBarPeer>(*bar, host);
  }
  return nullptr;
}

}  // namespace studio
