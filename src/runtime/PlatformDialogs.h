// vb::PlatformDialogs: the system's open, save, colour, font and printer dialogs and the help
// viewer, with the Win32 common-dialog contracts; and a headless implementation with scripted
// answers.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "runtime/WindowSystem.h"

namespace vb {

// The file dialog's record (OPENFILENAME's fields that matter). Buffers are held as text whose
// length is the buffer's size in characters, NULs included, as the caller filled them.
struct FileDialogRecord {
  Hwnd owner = 0;
  std::u16string filter;  // description and pattern pairs, NUL separated, as given
  std::int32_t filterIndex = 0;
  std::u16string file;  // in: the initial name, padded; out: the chosen path, NUL ended
  std::u16string fileTitle;
  std::u16string initialDir;
  std::u16string title;
  std::int32_t flags = 0;
  std::u16string defaultExt;
  // Out: offsets (from 0) into `file` of the file name and of the extension after its dot.
  std::int32_t fileOffset = 0;
  std::int32_t fileExtension = 0;
};

struct ColorDialogRecord {
  Hwnd owner = 0;
  std::uint32_t color = 0;
  std::array<std::uint32_t, 16> customColors{};
  std::int32_t flags = 0;
};

// The logical font the font dialog starts from and returns; the face name is bytes in the ANSI
// code page, zero padded, as LOGFONT holds it.
struct FontDialogRecord {
  Hwnd owner = 0;
  std::array<std::uint8_t, 32> faceName{};
  std::int32_t pointSizeTenths = 0;  // iPointSize
  std::int32_t weight = 400;         // 700 is bold
  bool italic = false;
  bool underline = false;
  bool strikeOut = false;
  std::int32_t flags = 0;
};

// PRINTDLG's page and copy numbers are 16-bit.
struct PrintDialogRecord {
  Hwnd owner = 0;
  Hwnd deviceContext = 0;
  std::int32_t flags = 0;
  std::int16_t fromPage = 0, toPage = 0, minPage = 0, maxPage = 0, copies = 0;
};

// Each Show returns what the Win32 function returns: nonzero on success, 0 when the user
// cancelled or the dialog failed (then ExtendedError says why, 0 for a plain cancel).
class PlatformDialogs {
 public:
  virtual ~PlatformDialogs() = default;
  virtual std::int32_t GetOpenFileName(FileDialogRecord& record) = 0;
  virtual std::int32_t GetSaveFileName(FileDialogRecord& record) = 0;
  virtual std::int32_t ChooseColor(ColorDialogRecord& record) = 0;
  virtual std::int32_t ChooseFont(FontDialogRecord& record) = 0;
  virtual std::int32_t PrintDlg(PrintDialogRecord& record) = 0;
  virtual std::int32_t CommDlgExtendedError() = 0;
  virtual std::int32_t WinHelp(Hwnd owner, std::u16string_view helpFile, std::int32_t command,
                               std::intptr_t data) = 0;
};

// FNERR_BUFFERTOOSMALL: the chosen path does not fit the file buffer.
inline constexpr std::int32_t kFnErrBufferTooSmall = 0x3003;

// The user's part, scripted: what a dialog returns and what it hands back. A file answer gives
// the path; the title and the offsets are derived from it as the platform does.
struct DialogAnswer {
  std::int32_t result = 1;
  std::int32_t extendedError = 0;  // what CommDlgExtendedError reports after this dialog
  std::u16string path;
  std::uint32_t color = 0;
  FontDialogRecord font;
  PrintDialogRecord print;
};

// Answers dialogs from a queue, in order, and records every call. A dialog with nothing
// scripted is a ScriptError: a headless run never waits for a user.
class HeadlessPlatformDialogs final : public PlatformDialogs {
 public:
  enum class Kind { Open, Save, Color, Font, Print, Help };
  struct Call {
    Kind kind;
    FileDialogRecord file;  // as handed in (Open and Save)
    ColorDialogRecord color;
    FontDialogRecord font;
    PrintDialogRecord print;
    std::u16string helpFile;
    std::int32_t helpCommand = 0;
  };

  void Script(DialogAnswer answer) { answers_.push_back(std::move(answer)); }
  void ScriptCancel() {
    DialogAnswer answer;
    answer.result = 0;
    Script(std::move(answer));
  }
  void ScriptFile(std::u16string path) {
    DialogAnswer answer;
    answer.path = std::move(path);
    Script(std::move(answer));
  }
  std::size_t PendingAnswers() const { return answers_.size(); }
  const std::vector<Call>& Calls() const { return calls_; }

  std::int32_t GetOpenFileName(FileDialogRecord& record) override {
    return FileDialog(Kind::Open, record);
  }
  std::int32_t GetSaveFileName(FileDialogRecord& record) override {
    return FileDialog(Kind::Save, record);
  }
  std::int32_t ChooseColor(ColorDialogRecord& record) override;
  std::int32_t ChooseFont(FontDialogRecord& record) override;
  std::int32_t PrintDlg(PrintDialogRecord& record) override;
  std::int32_t CommDlgExtendedError() override { return extendedError_; }
  std::int32_t WinHelp(Hwnd owner, std::u16string_view helpFile, std::int32_t command,
                       std::intptr_t data) override;

 private:
  std::int32_t FileDialog(Kind kind, FileDialogRecord& record);
  DialogAnswer Next(const char* what);
  std::deque<DialogAnswer> answers_;
  std::vector<Call> calls_;
  std::int32_t extendedError_ = 0;
};

}  // namespace vb
