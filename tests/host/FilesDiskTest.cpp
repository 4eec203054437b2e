// Files on disk: resolving project paths ignoring case, reading, and atomic writing.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "FilesTestSupport.h"
#include "host/files/FileIo.h"
#include "host/files/PathResolver.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"

namespace host::files {
namespace {

using testing::Cp1252;
using testing::Cp932;
using testing::ScratchFolder;
using testing::WriteBytes;

struct ResolveCase {
  const char16_t* relative;
  const char* found;  // relative to the scratch folder; nullptr when nothing should be found
};

TEST(FilesResolvePath, MatchesEachSegmentIgnoringCaseAndFollowsDotDot) {
  ScratchFolder scratch;
  WriteBytes(scratch / "Proj/Forms/FrmMain.frm", "f");
  WriteBytes(scratch / "Proj/Modules/util.BAS", "m");
  WriteBytes(scratch / "Shared/Common.bas", "c");
  WriteBytes(scratch / "Proj/\xC3\x84rger.bas", "u");  // UTF-8 name, as a Linux checkout has it
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
  ScratchFolder scratch;
  std::string raw = "\x83t\x83H\x81[\x83\x80.frm";  // cp932, as unpacked from a Windows archive
  WriteBytes(scratch / raw, "r");
  WriteBytes(scratch / "\xE6\x97\xA5\xE6\x9C\xAC.bas", "u");  // UTF-8
  auto rawFound = ResolvePath(scratch.Path(), u"\u30D5\u30A9\u30FC\u30E0.FRM", Cp932());
  ASSERT_TRUE(rawFound);
  EXPECT_EQ(rawFound->filename().native(), raw);
  auto utf8Found = ResolvePath(scratch.Path(), u"\u65E5\u672C.bas", Cp932());
  ASSERT_TRUE(utf8Found);
  EXPECT_EQ(utf8Found->filename().native(), "\xE6\x97\xA5\xE6\x9C\xAC.bas");
}

TEST(FilesReadBytes, ReadsEveryByteAndNamesMissingFiles) {
  ScratchFolder scratch;
  std::string bytes("a\0b\r\n\xFF", 6);
  WriteBytes(scratch / "x.bin", bytes);
  EXPECT_EQ(ReadFileBytes(scratch / "x.bin"), bytes);
  try {
    ReadFileBytes(scratch / "gone.bas");
    ADD_FAILURE() << "no error";
  } catch (const vb::Error& e) {
    EXPECT_EQ(e.Number(), 53);
    EXPECT_EQ(vb::ToUtf8(e.Description()), "File not found: " + (scratch / "gone.bas").string());
  }
  try {
    ReadFileBytes(scratch.Path());
    ADD_FAILURE() << "no error";
  } catch (const vb::Error& e) {
    EXPECT_EQ(e.Number(), 75);
  }
}

std::vector<std::string> Entries(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

TEST(FilesAtomicWrite, ReplacesTheFileKeepingItsPermissionsAndLeavesNoTemporary) {
  ScratchFolder scratch;
  auto target = scratch / "Form1.frm";
  WriteFileAtomically(target, "first");
  EXPECT_EQ(ReadFileBytes(target), "first");
  ASSERT_EQ(::chmod(target.c_str(), 0640), 0);
  WriteFileAtomically(target, std::string("second\r\n\0", 9));
  EXPECT_EQ(ReadFileBytes(target), std::string("second\r\n\0", 9));
  struct stat info {};
  ASSERT_EQ(::stat(target.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
  EXPECT_EQ(Entries(scratch.Path()), (std::vector<std::string>{"Form1.frm"}));
}

TEST(FilesAtomicWrite, AFailedWriteRaisesWithThePathAndLeavesTheOldState) {
  ScratchFolder scratch;
  auto folderTarget = scratch / "Form1.frm";
  std::filesystem::create_directory(folderTarget);
  WriteBytes(folderTarget / "inside.txt", "kept");
  try {
    WriteFileAtomically(folderTarget, "new");
    ADD_FAILURE() << "no error";
  } catch (const vb::Error& e) {
    EXPECT_EQ(e.Number(), 75);
    EXPECT_NE(vb::ToUtf8(e.Description()).find(folderTarget.string()), std::string::npos);
  }
  EXPECT_EQ(ReadFileBytes(folderTarget / "inside.txt"), "kept");
  EXPECT_EQ(Entries(scratch.Path()), (std::vector<std::string>{"Form1.frm"}));

  auto noFolder = scratch / "missing/Form1.frm";
  try {
    WriteFileAtomically(noFolder, "new");
    ADD_FAILURE() << "no error";
  } catch (const vb::Error& e) {
    EXPECT_EQ(e.Number(), 75);
    EXPECT_NE(vb::ToUtf8(e.Description()).find(noFolder.string()), std::string::npos);
  }
}

TEST(FilesAtomicWrite, AReadOnlyFolderKeepsTheOldFile) {
  if (::geteuid() == 0) GTEST_SKIP() << "root may write into read-only folders";
  ScratchFolder scratch;
  auto target = scratch / "locked/Module1.bas";
  WriteBytes(target, "old");
  ASSERT_EQ(::chmod(target.parent_path().c_str(), 0555), 0);
  try {
    WriteFileAtomically(target, "new");
    ADD_FAILURE() << "no error";
  } catch (const vb::Error& e) {
    EXPECT_EQ(e.Number(), 70);
  }
  ::chmod(target.parent_path().c_str(), 0755);
  EXPECT_EQ(ReadFileBytes(target), "old");
}

}  // namespace
}  // namespace host::files
