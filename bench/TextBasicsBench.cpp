// Measures the text basics on project-sized input: decoding and encoding 50 MB per code page, and
// a case-insensitive InStr over a million lines. Prints figures; asserts nothing.
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "runtime/CaseFold.h"
#include "runtime/CodePage.h"
#include "runtime/VbStrings.h"

namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// About `size` bytes of VB source lines, with `special` (a page's non-ASCII text) in a comment on
// every fourth line, as in a Western or Japanese project.
std::string MakeSource(std::size_t size, const std::string& special) {
  const std::string lines[] = {
      "Private Sub cmdOK_Click()\r\n",
      "    Dim nIndex As Long, sName As String\r\n",
      "    sName = txtName.Text & \" \" & CStr(nIndex)\r\n",
      "    ' " + special + " \r\n",
  };
  std::string source;
  source.reserve(size + 128);
  for (std::size_t n = 0; source.size() < size; ++n) source += lines[n % 4];
  return source;
}

void MeasurePage(int number, const std::string& special) {
  const vb::CodePage& page = *vb::CodePage::Find(number);
  const std::string bytes = MakeSource(50u << 20, special);
  const double megabytes = static_cast<double>(bytes.size()) / (1 << 20);

  Clock::time_point start = Clock::now();
  std::u16string text;
  page.Decode(bytes, text);
  const double decodeMs = MillisecondsSince(start);

  start = Clock::now();
  std::string back;
  std::size_t unmappable = 0;
  page.Encode(text, back, &unmappable);
  const double encodeMs = MillisecondsSince(start);

  std::printf("cp%-5d %6.1f MB  decode %7.1f ms (%6.0f MB/s)  encode %7.1f ms (%6.0f MB/s)%s\n",
              number, megabytes, decodeMs, megabytes / decodeMs * 1000, encodeMs,
              megabytes / encodeMs * 1000, back == bytes ? "" : "  ROUND TRIP DIFFERS");
}

void MeasureInStr() {
  const std::string source = MakeSource(60u << 20, "caf\xE9 na\xEFve");
  const std::u16string text = vb::CodePage::Windows1252().Decode(source);
  std::vector<std::u16string_view> lines;
  for (std::size_t at = 0; at < text.size() && lines.size() < 1000000;) {
    const std::size_t end = text.find(u'\n', at);
    lines.push_back(std::u16string_view(text).substr(at, end - at));
    at = end + 1;
  }

  Clock::time_point start = Clock::now();
  std::size_t hits = 0;
  for (std::u16string_view line : lines) {
    hits += vb::InStr(1, line, u"TXTNAME", vb::CompareMethod::Text) != 0;
  }
  const double textMs = MillisecondsSince(start);

  const std::u16string folded = vb::FoldCase(u"TXTNAME");
  start = Clock::now();
  std::size_t foldedHits = 0;
  for (std::u16string_view line : lines) foldedHits += vb::InStrFolded(1, line, folded) != 0;
  const double foldedMs = MillisecondsSince(start);

  start = Clock::now();
  std::size_t binaryHits = 0;
  for (std::u16string_view line : lines) binaryHits += vb::InStr(1, line, u"txtName") != 0;
  const double binaryMs = MillisecondsSince(start);

  std::printf(
      "InStr over %zu lines: text %.1f ms (%zu hits), folded needle %.1f ms (%zu hits), "
      "binary %.1f ms (%zu hits)\n",
      lines.size(), textMs, hits, foldedMs, foldedHits, binaryMs, binaryHits);
}

}  // namespace

int main() {
  MeasurePage(1252, "Caf\xE9 cr\xE8me br\xFBl\xE9\x65 \x80 5");
  MeasurePage(1253, "\xC1\xE8\xDE\xED\xE1");
  MeasurePage(932, "\x93\xFA\x96\x7B\x8C\xEA\x82\xCC\x83\x52\x83\x81\x83\x93\x83\x67");
  MeasurePage(936, "\xC4\xE3\xBA\xC3\xCA\xC0\xBD\xE7");
  MeasurePage(65001, "caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC");
  MeasureInStr();
  return 0;
}
