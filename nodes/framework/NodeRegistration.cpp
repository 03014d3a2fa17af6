#include "nodes/framework/NodeRegistration.h"

#include <Inventor/C/tidbits.h>
#include <Inventor/SbName.h>
#include <Inventor/SoDB.h>
#include <Inventor/misc/SoBase.h>
#include <Inventor/nodes/SoNode.h>

#include "nodes/framework/TarnOIAssert.h"

#include <string>

namespace {

// Coin's lock around static class data is open to classes derived from SoBase only.
struct StaticDataLock : SoBase {
  static void lock() { staticDataLock(); }
  static void unlock() { staticDataUnlock(); }
};

struct StaticDataGuard {
  StaticDataGuard() { StaticDataLock::lock(); }
  ~StaticDataGuard() { StaticDataLock::unlock(); }
  StaticDataGuard(const StaticDataGuard&) = delete;
  StaticDataGuard& operator=(const StaticDataGuard&) = delete;
};

// The action-method index is handed out by functions that node classes may call.
struct ActionMethodIndex : SoNode {
  static uint16_t take() {
    const int index = getNextActionMethodIndex();
    incNextActionMethodIndex();
    return static_cast<uint16_t>(index);
  }
};

}  // namespace

void NodeRegistration::init(void (*cleanUp)(), void (*release)()) {
  const std::string again =
      std::string(className) + "::classTypeId == SoType::badType() && \"don't init() twice!\"";
  if (!TARNOI_ASSERT(classType == SoType::badType(), again.c_str(), className)) return;

  // Before SoDB::init there is no table of types to look into.
  const SoType parentType =
      SoDB::isInitialized() ? SoType::fromName(parentName) : SoType::badType();
  if (!TARNOI_ASSERT(parentType != SoType::badType(),
                     "parentType != SoType::badType() && \"you forgot init() on parentclass!\"",
                     className)) {
    return;
  }

  // An instance made before the registration left field data without the parent's.
  delete fieldData;
  fieldData = nullptr;
  instances = 0;
  classType = SoType::createType(parentType, className, factory, ActionMethodIndex::take());
  parentFieldData = parentFieldDataOf();
  releaseShared = release;
  cc_coin_atexit(cleanUp);
}

void NodeRegistration::cleanUp() {
  if (releaseShared) releaseShared();
  delete fieldData;
  fieldData = nullptr;
  parentFieldData = nullptr;
  instances = 0;
  // A type left in Coin's table would make the next registration, and Coin's own
  // shutdown, meet the same name twice.
  if (classType != SoType::badType()) SoType::removeType(className);
  classType = SoType::badType();
}

SoFieldData* NodeRegistration::construct() {
  {
    const StaticDataGuard guard;
    ++instances;
    if (!fieldData) fieldData = new SoFieldData(parentFieldData ? *parentFieldData : nullptr);
    if (classType != SoType::badType()) return fieldData;
  }
  // Reported with the lock released: a handler may make nodes itself.
  const std::string forgotten =
      std::string(className) + "::classTypeId != SoType::badType() && \"you forgot init()!\"";
  tarn::assertError(forgotten.c_str(), className, __LINE__);
  return fieldData;
}
