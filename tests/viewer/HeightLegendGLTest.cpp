#include "viewer/HeightLegend.h"

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/model/Project.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <algorithm>
#include <array>

class HeightLegendGLTest : public TarnTest {
protected:
  HeightLegendGLTest() {
    tarn::PointMesh& mesh = project.AddPointMesh();
    mesh.Allocate(2, 0);
    std::ranges::copy(std::array{0.0F, 0.0F, 1234.5F, 1.0F, 1.0F, 5678.25F},
                      mesh.GetPointStorage().begin());
  }

  struct Letters {
    int pixels = 0;
    int right = 0;  ///< of the picture's right side from the rightmost
  };
  // Only the numbers are as light as this in all three colours.
  static Letters lettersIn(const Picture& picture) {
    Letters letters;
    letters.right = picture.width;
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        const std::uint8_t* pixel = picture.at(x, y);
        if (std::min({pixel[0], pixel[1], pixel[2]}) < 140) continue;
        ++letters.pixels;
        letters.right = std::min(letters.right, picture.width - 1 - x);
      }
    }
    return letters;
  }

  tarn::Project project;
};

TEST_F(HeightLegendGLTest, NumbersAreWholeInEverySizeOfPicture) {
  HeightLegend legend(project);
  const NodeRef<SoSeparator> scene = makeNode<SoSeparator>();
  scene->addChild(legend.root());
  int pixels = 0;
  for (const auto& [width, height] :
       {std::pair(1600, 1200), std::pair(3000, 400), std::pair(640, 480), std::pair(320, 240),
        std::pair(150, 900), std::pair(1601, 1200)}) {
    OffscreenRenderer renderer(width, height);
    const Letters letters = lettersIn(renderer.render(scene.get()));
    if (pixels == 0) pixels = letters.pixels;
    EXPECT_EQ(letters.pixels, pixels) << width << ' ' << height;
    EXPECT_GE(letters.right, 4) << width << ' ' << height;
  }
  // Three numbers of seven digits and points.
  EXPECT_GT(pixels, 3 * 7 * 8);
}

// On white it is the plate that makes them readable.
TEST_F(HeightLegendGLTest, NumbersStandOnADarkPlateInFrontOfTheScene) {
  HeightLegend legend(project);
  const NodeRef<SoSeparator> scene = makeNode<SoSeparator>();
  scene->addChild(legend.root());
  OffscreenRenderer renderer(400, 300);
  renderer.setBackgroundColor(SbColor(1.0F, 1.0F, 1.0F));
  const Picture picture = renderer.render(scene.get());
  EXPECT_EQ(picture.at(10, 150)[0], 255);
  // Between the numbers, right of the bar.
  EXPECT_NEAR(picture.at(380, 100)[0], 77, 2);
}

TEST_F(HeightLegendGLTest, WhatIsTransparentInTheSceneIsBehindThePlate) {
  const auto besideTheNumbers = [this](float transparency) {
    HeightLegend legend(project);
    const NodeRef<SoSeparator> scene = makeNode<SoSeparator>();
    auto* camera = new SoOrthographicCamera;
    // Nearer to its eye than the plate to that of the legend: sorted, it would be drawn last.
    camera->position = SbVec3f(0.0F, 0.0F, 0.9F);
    camera->nearDistance = 0.5F;
    scene->addChild(camera);
    auto* white = new SoMaterial;
    white->diffuseColor = SbColor(0.0F, 0.0F, 0.0F);
    white->emissiveColor = SbColor(1.0F, 1.0F, 1.0F);
    white->transparency = transparency;
    scene->addChild(white);
    auto* wall = new SoCube;
    wall->width = wall->height = 10.0F;
    wall->depth = 0.1F;
    scene->addChild(wall);
    scene->addChild(legend.root());
    OffscreenRenderer renderer(400, 300);
    return static_cast<int>(renderer.render(scene.get()).at(380, 100)[0]);
  };
  EXPECT_NEAR(besideTheNumbers(0.0F), 77, 2);
  EXPECT_LE(besideTheNumbers(0.5F), 77);
}
