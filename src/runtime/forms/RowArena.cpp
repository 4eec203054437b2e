// vb::RowArena.
#include "runtime/forms/RowArena.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace vb {
namespace {

// Blocks double from 16 KB to 1 MB: a list of ten rows stays small, and a large one asks the
// heap for memory about once per five thousand rows.
constexpr std::size_t kFirstBlock = 16 * 1024;
constexpr std::size_t kLargestBlock = 1024 * 1024;
// What Clear keeps for the next rows, as std::vector::clear keeps its capacity: a search repeated
// over the same code refills the same memory instead of faulting in fresh pages (about a fifth
// of the cost of a large search). Beyond this the memory goes back.
constexpr std::size_t kKeptOnClear = 64 * 1024 * 1024;

}  // namespace

void* RowArena::RawFromNextBlock(std::size_t bytes, std::size_t align) {
  auto padFor = [align](std::byte* at) {
    return (align - reinterpret_cast<std::uintptr_t>(at) % align) % align;
  };
  while (!next_ || static_cast<std::size_t>(end_ - next_) < padFor(next_) + bytes) {
    if (current_ + 1 < blocks_.size()) {
      // A block kept from before the last Clear.
      ++current_;
    } else {
      std::size_t size =
          blocks_.empty() ? kFirstBlock : std::min(sizes_.back() * 2, kLargestBlock);
      size = std::max(size, bytes + align);  // an outsized request gets a block of its own
      blocks_.push_back(std::make_unique_for_overwrite<std::byte[]>(size));
      sizes_.push_back(size);
      reserved_ += size;
      current_ = blocks_.size() - 1;
    }
    next_ = blocks_[current_].get();
    end_ = next_ + sizes_[current_];
  }
  std::byte* at = next_ + padFor(next_);
  next_ = at + bytes;
  return at;
}

std::u16string_view RowArena::Store(std::u16string_view text) {
  if (text.empty()) return {};
  if (!blocks_.empty()) {
    // Compared as addresses: a view of other memory is never inside the block.
    auto begin = reinterpret_cast<std::uintptr_t>(blocks_[current_].get());
    auto used = reinterpret_cast<std::uintptr_t>(next_);
    auto at = reinterpret_cast<std::uintptr_t>(text.data());
    if (at >= begin && at + text.size() * sizeof(char16_t) <= used) return text;
  }
  auto* units = static_cast<char16_t*>(Raw(text.size() * sizeof(char16_t), alignof(char16_t)));
  std::memcpy(units, text.data(), text.size() * sizeof(char16_t));
  return {units, text.size()};
}

void RowArena::Clear() {
  std::size_t kept = 0, count = 0;
  while (count < blocks_.size() && kept + sizes_[count] <= kKeptOnClear) kept += sizes_[count++];
  blocks_.resize(count);
  sizes_.resize(blocks_.size());
  reserved_ = 0;
  for (std::size_t size : sizes_) reserved_ += size;
  current_ = 0;
  next_ = blocks_.empty() ? nullptr : blocks_[0].get();
  end_ = blocks_.empty() ? nullptr : next_ + sizes_[0];
}

}  // namespace vb
