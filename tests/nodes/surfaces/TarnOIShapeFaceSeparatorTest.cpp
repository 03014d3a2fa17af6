#include "nodes/surfaces/TarnOIShapeFaceSeparator.h"

#include <Inventor/nodes/SoAsciiText.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoPolygonOffset.h>
#include <Inventor/nodes/SoRotation.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTexture2.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/model/Shape.h"
#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <cstdio>
#include <numbers>

using tarn::Point3DDouble;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A face that looks along the model's x, with one triangle, and its name across it.
class TarnOIShapeFaceSeparatorTest : public TarnTest {
protected:
  static constexpr const char* className = "TarnOIShapeFaceSeparator";

  TarnOIShapeFaceSeparatorTest() {
    addTriangle({3, 1, 2}, {3, 5, 2}, {3, 4, 7});
    face.SetNameUprightVectorPoints({3, 2, 1}, {3, 2, 9});
  }
  tarn::Triangle& addTriangle(const Point3DDouble& a, const Point3DDouble& b,
                              const Point3DDouble& c) {
    return face.AddTriangle(face.AddTriangleSet(), &face.AddPoint(a), &face.AddPoint(b),
                            &face.AddPoint(c));
  }
  void build(int showSurface, int showName, float fontSize = 1.5F) {
    tarn::VOrdCollect* sets = face.GetTriangleSets();
    node->SetNurbsSurface(&face, &dictionary, singleSided.get(), doubleSided.get(), nullptr, &sets,
                          face.GetUvMatrices(), showSurface, showName, fontSize);
  }
  // The name's separator, always the last child.
  const SoGroup& label() const {
    return static_cast<SoGroup&>(*node->getChild(node->getNumChildren() - 1));
  }
  template <typename Node>
  const Node& labels() const {
    return childOf<Node>(label());
  }
  // The turn in the plane of the face, and that onto it.
  SbRotation inPlane() const { return rotationAt(2); }
  SbRotation ontoFace() const { return rotationAt(3); }
  // Where a direction of the text points in the scene.
  SbVec3f turned(const SbVec3f& direction) const {
    SbVec3f result;
    ontoFace().multVec(direction, result);
    inPlane().multVec(result, result);
    return result;
  }
  std::vector<std::string> lines() const {
    std::vector<std::string> result;
    const SoMFString& field = labels<SoAsciiText>().string;
    for (int i = 0; i < field.getNum(); ++i) result.emplace_back(field[i].getString());
    return result;
  }
  static std::vector<std::int32_t> indexesOf(SoNode* faces) {
    const SoMFInt32& field = static_cast<SoIndexedFaceSet*>(faces)->coordIndex;
    return {field.getValues(0), field.getValues(0) + field.getNum()};
  }
  // Coin compares the square of the distance.
  static void expectNear(const SbVec3f& got, const SbVec3f& wanted) {
    EXPECT_TRUE(got.equals(wanted, 1e-11F))
        << got.toString().getString() << " instead of " << wanted.toString().getString();
  }

  tarn::Shape shape;
  tarn::ShapeFace& face = shape.AddFace("Gable");
  tarn::ShapeVertex nowhere;
  NodeRef<SoShapeHints> singleSided = makeNode<SoShapeHints>();
  NodeRef<SoShapeHints> doubleSided = makeNode<SoShapeHints>();
  NodeRef<TarnOIShapeFaceSeparator> node = makeNode<TarnOIShapeFaceSeparator>();

private:
  SbRotation rotationAt(int index) const {
    return dynamic_cast<SoRotation&>(*label().getChild(index)).rotation.getValue();
  }
};

TEST_F(TarnOIShapeFaceSeparatorTest, TheNameComesAfterTheSurface) {
  build(1, 1);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("ShapeHints", "Normal", "Coordinate3", "IndexedFaceSet", "Separator"));
  EXPECT_EQ(node->GetTarnObject(), &face);
  EXPECT_EQ(dictionary.atKey(&face), node.get());
}

