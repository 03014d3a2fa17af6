#pragma once

#include "bench/Subject.h"

#include <memory>
#include <string>
#include <utility>

namespace bench {

/// The time of building nodes for the objects, each time from nothing; taking down does not
/// count.
/// @tparam Nodes is made without arguments and has `build(Objects&)`
template <typename Nodes, typename Objects>
Measure building(std::string name, std::shared_ptr<Objects> objects) {
  return {.name = std::move(name),
          .time =
              [objects](benchmark::State& state) {
                for ([[maybe_unused]] auto _ : state) {
                  state.PauseTiming();
                  auto nodes = std::make_unique<Nodes>();
                  state.ResumeTiming();
                  nodes->build(*objects);
                  state.PauseTiming();
                  nodes.reset();
                  state.ResumeTiming();
                }
              },
          .figure = {}};
}

/// The time of a step, each time after `before`, which does not count.
template <typename Object>
Measure timeAfter(std::string name, std::shared_ptr<Object> object, void (Object::*before)(),
                  void (Object::*step)()) {
  return {.name = std::move(name),
          .time =
              [=](benchmark::State& state) {
                for ([[maybe_unused]] auto _ : state) {
                  state.PauseTiming();
                  (object.get()->*before)();
                  state.ResumeTiming();
                  (object.get()->*step)();
                }
              },
          .figure = {}};
}

}  // namespace bench
