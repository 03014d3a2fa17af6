#include "io/SurfaceReader.h"

#include "host/model/ImportedSurface.h"
#include "host/model/Material.h"
#include "host/model/Project.h"
#include "io/ReadError.h"
#include "tests/support/CommaLocale.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>

using tarn::ImportedSurface;
using tarn::Point3DDouble;
using tarn::Triangle;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Corners = std::array<Point3DDouble, 3>;
using Uvs = std::array<std::array<double, 2>, 3>;

const std::string triangle = "v 1 2 3\nv 4 2 3\nv 1 7 3\n";
const std::string normals = "vn 0 0 1\n";
const Point3DDouble slanted = 0.2 * Point3DDouble(0, 3, 4);
const std::string uvs = "vt 0 0\nvt 1 0\nvt 0.25 0.75\n";
// Four points of a tetrahedron, its faces turned outwards.
const std::string tetrahedron =
    "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nvn -1 0 0\nvn 0 -1 0\nvn 0 0 -1\nvn 1 1 1\n";
const std::string threeSides = "f 1//3 3//3 2//3\nf 1//2 2//2 4//2\nf 1//1 4//1 3//1\n";
const std::string fourthSide = "f 2//4 3//4 4//4\n";

Corners cornersOf(const Triangle& triangle) {
  Corners corners;
  for (int k = 0; k < 3; ++k) {
    tarn::Point3DRandom position;
    EXPECT_TRUE(triangle.GetPoint(k)->GetApproximation(position));
    corners[static_cast<std::size_t>(k)] = position.position();
  }
  return corners;
}

const tarn::VOrdCollect& setOf(ImportedSurface& surface, int set) {
  return *static_cast<tarn::VOrdCollect*>(surface.GetTriangleSets()->at(set));
}

std::vector<Corners> triangles(ImportedSurface& surface, int set = 0) {
  std::vector<Corners> all;
  for (int i = 0; i < setOf(surface, set).size(); ++i) {
    all.push_back(cornersOf(*static_cast<Triangle*>(setOf(surface, set).at(i))));
  }
  return all;
}

Triangle& triangleOf(ImportedSurface& surface, int number = 0) {
  return *static_cast<Triangle*>(surface.GetTriangles()->at(number));
}

std::vector<Point3DDouble> normalsOf(ImportedSurface& surface, int number = 0) {
  std::vector<Point3DDouble> all;
  for (int k = 0; k < 3; ++k) {
    if (const Point3DDouble* normal = triangleOf(surface, number).GetNormal(k)) {
      all.push_back(*normal);
    }
  }
  return all;
}

// As the surface has them; empty where it has none.
std::vector<std::array<double, 2>> uvsOf(ImportedSurface& surface, int number = 0) {
  const auto* matrix = static_cast<tarn::MatrixDouble*>(
      surface.GetUvMatrices()->atKey(&triangleOf(surface, number)));
  std::vector<std::array<double, 2>> all;
  for (int k = 1; matrix && k <= 3; ++k) all.push_back({(*matrix)(k, 1), (*matrix)(k, 2)});
  return all;
}

std::string textureOf(const ImportedSurface& surface, int set = 0) {
  const tarn::VPathString* file = surface.GetTextureFile(set);
  return file ? file->str() : "";
}

// The fixed colours of a material in words: ambient, diffuse, specular, emissive, shininess.
std::string colours(const tarn::Material* material) {
  if (!material) return "none";
  std::array<tarn::Colour, 4> all;
  double shininess = 0.0;
  material->GetFixedColor(all[0], all[1], all[2], all[3], shininess);
  std::string text;
  for (const tarn::Colour& colour : all) {
    text += std::to_string(colour.red()) + " " + std::to_string(colour.green()) + " " +
            std::to_string(colour.blue()) + ", ";
  }
  return text + std::to_string(shininess).substr(0, 5);
}

}  // namespace

class SurfaceReaderTest : public TarnTest {
protected:
  std::vector<ImportedSurface*> readAll(const std::string& content,
                                        const std::string& name = "model.obj") {
    return tarn::SurfaceReader::Read(folder.write(name, content), project);
  }
  // The one surface of the file.
  ImportedSurface& read(const std::string& content, const std::string& name = "model.obj") {
    const std::vector<ImportedSurface*> all = readAll(content, name);
    EXPECT_EQ(all.size(), 1U);
    return *all.at(0);
  }
  // The same where something is said about the file: the text behind its path.
  ImportedSurface& readNoted(const std::string& content, const std::vector<std::string>& notes) {
    ImportedSurface& surface = read(content);
    std::vector<std::string> expected;
    for (const std::string& note : notes) expected.push_back(folder.file("model.obj") + note);
    EXPECT_EQ(takeWarnings(), expected);
    return surface;
  }

  TemporaryFolder folder;
  tarn::Project project;
};

// Points, faces, objects.