TEST_F(TarnOIShapeFaceSeparatorTest, SurfaceAndNameAreShownAsAsked) {
  build(1, 0);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("ShapeHints", "Normal", "Coordinate3", "IndexedFaceSet"));
  build(0, 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Separator"));
  build(0, 0);
  EXPECT_THAT(childTypes(*node), IsEmpty());
  EXPECT_EQ(node->GetTarnObject(), &face);
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheNameIsMadeOfItsNodesInTheirOrder) {
  build(0, 1);
  EXPECT_THAT(childTypes(label()),
              ElementsAre("PolygonOffset", "Translation", "Rotation", "Rotation", "Texture2",
                          "Material", "Font", "AsciiText"));
}

TEST_F(TarnOIShapeFaceSeparatorTest, AFaceWithoutAPlaceForItsNameHasNone) {
  tarn::ShapeFace& nameless = shape.AddFace("Nameless");
  tarn::VOrdCollect* sets = nameless.GetTriangleSets();
  node->SetNurbsSurface(&nameless, &dictionary, singleSided.get(), doubleSided.get(), nullptr,
                        &sets, nullptr, 1, 1, 1.5F);
  EXPECT_THAT(childTypes(*node), ElementsAre("ShapeHints"));
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIShapeFaceSeparatorTest, ItsPreferencesHaveTheirDefaults) {
  build(1, 1);
  using Read = PreferenceRead;
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(Read{Read::eDouble, "FaceNameOffsetFactor", "-1", "3DViewer"},
                          Read{Read::eDouble, "FaceNameOffsetUnits", "-1", "3DViewer"},
                          Read{Read::eInt, "ShapeLabelColor", "8", "Colors"},
                          Read{Read::eDouble, "FaceLabel180FlipThreshold", "0.0050000000000000001",
                               "Shapes"}));
  EXPECT_EQ(labels<SoPolygonOffset>().factor.getValue(), -1.0F);
  EXPECT_EQ(labels<SoPolygonOffset>().units.getValue(), -1.0F);
  constexpr float grey = 128 / 255.0F;
  EXPECT_EQ(labels<SoMaterial>().diffuseColor[0], SbColor(grey, grey, grey));
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheNameIsLiftedOffTheFaceAsThePreferencesSay) {
  preferences.Set("FaceNameOffsetFactor", "-2.5", "3DViewer");
  preferences.Set("FaceNameOffsetUnits", "0.75", "3DViewer");
  build(0, 1);
  EXPECT_EQ(labels<SoPolygonOffset>().factor.getValue(), -2.5F);
  EXPECT_EQ(labels<SoPolygonOffset>().units.getValue(), 0.75F);
}

TEST_F(TarnOIShapeFaceSeparatorTest, OnlyDiffuseAndAmbientColourAreTheNames) {
  preferences.Set("ShapeLabelColor", "51102255", "Colors");
  build(0, 1);
  const auto& material = labels<SoMaterial>();
  EXPECT_EQ(material.diffuseColor[0], SbColor(0.2F, 0.4F, 1.0F));
  EXPECT_EQ(material.ambientColor[0], SbColor(0.2F, 0.4F, 1.0F));
  EXPECT_FALSE(material.diffuseColor.isIgnored());
  EXPECT_FALSE(material.ambientColor.isIgnored());
  EXPECT_TRUE(material.specularColor.isIgnored());
  EXPECT_TRUE(material.emissiveColor.isIgnored());
  EXPECT_TRUE(material.shininess.isIgnored());
  EXPECT_TRUE(material.transparency.isIgnored());
}

TEST_F(TarnOIShapeFaceSeparatorTest, ATextureNodeWithoutImageKeepsTheFacesTextureOffTheName) {
  build(0, 1);
  EXPECT_TRUE(labels<SoTexture2>().fieldsAreEqual(makeNode<SoTexture2>().get()));
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheTextIsTheNameCentredInItsSize) {
  build(0, 1, 2.25F);
  EXPECT_THAT(lines(), ElementsAre("Gable"));
  EXPECT_EQ(labels<SoAsciiText>().justification.getValue(), SoAsciiText::CENTER);
  EXPECT_EQ(labels<SoFont>().size.getValue(), 2.25F);
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheNameStandsBetweenItsTwoPointsAtItsRatio) {
  face.SetNameUprightVectorPoints({3, 2, 1}, {7, 4, 9});
  face.SetNameCenterRatio(0.25);
  build(0, 1);
  EXPECT_EQ(labels<SoTranslation>().translation.getValue(), SbVec3f(-6.5F, -27.125F, -22.75F));
}

