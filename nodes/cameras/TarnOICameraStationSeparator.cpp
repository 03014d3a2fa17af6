#include "nodes/cameras/TarnOICameraStationSeparator.h"

#include <Inventor/SbRotation.h>
#include <Inventor/SbViewVolume.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMatrixTransform.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoScale.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/classes/VString.h"
#include "host/general/Preferences.h"
#include "host/model/AffineStation.h"
#include "host/model/BasicAffine.h"
#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/Extents.h"
#include "host/model/Photograph.h"
#include "nodes/cameras/CameraSymbols.h"
#include "nodes/cameras/ImagePlane.h"
#include "nodes/cameras/StationMatrix.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/TarnOIText2.h"
#include "nodes/framework/ViewerFrame.h"

#include <array>
#include <cmath>
#include <memory>

TARNOI_NODE_SOURCE(TarnOICameraStationSeparator, TarnOISeparator);

SoSeparator* g_cs_node = nullptr;

namespace {

constexpr const char* sourceFile = "TarnOICameraStationSeparator";
constexpr const char* viewerSection = "ProjectViewer(3D_Viewer)";

// The symbol that CreateCSNode made and holds a reference on. g_cs_node itself may point to
// a scene of the application's. A plain pointer: at the end of the program nothing of the
// scene graph may be touched any more.
SoSeparator* ownDetailedSymbol = nullptr;

void releaseDetailedSymbol() {
  if (!ownDetailedSymbol) return;
  if (g_cs_node == ownDetailedSymbol) g_cs_node = nullptr;
  ownDetailedSymbol->unref();
  ownDetailedSymbol = nullptr;
}

bool usesDetailedSymbol() {
  return tarn::gPref->GetBoolPreference("UseNewSymbol", 1, "TarnOICamera");
}

}  // namespace

void TarnOICameraStationSeparator::initClass() {
  registration.init(&TarnOICameraStationSeparator::atexit_cleanup, &releaseDetailedSymbol);
  enableElements(sourceFile);
}

TarnOICameraStationSeparator::TarnOICameraStationSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOICameraStationSeparator::TarnOICameraStationSeparator(
    const TarnOICameraStationSeparator& other)
    : TarnOICameraStationSeparator() {
  *this = other;
}

TarnOICameraStationSeparator& TarnOICameraStationSeparator::operator=(
    const TarnOICameraStationSeparator& other) = default;

TarnOICameraStationSeparator::~TarnOICameraStationSeparator() = default;

void TarnOICameraStationSeparator::SetCameraStation(tarn::CameraStation* station,
                                                    tarn::VDictionary* dict, SoScale* scale,
                                                    int withImagePlane, int withSymbolToo,
                                                    tarn::Extents* projectExtents) {
  SetTarnObject(station, dict);
  scaleNode = NodeRef<SoScale>(scale);
  showImagePlane = withImagePlane;
  showSymbolWithImage = withSymbolToo;
  if (!station) {
    UpdateFrustum(projectExtents);
    return;
  }

  if (getNumChildren() == 0) {
    buildChildren(*station);
  } else {
    SoNode* node = childOrNull(2);
    TARNOI_ASSERT(node && node->isOfType(SoTranslation::getClassTypeId()),
                  "node->getTypeId().isDerivedFrom(SoTranslation::getClassTypeId() )", sourceFile);
    node = childOrNull(3);
    TARNOI_ASSERT(node && node->isOfType(SoMatrixTransform::getClassTypeId()),
                  "node->getTypeId().isDerivedFrom(SoMatrixTransform::getClassTypeId() )",
                  sourceFile);
  }
  UpdateFrustum(projectExtents);
  place(*station);
}

void TarnOICameraStationSeparator::ReplaceCameraStations(tarn::CameraStation* station,
                                                         tarn::VDictionary* dict, SoScale* scale,
                                                         int withImagePlane, int withSymbolToo,
                                                         tarn::Extents* projectExtents) {
  removeAllChildren();
  labelText.reset();
  labelTranslation.reset();
  SetCameraStation(station, dict, scale, withImagePlane, withSymbolToo, projectExtents);
}

