#include "viewer/Tarnview.h"
#include "viewer/window/ViewerWindow.h"

#include <csignal>
#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
  // A file that grows beyond what the user may write is an error like any other.
  std::signal(SIGXFSZ, SIG_IGN);
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  return Tarnview::run(arguments, std::cout, std::cerr,
                       {&ViewerWindow::prepare, &ViewerWindow::open});
}
