// Writing a vb::Picture as an uncompressed PNG, for looking at pictures with any image viewer.
#pragma once

#include <string>

#include "runtime/Picture.h"

namespace quillmark {

// The PNG file's bytes: RGBA, 8 bits, the image data in stored (uncompressed) deflate blocks.
std::string EncodePng(const vb::Picture& picture);

}  // namespace quillmark
