#include "nodes/framework/TarnOIDrawStyle.h"

#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoRayPickAction.h>

TARNOI_NODE_SOURCE(TarnOIDrawStyle, SoDrawStyle);

void TarnOIDrawStyle::initClass() { registration.init(&TarnOIDrawStyle::atexit_cleanup); }

TarnOIDrawStyle::TarnOIDrawStyle() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIDrawStyle::TarnOIDrawStyle(const TarnOIDrawStyle&) : TarnOIDrawStyle() {}

TarnOIDrawStyle& TarnOIDrawStyle::operator=(const TarnOIDrawStyle&) { return *this; }

TarnOIDrawStyle::~TarnOIDrawStyle() = default;

void TarnOIDrawStyle::getBoundingBox(SoGetBoundingBoxAction* action) { doAction(action); }

void TarnOIDrawStyle::pick(SoPickAction* action) {
  // A ray pick calls the rayPick of shapes and separators only, of other nodes pick. A
  // method for this type in the action's list would do as well, but that list keeps types
  // for good, and meets one that was cleaned up with a crash.
  if (action->isOfType(SoRayPickAction::getClassTypeId())) {
    rayPick(static_cast<SoRayPickAction*>(action));
  } else {
    SoDrawStyle::pick(action);
  }
}

void TarnOIDrawStyle::rayPick(SoRayPickAction* action) { doAction(action); }
