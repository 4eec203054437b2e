// studio::TwipScale: twips to pixels and back at the screen's logical resolution.
#pragma once

#include <QRect>
#include <cmath>

namespace studio {

// 1440 twips make an inch; at 96 dots per inch a pixel is 15 twips.
class TwipScale {
 public:
  explicit TwipScale(double logicalDpi = 96.0) : twipsPerPixel_(1440.0 / logicalDpi) {}

  double TwipsPerPixel() const { return twipsPerPixel_; }
  int ToPixels(float twips) const {
    return static_cast<int>(std::lround(static_cast<double>(twips) / twipsPerPixel_));
  }
  float ToTwips(int pixels) const { return static_cast<float>(pixels * twipsPerPixel_); }
  QRect ToPixels(float left, float top, float width, float height) const {
    return QRect(ToPixels(left), ToPixels(top), ToPixels(width), ToPixels(height));
  }

 private:
  double twipsPerPixel_;
};

}  // namespace studio
