#include "bench/dense/CloudWork.h"

#include "bench/DenseShapes.h"
#include "bench/Memory.h"
#include "bench/Timing.h"

#include <cstdlib>
#include <exception>
#include <iostream>

namespace bench {

int CloudWork::run(int argc, char** argv) {
  points = argc == 2 ? std::atoi(argv[1]) : 0;
  if (points < 1) {
    std::cerr << "usage: " << argv[0] << " POINTS\n";
    return 2;
  }
  try {
    prepare();
    tellBuilding();
    tellDrawing();
  } catch (const std::exception& problem) {
    std::cerr << problem.what() << '\n';
    return 1;
  }
  return 0;
}

void CloudWork::prepare() { coordinates = cloudPositions(points); }

void CloudWork::tellBuilding() {
  std::vector<double> building;
  std::vector<double> colouring;
  for (int i = 0; i < 5; ++i) {
    residentBytes();  // what the last pass took is given back: the next one's memory is new
    building.push_back(1e3 * secondsOf([this] { build(); }));
    colouring.push_back(1e3 * secondsOf([this] { colour(); }));
    drop();
  }
  std::cout << "build_ms " << medianOf(building) << "\ncolour_ms " << medianOf(colouring) << '\n';
}

void CloudWork::tellDrawing() {
  if (!open()) return;
  for (int i = 0; i < 3; ++i) draw(View::ofCloud(0));  // what the driver takes for itself
  const double before = residentBytes();
  build();
  colour();
  int frame = 0;
  const auto next = [&] { return secondsOf([&] { draw(View::ofCloud(frame++)); }); };
  std::cout << "first_ms " << next() << '\n';
  next();
  std::vector<double> steady;
  for (int i = 0; i < 3; ++i) steady.push_back(next());
  std::cout << "steady_ms " << medianOf(steady) << "\nbytes_per_point "
            << (residentBytes() - before) / static_cast<double>(count()) << '\n';
}

}  // namespace bench
