#pragma once

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoScale.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/Extents.h"
#include "host/model/Photograph.h"
#include "nodes/cameras/TarnOICameraStationSeparator.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIText2.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <string>
#include <vector>

/// The node with its members in sight.
struct OpenStationSeparator : TarnOICameraStationSeparator {
  using TarnOICameraStationSeparator::frustumCoords;
  using TarnOICameraStationSeparator::frustumLines;
  using TarnOICameraStationSeparator::frustumOnlyWhenSelected;
  using TarnOICameraStationSeparator::frustumScale;
  using TarnOICameraStationSeparator::frustumSwitch;
  using TarnOICameraStationSeparator::frustumWhichChild;
  using TarnOICameraStationSeparator::isSelectedFlag;
  using TarnOICameraStationSeparator::labelText;
  using TarnOICameraStationSeparator::labelTranslation;
  using TarnOICameraStationSeparator::scaleNode;
  using TarnOICameraStationSeparator::searchDict;
  using TarnOICameraStationSeparator::showImagePlane;
  using TarnOICameraStationSeparator::showSymbolWithImage;
  using TarnOICameraStationSeparator::UpdateFrustum;
};

/// One oriented station with a camera and a photograph, turned about all three axes, and the
/// detailed symbol not made yet.
class StationFixture : public TarnTest {
protected:
  StationFixture() {
    forgetDetailedSymbol();
    camera.SetFocalLength(35.5);
    camera.SetFormatSize(36.1, 24.1);
    photograph.SetNumber(17);
    station.SetCamera(&camera);
    station.SetPhotograph(&photograph);
    station.SetOrientation(position, rotation);
  }
  ~StationFixture() override { forgetDetailedSymbol(); }

  static void forgetDetailedSymbol() {
    TarnOICameraStationSeparator::CleanUpInitClass();
    TarnOICameraStationSeparator::initClass();
  }

  // The rows of a rotation by the angles a about x, then b about y, then c about z.
  static tarn::MatrixDouble turned(double a, double b, double c) {
    const double rows[3][3] = {{std::cos(b) * std::cos(c), -std::cos(b) * std::sin(c), std::sin(b)},
                               {std::cos(a) * std::sin(c) + std::sin(a) * std::sin(b) * std::cos(c),
                                std::cos(a) * std::cos(c) - std::sin(a) * std::sin(b) * std::sin(c),
                                -std::sin(a) * std::cos(b)},
                               {std::sin(a) * std::sin(c) - std::cos(a) * std::sin(b) * std::cos(c),
                                std::sin(a) * std::cos(c) + std::cos(a) * std::sin(b) * std::sin(c),
                                std::cos(a) * std::cos(b)}};
    tarn::MatrixDouble result(3, 3);
    for (int i = 1; i <= 3; ++i) {
      for (int j = 1; j <= 3; ++j) result(i, j) = rows[i - 1][j - 1];
    }
    return result;
  }

  NodeRef<OpenStationSeparator> built(int showImagePlane = 0, int showSymbolWithImage = 0,
                                      tarn::Extents* box = nullptr) {
    auto node = makeNode<OpenStationSeparator>();
    node->SetCameraStation(&station, &dictionary, scale.get(), showImagePlane, showSymbolWithImage,
                           box);
    return node;
  }

  /// The names of the children's types, in order.
  static std::vector<std::string> typesOf(const SoGroup* group) {
    std::vector<std::string> names;
    for (int i = 0; i < group->getNumChildren(); ++i) {
      names.emplace_back(group->getChild(i)->getTypeId().getName().getString());
    }
    return names;
  }

  template <typename Node>
  static Node* childAs(const SoGroup* group, int index) {
    if (index >= group->getNumChildren()) return nullptr;
    SoNode* child = group->getChild(index);
    return child->isOfType(Node::getClassTypeId()) ? static_cast<Node*>(child) : nullptr;
  }

  static constexpr const char* viewerSection = "ProjectViewer(3D_Viewer)";
  const tarn::Point3DDouble position{100.5, -40.25, 12.75};
  const tarn::MatrixDouble rotation = turned(0.7, -0.4, 1.9);
  tarn::Camera camera;
  tarn::Photograph photograph;
  tarn::CameraStation station;
  tarn::Extents extents{{80.0, 10.0, -20.0}, {90.0, 30.0, 4.0}};
  NodeRef<SoScale> scale = makeNode<SoScale>();
};

const std::vector<std::string> detailedSymbolTypes = {
    "Material",       "Scale",       "Rotation",       "Rotation",      "Translation",
    "ShapeHints",     "Coordinate3", "IndexedFaceSet", "Material",      "Coordinate3",
    "IndexedFaceSet", "Material",    "Coordinate3",    "IndexedFaceSet"};
const std::vector<std::string> boxSymbolTypes = {"ShapeHints",  "Material", "Cube",     "Material",
                                                 "Translation", "Rotation", "Cylinder", "Material",
                                                 "Translation", "Cylinder"};
const std::vector<std::string> sphereSymbolTypes = {
    "ShapeHints", "Material", "Sphere",   "Material", "Rotation", "Cylinder",
    "Material",   "Rotation", "Cylinder", "Material", "Rotation", "Cylinder"};
