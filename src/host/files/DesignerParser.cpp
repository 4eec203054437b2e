// host::files::ParseDesigner: the control tree of a designer header, read from its raw lines.
#include <algorithm>

#include "host/files/AsciiText.h"
#include "host/files/ModuleFile.h"

namespace host::files {
namespace {

// Splits off the first blank-separated word of `text`, leaving the rest trimmed in `text`.
std::u16string_view NextWord(std::u16string_view& text) {
  text = TrimBlanks(text);
  std::size_t end = 0;
  while (end < text.size() && !IsBlank(text[end])) ++end;
  std::u16string_view word = text.substr(0, end);
  text = TrimBlanks(text.substr(end));
  return word;
}

// Index values are small integers; anything else leaves the control outside an array.
int ParseIndex(std::u16string_view value) {
  bool negative = !value.empty() && value.front() == u'-';
  if (negative) value.remove_prefix(1);
  if (value.empty() || value.front() < u'0' || value.front() > u'9') return -1;
  long number = 0;
  for (char16_t c : value) {
    if (c < u'0' || c > u'9' || number > 1000000) break;
    number = number * 10 + (c - u'0');
  }
  return static_cast<int>(negative ? -number : number);
}

// Walks the header from the root Begin line with an explicit stack, so a deeply nested (or
// hostile) file cannot exhaust the call stack.
class DesignerParser {
 public:
  DesignerParser(const std::vector<RawLine>& header, const vb::CodePage& codePage)
      : header_(header), codePage_(codePage) {}

  std::optional<DesignerControl> Parse() {
    int count = static_cast<int>(header_.size());
    int line = FindRoot();
    if (line < 0) return std::nullopt;
    for (; line < count; ++line) {
      std::string_view trimmed = TrimBlanks(header_[line].bytes);
      if (StartsWithWord(trimmed, "Begin")) {
        open_.push_back(Open(trimmed, line));
      } else if (EqualsAsciiNoCase(trimmed, "End")) {
        if (Close(line)) return std::move(root_);
      } else if (StartsWithWord(trimmed, "BeginProperty")) {
        line = AddPropertyBlock(trimmed, line);
      } else {
        AddProperty(trimmed);
      }
    }
    // Cut off by the end of the header: every open block ends at its last line.
    while (!open_.empty())
      if (Close(count - 1)) break;
    return std::move(root_);
  }

 private:
  int FindRoot() const {
    for (std::size_t i = 0; i < header_.size(); ++i)
      if (StartsWithWord(TrimBlanks(header_[i].bytes), "Begin")) return static_cast<int>(i);
    return -1;
  }

  std::u16string Decode(std::string_view bytes) const {
    std::u16string text;
    codePage_.Decode(bytes, text);
    return text;
  }

  DesignerControl Open(std::string_view trimmed, int line) const {
    std::u16string text = Decode(trimmed);
    std::u16string_view rest = text;
    NextWord(rest);  // Begin
    DesignerControl control;
    control.className = NextWord(rest);
    control.name = NextWord(rest);
    control.beginLine = control.endLine = line;
    return control;
  }

  // Closes the innermost open block; true when that was the root.
  bool Close(int line) {
    DesignerControl control = std::move(open_.back());
    open_.pop_back();
    control.endLine = line;
    std::stable_partition(control.children.begin(), control.children.end(),
                          [](const DesignerControl& c) { return !c.IsMenu(); });
    if (open_.empty()) {
      root_ = std::move(control);
      return true;
    }
    open_.back().children.push_back(std::move(control));
    return false;
  }

  // One entry for the whole BeginProperty ... EndProperty block; returns its last line.
  int AddPropertyBlock(std::string_view trimmed, int line) {
    std::u16string text = Decode(trimmed);
    std::u16string_view rest = text;
    NextWord(rest);  // BeginProperty
    std::u16string_view name = NextWord(rest);
    if (!open_.empty()) open_.back().properties.emplace_back(name, rest);
    int depth = 1;
    int count = static_cast<int>(header_.size());
    while (depth > 0 && line + 1 < count) {
      std::string_view inner = TrimBlanks(header_[++line].bytes);
      if (StartsWithWord(inner, "BeginProperty"))
        ++depth;
      else if (EqualsAsciiNoCase(inner, "EndProperty"))
        --depth;
    }
    return line;
  }

  void AddProperty(std::string_view trimmed) {
    std::size_t equals = trimmed.find('=');
    if (equals == std::string_view::npos || open_.empty()) return;
    std::u16string name(TrimBlanks(Decode(trimmed.substr(0, equals))));
    std::u16string value(TrimBlanks(Decode(trimmed.substr(equals + 1))));
    DesignerControl& control = open_.back();
    if (EqualsAsciiNoCase(TrimBlanks(trimmed.substr(0, equals)), "Index"))
      control.index = ParseIndex(value);
    control.properties.emplace_back(std::move(name), std::move(value));
  }

  const std::vector<RawLine>& header_;
  const vb::CodePage& codePage_;
  std::vector<DesignerControl> open_;
  std::optional<DesignerControl> root_;
};

}  // namespace

void ParseDesigner(ModuleFile& module, const vb::CodePage& codePage) {
  module.designer.reset();
  if (!HasDesigner(module.kind)) return;
  module.designer = DesignerParser(module.header, codePage).Parse();
}

}  // namespace host::files
