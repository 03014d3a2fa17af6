#pragma once

#include <functional>

namespace tarn {

/// What a reader does while it works: a step's name and how much of it is done, 0 to 1.
using ProgressHandler = std::function<void(const char* step, double done)>;

}  // namespace tarn
