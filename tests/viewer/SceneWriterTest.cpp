#include "viewer/SceneWriter.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoDepthBuffer.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoMarkerSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTexture2.h>
#include <Inventor/nodes/SoTransparencyType.h>

#include "host/classes/VPathString.h"
#include "host/general/DisplayBitmaps.h"
#include "host/model/ImportedSurface.h"
#include "host/model/ObjectName.h"
#include "nodes/framework/SoGradientBackground.h"
#include "nodes/framework/TarnOIDrawStyle.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "nodes/framework/TarnOISwitch.h"
#include "nodes/framework/TarnOITexture.h"
#include "nodes/surfaces/TarnOIImportedSurfaceSeparator.h"
#include "tests/support/TarnTest.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

using ::testing::HasSubstr;
using ::testing::Not;

class SceneWriterTest : public TarnTest {
protected:
  static std::string content(const std::string& file) {
    std::ifstream stream(file);
    return std::string(std::istreambuf_iterator<char>(stream), {});
  }

  TemporaryFolder folder;
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
};

TEST_F(SceneWriterTest, NodesOfTheLibraryBecomeTheirCoinParentsWithTheirFields) {
  auto* material = new TarnOIMaterialWithPriority;
  material->diffuseColor = SbColor(0.25F, 0.5F, 0.75F);
  root->addChild(material);
  auto* style = new TarnOIDrawStyle;
  style->pointSize = 7.0F;
  root->addChild(style);
  auto* layerSwitch = new TarnOISwitch;
  layerSwitch->whichChild = SO_SWITCH_ALL;
  root->addChild(layerSwitch);

  const NodeRef<SoNode> standard = SceneWriter::toStandardNodes(root.get());
  auto* group = static_cast<SoSeparator*>(standard.get());
  ASSERT_EQ(group->getNumChildren(), 3);
  ASSERT_EQ(group->getChild(0)->getTypeId(), SoMaterial::getClassTypeId());
  EXPECT_EQ(static_cast<SoMaterial*>(group->getChild(0))->diffuseColor[0],
            SbColor(0.25F, 0.5F, 0.75F));
  ASSERT_EQ(group->getChild(1)->getTypeId(), SoDrawStyle::getClassTypeId());
  EXPECT_EQ(static_cast<SoDrawStyle*>(group->getChild(1))->pointSize.getValue(), 7.0F);
  ASSERT_EQ(group->getChild(2)->getTypeId(), SoSwitch::getClassTypeId());
  EXPECT_EQ(static_cast<SoSwitch*>(group->getChild(2))->whichChild.getValue(), SO_SWITCH_ALL);
}

TEST_F(SceneWriterTest, NodeUnderTwoParentsStaysOneNode) {
  auto* material = new TarnOIMaterialWithPriority;
  for (int i = 0; i < 2; ++i) {
    auto* group = new SoSeparator;
    group->addChild(material);
    root->addChild(group);
  }
  const NodeRef<SoNode> standard = SceneWriter::toStandardNodes(root.get());
  auto* group = static_cast<SoSeparator*>(standard.get());
  EXPECT_EQ(static_cast<SoGroup*>(group->getChild(0))->getChild(0),
            static_cast<SoGroup*>(group->getChild(1))->getChild(0));
}

TEST_F(SceneWriterTest, LayerIsNamedAndTextureKeepsItsFileName) {
  tarn::ObjectName layer("Level 2, walls");
  auto* separator = new TarnOILayerSeparator;
  separator->SetLayer(&layer, &dictionary);
  root->addChild(separator);
  const std::string picture = folder.file("none.sgi");
  auto* texture = new TarnOITexture;
  separator->addChild(texture);
  tarn::VPathString path(picture);
  texture->SetFileName(&path, &dictionary);
  takeCoinErrors();  // the picture is not there

  const std::string file = folder.file("scene.iv");
  SceneWriter::write(root.get(), file);
  takeCoinErrors();
  const std::string text = content(file);
  EXPECT_THAT(text, HasSubstr("DEF Level_2__walls Separator {"));
  EXPECT_THAT(text, HasSubstr("Texture2 {"));
  EXPECT_THAT(text, HasSubstr(picture));
  EXPECT_THAT(text, Not(HasSubstr("Tarn")));
  EXPECT_THAT(text, Not(HasSubstr("image")));
  root.reset();
}

TEST_F(SceneWriterTest, ImportedSurfaceIsNamed) {
  tarn::ImportedSurface surface;
  surface.SetName("south wall");
  auto* node = new TarnOIImportedSurfaceSeparator;
  root->addChild(node);
  node->SetTarnObject(&surface, &dictionary);
  const NodeRef<SoNode> standard = SceneWriter::toStandardNodes(root.get());
  const SoNode* written = static_cast<SoGroup*>(standard.get())->getChild(0);
  EXPECT_EQ(written->getTypeId(), SoSeparator::getClassTypeId());
  EXPECT_STREQ(written->getName().getString(), "Surface_south_wall");
  root.reset();
}

TEST_F(SceneWriterTest, BackgroundsAndWhatOnlyCoinKnowsAreLeftOut) {
  root->addChild(new SoGradientBackground);
  root->addChild(new SoDepthBuffer);
  root->addChild(new SoTransparencyType);
  auto* material = new SoMaterial;
  root->addChild(material);
  const NodeRef<SoNode> standard = SceneWriter::toStandardNodes(root.get());
  auto* group = static_cast<SoGroup*>(standard.get());
  ASSERT_EQ(group->getNumChildren(), 1);
  EXPECT_EQ(group->getChild(0), material);
}

TEST_F(SceneWriterTest, OwnPointSymbolsBecomeInventorsNearest) {
  auto* markers = new SoMarkerSet;
  markers->markerIndex = tarn::gSymbols.controlPoint;
  root->addChild(markers);
  const NodeRef<SoNode> standard = SceneWriter::toStandardNodes(root.get());
  auto* copy = static_cast<SoMarkerSet*>(static_cast<SoGroup*>(standard.get())->getChild(0));
  EXPECT_EQ(copy->markerIndex[0], SoMarkerSet::TRIANGLE_LINE_9_9);
  EXPECT_EQ(markers->markerIndex[0], tarn::gSymbols.controlPoint);
}

TEST_F(SceneWriterTest, NamesAreLegalInInventor) {
  EXPECT_EQ(SceneWriter::legalName("DSC_0437.JPG"), "DSC_0437_JPG");
  EXPECT_EQ(SceneWriter::legalName("7 a{b}\"'+\\.x"), "_7_a_b______x");
  EXPECT_EQ(SceneWriter::legalName("\xC3\xA4.jpg"), "___jpg");
  EXPECT_EQ(SceneWriter::legalName(""), "_");
}

TEST_F(SceneWriterTest, FileThatCannotBeWrittenIsNamed) {
  const std::string file = folder.file("absent/scene.iv");
  try {
    SceneWriter::write(root.get(), file);
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(error.what(), file + ": the scene cannot be written: No such file or directory");
  }
}
