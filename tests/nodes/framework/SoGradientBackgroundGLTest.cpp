#include "nodes/framework/SoGradientBackground.h"

#include <GL/gl.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/engines/SoComposeVec2f.h>
#include <Inventor/nodes/SoCallback.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTranslation.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/FrontView.h"
#include "tests/support/GLCalls.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <deque>
#include <functional>
#include <ostream>
#include <vector>

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

constexpr int width = 64;
constexpr int height = 48;

// All that OpenGL is asked about between two nodes.
struct GLState {
  std::array<GLfloat, 16> modelView{};
  std::array<GLfloat, 16> projection{};
  std::array<GLint, 4> viewport{};
  std::array<GLint, 4> numbers{};  // stack depths of attributes and matrices, depth function
  GLboolean depthMask = GL_FALSE;
  std::vector<GLboolean> enabled;
  friend bool operator==(const GLState&, const GLState&) = default;

  static GLState now() {
    GLState state;
    glGetFloatv(GL_MODELVIEW_MATRIX, state.modelView.data());
    glGetFloatv(GL_PROJECTION_MATRIX, state.projection.data());
    glGetIntegerv(GL_VIEWPORT, state.viewport.data());
    constexpr std::array asked = {GL_ATTRIB_STACK_DEPTH, GL_MODELVIEW_STACK_DEPTH,
                                  GL_PROJECTION_STACK_DEPTH, GL_DEPTH_FUNC};
    for (std::size_t i = 0; i < asked.size(); ++i) {
      glGetIntegerv(static_cast<GLenum>(asked[i]), &state.numbers[i]);
    }
    glGetBooleanv(GL_DEPTH_WRITEMASK, &state.depthMask);
    for (const GLenum capability : capabilities) state.enabled.push_back(glIsEnabled(capability));
    return state;
  }

  static constexpr std::array<GLenum, 14> capabilities = {
      GL_ALPHA_TEST, GL_BLEND,      GL_DEPTH_TEST,     GL_DITHER,          GL_FOG,
      GL_LIGHTING,   GL_LOGIC_OP,   GL_POLYGON_SMOOTH, GL_POLYGON_STIPPLE, GL_STENCIL_TEST,
      GL_TEXTURE_1D, GL_TEXTURE_2D, GL_COLOR_MATERIAL, GL_CULL_FACE};
};

}  // namespace

/// Draws the background alone, or with what a test adds, into 64 x 48 pixels of magenta.
class SoGradientBackgroundGLTest : public TarnTest {
protected:
  SoGradientBackgroundGLTest() {
    renderer.setBackgroundColor(SbColor(1, 0, 1));
    root->addChild(node);
  }

  Picture render() { return renderer.render(root.get()); }

  /// A node that does something when the scene is drawn.
  SoCallback* whenDrawn(std::function<void()> function) {
    functions.push_back(std::move(function));
    auto* callback = new SoCallback;
    callback->setCallback(
        [](void* data, SoAction* action) {
          if (action->isOfType(SoGLRenderAction::getClassTypeId())) {
            (*static_cast<std::function<void()>*>(data))();
          }
        },
        &functions.back());
    return callback;
  }

  /// The calls of OpenGL that the background makes in the next frame.
  std::vector<GLCalls::Call> callsOfBackground() {
    std::vector<GLCalls::Call> calls;
    root->insertChild(whenDrawn(&GLCalls::start), root->findChild(node));
    root->insertChild(whenDrawn([&calls] { calls = GLCalls::stop(); }), root->findChild(node) + 1);
    renderer.draw(root.get());
    root->removeChild(root->findChild(node) + 1);
    root->removeChild(root->findChild(node) - 1);
    return calls;
  }

  /// Expects at a pixel, counted from the upper left, what lies `u` of the way between two
  /// colours; OpenGL may round a component to either side.
  static void expectPixel(const Picture& picture, int x, int y, const SbColor& low,
                          const SbColor& high, double u) {
    for (int i = 0; i < 3; ++i) {
      const double expected = low[i] + (static_cast<double>(high[i]) - low[i]) * u;
      EXPECT_NEAR(picture.at(x, y)[i], 255.0 * std::clamp(expected, 0.0, 1.0), 1.0)
          << "pixel " << x << ", " << y << ", component " << i;
    }
  }

