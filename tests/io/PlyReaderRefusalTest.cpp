#include "host/model/Project.h"
#include "io/PlyReader.h"
#include "io/ReadError.h"
#include "tests/support/SyntheticPly.h"
#include "tests/support/TarnTest.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using Form = SyntheticPly::Form;

namespace {

// Memory that can be had while it lives: little more than there is. What asks for more gets
// std::bad_alloc. The sanitizers' own memory cannot be told from the program's.
class MemoryLimit {
public:
  MemoryLimit() {
#ifndef __SANITIZE_ADDRESS__
    std::ifstream file("/proc/self/statm");
    rlim_t pages = 0;
    file >> pages;
    EXPECT_EQ(getrlimit(RLIMIT_AS, &earlier), 0);
    const rlim_t now = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    const rlimit limit{now + (rlim_t{32} << 20), earlier.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_AS, &limit), 0);
#endif
  }
  MemoryLimit(const MemoryLimit&) = delete;
  MemoryLimit& operator=(const MemoryLimit&) = delete;
  ~MemoryLimit() {
#ifndef __SANITIZE_ADDRESS__
    setrlimit(RLIMIT_AS, &earlier);
#endif
  }

private:
  rlimit earlier{};
};

template <typename Number>
std::string bytes(std::initializer_list<Number> numbers) {
  std::string all;
  for (const Number number : numbers) {
    char raw[sizeof number];
    std::memcpy(raw, &number, sizeof number);
    all.append(raw, sizeof number);
  }
  return all;
}

// A file that is refused: its content, and the message after the file's path.
struct BadFile {
  const char* name;
  std::string content;
  std::string message;
};
void PrintTo(const BadFile& bad, std::ostream* out) { *out << bad.name; }

const std::string xyz = "property float x\nproperty float y\nproperty float z\n";
const std::string corners = "property list uchar int vertex_indices\n";

// A file of text from its third line on.
std::string text(const std::string& rest) { return "ply\nformat ascii 1.0\n" + rest; }
// Two vertices in text, the first on line 8, with that in the place of the second.
std::string secondVertex(const std::string& line) {
  return text("element vertex 2\n" + xyz + "end_header\n1 2 3\n" + line + "\n");
}
// Three vertices in text, and on line 13 a face.
std::string face(const std::string& line) {
  return text("element vertex 3\n" + xyz + "element face 1\n" + corners +
              "end_header\n0 0 0\n1 0 0\n0 1 0\n" + line + "\n");
}
// A binary file from its third line on.
std::string binary(const std::string& rest) {
  return "ply\nformat binary_little_endian 1.0\n" + rest;
}
// Three vertices in binary and a face, which begins at byte 205.
std::string binaryFace(const std::string& record, const std::string& property = corners) {
  return binary("element vertex 3\n" + xyz + "element face 1\n" + property + "end_header\n" +
                bytes<float>({0, 0, 0, 1, 0, 0, 0, 1, 0}) + record);
}

