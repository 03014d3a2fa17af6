#include "io/ColmapReader.h"

#include "host/model/Project.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <numeric>
#include <sstream>

namespace {

template <typename Object>
Object& at(const tarn::VOrdCollect& all, int i) {
  return *static_cast<Object*>(all.at(i));
}

tarn::ObjectPoint& pointAt(const tarn::Project& project, int i) {
  return at<tarn::ObjectPoint>(project.GetObjectPoints(), i);
}

tarn::CameraStation& stationAt(const tarn::Project& project, int i) {
  return at<tarn::CameraStation>(project.GetCameraStations(), i);
}

int marksOf(const tarn::Project& project) {
  int marks = 0;
  for (int i = 0; i < project.GetCameraStations().size(); ++i) {
    marks += stationAt(project, i).GetPhotograph()->GetAllMarkedPoints(0, 0).size();
  }
  return marks;
}

// The mean length of a point's residuals, which is what COLMAP stores as its ERROR.
double meanResidual(const tarn::ObjectPoint& point) {
  double sum = 0.0;
  for (const tarn::MarkedPoint* mark : point.GetMarkedPoints()) {
    tarn::Point2DDouble residual;
    EXPECT_TRUE(mark->GetResidual(residual));
    sum += std::hypot(residual.x, residual.y);
  }
  return sum / static_cast<double>(point.GetMarkedPoints().size());
}

// The square root of the mean squared residual component, over all points.
double residualDeviation(const tarn::Project& project) {
  double sum = 0.0;
  double count = 0.0;
  for (int i = 0; i < project.GetObjectPoints().size(); ++i) {
    for (const tarn::MarkedPoint* mark : pointAt(project, i).GetMarkedPoints()) {
      tarn::Point2DDouble residual;
      mark->GetResidual(residual);
      sum += residual.x * residual.x + residual.y * residual.y;
      count += 2.0;
    }
  }
  return std::sqrt(sum / count);
}

// The ERROR column of a points3D.txt, by POINT3D_ID in the order of the file.
std::vector<std::pair<long, double>> storedErrors(const std::string& file) {
  std::vector<std::pair<long, double>> errors;
  std::ifstream stream(file);
  std::string line;
  while (std::getline(stream, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream fields(line);
    long id = 0;
    double x, y, z, r, g, b, error;
    fields >> id >> x >> y >> z >> r >> g >> b >> error;
    errors.emplace_back(id, error);
  }
  return errors;
}

double median(std::vector<double> values) {
  EXPECT_FALSE(values.empty());
  std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

// The deviation of a point along a direction of length one.
double deviation(const tarn::Point3DRandom& p, const tarn::Point3DDouble& d) {
  return std::sqrt(d.x * d.x * p.X().variance + d.y * d.y * p.Y().variance +
                   d.z * d.z * p.Z().variance +
                   2.0 * (d.x * d.y * p.covarianceXY() + d.x * d.z * p.covarianceXZ() +
                          d.y * d.z * p.covarianceYZ()));
}

// Every covariance that is known has principal axes, and no negative ones.
int knownCovariances(const tarn::Project& project) {
  int known = 0;
  for (int i = 0; i < project.GetObjectPoints().size(); ++i) {
    tarn::Point3DRandom position;
    EXPECT_TRUE(pointAt(project, i).GetApproximation(position));
    if (position.X().varianceUnknown) continue;
    ++known;
    EXPECT_GT(position.X().variance, 0.0);
    EXPECT_GT(position.Y().variance, 0.0);
    EXPECT_GT(position.Z().variance, 0.0);
    EXPECT_LE(std::abs(position.covarianceXY()),
              std::sqrt(position.X().variance * position.Y().variance));
  }
  return known;
}

}  // namespace

class ColmapReaderDataTest : public TarnTest {
protected:
  void read(const std::string& name) {
    tarn::ColmapReader::Read(std::string(dataFolder()) + "/" + name, project);
  }
  // Compares each point's mean residual with the error that its file states, times `scale`.
  void expectStoredErrors(const std::string& file, double tolerance, double scale = 1.0) {
    const auto errors = storedErrors(std::string(dataFolder()) + "/" + file);
    ASSERT_EQ(static_cast<int>(errors.size()), project.GetObjectPoints().size());
    for (int i = 0; i < project.GetObjectPoints().size(); ++i) {
      const auto& [id, error] = errors[static_cast<std::size_t>(i)];
      ASSERT_EQ(pointAt(project, i).GetNumber(), id);
      EXPECT_NEAR(meanResidual(pointAt(project, i)), scale * error, tolerance) << "point " << id;
    }
  }

  tarn::Project project;
};

TEST_F(ColmapReaderDataTest, CalibrationHasEveryPointInEveryPhotograph) {
  TARN_REQUIRE_DATA();
  read("calibration");
  EXPECT_EQ(project.GetCameras().size(), 1);
  EXPECT_EQ(project.GetCameraStations().size(), 13);
  ASSERT_EQ(project.GetObjectPoints().size(), 54);
  EXPECT_EQ(marksOf(project), 13 * 54);
  for (int i = 0; i < 54; ++i) EXPECT_EQ(pointAt(project, i).GetMarkedPoints().size(), 13u);
  EXPECT_EQ(knownCovariances(project), 54);
}

TEST_F(ColmapReaderDataTest, CalibrationsResidualsAreThoseOfTheCalibration) {
  TARN_REQUIRE_DATA();
  read("calibration");
  // The calibration's own figure is 0.195 pixels a point: both coordinates together.
  EXPECT_NEAR(residualDeviation(project) * std::sqrt(2.0), 0.195, 0.002);
  // Its file keeps coordinates to 1/10000 pixel and errors to a millionth.
  expectStoredErrors("calibration/sparse/points3D.txt", 2e-4);
}

TEST_F(ColmapReaderDataTest, CalibrationsPointsAreGoodToTenthsOfAMillimetre) {
  TARN_REQUIRE_DATA();
  read("calibration");
  // 13 rays of 0.14 pixels each from about 0.4 m with 533 pixels of focal length: about
  // 0.03 mm across the rays, worse along them.
  for (int i = 0; i < 54; ++i) {
    tarn::Point3DRandom position;
    pointAt(project, i).GetApproximation(position);
    for (const tarn::RandomVariable* c : {&position.X(), &position.Y(), &position.Z()}) {
      EXPECT_GT(std::sqrt(c->variance), 0.01e-3);
      EXPECT_LT(std::sqrt(c->variance), 0.3e-3);
    }
  }
}

TEST_F(ColmapReaderDataTest, BananasBinaryAndTextAreTheSame) {
  TARN_REQUIRE_DATA();
  read("banana/sparse");
  tarn::Project text;
  tarn::ColmapReader::Read(std::string(dataFolder()) + "/banana/sparse_txt", text);
  ASSERT_EQ(project.GetCameraStations().size(), 14);
  ASSERT_EQ(text.GetCameraStations().size(), 14);
  ASSERT_EQ(project.GetObjectPoints().size(), 5045);
  ASSERT_EQ(text.GetObjectPoints().size(), 5045);
  for (int i = 0; i < 14; ++i) {
    // The two forms list images in different orders.
    const tarn::CameraStation& a = stationAt(project, i);
    const tarn::CameraStation* b = text.FindCameraStation(a.GetName().str());
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(a.GetPhotograph()->GetNumber(), b->GetPhotograph()->GetNumber());
    EXPECT_EQ(a.GetPosition(), b->GetPosition());
    EXPECT_EQ(a.GetRotationMatrix(), b->GetRotationMatrix());
    const tarn::VOrdCollect& marksA = a.GetPhotograph()->GetAllMarkedPoints(0, 0);
    const tarn::VOrdCollect& marksB = b->GetPhotograph()->GetAllMarkedPoints(0, 0);
    ASSERT_EQ(marksA.size(), marksB.size());
    for (int k = 0; k < marksA.size(); ++k) {
      ASSERT_EQ(at<tarn::MarkedPoint>(marksA, k).GetPosition(),
                at<tarn::MarkedPoint>(marksB, k).GetPosition());
    }
  }
  std::vector<std::pair<long, tarn::Point3DDouble>> points[2];
  for (const tarn::Project* from : {&project, &text}) {
    for (int i = 0; i < 5045; ++i) {
      tarn::Point3DRandom position;
      pointAt(*from, i).GetApproximation(position);
      points[from == &text].emplace_back(pointAt(*from, i).GetNumber(), position.position());
    }
    auto& list = points[from == &text];
    std::sort(list.begin(), list.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
  }
  EXPECT_EQ(points[0], points[1]);
}

TEST_F(ColmapReaderDataTest, BananasResidualsAreCOLMAPsErrors) {
  TARN_REQUIRE_DATA();
  read("banana/sparse_txt");
  expectStoredErrors("banana/sparse_txt/points3D.txt", 1e-6);
  EXPECT_GT(knownCovariances(project), 5000);
}

TEST_F(ColmapReaderDataTest, BananasPhotographsAreFoundBesideTheModel) {
  TARN_REQUIRE_DATA();
  read("banana");
  for (int i = 0; i < 14; ++i) {
    EXPECT_TRUE(
        std::ifstream(stationAt(project, i).GetPhotograph()->GetImage()->GetFileName()->str())
            .good());
  }
}

TEST_F(ColmapReaderDataTest, BananaHasEveryMarkInBothForms) {
  TARN_REQUIRE_DATA();
  for (const char* form : {"banana/sparse", "banana/sparse_txt"}) {
    tarn::Project own;
    tarn::ColmapReader::Read(std::string(dataFolder()) + "/" + form, own);
    EXPECT_EQ(marksOf(own), 111234) << form;
  }
}

TEST_F(ColmapReaderDataTest, LundIsReadWhole) {
  TARN_REQUIRE_DATA();
  read("lund");
  EXPECT_EQ(project.GetCameraStations().size(), 24);
  EXPECT_EQ(project.GetObjectPoints().size(), 1568);
  EXPECT_GT(residualDeviation(project), 0.1);
  EXPECT_LT(residualDeviation(project), 1.5);
  EXPECT_GT(knownCovariances(project), 1560);
}

TEST_F(ColmapReaderDataTest, BrightonsResidualsAreCOLMAPsErrors) {
  TARN_REQUIRE_DATA();
  read("brighton");
  EXPECT_EQ(project.GetCameraStations().size(), 18);
  // Its errors are in pixels of the photographs as taken, 4000 wide; here they are 800 wide.
  // Coordinates were cut to 4 digits (pixels) and 6 digits (metres) after the point.
  expectStoredErrors("brighton/sparse/points3D.txt", 1e-3, 800.0 / 4000.0);
}

TEST_F(ColmapReaderDataTest, BrightonsPointsAreLessPreciseInHeightThanInPlan) {
  TARN_REQUIRE_DATA();
  read("brighton");
  std::vector<double> plan;
  std::vector<double> heights;
  for (int i = 0; i < project.GetObjectPoints().size(); ++i) {
    tarn::Point3DRandom position;
    pointAt(project, i).GetApproximation(position);
    if (position.X().varianceUnknown) continue;
    plan.push_back(std::sqrt(0.5 * (position.X().variance + position.Y().variance)));
    heights.push_back(deviation(position, {0.0, 0.0, 1.0}));
  }
  // Seen from some 70 m with 558 pixels of focal length: a pixel is 0.12 m on the ground.
  EXPECT_GT(median(heights), 1.3 * median(plan));
  EXPECT_GT(median(plan), 0.01);
  EXPECT_LT(median(plan), 0.3);
}
