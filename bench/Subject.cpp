#include "bench/Subject.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace bench {

namespace {
// A function's variable, for subjects register themselves while the program starts.
std::vector<const Subject*>& registry() {
  static std::vector<const Subject*> subjects;
  return subjects;
}
}  // namespace

Measure timeOf(std::string name, std::function<void()> work) {
  return {.name = std::move(name),
          .time =
              [work = std::move(work)](benchmark::State& state) {
                for ([[maybe_unused]] auto _ : state) work();
              },
          .figure = {}};
}

Measure figureOf(std::string name, std::function<double()> figure) {
  return {.name = std::move(name), .time = {}, .figure = std::move(figure)};
}

Subject::Subject(std::string subjectName, std::string subjectDescription, MakeRows make)
    : name(std::move(subjectName)),
      description(std::move(subjectDescription)),
      makeRows(std::move(make)) {
  registry().push_back(this);
}

std::vector<const Subject*> Subject::all() {
  std::vector<const Subject*> subjects = registry();
  std::ranges::sort(subjects, {}, [](const Subject* subject) { return subject->name; });
  return subjects;
}

std::string keptFolder() {
  std::filesystem::create_directories(TARN_BENCH_FOLDER);
  return TARN_BENCH_FOLDER;
}

}  // namespace bench
