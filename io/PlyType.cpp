#include "io/PlyType.h"

#include <algorithm>

namespace tarn {

namespace {
struct Name {
  std::string_view older;
  std::string_view newer;
  PlyType type;
};
constexpr Name names[] = {
    {"char", "int8", PlyType::eInt8},        {"uchar", "uint8", PlyType::eUInt8},
    {"short", "int16", PlyType::eInt16},     {"ushort", "uint16", PlyType::eUInt16},
    {"int", "int32", PlyType::eInt32},       {"uint", "uint32", PlyType::eUInt32},
    {"float", "float32", PlyType::eFloat32}, {"double", "float64", PlyType::eFloat64},
};
}  // namespace

std::optional<PlyType> plyType(std::string_view name) {
  const auto* found = std::ranges::find_if(
      names, [name](const Name& known) { return name == known.older || name == known.newer; });
  if (found == std::end(names)) return std::nullopt;
  return found->type;
}

}  // namespace tarn
