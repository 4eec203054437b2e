// vb::KeyIndex: rows by key ignoring case, through long runs of adds, removals and re-adds that a
// backward-shifting open-addressing table must survive without losing or inventing a key.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "runtime/CaseFold.h"
#include "runtime/Error.h"
#include "runtime/Runtime.h"
#include "runtime/UserDocument.h"
#include "runtime/Utf.h"
#include "runtime/forms/ListView.h"

namespace {

class docRows : public vb::UserDocument {
 public:
  explicit docRows(vb::Runtime& runtime) : UserDocument(runtime, u"docRows") {}
  vb::ListView lvw{*this, u"lvw"};
};

TEST(KeyIndex, AgreesWithAPlainMapThroughRandomAddsAndRemovals) {
  auto runtime = vb::Runtime::CreateHeadless();
  docRows doc(*runtime);
  auto& items = doc.lvw.ListItems();
  std::map<std::u16string, bool> reference;  // folded key -> present
  std::mt19937 random(7);
  for (int step = 0; step < 20000; ++step) {
    std::u16string key = u"Row|" + vb::FromUtf8(std::to_string(random() % 3000));
    if (random() % 2) key = vb::FoldCase(key);  // the same key in another case
    std::u16string folded = vb::FoldCase(key);
    if (random() % 3 != 0) {
      bool existed = reference[folded];
      if (existed) {
        EXPECT_THROW(items.Add(0, key), vb::Error) << vb::ToUtf8(key);
      } else {
        items.Add(0, key);
        reference[folded] = true;
      }
    } else if (auto* row = items.Find(key)) {
      ASSERT_TRUE(reference[folded]);
      items.Remove(row->Index());
      reference[folded] = false;
    } else {
      EXPECT_FALSE(reference[folded]) << vb::ToUtf8(key);
    }
  }
  int present = 0;
  for (auto& [key, there] : reference) {
    present += there;
    EXPECT_EQ(items.Find(key) != nullptr, there) << vb::ToUtf8(key);
  }
  EXPECT_EQ(items.Count(), present);
}

}  // namespace
