// The settings store: the behaviour both stores share, and the file-backed store's files.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "runtime/Error.h"
#include "runtime/IniSettingsStore.h"
#include "runtime/SettingsIni.h"
#include "runtime/Utf.h"
#include "support/TempFolder.h"
#include "support/VbErrorOf.h"

namespace {

using vb::SettingPair;
using Pairs = std::vector<SettingPair>;
constexpr std::u16string_view kApp = u"Quillmark Tools";

// ---- The contract of every store ------------------------------------------------------------

class SettingsContract : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    if (GetParam() == "memory")
      store_ = std::make_unique<vb::MemorySettingsStore>();
    else
      store_ = std::make_unique<vb::IniSettingsStore>(folder_.Path());
  }
  qmtest::TempFolder folder_;
  std::unique_ptr<vb::SettingsStore> store_;
};

TEST_P(SettingsContract, AbsentKeySectionOrApplicationGivesTheDefault) {
  store_->SaveSetting(kApp, u"Options", u"AutoSave", u"1");
  EXPECT_EQ(store_->GetSetting(kApp, u"Options", u"SaveInterval", u"5"), u"5");
  EXPECT_EQ(store_->GetSetting(kApp, u"frmSearch", u"AutoSave", u"x"), u"x");
  EXPECT_EQ(store_->GetSetting(u"Other", u"Options", u"AutoSave", u""), u"");
  EXPECT_TRUE(store_->GetAllSettings(kApp, u"SearchRecents").empty());
  EXPECT_TRUE(store_->GetAllSettings(u"QTools Search History", u"SearchRecents").empty());
}

TEST_P(SettingsContract, SavedValueOverwritesAndKeepsItsPlace) {
  store_->SaveSetting(kApp, u"Search", u"Col2", u"100");
  store_->SaveSetting(kApp, u"Search", u"Col1", u"200");
  store_->SaveSetting(kApp, u"Search", u"Col3", u"300");
  store_->SaveSetting(kApp, u"Search", u"Col2", u"150");
  EXPECT_EQ(store_->GetSetting(kApp, u"Search", u"Col2", u""), u"150");
  EXPECT_EQ(store_->GetAllSettings(kApp, u"Search"),
            (Pairs{{u"Col2", u"150"}, {u"Col1", u"200"}, {u"Col3", u"300"}}));
}

TEST_P(SettingsContract, NamesMatchWithoutRegardToCaseAndKeepTheFirstSpelling) {
  store_->SaveSetting(kApp, u"frmNewMember", u"LastTab", u"2");
  store_->SaveSetting(u"quillmark tools", u"FRMNEWMEMBER", u"lasttab", u"3");
  EXPECT_EQ(store_->GetSetting(kApp, u"frmnewmember", u"LASTTAB", u""), u"3");
  EXPECT_EQ(store_->GetAllSettings(kApp, u"frmNewMember"), (Pairs{{u"LastTab", u"3"}}));
}

TEST_P(SettingsContract, DeleteSettingRemovesEveryOneOfTheApplicationsSections) {
  EXPECT_NO_THROW(store_->DeleteSetting(u"QTools Search History"));  // nothing stored yet
  store_->SaveSetting(u"QTools Search History", u"SearchRecents", u"Recent1", u"Foo");
  store_->SaveSetting(u"QTools Search History", u"Other", u"Key", u"Bar");
  store_->SaveSetting(kApp, u"SearchRecents", u"Recent1", u"Kept");
  store_->DeleteSetting(u"QTools Search History");
  EXPECT_TRUE(store_->GetAllSettings(u"QTools Search History", u"SearchRecents").empty());
  EXPECT_EQ(store_->GetSetting(u"QTools Search History", u"Other", u"Key", u"-"), u"-");
  EXPECT_EQ(store_->GetSetting(kApp, u"SearchRecents", u"Recent1", u""), u"Kept");
  store_->SaveSetting(u"QTools Search History", u"SearchRecents", u"Recent1", u"New");
  EXPECT_EQ(store_->GetAllSettings(u"QTools Search History", u"SearchRecents"),
            (Pairs{{u"Recent1", u"New"}}));
}

INSTANTIATE_TEST_SUITE_P(Stores, SettingsContract, ::testing::Values("memory", "ini"));

// ---- Files on disk ---------------------------------------------------------------------------

