// Reading XPM pictures: colours, transparency, multi-character pixels and clear errors.
#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/Utf.h"
#include "runtime/Xpm.h"
#include "support/VbErrorOf.h"

namespace {

TEST(Xpm, ReadsColoursTransparencyAndRowsFromTheCSource) {
  const char* source = R"(/* XPM */
static const char* const tiny_xpm[] = {
/* columns rows colours chars-per-pixel */
"3 2 4 1",
". c None",
"r c #FF0000",
"b s blue c #00f",
"w c White",
"r.b",
"wwr"
};)";
  vb::Picture picture = vb::ParseXpmSource(source, "tiny.xpm");
  EXPECT_EQ(picture,
            (vb::Picture{
                3, 2, {0xFFFF0000, 0x00000000, 0xFF0000FF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFF0000}}));
}

TEST(Xpm, ReadsTwoCharactersPerPixel) {
  vb::Picture picture = vb::ParseXpm({"2 1 2 2", "aa c #010203", "ab c gray", "abaa"}, "two.xpm");
  EXPECT_EQ(picture.pixels, (std::vector<std::uint32_t>{0xFF808080, 0xFF010203}));
}

struct BadCase {
  const char* name;
  std::vector<std::string_view> strings;
  std::u16string_view expected;  // a part of the description
};

TEST(Xpm, BadInputRaisesInvalidPictureNamingTheSourceAndString) {
  const BadCase cases[] = {
      {"NoStrings", {}, u"bad.xpm: no strings"},
      {"Header", {"2 x 1 1"}, u"bad.xpm string 1:"},
      {"Count", {"1 1 1 1", ". c None"}, u"expected 3 strings, found 2"},
      {"Colour", {"1 1 1 1", ". c mauve", "."}, u"bad.xpm string 2: unknown colour"},
      {"HexDigits", {"1 1 1 1", ". c #12345G", "."}, u"string 2: unknown colour"},
      {"RowLength", {"2 1 1 1", ". c None", "..."}, u"bad.xpm string 3: row of 3 characters"},
      {"UnknownPixel", {"2 1 1 1", ". c None", ".x"}, u"string 3: pixel with no colour"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    vb::Error e = qmtest::ErrorOf([&] { vb::ParseXpm(c.strings, "bad.xpm"); });
    EXPECT_EQ(e.Number(), 481);
    EXPECT_NE(e.Description().find(c.expected), std::u16string::npos)
        << vb::ToUtf8(e.Description());
  }
}

TEST(Xpm, AnUnclosedStringInTheSourceIsReported) {
  EXPECT_THROW(vb::ParseXpmSource("{ \"1 1 1 1\", \". c None\", \".", "open.xpm"), vb::Error);
}

}  // namespace
