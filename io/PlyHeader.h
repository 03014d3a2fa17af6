#pragma once

#include "io/Place.h"
#include "io/PlyType.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarn {

/// A number, or a list of numbers, of each record of an element.
struct PlyProperty {
  std::string name;
  PlyType type;                      ///< of the number, or of a list's numbers
  std::optional<PlyType> countType;  ///< of a list's length; none where it is no list
  Place place;                       ///< its line in the header

  bool isList() const { return countType.has_value(); }
};

/// Records of one kind, one after the other: the vertices, the faces.
struct PlyElement {
  std::string name;
  std::uint64_t count = 0;
  std::vector<PlyProperty> properties;
  Place place;  ///< its line in the header

  /// The index of the property of that name; none where there is none.
  std::optional<std::size_t> find(std::string_view property) const;
  /// What a binary record takes, in bytes, its lists counted as empty.
  std::size_t smallestSize() const;
  /// Whether all records have the same size.
  bool hasLists() const;
};

/// What a PLY file says about itself ahead of its data.
struct PlyHeader {
  enum class Form { eText, eLittleEndian, eBigEndian };

  /// Reads the header of `file`, whose content is `content`. Throws ReadError where it is
  /// none, or one of an unknown version. Neither is copied: places of the header name `file`.
  static PlyHeader read(const std::string& file, std::string_view content);

  Form form = Form::eText;
  std::vector<PlyElement> elements;  ///< in the order of their data
  std::size_t size = 0;              ///< bytes until the data begin
  long long lines = 0;               ///< lines until the data begin
};

}  // namespace tarn