TEST_F(SurfaceReaderTest, ATriangleHasItsThreePoints) {
  ImportedSurface& surface = read(triangle + normals + "f 1//1 2//1 3//1\n");
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{1, 2, 3}, {4, 2, 3}, {1, 7, 3}}}));
  EXPECT_EQ(project.GetImportedSurfaces().size(), 1);
  EXPECT_EQ(project.GetImportedSurfaces().at(0), &surface);
}

TEST_F(SurfaceReaderTest, CoordinatesFarFromTheOriginKeepAllTheirDigits) {
  ImportedSurface& surface = read(
      "v 500000.123 4000000.456 12.789\nv 500001.124 4000000.457 12.788\n"
      "v 500000.125 4000001.458 12.787\nvn 0 0 1\nf 1//1 2//1 3//1\n");
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{500000.123, 4000000.456, 12.789},
                                                       {500001.124, 4000000.457, 12.788},
                                                       {500000.125, 4000001.458, 12.787}}}));
}

TEST_F(SurfaceReaderTest, PointsAreSharedBetweenTriangles) {
  ImportedSurface& surface =
      read(triangle + "v 4 7 3\n" + normals + "f 1//1 2//1 3//1\nf 2//1 4//1 3//1\n");
  std::set<tarn::ThreeDPoint*> points;
  for (int t = 0; t < 2; ++t) {
    for (int k = 0; k < 3; ++k) points.insert(triangleOf(surface, t).GetPoint(k));
  }
  EXPECT_EQ(points.size(), 4U);
}

TEST_F(SurfaceReaderTest, NegativeNumbersCountBackFromWhatWasReadLast) {
  ImportedSurface& surface =
      read("v 9 9 9\n" + triangle + normals + "f -3//-1 -2//-1 -1//-1\nv 8 8 8\n");
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{1, 2, 3}, {4, 2, 3}, {1, 7, 3}}}));
}

TEST_F(SurfaceReaderTest, PointsMayComeAfterTheFaces) {
  ImportedSurface& surface = read("f 1//1 2//1 3//1\n" + triangle + normals);
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{1, 2, 3}, {4, 2, 3}, {1, 7, 3}}}));
}

TEST_F(SurfaceReaderTest, APolygonWhosePointsComeLaterIsAFan) {
  ImportedSurface& surface =
      read("f 1//1 2//1 3//1 4//1\nv 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\n" + normals);
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}},
                                              Corners{{{0, 0, 0}, {1, 1, 0}, {0, 1, 0}}}));
}

TEST_F(SurfaceReaderTest, APolygonWithAnInletIsCutInsideOfIt) {
  // An arrow whose point is the second corner: a fan from the first would leave it.
  ImportedSurface& surface = read("v 0 1 0\nv 2 0 0\nv 0 -1 0\nv 1 0 0\n" +
                                  std::string("vn 0 0 -1\n") + "f 1//1 2//1 3//1 4//1\n");
  double area = 0.0;
  for (const Corners& c : triangles(surface)) {
    area += 0.5 * ((c[1].x - c[0].x) * (c[2].y - c[0].y) - (c[1].y - c[0].y) * (c[2].x - c[0].x));
  }
  EXPECT_EQ(surface.GetTriangles()->size(), 2);
  EXPECT_NEAR(area, -1.0, 1e-12);
  for (const Corners& c : triangles(surface)) {
    EXPECT_NE(std::ranges::count(c, Point3DDouble(1, 0, 0)), 0);
  }
}

TEST_F(SurfaceReaderTest, AWeightOrColoursBehindAPointArePassedOver) {
  ImportedSurface& surface =
      read("v 1 2 3 0.5\nv 4 2 3 1 0.5 0.25\nv 1 7 3\n" + normals + "f 1//1 2//1 3//1\n");
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{1, 2, 3}, {4, 2, 3}, {1, 7, 3}}}));
}

TEST_F(SurfaceReaderTest, CommentsBlankLinesAndLineEndsOfAnySystemAreRead) {
  ImportedSurface& surface = read(
      "\xEF\xBB\xBF# a comment\r\n\r\n  v 1 2 3\r\n\tv 4 2 3\r\nv 1 7 3\r\nvn 0 0 1\r\n"
      "f 1//1 2//1\t3//1 # of three\r\n");
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{1, 2, 3}, {4, 2, 3}, {1, 7, 3}}}));
}

TEST_F(SurfaceReaderTest, ALineThatEndsInABackslashGoesOn) {
  ImportedSurface& surface =
      read("v 1 \\\n2 3\n" + std::string("v 4 2 3\nv 1 7 3\nvn 0 0 1\nf 1//1 2//1 \\\n3//1"));
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{1, 2, 3}, {4, 2, 3}, {1, 7, 3}}}));
}

TEST_F(SurfaceReaderTest, NumbersAreReadTheSameWhereACommaDividesThem) {
  const CommaLocale locale;
  ImportedSurface& surface = read("v 1.5 2 3\nv 4 2 3\nv 1 7 3\n" + normals + "f 1//1 2//1 3//1\n");
  EXPECT_EQ(triangles(surface)[0][0], Point3DDouble(1.5, 2, 3));
}

