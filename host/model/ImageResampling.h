#pragma once

#include "host/model/ImageFormat.h"

namespace tarn {

/// The picture in another size. `average` true: along an axis that shrinks each new pixel
/// is the mean of the old ones that it covers, partly covered ones by their share; along
/// one that grows, new pixels are interpolated linearly between the centres of the old.
/// false: each new pixel is the old one at its centre. An alpha channel is treated as a
/// component of its own. width and height at least 1.
ImageRaster resample(const ImageRaster& from, int width, int height, bool average);

}  // namespace tarn
