#include "io/PlyReader.h"

#include "host/model/Project.h"
#include "host/model/Triangle.h"
#include "tests/support/TarnTest.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

using tarn::Point3DDouble;
using tarn::PointMesh;

class PlyReaderDataTest : public TarnTest {
protected:
  PointMesh& read(const std::string& name) { return tarn::PlyReader::Read(file(name), project); }
  static std::string file(const std::string& name) {
    return std::string(dataFolder()) + "/" + name;
  }

  tarn::Project project;
};

TEST_F(PlyReaderDataTest, TheCloudOfBrightonIsTheFilesBytes) {
  TARN_REQUIRE_DATA();
  const PointMesh& mesh = read("brighton/cloud.ply");
  ASSERT_EQ(mesh.GetNumPoints(), 940393);
  EXPECT_FALSE(mesh.HasLocalAffine());
  EXPECT_EQ(mesh.GetNumTriangles(), 0);

  // Records of three floats and red, green and blue, to the end of the file.
  std::ifstream stream(file("brighton/cloud.ply"), std::ios::binary);
  const std::string content((std::istreambuf_iterator<char>(stream)), {});
  const char* record = content.data() + content.size() - std::size_t{940393} * 15;
  int different = 0;
  for (int i = 0; i < mesh.GetNumPoints(); ++i, record += 15) {
    const unsigned char* bgr = mesh.GetRGBsForPoints()[i];
    const unsigned char rgb[] = {bgr[2], bgr[1], bgr[0]};
    different +=
        std::memcmp(mesh.GetPoints()[i], record, 12) != 0 || std::memcmp(rgb, record + 12, 3) != 0;
  }
  EXPECT_EQ(different, 0);
}

TEST_F(PlyReaderDataTest, TheCloudOfBrightonHasItsExtents) {
  TARN_REQUIRE_DATA();
  Point3DDouble low;
  Point3DDouble high;
  ASSERT_TRUE(read("brighton/cloud.ply").GetBoundingBox(low, high, nullptr, 0));
  // The least and the greatest of the file's own numbers.
  EXPECT_LT((low - Point3DDouble(61.97, 14.06, 156.06)).length(), 1e-5);
  EXPECT_LT((high - Point3DDouble(168.25, 111.70, 168.92)).length(), 1e-5);
}

TEST_F(PlyReaderDataTest, TheScannedSkullIsTheFilesText) {
  TARN_REQUIRE_DATA();
  PointMesh& mesh = read("meshes/parasaurolophus.ply");
  ASSERT_EQ(mesh.GetNumPoints(), 28291);
  ASSERT_EQ(mesh.GetNumTriangles(), 54839);
  EXPECT_EQ(mesh.GetRGBsForPoints(), nullptr);

  std::ifstream stream(file("meshes/parasaurolophus.ply"));
  for (std::string line; line != "end_header";) ASSERT_TRUE(std::getline(stream, line));
  std::vector<Point3DDouble> normals(28291);
  for (int i = 0; i < 28291; ++i) {
    Point3DDouble position;
    Point3DDouble normal;
    stream >> position.x >> position.y >> position.z >> normal.x >> normal.y >> normal.z;
    ASSERT_LT((mesh.GetModelPoint(i) - position).length(), 1e-4) << i;
    normals[static_cast<std::size_t>(i)] = (1.0 / normal.length()) * normal;
  }
  for (int i = 0; i < 54839; ++i) {
    int corners = 0;
    PointMesh::Corners expected;
    stream >> corners >> expected[0] >> expected[1] >> expected[2];
    ASSERT_EQ(corners, 3);
    PointMesh::Corners found;
    ASSERT_TRUE(mesh.GetTriangleCorners(i, found));
    ASSERT_EQ(found, expected) << i;
    const auto* triangle = static_cast<tarn::Triangle*>(mesh.GetTriangles()->at(i));
    for (std::size_t k = 0; k < 3; ++k) {
      const Point3DDouble& normal = *triangle->GetNormal(static_cast<int>(k));
      ASSERT_LT((normal - normals[static_cast<std::size_t>(expected[k])]).length(), 1e-12) << i;
    }
  }
  ASSERT_TRUE(stream.good());
}
