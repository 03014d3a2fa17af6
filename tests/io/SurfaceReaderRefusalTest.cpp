#include "host/model/Project.h"
#include "io/ReadError.h"
#include "io/SurfaceReader.h"
#include "tests/support/TarnTest.h"

#include <ostream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A file that is refused: its content, and the message after the file's path.
struct BadFile {
  const char* name;
  std::string content;
  std::string message;
};
void PrintTo(const BadFile& bad, std::ostream* out) { *out << bad.name; }

const std::string triangle = "v 1 2 3\nv 4 2 3\nv 1 7 3\n";
// Three points, a texture coordinate and a normal, and on line 6 a face.
std::string face(const std::string& corners) {
  return triangle + "vt 0 0\nvn 0 0 1\nf" + corners + "\n";
}
const std::string corner =
    "a corner: POINT, POINT/UV, POINT//NORMAL or POINT/UV/NORMAL, each a "
    "number";

const BadFile badFiles[] = {
    {"Empty", "", ": found an empty file, expected a file of surfaces"},
    {"Blank", "\n  \n", ": found an OBJ file without faces, expected at least one (f)"},
    {"CommentsOnly", "# nothing\n", ": found an OBJ file without faces, expected at least one (f)"},
    {"AnotherText", "hello world\n",
     ":1: found \"hello\", expected a record of an OBJ file (v, vt, vn, f, o, mtllib)"},
    {"AnotherFormat", "OFF\n3 1 0\n",
     ":1: found \"OFF\", expected a record of an OBJ file (v, vt, vn, f, o, mtllib)"},
    {"BinaryData", std::string("\x4c\x01\x02\x00\x00", 5),
     ":1: found \"L\\x01\\x02\\x00\\x00\", expected a record of an OBJ file (v, vt, vn, f, o, "
     "mtllib)"},
    {"NoFaces", triangle, ": found an OBJ file without faces, expected at least one (f)"},
    {"LinesOnly", triangle + "l 1 2\n",
     ": found an OBJ file without faces, expected at least one (f)"},

    {"PointCutOff", "v 1 2\n", ":1: found the end of the line after 3 fields, expected z"},
    {"PointWithoutNumbers", "v\n", ":1: found the end of the line after 1 fields, expected x"},
    {"PointNoNumber", "v 1 two 3\n", ":1: found \"two\" (field 3), expected y, a finite number"},
    {"PointWithTwoSigns", "v 1 2 +-3\n",
     ":1: found \"+-3\" (field 4), expected z, a finite number"},
    {"PointNotANumber", "v 1 2 nan\n", ":1: found \"nan\" (field 4), expected z, a finite number"},
    {"PointInfinite", "v inf 2 3\n", ":1: found \"inf\" (field 2), expected x, a finite number"},
    {"PointThatNoDoubleHolds", "v 1 1e999 3\n",
     ":1: found \"1e999\" (field 3), expected y, a finite number"},
    {"PointThatCannotBeDrawn", "v 1 2 -1e31\n",
     ":1: found z beyond 1e30, expected a place that can be drawn"},
    {"PointWithDecimalComma", "v 1,5 2 3\n",
     ":1: found \"1,5\" (field 2), expected x, a finite number"},
    {"TextureCoordinateMissing", "vt\n",
     ":1: found the end of the line after 1 fields, expected u"},
    {"TextureCoordinateNotFinite", "vt 0 nan\n",
     ":1: found \"nan\" (field 3), expected v, a finite number"},
    {"NormalCutOff", "vn 0 1\n",
     ":1: found the end of the line after 3 fields, expected z of a normal"},
    {"NormalNoNumber", "vn 0 up 1\n",
     ":1: found \"up\" (field 3), expected y of a normal, a number"},

    {"FaceWithoutCorners", face(""), ":6: found a face of 0 corners, expected at least 3"},
    {"FaceOfTwoCorners", face(" 1 2"), ":6: found a face of 2 corners, expected at least 3"},
    {"FaceOfTwoCornersAndAComment", face(" 1 2 # 3"),
     ":6: found a face of 2 corners, expected at least 3"},
    {"CornerZero", face(" 0 1 2"),
     ":6: found the point 0 of \"0\", expected a number from 1 on, or one from -1 back to -3"},
    {"CornerTextureZero", face(" 1/0 2 3"),
     ":6: found the texture coordinate 0 of \"1/0\", expected a number from 1 on, or one from -1 "
     "back to -1"},
    {"CornerNormalZero", face(" 1//0 2 3"),
     ":6: found the normal 0 of \"1//0\", expected a number from 1 on, or one from -1 back to -1"},
    {"CornerTooFarBack", face(" -4 -2 -1"),
     ":6: found the point -4 of \"-4\", expected a number from 1 on, or one from -1 back to -3"},
    {"CornerTextureTooFarBack", face(" 1/-2 2 3"),
     ":6: found the texture coordinate -2 of \"1/-2\", expected a number from 1 on, or one from -1 "
     "back to -1"},
    {"CornerBeyondThePoints", face(" 1 2 4"),
     ":6: found the point 4, expected one of the 3 that the file has"},
    {"CornerBeyondThePointsInAPolygon", face(" 1 2 3 9"),
     ":6: found the point 9, expected one of the 3 that the file has"},
    {"CornerBeyondTheTextureCoordinates", face(" 1/1 2/1 3/2"),
     ":6: found the texture coordinate 2, expected one of the 1 that the file has"},
    {"CornerBeyondTheNormals", face(" 1//1 2//5 3//1"),
     ":6: found the normal 5, expected one of the 1 that the file has"},
    {"CornerBeyondAllIntegers", face(" 1 2 2147483648"),
     ":6: found the point 2147483648 of \"2147483648\", expected a number from 1 on, or one from "
     "-1 back to -3"},
    {"CornerThatNoIntegerHolds", face(" 1 2 99999999999999999999"),
     ":6: found \"99999999999999999999\", expected " + corner},
    {"CornerWithDecimals", face(" 1 2 3.0"), ":6: found \"3.0\", expected " + corner},
    {"CornerOfLetters", face(" a b c"), ":6: found \"a\", expected " + corner},
    {"CornerWithoutPoint", face(" /1 2 3"), ":6: found \"/1\", expected " + corner},
    {"CornerOfFourNumbers", face(" 1/1/1/1 2 3"), ":6: found \"1/1/1/1\", expected " + corner},
};

}  // namespace

