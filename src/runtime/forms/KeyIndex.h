// vb::KeyIndex: the keys of a list view's rows, for unique-key checks and lookups by key.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "runtime/forms/ListItem.h"

namespace vb {

// An open-addressing table of rows by key, compared ignoring case. A slot is eight bytes: 32
// bits of the key's hash and the row's number in the list's table of rows (`rows`), so a probe
// touches a row only when those bits agree, and the table of a search's 100,000 rows (1 MB)
// stays in the processor's second-level cache: adding a row is one cache hit, not a miss.
class KeyIndex {
 public:
  explicit KeyIndex(const std::vector<ListItem*>& rows) : rows_(rows) {}
  // The row with that key, or null.
  ListItem* Find(std::u16string_view key) const;
  // Adds the row under its key; false (and nothing added) when another row has that key.
  bool Insert(ListItem* item) { return Insert(item, Hash(item->Key())); }
  // The same with the key's hash, taken earlier by Prefetch.
  bool Insert(ListItem* item, std::uint64_t hash);
  // The key's hash, with the table's memory for it asked for now, so that the probe that
  // follows, after the row is built, finds it in the cache.
  std::uint64_t Prefetch(std::u16string_view key) const;
  void Erase(const ListItem* item);
  // Forgets every key; the table keeps its size (unless it is large) for the next rows.
  void Clear();
  std::size_t Size() const { return size_; }

  static std::uint64_t Hash(std::u16string_view key);

 private:
  struct Slot {
    std::uint32_t tag = 0;  // 0: empty
    std::uint32_t row = 0;
  };
  static std::uint32_t Tag(std::uint64_t hash) {
    auto tag = static_cast<std::uint32_t>(hash >> 32);
    return tag != 0 ? tag : 1;
  }
  std::size_t Home(std::uint32_t tag) const { return tag & (slots_.size() - 1); }
  void Grow();
  const std::vector<ListItem*>& rows_;
  std::vector<Slot> slots_;
  std::size_t size_ = 0;
};

}  // namespace vb