// The face looks along (1, 0, 0), in the scene too; less the view offset that is another direction.
TEST_F(TarnOIShapeFaceSeparatorTest, TheNormalIsTakenForAPoint) {
  build(0, 1);
  SbVec3f normal;
  ontoFace().multVec(SbVec3f(0, 0, 1), normal);
  SbVec3f point(1 - 10.5F, 0 - 30.125F, -(0 - -20.25F));
  point.normalize();
  expectNear(normal, point);
}

TEST_F(TarnOIShapeFaceSeparatorTest, WithoutAnOffsetTheTextLiesFlatAndUpright) {
  tarn::gThreeDViewOffset = {0, 0, 0};
  build(0, 1);
  expectNear(turned(SbVec3f(0, 0, 1)), SbVec3f(1, 0, 0));
  expectNear(turned(SbVec3f(0, 1, 0)), SbVec3f(0, 1, 0));
  expectNear(turned(SbVec3f(1, 0, 0)), SbVec3f(0, 0, -1));
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheTextIsTurnedInItsFaceToStandUprightAsAsked) {
  tarn::gThreeDViewOffset = {0, 0, 0};
  face.SetNameUprightVectorPoints({3, 2, 1}, {3, 5, 5});
  build(0, 1);
  expectNear(turned(SbVec3f(0, 0, 1)), SbVec3f(1, 0, 0));
  expectNear(turned(SbVec3f(0, 1, 0)), SbVec3f(0, 0.8F, -0.6F));
}

TEST_F(TarnOIShapeFaceSeparatorTest, ThePlaneIsThatOfTheFirstTriangle) {
  tarn::gThreeDViewOffset = {0, 0, 0};
  addTriangle({0, 0, 0}, {1, 0, 0}, {0, 1, 0});
  build(0, 1);
  expectNear(turned(SbVec3f(0, 0, 1)), SbVec3f(1, 0, 0));
}

TEST_F(TarnOIShapeFaceSeparatorTest, AnUpsideDownTextIsTurnedAboutTheNormalAndStaysOnItsFace) {
  tarn::gThreeDViewOffset = {0, 0, 0};
  face.SetNameUprightVectorPoints({3, 2, 9}, {3, 2, 1});
  build(0, 1);
  EXPECT_TRUE(
      inPlane().equals(SbRotation(SbVec3f(1, 0, 0), static_cast<float>(std::numbers::pi)), 1e-11F));
  expectNear(turned(SbVec3f(0, 0, 1)), SbVec3f(1, 0, 0));
  expectNear(turned(SbVec3f(0, 1, 0)), SbVec3f(0, -1, 0));
}

// Rounding takes the cosine below -1 for the first face, and keeps it above for the second where
// the directions are not brought to length 1.
TEST_F(TarnOIShapeFaceSeparatorTest, ExactlyOppositeDirectionsAreHalfATurnWhateverTheirRounding) {
  tarn::gThreeDViewOffset = {0, 0, 0};
  int outOfRange = 0;
  int notOfLengthOne = 0;
  for (const Point3DDouble& n : {Point3DDouble(-6, -6, -5), Point3DDouble(-6, 4, -6)}) {
    face.Clear();
    addTriangle({0, 0, 0}, {n.y, -n.x, 0}, {n.x * n.z, n.y * n.z, -(n.x * n.x + n.y * n.y)});
    build(0, 1);
    SbVec3f up;
    ontoFace().multVec(SbVec3f(0, 1, 0), up);
    face.SetNameUprightVectorPoints({0, 0, 0}, {-up[0], up[2], -up[1]});
    build(0, 1);
    SbVec3f normal;
    ontoFace().multVec(SbVec3f(0, 0, 1), normal);
    EXPECT_TRUE(inPlane().equals(SbRotation(normal, static_cast<float>(std::numbers::pi)), 1e-11F));
    SbVec3f ofLengthOne = up;
    ofLengthOne.normalize();
    outOfRange += ofLengthOne.dot(-ofLengthOne) < -1.0F;
    notOfLengthOne += up.dot(-ofLengthOne) > -1.0F && ofLengthOne.dot(-ofLengthOne) <= -1.0F;
  }
  EXPECT_EQ(outOfRange, 1) << "else the test cannot tell";
  EXPECT_EQ(notOfLengthOne, 1) << "else the test cannot tell";
}

