#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>

namespace tarn {

/// The types of numbers in PLY files.
enum class PlyType { eInt8, eUInt8, eInt16, eUInt16, eInt32, eUInt32, eFloat32, eFloat64 };

/// The type of that name, of the older ones ("uchar") or the newer ("uint8"); none where
/// there is no such type.
std::optional<PlyType> plyType(std::string_view name);

/// What `work` returns for the C++ type that holds such a number, handed over as a
/// std::type_identity of it.
template <typename Work>
auto visitPlyType(PlyType type, Work&& work) {
  switch (type) {
    case PlyType::eInt8:
      return work(std::type_identity<std::int8_t>());
    case PlyType::eUInt8:
      return work(std::type_identity<std::uint8_t>());
    case PlyType::eInt16:
      return work(std::type_identity<std::int16_t>());
    case PlyType::eUInt16:
      return work(std::type_identity<std::uint16_t>());
    case PlyType::eInt32:
      return work(std::type_identity<std::int32_t>());
    case PlyType::eUInt32:
      return work(std::type_identity<std::uint32_t>());
    case PlyType::eFloat32:
      return work(std::type_identity<float>());
    case PlyType::eFloat64:
      break;
  }
  return work(std::type_identity<double>());
}

/// Its size in a binary file, in bytes.
inline std::size_t sizeOf(PlyType type) {
  return visitPlyType(type,
                      []<typename Number>(std::type_identity<Number>) { return sizeof(Number); });
}

inline bool isInteger(PlyType type) {
  return type != PlyType::eFloat32 && type != PlyType::eFloat64;
}

}  // namespace tarn
