// studio::QtPlatformDialogs: the common dialogs (open, save, colour, font, printer, help) in Qt.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "runtime/PlatformDialogs.h"

namespace studio {

// Qt asks the user; what the answer does to the caller's record (the file buffer and its size,
// the title, the offsets, the default extension, the error a short buffer gives) follows the
// same rules as the headless dialogs, which this class hands each answer to. Qt's own dialogs
// are used rather than the desktop's, so they behave alike everywhere.
class QtPlatformDialogs final : public vb::PlatformDialogs {
 public:
  // `ownerOf` finds the widget of a window handle (null: no owner).
  explicit QtPlatformDialogs(std::function<QWidget*(vb::Hwnd)> ownerOf);
  // The toolkit is going: dialogs shown from now on have no owner window.
  void Detach() { ownerOf_ = nullptr; }

  std::int32_t GetOpenFileName(vb::FileDialogRecord& record) override;
  std::int32_t GetSaveFileName(vb::FileDialogRecord& record) override;
  std::int32_t ChooseColor(vb::ColorDialogRecord& record) override;
  std::int32_t ChooseFont(vb::FontDialogRecord& record) override;
  std::int32_t PrintDlg(vb::PrintDialogRecord& record) override;
  std::int32_t CommDlgExtendedError() override { return rules_.CommDlgExtendedError(); }
  std::int32_t WinHelp(vb::Hwnd owner, std::u16string_view helpFile, std::int32_t command,
                       std::intptr_t data) override;

 private:
  std::int32_t FileDialog(vb::FileDialogRecord& record, bool save);
  QWidget* Owner(vb::Hwnd hwnd) const { return ownerOf_ ? ownerOf_(hwnd) : nullptr; }

  std::function<QWidget*(vb::Hwnd)> ownerOf_;
  vb::HeadlessPlatformDialogs rules_;
};

// "Text (*.txt)\0*.txt\0All\0*.*\0" as Qt's name filters: "Text (*.txt)", "All (*.*)".
QStringList NameFiltersOf(std::u16string_view filter);

}  // namespace studio
