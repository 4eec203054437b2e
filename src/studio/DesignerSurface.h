// studio::DesignerSurface: the size, in twips, of the surface a designer window draws, read from
// the designer block's own properties.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "vbide/Enums.h"

namespace studio {

struct TwipSize {
  double width = 0;
  double height = 0;
  friend bool operator==(const TwipSize&, const TwipSize&) = default;
};

// The surface when the designer block says nothing usable about its size.
inline constexpr TwipSize kDefaultSurface{4800, 3600};

// A form's surface is its client area (ClientWidth, ClientHeight). A user control, property page
// or user document has no frame around it: its surface is its scale area (ScaleWidth,
// ScaleHeight, in the units of its ScaleMode), else its Width and Height. `properties` are the
// root block's, as written in the file ("3  'Pixel"); names are compared ignoring case.
TwipSize DesignerSurfaceTwips(
    vbide::vbext_ComponentType type,
    const std::vector<std::pair<std::u16string, std::u16string>>& properties);

// The title a form's designer shows: its Caption as the user reads it (the file's quotes gone,
// a doubled quote read as one); empty when the form has none.
std::u16string DesignerTitle(
    const std::vector<std::pair<std::u16string, std::u16string>>& properties);

}  // namespace studio
