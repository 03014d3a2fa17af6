#include "nodes/framework/TarnOIOrthographicCamera.h"

#include <Inventor/SbViewVolume.h>

TARNOI_NODE_SOURCE(TarnOIOrthographicCamera, SoOrthographicCamera);

void TarnOIOrthographicCamera::initClass() {
  registration.init(&TarnOIOrthographicCamera::atexit_cleanup);
}

TarnOIOrthographicCamera::TarnOIOrthographicCamera() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIOrthographicCamera::TarnOIOrthographicCamera(const TarnOIOrthographicCamera& other)
    : TarnOIOrthographicCamera() {
  *this = other;
}

TarnOIOrthographicCamera& TarnOIOrthographicCamera::operator=(
    const TarnOIOrthographicCamera& other) {
  FrontRectangle::operator=(other);
  return *this;
}

TarnOIOrthographicCamera::~TarnOIOrthographicCamera() = default;

SbViewVolume TarnOIOrthographicCamera::getViewVolume(float) const {
  // Near from the field, and neither turned nor moved, unlike the perspective camera: hosts
  // rely on both.
  SbViewVolume volume;
  volume.ortho(LLF[0], LRF[0], LLF[1], ULF[1], nearDistance.getValue(), farDistance.getValue());
  return volume;
}
