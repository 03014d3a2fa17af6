// Draws an Inventor file with Coin alone: usage DrawScene SCENE.iv PICTURE.png WIDTH HEIGHT
#include <cstdio>
#include <cstdlib>
#include <exception>

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/nodes/SoSeparator.h>

#include "viewer/HeadlessContext.h"
#include "viewer/OffscreenRenderer.h"

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  HeadlessContext::prepareEnvironment();
  SoDB::init();
  SoInteraction::init();
  SoInput input;
  if (!input.openFile(argv[1])) return 1;
  SoSeparator* scene = SoDB::readAll(&input);
  if (!scene) return 1;
  scene->ref();
  try {
    OffscreenRenderer renderer(std::atoi(argv[3]), std::atoi(argv[4]));
    renderer.setBackgroundColor(SbColor(0.33F, 0.36F, 0.40F));
    renderer.render(scene).writePng(argv[2]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  scene->unref();
  return 0;
}
