#include "io/ColmapProject.h"

#include "host/model/CameraFrame.h"
#include "host/model/Project.h"
#include "io/PointCovariance.h"

#include <limits>

namespace tarn {

namespace {

// The camera axes right, up, back in the model. COLMAP's are right, down, forward.
MatrixDouble rotationOf(const ColmapPose& q) {
  MatrixDouble r(3, 3);
  r(1, 1) = 1.0 - 2.0 * (q.y * q.y + q.z * q.z);
  r(1, 2) = 2.0 * (q.x * q.y - q.w * q.z);
  r(1, 3) = 2.0 * (q.x * q.z + q.w * q.y);
  r(2, 1) = -2.0 * (q.x * q.y + q.w * q.z);
  r(2, 2) = -(1.0 - 2.0 * (q.x * q.x + q.z * q.z));
  r(2, 3) = -2.0 * (q.y * q.z - q.w * q.x);
  r(3, 1) = -2.0 * (q.x * q.z - q.w * q.y);
  r(3, 2) = -2.0 * (q.y * q.z + q.w * q.x);
  r(3, 3) = -(1.0 - 2.0 * (q.x * q.x + q.y * q.y));
  return r;
}

// -R^T t, R being COLMAP's: two rows of the matrix here have the other sign.
Point3DDouble positionOf(const MatrixDouble& r, const Point3DDouble& t) {
  const auto element = [&](int column) {
    return -r(1, column) * t.x + r(2, column) * t.y + r(3, column) * t.z;
  };
  return {element(1), element(2), element(3)};
}

}  // namespace

Camera colmapCamera(const ColmapCamera& record) {
  constexpr double longerSide = 36.0;  // millimetres
  const auto& parameters = record.parameters;
  const auto focalLengths = static_cast<std::size_t>(record.model->focalLengths);
  const double focalX = parameters[0];
  const double focalY = parameters[focalLengths - 1];
  const auto width = static_cast<double>(record.width);
  const auto height = static_cast<double>(record.height);

  Camera camera;
  camera.SetImageSize(static_cast<int>(record.width), static_cast<int>(record.height));
  // One focal length in millimetres; where the two in pixels differ, the pixels are not
  // square, and the other side of the format says so.
  const double focal =
      record.width >= record.height ? focalX * longerSide / width : focalY * longerSide / height;
  camera.SetFocalLength(focal);
  if (record.width >= record.height) {
    camera.SetFormatSize(longerSide, height * focal / focalY);
  } else {
    camera.SetFormatSize(width * focal / focalX, longerSide);
  }
  camera.SetPrincipalPoint({parameters[focalLengths], parameters[focalLengths + 1]});
  LensDistortion::Parameters distortion{};
  for (std::size_t i = 0; i < static_cast<std::size_t>(record.model->distortionParameters); ++i) {
    distortion[i] = parameters[focalLengths + 2 + i];
  }
  camera.SetLensDistortion(LensDistortion(record.model->distortion, distortion));
  return camera;
}

ColmapProject::ColmapProject(const ColmapModel& model, ReadProgress& progress) : _model(model) {
  _cameras.reserve(model.cameras.size());
  for (const ColmapCamera& record : model.cameras) _cameras.push_back(colmapCamera(record));
  computeStations();
  computePoints(progress);
}

void ColmapProject::computeStations() {
  _stations.reserve(_model.images.size());
  for (const ColmapImage& image : _model.images) {
    Station station;
    station.camera = &_cameras[_model.cameraOf.at(image.cameraId)];
    station.rotation = rotationOf(image.pose);
    station.position = positionOf(station.rotation, image.pose.translation);
    _stations.push_back(station);
  }
}

void ColmapProject::computePoints(ReadProgress& progress) {
  _residuals.resize(_model.marks.size());
  std::vector<PointCovariance> covariances(_model.points.size());
  // The variance of one image coordinate, pooled over all points that their rays
  // determine: the sum of squared residuals by the number of redundant observations.
  double squares = 0.0;
  double redundancy = 0.0;
  for (std::size_t i = 0; i < _model.points.size(); ++i) {
    const ColmapPoint& point = _model.points[i];
    double pointSquares = 0.0;
    for (std::size_t k = 0; k < point.elements; ++k) {
      const ColmapTrackElement& element = _model.tracks[point.firstElement + k];
      const std::size_t image = _model.imageOf.at(element.imageId);
      const Station& station = _stations[image];
      const std::size_t mark = _model.images[image].firstMark + element.markIndex;

      const auto inCamera = inCameraFrame(station.rotation, point.position - station.position);
      Point2DDouble projected;
      if (!station.camera->Project(inCamera.data(), projected)) continue;
      const Point2DDouble& marked = _model.marks[mark].position;
      const Point2DDouble residual{marked.x - projected.x, marked.y - projected.y};
      const double square = residual.x * residual.x + residual.y * residual.y;
      if (!(square <= std::numeric_limits<double>::max())) continue;
      _residuals[mark] = {residual, true};
      if (covariances[i].AddRay(*station.camera, station.rotation, station.position,
                                point.position)) {
        pointSquares += square;
      }
    }
    if (covariances[i].IsDetermined()) {
      squares += pointSquares;
      redundancy += 2.0 * covariances[i].rays() - 3.0;
    }
    progress.at(static_cast<double>(i + 1) / static_cast<double>(_model.points.size()));
  }
  const double unitVariance =
      redundancy > 0.0 ? squares / redundancy : std::numeric_limits<double>::quiet_NaN();
  _points.reserve(_model.points.size());
  for (std::size_t i = 0; i < _model.points.size(); ++i) {
    _points.push_back(covariances[i].Result(_model.points[i].position, unitVariance));
  }
}

void ColmapProject::addTo(Project& project, const std::string& imageFolder) const {
  std::vector<Camera*> cameras;
  cameras.reserve(_cameras.size());
  for (const Camera& camera : _cameras) {
    cameras.push_back(&project.AddCamera());
    *cameras.back() = camera;
  }

  std::vector<MarkedPoint*> marks;
  marks.reserve(_model.marks.size());
  for (std::size_t i = 0; i < _model.images.size(); ++i) {
    const ColmapImage& image = _model.images[i];
    CameraStation& station = project.AddCameraStation();
    Photograph& photograph = project.GetPhotoCollection()->Add();
    station.SetName(VString(image.name));
    station.SetOrientation(_stations[i].position, _stations[i].rotation);
    station.SetCamera(cameras[_model.cameraOf.at(image.cameraId)]);
    station.SetPhotograph(&photograph);
    photograph.SetNumber(static_cast<int>(image.id));
    photograph.SetCameraStation(&station);
    photograph.SetImageFile(VPathString(imageFolder + '/' + image.name));
    for (std::size_t k = 0; k < image.marks; ++k) {
      const std::size_t mark = image.firstMark + k;
      marks.push_back(&photograph.AddMarkedPoint(_model.marks[mark].position));
      if (_residuals[mark].known) marks.back()->SetResidual(_residuals[mark].pixels);
    }
  }

  for (std::size_t i = 0; i < _model.points.size(); ++i) {
    const ColmapPoint& record = _model.points[i];
    ObjectPoint& point = project.AddObjectPoint();
    point.SetNumber(static_cast<long>(record.id));
    point.SetApproximation(_points[i]);
    point.SetProcessed(1);
    point.SetRGBTextureColor(record.colour);
    for (std::size_t k = 0; k < record.elements; ++k) {
      const ColmapTrackElement& element = _model.tracks[record.firstElement + k];
      const ColmapImage& image = _model.images[_model.imageOf.at(element.imageId)];
      point.AddMarkedPoint(marks[image.firstMark + element.markIndex]);
    }
  }
}

}  // namespace tarn