int TarnOICameraStationSeparator::SetCameraToMatchPhoto(SoCamera* camera,
                                                        tarn::CameraStation* station,
                                                        tarn::BasicAffine* affine) {
  const tarn::CameraStation* cs = station;
  if (!TARNOI_ASSERT(cs, "cs", sourceFile) || !cs->IsOriented() || !camera) return 0;

  std::unique_ptr<tarn::CameraStation> converted;
  if (affine && affine->SetupAffine()) {
    tarn::CameraStation* convertedStn = nullptr;
    const tarn::AffineStation affstn(affine);
    TARNOI_ASSERT(affstn.ConvertStation(cs, &convertedStn),
                  "affstn.ConvertStation( cs, &convertedStn )", sourceFile);
    converted.reset(convertedStn);
    if (converted) cs = converted.get();
  }

  // From a known pose, whatever the camera looked at before.
  camera->position.setValue(0.0F, 0.0F, 0.0F);
  camera->orientation.setValue(0.0F, 0.0F, -1.0F, 0.0F);
  camera->position.setValue(ViewerFrame::fromModel(cs->GetPosition()));

  SbVec3f axis;
  float angle = 0.0F;
  SbRotation(StationMatrix::ofCamera(cs->GetRotationMatrix())).getValue(axis, angle);
  camera->orientation.setValue(axis, angle);

  const tarn::Camera* lens = cs->GetCamera(1);
  double focalLength = 0.0;
  double width = 0.0;
  double height = 0.0;
  if (lens) {
    focalLength = lens->GetFocalLength();
    lens->GetFormatSize(width, height);
    camera->viewportMapping = SoCamera::CROP_VIEWPORT_FILL_FRAME;
    camera->nearDistance = static_cast<float>(focalLength);
    camera->farDistance = 1000.0F;
    camera->aspectRatio = static_cast<float>(width / height);
  }
  if (TARNOI_ASSERT(camera->isOfType(SoPerspectiveCamera::getClassTypeId()),
                    "camera->getTypeId().isDerivedFrom(SoPerspectiveCamera::getClassTypeId() )",
                    sourceFile) &&
      lens) {
    static_cast<SoPerspectiveCamera*>(camera)->heightAngle =
        2.0F * static_cast<float>(std::atan(height * 0.5 / focalLength));
  }
  return 1;
}

void TarnOICameraStationSeparator::CreateCSNode() {
  if (g_cs_node && g_cs_node->getNumChildren() > 0) return;
  releaseDetailedSymbol();
  const NodeRef<SoSeparator> symbol = CameraSymbols::readDetailed();
  g_cs_node = symbol.get();
  if (!g_cs_node) return;
  g_cs_node->ref();
  ownDetailedSymbol = g_cs_node;
}

void TarnOICameraStationSeparator::ShowFrustum(int show, int onlyWhenSelected, double scale,
                                               tarn::Extents* projectExtents) {
  frustumOnlyWhenSelected = show ? onlyWhenSelected : 0;
  const bool visible = frustumOnlyWhenSelected ? isSelectedFlag : show;
  frustumWhichChild = visible ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  if (frustumSwitch) frustumSwitch->whichChild = frustumWhichChild;
  if (scale != frustumScale) {
    frustumScale = scale;
    UpdateFrustum(projectExtents);
  }
}

void TarnOICameraStationSeparator::IsSelected(int selected) {
  isSelectedFlag = selected;
  if (frustumOnlyWhenSelected && frustumSwitch) {
    frustumSwitch->whichChild = selected ? SO_SWITCH_ALL : SO_SWITCH_NONE;
  }
}

