#include "host/model/Project.h"
#include "io/ColmapReader.h"
#include "io/ReadError.h"
#include "tests/support/SyntheticScene.h"
#include "tests/support/TarnTest.h"

#include <cstring>
#include <filesystem>
#include <functional>
#include <limits>
#include <sys/stat.h>

using ::testing::EndsWith;

namespace {

using Files = std::vector<std::pair<std::string, std::string>>;
using Edit = std::function<void(Files&)>;

// Two images, 10 and 13, and two points, 594 and 587, with one camera, 3. In text the
// first line of each file is a comment; images stand on lines 2 and 4.
SyntheticScene smallScene() {
  SyntheticScene scene(2, 2);
  scene.withRigs = true;
  return scene;
}

Files without(Files files, const std::string& name) {
  std::erase_if(files, [&name](const auto& file) { return file.first == name; });
  return files;
}

std::string& contentOf(Files& files, const std::string& name) {
  for (auto& [file, content] : files) {
    if (file == name) return content;
  }
  throw std::logic_error("no such file: " + name);
}

Edit content(const std::string& name, const std::string& text) {
  return [=](Files& files) { contentOf(files, name) = text; };
}

Edit append(const std::string& name, const std::string& text) {
  return [=](Files& files) { contentOf(files, name) += text; };
}

// Replaces one field of a line of a text, both counted from 1. An empty text removes the
// field with the blank before it.
Edit field(const std::string& name, int line, int number, const std::string& text) {
  return [=](Files& files) {
    std::string& all = contentOf(files, name);
    std::size_t begin = 0;
    for (int i = 1; i < line; ++i) begin = all.find('\n', begin) + 1;
    for (int i = 1; i < number; ++i) begin = all.find(' ', begin) + 1;
    const std::size_t end = all.find_first_of(" \n", begin);
    if (text.empty()) {
      all.erase(begin - 1, end - begin + 1);
    } else {
      all.replace(begin, end - begin, text);
    }
  };
}

template <typename Value>
Edit bytes(const std::string& name, std::size_t at, Value value) {
  return [=](Files& files) {
    std::string& all = contentOf(files, name);
    if (at + sizeof value > all.size()) throw std::logic_error("beyond the file: " + name);
    std::memcpy(all.data() + at, &value, sizeof value);
  };
}

// A file that is refused: what was done to it, and the message after the folder's path.
struct BadFile {
  const char* name;
  bool binary;
  Edit edit;
  std::string message;
};
void PrintTo(const BadFile& bad, std::ostream* out) { *out << bad.name; }

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

const BadFile badTexts[] = {
    {"EmptyCameras", false, content("cameras.txt", ""),
     "/cameras.txt: found an empty file, expected a part of a COLMAP model"},
    {"EmptyImages", false, content("images.txt", ""),
     "/images.txt: found an empty file, expected a part of a COLMAP model"},
    {"EmptyPoints", false, content("points3D.txt", ""),
     "/points3D.txt: found an empty file, expected a part of a COLMAP model"},
    {"EmptyRigs", false, content("rigs.txt", ""),
     "/rigs.txt: found an empty file, expected a part of a COLMAP model"},
    {"NoCameraAmongComments", false, content("cameras.txt", "# none\n"),
     "/cameras.txt: found no camera, expected at least one"},
    {"NoImageAmongComments", false, content("images.txt", "# none\n"),
     "/images.txt: found no image, expected at least one"},

    {"CameraIdNotANumber", false, field("cameras.txt", 2, 1, "first"),
     "/cameras.txt:2: found \"first\" (field 1), expected CAMERA_ID, a whole number from 0 to "
     "4294967295"},
    {"CameraIdNegative", false, field("cameras.txt", 2, 1, "-3"),
     "/cameras.txt:2: found \"-3\" (field 1), expected CAMERA_ID, a whole number from 0 to "
     "4294967295"},
    {"CameraIdTooLarge", false, field("cameras.txt", 2, 1, "4294967296"),
     "/cameras.txt:2: found \"4294967296\" (field 1), expected CAMERA_ID, a whole number from 0 "
     "to 4294967295"},
    {"CameraModelUnknown", false, field("cameras.txt", 2, 2, "CUBIC"),
     "/cameras.txt:2: found the camera model \"CUBIC\", expected a perspective model of COLMAP"},
    {"CameraModelWithoutFocalLength", false, field("cameras.txt", 2, 2, "EQUIRECTANGULAR"),
     "/cameras.txt:2: found the camera model \"EQUIRECTANGULAR\", expected a perspective model of "
     "COLMAP"},
    {"CameraWidthZero", false, field("cameras.txt", 2, 3, "0"),
     "/cameras.txt:2: found width 0, expected a width of 1 to 2147483647 pixels"},
    {"CameraWidthNegative", false, field("cameras.txt", 2, 3, "-1600"),
     "/cameras.txt:2: found \"-1600\" (field 3), expected WIDTH, a whole number from 0 to "
     "18446744073709551615"},
    {"CameraHeightZero", false, field("cameras.txt", 2, 4, "0"),
     "/cameras.txt:2: found height 0, expected a height of 1 to 2147483647 pixels"},
    {"CameraHeightTooLarge", false, field("cameras.txt", 2, 4, "2147483648"),
     "/cameras.txt:2: found height 2147483648, expected a height of 1 to 2147483647 pixels"},
    {"CameraHeightWithDecimals", false, field("cameras.txt", 2, 4, "1200.0"),
     "/cameras.txt:2: found \"1200.0\" (field 4), expected HEIGHT, a whole number from 0 to "
     "18446744073709551615"},
    {"CameraFocalLengthZero", false, field("cameras.txt", 2, 5, "0"),
     "/cameras.txt:2: found focal length 0.000000, expected a focal length above 0"},
    {"CameraFocalLengthNegative", false, field("cameras.txt", 2, 5, "-1500"),
     "/cameras.txt:2: found focal length -1500.000000, expected a focal length above 0"},
    {"CameraParameterNotANumber", false, field("cameras.txt", 2, 6, "8o6"),
     "/cameras.txt:2: found \"8o6\" (field 6), expected 4 parameters of SIMPLE_RADIAL, a finite "
     "number"},
    {"CameraParameterWithDecimalComma", false, field("cameras.txt", 2, 6, "806,5"),
     "/cameras.txt:2: found \"806,5\" (field 6), expected 4 parameters of SIMPLE_RADIAL, a finite "
     "number"},
    {"CameraParameterNaN", false, field("cameras.txt", 2, 8, "nan"),
     "/cameras.txt:2: found \"nan\" (field 8), expected 4 parameters of SIMPLE_RADIAL, a finite "
     "number"},
    {"CameraParameterInfinite", false, field("cameras.txt", 2, 8, "inf"),
     "/cameras.txt:2: found \"inf\" (field 8), expected 4 parameters of SIMPLE_RADIAL, a finite "
     "number"},
    {"CameraParameterOutOfRange", false, field("cameras.txt", 2, 8, "1e999"),
     "/cameras.txt:2: found \"1e999\" (field 8), expected 4 parameters of SIMPLE_RADIAL, a finite "
     "number"},
    {"CameraParameterMissing", false, field("cameras.txt", 2, 8, ""),
     "/cameras.txt:2: found the end of the line after 7 fields, expected 4 parameters of "
     "SIMPLE_RADIAL"},
    {"CameraParameterTooMany", false, field("cameras.txt", 2, 8, "0 0.25"),
     "/cameras.txt:2: found \"0.25\" (field 9), expected the end of the 4 parameters of "
     "SIMPLE_RADIAL"},
    {"CameraTwice", false, append("cameras.txt", "3 PINHOLE 10 10 1 1 5 5\n"),
     "/cameras.txt:3: found camera 3 again, expected each camera once"},

    {"ImageIdNotANumber", false, field("images.txt", 4, 1, "?"),
     "/images.txt:4: found \"?\" (field 1), expected IMAGE_ID, a whole number from 0 to "
     "4294967295"},
    {"ImageIdBeyondPhotographNumbers", false, field("images.txt", 4, 1, "2147483648"),
     "/images.txt:4: found image 2147483648, expected an image id of at most 2147483647"},
    {"ImageQuaternionZero", false,
     [](Files& files) {
       for (int k = 2; k <= 5; ++k) field("images.txt", 2, k, "0")(files);
     },
     "/images.txt:2: found a quaternion of length zero, expected a rotation"},
    {"ImageQuaternionNaN", false, field("images.txt", 2, 3, "NaN"),
     "/images.txt:2: found \"NaN\" (field 3), expected QX, a finite number"},
    {"ImageTranslationInfinite", false, field("images.txt", 2, 6, "-inf"),
     "/images.txt:2: found \"-inf\" (field 6), expected TX, a finite number"},
    {"ImageLineCutOff", false, content("images.txt", "10 1 0 0 0 1 2"),
     "/images.txt:1: found the end of the line after 7 fields, expected TZ"},
    {"ImageCameraAbsent", false, field("images.txt", 4, 9, "4"),
     "/images.txt:4: found camera 4 of image 13, expected a camera that the cameras file holds"},
    {"ImageNameMissing", false, content("images.txt", "10 1 0 0 0 1 2 3 3 \n\n"),
     "/images.txt:1: found an empty image name, expected a file name inside the photograph folder"},
    {"ImageNameLeavesTheFolder", false,
     content("images.txt", "10 1 0 0 0 1 2 3 3 a/../../b.jpg\n\n"),
     "/images.txt:1: found the image name \"a/../../b.jpg\", which leaves the folder, expected a "
     "file name inside the photograph folder"},
    {"ImageNameLeavesTheFolderByBackslash", false,
     content("images.txt", "10 1 0 0 0 1 2 3 3 a\\..\\b.jpg\n\n"),
     "/images.txt:1: found the image name \"a\\..\\b.jpg\", which leaves the folder, expected a "
     "file name inside the photograph folder"},
    {"ImageNameOnlyTheParent", false, content("images.txt", "10 1 0 0 0 1 2 3 3 ..\n\n"),
     "/images.txt:1: found the image name \"..\", which leaves the folder, expected a file name "
     "inside the photograph folder"},
    {"ImageNameAbsolute", false, content("images.txt", "10 1 0 0 0 1 2 3 3 /etc/b.jpg\n\n"),
     "/images.txt:1: found the absolute image name \"/etc/b.jpg\", expected a file name inside "
     "the photograph folder"},
    {"ImageNameAbsoluteByBackslash", false, content("images.txt", "10 1 0 0 0 1 2 3 3 \\b.jpg\n\n"),
     "/images.txt:1: found the absolute image name \"\\b.jpg\", expected a file name inside the "
     "photograph folder"},
    {"ImageNameOnADrive", false, content("images.txt", "10 1 0 0 0 1 2 3 3 C:\\b.jpg\n\n"),
     "/images.txt:1: found the absolute image name \"C:\\b.jpg\", expected a file name inside the "
     "photograph folder"},
    {"ImageNameOnlyAPoint", false, content("images.txt", "10 1 0 0 0 1 2 3 3 .\n\n"),
     "/images.txt:1: found the image name \".\", which is a folder's, expected a file name inside "
     "the photograph folder"},
    {"ImageNameEndsWithASlash", false, content("images.txt", "10 1 0 0 0 1 2 3 3 a/\n\n"),
     "/images.txt:1: found the image name \"a/\", which is a folder's, expected a file name inside "
     "the photograph folder"},
    {"ImageNameEndsWithAPoint", false, content("images.txt", "10 1 0 0 0 1 2 3 3 a\\.\n\n"),
     "/images.txt:1: found the image name \"a\\.\", which is a folder's, expected a file name "
     "inside the photograph folder"},
    {"ImageNameTwice", false,
     content("images.txt", "10 1 0 0 0 1 2 3 3 a.jpg\n\n13 1 0 0 0 1 2 3 3 a.jpg\n\n"),
     "/images.txt:3: found the image name \"a.jpg\" again, expected each image name once"},
    {"ImageTranslationThatNoFloatHolds", false, field("images.txt", 4, 7, "-1e300"),
     "/images.txt:4: found TY -1e+300, expected a number from -1e15 to 1e15"},
    {"PointThatNoFloatHolds", false, field("points3D.txt", 2, 2, "1e300"),
     "/points3D.txt:2: found X 1e+300, expected a number from -1e15 to 1e15"},
    {"FocalLengthThatNoFloatHolds", false, field("cameras.txt", 2, 5, "2e15"),
     "/cameras.txt:2: found focal length 2e+15, expected a number from -1e15 to 1e15"},
    {"ImageTwice", false, field("images.txt", 4, 1, "10"),
     "/images.txt:4: found image 10 again, expected each image once"},
    {"MarkNotANumber", false, field("images.txt", 3, 4, "12px"),
     "/images.txt:3: found \"12px\" (field 4), expected X, a finite number"},
    {"MarkInfinite", false, field("images.txt", 3, 5, "infinity"),
     "/images.txt:3: found \"infinity\" (field 5), expected Y, a finite number"},
    {"MarkCutOff", false, field("images.txt", 3, 9, ""),
     "/images.txt:3: found the end of the line after 8 fields, expected POINT3D_ID"},
    {"MarkPointIdNegative", false, field("images.txt", 3, 6, "-2"),
     "/images.txt:3: found \"-2\" (field 6), expected POINT3D_ID, a whole number from 0 to "
     "18446744073709551614"},
    {"MarkOfAnAbsentPoint", false, field("images.txt", 3, 3, "77"),
     "/images.txt:3: found observation 0 of image 10, which names point 77, expected a point that "
     "the points file holds"},
    {"MarkNotInItsPointsTrack", false, field("images.txt", 3, 3, "594"),
     "/images.txt:3: found observation 0 of image 10, which names point 594, expected a point "
     "whose track names the observation back"},
    {"MarksLineMissing", false,
     content("images.txt", "10 1 0 0 0 1 2 3 3 a.jpg\n13 1 0 0 0 1 2 3 3 b.jpg\n"),
     "/images.txt:2: found \"b.jpg\" (field 10), expected X, a finite number"},

    {"PointIdNotANumber", false, field("points3D.txt", 2, 1, "p1"),
     "/points3D.txt:2: found \"p1\" (field 1), expected POINT3D_ID, a whole number from 0 to "
     "18446744073709551615"},
    {"PointIdTooLarge", false, field("points3D.txt", 2, 1, "9223372036854775808"),
     "/points3D.txt:2: found point 9223372036854775808, expected a point id of at most "
     "9223372036854775807"},
    {"PointPositionNaN", false, field("points3D.txt", 2, 4, "-nan"),
     "/points3D.txt:2: found \"-nan\" (field 4), expected Z, a finite number"},
    {"PointColourTooLarge", false, field("points3D.txt", 2, 6, "256"),
     "/points3D.txt:2: found \"256\" (field 6), expected G, a whole number from 0 to 255"},
    {"PointErrorNotANumber", false, field("points3D.txt", 2, 8, "small"),
     "/points3D.txt:2: found \"small\" (field 8), expected ERROR, a finite number"},
    {"PointErrorNaN", false, field("points3D.txt", 2, 8, "nan"),
     "/points3D.txt:2: found \"nan\" (field 8), expected ERROR, a finite number"},
    {"PointTwice", false, field("points3D.txt", 3, 1, "594"),
     "/points3D.txt:3: found point 594 again, expected each point once"},
    {"TrackCutOff", false, field("points3D.txt", 2, 12, ""),
     "/points3D.txt:2: found the end of the line after 11 fields, expected POINT2D_IDX"},
    {"TrackOfAnAbsentImage", false, field("points3D.txt", 2, 9, "11"),
     "/points3D.txt:2: found image 11 in the track of point 594, expected an image that the "
     "images file holds"},
    {"TrackOfAnAbsentObservation", false, field("points3D.txt", 2, 10, "3"),
     "/points3D.txt:2: found observation 3 of image 10 in the track of point 594, expected one of "
     "the image's 3 observations, counted from 0"},
    {"TrackOfAnObservationWithoutPoint", false, field("points3D.txt", 2, 10, "0"),
     "/points3D.txt:2: found observation 0 of image 10 in the track of point 594, which names no "
     "point, expected an observation that names the same point"},
    {"TrackOfAnotherPointsObservation", false, field("points3D.txt", 2, 10, "2"),
     "/points3D.txt:2: found observation 2 of image 10 in the track of point 594, which names "
     "point 587, expected an observation that names the same point"},
    {"TrackWithAnObservationTwice", false, field("points3D.txt", 2, 12, "1 10 1"),
     "/points3D.txt:2: found observation 1 of image 10 in the track of point 594 again, expected "
     "each observation of a track once"},

    {"RigTwice", false, append("rigs.txt", "103 1 CAMERA 3\n"),
     "/rigs.txt:3: found rig 103 again, expected each rig once"},
    {"RigOfAnAbsentCamera", false, field("rigs.txt", 2, 4, "5"),
     "/rigs.txt:2: found camera 5 in rig 103, expected a camera that the cameras file holds"},
    {"RigWithASensorTwice", false, content("rigs.txt", "103 2 CAMERA 3 CAMERA 3 0\n"),
     "/rigs.txt:1: found camera 3 again, expected each sensor of a rig once"},
    {"RigWithAnUnknownSensor", false, field("rigs.txt", 2, 5, "RADAR"),
     "/rigs.txt:2: found the sensor type \"RADAR\", expected CAMERA or IMU"},
    {"RigWithFewerSensorsThanItSays", false, field("rigs.txt", 2, 2, "4000000000"),
     "/rigs.txt:2: found the end of the line after 14 fields, expected SENSOR_TYPE"},
    {"RigWithMoreSensorsThanItSays", false, field("rigs.txt", 2, 2, "1"),
     "/rigs.txt:2: found \"IMU\" (field 5), expected the end of the rig's sensors"},
    {"RigPoseNeitherThereNorNot", false, field("rigs.txt", 2, 7, "2"),
     "/rigs.txt:2: found \"2\" (field 7), expected HAS_POSE, a whole number from 0 to 1"},
    {"RigPoseZero", false, field("rigs.txt", 2, 8, "0"),
     "/rigs.txt:2: found a quaternion of length zero, expected a rotation"},
    {"FrameTwice", false, field("frames.txt", 3, 1, "1010"),
     "/frames.txt:3: found frame 1010 again, expected each frame once"},
    {"FrameOfAnAbsentRig", false, field("frames.txt", 2, 2, "9"),
     "/frames.txt:2: found rig 9 in frame 1010, expected a rig that the rigs file holds"},
    {"FramesWithoutRigs", false, [](Files& files) { files = without(files, "rigs.txt"); },
     "/frames.txt:2: found rig 103 in frame 1010, expected a rig that the rigs file holds"},
    {"FrameOfASensorNotInItsRig", false, field("frames.txt", 2, 12, "9"),
     "/frames.txt:2: found camera 9 in frame 1010, expected a sensor of rig 103"},
    {"FrameWithAnImageOfAnotherCamera", false,
     [](Files& files) {
       append("cameras.txt", "9 SIMPLE_PINHOLE 10 10 5 5 5\n")(files);
       append("rigs.txt", "109 1 CAMERA 9\n")(files);
       field("frames.txt", 2, 2, "109")(files);
       field("frames.txt", 2, 12, "9")(files);
     },
     "/frames.txt:2: found image 10 of camera 9 in frame 1010, expected its camera 3"},
    {"FrameWithAnImageOfAnother", false, field("frames.txt", 3, 13, "10"),
     "/frames.txt:3: found image 10 again in frame 1013, expected each image in one frame"},
    {"FrameDataCutOff", false, field("frames.txt", 2, 10, "2"),
     "/frames.txt:2: found the end of the line after 13 fields, expected SENSOR_TYPE"},
    {"ImageInNoFrame", false, field("frames.txt", 3, 13, "99"),
     "/images.txt:4: found image 13 in no frame, expected an image that the frames file names"},
    {"ControlCharactersAreShownAsNumbers", false,
     field("cameras.txt", 2, 2, std::string("A\x1b[31m\x00", 7)),
     "/cameras.txt:2: found the camera model \"A\\x1b[31m\\x00\", expected a perspective model of "
     "COLMAP"},
    {"LongFieldsAreCut", false, field("cameras.txt", 2, 2, std::string(100000, 'x')),
     "/cameras.txt:2: found the camera model \"" + std::string(60, 'x') +
         "...\", expected a perspective model of COLMAP"},
};

// Where things are: cameras.bin holds its count, then id 8, model 12, width 16, height 24,
// parameters 32. images.bin: id 8, rotation 12, translation 44, camera 68, name 72, number
// of marks 87, marks 95 and each 24 later; the second image begins at 167.
// points3D.bin: id 8, position 16, colour 40, error 43, track length 51, track 59.
const BadFile badBinaries[] = {
    {"EmptyCameras", true, content("cameras.bin", ""),
     "/cameras.bin: found an empty file, expected a part of a COLMAP model"},
    {"NoCamera", true, content("cameras.bin", std::string(8, '\0')),
     "/cameras.bin: found no camera, expected at least one"},
    {"NoImage", true, content("images.bin", std::string(8, '\0')),
     "/images.bin: found no image, expected at least one"},
    {"MoreCamerasThanTheFileHolds", true, bytes<std::uint64_t>("cameras.bin", 0, 2),
     "/cameras.bin: at byte 0: found 2, expected a number of cameras of at most 1, for which the "
     "file has room"},
    {"HugeNumberOfCameras", true, bytes<std::uint64_t>("cameras.bin", 0, ~0ULL),
     "/cameras.bin: at byte 0: found 18446744073709551615, expected a number of cameras of at "
     "most 1, for which the file has room"},
    {"HugeNumberOfImages", true, bytes<std::uint64_t>("images.bin", 0, 1ULL << 60),
     "/images.bin: at byte 0: found 1152921504606846976, expected a number of images of at most "
     "4, for which the file has room"},
    {"HugeNumberOfMarks", true, bytes<std::uint64_t>("images.bin", 87, 1ULL << 61),
     "/images.bin: at byte 87: found 2305843009213693952, expected a number of observations of at "
     "most 9, for which the file has room"},
    {"HugeNumberOfPoints", true, bytes<std::uint64_t>("points3D.bin", 0, 1ULL << 59),
     "/points3D.bin: at byte 0: found 576460752303423488, expected a number of points of at most "
     "2, for which the file has room"},
    {"HugeTrack", true, bytes<std::uint64_t>("points3D.bin", 51, 1ULL << 62),
     "/points3D.bin: at byte 51: found 4611686018427387904, expected a track length of at most "
     "10, for which the file has room"},
    {"HugeNumberOfRigs", true, bytes<std::uint64_t>("rigs.bin", 0, 1ULL << 50),
     "/rigs.bin: at byte 0: found 1125899906842624, expected a number of rigs of at most 10, for "
     "which the file has room"},
    {"HugeNumberOfSensors", true, bytes<std::uint32_t>("rigs.bin", 12, 0xffffffffu),
     "/rigs.bin: at byte 12: found 4294967295, expected a number of sensors of at most 9, for "
     "which the file has room"},
    {"HugeNumberOfFrames", true, bytes<std::uint64_t>("frames.bin", 0, 1ULL << 50),
     "/frames.bin: at byte 0: found 1125899906842624, expected a number of frames of at most 2, "
     "for which the file has room"},
    {"HugeNumberOfData", true, bytes<std::uint32_t>("frames.bin", 72, 0x80000000u),
     "/frames.bin: at byte 72: found 2147483648, expected a number of data of at most 6, for "
     "which the file has room"},

    {"CameraModelUnknown", true, bytes<std::int32_t>("cameras.bin", 12, 99),
     "/cameras.bin: at byte 12: found the camera model 99, expected a perspective model of "
     "COLMAP"},
    {"CameraModelNegative", true, bytes<std::int32_t>("cameras.bin", 12, -1),
     "/cameras.bin: at byte 12: found the camera model -1, expected a perspective model of "
     "COLMAP"},
    {"CameraModelWithFewerParameters", true, bytes<std::int32_t>("cameras.bin", 12, 0),
     "/cameras.bin: at byte 56: found 8 bytes more, expected the end of the file after its "
     "cameras"},
    {"CameraModelWithMoreParameters", true, bytes<std::int32_t>("cameras.bin", 12, 3),
     "/cameras.bin: at byte 64: found the end of the file after 0 bytes more, expected a camera "
     "parameter (8 bytes)"},
    {"CameraWidthZero", true, bytes<std::uint64_t>("cameras.bin", 16, 0),
     "/cameras.bin: at byte 8: found width 0, expected a width of 1 to 2147483647 pixels"},
    {"CameraHeightTooLarge", true, bytes<std::uint64_t>("cameras.bin", 24, 1ULL << 31),
     "/cameras.bin: at byte 8: found height 2147483648, expected a height of 1 to 2147483647 "
     "pixels"},
    {"CameraFocalLengthNegative", true, bytes<double>("cameras.bin", 32, -2.0),
     "/cameras.bin: at byte 8: found focal length -2.000000, expected a focal length above 0"},
    {"CameraParameterNaN", true, bytes<double>("cameras.bin", 40, nan),
     "/cameras.bin: at byte 40: found NaN, expected a camera parameter, a finite number"},
    {"CameraParameterInfinite", true, bytes<double>("cameras.bin", 32, infinity),
     "/cameras.bin: at byte 32: found infinity, expected a camera parameter, a finite number"},
    {"CamerasFollowedByMore", true, append("cameras.bin", "x"),
     "/cameras.bin: at byte 64: found 1 bytes more, expected the end of the file after its "
     "cameras"},

    {"ImageQuaternionZero", true,
     [](Files& files) {
       for (std::size_t k = 0; k < 4; ++k) bytes<double>("images.bin", 12 + 8 * k, 0.0)(files);
     },
     "/images.bin: at byte 12: found a quaternion of length zero, expected a rotation"},
    {"ImageRotationNaN", true, bytes<double>("images.bin", 20, nan),
     "/images.bin: at byte 20: found NaN, expected QX, a finite number"},
    {"ImageTranslationInfinite", true, bytes<double>("images.bin", 60, -infinity),
     "/images.bin: at byte 60: found infinity, expected TZ, a finite number"},
    {"ImageCameraAbsent", true, bytes<std::uint32_t>("images.bin", 68, 8),
     "/images.bin: at byte 8: found camera 8 of image 10, expected a camera that the cameras file "
     "holds"},
    {"ImageNameLeavesTheFolder", true, bytes<std::uint32_t>("images.bin", 72, 0x612f2e2eu),
     "/images.bin: at byte 8: found the image name \"../aion 01.jpg\", which leaves the folder, "
     "expected a file name inside the photograph folder"},
    {"ImageNameAbsolute", true, bytes<char>("images.bin", 72, '/'),
     "/images.bin: at byte 8: found the absolute image name \"/tation 01.jpg\", expected a file "
     "name inside the photograph folder"},
    {"ImageNameEmpty", true, [](Files& files) { contentOf(files, "images.bin").erase(72, 14); },
     "/images.bin: at byte 8: found an empty image name, expected a file name inside the "
     "photograph folder"},
    {"ImageNameWithoutEnd", true,
     [](Files& files) {
       std::string& all = contentOf(files, "images.bin");
       all.resize(86);
       all.append(20, 'a');
       bytes<std::uint64_t>("images.bin", 0, 1)(files);
     },
     "/images.bin: at byte 72: found the end of the file before a zero byte, expected an image "
     "name, ended by a zero byte"},
    {"ImageTwice", true, bytes<std::uint32_t>("images.bin", 167, 10),
     "/images.bin: at byte 167: found image 10 again, expected each image once"},
    {"ImageIdBeyondPhotographNumbers", true, bytes<std::uint32_t>("images.bin", 167, 1u << 31),
     "/images.bin: at byte 167: found image 2147483648, expected an image id of at most "
     "2147483647"},
    {"MarkNaN", true, bytes<double>("images.bin", 95 + 24, nan),
     "/images.bin: at byte 119: found NaN, expected X, a finite number"},
    {"ImageTranslationThatNoFloatHolds", true, bytes<double>("images.bin", 60, 1e300),
     "/images.bin: at byte 60: found TZ 1e+300, expected a number from -1e15 to 1e15"},
    {"PointThatNoFloatHolds", true, bytes<double>("points3D.bin", 24, -1e16),
     "/points3D.bin: at byte 24: found Y -1e+16, expected a number from -1e15 to 1e15"},
    {"MarkInfinite", true, bytes<double>("images.bin", 95 + 24 + 8, infinity),
     "/images.bin: at byte 127: found infinity, expected Y, a finite number"},
    {"MarkOfAnAbsentPoint", true, bytes<std::uint64_t>("images.bin", 95 + 16, 5),
     "/images.bin: at byte 95: found observation 0 of image 10, which names point 5, expected a "
     "point that the points file holds"},
    {"MarkNotInItsPointsTrack", true, bytes<std::uint64_t>("images.bin", 95 + 16, 587),
     "/images.bin: at byte 95: found observation 0 of image 10, which names point 587, expected a "
     "point whose track names the observation back"},
    {"ImagesFollowedByMore", true, append("images.bin", std::string(24, 'x')),
     "found 24 bytes more, expected the end of the file after its images"},

    {"PointTwice", true, bytes<std::uint64_t>("points3D.bin", 75, 594),
     "/points3D.bin: at byte 75: found point 594 again, expected each point once"},
    {"PointIdTooLarge", true, bytes<std::uint64_t>("points3D.bin", 8, ~0ULL),
     "/points3D.bin: at byte 8: found point 18446744073709551615, expected a point id of at most "
     "9223372036854775807"},
    {"PointPositionNaN", true, bytes<double>("points3D.bin", 32, nan),
     "/points3D.bin: at byte 32: found NaN, expected Z, a finite number"},
    {"PointErrorInfinite", true, bytes<double>("points3D.bin", 43, infinity),
     "/points3D.bin: at byte 43: found infinity, expected an error, a finite number"},
    {"TrackOfAnAbsentImage", true, bytes<std::uint32_t>("points3D.bin", 67, 14),
     "/points3D.bin: at byte 67: found image 14 in the track of point 594, expected an image that "
     "the images file holds"},
    {"TrackOfAnAbsentObservation", true, bytes<std::uint32_t>("points3D.bin", 71, 0xffffffffu),
     "/points3D.bin: at byte 67: found observation 4294967295 of image 13 in the track of point "
     "594, expected one of the image's 3 observations, counted from 0"},
    {"TrackOfAnotherPointsObservation", true, bytes<std::uint32_t>("points3D.bin", 71, 2),
     "/points3D.bin: at byte 67: found observation 2 of image 13 in the track of point 594, which "
     "names point 587, expected an observation that names the same point"},
    {"PointsFollowedByMore", true, append("points3D.bin", "12345"),
     "/points3D.bin: at byte 142: found 5 bytes more, expected the end of the file after its "
     "points"},

    {"RigWithAnUnknownSensor", true, bytes<std::int32_t>("rigs.bin", 16, 7),
     "/rigs.bin: at byte 16: found the sensor type 7, expected 0 (camera) or 1 (IMU)"},
    {"RigPoseNeitherThereNorNot", true, bytes<std::uint8_t>("rigs.bin", 32, 2),
     "/rigs.bin: at byte 32: found 2, expected 0 or 1: whether there is a pose"},
    {"RigOfAnAbsentCamera", true, bytes<std::uint32_t>("rigs.bin", 20, 5),
     "/rigs.bin: at byte 8: found camera 5 in rig 103, expected a camera that the cameras file "
     "holds"},
    {"RigsFollowedByMore", true, append("rigs.bin", "1"),
     "/rigs.bin: at byte 89: found 1 bytes more, expected the end of the file after its rigs"},
    {"FrameOfAnAbsentRig", true, bytes<std::uint32_t>("frames.bin", 12, 9),
     "/frames.bin: at byte 8: found rig 9 in frame 1010, expected a rig that the rigs file holds"},
    {"FrameRotationNaN", true, bytes<double>("frames.bin", 16, nan),
     "/frames.bin: at byte 16: found NaN, expected QW, a finite number"},
    {"FramesFollowedByMore", true, append("frames.bin", "1"),
     "found 1 bytes more, expected the end of the file after its frames"},
};

}  // namespace

