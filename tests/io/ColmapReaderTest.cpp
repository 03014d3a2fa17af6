#include "io/ColmapReader.h"

#include "host/model/Project.h"
#include "io/PointCovariance.h"
#include "io/ReadError.h"
#include "tests/support/CommaLocale.h"
#include "tests/support/SyntheticScene.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <filesystem>
#include <map>
#include <set>

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::EndsWith;

namespace {

using Files = std::vector<std::pair<std::string, std::string>>;

template <typename Object>
Object& at(const tarn::VOrdCollect& all, int i) {
  return *static_cast<Object*>(all.at(i));
}

tarn::CameraStation& stationAt(const tarn::Project& project, int i) {
  return at<tarn::CameraStation>(project.GetCameraStations(), i);
}

tarn::ObjectPoint& pointAt(const tarn::Project& project, int i) {
  return at<tarn::ObjectPoint>(project.GetObjectPoints(), i);
}

tarn::Camera& cameraAt(const tarn::Project& project, int i) {
  return at<tarn::Camera>(project.GetCameras(), i);
}

const tarn::VOrdCollect& marksOf(const tarn::CameraStation& station) {
  return station.GetPhotograph()->GetAllMarkedPoints(0, 0);
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t i = 0; (i = text.find(from, i)) != std::string::npos; i += to.size()) {
    text.replace(i, from.size(), to);
  }
  return text;
}

// Everything of a project in one text, so that two can be compared.
std::string described(const tarn::Project& project) {
  std::ostringstream out;
  out.precision(17);
  for (int i = 0; i < project.GetCameras().size(); ++i) {
    const tarn::Camera& camera = cameraAt(project, i);
    const auto focal = camera.focalLengthsInPixels();
    const auto centre = camera.GetPrincipalPoint();
    out << "camera " << focal.x << ' ' << focal.y << ' ' << centre.x << ' ' << centre.y;
    for (const double p : camera.GetLensDistortion().parameters()) out << ' ' << p;
    out << '\n';
  }
  for (int i = 0; i < project.GetCameraStations().size(); ++i) {
    const tarn::CameraStation& station = stationAt(project, i);
    const auto position = station.GetPosition();
    out << station.GetName().str() << ' ' << position.x << ' ' << position.y << ' ' << position.z;
    const tarn::VOrdCollect& marks = marksOf(station);
    for (int k = 0; k < marks.size(); ++k) {
      const auto& mark = at<tarn::MarkedPoint>(marks, k);
      tarn::Point2DDouble residual;
      out << ' ' << mark.GetPosition().x << ' ' << mark.GetPosition().y << ' '
          << (mark.GetObjectPoint() ? mark.GetObjectPoint()->GetNumber() : -1) << ' '
          << mark.GetResidual(residual) << ' ' << residual.x << ' ' << residual.y;
    }
    out << '\n';
  }
  for (int i = 0; i < project.GetObjectPoints().size(); ++i) {
    const tarn::ObjectPoint& point = pointAt(project, i);
    tarn::Point3DRandom position;
    point.GetApproximation(position);
    out << point.GetNumber() << ' ' << position.X().value << ' ' << position.Y().value << ' '
        << position.Z().value << ' ' << position.X().variance << ' ' << position.covarianceXY()
        << ' ' << int{point.GetRGBTextureColor()->red()} << ' ' << point.GetMarkedPoints().size()
        << '\n';
  }
  return out.str();
}

}  // namespace

class ColmapReaderTest : public TarnTest {
protected:
  void read(const Files& files) {
    SyntheticScene::write(files, folder.path());
    tarn::ColmapReader::Read(folder.path(), project);
  }
  std::string describedAfterReading(const Files& files) {
    const TemporaryFolder own;
    SyntheticScene::write(files, own.path());
    tarn::Project read;
    tarn::ColmapReader::Read(own.path(), read);
    return described(read);
  }

  TemporaryFolder folder;
  tarn::Project project;
  SyntheticScene scene;
};

