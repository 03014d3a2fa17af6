// Makes the demo project that stands in examples/demo: a vase and a box on a plate with
// targets, photographed from a dozen stations, measured and computed.
#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>

#include "examples/DemoProject.h"
#include "viewer/HeadlessContext.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: tarn_make_demo FOLDER\nWrites the demo project into FOLDER.\n");
    return 2;
  }
  HeadlessContext::prepareEnvironment();
  SoDB::init();
  SoInteraction::init();
  try {
    const DemoProject project;
    project.write(argv[1]);
    std::printf("%s: %d object points, %d measurements, residuals %.3f pixels (rms)\n", argv[1],
                project.pointCount(), project.measurementCount(), project.rootMeanSquare());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarn_make_demo: %s\n", error.what());
    return 1;
  }
  SoDB::finish();
  return 0;
}
