#include "viewer/layers/SurfaceLayer.h"

#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoNormal.h>

#include "host/model/ImportedLine.h"
#include "host/model/ImportedSurface.h"
#include "host/model/Material.h"
#include "host/model/NURBSCurve.h"
#include "host/model/NURBSSurfaceCylinder.h"
#include "host/model/Project.h"
#include "io/ReadProgress.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/SceneColor.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/TarnOIMaterial.h"
#include "nodes/framework/TarnOITexture.h"
#include "nodes/surfaces/TarnOICurveSeparator.h"
#include "nodes/surfaces/TarnOICylinderSeparator.h"
#include "nodes/surfaces/TarnOIImportedLineSeparator.h"
#include "nodes/surfaces/TarnOIImportedSurfaceSeparator.h"
#include "viewer/layers/SceneContext.h"

#include <algorithm>
#include <memory>
#include <type_traits>

namespace {

SoMaterial* usualMaterial() {
  auto* node = new SoMaterial;
  node->diffuseColor = SbColor(0.80F, 0.78F, 0.72F);
  return node;
}

// A texture brings its own light and shade: the node's grey of 0.9 as ambient colour shows it
// nearly as it is. It would wash out the colours of what has none, whose ambient colour is its own.
SoMaterial* nodeOf(tarn::Material& material, bool textured) {
  auto* node = new TarnOIMaterial;
  node->SetMaterial(&material);
  if (textured) return node;
  tarn::Colour ambient;
  tarn::Colour others[3];
  double shininess = 0.0;
  material.GetFixedColor(ambient, others[0], others[1], others[2], shininess);
  node->ambientColor = SceneColor::from(ambient);
  return node;
}

// What a set is drawn with: a texture that is not to be multiplied has Coin's usual material.
SoMaterial* materialOf(const tarn::TessellatedSurface& surface, int set, bool textured) {
  tarn::Material* material = surface.GetMaterialOfSet(set);
  if (!material) material = surface.GetMaterial();
  if (!material) return usualMaterial();
  return textured && !material->GetBlendRGBWithTexture() ? new SoMaterial
                                                         : nodeOf(*material, textured);
}

// Puts each set's material ahead of its nodes, which the node has in that order: the sets without
// texture from the last to the first, then the textured ones.
void putMaterials(SoGroup& node, const tarn::TessellatedSurface& surface,
                  const std::vector<TarnOITexture*>& textures) {
  std::vector<int> sets;
  for (int set = surface.GetNumTriangleSets() - 1; set >= 0; --set) {
    if (!textures[static_cast<std::size_t>(set)]) sets.push_back(set);
  }
  for (int set = 0; set < surface.GetNumTriangleSets(); ++set) {
    if (textures[static_cast<std::size_t>(set)]) sets.push_back(set);
  }
  // Appended all anew: put in one by one, tens of thousands of sets would move each other on.
  std::vector<NodeRef<SoNode>> children;
  for (int i = 0; i < node.getNumChildren(); ++i) children.emplace_back(node.getChild(i));
  const OneNotification once(node);
  node.removeAllChildren();
  auto next = sets.begin();
  bool isBegin = true;
  for (const NodeRef<SoNode>& child : children) {
    const bool isOfSet = child->isOfType(SoNormal::getClassTypeId()) ||
                         child->isOfType(TarnOITexture::getClassTypeId());
    if (isBegin && isOfSet && next != sets.end()) {
      const bool textured = textures[static_cast<std::size_t>(*next)] != nullptr;
      node.addChild(materialOf(surface, *next++, textured));
      isBegin = false;
    }
    isBegin = isBegin || child->isOfType(SoIndexedFaceSet::getClassTypeId());
    node.addChild(child.get());
  }
}

}  // namespace

