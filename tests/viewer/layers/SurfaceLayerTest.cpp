#include "viewer/layers/SurfaceLayer.h"

#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoNormal.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "host/model/ImportedLine.h"
#include "host/model/ImportedSurface.h"
#include "host/model/NURBSCurve.h"
#include "host/model/NURBSSurfaceCylinder.h"
#include "host/model/Project.h"
#include "nodes/framework/TarnOIMaterial.h"
#include "nodes/framework/TarnOITexture.h"
#include "nodes/surfaces/TarnOICurveSeparator.h"
#include "nodes/surfaces/TarnOICylinderSeparator.h"
#include "nodes/surfaces/TarnOIImportedLineSeparator.h"
#include "nodes/surfaces/TarnOIImportedSurfaceSeparator.h"
#include "tests/support/NodesBelow.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/TarnTest.h"
#include "viewer/layers/SceneContext.h"

#include <memory>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SurfaceLayerTest : public TarnTest {
protected:
  tarn::ImportedSurface& addSurface() { return project.AddImportedSurface(); }

  // One triangle in a set of its own, with that picture and that material.
  static void addSet(tarn::ImportedSurface& surface, const std::string& picture,
                     tarn::Material* material) {
    const int set = surface.AddTriangleSet();
    tarn::Triangle& triangle =
        surface.AddTriangle(set, &surface.AddPoint({1, 2, 3}), &surface.AddPoint({4, 2, 3}),
                            &surface.AddPoint({1, 7, 3}));
    surface.SetTextureCoordinates(triangle, {{{0, 0}, {1, 0}, {0, 1}}});
    surface.SetMaterialOfSet(set, material);
    if (!picture.empty()) surface.SetTextureFile(set, tarn::VPathString(picture));
  }

  static tarn::Material& coloured(tarn::ImportedSurface& surface, const tarn::Colour& diffuse) {
    tarn::Material& material = surface.AddMaterial();
    material.SetFixedColor(tarn::Colour(51, 102, 153), diffuse, {}, {}, 0.5);
    return material;
  }
  // One that multiplies a texture, or shows it alone.
  static tarn::Material& textured(tarn::ImportedSurface& surface, int blend) {
    tarn::Material& material = coloured(surface, {255, 255, 0});
    material.SetDiffuseType(tarn::Material::ePhotoTexture);
    material.SetBlendRGBWithTexture(blend);
    return material;
  }

  std::string picture(const std::string& name) const {
    return folder.write(name, jpegOf(Pixels::pattern(16, 8, 3)));
  }

  SurfaceLayer& show() {
    layer = std::make_unique<SurfaceLayer>(project, context);
    return *layer;
  }
  SoGroup& nodeOf(tarn::TessellatedSurface& surface) const {
    return *static_cast<TarnOINurbsSurfaceSeparator*>(context.objects.atKey(&surface));
  }

  // What the surface is drawn with, set by set as its node has them: the texture's file and the
  // material's diffuse colour.
  std::vector<std::string> drawn(tarn::TessellatedSurface& surface) const {
    std::vector<std::string> sets;
    std::string texture = "plain";
    const SoMaterial* material = nullptr;
    const SoGroup& node = nodeOf(surface);
    for (int i = 0; i < node.getNumChildren(); ++i) {
      SoNode* child = node.getChild(i);
      if (child->isOfType(SoMaterial::getClassTypeId())) {
        material = static_cast<SoMaterial*>(child);
      } else if (child->isOfType(TarnOITexture::getClassTypeId())) {
        const std::string file =
            static_cast<TarnOITexture*>(child)->filename.getValue().getString();
        texture = file.substr(file.rfind('/') + 1);
      } else if (child->isOfType(SoIndexedFaceSet::getClassTypeId())) {
        std::string text = texture;
        for (int c = 0; c < 3; ++c) {
          text +=
              ' ' + (material ? std::to_string(std::lround(255.0F * material->diffuseColor[0][c]))
                              : "none");
        }
        sets.push_back(text);
      }
    }
    return sets;
  }

  TemporaryFolder folder;
  tarn::Project project;
  SceneContext context{{}};
  std::unique_ptr<SurfaceLayer> layer;
};