class IniStore : public ::testing::Test {
 protected:
  std::filesystem::path FileOf(std::u16string_view app) const {
    return folder_.Path() / "settings" / (vb::ToUtf8(app) + ".ini");
  }
  std::vector<std::string> FilesInSettings() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path() / "settings"))
      names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
  }
  qmtest::TempFolder folder_;
};

TEST_F(IniStore, WritesOneReadableFilePerApplicationInTheOrderWrittenAndDeletesIt) {
  vb::IniSettingsStore store(folder_.Path());
  store.SaveSetting(kApp, u"Options", u"AutoSave", u"1");
  store.SaveSetting(kApp, u"CommandBar", u"Visible", u"True");
  store.SaveSetting(kApp, u"Options", u"SaveInterval", u"10");
  store.SaveSetting(u"QTools Search History", u"SearchRecents", u"Recent1", u"Dim x");
  EXPECT_EQ(qmtest::TempFolder::Read(FileOf(kApp)),
            "[Options]\nAutoSave=1\nSaveInterval=10\n\n[CommandBar]\nVisible=True\n");
  EXPECT_EQ(FilesInSettings(),
            (std::vector<std::string>{"QTools Search History.ini", "Quillmark Tools.ini"}));
  store.DeleteSetting(u"QTools Search History");
  EXPECT_EQ(FilesInSettings(), (std::vector<std::string>{"Quillmark Tools.ini"}));
}

TEST_F(IniStore, ReadsAHandEditedFile) {
  folder_.Write(
      "settings/Quillmark Tools.ini",
      "\xEF\xBB\xBF; edited by hand\r\n[ Options ]\r\n  SaveInterval = 7 \r\n\r\n# note\r\n"
      "AutoSave=\t1\r\n[Search]\rCol1=1440");
  vb::IniSettingsStore store(folder_.Path());
  EXPECT_EQ(store.GetAllSettings(kApp, u"Options"),
            (Pairs{{u"SaveInterval", u"7"}, {u"AutoSave", u"1"}}));  // in the file's order
  EXPECT_EQ(store.GetSetting(kApp, u"Search", u"Col1", u""), u"1440");
  EXPECT_TRUE(store.Problems().empty());
}

TEST_F(IniStore, ValuesAndNamesWithAnyCharacterComeBackFromDisk) {
  using namespace std::string_literals;
  const std::u16string texts[] = {
      u""s,         u" leading"s,     u"trailing "s, u"  "s,       u"\t"s,          u"back\\slash"s,
      u"\\s\\n\\"s, u"two\r\nlines"s, u"cr\ronly"s,  u"a=b=c"s,    u"[not]"s,       u";x"s,
      u"#x"s,       u"é中😀"s,         u"nul\0in"s,   u"\x7f\x01"s, u"\xDC80 lone"s, u"\xD800"s,
      u"\\u0041"s,  u" = "s,
  };
  {
    vb::IniSettingsStore writer(folder_.Path());
    for (const auto& text : texts) writer.SaveSetting(kApp, text, text, text);
  }
  vb::IniSettingsStore reader(folder_.Path());
  for (const auto& text : texts) {
    SCOPED_TRACE(vb::ToUtf8(text));
    EXPECT_EQ(reader.GetAllSettings(kApp, text), (Pairs{{text, text}}));
  }
  EXPECT_TRUE(reader.Problems().empty());
}

TEST_F(IniStore, ApplicationNamesThatCannotBeFileNamesAreEncoded) {
  vb::IniSettingsStore store(folder_.Path());
  EXPECT_EQ(store.FileOf(u"a/b%c").filename(), "a%2Fb%25c.ini");
  EXPECT_EQ(store.FileOf(u"..").filename(), "%2E..ini");
  store.SaveSetting(u"a/b", u"S", u"K", u"v");
  EXPECT_EQ(vb::IniSettingsStore(folder_.Path()).GetSetting(u"a/b", u"S", u"K", u""), u"v");
}

struct DamagedCase {
  const char* name;
  std::string bytes;
  int line;
};

void PrintTo(const DamagedCase& c, std::ostream* out) {
  *out << c.name;
}

class DamagedFile : public IniStore, public ::testing::WithParamInterface<DamagedCase> {};

