// Row keys found ignoring case without a folded copy: a removed or renamed row frees its key,
// and case folding reaches beyond ASCII.
#include <gtest/gtest.h>

#include "runtime/Error.h"
#include "runtime/Runtime.h"
#include "runtime/UserDocument.h"
#include "runtime/VbStrings.h"
#include "runtime/forms/ListView.h"

namespace {

class Document : public vb::UserDocument {
 public:
  explicit Document(vb::Runtime& runtime) : UserDocument(runtime, u"docKeys") {}
  vb::ListView list{*this, u"list"};
};

TEST(ListItemsKeys, ARemovedOrRenamedRowFreesItsKeyForAnother) {
  auto runtime = vb::Runtime::CreateHeadless();
  Document doc(*runtime);
  auto& items = doc.list.ListItems();
  items.Add(0, u"Été|1", u"a");
  items.Add(0, u"b|2", u"b");
  EXPECT_EQ(items.Item(u"ÉTÉ|1").Text(), u"a");  // folding beyond ASCII
  EXPECT_THROW(items.Add(0, u"été|1"), vb::Error);
  items.Remove(1);
  EXPECT_EQ(items.Find(u"été|1"), nullptr);
  items.Add(0, u"été|1", u"again");
  EXPECT_EQ(items.Item(u"ÉTÉ|1").Text(), u"again");
  items.Item(u"B|2").SetKey(u"B|3");
  EXPECT_EQ(items.Find(u"b|2"), nullptr);
  items.Add(0, u"b|2", u"new");
  EXPECT_EQ(items.Item(u"b|3").Text(), u"b");
  EXPECT_EQ(items.Item(u"B|2").Text(), u"new");
  items.Item(u"b|2").SetKey(u"B|2");  // its own key in another case
  EXPECT_EQ(items.Item(u"b|2").Key(), u"B|2");
  items.Clear();
  EXPECT_EQ(items.Find(u"b|3"), nullptr);
  for (int i = 0; i < 1000; ++i) items.Add(0, u"k" + vb::CStr(std::int64_t(i)));
  EXPECT_EQ(items.Item(u"K999").Index(), 1000);
}

// Keys are hashed four units at a time, ASCII words folded in place and others unit by unit:
// the same key in another case must land on the same row whichever way each part was folded,
// at every length around the four-unit steps.
TEST(ListItemsKeys, KeysInAnotherCaseFindTheirRowsAtEveryLength) {
  auto runtime = vb::Runtime::CreateHeadless();
  Document doc(*runtime);
  auto& items = doc.list.ListItems();
  // Each pair folds alike: the Kelvin sign folds to "k", so "KELV" (ASCII) meets "\u212Ael".
  const std::u16string lower = u"kelvin|été|customer_k";
  const std::u16string upper = u"\u212AELVIN|ÉTÉ|CUSTOMER_\u212A";
  ASSERT_EQ(lower.size(), upper.size());
  for (std::size_t length = 1; length <= lower.size(); ++length) {
    items.Add(0, lower.substr(0, length), vb::CStr(static_cast<std::int64_t>(length)));
  }
  for (std::size_t length = 1; length <= upper.size(); ++length) {
    auto* row = items.Find(upper.substr(0, length));
    ASSERT_NE(row, nullptr) << "length " << length;
    EXPECT_EQ(row->Text(), vb::CStr(static_cast<std::int64_t>(length)));
    EXPECT_THROW(items.Add(0, upper.substr(0, length)), vb::Error) << "length " << length;
  }
  EXPECT_EQ(items.Count(), static_cast<int>(lower.size()));
}

}  // namespace