const BadFile badHeaders[] = {
    {"Empty", "", ": found an empty file, expected a PLY file"},
    {"AnotherFormat", "solid cube\nfacet normal 0 0 1\n",
     ":1: found \"solid cube\", expected \"ply\", with which every PLY file begins"},
    {"AnotherWord", "plywood\n",
     ":1: found \"plywood\", expected \"ply\", with which every PLY file begins"},
    {"BinaryData", std::string("\x7f\x45LF\x01\x00", 6),
     ":1: found \"\\x7fELF\\x01\\x00\", expected \"ply\", with which every PLY file begins"},
    {"NothingButTheFirstLine", "ply\n",
     ":1: found the end of the file, expected end_header after the header's last line"},
    {"NoFormat", "ply\nelement vertex 0\n" + xyz + "end_header\n",
     ":6: found the end of the header, expected a line with the format before it"},
    {"FormatTwice", text("format ascii 1.0\n"), ":3: found a second format, expected one"},
    {"FormatUnknown", "ply\nformat binary_middle_endian 1.0\n",
     ":2: found the format \"binary_middle_endian\", expected ascii, binary_little_endian or "
     "binary_big_endian"},
    {"FormatMissing", "ply\nformat\n",
     ":2: found the end of the line after 1 fields, expected a format"},
    {"VersionUnknown", "ply\nformat ascii 2.0\n", ":2: found the version \"2.0\", expected 1.0"},
    {"VersionMissing", "ply\nformat ascii\n",
     ":2: found the end of the line after 2 fields, expected the format's version"},
    {"VersionFollowedByMore", "ply\nformat ascii 1.0 utf8\n",
     ":2: found \"utf8\" (field 4), expected the end of the format"},
    {"KeywordUnknown", text("elements vertex 3\n"),
     ":3: found \"elements\", expected format, comment, obj_info, element, property or "
     "end_header"},
    {"ElementWithoutName", text("element\n"),
     ":3: found the end of the line after 1 fields, expected an element's name"},
    {"ElementWithoutCount", text("element vertex\n"),
     ":3: found the end of the line after 2 fields, expected an element's number of records"},
    {"ElementCountNegative", text("element vertex -5\n"),
     ":3: found \"-5\" (field 3), expected an element's number of records, a whole number from 0 "
     "to 9223372036854775807"},
    {"ElementCountNoNumber", text("element vertex many\n"),
     ":3: found \"many\" (field 3), expected an element's number of records, a whole number from 0 "
     "to 9223372036854775807"},
    {"ElementCountWithDecimals", text("element vertex 5.0\n"),
     ":3: found \"5.0\" (field 3), expected an element's number of records, a whole number from 0 "
     "to 9223372036854775807"},
    {"ElementCountTooLarge", text("element vertex 9223372036854775808\n"),
     ":3: found \"9223372036854775808\" (field 3), expected an element's number of records, a "
     "whole number from 0 to 9223372036854775807"},
    {"ElementFollowedByMore", text("element vertex 5 6\n"),
     ":3: found \"6\" (field 4), expected the end of the element"},
    {"ElementTwice", text("element vertex 0\n" + xyz + "element vertex 0\n"),
     ":7: found the element \"vertex\" again, expected each element once"},
    {"PropertyOfNoElement", text(xyz), ":3: found a property, expected an element before it"},
    {"PropertyWithoutType", text("element vertex 0\nproperty\n"),
     ":4: found the end of the line after 1 fields, expected a property's type"},
    {"PropertyWithoutName", text("element vertex 0\nproperty float\n"),
     ":4: found the end of the line after 2 fields, expected a property's name"},
    {"PropertyOfUnknownType", text("element vertex 0\nproperty float128 x\n"),
     ":4: found the type \"float128\", expected char, uchar, short, ushort, int, uint, float or "
     "double, or int8 to float64"},
    {"PropertyOfTypeInCapitals", text("element vertex 0\nproperty Float x\n"),
     ":4: found the type \"Float\", expected char, uchar, short, ushort, int, uint, float or "
     "double, or int8 to float64"},
    {"PropertyTwice", text("element vertex 0\n" + xyz + "property double y\n"),
     ":7: found the property \"y\" again, expected each property of \"vertex\" once"},
    {"PropertyFollowedByMore", text("element vertex 0\nproperty float x y\n"),
     ":4: found \"y\" (field 4), expected the end of the property"},
    {"ListWithoutTypes", text("element face 0\nproperty list\n"),
     ":4: found the end of the line after 2 fields, expected the type of a list's length"},
    {"ListOfOneType", text("element face 0\nproperty list uchar\n"),
     ":4: found the end of the line after 3 fields, expected the type of a list's numbers"},
    {"ListLengthOfUnknownType", text("element face 0\nproperty list byte int vertex_indices\n"),
     ":4: found the type \"byte\", expected char, uchar, short, ushort, int, uint, float or "
     "double, or int8 to float64"},
    {"ListLengthOfFloats", text("element face 0\nproperty list float int vertex_indices\n"),
     ":4: found a list's length of the type \"float\", expected a type of integers"},
    {"ListOfUnknownType", text("element face 0\nproperty list uchar index vertex_indices\n"),
     ":4: found the type \"index\", expected char, uchar, short, ushort, int, uint, float or "
     "double, or int8 to float64"},
    {"ListOfLists", text("element face 0\nproperty list uchar list vertex_indices\n"),
     ":4: found the type \"list\", expected char, uchar, short, ushort, int, uint, float or "
     "double, or int8 to float64"},
    {"EndFollowedByMore", text("element vertex 0\n" + xyz + "end_header now\n"),
     ":7: found \"now\" (field 2), expected the end of the header"},
    {"CutOffInAProperty", text("element vertex 1\nproperty flo"),
     ":4: found the type \"flo\", expected char, uchar, short, ushort, int, uint, float or "
     "double, or int8 to float64"},
    {"CutOffBetweenLines", text("element vertex 1\n" + xyz),
     ":6: found the end of the file, expected end_header after the header's last line"},
    {"NoVertices", text("element face 0\n" + corners + "end_header\n"),
     ": found no element \"vertex\" in the header, expected one"},
    {"VerticesWithoutX", text("element vertex 0\nproperty float y\nproperty float z\nend_header\n"),
     ":3: found vertices without all of x, y and z, expected these three properties"},
    {"VerticesWithoutY", text("element vertex 0\nproperty float x\nproperty float z\nend_header\n"),
     ":3: found vertices without all of x, y and z, expected these three properties"},
    {"VerticesWithoutZ", text("element vertex 0\nproperty float x\nproperty float y\nend_header\n"),
     ":3: found vertices without all of x, y and z, expected these three properties"},
    {"VerticesWithoutProperties", text("element vertex 3\nend_header\n"),
     ":3: found vertices without all of x, y and z, expected these three properties"},
    {"PositionsInLists",
     text("element vertex 0\nproperty float x\nproperty list uchar float y\nproperty float z\n"
          "end_header\n"),
     ":5: found a list \"y\", expected a number of that name"},
    {"ColoursInLists",
     text("element vertex 0\n" + xyz +
          "property uchar red\nproperty uchar green\nproperty list uchar uchar blue\nend_header\n"),
     ":9: found a list \"blue\", expected a number of that name"},
    {"NormalsInLists",
     text("element vertex 0\n" + xyz +
          "property list int float nx\nproperty float ny\nproperty float nz\nelement face 1\n" +
          corners + "end_header\n"),
     ":7: found a list \"nx\", expected a number of that name"},
    {"MoreVerticesThanIndexes", text("element vertex 2147483648\n" + xyz + "end_header\n1 2 3\n"),
     ":3: found 2147483648 vertices, expected at most 2147483647"},
};

