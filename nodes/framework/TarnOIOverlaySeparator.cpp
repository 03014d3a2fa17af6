#include "nodes/framework/TarnOIOverlaySeparator.h"

#include <Inventor/nodes/SoOrthographicCamera.h>

TARNOI_NODE_SOURCE(TarnOIOverlaySeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIOverlaySeparator);

TarnOIOverlaySeparator::TarnOIOverlaySeparator(float x, float y, float z)
    : TarnOIOverlaySeparator() {
  auto* camera = new SoOrthographicCamera;
  camera->position.setValue(x, y, z);
  camera->viewportMapping.setValue(SoCamera::LEAVE_ALONE);
  addChild(camera);
}

TarnOIOverlaySeparator::TarnOIOverlaySeparator(const TarnOIOverlaySeparator& other)
    : TarnOIOverlaySeparator() {
  *this = other;
}

TarnOIOverlaySeparator& TarnOIOverlaySeparator::operator=(const TarnOIOverlaySeparator& other) =
    default;

TarnOIOverlaySeparator::TarnOIOverlaySeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIOverlaySeparator::~TarnOIOverlaySeparator() = default;
