// Replacing files on disk: what is left behind by every kind of failure, links, read-only files.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "runtime/AtomicWriter.h"
#include "runtime/Error.h"
#include "runtime/Utf.h"
#include "support/TempFolder.h"
#include "support/VbErrorOf.h"

namespace {

namespace fs = std::filesystem;
using qmtest::TempFolder;

std::vector<std::string> Entries(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  std::ranges::sort(names);
  return names;
}

using qmtest::ErrorOf;

TEST(AtomicWriter, ReplacesTheFileKeepingItsPermissionsAndLeavesNoTemporary) {
  TempFolder scratch;
  auto target = scratch.Path() / "Form1.frm";
  vb::AtomicWriter writer;
  writer.Write(target, "first");
  EXPECT_EQ(TempFolder::Read(target), "first");
  ASSERT_EQ(::chmod(target.c_str(), 0640), 0);
  writer.Write(target, std::string("second\r\n\0", 9));
  EXPECT_EQ(TempFolder::Read(target), std::string("second\r\n\0", 9));
  struct stat info {};
  ASSERT_EQ(::stat(target.c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0640u);
  EXPECT_EQ(Entries(scratch.Path()), (std::vector<std::string>{"Form1.frm"}));
}

TEST(AtomicWriter, AFolderInTheWayOrAMissingFolderRaisesWithThePath) {
  TempFolder scratch;
  auto folderTarget = scratch.Path() / "Form1.frm";
  fs::create_directory(folderTarget);
  scratch.Write("Form1.frm/inside.txt", "kept");
  for (const fs::path& target : {folderTarget, scratch.Path() / "missing/Form1.frm"}) {
    vb::Error e = ErrorOf([&] { vb::AtomicWriter().Write(target, "new"); });
    EXPECT_EQ(e.Number(), 75);
    EXPECT_NE(vb::ToUtf8(e.Description()).find(target.string() + " ("), std::string::npos);
  }
  EXPECT_EQ(TempFolder::Read(folderTarget / "inside.txt"), "kept");
  EXPECT_EQ(Entries(scratch.Path()), (std::vector<std::string>{"Form1.frm"}));
}

TEST(AtomicWriter, AReadOnlyFolderKeepsTheOldFile) {
  if (::geteuid() == 0) GTEST_SKIP() << "root may write into read-only folders";
  TempFolder scratch;
  auto target = scratch.Write("locked/Module1.bas", "old");
  ASSERT_EQ(::chmod(target.parent_path().c_str(), 0555), 0);
  EXPECT_EQ(ErrorOf([&] { vb::AtomicWriter().Write(target, "new"); }).Number(), 70);
  ::chmod(target.parent_path().c_str(), 0755);
  EXPECT_EQ(TempFolder::Read(target), "old");
}

// Judged by the permission bits, so that the owner (and root) are refused too.
TEST(AtomicWriter, AReadOnlyModuleFileIsNotRewritten) {
  TempFolder scratch;
  auto target = scratch.Write("Module1.bas", "old");
  ASSERT_EQ(::chmod(target.c_str(), 0444), 0);
  vb::Error e = ErrorOf([&] { vb::AtomicWriter().Write(target, "new"); });
  EXPECT_EQ(e.Number(), 75);
  EXPECT_EQ(vb::ToUtf8(e.Description()),
            "Path/File access error: " + target.string() + " (the file is read-only)");
  EXPECT_EQ(TempFolder::Read(target), "old");
  EXPECT_EQ(Entries(scratch.Path()), (std::vector<std::string>{"Module1.bas"}));
}

TEST(AtomicWriter, AModuleThatIsASymbolicLinkStaysALinkAndItsTargetGetsTheEdit) {
  TempFolder scratch;
  auto shared = scratch.Write("shared/Util.bas", "old");
  fs::create_directory(scratch.Path() / "a");
  fs::create_symlink("../shared/Util.bas", scratch.Path() / "a/Util.bas");
  fs::create_symlink(scratch.Path() / "a/Util.bas", scratch.Path() / "Util.bas");  // a chain
  vb::AtomicWriter().Write(scratch.Path() / "Util.bas", "new");
  EXPECT_TRUE(fs::is_symlink(scratch.Path() / "Util.bas"));
  EXPECT_TRUE(fs::is_symlink(scratch.Path() / "a/Util.bas"));
  EXPECT_EQ(TempFolder::Read(shared), "new");
  EXPECT_EQ(Entries(shared.parent_path()), (std::vector<std::string>{"Util.bas"}));
}

TEST(AtomicWriter, StaleTemporariesOfAKilledSaveAreRemovedOnTheNextSave) {
  TempFolder scratch;
  auto target = scratch.Write("frmMain.frm", "old");
  scratch.Write(".frmMain.frm.a1B2c3", "half");
  scratch.Write("frmMain.frm.tmp123456", "half");
  scratch.Write(".frmMain.frm.notours", "user's");  // not six characters: not our naming
  scratch.Write(".frmOther.frm.a1B2c3", "another file's");
  vb::AtomicWriter().Write(target, "new");
  EXPECT_EQ(
      Entries(scratch.Path()),
      (std::vector<std::string>{".frmMain.frm.notours", ".frmOther.frm.a1B2c3", "frmMain.frm"}));
}

struct FaultCase {
  const char* name;
  vb::WriteFault fault;
  int number;
};

class WriteFaults : public ::testing::TestWithParam<FaultCase> {};

TEST_P(WriteFaults, EveryFailingStepLeavesTheOriginalAndNoTemporaryAndNamesTheFile) {
  TempFolder scratch;
  const std::string original = "Attribute VB_Name = \"Module1\"\r\nDim x\r\n";
  auto target = scratch.Write("Module1.bas", original);
  vb::AtomicWriter writer;
  writer.InjectFault(GetParam().fault);
  vb::Error e = ErrorOf([&] { writer.Write(target, std::string(4096, 'x')); });
  EXPECT_EQ(e.Number(), GetParam().number);
  EXPECT_NE(vb::ToUtf8(e.Description()).find(target.string() + " ("), std::string::npos)
      << vb::ToUtf8(e.Description());
  EXPECT_EQ(TempFolder::Read(target), original);
  EXPECT_EQ(Entries(scratch.Path()), (std::vector<std::string>{"Module1.bas"}));
  writer.InjectFault(std::nullopt);
  writer.Write(target, "after");
  EXPECT_EQ(TempFolder::Read(target), "after");
}

INSTANTIATE_TEST_SUITE_P(
    Steps, WriteFaults,
    ::testing::Values(FaultCase{"Open", {vb::WriteStep::Open, 0, EACCES}, 70},
                      FaultCase{"WriteAtByte0", {vb::WriteStep::Write, 0, ENOSPC}, 75},
                      FaultCase{"WriteAtByte1000", {vb::WriteStep::Write, 1000, ENOSPC}, 75},
                      FaultCase{"Sync", {vb::WriteStep::Sync, 0, EIO}, 75},
                      FaultCase{"Close", {vb::WriteStep::Close, 0, EIO}, 75},
                      FaultCase{"Rename", {vb::WriteStep::Rename, 0, EXDEV}, 75}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
