#include "io/PlyReader.h"

#include "host/model/Project.h"
#include "host/model/Triangle.h"
#include "io/ReadError.h"
#include "tests/support/CommaLocale.h"
#include "tests/support/SyntheticPly.h"
#include "tests/support/TarnTest.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>

using tarn::Point3DDouble;
using tarn::PointMesh;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Form = SyntheticPly::Form;
using Corners = PointMesh::Corners;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

const std::vector<std::string> floatPositions{"float x", "float y", "float z"};
const std::vector<std::string> doublePositions{"double x", "double y", "double z"};

std::vector<std::string> operator+(std::vector<std::string> all,
                                   const std::vector<std::string>& more) {
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

std::vector<Point3DDouble> modelPoints(const PointMesh& mesh) {
  std::vector<Point3DDouble> points;
  for (int i = 0; i < mesh.GetNumPoints(); ++i) points.push_back(mesh.GetModelPoint(i));
  return points;
}

using Rgb = std::array<int, 3>;
std::vector<Rgb> colours(const PointMesh& mesh) {
  std::vector<Rgb> all;
  for (int i = 0; i < mesh.GetNumPoints(); ++i) {
    const unsigned char* bgr = mesh.GetRGBsForPoints()[i];
    all.push_back({bgr[2], bgr[1], bgr[0]});
  }
  return all;
}

std::vector<Corners> triangles(const PointMesh& mesh) {
  std::vector<Corners> all(static_cast<std::size_t>(mesh.GetNumTriangles()));
  for (std::size_t i = 0; i < all.size(); ++i) {
    EXPECT_TRUE(mesh.GetTriangleCorners(static_cast<int>(i), all[i]));
  }
  return all;
}

// The normals of a triangle's corners; empty where it has none.
std::vector<Point3DDouble> normals(PointMesh& mesh, int triangle) {
  const auto* corners = static_cast<tarn::Triangle*>(mesh.GetTriangles()->at(triangle));
  std::vector<Point3DDouble> all;
  for (int k = 0; k < 3; ++k) {
    if (corners->GetNormal(k)) all.push_back(*corners->GetNormal(k));
  }
  return all;
}

Point3DDouble shiftOf(const PointMesh& mesh) {
  const std::unique_ptr<tarn::BasicAffine> affine(mesh.GetLocalAffine());
  if (!affine) return {};
  EXPECT_FALSE(affine->HasScale());
  EXPECT_FALSE(affine->HasRotation());
  Point3DDouble before;
  Point3DDouble after;
  EXPECT_TRUE(affine->GetTranslation(before, after));
  return before + after;
}

// Four points with three different coordinates each, none of them on a line.
void addFourPoints(SyntheticPly& ply) {
  ply.element("vertex", floatPositions);
  ply.records({{1.5, -2, 3}, {4, 5.25, 6}, {-7, 8, 9.125}, {10, 11, -12}});
}

}  // namespace

class PlyReaderTest : public TarnTest {
protected:
  PointMesh& readFile(const std::string& content) {
    return tarn::PlyReader::Read(folder.write("cloud.ply", content), project);
  }
  PointMesh& read(Form form) { return readFile(ply.written(form)); }

  TemporaryFolder folder;
  tarn::Project project;
  SyntheticPly ply;
};

