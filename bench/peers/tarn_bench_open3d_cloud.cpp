// The cloud's work done by Open3D. Its window needs an X server.

#include <open3d/geometry/PointCloud.h>
#include <open3d/utility/Logging.h>
#include <open3d/visualization/utility/ColorMap.h>
#include <open3d/visualization/visualizer/Visualizer.h>

#include "bench/dense/CloudWork.h"

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace {

class Open3dCloud : public bench::CloudWork {
protected:
  void build() override {
    cloud = std::make_shared<open3d::geometry::PointCloud>();
    cloud->points_.resize(static_cast<std::size_t>(count()));
    const float* point = positions();
    for (int i = 0; i < count(); ++i, point += 3) {
      cloud->points_[static_cast<std::size_t>(i)] = Eigen::Vector3d(point[0], point[2], -point[1]);
    }
  }

  void colour() override {
    const open3d::visualization::ColorMapJet ramp;
    cloud->colors_.resize(static_cast<std::size_t>(count()));
    const float* point = positions();
    for (int i = 0; i < count(); ++i, point += 3) {
      cloud->colors_[static_cast<std::size_t>(i)] = ramp.GetColor(static_cast<double>(point[2]));
    }
  }

  void drop() override { cloud.reset(); }

  bool open() override {
    if (!std::getenv("DISPLAY")) return false;
    if (!window.CreateVisualizerWindow("cloud", bench::View::width, bench::View::height, 0, 0)) {
      return false;
    }
    open3d::visualization::RenderOption& option = window.GetRenderOption();
    option.point_size_ = 1;
    option.background_color_ = Eigen::Vector3d(0, 0, 0);
    option.light_on_ = false;
    option.point_color_option_ = open3d::visualization::RenderOption::PointColorOption::Color;
    return true;
  }

  void draw(const bench::View&) override {
    if (cloud && !shown) {
      window.AddGeometry(cloud);
      shown = true;
    }
    // It has a camera of its own, which sees the whole cloud; a little further for each frame.
    if (shown) window.GetViewControl().CameraLocalTranslate(0, 0.001, 0);
    window.UpdateRender();
    window.PollEvents();
    glFinish();
  }

private:
  std::shared_ptr<open3d::geometry::PointCloud> cloud;
  open3d::visualization::Visualizer window;
  bool shown = false;
};

}  // namespace

int main(int argc, char** argv) {
  open3d::utility::SetVerbosityLevel(open3d::utility::VerbosityLevel::Error);
  return Open3dCloud().run(argc, argv);
}
