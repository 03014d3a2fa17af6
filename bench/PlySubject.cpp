// A file of ten million coloured points, read.
#include "bench/Companion.h"
#include "bench/PointHash.h"
#include "bench/ReadingTime.h"
#include "bench/Subject.h"
#include "host/model/PointMesh.h"
#include "host/model/Project.h"
#include "io/PlyReader.h"

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int manyPoints = 10000000;

// The file, made on first use: points of a block of 100 x 100 x 30 m, 15 bytes each, which is
// how reconstructions are commonly written.
std::string cloudFile() {
  const std::string fileName = bench::keptFolder() + "/points-1.ply";
  if (std::filesystem::exists(fileName)) return fileName;
  const std::string unfinished = fileName + ".part";
  std::ofstream file(unfinished, std::ios::binary);
  file << "ply\nformat binary_little_endian 1.0\nelement vertex " << manyPoints
       << "\nproperty float x\nproperty float y\nproperty float z\n"
          "property uchar red\nproperty uchar green\nproperty uchar blue\nend_header\n";
  std::mt19937 random(1);
  const auto upTo = [&random](float most) {
    return most * static_cast<float>(random() >> 8) / 16777216.0F;
  };
  std::array<char, 15> record{};
  for (int i = 0; i < manyPoints; ++i) {
    const std::array<float, 3> xyz{upTo(100.0F), upTo(100.0F), upTo(30.0F)};
    const auto rgb = static_cast<std::uint32_t>(random());
    std::memcpy(record.data(), xyz.data(), 12);
    std::memcpy(record.data() + 12, &rgb, 3);
    file.write(record.data(), record.size());
  }
  file.close();
  if (!file) throw std::runtime_error(unfinished + " cannot be written");
  std::filesystem::rename(unfinished, fileName);
  return fileName;
}

double hashOf(const tarn::PointMesh& mesh) {
  bench::PointHash hash;
  for (int i = 0; i < mesh.GetNumPoints(); ++i) {
    const float* xyz = mesh.GetPoints()[i];
    const unsigned char* bgr = mesh.GetRGBsForPoints()[i];
    hash.add(xyz[0], xyz[1], xyz[2], bgr[2], bgr[1], bgr[0]);
  }
  return hash.value();
}

double readingTime(const std::string& file) {
  return bench::readingTime([&file] {
    auto project = std::make_unique<tarn::Project>();
    tarn::PlyReader::Read(file, *project);
    return project;
  });
}

// The same work of a peer, which has to come to the same points.
bench::Row against(const std::string& name, const bench::Companion& peer, const std::string& file,
                   double hash) {
  const auto figure = [=] {
    const auto figures = peer.figures({file});
    if (figures.at("points_hash") != hash) {
      throw std::runtime_error(name + " reads other points than ours");
    }
    return figures.at("read_s");
  };
  return {.work = "read coloured points, binary",
          .size = "10,000,000 points",
          .ours = bench::figureOf("ours", [file] { return readingTime(file); }),
          .against = bench::figureOf(name, figure),
          .target = 1.0 / 3,
          .unit = "s",
          .skipped = peer.missing()};
}

const bench::Subject ply("ply", "reading a PLY file of coloured points", [] {
  const std::string file = cloudFile();
  tarn::Project project;
  const double hash = hashOf(tarn::PlyReader::Read(file, project));
  return std::vector<bench::Row>{
      against("Open3D", bench::Companion("tarn_bench_open3d_ply", "Open3D (package libopen3d-dev)"),
              file, hash),
      against("VTK", bench::Companion("tarn_bench_vtk_ply", "VTK (package libvtk9-dev)"), file,
              hash)};
});

}  // namespace