TEST_F(TarnOIShapeFaceSeparatorTest, ThePlaceOfTheNameIsAskedForOnSideZero) {
  struct HostFace : tarn::ShapeFace {
    int GetNameUprightVectorPoints(Point3DDouble&, Point3DDouble&, int side) const override {
      sides.push_back(side);
      return 0;
    }
    mutable std::vector<int> sides;
  } ofHost;
  node->SetNurbsSurface(&ofHost, &dictionary, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 1,
                        1.5F);
  EXPECT_THAT(ofHost.sides, ElementsAre(0));
  EXPECT_EQ(node->getNumChildren(), 0);
  node.reset();  // before its face
}

TEST_F(TarnOIShapeFaceSeparatorTest, AtTheThresholdItselfTheShortestTurnIsTaken) {
  tarn::gThreeDViewOffset = {0, 0, 0};
  // Upside down but for a thousandth.
  face.SetNameUprightVectorPoints({3, 2, 9}, {3, 2.008, 1});
  SbVec3f up;
  SbRotation(SbVec3f(0, 0, 1), SbVec3f(1, 0, 0)).multVec(SbVec3f(0, 1, 0), up);
  SbVec3f upright(0, -8, static_cast<float>(-(2.008 - 2.0)));
  up.normalize();
  upright.normalize();
  const double angle = std::acos(static_cast<double>(up.dot(upright)));
  const double fromOpposite = std::fabs(angle - std::numbers::pi);
  ASSERT_GT(fromOpposite, 0.0005);
  const auto buildWithThreshold = [this](double threshold) {
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", threshold);
    preferences.Set("FaceLabel180FlipThreshold", text, "Shapes");
    build(0, 1);
  };
  buildWithThreshold(fromOpposite);
  EXPECT_EQ(inPlane(), SbRotation(up, upright));
  buildWithThreshold(std::nextafter(fromOpposite, 1.0));
  EXPECT_EQ(inPlane(), SbRotation(SbVec3f(1, 0, 0), static_cast<float>(angle)));
}

TEST_F(TarnOIShapeFaceSeparatorTest, CornersWithoutPositionAreReported) {
  tarn::Triangle& triangle = static_cast<tarn::Triangle&>(*face.GetTriangles()->at(0));
  for (int k = 0; k < 3; ++k) triangle.SetPoint(k, &nowhere);
  build(0, 1);
  EXPECT_THAT(
      takeAssertions(),
      ElementsAre(IsAssertionAt("tri->GetPoint( 0 )->GetApproximation( p1r )", className, 218),
                  IsAssertionAt("tri->GetPoint( 1 )->GetApproximation( p2r )", className, 219),
                  IsAssertionAt("tri->GetPoint( 2 )->GetApproximation( p3r )", className, 220)));
  EXPECT_THAT(lines(), ElementsAre("Gable"));
}

TEST_F(TarnOIShapeFaceSeparatorTest, AMissingCornerIsReportedToo) {
  static_cast<tarn::Triangle&>(*face.GetTriangles()->at(0)).SetPoint(1, nullptr);
  build(0, 1);
  EXPECT_THAT(
      takeAssertions(),
      ElementsAre(IsAssertionAt("tri->GetPoint( 1 )->GetApproximation( p2r )", className, 219)));
}

