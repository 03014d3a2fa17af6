#include "io/ColmapTextFiles.h"

#include "io/FileContent.h"
#include "io/ReadError.h"
#include "io/TextFields.h"

namespace tarn::colmapText {

namespace {

ColmapPose readPose(TextFields& fields) {
  constexpr const char* names[7] = {"QW", "QX", "QY", "QZ", "TX", "TY", "TZ"};
  std::array<double, 7> numbers;
  for (std::size_t i = 0; i < 7; ++i) numbers[i] = fields.number(names[i]);
  return colmapPose(fields.place(), numbers);
}

ColmapSensor readSensor(TextFields& fields) {
  const std::string_view type = fields.word("SENSOR_TYPE");
  if (type != "CAMERA" && type != "IMU") {
    fields.place().refuse("the sensor type " + quoted(type), "CAMERA or IMU");
  }
  return {type == "CAMERA" ? ColmapSensor::eCamera : ColmapSensor::eIMU, fields.id("SENSOR_ID")};
}

std::uint64_t readPointId(TextFields& fields) {
  // "-1" stands for a mark without a point; any other id has no sign.
  TextFields ahead = fields;
  if (ahead.word("POINT3D_ID") == "-1") {
    fields = ahead;
    return ColmapMark::noPoint;
  }
  return fields.unsignedNumber("POINT3D_ID", ColmapMark::noPoint - 1);
}

// The POINTS2D line of an image: X, Y and POINT3D_ID again and again, or nothing.
void readMarks(const Place& place, std::string_view line, ColmapModel& model) {
  TextFields fields(place, line);
  while (!fields.atEnd()) {
    const double x = fields.number("X");
    const double y = fields.number("Y");
    model.marks.push_back({{x, y}, readPointId(fields)});
  }
}

std::uint8_t readColour(TextFields& fields, const char* what) {
  return static_cast<std::uint8_t>(fields.unsignedNumber(what, 255));
}

}  // namespace

void readCameras(const std::string& file, ColmapModel& model) {
  const FileContent content(file, "a part of a COLMAP model");
  TextLines lines(file, content.bytes());
  std::string_view line;
  while (lines.nextRecord(line)) {
    TextFields fields(lines.place(), line);
    ColmapCamera camera;
    camera.place = lines.place();
    camera.id = fields.id("CAMERA_ID");
    const std::string_view name = fields.word("MODEL");
    camera.model = ColmapCameraModel::find(name);
    if (!camera.model) {
      camera.place.refuse("the camera model " + quoted(name), "a perspective model of COLMAP");
    }
    camera.width = fields.unsignedNumber("WIDTH", std::numeric_limits<std::uint64_t>::max());
    camera.height = fields.unsignedNumber("HEIGHT", std::numeric_limits<std::uint64_t>::max());
    const std::string parameters = std::to_string(camera.model->parameters()) + " parameters of " +
                                   std::string(camera.model->name);
    for (int i = 0; i < camera.model->parameters(); ++i) {
      camera.parameters[static_cast<std::size_t>(i)] = fields.number(parameters.c_str());
    }
    fields.expectEnd(("the " + parameters).c_str());
    model.add(camera);
  }
  if (model.cameras.empty()) throw ReadError::inFile(file, "no camera", "at least one");
}

void readImages(const std::string& file, ColmapModel& model, ReadProgress& progress) {
  const FileContent content(file, "a part of a COLMAP model");
  TextLines lines(file, content.bytes());
  std::string_view line;
  while (lines.nextRecord(line)) {
    TextFields fields(lines.place(), line);
    ColmapImage image;
    image.place = lines.place();
    image.id = fields.id("IMAGE_ID");
    image.pose = readPose(fields);
    image.cameraId = fields.id("CAMERA_ID");
    image.name = fields.rest();
    image.firstMark = model.marks.size();
    // An image without marks at the end of the file may lack its empty second line.
    if (lines.next(line)) readMarks(lines.place(), line, model);
    image.marksPlace = lines.place();
    image.marks = model.marks.size() - image.firstMark;
    model.add(std::move(image));
    progress.at(lines.done());
  }
  if (model.images.empty()) throw ReadError::inFile(file, "no image", "at least one");
}

void readPoints(const std::string& file, ColmapModel& model, ReadProgress& progress) {
  const FileContent content(file, "a part of a COLMAP model");
  TextLines lines(file, content.bytes());
  std::string_view line;
  while (lines.nextRecord(line)) {
    TextFields fields(lines.place(), line);
    ColmapPoint point;
    point.place = point.trackPlace = lines.place();
    point.id = fields.unsignedNumber("POINT3D_ID", std::numeric_limits<std::uint64_t>::max());
    point.position.x = fields.number("X");
    point.position.y = fields.number("Y");
    point.position.z = fields.number("Z");
    const std::uint8_t red = readColour(fields, "R");
    const std::uint8_t green = readColour(fields, "G");
    const std::uint8_t blue = readColour(fields, "B");
    point.colour = Colour(red, green, blue);
    fields.number("ERROR");
    point.firstElement = model.tracks.size();
    while (!fields.atEnd()) {
      const std::uint32_t image = fields.id("IMAGE_ID");
      model.tracks.push_back({image, fields.id("POINT2D_IDX")});
    }
    point.elements = model.tracks.size() - point.firstElement;
    model.add(point);
    progress.at(lines.done());
  }
}

void readRigs(const std::string& file, ColmapModel& model) {
  const FileContent content(file, "a part of a COLMAP model");
  TextLines lines(file, content.bytes());
  std::string_view line;
  while (lines.nextRecord(line)) {
    TextFields fields(lines.place(), line);
    ColmapRig rig;
    rig.place = lines.place();
    rig.id = fields.id("RIG_ID");
    const std::uint32_t sensors = fields.id("NUM_SENSORS");
    for (std::uint32_t i = 0; i < sensors; ++i) {
      rig.sensors.push_back(readSensor(fields));
      // The first one is the reference, which the others' poses are relative to.
      if (i > 0 && fields.unsignedNumber("HAS_POSE", 1) == 1) readPose(fields);
    }
    fields.expectEnd("the rig's sensors");
    model.add(std::move(rig));
  }
}

void readFrames(const std::string& file, ColmapModel& model) {
  const FileContent content(file, "a part of a COLMAP model");
  TextLines lines(file, content.bytes());
  std::string_view line;
  while (lines.nextRecord(line)) {
    TextFields fields(lines.place(), line);
    ColmapFrame frame;
    frame.place = lines.place();
    frame.id = fields.id("FRAME_ID");
    frame.rigId = fields.id("RIG_ID");
    readPose(fields);
    const std::uint32_t data = fields.id("NUM_DATA_IDS");
    for (std::uint32_t i = 0; i < data; ++i) {
      const ColmapSensor sensor = readSensor(fields);
      frame.data.push_back(
          {sensor, fields.unsignedNumber("DATA_ID", std::numeric_limits<std::uint64_t>::max())});
    }
    fields.expectEnd("the frame's data");
    model.add(std::move(frame));
  }
  model.hasFrames = true;
}

}  // namespace tarn::colmapText
