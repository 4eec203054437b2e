// vb::RowArena: the memory of a list's rows, handed out in large blocks and given back at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <type_traits>
#include <vector>

namespace vb {

// A search may add a hundred thousand rows of half a dozen short texts each; one heap block per
// text would cost more than the search itself. Everything stored here stays at its address until
// Clear, so views of it may be handed out freely. Nothing is freed one by one: a text that is
// replaced stays until the list is cleared.
class RowArena {
 public:
  RowArena() = default;
  RowArena(const RowArena&) = delete;
  RowArena& operator=(const RowArena&) = delete;

  // A copy of `text` that stays put until Clear. The empty text costs nothing, and a text that
  // already lies in the block being filled (a view of something stored a moment ago, such as
  // part of a row's tag) is shared: what is stored never changes.
  std::u16string_view Store(std::u16string_view text);
  // Room for `count` objects of T, not constructed; T must need no destructor.
  template <class T>
  T* Allocate(std::size_t count) {
    static_assert(std::is_trivially_destructible_v<T>, "the arena runs no destructors");
    return static_cast<T*>(Raw(sizeof(T) * count, alignof(T)));
  }
  // Forgets everything stored; the first blocks (up to 64 MB) are kept for what comes next.
  void Clear();
  std::size_t BytesReserved() const { return reserved_; }

 private:
  // The next `bytes` of the current block, aligned; a new or kept block when they do not fit.
  void* Raw(std::size_t bytes, std::size_t align) {
    auto at = (reinterpret_cast<std::uintptr_t>(next_) + align - 1) & ~(align - 1);
    if (next_ && at + bytes <= reinterpret_cast<std::uintptr_t>(end_)) {
      next_ = reinterpret_cast<std::byte*>(at + bytes);
      return reinterpret_cast<void*>(at);
    }
    return RawFromNextBlock(bytes, align);
  }
  void* RawFromNextBlock(std::size_t bytes, std::size_t align);
  std::vector<std::unique_ptr<std::byte[]>> blocks_;
  std::vector<std::size_t> sizes_;
  std::size_t current_ = 0;  // the block being filled
  std::byte* next_ = nullptr;
  std::byte* end_ = nullptr;
  std::size_t reserved_ = 0;
};

}  // namespace vb
