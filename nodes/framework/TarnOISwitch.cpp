#include "nodes/framework/TarnOISwitch.h"

#include "nodes/framework/TarnOISearchAction.h"

TARNOI_NODE_SOURCE(TarnOISwitch, SoSwitch);

void TarnOISwitch::initClass() { registration.init(&TarnOISwitch::atexit_cleanup); }

TarnOISwitch::TarnOISwitch() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOISwitch::TarnOISwitch(const TarnOISwitch&) : TarnOISwitch() {}

TarnOISwitch& TarnOISwitch::operator=(const TarnOISwitch&) { return *this; }

TarnOISwitch::~TarnOISwitch() = default;

void TarnOISwitch::search(SoSearchAction* action) {
  if (!TarnOISearchAction::from(action)) {
    SoSwitch::search(action);
    return;
  }
  // The switch is opened and closed again without notification: a search must not
  // schedule a redraw or drop render caches.
  const int before = whichChild.getValue();
  const SbBool wasDefault = whichChild.isDefault();
  const SbBool notified = whichChild.enableNotify(FALSE);
  whichChild.setValue(SO_SWITCH_ALL);
  SoSwitch::search(action);
  whichChild.setValue(before);
  whichChild.setDefault(wasDefault);
  whichChild.enableNotify(notified);
}
