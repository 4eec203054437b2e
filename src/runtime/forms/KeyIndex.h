// vb::KeyIndex: the keys of a list view's rows, for unique-key checks and lookups by key.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace vb {

class ListItem;

// An open-addressing table of rows by key, compared ignoring case. It keeps each key's hash
// beside its row, so a probe touches a row only when the hashes agree: adding 100,000 rows
// costs about one cache miss each, where a node-based set costs three.
class KeyIndex {
 public:
  // The row with that key, or null.
  ListItem* Find(std::u16string_view key) const;
  // Adds the row under its key; false (and nothing added) when another row has that key.
  bool Insert(ListItem* item);
  void Erase(const ListItem* item);
  void Clear();
  std::size_t Size() const { return size_; }

  static std::uint64_t Hash(std::u16string_view key);

 private:
  struct Slot {
    std::uint64_t hash = 0;
    ListItem* item = nullptr;  // null: empty
  };
  std::size_t Home(std::uint64_t hash) const {
    return static_cast<std::size_t>(hash) & (slots_.size() - 1);
  }
  void Grow();
  std::vector<Slot> slots_;
  std::size_t size_ = 0;
};

}  // namespace vb