class ColmapReaderRefusalTest : public TarnTest {
protected:
  // Reads such files into a project that holds another model already. Returns the
  // message with which they are refused, or nothing when they are read.
  std::string refusal(const Files& files) {
    const TemporaryFolder folder;
    SyntheticScene::write(files, folder.path());
    return refusalOf(folder.path());
  }

  std::string refusalOf(const std::string& folder) {
    tarn::Project project;
    SyntheticScene(3, 4).addTo(project);
    try {
      tarn::ColmapReader::Read(folder, project);
    } catch (const tarn::ReadError& error) {
      EXPECT_EQ(project.GetCameras().size(), 1);
      EXPECT_EQ(project.GetCameraStations().size(), 3);
      EXPECT_EQ(project.GetPhotoCollection()->GetPhotographs().size(), 3);
      EXPECT_EQ(project.GetObjectPoints().size(), 4);
      EXPECT_TRUE(std::string(error.what()).starts_with(folder)) << error.what();
      return error.what();
    }
    EXPECT_GT(project.GetCameraStations().size(), 3);
    return {};
  }

  SyntheticScene scene = smallScene();
};

TEST_F(ColmapReaderRefusalTest, TheFilesThatTheOthersAreMadeOfAreRead) {
  EXPECT_EQ(refusal(scene.text()), "");
  EXPECT_EQ(refusal(scene.binary()), "");
}