TEST_F(SurfaceReaderTest, NumbersMayHaveAPlusAheadOfThem) {
  ImportedSurface& surface =
      read("v +1.5e+00 2 +.5\nv 4 2 3\nv 1 7 3\n" + normals + "f 1//1 2//1 3//1\n");
  EXPECT_EQ(triangles(surface)[0][0], Point3DDouble(1.5, 2, 0.5));
}

TEST_F(SurfaceReaderTest, ASurfaceWithoutAnObjectIsNamedAfterTheFile) {
  const std::string faces = triangle + normals + "f 1//1 2//1 3//1\n";
  EXPECT_EQ(read(faces, "old house.obj").GetName().str(), "old house");
}

TEST_F(SurfaceReaderTest, EachObjectIsASurfaceOfItsName) {
  const auto all = readAll(triangle + normals +
                           "o roof\nf 1//1 2//1 3//1\no south wall\nf 2//1 3//1 1//1\n"
                           "o roof\nf 3//1 1//1 2//1\no nothing\n");
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0]->GetName().str(), "roof");
  EXPECT_EQ(all[0]->GetTriangles()->size(), 2);
  EXPECT_EQ(all[1]->GetName().str(), "south wall");
  EXPECT_EQ(all[1]->GetTriangles()->size(), 1);
}

TEST_F(SurfaceReaderTest, ObjectsDoNotShareThePointsThatTheyOwn) {
  const auto all = readAll(triangle + normals + "o a\nf 1//1 2//1 3//1\no b\nf 1//1 2//1 3//1\n");
  ASSERT_EQ(all.size(), 2U);
  EXPECT_NE(triangleOf(*all[0]).GetPoint(0), triangleOf(*all[1]).GetPoint(0));
  EXPECT_NE(triangleOf(*all[0]).GetNormal(0), triangleOf(*all[1]).GetNormal(0));
  EXPECT_EQ(cornersOf(triangleOf(*all[0])), cornersOf(triangleOf(*all[1])));
}

TEST_F(SurfaceReaderTest, GroupsCountAsObjectsWhereThereAreNone) {
  const auto all = readAll(triangle + normals + "g a b\nf 1//1 2//1 3//1\ng c\nf 1//1 2//1 3//1\n");
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0]->GetName().str(), "a b");
  EXPECT_EQ(all[1]->GetName().str(), "c");
}

TEST_F(SurfaceReaderTest, GroupsOfAnObjectAreNoSurfacesOfTheirOwn) {
  const auto all =
      readAll("o a\n" + triangle + normals + "g b\nf 1//1 2//1 3//1\ng c\nf 1//1 2//1 3//1\n");
  ASSERT_EQ(all.size(), 1U);
  EXPECT_EQ(all[0]->GetName().str(), "a");
}

TEST_F(SurfaceReaderTest, LinesPointsAndUnknownRecordsArePassedOverAndTold) {
  ImportedSurface& surface =
      readNoted(triangle + normals + "l 1 2\nl 2 3\np 1\ns 1\nvc 1 1 1\nf 1//1 2//1 3//1\n",
                {": 2 elements \"l\", the first on line 5, are passed over",
                 ": 1 elements \"p\", the first on line 7, are passed over",
                 ": 1 records that are not known, \"vc\", the first on line 9, are passed over"});
  EXPECT_EQ(surface.GetTriangles()->size(), 1);
}

// Normals and sides.

TEST_F(SurfaceReaderTest, NormalsAreMadeAsLongAsOne) {
  ImportedSurface& surface = read(triangle + "vn 0 0 6.5\nvn 0 3 4\nf 1//1 2//2 3//1\n");
  EXPECT_THAT(normalsOf(surface),
              ElementsAre(Point3DDouble(0, 0, 1), slanted, Point3DDouble(0, 0, 1)));
  EXPECT_EQ(triangleOf(surface).GetNormal(0), triangleOf(surface).GetNormal(2));
}

TEST_F(SurfaceReaderTest, ASurfaceWithoutNormalsIsLitFlatFromBothSides) {
  ImportedSurface& surface = readNoted(tetrahedron + "f 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n",
                                       {": 4 of 4 triangles have no normals and are lit flat"});
  EXPECT_THAT(normalsOf(surface), IsEmpty());
  EXPECT_TRUE(surface.IsDoubleSided());
}

TEST_F(SurfaceReaderTest, ACornerThatLacksItsNormalAmongOthersGetsItsTrianglesOwn) {
  ImportedSurface& surface = readNoted(triangle + "vn 0 3 4\nf 1//1 2 3//1\n",
                                       {": 1 of 1 triangles have no normals and are lit flat"});
  EXPECT_THAT(normalsOf(surface), ElementsAre(slanted, Point3DDouble(0, 0, 1), slanted));
}

