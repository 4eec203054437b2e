// Conversions between the engine's UTF-16 strings and pictures and their Qt counterparts.
#pragma once

#include <QIcon>
#include <QImage>
#include <QString>
#include <string>
#include <string_view>

#include "runtime/Picture.h"

namespace studio {

// Both sides count UTF-16 units, so positions carry over unchanged.
inline QString ToQt(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::u16string FromQt(const QString& text) {
  return std::u16string(reinterpret_cast<const char16_t*>(text.utf16()),
                        static_cast<std::size_t>(text.size()));
}

// Pixels are 0xAARRGGBB row by row, which is QImage's ARGB32 layout.
QImage ToImage(const vb::Picture& picture);
QIcon ToIcon(const vb::Picture& picture);

}  // namespace studio