void TarnOICameraStationSeparator::UpdateTextLable(int show) {
  if (!show) {
    ChildNodes::removeAndForget(*this, labelText);
    ChildNodes::removeAndForget(*this, labelTranslation);
    return;
  }
  const tarn::CameraStation* station = boundStation();
  const tarn::Photograph* photograph = station ? station->GetPhotograph() : nullptr;
  if (!photograph) return;
  if (!labelText) {
    labelTranslation = makeNode<SoTranslation>();
    labelText = makeNode<TarnOIText2>();
    addChild(labelTranslation.get());
    addChild(labelText.get());
  }
  tarn::VString text;
  text.prints("CS%d", photograph->GetNumber());
  labelText->string.setValue(text.text());

  double offset = tarn::gPref->GetPreference("CSIDOffset", 0.5, viewerSection);
  if (usesDetailedSymbol()) {
    // Behind the scale that the detailed symbol brings along.
    offset = tarn::gPref->GetPreference("CSIDOffsetNewSymbol", 100.0, viewerSection);
  }
  const auto o = static_cast<float>(offset);
  labelTranslation->translation.setValue(o, o, o);
}

void TarnOICameraStationSeparator::Highlight(SoMaterial* material, int on) {
  if (!material) return;
  if (!on) {
    for (int i = findChild(material); i != -1; i = findChild(material)) removeChild(i);
    if (frustumSwitch) ChildNodes::remove(*frustumSwitch, material);
    return;
  }
  if (findChild(material) != -1) return;
  // Fixed places, which fit the children that SetCameraStation builds: behind the symbol's
  // own shape hints and material, or in front of the image plane. Hosts rely on them.
  const int index = showSymbolWithImage ? 9 : showImagePlane ? 5 : 7;
  if (index > getNumChildren()) return;
  if (frustumSwitch) frustumSwitch->insertChild(material, 0);
  insertChild(material, index);
}

void TarnOICameraStationSeparator::copyContents(const SoFieldContainer* from,
                                                SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOICameraStationSeparator*>(from);
  scaleNode = ChildNodes::counterpart(*this, *other, other->scaleNode);
  labelText = ChildNodes::counterpart(*this, *other, other->labelText);
  labelTranslation = ChildNodes::counterpart(*this, *other, other->labelTranslation);
  showImagePlane = other->showImagePlane;
  showSymbolWithImage = other->showSymbolWithImage;
  frustumScale = other->frustumScale;
  frustumOnlyWhenSelected = other->frustumOnlyWhenSelected;
  isSelectedFlag = other->isSelectedFlag;
  frustumWhichChild = other->frustumWhichChild;
  if (!other->frustumSwitch || getNumChildren() == 0) return;
  // The switch is the only child of the first one; a highlight may stand in it first.
  auto* first = static_cast<SoGroup*>(getChild(0));
  frustumSwitch = NodeRef(static_cast<SoSwitch*>(first->getChild(0)));
  const int count = frustumSwitch->getNumChildren();
  if (count < 2) return;
  frustumCoords = NodeRef(static_cast<SoCoordinate3*>(frustumSwitch->getChild(count - 2)));
  frustumLines = NodeRef(static_cast<SoLineSet*>(frustumSwitch->getChild(count - 1)));
}

void TarnOICameraStationSeparator::UpdateFrustum(tarn::Extents* projectExtents) {
  if (!projectExtents) return;
  if (!TARNOI_ASSERT(tarnObject, "tarnObject", sourceFile)) return;
  if (!TARNOI_ASSERT(tarnObject->isA(tarn::CameraStationCls), "tarnObject->isA( CameraStationCls )",
                     sourceFile)) {
    return;
  }
  if (!frustumCoords) return;
  tarn::CameraStation* station = boundStation();
  const auto camera = makeNode<SoPerspectiveCamera>();
  SetCameraToMatchPhoto(camera.get(), station, nullptr);
  const SbVec3f centre = camera->position.getValue();

  const auto distance =
      static_cast<float>((projectExtents->GetCentre() - station->GetPosition()).length());
  const auto depth = static_cast<float>(distance * frustumScale);
  const SbViewVolume volume = camera->getViewVolume(camera->aspectRatio.getValue());
  const SbVec3f a = volume.getPlanePoint(depth, SbVec2f(0.0F, 0.0F));
  const SbVec3f b = volume.getPlanePoint(depth, SbVec2f(1.0F, 0.0F));
  const SbVec3f c = volume.getPlanePoint(depth, SbVec2f(0.0F, 1.0F));
  const SbVec3f d = volume.getPlanePoint(depth, SbVec2f(1.0F, 1.0F));
  const std::array points = {a, centre, b, centre, c, centre, d, centre, a, b, a, c, b, d, c, d};
  frustumCoords->point.setValues(0, static_cast<int>(points.size()), points.data());
}

