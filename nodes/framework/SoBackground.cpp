#include "nodes/framework/SoBackground.h"

TARNOI_ABSTRACT_NODE_SOURCE(SoBackground, SoNode);

void SoBackground::initClass() { registration.init(&SoBackground::atexit_cleanup); }

SoBackground::SoBackground() { TARNOI_NODE_CONSTRUCTOR(); }

SoBackground::SoBackground(const SoBackground&) : SoBackground() {}

SoBackground& SoBackground::operator=(const SoBackground&) { return *this; }

SoBackground::~SoBackground() = default;