class ColmapBadFileTest : public ColmapReaderRefusalTest,
                          public ::testing::WithParamInterface<BadFile> {};

TEST_P(ColmapBadFileTest, IsRefused) {
  const BadFile& bad = GetParam();
  Files files = bad.binary ? scene.binary() : scene.text();
  bad.edit(files);
  EXPECT_THAT(refusal(files), EndsWith(bad.message));
}

INSTANTIATE_TEST_SUITE_P(Text, ColmapBadFileTest, ::testing::ValuesIn(badTexts),
                         [](const auto& info) { return std::string(info.param.name); });
INSTANTIATE_TEST_SUITE_P(Binary, ColmapBadFileTest, ::testing::ValuesIn(badBinaries),
                         [](const auto& info) { return std::string(info.param.name); });

// One file of a model is damaged again and again.
class ColmapDamagedFileTest : public ColmapReaderRefusalTest,
                              public ::testing::WithParamInterface<const char*> {
protected:
  // Whether the model is refused, naming the file or another, once the file holds that.
  // Any other exception fails the test, as a crash does.
  bool isRefusedWith(const std::string& content) {
    SyntheticScene::write({{GetParam(), content}}, folder.path());
    tarn::Project project;
    try {
      tarn::ColmapReader::Read(folder.path(), project);
    } catch (const tarn::ReadError& error) {
      EXPECT_TRUE(std::string(error.what()).starts_with(folder.path())) << error.what();
      EXPECT_EQ(project.GetCameraStations().size(), 0);
      return true;
    }
    EXPECT_EQ(project.GetCameraStations().size(), 2);
    return false;
  }
  std::string writeModel(Files files) {
    SyntheticScene::write(files, folder.path());
    return contentOf(files, GetParam());
  }

  TemporaryFolder folder;
};

