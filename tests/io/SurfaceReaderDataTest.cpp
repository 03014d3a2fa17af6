#include "io/SurfaceReader.h"

#include "host/model/ImportedSurface.h"
#include "host/model/Material.h"
#include "host/model/Project.h"
#include "tests/support/TarnTest.h"

#include <fstream>
#include <set>
#include <sstream>

using tarn::ImportedSurface;
using tarn::Point3DDouble;
using tarn::Triangle;

class SurfaceReaderDataTest : public TarnTest {
protected:
  ImportedSurface& read(const std::string& name) {
    const auto all = tarn::SurfaceReader::Read(file(name), project);
    EXPECT_EQ(all.size(), 1U);
    return *all.at(0);
  }
  static std::string file(const std::string& name) {
    return std::string(dataFolder()) + "/meshes/" + name;
  }
  static Point3DDouble positionOf(const tarn::ThreeDPoint* point) {
    tarn::Point3DRandom position;
    EXPECT_TRUE(point->GetApproximation(position));
    return position.position();
  }
  static int pointsOf(ImportedSurface& surface) {
    std::set<tarn::ThreeDPoint*> points;
    for (int i = 0; i < surface.GetTriangles()->size(); ++i) {
      for (int k = 0; k < 3; ++k) {
        points.insert(static_cast<Triangle*>(surface.GetTriangles()->at(i))->GetPoint(k));
      }
    }
    return static_cast<int>(points.size());
  }

  tarn::Project project;
};

TEST_F(SurfaceReaderDataTest, TheBottleHasItsTextureAndIsClosed) {
  TARN_REQUIRE_DATA();
  ImportedSurface& surface = read("fuze.obj");
  EXPECT_EQ(surface.GetName().str(), "fuze");
  ASSERT_EQ(surface.GetNumTriangleSets(), 1);
  EXPECT_EQ(surface.GetTriangles()->size(), 1000);
  EXPECT_EQ(pointsOf(surface), 502);
  ASSERT_NE(surface.GetTextureFile(0), nullptr);
  EXPECT_EQ(surface.GetTextureFile(0)->str(), file("fuze uv.jpg"));
  ASSERT_NE(surface.GetMaterial(), nullptr);
  EXPECT_EQ(surface.GetMaterial()->GetDiffuseType(), tarn::Material::ePhotoTexture);
  EXPECT_TRUE(surface.GetMaterial()->GetBlendRGBWithTexture());
  tarn::Colour ambient;
  tarn::Colour diffuse;
  tarn::Colour specular;
  tarn::Colour emissive;
  double shininess = 1.0;
  surface.GetMaterial()->GetFixedColor(ambient, diffuse, specular, emissive, shininess);
  EXPECT_EQ(ambient, tarn::Colour(51, 51, 51));
  EXPECT_EQ(diffuse, tarn::Colour(255, 255, 255));
  EXPECT_EQ(specular, tarn::Colour(0, 0, 0)) << "an exponent of 0";
  EXPECT_EQ(shininess, 0.0);
  // A sphere's surface of 502 points has 2 * 502 - 4 triangles.
  EXPECT_FALSE(surface.IsDoubleSided());
}

TEST_F(SurfaceReaderDataTest, TheBottleIsTheFilesText) {
  TARN_REQUIRE_DATA();
  ImportedSurface& surface = read("fuze.obj");
  std::ifstream stream(file("fuze.obj"));
  std::vector<Point3DDouble> points;
  std::vector<Point3DDouble> normals;
  std::vector<std::array<double, 2>> uvs;
  int face = 0;
  for (std::string line; std::getline(stream, line);) {
    std::istringstream fields(line);
    std::string keyword;
    fields >> keyword;
    Point3DDouble p;
    if (keyword == "v" && fields >> p.x >> p.y >> p.z) points.push_back(p);
    if (keyword == "vn" && fields >> p.x >> p.y >> p.z) normals.push_back(p);
    if (keyword == "vt" && fields >> p.x >> p.y) uvs.push_back({p.x, p.y});
    if (keyword != "f") continue;
    auto& triangle = *static_cast<Triangle*>(surface.GetTriangles()->at(face++));
    auto& matrix = *static_cast<tarn::MatrixDouble*>(surface.GetUvMatrices()->atKey(&triangle));
    std::string corner;
    for (int k = 0; k < 3 && fields >> corner; ++k) {
      std::size_t v = 0;
      std::size_t t = 0;
      std::size_t n = 0;
      ASSERT_EQ(std::sscanf(corner.c_str(), "%zu/%zu/%zu", &v, &t, &n), 3) << line;
      EXPECT_EQ(positionOf(triangle.GetPoint(k)), points.at(v - 1)) << line;
      EXPECT_EQ(matrix(k + 1, 1), uvs.at(t - 1)[0]) << line;
      EXPECT_EQ(matrix(k + 1, 2), 1.0 - uvs.at(t - 1)[1]) << line;
      ASSERT_NE(triangle.GetNormal(k), nullptr);
      const Point3DDouble normal = (1.0 / normals.at(n - 1).length()) * normals.at(n - 1);
      EXPECT_LT((*triangle.GetNormal(k) - normal).length(), 1e-12) << line;
    }
  }
  EXPECT_EQ(face, 1000);
}

TEST_F(SurfaceReaderDataTest, TheScannedDinosaurIsASurfaceWithoutTextureSeenFromBothSides) {
  TARN_REQUIRE_DATA();
  ImportedSurface& surface = read("parasaurolophus.ply");
  EXPECT_EQ(surface.GetName().str(), "parasaurolophus");
  ASSERT_EQ(surface.GetNumTriangleSets(), 1);
  EXPECT_EQ(surface.GetTriangles()->size(), 54839);
  EXPECT_EQ(surface.GetTextureFile(0), nullptr);
  EXPECT_TRUE(surface.IsDoubleSided());
  for (int i = 0; i < surface.GetTriangles()->size(); ++i) {
    auto& triangle = *static_cast<Triangle*>(surface.GetTriangles()->at(i));
    for (int k = 0; k < 3; ++k) {
      ASSERT_NE(triangle.GetNormal(k), nullptr) << i;
      ASSERT_NEAR(triangle.GetNormal(k)->length(), 1.0, 1e-6) << i;
    }
  }
}