TEST_F(SurfaceReaderTest, NormalsThatAreNotFiniteCountForNone) {
  ImportedSurface& surface =
      readNoted(triangle + "vn nan nan nan\nvn 0 3 4\nvn inf 0 0\nf 1//1 2//2 3//2\n",
                {": 2 normals, the first on line 4, are not finite and count for none",
                 ": 1 of 1 triangles have no normals and are lit flat"});
  EXPECT_EQ(normalsOf(surface)[0], Point3DDouble(0, 0, 1));
  EXPECT_EQ(normalsOf(surface)[1], slanted);
}

TEST_F(SurfaceReaderTest, ATriangleTurnsAsItsNormalsSay) {
  ImportedSurface& surface = read(triangle + "vn 0 0 -1\nf 1//1 2//1 3//1\n");
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{1, 2, 3}, {1, 7, 3}, {4, 2, 3}}}));
}

TEST_F(SurfaceReaderTest, AClosedSurfaceIsSingleSided) {
  EXPECT_FALSE(read(tetrahedron + threeSides + fourthSide).IsDoubleSided());
}

TEST_F(SurfaceReaderTest, ASurfaceWithABorderIsDoubleSided) {
  EXPECT_TRUE(read(tetrahedron + threeSides).IsDoubleSided());
}

TEST_F(SurfaceReaderTest, AClosedSurfaceOfWhichATriangleIsMissingAndAnotherDoubleIsDoubleSided) {
  EXPECT_TRUE(read(tetrahedron + threeSides + "f 1//3 3//3 2//3\n").IsDoubleSided());
}

TEST_F(SurfaceReaderTest, AClosedSurfaceThatIsTurnedInsideOutIsDoubleSided) {
  EXPECT_TRUE(read("v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nvn 1 0 0\nvn 0 1 0\nvn 0 0 1\n"
                   "vn -1 -1 -1\n" +
                   threeSides + fourthSide)
                  .IsDoubleSided());
}

TEST_F(SurfaceReaderTest, WindingThatContradictsTheNormalsIsMended) {
  // One face turned round: by its normals the surface is closed all the same.
  EXPECT_FALSE(read(tetrahedron + threeSides + "f 2//4 4//4 3//4\n").IsDoubleSided());
}

// Materials and textures.

TEST_F(SurfaceReaderTest, ASetForEachMaterialInTheOrderOfTheirFirstFaces) {
  folder.write("m.mtl", "newmtl red\nKd 1 0 0\nnewmtl green\nKd 0 1 0\n");
  ImportedSurface& surface = read("mtllib m.mtl\n" + triangle + normals +
                                  "usemtl green\nf 1//1 2//1 3//1\nusemtl red\nf 2//1 3//1 1//1\n"
                                  "usemtl green\nf 3//1 1//1 2//1\n");
  ASSERT_EQ(surface.GetNumTriangleSets(), 2);
  EXPECT_EQ(setOf(surface, 0).size(), 2);
  EXPECT_EQ(setOf(surface, 1).size(), 1);
  EXPECT_EQ(colours(surface.GetMaterialOfSet(0)), "0 0 0, 0 255 0, 0 0 0, 0 0 0, 0.000");
  EXPECT_EQ(colours(surface.GetMaterialOfSet(1)), "0 0 0, 255 0 0, 0 0 0, 0 0 0, 0.000");
  EXPECT_EQ(surface.GetMaterial(), nullptr) << "no one material is the surface's";
}

TEST_F(SurfaceReaderTest, AMaterialHasItsColoursAndItsShininess) {
  folder.write("m.mtl", "newmtl m\nKa 0.2 0.4 0.6\nKd 1 0.8 0\nKs 0 0.6 1\nKe 0.2 0 0\nNs 64\n");
  ImportedSurface& surface =
      read("mtllib m.mtl\n" + triangle + normals + "usemtl m\nf 1//1 2//1 3//1\n");
  EXPECT_EQ(colours(surface.GetMaterial()), "51 102 153, 255 204 0, 0 153 255, 51 0 0, 0.500");
  EXPECT_EQ(surface.GetMaterial(), surface.GetMaterialOfSet(0));
  EXPECT_EQ(surface.GetMaterial()->GetDiffuseType(), tarn::Material::eFixedColour);
}

TEST_F(SurfaceReaderTest, AHighlightWithoutAnExponentIsNone) {
  folder.write("m.mtl", "newmtl m\nKd 1 1 1\nKs 1 1 1\nNs 0\n");
  ImportedSurface& surface =
      read("mtllib m.mtl\n" + triangle + normals + "usemtl m\nf 1//1 2//1 3//1\n");
  EXPECT_EQ(colours(surface.GetMaterial()), "0 0 0, 255 255 255, 0 0 0, 0 0 0, 0.000");
}

TEST_F(SurfaceReaderTest, AnExponentBeyondThatOfOpenGLIsAShininessOfOne) {
  folder.write("m.mtl", "newmtl m\nKs 1 1 1\nNs 900\n");
  ImportedSurface& surface =
      read("mtllib m.mtl\n" + triangle + normals + "usemtl m\nf 1//1 2//1 3//1\n");
  EXPECT_THAT(colours(surface.GetMaterial()), ::testing::EndsWith("1.000"));
}