class ColmapDamagedBinaryTest : public ColmapDamagedFileTest {};
class ColmapDamagedTextTest : public ColmapDamagedFileTest {};

TEST_P(ColmapDamagedBinaryTest, IsRefusedAtEveryLength) {
  const std::string whole = writeModel(scene.binary());
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_TRUE(isRefusedWith(whole.substr(0, length))) << length << " bytes";
  }
  EXPECT_FALSE(isRefusedWith(whole));
}

TEST_P(ColmapDamagedBinaryTest, IsReadOrRefusedWhateverAByteIsChangedTo) {
  std::string all = writeModel(scene.binary());
  int refused = 0;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const char earlier = all[i];
    for (const char value : {'\x00', '\x7f', '\xff'}) {
      all[i] = value;
      EXPECT_NO_THROW(refused += isRefusedWith(all)) << "byte " << i;
    }
    all[i] = earlier;
  }
  EXPECT_GT(refused, 0);
}

TEST_P(ColmapDamagedTextTest, IsReadOrRefusedWhateverACharacterIsChangedTo) {
  std::string all = writeModel(scene.text());
  int refused = 0;
  // Of the comment, whose text is skipped, only the end matters.
  for (std::size_t i = all.find('\n'); i < all.size(); ++i) {
    const char earlier = all[i];
    for (const char value : {'\0', ' ', '\n', '-', '9', '\xff'}) {
      all[i] = value;
      EXPECT_NO_THROW(refused += isRefusedWith(all)) << "character " << i;
    }
    all[i] = earlier;
  }
  EXPECT_GT(refused, 0);
}

