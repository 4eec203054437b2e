// The size a designer window draws its surface at, from the designer block's own properties.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "studio/DesignerSurface.h"

namespace {

using Properties = std::vector<std::pair<std::u16string, std::u16string>>;

// "Name=Value;Name=Value" as the block's properties, in that order.
Properties Parse(std::u16string_view text) {
  Properties properties;
  while (!text.empty()) {
    std::u16string_view entry = text.substr(0, text.find(u';'));
    text.remove_prefix(std::min(text.size(), entry.size() + 1));
    auto equals = entry.find(u'=');
    properties.emplace_back(entry.substr(0, equals), entry.substr(equals + 1));
  }
  return properties;
}

TEST(DesignerSurface, ComesFromTheBlocksOwnSize) {
  constexpr auto kForm = vbide::vbext_ct_VBForm;
  constexpr auto kControl = vbide::vbext_ct_UserControl;
  struct Case {
    const char* name;
    vbide::vbext_ComponentType type;
    std::u16string_view properties;
    double width, height;  // twips
  };
  const Case cases[] = {
      // A form's surface is its client area; its scale area may be in any unit.
      {"FormUsesItsClientArea", kForm,
       u"ClientHeight=3195;ClientWidth=4680;ScaleHeight=213;ScaleMode=3  'Pixel;ScaleWidth=312",
       4680, 3195},
      {"MdiFormUsesItsClientArea", vbide::vbext_ct_VBMDIForm, u"ClientHeight=6600;ClientWidth=9480",
       9480, 6600},
      {"FormWithoutSizeGetsTheDefault", kForm, u"Caption=\"A\"", 4800, 3600},
      // A user control, page or document is its scale area, in its ScaleMode's units.
      {"UserControlInTwips", kControl,
       u"ClientHeight=9999;ClientWidth=9999;ScaleHeight=285;ScaleWidth=1695", 1695, 285},
      {"UserControlInPixels", kControl, u"ScaleHeight=19;ScaleMode=3  'Pixel;ScaleWidth=113", 1695,
       285},
      {"UserControlInCharacters", kControl, u"ScaleHeight=2;ScaleMode=4  'Character;ScaleWidth=10",
       1200, 480},
      {"PropertyPageInCentimetres", vbide::vbext_ct_PropPage,
       u"ScaleHeight=2.54;ScaleMode=7;ScaleWidth=5.08", 2880, 1440},
      {"NamesIgnoreCase", vbide::vbext_ct_DocObject, u"scalewidth=6420;SCALEHEIGHT=4530", 6420,
       4530},
      // A user-defined scale says nothing about the size: Width and Height do.
      {"UserScaleFallsBackToWidthAndHeight", kControl,
       u"Height=600;ScaleHeight=100;ScaleMode=0  'User;ScaleWidth=100;Width=2400", 2400, 600},
      {"OnlyWidthAndHeight", vbide::vbext_ct_DocObject, u"Width=3000;Height=2000", 3000, 2000},
      {"HalfASizeIsNoSize", kControl, u"ScaleWidth=1695", 4800, 3600},
      {"NothingGivesTheDefault", kControl, u"", 4800, 3600},
      {"UnreadableOrEmptySizeGivesTheDefault", kControl, u"ScaleWidth=wide;ScaleHeight=0", 4800,
       3600},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    studio::TwipSize got = studio::DesignerSurfaceTwips(c.type, Parse(c.properties));
    EXPECT_NEAR(got.width, c.width, 0.01);
    EXPECT_NEAR(got.height, c.height, 0.01);
  }
}

}  // namespace
