#include "io/ColmapReader.h"

#include "io/ColmapBinaryFiles.h"
#include "io/ColmapFolder.h"
#include "io/ColmapModel.h"
#include "io/ColmapProject.h"
#include "io/ColmapTextFiles.h"
#include "io/ReadProgress.h"

namespace tarn {

bool ColmapReader::IsModelFolder(const std::string& folder) {
  ColmapFolder found;
  return ColmapFolder::find(folder, found);
}

void ColmapReader::Read(const std::string& folder, Project& project, const Options& options) {
  const ColmapFolder source = ColmapFolder::require(folder);
  // The paths outlive the model, whose records name them.
  const std::string cameras = source.file("cameras");
  const std::string images = source.file("images");
  const std::string points = source.file("points3D");
  const std::string rigs = source.file("rigs");
  const std::string frames = source.file("frames");

  ColmapModel model;
  ReadProgress imageProgress(options.progress, "Reading images");
  if (source.binary) {
    colmapBinary::readCameras(cameras, model);
    colmapBinary::readImages(images, model, imageProgress);
  } else {
    colmapText::readCameras(cameras, model);
    colmapText::readImages(images, model, imageProgress);
  }
  imageProgress.end();

  ReadProgress pointProgress(options.progress, "Reading points");
  if (source.binary) {
    colmapBinary::readPoints(points, model, pointProgress);
  } else {
    colmapText::readPoints(points, model, pointProgress);
  }
  // Both came with COLMAP 3.12; models of earlier versions have neither.
  if (source.has("rigs")) {
    (source.binary ? colmapBinary::readRigs : colmapText::readRigs)(rigs, model);
  }
  if (source.has("frames")) {
    (source.binary ? colmapBinary::readFrames : colmapText::readFrames)(frames, model);
  }
  model.check();
  pointProgress.end();

  ReadProgress precisionProgress(options.progress, "Computing precision");
  const ColmapProject computed(model, precisionProgress);
  precisionProgress.end();
  computed.addTo(project, options.imageFolder.empty() ? source.imageFolder() : options.imageFolder);
}

}  // namespace tarn
