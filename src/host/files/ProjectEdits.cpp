// host::files project-file edits: each one rewrites or inserts whole lines and keeps the rest.
#include <algorithm>

#include "host/files/AsciiText.h"
#include "host/files/Concat.h"
#include "host/files/ProjectFile.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"

namespace host::files {
namespace {

vb::Error InvalidCall(std::u16string_view detail) {
  return vb::Error::Standard(vb::err::kInvalidProcedureCall, detail);
}

// Bytes for a value written into a project line; refuses what could not be read back the same.
std::string EncodeValue(std::u16string_view text, const vb::CodePage& codePage) {
  bool unusable = std::any_of(text.begin(), text.end(),
                              [](char16_t c) { return c == u'"' || c == u'\r' || c == u'\n'; });
  if (unusable)
    throw InvalidCall(Concat({u"cannot be written in a project file: \"", text, u"\""}));
  std::string bytes;
  std::size_t unmappable = 0;
  codePage.Encode(text, bytes, &unmappable);
  if (unmappable > 0)
    throw InvalidCall(Concat({u"\"", text, u"\" cannot be written in this code page"}));
  return bytes;
}

std::size_t FirstSectionLine(const ProjectFile& project) {
  for (std::size_t i = 0; i < project.lines.size(); ++i) {
    std::string_view trimmed = TrimBlanks(project.lines[i].bytes);
    if (trimmed.size() >= 2 && trimmed.front() == '[' && trimmed.back() == ']') return i;
  }
  return project.lines.size();
}

// Inserts a line; one that becomes the last line takes over the file's final-terminator state.
void InsertLine(ProjectFile& project, std::size_t at, std::string bytes) {
  Eol eol = Eol::CrLf;
  if (at == project.lines.size() && at > 0 && project.lines.back().eol == Eol::None) {
    project.lines.back().eol = Eol::CrLf;
    eol = Eol::None;
  }
  project.lines.insert(project.lines.begin() + static_cast<std::ptrdiff_t>(at),
                       {std::move(bytes), eol});
}

const ProjectItem& RequireItem(const ProjectFile& project, std::size_t item) {
  if (item >= project.items.size())
    throw InvalidCall(Concat({u"no project item ", vb::FromUtf8(std::to_string(item))}));
  return project.items[item];
}

}  // namespace

void SetProjectName(ProjectFile& project, std::u16string_view name, const vb::CodePage& codePage) {
  std::string line = Concat({"Name=\"", EncodeValue(name, codePage), "\""});
  std::size_t end = FirstSectionLine(project);
  for (std::size_t i = 0; i < end; ++i) {
    std::string& bytes = project.lines[i].bytes;
    std::size_t equals = bytes.find('=');
    if (equals != std::string::npos &&
        EqualsAsciiNoCase(std::string_view(bytes).substr(0, equals), "Name")) {
      bytes = std::move(line);
      ReindexProject(project, codePage);
      return;
    }
  }
  // Sections are preceded by one empty line; the new setting goes above it.
  while (end > 0 && TrimBlanks(project.lines[end - 1].bytes).empty()) --end;
  InsertLine(project, end, std::move(line));
  ReindexProject(project, codePage);
}

void SetItemName(ProjectFile& project, std::size_t item, std::u16string_view name,
                 const vb::CodePage& codePage) {
  const ProjectItem& target = RequireItem(project, item);
  if (target.kind != ItemKind::Module && target.kind != ItemKind::Class)
    throw InvalidCall(u"only Module and Class lines carry a name");
  if (name.empty() || name.find(u';') != std::u16string_view::npos)
    throw InvalidCall(Concat({u"not a module name: \"", name, u"\""}));
  std::string encoded = EncodeValue(name, codePage);
  std::string& bytes = project.lines[static_cast<std::size_t>(target.line)].bytes;
  std::size_t equals = bytes.find('=');
  std::size_t semicolon = bytes.find(';', equals);
  // ';' is below 0x40 and so never the trail byte of a double-byte character.
  if (semicolon == std::string::npos) {
    std::string path = bytes.substr(equals + 1);
    bytes = Concat({ItemKey(target.kind), "=", encoded, "; ", path});
  } else {
    bytes.replace(equals + 1, semicolon - equals - 1, encoded);
  }
  ReindexProject(project, codePage);
}

std::size_t AddItem(ProjectFile& project, ItemKind kind, std::u16string_view name,
                    std::u16string_view path, const vb::CodePage& codePage) {
  std::string line(ItemKey(kind));
  line += '=';
  if (kind == ItemKind::Module || kind == ItemKind::Class) {
    if (name.empty() || name.find(u';') != std::u16string_view::npos)
      throw InvalidCall(Concat({u"not a module name: \"", name, u"\""}));
    line += Concat({EncodeValue(name, codePage), "; ", EncodeValue(path, codePage)});
  } else if (kind == ItemKind::ResFile) {
    line += Concat({"\"", EncodeValue(path, codePage), "\""});
  } else {
    line += EncodeValue(path, codePage);
  }
  // The item block follows the Type line; a project without items gets its first one there.
  // ResFile32 is a setting below the block, so it does not mark the block's end.
  std::size_t at = std::min<std::size_t>(1, project.lines.size());
  for (const ProjectItem& item : project.items)
    if (item.kind != ItemKind::ResFile) at = static_cast<std::size_t>(item.line) + 1;
  InsertLine(project, at, std::move(line));
  ReindexProject(project, codePage);
  for (std::size_t i = 0; i < project.items.size(); ++i)
    if (project.items[i].line == static_cast<int>(at)) return i;
  return project.items.size() - 1;
}

void RemoveItem(ProjectFile& project, std::size_t item, const vb::CodePage& codePage) {
  auto line = static_cast<std::size_t>(RequireItem(project, item).line);
  Eol eol = project.lines[line].eol;
  project.lines.erase(project.lines.begin() + static_cast<std::ptrdiff_t>(line));
  if (eol == Eol::None && line == project.lines.size() && line > 0)
    project.lines.back().eol = Eol::None;
  ReindexProject(project, codePage);
}

}  // namespace host::files
