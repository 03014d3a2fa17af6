#include "nodes/framework/TarnOIOverlaySeparator.h"

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoOrthographicCamera.h>

#include "host/classes/VObject.h"
#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

// A display of a host's own, which brings its own camera.
class OwnCameraOverlay : public TarnOIOverlaySeparator {
  TARNOI_NODE_HEADER(OwnCameraOverlay);

public:
  OwnCameraOverlay() { TARNOI_NODE_CONSTRUCTOR(); }
  OwnCameraOverlay(const OwnCameraOverlay& other) = default;
  OwnCameraOverlay& operator=(const OwnCameraOverlay& other) = default;
};
TARNOI_NODE_SOURCE(OwnCameraOverlay, TarnOIOverlaySeparator);
TARNOI_SEPARATOR_INIT_CLASS(OwnCameraOverlay);

namespace {

template <typename Node, typename... Arguments>
concept CanBeMade = requires(Arguments... arguments) {
  new Node(arguments...);
};
static_assert(CanBeMade<TarnOIOverlaySeparator, float, float, float>);
static_assert(!CanBeMade<TarnOIOverlaySeparator>, "without a camera for derived classes only");
static_assert(CanBeMade<OwnCameraOverlay>);

SoOrthographicCamera& cameraOf(const SoGroup& overlay) {
  return static_cast<SoOrthographicCamera&>(*overlay.getChild(0));
}

}  // namespace

class TarnOIOverlaySeparatorTest : public TarnTest {
protected:
  static void SetUpTestSuite() { OwnCameraOverlay::initClass(); }
  static void TearDownTestSuite() { OwnCameraOverlay::CleanUpInitClass(); }
};

TEST_F(TarnOIOverlaySeparatorTest, ANewOverlayHasItsCameraOnly) {
  const auto overlay = makeNode<TarnOIOverlaySeparator>(1.0F, 2.0F, 3.0F);
  ASSERT_EQ(overlay->getNumChildren(), 1);
  ASSERT_EQ(overlay->getChild(0)->getTypeId(), SoOrthographicCamera::getClassTypeId());
  EXPECT_EQ(cameraOf(*overlay).position.getValue(), SbVec3f(1, 2, 3));
  EXPECT_EQ(cameraOf(*overlay).viewportMapping.getValue(), SoCamera::LEAVE_ALONE);
  EXPECT_EQ(cameraOf(*overlay).viewportMapping.getValue(), 4);
  EXPECT_EQ(overlay->GetTarnObject(), nullptr);
}

TEST_F(TarnOIOverlaySeparatorTest, ADerivedClassStartsWithoutChildren) {
  EXPECT_EQ(makeNode<OwnCameraOverlay>()->getNumChildren(), 0);
}

TEST_F(TarnOIOverlaySeparatorTest, ANodeMadeByItsTypeWaitsForChildrenFromAFile) {
  const NodeRef<SoNode> made(
      static_cast<SoNode*>(TarnOIOverlaySeparator::getClassTypeId().createInstance()));
  EXPECT_EQ(static_cast<SoGroup&>(*made).getNumChildren(), 0);
}

TEST_F(TarnOIOverlaySeparatorTest, ANodeCopyHasACameraOfItsOwn) {
  const auto overlay = makeNode<TarnOIOverlaySeparator>(1.0F, 2.0F, 3.0F);
  overlay->addChild(new SoCube);
  const NodeRef<SoNode> copied(overlay->copy());
  ASSERT_EQ(copied->getTypeId(), TarnOIOverlaySeparator::getClassTypeId());
  const auto& copy = static_cast<SoGroup&>(*copied);
  ASSERT_EQ(copy.getNumChildren(), 2);
  EXPECT_NE(copy.getChild(0), overlay->getChild(0));
  EXPECT_EQ(cameraOf(copy).position.getValue(), SbVec3f(1, 2, 3));
  EXPECT_EQ(cameraOf(copy).viewportMapping.getValue(), SoCamera::LEAVE_ALONE);
}

TEST_F(TarnOIOverlaySeparatorTest, CopyConstructionAndAssignmentTakeTheBindingAndNoChild) {
  tarn::VObject object;
  const auto overlay = makeNode<TarnOIOverlaySeparator>(1.0F, 2.0F, 3.0F);
  overlay->SetTarnObject(&object, &dictionary);
  dictionary.takeChanges();
  const auto copy = makeNode<TarnOIOverlaySeparator>(*overlay);
  EXPECT_EQ(copy->GetTarnObject(), &object);
  EXPECT_EQ(copy->getNumChildren(), 0);
  const auto assigned = makeNode<TarnOIOverlaySeparator>(4.0F, 5.0F, 6.0F);
  *assigned = *overlay;
  EXPECT_EQ(assigned->GetTarnObject(), &object);
  EXPECT_EQ(cameraOf(*assigned).position.getValue(), SbVec3f(4, 5, 6));
  EXPECT_THAT(dictionary.takeChanges(), ::testing::IsEmpty());
}