const BadFile badTexts[] = {
    {"FieldMissing", secondVertex("4.5 5.5"),
     ":9: found the end of the line after 2 fields, expected z"},
    {"FieldTooMany", secondVertex("4 5 6 7"),
     ":9: found \"7\" (field 4), expected the end of the record"},
    {"NoNumber", secondVertex("4 five 6"), ":9: found \"five\" (field 2), expected y, a number"},
    {"NumberWithTail", secondVertex("4 5 6m"), ":9: found \"6m\" (field 3), expected z, a number"},
    {"NumberWithDecimalComma", secondVertex("4,5 5 6"),
     ":9: found \"4,5\" (field 1), expected x, a number"},
    {"NumberThatNoDoubleHolds", secondVertex("4 1e999 6"),
     ":9: found \"1e999\" (field 2), expected y, a number"},
    {"NumberWithAZeroByte", secondVertex(std::string("4 5\0 6", 6)),
     ":9: found \"5\\x00\" (field 2), expected y, a number"},
    {"ALineMissing", text("element vertex 2\n" + xyz + "end_header\n1.25 2.25 3.25\n"),
     ":8: found the end of the file, expected another record after it"},
    {"ALastLineOfBlanks", text("element vertex 2\n" + xyz + "end_header\n1.25 2.25 3.25\n  \n"),
     ":9: found the end of the file, expected another record after it"},
    {"ALastLineCutOff", text("element vertex 2\n" + xyz + "end_header\n1.25 2.25 3.25\n4 5"),
     ":9: found the end of the line after 2 fields, expected z"},
    {"NoData", text("element vertex 1\n" + xyz + "end_header\n"),
     ":3: found 1 records of \"vertex\", expected at most 0, for which the file has room after "
     "its earlier data"},
    {"MoreVerticesThanTheFileHasRoomFor",
     text("element vertex 2000000000\n" + xyz + "end_header\n1 2 3\n"),
     ":3: found 2000000000 records of \"vertex\", expected at most 1, for which the file has room "
     "after its earlier data"},
    {"MoreFacesThanTheFileHasRoomFor",
     text("element vertex 3\n" + xyz + "element face 2000000000\n" + corners +
          "end_header\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n"),
     ":7: found 2000000000 records of \"face\", expected at most 4, for which the file has room "
     "after its earlier data"},
    {"MoreOfAnotherElementThanTheFileHasRoomFor",
     text("element camera 9223372036854775807\nproperty float f\nelement vertex 1\n" + xyz +
          "end_header\n7\n1 2 3\n"),
     ":3: found 9223372036854775807 records of \"camera\", expected at most 4, for which the file "
     "has room after its earlier data"},
    {"AnotherElementCutOff",
     text("element camera 2\nproperty float f\nproperty float k\nelement vertex 1\n" + xyz +
          "end_header\n7.5 8.5\n1\n"),
     ":12: found the end of the line after 1 fields, expected k"},

    {"FaceWithoutCorners", face("0"),
     ":13: found \"0\" (field 1), expected vertex_indices, a whole number from 3 to 4294967295"},
    {"FaceOfTwoCorners", face("2 0 1"),
     ":13: found \"2\" (field 1), expected vertex_indices, a whole number from 3 to 4294967295"},
    {"FaceOfFewerThanNoCorners", face("-3 0 1 2"),
     ":13: found \"-3\" (field 1), expected vertex_indices, a whole number from 3 to 4294967295"},
    {"FaceLengthNoNumber", face("three 0 1 2"),
     ":13: found \"three\" (field 1), expected vertex_indices, a whole number from 3 to "
     "4294967295"},
    {"FaceLengthTooLarge", face("4294967296 0 1 2"),
     ":13: found \"4294967296\" (field 1), expected vertex_indices, a whole number from 3 to "
     "4294967295"},
    {"FaceLongerThanItsLine", face("4294967295 0 1 2"),
     ":13: found the end of the line after 4 fields, expected vertex_indices"},
    {"FaceShorterThanItsLine", face("3 0 1 2 0"),
     ":13: found \"0\" (field 5), expected the end of the record"},
    {"CornerNegative", face("3 0 -1 2"),
     ":13: found \"-1\" (field 3), expected vertex_indices, a whole number from 0 to 2"},
    {"CornerBeyondTheVertices", face("3 0 1 3"),
     ":13: found \"3\" (field 4), expected vertex_indices, a whole number from 0 to 2"},
    {"CornerBeyondAllIntegers", face("3 0 1 18446744073709551616"),
     ":13: found \"18446744073709551616\" (field 4), expected vertex_indices, a whole number from "
     "0 to 2"},
    {"CornerWithDecimals", face("3 0 1 2.0"),
     ":13: found \"2.0\" (field 4), expected vertex_indices, a whole number from 0 to 2"},
    {"FacesWithoutVertices",
     text("element vertex 0\n" + xyz + "element face 1\n" + corners + "end_header\n3 0 1 2\n"),
     ":7: found 1 records of \"face\", expected none where there are no vertices"},
    {"FacesWithoutAList",
     text("element vertex 3\n" + xyz +
          "element face 1\nproperty uchar flags\nend_header\n0 0 0\n1 0 0\n0 1 0\n1\n"),
     ":7: found \"face\" without corners, expected the list \"vertex_indices\" or "
     "\"vertex_index\""},
    {"CornersWithoutAList",
     text("element vertex 3\n" + xyz +
          "element face 1\nproperty int vertex_indices\nend_header\n0 0 0\n1 0 0\n0 1 0\n1\n"),
     ":8: found another kind of property, expected \"vertex_indices\", a list of integers"},
    {"CornersInFloats",
     text("element vertex 3\n" + xyz +
          "element face 1\nproperty list uchar float vertex_index\nend_header\n0 0 0\n1 0 0\n0 1 "
          "0\n3 0 1 2\n"),
     ":8: found another kind of property, expected \"vertex_index\", a list of integers"},
    {"StripCornerNegative",
     text("element vertex 3\n" + xyz +
          "element tristrips 1\nproperty list int int vertex_indices\nend_header\n0 0 0\n1 0 0\n0 "
          "1 0\n3 0 -2 2\n"),
     ":13: found \"-2\" (field 3), expected vertex_indices, a whole number from -1 to 2"},
    {"SkippedListNegative",
     text("element track 1\nproperty list int int views\nelement vertex 1\n" + xyz +
          "end_header\n-1\n1 2 3\n"),
     ":10: found \"-1\" (field 1), expected views, a whole number from 0 to 4294967295"},
};

