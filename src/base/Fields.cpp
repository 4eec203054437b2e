// Delimited fields and the intrinsic-type test.
#include "base/Fields.h"

#include "runtime/VbStrings.h"

namespace quillmark {

std::int16_t CountFields(std::u16string_view text, std::u16string_view delimiter) {
  if (delimiter.empty()) return 1;
  std::int16_t count = 1;
  for (std::size_t at = text.find(delimiter); at != std::u16string_view::npos;
       at = text.find(delimiter, at + delimiter.size()))
    ++count;
  return count;
}

std::u16string GetField(std::u16string_view text, std::int16_t index,
                        std::u16string_view delimiter) {
  std::size_t start = 0;
  for (std::int16_t skipped = 0; skipped < index; ++skipped) {
    std::size_t at = delimiter.empty() ? std::u16string_view::npos : text.find(delimiter, start);
    if (at == std::u16string_view::npos) return {};
    start = at + delimiter.size();
  }
  std::size_t end = delimiter.empty() ? std::u16string_view::npos : text.find(delimiter, start);
  return std::u16string(text.substr(
      start, end == std::u16string_view::npos ? std::u16string_view::npos : end - start));
}

bool IsNotIntrinsic(std::u16string_view name) {
  return vb::InStr(1, kIntrinsicTypes, name, vb::CompareMethod::Text) == 0;
}

}  // namespace quillmark
