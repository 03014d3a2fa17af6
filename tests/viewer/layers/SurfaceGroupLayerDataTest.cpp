#include "viewer/layers/SurfaceGroupLayer.h"

#include "host/model/Project.h"
#include "io/ColmapReader.h"
#include "tests/support/TarnTest.h"
#include "viewer/ProjectFile.h"
#include "viewer/StationSurface.h"
#include "viewer/layers/SceneContext.h"

#include <string>

class SurfaceGroupLayerDataTest : public TarnTest {};

// Another photograph is best for all of its triangles; some of its points lie behind that one.
TEST_F(SurfaceGroupLayerDataTest,
       AStationOfLundWhoseSurfaceHasAnothersPictureIsShownWithoutAReport) {
  tarn::Project project;
  tarn::ColmapReader::Read(std::string(dataFolder()) + "/lund/sparse", project);
  SceneContext context{{}};
  const tarn::CameraStation& station = ProjectFile::findStation(project, "21.jpg");
  tarn::SurfaceGroup group;
  StationSurface::fill(group, station, *project.GetPhotoCollection());
  auto* first = static_cast<tarn::SurfaceElement*>(group.GetSelsCollection(0)->at(0));
  ASSERT_NE(project.GetPhotoCollection()->GetBestFacePhoto(first), station.GetPhotograph());
  const SurfaceGroupLayer layer(project, station, context);
  EXPECT_EQ(layer.note(), "");
}
