// quillmark::CommonDialog: the system's open, save, colour, font and printer dialogs and the help
// viewer behind a property interface: set properties, call a Show operation, read them back.
#pragma once

#include <any>
#include <array>
#include <cstdint>
#include <string>

#include "runtime/CodePage.h"
#include "runtime/PlatformDialogs.h"

namespace vb {
class Runtime;
}

namespace quillmark {

// Every property starts at zero or empty. A dialog that returns 0 (cancelled or failed) leaves
// every property as it was and sets Cancelled; a return other than 0 and 1 fetches the platform's
// extended error and copies nothing back. Nothing here raises an error.
class CommonDialog {
 public:
  enum ActionCode { kOpen = 1, kSave = 2, kColor = 3, kFont = 4, kPrinter = 5, kHelp = 6 };

  explicit CommonDialog(vb::Runtime& runtime) : runtime_(runtime) {}
  // The ANSI code page the texts pass through on their way to the platform and back, as they
  // did through the platform's "A" functions: a character it lacks comes back as "?".
  // Windows-1252 unless set; the page must outlive the dialog.
  void SetAnsiCodePage(const vb::CodePage& page) { ansi_ = &page; }

  void ShowOpen() { ShowFile(kOpen); }
  void ShowSave() { ShowFile(kSave); }
  void ShowColor();
  void ShowFont();
  void ShowPrinter();
  void ShowHelp();

  const std::u16string& FileName() const { return fileName_; }
  void SetFileName(std::u16string v) { fileName_ = std::move(v); }
  const std::u16string& FileTitle() const { return fileTitle_; }
  void SetFileTitle(std::u16string v) { fileTitle_ = std::move(v); }
  const std::u16string& FilePrefix() const { return filePrefix_; }
  const std::u16string& FileSuffix() const { return fileSuffix_; }
  const std::u16string& Filter() const { return filter_; }
  void SetFilter(std::u16string v) { filter_ = std::move(v); }
  std::int32_t FilterIndex() const { return filterIndex_; }
  void SetFilterIndex(std::int32_t v) { filterIndex_ = v; }
  const std::u16string& DefaultExt() const { return defaultExt_; }
  void SetDefaultExt(std::u16string v) { defaultExt_ = std::move(v); }
  const std::u16string& DialogTitle() const { return dialogTitle_; }
  void SetDialogTitle(std::u16string v) { dialogTitle_ = std::move(v); }
  const std::u16string& InitDir() const { return initDir_; }
  void SetInitDir(std::u16string v) { initDir_ = std::move(v); }
  std::int32_t MaxFileSize() const { return maxFileSize_; }
  void SetMaxFileSize(std::int32_t v) { maxFileSize_ = v; }
  std::int32_t Flags() const { return flags_; }
  void SetFlags(std::int32_t v) { flags_ = v; }
  vb::Hwnd hWndOwner() const { return hWndOwner_; }
  void SethWndOwner(vb::Hwnd v) { hWndOwner_ = v; }

  std::uint32_t Color() const { return color_; }
  void SetColor(std::uint32_t v) { color_ = v; }

  const std::u16string& FontName() const { return fontName_; }
  void SetFontName(std::u16string v) { fontName_ = std::move(v); }
  float FontSize() const { return fontSize_; }
  void SetFontSize(float v) { fontSize_ = v; }
  bool FontBold() const { return fontBold_; }
  void SetFontBold(bool v) { fontBold_ = v; }
  bool FontItalic() const { return fontItalic_; }
  void SetFontItalic(bool v) { fontItalic_ = v; }
  bool FontUnderline() const { return fontUnderline_; }
  void SetFontUnderline(bool v) { fontUnderline_ = v; }
  bool FontStrikethru() const { return fontStrikethru_; }
  void SetFontStrikethru(bool v) { fontStrikethru_ = v; }

  std::int32_t Copies() const { return copies_; }
  void SetCopies(std::int32_t v) { copies_ = v; }
  std::int32_t FromPage() const { return fromPage_; }
  void SetFromPage(std::int32_t v) { fromPage_ = v; }
  std::int32_t ToPage() const { return toPage_; }
  void SetToPage(std::int32_t v) { toPage_ = v; }
  std::int32_t Min() const { return min_; }
  void SetMin(std::int32_t v) { min_ = v; }
  std::int32_t Max() const { return max_; }
  void SetMax(std::int32_t v) { max_ = v; }
  bool PrinterDefault() const { return printerDefault_; }
  void SetPrinterDefault(bool v) { printerDefault_ = v; }

  const std::u16string& HelpFile() const { return helpFile_; }
  void SetHelpFile(std::u16string v) { helpFile_ = std::move(v); }
  std::int32_t HelpCommand() const { return helpCommand_; }
  void SetHelpCommand(std::int32_t v) { helpCommand_ = v; }
  std::int32_t HelpContext() const { return helpContext_; }
  void SetHelpContext(std::int32_t v) { helpContext_ = v; }
  const std::u16string& HelpKey() const { return helpKey_; }
  void SetHelpKey(std::u16string v) { helpKey_ = std::move(v); }

  const std::any& Object() const { return object_; }
  void SetObject(std::any v) { object_ = std::move(v); }

  std::int32_t Action() const { return action_; }
  bool Cancelled() const { return cancelled_; }
  std::int32_t APIReturn() const { return apiReturn_; }
  std::int32_t ExtendedError() const { return extendedError_; }

 private:
  void ShowFile(ActionCode action);
  // The common start and end of every Show: true when the results are to be copied back.
  void Begin(ActionCode action);
  bool Finish(std::int32_t result);
  std::u16string Ansi(std::u16string_view text) const;

  vb::Runtime& runtime_;
  const vb::CodePage* ansi_ = &vb::CodePage::Windows1252();
  std::u16string fileName_, fileTitle_, filePrefix_, fileSuffix_, filter_, defaultExt_,
      dialogTitle_, initDir_;
  std::int32_t filterIndex_ = 0, maxFileSize_ = 0, flags_ = 0;
  vb::Hwnd hWndOwner_ = 0;
  std::uint32_t color_ = 0;
  std::array<std::uint32_t, 16> customColors_{};  // kept between colour dialogs
  std::u16string fontName_;
  float fontSize_ = 0;
  bool fontBold_ = false, fontItalic_ = false, fontUnderline_ = false, fontStrikethru_ = false;
  std::int32_t copies_ = 0, fromPage_ = 0, toPage_ = 0, min_ = 0, max_ = 0;
  bool printerDefault_ = false;
  std::u16string helpFile_, helpKey_;
  std::int32_t helpCommand_ = 0, helpContext_ = 0;
  std::any object_;
  std::int32_t action_ = 0, apiReturn_ = 0, extendedError_ = 0;
  bool cancelled_ = false;
};

}  // namespace quillmark
