// vb::KeyIndex.
#include "runtime/forms/KeyIndex.h"

#include <algorithm>
#include <cstring>

#include "runtime/CaseFold.h"
#include "runtime/FoldTable.h"

namespace vb {

std::uint64_t KeyIndex::Hash(std::u16string_view key) {
  // Four units at a time: ASCII words, the usual case, are folded in place (A-Z gain 0x20);
  // a word with any other unit is folded unit by unit through the table.
  constexpr std::uint64_t kLanes = 0x0001000100010001ULL;
  constexpr std::uint64_t kHigh = 0x0080008000800080ULL;
  constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15ULL;
  std::uint64_t hash = key.size() * kMultiplier;
  std::size_t i = 0;
  auto mix = [&hash](std::uint64_t word) {
    hash = (hash ^ word) * kMultiplier;
    hash ^= hash >> 29;
  };
  for (; i + 4 <= key.size(); i += 4) {
    std::uint64_t word;
    std::memcpy(&word, key.data() + i, sizeof word);
    if ((word & (kLanes * 0xFF80)) == 0) {
      std::uint64_t atLeastA = (word + kLanes * (0x80 - u'A')) & kHigh;
      std::uint64_t aboveZ = (word + kLanes * (0x80 - u'Z' - 1)) & kHigh;
      word |= (atLeastA & ~aboveZ) >> 2;  // 0x80 >> 2 is the 0x20 that lowers a capital
    } else {
      word = 0;
      for (std::size_t k = 0; k < 4; ++k)
        word |= static_cast<std::uint64_t>(fold::Unit(key[i + k])) << (16 * k);
    }
    mix(word);
  }
  std::uint64_t tail = 0;
  for (std::size_t k = 0; i < key.size(); ++i, ++k)
    tail |= static_cast<std::uint64_t>(fold::Unit(key[i])) << (16 * k);
  mix(tail);
  return hash;
}

ListItem* KeyIndex::Find(std::u16string_view key) const {
  if (slots_.empty()) return nullptr;
  std::uint32_t tag = Tag(Hash(key));
  for (std::size_t i = Home(tag);; i = (i + 1) & (slots_.size() - 1)) {
    const Slot& slot = slots_[i];
    if (slot.tag == 0) return nullptr;
    if (slot.tag == tag && EqualsText(rows_[slot.row]->Key(), key)) return rows_[slot.row];
  }
}

std::uint64_t KeyIndex::Prefetch(std::u16string_view key) const {
  std::uint64_t hash = Hash(key);
  if (!slots_.empty()) __builtin_prefetch(&slots_[Home(Tag(hash))]);
  return hash;
}

bool KeyIndex::Insert(ListItem* item, std::uint64_t hash) {
  // At most three quarters full: a probe run stays within a cache line or two.
  if ((size_ + 1) * 4 > slots_.size() * 3) Grow();
  std::uint32_t tag = Tag(hash);
  std::size_t i = Home(tag);
  for (; slots_[i].tag != 0; i = (i + 1) & (slots_.size() - 1))
    if (slots_[i].tag == tag && EqualsText(rows_[slots_[i].row]->Key(), item->Key())) return false;
  slots_[i] = {tag, item->row_};
  ++size_;
  return true;
}

void KeyIndex::Erase(const ListItem* item) {
  if (slots_.empty()) return;
  std::size_t mask = slots_.size() - 1;
  std::size_t i = Home(Tag(Hash(item->Key())));
  while (slots_[i].tag != 0 && rows_[slots_[i].row] != item) i = (i + 1) & mask;
  if (slots_[i].tag == 0) return;
  // Backward-shift deletion: later entries of the probe run move up, so no tombstones build up.
  for (std::size_t next = (i + 1) & mask; slots_[next].tag != 0; next = (next + 1) & mask) {
    std::size_t home = Home(slots_[next].tag);
    bool movable = (next > i) ? (home <= i || home > next) : (home <= i && home > next);
    if (movable) {
      slots_[i] = slots_[next];
      i = next;
    }
  }
  slots_[i] = {};
  --size_;
}

void KeyIndex::Clear() {
  if (slots_.size() > (1u << 20))
    slots_.clear();
  else
    std::fill(slots_.begin(), slots_.end(), Slot{});
  size_ = 0;
}

void KeyIndex::Grow() {
  std::vector<Slot> old = std::move(slots_);
  slots_.assign(old.empty() ? 64 : old.size() * 2, Slot{});
  for (const Slot& slot : old) {
    if (slot.tag == 0) continue;
    std::size_t i = Home(slot.tag);
    while (slots_[i].tag != 0) i = (i + 1) & (slots_.size() - 1);
    slots_[i] = slot;
  }
}

}  // namespace vb
