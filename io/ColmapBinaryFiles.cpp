#include "io/ColmapBinaryFiles.h"

#include "io/BinaryCursor.h"
#include "io/FileContent.h"
#include "io/ReadError.h"

namespace tarn::colmapBinary {

namespace {

// The smallest records there are, in bytes.
constexpr std::size_t smallestCamera = 4 + 4 + 8 + 8 + 3 * 8;
constexpr std::size_t smallestImage = 4 + 7 * 8 + 4 + 2 + 8;
constexpr std::size_t markSize = 8 + 8 + 8;
constexpr std::size_t smallestPoint = 8 + 3 * 8 + 3 + 8 + 8;
constexpr std::size_t trackElementSize = 4 + 4;
constexpr std::size_t smallestRig = 4 + 4;
constexpr std::size_t smallestSensor = 4 + 4;
constexpr std::size_t smallestFrame = 4 + 4 + 7 * 8 + 4;
constexpr std::size_t datumSize = 4 + 4 + 8;

ColmapPose readPose(BinaryCursor& cursor) {
  constexpr const char* names[7] = {"QW", "QX", "QY", "QZ", "TX", "TY", "TZ"};
  const Place place = cursor.place();
  std::array<double, 7> numbers;
  for (std::size_t i = 0; i < 7; ++i) numbers[i] = cursor.number(names[i]);
  return colmapPose(place, numbers);
}

ColmapSensor readSensor(BinaryCursor& cursor) {
  const Place place = cursor.place();
  const auto type = cursor.read<std::int32_t>("a sensor type");
  if (type != ColmapSensor::eCamera && type != ColmapSensor::eIMU) {
    place.refuse("the sensor type " + std::to_string(type), "0 (camera) or 1 (IMU)");
  }
  return {static_cast<ColmapSensor::Type>(type), cursor.id("a sensor id")};
}

}  // namespace

void readCameras(const std::string& file, ColmapModel& model) {
  const FileContent content(file, "a part of a COLMAP model");
  BinaryCursor cursor(file, content.bytes());
  const std::size_t cameras = cursor.count("a number of cameras", smallestCamera);
  model.cameras.reserve(cameras);
  for (std::size_t i = 0; i < cameras; ++i) {
    ColmapCamera camera;
    camera.place = cursor.place();
    camera.id = cursor.id("a camera id");
    const Place modelPlace = cursor.place();
    const auto model_id = cursor.read<std::int32_t>("a camera model");
    camera.model = ColmapCameraModel::find(model_id);
    if (!camera.model) {
      modelPlace.refuse("the camera model " + std::to_string(model_id),
                        "a perspective model of COLMAP");
    }
    camera.width = cursor.read<std::uint64_t>("a width");
    camera.height = cursor.read<std::uint64_t>("a height");
    for (int k = 0; k < camera.model->parameters(); ++k) {
      camera.parameters[static_cast<std::size_t>(k)] = cursor.number("a camera parameter");
    }
    model.add(camera);
  }
  cursor.expectEnd("cameras");
  if (model.cameras.empty()) throw ReadError::inFile(file, "no camera", "at least one");
}

void readImages(const std::string& file, ColmapModel& model, ReadProgress& progress) {
  const FileContent content(file, "a part of a COLMAP model");
  BinaryCursor cursor(file, content.bytes());
  const std::size_t images = cursor.count("a number of images", smallestImage);
  model.images.reserve(images);
  model.marks.reserve(content.bytes().size() / markSize);
  for (std::size_t i = 0; i < images; ++i) {
    ColmapImage image;
    image.place = cursor.place();
    image.id = cursor.id("an image id");
    image.pose = readPose(cursor);
    image.cameraId = cursor.id("a camera id");
    image.name = cursor.text("an image name");
    image.firstMark = model.marks.size();
    image.marks = cursor.count("a number of observations", markSize);
    image.marksPlace = cursor.place();
    for (std::size_t k = 0; k < image.marks; ++k) {
      const double x = cursor.number("X");
      const double y = cursor.number("Y");
      model.marks.push_back({{x, y}, cursor.read<std::uint64_t>("a point id")});
    }
    model.add(std::move(image));
    progress.at(cursor.done());
  }
  cursor.expectEnd("images");
  if (model.images.empty()) throw ReadError::inFile(file, "no image", "at least one");
}

void readPoints(const std::string& file, ColmapModel& model, ReadProgress& progress) {
  const FileContent content(file, "a part of a COLMAP model");
  BinaryCursor cursor(file, content.bytes());
  const std::size_t points = cursor.count("a number of points", smallestPoint);
  model.points.reserve(points);
  model.pointOf.reserve(points);
  for (std::size_t i = 0; i < points; ++i) {
    ColmapPoint point;
    point.place = cursor.place();
    point.id = cursor.read<std::uint64_t>("a point id");
    point.position.x = cursor.number("X");
    point.position.y = cursor.number("Y");
    point.position.z = cursor.number("Z");
    const auto red = cursor.read<std::uint8_t>("R");
    const auto green = cursor.read<std::uint8_t>("G");
    const auto blue = cursor.read<std::uint8_t>("B");
    point.colour = Colour(red, green, blue);
    cursor.number("an error");
    point.firstElement = model.tracks.size();
    point.elements = cursor.count("a track length", trackElementSize);
    point.trackPlace = cursor.place();
    for (std::size_t k = 0; k < point.elements; ++k) {
      const std::uint32_t image = cursor.id("an image id");
      model.tracks.push_back({image, cursor.id("an observation index")});
    }
    model.add(point);
    progress.at(cursor.done());
  }
  cursor.expectEnd("points");
}

void readRigs(const std::string& file, ColmapModel& model) {
  const FileContent content(file, "a part of a COLMAP model");
  BinaryCursor cursor(file, content.bytes());
  const std::size_t rigs = cursor.count("a number of rigs", smallestRig);
  for (std::size_t i = 0; i < rigs; ++i) {
    ColmapRig rig;
    rig.place = cursor.place();
    rig.id = cursor.id("a rig id");
    const std::size_t sensors = cursor.count<std::uint32_t>("a number of sensors", smallestSensor);
    for (std::size_t k = 0; k < sensors; ++k) {
      rig.sensors.push_back(readSensor(cursor));
      if (k == 0) continue;  // the reference, which the others' poses are relative to
      const Place place = cursor.place();
      const auto hasPose = cursor.read<std::uint8_t>("whether there is a pose");
      if (hasPose > 1) place.refuse(std::to_string(hasPose), "0 or 1: whether there is a pose");
      if (hasPose) readPose(cursor);
    }
    model.add(std::move(rig));
  }
  cursor.expectEnd("rigs");
}

void readFrames(const std::string& file, ColmapModel& model) {
  const FileContent content(file, "a part of a COLMAP model");
  BinaryCursor cursor(file, content.bytes());
  const std::size_t frames = cursor.count("a number of frames", smallestFrame);
  for (std::size_t i = 0; i < frames; ++i) {
    ColmapFrame frame;
    frame.place = cursor.place();
    frame.id = cursor.id("a frame id");
    frame.rigId = cursor.id("a rig id");
    readPose(cursor);
    const std::size_t data = cursor.count<std::uint32_t>("a number of data", datumSize);
    for (std::size_t k = 0; k < data; ++k) {
      const ColmapSensor sensor = readSensor(cursor);
      frame.data.push_back({sensor, cursor.read<std::uint64_t>("a data id")});
    }
    model.add(std::move(frame));
  }
  cursor.expectEnd("frames");
  model.hasFrames = true;
}

}  // namespace tarn::colmapBinary