TEST_F(TarnOIShapeFaceSeparatorTest, AFaceWithoutTrianglesHasAPlaceAndNoText) {
  face.Clear();
  build(1, 1);
  EXPECT_EQ(labels<SoTranslation>().translation.getValue(), SbVec3f(-7.5F, -25.125F, -22.25F));
  EXPECT_EQ(inPlane(), SbRotation::identity());
  EXPECT_EQ(ontoFace(), SbRotation::identity());
  EXPECT_TRUE(labels<SoFont>().fieldsAreEqual(makeNode<SoFont>().get()));
  EXPECT_TRUE(labels<SoAsciiText>().fieldsAreEqual(makeNode<SoAsciiText>().get()));
}

TEST_F(TarnOIShapeFaceSeparatorTest, AFaceWhoseTrianglesAreNullHasAPlaceAndNoText) {
  class Untessellated : public tarn::ShapeFace {
  public:
    tarn::VOrdCollect* GetTriangles() override { return nullptr; }
  } untessellated;
  untessellated.SetNameUprightVectorPoints({3, 2, 1}, {3, 2, 9});
  node->SetNurbsSurface(&untessellated, &dictionary, nullptr, nullptr, nullptr, nullptr, nullptr, 1,
                        1, 1.5F);
  EXPECT_THAT(lines(), ElementsAre(""));
  node.reset();  // before its face
}

TEST_F(TarnOIShapeFaceSeparatorTest, ASecondBuildDropsAllThatWasThereAndSignalsOnce) {
  build(1, 1);
  SignalCount signals(node.get());
  face.SetName("Wall");
  build(1, 1);
  EXPECT_EQ(node->getNumChildren(), 5);
  EXPECT_THAT(lines(), ElementsAre("Wall"));
  EXPECT_EQ(signals.count(), 1);
}

TEST_F(TarnOIShapeFaceSeparatorTest, ASecondBuildKeepsTheHintsOfTheFirst) {
  build(1, 0);
  face.SetDoubleSided(1);
  build(1, 0);
  EXPECT_EQ(node->getChild(0), singleSided.get());
}

TEST_F(TarnOIShapeFaceSeparatorTest, NullOnlyUnbinds) {
  build(1, 1);
  node->SetNurbsSurface(nullptr, &dictionary, nullptr, nullptr, nullptr, nullptr, nullptr, 1, 1,
                        1.5F);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(node->getNumChildren(), 5);
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheInsideTurnsTheTrianglesOfTheLastSetOnly) {
  addTriangle({3, 1, 2}, {3, 4, 7}, {3, 0, 6});
  face.AddTriangle(1, &face.AddPoint({3, 0, 0}), &face.AddPoint({3, 1, 0}),
                   &face.AddPoint({3, 0, 1}));
  build(1, 1);
  // The last set stands first.
  EXPECT_THAT(indexesOf(node->getChild(3)), ElementsAre(0, 1, 2, -1, 3, 4, 5, -1));
  node->ShowInside(1);
  EXPECT_THAT(indexesOf(node->getChild(3)), ElementsAre(1, 0, 2, -1, 4, 3, 5, -1));
  EXPECT_THAT(indexesOf(node->getChild(6)), ElementsAre(0, 1, 2, -1));
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheInsideTwiceChangesNothingAndBackRestoresTheWinding) {
  build(1, 1);
  node->ShowInside(0);
  EXPECT_THAT(indexesOf(node->getChild(3)), ElementsAre(0, 1, 2, -1));
  EXPECT_THAT(lines(), ElementsAre("Gable"));
  node->ShowInside(1);
  node->ShowInside(1);
  EXPECT_THAT(indexesOf(node->getChild(3)), ElementsAre(1, 0, 2, -1));
  node->ShowInside(0);
  EXPECT_THAT(indexesOf(node->getChild(3)), ElementsAre(0, 1, 2, -1));
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheSecondLineSaysWhetherTheShapeIsInsideOut) {
  build(1, 1);
  node->ShowInside(1);
  EXPECT_THAT(lines(), ElementsAre("Gable", "(outside)"));
  node->ShowInside(0);
  EXPECT_THAT(lines(), ElementsAre("Gable", ""));
  shape.SetInsideOut(1);
  face.SetName("Wall");
  node->ShowInside(1);
  EXPECT_THAT(lines(), ElementsAre("Wall", "(inside out)"));
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheInsideOfAFaceWithoutAShapeIsNotInsideOut) {
  tarn::ShapeFace alone;
  alone.SetName("Alone");
  alone.SetNameUprightVectorPoints({3, 2, 1}, {3, 2, 9});
  alone.AddTriangle(alone.AddTriangleSet(), &alone.AddPoint({3, 0, 0}), &alone.AddPoint({3, 1, 0}),
                    &alone.AddPoint({3, 0, 1}));
  tarn::VOrdCollect* sets = alone.GetTriangleSets();
  node->SetNurbsSurface(&alone, &dictionary, singleSided.get(), doubleSided.get(), nullptr, &sets,
                        nullptr, 1, 1, 1.5F);
  node->ShowInside(1);
  EXPECT_THAT(lines(), ElementsAre("Alone", "(outside)"));
  node.reset();  // before its face
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheInsideWithoutASurfaceChangesNothing) {
  node->ShowInside(1);
  build(0, 1);
  node->ShowInside(1);
  EXPECT_THAT(lines(), ElementsAre("Gable"));
}

