// host::files header edits.
#include "host/files/HeaderEdits.h"

#include <algorithm>

#include "host/files/Concat.h"
#include "host/files/ModuleLines.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"

namespace host::files {
namespace {

vb::Error InvalidCall(std::u16string_view detail) {
  return vb::Error::Standard(vb::err::kInvalidProcedureCall, detail);
}

// The bytes of a name that can stand in a Begin line or a quoted attribute and be read back.
std::string EncodeName(std::u16string_view name, const vb::CodePage& codePage) {
  bool unusable = name.empty() || std::any_of(name.begin(), name.end(), [](char16_t c) {
                    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n' || c == u'"';
                  });
  if (unusable) throw InvalidCall(Concat({u"not a name: \"", name, u"\""}));
  std::string bytes;
  std::size_t unmappable = 0;
  codePage.Encode(name, bytes, &unmappable);
  if (unmappable > 0)
    throw InvalidCall(Concat({u"\"", name, u"\" cannot be written in this code page"}));
  return bytes;
}

// Replaces the name word of "Begin <class> <name>" in place, keeping indentation and the
// trailing blank. Scanning bytes is safe in double-byte pages: blanks are never trail bytes.
void ReplaceBeginName(std::string& line, std::string_view name) {
  std::size_t p = 0;
  auto skipBlanks = [&] {
    while (p < line.size() && IsBlank(line[p])) ++p;
  };
  auto skipWord = [&] {
    while (p < line.size() && !IsBlank(line[p])) ++p;
  };
  skipBlanks();
  skipWord();  // Begin
  skipBlanks();
  skipWord();  // class
  bool glued = p == line.size();
  skipBlanks();
  std::size_t start = p;
  skipWord();
  line.replace(start, p - start, glued ? Concat({" ", name}) : std::string(name));
}

struct Found {
  DesignerControl* control = nullptr;
  DesignerControl* parent = nullptr;
};

// Descends only into the block that spans the line, without recursion (nesting is unbounded).
Found FindControl(DesignerControl& root, int beginLine) {
  DesignerControl* parent = &root;
  while (parent) {
    DesignerControl* inside = nullptr;
    for (DesignerControl& child : parent->children) {
      if (child.beginLine == beginLine) return {&child, parent};
      if (child.beginLine < beginLine && beginLine < child.endLine) {
        inside = &child;
        break;
      }
    }
    parent = inside;
  }
  return {};
}

Found RequireControl(ModuleFile& module, int beginLine) {
  Found found;
  if (module.designer) found = FindControl(*module.designer, beginLine);
  if (!found.control)
    throw InvalidCall(
        Concat({u"no control begins on header line ", vb::FromUtf8(std::to_string(beginLine))}));
  return found;
}

void RenameNameAttribute(ModuleFile& module, std::string_view name) {
  auto begin = module.header.begin() + static_cast<std::ptrdiff_t>(module.attributesStart);
  auto line = std::find_if(begin, module.header.end(),
                           [](const RawLine& l) { return IsNameAttribute(l.bytes); });
  std::string fresh = Concat({"Attribute VB_Name = \"", name, "\""});
  if (line == module.header.end()) {
    module.header.insert(begin, RawLine{fresh, Eol::CrLf});
    return;
  }
  QuotedSpan quoted = FindQuoted(line->bytes);
  if (!quoted.Found()) {
    line->bytes = fresh;
    return;
  }
  line->bytes.replace(quoted.open + 1, quoted.close - quoted.open - 1, name);
}

}  // namespace

void RenameComponent(ModuleFile& module, std::u16string_view newName,
                     const vb::CodePage& codePage) {
  std::string name = EncodeName(newName, codePage);
  RenameNameAttribute(module, name);
  if (module.designer) ReplaceBeginName(module.header[module.designer->beginLine].bytes, name);
  module.name = newName;
  ParseDesigner(module, codePage);
}

void RenameControl(ModuleFile& module, int beginLine, std::u16string_view newName,
                   const vb::CodePage& codePage) {
  Found found = RequireControl(module, beginLine);
  std::string name = EncodeName(newName, codePage);
  ReplaceBeginName(module.header[found.control->beginLine].bytes, name);
  ParseDesigner(module, codePage);
}

void RemoveControl(ModuleFile& module, int beginLine, const vb::CodePage& codePage) {
  Found found = RequireControl(module, beginLine);
  auto first = module.header.begin() + found.control->beginLine;
  auto last = module.header.begin() + found.control->endLine + 1;
  module.attributesStart -= static_cast<std::size_t>(last - first);
  module.header.erase(first, last);
  ParseDesigner(module, codePage);
}

int AddControl(ModuleFile& module, std::u16string_view className, std::u16string_view name,
               const vb::CodePage& codePage) {
  if (!module.designer) throw InvalidCall(u"the module has no designer");
  std::string bytes = EncodeName(name, codePage);
  std::string type = EncodeName(className, codePage);
  const DesignerControl& root = *module.designer;
  auto menu = std::find_if(root.children.begin(), root.children.end(),
                           [](const DesignerControl& c) { return c.IsMenu(); });
  int at = menu == root.children.end() ? root.endLine : menu->beginLine;
  int tabIndex = static_cast<int>(menu - root.children.begin());
  // Windowless controls have no tab stop.
  bool tabStop = !(className == u"VB.Timer" || className == u"VB.Line" ||
                   className == u"VB.Shape" || className == u"VB.Image");
  std::vector<RawLine> block{{Concat({"   Begin ", type, " ", bytes, " "}), Eol::CrLf},
                             {"      Height          =   495", Eol::CrLf},
                             {"      Left            =   120", Eol::CrLf}};
  if (tabStop)
    block.push_back({Concat({"      TabIndex        =   ", std::to_string(tabIndex)}), Eol::CrLf});
  block.push_back({"      Top             =   120", Eol::CrLf});
  block.push_back({"      Width           =   1215", Eol::CrLf});
  block.push_back({"   End", Eol::CrLf});
  module.header.insert(module.header.begin() + at, block.begin(), block.end());
  module.attributesStart += block.size();
  ParseDesigner(module, codePage);
  return at;
}

void BringControlToFront(ModuleFile& module, int beginLine, const vb::CodePage& codePage) {
  Found found = RequireControl(module, beginLine);
  if (found.control->IsMenu()) return;
  const std::vector<DesignerControl>& siblings = found.parent->children;
  auto top = std::find_if(siblings.rbegin(), siblings.rend(),
                          [](const DesignerControl& c) { return !c.IsMenu(); });
  if (&*top == found.control) return;
  auto lines = module.header.begin();
  std::rotate(lines + found.control->beginLine, lines + found.control->endLine + 1,
              lines + top->endLine + 1);
  ParseDesigner(module, codePage);
}

}  // namespace host::files
