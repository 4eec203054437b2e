// Conversions of the form engine's pictures, OLE colours, fonts and captions to Qt's.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "runtime/Picture.h"
#include "runtime/forms/Control.h"
#include "studio/QtText.h"

namespace studio {

// Pixels are 0xAARRGGBB row by row on both sides (ToImage, the other way, is in QtText.h).
inline vb::Picture FromImage(const QImage& source) {
  if (source.isNull()) return {};
  QImage image = source.convertToFormat(QImage::Format_ARGB32);
  vb::Picture picture{image.width(), image.height(), {}};
  picture.pixels.resize(static_cast<std::size_t>(image.width()) * image.height());
  for (int y = 0; y < image.height(); ++y) {
    std::memcpy(picture.pixels.data() + static_cast<std::size_t>(y) * image.width(),
                image.constScanLine(y), static_cast<std::size_t>(image.width()) * 4);
  }
  return picture;
}

// OLE colours with the high bit set name a system colour: the style's palette draws those.
inline bool IsSystemColour(std::uint32_t ole) {
  return (ole & 0x80000000u) != 0;
}

inline QColor ToQtColour(std::uint32_t ole) {
  return QColor(static_cast<int>(ole & 0xFF), static_cast<int>((ole >> 8) & 0xFF),
                static_cast<int>((ole >> 16) & 0xFF));
}

// The engine's default font is the classic dialog font; the desktop's own font stands in for it
// so dialogs look native. Any other font is asked for by name.
inline QFont ToQt(const vb::Font& font, const QFont& desktop) {
  QFont out = desktop;
  if (!(font == vb::Font{})) {
    if (font.name != vb::Font{}.name) out.setFamily(ToQt(font.name));
    if (font.size != vb::Font{}.size) out.setPointSizeF(font.size);
  }
  out.setBold(font.bold);
  out.setItalic(font.italic);
  out.setUnderline(font.underline);
  return out;
}

// A caption's "&x" marks an access key; widgets without a buddy show the text without it.
inline QString WithoutAccessKey(const QString& caption) {
  QString out;
  out.reserve(caption.size());
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && i + 1 < caption.size()) ++i;
    out += caption[i];
  }
  return out;
}

}  // namespace studio