std::string withoutExtension(const ::testing::TestParamInfo<const char*>& info) {
  const std::string name = info.param;
  return name.substr(0, name.find('.'));
}
INSTANTIATE_TEST_SUITE_P(All, ColmapDamagedBinaryTest,
                         ::testing::Values("cameras.bin", "images.bin", "points3D.bin", "rigs.bin",
                                           "frames.bin"),
                         withoutExtension);
INSTANTIATE_TEST_SUITE_P(All, ColmapDamagedTextTest,
                         ::testing::Values("cameras.txt", "images.txt", "points3D.txt", "rigs.txt",
                                           "frames.txt"),
                         withoutExtension);

// Folders

TEST_F(ColmapReaderRefusalTest, AFolderThatIsNotThere) {
  const TemporaryFolder folder;
  EXPECT_EQ(refusalOf(folder.file("missing")),
            folder.file("missing") + ": found nothing, expected a folder with a COLMAP model");
}

TEST_F(ColmapReaderRefusalTest, AFileInPlaceOfAFolder) {
  const TemporaryFolder folder;
  const std::string file = folder.write("model", "text");
  EXPECT_EQ(refusalOf(file), file + ": found a file, expected a folder with a COLMAP model");
}

TEST_F(ColmapReaderRefusalTest, AFolderWithoutAModel) {
  const TemporaryFolder folder;
  folder.write("images/a.jpg", "no picture");
  EXPECT_EQ(refusalOf(folder.path()),
            folder.path() +
                ": found no COLMAP model, expected cameras, images and points3D as .bin or .txt "
                "here, in sparse, in sparse/0 or in 0");
}

