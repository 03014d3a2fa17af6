#include "nodes/meshes/MeshFrame.h"

#include "host/model/PointMesh.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <limits>
#include <random>
#include <vector>

namespace {

// A host's own class of mesh, which may lose points while it is asked.
class ShrinkingMesh : public tarn::PointMesh {
public:
  int GetNumPoints() const override {
    ++asked;
    return asked > askedUntilItShrinks ? left : tarn::PointMesh::GetNumPoints();
  }
  mutable int asked = 0;
  int askedUntilItShrinks = std::numeric_limits<int>::max();
  int left = 0;
};

void fill(tarn::PointMesh& mesh, const std::vector<float>& numbers) {
  mesh.Allocate(static_cast<int>(numbers.size() / 3), 0);
  std::ranges::copy(numbers, mesh.GetPointStorage().begin());
}

}  // namespace

class MeshFrameTest : public TarnTest {
protected:
  static std::vector<SbVec3f> placed(const MeshFrame& frame, tarn::PointMesh& mesh, int count) {
    std::vector<SbVec3f> result(static_cast<std::size_t>(count), SbVec3f(9.0F, 9.0F, 9.0F));
    frame.place(mesh, result.data(), count);
    return result;
  }
};

TEST_F(MeshFrameTest, PointsStandInTheViewersAxesLessTheViewOffset) {
  EXPECT_EQ(MeshFrame::lessViewOffset().at({1.5, 2.25, -3.75}), SbVec3f(-9.0F, -33.875F, -22.5F));
}

TEST_F(MeshFrameTest, StoredPointsStandInTheViewersAxesOnly) {
  EXPECT_EQ(MeshFrame::asStored().at({1.5, 2.25, -3.75}), SbVec3f(1.5F, -3.75F, -2.25F));
}

TEST_F(MeshFrameTest, AllPointsOfAMeshArePlaced) {
  tarn::PointMesh mesh;
  fill(mesh, {1.5F, 2.25F, -3.75F, 11.0F, -7.5F, 8.0F});
  EXPECT_THAT(
      placed(MeshFrame::lessViewOffset(), mesh, 2),
      ::testing::ElementsAre(SbVec3f(-9.0F, -33.875F, -22.5F), SbVec3f(0.5F, -22.125F, -12.75F)));
  EXPECT_THAT(placed(MeshFrame::asStored(), mesh, 2),
              ::testing::ElementsAre(SbVec3f(1.5F, -3.75F, -2.25F), SbVec3f(11.0F, 8.0F, 7.5F)));
}

TEST_F(MeshFrameTest, TheOffsetIsTakenOffInDoubleWhateverItIs) {
  std::mt19937 random(3);
  std::uniform_real_distribution<float> mantissas(-1.0F, 1.0F);
  std::uniform_int_distribution<int> exponents(-20, 20);
  std::vector<float> numbers;
  for (int i = 0; i < 3000; ++i)
    numbers.push_back(std::ldexp(mantissas(random), exponents(random)));
  numbers.insert(numbers.end(), {0.0F, -0.0F, 1e-45F, 3e38F, -3e38F, 10.5F});
  tarn::PointMesh mesh;
  fill(mesh, numbers);
  // Offsets that floats hold, and others.
  for (const tarn::Point3DDouble& offset :
       {viewOffset, tarn::Point3DDouble(5000000.0, -4512345.0, 0.0),
        tarn::Point3DDouble(5000000.125, 4512345.7, 123.456), tarn::Point3DDouble(0.1, 0.0, 0.0),
        tarn::Point3DDouble(1e300, 1e-300, 0.0)}) {
    tarn::gThreeDViewOffset = offset;
    const auto result = placed(MeshFrame::lessViewOffset(), mesh, mesh.GetNumPoints());
    for (std::size_t i = 0; i < result.size(); ++i) {
      const tarn::Point3DDouble point(numbers[3 * i], numbers[3 * i + 1], numbers[3 * i + 2]);
      ASSERT_EQ(result[i], ViewerFrame::fromModel(point)) << i;
    }
  }
}

TEST_F(MeshFrameTest, AHostsOwnMeshIsAskedBeforeEachPointHowManyThereAre) {
  ShrinkingMesh mesh;
  fill(mesh, {1, 2, 3, 4, 5, 6, 7, 8, 9});
  EXPECT_EQ(placed(MeshFrame::asStored(), mesh, 3)[2], SbVec3f(7.0F, 9.0F, -8.0F));
  EXPECT_GE(mesh.asked, 3);
}

TEST_F(MeshFrameTest, PointsThatAMeshLosesMeanwhileAreNotReadAndStandAtTheOrigin) {
  ShrinkingMesh mesh;
  fill(mesh, {1, 2, 3, 4, 5, 6, 7, 8, 9});
  mesh.askedUntilItShrinks = 1;
  mesh.left = 1;
  EXPECT_THAT(placed(MeshFrame::asStored(), mesh, 3),
              ::testing::ElementsAre(SbVec3f(1.0F, 3.0F, -2.0F), SbVec3f(0.0F, 0.0F, 0.0F),
                                     SbVec3f(0.0F, 0.0F, 0.0F)));
}
