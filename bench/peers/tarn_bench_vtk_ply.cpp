// Reads the coloured points of a PLY file with VTK.
#include <vtkPLYReader.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkSmartPointer.h>
#include <vtkUnsignedCharArray.h>

#include "bench/peers/PlyWork.h"

#include <array>

namespace {

using Points = vtkSmartPointer<vtkPolyData>;

// Null where the file is refused.
Points readPoints(const char* path) {
  const auto reader = vtkSmartPointer<vtkPLYReader>::New();
  reader->SetFileName(path);
  reader->Update();
  Points points = reader->GetOutput();
  return points->GetNumberOfPoints() > 0 && points->GetPointData()->GetScalars() ? points : nullptr;
}

bench::PointHash hashOf(vtkPolyData& points) {
  const auto* colours = vtkUnsignedCharArray::SafeDownCast(points.GetPointData()->GetScalars());
  bench::PointHash hash;
  for (vtkIdType i = 0; i < points.GetNumberOfPoints(); ++i) {
    std::array<double, 3> xyz{};
    points.GetPoint(i, xyz.data());
    std::array<unsigned char, 3> rgb{};
    if (colours) colours->GetTypedTuple(i, rgb.data());
    hash.add(static_cast<float>(xyz[0]), static_cast<float>(xyz[1]), static_cast<float>(xyz[2]),
             rgb[0], rgb[1], rgb[2]);
  }
  return hash;
}

}  // namespace

int main(int argc, char** argv) { return bench::tellReading(argc, argv, readPoints, hashOf); }
