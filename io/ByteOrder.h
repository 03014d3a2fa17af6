#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace tarn {

/// The same number with its bytes the other way round.
inline std::uint16_t withBytesReversed(std::uint16_t bits) { return __builtin_bswap16(bits); }
inline std::uint32_t withBytesReversed(std::uint32_t bits) { return __builtin_bswap32(bits); }
inline std::uint64_t withBytesReversed(std::uint64_t bits) { return __builtin_bswap64(bits); }

/// An integer or floating-point number that stands in a file's bytes in the given order, at
/// any address.
template <typename Number, std::endian order>
Number numberAt(const char* bytes) {
  static_assert(sizeof(Number) == 1 || sizeof(Number) == 2 || sizeof(Number) == 4 ||
                sizeof(Number) == 8);
  if constexpr (sizeof(Number) == 1 || order == std::endian::native) {
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
  } else {
    using Bits =
        std::conditional_t<sizeof(Number) == 2, std::uint16_t,
                           std::conditional_t<sizeof(Number) == 4, std::uint32_t, std::uint64_t>>;
    Bits bits;
    std::memcpy(&bits, bytes, sizeof bits);
    return std::bit_cast<Number>(withBytesReversed(bits));
  }
}

}  // namespace tarn