TEST_F(SurfaceLayerTest, EachSurfaceAndLineHasItsNode) {
  tarn::ImportedSurface& first = addSurface();
  tarn::ImportedSurface& second = addSurface();
  addSet(first, "", nullptr);
  tarn::ImportedLine& line = project.AddImportedLine();
  show();
  EXPECT_EQ(nodesBelow<TarnOIImportedSurfaceSeparator>(layer->root()).size(), 2U);
  EXPECT_EQ(nodesBelow<TarnOIImportedLineSeparator>(layer->root()).size(), 1U);
  for (tarn::VObject* object : std::initializer_list<tarn::VObject*>{&first, &second, &line}) {
    EXPECT_NE(context.objects.atKey(object), nullptr);
  }
  EXPECT_THAT(layer->notes(), IsEmpty());
}

TEST_F(SurfaceLayerTest, NurbsSurfacesCylindersAndCurvesHaveTheirNodes) {
  tarn::NURBSSurface& surface = project.AddNURBSSurface();
  ASSERT_TRUE(surface.SetSurface(1, {0, 0, 1, 1}, 1, {0, 0, 1, 1},
                                 {{0, 0, 0}, {4, 0, 0}, {0, 3, 0}, {4, 3, 1}}));
  tarn::NURBSSurfaceCylinder& cylinder = project.AddNURBSSurfaceCylinder();
  cylinder.GetCylinder()->SetEndPoints({0, 0, 0}, {0, 0, 5});
  cylinder.GetCylinder()->SetRadius(2.0);
  cylinder.GetCylinder()->SetThreeDExtenstionFactor(2.0);
  tarn::NURBSCurve& curve = project.AddNURBSCurve();
  ASSERT_TRUE(curve.SetCurve(1, {0, 0, 1, 1}, {{0, 0, 0}, {9, 0, 0}}));
  project.SetCurveTesselationTolerance(0.05);
  SurfaceLayer::tessellate(project);
  const int triangles = surface.GetTriangles()->size();
  EXPECT_GT(triangles, 1);
  EXPECT_GT(cylinder.GetTriangles()->size(), 10);
  SurfaceLayer::tessellate(project);
  EXPECT_EQ(surface.GetTriangles()->size(), triangles);
  show();
  EXPECT_TRUE(nodeOf(surface).isOfType(TarnOINurbsSurfaceSeparator::getClassTypeId()));
  EXPECT_THAT(drawn(surface), ElementsAre("plain 204 199 184"));
  EXPECT_TRUE(nodeOf(cylinder).isOfType(TarnOICylinderSeparator::getClassTypeId()));
  EXPECT_EQ(nodesBelow<SoLineSet>(&nodeOf(cylinder)).size(), 1U) << "its axis is not prolonged";
  EXPECT_NE(context.objects.atKey(&curve), nullptr);
  EXPECT_EQ(nodesBelow<TarnOICurveSeparator>(layer->root()).size(), 1U);
}

TEST_F(SurfaceLayerTest, SetsWithoutAMaterialHaveTheUsualOne) {
  tarn::ImportedSurface& surface = addSurface();
  addSet(surface, "", nullptr);
  show();
  EXPECT_THAT(drawn(surface), ElementsAre("plain 204 199 184"));
}

TEST_F(SurfaceLayerTest, EachSetHasItsMaterialAndItsTexture) {
  tarn::ImportedSurface& surface = addSurface();
  addSet(surface, "", &coloured(surface, {255, 0, 0}));
  addSet(surface, picture("a.jpg"), &textured(surface, 1));
  addSet(surface, "", nullptr);
  addSet(surface, picture("b.jpg"), &textured(surface, 0));
  addSet(surface, "", &coloured(surface, {0, 255, 0}));
  show();
  // A texture that is shown alone has Coin's usual grey.
  EXPECT_THAT(drawn(surface), ElementsAre("plain 0 255 0", "plain 204 199 184", "plain 255 0 0",
                                          "a.jpg 255 255 0", "b.jpg 204 204 204"));
}

