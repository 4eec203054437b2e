// The add-in's pictures: every face and image-list key is registered, 16 x 16, and not blank.
#include <gtest/gtest.h>

#include <algorithm>

#include "QuillmarkResources.h"
#include "runtime/Utf.h"

namespace {

bool Visible(const vb::Picture& picture) {
  return std::ranges::count_if(picture.pixels, [](std::uint32_t p) { return p >> 24; }) >= 16;
}

TEST(QuillmarkResources, EveryFaceAndImageListKeyIsA16By16Picture) {
  vb::Resources resources;
  quillmark::RegisterQuillmarkResources(resources);
  for (int id : {101, 104, 105, 107}) {
    SCOPED_TRACE(id);
    const vb::Picture& face = resources.LoadResPicture(id);
    EXPECT_EQ(face.width, 16);
    EXPECT_EQ(face.height, 16);
    EXPECT_TRUE(Visible(face));
  }
  EXPECT_EQ(resources.LoadResPicture(u"NewMember").width, 16);
  // The keys the windows ask their image lists for are checked where they are used.
  for (std::u16string_view key : quillmark::ImageListKeys()) {
    SCOPED_TRACE(vb::ToUtf8(key));
    ASSERT_TRUE(resources.Contains(key));
    const vb::Picture& picture = resources.LoadResPicture(key);
    EXPECT_EQ(picture.width, 16);
    EXPECT_EQ(picture.height, 16);
    EXPECT_TRUE(Visible(picture));
  }
  EXPECT_EQ(quillmark::ImageListKeys().size(), 27u);
}

TEST(QuillmarkResources, KindsThatLookAlikeStillHaveTheirOwnPictures) {
  vb::Resources resources;
  quillmark::RegisterQuillmarkResources(resources);
  const auto& keys = quillmark::ImageListKeys();
  for (std::size_t i = 0; i < keys.size(); ++i)
    for (std::size_t j = i + 1; j < keys.size(); ++j)
      EXPECT_NE(resources.LoadResPicture(keys[i]), resources.LoadResPicture(keys[j]))
          << vb::ToUtf8(keys[i]) << " and " << vb::ToUtf8(keys[j]);
}

}  // namespace
