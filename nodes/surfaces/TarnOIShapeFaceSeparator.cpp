#include "nodes/surfaces/TarnOIShapeFaceSeparator.h"

#include <Inventor/SbRotation.h>
#include <Inventor/nodes/SoAsciiText.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoPolygonOffset.h>
#include <Inventor/nodes/SoRotation.h>
#include <Inventor/nodes/SoTexture2.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/classes/VOrdCollect.h"
#include "host/general/Preferences.h"
#include "host/model/Plane3D.h"
#include "host/model/Shape.h"
#include "host/model/ShapeFace.h"
#include "host/model/ThreeDPoint.h"
#include "host/model/Triangle.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/SceneColor.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/ViewerFrame.h"

#include <algorithm>
#include <cmath>
#include <numbers>

TARNOI_NODE_SOURCE(TarnOIShapeFaceSeparator, TarnOINurbsSurfaceSeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIShapeFaceSeparator);

namespace {

constexpr const char* sourceFile = "TarnOIShapeFaceSeparator";

float preference(const char* key, double otherwise, const char* section) {
  return static_cast<float>(tarn::gPref->GetPreference(key, otherwise, section));
}

/// The nodes of a name.
struct NameLabel {
  NodeRef<SoSeparator> separator = makeNode<SoSeparator>();
  NodeRef<SoTranslation> translation = makeNode<SoTranslation>();
  NodeRef<SoRotation> inPlane = makeNode<SoRotation>();
  NodeRef<SoRotation> ontoFace = makeNode<SoRotation>();
  NodeRef<SoFont> font = makeNode<SoFont>();
  NodeRef<SoAsciiText> text = makeNode<SoAsciiText>();

  NameLabel();
};

NameLabel::NameLabel() {
  auto offset = makeNode<SoPolygonOffset>();
  offset->factor.setValue(preference("FaceNameOffsetFactor", -1.0, "3DViewer"));
  offset->units.setValue(preference("FaceNameOffsetUnits", -1.0, "3DViewer"));
  auto material = makeNode<SoMaterial>();
  const SbColor color = SceneColor::from(SceneColor::indexed("ShapeLabelColor", 8));
  for (SoMFColor* field : {&material->diffuseColor, &material->ambientColor}) {
    field->setValue(color);
    field->setIgnored(FALSE);
  }
  material->specularColor.setIgnored(TRUE);
  material->emissiveColor.setIgnored(TRUE);
  material->shininess.setIgnored(TRUE);
  material->transparency.setIgnored(TRUE);
  separator->addChild(offset.get());
  separator->addChild(translation.get());
  separator->addChild(inPlane.get());
  separator->addChild(ontoFace.get());
  separator->addChild(new SoTexture2);
  separator->addChild(material.get());
  separator->addChild(font.get());
  separator->addChild(text.get());
}

const tarn::Triangle* firstTriangleOf(tarn::ShapeFace& face) {
  const tarn::VOrdCollect* triangles = face.GetTriangles();
  return triangles && triangles->size() > 0 ? static_cast<const tarn::Triangle*>(triangles->at(0))
                                            : nullptr;
}

// The normal is taken for a point, so that the view offset tilts it: hosts rely on it.
SbVec3f shownNormalOf(const tarn::Triangle& triangle) {
  constexpr const char* texts[] = {"tri->GetPoint( 0 )->GetApproximation( p1r )",
                                   "tri->GetPoint( 1 )->GetApproximation( p2r )",
                                   "tri->GetPoint( 2 )->GetApproximation( p3r )"};
  tarn::Point3DRandom corners[3];
  for (int k = 0; k < 3; ++k) {
    const tarn::ThreeDPoint* corner = triangle.GetPoint(k);
    TARNOI_ASSERT_AT(corner && corner->GetApproximation(corners[k]), texts[k], sourceFile, 218 + k);
  }
  tarn::Plane3D plane;
  plane.SetThreePoints(corners[0].position(), corners[1].position(), corners[2].position());
  tarn::Point3DDouble normal;
  double distance = 0.0;
  plane.GetHessian(normal, distance);
  return ViewerFrame::fromModel(normal);
}

// From where the text's upright direction came to lie to where it is to stand.
SbRotation turnUpright(SbVec3f up, SbVec3f upright, const SbVec3f& normal) {
  up.normalize();
  upright.normalize();
  const double angle = std::acos(std::clamp(static_cast<double>(up.dot(upright)), -1.0, 1.0));
  const double threshold = tarn::gPref->GetPreference("FaceLabel180FlipThreshold", 0.005, "Shapes");
  // Between nearly opposite directions the shortest turn may lead out of the plane.
  if (threshold > std::fabs(angle - std::numbers::pi)) {
    return SbRotation(normal, static_cast<float>(angle));
  }
  return SbRotation(up, upright);
}

}  // namespace

