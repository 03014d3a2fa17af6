#include "nodes/surfaces/TarnOINurbsSurfaceSeparator.h"

#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "host/classes/VDictionary.h"
#include "host/classes/VOrdCollect.h"
#include "host/model/Material.h"
#include "host/model/MatrixDouble.h"
#include "host/model/Surface.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/TarnOITexture.h"
#include "nodes/framework/TriangleSet.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/surfaces/PositionOrStored.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

TARNOI_NODE_SOURCE(TarnOINurbsSurfaceSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOINurbsSurfaceSeparator);

namespace {

constexpr const char* sourceFile = "TarnOINurbsSurfaceSeparator";

// The second texture coordinate counts from the other side: it is narrowed first here.
void placeTexture(const tarn::MatrixDouble* uvMatrix, SbVec2f* corners) {
  for (int corner = 0; corner < 3; ++corner) {
    if (TARNOI_ASSERT_AT(uvMatrix, "uvMatrix", sourceFile, 241)) {
      corners[corner].setValue(static_cast<float>((*uvMatrix)(corner + 1, 1)),
                               1.0F - static_cast<float>((*uvMatrix)(corner + 1, 2)));
    } else {
      corners[corner].setValue(0.0F, 0.0F);
    }
  }
}

/// The positions of corners, one after the other. Each triangle mostly shares two with the one
/// before, and asking the model for a point's position brings its covariance along: the last few
/// are kept.
class CornerPositions {
public:
  /// Returns false, and leaves `position` as it was, for a corner that has none.
  bool find(const tarn::ThreeDPoint* corner, tarn::Point3DDouble& position) {
    const auto known = std::ranges::find(last, corner, &Known::corner);
    if (corner && known != last.end()) {
      position = known->position;
      return true;
    }
    if (!positionOrStored(corner, position)) return false;
    last[next] = {corner, position};
    next = (next + 1) % last.size();
    return true;
  }

private:
  struct Known {
    const tarn::ThreeDPoint* corner = nullptr;
    tarn::Point3DDouble position;
  };
  std::array<Known, 4> last;
  std::size_t next = 0;
};

/// The children in the making. Sets without texture and neutral materials are put in at the
/// front, and the last neutral material put in is the first to be taken out again; tens of
/// thousands of sets are put into the node's list at its end only.
class ChildrenInTheMaking {
public:
  void putIn(const TriangleSet& set) { front.push_back({set, false}); }
  void putInNeutral() {
    neutrals.push_back(front.size());
    front.push_back({std::nullopt, false});
  }
  void takeNeutralOut() {
    if (neutrals.empty()) return;
    front[neutrals.back()].takenOut = true;
    neutrals.pop_back();
  }
  void append(const TriangleSet& set, SoNode* texture) { back.push_back({set, texture}); }

  void addTo(SoGroup& node, SoNode* neutral) const {
    for (auto one = front.rbegin(); one != front.rend(); ++one) {
      if (one->takenOut) continue;
      if (one->set) {
        one->set->insert(node, node.getNumChildren());
      } else {
        node.addChild(neutral);
      }
    }
    for (const Textured& one : back) one.set.append(node, one.texture);
  }

private:
  struct AtTheFront {
    std::optional<TriangleSet> set;  // none: the neutral material
    bool takenOut;
  };
  struct Textured {
    TriangleSet set;
    SoNode* texture;
  };
  std::vector<AtTheFront> front;
  std::vector<std::size_t> neutrals;
  std::vector<Textured> back;
};

}  // namespace

TarnOINurbsSurfaceSeparator::TarnOINurbsSurfaceSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOINurbsSurfaceSeparator::TarnOINurbsSurfaceSeparator(const TarnOINurbsSurfaceSeparator& other)
    : TarnOINurbsSurfaceSeparator() {
  *this = other;
}

TarnOINurbsSurfaceSeparator& TarnOINurbsSurfaceSeparator::operator=(
    const TarnOINurbsSurfaceSeparator& other) = default;

