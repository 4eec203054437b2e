// vb::HeadlessPlatformDialogs: scripted answers for the common dialogs, with the platform's rules
// for file buffers, titles, offsets and default extensions.
#include "runtime/PlatformDialogs.h"

#include "runtime/ScriptError.h"

namespace vb {
namespace {

// Writes `text` and a NUL over the start of `buffer`, keeping the rest as the platform does.
// False when it does not fit.
bool FillBuffer(std::u16string& buffer, std::u16string_view text) {
  if (text.size() + 1 > buffer.size()) return false;
  buffer.replace(0, text.size() + 1, std::u16string(text) + u'\0');
  return true;
}

std::size_t NameStart(std::u16string_view path) {
  auto slash = path.find_last_of(u"/\\");
  return slash == std::u16string_view::npos ? 0 : slash + 1;
}

}  // namespace

DialogAnswer HeadlessPlatformDialogs::Next(const char* what) {
  if (answers_.empty())
    throw ScriptError(std::string("a ") + what + " dialog was shown with no answer scripted");
  DialogAnswer answer = std::move(answers_.front());
  answers_.pop_front();
  extendedError_ = answer.extendedError;
  return answer;
}

std::int32_t HeadlessPlatformDialogs::FileDialog(Kind kind, FileDialogRecord& record) {
  Call call{};
  call.kind = kind;
  call.file = record;
  calls_.push_back(std::move(call));
  DialogAnswer answer = Next(kind == Kind::Open ? "file open" : "file save");
  if (answer.result == 0) return 0;
  std::u16string path = answer.path;
  std::size_t nameStart = NameStart(path);
  auto dot = path.find_last_of(u'.');
  bool hasExtension = dot != std::u16string::npos && dot >= nameStart;
  if (!hasExtension && !record.defaultExt.empty()) {
    dot = path.size();
    path += u"." + record.defaultExt;
    hasExtension = true;
  }
  if (!FillBuffer(record.file, path)) {
    extendedError_ = kFnErrBufferTooSmall;
    return 0;
  }
  // A title buffer that is too small is left as it was; the path is what counts.
  if (!record.fileTitle.empty())
    FillBuffer(record.fileTitle, std::u16string_view(path).substr(nameStart));
  record.fileOffset = static_cast<std::int32_t>(nameStart);
  record.fileExtension = static_cast<std::int32_t>(hasExtension ? dot + 1 : path.size());
  return answer.result;
}

std::int32_t HeadlessPlatformDialogs::ChooseColor(ColorDialogRecord& record) {
  Call call{};
  call.kind = Kind::Color;
  call.color = record;
  calls_.push_back(std::move(call));
  DialogAnswer answer = Next("colour");
  if (answer.result != 0) record.color = answer.color;
  return answer.result;
}

std::int32_t HeadlessPlatformDialogs::ChooseFont(FontDialogRecord& record) {
  Call call{};
  call.kind = Kind::Font;
  call.font = record;
  calls_.push_back(std::move(call));
  DialogAnswer answer = Next("font");
  if (answer.result == 0) return 0;
  auto flags = record.flags;
  auto owner = record.owner;
  record = answer.font;
  record.flags = flags;
  record.owner = owner;
  return answer.result;
}

std::int32_t HeadlessPlatformDialogs::PrintDlg(PrintDialogRecord& record) {
  Call call{};
  call.kind = Kind::Print;
  call.print = record;
  calls_.push_back(std::move(call));
  DialogAnswer answer = Next("printer");
  if (answer.result == 0) return 0;
  record.fromPage = answer.print.fromPage;
  record.toPage = answer.print.toPage;
  record.minPage = answer.print.minPage;
  record.maxPage = answer.print.maxPage;
  record.copies = answer.print.copies;
  return answer.result;
}

std::int32_t HeadlessPlatformDialogs::WinHelp(Hwnd, std::u16string_view helpFile,
                                              std::int32_t command, std::intptr_t) {
  Call call{};
  call.kind = Kind::Help;
  call.helpFile = std::u16string(helpFile);
  call.helpCommand = command;
  calls_.push_back(std::move(call));
  return Next("help").result;
}

}  // namespace vb