SurfaceLayer::SurfaceLayer(tarn::Project& project, SceneContext& context)
    : SceneLayer("Surfaces", context) {
  singleSided->vertexOrdering = SoShapeHints::COUNTERCLOCKWISE;
  singleSided->shapeType = SoShapeHints::SOLID;
  doubleSided->vertexOrdering = SoShapeHints::COUNTERCLOCKWISE;
  separator->addChild(usualMaterial());
  addSurfaces<TarnOIImportedSurfaceSeparator>(project.GetImportedSurfaces(), "imported surfaces");
  addSurfaces<TarnOINurbsSurfaceSeparator>(project.GetNURBSSurfaces(), "NURBS surfaces");
  addSurfaces<TarnOICylinderSeparator>(project.GetNURBSSurfaceCylinders(), "cylinders");
  addLines(project);
}

SurfaceLayer::~SurfaceLayer() = default;

void SurfaceLayer::tessellate(const tarn::Project& project) {
  for (const tarn::VOrdCollect* surfaces :
       {&project.GetNURBSSurfaces(), &project.GetNURBSSurfaceCylinders()}) {
    for (int i = 0; i < surfaces->size(); ++i) {
      auto* surface = static_cast<tarn::NURBSSurface*>(surfaces->at(i));
      if (surface->GetNumTriangleSets() > 0) continue;
      surface->Tessellate(project.GetCurveTesselationTolerance());
    }
  }
}

template <typename Node>
void SurfaceLayer::addSurfaces(const tarn::VOrdCollect& surfaces, const char* step) {
  if (surfaces.size() == 0) return;
  tarn::ReadProgress progress(context.progress, step);
  for (int i = 0; i < surfaces.size(); ++i) {
    add<Node>(*static_cast<tarn::TessellatedSurface*>(surfaces.at(i)));
    progress.at(static_cast<double>(i + 1) / surfaces.size());
  }
}

void SurfaceLayer::addLines(tarn::Project& project) {
  const tarn::VOrdCollect& lines = project.GetImportedLines();
  for (int i = 0; i < lines.size(); ++i) {
    auto* node = new TarnOIImportedLineSeparator;
    separator->addChild(node);
    node->SetImportedLine(static_cast<tarn::ImportedLine*>(lines.at(i)), &context.objects);
  }
  const tarn::VOrdCollect& curves = project.GetNURBSCurves();
  for (int i = 0; i < curves.size(); ++i) {
    auto* node = new TarnOICurveSeparator;
    separator->addChild(node);
    node->SetCurve(static_cast<tarn::NURBSCurve*>(curves.at(i)), &context.objects, &project);
  }
}

template <typename Node>
void SurfaceLayer::add(tarn::TessellatedSurface& surface) {
  auto* node = new Node;
  separator->addChild(node);
  std::vector<TarnOITexture*> ofSets;
  for (int set = 0; set < surface.GetNumTriangleSets(); ++set) {
    ofSets.push_back(textureOf(surface.GetTextureFile(set)));
  }
  tarn::VOrdCollect* sets = surface.GetTriangleSets();
  const auto set = [&](auto... mode) {
    node->SetNurbsSurface(&surface, &context.objects, singleSided.get(), doubleSided.get(),
                          ofSets.data(), &sets, surface.GetUvMatrices(), mode...);
  };
  if constexpr (std::is_same_v<Node, TarnOICylinderSeparator>) {
    set(/*asCentreLine=*/0);
  } else {
    set();
  }
  putMaterials(*node, surface, ofSets);
}

// Null where there is no picture to show.
TarnOITexture* SurfaceLayer::textureOf(const tarn::VPathString* file) {
  if (!file) return nullptr;
  const auto [found, isNew] = textures.try_emplace(file->str());
  if (!isNew) return found->second.get();
  NodeRef<TarnOITexture> texture = makeNode<TarnOITexture>();
  texture->SetFileName(std::make_shared<tarn::VPathString>(*file), &context.textures);
  SbVec2s size;
  int components = 0;
  texture->image.getValue(size, components);
  if (size[0] > 0 && size[1] > 0) {
    found->second = texture;
  } else {
    textureNotes.push_back(file->str() + ": the picture cannot be read; its surfaces are shown " +
                           "without a texture");
  }
  return found->second.get();
}
