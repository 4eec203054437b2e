// studio::AttachToolkit.
#include "studio/ToolkitAttachment.h"

#include <QApplication>
#include <QMessageBox>

#include "runtime/VbConstants.h"
#include "studio/QtText.h"

namespace studio {
namespace {

QMessageBox::Icon IconOf(int style) {
  switch (style & 0x70) {
    case vb::vbCritical:
      return QMessageBox::Critical;
    case vb::vbQuestion:
      return QMessageBox::Question;
    case vb::vbExclamation:
      return QMessageBox::Warning;
    case vb::vbInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

QMessageBox::StandardButton ButtonOf(int answer) {
  switch (answer) {
    case vb::vbOK:
      return QMessageBox::Ok;
    case vb::vbCancel:
      return QMessageBox::Cancel;
    case vb::vbAbort:
      return QMessageBox::Abort;
    case vb::vbRetry:
      return QMessageBox::Retry;
    case vb::vbIgnore:
      return QMessageBox::Ignore;
    case vb::vbYes:
      return QMessageBox::Yes;
    default:
      return QMessageBox::No;
  }
}

int ShowBox(const vb::MsgBoxRecord& box, const QString& appTitle) {
  QMessageBox dialog(IconOf(box.style), box.title.empty() ? appTitle : ToQt(box.title),
                     ToQt(box.prompt));
  std::vector<int> answers = vb::MessageBoxes::Buttons(box.style);
  for (int answer : answers) dialog.addButton(ButtonOf(answer));
  std::size_t defaultIndex = static_cast<std::size_t>((box.style >> 8) & 3);
  if (defaultIndex < answers.size()) dialog.setDefaultButton(ButtonOf(answers[defaultIndex]));
  int pressed = dialog.exec();
  for (int answer : answers)
    if (ButtonOf(answer) == pressed) return answer;
  return answers.back();  // closed with the title bar: the box's escape answer
}

}  // namespace

void AttachToolkit(vb::Runtime& runtime) {
  runtime.Loop().pumpToolkit = [] { QApplication::processEvents(); };
  runtime.onBeep = [] { QApplication::beep(); };
  runtime.MessageBoxService().presenter = [](const vb::MsgBoxRecord& box) {
    return ShowBox(box, QApplication::applicationDisplayName());
  };
}

}  // namespace studio
