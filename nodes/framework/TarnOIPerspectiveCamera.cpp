#include "nodes/framework/TarnOIPerspectiveCamera.h"

#include <Inventor/SbViewVolume.h>

TARNOI_NODE_SOURCE(TarnOIPerspectiveCamera, SoPerspectiveCamera);

void TarnOIPerspectiveCamera::initClass() {
  registration.init(&TarnOIPerspectiveCamera::atexit_cleanup);
}

TarnOIPerspectiveCamera::TarnOIPerspectiveCamera() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIPerspectiveCamera::TarnOIPerspectiveCamera(const TarnOIPerspectiveCamera& other)
    : TarnOIPerspectiveCamera() {
  *this = other;
}

TarnOIPerspectiveCamera& TarnOIPerspectiveCamera::operator=(const TarnOIPerspectiveCamera& other) {
  FrontRectangle::operator=(other);
  return *this;
}

TarnOIPerspectiveCamera::~TarnOIPerspectiveCamera() = default;

SbViewVolume TarnOIPerspectiveCamera::getViewVolume(float) const {
  SbViewVolume volume;
  volume.frustum(LLF[0], LRF[0], LLF[1], ULF[1], LLF[2], farDistance.getValue());
  volume.rotateCamera(orientation.getValue());
  volume.translateCamera(position.getValue());
  return volume;
}
