#pragma once

#include <memory>

/// An OpenGL context without any window system: an EGL surfaceless display, so that
/// drawing needs no X server. Current in the thread that made it until it is destroyed.
class HeadlessContext {
public:
  /// Makes the context and makes it current. Throws std::runtime_error, saying what EGL
  /// lacks, when there is none to be had.
  HeadlessContext();
  ~HeadlessContext();
  HeadlessContext(const HeadlessContext&) = delete;
  HeadlessContext& operator=(const HeadlessContext&) = delete;

  /// Sets the environment that Coin needs to see such a context: without it Coin believes
  /// that drawing is indirect and leaves its vertex-buffer path. Call it before
  /// SoDB::init; an application that draws in a window does not need it.
  static void prepareEnvironment();

  void makeCurrent() const;

private:
  struct Handles;
  std::unique_ptr<Handles> handles;
};
