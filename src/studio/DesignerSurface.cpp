// studio::DesignerSurfaceTwips.
#include "studio/DesignerSurface.h"

#include <exception>
#include <optional>
#include <string>
#include <string_view>

namespace studio {
namespace {

using Properties = std::vector<std::pair<std::u16string, std::u16string>>;

// Property names are ASCII; VB reads them ignoring case.
bool SameName(std::u16string_view a, std::u16string_view b) {
  auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? char16_t(c - u'A' + u'a') : c; };
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (lower(a[i]) != lower(b[i])) return false;
  return true;
}

// The leading number of a value as written ("285", "3  'Pixel", "1.5"); none for anything else.
std::optional<double> Number(const Properties& properties, std::u16string_view name) {
  for (auto& [key, value] : properties) {
    if (!SameName(key, name)) continue;
    std::string digits;
    for (char16_t c : value) {
      bool numeric = (c >= u'0' && c <= u'9') || c == u'.' || (c == u'-' && digits.empty());
      if (!numeric) break;
      digits += static_cast<char>(c);
    }
    if (digits.empty() || digits == "-" || digits == ".") return std::nullopt;
    try {
      return std::stod(digits);
    } catch (const std::exception&) {
      return std::nullopt;  // "1.2.3": not a number VB would have written; the next rule decides
    }
  }
  return std::nullopt;
}

// Twips per unit of each ScaleMode, across and down; none for a user-defined scale (0), whose
// units say nothing about the size. Pixels are counted at VB's usual 15 twips.
std::optional<TwipSize> TwipsPerUnit(int scaleMode) {
  switch (scaleMode) {
    case 1:
      return TwipSize{1, 1};
    case 2:
      return TwipSize{20, 20};
    case 3:
      return TwipSize{15, 15};
    case 4:
      return TwipSize{120, 240};
    case 5:
      return TwipSize{1440, 1440};
    case 6:
      return TwipSize{1440 / 25.4, 1440 / 25.4};
    case 7:
      return TwipSize{1440 / 2.54, 1440 / 2.54};
    default:
      return std::nullopt;
  }
}

std::optional<TwipSize> Pair(const Properties& properties, std::u16string_view across,
                             std::u16string_view down, TwipSize unit = {1, 1}) {
  auto width = Number(properties, across), height = Number(properties, down);
  if (!width || !height || *width <= 0 || *height <= 0) return std::nullopt;
  return TwipSize{*width * unit.width, *height * unit.height};
}

}  // namespace

TwipSize DesignerSurfaceTwips(vbide::vbext_ComponentType type, const Properties& properties) {
  if (type == vbide::vbext_ct_VBForm || type == vbide::vbext_ct_VBMDIForm)
    return Pair(properties, u"ClientWidth", u"ClientHeight").value_or(kDefaultSurface);
  // VB leaves ScaleMode out of the file when it is twips.
  auto scaleMode = Number(properties, u"ScaleMode");
  if (auto unit = TwipsPerUnit(scaleMode ? static_cast<int>(*scaleMode) : 1))
    if (auto scaled = Pair(properties, u"ScaleWidth", u"ScaleHeight", *unit)) return *scaled;
  return Pair(properties, u"Width", u"Height").value_or(kDefaultSurface);
}

std::u16string DesignerTitle(const Properties& properties) {
  for (auto& [key, value] : properties) {
    if (!SameName(key, u"Caption")) continue;
    if (value.size() < 2 || value.front() != u'"') return value;
    std::u16string title;
    for (std::size_t i = 1; i < value.size(); ++i) {
      if (value[i] != u'"') {
        title += value[i];
      } else if (i + 1 < value.size() && value[i + 1] == u'"') {
        title += u'"';
        ++i;
      } else {
        break;  // the closing quote; a comment may follow it
      }
    }
    return title;
  }
  return {};
}

}  // namespace studio
