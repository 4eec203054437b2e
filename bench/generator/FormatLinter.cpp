// FormatLinter: group and project files - order of keys, item paths, names, and the modules.
#include "FormatLinter.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <optional>

#include "LineReader.h"
#include "ModuleLinter.h"
#include "host/files/ProjectFile.h"

namespace vbgen {
namespace fs = std::filesystem;

namespace {

constexpr auto kQuoted = std::to_array<std::string_view>({"ResFile32",
                                                          "IconForm",
                                                          "Startup",
                                                          "HelpFile",
                                                          "Title",
                                                          "ExeName32",
                                                          "Path32",
                                                          "Command32",
                                                          "Name",
                                                          "HelpContextID",
                                                          "Description",
                                                          "CompatibleMode",
                                                          "CompatibleEXE32",
                                                          "VersionCompatible32",
                                                          "VersionComments",
                                                          "VersionCompanyName",
                                                          "VersionFileDescription",
                                                          "VersionLegalCopyright",
                                                          "VersionLegalTrademarks",
                                                          "VersionProductName",
                                                          "CondComp"});
constexpr std::array<std::string_view, 10> kItems = {
    "Reference",   "Object",       "Form",         "Module",   "Class",
    "UserControl", "PropertyPage", "UserDocument", "Designer", "RelatedDoc"};

std::optional<std::string> ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// VB writes paths with backslashes; on this system they are folder separators too.
fs::path Relative(const fs::path& folder, std::string_view value) {
  std::string path(value);
  std::replace(path.begin(), path.end(), '\\', '/');
  return folder / path;
}

std::optional<ModuleKind> KindOfKey(std::string_view key) {
  if (key == "Module") return ModuleKind::Standard;
  if (key == "Class") return ModuleKind::Class;
  if (key == "Form") return ModuleKind::Form;
  if (key == "UserControl") return ModuleKind::UserControl;
  if (key == "PropertyPage") return ModuleKind::PropertyPage;
  if (key == "UserDocument") return ModuleKind::UserDocument;
  if (key == "Designer") return ModuleKind::Designer;
  return std::nullopt;
}

template <std::size_t N>
bool Contains(const std::array<std::string_view, N>& table, std::string_view key) {
  return std::find(table.begin(), table.end(), key) != table.end();
}

}  // namespace

void FormatLinter::Problem(const fs::path& file, std::size_t line, const std::string& text) {
  result_.problems.push_back(file.string() + ":" + std::to_string(line) + ": " + text);
}

LintResult FormatLinter::LintGroup(const fs::path& vbg) {
  result_ = {};
  std::optional<std::string> bytes = ReadFile(vbg);
  if (!bytes) {
    Problem(vbg, 0, "cannot read the group file");
    return result_;
  }
  ++result_.files;
  SplitText split = SplitLines(vbg.string(), *bytes);
  result_.problems.insert(result_.problems.end(), split.problems.begin(), split.problems.end());
  if (split.lines.empty() || split.lines[0] != "VBGROUP 5.0")
    Problem(vbg, 1, "a group file starts with 'VBGROUP 5.0'");
  std::size_t startups = 0;
  for (std::size_t i = 1; i < split.lines.size(); ++i) {
    std::string_view line = split.lines[i];
    std::size_t eq = line.find('=');
    std::string_view key = line.substr(0, eq);
    if (eq == std::string_view::npos || (key != "Project" && key != "StartupProject")) {
      Problem(vbg, i + 1, "expected Project= or StartupProject=");
      continue;
    }
    startups += key == "StartupProject" ? 1 : 0;
    LintProject(Relative(vbg.parent_path(), line.substr(eq + 1)));
  }
  if (startups > 1) Problem(vbg, 1, "more than one StartupProject");
  return result_;
}

void FormatLinter::LintProject(const fs::path& vbp) {
  std::optional<std::string> bytes = ReadFile(vbp);
  if (!bytes) {
    Problem(vbp, 0, "cannot read the project file");
    return;
  }
  ++result_.files;
  SplitText split = SplitLines(vbp.string(), *bytes);
  result_.problems.insert(result_.problems.end(), split.problems.begin(), split.problems.end());
  const std::vector<std::string_view>& lines = split.lines;
  static constexpr std::array<std::string_view, 4> kTypes = {"Type=Exe", "Type=OleDll",
                                                             "Type=OleExe", "Type=Control"};
  if (lines.empty() || !Contains(kTypes, lines[0]))
    Problem(vbp, 1, "the first line is Type=Exe, OleDll, OleExe or Control");
  CaseTable names;  // the IDE's name table is per project
  bool itemsDone = false;
  bool inSection = false;
  std::size_t lastRank = 0;
  for (std::size_t i = 1; i < lines.size(); ++i) {
    std::string_view line = lines[i];
    if (line.empty()) {
      bool sectionNext = i + 1 < lines.size() && lines[i + 1].starts_with("[");
      if (!sectionNext) Problem(vbp, i + 1, "empty line that does not precede a [section]");
      continue;
    }
    if (line.starts_with("[")) {
      if (lines[i - 1] != "") Problem(vbp, i + 1, "a [section] is preceded by one empty line");
      inSection = true;
      continue;
    }
    if (inSection) continue;  // named sections belong to other tools; their keys are theirs
    std::size_t eq = line.find('=');
    std::string_view key = line.substr(0, eq);
    std::string_view value =
        eq == std::string_view::npos ? std::string_view() : line.substr(eq + 1);
    if (Contains(kItems, key)) {
      if (itemsDone)
        Problem(vbp, i + 1,
                std::string(key) + "= after the settings; the item block is contiguous");
      LintItem(vbp, key, value, i + 1, names);
      continue;
    }
    itemsDone = true;
    Setting(vbp, key, value, i + 1, lastRank);
  }
}

// One setting after the item block: a known key, in the IDE's order, quoted where the IDE
// quotes it. `lastRank` carries the position of the previous setting.
void FormatLinter::Setting(const fs::path& vbp, std::string_view key, std::string_view value,
                           std::size_t number, std::size_t& lastRank) {
  // The order in which the IDE writes the settings after the item block (after "Type").
  auto settings = host::files::ProjectSettingKeys().subspan(1);
  auto rank =
      static_cast<std::size_t>(std::find(settings.begin(), settings.end(), key) - settings.begin());
  if (rank >= settings.size()) {
    Problem(vbp, number, "unknown key '" + std::string(key) + "'");
    return;
  }
  if (rank < lastRank) Problem(vbp, number, std::string(key) + " is out of the IDE's key order");
  lastRank = rank;
  bool quoted = value.size() >= 2 && value.starts_with("\"") && value.ends_with("\"");
  if (Contains(kQuoted, key) != quoted) {
    Problem(vbp, number,
            std::string(key) + (quoted ? " is written without quotes" : " needs quotes"));
  }
  if (key == "ResFile32" && quoted &&
      !fs::exists(Relative(vbp.parent_path(), value.substr(1, value.size() - 2)))) {
    Problem(vbp, number, "resource file " + std::string(value) + " not found");
  }
}

bool FormatLinter::LintItem(const fs::path& vbp, std::string_view key, std::string_view value,
                            std::size_t number, CaseTable& names) {
  fs::path folder = vbp.parent_path();
  std::optional<ModuleKind> kind = KindOfKey(key);
  std::string_view path = value;
  std::string_view listedName;
  if (key == "Module" || key == "Class") {
    std::size_t separator = value.find("; ");
    if (separator == std::string_view::npos) {
      Problem(vbp, number, std::string(key) + "= needs 'Name; path'");
      return false;
    }
    listedName = value.substr(0, separator);
    path = value.substr(separator + 2);
  }
  if (key == "Reference" || key == "Object") {
    // Another project of the group, referenced by its relative path.
    if (value.starts_with("*\\A") && !fs::exists(Relative(folder, value.substr(3)))) {
      Problem(vbp, number, "project " + std::string(value.substr(3)) + " not found");
    }
    return true;
  }
  fs::path file = Relative(folder, path);
  std::optional<std::string> bytes = ReadFile(file);
  if (!bytes) {
    Problem(file, 0, "listed as " + std::string(key) + "= but cannot be read");
    return false;
  }
  ++result_.files;
  if (!kind) return true;  // a related document: any content
  ModuleLinter linter(file.string(), names, result_.problems);
  ModuleFacts facts = linter.Lint(*bytes, *kind);
  if (!listedName.empty() && listedName != facts.name) {
    Problem(
        vbp, number,
        "lists '" + std::string(listedName) + "' but the file's VB_Name is '" + facts.name + "'");
  }
  result_.codeLines += facts.codeLines;
  result_.largestModuleLines = std::max(result_.largestModuleLines, facts.codeLines);
  result_.mostMembers = std::max(result_.mostMembers, facts.members);
  return true;
}

}  // namespace vbgen