// What is the same in all three forms.
class PlyFormTest : public PlyReaderTest, public ::testing::WithParamInterface<Form> {
protected:
  PointMesh& read() { return PlyReaderTest::read(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(All, PlyFormTest,
                         ::testing::Values(Form::eText, Form::eLittleEndian, Form::eBigEndian),
                         [](const auto& info) {
                           return std::string(SyntheticPly::nameOf(info.param));
                         });

// Positions

TEST_P(PlyFormTest, PositionsStandInTheOrderOfTheFile) {
  addFourPoints(ply);
  const PointMesh& mesh = read();
  EXPECT_THAT(modelPoints(mesh),
              ElementsAre(Point3DDouble(1.5, -2, 3), Point3DDouble(4, 5.25, 6),
                          Point3DDouble(-7, 8, 9.125), Point3DDouble(10, 11, -12)));
  EXPECT_FALSE(mesh.HasLocalAffine());
  EXPECT_EQ(mesh.GetNumTriangles(), 0);
  EXPECT_EQ(mesh.GetRGBsForPoints(), nullptr);
}

TEST_P(PlyFormTest, PropertiesMayComeInAnyOrderAndOfAnyTypeEach) {
  ply.element("vertex",
              {"uchar blue", "short z", "double x", "uchar red", "float y", "uchar green"});
  ply.record({3, -300, 0.5, 1, 2.25, 2});
  const PointMesh& mesh = read();
  EXPECT_THAT(modelPoints(mesh), ElementsAre(Point3DDouble(0.5, 2.25, -300)));
  EXPECT_THAT(colours(mesh), ElementsAre(Rgb{1, 2, 3}));
}

TEST_P(PlyFormTest, AllPointsOfManyAreRead) {
  // More than are converted at a time, and no multiple of it.
  constexpr int many = 5003;
  ply.element("vertex",
              floatPositions + std::vector<std::string>{"uchar red", "uchar green", "uchar blue"});
  for (int i = 0; i < many; ++i) ply.record({i * 0.125, -i, i + 0.5, i % 256, i / 256, 7});
  const PointMesh& mesh = read();
  ASSERT_EQ(mesh.GetNumPoints(), many);
  for (int i = 0; i < many; ++i) {
    ASSERT_EQ(mesh.GetPoint(i), Point3DDouble(i * 0.125, -i, i + 0.5)) << i;
    ASSERT_THAT(mesh.GetRGBsForPoints()[i][2], i % 256) << i;
    ASSERT_THAT(mesh.GetRGBsForPoints()[i][1], i / 256) << i;
  }
}

TEST_P(PlyFormTest, ACloudMayBeEmpty) {
  ply.element("vertex", floatPositions);
  const PointMesh& mesh = read();
  EXPECT_EQ(mesh.GetNumPoints(), 0);
  EXPECT_EQ(project.GetPointMeshes().size(), 1);
}

TEST_F(PlyReaderTest, BinaryFloatsKeepTheirBits) {
  ply.element("vertex", floatPositions);
  // The smallest and the largest of a float, and one that decimals cannot write exactly.
  ply.record({1.40129846432481707e-45, -3.40282346638528860e+38, double{0.1F}});
  for (const Form form : {Form::eLittleEndian, Form::eBigEndian}) {
    const float* xyz = read(form).GetPoints()[0];
    EXPECT_EQ(std::bit_cast<std::uint32_t>(xyz[0]), 1U);
    EXPECT_EQ(xyz[1], -std::numeric_limits<float>::max());
    EXPECT_EQ(xyz[2], 0.1F);
  }
}

// Every type of numbers, by both of its names, in every form.
struct NumberType {
  const char* name;
  double value;
  friend void PrintTo(const NumberType& type, std::ostream* out) { *out << type.name; }
};
class PlyTypeTest : public PlyReaderTest,
                    public ::testing::WithParamInterface<std::tuple<NumberType, Form>> {};

TEST_P(PlyTypeTest, IsReadAsAPosition) {
  const auto& [type, form] = GetParam();
  const std::string name = type.name;
  ply.element("vertex", {name + " x", name + " y", name + " z"});
  ply.record({type.value, 1, 2});
  EXPECT_THAT(modelPoints(read(form)), ElementsAre(Point3DDouble(type.value, 1, 2)));
}

TEST_P(PlyTypeTest, IsPassedOver) {
  const auto& [type, form] = GetParam();
  const std::string name = type.name;
  ply.element("vertex", {name + " a", "float x", name + " b", "float y", "float z", name + " c"});
  ply.records({{type.value, 1, type.value, 2, 3, type.value}, {0, 4, 0, 5, 6, 0}});
  EXPECT_THAT(modelPoints(read(form)), ElementsAre(Point3DDouble(1, 2, 3), Point3DDouble(4, 5, 6)));
}

INSTANTIATE_TEST_SUITE_P(
    All, PlyTypeTest,
    ::testing::Combine(::testing::Values(NumberType{"char", -128}, NumberType{"int8", 127},
                                         NumberType{"uchar", 255}, NumberType{"uint8", 200},
                                         NumberType{"short", -32768}, NumberType{"int16", 32767},
                                         NumberType{"ushort", 65535}, NumberType{"uint16", 60000},
                                         NumberType{"int", -16777215}, NumberType{"int32", 259},
                                         NumberType{"uint", 16777215}, NumberType{"uint32", 70000},
                                         NumberType{"float", 0.15625}, NumberType{"float32", -1e10},
                                         NumberType{"double", 0.15625},
                                         NumberType{"float64", -3.5}),
                       ::testing::Values(Form::eText, Form::eLittleEndian, Form::eBigEndian)),
    [](const auto& info) {
      return std::string(std::get<0>(info.param).name) + "_" +
             SyntheticPly::nameOf(std::get<1>(info.param));
    });

// Far from the origin

class PlyFarTest : public PlyFormTest {
protected:
  // Points on a spiral around the middle, a ten-thousandth apart in their last digits.
  static Point3DDouble around(const Point3DDouble& middle, int i) {
    return middle + Point3DDouble(0.31 * i * std::cos(i), 0.29 * i * std::sin(i), 0.0123 * i);
  }
  void addPointsAround(const Point3DDouble& middle, int count) {
    ply.element("vertex", doublePositions);
    for (int i = 0; i < count; ++i) {
      const Point3DDouble p = around(middle, i);
      ply.record({p.x, p.y, p.z});
    }
  }
  static double largestError(const PointMesh& mesh, const Point3DDouble& middle) {
    double largest = 0.0;
    for (int i = 0; i < mesh.GetNumPoints(); ++i) {
      largest = std::max(largest, (mesh.GetModelPoint(i) - around(middle, i)).length());
    }
    return largest;
  }
};

INSTANTIATE_TEST_SUITE_P(All, PlyFarTest,
                         ::testing::Values(Form::eText, Form::eLittleEndian, Form::eBigEndian),
                         [](const auto& info) {
                           return std::string(SyntheticPly::nameOf(info.param));
                         });

TEST_P(PlyFarTest, PositionsAtFiveThousandKilometresAreExactToATenthOfAMillimetre) {
  const Point3DDouble middle(5000000.123456, 4999999.654321, 123.456789);
  addPointsAround(middle, 1500);
  const PointMesh& mesh = read();
  ASSERT_EQ(mesh.GetNumPoints(), 1500);
  EXPECT_LT(largestError(mesh, middle), 1e-4);
}

TEST_P(PlyFarTest, TheShiftIsAWholeNumberThatAFloatHolds) {
  addPointsAround({5000000.6, -32123456.4, 123.5}, 1500);
  const PointMesh& mesh = read();
  const Point3DDouble shift = shiftOf(mesh);
  EXPECT_EQ(shift.x, std::round(shift.x));
  EXPECT_EQ(shift.x, static_cast<double>(static_cast<float>(shift.x)));
  EXPECT_EQ(shift.y, static_cast<double>(static_cast<float>(shift.y)));
  EXPECT_NEAR(shift.x, 5000000.6, 500);
  EXPECT_NEAR(shift.y, -32123456.4, 500);
  EXPECT_EQ(mesh.GetPoint(0),
            Point3DDouble(static_cast<double>(static_cast<float>(5000000.6 - shift.x)),
                          static_cast<double>(static_cast<float>(-32123456.4 - shift.y)), 123.5));
}

TEST_P(PlyFarTest, HeightsKeepTheirValuesUpToTenThousand) {
  addPointsAround({5000000, 5000000, 8848.5}, 100);
  const PointMesh& mesh = read();
  EXPECT_EQ(shiftOf(mesh).z, 0.0);
  EXPECT_EQ(mesh.GetPoint(0).z, 8848.5);
}

TEST_P(PlyFarTest, HeightsBeyondAreShiftedToo) {
  addPointsAround({1, 2, -6000000.25}, 100);
  const PointMesh& mesh = read();
  EXPECT_EQ(shiftOf(mesh).x, 0.0);
  EXPECT_EQ(shiftOf(mesh).y, 0.0);
  EXPECT_NEAR(shiftOf(mesh).z, -6000000, 10);
  EXPECT_LT(largestError(mesh, {1, 2, -6000000.25}), 1e-4);
}

TEST_P(PlyFarTest, PositionsNearTheOriginAreNotShifted) {
  addPointsAround({600, -700, 900}, 100);
  EXPECT_FALSE(read().HasLocalAffine());
}

TEST_P(PlyFarTest, TheFirstPointsMayLieElsewhere) {
  // As of a scanner that writes its lost points as zeros.
  ply.element("vertex", doublePositions);
  for (int i = 0; i < 1200; ++i) ply.record({0, 0, 0});
  const Point3DDouble middle(5000000.123456, 4999999.654321, 123.456789);
  for (int i = 0; i < 2000; ++i) {
    const Point3DDouble p = around(middle, i);
    ply.record({p.x, p.y, p.z});
  }
  const PointMesh& mesh = read();
  ASSERT_EQ(mesh.GetNumPoints(), 3200);
  double largest = 0.0;
  for (int i = 0; i < 2000; ++i) {
    largest = std::max(largest, (mesh.GetModelPoint(1200 + i) - around(middle, i)).length());
  }
  EXPECT_LT(largest, 1e-4);
  EXPECT_EQ(mesh.GetModelPoint(0), Point3DDouble());
}

TEST_P(PlyFarTest, OneWildPointDoesNotMoveTheShift) {
  ply.element("vertex", doublePositions);
  ply.record({-1e9, 1e9, 1e9});
  const Point3DDouble middle(5000000.123456, 4999999.654321, 123.456789);
  for (int i = 0; i < 50; ++i) {
    const Point3DDouble p = around(middle, i);
    ply.record({p.x, p.y, p.z});
  }
  const PointMesh& mesh = read();
  EXPECT_LT((mesh.GetModelPoint(50) - around(middle, 49)).length(), 1e-4);
}

TEST_P(PlyFarTest, LargeIntegersAreShifted) {
  ply.element("vertex", {"int x", "uint y", "short z"});
  ply.records({{-2147483647, 4294967295.0, 32767}, {-2147483000, 4294967001.0, -3}});
  const PointMesh& mesh = read();
  EXPECT_EQ(mesh.GetModelPoint(0), Point3DDouble(-2147483647, 4294967295.0, 32767));
  EXPECT_EQ(mesh.GetModelPoint(1), Point3DDouble(-2147483000, 4294967001.0, -3));
}

TEST_F(PlyReaderTest, BinaryFloatsFarAwayAreExactAsTheyStandAndNotShifted) {
  ply.element("vertex", floatPositions);
  ply.records({{5000000.5, 4999999.5, 3},
               {double{0.1F}, double{0.2F}, double{0.3F}},
               {5000001, 5000002, 4}});
  for (const Form form : {Form::eLittleEndian, Form::eBigEndian}) {
    const PointMesh& mesh = read(form);
    EXPECT_FALSE(mesh.HasLocalAffine());
    EXPECT_EQ(mesh.GetPoint(0), Point3DDouble(5000000.5, 4999999.5, 3));
    EXPECT_EQ(mesh.GetPoint(1), Point3DDouble(double{0.1F}, double{0.2F}, double{0.3F}));
  }
}

TEST_F(PlyReaderTest, BinaryFloatsBesideListsAreNotShiftedEither) {
  ply.element("vertex", floatPositions + std::vector<std::string>{"list uchar int views"});
  ply.records({{5000000.5, 4999999.5, 3, {1, 2}}, {5000001, 5000002, 4, {}}});
  const PointMesh& mesh = read(Form::eBigEndian);
  EXPECT_FALSE(mesh.HasLocalAffine());
  EXPECT_EQ(mesh.GetPoint(0), Point3DDouble(5000000.5, 4999999.5, 3));
}

TEST_F(PlyReaderTest, TextKeepsMoreDigitsThanItsTypeHolds) {
  const PointMesh& mesh = readFile(
      "ply\nformat ascii 1.0\nelement vertex 2\nproperty float x\nproperty float y\n"
      "property float z\nend_header\n5000000.1234 1 2\n5000001.4321 3 4\n");
  EXPECT_NEAR(mesh.GetModelPoint(0).x, 5000000.1234, 1e-6);
  EXPECT_NEAR(mesh.GetModelPoint(1).x, 5000001.4321, 1e-6);
}

// Colours

TEST_P(PlyFormTest, ColoursAreBytes) {
  ply.element("vertex", floatPositions + std::vector<std::string>{"uchar red", "uchar green",
                                                                  "uchar blue", "uchar alpha"});
  ply.records({{1, 2, 3, 0, 127, 255, 9}, {4, 5, 6, 10, 20, 30, 9}});
  EXPECT_THAT(colours(read()), ElementsAre(Rgb{0, 127, 255}, Rgb{10, 20, 30}));
}

TEST_P(PlyFormTest, ColoursMayBeCalledDiffuse) {
  ply.element("vertex",
              floatPositions + std::vector<std::string>{"uint8 diffuse_red", "uint8 diffuse_green",
                                                        "uint8 diffuse_blue"});
  ply.record({1, 2, 3, 40, 50, 60});
  EXPECT_THAT(colours(read()), ElementsAre(Rgb{40, 50, 60}));
}

TEST_P(PlyFormTest, PlainColoursTakePrecedenceOverDiffuseOnes) {
  ply.element("vertex",
              floatPositions + std::vector<std::string>{"uchar diffuse_red", "uchar diffuse_green",
                                                        "uchar diffuse_blue", "uchar red",
                                                        "uchar green", "uchar blue"});
  ply.record({1, 2, 3, 40, 50, 60, 70, 80, 90});
  EXPECT_THAT(colours(read()), ElementsAre(Rgb{70, 80, 90}));
}

TEST_P(PlyFormTest, FloatColoursReachFromZeroToOne) {
  ply.element("vertex",
              floatPositions + std::vector<std::string>{"float red", "double green", "float blue"});
  ply.records(
      {{1, 2, 3, 0, 0.5, 1}, {1, 2, 3, -0.1, 1.1, 1e30}, {1, 2, 3, notANumber, infinity, 0.25}});
  EXPECT_THAT(colours(read()), ElementsAre(Rgb{0, 128, 255}, Rgb{0, 255, 255}, Rgb{0, 255, 64}));
}

TEST_P(PlyFormTest, SixteenBitColoursReachToTheirLargest) {
  ply.element("vertex", floatPositions +
                            std::vector<std::string>{"ushort red", "ushort green", "uint16 blue"});
  ply.records({{1, 2, 3, 0, 32768, 65535}, {1, 2, 3, 257, 128, 129}});
  EXPECT_THAT(colours(read()), ElementsAre(Rgb{0, 128, 255}, Rgb{1, 0, 1}));
}

TEST_P(PlyFormTest, ColoursInLargerIntegersAreBytesAndHeldWithinThem) {
  ply.element("vertex",
              floatPositions + std::vector<std::string>{"int red", "uint green", "short blue"});
  ply.records({{1, 2, 3, 200, 255, 17}, {1, 2, 3, -5, 70000, 256}});
  EXPECT_THAT(colours(read()), ElementsAre(Rgb{200, 255, 17}, Rgb{0, 255, 255}));
}

TEST_P(PlyFormTest, TwoOfThreeColoursAreNone) {
  ply.element("vertex", floatPositions + std::vector<std::string>{"uchar red", "uchar green"});
  ply.record({1, 2, 3, 40, 50});
  const PointMesh& mesh = read();
  EXPECT_EQ(mesh.GetRGBsForPoints(), nullptr);
  EXPECT_THAT(modelPoints(mesh), ElementsAre(Point3DDouble(1, 2, 3)));
}

// Faces

TEST_P(PlyFormTest, TrianglesKeepTheirCornersInOrder) {
  addFourPoints(ply);
  ply.element("face", {"list uchar int vertex_indices"});
  ply.record({{0, 1, 2}});
  ply.record({{3, 1, 0}});
  EXPECT_THAT(triangles(read()), ElementsAre(Corners{0, 1, 2}, Corners{3, 1, 0}));
}

TEST_P(PlyFormTest, PolygonsBecomeFansAroundTheirFirstCorner) {
  addFourPoints(ply);
  ply.element("face", {"list uchar int vertex_indices"});
  ply.record({{2, 3, 0, 1}});
  ply.record({{0, 1, 2}});
  ply.record({{1, 0, 3, 2, 0}});
  EXPECT_THAT(triangles(read()), ElementsAre(Corners{2, 3, 0}, Corners{2, 0, 1}, Corners{0, 1, 2},
                                             Corners{1, 0, 3}, Corners{1, 3, 2}, Corners{1, 2, 0}));
}

TEST_P(PlyFormTest, FacesMayHaveOtherPropertiesAroundTheirCorners) {
  addFourPoints(ply);
  ply.element("face", {"uchar flags", "list int float texcoord", "list uchar int vertex_indices",
                       "double area", "list uchar short neighbours"});
  ply.record({1, {0.5, 0.25}, {0, 1, 2}, 7.5, {}});
  ply.record({2, {}, {1, 2, 3}, 1e300, {1, 2, 3}});
  EXPECT_THAT(triangles(read()), ElementsAre(Corners{0, 1, 2}, Corners{1, 2, 3}));
}

TEST_P(PlyFormTest, CornersMayBeCalledVertexIndex) {
  addFourPoints(ply);
  ply.element("face", {"list uchar int vertex_index"});
  ply.record({{0, 1, 2}});
  EXPECT_THAT(triangles(read()), ElementsAre(Corners{0, 1, 2}));
}

TEST_P(PlyFormTest, FacesMayStandAheadOfTheVertices) {
  ply.element("face", {"list uchar int vertex_indices"});
  ply.record({{0, 1, 3}});
  addFourPoints(ply);
  const PointMesh& mesh = read();
  EXPECT_THAT(triangles(mesh), ElementsAre(Corners{0, 1, 3}));
  EXPECT_EQ(mesh.GetPoint(3), Point3DDouble(10, 11, -12));
}

TEST_P(PlyFormTest, ThereMayBeNoFace) {
  addFourPoints(ply);
  ply.element("face", {"uchar flags"});
  EXPECT_EQ(read().GetNumTriangles(), 0);
}

TEST_P(PlyFormTest, StripsBecomeTrianglesOfOneOrientation) {
  addFourPoints(ply);
  ply.element("tristrips", {"list int int vertex_indices"});
  ply.record({{0, 1, 2, 3, 0}});
  EXPECT_THAT(triangles(read()), ElementsAre(Corners{0, 1, 2}, Corners{2, 1, 3}, Corners{2, 3, 0}));
}

TEST_P(PlyFormTest, MinusOneBeginsAnotherStrip) {
  addFourPoints(ply);
  ply.element("tristrips", {"list int int vertex_indices"});
  ply.record({{0, 1, -1, 1, 2, 3, 0, -1, -1, 2, 1, 0}});
  ply.record({{}});
  ply.record({{3, 2, 1}});
  EXPECT_THAT(triangles(read()),
              ElementsAre(Corners{1, 2, 3}, Corners{3, 2, 0}, Corners{2, 1, 0}, Corners{3, 2, 1}));
}

TEST_P(PlyFormTest, TrianglesThatOnlyJoinStripsAreLeftOut) {
  addFourPoints(ply);
  ply.element("tristrips", {"list int int vertex_indices"});
  ply.record({{0, 1, 2, 2, 3, 3, 1, 0}});
  EXPECT_THAT(triangles(read()), ElementsAre(Corners{0, 1, 2}, Corners{1, 3, 0}));
}

TEST_P(PlyFormTest, NormalsComeWithTheFacesAndHaveTheLengthOne) {
  ply.element("vertex",
              floatPositions + std::vector<std::string>{"float nx", "double ny", "float nz"});
  ply.records({{1, 2, 3, 0, 0, 2}, {4, 5, 6, 3, 0, -4}, {7, 8, 8, 1, 2, 2}});
  ply.element("face", {"list uchar int vertex_indices"});
  ply.record({{2, 0, 1}});
  const std::vector<Point3DDouble> found = normals(read(), 0);
  ASSERT_EQ(found.size(), 3U);
  EXPECT_LT((found[0] - Point3DDouble(1.0 / 3, 2.0 / 3, 2.0 / 3)).length(), 1e-15);
  EXPECT_EQ(found[1], Point3DDouble(0, 0, 1));
  EXPECT_LT((found[2] - Point3DDouble(0.6, 0, -0.8)).length(), 1e-15);
}

TEST_P(PlyFormTest, NormalsWithoutDirectionAreZero) {
  ply.element("vertex",
              floatPositions + std::vector<std::string>{"double nx", "double ny", "double nz"});
  ply.records({{1, 2, 3, 0, 0, 0}, {4, 5, 6, notANumber, 0, 1}, {7, 8, 8, infinity, 2, 2}});
  ply.element("face", {"list uchar int vertex_indices"});
  ply.record({{0, 1, 2}});
  EXPECT_THAT(normals(read(), 0), ElementsAre(Point3DDouble(), Point3DDouble(), Point3DDouble()));
}

TEST_P(PlyFormTest, FacesWithoutNormalsHaveNone) {
  addFourPoints(ply);
  ply.element("face", {"list uchar int vertex_indices"});
  ply.record({{0, 1, 2}});
  EXPECT_THAT(normals(read(), 0), IsEmpty());
}

TEST_P(PlyFormTest, NormalsOfPointsWithoutFacesArePassedOver) {
  ply.element("vertex", {"float x", "float nx", "float y", "float ny", "float z", "float nz"});
  ply.record({1, 0.1, 2, 0.2, 3, 0.3});
  EXPECT_THAT(modelPoints(read()), ElementsAre(Point3DDouble(1, 2, 3)));
}

// Every type of integers as a list's length and as its entries.
class PlyListTest
    : public PlyReaderTest,
      public ::testing::WithParamInterface<std::tuple<const char*, const char*, Form>> {};

TEST_P(PlyListTest, HoldsCorners) {
  const auto& [lengths, entries, form] = GetParam();
  ply.element("vertex", floatPositions);
  for (int i = 0; i < 100; ++i) ply.record({i, 2 * i, 3 * i});
  ply.element("face", {std::string("list ") + lengths + " " + entries + " vertex_indices"});
  ply.record({{99, 0, 64}});
  ply.record({{1, 2, 3, 4}});
  EXPECT_THAT(triangles(read(form)),
              ElementsAre(Corners{99, 0, 64}, Corners{1, 2, 3}, Corners{1, 3, 4}));
}

INSTANTIATE_TEST_SUITE_P(
    All, PlyListTest,
    ::testing::Combine(::testing::Values("char", "uchar", "short", "ushort", "int", "uint32"),
                       ::testing::Values("int8", "uchar", "short", "ushort", "int", "uint"),
                       ::testing::Values(Form::eText, Form::eLittleEndian, Form::eBigEndian)),
    [](const auto& info) {
      return std::string(std::get<0>(info.param)) + "_of_" + std::get<1>(info.param) + "_" +
             SyntheticPly::nameOf(std::get<2>(info.param));
    });

// What is passed over

TEST_P(PlyFormTest, VerticesMayHoldLists) {
  ply.element("vertex", {"list uchar int views", "float x", "double y", "list int float weights",
                         "uchar red", "uchar green", "uchar blue", "float z"});
  ply.record({{1, 2, 3}, 1, 2, {}, 10, 20, 30, 3});
  ply.record({{}, 4, 5, {0.5, 0.25}, 40, 50, 60, 6});
  const PointMesh& mesh = read();
  EXPECT_THAT(modelPoints(mesh), ElementsAre(Point3DDouble(1, 2, 3), Point3DDouble(4, 5, 6)));
  EXPECT_THAT(colours(mesh), ElementsAre(Rgb{10, 20, 30}, Rgb{40, 50, 60}));
}

TEST_P(PlyFormTest, OtherElementsArePassedOver) {
  ply.element("camera", {"float x", "double focal"});
  ply.records({{100, 200}, {300, 400}});
  ply.element("track", {"list uchar int views", "list ushort float weights"});
  ply.record({{1, 2, 3}, {0.5}});
  ply.record({{}, {}});
  addFourPoints(ply);
  ply.element("edge", {"int vertex1", "int vertex2"});
  ply.record({0, 1});
  ply.element("face", {"list uchar int vertex_indices"});
  ply.record({{0, 1, 2}});
  ply.element("material", {"list int int vertex_indices"});
  ply.record({{7, 8, 9}});
  const PointMesh& mesh = read();
  EXPECT_EQ(mesh.GetNumPoints(), 4);
  EXPECT_EQ(mesh.GetPoint(0), Point3DDouble(1.5, -2, 3));
  EXPECT_THAT(triangles(mesh), ElementsAre(Corners{0, 1, 2}));
}

TEST_P(PlyFormTest, ElementsWithoutPropertiesTakeNoRoomAndNoTime) {
  addFourPoints(ply);
  std::string content = ply.written(GetParam());
  const std::string element = "element nothing 9223372036854775807\n";
  content.insert(content.find("element vertex"), element);
  EXPECT_EQ(readFile(content).GetNumPoints(), 4);
}

TEST_P(PlyFormTest, CommentsAndObjectInformationArePassedOver) {
  ply.headerLine("comment made by hand, element vertex 7");
  ply.headerLine("obj_info num_cols 512");
  ply.headerLine("comment");
  addFourPoints(ply);
  EXPECT_EQ(read().GetNumPoints(), 4);
}

// The text around the data

TEST_P(PlyFormTest, LinesMayEndInCarriageReturnAndLineFeed) {
  ply.lineEnd = "\r\n";
  addFourPoints(ply);
  ply.element("face", {"list uchar int vertex_indices"});
  ply.record({{0, 1, 2}});
  const PointMesh& mesh = read();
  EXPECT_EQ(mesh.GetPoint(3), Point3DDouble(10, 11, -12));
  EXPECT_THAT(triangles(mesh), ElementsAre(Corners{0, 1, 2}));
}

TEST_P(PlyFormTest, TheFormatMayComeLate) {
  addFourPoints(ply);
  std::string content = ply.written(GetParam());
  const std::size_t begin = content.find("format");
  const std::size_t length = content.find('\n', begin) + 1 - begin;
  const std::string line = content.substr(begin, length);
  content.erase(begin, length);
  content.insert(content.find("end_header"), line);
  EXPECT_EQ(readFile(content).GetNumPoints(), 4);
}

TEST_F(PlyReaderTest, TextMayHoldBlankLinesTabsAndNoLastLineEnd) {
  const PointMesh& mesh = readFile(
      "ply\nformat ascii 1.0\nelement  vertex\t2 \nproperty float x\nproperty float y\n"
      "property float z\n\nend_header\n\n  1 2\t3 \n \r\n4   5 6");
  EXPECT_THAT(modelPoints(mesh), ElementsAre(Point3DDouble(1, 2, 3), Point3DDouble(4, 5, 6)));
}

TEST_F(PlyReaderTest, TextMayBeAsShortAsItsNumbersAllow) {
  const PointMesh& mesh = readFile(
      "ply\nformat ascii 1.0\nelement vertex 2\nproperty float x\nproperty float y\n"
      "property float z\nend_header\n1 2 3\n4 5 6");
  EXPECT_THAT(modelPoints(mesh), ElementsAre(Point3DDouble(1, 2, 3), Point3DDouble(4, 5, 6)));
}

TEST_F(PlyReaderTest, TextMayBeginWithAByteOrderMark) {
  addFourPoints(ply);
  EXPECT_EQ(readFile("\xEF\xBB\xBF" + ply.written(Form::eText)).GetNumPoints(), 4);
}

TEST_F(PlyReaderTest, TextMayHoldNumbersWithExponents) {
  const PointMesh& mesh = readFile(
      "ply\nformat ascii 1.0\nelement vertex 1\nproperty float x\nproperty float y\n"
      "property float z\nend_header\n1.5e2 -2E-1 .5\n");
  EXPECT_EQ(mesh.GetPoint(0), Point3DDouble(150, static_cast<double>(-0.2F), 0.5));
}

TEST_F(PlyReaderTest, TextIsReadAlikeInEveryLocale) {
  addFourPoints(ply);
  const CommaLocale comma;
  EXPECT_EQ(read(Form::eText).GetPoint(0), Point3DDouble(1.5, -2, 3));
}

// Points without a position

class PlyUnusableTest : public PlyFormTest {
protected:
  PlyUnusableTest() {
    ply.element("vertex", {"double x", "double y", "double z", "uchar red", "uchar green",
                           "uchar blue", "float nx", "float ny", "float nz"});
    ply.records({{1, 2, 3, 11, 12, 13, 1, 0, 0},
                 {notANumber, 2, 3, 21, 22, 23, 0, 1, 0},
                 {4, 5, 6, 31, 32, 33, 0, 0, 1},
                 {4, -infinity, 6, 41, 42, 43, 0, 1, 0},
                 {7, 8, 9, 51, 52, 53, -1, 0, 0},
                 {7, 8, notANumber, 61, 62, 63, 0, -1, 0},
                 {10, 11, 12, 71, 72, 73, 0, 0, -1}});
  }
  std::string fileName() const { return folder.file("cloud.ply"); }
};

INSTANTIATE_TEST_SUITE_P(All, PlyUnusableTest,
                         ::testing::Values(Form::eText, Form::eLittleEndian, Form::eBigEndian),
                         [](const auto& info) {
                           return std::string(SyntheticPly::nameOf(info.param));
                         });

TEST_P(PlyUnusableTest, PointsWithoutAFinitePositionAreLeftOutWithTheirColours) {
  const PointMesh& mesh = read();
  EXPECT_THAT(modelPoints(mesh), ElementsAre(Point3DDouble(1, 2, 3), Point3DDouble(4, 5, 6),
                                             Point3DDouble(7, 8, 9), Point3DDouble(10, 11, 12)));
  EXPECT_THAT(colours(mesh),
              ElementsAre(Rgb{11, 12, 13}, Rgb{31, 32, 33}, Rgb{51, 52, 53}, Rgb{71, 72, 73}));
  takeWarnings();
}

TEST_P(PlyUnusableTest, TheyAreCountedAndSaidOnce) {
  read();
  EXPECT_THAT(
      takeWarnings(),
      ElementsAre(fileName() + ": 3 of 7 points are left out, for their positions are not finite"));
}

TEST_P(PlyUnusableTest, TheirTrianglesGoWithThemAndTheOthersAreRenumbered) {
  ply.element("face", {"list uchar int vertex_indices"});
  ply.record({{0, 2, 4}});
  ply.record({{0, 1, 2}});
  ply.record({{6, 4, 2, 3}});
  EXPECT_THAT(triangles(read()), ElementsAre(Corners{0, 1, 2}, Corners{3, 2, 1}));
  EXPECT_THAT(takeWarnings(),
              ElementsAre(fileName() +
                          ": 3 of 7 points are left out, for their positions are not finite; with "
                          "them 2 triangles"));
}

TEST_P(PlyUnusableTest, TheOthersKeepTheirNormals) {
  ply.element("face", {"list uchar int vertex_indices"});
  ply.record({{0, 2, 4}});
  ply.record({{2, 4, 6}});
  EXPECT_THAT(normals(read(), 1), ElementsAre(Point3DDouble(0, 0, 1), Point3DDouble(-1, 0, 0),
                                              Point3DDouble(0, 0, -1)));
  takeWarnings();
}

TEST_P(PlyFormTest, AllPointsMayBeUnusable) {
  ply.element("vertex", floatPositions);
  ply.records({{notANumber, 1, 2}, {3, infinity, 4}});
  EXPECT_EQ(read().GetNumPoints(), 0);
  EXPECT_EQ(takeWarnings().size(), 1U);
}

TEST_P(PlyFormTest, WhatNoFloatHoldsIsNotFinite) {
  ply.element("vertex", doublePositions);
  ply.records({{1, 2, 3}, {1e300, 2, 3}, {4, 5, 6}});
  EXPECT_THAT(modelPoints(read()), ElementsAre(Point3DDouble(1, 2, 3), Point3DDouble(4, 5, 6)));
  EXPECT_EQ(takeWarnings().size(), 1U);
}

TEST_P(PlyFormTest, UnusablePointsDoNotMoveTheShift) {
  ply.element("vertex", doublePositions);
  for (int i = 0; i < 300; ++i) ply.record({notANumber, infinity, -infinity});
  for (int i = 0; i < 200; ++i) ply.record({5000000.125 + i, 4000000.25 + i, 6});
  const PointMesh& mesh = read();
  ASSERT_EQ(mesh.GetNumPoints(), 200);
  EXPECT_EQ(mesh.GetModelPoint(0), Point3DDouble(5000000.125, 4000000.25, 6));
  EXPECT_EQ(mesh.GetModelPoint(199), Point3DDouble(5000199.125, 4000199.25, 6));
  takeWarnings();
}

// What surrounds the mesh

TEST_F(PlyReaderTest, TheMeshIsNamedAfterTheFileAndAddedToTheProject) {
  addFourPoints(ply);
  const std::string file = folder.write("stone wall.2.ply", ply.written(Form::eText));
  PointMesh& mesh = tarn::PlyReader::Read(file, project);
  EXPECT_EQ(mesh.GetName().str(), "stone wall.2");
  ASSERT_EQ(project.GetPointMeshes().size(), 1);
  EXPECT_EQ(project.GetPointMeshes().at(0), &mesh);
}

TEST_F(PlyReaderTest, EachFileIsAMeshOfItsOwn) {
  addFourPoints(ply);
  const PointMesh& first = read(Form::eText);
  const PointMesh& second = read(Form::eBigEndian);
  EXPECT_EQ(project.GetPointMeshes().size(), 2);
  EXPECT_EQ(first.GetPoint(3), second.GetPoint(3));
}

TEST_F(PlyReaderTest, ARefusedFileLeavesTheProjectAsItWas) {
  addFourPoints(ply);
  read(Form::eText);
  std::string content = ply.written(Form::eLittleEndian);
  content.pop_back();
  EXPECT_THROW(readFile(content), tarn::ReadError);
  EXPECT_EQ(project.GetPointMeshes().size(), 1);
}

TEST_P(PlyFormTest, DataBehindTheLastElementAreSaidOnce) {
  addFourPoints(ply);
  std::string content = ply.written(GetParam());
  const std::string where =
      GetParam() == Form::eText ? "line 12" : "byte " + std::to_string(content.size());
  EXPECT_EQ(readFile(content + "more").GetNumPoints(), 4);
  EXPECT_THAT(takeWarnings(), ElementsAre(folder.file("cloud.ply") +
                                          ": the data that follow the last element, from " + where +
                                          " on, are not read"));
}

TEST_P(PlyFormTest, ProgressGoesFromZeroToOne) {
  ply.element("vertex", doublePositions);
  for (int i = 0; i < 30000; ++i) ply.record({5000000 + i, i, i});
  std::vector<double> reported;
  const std::string file = folder.write("cloud.ply", ply.written(GetParam()));
  tarn::PlyReader::Read(file, project, [&](const char* step, double done) {
    EXPECT_STREQ(step, "Reading points");
    reported.push_back(done);
  });
  ASSERT_GT(reported.size(), 10U);
  EXPECT_EQ(reported.front(), 0.0);
  EXPECT_EQ(reported.back(), 1.0);
  EXPECT_TRUE(std::is_sorted(reported.begin(), reported.end()));
}

TEST_F(PlyReaderTest, ProgressEndsWithoutPointsToo) {
  ply.element("vertex", floatPositions);
  std::vector<double> reported;
  tarn::PlyReader::Read(folder.write("cloud.ply", ply.written(Form::eText)), project,
                        [&](const char*, double done) { reported.push_back(done); });
  EXPECT_THAT(reported, ElementsAre(0.0, 1.0));
}

TEST_F(PlyReaderTest, APlyFileIsToldByItsFirstLine) {
  addFourPoints(ply);
  EXPECT_TRUE(tarn::PlyReader::IsPlyFile(folder.write("a", ply.written(Form::eText))));
  EXPECT_TRUE(tarn::PlyReader::IsPlyFile(folder.write("b", "ply\r\n")));
  EXPECT_FALSE(tarn::PlyReader::IsPlyFile(folder.write("c.ply", "plywood\n")));
  EXPECT_FALSE(tarn::PlyReader::IsPlyFile(folder.write("d.ply", "")));
  EXPECT_FALSE(tarn::PlyReader::IsPlyFile(folder.write("e.ply", "ply")));
  EXPECT_FALSE(tarn::PlyReader::IsPlyFile(folder.path()));
  EXPECT_FALSE(tarn::PlyReader::IsPlyFile(folder.file("missing.ply")));
}
