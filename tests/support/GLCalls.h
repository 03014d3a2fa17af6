#pragma once

#include <ostream>
#include <string>
#include <vector>

/// Records which functions of OpenGL are called, in their order, by whatever library of this
/// process. The recorded ones are interposed: GLCalls.cpp defines them, the dynamic linker
/// prefers what the program defines, and each call is passed on to OpenGL. Only the functions
/// that stand there are recorded.
namespace GLCalls {

/// One call. Enumerators are kept as their numbers, arrays as their elements.
struct Call {
  std::string name;
  std::vector<double> arguments;
  friend bool operator==(const Call&, const Call&) = default;
  friend void PrintTo(const Call& call, std::ostream* out) {
    *out << call.name;
    for (const double argument : call.arguments) *out << " " << argument;
  }
};

/// Begins a recording; one that is under way is dropped.
void start();
/// Ends the recording and gives its calls.
std::vector<Call> stop();

}  // namespace GLCalls
