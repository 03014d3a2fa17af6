#include "viewer/HeadlessContext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

namespace {

[[noreturn]] void fail(const char* what) {
  throw std::runtime_error(std::string("no OpenGL without a window: ") + what +
                           " (install Mesa's EGL and its software renderer: libegl-mesa0 and "
                           "libgl1-mesa-dri)");
}

EGLDisplay surfacelessDisplay() {
  const auto getPlatformDisplay = reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(
      eglGetProcAddress("eglGetPlatformDisplayEXT"));
  if (!getPlatformDisplay) fail("EGL has no platform displays");
  const EGLDisplay display =
      getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
  if (display == EGL_NO_DISPLAY) fail("EGL has no surfaceless display");
  return display;
}

/// EGL's display, which all contexts of the process share: EGL hands out the same one for
/// every question, and ending it ends all of their contexts.
class Display {
public:
  Display() : handle(surfacelessDisplay()) {
    if (!eglInitialize(handle, nullptr, nullptr)) fail("EGL cannot be initialised");
  }
  ~Display() { eglTerminate(handle); }
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

  static std::shared_ptr<Display> shared() {
    static std::weak_ptr<Display> current;
    std::shared_ptr<Display> display = current.lock();
    if (!display) {
      display = std::make_shared<Display>();
      current = display;
    }
    return display;
  }

  const EGLDisplay handle;
};

}  // namespace

struct HeadlessContext::Handles {
  std::shared_ptr<Display> display = Display::shared();
  EGLContext context = EGL_NO_CONTEXT;
  ~Handles() {
    if (context == EGL_NO_CONTEXT) return;
    if (eglGetCurrentContext() == context) {
      eglMakeCurrent(display->handle, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    }
    eglDestroyContext(display->handle, context);
  }
};

HeadlessContext::HeadlessContext() : handles(std::make_unique<Handles>()) {
  const EGLDisplay display = handles->display->handle;
  if (!eglBindAPI(EGL_OPENGL_API)) fail("EGL has no desktop OpenGL");
  const EGLint wanted[] = {EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_RENDERABLE_TYPE, EGL_OPENGL_BIT,
                           EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  if (!eglChooseConfig(display, wanted, &config, 1, &count) || count < 1) {
    fail("EGL has no configuration for OpenGL");
  }
  handles->context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
  if (handles->context == EGL_NO_CONTEXT) fail("EGL makes no OpenGL context");
  makeCurrent();
}

HeadlessContext::~HeadlessContext() = default;

void HeadlessContext::prepareEnvironment() { setenv("COIN_FULL_INDIRECT_RENDERING", "1", 0); }

void HeadlessContext::makeCurrent() const {
  if (!eglMakeCurrent(handles->display->handle, EGL_NO_SURFACE, EGL_NO_SURFACE, handles->context)) {
    fail("the context cannot be made current");
  }
}
