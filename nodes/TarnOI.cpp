#include "nodes/TarnOI.h"

#include "host/general/DisplayBitmaps.h"
#include "nodes/cameras/TarnOICameraRaysSeparator.h"
#include "nodes/cameras/TarnOICameraStationSeparator.h"
#include "nodes/cameras/TarnOIPointRaysSeparator.h"
#include "nodes/framework/SoBackground.h"
#include "nodes/framework/SoGradientBackground.h"
#include "nodes/framework/SoSeparatorWithLayerDict.h"
#include "nodes/framework/TarnOIDrawStyle.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/TarnOIMaterial.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "nodes/framework/TarnOIOrthographicCamera.h"
#include "nodes/framework/TarnOIOverlaySeparator.h"
#include "nodes/framework/TarnOIPerspectiveCamera.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "nodes/framework/TarnOISeparator.h"
#include "nodes/framework/TarnOISwitch.h"
#include "nodes/framework/TarnOIText2.h"
#include "nodes/framework/TarnOITexture.h"
#include "nodes/hud/TarnOIColorizeScaleHUD.h"
#include "nodes/hud/TarnOIDSMCutterHUD.h"
#include "nodes/hud/TarnOIDSMProfileHUD.h"
#include "nodes/lines/TarnOIAxisSeparator.h"
#include "nodes/lines/TarnOIEdgeSeparator.h"
#include "nodes/lines/TarnOIGroundPlaneSeparator.h"
#include "nodes/lines/TarnOILineSeparator.h"
#include "nodes/meshes/TarnOIContourSeparator.h"
#include "nodes/meshes/TarnOIPointMeshSeparator.h"
#include "nodes/points/TarnOIAffineObjectSeparator.h"
#include "nodes/points/TarnOICheckPointSeparator.h"
#include "nodes/points/TarnOIImportedPointSeparator.h"
#include "nodes/points/TarnOIObjectPointSeparator.h"
#include "nodes/points/TarnOIOffsetPointSeparator.h"
#include "nodes/points/TarnOIThreeDPointsSeparator.h"
#include "nodes/surfaces/TarnOICurveSeparator.h"
#include "nodes/surfaces/TarnOICylinderSeparator.h"
#include "nodes/surfaces/TarnOIImportedLineSeparator.h"
#include "nodes/surfaces/TarnOIImportedSurfaceSeparator.h"
#include "nodes/surfaces/TarnOINurbsSurfaceSeparator.h"
#include "nodes/surfaces/TarnOIShapeEdgeSeparator.h"
#include "nodes/surfaces/TarnOIShapeFaceSeparator.h"
#include "nodes/surfaces/TarnOIShapeVertexSeparator.h"
#include "nodes/surfaces/TarnOIShapeVertexToMarkSeparator.h"
#include "nodes/surfaces/TarnOISurfaceSeparator.h"

#include <array>
#include <ranges>