TEST_F(SurfaceLayerTest, ASurfacesOnlyMaterialThatShowsTheTextureAloneIsNeutral) {
  tarn::ImportedSurface& surface = addSurface();
  tarn::Material& material = textured(surface, 0);
  addSet(surface, picture("a.jpg"), &material);
  surface.SetMaterial(&material);
  show();
  EXPECT_THAT(drawn(surface), ElementsAre("a.jpg 204 204 204"));
}

TEST_F(SurfaceLayerTest, MaterialsAreFoundByTheModelsAndHaveTheirAmbientColour) {
  tarn::ImportedSurface& surface = addSurface();
  tarn::Material& red = coloured(surface, {255, 0, 0});
  addSet(surface, "", &red);
  show();
  const auto materials = nodesBelow<TarnOIMaterial>(layer->root());
  ASSERT_EQ(materials.size(), 1U);
  EXPECT_EQ(materials[0]->GetMaterial(), &red);
  EXPECT_EQ(materials[0]->ambientColor[0], SbColor(0.2F, 0.4F, 0.6F));
  EXPECT_EQ(materials[0]->shininess[0], 0.5F);
}

TEST_F(SurfaceLayerTest, TexturesKeepTheLightThatTheyBring) {
  tarn::ImportedSurface& surface = addSurface();
  addSet(surface, picture("a.jpg"), &textured(surface, 1));
  show();
  EXPECT_EQ(nodesBelow<TarnOIMaterial>(layer->root()).at(0)->ambientColor[0],
            SbColor(0.9F, 0.9F, 0.9F));
}

TEST_F(SurfaceLayerTest, SurfacesWithTheSamePictureShareOneTexture) {
  const std::string same = picture("a.jpg");
  for (int i = 0; i < 2; ++i) {
    tarn::ImportedSurface& surface = addSurface();
    addSet(surface, same, &textured(surface, 1));
    addSet(surface, same, &textured(surface, 0));
  }
  show();
  const auto textures = nodesBelow<TarnOITexture>(layer->root());
  ASSERT_EQ(textures.size(), 4U);
  for (const TarnOITexture* texture : textures) EXPECT_EQ(texture, textures[0]);
  tarn::VPathString path(same);
  EXPECT_EQ(context.textures.atKey(&path), textures[0]);
  layer.reset();
  EXPECT_EQ(context.textures.size(), 0);
}

TEST_F(SurfaceLayerTest, APictureThatCannotBeReadIsToldOnce) {
  const std::string broken = folder.write("broken.jpg", "no picture");
  tarn::ImportedSurface& surface = addSurface();
  addSet(surface, broken, &textured(surface, 1));
  addSet(surface, broken, &textured(surface, 1));
  show();
  takeCoinErrors();
  EXPECT_THAT(layer->notes(), ElementsAre(broken + ": the picture cannot be read; its surfaces are "
                                                   "shown without a texture"));
  EXPECT_THAT(drawn(surface), ElementsAre("plain 255 255 0", "plain 255 255 0"));
}

TEST_F(SurfaceLayerTest, SidesAreThoseOfTheSurface) {
  tarn::ImportedSurface& closed = addSurface();
  tarn::ImportedSurface& open = addSurface();
  open.SetDoubleSided(1);
  addSet(closed, "", nullptr);
  addSet(open, "", nullptr);
  show();
  const auto hintsOf = [this](tarn::ImportedSurface& surface) {
    return nodesBelow<SoShapeHints>(&nodeOf(surface)).at(0);
  };
  EXPECT_EQ(hintsOf(closed)->vertexOrdering.getValue(), SoShapeHints::COUNTERCLOCKWISE);
  EXPECT_EQ(hintsOf(closed)->shapeType.getValue(), SoShapeHints::SOLID);
  EXPECT_EQ(hintsOf(open)->vertexOrdering.getValue(), SoShapeHints::COUNTERCLOCKWISE);
  EXPECT_EQ(hintsOf(open)->shapeType.getValue(), SoShapeHints::UNKNOWN_SHAPE_TYPE);
}