TEST_F(ColmapReaderTest, OneStationPerImageStandsWhereItStood) {
  read(scene.text());
  ASSERT_EQ(project.GetCameraStations().size(), 12);
  for (int i = 0; i < 12; ++i) {
    const tarn::CameraStation& station = stationAt(project, i);
    const auto& centre = scene.images[static_cast<std::size_t>(i)].centre;
    EXPECT_TRUE(station.IsOriented());
    EXPECT_NEAR(station.GetPosition().x, centre[0], 1e-12);
    EXPECT_NEAR(station.GetPosition().y, centre[1], 1e-12);
    EXPECT_NEAR(station.GetPosition().z, centre[2], 1e-12);
  }
}

TEST_F(ColmapReaderTest, RowsOfAStationAreRightUpAndBack) {
  read(scene.text());
  for (int i = 0; i < 12; ++i) {
    const tarn::MatrixDouble rows = stationAt(project, i).GetRotationMatrix();
    const auto& centre = scene.images[static_cast<std::size_t>(i)].centre;
    const tarn::Point3DDouble outward{centre[0] - 0.1, centre[1] + 0.2, centre[2] - 0.3};
    // Back is away from the target, right is level, up leans upwards.
    for (int k = 1; k <= 3; ++k) {
      const double component = k == 1 ? outward.x : (k == 2 ? outward.y : outward.z);
      EXPECT_NEAR(rows(3, k), component / outward.length(), 1e-12);
    }
    EXPECT_NEAR(rows(1, 3), 0.0, 1e-12);
    EXPECT_GT(rows(2, 3), 0.1);
    // Right-handed: right x up = back.
    EXPECT_NEAR(rows(1, 1) * rows(2, 2) - rows(1, 2) * rows(2, 1), rows(3, 3), 1e-12);
  }
}

TEST_F(ColmapReaderTest, AQuaternionOfAnyLengthIsBroughtToLengthOne) {
  const std::string expected = describedAfterReading(scene.binary());
  for (SyntheticScene::Image& image : scene.images) {
    for (double& component : image.rotation) component *= 4.0;
  }
  EXPECT_EQ(describedAfterReading(scene.binary()), expected);
}

TEST_F(ColmapReaderTest, AnImagesIdAndNameNumberThePhotographAndNameTheStation) {
  read(scene.text());
  const tarn::CameraStation& station = stationAt(project, 1);
  EXPECT_EQ(station.GetName().str(), "left side/02.jpg");
  ASSERT_NE(station.GetPhotograph(), nullptr);
  EXPECT_EQ(station.GetPhotograph()->GetNumber(), 13);
  EXPECT_EQ(station.GetPhotograph()->GetCameraStation(), &station);
  EXPECT_EQ(project.GetPhotoCollection()->GetPhotograph(13), station.GetPhotograph());
}

TEST_F(ColmapReaderTest, NamesKeepBlanksSubFoldersAndUTF8) {
  read(scene.text());
  EXPECT_EQ(stationAt(project, 0).GetName().str(), "station 01.jpg");
  EXPECT_EQ(stationAt(project, 1).GetName().str(), "left side/02.jpg");
  EXPECT_EQ(stationAt(project, 2).GetName().str(),
            "S\xC3\xBC"
            "d/03.jpg");
  EXPECT_EQ(stationAt(project, 2).GetPhotograph()->GetImage()->GetFileName()->str(),
            std::filesystem::path(folder.path()).parent_path().string() +
                "/images/S\xC3\xBC"
                "d/03.jpg");
}

