// CodeSink: appends module body lines with CR LF and counts the ones the code window shows.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vbgen {

class CodeSink {
 public:
  explicit CodeSink(std::string& out) : out_(out) {}

  void Line(std::size_t indent, std::string_view text) {
    out_.append(indent, ' ');
    out_ += text;
    out_ += "\r\n";
    ++visible_;
  }
  void Blank() {
    out_ += "\r\n";
    ++visible_;
  }
  // Member attributes are hidden in the code window, so they are not counted.
  void Attribute(std::string_view member, std::string_view rest) {
    out_ += "Attribute ";
    out_ += member;
    out_ += '.';
    out_ += rest;
    out_ += "\r\n";
  }
  std::size_t Visible() const { return visible_; }

 private:
  std::string& out_;
  std::size_t visible_ = 0;
};

}  // namespace vbgen