TEST_F(SurfaceReaderTest, FacesWithoutAMaterialHaveNone) {
  ImportedSurface& surface = read(triangle + normals + "f 1//1 2//1 3//1\n");
  EXPECT_EQ(surface.GetMaterialOfSet(0), nullptr);
  EXPECT_EQ(surface.GetMaterial(), nullptr);
}

class TexturedSurfaceTest : public SurfaceReaderTest {
protected:
  // A textured triangle whose material and whose folder has that in it.
  const std::string textured =
      "mtllib m.mtl\n" + triangle + normals + uvs + "usemtl m\nf 1/1/1 2/2/1 3/3/1\n";
};

TEST_F(TexturedSurfaceTest, ATextureIsFoundBesideTheFileAndNamedByItsWholePath) {
  folder.write("m.mtl", "newmtl m\nKd 1 1 1\nmap_Kd a.jpg\n");
  const std::string picture = folder.write("a.jpg", "a picture");
  ImportedSurface& surface = read(textured);
  EXPECT_EQ(textureOf(surface), picture);
  EXPECT_EQ(surface.GetMaterial()->GetDiffuseType(), tarn::Material::ePhotoTexture);
}

TEST_F(TexturedSurfaceTest, TheSecondTextureCoordinateCountsDownwards) {
  folder.write("m.mtl", "newmtl m\nmap_Kd a.jpg\n");
  folder.write("a.jpg", "a picture");
  EXPECT_THAT(uvsOf(read(textured)),
              ElementsAre(std::array{0.0, 1.0}, std::array{1.0, 1.0}, std::array{0.25, 0.25}));
}

TEST_F(TexturedSurfaceTest, NamesHaveBlanksInThem) {
  folder.write("my materials.mtl",
               "newmtl\tdark red brick \t\nKd 1 1 1\nmap_Kd dark red brick.jpg \n");
  const std::string picture = folder.write("dark red brick.jpg", "a picture");
  ImportedSurface& surface = read("mtllib my materials.mtl\n" + triangle + normals + uvs +
                                  "usemtl dark red brick\nf 1/1/1 2/2/1 3/3/1\n");
  EXPECT_EQ(textureOf(surface), picture);
}

TEST_F(TexturedSurfaceTest, NamesOfFilesMayBeQuoted) {
  folder.write("my materials.mtl", "newmtl m\nKd 1 1 1\nmap_Kd \"tex\\dark brick.jpg\"\n");
  const std::string picture = folder.write("dark brick.jpg", "a picture");
  ImportedSurface& surface = read("mtllib \"my materials.mtl\"\n" + triangle + normals + uvs +
                                  "usemtl m\nf 1/1/1 2/2/1 3/3/1\n");
  EXPECT_EQ(textureOf(surface), picture);
}

TEST_F(TexturedSurfaceTest, SeveralFilesOfMaterialsOnOneLine) {
  folder.write("a.mtl", "newmtl a\nKd 1 0 0\n");
  folder.write("b.mtl", "newmtl b\nKd 0 1 0\n");
  ImportedSurface& surface =
      read("mtllib a.mtl b.mtl\n" + triangle + normals + "usemtl b\nf 1//1 2//1 3//1\n");
  EXPECT_EQ(colours(surface.GetMaterial()), "0 0 0, 0 255 0, 0 0 0, 0 0 0, 0.000");
}

TEST_F(TexturedSurfaceTest, AFileOfMaterialsOfAnotherMachinesPathIsFoundBesideTheFile) {
  folder.write("a b.mtl", "newmtl a\nKd 1 0 0\n");
  ImportedSurface& surface =
      read("mtllib C:\\projects\\a b.mtl\n" + triangle + normals + "usemtl a\nf 1//1 2//1 3//1\n");
  EXPECT_EQ(colours(surface.GetMaterial()), "0 0 0, 255 0 0, 0 0 0, 0 0 0, 0.000");
}

TEST_F(TexturedSurfaceTest, AMaterialThatIsDefinedTwiceIsTheFirst) {
  folder.write("a.mtl", "newmtl m\nKd 1 0 0\n");
  folder.write("b.mtl", "newmtl m\nKd 0 1 0\n");
  ImportedSurface& surface =
      read("mtllib a.mtl\nmtllib b.mtl\n" + triangle + normals + "usemtl m\nf 1//1 2//1 3//1\n");
  EXPECT_EQ(colours(surface.GetMaterial()), "0 0 0, 255 0 0, 0 0 0, 0 0 0, 0.000");
}

TEST_F(TexturedSurfaceTest, OptionsAheadOfATextureAreNoPartOfItsName) {
  folder.write("m.mtl", "newmtl m\nmap_Kd -s 1 1 1 -o 0 0 0 a.jpg\n");
  const std::string picture = folder.write("a.jpg", "a picture");
  EXPECT_EQ(textureOf(read(textured)), picture);
}

