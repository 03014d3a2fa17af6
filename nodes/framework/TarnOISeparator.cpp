#include "nodes/framework/TarnOISeparator.h"

#include <Inventor/SbMatrix.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/elements/SoCacheElement.h>
#include <Inventor/elements/SoDrawStyleElement.h>
#include <Inventor/elements/SoLinePatternElement.h>
#include <Inventor/elements/SoLineWidthElement.h>
#include <Inventor/elements/SoPointSizeElement.h>
#include <Inventor/misc/SoChildList.h>
#include <Inventor/misc/SoState.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoTransform.h>

#include "host/classes/VDictionary.h"
#include "host/model/BasicAffine.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "nodes/framework/ViewerFrame.h"

#include <array>

TARNOI_ABSTRACT_NODE_SOURCE(TarnOISeparator, SoSeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOISeparator);

namespace {

SbMatrix translation(const tarn::Point3DDouble& by) {
  SbMatrix result;
  result.setTranslate(
      SbVec3f(static_cast<float>(by.x), static_cast<float>(by.y), static_cast<float>(by.z)));
  return result;
}

SbMatrix uniformScale(double factor) {
  SbMatrix result;
  result.setScale(static_cast<float>(factor));
  return result;
}

SbMatrix rotation(const tarn::MatrixDouble& matrix) {
  SbMatrix result = SbMatrix::identity();
  for (int row = 1; row <= 3; ++row) {
    for (int column = 1; column <= 3; ++column) {
      result[row - 1][column - 1] = static_cast<float>(matrix(row, column));
    }
  }
  return result;
}

// Scale, translation, rotation, translation, in the order in which they act on a row.
SbMatrix forward(tarn::BasicAffine& affine, bool applyScale, bool applyTranslation) {
  SbMatrix result = SbMatrix::identity();
  double scale = 1.0;
  if (affine.HasScale() && affine.GetScale(scale) && applyScale) {
    result.multRight(uniformScale(scale));
  }
  tarn::Point3DDouble before;
  tarn::Point3DDouble after;
  const bool translated =
      affine.HasTranslation() && affine.GetTranslation(before, after) && applyTranslation;
  if (translated) result.multRight(translation(before));
  tarn::MatrixDouble* matrix = nullptr;
  if (affine.HasRotation() && affine.GetRotation(&matrix) && matrix) {
    result.multRight(rotation(*matrix));
  }
  if (translated) result.multRight(translation(after));
  return result;
}

// The forward chain undone from its end. The affine's own matrix is inverted in place.
SbMatrix backward(tarn::BasicAffine& affine, bool applyScale, bool applyTranslation) {
  SbMatrix result = SbMatrix::identity();
  tarn::Point3DDouble before;
  tarn::Point3DDouble after;
  const bool translated =
      affine.HasTranslation() && affine.GetTranslation(before, after) && applyTranslation;
  if (translated) result.multRight(translation(-1.0 * after));
  tarn::MatrixDouble* matrix = nullptr;
  if (affine.HasRotation() && affine.GetRotation(&matrix) && matrix) {
    TARNOI_ASSERT(matrix->invert(), "r.invert()", "TarnOISeparator");
    result.multRight(rotation(*matrix));
  }
  if (translated) result.multRight(translation(-1.0 * before));
  double scale = 1.0;
  if (affine.HasScale() && affine.GetScale(scale) && applyScale) {
    result.multRight(uniformScale(1.0 / scale));
  }
  return result;
}

}  // namespace

TarnOISeparator::TarnOISeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOISeparator::TarnOISeparator(const TarnOISeparator& other) : TarnOISeparator() {
  *this = other;
}

TarnOISeparator& TarnOISeparator::operator=(const TarnOISeparator& other) {
  tarnObject = other.tarnObject;
  searchDict = other.searchDict;
  return *this;
}

TarnOISeparator::~TarnOISeparator() {
  // Also when another node has taken the entry over: hosts rely on the key being gone.
  if (tarnObject && searchDict) searchDict->removeKey(tarnObject);
}

void TarnOISeparator::SetTarnObject(tarn::VObject* object, tarn::VDictionary* dict) {
  bindToDictionary(this, tarnObject, searchDict, object, dict);
}

void TarnOISeparator::Highlight(SoMaterial* material, int on) {
  if (!material) return;
  if (!on) {
    ChildNodes::remove(*this, material);
    return;
  }
  if (findChild(material) != -1) return;

  const SoType withPriority = TarnOIMaterialWithPriority::getClassTypeId();
  const auto* prioritised = material->isOfType(withPriority)
                                ? static_cast<TarnOIMaterialWithPriority*>(material)
                                : nullptr;
  const auto goesAfter = [&](SoNode* child) {
    if (prioritised && child->isOfType(withPriority)) {
      return static_cast<TarnOIMaterialWithPriority*>(child)->GetPriority() <
             prioritised->GetPriority();
    }
    return static_cast<bool>(child->isOfType(SoMaterial::getClassTypeId()));
  };
  int index = getNumChildren();
  while (index > 0 && !goesAfter(getChild(index - 1))) --index;
  insertChild(material, index);
}