  /// Expects a gradient all over the picture; `parameter` gives how far along a place is, with
  /// x and y from 0 to 1 to the right and up.
  void expectGradient(const Picture& picture,
                      const std::function<double(double, double)>& parameter) const {
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        expectPixel(picture, x, y, node->color0.getValue(), node->color1.getValue(),
                    parameter((x + 0.5) / picture.width, 1 - (y + 0.5) / picture.height));
      }
    }
  }

  /// Expects the two lower corners near one colour and the two upper ones near the other.
  static void expectEnds(const Picture& picture, const SbColor& below, const SbColor& above) {
    for (const int x : {0, width - 1}) {
      expectPixel(picture, x, height - 1, below, above, 0.5 / height);
      expectPixel(picture, x, 0, below, above, 1 - 0.5 / height);
    }
  }

  static bool isUntouched(const Picture& picture) {
    for (std::size_t i = 0; i < picture.bytes.size(); ++i) {
      if (picture.bytes[i] != (i % 3 == 1 ? 0 : 255)) return false;
    }
    return true;
  }

  /// The depths of the frame that was drawn last.
  static std::vector<float> depths() {
    std::vector<float> result(static_cast<std::size_t>(width) * height);
    glReadPixels(0, 0, width, height, GL_DEPTH_COMPONENT, GL_FLOAT, result.data());
    return result;
  }

  /// What follows is seen from the front, without lights, behind the background; eight pixels
  /// a unit.
  void seeFront() {
    const NodeRef<SoGradientBackground> kept(node);
    root = frontView(6);
    root->insertChild(node, 0);
  }

  OffscreenRenderer renderer{width, height};
  std::deque<std::function<void()>> functions;
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
  SoGradientBackground* node = new SoGradientBackground;  // the scene's
};

// --- What is to be seen

TEST_F(SoGradientBackgroundGLTest, RunsFromTheBottomToTheTop) {
  const Picture picture = render();
  expectEnds(picture, SbColor(0.7F, 0.7F, 0.8F), SbColor(0.0F, 0.1F, 0.3F));
  expectGradient(picture, [](double, double y) { return y; });
}

TEST_F(SoGradientBackgroundGLTest, SwappedColoursExchangeTheEnds) {
  node->swapColors.setValue(TRUE);
  const Picture picture = render();
  expectEnds(picture, SbColor(0.0F, 0.1F, 0.3F), SbColor(0.7F, 0.7F, 0.8F));
  expectGradient(picture, [](double, double y) { return 1 - y; });
}

TEST_F(SoGradientBackgroundGLTest, ADirectionToTheRightRunsFromLeftToRight) {
  node->direction.setValue(1, 0);
  expectGradient(render(), [](double x, double) { return x; });
}

TEST_F(SoGradientBackgroundGLTest, ADirectionDownRunsFromTheTopToTheBottom) {
  node->direction.setValue(0, -1);
  expectGradient(render(), [](double, double y) { return 1 - y; });
}

TEST_F(SoGradientBackgroundGLTest, TheLengthOfTheDirectionDoesNotMatter) {
  node->direction.setValue(1, 1);
  const Picture expected = render();
  expectGradient(expected, [](double x, double y) { return (x + y) / 2; });
  for (const float length : {5.0F, 0.125F, 1e30F, 1e-30F}) {
    node->direction.setValue(length, length);
    EXPECT_EQ(render().bytes, expected.bytes) << length;
  }
}

TEST_F(SoGradientBackgroundGLTest, TheUpperLeftCornerIsLeftOutOfTheRangeAndExtrapolated) {
  // Lower left 0, lower right 1, upper right 0: the upper left is at -1.
  node->direction.setValue(1, -1);
  node->color0.setValue(0.5F, 0.5F, 0.5F);
  node->color1.setValue(0.6F, 0.3F, 0.45F);
  expectGradient(render(), [](double x, double y) { return x - y; });
  const std::vector<GLCalls::Call> calls = callsOfBackground();
  const float expected[] = {0.4F, 0.7F, 0.55F};
  const auto beyond = std::ranges::find_if(calls, [&](const GLCalls::Call& call) {
    return call.name == "glColor3fv" && std::abs(call.arguments[0] - expected[0]) < 1e-6 &&
           std::abs(call.arguments[1] - expected[1]) < 1e-6 &&
           std::abs(call.arguments[2] - expected[2]) < 1e-6;
  });
  ASSERT_NE(beyond, calls.end());
  EXPECT_EQ(*std::next(beyond), (GLCalls::Call{"glVertex2i", {0, 1}}));
}

