#include "host/model/HeightContours.h"

#include "host/model/HeightLevels.h"
#include "host/model/PlanTriangulation.h"
#include "host/model/Project.h"
#include "io/PlyReader.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

using tarn::Point3DDouble;

class HeightContoursDataTest : public TarnTest {
protected:
  /// The height of that point of the mesh that lies nearest in plan.
  static double heightBeside(const Point3DDouble& place, const tarn::PointMesh& mesh) {
    double nearest = std::numeric_limits<double>::infinity();
    double height = 0.0;
    for (int i = 0; i < mesh.GetNumPoints(); ++i) {
      const Point3DDouble point = mesh.GetModelPoint(i);
      const double distance = std::hypot(point.x - place.x, point.y - place.y);
      if (distance >= nearest) continue;
      nearest = distance;
      height = point.z;
    }
    return height;
  }

  tarn::Project project;
};

TEST_F(HeightContoursDataTest, LinesOfATriangulatedCloudRunAtTheHeightOfThePointsBesideThem) {
  TARN_REQUIRE_DATA();
  tarn::PlyReader::Read(std::string(dataFolder()) + "/brighton/cloud.ply", project);
  auto& mesh = static_cast<tarn::PointMesh&>(*project.GetPointMeshes().at(0));
  const auto plan = tarn::PlanTriangulation::of(mesh, {.longestEdge = 10.0, .mostPoints = 100'000});
  EXPECT_GT(plan.places, 900'000);
  EXPECT_LE(plan.usedPoints, 100'000);
  EXPECT_GT(plan.usedPoints, 90'000);
  EXPECT_GT(plan.triangles.size(), 150'000U);

  Point3DDouble low;
  Point3DDouble high;
  ASSERT_TRUE(mesh.GetBoundingBox(low, high, nullptr, 0));
  const std::vector<double> levels = tarn::HeightLevels::bySpacing(low.z, high.z, 0.5);
  tarn::HeightContours::addTo(mesh, plan.triangles, levels);
  const int count = mesh.GetContours().size();
  ASSERT_GT(count, 100);

  // One point of every fourth line. Walls and trees have all heights at one place: not every
  // line fits, but most do.
  std::vector<double> differences;
  for (int i = 0; i < count; i += 4) {
    const auto& line = static_cast<const tarn::PointMeshContour&>(*mesh.GetContours().at(i));
    const double* point = line.GetPoints(1)[line.GetNumberOfPoints() / 2];
    differences.push_back(
        std::abs(heightBeside({point[0], point[1], point[2]}, mesh) - line.GetHeight()));
  }
  std::ranges::sort(differences);
  EXPECT_LT(differences[differences.size() / 2], 0.1) << "metres";
}