const BadFile badBinaries[] = {
    {"NoData", binary("element vertex 1\n" + xyz + "end_header\n"),
     ":3: found 1 records of \"vertex\", expected at most 0, for which the file has room after "
     "its earlier data"},
    {"VerticesCutOff",
     binary("element vertex 2\n" + xyz + "end_header\n" + bytes<float>({1, 2, 3, 4, 5}) + "abc"),
     ":3: found 2 records of \"vertex\", expected at most 1, for which the file has room after "
     "its earlier data"},
    {"MoreVerticesThanTheFileHasRoomFor",
     binary("element vertex 2147483647\n" + xyz + "end_header\n" + bytes<float>({1, 2, 3})),
     ":3: found 2147483647 records of \"vertex\", expected at most 1, for which the file has room "
     "after its earlier data"},
    {"MoreOfAnotherElementThanTheFileHasRoomFor",
     // A count whose product with the size is small again.
     binary("element camera 4611686018427387905\nproperty float f\nelement vertex 1\n" + xyz +
            "end_header\n" + bytes<float>({1, 2, 3, 4})),
     ":3: found 4611686018427387905 records of \"camera\", expected at most 4, for which the file "
     "has room after its earlier data"},
    {"MoreFacesThanTheFileHasRoomFor",
     binary("element vertex 3\n" + xyz + "element face 2147483647\n" + corners + "end_header\n" +
            bytes<float>({0, 0, 0, 1, 0, 0, 0, 1, 0}) + "\3" + bytes<int>({0, 1, 2})),
     ":7: found 2147483647 records of \"face\", expected at most 13, for which the file has room "
     "after its earlier data"},
    {"VertexListLongerThanTheFile",
     binary("element vertex 1\nproperty list int int views\n" + xyz + "end_header\n" +
            bytes<int>({4, 1, 2}) + bytes<float>({1})),
     ": at byte 143: found a list of 4, expected views, a list of at most 3, for which the file "
     "has room"},
    {"VertexCutOffBehindAList",
     binary("element vertex 1\nproperty list int int views\n" + xyz + "end_header\n" +
            bytes<int>({2, 1, 2}) + bytes<float>({1, 2}) + "ab"),
     ": at byte 163: found the end of the file after 2 bytes more, expected z (4 bytes)"},
    {"FaceCutOff", binaryFace("\3" + bytes<int>({0, 1})),
     ": at byte 205: found a list of 3, expected vertex_indices, a list of at most 2, for which "
     "the file has room"},
    {"FaceWithoutCorners", binaryFace(std::string("\0", 1)),
     ": at byte 205: found 0, expected vertex_indices, a whole number from 3 to 4294967295"},
    {"FaceOfTwoCorners", binaryFace("\2" + bytes<int>({0, 1})),
     ": at byte 205: found 2, expected vertex_indices, a whole number from 3 to 4294967295"},
    {"FaceOfFewerThanNoCorners",
     binaryFace("\xff" + bytes<int>({0, 1, 2}), "property list int8 int vertex_indices\n"),
     ": at byte 204: found -1, expected vertex_indices, a whole number from 3 to 4294967295"},
    {"FaceLongerThanAllMemory",
     binaryFace(bytes<std::uint32_t>({4294967295U, 0, 1, 2}),
                "property list uint int vertex_indices\n"),
     ": at byte 204: found a list of 4294967295, expected vertex_indices, a list of at most 3, for "
     "which the file has room"},
    {"CornerNegative", binaryFace("\3" + bytes<int>({0, -1, 2})),
     ": at byte 210: found -1, expected vertex_indices, a whole number from 0 to 2"},
    {"CornerBeyondTheVertices", binaryFace("\3" + bytes<int>({0, 1, 3})),
     ": at byte 214: found 3, expected vertex_indices, a whole number from 0 to 2"},
    {"CornerBeyondTheVerticesInAFan", binaryFace("\4" + bytes<int>({0, 1, 2, 2147483647})),
     ": at byte 218: found 2147483647, expected vertex_indices, a whole number from 0 to 2"},
    {"CornerUnsignedAndLarge",
     binaryFace("\3" + bytes<std::uint32_t>({0, 1, 4294967295U}),
                "property list uchar uint vertex_indices\n"),
     ": at byte 215: found 4294967295, expected vertex_indices, a whole number from 0 to 2"},
    {"SkippedListNegative",
     binary("element track 1\nproperty list short int views\nelement vertex 1\n" + xyz +
            "end_header\n" + bytes<std::int16_t>({-1}) + bytes<float>({1, 2, 3})),
     ": at byte 161: found -1, expected views, a whole number from 0 to 4294967295"},
    {"SkippedListLongerThanTheFile",
     binary("element track 1\nproperty list uint double views\nelement vertex 1\n" + xyz +
            "end_header\n" + bytes<std::uint32_t>({3000000000U}) + bytes<float>({1, 2, 3})),
     ": at byte 163: found a list of 3000000000, expected views, a list of at most 1, for which "
     "the file has room"},
};

}  // namespace