class SurfaceReaderRefusalTest : public TarnTest {
protected:
  // What is said of the file, without its path; empty where it is read. Nothing but a
  // ReadError may come, and no surface with it.
  std::string refusalOf(const std::string& path) {
    tarn::Project project;
    try {
      tarn::SurfaceReader::Read(path, project);
    } catch (const tarn::ReadError& error) {
      EXPECT_EQ(project.GetImportedSurfaces().size(), 0);
      const std::string text = error.what();
      EXPECT_TRUE(text.starts_with(path)) << text;
      return text.substr(path.size());
    }
    EXPECT_GT(project.GetImportedSurfaces().size(), 0);
    return "";
  }
  std::string refusal(const std::string& content) {
    return refusalOf(folder.write("bad.obj", content));
  }

  TemporaryFolder folder;
};

TEST_F(SurfaceReaderRefusalTest, TheFileThatTheOthersAreMadeOfIsRead) {
  EXPECT_EQ(refusal(face(" 1/1/1 2/1/1 3/1/1")), "");
}

TEST_F(SurfaceReaderRefusalTest, EmptyPlacesBehindSlashesAreReadAsNothing) {
  EXPECT_EQ(refusal(face(" 1//1 2//1 3//1")), "");
  EXPECT_EQ(refusal(face(" 1/ 2// 3/1/")), "");
  EXPECT_EQ(takeWarnings().size(), 1U);
}

class SurfaceBadFileTest : public SurfaceReaderRefusalTest,
                           public ::testing::WithParamInterface<BadFile> {};

TEST_P(SurfaceBadFileTest, IsRefused) {
  EXPECT_EQ(refusal(GetParam().content), GetParam().message);
}

