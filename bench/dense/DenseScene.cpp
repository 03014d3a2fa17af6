#include "bench/dense/DenseScene.h"

#include <Inventor/nodes/SoDirectionalLight.h>

#include <numbers>

namespace bench {

namespace {

float radians(double degrees) { return static_cast<float>(degrees * std::numbers::pi / 180); }

}  // namespace

DenseScene::DenseScene() {
  camera->heightAngle = radians(View::verticalAngleDegrees);
  camera->nearDistance = static_cast<float>(View::nearDistance);
  camera->farDistance = static_cast<float>(View::farDistance);
  auto* light = new SoDirectionalLight;
  light->direction.setValue(0, 0, -1);
  root->addChild(camera);
  root->addChild(light);
}

void DenseScene::place(const View& view) {
  camera->position.setValue(view.x, view.y, view.z);
  camera->orientation.setValue(SbVec3f(1, 0, 0), radians(-view.downDegrees));
}

void DenseScene::draw(const View& view) {
  place(view);
  renderer.draw(root.get());
}

Picture DenseScene::render(const View& view) {
  place(view);
  return renderer.render(root.get());
}

}  // namespace bench