class PlyReaderRefusalTest : public TarnTest {
protected:
  // What is said of the file, without its path; empty where it is read. Nothing but a
  // ReadError may come, and no mesh with it.
  std::string refusalOf(const std::string& path) {
    tarn::Project project;
    try {
      const MemoryLimit limit;
      tarn::PlyReader::Read(path, project);
    } catch (const tarn::ReadError& error) {
      EXPECT_EQ(project.GetPointMeshes().size(), 0);
      const std::string text = error.what();
      EXPECT_TRUE(text.starts_with(path)) << text;
      return text.substr(path.size());
    }
    EXPECT_EQ(project.GetPointMeshes().size(), 1);
    return "";
  }
  std::string refusal(const std::string& content) {
    return refusalOf(folder.write("bad.ply", content));
  }

  TemporaryFolder folder;
};

TEST_F(PlyReaderRefusalTest, TheFilesThatTheOthersAreMadeOfAreRead) {
  EXPECT_EQ(refusal(secondVertex("4 5 6")), "");
  EXPECT_EQ(refusal(face("3 0 1 2")), "");
  EXPECT_EQ(refusal(binaryFace("\3" + bytes<int>({0, 1, 2}))), "");
}

class PlyBadFileTest : public PlyReaderRefusalTest,
                       public ::testing::WithParamInterface<BadFile> {};

