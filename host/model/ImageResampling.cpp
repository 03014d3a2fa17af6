#include "host/model/ImageResampling.h"

#include <algorithm>
#include <cmath>

namespace tarn {

namespace {

// Which old pixels of a row or column make up each new one, and with what weights, which
// sum to 1.
class Axis {
public:
  struct Taps {
    std::size_t first;  // old pixel
    std::size_t count;
    const float* weights;
  };

  Axis(int oldCount, double filled, int newCount, bool average) {
    entries.reserve(static_cast<std::size_t>(newCount));
    const double step = filled / newCount;
    for (int i = 0; i < newCount; ++i) {
      if (!average) {
        add(clampTo(static_cast<int>((i + 0.5) * step), oldCount), {1.0});
      } else if (step >= 1) {
        addMean(i * step, (i + 1) * step, oldCount);
      } else {
        addLinear((i + 0.5) * step - 0.5, oldCount);
      }
    }
  }

  std::size_t count() const { return entries.size(); }
  Taps at(std::size_t i) const {
    return {entries[i].first, entries[i].count, &weights[entries[i].offset]};
  }

private:
  struct Entry {
    std::size_t first, count, offset;
  };

  static int clampTo(int i, int count) { return std::clamp(i, 0, count - 1); }

  void add(int first, const std::vector<double>& shares) {
    double sum = 0;
    for (const double share : shares) sum += share;
    entries.push_back({static_cast<std::size_t>(first), shares.size(), weights.size()});
    for (const double share : shares) weights.push_back(static_cast<float>(share / sum));
  }

  void addMean(double begin, double end, int oldCount) {
    const int first = clampTo(static_cast<int>(begin), oldCount);
    // A millionth of a pixel more is a rounding error, not a neighbour.
    const int last =
        std::max(first, clampTo(static_cast<int>(std::ceil(end - 1e-6)) - 1, oldCount));
    std::vector<double> shares;
    for (int i = first; i <= last; ++i) {
      shares.push_back(std::min(end, i + 1.0) - std::max(begin, static_cast<double>(i)));
    }
    add(first, shares);
  }

  void addLinear(double position, int oldCount) {
    const double within = std::clamp(position, 0.0, oldCount - 1.0);
    const int first = static_cast<int>(within);
    if (first + 1 < oldCount) {
      add(first, {1 - (within - first), within - first});
    } else {
      add(first, {1.0});
    }
  }

  std::vector<Entry> entries;
  std::vector<float> weights;
};

// sums[i] += weight * row[i]: the loop that most of the time goes into; compilers turn it
// into vector instructions as it stands.
void addRow(float* __restrict sums, const std::uint8_t* __restrict row, float weight,
            std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) sums[i] += weight * static_cast<float>(row[i]);
}

template <std::size_t components>
void reduceRow(const float* sums, const Axis& columns, std::uint8_t* to) {
  for (std::size_t x = 0; x < columns.count(); ++x) {
    const Axis::Taps taps = columns.at(x);
    const float* from = sums + taps.first * components;
    float pixel[components] = {};
    for (std::size_t k = 0; k < taps.count; ++k) {
      for (std::size_t c = 0; c < components; ++c) {
        pixel[c] += taps.weights[k] * from[k * components + c];
      }
    }
    for (std::size_t c = 0; c < components; ++c) {
      *to++ = static_cast<std::uint8_t>(pixel[c] + 0.5F);
    }
  }
}

}  // namespace

ImageRaster resample(const ImageRaster& from, int width, int height, bool average) {
  const Axis columns(from.width, from.filledWidth, width, average);
  const Axis rows(from.height, from.filledHeight, height, average);
  const auto components = static_cast<std::size_t>(from.components);
  const std::size_t oldStride = static_cast<std::size_t>(from.width) * components;
  const std::size_t newStride = static_cast<std::size_t>(width) * components;
  ImageRaster to(width, height, from.components);
  std::vector<float> sums(oldStride);
  for (std::size_t y = 0; y < rows.count(); ++y) {
    const Axis::Taps taps = rows.at(y);
    std::ranges::fill(sums, 0.0F);
    for (std::size_t k = 0; k < taps.count; ++k) {
      addRow(sums.data(), &from.bytes[(taps.first + k) * oldStride], taps.weights[k], oldStride);
    }
    std::uint8_t* const row = &to.bytes[y * newStride];
    switch (components) {
      case 1:
        reduceRow<1>(sums.data(), columns, row);
        break;
      case 2:
        reduceRow<2>(sums.data(), columns, row);
        break;
      case 3:
        reduceRow<3>(sums.data(), columns, row);
        break;
      default:
        reduceRow<4>(sums.data(), columns, row);
    }
  }
  return to;
}

}  // namespace tarn