namespace TarnOI {

namespace {

template <typename Class>
constexpr ClassEntry entry(const char* name, const char* parent, const char* summary) {
  return {
      name, parent, summary, &Class::initClass, &Class::CleanUpInitClass, &Class::getClassTypeId};
}

constexpr std::array table = {
    entry<TarnOISeparator>("TarnOISeparator", "SoSeparator",
                           "shows one object of the host's model (abstract)"),
    entry<TarnOISearchAction>("TarnOISearchAction", "SoSearchAction",
                              "finds the nodes that show a model object, hidden layers included"),
    entry<TarnOILayerSeparator>("TarnOILayerSeparator", "TarnOISeparator",
                                "holds the nodes of one layer"),
    entry<TarnOISwitch>("TarnOISwitch", "SoSwitch",
                        "shows or hides a layer; a search for an object looks through it"),
    entry<SoSeparatorWithLayerDict>("SoSeparatorWithLayerDict", "SoSeparator",
                                    "carries a map of layers for the host"),
    entry<TarnOIMaterial>("TarnOIMaterial", "SoMaterial", "takes its colours from a host material"),
    entry<TarnOIMaterialWithPriority>("TarnOIMaterialWithPriority", "SoMaterial",
                                      "a highlight; the highest priority wins"),
    entry<TarnOIDrawStyle>("TarnOIDrawStyle", "SoDrawStyle",
                           "hides nodes from bounding boxes and picks too"),
    entry<TarnOITexture>("TarnOITexture", "SoTexture2", "an image file, shared by its path"),
    entry<TarnOIText2>("TarnOIText2", "SoText2", "the text of a label"),
    entry<TarnOIPerspectiveCamera>("TarnOIPerspectiveCamera", "SoPerspectiveCamera",
                                   "looks through a rectangle, such as a photograph's frame"),
    entry<TarnOIOrthographicCamera>("TarnOIOrthographicCamera", "SoOrthographicCamera",
                                    "looks through a rectangle, from the origin along -z"),
    entry<TarnOIOverlaySeparator>("TarnOIOverlaySeparator", "TarnOISeparator",
                                  "what is fixed to the screen, with a camera of its own"),
    entry<SoBackground>("SoBackground", "SoNode", "is drawn behind a scene (abstract)"),
    entry<SoGradientBackground>("SoGradientBackground", "SoBackground",
                                "fills the viewport with a gradient of two colours"),
    entry<TarnOIObjectPointSeparator>("TarnOIObjectPointSeparator", "TarnOISeparator",
                                      "an object point: marker, colour, label and error ellipsoid"),
    entry<TarnOIOffsetPointSeparator>("TarnOIOffsetPointSeparator", "TarnOISeparator",
                                      "a point at an offset from an object point, with its label"),
    entry<TarnOICheckPointSeparator>("TarnOICheckPointSeparator", "TarnOISeparator",
                                     "a check point"),
    entry<TarnOIThreeDPointsSeparator>("TarnOIThreeDPointsSeparator", "TarnOISeparator",
                                       "a point that the host derives from an object"),
    entry<TarnOIImportedPointSeparator>("TarnOIImportedPointSeparator", "TarnOISeparator",
                                        "an imported point: point or sphere, label"),
    entry<TarnOIAffineObjectSeparator>("TarnOIAffineObjectSeparator", "TarnOISeparator",
                                       "a point of the project's coordinate system: point or "
                                       "sphere"),
    entry<TarnOICameraStationSeparator>("TarnOICameraStationSeparator", "TarnOISeparator",
                                        "a camera station: symbol, frustum, photograph, label"),
    entry<TarnOICameraRaysSeparator>("TarnOICameraRaysSeparator", "TarnOISeparator",
                                     "the rays from a station to the points on its photograph"),
    entry<TarnOIPointRaysSeparator>("TarnOIPointRaysSeparator", "TarnOISeparator",
                                    "the rays from an object point to the stations that see it"),
    entry<TarnOILineSeparator>("TarnOILineSeparator", "TarnOISeparator",
                               "a line, with a dashed 3D extension"),
    entry<TarnOIEdgeSeparator>("TarnOIEdgeSeparator", "TarnOISeparator",
                               "an edge, with a dashed 3D extension"),
    entry<TarnOIAxisSeparator>("TarnOIAxisSeparator", "TarnOISeparator",
                               "the model's axes as a cross with letters"),
    entry<TarnOIGroundPlaneSeparator>("TarnOIGroundPlaneSeparator", "TarnOISeparator",
                                      "a translucent rectangle under the project"),
    entry<TarnOISurfaceSeparator>("TarnOISurfaceSeparator", "TarnOISeparator",
                                  "a surface group: triangles between points of the model"),
    entry<TarnOINurbsSurfaceSeparator>("TarnOINurbsSurfaceSeparator", "TarnOISeparator",
                                       "a tessellated smooth surface with its textures"),
    entry<TarnOICylinderSeparator>("TarnOICylinderSeparator", "TarnOINurbsSurfaceSeparator",
                                   "a cylinder: its surface or centre line, with a dashed axis"),
    entry<TarnOICurveSeparator>("TarnOICurveSeparator", "TarnOISeparator",
                                "a NURBS curve, as one polyline"),
    entry<TarnOIImportedLineSeparator>("TarnOIImportedLineSeparator", "TarnOISeparator",
                                       "a line brought in from outside"),
    entry<TarnOIImportedSurfaceSeparator>("TarnOIImportedSurfaceSeparator",
                                          "TarnOINurbsSurfaceSeparator",
                                          "a surface brought in from outside"),
    entry<TarnOIShapeFaceSeparator>("TarnOIShapeFaceSeparator", "TarnOINurbsSurfaceSeparator",
                                    "a face of a solid, with its name flat on it"),
    entry<TarnOIShapeEdgeSeparator>("TarnOIShapeEdgeSeparator", "TarnOISeparator",
                                    "an edge of a solid, with markers of its corners"),
    entry<TarnOIShapeVertexSeparator>("TarnOIShapeVertexSeparator", "TarnOISeparator",
                                      "a corner of a solid, as a point"),
    entry<TarnOIShapeVertexToMarkSeparator>("TarnOIShapeVertexToMarkSeparator", "TarnOISeparator",
                                            "the marker of a corner of a solid: a sphere"),
    entry<TarnOIPointMeshSeparator>("TarnOIPointMeshSeparator", "TarnOISeparator",
                                    "a point cloud or mesh: colours, heights, sub-selections"),
    entry<TarnOIContourSeparator>("TarnOIContourSeparator", "TarnOISeparator",
                                  "a contour of a point mesh, with points highlighted"),
    entry<TarnOIColorizeScaleHUD>("TarnOIColorizeScaleHUD", "TarnOIOverlaySeparator",
                                  "the legend of the false-colour ramp"),
    entry<TarnOIDSMCutterHUD>("TarnOIDSMCutterHUD", "SoSeparator",
                              "a line or box drawn over the model: the planes that cut it"),
    entry<TarnOIDSMProfileHUD>("TarnOIDSMProfileHUD", "SoSeparator",
                               "a line drawn over the model: the plane of its profile"),
};

}  // namespace

std::span<const ClassEntry> classes() { return table; }

void initClasses() {
  bool any = false;
  for (const ClassEntry& listed : table) {
    if (listed.getClassTypeId() != SoType::badType()) continue;
    listed.initClass();
    any = true;
  }
  // A second call must neither fill Coin's marker table nor undo an application's symbols.
  if (any) tarn::gSymbols.registerMarkers();
}

void cleanUpClasses() {
  for (const ClassEntry& listed : std::views::reverse(table)) listed.cleanUpInitClass();
}

}  // namespace TarnOI
