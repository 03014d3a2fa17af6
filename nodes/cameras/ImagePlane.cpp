#include "nodes/cameras/ImagePlane.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTextureCoordinate2.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/classes/VPathString.h"
#include "host/general/PathFinder.h"
#include "host/general/Preferences.h"
#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/Image.h"
#include "host/model/Photograph.h"
#include "nodes/framework/TarnOITexture.h"

#include <array>
#include <memory>

namespace ImagePlane {

namespace {

constexpr const char* section = "ProjectViewer(3D_Viewer)";
constexpr float enlargement = 400.0F;

float planeDistance(const tarn::CameraStation& station) {
  const tarn::Camera* camera = station.GetCamera(1);
  return camera ? static_cast<float>(camera->GetFocalLength()) * enlargement : 0.0F;
}

std::array<SbVec3f, 4> corners(const tarn::CameraStation& station) {
  double width = 0.0;
  double height = 0.0;
  if (const tarn::Camera* camera = station.GetCamera(1)) camera->GetFormatSize(width, height);
  const float enlargedWidth = static_cast<float>(width) * enlargement;
  const float enlargedHeight = static_cast<float>(height) * enlargement;
  const auto x = static_cast<float>(static_cast<double>(enlargedWidth) / 2.0);
  const auto y = static_cast<float>(static_cast<double>(enlargedHeight) / 2.0);
  return {SbVec3f(-x, -y, 0.0F), SbVec3f(x, -y, 0.0F), SbVec3f(x, y, 0.0F), SbVec3f(-x, y, 0.0F)};
}

const tarn::VPathString* photographFile(const tarn::CameraStation& station) {
  const tarn::Photograph* photograph = station.GetPhotograph();
  const tarn::Image* image = photograph ? photograph->GetImage() : nullptr;
  const tarn::VPathString* file = image ? image->GetFileName() : nullptr;
  return file && !file->isEmpty() ? file : nullptr;
}

// Writes the shrunken copy of the photograph. What fails here shows in the copy's absence.
void makeReducedCopy(const tarn::VPathString& photograph, const tarn::VPathString& copy) {
  tarn::Image image(photograph);
  int width = 0;
  int height = 0;
  if (!image.Load(1) || !image.GetExtents(width, height)) return;
  const int factor = tarn::gPref->GetPreference("CamStnImageResampleFactor", 10, section);
  // A store of the host's own may answer 0; no picture can be shrunk by that.
  if (factor == 0) return;
  image.ResizeInterpolated(width / factor, height / factor, 0, 1);
  image.Save(copy, tarn::Image::formatSGI, 50);
}

void setTexture(TarnOITexture* texture, const tarn::CameraStation& station,
                tarn::VDictionary* dict) {
  if (const tarn::VPathString* photograph = photographFile(station)) {
    auto copy = std::make_shared<tarn::VPathString>();
    copy->prints("%s\\%s.sgi.3dvip", photograph->directoryOf().text(),
                 photograph->prefixOf().text());
    if (!tarn::PathFinder::IsExistingFile(*copy)) makeReducedCopy(*photograph, *copy);
    if (tarn::PathFinder::IsExistingFile(*copy)) {
      texture->SetFileName(std::move(copy), dict);
      return;
    }
  }
  // A texture reports at its end that it was given no dictionary. A missing photograph is no
  // error: the texture knows its dictionary and is not in it.
  texture->SetDictionary(dict);
}

}  // namespace

NodeRef<SoSeparator> build(const tarn::CameraStation& station, tarn::VDictionary* dict) {
  auto plane = makeNode<SoSeparator>();

  auto* translation = new SoTranslation;
  plane->addChild(translation);
  translation->translation.setValue(0.0F, 0.0F, planeDistance(station));

  auto* texture = new TarnOITexture;
  plane->addChild(texture);
  setTexture(texture, station, dict);

  // The picture stands upside down in the symbol's axes, as on a camera's film.
  auto* textureCoordinates = new SoTextureCoordinate2;
  plane->addChild(textureCoordinates);
  const SbVec2f onPicture[4] = {SbVec2f(0, 1), SbVec2f(1, 1), SbVec2f(1, 0), SbVec2f(0, 0)};
  textureCoordinates->point.setValues(0, 4, onPicture);

  auto* hints = new SoShapeHints;
  plane->addChild(hints);
  const bool doubleSided =
      tarn::gPref->GetBoolPreference("ShowDoubleSidedImagePlaneCam", 1, section);
  hints->shapeType = doubleSided ? SoShapeHints::UNKNOWN_SHAPE_TYPE : SoShapeHints::SOLID;
  hints->vertexOrdering = doubleSided ? SoShapeHints::COUNTERCLOCKWISE : SoShapeHints::CLOCKWISE;

  auto* coordinates = new SoCoordinate3;
  plane->addChild(coordinates);
  coordinates->point.setValues(0, 4, corners(station).data());

  auto* face = new SoIndexedFaceSet;
  plane->addChild(face);
  const int32_t indices[5] = {0, 1, 2, 3, -1};
  face->coordIndex.setValues(0, 5, indices);
  face->textureCoordIndex.setValues(0, 5, indices);
  return plane;
}

NodeRef<SoSeparator> buildCameraLine(const tarn::CameraStation& station) {
  auto line = makeNode<SoSeparator>();
  line->addChild(new SoPointSet);

  auto* coordinates = new SoCoordinate3;
  line->addChild(coordinates);
  const SbVec3f ends[2] = {SbVec3f(0.0F, 0.0F, 0.0F), SbVec3f(0.0F, 0.0F, planeDistance(station))};
  coordinates->point.setValues(0, 2, ends);

  auto* lines = new SoLineSet;
  line->addChild(lines);
  lines->numVertices.setValue(2);
  return line;
}

}  // namespace ImagePlane