TEST_P(PlyBadFileTest, IsRefused) { EXPECT_EQ(refusal(GetParam().content), GetParam().message); }

std::string nameOf(const ::testing::TestParamInfo<BadFile>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Header, PlyBadFileTest, ::testing::ValuesIn(badHeaders), nameOf);
INSTANTIATE_TEST_SUITE_P(Text, PlyBadFileTest, ::testing::ValuesIn(badTexts), nameOf);
INSTANTIATE_TEST_SUITE_P(Binary, PlyBadFileTest, ::testing::ValuesIn(badBinaries), nameOf);

TEST_F(PlyReaderRefusalTest, AFileThatIsNotThere) {
  EXPECT_EQ(refusalOf(folder.file("missing.ply")), ": found no such file, expected a file");
}

TEST_F(PlyReaderRefusalTest, AFolderInPlaceOfAFile) {
  EXPECT_EQ(refusalOf(folder.path()),
            ": found something that is no ordinary file, expected a file");
}

TEST_F(PlyReaderRefusalTest, APipeIsNotWaitedFor) {
  ASSERT_EQ(mkfifo(folder.file("pipe.ply").c_str(), 0600), 0);
  EXPECT_EQ(refusalOf(folder.file("pipe.ply")),
            ": found something that is no ordinary file, expected a file");
}

