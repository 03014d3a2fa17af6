#include "nodes/cameras/TarnOICameraStationSeparator.h"

#include <Inventor/nodes/SoScale.h>

#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/Extents.h"
#include "host/model/Photograph.h"
#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

class TarnOICameraStationSeparatorTest : public TarnTest {};

TEST_F(TarnOICameraStationSeparatorTest, BuildsAllFourCombinations) {
  tarn::Camera camera;
  tarn::CameraStation station;
  station.SetCamera(&camera);
  station.SetOrientation({1, 2, 3}, tarn::MatrixDouble::Identity(3));
  tarn::Extents extents({0, 0, 0}, {10, 20, 30});
  auto scale = makeNode<SoScale>();
  constexpr int expected[2][2] = {{19, 19}, {7, 21}};
  for (int plane : {0, 1}) {
    for (int symbol : {0, 1}) {
      auto node = makeNode<TarnOICameraStationSeparator>();
      node->SetCameraStation(&station, &dictionary, scale.get(), plane, symbol, &extents);
      EXPECT_EQ(node->getNumChildren(), expected[plane][symbol]);
    }
  }
}
