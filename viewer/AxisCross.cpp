#include "viewer/AxisCross.h"

#include <Inventor/nodes/SoDepthBuffer.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoSwitch.h>

#include "nodes/lines/TarnOIAxisSeparator.h"
#include "viewer/ViewFraming.h"

#include <cmath>

namespace {

// The greatest of 1, 2 and 5 times a power of ten that is not above the bound.
double roundLength(double bound) {
  const double power = std::pow(10.0, std::floor(std::log10(bound)));
  for (const double factor : {5.0, 2.0}) {
    if (factor * power <= bound) return factor * power;
  }
  return power;
}

tarn::Point3DDouble originFor(const ViewFraming& framing) {
  const tarn::Point3DDouble centre = framing.objectExtents().GetCentre();
  return centre.length() <= framing.objectDiagonal() ? tarn::Point3DDouble() : centre;
}

}  // namespace

AxisCross::AxisCross(const ViewFraming& framing)
    : axisLength(roundLength(0.3 * framing.objectDiagonal())), axisSwitch(makeNode<SoSwitch>()) {
  const tarn::Point3DDouble origin = originFor(framing);
  points = {origin, origin + tarn::Point3DDouble(axisLength, 0.0, 0.0),
            origin + tarn::Point3DDouble(0.0, axisLength, 0.0),
            origin + tarn::Point3DDouble(0.0, 0.0, axisLength)};
}

AxisCross::~AxisCross() = default;

void AxisCross::show(bool on) {
  if (on && axisSwitch->getNumChildren() == 0) {
    auto* separator = new SoSeparator;
    axisSwitch->addChild(separator);
    auto* style = new SoDrawStyle;
    style->lineWidth = 3.0F;
    separator->addChild(style);
    // Seen through what is in front: the middle of an object is inside of it.
    auto* always = new SoDepthBuffer;
    always->function = SoDepthBuffer::ALWAYS;
    separator->addChild(always);
    auto* axes = new TarnOIAxisSeparator;
    separator->addChild(axes);
    auto [origin, x, y, z] = points;  // copies: they come back in the viewer frame
    axes->UpdateCoordinates(origin, x, y, z);
  }
  axisSwitch->whichChild = on ? SO_SWITCH_ALL : SO_SWITCH_NONE;
}

bool AxisCross::isShown() const { return axisSwitch->whichChild.getValue() == SO_SWITCH_ALL; }

void AxisCross::includeIn(ViewFraming& all) const {
  if (!isShown()) return;
  for (const tarn::Point3DDouble& point : points) all.include(point);
}
