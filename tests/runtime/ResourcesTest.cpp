// Bitmap resources: found by number or name, and error 326 for a missing identifier.
#include <gtest/gtest.h>

#include <functional>

#include "runtime/Error.h"
#include "runtime/Resources.h"
#include "support/VbErrorOf.h"

namespace {

vb::Picture Solid(int size, std::uint32_t colour) {
  return vb::Picture{size, size, std::vector<std::uint32_t>(size * size, colour)};
}

TEST(Resources, FindsPicturesByNumberAndByNameInAnyCase) {
  vb::Resources resources;
  resources.Register(101, Solid(16, 0xFF0000FF));
  resources.Register(u"NewMember", Solid(16, 0xFF00FF00));
  EXPECT_EQ(resources.LoadResPicture(101), Solid(16, 0xFF0000FF));
  EXPECT_EQ(resources.LoadResPicture(u"NEWMEMBER"), Solid(16, 0xFF00FF00));
  EXPECT_EQ(resources.Names(), std::vector<std::u16string>{u"NewMember"});
  EXPECT_EQ(resources.Numbers(), std::vector<int>{101});
  resources.Register(101, Solid(8, 0));
  EXPECT_EQ(resources.LoadResPicture(101).width, 8) << "registering again replaces";
}

TEST(Resources, AMissingIdentifierRaises326NamingIt) {
  vb::Resources resources;
  resources.Register(101, Solid(16, 0));
  const std::pair<std::function<void()>, std::u16string> cases[] = {
      {[&] { resources.LoadResPicture(104); }, u"Resource with identifier '104' not found"},
      {[&] { resources.LoadResPicture(u"NewMember"); },
       u"Resource with identifier 'NewMember' not found"},
  };
  for (const auto& [load, description] : cases) {
    vb::Error e = qmtest::ErrorOf(load);
    EXPECT_EQ(e.Number(), 326);
    EXPECT_EQ(e.Description(), description);
  }
}

}  // namespace
