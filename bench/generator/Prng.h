// Prng: a tiny splitmix64 source, so the same seed gives the same files on every platform.
#pragma once

#include <cstdint>
#include <iterator>

namespace vbgen {

// std:: distributions differ between standard libraries; everything random in the generator
// goes through this class instead, using only integer arithmetic.
class Prng {
 public:
  explicit Prng(std::uint64_t seed) : state_(seed) {}

  // Derives an independent stream, e.g. one per module, so a module's text does not depend on
  // how much randomness the modules before it consumed.
  static Prng Fork(std::uint64_t seed, std::uint64_t stream) {
    Prng mixer(seed ^ (stream * 0xD1B54A32D192ED03ull));
    return Prng(mixer.Next());
  }

  std::uint64_t Next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
  }

  // Uniform in [0, bound); bound must be positive.
  std::uint32_t Below(std::uint32_t bound) {
    return static_cast<std::uint32_t>(((Next() >> 32) * bound) >> 32);
  }

  // Uniform in [low, high].
  int Between(int low, int high) {
    return low + static_cast<int>(Below(static_cast<std::uint32_t>(high - low + 1)));
  }

  bool Chance(int percent) { return Below(100) < static_cast<std::uint32_t>(percent); }

  // One element of a non-empty array, span or vector.
  template <class Items>
  const auto& Pick(const Items& items) {
    return items[Below(static_cast<std::uint32_t>(std::size(items)))];
  }

 private:
  std::uint64_t state_;
};

}  // namespace vbgen
