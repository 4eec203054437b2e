// Peers of the buttons: command buttons (plain and graphical), check boxes and option buttons.
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "runtime/forms/CheckBox.h"
#include "runtime/forms/CommandButton.h"
#include "runtime/forms/OptionButton.h"
#include "studio/peers/ControlPeers.h"
#include "studio/peers/QtConvert.h"

namespace studio {
namespace {

class CommandButtonPeer : public WidgetPeer {
 public:
  CommandButtonPeer(vb::CommandButton& button, PeerHost& host)
      : WidgetPeer(button, host), button_(button) {
    auto* widget = new QPushButton;
    widget->setAutoDefault(false);
    QObject::connect(widget, &QPushButton::clicked,
                     [this] { UserAction([this] { button_.UserClick(); }); });
    SetWidget(widget);
  }

 protected:
  void Apply(vb::Property property) override {
    auto* widget = static_cast<QPushButton*>(Widget());
    if (Is(property, vb::Property::Caption)) widget->setText(ToQt(button_.Caption()));
    if (Is(property, vb::Property::Default)) widget->setDefault(button_.Default());
    if (Is(property, vb::Property::Style) || Is(property, vb::Property::Picture)) {
      // A graphical button shows its picture beside the caption; a plain one shows none.
      QImage picture = button_.Style() == 1 ? ToImage(button_.Picture()) : QImage();
      widget->setIcon(picture.isNull() ? QIcon() : QIcon(QPixmap::fromImage(picture)));
      if (!picture.isNull()) widget->setIconSize(picture.size());
    }
  }

 private:
  vb::CommandButton& button_;
};

class CheckBoxPeer : public WidgetPeer {
 public:
  CheckBoxPeer(vb::CheckBox& box, PeerHost& host) : WidgetPeer(box, host), box_(box) {
    auto* widget = new QCheckBox;
    // The engine decides the next state (a grayed box becomes checked); the widget shows it.
    QObject::connect(widget, &QCheckBox::clicked, [this] {
      if (UserAction([this] { box_.UserClick(); })) ApplyAll();
    });
    SetWidget(widget);
  }

 protected:
  void Apply(vb::Property property) override {
    auto* widget = static_cast<QCheckBox*>(Widget());
    if (Is(property, vb::Property::Caption)) widget->setText(ToQt(box_.Caption()));
    if (Is(property, vb::Property::Value)) {
      widget->setTristate(box_.Value() == 2);
      widget->setCheckState(box_.Value() == 2   ? Qt::PartiallyChecked
                            : box_.Value() == 1 ? Qt::Checked
                                                : Qt::Unchecked);
    }
  }

 private:
  vb::CheckBox& box_;
};

class OptionButtonPeer : public WidgetPeer {
 public:
  OptionButtonPeer(vb::OptionButton& option, PeerHost& host)
      : WidgetPeer(option, host), option_(option) {
    auto* widget = new QRadioButton;
    // The engine clears the other options of the container; Qt's grouping would disagree.
    widget->setAutoExclusive(false);
    QObject::connect(widget, &QRadioButton::clicked, [this] {
      if (UserAction([this] { option_.UserClick(); })) ApplyAll();
    });
    SetWidget(widget);
  }

 protected:
  void Apply(vb::Property property) override {
    auto* widget = static_cast<QRadioButton*>(Widget());
    if (Is(property, vb::Property::Caption)) widget->setText(ToQt(option_.Caption()));
    if (Is(property, vb::Property::Value)) widget->setChecked(option_.Value());
  }

 private:
  vb::OptionButton& option_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeButtonPeer(vb::Control& control, PeerHost& host) {
  if (auto* button = dynamic_cast<vb::CommandButton*>(&control)) {
    return std::make_unique<CommandButtonPeer>(*button, host);
  }
  if (auto* box = dynamic_cast<vb::CheckBox*>(&control)) {
    return std::make_unique<CheckBoxPeer>(*box, host);
  }
  if (auto* option = dynamic_cast<vb::OptionButton*>(&control)) {
    return std::make_unique<OptionButtonPeer>(*option, host);
  }
  return nullptr;
}

}  // namespace studio
