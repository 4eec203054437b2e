// Key builders and the reading and writing rules of the add-in's settings values.
#include "base/SettingsVocabulary.h"

#include <cmath>

#include "runtime/Error.h"
#include "runtime/VbStrings.h"

namespace quillmark::options {

namespace {

bool EqualsAsciiNoCase(std::u16string_view a, std::u16string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    auto fold = [](char16_t u) { return u >= u'A' && u <= u'Z' ? char16_t(u + 32) : u; };
    if (fold(a[i]) != fold(b[i])) return false;
  }
  return true;
}

// A conversion that overflows means the stored text is damaged, which reads as 0.
template <typename Convert>
auto ZeroOnOverflow(Convert convert) -> decltype(convert()) {
  try {
    return convert();
  } catch (const vb::Error& e) {
    if (e.Number() != vb::err::kOverflow) throw;
    return 0;
  }
}

}  // namespace

Key ForForm(std::u16string_view formName, Key formKey) {
  formKey.section = formName;
  return formKey;
}

std::u16string ColumnKeyName(std::u16string_view prefix, int column) {
  return std::u16string(prefix) + NumberText(column);
}

std::u16string RecentKeyName(int position) {
  return std::u16string(SearchHistory::kPrefix) + NumberText(position);
}

int RecentPositionOf(std::u16string_view keyName) {
  constexpr int kPrefixLength = 6;  // "Recent"; the prefix's letters are not checked
  return WholeOf(vb::Mid(keyName, kPrefixLength + 1));
}

double NumberOf(std::u16string_view text) {
  return ZeroOnOverflow([&] { return vb::Val(text); });  // "1e400" overflows Val itself
}

std::int32_t WholeOf(std::u16string_view text) {
  double value = NumberOf(text);
  if (!std::isfinite(value)) return 0;
  return ZeroOnOverflow([&] { return vb::CLng(value); });
}

std::int16_t ShortOf(std::u16string_view text) {
  double value = NumberOf(text);
  if (!std::isfinite(value)) return 0;
  return ZeroOnOverflow([&] { return vb::CInt(value); });
}

bool FlagOf(std::u16string_view text) {
  return NumberOf(text) != 0;
}

bool AutoSaveIsOn(std::u16string_view text) {
  return text == u"1";
}

bool WordBooleanOf(std::u16string_view text) {
  std::u16string trimmed = vb::Trim(text);
  if (EqualsAsciiNoCase(trimmed, u"True")) return true;
  if (EqualsAsciiNoCase(trimmed, u"False")) return false;
  return FlagOf(trimmed);
}

std::u16string FlagText(bool value) {
  return value ? u"-1" : u"0";
}

std::u16string WordBooleanText(bool value) {
  return value ? u"True" : u"False";
}

std::u16string NumberText(std::int64_t value) {
  std::string digits = std::to_string(value);
  return std::u16string(digits.begin(), digits.end());
}

}  // namespace quillmark::options
