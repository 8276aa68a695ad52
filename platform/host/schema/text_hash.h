/// The hash behind the lookups by path and by name.
#ifndef PLATFORM_HOST_TEXT_HASH_H
#define PLATFORM_HOST_TEXT_HASH_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace host {

/// Takes eight bytes at a step, which halves the time of a lookup against std::hash. Of no meaning
/// outside the process: it differs between byte orders.
class TextHash {
 public:
  static std::uint32_t of(std::string_view text) {
    if (text.size() < kWord) return finished(mixed(text.size(), short_word(text)));
    std::uint64_t even = text.size();
    std::uint64_t odd = kFactor;
    const char* at = text.data();
    const char* const last = at + text.size() - kWord;
    for (; at + kWord < last; at += 2 * kWord) {  // two chains, so that the steps overlap
      even = mixed(even, word(at));
      odd = mixed(odd, word(at + kWord));
    }
    if (at < last) even = mixed(even, word(at));
    return finished(mixed(odd, word(last)) ^ wrapped_product(even, kFactor));
  }

  /// Looks at both ends only, where parameters of one object differ.
  static std::uint32_t of_ends(std::string_view text) {
    if (text.size() < kWord) return finished(mixed(text.size(), short_word(text)));
    const std::uint64_t first = mixed(text.size(), word(text.data()));
    return finished(mixed(first, word(text.data() + text.size() - kWord)));
  }

 private:
  static constexpr std::size_t kWord = sizeof(std::uint64_t);
  static constexpr std::size_t kHalfWord = sizeof(std::uint32_t);
  static constexpr unsigned kByteBits = 8;
  static constexpr unsigned kHalfBits = 32;
  static constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;

  static std::uint64_t word(const char* at) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, at, kWord);
    return bytes;
  }

  static std::uint32_t half_word(const char* at) {
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, at, kHalfWord);
    return bytes;
  }

  /// All bytes of a text shorter than a word; some of them twice.
  static std::uint64_t short_word(std::string_view text) {
    const char* const at = text.data();
    const std::size_t size = text.size();
    if (size >= kHalfWord) {
      return static_cast<std::uint64_t>(half_word(at)) << kHalfBits |
             half_word(at + size - kHalfWord);
    }
    std::uint64_t bytes = 0;
    for (std::size_t i = 0; i < size; ++i) {
      bytes = bytes << kByteBits | static_cast<unsigned char>(at[i]);
    }
    return bytes;
  }

  /// Modulo 2^64, without a word from the sanitizers.
  static std::uint64_t wrapped_product(std::uint64_t one, std::uint64_t other) {
    std::uint64_t product = 0;
    (void)__builtin_mul_overflow(one, other, &product);
    return product;
  }

  static std::uint64_t mixed(std::uint64_t hash, std::uint64_t bytes) {
    constexpr unsigned kTurn = 29;  // low bits decide over high ones only, so they change places
    constexpr unsigned kStaying = 2 * kHalfBits - kTurn;
    const std::uint64_t low = hash & ((std::uint64_t{1} << kStaying) - 1);
    const std::uint64_t turned = low << kTurn | hash >> kStaying;
    return wrapped_product(turned ^ bytes, kFactor);
  }

  static std::uint32_t finished(std::uint64_t hash) {
    return static_cast<std::uint32_t>(wrapped_product(hash ^ hash >> kHalfBits, kFactor) >>
                                      kHalfBits);
  }
};

}  // namespace host

#endif  // PLATFORM_HOST_TEXT_HASH_H