TEST_F(TexturedSurfaceTest, ATextureInAFolderIsFoundWhicheverWayItIsWritten) {
  std::filesystem::create_directory(folder.file("pictures"));
  folder.write("m.mtl", "newmtl m\nmap_Kd pictures\\a.jpg\n");
  const std::string picture = folder.write("pictures/a.jpg", "a picture");
  EXPECT_EQ(textureOf(read(textured)), picture);
}

TEST_F(TexturedSurfaceTest, ATextureOfAnotherMachinesPathIsFoundBesideTheFile) {
  folder.write("m.mtl", "newmtl m\nmap_Kd C:\\projects\\a b\\a.jpg\n");
  const std::string picture = folder.write("a.jpg", "a picture");
  EXPECT_EQ(textureOf(read(textured)), picture);
}

TEST_F(TexturedSurfaceTest, ATextureIsMultipliedByTheDiffuseColour) {
  folder.write("m.mtl", "newmtl m\nKd 1 0.5 1\nmap_Kd a.jpg\n");
  folder.write("a.jpg", "a picture");
  EXPECT_TRUE(read(textured).GetMaterial()->GetBlendRGBWithTexture());
}

TEST_F(TexturedSurfaceTest, ATextureWithABlackColourIsShownAlone) {
  folder.write("m.mtl", "newmtl m\nKd 0 0 0\nmap_Kd a.jpg\n");
  folder.write("a.jpg", "a picture");
  EXPECT_FALSE(read(textured).GetMaterial()->GetBlendRGBWithTexture());
}

TEST_F(TexturedSurfaceTest, AMissingTextureIsTold) {
  folder.write("m.mtl", "newmtl m\nKd 0 0 1\nmap_Kd a b.jpg\n");
  ImportedSurface& surface =
      readNoted(textured, {": the texture \"a b.jpg\" of the material \"m\" is not there; "
                           "its surfaces are shown without it"});
  EXPECT_EQ(surface.GetTextureFile(0), nullptr);
  EXPECT_EQ(surface.GetMaterial()->GetDiffuseType(), tarn::Material::eFixedColour);
  EXPECT_THAT(uvsOf(surface), IsEmpty());
}

TEST_F(TexturedSurfaceTest, OfManyMissingTexturesTenAreTold) {
  std::string materials;
  std::string faces;
  for (int i = 0; i < 14; ++i) {
    materials += "newmtl m" + std::to_string(i) + "\nmap_Kd " + std::to_string(i) + ".jpg\n";
    faces += "usemtl m" + std::to_string(i) + "\nf 1/1/1 2/2/1 3/3/1\n";
  }
  folder.write("m.mtl", materials);
  EXPECT_EQ(read("mtllib m.mtl\n" + triangle + normals + uvs + faces).GetNumTriangleSets(), 14);
  const std::vector<std::string> warnings = takeWarnings();
  ASSERT_EQ(warnings.size(), 11U);
  EXPECT_EQ(warnings.back(), folder.file("model.obj") + ": and 4 notes more");
}

TEST_F(TexturedSurfaceTest, AFolderInPlaceOfATextureIsMissing) {
  folder.write("m.mtl", "newmtl m\nmap_Kd a\n");
  std::filesystem::create_directory(folder.file("a"));
  EXPECT_EQ(
      textureOf(readNoted(textured, {": the texture \"a\" of the material \"m\" is not there; its "
                                     "surfaces are shown without it"})),
      "");
}

TEST_F(TexturedSurfaceTest, AMissingFileOfMaterialsIsTold) {
  ImportedSurface& surface =
      readNoted(textured, {":1: the file of materials \"m.mtl\" is not there; "
                           "surfaces are shown without them"});
  EXPECT_EQ(surface.GetTriangles()->size(), 1);
  const tarn::Material usual;
  EXPECT_EQ(colours(surface.GetMaterial()), colours(&usual));
}

TEST_F(TexturedSurfaceTest, AMaterialThatIsNotDefinedIsTold) {
  folder.write("m.mtl", "newmtl other\nKd 1 0 0\n");
  ImportedSurface& surface = readNoted(
      textured,
      {": 1 of its 1 materials, the first \"m\", are defined in none of its files of materials"});
  EXPECT_EQ(surface.GetTriangles()->size(), 1);
}

TEST_F(TexturedSurfaceTest, AFileOfMaterialsThatCannotBeReadIsTold) {
  const std::string file = folder.write("m.mtl", "");
  read(textured);
  EXPECT_THAT(
      takeWarnings(),
      ElementsAre(
          file + ": found an empty file, expected a file of materials; surfaces are "
                 "shown without its materials",
          folder.file("model.obj") +
              ": 1 of its 1 materials, the first \"m\", are defined in none of its files of "
              "materials"));
}

TEST_F(TexturedSurfaceTest, WhatStandsAheadOfTheFirstMaterialIsPassedOver) {
  folder.write("m.mtl", "Kd 0 1 0\nmap_Kd b.jpg\nnewmtl m\nKd 1 0 0\n");
  EXPECT_EQ(colours(read(textured).GetMaterial()), "0 0 0, 255 0 0, 0 0 0, 0 0 0, 0.000");
}

