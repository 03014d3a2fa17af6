#pragma once

#include "io/ColmapModel.h"
#include "io/ReadProgress.h"

#include <string>

namespace tarn {

/// Reads the binary files of a COLMAP model: cameras.bin and so on. Each function takes the
/// path of its file, which has to outlive the model, and adds the file's records to it.
/// They throw ReadError, naming file and byte.
/// Source of the layout: COLMAP's documentation, "Output Format", and its writers.
namespace colmapBinary {
void readCameras(const std::string& file, ColmapModel& model);
void readImages(const std::string& file, ColmapModel& model, ReadProgress& progress);
void readPoints(const std::string& file, ColmapModel& model, ReadProgress& progress);
void readRigs(const std::string& file, ColmapModel& model);
void readFrames(const std::string& file, ColmapModel& model);
}  // namespace colmapBinary

}  // namespace tarn
