// The cloud's work done by OpenSceneGraph, drawn into the same kind of picture as ours.
#include <GL/gl.h>
#include <osg/Geode>
#include <osg/Geometry>
#include <osgViewer/Viewer>

#include "bench/PlainRamp.h"
#include "bench/dense/CloudWork.h"
#include "viewer/Framebuffer.h"
#include "viewer/HeadlessContext.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace {

class OsgCloud : public bench::CloudWork {
protected:
  void build() override {
    geometry = new osg::Geometry;
    geometry->setUseDisplayList(false);
    geometry->setUseVertexBufferObjects(true);
    osg::ref_ptr<osg::Vec3Array> vertices = new osg::Vec3Array(static_cast<unsigned>(count()));
    const float* point = positions();
    for (int i = 0; i < count(); ++i, point += 3) {
      (*vertices)[static_cast<std::size_t>(i)].set(point[0], point[2], -point[1]);
    }
    geometry->setVertexArray(vertices);
    geometry->addPrimitiveSet(new osg::DrawArrays(GL_POINTS, 0, count()));
  }

  // The library has no ramp of its own: this is our floor's, into the smallest colours there are.
  void colour() override {
    osg::ref_ptr<osg::Vec4ubArray> colours =
        new osg::Vec4ubArray(osg::Array::BIND_PER_VERTEX, static_cast<unsigned>(count()));
    colours->setNormalize(true);
    bench::PlainRamp ramp(0, 1);
    for (int first = 0; first < count(); first += bench::PlainRamp::strip) {
      const int length = std::min(bench::PlainRamp::strip, count() - first);
      ramp.next(positions() + 3 * static_cast<std::size_t>(first), length);
      for (int i = 0; i < length; ++i) {
        const auto n = static_cast<std::size_t>(i);
        const auto byte = [](std::int32_t value) { return static_cast<unsigned char>(value); };
        (*colours)[static_cast<std::size_t>(first) + n].set(byte(ramp.red[n]), byte(ramp.green[n]),
                                                            byte(ramp.blue[n]), 255);
      }
    }
    geometry->setColorArray(colours, osg::Array::BIND_PER_VERTEX);
  }

  void drop() override { geometry = nullptr; }

  bool open() override {
    context.emplace();
    framebuffer.emplace(bench::View::width, bench::View::height);
    viewer = new osgViewer::Viewer;
    viewer->setThreadingModel(osgViewer::ViewerBase::SingleThreaded);
    osgViewer::GraphicsWindow* window =
        viewer->setUpViewerAsEmbeddedInWindow(0, 0, bench::View::width, bench::View::height);
    window->setDefaultFboId(framebuffer->name());
    osg::Camera* camera = viewer->getCamera();
    camera->setClearColor(osg::Vec4(0, 0, 0, 1));
    camera->setComputeNearFarMode(osg::CullSettings::DO_NOT_COMPUTE_NEAR_FAR);
    camera->setProjectionMatrixAsPerspective(
        bench::View::verticalAngleDegrees,
        static_cast<double>(bench::View::width) / bench::View::height, bench::View::nearDistance,
        bench::View::farDistance);
    // Else a cloud that is small in the picture would not be drawn.
    camera->setCullingMode(camera->getCullingMode() & ~osg::CullSettings::SMALL_FEATURE_CULLING);
    root = new osg::Group;
    viewer->setSceneData(root);
    viewer->setReleaseContextAtEndOfFrameHint(false);
    viewer->realize();
    return true;
  }

  void draw(const bench::View& view) override {
    if (geometry && root->getNumChildren() == 0) {
      osg::ref_ptr<osg::Geode> geode = new osg::Geode;
      geode->addDrawable(geometry);
      geode->getOrCreateStateSet()->setMode(GL_LIGHTING, osg::StateAttribute::OFF);
      root->addChild(geode);
    }
    framebuffer->bind();
    viewer->getCamera()->setViewMatrix(
        osg::Matrix::translate(-view.x, -view.y, -view.z) *
        osg::Matrix::rotate(osg::DegreesToRadians(view.downDegrees), osg::Vec3f(1, 0, 0)));
    viewer->frame();
    glFinish();
  }

private:
  std::optional<HeadlessContext> context;
  std::optional<Framebuffer> framebuffer;
  osg::ref_ptr<osg::Geometry> geometry;
  osg::ref_ptr<osg::Group> root;
  osg::ref_ptr<osgViewer::Viewer> viewer;
};

}  // namespace

int main(int argc, char** argv) { return OsgCloud().run(argc, argv); }
