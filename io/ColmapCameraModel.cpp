#include "io/ColmapCameraModel.h"

#include <algorithm>
#include <iterator>

namespace tarn {

namespace {
constexpr ColmapCameraModel models[] = {
    {0, "SIMPLE_PINHOLE", 1, LensDistortion::eNone, 0},
    {1, "PINHOLE", 2, LensDistortion::eNone, 0},
    {2, "SIMPLE_RADIAL", 1, LensDistortion::eRadial, 1},
    {3, "RADIAL", 1, LensDistortion::eRadial, 2},
    {4, "OPENCV", 2, LensDistortion::eOpenCV, 4},
    {5, "OPENCV_FISHEYE", 2, LensDistortion::eFisheye, 4},
    {6, "FULL_OPENCV", 2, LensDistortion::eFullOpenCV, 8},
    {7, "FOV", 2, LensDistortion::eFieldOfView, 1},
    {8, "SIMPLE_RADIAL_FISHEYE", 1, LensDistortion::eFisheye, 1},
    {9, "RADIAL_FISHEYE", 1, LensDistortion::eFisheye, 2},
    {10, "THIN_PRISM_FISHEYE", 2, LensDistortion::eThinPrismFisheye, 8},
    {11, "RAD_TAN_THIN_PRISM_FISHEYE", 2, LensDistortion::eRadTanThinPrismFisheye, 12},
    {12, "SIMPLE_DIVISION", 1, LensDistortion::eDivision, 1},
    {13, "DIVISION", 2, LensDistortion::eDivision, 1},
    {14, "SIMPLE_FISHEYE", 1, LensDistortion::eFisheye, 0},
    {15, "FISHEYE", 2, LensDistortion::eFisheye, 0},
    {16, "EUCM", 2, LensDistortion::eEnhancedUnified, 2},
};

template <typename Matches>
const ColmapCameraModel* firstThat(Matches matches) {
  const auto* found = std::find_if(std::begin(models), std::end(models), matches);
  return found == std::end(models) ? nullptr : found;
}
}  // namespace

const ColmapCameraModel* ColmapCameraModel::find(int id) {
  return firstThat([id](const ColmapCameraModel& model) { return model.id == id; });
}

const ColmapCameraModel* ColmapCameraModel::find(std::string_view name) {
  return firstThat([name](const ColmapCameraModel& model) { return model.name == name; });
}

}  // namespace tarn