void TarnOICameraStationSeparator::buildChildren(const tarn::CameraStation& station) {
  // Of children that an application dropped the label is not taken up again.
  labelText.reset();
  labelTranslation.reset();
  buildFrustum();
  auto* complexity = new SoComplexity;
  addChild(complexity);
  complexity->value = 1.0F;
  complexity->textureQuality = 1.0F;
  addChild(new SoTranslation);
  addChild(new SoMatrixTransform);
  if (scaleNode) addChild(scaleNode.get());
  if (showImagePlane) {
    addChild(ImagePlane::build(station, searchDict).get());
    if (tarn::gPref->GetBoolPreference("ShowCamsAsLines", 1, viewerSection)) {
      addChild(ImagePlane::buildCameraLine(station).get());
    }
  }
  if (showSymbolWithImage || !showImagePlane) appendSymbol(station);
}

void TarnOICameraStationSeparator::buildFrustum() {
  frustumSwitch = makeNode<SoSwitch>();
  frustumSwitch->whichChild = frustumWhichChild;
  frustumCoords = makeNode<SoCoordinate3>();
  std::array<SbVec3f, 16> unshaped;
  unshaped.fill(SbVec3f(0.0F, 0.0F, 0.0F));
  frustumCoords->point.setValues(0, static_cast<int>(unshaped.size()), unshaped.data());
  frustumLines = makeNode<SoLineSet>();
  const std::array<int32_t, 8> segments = {2, 2, 2, 2, 2, 2, 2, 2};
  frustumLines->numVertices.setValues(0, static_cast<int>(segments.size()), segments.data());
  frustumSwitch->addChild(frustumCoords.get());
  frustumSwitch->addChild(frustumLines.get());
  auto* separator = new SoSeparator;
  separator->addChild(frustumSwitch.get());
  addChild(separator);
}

void TarnOICameraStationSeparator::appendSymbol(const tarn::CameraStation& station) {
  NodeRef<SoSeparator> contents;
  bool shared = false;
  if (!station.IsOriented()) {
    contents = CameraSymbols::readSphere();
  } else if (usesDetailedSymbol()) {
    CreateCSNode();
    contents = NodeRef<SoSeparator>(g_cs_node);
    shared = true;
  } else {
    contents = CameraSymbols::readBox();
  }
  if (!TARNOI_ASSERT(contents, "contents", sourceFile)) return;
  for (int i = 0; i < contents->getNumChildren(); ++i) addChild(contents->getChild(i));
  if (!shared) contents->removeAllChildren();
}

void TarnOICameraStationSeparator::place(const tarn::CameraStation& station) {
  tarn::Point3DDouble position;
  bool known = true;
  if (station.IsOriented()) {
    position = station.GetPosition();
  } else {
    known = station.GetGPSPosition(position);
  }
  SoNode* translation = childOrNull(2);
  if (known && translation && translation->isOfType(SoTranslation::getClassTypeId())) {
    static_cast<SoTranslation*>(translation)->translation = ViewerFrame::fromModel(position);
  }
  SoNode* rotation = childOrNull(3);
  if (rotation && rotation->isOfType(SoMatrixTransform::getClassTypeId())) {
    static_cast<SoMatrixTransform*>(rotation)->matrix =
        StationMatrix::ofSymbol(station.GetRotationMatrix());
  }
}

tarn::CameraStation* TarnOICameraStationSeparator::boundStation() const {
  return tarnObjectAs<tarn::CameraStation>(tarn::CameraStationCls);
}

SoNode* TarnOICameraStationSeparator::childOrNull(int index) const {
  return index < getNumChildren() ? getChild(index) : nullptr;
}