TEST_F(SoGradientBackgroundGLTest, AnExtrapolatedColourMayLeaveTheRangeOfColours) {
  node->direction.setValue(1, -1);
  const Picture picture = render();
  // 2 (0.7, 0.7, 0.8) - (0.0, 0.1, 0.3) is more than white.
  expectPixel(picture, 0, 0, SbColor(1, 1, 1), SbColor(1, 1, 1), 0);
}

TEST_F(SoGradientBackgroundGLTest, APartialViewportIsFilledAndNothingElse) {
  node->direction.setValue(1, 1);
  SbViewportRegion region = renderer.getViewportRegion();
  region.setViewportPixels(16, 12, 32, 12);
  renderer.action().setViewportRegion(region);
  const Picture picture = render();
  // Half as wide and a quarter as high as the window: the lower right corner is at 2/3.
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int column = x - 16;
      const int line = height - 1 - y - 12;
      if (column >= 0 && column < 32 && line >= 0 && line < 12) {
        expectPixel(picture, x, y, node->color0.getValue(), node->color1.getValue(),
                    2.0 / 3 * (column + 0.5) / 32 + 1.0 / 3 * (line + 0.5) / 12);
      } else {
        expectPixel(picture, x, y, SbColor(1, 0, 1), SbColor(1, 0, 1), 0);
      }
    }
  }
}

TEST_F(SoGradientBackgroundGLTest, ConnectedFieldsAreBroughtUpToDate) {
  auto* engine = new SoComposeVec2f;
  engine->x.setValue(0);
  engine->y.setValue(1);
  node->direction.connectFrom(&engine->vector);
  render();
  engine->x.setValue(1);
  engine->y.setValue(0);
  expectGradient(render(), [](double x, double) { return x; });
}

TEST_F(SoGradientBackgroundGLTest, FollowsItsFieldsUnderASeparatorThatCaches) {
  root->renderCaching.setValue(SoSeparator::ON);
  for (int frame = 0; frame < 4; ++frame) render();
  node->direction.setValue(1, 0);
  for (int frame = 0; frame < 4; ++frame) {
    expectGradient(render(), [](double x, double) { return x; });
  }
}

// --- Nothing is drawn

TEST_F(SoGradientBackgroundGLTest, ADirectionOfNoLengthDrawsNothing) {
  node->direction.setValue(0, 0);
  EXPECT_TRUE(isUntouched(render()));
  EXPECT_THAT(callsOfBackground(), IsEmpty());
}

TEST_F(SoGradientBackgroundGLTest, ADirectionThatIsNoneDrawsNothing) {
  for (const float odd : {std::nanf(""), INFINITY}) {
    node->direction.setValue(odd, 1);
    EXPECT_TRUE(isUntouched(render())) << odd;
  }
}

TEST_F(SoGradientBackgroundGLTest, AViewportOfNoSizeDrawsNothing) {
  SbViewportRegion region = renderer.getViewportRegion();
  region.setViewportPixels(16, 12, 0, 0);
  renderer.action().setViewportRegion(region);
  EXPECT_THAT(callsOfBackground(), IsEmpty());
}

TEST_F(SoGradientBackgroundGLTest, AViewportOfNoHeightDrawsNothingUpwards) {
  SbViewportRegion region = renderer.getViewportRegion();
  region.setViewportPixels(16, 12, 32, 0);
  renderer.action().setViewportRegion(region);
  EXPECT_THAT(callsOfBackground(), IsEmpty());
  node->direction.setValue(1, 0);
  EXPECT_THAT(callsOfBackground(), Not(IsEmpty()));
}

// --- What it asks of OpenGL, and how it leaves it

