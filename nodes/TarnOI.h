#pragma once

#include <Inventor/SoType.h>

#include "nodes/TarnOIExport.h"

#include <span>

/// The library as a whole: all its classes, registered and unregistered together.
namespace TarnOI {

/// One registered class.
struct ClassEntry {
  const char* name;
  const char* parent;
  const char* summary;  ///< what it shows or does, one line
  void (*initClass)();
  void (*cleanUpInitClass)();
  SoType (*getClassTypeId)();
};

/// All classes in the order of registration, parents before their children.
TARNOI_EXPORT std::span<const ClassEntry> classes();

/// Registers every class that is not registered yet and, when there was one, the point
/// symbols of the host. Call it after SoDB::init, and again after SoDB::finish and another
/// SoDB::init. Each class's own initClass does the same for one class.
TARNOI_EXPORT void initClasses();

/// Unregisters every class, children before their parents. No node of the library may be
/// alive. Afterwards initClasses may be called again.
TARNOI_EXPORT void cleanUpClasses();

}  // namespace TarnOI
