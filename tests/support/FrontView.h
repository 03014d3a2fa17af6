#pragma once

#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"

/// A scene without lights, seen from the front (along the model's y) with the view offset in
/// the middle of the picture, which is `height` units high.
inline NodeRef<SoSeparator> frontView(float height) {
  auto scene = makeNode<SoSeparator>();
  auto* camera = new SoOrthographicCamera;
  camera->height = height;
  camera->position.setValue(0, 0, 50);
  camera->nearDistance = 1.0F;
  camera->farDistance = 100.0F;
  scene->addChild(camera);
  auto* light = new SoLightModel;
  light->model = SoLightModel::BASE_COLOR;
  scene->addChild(light);
  return scene;
}