TEST_F(ColmapReaderRefusalTest, OneOfTheThreeFilesIsMissing) {
  for (const char* name : {"cameras", "images", "points3D"}) {
    for (const bool binary : {false, true}) {
      const std::string file = std::string(name) + (binary ? ".bin" : ".txt");
      EXPECT_THAT(refusal(without(binary ? scene.binary() : scene.text(), file)),
                  EndsWith("/" + file +
                           ": found no such file, expected it beside the other files of the "
                           "model"));
    }
  }
}

TEST_F(ColmapReaderRefusalTest, AFolderInPlaceOfAFile) {
  const TemporaryFolder folder;
  SyntheticScene::write(without(scene.text(), "points3D.txt"), folder.path());
  std::filesystem::create_directories(folder.file("points3D.txt"));
  EXPECT_THAT(refusalOf(folder.path()),
              EndsWith("/points3D.txt: found something that is no ordinary file, expected a file"));
}

TEST_F(ColmapReaderRefusalTest, APipeInPlaceOfAFileIsNotWaitedFor) {
  const TemporaryFolder folder;
  SyntheticScene::write(without(scene.text(), "images.txt"), folder.path());
  ASSERT_EQ(mkfifo(folder.file("images.txt").c_str(), 0600), 0);
  EXPECT_THAT(refusalOf(folder.path()),
              EndsWith("/images.txt: found something that is no ordinary file, expected a file"));
}
