// Every application, section, key and default of the add-in's settings, and the rules for
// reading and writing their values. Other files name settings only through these constants.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark::options {

// A setting's address and the text read when it is absent. Views only: a key built at run time
// (a column number, a form's name) must outlive the Key that points at it.
struct Key {
  std::u16string_view section;
  std::u16string_view name;
  std::u16string_view defaultValue;
};

inline constexpr std::u16string_view kApp = u"Quillmark Tools";
inline constexpr std::u16string_view kHistoryApp = u"QTools Search History";

namespace Options {
inline constexpr std::u16string_view kSection = u"Options";
// On only for the exact text "1"; "-1" and "True" are off (see AutoSaveIsOn).
inline constexpr Key kAutoSave{kSection, u"AutoSave", u"0"};
inline constexpr Key kSaveInterval{kSection, u"SaveInterval", u"5"};  // whole minutes, 1 to 999
// Index into "<None>", "Beep", "Message".
inline constexpr Key kSaveNotify{kSection, u"SaveNotify", u"2"};
inline constexpr Key kColumns{kSection, u"Columns",
                              u"Project,1|Module,1|Procedure,1|Line,1|Code,1"};
}  // namespace Options

// Sections named after a form ("frmSearch", ...). The section is left empty here: ForForm
// fills in the form's name.
namespace FormPlacement {
inline constexpr Key kLeft{{}, u"Left", u"0"};
inline constexpr Key kTop{{}, u"Top", u"0"};
inline constexpr Key kWidth{{}, u"Width", u"9000"};
inline constexpr Key kHeight{{}, u"Height", u"6000"};
inline constexpr Key kWindowState{{}, u"WindowState", u"0"};
inline constexpr Key kLastTab{{}, u"LastTab", u"1"};  // 1-based tab of frmNewMember
}  // namespace FormPlacement

// The toolbar's placement. "Visible" alone is written as the word True or False.
namespace CommandBar {
inline constexpr std::u16string_view kSection = u"CommandBar";
inline constexpr Key kPosition{kSection, u"Position", u"4"};  // 4 floating, 1 docked at the top
inline constexpr Key kLeft{kSection, u"Left", u"200"};
inline constexpr Key kTop{kSection, u"Top", u"200"};
inline constexpr Key kRowIndex{kSection, u"RowIndex", u"4"};
inline constexpr Key kVisible{kSection, u"Visible", u"True"};
}  // namespace CommandBar

// Which windows were open at the last disconnection; flags written "-1"/"0".
namespace WindowVisible {
inline constexpr std::u16string_view kName = u"Visible";
inline constexpr Key kComponentViewer{u"Component Viewer", kName, u"0"};
inline constexpr Key kSearchResults{u"Search Results", kName, u"0"};
inline constexpr Key kSearchDialog{u"frmSearch", kName, u"0"};
inline constexpr Key kProjectExplorer{u"Project Explorer", kName, u"0"};
}  // namespace WindowVisible

// Column widths in twips under a key made of a prefix and the 1-based column number.
namespace ColumnWidths {
inline constexpr std::u16string_view kDefault = u"1440";
inline constexpr std::u16string_view kSearchSection = u"Search";
inline constexpr std::u16string_view kSearchPrefix = u"Col";
// The Component Viewer's widths are kept per view: the prefix is the view's caption, and any
// typed filter shares the prefix kCustomView.
inline constexpr std::u16string_view kListViewSection = u"ListView";
inline constexpr std::u16string_view kCustomView = u"(Custom)";
}  // namespace ColumnWidths

// The recent search texts, most recent first, under application kHistoryApp.
namespace SearchHistory {
inline constexpr std::u16string_view kSection = u"SearchRecents";
inline constexpr std::u16string_view kPrefix = u"Recent";
inline constexpr int kMaxEntries = 10;
}  // namespace SearchHistory

// Keys built at run time.
Key ForForm(std::u16string_view formName, Key formKey);
std::u16string ColumnKeyName(std::u16string_view prefix, int column);  // "Col" 3 -> "Col3"
std::u16string RecentKeyName(int position);                            // 3 -> "Recent3"
// The list position a history key names: the number after the six-letter prefix, whatever the
// first six characters are ("Recent3" and "Xxxxxx3" both give 3); 0 when no number follows.
int RecentPositionOf(std::u16string_view keyName);

// Reading rules. Text that does not start with a number reads as 0 (VB's Val), and so does a
// number too large for Val ("1e400"): the stored text is damaged.
double NumberOf(std::u16string_view text);
// Val rounded half to even; a number outside the type's range is as damaged as text and reads 0.
std::int32_t WholeOf(std::u16string_view text);
std::int16_t ShortOf(std::u16string_view text);
bool FlagOf(std::u16string_view text);         // non-zero number is true: "5" is true
bool AutoSaveIsOn(std::u16string_view text);   // exactly "1"
bool WordBooleanOf(std::u16string_view text);  // True/False in any case, else as FlagOf

// Writing forms.
std::u16string FlagText(bool value);         // "-1" or "0"
std::u16string WordBooleanText(bool value);  // "True" or "False"
std::u16string NumberText(std::int64_t value);

}  // namespace quillmark::options
