// vb::RowArena: what is stored keeps its place and text across many blocks, views of stored text
// are shared rather than copied, and clearing hands back memory beyond what is kept.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "runtime/forms/RowArena.h"

namespace {

std::u16string TextOf(int i) {
  // Lengths 0 to 40, so blocks fill unevenly and odd sizes meet the alignment of what follows.
  std::u16string text(static_cast<std::size_t>(i % 41), u'a');
  for (std::size_t k = 0; k < text.size(); ++k) text[k] = static_cast<char16_t>(u'a' + (i + k) % 26);
  return text;
}

struct Row {
  std::uint64_t number;
  std::u16string_view text;
};

TEST(RowArena, StoredTextsAndObjectsKeepTheirPlacesAcrossBlocks) {
  vb::RowArena arena;
  std::vector<std::u16string_view> texts;
  std::vector<Row*> rows;
  for (int i = 0; i < 200000; ++i) {
    texts.push_back(arena.Store(TextOf(i)));
    Row* row = arena.Allocate<Row>(1);
    ASSERT_EQ(reinterpret_cast<std::uintptr_t>(row) % alignof(Row), 0u) << i;
    *row = {static_cast<std::uint64_t>(i), texts.back()};
    rows.push_back(row);
  }
  for (int i = 0; i < 200000; ++i) {
    ASSERT_EQ(texts[static_cast<std::size_t>(i)], TextOf(i)) << i;
    ASSERT_EQ(rows[static_cast<std::size_t>(i)]->number, static_cast<std::uint64_t>(i));
  }
  EXPECT_GT(arena.BytesReserved(), 200000 * sizeof(Row));
  // An outsized request gets a block of its own and the next small one still fits somewhere.
  std::u16string big(3 * 1024 * 1024, u'x');
  EXPECT_EQ(arena.Store(big), big);
  EXPECT_EQ(arena.Store(u"after"), u"after");
}

TEST(RowArena, AViewOfStoredTextIsSharedAndOtherTextIsCopied) {
  vb::RowArena arena;
  std::u16string line = u"    total = total + amount";
  std::u16string_view stored = arena.Store(line);
  EXPECT_NE(stored.data(), line.data());
  std::u16string_view part = stored.substr(4, 5);
  std::u16string_view again = arena.Store(part);
  EXPECT_EQ(again.data(), part.data());
  EXPECT_EQ(again, u"total");
  // Equal text from elsewhere is a new copy; changing the source later changes nothing stored.
  std::u16string_view copy = arena.Store(std::u16string_view(line).substr(4, 5));
  EXPECT_NE(copy.data(), part.data());
  line[4] = u'T';
  EXPECT_EQ(copy, u"total");
  EXPECT_TRUE(arena.Store(u"").empty());
}

TEST(RowArena, ClearingKeepsSomeMemoryForTheNextRowsAndGivesBackTheRest) {
  vb::RowArena arena;
  std::u16string text(1000, u'q');
  for (int i = 0; i < 50000; ++i) arena.Store(text);  // 100 MB
  EXPECT_GT(arena.BytesReserved(), 99u * 1000 * 1000);
  arena.Clear();
  EXPECT_LE(arena.BytesReserved(), 64u * 1024 * 1024);
  EXPECT_GT(arena.BytesReserved(), 0u);
  std::size_t kept = arena.BytesReserved();
  // Refilled up to what was kept without asking for more.
  std::vector<std::u16string_view> views;
  while (views.size() * 2000 < kept / 2) views.push_back(arena.Store(std::u16string(1000, u'r')));
  EXPECT_EQ(arena.BytesReserved(), kept);
  for (auto view : views) ASSERT_EQ(view, std::u16string(1000, u'r'));
}

}  // namespace
