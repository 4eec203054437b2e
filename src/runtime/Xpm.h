// Reading XPM (X PixMap) pictures, the text form the add-in's pictures are kept in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "runtime/Picture.h"

namespace vb {

inline constexpr int kInvalidPicture = 481;  // VB's "Invalid picture"

// The strings of an XPM3 picture, in order: "<width> <height> <colours> <chars per pixel>",
// one line per colour ("<chars> c <#RGB|#RRGGBB|None|a basic colour name>"), then one line per
// row. `source` names the picture in errors. Bad input raises vb::Error 481 naming the source and
// the 1-based string at fault.
Picture ParseXpm(const std::vector<std::string_view>& strings, std::string_view source);

// The same from XPM's C source text: the string literals between the braces, comments skipped.
Picture ParseXpmSource(std::string_view text, std::string_view source);

}  // namespace vb
