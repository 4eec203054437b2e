// The add-in's settings vocabulary: defaults of a fresh user, the reading rules, the history.
#include <gtest/gtest.h>

#include "base/Settings.h"
#include "runtime/SettingsStore.h"
#include "runtime/Utf.h"

namespace {

namespace opt = quillmark::options;
using Pairs = std::vector<vb::SettingPair>;

class Vocabulary : public ::testing::Test {
 protected:
  vb::MemorySettingsStore store_;
  opt::Settings settings_{store_};
};

// The defaults a user meets through the dialogs and windows are checked there; these are the
// ones no window shows.
TEST_F(Vocabulary, AFreshUserRunsOnTheDefaults) {
  EXPECT_EQ(settings_.Whole(opt::ForForm(u"frmNewMember", opt::FormPlacement::kLastTab)), 1);
  // Left and Top both below 1 is what makes a dialog open centred.
  for (auto form : {u"frmSearch", u"frmReplace", u"frmNewMember", u"frmOptions", u"frmAutoSave"}) {
    EXPECT_LT(settings_.Short(opt::ForForm(form, opt::FormPlacement::kLeft)), 1);
    EXPECT_LT(settings_.Short(opt::ForForm(form, opt::FormPlacement::kTop)), 1);
  }
  EXPECT_EQ(settings_.Whole(opt::ForForm(u"frmSearch", opt::FormPlacement::kWindowState)), 0);
  EXPECT_EQ(settings_.Whole(opt::CommandBar::kRowIndex), 4);
  EXPECT_TRUE(settings_.RecentSearches().empty());
  EXPECT_TRUE(store_.GetAllSettings(opt::kApp, u"Options").empty()) << "reading created a key";
}

// Values a user's store already holds, addressed by their literal names, must be found.
struct StoredCase {
  std::u16string_view section, name, text;
  opt::Key key;
};

TEST_F(Vocabulary, ReadsValuesStoredUnderTheirLiteralNames) {
  const StoredCase cases[] = {
      {u"Options", u"AutoSave", u"1", opt::Options::kAutoSave},
      {u"Options", u"SaveInterval", u"17", opt::Options::kSaveInterval},
      {u"Options", u"SaveNotify", u"0", opt::Options::kSaveNotify},
      {u"Options", u"Columns", u"Code,1|Line,0", opt::Options::kColumns},
      {u"CommandBar", u"Position", u"1", opt::CommandBar::kPosition},
      {u"CommandBar", u"Left", u"31", opt::CommandBar::kLeft},
      {u"CommandBar", u"Top", u"32", opt::CommandBar::kTop},
      {u"CommandBar", u"RowIndex", u"2", opt::CommandBar::kRowIndex},
      {u"CommandBar", u"Visible", u"False", opt::CommandBar::kVisible},
      {u"Component Viewer", u"Visible", u"-1", opt::WindowVisible::kComponentViewer},
      {u"Search Results", u"Visible", u"-1", opt::WindowVisible::kSearchResults},
      {u"frmSearch", u"Visible", u"-1", opt::WindowVisible::kSearchDialog},
      {u"Project Explorer", u"Visible", u"-1", opt::WindowVisible::kProjectExplorer},
  };
  for (const auto& c : cases) store_.SaveSetting(u"Quillmark Tools", c.section, c.name, c.text);
  for (const auto& c : cases) {
    SCOPED_TRACE(vb::ToUtf8(c.name));
    EXPECT_EQ(settings_.Text(c.key), c.text);
  }
}

TEST(AutoSaveRule, OnlyTheExactTextOneTurnsItOn) {
  const std::pair<std::u16string_view, bool> cases[] = {
      {u"1", true},   {u"0", false},  {u"-1", false}, {u"True", false}, {u"true", false},
      {u" 1", false}, {u"1 ", false}, {u"01", false}, {u"2", false},    {u"", false},
  };
  for (auto [text, on] : cases) EXPECT_EQ(opt::AutoSaveIsOn(text), on) << vb::ToUtf8(text);
}

TEST(FlagRule, AnyNonZeroNumberIsTrue) {
  const std::pair<std::u16string_view, bool> cases[] = {
      {u"-1", true}, {u"0", false},   {u"5", true},    {u"1", true},   {u" -1", true},
      {u"", false},  {u"abc", false}, {u"0.0", false}, {u"0.5", true}, {u"True", false},
  };
  for (auto [text, value] : cases) EXPECT_EQ(opt::FlagOf(text), value) << vb::ToUtf8(text);
}

TEST(WordBooleanRule, WordsInAnyCaseElseNumbers) {
  const std::pair<std::u16string_view, bool> cases[] = {
      {u"True", true}, {u"False", false}, {u"TRUE", true}, {u"false", false}, {u" True ", true},
      {u"5", true},    {u"-1", true},     {u"0", false},   {u"Truth", false}, {u"", false},
  };
  for (auto [text, value] : cases) EXPECT_EQ(opt::WordBooleanOf(text), value) << vb::ToUtf8(text);
}

// Val reads the text; a setting adds the Long's rounding and reads an overflow as damage.
TEST(NumberRule, TextThatDoesNotStartWithANumberReadsZero) {
  const std::pair<std::u16string_view, std::int32_t> cases[] = {
      {u"12abc", 12},
      {u"abc", 0},
      {u"-7", -7},
      {u"2.5", 2},
      {u"3.5", 4},
      {u"99999999999", 0} /* too large for a Long: damaged */,
      {u"1e400", 0} /* too large for Val itself: damaged, not run-time error 6 */,
  };
  for (auto [text, value] : cases) EXPECT_EQ(opt::WholeOf(text), value) << vb::ToUtf8(text);
  EXPECT_FALSE(opt::FlagOf(u"1e400"));
}

TEST(NumberRule, SixteenBitReadsTreatOutOfRangeAsDamaged) {
  EXPECT_EQ(opt::ShortOf(u"32767"), 32767);
  EXPECT_EQ(opt::ShortOf(u"-32768"), -32768);
  EXPECT_EQ(opt::ShortOf(u"40000"), 0);
  EXPECT_EQ(opt::ShortOf(u"-1500.5"), -1500);
}

TEST_F(Vocabulary, WritesFlagsAsMinusOneAndZeroAndTheToolbarAsWords) {
  store_.SaveSetting(opt::kApp, u"CommandBar", u"Visible", u"5");
  bool visible = settings_.WordBoolean(opt::CommandBar::kVisible);
  EXPECT_TRUE(visible);
  settings_.WriteWordBoolean(opt::CommandBar::kVisible, visible);
  settings_.WriteFlag(opt::WindowVisible::kSearchResults, true);
  settings_.WriteFlag(opt::WindowVisible::kComponentViewer, false);
  settings_.WriteWhole(opt::ForForm(u"frmOptions", opt::FormPlacement::kLeft), -120);
  EXPECT_EQ(store_.GetSetting(opt::kApp, u"CommandBar", u"Visible", u""), u"True");
  EXPECT_EQ(store_.GetSetting(opt::kApp, u"Search Results", u"Visible", u""), u"-1");
  EXPECT_EQ(store_.GetSetting(opt::kApp, u"Component Viewer", u"Visible", u""), u"0");
  EXPECT_EQ(store_.GetSetting(opt::kApp, u"frmOptions", u"Left", u""), u"-120");
  settings_.WriteWordBoolean(opt::CommandBar::kVisible, false);
  EXPECT_EQ(store_.GetSetting(opt::kApp, u"CommandBar", u"Visible", u""), u"False");
}

TEST(KeyNames, AHistoryEntrysPositionIsTheNumberAfterItsSixthCharacter) {
  const std::pair<std::u16string_view, int> positions[] = {
      {u"Recent3", 3}, {u"Recent10", 10}, {u"Recent", 0}, {u"Xxxxxx7", 7}, {u"RecentX", 0}};
  for (auto [name, position] : positions)
    EXPECT_EQ(opt::RecentPositionOf(name), position) << vb::ToUtf8(name);
}

TEST_F(Vocabulary, TheHistoryIsRewrittenWholeAndKeepsAtMostTenEntries) {
  store_.SaveSetting(u"QTools Search History", u"SearchRecents", u"Recent11", u"stale");
  store_.SaveSetting(u"QTools Search History", u"Other", u"Key", u"stale");
  std::vector<std::u16string> texts;
  for (int i = 1; i <= 12; ++i) texts.push_back(u"text" + opt::NumberText(i));
  settings_.SaveRecentSearches(texts);

  auto stored = store_.GetAllSettings(u"QTools Search History", u"SearchRecents");
  ASSERT_EQ(stored.size(), 10u);
  EXPECT_EQ(stored.front(), (vb::SettingPair{u"Recent1", u"text1"}));
  EXPECT_EQ(stored.back(), (vb::SettingPair{u"Recent10", u"text10"}));
  EXPECT_TRUE(store_.GetAllSettings(u"QTools Search History", u"Other").empty());
}

TEST_F(Vocabulary, TheHistoryIsReadInTheStoresOrderWithItsPositions) {
  store_.SaveSetting(u"QTools Search History", u"SearchRecents", u"Recent2", u"second");
  store_.SaveSetting(u"QTools Search History", u"SearchRecents", u"Recent1", u"first");
  store_.SaveSetting(opt::kApp, u"SearchRecents", u"Recent1", u"wrong application");
  using Entries = std::vector<std::pair<int, std::u16string>>;
  EXPECT_EQ(settings_.RecentSearches(), (Entries{{2, u"second"}, {1, u"first"}}));
}

}  // namespace