TEST_F(ColmapReaderTest, MarksComeInTheirOrderWithAndWithoutPoint) {
  read(scene.binary());
  const tarn::VOrdCollect& marks = marksOf(stationAt(project, 3));
  ASSERT_EQ(marks.size(), 61);
  const SyntheticScene::Image& image = scene.images[3];
  for (int k = 0; k < marks.size(); ++k) {
    const auto& mark = at<tarn::MarkedPoint>(marks, k);
    const SyntheticScene::Mark& expected = image.marks[static_cast<std::size_t>(k)];
    EXPECT_EQ(mark.GetPosition(), (tarn::Point2DDouble{expected.x, expected.y}));
    EXPECT_EQ(mark.GetPhotograph(), stationAt(project, 3).GetPhotograph());
    if (expected.point < 0) {
      EXPECT_EQ(mark.GetObjectPoint(), nullptr);
    } else {
      ASSERT_NE(mark.GetObjectPoint(), nullptr);
      EXPECT_EQ(mark.GetObjectPoint()->GetNumber(), expected.point);
    }
  }
}

TEST_F(ColmapReaderTest, ObjectPointsHaveNumberPositionColourAndAreProcessed) {
  read(scene.text());
  ASSERT_EQ(project.GetObjectPoints().size(), 60);
  const tarn::ObjectPoint& point = pointAt(project, 17);
  const SyntheticScene::Point& expected = scene.points[17];
  EXPECT_EQ(point.GetNumber(), static_cast<long>(expected.id));
  EXPECT_TRUE(point.IsProcessed());
  tarn::Point3DRandom position;
  ASSERT_TRUE(point.GetApproximation(position));
  EXPECT_EQ(position.position(),
            tarn::Point3DDouble(expected.position[0], expected.position[1], expected.position[2]));
  ASSERT_NE(point.GetRGBTextureColor(), nullptr);
  EXPECT_EQ(point.GetRGBTextureColor()->red(), expected.colour[0]);
  EXPECT_EQ(point.GetRGBTextureColor()->green(), expected.colour[1]);
  EXPECT_EQ(point.GetRGBTextureColor()->blue(), expected.colour[2]);
}

TEST_F(ColmapReaderTest, APointsMarksComeInTheOrderOfItsTrack) {
  std::swap(scene.points[5].track[2], scene.points[5].track[9]);
  read(scene.binary());
  const auto& marks = pointAt(project, 5).GetMarkedPoints();
  ASSERT_EQ(marks.size(), 12u);
  for (std::size_t k = 0; k < marks.size(); ++k) {
    EXPECT_EQ(marks[k]->GetPhotograph()->GetNumber(),
              static_cast<int>(scene.points[5].track[k].image));
  }
}

TEST_F(ColmapReaderTest, AResidualIsMarkedMinusProjected) {
  read(scene.binary());
  const SyntheticScene::Image& image = scene.images[4];
  const auto& mark = at<tarn::MarkedPoint>(marksOf(stationAt(project, 4)), 8);
  const auto [x, y] = scene.projected(image, scene.points[7].position);
  tarn::Point2DDouble residual;
  ASSERT_TRUE(mark.GetResidual(residual));
  EXPECT_NEAR(residual.x, image.marks[8].x - x, 1e-9);
  EXPECT_NEAR(residual.y, image.marks[8].y - y, 1e-9);
  EXPECT_GT(std::abs(residual.x), 1e-3);
  EXPECT_FALSE(at<tarn::MarkedPoint>(marksOf(stationAt(project, 4)), 0).GetResidual(residual));
}

TEST_F(ColmapReaderTest, AMarkOfAPointBehindItsStationHasNoResidual) {
  for (double& component : scene.points[7].position) component *= 1000.0;
  read(scene.binary());
  int known = 0;
  tarn::Point2DDouble residual;
  for (const tarn::MarkedPoint* mark : pointAt(project, 7).GetMarkedPoints()) {
    known += mark->GetResidual(residual);
  }
  EXPECT_GT(known, 0);
  EXPECT_LT(known, 12);
}

TEST_F(ColmapReaderTest, BinaryAndTextGiveTheSameProject) {
  EXPECT_EQ(describedAfterReading(scene.binary()), describedAfterReading(scene.text()));
}

