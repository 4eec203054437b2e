// vb::Picture: a bitmap as the form engine, the clipboard and command-bar faces hold it.
#pragma once

#include <cstdint>
#include <vector>

namespace vb {

// Pixels are 0xAARRGGBB, row by row from the top-left corner.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;

  bool Empty() const { return width <= 0 || height <= 0; }
  bool operator==(const Picture&) const = default;
};

}  // namespace vb
