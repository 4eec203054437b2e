// Splitting delimited texts and the intrinsic-type test: small pure rules shared by the search,
// the Component Viewer and the New Member dialog.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmark {

// The intrinsic type names, in the order the type list starts with them.
inline constexpr std::u16string_view kIntrinsicTypes =
    u"Byte|Boolean|Integer|Long|Currency|Single|Double|Date|String|Variant";

// 1 + the number of non-overlapping occurrences of `delimiter`, searched case-sensitively from
// the left. A text without the delimiter, the empty text too, has one field.
std::int16_t CountFields(std::u16string_view text, std::u16string_view delimiter);

// Field `index` (from 0): the text after `index` delimiters up to the next one or the end; ""
// when there are fewer delimiters.
std::u16string GetField(std::u16string_view text, std::int16_t index,
                        std::u16string_view delimiter);

// False when `name` occurs anywhere inside the intrinsic type list, ignoring case. A plain
// substring test: fragments such as "Int" or "ouble" count as intrinsic. Intended; keep it.
bool IsNotIntrinsic(std::u16string_view name);

}  // namespace quillmark
