// MsgBox: style checks, scripted answers, the transcript.
#include "runtime/MessageBoxes.h"

#include <algorithm>

#include "runtime/Error.h"
#include "runtime/ScriptError.h"
#include "runtime/Utf.h"
#include "runtime/VbConstants.h"

namespace vb {
namespace {

void CheckStyle(int style) {
  int buttons = style & 0xF;
  int icon = style & 0xF0;
  if (buttons > vbRetryCancel || (icon != 0 && icon != vbCritical && icon != vbQuestion &&
                                  icon != vbExclamation && icon != vbInformation)) {
    throw Error::Standard(err::kInvalidProcedureCall,
                          u"MsgBox style " + FromUtf8(std::to_string(style)));
  }
}

std::string Describe(std::u16string_view prompt) {
  return "message box '" + ToUtf8(prompt) + "'";
}

}  // namespace

std::vector<int> MessageBoxes::Buttons(int style) {
  switch (style & 0xF) {
    case vbOKCancel:
      return {vbOK, vbCancel};
    case vbAbortRetryIgnore:
      return {vbAbort, vbRetry, vbIgnore};
    case vbYesNoCancel:
      return {vbYes, vbNo, vbCancel};
    case vbYesNo:
      return {vbYes, vbNo};
    case vbRetryCancel:
      return {vbRetry, vbCancel};
    default:
      return {vbOK};
  }
}

int MessageBoxes::Show(std::u16string_view prompt, int style, std::u16string_view title) {
  CheckStyle(style);
  MsgBoxRecord box{std::u16string(prompt), style, std::u16string(title), 0};
  auto buttons = Buttons(style);
  if (!answers_.empty()) {
    box.answer = answers_.front();
    answers_.pop_front();
    if (std::find(buttons.begin(), buttons.end(), box.answer) == buttons.end()) {
      throw ScriptError("scripted answer " + std::to_string(box.answer) + " is not a button of " +
                        Describe(prompt));
    }
  } else if (presenter) {
    box.answer = presenter(box);
  } else if (buttons.size() == 1) {
    box.answer = vbOK;
  } else {
    transcript_.push_back(box);
    throw ScriptError(Describe(prompt) + " asks a question and no answer is scripted");
  }
  transcript_.push_back(box);
  return box.answer;
}

}  // namespace vb
