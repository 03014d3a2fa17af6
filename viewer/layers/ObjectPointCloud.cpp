#include "viewer/layers/ObjectPointCloud.h"

#include "host/general/ThreeDViewOffset.h"
#include "host/model/ObjectPoint.h"
#include "host/model/PointMesh.h"

#include <algorithm>

std::unique_ptr<tarn::PointMesh> ObjectPointCloud::of(std::span<tarn::ObjectPoint* const> points) {
  const bool coloured = std::ranges::any_of(
      points, [](const tarn::ObjectPoint* point) { return point->GetRGBTextureColor(); });
  auto mesh = std::make_unique<tarn::PointMesh>();
  mesh->SetName(tarn::VString("object points"));
  mesh->Allocate(static_cast<int>(points.size()), coloured);
  float* xyz = mesh->GetPointStorage().data();
  unsigned char* bgr = mesh->GetColourStorage().data();
  const tarn::Colour grey(217, 222, 230);
  for (const tarn::ObjectPoint* point : points) {
    tarn::Point3DRandom position;
    point->GetApproximation(position);
    const tarn::Point3DDouble shown = position.position() - tarn::gThreeDViewOffset;
    for (const double coordinate : {shown.x, shown.y, shown.z}) {
      *xyz++ = static_cast<float>(coordinate);
    }
    if (!coloured) continue;
    const tarn::Colour* colour = point->GetRGBTextureColor();
    bgr = std::copy_n((colour ? *colour : grey).bytes(), 3, bgr);
  }
  tarn::BasicAffine toModel;
  toModel.SetTranslation({}, tarn::gThreeDViewOffset);
  mesh->SetLocalAffine(toModel);
  return mesh;
}
