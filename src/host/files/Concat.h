// host::files::Concat: joins string pieces with one allocation.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace host::files {

// Also keeps message building clear of GCC 12's false -Wrestrict alarm on "literal" + string.
template <typename Char>
std::basic_string<Char> Concat(std::initializer_list<std::basic_string_view<Char>> parts) {
  std::size_t size = 0;
  for (auto part : parts) size += part.size();
  std::basic_string<Char> joined;
  joined.reserve(size);
  for (auto part : parts) joined.append(part);
  return joined;
}

inline std::string Concat(std::initializer_list<std::string_view> parts) {
  return Concat<char>(parts);
}
inline std::u16string Concat(std::initializer_list<std::u16string_view> parts) {
  return Concat<char16_t>(parts);
}

}  // namespace host::files