TEST_F(TarnOIShapeFaceSeparatorTest, TheInsideWithoutANameTurnsTheTrianglesOnly) {
  build(1, 0);
  node->ShowInside(1);
  EXPECT_EQ(node->getNumChildren(), 4);
  EXPECT_THAT(indexesOf(node->getChild(3)), ElementsAre(1, 0, 2, -1));
}

TEST_F(TarnOIShapeFaceSeparatorTest, ANameThatWasDroppedIsNotWrittenTo) {
  build(1, 1);
  const NodeRef dropped(const_cast<SoAsciiText*>(&labels<SoAsciiText>()));
  build(1, 0);
  node->ShowInside(1);
  EXPECT_EQ(dropped->string.getNum(), 1);
}

TEST_F(TarnOIShapeFaceSeparatorTest, ASecondBuildForgetsNoInside) {
  build(1, 1);
  node->ShowInside(1);
  build(1, 1);
  node->ShowInside(1);
  EXPECT_THAT(indexesOf(node->getChild(3)), ElementsAre(0, 1, 2, -1));
  node->ShowInside(0);
  EXPECT_THAT(indexesOf(node->getChild(3)), ElementsAre(1, 0, 2, -1));
}

TEST_F(TarnOIShapeFaceSeparatorTest, ACopyShowsTheSameFace) {
  build(1, 1);
  const NodeRef copy(static_cast<TarnOIShapeFaceSeparator*>(node->copy()));
  EXPECT_EQ(copy->GetTarnObject(), &face);
  EXPECT_EQ(dictionary.atKey(&face), copy.get());
  EXPECT_EQ(childTypes(*copy), childTypes(*node));
}

TEST_F(TarnOIShapeFaceSeparatorTest, ACopyIsTurnedByItselfAndHasNoTextToWriteTo) {
  build(1, 1);
  node->ShowInside(1);
  const NodeRef copy(static_cast<TarnOIShapeFaceSeparator*>(node->copy()));
  copy->ShowInside(0);
  EXPECT_THAT(indexesOf(copy->getChild(3)), ElementsAre(1, 0, 2, -1)) << "its flag is not 0";
  copy->ShowInside(1);
  EXPECT_THAT(indexesOf(copy->getChild(3)), ElementsAre(0, 1, 2, -1));
  EXPECT_THAT(indexesOf(node->getChild(3)), ElementsAre(1, 0, 2, -1));
  face.SetName("Wall");
  copy->ShowInside(0);
  EXPECT_THAT(lines(), ElementsAre("Gable", "(outside)"));
}

TEST_F(TarnOIShapeFaceSeparatorTest, CopyConstructionAndAssignmentShareTheText) {
  build(1, 1);
  const auto other = makeNode<TarnOIShapeFaceSeparator>(*node);
  EXPECT_EQ(other->getNumChildren(), 0);
  other->ShowInside(1);
  EXPECT_THAT(lines(), ElementsAre("Gable", "(outside)"));
  EXPECT_THAT(indexesOf(node->getChild(3)), ElementsAre(1, 0, 2, -1));
}
