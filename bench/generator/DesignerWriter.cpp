// DesignerWriter: indentation, padding and value forms of designer blocks.
#include "DesignerWriter.h"

namespace vbgen {

void DesignerWriter::Raw(std::string_view line) {
  out_ += line;
  out_ += "\r\n";
}

void DesignerWriter::Indent() {
  out_.append(static_cast<std::size_t>(depth_) * 3, ' ');
}

void DesignerWriter::Begin(std::string_view className, std::string_view name) {
  Indent();
  out_ += "Begin ";
  out_ += className;
  out_ += ' ';
  out_ += name;
  out_ += " \r\n";
  ++depth_;
}

void DesignerWriter::End() {
  --depth_;
  Indent();
  out_ += "End\r\n";
}

void DesignerWriter::BeginProperty(std::string_view name, std::string_view guid) {
  Indent();
  out_ += "BeginProperty ";
  out_ += name;
  if (!guid.empty()) {
    out_ += ' ';
    out_ += guid;
  }
  out_ += " \r\n";
  ++depth_;
}

void DesignerWriter::EndProperty() {
  --depth_;
  Indent();
  out_ += "EndProperty\r\n";
}

void DesignerWriter::Prop(std::string_view name, std::string_view value) {
  Indent();
  // "Object." belongs to OCX property names and stands outside the padded field.
  std::string_view padded = name;
  if (name.starts_with("Object.")) {
    out_ += "Object.";
    padded = name.substr(7);
  }
  out_ += padded;
  if (padded.size() < 16) out_.append(16 - padded.size(), ' ');
  out_ += "=   ";
  out_ += value;
  out_ += "\r\n";
}

void DesignerWriter::Prop(std::string_view name, long value) {
  Prop(name, std::string_view(std::to_string(value)));
}

void DesignerWriter::Text(std::string_view name, std::string_view text) {
  std::string quoted = "\"";
  quoted += text;
  quoted += '"';
  Prop(name, std::string_view(quoted));
}

void DesignerWriter::Bool(std::string_view name, bool value) {
  Prop(name, value ? std::string_view("-1  'True") : std::string_view("0   'False"));
}

void DesignerWriter::Enum(std::string_view name, int value, std::string_view label) {
  std::string text = std::to_string(value);
  text += "  '";
  text += label;
  Prop(name, std::string_view(text));
}

}  // namespace vbgen
