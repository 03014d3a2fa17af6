#include "nodes/framework/TarnOIText2.h"

TARNOI_NODE_SOURCE(TarnOIText2, SoText2);

void TarnOIText2::initClass() { registration.init(&TarnOIText2::atexit_cleanup); }

TarnOIText2::TarnOIText2() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIText2::TarnOIText2(const TarnOIText2&) : TarnOIText2() {}

TarnOIText2& TarnOIText2::operator=(const TarnOIText2&) { return *this; }

TarnOIText2::~TarnOIText2() = default;
