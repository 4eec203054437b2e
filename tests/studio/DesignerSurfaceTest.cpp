// The size a designer window draws its surface at, from the designer block's own properties.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "studio/DesignerSurface.h"

namespace {

using Properties = std::vector<std::pair<std::u16string, std::u16string>>;

struct SurfaceCase {
  const char* name;
  vbide::vbext_ComponentType type;
  Properties properties;
  studio::TwipSize expected;
};

void PrintTo(const SurfaceCase& c, std::ostream* out) {
  *out << c.name;
}

class DesignerSurface : public ::testing::TestWithParam<SurfaceCase> {};

TEST_P(DesignerSurface, ComesFromTheBlocksOwnSize) {
  const SurfaceCase& c = GetParam();
  studio::TwipSize got = studio::DesignerSurfaceTwips(c.type, c.properties);
  EXPECT_NEAR(got.width, c.expected.width, 0.01);
  EXPECT_NEAR(got.height, c.expected.height, 0.01);
}

constexpr auto kForm = vbide::vbext_ct_VBForm;
constexpr auto kControl = vbide::vbext_ct_UserControl;

INSTANTIATE_TEST_SUITE_P(
    Cases, DesignerSurface,
    ::testing::Values(
        // A form's surface is its client area; its scale area may be in any unit.
        SurfaceCase{"FormUsesItsClientArea",
                    kForm,
                    {{u"ClientHeight", u"3195"},
                     {u"ClientWidth", u"4680"},
                     {u"ScaleHeight", u"213"},
                     {u"ScaleMode", u"3  'Pixel"},
                     {u"ScaleWidth", u"312"}},
                    {4680, 3195}},
        SurfaceCase{"MdiFormUsesItsClientArea",
                    vbide::vbext_ct_VBMDIForm,
                    {{u"ClientHeight", u"6600"}, {u"ClientWidth", u"9480"}},
                    {9480, 6600}},
        SurfaceCase{"FormWithoutSizeGetsTheDefault", kForm, {{u"Caption", u"\"A\""}}, {4800, 3600}},
        // A user control, page or document is its scale area, in its ScaleMode's units.
        SurfaceCase{"UserControlInTwips",
                    kControl,
                    {{u"ClientHeight", u"9999"},
                     {u"ClientWidth", u"9999"},
                     {u"ScaleHeight", u"285"},
                     {u"ScaleWidth", u"1695"}},
                    {1695, 285}},
        SurfaceCase{
            "UserControlInPixels",
            kControl,
            {{u"ScaleHeight", u"19"}, {u"ScaleMode", u"3  'Pixel"}, {u"ScaleWidth", u"113"}},
            {1695, 285}},
        SurfaceCase{
            "UserControlInCharacters",
            kControl,
            {{u"ScaleHeight", u"2"}, {u"ScaleMode", u"4  'Character"}, {u"ScaleWidth", u"10"}},
            {1200, 480}},
        SurfaceCase{"PropertyPageInCentimetres",
                    vbide::vbext_ct_PropPage,
                    {{u"ScaleHeight", u"2.54"}, {u"ScaleMode", u"7"}, {u"ScaleWidth", u"5.08"}},
                    {2880, 1440}},
        SurfaceCase{"NamesIgnoreCase",
                    vbide::vbext_ct_DocObject,
                    {{u"scalewidth", u"6420"}, {u"SCALEHEIGHT", u"4530"}},
                    {6420, 4530}},
        // A user-defined scale says nothing about the size: Width and Height do.
        SurfaceCase{"UserScaleFallsBackToWidthAndHeight",
                    kControl,
                    {{u"Height", u"600"},
                     {u"ScaleHeight", u"100"},
                     {u"ScaleMode", u"0  'User"},
                     {u"ScaleWidth", u"100"},
                     {u"Width", u"2400"}},
                    {2400, 600}},
        SurfaceCase{"OnlyWidthAndHeight",
                    vbide::vbext_ct_DocObject,
                    {{u"Width", u"3000"}, {u"Height", u"2000"}},
                    {3000, 2000}},
        SurfaceCase{"HalfASizeIsNoSize", kControl, {{u"ScaleWidth", u"1695"}}, {4800, 3600}},
        SurfaceCase{"NothingGivesTheDefault", kControl, {}, {4800, 3600}},
        SurfaceCase{"UnreadableOrEmptySizeGivesTheDefault",
                    kControl,
                    {{u"ScaleWidth", u"wide"}, {u"ScaleHeight", u"0"}},
                    {4800, 3600}}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
