// Splitting file bytes into lines: every terminator form, kept per line, and nothing lost.
#include <gtest/gtest.h>

#include "host/files/LineScanner.h"

namespace host::files {
namespace {

struct SplitCase {
  std::string_view bytes;
  std::vector<RawLine> lines;
};

TEST(FilesLineScanner, SplitsAtEveryTerminatorFormAndJoinsBackToTheSameBytes) {
  std::vector<SplitCase> cases = {
      {"", {}},
      {"a", {{"a", Eol::None}}},
      {"a\r\n", {{"a", Eol::CrLf}}},
      {"\r\n", {{"", Eol::CrLf}}},
      {"a\r\n\r\n\r\n", {{"a", Eol::CrLf}, {"", Eol::CrLf}, {"", Eol::CrLf}}},
      {"a\rb\nc\r\nd", {{"a", Eol::Cr}, {"b", Eol::Lf}, {"c", Eol::CrLf}, {"d", Eol::None}}},
      {"\r\r\n", {{"", Eol::Cr}, {"", Eol::CrLf}}},
      {"\n\r", {{"", Eol::Lf}, {"", Eol::Cr}}},  // LF CR is two line ends, not one
      {"x\r", {{"x", Eol::Cr}}},
      {"\x81\x5C\r\n\x95\x7E", {{"\x81\x5C", Eol::CrLf}, {"\x95\x7E", Eol::None}}},
  };
  for (const SplitCase& c : cases) {
    std::vector<RawLine> lines = SplitRawLines(c.bytes);
    EXPECT_EQ(lines, c.lines) << "case \"" << c.bytes << "\"";
    std::string joined;
    AppendRawLines(lines, joined, false);
    EXPECT_EQ(joined, c.bytes);
  }
}

TEST(FilesLineScanner, ALineLeftWithoutTerminatorInsideGetsCrLfSoLinesNeverMerge) {
  std::vector<RawLine> lines = {{"a", Eol::None}, {"b", Eol::Lf}, {"c", Eol::None}};
  std::string joined;
  AppendRawLines(lines, joined, false);
  EXPECT_EQ(joined, "a\r\nb\nc");
  joined.clear();
  AppendRawLines(lines, joined, true);  // more lines follow the block
  EXPECT_EQ(joined, "a\r\nb\nc\r\n");
}

TEST(FilesLineScanner, ALongCrOnlyFileSplitsIntoAllItsLines) {
  std::string bytes;
  for (int i = 0; i < 20000; ++i) bytes += "Line\r";
  EXPECT_EQ(SplitRawLines(bytes).size(), 20000u);
}

}  // namespace
}  // namespace host::files
