// Peers of the text controls: labels and text boxes.
#include <QLabel>
#include <QLineEdit>

#include "runtime/forms/Label.h"
#include "runtime/forms/TextBox.h"
#include "studio/peers/ControlPeers.h"
#include "studio/peers/QtConvert.h"

namespace studio {
namespace {

class LabelPeer : public WidgetPeer {
 public:
  LabelPeer(vb::Label& label, PeerHost& host) : WidgetPeer(label, host), label_(label) {
    auto* widget = new QLabel;
    // A label wraps its caption inside its rectangle, as VB's does.
    widget->setWordWrap(true);
    widget->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    SetWidget(widget);
  }
  bool ClicksByMouse() const override { return true; }

 protected:
  void Apply(vb::Property property) override {
    auto* widget = static_cast<QLabel*>(Widget());
    if (Is(property, vb::Property::Caption))
      widget->setText(WithoutAccessKey(ToQt(label_.Caption())));
    if (Is(property, vb::Property::Alignment)) {
      Qt::Alignment horizontal = label_.Alignment() == 1   ? Qt::AlignRight
                                 : label_.Alignment() == 2 ? Qt::AlignHCenter
                                                           : Qt::AlignLeft;
      widget->setAlignment(horizontal | Qt::AlignTop);
    }
  }

 private:
  vb::Label& label_;
};

// Letters, digits, space and backspace reach the box through the form's key routing (so
// KeyPress can change or refuse them); other typing, pastes and deletions are the widget's own
// and end with the engine told the new text. The caret follows the widget.
class TextBoxPeer : public WidgetPeer {
 public:
  TextBoxPeer(vb::TextBox& box, PeerHost& host) : WidgetPeer(box, host), box_(box) {
    auto* widget = new QLineEdit;
    QObject::connect(widget, &QLineEdit::textEdited, [this](const QString& text) {
      if (Applying()) return;
      // The engine puts the caret at the end of typed text; the widget knows where it is.
      int caret = static_cast<QLineEdit*>(Widget())->cursorPosition();
      if (!UserAction([&] { box_.UserType(FromQt(text)); })) return;
      if (UserAction([&] { box_.SetSelStart(caret); })) Changed(vb::Property::SelStart);
    });
    QObject::connect(widget, &QLineEdit::cursorPositionChanged, [this] { SyncSelection(); });
    QObject::connect(widget, &QLineEdit::selectionChanged, [this] { SyncSelection(); });
    SetWidget(widget);
  }
  bool TypesThroughEngine() const override { return true; }
  void AfterEngineKey() override { Changed(vb::Property::SelStart); }

 protected:
  void Apply(vb::Property property) override {
    auto* widget = static_cast<QLineEdit*>(Widget());
    if (property == vb::Property::All) {
      widget->setReadOnly(box_.Locked());
      widget->setMaxLength(box_.MaxLength() > 0 ? box_.MaxLength() : 32767);
    }
    QString text = ToQt(box_.Text());
    if (Is(property, vb::Property::Text) && widget->text() != text) widget->setText(text);
    if (Is(property, vb::Property::Text) || Is(property, vb::Property::SelStart) ||
        Is(property, vb::Property::SelLength)) {
      if (box_.SelLength() > 0) {
        widget->setSelection(box_.SelStart(), box_.SelLength());
      } else {
        widget->setCursorPosition(box_.SelStart());
      }
    }
  }

 private:
  void SyncSelection() {
    if (Applying()) return;
    auto* widget = static_cast<QLineEdit*>(Widget());
    int start = widget->hasSelectedText() ? widget->selectionStart() : widget->cursorPosition();
    int length = static_cast<int>(widget->selectedText().size());
    if (start == box_.SelStart() && length == box_.SelLength()) return;
    UserAction([&] {
      box_.SetSelStart(start);
      box_.SetSelLength(length);
    });
  }

  vb::TextBox& box_;
};

}  // namespace

std::unique_ptr<WidgetPeer> MakeTextPeer(vb::Control& control, PeerHost& host) {
  if (auto* label = dynamic_cast<vb::Label*>(&control)) {
    return std::make_unique<LabelPeer>(*label, host);
  }
  if (auto* box = dynamic_cast<vb::TextBox*>(&control)) {
    return std::make_unique<TextBoxPeer>(*box, host);
  }
  return nullptr;
}

}  // namespace studio
