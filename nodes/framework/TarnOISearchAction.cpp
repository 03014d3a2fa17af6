#include "nodes/framework/TarnOISearchAction.h"

#include <Inventor/C/tidbits.h>
#include <Inventor/SbName.h>
#include <Inventor/SoFullPath.h>
#include <Inventor/lists/SoActionMethodList.h>
#include <Inventor/lists/SoEnabledElementsList.h>

#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/TarnOIDrawStyle.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "nodes/framework/TarnOIText2.h"

namespace {
constexpr const char* sourceFile = "TarnOISearchAction";
}

SoEnabledElementsList* TarnOISearchAction::enabledElements = nullptr;
SoActionMethodList* TarnOISearchAction::methods = nullptr;
SoType TarnOISearchAction::classTypeId{};

void TarnOISearchAction::initClass() {
  if (!TARNOI_ASSERT(TarnOISearchAction::getClassTypeId() == SoType::badType(),
                     "TarnOISearchAction::getClassTypeId() == SoType::badType()", sourceFile)) {
    return;
  }
  if (!TARNOI_ASSERT(SoSearchAction::getClassTypeId() != SoType::badType(),
                     "SoSearchAction::getClassTypeId() != SoType::badType()", sourceFile)) {
    return;
  }
  classTypeId = SoType::createType(SoSearchAction::getClassTypeId(), "TarnOISearchAction");
  enabledElements = new SoEnabledElementsList(SoSearchAction::getClassEnabledElements());
  methods = new SoActionMethodList(SoSearchAction::getClassActionMethods());
  cc_coin_atexit(atexit_cleanup);
}

void TarnOISearchAction::CleanUpInitClass() { atexit_cleanup(); }

void TarnOISearchAction::atexit_cleanup() {
  delete enabledElements;
  enabledElements = nullptr;
  delete methods;
  methods = nullptr;
  if (classTypeId != SoType::badType()) SoType::removeType("TarnOISearchAction");
  classTypeId = SoType::badType();
}

SoType TarnOISearchAction::getClassTypeId() { return classTypeId; }

SoType TarnOISearchAction::getTypeId() const { return classTypeId; }

void TarnOISearchAction::addMethod(SoType nodeType, SoActionMethod method) {
  if (!TARNOI_ASSERT(methods, "TarnOISearchAction::methods", sourceFile)) return;
  methods->addMethod(nodeType, method);
}

void TarnOISearchAction::enableElement(SoType elementType, int stackIndex) {
  if (!TARNOI_ASSERT(enabledElements, "TarnOISearchAction::enabledElements", sourceFile)) return;
  enabledElements->enable(elementType, stackIndex);
}

const SoEnabledElementsList& TarnOISearchAction::getEnabledElements() const {
  if (!TARNOI_ASSERT(enabledElements, "TarnOISearchAction::enabledElements", sourceFile)) {
    return *SoSearchAction::getClassEnabledElements();
  }
  return *enabledElements;
}

SoEnabledElementsList* TarnOISearchAction::getClassEnabledElements() { return enabledElements; }

SoActionMethodList* TarnOISearchAction::getClassActionMethods() { return methods; }

TarnOISearchAction::TarnOISearchAction() {
  if (methods) traversalMethods = methods;
}

bool TarnOISearchAction::addCurrentPath() {
  addPath(getCurPath()->copy());
  return isFound();
}

void TarnOISearchAction::beginTraversal(SoNode* node) {
  verdicts.assign(static_cast<std::size_t>(SoType::getNumTypes()), Verdict::unknown);
  SoSearchAction::beginTraversal(node);
}

TarnOISearchAction::Verdict TarnOISearchAction::judge(const SoNode& node) {
  if (node.getChildren()) return Verdict::visit;
  const SoType type = node.getTypeId();
  // A method that the host added may do anything.
  if (methods && (*methods)[SoNode::getActionMethodIndex(type)] != &SoNode::searchS) {
    return Verdict::visit;
  }
  // Coin's own leaves know nothing of model objects, neither do labels and highlights.
  const bool answersForNothing = node.getIsBuiltIn() || type == TarnOIText2::getClassTypeId() ||
                                 type == TarnOIMaterialWithPriority::getClassTypeId() ||
                                 type == TarnOIDrawStyle::getClassTypeId();
  return answersForNothing ? Verdict::skip : Verdict::visit;
}

bool TarnOISearchAction::searchLeaf(SoSearchAction* action, const tarn::VObject* object) {
  if (action->isFound()) return true;
  TarnOISearchAction* search = from(action);
  if (!search) return false;
  if (search->tarnObject == object) search->addCurrentPath();
  return true;
}
