// host::files::ProjectFile: reading a .vbp into raw lines, items and settings.
#include "host/files/ProjectFile.h"

#include <array>

#include "host/files/AsciiText.h"
#include "host/files/Concat.h"
#include "host/files/LineScanner.h"
#include "runtime/Utf.h"

namespace host::files {
namespace {

struct ItemKeyEntry {
  std::string_view key;
  ItemKind kind;
};

constexpr std::array kItemKeys = {
    ItemKeyEntry{"Reference", ItemKind::Reference},
    ItemKeyEntry{"Object", ItemKind::Object},
    ItemKeyEntry{"Form", ItemKind::Form},
    ItemKeyEntry{"Module", ItemKind::Module},
    ItemKeyEntry{"Class", ItemKind::Class},
    ItemKeyEntry{"UserControl", ItemKind::UserControl},
    ItemKeyEntry{"PropertyPage", ItemKind::PropertyPage},
    ItemKeyEntry{"UserDocument", ItemKind::UserDocument},
    ItemKeyEntry{"Designer", ItemKind::Designer},
    ItemKeyEntry{"RelatedDoc", ItemKind::RelatedDoc},
    ItemKeyEntry{"ResFile32", ItemKind::ResFile},
};

// The main-section settings the IDE writes, in its own order.
constexpr std::array<std::string_view, 49> kSettingKeys = {"Type",
                                                           "ResFile32",
                                                           "IconForm",
                                                           "Startup",
                                                           "HelpFile",
                                                           "NoControlUpgrade",
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
                                                           "MajorVer",
                                                           "MinorVer",
                                                           "RevisionVer",
                                                           "AutoIncrementVer",
                                                           "ServerSupportFiles",
                                                           "DllBaseAddress",
                                                           "VersionComments",
                                                           "VersionCompanyName",
                                                           "VersionFileDescription",
                                                           "VersionLegalCopyright",
                                                           "VersionLegalTrademarks",
                                                           "VersionProductName",
                                                           "CondComp",
                                                           "CompilationType",
                                                           "OptimizationType",
                                                           "FavorPentiumPro(tm)",
                                                           "CodeViewDebugInfo",
                                                           "NoAliasing",
                                                           "BoundsCheck",
                                                           "OverflowCheck",
                                                           "FlPointCheck",
                                                           "FDIVCheck",
                                                           "UnroundedFP",
                                                           "StartMode",
                                                           "Unattended",
                                                           "Retained",
                                                           "ThreadPerObject",
                                                           "MaxNumberOfThreads",
                                                           "RemoveUnusedControlInfo",
                                                           "ThreadingModel",
                                                           "DebugStartupOption",
                                                           "DebugStartupComponent",
                                                           "UseExistingBrowser"};

}  // namespace

std::span<const std::string_view> ProjectSettingKeys() {
  return kSettingKeys;
}

namespace {

const ItemKeyEntry* FindItemKey(std::string_view key) {
  for (const ItemKeyEntry& entry : kItemKeys)
    if (EqualsAsciiNoCase(entry.key, key)) return &entry;
  return nullptr;
}

bool IsSettingKey(std::string_view key) {
  for (std::string_view known : kSettingKeys)
    if (EqualsAsciiNoCase(known, key)) return true;
  return false;
}

// Quoted settings: everything between the first and the last quote (no escape convention is
// known, so inner quotes are kept as they are).
std::u16string_view Unquote(std::u16string_view value) {
  std::size_t first = value.find(u'"');
  std::size_t last = value.rfind(u'"');
  if (first == std::u16string_view::npos || last == first) return value;
  return value.substr(first + 1, last - first - 1);
}

// "Name; path" of Module, Class and Object lines.
void SplitNameAndPath(std::u16string_view value, ProjectItem& item) {
  std::size_t semicolon = value.find(u';');
  if (semicolon == std::u16string_view::npos) {
    item.path = TrimBlanks(value);
    return;
  }
  item.name = TrimBlanks(value.substr(0, semicolon));
  item.path = TrimBlanks(value.substr(semicolon + 1));
}

ProjectItem ParseItem(ItemKind kind, std::u16string_view value, int line) {
  ProjectItem item{kind, {}, {}, line};
  switch (kind) {
    case ItemKind::Module:
    case ItemKind::Class:
      SplitNameAndPath(value, item);
      break;
    case ItemKind::Object:
      if (value.starts_with(u"*\\A"))
        item.path = value.substr(3);
      else
        SplitNameAndPath(value, item);
      break;
    case ItemKind::Reference:
      if (auto parts = ParseReference(value)) {
        item.name = parts->description;
        item.path = parts->path;
      }
      break;
    case ItemKind::ResFile:
      item.path = Unquote(value);
      break;
    default:
      item.path = value;
      break;
  }
  return item;
}

bool IsSectionLine(std::string_view line) {
  std::string_view trimmed = TrimBlanks(line);
  return trimmed.size() >= 2 && trimmed.front() == '[' && trimmed.back() == ']';
}

// Reads the main section; with `problems` it also reports what is odd there.
void Scan(ProjectFile& project, const vb::CodePage& codePage, const std::string* file,
          Problems* problems) {
  project.items.clear();
  project.type.clear();
  project.name.clear();
  bool named = false;
  auto report = [&](std::size_t line, std::string message, bool warning) {
    if (problems)
      problems->push_back({*file, static_cast<int>(line + 1), std::move(message), warning});
  };
  std::u16string value;
  for (std::size_t i = 0; i < project.lines.size(); ++i) {
    std::string_view bytes = project.lines[i].bytes;
    if (IsSectionLine(bytes)) break;  // named sections belong to their tools: opaque
    if (TrimBlanks(bytes).empty()) continue;
    std::size_t equals = bytes.find('=');
    if (equals == std::string_view::npos) {
      report(i, Concat({"not a Key=Value line: \"", vb::ToUtf8(codePage.Decode(bytes)), "\""}),
             false);
      continue;
    }
    std::string_view key = bytes.substr(0, equals);
    value.clear();
    codePage.Decode(bytes.substr(equals + 1), value);
    if (const ItemKeyEntry* item = FindItemKey(key)) {
      project.items.push_back(ParseItem(item->kind, value, static_cast<int>(i)));
    } else if (EqualsAsciiNoCase(key, "Type")) {
      if (project.type.empty()) project.type = TrimBlanks(value);
    } else if (EqualsAsciiNoCase(key, "Name")) {
      if (!named) project.name = Unquote(value);
      named = true;
    } else if (!IsSettingKey(key)) {
      report(i, Concat({"unknown key \"", vb::ToUtf8(codePage.Decode(key)), "\": kept as written"}),
             true);
    }
  }
  if (project.type.empty() && problems)
    problems->push_back({*file, 0, "no Type= line: the project type is unknown", false});
}

}  // namespace

std::string_view ItemKey(ItemKind kind) {
  for (const ItemKeyEntry& entry : kItemKeys)
    if (entry.kind == kind) return entry.key;
  return {};
}

std::optional<ModuleKind> ModuleKindOf(ItemKind kind) {
  switch (kind) {
    case ItemKind::Form:
      return ModuleKind::Form;
    case ItemKind::Module:
      return ModuleKind::Standard;
    case ItemKind::Class:
      return ModuleKind::Class;
    case ItemKind::UserControl:
      return ModuleKind::UserControl;
    case ItemKind::PropertyPage:
      return ModuleKind::PropertyPage;
    case ItemKind::UserDocument:
      return ModuleKind::UserDocument;
    case ItemKind::Designer:
      return ModuleKind::Designer;
    default:
      return std::nullopt;
  }
}

std::optional<ReferenceParts> ParseReference(std::u16string_view value) {
  ReferenceParts parts;
  if (value.starts_with(u"*\\A")) {
    parts.project = true;
    parts.path = value.substr(3);
    return parts;
  }
  std::size_t version = value.find(u'#');
  std::size_t lcid = version == value.npos ? value.npos : value.find(u'#', version + 1);
  std::size_t path = lcid == value.npos ? value.npos : value.find(u'#', lcid + 1);
  std::size_t description = value.rfind(u'#');
  if (path == value.npos || description <= path) return std::nullopt;
  parts.libid = value.substr(0, version);
  parts.version = value.substr(version + 1, lcid - version - 1);
  parts.lcid = value.substr(lcid + 1, path - lcid - 1);
  parts.path = value.substr(path + 1, description - path - 1);
  parts.description = value.substr(description + 1);
  return parts;
}

ProjectFile ReadProject(std::string_view bytes, const vb::CodePage& codePage,
                        const std::string& file, Problems& problems) {
  ProjectFile project;
  project.lines = SplitRawLines(bytes);
  Scan(project, codePage, &file, &problems);
  return project;
}

void ReindexProject(ProjectFile& project, const vb::CodePage& codePage) {
  Scan(project, codePage, nullptr, nullptr);
}

std::string WriteProject(const ProjectFile& project, const vb::CodePage& /*codePage*/) {
  std::string out;
  AppendRawLines(project.lines, out, false);
  return out;
}

}  // namespace host::files