TarnOINurbsSurfaceSeparator::~TarnOINurbsSurfaceSeparator() = default;

void TarnOINurbsSurfaceSeparator::SetNurbsSurface(tarn::Surface* surface, tarn::VDictionary* dict,
                                                  SoShapeHints* singleSidedHints,
                                                  SoShapeHints* doubleSidedHints,
                                                  TarnOITexture** textures,
                                                  tarn::VOrdCollect** triangleSets,
                                                  tarn::VDictionary* uvMatrices) {
  SetTarnObject(surface, dict);
  if (!surface) return;
  const OneNotification once(*this);
  if (getNumChildren() > 0) {
    removeAllChildren();
    shapeHints.reset();
  }
  if (!shapeHints) {
    shapeHints = NodeRef(surface->IsDoubleSided() ? doubleSidedHints : singleSidedHints);
  }
  if (shapeHints) addChild(shapeHints.get());

  ChildrenInTheMaking made;
  CornerPositions positions;
  tarn::Point3DDouble position;
  const auto positionOf = [&positions, &position](const tarn::ThreeDPoint* corner) {
    // Where there is none it stays that of the corner before.
    TARNOI_ASSERT_AT(positions.find(corner, position), "0", sourceFile, 213);
    return ViewerFrame::fromModel(position);
  };
  const auto place = [uvMatrices](tarn::Triangle* triangle, SbVec2f* corners) {
    placeTexture(
        static_cast<tarn::MatrixDouble*>(uvMatrices ? uvMatrices->atKey(triangle) : nullptr),
        corners);
  };
  static const tarn::VOrdCollect none;
  const tarn::VOrdCollect* sets = triangleSets && *triangleSets ? *triangleSets : &none;
  for (int s = 0; s < sets->size(); ++s) {
    TarnOITexture* texture = textures ? textures[s] : nullptr;
    const auto* triangles = static_cast<const tarn::VOrdCollect*>(sets->at(s));
    TriangleSet set(texture);
    set.fill(triangles ? *triangles : none, positionOf, place);
    faceSet = set.faces;
    if (texture && drawsTextureAlone()) {
      made.putInNeutral();
    } else {
      made.takeNeutralOut();
    }
    if (texture) {
      made.append(set, texture);
    } else {
      made.putIn(set);
    }
  }
  made.addTo(*this, neutralMaterial.get());
}

void TarnOINurbsSurfaceSeparator::UpdateTextureBlend(int enable) {
  if (enable && drawsTextureAlone()) {
    insertChild(neutralMaterial.get(), std::min(1, getNumChildren()));
  } else {
    ChildNodes::remove(*this, neutralMaterial.get());
  }
}

SoNode* TarnOINurbsSurfaceSeparator::copy(SbBool copyConnections) const {
  return boundCopy(TarnOISeparator::copy(copyConnections));
}

void TarnOINurbsSurfaceSeparator::copyContents(const SoFieldContainer* from,
                                               SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  TriangleSet::completeCopy(*this);
  // The members of a copy are its own children, where the original's were its.
  const auto* other = static_cast<const TarnOINurbsSurfaceSeparator*>(from);
  faceSet = ChildNodes::counterpart(*this, *other, other->faceSet);
  shapeHints = ChildNodes::counterpart(*this, *other, other->shapeHints);
  if (const auto neutral = ChildNodes::counterpart(*this, *other, other->neutralMaterial)) {
    neutralMaterial = neutral;
  }
}

bool TarnOINurbsSurfaceSeparator::drawsTextureAlone() const {
  if (!tarnObject || !tarnObject->isA(tarn::SurfaceCls)) return false;
  const tarn::Material* material = static_cast<tarn::Surface*>(tarnObject)->GetMaterial();
  return material && material->GetDiffuseType() != 0 && !material->GetBlendRGBWithTexture();
}
