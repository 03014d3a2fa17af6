#pragma once

#include <Inventor/SbMatrix.h>
#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoCallbackAction.h>
#include <Inventor/nodes/SoCallback.h>
#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>

#include "host/general/ThreeDViewOffset.h"
#include "host/model/Extents.h"
#include "host/model/Plane3D.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/hud/TarnOIDSMCutterHUD.h"
#include "nodes/hud/TarnOIDSMProfileHUD.h"
#include "tests/support/TarnTest.h"

#include <memory>
#include <string>
#include <vector>

/// The children of a node with a mark.
struct MarkChildren {
  explicit MarkChildren(const SoGroup& hud)
      : overlay(static_cast<SoSwitch*>(hud.getChild(0))),
        separator(static_cast<SoSeparator*>(overlay->getChild(0))),
        camera(separator->getChild(0)),
        material(separator->getChild(1)),
        coordinates(static_cast<SoCoordinate3*>(separator->getChild(2))),
        lines(static_cast<SoLineSet*>(separator->getChild(3))) {}

  std::vector<SbVec3f> vertices() const {
    const SbVec3f* values = coordinates->point.getValues(0);
    return {values, values + coordinates->point.getNum()};
  }

  SoSwitch* overlay;
  SoSeparator* separator;
  SoNode* camera;
  SoNode* material;
  SoCoordinate3* coordinates;
  SoLineSet* lines;
};

/// A way to look at the model: a camera, below a matrix, in a viewport.
struct CrossSectionView {
  std::string name;
  bool perspective = true;
  SoCamera::ViewportMapping mapping = SoCamera::ADJUST_CAMERA;
  short width = 800;
  short height = 600;
  bool moved = false;  ///< whether a matrix stands above the camera
};

inline void PrintTo(const CrossSectionView& view, std::ostream* stream) { *stream << view.name; }

/// Looks at a model of 200 units some millions of units from the origin.
class ViewedModel {
public:
  explicit ViewedModel(const CrossSectionView& view)
      : viewport(view.width, view.height), matrix(SbMatrix::identity()) {
    tarn::gThreeDViewOffset = centre;
    if (view.perspective) {
      auto perspective = makeNode<SoPerspectiveCamera>();
      perspective->heightAngle.setValue(0.7F);
      camera = NodeRef<SoCamera>(perspective.get());
    } else {
      auto orthographic = makeNode<SoOrthographicCamera>();
      orthographic->height.setValue(150.0F);
      camera = NodeRef<SoCamera>(orthographic.get());
    }
    camera->viewportMapping.setValue(view.mapping);
    // A camera whose viewport is cropped draws into all of it only in its own proportions.
    const bool cropped =
        view.mapping != SoCamera::ADJUST_CAMERA && view.mapping != SoCamera::LEAVE_ALONE;
    camera->aspectRatio.setValue(cropped ? viewport.getViewportAspectRatio() : 1.25F);
    camera->position.setValue(60.0F, 130.0F, 210.0F);
    camera->pointAt(SbVec3f(5.0F, -10.0F, 20.0F), SbVec3f(0.1F, 1.0F, 0.0F));
    camera->nearDistance.setValue(10.0F);
    camera->farDistance.setValue(900.0F);
    if (view.moved) {
      matrix.setTransform(SbVec3f(7.0F, -20.0F, 13.0F), SbRotation(SbVec3f(1, 2, 3), 0.4F),
                          SbVec3f(1.5F, 1.5F, 1.5F));
    }
  }

  /// The model's point that Coin draws at a point of the screen (normalised device
  /// coordinates), `depth` (-1 to 1) of the way into the picture.
  tarn::Point3DDouble drawnAt(float x, float y, float depth) const {
    auto scene = makeNode<SoSeparator>();
    auto probe = makeNode<SoCallback>();
    SbMatrix screenFromViewer;
    probe->setCallback(
        [](void* result, SoAction* action) {
          if (!action->isOfType(SoCallbackAction::getClassTypeId())) return;
          const auto* state = static_cast<SoCallbackAction*>(action);
          SbMatrix& found = *static_cast<SbMatrix*>(result);
          found = state->getViewingMatrix();
          found.multRight(state->getProjectionMatrix());
        },
        &screenFromViewer);
    scene->addChild(camera.get());
    scene->addChild(probe.get());
    SoCallbackAction action(viewport);
    action.apply(scene.get());
    SbVec3f point(x, y, depth);
    screenFromViewer.inverse().multVecMatrix(point, point);
    matrix.multVecMatrix(point, point);
    return ViewerFrame::toModel(point);
  }

  const tarn::Point3DDouble centre{4321098.5, 5678901.25, 2345.75};
  NodeRef<SoCamera> camera;
  tarn::Extents extents{centre - tarn::Point3DDouble(100.0, 90.0, 30.0),
                        centre + tarn::Point3DDouble(100.0, 90.0, 30.0)};
  SbViewportRegion viewport;
  SbMatrix matrix;
};

inline std::vector<CrossSectionView> crossSectionViews() {
  using Mapping = SoCamera::ViewportMapping;
  const std::vector<std::pair<std::string, Mapping>> mappings = {
      {"Adjusted", SoCamera::ADJUST_CAMERA},
      {"LeftAlone", SoCamera::LEAVE_ALONE},
      {"Filled", SoCamera::CROP_VIEWPORT_FILL_FRAME},
      {"Framed", SoCamera::CROP_VIEWPORT_LINE_FRAME},
      {"Cropped", SoCamera::CROP_VIEWPORT_NO_FRAME}};
  std::vector<CrossSectionView> views;
  for (const bool perspective : {true, false}) {
    for (const auto& [name, mapping] : mappings) {
      for (const auto& [shape, width, height] :
           {std::tuple("Wide", short{900}, short{500}), std::tuple("Tall", short{400}, short{700}),
            std::tuple("Square", short{600}, short{600})}) {
        for (const bool moved : {false, true}) {
          views.push_back({(perspective ? "Perspective" : "Orthographic") + name + shape +
                               (moved ? "Moved" : ""),
                           perspective, mapping, width, height, moved});
        }
      }
    }
  }
  return views;
}
