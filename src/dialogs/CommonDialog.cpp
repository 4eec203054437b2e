// quillmark::CommonDialog: filling the platform's dialog records and reading the answers back.
#include "dialogs/CommonDialog.h"

#include <algorithm>

#include "runtime/CodePage.h"
#include "runtime/Runtime.h"

namespace quillmark {
namespace {

constexpr std::int32_t kDefaultBufferSize = 255;
constexpr std::int32_t kBoldWeight = 700;
constexpr std::int32_t kNormalWeight = 400;

// A file buffer of `size` characters: the text padded with spaces to size - 1, then one NUL.
std::u16string Buffer(std::u16string_view text, std::int32_t size) {
  std::u16string buffer(text.substr(0, static_cast<std::size_t>(size - 1)));
  buffer.resize(static_cast<std::size_t>(size - 1), u' ');
  buffer.push_back(u'\0');
  return buffer;
}

std::u16string UpToNul(std::u16string_view text) {
  return std::u16string(text.substr(0, std::min(text.find(u'\0'), text.size())));
}

}  // namespace

std::u16string CommonDialog::Ansi(std::u16string_view text) const {
  return ansi_->Decode(ansi_->Encode(text));
}

void CommonDialog::Begin(ActionCode action) {
  action_ = action;
  apiReturn_ = 0;
  extendedError_ = 0;
}

bool CommonDialog::Finish(std::int32_t result) {
  apiReturn_ = result;
  cancelled_ = result == 0;
  if (result != 0 && result != 1) {
    extendedError_ = runtime_.Dialogs().CommDlgExtendedError();
    return false;
  }
  return result == 1;
}

void CommonDialog::ShowFile(ActionCode action) {
  Begin(action);
  std::int32_t size = maxFileSize_ < 1 ? kDefaultBufferSize : maxFileSize_;
  vb::FileDialogRecord record;
  record.owner = hWndOwner_;
  record.filter = Ansi(filter_);
  record.filterIndex = filterIndex_;
  record.file = Buffer(Ansi(fileName_), size);
  record.fileTitle = Buffer(Ansi(fileTitle_), size);
  record.initialDir = Ansi(initDir_);
  record.title = Ansi(dialogTitle_);
  record.flags = flags_;
  record.defaultExt = Ansi(defaultExt_);
  auto& dialogs = runtime_.Dialogs();
  if (!Finish(action == kOpen ? dialogs.GetOpenFileName(record) : dialogs.GetSaveFileName(record)))
    return;
  fileName_ = Ansi(UpToNul(record.file));
  fileTitle_ = Ansi(UpToNul(record.fileTitle));
  auto offset = static_cast<std::size_t>(std::max(0, record.fileExtension));
  fileSuffix_ = offset < fileName_.size() ? fileName_.substr(offset) : std::u16string();
  // The title less the extension and its dot; a title without one loses its last character
  // all the same, as the class always did.
  auto keep = static_cast<std::ptrdiff_t>(fileTitle_.size()) -
              static_cast<std::ptrdiff_t>(fileSuffix_.size()) - 1;
  filePrefix_ = fileTitle_.substr(0, static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, keep)));
}

void CommonDialog::ShowColor() {
  Begin(kColor);
  vb::ColorDialogRecord record;
  record.owner = hWndOwner_;
  record.color = color_;
  record.customColors = customColors_;
  record.flags = flags_;
  if (!Finish(runtime_.Dialogs().ChooseColor(record))) return;
  color_ = record.color;
  customColors_ = record.customColors;
}

void CommonDialog::ShowFont() {
  Begin(kFont);
  vb::FontDialogRecord record;
  record.owner = hWndOwner_;
  std::string face = ansi_->Encode(fontName_);
  std::copy_n(face.begin(), std::min(face.size(), record.faceName.size() - 1),
              record.faceName.begin());
  record.pointSizeTenths = static_cast<std::int32_t>(fontSize_ * 10);
  record.weight = fontBold_ ? kBoldWeight : kNormalWeight;
  record.italic = fontItalic_;
  record.underline = fontUnderline_;
  record.strikeOut = fontStrikethru_;
  record.flags = flags_;
  if (!Finish(runtime_.Dialogs().ChooseFont(record))) return;
  auto end = std::find(record.faceName.begin(), record.faceName.end(), 0);
  fontName_ = ansi_->Decode(std::string(record.faceName.begin(), end));
  fontSize_ = static_cast<float>(record.pointSizeTenths) / 10;
  fontBold_ = record.weight >= kBoldWeight;
  fontItalic_ = record.italic;
  fontUnderline_ = record.underline;
  fontStrikethru_ = record.strikeOut;
}

void CommonDialog::ShowPrinter() {
  Begin(kPrinter);
  vb::PrintDialogRecord record;
  // The owner goes into the device-context field and the owner field stays 0; kept as it is.
  record.deviceContext = hWndOwner_;
  record.flags = flags_;
  record.fromPage = static_cast<std::int16_t>(fromPage_);
  record.toPage = static_cast<std::int16_t>(toPage_);
  record.minPage = static_cast<std::int16_t>(min_);
  record.maxPage = static_cast<std::int16_t>(max_);
  record.copies = static_cast<std::int16_t>(copies_);
  if (!Finish(runtime_.Dialogs().PrintDlg(record))) return;
  fromPage_ = record.fromPage;
  toPage_ = record.toPage;
  min_ = record.minPage;
  max_ = record.maxPage;
  copies_ = record.copies;
}

void CommonDialog::ShowHelp() {
  Begin(kHelp);
  Finish(runtime_.Dialogs().WinHelp(hWndOwner_, Ansi(helpFile_), helpCommand_, 0));
}

}  // namespace quillmark
