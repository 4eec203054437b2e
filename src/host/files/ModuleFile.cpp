// host::files::ModuleFile: reading a module file into header and code, and writing it back.
#include "host/files/ModuleFile.h"

#include <algorithm>

#include "host/files/AsciiText.h"
#include "host/files/LineScanner.h"
#include "host/files/ModuleLines.h"
#include "runtime/CaseFold.h"

namespace host::files {
namespace {

// Reads the file line by line, moving the hidden lines into the header and the rest into code.
class ModuleReader {
 public:
  ModuleReader(std::string_view bytes, const vb::CodePage& codePage, const std::string& file,
               Problems& problems)
      : bytes_(bytes), scanner_(bytes), codePage_(codePage), file_(file), problems_(problems) {
    have_ = scanner_.Next(line_);
  }

  void Read(ModuleFile& module) {
    if (module.kind != ModuleKind::Standard) ReadHeaderBlock(module);
    ReadModuleAttributes(module);
    ReadBody(module);
  }

 private:
  void Take(ModuleFile& module) {
    module.header.push_back({std::string(line_.bytes), line_.eol});
    have_ = scanner_.Next(line_);
    ++lineNumber_;
  }

  void Report(int line, std::string message) {
    problems_.push_back({file_, line, std::move(message), false});
  }

  void ReadHeaderBlock(ModuleFile& module) {
    if (have_ && StartsWithWord(line_.bytes, "VERSION")) {
      Take(module);
      if (!have_) {
        Report(1, "the file ends after its VERSION line: no header block, no VB_Name");
        truncated_ = true;
      }
    }
    while (have_ && IsObjectLine(line_.bytes)) Take(module);
    if (!have_ || !StartsWithWord(TrimBlanks(line_.bytes), "Begin")) return;
    std::vector<int> open;  // 1-based lines of the blocks not closed yet
    do {
      std::string_view trimmed = TrimBlanks(line_.bytes);
      if (IsBlockOpen(trimmed))
        open.push_back(lineNumber_);
      else if (IsBlockClose(trimmed))
        open.pop_back();
      Take(module);
    } while (have_ && !open.empty());
    // Everything after the unclosed block is in the header now: kept raw, written back as read.
    if (open.empty()) return;
    Report(open.back(), "\"Begin\" without \"End\": the header block runs to the end of the file");
    truncated_ = true;
  }

  void ReadModuleAttributes(ModuleFile& module) {
    module.attributesStart = module.header.size();
    int firstLine = lineNumber_;
    bool named = false;
    while (have_ && IsAttributeLine(line_.bytes)) {
      if (!named && IsNameAttribute(line_.bytes)) {
        codePage_.Decode(AttributeValue(line_.bytes), module.name);
        named = true;
      }
      Take(module);
    }
    // A truncated header has already been reported; its missing name is part of that problem.
    if (named || truncated_) return;
    bool empty = bytes_.empty();
    Report(empty ? 0 : firstLine, empty ? "the file is empty: no Attribute VB_Name line"
                                        : "no Attribute VB_Name line: the module has no name");
  }

  void ReadBody(ModuleFile& module) {
    if (!have_) return;
    std::string_view rest =
        bytes_.substr(static_cast<std::size_t>(line_.bytes.data() - bytes_.data()));
    module.code.Reserve(static_cast<std::size_t>(std::count(rest.begin(), rest.end(), '\n')) + 1,
                        rest.size());
    std::u16string text;
    for (; have_; have_ = scanner_.Next(line_)) {
      if (module.code.Count() > 0 && IsMemberAttributeLine(line_.bytes)) {
        module.code.AttachAttribute({std::string(line_.bytes), line_.eol});
        continue;
      }
      text.clear();
      codePage_.Decode(line_.bytes, text);
      module.code.Append(text, line_.eol);
    }
  }

  std::string_view bytes_;
  LineScanner scanner_;
  LineView line_;
  bool have_ = false;
  int lineNumber_ = 1;  // of line_
  bool truncated_ = false;
  const vb::CodePage& codePage_;
  const std::string& file_;
  Problems& problems_;
};

// The project file says "Form" for both kinds of form; the root block tells them apart.
void RefineFormKind(ModuleFile& module) {
  if (!module.designer) return;
  const std::u16string& cls = module.designer->className;
  if (module.kind == ModuleKind::Form && vb::EqualsText(cls, u"VB.MDIForm"))
    module.kind = ModuleKind::MdiForm;
  else if (module.kind == ModuleKind::MdiForm && vb::EqualsText(cls, u"VB.Form"))
    module.kind = ModuleKind::Form;
}

}  // namespace

bool HasDesigner(ModuleKind kind) {
  return kind != ModuleKind::Standard && kind != ModuleKind::Class;
}

bool DesignerControl::IsMenu() const {
  return vb::EqualsText(className, u"VB.Menu");
}

namespace {
// Destroys a tree of controls level by level, so that no destructor recurses into its children.
void DismantleChildren(std::vector<DesignerControl>& children) {
  std::vector<DesignerControl> pending = std::move(children);
  children.clear();
  while (!pending.empty()) {
    DesignerControl last = std::move(pending.back());
    pending.pop_back();
    for (DesignerControl& child : last.children) pending.push_back(std::move(child));
    last.children.clear();  // now only childless shells
  }
}
}  // namespace

DesignerControl& DesignerControl::operator=(DesignerControl&& other) noexcept {
  if (this == &other) return *this;
  DismantleChildren(children);
  className = std::move(other.className);
  name = std::move(other.name);
  index = other.index;
  properties = std::move(other.properties);
  children = std::move(other.children);
  beginLine = other.beginLine;
  endLine = other.endLine;
  return *this;
}

DesignerControl::~DesignerControl() {
  DismantleChildren(children);
}

ModuleFile ReadModule(std::string_view bytes, ModuleKind kind, const vb::CodePage& codePage,
                      const std::string& fileForProblems, Problems& problems) {
  ModuleFile module;
  module.kind = kind;
  ModuleReader(bytes, codePage, fileForProblems, problems).Read(module);
  ParseDesigner(module, codePage);
  RefineFormKind(module);
  return module;
}

std::string WriteModule(const ModuleFile& module, const vb::CodePage& codePage,
                        std::size_t* unmappable) {
  const CodeLines& code = module.code;
  int count = code.Count();
  std::size_t size = 0;
  for (const RawLine& line : module.header) size += line.bytes.size() + 2;
  for (int i = 1; i <= count; ++i) size += code.Line(i).size() + 2;
  std::string out;
  out.reserve(size + size / 8);
  AppendRawLines(module.header, out, count > 0);
  for (int i = 1; i <= count; ++i) {
    codePage.Encode(code.Line(i), out, unmappable);
    const std::vector<RawLine>& attributes = code.Attributes(i);
    bool last = i == count && attributes.empty();
    Eol eol = code.Terminator(i);
    out += EolBytes(eol == Eol::None && !last ? Eol::CrLf : eol);
    AppendRawLines(attributes, out, i < count);
  }
  return out;
}

}  // namespace host::files