TarnOIShapeFaceSeparator::TarnOIShapeFaceSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIShapeFaceSeparator::TarnOIShapeFaceSeparator(const TarnOIShapeFaceSeparator& other)
    : TarnOIShapeFaceSeparator() {
  *this = other;
}

TarnOIShapeFaceSeparator& TarnOIShapeFaceSeparator::operator=(
    const TarnOIShapeFaceSeparator& other) = default;

TarnOIShapeFaceSeparator::~TarnOIShapeFaceSeparator() = default;

void TarnOIShapeFaceSeparator::SetNurbsSurface(
    tarn::ShapeFace* face, tarn::VDictionary* dict, SoShapeHints* singleSidedHints,
    SoShapeHints* doubleSidedHints, TarnOITexture** textures, tarn::VOrdCollect** triangleSets,
    tarn::VDictionary* uvMatrices, int showSurface, int showName, float fontSize) {
  SetTarnObject(face, dict);
  if (!face) return;
  const OneNotification once(*this);
  removeAllChildren();
  labelText.reset();
  if (showSurface) {
    TarnOINurbsSurfaceSeparator::SetNurbsSurface(face, dict, singleSidedHints, doubleSidedHints,
                                                 textures, triangleSets, uvMatrices);
  }
  tarn::Point3DDouble first;
  tarn::Point3DDouble second;
  if (!showName || !face->GetNameUprightVectorPoints(first, second, 0)) return;

  const NameLabel label;
  addChild(label.separator.get());
  labelText = label.text;
  const tarn::Point3DDouble from = ViewerFrame::exactFromModel(first);
  const tarn::Point3DDouble upright = ViewerFrame::exactFromModel(second) - from;
  label.translation->translation.setValue(
      ViewerFrame::stored(from + face->GetNameCenterRatio() * upright));
  const tarn::Triangle* triangle = firstTriangleOf(*face);
  if (!triangle) return;
  const SbVec3f normal = shownNormalOf(*triangle);
  const SbRotation ontoFace(SbVec3f(0, 0, 1), normal);
  SbVec3f up;
  ontoFace.multVec(SbVec3f(0, 1, 0), up);
  label.inPlane->rotation.setValue(turnUpright(up, ViewerFrame::stored(upright), normal));
  label.ontoFace->rotation.setValue(ontoFace);
  label.font->size.setValue(fontSize);
  label.text->justification.setValue(SoAsciiText::CENTER);
  label.text->string.setValue(face->GetName().text());
}

void TarnOIShapeFaceSeparator::ShowInside(int show) {
  if (!faceSet || show == insideShown) return;
  insideShown = show;
  const int indexes = faceSet->coordIndex.getNum();
  std::int32_t* index = faceSet->coordIndex.startEditing();
  for (int i = 0; i + 1 < indexes; i += 4) std::swap(index[i], index[i + 1]);
  faceSet->coordIndex.finishEditing();

  const auto* face = tarnObjectAs<tarn::ShapeFace>(tarn::ShapeFaceCls);
  if (!labelText || !face) return;
  tarn::VString note;
  if (show) {
    const tarn::Shape* shape = face->GetShape();
    note.prints("(%s)",
                tarn::VString::getResource(shape && shape->GetInsideOut() ? 6441 : 6398).text());
  }
  const SbString lines[] = {face->GetName().text(), note.text()};
  labelText->string.setValues(0, 2, lines);
}
