#pragma once

#include "io/ColmapModel.h"
#include "io/ReadProgress.h"

#include <string>

namespace tarn {

/// Reads the text files of a COLMAP model: cameras.txt and so on. Each function takes the
/// path of its file, which has to outlive the model, and adds the file's records to it.
/// They throw ReadError, naming file and line.
/// Source of the layout: COLMAP's documentation, "Output Format".
namespace colmapText {
void readCameras(const std::string& file, ColmapModel& model);
void readImages(const std::string& file, ColmapModel& model, ReadProgress& progress);
void readPoints(const std::string& file, ColmapModel& model, ReadProgress& progress);
void readRigs(const std::string& file, ColmapModel& model);
void readFrames(const std::string& file, ColmapModel& model);
}  // namespace colmapText

}  // namespace tarn
