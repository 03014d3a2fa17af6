#pragma once

#include "host/model/Camera.h"
#include "host/model/MatrixDouble.h"
#include "host/model/Point3DRandom.h"
#include "io/ColmapModel.h"
#include "io/ReadProgress.h"

#include <string>
#include <vector>

namespace tarn {

class Project;

/// What a checked COLMAP model means for a project: computed first, added afterwards, so
/// that whatever can fail has failed before the project changes. The model has to
/// outlive this object.
class ColmapProject {
public:
  ColmapProject(const ColmapModel& model, ReadProgress& progress);

  void addTo(Project& project, const std::string& imageFolder) const;

private:
  struct Residual {
    Point2DDouble pixels;
    bool known = false;
  };
  struct Station {
    const Camera* camera = nullptr;
    MatrixDouble rotation;
    Point3DDouble position;
  };

  void computeStations();
  void computePoints(ReadProgress& progress);

  const ColmapModel& _model;
  std::vector<Camera> _cameras;        // as ColmapModel::cameras
  std::vector<Station> _stations;      // as ColmapModel::images
  std::vector<Residual> _residuals;    // as ColmapModel::marks
  std::vector<Point3DRandom> _points;  // as ColmapModel::points
};

/// The camera of a COLMAP record: the longer side of the picture is 36 mm.
Camera colmapCamera(const ColmapCamera& record);

}  // namespace tarn
