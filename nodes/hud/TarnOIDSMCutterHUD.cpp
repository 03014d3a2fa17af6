#include "nodes/hud/TarnOIDSMCutterHUD.h"

#include "host/classes/VOrdCollect.h"
#include "nodes/hud/ScreenPlanes.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

TARNOI_NODE_SOURCE(TarnOIDSMCutterHUD, SoSeparator);

void TarnOIDSMCutterHUD::initClass() { registration.init(&TarnOIDSMCutterHUD::atexit_cleanup); }

TarnOIDSMCutterHUD::TarnOIDSMCutterHUD() {
  TARNOI_NODE_CONSTRUCTOR();
  mark.build(*this);
}

TarnOIDSMCutterHUD::TarnOIDSMCutterHUD(const TarnOIDSMCutterHUD& other) : TarnOIDSMCutterHUD() {
  *this = other;
}

TarnOIDSMCutterHUD& TarnOIDSMCutterHUD::operator=(const TarnOIDSMCutterHUD& other) {
  mark = other.mark;
  return *this;
}

TarnOIDSMCutterHUD::~TarnOIDSMCutterHUD() = default;

void TarnOIDSMCutterHUD::SetFirstPos(int px, int py, int width, int height) {
  mark.setFirst(px, py, width, height);
}

int TarnOIDSMCutterHUD::HasFirstPoint() const { return mark.hasFirst(); }

void TarnOIDSMCutterHUD::SetSecondPos(int px, int py, int width, int height, int snap, int box) {
  mark.setSecond(px, py, width, height, snap && !box);
  const SbVec3f& first = mark.first();
  const SbVec3f& second = mark.second();
  if (box) {
    const auto [left, right] = std::minmax(first[0], second[0]);
    const auto [bottom, top] = std::minmax(first[1], second[1]);
    const std::array corners = {SbVec3f(left, bottom, 0.0F), SbVec3f(right, bottom, 0.0F),
                                SbVec3f(right, top, 0.0F), SbVec3f(left, top, 0.0F),
                                SbVec3f(left, bottom, 0.0F)};
    mark.setVertices(corners);
    mark.setLineLength(static_cast<int>(corners.size()));
  } else {
    mark.setVertices(std::array{first, second});
    mark.setLineLength(2);
  }
  mark.show();
}

void TarnOIDSMCutterHUD::ResetCutter() {
  mark.setVertices({});
  mark.forgetFirst();
  mark.hide();
}

tarn::Plane3D* TarnOIDSMCutterHUD::GetCrossSectionPlane(SoCamera* camera, tarn::Extents* extents,
                                                        SbViewportRegion& viewport,
                                                        SbMatrix& matrix) {
  if (!camera || !extents) return nullptr;
  const ScreenPlanes planes(*camera, *extents, viewport, matrix, "TarnOIDSMCutterHUD", 264);
  return planes.through(mark.first(), mark.second()).release();
}

tarn::VOrdCollect* TarnOIDSMCutterHUD::GetBoxPlanes(SoCamera* camera, tarn::Extents* extents,
                                                    SbViewportRegion& viewport, SbMatrix& matrix) {
  auto planes = std::make_unique<tarn::VOrdCollect>(4);
  if (!camera || !extents) return planes.release();
  const ScreenPlanes screen(*camera, *extents, viewport, matrix, "TarnOIDSMCutterHUD", 368);
  const SbVec3f& first = mark.first();
  const SbVec3f& second = mark.second();
  const SbVec3f firstSecond(first[0], second[1], 0.0F);
  const SbVec3f secondFirst(second[0], first[1], 0.0F);
  using Side = std::pair<SbVec3f, SbVec3f>;
  for (const auto& [a, b] : {Side(first, firstSecond), Side(secondFirst, first),
                             Side(firstSecond, second), Side(second, secondFirst)}) {
    if (auto plane = screen.through(a, b)) planes->add(plane.release());
  }
  return planes.release();
}

void TarnOIDSMCutterHUD::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  // The constructor made a mark already.
  removeAllChildren();
  SoSeparator::copyContents(from, copyConnections);
  mark.takeOver(static_cast<const TarnOIDSMCutterHUD*>(from)->mark, *this);
}
