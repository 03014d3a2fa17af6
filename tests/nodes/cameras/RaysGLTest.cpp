#include <Inventor/nodes/SoMaterial.h>

#include "nodes/cameras/TarnOICameraRaysSeparator.h"
#include "nodes/cameras/TarnOIPointRaysSeparator.h"
#include "tests/nodes/cameras/RaysFixture.h"
#include "tests/support/Baseline.h"
#include "tests/support/FrontView.h"
#include "viewer/OffscreenRenderer.h"

/// Draws rays as seen from the front (along the model's y): 20 units wide, ten pixels a unit,
/// the view offset in the middle of the picture.
class RaysGLTest : public RaysFixture {
protected:
  // Another renderer may draw a line one pixel further.
  static constexpr Baseline::Tolerance edges{255, 0.1};

  RaysGLTest() {
    // Stations at the lower corners, points above.
    stand(stations[0], {-8.0, -5.0, -8.0});
    stand(stations[1], {8.0, -5.0, -8.0});
    place(points[0], viewOffset + tarn::Point3DDouble(-4.0, 2.0, 6.0));
    place(points[1], viewOffset + tarn::Point3DDouble(5.0, 1.0, 8.0));
    for (tarn::ObjectPoint& point : points) {
      for (tarn::Photograph& photograph : photographs) mark(point, photograph);
    }
  }
  ~RaysGLTest() override { scene.reset(); }  // ahead of the objects

  static void stand(tarn::CameraStation& station, const tarn::Point3DDouble& from) {
    station.SetOrientation(viewOffset + from, tarn::MatrixDouble::Identity(3));
  }

  template <typename Node, typename Object>
  void add(Object& object, const SbColor& colour) {
    auto* node = new Node;
    scene->addChild(node);
    node->SetRays(&object, &dictionary);
    auto* material = new SoMaterial;
    material->diffuseColor = colour;
    node->Highlight(material, 1);
  }

  void expectPicture(const std::string& name) {
    OffscreenRenderer renderer(200, 200);
    Baseline::expectMatch(renderer.render(scene.get()), name, edges);
  }

  NodeRef<SoSeparator> scene = frontView(20.0F);
};

TEST_F(RaysGLTest, RaysOfAPhotographFanOutFromItsStation) {
  add<TarnOICameraRaysSeparator>(photographs[0], SbColor(1.0F, 0.8F, 0.2F));
  expectPicture("rays_of_a_photograph");
}

TEST_F(RaysGLTest, RaysOfAPointMeetItsStations) {
  add<TarnOIPointRaysSeparator>(points[1], SbColor(0.3F, 0.9F, 1.0F));
  expectPicture("rays_of_a_point");
}
