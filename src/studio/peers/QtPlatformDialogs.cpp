// The common dialogs asked through Qt and answered into the caller's record by the platform's
// rules.
#include "studio/peers/QtPlatformDialogs.h"

#include <QColorDialog>
#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QFormLayout>
#include <QRadioButton>
#include <QSpinBox>
#include <QUrl>
#include <algorithm>

#include "runtime/CodePage.h"
#include "studio/peers/QtConvert.h"

namespace studio {
namespace {

constexpr std::int32_t kOfnOverwritePrompt = 0x2;
constexpr std::int32_t kOfnFileMustExist = 0x1000;
constexpr std::int32_t kCcRgbInit = 0x1;
constexpr std::int32_t kHelpQuit = 2;

std::u16string_view UpToNul(std::u16string_view text) {
  return text.substr(0, std::min(text.find(u'\0'), text.size()));
}

QColor FromColorRef(std::uint32_t ref) {
  return QColor(static_cast<int>(ref & 0xFF), static_cast<int>((ref >> 8) & 0xFF),
                static_cast<int>((ref >> 16) & 0xFF));
}

std::uint32_t ToColorRef(const QColor& colour) {
  return static_cast<std::uint32_t>(colour.red()) |
         (static_cast<std::uint32_t>(colour.green()) << 8) |
         (static_cast<std::uint32_t>(colour.blue()) << 16);
}

QString FaceOf(const vb::FontDialogRecord& record) {
  auto end = std::find(record.faceName.begin(), record.faceName.end(), 0);
  return ToQt(vb::CodePage::Windows1252().Decode(std::string(record.faceName.begin(), end)));
}

void SetFace(vb::FontDialogRecord& record, const QString& face) {
  std::string bytes;
  vb::CodePage::Windows1252().Encode(FromQt(face), bytes);
  record.faceName.fill(0);
  std::copy_n(bytes.begin(), std::min(bytes.size(), record.faceName.size() - 1),
              record.faceName.begin());
}

// Copies and a page range, the parts of the printer dialog the caller reads back.
class PrintRangeDialog : public QDialog {
 public:
  PrintRangeDialog(const vb::PrintDialogRecord& record, QWidget* owner) : QDialog(owner) {
    setWindowTitle(tr("Print"));
    auto* form = new QFormLayout(this);
    copies_ = new QSpinBox;
    copies_->setRange(1, 999);
    copies_->setValue(std::max<int>(1, record.copies));
    all_ = new QRadioButton(tr("&All"));
    pages_ = new QRadioButton(tr("&Pages"));
    all_->setChecked(true);
    int low = record.minPage > 0 ? record.minPage : 1;
    int high = record.maxPage >= low ? record.maxPage : 9999;
    from_ = new QSpinBox;
    to_ = new QSpinBox;
    from_->setRange(low, high);
    to_->setRange(low, high);
    from_->setValue(std::clamp<int>(record.fromPage, low, high));
    to_->setValue(std::clamp<int>(record.toPage > 0 ? record.toPage : high, low, high));
    form->addRow(tr("Number of &copies:"), copies_);
    form->addRow(all_);
    form->addRow(pages_);
    form->addRow(tr("&From:"), from_);
    form->addRow(tr("&To:"), to_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form->addRow(buttons);
  }
  void Answer(vb::DialogAnswer& answer, const vb::PrintDialogRecord& record) const {
    answer.print = record;
    answer.print.copies = static_cast<std::int16_t>(copies_->value());
    if (pages_->isChecked()) {
      answer.print.fromPage = static_cast<std::int16_t>(from_->value());
      answer.print.toPage = static_cast<std::int16_t>(to_->value());
    }
  }

 private:
  QSpinBox* copies_;
  QRadioButton* all_;
  QRadioButton* pages_;
  QSpinBox* from_;
  QSpinBox* to_;
};

}  // namespace

QStringList NameFiltersOf(std::u16string_view filter) {
  QStringList parts = ToQt(filter).split(QChar(u'\0'));
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    if (parts[i].isEmpty() && parts[i + 1].isEmpty()) break;
    if (parts[i + 1].isEmpty()) continue;  // a description without patterns filters nothing
    QString patterns = QString(parts[i + 1]).replace(';', ' ');
    QString description = parts[i];
    // Qt reads the patterns from the last parentheses; a description showing them already
    // keeps its own.
    filters << (description.endsWith("(" + patterns + ")") ? description
                                                           : description + " (" + patterns + ")");
  }
  return filters;
}

QtPlatformDialogs::QtPlatformDialogs(std::function<QWidget*(vb::Hwnd)> ownerOf)
    : ownerOf_(std::move(ownerOf)) {}

std::int32_t QtPlatformDialogs::GetOpenFileName(vb::FileDialogRecord& record) {
  return FileDialog(record, false);
}

std::int32_t QtPlatformDialogs::GetSaveFileName(vb::FileDialogRecord& record) {
  return FileDialog(record, true);
}

std::int32_t QtPlatformDialogs::FileDialog(vb::FileDialogRecord& record, bool save) {
  QFileDialog dialog(Owner(record.owner));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(!save && (record.flags & kOfnFileMustExist) ? QFileDialog::ExistingFile
                                                                 : QFileDialog::AnyFile);
  if (save && !(record.flags & kOfnOverwritePrompt)) {
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
  }
  QString title = ToQt(record.title);
  dialog.setWindowTitle(title.isEmpty() ? (save ? QObject::tr("Save As") : QObject::tr("Open"))
                                        : title);
  QStringList filters = NameFiltersOf(record.filter);
  if (!filters.isEmpty()) {
    dialog.setNameFilters(filters);
    int index = std::clamp<int>(record.filterIndex, 1, static_cast<int>(filters.size())) - 1;
    dialog.selectNameFilter(filters[index]);
  }
  QString initialDir = ToQt(record.initialDir);
  if (!initialDir.isEmpty()) dialog.setDirectory(initialDir);
  QString initialFile = ToQt(UpToNul(record.file));
  if (!initialFile.isEmpty()) dialog.selectFile(initialFile);

  bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
  if (!chosen) {
    rules_.ScriptCancel();
  } else {
    rules_.ScriptFile(FromQt(QDir::toNativeSeparators(dialog.selectedFiles().front())));
    if (!filters.isEmpty()) {
      record.filterIndex =
          static_cast<std::int32_t>(filters.indexOf(dialog.selectedNameFilter()) + 1);
    }
  }
  return save ? rules_.GetSaveFileName(record) : rules_.GetOpenFileName(record);
}

std::int32_t QtPlatformDialogs::ChooseColor(vb::ColorDialogRecord& record) {
  QColorDialog dialog(Owner(record.owner));
  dialog.setOption(QColorDialog::DontUseNativeDialog);
  for (int i = 0; i < static_cast<int>(record.customColors.size()); ++i) {
    QColorDialog::setCustomColor(i, FromColorRef(record.customColors[i]));
  }
  if (record.flags & kCcRgbInit) dialog.setCurrentColor(FromColorRef(record.color));
  vb::DialogAnswer answer;
  answer.result = dialog.exec() == QDialog::Accepted ? 1 : 0;
  answer.color = ToColorRef(dialog.selectedColor());
  rules_.Script(answer);
  std::int32_t result = rules_.ChooseColor(record);
  if (result != 0) {
    for (int i = 0; i < static_cast<int>(record.customColors.size()); ++i) {
      record.customColors[i] = ToColorRef(QColorDialog::customColor(i));
    }
  }
  return result;
}

std::int32_t QtPlatformDialogs::ChooseFont(vb::FontDialogRecord& record) {
  QFont initial(FaceOf(record));
  if (record.pointSizeTenths > 0) initial.setPointSizeF(record.pointSizeTenths / 10.0);
  initial.setBold(record.weight >= 700);
  initial.setItalic(record.italic);
  initial.setUnderline(record.underline);
  initial.setStrikeOut(record.strikeOut);
  QFontDialog dialog(initial, Owner(record.owner));
  dialog.setOption(QFontDialog::DontUseNativeDialog);
  vb::DialogAnswer answer;
  answer.result = dialog.exec() == QDialog::Accepted ? 1 : 0;
  QFont chosen = dialog.selectedFont();
  answer.font = record;
  SetFace(answer.font, chosen.family());
  answer.font.pointSizeTenths = static_cast<std::int32_t>(std::lround(chosen.pointSizeF() * 10));
  answer.font.weight = chosen.bold() ? 700 : 400;
  answer.font.italic = chosen.italic();
  answer.font.underline = chosen.underline();
  answer.font.strikeOut = chosen.strikeOut();
  rules_.Script(answer);
  return rules_.ChooseFont(record);
}

std::int32_t QtPlatformDialogs::PrintDlg(vb::PrintDialogRecord& record) {
  PrintRangeDialog dialog(record, Owner(record.owner ? record.owner : record.deviceContext));
  vb::DialogAnswer answer;
  answer.result = dialog.exec() == QDialog::Accepted ? 1 : 0;
  dialog.Answer(answer, record);
  rules_.Script(answer);
  return rules_.PrintDlg(record);
}

std::int32_t QtPlatformDialogs::WinHelp(vb::Hwnd owner, std::u16string_view helpFile,
                                        std::int32_t command, std::intptr_t data) {
  vb::DialogAnswer answer;
  // Closing help needs no viewer; anything else opens the file in the desktop's viewer.
  answer.result =
      command == kHelpQuit || QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(helpFile))) ? 1
                                                                                             : 0;
  rules_.Script(answer);
  return rules_.WinHelp(owner, helpFile, command, data);
}

}  // namespace studio
