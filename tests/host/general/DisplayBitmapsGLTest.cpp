#include "host/general/DisplayBitmaps.h"

#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMarkerSet.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <algorithm>
#include <string>
#include <vector>

using ::testing::ElementsAre;

class DisplayBitmapsGLTest : public TarnTest {
protected:
  /// The rows, from the top down, of the smallest box around what one marker draws.
  static std::vector<std::string> drawn(int markerIndex) {
    auto root = makeNode<SoSeparator>();
    root->addChild(new SoOrthographicCamera);
    auto* light = new SoLightModel;
    light->model = SoLightModel::BASE_COLOR;
    root->addChild(light);
    auto* color = new SoBaseColor;
    color->rgb.setValue(1.0F, 1.0F, 1.0F);
    root->addChild(color);
    auto* coordinate = new SoCoordinate3;
    coordinate->point.set1Value(0, 0.0F, 0.0F, 0.0F);
    root->addChild(coordinate);
    auto* marker = new SoMarkerSet;
    marker->markerIndex = markerIndex;
    root->addChild(marker);
    const Picture picture = OffscreenRenderer(33, 33).render(root.get());
    int left = 33;
    int right = -1;
    int top = 33;
    int bottom = -1;
    for (int y = 0; y < 33; ++y) {
      for (int x = 0; x < 33; ++x) {
        if (picture.at(x, y)[0] < 128) continue;
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
      }
    }
    std::vector<std::string> rows;
    for (int y = top; y <= bottom; ++y) {
      std::string text;
      for (int x = left; x <= right; ++x) text += picture.at(x, y)[0] < 128 ? '.' : 'x';
      rows.push_back(text);
    }
    return rows;
  }
};

TEST_F(DisplayBitmapsGLTest, TheControlPointsTriangleIsDrawnPointUp) {
  EXPECT_THAT(drawn(tarn::gSymbols.controlPoint),
              ElementsAre("....x....",  //
                          "...x.x...",  //
                          "...x.x...",  //
                          "..x...x..",  //
                          "..x.x.x..",  //
                          ".x.....x.",  //
                          ".x.....x.",  //
                          "x.......x",  //
                          "xxxxxxxxx"));
}

TEST_F(DisplayBitmapsGLTest, ThePointsCrossIsDrawnWhole) {
  EXPECT_THAT(drawn(tarn::gSymbols.point), ElementsAre("...x...", "...x...", "...x...", "xxxxxxx",
                                                       "...x...", "...x...", "...x..."));
}