TEST_F(PlyReaderRefusalTest, AFileThatMayNotBeRead) {
  const std::string file = folder.write("closed.ply", "ply\n");
  std::filesystem::permissions(file, std::filesystem::perms::none);
  const auto readAsNobody = [&] {
    // To root nothing is closed.
    if (geteuid() == 0 && seteuid(65534) != 0) std::_Exit(1);
    std::cerr << refusalOf(file);
    std::_Exit(0);
  };
  EXPECT_EXIT(readAsNobody(), ::testing::ExitedWithCode(0),
              "^: found Permission denied, expected a readable file$");
}

TEST_F(PlyReaderRefusalTest, ManyPropertiesAreComparedQuickly) {
  std::string content = text("element vertex 0\n");
  for (int i = 0; i < 20000; ++i) content += "property float p" + std::to_string(i) + "\n";
  content += "property float p0\n";
  EXPECT_EQ(refusal(content),
            ":20004: found the property \"p0\" again, expected each property of \"vertex\" once");
}

// A small file of every part that a reader has to do with, damaged again and again.
class PlyDamagedFileTest : public PlyReaderRefusalTest, public ::testing::WithParamInterface<Form> {
protected:
  PlyDamagedFileTest() {
    ply.element("track", {"list uchar short views", "char flag"});
    ply.record({{1, 2}, 3});
    ply.element("vertex", {"float x", "double y", "float z", "uchar red", "uchar green",
                           "uchar blue", "float nx", "float ny", "float nz"});
    ply.records({{1, 2, 3, 10, 20, 30, 0, 0, 1},
                 {4, 5, 6, 40, 50, 60, 0, 1, 0},
                 {7, 8, 9, 70, 80, 90, 1, 0, 0},
                 {1, 5, 9, 15, 25, 35, 0, 0, 1}});
    ply.element("face", {"list uchar int vertex_indices"});
    ply.record({{0, 1, 2}});
    ply.record({{3, 2, 1, 0}});
    ply.element("tristrips", {"list int int vertex_indices"});
    ply.record({{0, 1, 2, -1, 3, 2, 1}});
    all = ply.written(GetParam());
    file = folder.write("damaged.ply", all);
  }
  // Whether the damaged file is refused; warnings are no matter.
  bool isRefused() {
    const bool refused = !refusalOf(file).empty();
    takeWarnings();
    return refused;
  }
  // Reads the file with each byte changed to each of these values. It is changed in its place,
  // for writing it anew takes longer than all the rest.
  void changeEveryByte(std::initializer_list<char> values) {
    std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
    const auto write = [&stream](std::size_t i, char value) {
      stream.seekp(static_cast<std::streamoff>(i));
      stream.put(value).flush();
    };
    ASSERT_FALSE(isRefused());
    int refused = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
      for (const char value : values) {
        write(i, value);
        EXPECT_NO_THROW(refused += isRefused()) << "byte " << i;
      }
      write(i, all[i]);
    }
    ASSERT_TRUE(stream);
    EXPECT_GT(refused, 0);
    EXPECT_FALSE(isRefused());
  }

  SyntheticPly ply;
  std::string all;
  std::string file;
};

INSTANTIATE_TEST_SUITE_P(All, PlyDamagedFileTest,
                         ::testing::Values(Form::eText, Form::eLittleEndian, Form::eBigEndian),
                         [](const auto& info) {
                           return std::string(SyntheticPly::nameOf(info.param));
                         });

TEST_P(PlyDamagedFileTest, IsRefusedAtEveryLength) {
  // Of a text, the last blanks are not missed.
  const std::size_t needed =
      GetParam() == Form::eText ? all.find_last_not_of(" \n") + 1 : all.size();
  std::filesystem::resize_file(file, needed);
  EXPECT_FALSE(isRefused());
  for (std::size_t length = needed; length-- > 0;) {
    std::filesystem::resize_file(file, length);
    EXPECT_TRUE(isRefused()) << length << " bytes";
  }
}

TEST_P(PlyDamagedFileTest, IsReadOrRefusedWhateverAByteIsChangedTo) {
  changeEveryByte({'\x00', '\x01', '\x7f', '\x80', '\xff'});
}

TEST_P(PlyDamagedFileTest, IsReadOrRefusedWhateverACharacterIsChangedTo) {
  changeEveryByte({' ', '\n', '\r', '-', '9', 'e', '.'});
}
