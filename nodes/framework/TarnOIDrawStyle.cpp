#include "nodes/framework/TarnOIDrawStyle.h"

#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoRayPickAction.h>

TARNOI_NODE_SOURCE(TarnOIDrawStyle, SoDrawStyle);

void TarnOIDrawStyle::initClass() {
  registration.init(&TarnOIDrawStyle::atexit_cleanup);
  // A ray pick calls the rayPick of shapes and groups only; of other nodes it has to be
  // asked for.
  SoRayPickAction::addMethod(getClassTypeId(), SoNode::rayPickS);
}

TarnOIDrawStyle::TarnOIDrawStyle() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIDrawStyle::TarnOIDrawStyle(const TarnOIDrawStyle&) : TarnOIDrawStyle() {}

TarnOIDrawStyle& TarnOIDrawStyle::operator=(const TarnOIDrawStyle&) { return *this; }

TarnOIDrawStyle::~TarnOIDrawStyle() = default;

void TarnOIDrawStyle::getBoundingBox(SoGetBoundingBoxAction* action) { doAction(action); }

void TarnOIDrawStyle::rayPick(SoRayPickAction* action) { doAction(action); }
