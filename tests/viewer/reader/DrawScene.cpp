// Draws an Inventor file with Coin alone: usage DrawScene SCENE.iv PICTURE.png WIDTH HEIGHT
#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/nodes/SoSeparator.h>

#include "viewer/HeadlessContext.h"
#include "viewer/OffscreenRenderer.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {
// Null for a file that cannot be read.
SoSeparator* read(const char* fileName) {
  SoInput input;
  return input.openFile(fileName) ? SoDB::readAll(&input) : nullptr;
}
}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) return 2;
  HeadlessContext::prepareEnvironment();
  SoDB::init();
  SoInteraction::init();
  SoSeparator* scene = read(argv[1]);
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
  SoDB::finish();
  return 0;
}
