// Finding and starting the desktop's handler for a file.
#include "runtime/DesktopShell.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include "runtime/Utf.h"

extern char** environ;  // POSIX

namespace vb {

namespace fs = std::filesystem;

namespace {

std::string TrimmedLine(std::string text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' '))
    text.pop_back();
  return text;
}

std::vector<std::string> SplitList(const std::string& text) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  while (start <= text.size()) {
    std::size_t end = text.find(':', start);
    if (end == std::string::npos) end = text.size();
    if (end > start) parts.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

bool IsExecutableFile(const fs::path& path) {
  std::error_code ec;
  fs::file_status status = fs::status(path, ec);
  if (ec || !fs::is_regular_file(status)) return false;
  auto anyExec = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
  return (status.permissions() & anyExec) != fs::perms::none;
}

fs::path Located(std::u16string_view file, std::u16string_view directory) {
  fs::path path(PathFromVb(file));
  if (directory.empty() || path.is_absolute()) return path;
  return fs::path(PathFromVb(directory)) / path;
}

std::intptr_t ResultOfErrno(int error) {
  switch (error) {
    case 0:
      return shellResult::kSuccess;
    case ENOENT:
      return shellResult::kFileNotFound;
    case ENOTDIR:
      return shellResult::kPathNotFound;
    case EACCES:
    case EPERM:
      return shellResult::kAccessDenied;
    case EAGAIN:
    case ENOMEM:
      return shellResult::kOutOfResources;
    default:
      return shellResult::kNoAssociation;
  }
}

}  // namespace

Environment ProcessEnvironment() {
  Environment environment;
  for (char** entry = environ; entry && *entry; ++entry) {
    std::string text(*entry);
    std::size_t equals = text.find('=');
    if (equals != std::string::npos) environment[text.substr(0, equals)] = text.substr(equals + 1);
  }
  return environment;
}

std::string DesktopShell::Variable(const std::string& name, const std::string& fallback) const {
  auto it = environment_.find(name);
  return it == environment_.end() || it->second.empty() ? fallback : it->second;
}

std::optional<fs::path> DesktopShell::FindDesktopFile(const std::string& id) const {
  std::vector<std::string> roots{Variable("XDG_DATA_HOME", Variable("HOME", "") + "/.local/share")};
  for (auto& dir : SplitList(Variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share")))
    roots.push_back(dir);
  for (const auto& root : roots) {
    // A dash in the id may stand for a sub-folder: "kde-org.desktop" is also kde/org.desktop.
    std::string relative = id;
    for (std::size_t dash = 0;; ++dash) {
      fs::path candidate = fs::path(root) / "applications" / relative;
      std::error_code ec;
      if (fs::is_regular_file(candidate, ec)) return candidate;
      dash = relative.find('-', dash);
      if (dash == std::string::npos) break;
      relative[dash] = '/';
    }
  }
  return std::nullopt;
}

std::optional<std::string> DesktopShell::MimeTypeOf(const fs::path& file) {
  std::string extension = file.extension().string();
  for (char& c : extension) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
  if (extension == ".htm" || extension == ".html") return "text/html";
  auto type = runner_.Capture({"xdg-mime", "query", "filetype", file.string()});
  if (!type || TrimmedLine(*type).empty()) return std::nullopt;
  return TrimmedLine(*type);
}

std::optional<fs::path> DesktopShell::ResolveProgram(const std::string& program) const {
  if (program.find('/') != std::string::npos)
    return IsExecutableFile(program) ? std::optional<fs::path>(program) : std::nullopt;
  for (const auto& dir : SplitList(Variable("PATH", "/usr/local/bin:/usr/bin:/bin"))) {
    fs::path candidate = fs::path(dir) / program;
    if (IsExecutableFile(candidate)) return candidate;
  }
  return std::nullopt;
}

std::intptr_t DesktopShell::FindExecutable(std::u16string_view file, std::u16string_view directory,
                                           std::u16string& result) {
  result.clear();
  fs::path path = Located(file, directory);
  std::error_code ec;
  if (!fs::exists(path, ec)) return shellResult::kFileNotFound;
  auto type = MimeTypeOf(path);
  if (!type) return shellResult::kNoAssociation;
  auto handler = runner_.Capture({"xdg-mime", "query", "default", *type});
  if (!handler || TrimmedLine(*handler).empty()) return shellResult::kNoAssociation;
  auto desktopFile = FindDesktopFile(TrimmedLine(*handler));
  if (!desktopFile) return shellResult::kNoAssociation;
  std::ifstream in(*desktopFile, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  auto command = ParseDesktopEntry(text);
  if (!command) return shellResult::kNoAssociation;
  auto program = ResolveProgram(command->program);
  if (!program) return shellResult::kNoAssociation;
  command->program = program->string();
  commands_[*program] = *command;
  result = FromUtf8(program->string());
  return shellResult::kSuccess;
}

std::intptr_t DesktopShell::Start(const std::vector<std::string>& argv) {
  return ResultOfErrno(runner_.StartDetached(argv));
}

std::intptr_t DesktopShell::ShellExecute(std::intptr_t, std::u16string_view verb,
                                         std::u16string_view file, std::u16string_view parameters,
                                         std::u16string_view directory, int) {
  if (!verb.empty() && verb != u"open") return shellResult::kNoAssociation;
  fs::path path = Located(file, directory);
  std::error_code ec;
  if (!fs::exists(path, ec)) return shellResult::kFileNotFound;

  std::string parameterText = PathFromVb(parameters);
  std::vector<std::string> words =
      SplitExecLine(parameterText).value_or(std::vector<std::string>{parameterText});
  if (IsExecutableFile(path)) {
    auto known = commands_.find(path);
    if (known != commands_.end()) return Start(known->second.WithFiles(words));
    words.insert(words.begin(), path.string());
    return Start(words);
  }
  std::u16string program;
  std::intptr_t found = FindExecutable(FromUtf8(path.string()), {}, program);
  if (found <= 32) return found;
  return Start(commands_.at(fs::path(PathFromVb(program))).WithFiles({path.string()}));
}

}  // namespace vb