// Every case holds "AutoSave=1" under [Options] beside its damage; nothing under a damaged
// section line may land in another section.
TEST_P(DamagedFile, DamagedSettingsFileIsNotDroppedAndOverwrittenWithoutAWord) {
  const DamagedCase& c = GetParam();
  auto file = folder_.Write("settings/Quillmark Tools.ini", c.bytes);
  vb::IniSettingsStore store(folder_.Path());
  EXPECT_EQ(store.GetAllSettings(kApp, u"Options"), (Pairs{{u"AutoSave", u"1"}}));
  EXPECT_TRUE(store.GetAllSettings(kApp, u"Search").empty());
  ASSERT_EQ(store.Problems().size(), 1u);
  EXPECT_EQ(store.Problems()[0].rfind(file.string() + ":" + std::to_string(c.line) + ": ", 0), 0u)
      << store.Problems()[0];
  EXPECT_EQ(store.TakeProblems(), store.Problems());
  EXPECT_TRUE(store.TakeProblems().empty());
  EXPECT_EQ(qmtest::TempFolder::Read(file), c.bytes);

  store.SaveSetting(kApp, u"Options", u"SaveInterval", u"9");
  EXPECT_EQ(store.Problems().size(), 1u);
  EXPECT_EQ(qmtest::TempFolder::Read(file), "[Options]\nAutoSave=1\nSaveInterval=9\n");
  EXPECT_EQ(qmtest::TempFolder::Read(folder_.Path() / "settings/Quillmark Tools.ini.damaged"),
            c.bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Ini, DamagedFile,
    ::testing::Values(DamagedCase{"InvalidUtf8", "[Options]\nAutoSave=1\nSaveInterval=\xC3(\n", 3},
                      DamagedCase{"Overlong", "[Options]\r\nAutoSave=1\r\nA=\xC0\xAF\r\n", 3},
                      DamagedCase{"EncodedSurrogate", "[Options]\nAutoSave=1\nA=\xED\xA0\x80\n", 3},
                      DamagedCase{"Truncated", "[Options]\nAutoSave=1\nA=\xE4\xB8", 3},
                      DamagedCase{"BinaryGarbage",
                                  std::string("[Options]\nAutoSave=1\n\0\xFF\x01\x80x\n", 27), 3},
                      DamagedCase{"NoEquals", "[Options]\nAutoSave=1\n\nAutoSave 1\n", 4},
                      DamagedCase{"KeyBeforeSection", "A=1\n[Options]\nAutoSave=1\n", 1},
                      DamagedCase{"OpenSection", "[Options]\nAutoSave=1\n[Search\nCol1=5\n", 3},
                      DamagedCase{"TextAfterSection", "[Search] x\nCol1=5\n[Options]\nAutoSave=1\n",
                                  1},
                      DamagedCase{"BadEscape", "[Options]\nAutoSave=1\nA=\\q\n", 3},
                      DamagedCase{"ShortUnicodeEscape", "[Options]\nA=\\u12\nAutoSave=1\n", 2},
                      DamagedCase{"DanglingBackslash", "[Options]\nAutoSave=1\nA=x\\\n", 3}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(IniStore, DeletingADamagedApplicationKeepsTheDamagedFile) {
  folder_.Write("settings/QTools Search History.ini", "[SearchRecents]\nRecent1=a\n[x\n");
  folder_.Write("settings/QTools Search History.ini.damaged", "older");
  vb::IniSettingsStore store(folder_.Path());
  EXPECT_EQ(store.GetSetting(u"QTools Search History", u"SearchRecents", u"Recent1", u""), u"a");
  store.DeleteSetting(u"QTools Search History");
  EXPECT_EQ(FilesInSettings(), (std::vector<std::string>{"QTools Search History.ini.damaged",
                                                         "QTools Search History.ini.damaged2"}));
  EXPECT_EQ(qmtest::TempFolder::Read(folder_.Path() / "settings/QTools Search History.ini.damaged"),
            "older");
}

TEST_F(IniStore, ASectionOfManyKeysIsReadWhole) {
  std::string text = "[Big]\n";
  for (int i = 0; i < 50000; ++i) text += "K" + std::to_string(i) + "=" + std::to_string(i) + "\n";
  folder_.Write("settings/Quillmark Tools.ini", text);
  vb::IniSettingsStore store(folder_.Path());
  EXPECT_EQ(store.GetAllSettings(kApp, u"big").size(), 50000u);
  EXPECT_EQ(store.GetSetting(kApp, u"BIG", u"k49999", u""), u"49999");
  EXPECT_EQ(store.GetSetting(kApp, u"Big", u"K50000", u"none"), u"none");
}

TEST_F(IniStore, UnreadableFileIsReportedAndReadsAsDefaults) {
  std::filesystem::create_directories(folder_.Path() / "settings" / "Quillmark Tools.ini");
  vb::IniSettingsStore store(folder_.Path());
  EXPECT_EQ(store.GetSetting(kApp, u"Options", u"AutoSave", u"0"), u"0");
  EXPECT_EQ(store.GetSetting(kApp, u"Options", u"SaveInterval", u"5"), u"5");
  ASSERT_EQ(store.Problems().size(), 1u);
  EXPECT_NE(store.Problems()[0].find("Quillmark Tools.ini"), std::string::npos);
}

// The atomic writer's own tests fail it at every step; here the first and the last.
TEST_F(IniStore, AFailedWriteLeavesTheOldFileAndTheOldValuesAndSaysWhy) {
  for (vb::WriteStep step : {vb::WriteStep::Open, vb::WriteStep::Rename}) {
    SCOPED_TRACE(static_cast<int>(step));
    std::filesystem::remove_all(folder_.Path() / "settings");
    auto writer = std::make_shared<vb::AtomicWriter>();
    vb::IniSettingsStore store(folder_.Path(), writer);
    store.SaveSetting(kApp, u"Options", u"AutoSave", u"1");
    const std::string before = qmtest::TempFolder::Read(FileOf(kApp));
    writer->InjectFault(vb::WriteFault{step});
    vb::Error e = qmtest::ErrorOf([&] { store.SaveSetting(kApp, u"Options", u"AutoSave", u"0"); });
    EXPECT_EQ(e.Number(), 75);
    EXPECT_NE(e.Description().find(u"Quillmark Tools.ini (Input/output error)"),
              std::u16string::npos)
        << vb::ToUtf8(e.Description());
    EXPECT_EQ(qmtest::TempFolder::Read(FileOf(kApp)), before);
    EXPECT_EQ(FilesInSettings(), (std::vector<std::string>{"Quillmark Tools.ini"}));
    EXPECT_EQ(store.GetSetting(kApp, u"Options", u"AutoSave", u""), u"1");
    // Also kept for the front end, which the add-in does not tell.
    EXPECT_EQ(store.TakeProblems().size(), 1u);
  }
}

TEST_F(IniStore, SettingsFolderThatIsAFileSaysWhichFileAndWhy) {
  folder_.Write("settings", "a file where the folder should be");
  vb::IniSettingsStore store(folder_.Path());
  vb::Error e = qmtest::ErrorOf([&] { store.SaveSetting(kApp, u"Options", u"AutoSave", u"1"); });
  EXPECT_EQ(e.Number(), 76);
  std::string text = vb::ToUtf8(e.Description());
  EXPECT_NE(text.find((folder_.Path() / "settings").string() + " ("), std::string::npos) << text;
  ASSERT_EQ(store.Problems().size(), 1u);
}

TEST(UserFolder, FollowsTheEnvironmentInItsOrderOfPreference) {
  EXPECT_EQ(vb::DefaultUserFolder("/q", "/x", "/h"), "/q");
  EXPECT_EQ(vb::DefaultUserFolder("", "/x", "/h"), "/x/quillmark");
  EXPECT_EQ(vb::DefaultUserFolder("", "", "/h"), "/h/.config/quillmark");
  // No home at all is refused rather than settling on the current folder.
  vb::Error e = qmtest::ErrorOf([] { vb::DefaultUserFolder("", "", ""); });
  EXPECT_EQ(e.Number(), 76);
  EXPECT_NE(e.Description().find(u"HOME"), std::u16string::npos);
}
TEST(IniEscapes, MalformedEscapesAreRejected) {
  for (std::u16string_view text : {u"\\", u"a\\", u"\\q", u"\\u12", u"\\uZZZZ", u"\\u12G4"}) {
    SCOPED_TRACE(vb::ToUtf8(text));
    EXPECT_FALSE(vb::UnescapeIni(text).has_value());
  }
  EXPECT_EQ(vb::UnescapeIni(u"\\u00e9\\s\\=").value(), u"é =");
}

}  // namespace
