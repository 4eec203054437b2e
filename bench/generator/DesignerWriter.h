// DesignerWriter: writes a designer block (Begin ... End) the way the VB6 IDE formats it.
#pragma once

#include <string>
#include <string_view>

namespace vbgen {

// Appends lines with CR LF to a caller-owned buffer. Indentation is three spaces per open
// Begin/BeginProperty; property names are padded to 16 characters, then "=   value".
class DesignerWriter {
 public:
  explicit DesignerWriter(std::string& out) : out_(out) {}

  void Raw(std::string_view line);
  // "Begin VB.Form frmMain " - the trailing blank is what the IDE writes.
  void Begin(std::string_view className, std::string_view name);
  void End();
  void BeginProperty(std::string_view name, std::string_view guid = {});
  void EndProperty();

  void Prop(std::string_view name, std::string_view value);
  void Prop(std::string_view name, long value);
  void Text(std::string_view name, std::string_view text);  // quoted
  void Bool(std::string_view name, bool value);             // -1  'True / 0   'False
  void Enum(std::string_view name, int value, std::string_view label);

  int Depth() const { return depth_; }

 private:
  void Indent();
  std::string& out_;
  int depth_ = 0;
};

}  // namespace vbgen
