#include "io/PlyVertices.h"

#include "host/model/PointMesh.h"
#include "io/ByteOrder.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <type_traits>

namespace tarn {

namespace {

// Records that are converted at a time, column by column: few enough to stay in the cache.
constexpr std::size_t blockSize = 1024;
// Points whose median is taken for the middle of all.
constexpr std::size_t sampleSize = 1000;
// Where all points' middle is that far from the first ones', they are read once more.
constexpr double farFromSample = 10000.0;

// Whether floats hold all values of a type.
template <typename Number>
constexpr bool isFloatOrSmaller = sizeof(Number) < sizeof(float) || std::is_same_v<Number, float>;

bool floatHolds(PlyType type) {
  return visitPlyType(
      type, []<typename Number>(std::type_identity<Number>) { return isFloatOrSmaller<Number>; });
}

template <typename Number>
float narrowed(Number value, double shift) {
  if constexpr (isFloatOrSmaller<Number>) {
    return static_cast<float>(value);
  } else {
    return static_cast<float>(static_cast<double>(value) - shift);
  }
}

// What a colour's number is multiplied by: floats reach to 1, 16 bits to 65535, all others
// are bytes, whatever size they are written in.
double colourScale(PlyType type) {
  if (!isInteger(type)) return 255.0;
  return type == PlyType::eUInt16 ? 255.0 / 65535.0 : 1.0;
}

unsigned char colourByte(double value, double scale) {
  const double byte = value * scale + 0.5;
  if (!(byte >= 0.0)) return 0;  // also for no number
  return byte < 255.0 ? static_cast<unsigned char>(byte) : 255;
}

// Hands `take` the numbers that stand `stride` bytes apart, each with its index.
template <std::endian order, typename Take>
void forColumn(PlyType type, const char* bytes, std::size_t stride, std::size_t count, Take take) {
  visitPlyType(type, [=]<typename Number>(std::type_identity<Number>) {
    for (std::size_t i = 0; i < count; ++i) take(i, numberAt<Number, order>(bytes + i * stride));
  });
}

bool isUsable(float coordinate) {
  return std::abs(coordinate) <= std::numeric_limits<float>::max();
}

constexpr std::array<double Point3DDouble::*, 3> axes{&Point3DDouble::x, &Point3DDouble::y,
                                                      &Point3DDouble::z};

// Gives directions the length 1; what has none becomes zero.
void normalise(Point3DDouble& direction) {
  const double length = direction.length();
  const bool hasDirection = length > 0.0 && length <= std::numeric_limits<double>::max();
  direction = hasDirection ? (1.0 / length) * direction : Point3DDouble();
}

}  // namespace

PlyVertices::PlyVertices(const PlyElement& element, bool withNormals) : _element(element) {
  const std::optional<Columns> positions = columns({"x", "y", "z"});
  if (!positions) {
    element.place.refuse("vertices without all of x, y and z", "these three properties");
  }
  _positions = *positions;
  _colours = columns({"blue", "green", "red"});
  if (!_colours) _colours = columns({"diffuse_blue", "diffuse_green", "diffuse_red"});
  if (withNormals) _directions = columns({"nx", "ny", "nz"});
  _isUsed.resize(element.properties.size());
  for (const std::optional<Columns>& used : {positions, _colours, _directions}) {
    if (!used) continue;
    for (const Column& column : *used) _isUsed[column.property] = true;
  }
}

// The properties of those names; none where one is missing.
std::optional<PlyVertices::Columns> PlyVertices::columns(
    const std::array<const char*, 3>& names) const {
  Columns found;
  for (std::size_t k = 0; k < 3; ++k) {
    const std::optional<std::size_t> property = _element.find(names[k]);
    if (!property) return std::nullopt;
    found[k] = {*property, 0, _element.properties[*property].type};
    for (std::size_t i = 0; i < *property; ++i) {
      found[k].offset += sizeOf(_element.properties[i].type);
    }
  }
  for (const Column& column : found) {
    const PlyProperty& property = _element.properties[column.property];
    if (property.isList()) {
      property.place.refuse("a list " + quoted(property.name), "a number of that name");
    }
  }
  return found;
}

void PlyVertices::read(PlySource& source, PointMesh& mesh, ReadProgress& progress) {
  const auto count = static_cast<std::size_t>(_element.count);
  mesh.Allocate(static_cast<int>(count), _colours ? 1 : 0);
  if (_directions) _normals.resize(count);
  for (std::size_t k = 0; k < 3; ++k) {
    _isExact[k] = source.order() && floatHolds(_positions[k].type);
  }
  if (std::ranges::all_of(_isExact, std::identity())) {
    readPoints(source, mesh, count, progress);
    return;
  }
  // The first points tell where all of them are, unless they are lost ones or a far corner.
  const std::size_t sample = std::min(count, sampleSize);
  readPoints(source, mesh, sample, progress);
  improveShift(mesh, sample, {farInPlan, farInPlan, farInHeight});
  source.restart();
  readPoints(source, mesh, count, progress);
  if (!improveShift(mesh, count, {farFromSample, farFromSample, farFromSample})) return;
  source.restart();
  readPoints(source, mesh, count, progress);
}

std::vector<int> PlyVertices::dropUnusable(PointMesh& mesh) {
  if (!_hasUnusable) return {};
  float* xyz = mesh.GetPointStorage().data();
  unsigned char* bgr = mesh.GetColourStorage().data();
  std::vector<int> newIndexes(static_cast<std::size_t>(mesh.GetNumPoints()));
  std::size_t kept = 0;
  for (std::size_t i = 0; i < newIndexes.size(); ++i) {
    if (!std::all_of(xyz + 3 * i, xyz + 3 * i + 3, isUsable)) {
      newIndexes[i] = -1;
      continue;
    }
    newIndexes[i] = static_cast<int>(kept);
    if (kept < i) {
      std::copy_n(xyz + 3 * i, 3, xyz + 3 * kept);
      if (_colours) std::copy_n(bgr + 3 * i, 3, bgr + 3 * kept);
      if (_directions) _normals[kept] = _normals[i];
    }
    ++kept;
  }
  mesh.Truncate(static_cast<int>(kept));
  if (_directions) _normals.resize(kept);
  return newIndexes;
}

// Reads the first records of the element, with the present shift.
void PlyVertices::readPoints(PlySource& source, PointMesh& mesh, std::size_t count,
                             ReadProgress& progress) {
  _hasUnusable = false;
  const bool inRows = source.order() && !_element.hasLists();
  for (std::size_t first = 0; first < count; first += blockSize) {
    const Block block{mesh.GetPointStorage().data() + 3 * first,
                      _colours ? mesh.GetColourStorage().data() + 3 * first : nullptr,
                      _directions ? _normals.data() + first : nullptr,
                      std::min(blockSize, count - first)};
    if (!inRows) {
      readRecords(source, block);
    } else if (*source.order() == std::endian::little) {
      readRows<std::endian::little>(source, block);
    } else {
      readRows<std::endian::big>(source, block);
    }
    bool unusable = false;
    for (std::size_t i = 0; i < 3 * block.count; ++i) unusable |= !isUsable(block.xyz[i]);
    _hasUnusable |= unusable;
    if (_directions) std::for_each_n(block.normals, block.count, normalise);
    progress.at(source.done());
  }
}

// Column by column, for what is alike is fast.
template <std::endian order>
void PlyVertices::readRows(PlySource& source, const Block& block) const {
  const char* rows = source.rows(_element, block.count);
  const auto forEach = [&](const Column& column, const auto& take) {
    forColumn<order>(column.type, rows + column.offset, _element.smallestSize(), block.count, take);
  };
  for (std::size_t k = 0; k < 3; ++k) {
    forEach(_positions[k], [out = block.xyz + k, shift = _shift[k]](std::size_t i, auto value) {
      out[3 * i] = narrowed(value, shift);
    });
    if (_colours) {
      const double scale = colourScale((*_colours)[k].type);
      forEach((*_colours)[k], [out = block.bgr + k, scale](std::size_t i, auto value) {
        if constexpr (std::is_same_v<decltype(value), std::uint8_t>) {
          out[3 * i] = value;
        } else {
          out[3 * i] = colourByte(static_cast<double>(value), scale);
        }
      });
    }
    if (_directions) {
      forEach((*_directions)[k], [out = block.normals, axis = axes[k]](std::size_t i, auto value) {
        out[i].*axis = static_cast<double>(value);
      });
    }
  }
}

// Value by value, for text and for records that hold lists.
void PlyVertices::readRecords(PlySource& source, const Block& block) const {
  std::vector<double> values(_element.properties.size());
  for (std::size_t i = 0; i < block.count; ++i) {
    source.beginRecord();
    for (std::size_t p = 0; p < values.size(); ++p) {
      if (_isUsed[p]) {
        values[p] = source.number(_element.properties[p]);
      } else {
        source.skipValue(_element.properties[p]);
      }
    }
    source.endRecord();
    for (std::size_t k = 0; k < 3; ++k) {
      block.xyz[3 * i + k] = narrowed(values[_positions[k].property], _shift[k]);
      if (_colours) {
        const Column& colour = (*_colours)[k];
        block.bgr[3 * i + k] = colourByte(values[colour.property], colourScale(colour.type));
      }
      if (_directions) block.normals[i].*axes[k] = values[(*_directions)[k].property];
    }
  }
}

// Moves the shift to the median of the first `points` points in those coordinates in which
// it is farther than the limit from what is stored. Returns whether it moved.
bool PlyVertices::improveShift(const PointMesh& mesh, std::size_t points,
                               const std::array<double, 3>& limits) {
  bool moved = false;
  std::vector<float> sample;
  for (std::size_t k = 0; k < 3; ++k) {
    if (_isExact[k]) continue;
    sample.clear();
    const std::size_t step = std::max<std::size_t>(points / sampleSize, 1);
    for (std::size_t i = 0; i < points; i += step) {
      const float coordinate = mesh.GetPoints()[i][k];
      if (isUsable(coordinate)) sample.push_back(coordinate);
    }
    if (sample.empty()) continue;
    const auto middle = sample.begin() + static_cast<std::ptrdiff_t>(sample.size() / 2);
    std::ranges::nth_element(sample, middle);
    if (std::abs(*middle) <= limits[k]) continue;
    // A whole number, also after it was rounded to what a float holds.
    const auto shift = static_cast<float>(std::round(_shift[k] + double{*middle}));
    if (!isUsable(shift) || double{shift} == _shift[k]) continue;
    _shift[k] = double{shift};
    moved = true;
  }
  return moved;
}

}  // namespace tarn
