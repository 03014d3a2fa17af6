#include "bench/DenseFloors.h"

#include "bench/PlainRamp.h"
#include "host/general/Colour.h"
#include "host/model/ThreeDPoint.h"
#include "host/model/Triangle.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>

namespace bench {

namespace {

// Every byte as a colour's component.
const std::array<float, 256>& components() {
  static const std::array<float, 256> all = [] {
    std::array<float, 256> made{};
    for (std::size_t i = 0; i < made.size(); ++i) {
      made[i] = static_cast<float>(static_cast<double>(i) / 255.0);
    }
    return made;
  }();
  return all;
}

void setColor(std::vector<float>& colours, std::size_t point, float red, float green, float blue) {
  colours[3 * point] = red;
  colours[3 * point + 1] = green;
  colours[3 * point + 2] = blue;
}

}  // namespace

void plainPositions(float* const* points, int count, std::vector<float>& viewer) {
  viewer.resize(3 * static_cast<std::size_t>(count));
  const tarn::Point3DDouble offset = tarn::gThreeDViewOffset;
  float* out = viewer.data();
  for (int i = 0; i < count; ++i, out += 3) {
    const float* point = points[i];
    out[0] = static_cast<float>(static_cast<double>(point[0]) - offset.x);
    out[1] = static_cast<float>(static_cast<double>(point[2]) - offset.z);
    out[2] = static_cast<float>(-(static_cast<double>(point[1]) - offset.y));
  }
}

void plainHeightColours(float* const* points, int count, double lowest, double highest,
                        std::vector<float>& colours) {
  colours.resize(3 * static_cast<std::size_t>(count));
  const std::array<float, 256>& component = components();
  PlainRamp ramp(lowest, highest);
  for (int first = 0; first < count; first += PlainRamp::strip) {
    const int length = std::min(PlainRamp::strip, count - first);
    ramp.next(points + first, length);
    for (int i = 0; i < length; ++i) {
      const auto n = static_cast<std::size_t>(i);
      // The node's ramp exchanges red and blue.
      setColor(colours, static_cast<std::size_t>(first) + n,
               component[static_cast<std::size_t>(ramp.blue[n])],
               component[static_cast<std::size_t>(ramp.green[n])],
               component[static_cast<std::size_t>(ramp.red[n])]);
    }
  }
}

void routineHeightColours(float* const* points, int count, double lowest, double highest,
                          std::vector<float>& colours) {
  colours.resize(3 * static_cast<std::size_t>(count));
  const PlainRamp ramp(lowest, highest);
  for (int i = 0; i < count; ++i) {
    tarn::Colour colour;
    colour.SetAsHSL(ramp.hueAt(points[i][2]), PlainRamp::saturation, PlainRamp::lightness);
    const std::uint8_t* stored = colour.bytes();
    setColor(colours, static_cast<std::size_t>(i), static_cast<float>(stored[0] / 255.0),
             static_cast<float>(stored[1] / 255.0), static_cast<float>(stored[2] / 255.0));
  }
}

void plainTrueColours(unsigned char* const* bytes, int count, std::vector<float>& colours) {
  colours.resize(3 * static_cast<std::size_t>(count));
  const std::array<float, 256>& component = components();
  for (int i = 0; i < count; ++i) {
    const unsigned char* stored = bytes[i];
    setColor(colours, static_cast<std::size_t>(i), component[stored[2]], component[stored[1]],
             component[stored[0]]);
  }
}

void plainSelection(unsigned char* const* bytes, int count, const std::vector<int>& selected,
                    const float (&color)[3], std::vector<float>& colours) {
  plainTrueColours(bytes, count, colours);
  for (const int i : selected) {
    setColor(colours, static_cast<std::size_t>(i), color[0], color[1], color[2]);
  }
}

void expectSame(const SoMFVec3f& field, const std::vector<float>& plain) {
  const float* values = field.getNum() > 0 ? field.getValues(0)->getValue() : nullptr;
  if (!std::equal(plain.begin(), plain.end(), values,
                  values + 3 * static_cast<std::ptrdiff_t>(field.getNum()))) {
    throw std::runtime_error("the node and the plain loop computed different triples");
  }
}

void expectSame(const SoMFInt32& field, const std::vector<std::int32_t>& plain) {
  const std::int32_t* values = field.getValues(0);
  if (!std::equal(plain.begin(), plain.end(), values, values + field.getNum())) {
    throw std::runtime_error("the node and the plain loop computed different indexes");
  }
}

}  // namespace bench
