// vb::KeyIndex.
#include "runtime/forms/KeyIndex.h"

#include "runtime/CaseFold.h"
#include "runtime/FoldTable.h"
#include "runtime/forms/ListItem.h"

namespace vb {

std::uint64_t KeyIndex::Hash(std::u16string_view key) {
  std::uint64_t hash = 1469598103934665603ULL;  // FNV-1a over the folded units
  for (char16_t unit : key) hash = (hash ^ fold::Unit(unit)) * 1099511628211ULL;
  return hash ^ (hash >> 29);  // the table takes the low bits: mix the high ones in
}

ListItem* KeyIndex::Find(std::u16string_view key) const {
  if (slots_.empty()) return nullptr;
  std::uint64_t hash = Hash(key);
  for (std::size_t i = Home(hash);; i = (i + 1) & (slots_.size() - 1)) {
    const Slot& slot = slots_[i];
    if (!slot.item) return nullptr;
    if (slot.hash == hash && EqualsText(slot.item->Key(), key)) return slot.item;
  }
}

bool KeyIndex::Insert(ListItem* item) {
  if ((size_ + 1) * 2 > slots_.size()) Grow();
  std::uint64_t hash = Hash(item->Key());
  std::size_t i = Home(hash);
  for (; slots_[i].item; i = (i + 1) & (slots_.size() - 1))
    if (slots_[i].hash == hash && EqualsText(slots_[i].item->Key(), item->Key())) return false;
  slots_[i] = {hash, item};
  ++size_;
  return true;
}

void KeyIndex::Erase(const ListItem* item) {
  if (slots_.empty()) return;
  std::size_t mask = slots_.size() - 1;
  std::size_t i = Home(Hash(item->Key()));
  while (slots_[i].item && slots_[i].item != item) i = (i + 1) & mask;
  if (!slots_[i].item) return;
  // Backward-shift deletion: later entries of the probe run move up, so no tombstones build up.
  for (std::size_t next = (i + 1) & mask; slots_[next].item; next = (next + 1) & mask) {
    std::size_t home = Home(slots_[next].hash);
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
  slots_.clear();
  size_ = 0;
}

void KeyIndex::Grow() {
  std::vector<Slot> old = std::move(slots_);
  slots_.assign(old.empty() ? 64 : old.size() * 2, Slot{});
  for (const Slot& slot : old) {
    if (!slot.item) continue;
    std::size_t i = Home(slot.hash);
    while (slots_[i].item) i = (i + 1) & (slots_.size() - 1);
    slots_[i] = slot;
  }
}

}  // namespace vb