TEST_F(ColmapReaderTest, BinaryIsReadWhereBothFormsAreThere) {
  SyntheticScene other(12, 30);
  SyntheticScene::write(other.text(), folder.path());
  read(scene.binary());
  EXPECT_EQ(project.GetObjectPoints().size(), 60);
}

TEST_F(ColmapReaderTest, TextIsReadWhereTheBinaryFormIsNotComplete) {
  SyntheticScene::write({scene.binary()[0]}, folder.path());
  SyntheticScene other(12, 30);
  read(other.text());
  EXPECT_EQ(project.GetObjectPoints().size(), 30);
}

TEST_F(ColmapReaderTest, RigsAndFramesChangeNothing) {
  const std::string expected = describedAfterReading(scene.text());
  scene.withRigs = true;
  EXPECT_EQ(describedAfterReading(scene.text()), expected);
  EXPECT_EQ(describedAfterReading(scene.binary()), expected);
}

TEST_F(ColmapReaderTest, AFrameMayNameAnImageThatIsNotRegistered) {
  scene.withRigs = true;
  Files files = scene.text();
  files[4].second += "5000 103 1 0 0 0 0 0 0 1 CAMERA 3 77\n";
  read(files);
  EXPECT_EQ(project.GetCameraStations().size(), 12);
}

TEST_F(ColmapReaderTest, ASecondModelIsAddedToTheProject) {
  read(scene.binary());
  read(scene.binary());
  EXPECT_EQ(project.GetCameras().size(), 2);
  EXPECT_EQ(project.GetCameraStations().size(), 24);
  EXPECT_EQ(project.GetObjectPoints().size(), 120);
  EXPECT_EQ(stationAt(project, 12).GetCamera(1), &cameraAt(project, 1));
}

// Cameras

TEST_F(ColmapReaderTest, TheLongerSideOfAPictureIs36Millimetres) {
  read(scene.text());
  const tarn::Camera& camera = cameraAt(project, 0);
  double width = 0.0;
  double height = 0.0;
  camera.GetFormatSize(width, height);
  EXPECT_DOUBLE_EQ(width, 36.0);
  EXPECT_DOUBLE_EQ(height, 27.0);
  EXPECT_DOUBLE_EQ(camera.GetFocalLength(), 1500.0 * 36.0 / 1600.0);
  int columns = 0;
  int rows = 0;
  camera.GetImageSize(columns, rows);
  EXPECT_EQ(columns, 1600);
  EXPECT_EQ(rows, 1200);
  EXPECT_EQ(camera.GetPrincipalPoint(), (tarn::Point2DDouble{806.5, 595.25}));
  EXPECT_EQ(stationAt(project, 0).GetCamera(1), &camera);
}

TEST_F(ColmapReaderTest, AnUprightPictureIs36MillimetresHigh) {
  std::swap(scene.cameras[0].width, scene.cameras[0].height);
  read(scene.text());
  double width = 0.0;
  double height = 0.0;
  cameraAt(project, 0).GetFormatSize(width, height);
  EXPECT_DOUBLE_EQ(width, 27.0);
  EXPECT_DOUBLE_EQ(height, 36.0);
}

TEST_F(ColmapReaderTest, PixelsThatAreNotSquareChangeTheShorterSideOfTheFormat) {
  for (const bool upright : {false, true}) {
    tarn::Project read;
    SyntheticScene::Camera& camera = scene.cameras[0];
    camera.model = "PINHOLE";
    camera.width = upright ? 1200 : 1600;
    camera.height = upright ? 1600 : 1200;
    camera.parameters = {1500.0, 1250.0, 700.0, 650.0};
    SyntheticScene::write(scene.text(), folder.path());
    tarn::ColmapReader::Read(folder.path(), read);
    double width = 0.0;
    double height = 0.0;
    cameraAt(read, 0).GetFormatSize(width, height);
    EXPECT_DOUBLE_EQ(width, upright ? 36.0 / 1600.0 * 1200.0 * 1250.0 / 1500.0 : 36.0);
    EXPECT_DOUBLE_EQ(height, upright ? 36.0 : 36.0 / 1600.0 * 1200.0 * 1500.0 / 1250.0);
    EXPECT_NEAR(cameraAt(read, 0).focalLengthsInPixels().x, 1500.0, 1e-9);
    EXPECT_NEAR(cameraAt(read, 0).focalLengthsInPixels().y, 1250.0, 1e-9);
  }
}

