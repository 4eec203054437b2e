// Files on disk and in memory: replacing, Kill and the VB error numbers of their failures.
#include <gtest/gtest.h>

#include "runtime/AppInfo.h"
#include "runtime/Error.h"
#include "runtime/FileSystem.h"
#include "runtime/Utf.h"
#include "support/TempFolder.h"
#include "support/VbErrorOf.h"

namespace {

using qmtest::ErrorNumberOf;

class DiskFiles : public ::testing::Test {
 protected:
  std::u16string PathOf(const std::string& relative) const {
    return vb::FromUtf8((folder_.Path() / relative).string());
  }
  qmtest::TempFolder folder_;
  vb::DiskFileSystem files_;
};

TEST_F(DiskFiles, WriteReplacesTheWholeFile) {
  folder_.Write("qthtml.htm", "an older and longer content");
  files_.WriteFile(PathOf("qthtml.htm"), "<HTML> <\\HTML>\r\n");
  EXPECT_EQ(qmtest::TempFolder::Read(folder_.Path() / "qthtml.htm"), "<HTML> <\\HTML>\r\n");
  EXPECT_TRUE(files_.FileExists(PathOf("qthtml.htm")));
}

TEST_F(DiskFiles, KillRemovesTheFileAndAMissingOneIsFileNotFound) {
  folder_.Write("a.htm", "x");
  files_.Kill(PathOf("a.htm"));
  EXPECT_FALSE(files_.FileExists(PathOf("a.htm")));
  vb::Error e = qmtest::ErrorOf([&] { files_.Kill(PathOf("a.htm")); });
  EXPECT_EQ(e.Number(), 53);
  EXPECT_NE(e.Description().find(PathOf("a.htm")), std::u16string::npos);
}

TEST_F(DiskFiles, FailuresCarryVbNumbers) {
  folder_.Write("plain", "x");
  std::filesystem::create_directories(folder_.Path() / "folder");
  EXPECT_EQ(ErrorNumberOf([&] { files_.WriteFile(PathOf("missing/a.htm"), "x"); }), 76);
  EXPECT_EQ(ErrorNumberOf([&] { files_.WriteFile(PathOf("plain/a.htm"), "x"); }), 76);
  EXPECT_EQ(ErrorNumberOf([&] { files_.WriteFile(PathOf("folder"), "x"); }), 75);
  EXPECT_EQ(ErrorNumberOf([&] { files_.Kill(PathOf("folder")); }), 75);
  EXPECT_FALSE(files_.FileExists(PathOf("folder")));
}

TEST(MemoryFiles, BehaveLikeTheDiskForTheAddInsOperations) {
  vb::MemoryFileSystem files;
  files.unwritableFolders.insert(u"/locked");
  files.WriteFile(u"/addin/qthtml.htm", "old");
  files.WriteFile(u"/addin/qthtml.htm", "new");
  EXPECT_EQ(files.files.at(u"/addin/qthtml.htm"), "new");
  EXPECT_EQ(ErrorNumberOf([&] { files.WriteFile(u"/locked/qthtml.htm", "x"); }), 70);
  files.Kill(u"/addin/qthtml.htm");
  EXPECT_FALSE(files.FileExists(u"/addin/qthtml.htm"));
  EXPECT_EQ(ErrorNumberOf([&] { files.Kill(u"/addin/qthtml.htm"); }), 53);
}

TEST(AppInfo, TheRunningProgramsFolderHoldsThisTestProgram) {
  auto folder = vb::AppInfo::RunningProgramFolder("ignored");
  EXPECT_TRUE(std::filesystem::is_directory(folder));
  EXPECT_TRUE(std::filesystem::exists(folder / "runtime_tests"));
}

}  // namespace
