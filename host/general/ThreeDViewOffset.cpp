#include "host/general/ThreeDViewOffset.h"

namespace tarn {

constinit Point3DDouble gThreeDViewOffset;

}  // namespace tarn