void TarnOISeparator::ConvertTarnAffineToSoTransform(tarn::BasicAffine* affine,
                                                     SoTransform* transform, int applyScale,
                                                     int applyTranslation, int applyViewOffset,
                                                     int inverse) {
  SbMatrix inModel = SbMatrix::identity();
  if (affine) {
    inModel = inverse ? backward(*affine, applyScale, applyTranslation)
                      : forward(*affine, applyScale, applyTranslation);
  }
  if (applyViewOffset) inModel.multRight(translation(-1.0 * tarn::gThreeDViewOffset));
  transform->setMatrix(ViewerFrame::transformFromModel(inModel));
}

void TarnOISeparator::GLRenderBelowPath(SoGLRenderAction* action) {
  SoState* state = action->getState();
  state->push();
  if (state->isCacheOpen() || !cullTest(state)) {
    const int count = children->getLength();
    action->pushCurPath();
    for (int i = 0; i < count && !action->hasTerminated(); ++i) {
      SoNode* child = (*children)[i];
      action->popPushCurPath(i, child);
      if (action->abortNow()) {
        // What was drawn is not all there is: no cache may keep it.
        SoCacheElement::invalidate(state);
        break;
      }
      child->GLRenderBelowPath(action);
    }
    action->popCurPath();
  }
  state->pop();
}

void TarnOISeparator::getBoundingBox(SoGetBoundingBoxAction* action) {
  if (!isInvisible(action)) SoSeparator::getBoundingBox(action);
}

void TarnOISeparator::pick(SoPickAction* action) {
  if (!isInvisible(action)) SoSeparator::pick(action);
}

void TarnOISeparator::rayPick(SoRayPickAction* action) {
  if (!isInvisible(action)) SoSeparator::rayPick(action);
}

void TarnOISeparator::search(SoSearchAction* action) {
  if (auto* search = TarnOISearchAction::from(action)) {
    if (search->GetTarnObject() == tarnObject && search->addCurrentPath()) return;
    if (search->seeksOnlyTarnObject() && !childrenMayMatch(*search)) return;
  }
  SoSeparator::search(action);
}

void TarnOISeparator::enableElements(const char* className) {
  struct Element {
    SoType type;
    int stackIndex;
    const char* text;
  };
  const std::array elements = {
      Element{SoDrawStyleElement::getClassTypeId(), SoDrawStyleElement::getClassStackIndex(),
              "!SoDrawStyleElement::getClassTypeId().isBad()"},
      Element{SoLinePatternElement::getClassTypeId(), SoLinePatternElement::getClassStackIndex(),
              "!SoLinePatternElement::getClassTypeId().isBad()"},
      Element{SoLineWidthElement::getClassTypeId(), SoLineWidthElement::getClassStackIndex(),
              "!SoLineWidthElement::getClassTypeId().isBad()"},
      Element{SoPointSizeElement::getClassTypeId(), SoPointSizeElement::getClassStackIndex(),
              "!SoPointSizeElement::getClassTypeId().isBad()"}};
  for (auto enable : {&SoGetBoundingBoxAction::enableElement, &SoRayPickAction::enableElement}) {
    for (const Element& element : elements) {
      if (TARNOI_ASSERT(!element.type.isBad(), element.text, className)) {
        enable(element.type, element.stackIndex);
      }
    }
  }
}

SoNode* TarnOISeparator::boundCopy(SoNode* copy) const {
  static_cast<TarnOISeparator*>(copy)->SetTarnObject(tarnObject, searchDict);
  return copy;
}

void TarnOISeparator::putEntry(tarn::VDictionary* dict, tarn::VObject* key, SoNode* node) {
  if (dict) dict->atKeyPut(key, node);
}

void TarnOISeparator::removeEntry(tarn::VDictionary* dict, tarn::VObject* key) {
  if (dict) dict->removeKey(key);
}

bool TarnOISeparator::isBoundTo(const tarn::VClass& record) const {
  return tarnObject && tarnObject->isA(record);
}

bool TarnOISeparator::isInvisible(SoAction* action) const {
  // A pick action of the host's own may know no draw style.
  SoState* state = action->getState();
  return state->isElementEnabled(SoDrawStyleElement::getClassStackIndex()) &&
         SoDrawStyleElement::get(state) == SoDrawStyleElement::INVISIBLE;
}

bool TarnOISeparator::childrenMayMatch(TarnOISearchAction& search) const {
  const int count = children->getLength();
  for (int i = 0; i < count; ++i) {
    if (search.mayMatch(*(*children)[i])) return true;
  }
  return false;
}
