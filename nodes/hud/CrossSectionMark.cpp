#include "nodes/hud/CrossSectionMark.h"

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/general/Preferences.h"
#include "nodes/framework/SceneColor.h"

#include <algorithm>
#include <cmath>

namespace {

// Where `coordinates` and `lines` stand in the separator, for copies.
constexpr int coordinatesIndex = 2;
constexpr int linesIndex = 3;

// The range -1 to 1 of `size` pixels. The division is one of floats, the rest of doubles.
float normalised(int pixel, int size) {
  const float part = static_cast<float>(pixel) / static_cast<float>(size);
  return static_cast<float>(2.0 * static_cast<double>(part) - 1.0);
}

SbVec3f normalised(int px, int py, int width, int height) {
  return {normalised(px, width), normalised(py, height), 0.0F};
}

// The second point, turned about the first to the nearest multiple of 45 degrees. A
// diagonal is as long as the smaller of the two signed differences, whatever its sign: hosts
// rely on it.
SbVec3f snapped(const SbVec3f& first, const SbVec3f& second) {
  const float dx = second[0] - first[0];
  const float dy = second[1] - first[1];
  double degrees = static_cast<double>(std::atan2(dy, dx)) * 57.29577951308232;
  if (degrees < 0.0) degrees += 360.0;
  const float d = std::abs(std::min(dx, dy));
  switch (45 * static_cast<int>(degrees / 45.0 + 0.5)) {
    case 45:
      return {first[0] + d, first[1] + d, 0.0F};
    case 90:
    case 270:
      return {first[0], second[1], 0.0F};
    case 135:
      return {first[0] - d, first[1] + d, 0.0F};
    case 225:
      return {first[0] - d, first[1] - d, 0.0F};
    case 315:
      return {first[0] + d, first[1] - d, 0.0F};
    default:  // 0, 180 and, from 337.5 degrees on, 360
      return {second[0], first[1], 0.0F};
  }
}

}  // namespace

void CrossSectionMark::build(SoGroup& hud) {
  overlay = makeNode<SoSwitch>();
  auto separator = makeNode<SoSeparator>();
  auto camera = makeNode<SoOrthographicCamera>();
  camera->viewportMapping.setValue(SoCamera::LEAVE_ALONE);
  auto material = makeNode<SoMaterial>();
  material->diffuseColor.setValue(SceneColor::from(tarn::gPref->GetPreference(
      "CrossSectionColor(RRRGGGBBB_0-255)", tarn::Colour(200, 10, 10), "DenseStereo")));
  coordinates = makeNode<SoCoordinate3>();
  coordinates->point.setNum(0);
  lines = makeNode<SoLineSet>();
  lines->numVertices.setValue(2);
  separator->addChild(camera.get());
  separator->addChild(material.get());
  separator->addChild(coordinates.get());
  separator->addChild(lines.get());
  overlay->addChild(separator.get());
  hud.addChild(overlay.get());
}

void CrossSectionMark::takeOver(const CrossSectionMark& other, const SoGroup& copy) {
  *this = other;
  overlay = NodeRef(static_cast<SoSwitch*>(copy.getChild(0)));
  const auto* separator = static_cast<SoGroup*>(overlay->getChild(0));
  coordinates = NodeRef(static_cast<SoCoordinate3*>(separator->getChild(coordinatesIndex)));
  lines = NodeRef(static_cast<SoLineSet*>(separator->getChild(linesIndex)));
}

void CrossSectionMark::setFirst(int px, int py, int width, int height) {
  firstPoint = normalised(px, py, width, height);
  firstIsSet = true;
}

void CrossSectionMark::setSecond(int px, int py, int width, int height, bool snap) {
  secondPoint = normalised(px, py, width, height);
  if (snap) secondPoint = snapped(firstPoint, secondPoint);
  if (secondPoint == firstPoint) {
    secondPoint[0] = static_cast<float>(static_cast<double>(secondPoint[0]) + 0.0001);
  }
}

void CrossSectionMark::setVertices(std::span<const SbVec3f> vertices) {
  const int count = static_cast<int>(vertices.size());
  coordinates->point.setNum(count);
  coordinates->point.setValues(0, count, vertices.data());
}

void CrossSectionMark::setLineLength(int vertices) { lines->numVertices.setValue(vertices); }

void CrossSectionMark::show() { overlay->whichChild.setValue(SO_SWITCH_ALL); }

void CrossSectionMark::hide() { overlay->whichChild.setValue(SO_SWITCH_NONE); }
