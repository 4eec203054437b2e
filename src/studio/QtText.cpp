// Picture conversions for the studio.
#include "studio/QtText.h"

#include <QPixmap>

namespace studio {

QImage ToImage(const vb::Picture& picture) {
  if (picture.Empty()) return {};
  QImage image(picture.width, picture.height, QImage::Format_ARGB32);
  for (int y = 0; y < picture.height; ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < picture.width; ++x)
      row[x] = picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
  }
  return image;
}

QIcon ToIcon(const vb::Picture& picture) {
  QImage image = ToImage(picture);
  return image.isNull() ? QIcon() : QIcon(QPixmap::fromImage(image));
}

}  // namespace studio