std::string nameOf(const ::testing::TestParamInfo<BadFile>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Obj, SurfaceBadFileTest, ::testing::ValuesIn(badFiles), nameOf);

TEST_F(SurfaceReaderRefusalTest, AFileThatIsNotThere) {
  EXPECT_EQ(refusalOf(folder.file("missing.obj")), ": found no such file, expected a file");
}

TEST_F(SurfaceReaderRefusalTest, AFolderInPlaceOfAFile) {
  EXPECT_EQ(refusalOf(folder.path()),
            ": found something that is no ordinary file, expected a file");
}

TEST_F(SurfaceReaderRefusalTest, APipeIsNotWaitedFor) {
  ASSERT_EQ(mkfifo(folder.file("pipe.obj").c_str(), 0600), 0);
  EXPECT_EQ(refusalOf(folder.file("pipe.obj")),
            ": found something that is no ordinary file, expected a file");
}

TEST_F(SurfaceReaderRefusalTest, AFileThatMayNotBeRead) {
  const std::string path = folder.write("closed.obj", triangle);
  ASSERT_EQ(chmod(path.c_str(), 0), 0);
  if (access(path.c_str(), R_OK) == 0) GTEST_SKIP() << "root reads everything";
  EXPECT_EQ(refusalOf(path), ": found Permission denied, expected a readable file");
}

TEST_F(SurfaceReaderRefusalTest, AFileOfAnUnknownKind) {
  EXPECT_EQ(refusalOf(folder.write("model.dae", "<?xml version=\"1.0\"?>\n")),
            ":1: found \"<?xml\", expected a record of an OBJ file (v, vt, vn, f, o, mtllib)");
}

TEST_F(SurfaceReaderRefusalTest, ABrokenFileOfAnotherFormat) {
  EXPECT_THAT(
      refusalOf(folder.write("model.glb", "glTF\2")),
      ::testing::MatchesRegex(": found what cannot be read \\(.*\\), expected a file of surfaces"));
}

TEST_F(SurfaceReaderRefusalTest, AnOffFileWithoutTriangles) {
  EXPECT_EQ(refusalOf(folder.write("model.off", "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n2 0 1\n")),
            ": found no triangles in it, expected a surface of at least one");
}

TEST_F(SurfaceReaderRefusalTest, APlyFileCutOff) {
  EXPECT_EQ(refusalOf(folder.write("model.ply", "ply\nformat ascii 1.0\nelement vertex 1\n")),
            ":3: found the end of the file, expected end_header after the header's last line");
}

TEST_F(SurfaceReaderRefusalTest, APlyFileWithoutTriangles) {
  EXPECT_EQ(refusalOf(folder.write("points.ply",
                                   "ply\nformat ascii 1.0\nelement vertex 1\nproperty float x\n"
                                   "property float y\nproperty float z\nend_header\n1 2 3\n")),
            ": found points without triangles, expected a surface");
}

TEST_F(SurfaceReaderRefusalTest, AnotherFormatWithACoordinateThatIsNotFinite) {
  EXPECT_EQ(refusalOf(folder.write("wild.off", "OFF\n3 1 0\n0 0 0\n1 0 0\n0 nan 0\n3 0 1 2\n")),
            ": found a coordinate that is not finite in \"\", expected finite ones");
}

/// Damaged copies of a whole file: whatever is made of them, it is a surface or a ReadError.
class DamagedSurfaceTest : public SurfaceReaderRefusalTest {
protected:
  const std::string whole =
      "# two objects\nmtllib m.mtl\no front\nv 0 0 0\nv 1.5 0 0\nv 1 1e0 0\nv 0 1 -0.5\n"
      "vt 0 0\nvt 1 0\nvt 1 1\nvn 0 0 1\nvn 0 1 0\nusemtl brick\nf 1/1/1 2/2/1 3/3/1 4/1/2\n"
      "o back\nusemtl sky\nf -4//1 -2//2 -3//1\ns 1\nl 1 2\nf 1 2 \\\n 3\n";
  const std::string materials =
      "newmtl brick\nNs 20\nKa 0.1 0.2 0.3\nKd 1 1 1\nKs 0.5 0.5 0.5\nillum 2\nd 1\n"
      "map_Kd -s 1 1 1 a b.jpg\nnewmtl sky\nKd 0.2 0.4 0.9\nTr 0\nmap_bump -bm 0.5 c.png\n";