TEST_F(SoGradientBackgroundGLTest, CallsOpenGLInItsOrder) {
  node->color0.setValue(0.25F, 0.5F, 0.75F);
  node->color1.setValue(0.75F, 1.0F, 0.25F);
  std::vector<GLCalls::Call> calls = callsOfBackground();
  const auto first = std::ranges::find(calls, "glPushAttrib", &GLCalls::Call::name);
  // Ahead of it Coin's own state is sent, lighting among it, which is switched off below.
  const std::vector<GLCalls::Call> ahead(calls.begin(), first);
  EXPECT_THAT(ahead, Contains(GLCalls::Call{"glEnable", {GL_LIGHTING}}));
  calls.erase(calls.begin(), first);
  const std::vector<GLCalls::Call> expected = {{"glPushAttrib", {0x2120}},
                                               {"glDisable", {GL_ALPHA_TEST}},
                                               {"glDisable", {GL_BLEND}},
                                               {"glDisable", {GL_DEPTH_TEST}},
                                               {"glDisable", {GL_DITHER}},
                                               {"glDisable", {GL_FOG}},
                                               {"glDisable", {GL_LIGHTING}},
                                               {"glDisable", {0x0BF1}},
                                               {"glDisable", {GL_POLYGON_SMOOTH}},
                                               {"glDisable", {GL_POLYGON_STIPPLE}},
                                               {"glDisable", {GL_STENCIL_TEST}},
                                               {"glDisable", {GL_TEXTURE_1D}},
                                               {"glDepthMask", {GL_FALSE}},
                                               {"glMatrixMode", {GL_MODELVIEW}},
                                               {"glPushMatrix", {}},
                                               {"glLoadIdentity", {}},
                                               {"glMatrixMode", {GL_PROJECTION}},
                                               {"glPushMatrix", {}},
                                               {"glLoadIdentity", {}},
                                               {"glOrtho", {0, 1, 0, 1, 0, 1}},
                                               {"glBegin", {GL_QUADS}},
                                               {"glColor3fv", {0.25, 0.5, 0.75}},
                                               {"glVertex2i", {0, 0}},
                                               {"glColor3fv", {0.25, 0.5, 0.75}},
                                               {"glVertex2i", {1, 0}},
                                               {"glColor3fv", {0.75, 1.0, 0.25}},
                                               {"glVertex2i", {1, 1}},
                                               {"glColor3fv", {0.75, 1.0, 0.25}},
                                               {"glVertex2i", {0, 1}},
                                               {"glEnd", {}},
                                               {"glDepthMask", {GL_TRUE}},
                                               {"glPopMatrix", {}},
                                               {"glMatrixMode", {GL_MODELVIEW}},
                                               {"glPopMatrix", {}},
                                               {"glPopAttrib", {}}};
  EXPECT_EQ(calls, expected);
}