struct ModelCase {
  const char* name;
  int number;
  int focalLengths;
  tarn::LensDistortion::Kind kind;
  int distortion;
};
void PrintTo(const ModelCase& model, std::ostream* out) { *out << model.name; }

class ColmapCameraModelTest : public ColmapReaderTest,
                              public ::testing::WithParamInterface<ModelCase> {};

TEST_P(ColmapCameraModelTest, IsReadByNameAndByNumber) {
  const ModelCase& model = GetParam();
  SyntheticScene::Camera& camera = scene.cameras[0];
  camera.model = model.name;
  camera.modelNumber = model.number;
  camera.parameters = {1500.0, 1510.0, 806.5, 595.25};
  if (model.focalLengths == 1) camera.parameters.erase(camera.parameters.begin());
  std::vector<double> distortion;
  for (int i = 0; i < model.distortion; ++i) distortion.push_back(0.001 * (i + 1));
  camera.parameters.insert(camera.parameters.end(), distortion.begin(), distortion.end());
  for (const bool binary : {false, true}) {
    const TemporaryFolder own;
    SyntheticScene::write(binary ? scene.binary() : scene.text(), own.path());
    tarn::Project read;
    tarn::ColmapReader::Read(own.path(), read);
    const tarn::Camera& got = cameraAt(read, 0);
    EXPECT_NEAR(got.focalLengthsInPixels().x, model.focalLengths == 1 ? 1510.0 : 1500.0, 1e-9);
    EXPECT_NEAR(got.focalLengthsInPixels().y, 1510.0, 1e-9);
    EXPECT_EQ(got.GetPrincipalPoint(), (tarn::Point2DDouble{806.5, 595.25}));
    EXPECT_EQ(got.GetLensDistortion().kind(), model.kind);
    for (int i = 0; i < tarn::LensDistortion::maximumParameters; ++i) {
      EXPECT_EQ(got.GetLensDistortion().parameters()[static_cast<std::size_t>(i)],
                i < model.distortion ? distortion[static_cast<std::size_t>(i)] : 0.0)
          << i;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, ColmapCameraModelTest,
    ::testing::Values(ModelCase{"SIMPLE_PINHOLE", 0, 1, tarn::LensDistortion::eNone, 0},
                      ModelCase{"PINHOLE", 1, 2, tarn::LensDistortion::eNone, 0},
                      ModelCase{"SIMPLE_RADIAL", 2, 1, tarn::LensDistortion::eRadial, 1},
                      ModelCase{"RADIAL", 3, 1, tarn::LensDistortion::eRadial, 2},
                      ModelCase{"OPENCV", 4, 2, tarn::LensDistortion::eOpenCV, 4},
                      ModelCase{"OPENCV_FISHEYE", 5, 2, tarn::LensDistortion::eFisheye, 4},
                      ModelCase{"FULL_OPENCV", 6, 2, tarn::LensDistortion::eFullOpenCV, 8},
                      ModelCase{"FOV", 7, 2, tarn::LensDistortion::eFieldOfView, 1},
                      ModelCase{"SIMPLE_RADIAL_FISHEYE", 8, 1, tarn::LensDistortion::eFisheye, 1},
                      ModelCase{"RADIAL_FISHEYE", 9, 1, tarn::LensDistortion::eFisheye, 2},
                      ModelCase{"THIN_PRISM_FISHEYE", 10, 2,
                                tarn::LensDistortion::eThinPrismFisheye, 8},
                      ModelCase{"RAD_TAN_THIN_PRISM_FISHEYE", 11, 2,
                                tarn::LensDistortion::eRadTanThinPrismFisheye, 12},
                      ModelCase{"SIMPLE_DIVISION", 12, 1, tarn::LensDistortion::eDivision, 1},
                      ModelCase{"DIVISION", 13, 2, tarn::LensDistortion::eDivision, 1},
                      ModelCase{"SIMPLE_FISHEYE", 14, 1, tarn::LensDistortion::eFisheye, 0},
                      ModelCase{"FISHEYE", 15, 2, tarn::LensDistortion::eFisheye, 0},
                      ModelCase{"EUCM", 16, 2, tarn::LensDistortion::eEnhancedUnified, 2}),
    [](const auto& info) { return std::string(info.param.name); });

// Covariances

TEST_F(ColmapReaderTest, CovariancesComeFromTheRaysAndThePooledResiduals) {
  // A point with one ray has no redundancy and must not count.
  scene.points[59].track.resize(1);
  for (std::size_t i = 1; i < 12; ++i) scene.images[i].marks[60].point = -1;
  read(scene.binary());
  double squares = 0.0;
  for (int i = 0; i < 59; ++i) {
    for (const tarn::MarkedPoint* mark : pointAt(project, i).GetMarkedPoints()) {
      tarn::Point2DDouble residual;
      ASSERT_TRUE(mark->GetResidual(residual));
      squares += residual.x * residual.x + residual.y * residual.y;
    }
  }
  const double unitVariance = squares / (2.0 * 59 * 12 - 3.0 * 59);
  // The noise is even between -0.5 and 0.5 pixels: variance 1/12. The points are the true
  // ones, so that the residuals are the noise itself, not made smaller by an adjustment.
  EXPECT_NEAR(squares / (2.0 * 59 * 12), 1.0 / 12.0, 0.01);
  for (const int i : {0, 31, 58}) {
    tarn::Point3DRandom position;
    pointAt(project, i).GetApproximation(position);
    tarn::PointCovariance normal;
    for (const tarn::MarkedPoint* mark : pointAt(project, i).GetMarkedPoints()) {
      const tarn::CameraStation& station = *mark->GetPhotograph()->GetCameraStation();
      normal.AddRay(*station.GetCamera(1), station.GetRotationMatrix(), station.GetPosition(),
                    position.position());
    }
    const tarn::Point3DRandom expected = normal.Result(position.position(), unitVariance);
    ASSERT_FALSE(position.X().varianceUnknown);
    EXPECT_NEAR(position.X().variance, expected.X().variance, 1e-9 * expected.X().variance);
    EXPECT_NEAR(position.Y().variance, expected.Y().variance, 1e-9 * expected.Y().variance);
    EXPECT_NEAR(position.Z().variance, expected.Z().variance, 1e-9 * expected.Z().variance);
    EXPECT_NEAR(position.covarianceXZ(), expected.covarianceXZ(), 1e-9 * expected.X().variance);
    EXPECT_GT(position.X().variance, 0.0);
  }
  tarn::Point3DRandom single;
  pointAt(project, 59).GetApproximation(single);
  EXPECT_TRUE(single.X().varianceUnknown);
  EXPECT_TRUE(single.Z().varianceUnknown);
}

TEST_F(ColmapReaderTest, VariancesAreUnknownWithoutTracks) {
  for (SyntheticScene::Point& point : scene.points) point.track.clear();
  for (SyntheticScene::Image& image : scene.images) image.marks.clear();
  for (const Files& files : {scene.text(), scene.binary()}) {
    const TemporaryFolder own;
    SyntheticScene::write(files, own.path());
    tarn::Project read;
    tarn::ColmapReader::Read(own.path(), read);
    ASSERT_EQ(read.GetObjectPoints().size(), 60);
    tarn::Point3DRandom position;
    pointAt(read, 3).GetApproximation(position);
    EXPECT_TRUE(position.X().varianceUnknown);
    EXPECT_EQ(marksOf(stationAt(read, 11)).size(), 0);
  }
}

// Text in all its forms

TEST_F(ColmapReaderTest, ADecimalCommaOfTheLocaleChangesNothing) {
  const Files files = scene.text();
  const std::string expected = describedAfterReading(files);
  SyntheticScene::write(files, folder.path());
  {
    const CommaLocale comma;
    tarn::ColmapReader::Read(folder.path(), project);
  }
  EXPECT_EQ(described(project), expected);
}

TEST_F(ColmapReaderTest, NumbersWithADecimalCommaAreRefused) {
  Files files = scene.text();
  files[0].second = replaced(files[0].second, "806.5", "806,5");
  const CommaLocale comma;
  EXPECT_THROW(read(files), tarn::ReadError);
}

TEST_F(ColmapReaderTest, LinesMayEndInCarriageReturnAndLineFeed) {
  scene.images[5].marks.resize(1);
  for (SyntheticScene::Point& point : scene.points) point.track.erase(point.track.begin() + 5);
  Files files = scene.text();
  const std::string expected = describedAfterReading(files);
  for (auto& [name, content] : files) content = replaced(content, "\n", "\r\n");
  EXPECT_EQ(describedAfterReading(files), expected);
}

TEST_F(ColmapReaderTest, FieldsMayBeSetApartByTabsAndSeveralBlanks) {
  for (SyntheticScene::Image& image : scene.images) {
    image.name = replaced(image.name, " ", "_");
  }
  Files files = scene.text();
  const std::string expected = describedAfterReading(files);
  for (auto& [name, content] : files) content = replaced(content, " ", " \t ");
  EXPECT_EQ(describedAfterReading(files), expected);
}

TEST_F(ColmapReaderTest, CommentsBlankLinesAndAByteOrderMarkAreSkipped) {
  Files files = scene.text();
  const std::string expected = describedAfterReading(files);
  for (auto& [name, content] : files) content = "\xEF\xBB\xBF" + content + "\n  \n# the end";
  EXPECT_EQ(describedAfterReading(files), expected);
}

TEST_F(ColmapReaderTest, AnImageWithoutMarksHasAnEmptyLine) {
  scene.images[5].marks.clear();
  for (SyntheticScene::Point& point : scene.points) point.track.erase(point.track.begin() + 5);
  read(scene.text());
  EXPECT_EQ(project.GetCameraStations().size(), 12);
  EXPECT_EQ(marksOf(stationAt(project, 5)).size(), 0);
  EXPECT_EQ(marksOf(stationAt(project, 6)).size(), 61);
}

TEST_F(ColmapReaderTest, TheLastImagesEmptyLineMayBeMissing) {
  scene.images[11].marks.clear();
  for (SyntheticScene::Point& point : scene.points) point.track.pop_back();
  Files files = scene.text();
  files[1].second.resize(files[1].second.size() - 2);
  read(files);
  EXPECT_EQ(project.GetCameraStations().size(), 12);
}

TEST_F(ColmapReaderTest, AModelMayHaveNoPoints) {
  scene.points.clear();
  for (SyntheticScene::Image& image : scene.images) image.marks.resize(1);
  for (const Files& files : {scene.text(), scene.binary()}) {
    const TemporaryFolder own;
    SyntheticScene::write(files, own.path());
    tarn::Project read;
    tarn::ColmapReader::Read(own.path(), read);
    EXPECT_EQ(read.GetCameraStations().size(), 12);
    EXPECT_EQ(read.GetObjectPoints().size(), 0);
  }
}

// Folders

TEST_F(ColmapReaderTest, TheModelIsFoundInTheUsualSubFolders) {
  for (const char* inside : {"", "/sparse", "/sparse/0", "/0"}) {
    const TemporaryFolder own;
    SyntheticScene::write(scene.binary(), own.path() + inside);
    EXPECT_TRUE(tarn::ColmapReader::IsModelFolder(own.path())) << inside;
    tarn::Project read;
    tarn::ColmapReader::Read(own.path(), read);
    EXPECT_EQ(read.GetCameraStations().size(), 12) << inside;
  }
}

TEST_F(ColmapReaderTest, AFolderWithoutAWholeModelIsNoModelFolder) {
  EXPECT_FALSE(tarn::ColmapReader::IsModelFolder(folder.path()));
  EXPECT_FALSE(tarn::ColmapReader::IsModelFolder(folder.file("missing")));
  SyntheticScene::write({scene.text()[0], scene.text()[1]}, folder.path());
  EXPECT_FALSE(tarn::ColmapReader::IsModelFolder(folder.path()));
}

TEST_F(ColmapReaderTest, PhotographsAreLookedForBesideTheModelItsParentAndInIt) {
  const std::map<std::string, std::string> expectedOf{{"sparse/0/images", "/sparse/0/images"},
                                                      {"images", "/images"},
                                                      {"sparse/images", "/sparse/images"}};
  for (const auto& [images, expected] : expectedOf) {
    const TemporaryFolder own;
    SyntheticScene::write(scene.binary(), own.path() + "/sparse/0");
    std::filesystem::create_directories(own.file(images));
    tarn::Project read;
    tarn::ColmapReader::Read(own.path(), read);
    EXPECT_EQ(stationAt(read, 0).GetPhotograph()->GetImage()->GetFileName()->str(),
              own.path() + expected + "/station 01.jpg");
  }
}

TEST_F(ColmapReaderTest, TheImageFolderCanBeStated) {
  SyntheticScene::write(scene.binary(), folder.path());
  std::filesystem::create_directories(folder.file("images"));
  tarn::ColmapReader::Read(folder.path(), project, {"/data/photographs", {}});
  EXPECT_EQ(stationAt(project, 0).GetPhotograph()->GetImage()->GetFileName()->str(),
            "/data/photographs/station 01.jpg");
}

TEST_F(ColmapReaderTest, AMissingOrUnreadablePhotographIsNoError) {
  folder.write("images/station 01.jpg", "this is no picture");
  read(scene.binary());
  EXPECT_EQ(project.GetCameraStations().size(), 12);
  EXPECT_FALSE(stationAt(project, 0).GetPhotograph()->GetImage()->Load());
  EXPECT_FALSE(stationAt(project, 1).GetPhotograph()->GetImage()->Load());
}

// Progress

TEST_F(ColmapReaderTest, EachStepIsReportedFromItsBeginToItsEnd) {
  SyntheticScene::write(scene.text(), folder.path());
  std::vector<std::string> steps;
  std::vector<double> values;
  tarn::ColmapReader::Read(folder.path(), project,
                           {"", [&](const char* step, double done) {
                              if (steps.empty() || steps.back() != step) {
                                EXPECT_EQ(done, 0.0);
                                EXPECT_TRUE(values.empty() || values.back() == 1.0) << step;
                                steps.emplace_back(step);
                              } else {
                                EXPECT_GT(done, values.back());
                              }
                              values.push_back(done);
                            }});
  EXPECT_THAT(steps, ElementsAre("Reading images", "Reading points", "Computing precision"));
  EXPECT_EQ(values.back(), 1.0);
  EXPECT_GT(values.size(), 20u);
}

TEST_F(ColmapReaderTest, AHandlerThatThrowsLeavesTheProjectAsItWas) {
  SyntheticScene::write(scene.binary(), folder.path());
  const auto cancelAtTheEnd = [](const char* step, double done) {
    if (std::string(step) == "Computing precision" && done == 1.0) throw std::string("cancelled");
  };
  EXPECT_THROW(tarn::ColmapReader::Read(folder.path(), project, {"", cancelAtTheEnd}), std::string);
  EXPECT_EQ(project.GetCameras().size(), 0);
  EXPECT_EQ(project.GetCameraStations().size(), 0);
  EXPECT_EQ(project.GetObjectPoints().size(), 0);
}