  void SetUp() override {
    SurfaceReaderRefusalTest::SetUp();
    folder.write("m.mtl", materials);
    folder.write("a b.jpg", "a picture");
    model = folder.write("model.obj", whole);
    EXPECT_EQ(refusalOf(model), "");
    takeWarnings();
  }

  // Reads the file, and tells how often it was refused.
  void damage(std::string content, bool ofMaterials) {
    // A new file: writing over one waits for the disk.
    const std::string name = ofMaterials ? "m.mtl" : "bad.obj";
    unlink(folder.file(name).c_str());
    folder.write(name, content);
    const std::string text = ofMaterials ? refusalOf(model) : refusalOf(folder.file(name));
    takeWarnings();
    EXPECT_TRUE(!ofMaterials || text.empty()) << text;
    refused += !text.empty();
    ++all;
  }
  void cutEverywhere(const std::string& content, bool ofMaterials) {
    for (std::size_t length = 1; length < content.size(); ++length) {
      damage(content.substr(0, length), ofMaterials);
    }
  }
  void changeEveryByte(const std::string& content, std::string_view values, bool ofMaterials) {
    for (std::size_t i = 0; i < content.size(); ++i) {
      for (const char value : values) {
        std::string changed = content;
        changed[i] = value;
        if (changed != content) damage(changed, ofMaterials);
      }
      for (const int bit : {0, 2, 5, 7}) {
        std::string changed = content;
        changed[i] = static_cast<char>(changed[i] ^ (1 << bit));
        damage(changed, ofMaterials);
      }
    }
  }

  std::string model;  // the whole file
  int refused = 0;
  int all = 0;
};

TEST_F(DamagedSurfaceTest, CutAnywhere) {
  ASSERT_EQ(unlink(folder.file("m.mtl").c_str()), 0);
  cutEverywhere(whole, false);
  EXPECT_GT(refused, all / 4);
}

TEST_F(DamagedSurfaceTest, WithEachByteChanged) {
  // Without its materials, which would be read each time.
  ASSERT_EQ(unlink(folder.file("m.mtl").c_str()), 0);
  changeEveryByte(whole, std::string_view("\0\x01\x7f\x80\xff \n\r-9e./\\#v", 16), false);
  EXPECT_GT(refused, all / 20);
  EXPECT_LT(refused, all);
}

TEST_F(DamagedSurfaceTest, WithItsFileOfMaterialsCutAnywhere) { cutEverywhere(materials, true); }

TEST_F(DamagedSurfaceTest, WithEachByteOfItsFileOfMaterialsChanged) {
  changeEveryByte(materials, std::string_view("\0\xff \n-\\", 6), true);
}

TEST_F(SurfaceReaderRefusalTest, AnotherFormatCutOrChangedAnywhereDoesNoHarm) {
  // One triangle in the binary form of STL.
  std::string stl(80, ' ');
  stl += std::string("\1\0\0\0", 4);
  for (const float value : {0.F, 0.F, 1.F, 0.F, 0.F, 0.F, 1.F, 0.F, 0.F, 0.F, 1.F, 0.F}) {
    stl.append(reinterpret_cast<const char*>(&value), sizeof value);
  }
  stl += std::string(2, '\0');
  EXPECT_EQ(refusalOf(folder.write("whole.stl", stl)), "");
  int refused = 0;
  for (std::size_t i = 1; i < stl.size(); ++i) {
    refused += !refusalOf(folder.write(std::to_string(i) + ".stl", stl.substr(0, i))).empty();
    for (const char value : {'\x7f', '\xff'}) {
      std::string changed = stl;
      changed[i] = value;
      refused += !refusalOf(folder.write(std::to_string(i) + value + "c.stl", changed)).empty();
    }
  }
  EXPECT_GT(refused, 100);
  takeWarnings();
}