TEST_F(SoGradientBackgroundGLTest, LeavesTheStateOfOpenGLAsItWas) {
  // Everything on that it switches off, and matrices that are not the identity. The first
  // background sends Coin's state, so that the second has none to send.
  GLState before;
  GLState after;
  GLint modeAfter = 0;
  GLenum error = GL_NO_ERROR;
  root->addChild(whenDrawn([&before] {
    for (const GLenum capability : GLState::capabilities) glEnable(capability);
    glDepthMask(GL_FALSE);
    glMatrixMode(GL_PROJECTION);
    glTranslatef(1, 2, 3);
    glMatrixMode(GL_MODELVIEW);
    glRotatef(30, 1, 2, 3);
    before = GLState::now();
  }));
  root->addChild(new SoGradientBackground);
  root->addChild(whenDrawn([&] {
    after = GLState::now();
    glGetIntegerv(GL_MATRIX_MODE, &modeAfter);
    error = glGetError();
  }));
  render();
  EXPECT_FALSE(before.enabled.empty());
  EXPECT_EQ(after, before);
  EXPECT_EQ(modeAfter, GL_MODELVIEW);
  EXPECT_EQ(error, static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(SoGradientBackgroundGLTest, DrawsWhateverStateItMeets) {
  const Picture expected = render();
  root->insertChild(whenDrawn([] {
                      for (const GLenum capability : GLState::capabilities) {
                        // A texture in two dimensions is drawn, and has a test of its own.
                        if (capability != GL_TEXTURE_2D) glEnable(capability);
                      }
                      glAlphaFunc(GL_NEVER, 0);
                      glBlendFunc(GL_ZERO, GL_ONE);
                      glDepthFunc(GL_NEVER);
                      glFogf(GL_FOG_DENSITY, 100);
                      glFogi(GL_FOG_MODE, GL_EXP);
                      glLogicOp(GL_CLEAR);
                      std::array<GLubyte, 128> nothing{};
                      glPolygonStipple(nothing.data());
                      glStencilFunc(GL_NEVER, 0, 0xFF);
                      glMatrixMode(GL_PROJECTION);
                      glScalef(0.1F, 0.1F, 0.1F);
                      glMatrixMode(GL_MODELVIEW);
                      glScalef(0.1F, 0.1F, 0.1F);
                    }),
                    0);
  EXPECT_EQ(render().bytes, expected.bytes);
}

TEST_F(SoGradientBackgroundGLTest, TheMatrixModeIsTheModelViewsAfterwards) {
  GLint mode = 0;
  root->insertChild(whenDrawn([] { glMatrixMode(GL_TEXTURE); }), 0);
  root->addChild(whenDrawn([&mode] { glGetIntegerv(GL_MATRIX_MODE, &mode); }));
  render();
  EXPECT_EQ(mode, GL_MODELVIEW);
}

TEST_F(SoGradientBackgroundGLTest, ATextureInTwoDimensionsIsDrawnOntoIt) {
  GLuint texture = 0;
  root->insertChild(whenDrawn([&texture] {
                      const GLubyte green[] = {0, 255, 0, 255};
                      glGenTextures(1, &texture);
                      glBindTexture(GL_TEXTURE_2D, texture);
                      glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
                      glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                                   green);
                      glEnable(GL_TEXTURE_2D);
                    }),
                    0);
  root->addChild(whenDrawn([&texture] {
    glDisable(GL_TEXTURE_2D);
    glDeleteTextures(1, &texture);
  }));
  const Picture picture = render();
  for (int y = 0; y < height; ++y) {
    expectPixel(picture, width / 2, y, SbColor(0, 0.7F, 0), SbColor(0, 0.1F, 0),
                1 - (y + 0.5) / height);
  }
}

TEST_F(SoGradientBackgroundGLTest, TheDepthBufferIsUntouched) {
  seeFront();
  root->removeChild(node);
  root->addChild(new SoCube);
  const Picture cube = render();
  const std::vector<float> expected = depths();
  ASSERT_NE(*std::ranges::min_element(expected), 1.0F);
  // Ahead of the cube, as it should be, and behind it, where it covers all colours.
  for (const int place : {0, root->getNumChildren()}) {
    SCOPED_TRACE(place);
    root->insertChild(new SoGradientBackground, place);
    const Picture picture = render();
    EXPECT_EQ(depths(), expected);
    EXPECT_FALSE(isUntouched(picture));
    for (int i = 0; i < 3; ++i) {
      const bool covered = place != 0;
      EXPECT_EQ(picture.at(width / 2, height / 2)[i] == cube.at(width / 2, height / 2)[i],
                !covered);
    }
    root->removeChild(place);
  }
}

TEST_F(SoGradientBackgroundGLTest, AShapeWithoutMaterialHasNotTheColourOfACorner) {
  seeFront();
  root->addChild(new SoCube);
  const Picture picture = render();
  expectPixel(picture, width / 2, height / 2, SbColor(0.8F, 0.8F, 0.8F), SbColor(), 0);
}

TEST_F(SoGradientBackgroundGLTest, DelayedTransparentShapesAreDrawnOverTheSceneNotOverAnother) {
  seeFront();
  auto* opaque = new SoMaterial;
  opaque->diffuseColor.setValue(1, 0, 0);
  root->addChild(opaque);
  root->addChild(new SoCube);
  auto* place = new SoTranslation;
  place->translation.setValue(3, 0, 0);
  root->addChild(place);
  auto* glass = new SoMaterial;
  glass->diffuseColor.setValue(0, 1, 0);
  glass->transparency.setValue(0.5F);
  root->addChild(glass);
  root->addChild(new SoCube);
  for (const auto type : {SoGLRenderAction::SORTED_OBJECT_BLEND, SoGLRenderAction::DELAYED_BLEND,
                          SoGLRenderAction::SORTED_OBJECT_SORTED_TRIANGLE_BLEND}) {
    renderer.action().setTransparencyType(type);
    const Picture picture = render();
    const std::uint8_t* cube = picture.at(width / 2, height / 2);
    EXPECT_GT(cube[0], 200) << type;
    EXPECT_LT(cube[1], 50) << type;
    const std::uint8_t* glassCube = picture.at(width / 2 + 24, height / 2);
    // Its front and its back are blended, each by half.
    EXPECT_GT(glassCube[1], 80) << type;
    EXPECT_GT(glassCube[2], 30) << "the gradient behind it, " << type;
    expectPixel(picture, 0, 0, node->color0.getValue(), node->color1.getValue(), 1 - 0.5 / height);
  }
}