TEST_F(TexturedSurfaceTest, AFileOfMaterialsMayBeIndented) {
  folder.write("m.mtl", "\xEF\xBB\xBF# 3D\r\n  newmtl m\r\n\tKd 1 0 0\r\n");
  EXPECT_EQ(colours(read(textured).GetMaterial()), "0 0 0, 255 0 0, 0 0 0, 0 0 0, 0.000");
}

TEST_F(TexturedSurfaceTest, TrianglesWithoutTextureCoordinatesAreASetWithoutTexture) {
  folder.write("m.mtl", "newmtl m\nmap_Kd a.jpg\n");
  folder.write("a.jpg", "a picture");
  ImportedSurface& surface = readNoted(
      textured + "f 1//1 2//1 3//1\nf 1/1/1 2//1 3/3/1\n",
      {": 2 of 3 triangles have a texture but no texture coordinates and are shown without "
       "it"});
  ASSERT_EQ(surface.GetNumTriangleSets(), 2);
  EXPECT_EQ(setOf(surface, 0).size(), 1);
  EXPECT_NE(surface.GetTextureFile(0), nullptr);
  EXPECT_EQ(setOf(surface, 1).size(), 2);
  EXPECT_EQ(surface.GetTextureFile(1), nullptr);
  EXPECT_EQ(surface.GetMaterialOfSet(0), surface.GetMaterialOfSet(1));
}

TEST_F(TexturedSurfaceTest, ATextureCoordinateMayBeOneNumberOrThree) {
  folder.write("m.mtl", "newmtl m\nmap_Kd a.jpg\n");
  folder.write("a.jpg", "a picture");
  ImportedSurface& surface =
      read("mtllib m.mtl\n" + triangle + normals + "vt 0.5\nvt 0.25 0.5 0\nvt 1 1\nusemtl m\n" +
           "f 1/1/1 2/2/1 3/3/1\n");
  EXPECT_THAT(uvsOf(surface),
              ElementsAre(std::array{0.5, 1.0}, std::array{0.25, 0.5}, std::array{1.0, 0.0}));
}

TEST_F(TexturedSurfaceTest, ATurnedTriangleKeepsEachCornersTextureCoordinates) {
  folder.write("m.mtl", "newmtl m\nmap_Kd a.jpg\n");
  folder.write("a.jpg", "a picture");
  ImportedSurface& surface =
      read("mtllib m.mtl\n" + triangle + "vn 0 0 -1\n" + uvs + "usemtl m\nf 1/1/1 2/2/1 3/3/1\n");
  EXPECT_EQ(cornersOf(triangleOf(surface))[1], Point3DDouble(1, 7, 3));
  EXPECT_EQ(uvsOf(surface)[1], (std::array{0.25, 0.25}));
}

// What is read, and how.

TEST_F(SurfaceReaderTest, AnObjFileIsKnownByItsContentOrItsName) {
  using tarn::SurfaceReader;
  EXPECT_TRUE(SurfaceReader::IsSurfaceFile(folder.write("a.txt", "# exported\n\nmtllib a.mtl\n")));
  EXPECT_TRUE(SurfaceReader::IsSurfaceFile(folder.write("b", "v 1 2 3\n")));
  EXPECT_TRUE(SurfaceReader::IsSurfaceFile(folder.write("c.OBJ", "nonsense")));
  EXPECT_TRUE(SurfaceReader::IsSurfaceFile(folder.write("d.stl", "solid\n")));
  EXPECT_TRUE(SurfaceReader::IsSurfaceFile(folder.write("d.dat", "ply\nformat ascii 1.0\n")));
  EXPECT_TRUE(SurfaceReader::IsSurfaceFile(folder.write("e.ply", "v 1 2 3\n")));
  EXPECT_FALSE(SurfaceReader::IsSurfaceFile(folder.write("f.ply", "plywood\n")));
  EXPECT_FALSE(SurfaceReader::IsSurfaceFile(folder.write("e.txt", "very much\n")));
  EXPECT_FALSE(SurfaceReader::IsSurfaceFile(folder.write("f", "")));
  EXPECT_FALSE(SurfaceReader::IsSurfaceFile(folder.path()));
  EXPECT_FALSE(SurfaceReader::IsSurfaceFile(folder.file("missing.obj")));
}

TEST_F(SurfaceReaderTest, AnObjFileOfAnotherNameIsRead) {
  EXPECT_EQ(read(triangle + normals + "f 1//1 2//1 3//1\n", "m.ply").GetTriangles()->size(), 1);
  EXPECT_EQ(read(triangle + normals + "f 1//1 2//1 3//1\n", "model.txt").GetTriangles()->size(), 1);
}

