// Measures the code index on a large generated module: build, members, and lookups by line and
// by name. Prints figures; asserts nothing.
#include <chrono>
#include <cstdio>
#include <string>

#include "host/CodeIndex.h"
#include "host/files/CodeLines.h"

namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// A module in the shape of real ones: declarations, then procedures with continued headers,
// comments, strings and properties, until it has at least `lineCount` lines.
host::files::CodeLines MakeModule(int lineCount) {
  host::files::CodeLines lines;
  auto add = [&lines](const std::u16string& text) { lines.Append(text, host::files::Eol::CrLf); };
  add(u"Option Explicit");
  add(u"Private Declare Function GetTickCount Lib \"kernel32\" () As Long");
  add(u"Private Const MAX_ITEMS As Long = 100, MIN_ITEMS As Long = 1");
  add(u"Private mCount As Long, mName As String");
  add(u"");
  for (int n = 0; lines.Count() < lineCount; ++n) {
    const std::u16string id = std::u16string(u"P") + static_cast<char16_t>(u'A' + n % 26) +
                              static_cast<char16_t>(u'A' + n / 26 % 26) +
                              static_cast<char16_t>(u'A' + n / 676 % 26);
    add(u"' " + id + u": does something useful. End Sub in a comment.");
    if (n % 5 == 0) {
      add(u"Public Property Get " + id + u"() As Long");
      add(u"  " + id + u" = mCount");
      add(u"End Property");
      add(u"");
      add(u"Public Property Let " + id + u"(ByVal v As Long)");
      add(u"  mCount = v");
      add(u"End Property");
    } else {
      add(u"Private Function " + id + u"( _");
      add(u"    ByVal a As Long, _");
      add(u"    ByVal b As String) As Long");
      add(u"  Dim i As Long, s As String");
      add(u"  s = \"End Function: \"\"quoted\"\"\" ' trailing comment");
      add(u"  For i = 1 To a: s = s & b: Next i");
      add(u"  If a < 0 Then Exit Function");
      add(u"  " + id + u" = Len(s)");
      add(u"End Function");
    }
    add(u"");
  }
  return lines;
}

}  // namespace

int main() {
  const int lineCount = 50000;
  const host::files::CodeLines lines = MakeModule(lineCount);
  const int rounds = 20;

  auto start = Clock::now();
  host::CodeIndex index = host::CodeIndex::Build(lines);
  for (int i = 1; i < rounds; ++i) index = host::CodeIndex::Build(lines);
  const double buildMs = MillisecondsSince(start) / rounds;

  start = Clock::now();
  std::size_t members = 0;
  for (int i = 0; i < rounds; ++i) members = host::BuildMembers(lines, index).size();
  const double membersMs = MillisecondsSince(start) / rounds;

  start = Clock::now();
  long found = 0;
  for (int line = 1; line <= lines.Count(); ++line) found += index.ProcOfLine(line) != nullptr;
  const double perLineNs = MillisecondsSince(start) * 1e6 / lines.Count();

  start = Clock::now();
  for (const host::ProcRegion& proc : index.Procedures()) {
    found += index.Find(proc.name, proc.kind) != nullptr;
  }
  const double perFindNs = MillisecondsSince(start) * 1e6 / index.Procedures().size();

  std::printf("module: %d lines, %zu procedures, %zu members, %d declaration lines\n",
              lines.Count(), index.Procedures().size(), members, index.CountOfDeclarationLines());
  std::printf("CodeIndex::Build   %8.3f ms\n", buildMs);
  std::printf("BuildMembers       %8.3f ms\n", membersMs);
  std::printf("ProcOfLine         %8.1f ns per query\n", perLineNs);
  std::printf("Find               %8.1f ns per query  (%ld answers)\n", perFindNs, found);
  return 0;
}
