#include "io/ColmapModel.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <string_view>

namespace tarn {

namespace {

template <typename Id, typename Records, typename Record>
void addUnique(std::unordered_map<Id, std::size_t>& index, Records& records, Record&& record,
               const char* kind) {
  if (!index.emplace(record.id, records.size()).second) {
    record.place.refuse(std::string(kind) + " " + std::to_string(record.id) + " again",
                        std::string("each ") + kind + " once");
  }
  records.push_back(std::forward<Record>(record));
}

void checkSize(const Place& place, std::uint64_t pixels, const char* side) {
  if (pixels > 0 && pixels <= static_cast<std::uint64_t>(std::numeric_limits<int>::max())) return;
  place.refuse(std::string(side) + " " + std::to_string(pixels),
               std::string("a ") + side + " of 1 to " +
                   std::to_string(std::numeric_limits<int>::max()) + " pixels");
}

// What is drawn is drawn in single precision, and its squares have to be numbers, too.
// 1e15 micrometres are a million kilometres.
void checkReach(const Place& place, const char* what, double value) {
  constexpr double most = 1e15;
  if (std::abs(value) <= most) return;
  char digits[40];
  *std::to_chars(digits, digits + sizeof digits - 1, value).ptr = '\0';
  place.refuse(std::string(what) + " " + digits, "a number from -1e15 to 1e15");
}

void checkReach(const Place& first, const std::array<const char*, 3>& names,
                const Point3DDouble& point) {
  checkReach(first, names[0], point.x);
  checkReach(first.later(sizeof(double)), names[1], point.y);
  checkReach(first.later(2 * sizeof(double)), names[2], point.z);
}

// Photographs are opened by this name below the photograph folder: a model from elsewhere
// must not reach files outside of it. Both separators count, for paths take either.
void checkName(const Place& place, std::string_view name) {
  const std::string expected = "a file name inside the photograph folder";
  if (name.empty()) place.refuse("an empty image name", expected);
  const bool drive =
      name.size() > 1 && name[1] == ':' && std::isalpha(static_cast<unsigned char>(name[0])) != 0;
  if (drive || name[0] == '/' || name[0] == '\\') {
    place.refuse("the absolute image name " + quoted(name), expected);
  }
  for (std::size_t begin = 0; begin <= name.size();) {
    const std::size_t end = std::min(name.find_first_of("/\\", begin), name.size());
    if (name.substr(begin, end - begin) == "..") {
      place.refuse("the image name " + quoted(name) + ", which leaves the folder", expected);
    }
    begin = end + 1;
  }
  const std::size_t last = name.find_last_of("/\\");
  const std::string_view file = last == std::string_view::npos ? name : name.substr(last + 1);
  if (file.empty() || file == ".") {
    place.refuse("the image name " + quoted(name) + ", which is a folder's", expected);
  }
}

std::string described(const ColmapSensor& sensor) {
  return (sensor.type == ColmapSensor::eCamera ? "camera " : "IMU ") + std::to_string(sensor.id);
}

}  // namespace

ColmapPose colmapPose(const Place& place, const std::array<double, 7>& numbers) {
  // Scaled by the largest component first: the square of a small one may be zero.
  double largest = 0.0;
  for (int i = 0; i < 4; ++i) {
    largest = std::max(largest, std::abs(numbers[static_cast<std::size_t>(i)]));
  }
  if (!(largest > 0.0)) place.refuse("a quaternion of length zero", "a rotation");
  const double w = numbers[0] / largest;
  const double x = numbers[1] / largest;
  const double y = numbers[2] / largest;
  const double z = numbers[3] / largest;
  const double length = std::sqrt(w * w + x * x + y * y + z * z);
  return {w / length, x / length, y / length, z / length, {numbers[4], numbers[5], numbers[6]}};
}

void ColmapModel::add(ColmapCamera camera) {
  checkSize(camera.place, camera.width, "width");
  checkSize(camera.place, camera.height, "height");
  for (int i = 0; i < camera.model->focalLengths; ++i) {
    const double focal = camera.parameters[static_cast<std::size_t>(i)];
    if (!(focal > 0.0)) {
      camera.place.refuse("focal length " + std::to_string(focal), "a focal length above 0");
    }
    checkReach(camera.place, "focal length", focal);
  }
  addUnique(cameraOf, cameras, std::move(camera), "camera");
}

void ColmapModel::add(ColmapImage image) {
  // Photographs are numbered by an int.
  if (image.id > static_cast<std::uint32_t>(std::numeric_limits<int>::max())) {
    image.place.refuse("image " + std::to_string(image.id),
                       "an image id of at most " + std::to_string(std::numeric_limits<int>::max()));
  }
  // In binary, the translation stands behind the id and the quaternion.
  checkReach(image.place.later(4 + 4 * sizeof(double)), {"TX", "TY", "TZ"}, image.pose.translation);
  checkName(image.place, image.name);
  if (!imageNames.insert(image.name).second) {
    image.place.refuse("the image name " + quoted(image.name) + " again", "each image name once");
  }
  addUnique(imageOf, images, std::move(image), "image");
}

void ColmapModel::add(const ColmapPoint& point) {
  if (point.id > static_cast<std::uint64_t>(std::numeric_limits<long>::max())) {
    point.place.refuse("point " + std::to_string(point.id),
                       "a point id of at most " + std::to_string(std::numeric_limits<long>::max()));
  }
  checkReach(point.place.later(8), {"X", "Y", "Z"}, point.position);
  addUnique(pointOf, points, point, "point");
}

void ColmapModel::add(ColmapRig rig) {
  std::unordered_set<std::uint64_t> seen;
  for (const ColmapSensor& sensor : rig.sensors) {
    if (!seen.insert(sensor.key()).second) {
      rig.place.refuse(described(sensor) + " again", "each sensor of a rig once");
    }
  }
  addUnique(rigOf, rigs, std::move(rig), "rig");
}

void ColmapModel::add(ColmapFrame frame) { addUnique(frameOf, frames, std::move(frame), "frame"); }

void ColmapModel::check() const {
  for (const ColmapImage& image : images) {
    if (!cameraOf.contains(image.cameraId)) {
      image.place.refuse(
          "camera " + std::to_string(image.cameraId) + " of image " + std::to_string(image.id),
          "a camera that the cameras file holds");
    }
  }
  checkTracks();
  checkRigs();
  checkFrames();
}

void ColmapModel::checkTracks() const {
  std::vector<char> inTrack(marks.size(), 0);
  for (const ColmapPoint& point : points) {
    for (std::size_t i = 0; i < point.elements; ++i) {
      const ColmapTrackElement& element = tracks[point.firstElement + i];
      const Place place = point.trackPlace.later(static_cast<long long>(8 * i));
      const std::string whose = " in the track of point " + std::to_string(point.id);
      const auto image = imageOf.find(element.imageId);
      if (image == imageOf.end()) {
        place.refuse("image " + std::to_string(element.imageId) + whose,
                     "an image that the images file holds");
      }
      const ColmapImage& named = images[image->second];
      const std::string observation = "observation " + std::to_string(element.markIndex) +
                                      " of image " + std::to_string(named.id) + whose;
      if (element.markIndex >= named.marks) {
        place.refuse(observation, "one of the image's " + std::to_string(named.marks) +
                                      " observations, counted from 0");
      }
      const std::size_t mark = named.firstMark + element.markIndex;
      if (marks[mark].pointId != point.id) {
        place.refuse(observation + ", which names " +
                         (marks[mark].pointId == ColmapMark::noPoint
                              ? "no point"
                              : "point " + std::to_string(marks[mark].pointId)),
                     "an observation that names the same point");
      }
      if (inTrack[mark]) place.refuse(observation + " again", "each observation of a track once");
      inTrack[mark] = 1;
    }
  }
  for (const ColmapImage& image : images) {
    for (std::size_t i = 0; i < image.marks; ++i) {
      const std::size_t mark = image.firstMark + i;
      if (marks[mark].pointId == ColmapMark::noPoint || inTrack[mark]) continue;
      image.marksPlace.later(static_cast<long long>(24 * i))
          .refuse("observation " + std::to_string(i) + " of image " + std::to_string(image.id) +
                      ", which names point " + std::to_string(marks[mark].pointId),
                  pointOf.contains(marks[mark].pointId)
                      ? "a point whose track names the observation back"
                      : "a point that the points file holds");
    }
  }
}

void ColmapModel::checkRigs() const {
  for (const ColmapRig& rig : rigs) {
    for (const ColmapSensor& sensor : rig.sensors) {
      if (sensor.type == ColmapSensor::eCamera && !cameraOf.contains(sensor.id)) {
        rig.place.refuse(described(sensor) + " in rig " + std::to_string(rig.id),
                         "a camera that the cameras file holds");
      }
    }
  }
}

void ColmapModel::checkFrames() const {
  if (!hasFrames) return;
  std::vector<char> inFrame(images.size(), 0);
  for (const ColmapFrame& frame : frames) {
    const std::string whose = " in frame " + std::to_string(frame.id);
    const auto rig = rigOf.find(frame.rigId);
    if (rig == rigOf.end()) {
      frame.place.refuse("rig " + std::to_string(frame.rigId) + whose,
                         "a rig that the rigs file holds");
    }
    std::unordered_set<std::uint64_t> sensors;
    for (const ColmapSensor& sensor : rigs[rig->second].sensors) sensors.insert(sensor.key());
    for (const ColmapFrame::Datum& datum : frame.data) {
      if (!sensors.contains(datum.sensor.key())) {
        frame.place.refuse(described(datum.sensor) + whose,
                           "a sensor of rig " + std::to_string(frame.rigId));
      }
      if (datum.sensor.type != ColmapSensor::eCamera) continue;
      const auto image = datum.id <= std::numeric_limits<std::uint32_t>::max()
                             ? imageOf.find(static_cast<std::uint32_t>(datum.id))
                             : imageOf.end();
      if (image == imageOf.end()) continue;
      const ColmapImage& named = images[image->second];
      if (named.cameraId != datum.sensor.id) {
        frame.place.refuse(
            "image " + std::to_string(named.id) + " of " + described(datum.sensor) + whose,
            "its camera " + std::to_string(named.cameraId));
      }
      if (inFrame[image->second]) {
        frame.place.refuse("image " + std::to_string(named.id) + " again" + whose,
                           "each image in one frame");
      }
      inFrame[image->second] = 1;
    }
  }
  for (std::size_t i = 0; i < images.size(); ++i) {
    if (inFrame[i]) continue;
    images[i].place.refuse("image " + std::to_string(images[i].id) + " in no frame",
                           "an image that the frames file names");
  }
}

}  // namespace tarn
