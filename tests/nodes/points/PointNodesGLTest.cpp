// How the point nodes beside the object point look: as points, as spheres, with labels.
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>

#include "tests/nodes/points/PointNodeCases.h"
#include "tests/support/Baseline.h"
#include "tests/support/FrontView.h"
#include "viewer/OffscreenRenderer.h"

/// Draws a row of nodes as seen from the front (along the model's y): 16 units wide, 20 pixels
/// a unit, the view offset in the middle of the picture.
class PointNodesGLTest : public TarnTest {
protected:
  // Another renderer may draw a round point or the edge of a sphere one pixel further.
  static constexpr Baseline::Tolerance edges{255, 0.1};

  PointNodesGLTest() {
    auto* style = new SoDrawStyle;
    style->pointSize = 9.0F;
    scene->addChild(style);
    from.SetNumber(7);
    imported.SetIDNumber(4);
    imported.SetName("P4");
  }
  ~PointNodesGLTest() override { scene.reset(); }  // ahead of the objects

  void light() {
    auto* model = new SoLightModel;
    model->model = SoLightModel::PHONG;
    scene->addChild(model);
    auto* light = new SoDirectionalLight;
    light->direction.setValue(0.4F, -0.5F, -1.0F);
    scene->addChild(light);
  }

  /// Adds a node, `right` and `up` of the middle, in a colour of its own.
  template <typename Case>
  typename Case::Node* add(typename Case::Object& object, double right, double up,
                           const SbColor& colour, float sphereSize = 0.0F) {
    auto* node = new typename Case::Node;
    scene->addChild(node);
    // Nearer than the middle, by what must not change the place.
    Case::place(object, viewOffset + tarn::Point3DDouble(right, -3.0, up));
    if constexpr (requires { node->SetSphereSize(sphereSize); }) node->SetSphereSize(sphereSize);
    Case::set(*node, &object, &dictionary);
    auto* material = new SoMaterial;
    material->diffuseColor = colour;
    node->Highlight(material, 1);
    return node;
  }

  void expectPicture(const std::string& name) {
    OffscreenRenderer renderer(320, 100);
    renderer.setBackgroundColor(SbColor(0.2F, 0.25F, 0.3F));
    Baseline::expectMatch(renderer.render(scene.get()), name, edges);
  }

  const SbColor red{1.0F, 0.35F, 0.3F};
  const SbColor yellow{1.0F, 0.9F, 0.3F};
  const SbColor green{0.4F, 0.9F, 0.4F};
  const SbColor cyan{0.35F, 0.9F, 0.95F};
  const SbColor violet{0.8F, 0.55F, 1.0F};

  tarn::ObjectPoint from;
  tarn::OffsetPoint offset;
  tarn::CheckPoint check;
  tarn::ThreeDPointFromTarnObject derived;
  tarn::ImportedPoint imported;
  tarn::AffineObjectNPoint affine;
  NodeRef<SoSeparator> scene = frontView(5.0F);
};

TEST_F(PointNodesGLTest, EachKindIsAPointAtItsPlace) {
  add<OffsetPointCase>(offset, -6, 1, red);
  add<CheckPointCase>(check, -3, -1, yellow);
  add<ThreeDPointCase>(derived, 0, 0, green);
  add<ImportedPointCase>(imported, 3, -1, cyan);
  add<AffineObjectCase>(affine, 6, 1, violet);
  expectPicture("points_as_points");
}

TEST_F(PointNodesGLTest, ImportedPointsAndAffineObjectsAreSpheresOfTheirSize) {
  light();
  add<ImportedPointCase>(imported, -3, 0, cyan, 1.0F);
  add<AffineObjectCase>(affine, 3, 0, violet, 2.0F);
  expectPicture("points_as_spheres");
}

TEST_F(PointNodesGLTest, LabelsBeginAtTheirPoints) {
  auto* offsetNode = add<OffsetPointCase>(offset, -6, 0, red);
  offset.SetOffset(&from, {});
  offsetNode->UpdateTextLable(1, 0);
  auto* importedNode = add<ImportedPointCase>(imported, 2, 0, cyan);
  importedNode->UpdateTextLable(1, 0);
  expectPicture("points_with_labels");
}