TEST_F(SurfaceReaderTest, ProgressGoesFromItsBeginToItsEnd) {
  std::string faces;
  for (int i = 0; i < 5000; ++i) faces += "f 1//1 2//1 3//1\n";
  std::vector<std::pair<std::string, double>> reports;
  tarn::SurfaceReader::Read(
      folder.write("model.obj", triangle + normals + faces), project,
      [&reports](const char* step, double done) { reports.emplace_back(step, done); });
  ASSERT_GT(reports.size(), 8U);
  EXPECT_EQ(reports.front(), std::pair(std::string("Reading surfaces"), 0.0));
  EXPECT_EQ(reports.back(), std::pair(std::string("Building surfaces"), 1.0));
  for (std::size_t i = 1; i < reports.size(); ++i) {
    if (reports[i].first == reports[i - 1].first) {
      EXPECT_GT(reports[i].second, reports[i - 1].second);
    }
  }
}

TEST_F(SurfaceReaderTest, AnStlFileIsReadWithItsPointsJoined) {
  ImportedSurface& surface = read(
      "solid part\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 2 0 0\nvertex 2 1 0\n"
      "endloop\nendfacet\nfacet normal 0 0 1\nouter loop\nvertex 0 -0.0 0\nvertex 2 1 0\n"
      "vertex 0 1 0\nendloop\nendfacet\nendsolid part\n",
      "part.stl");
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{0, 0, 0}, {2, 0, 0}, {2, 1, 0}}},
                                              Corners{{{0, 0, 0}, {2, 1, 0}, {0, 1, 0}}}));
  EXPECT_EQ(triangleOf(surface, 0).GetPoint(0), triangleOf(surface, 1).GetPoint(0));
  EXPECT_EQ(triangleOf(surface, 0).GetPoint(2), triangleOf(surface, 1).GetPoint(1));
  EXPECT_EQ(normalsOf(surface)[0], Point3DDouble(0, 0, 1));
}

TEST_F(SurfaceReaderTest, AnOffFileIsReadWithItsPolygonsCut) {
  ImportedSurface& surface =
      read("OFF\n4 1 0\n0 0 0\n1 0 0\n1 1 0\n0 1 0\n4 0 1 2 3\n", "square.off");
  EXPECT_EQ(surface.GetTriangles()->size(), 2);
  EXPECT_EQ(surface.GetName().str(), "square");
  EXPECT_THAT(takeWarnings(), ElementsAre(folder.file("square.off") +
                                          ": 2 of 2 triangles have no normals and are lit flat"));
}

// A triangle with its picture, mirrored along X, turned up and moved by its place in the scene.
TEST_F(SurfaceReaderTest, AGltfFileIsReadAsItIsPlacedWithItsTexture) {
  const std::string picture = folder.write("a b.png", "a picture");
  const std::string numbers =
      "AAAAAAAAAAAAAAAAAAAAQAAAAAAAAAAAAAAAAAAAgD8AAAAAAACAPgAAAD4AAIA/AAAAAAAAAAAAAIA/AAAAAAAAAAAA"
      "AIA/AAAAAAAAAAAAAIA/AAAAAAAAAAAAAIA/AAABAAIA";
  ImportedSurface& surface = read(
      R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],"nodes":[{"children":[1]},)"
      R"({"name":"sail","mesh":0,"matrix":[-1,0,0,0, 0,0,1,0, 0,-1,0,0, 10,20,30,1]}],)"
      R"("meshes":[{"primitives":[{"attributes":{"POSITION":0,"TEXCOORD_0":1,"NORMAL":2},)"
      R"("indices":3,"material":0}]}],"materials":[{"name":"cloth","pbrMetallicRoughness":)"
      R"({"baseColorTexture":{"index":0}}}],"textures":[{"source":0}],"images":[{"uri":"a%20b.png"}],)"
      R"("accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3",)"
      R"("min":[0,0,0],"max":[2,1,0]},)"
      R"({"bufferView":1,"componentType":5126,"count":3,"type":"VEC2"},)"
      R"({"bufferView":2,"componentType":5126,"count":3,"type":"VEC3"},)"
      R"({"bufferView":3,"componentType":5123,"count":3,"type":"SCALAR"}],)"
      R"("bufferViews":[{"buffer":0,"byteLength":36},{"buffer":0,"byteOffset":36,"byteLength":24},)"
      R"({"buffer":0,"byteOffset":60,"byteLength":36},{"buffer":0,"byteOffset":96,"byteLength":6}],)"
      R"("buffers":[{"byteLength":102,"uri":"data:application/octet-stream;base64,)" +
          numbers + R"("}]})",
      "ship.gltf");
  EXPECT_EQ(surface.GetName().str(), "sail");
  // The corners are those of the file brought to their place; that the matrix mirrors turns them
  // round.
  EXPECT_THAT(triangles(surface), ElementsAre(Corners{{{10, 20, 30}, {10, 20, 31}, {8, 20, 30}}}));
  EXPECT_THAT(normalsOf(surface), ::testing::Each(Point3DDouble(0, -1, 0)));
  // Such files count v downwards, too.
  EXPECT_THAT(uvsOf(surface),
              ElementsAre(std::array{0.25, 0.125}, std::array{0.0, 1.0}, std::array{1.0, 0.0}));
  EXPECT_EQ(textureOf(surface), picture);
}
