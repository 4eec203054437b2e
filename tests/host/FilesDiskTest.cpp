// Files on disk: resolving project paths ignoring case, and reading.
#include <gtest/gtest.h>

#include "FilesTestSupport.h"
#include "host/files/FileIo.h"
#include "host/files/PathResolver.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"
#include "support/VbErrorOf.h"

namespace host::files {
namespace {

using qmtest::TempFolder;
using testing::Cp1252;
using testing::Cp932;

struct ResolveCase {
  const char16_t* relative;
  const char* found;  // relative to the scratch folder; nullptr when nothing should be found
};

TEST(FilesResolvePath, MatchesEachSegmentIgnoringCaseAndFollowsDotDot) {
  TempFolder scratch;
  scratch.Write("Proj/Forms/FrmMain.frm", "f");
  scratch.Write("Proj/Modules/util.BAS", "m");
  scratch.Write("Shared/Common.bas", "c");
  scratch.Write("Proj/\xC3\x84rger.bas", "u");  // UTF-8 name, as a Linux checkout has it
  std::vector<ResolveCase> cases = {
      {u"Forms\\FrmMain.frm", "Proj/Forms/FrmMain.frm"},
      {u"forms\\frmmain.FRM", "Proj/Forms/FrmMain.frm"},
      {u"FORMS/FrmMain.frm", "Proj/Forms/FrmMain.frm"},
      {u".\\Modules\\UTIL.bas", "Proj/Modules/util.BAS"},
      {u"..\\shared\\COMMON.BAS", "Shared/Common.bas"},
      {u"Forms\\..\\..\\Shared\\common.bas", "Shared/Common.bas"},
      {u"\u00E4RGER.bas", "Proj/\xC3\x84rger.bas"},
      {u"Forms", "Proj/Forms"},
      {u"Forms\\Missing.frm", nullptr},
      {u"Nowhere\\FrmMain.frm", nullptr},
      {u"C:\\Proj\\Forms\\FrmMain.frm", nullptr},
      {u"\\\\server\\share\\x.bas", nullptr},
  };
  for (const ResolveCase& c : cases) {
    auto found = ResolvePath(scratch / "Proj", c.relative, Cp1252());
    std::string label = vb::ToUtf8(c.relative);
    if (!c.found) {
      EXPECT_FALSE(found) << label << " -> " << found->string();
      continue;
    }
    ASSERT_TRUE(found) << label;
    EXPECT_EQ(found->lexically_normal(), (scratch / c.found).lexically_normal()) << label;
  }
}

TEST(FilesResolvePath, DoubleByteNamesAreFoundAsRawBytesOrAsUtf8) {
  TempFolder scratch;
  std::string raw = "\x83t\x83H\x81[\x83\x80.frm";  // cp932, as unpacked from a Windows archive
  scratch.Write(raw, "r");
  scratch.Write("\xE6\x97\xA5\xE6\x9C\xAC.bas", "u");  // UTF-8
  auto rawFound = ResolvePath(scratch.Path(), u"\u30D5\u30A9\u30FC\u30E0.FRM", Cp932());
  ASSERT_TRUE(rawFound);
  EXPECT_EQ(rawFound->filename().native(), raw);
  auto utf8Found = ResolvePath(scratch.Path(), u"\u65E5\u672C.bas", Cp932());
  ASSERT_TRUE(utf8Found);
  EXPECT_EQ(utf8Found->filename().native(), "\xE6\x97\xA5\xE6\x9C\xAC.bas");
}

TEST(FilesReadBytes, ReadsEveryByteAndNamesMissingFiles) {
  TempFolder scratch;
  std::string bytes("a\0b\r\n\xFF", 6);
  scratch.Write("x.bin", bytes);
  EXPECT_EQ(ReadFileBytes(scratch / "x.bin"), bytes);
  vb::Error e = qmtest::ErrorOf([&] { ReadFileBytes(scratch / "gone.bas"); });
  EXPECT_EQ(e.Number(), 53);
  EXPECT_EQ(vb::ToUtf8(e.Description()), "File not found: " + (scratch / "gone.bas").string());
  EXPECT_EQ(qmtest::ErrorNumberOf([&] { ReadFileBytes(scratch.Path()); }), 75);
}

}  // namespace
}  // namespace host::files
