#include "tests/support/GLCalls.h"

#include <GL/gl.h>

#include <dlfcn.h>
#include <utility>

namespace {

bool recording = false;
std::vector<GLCalls::Call> calls;

void note(const char* name, std::vector<double> arguments) {
  if (recording) calls.push_back({name, std::move(arguments)});
}

// OpenGL's own function of that name, which the one in this file stands in front of.
template <typename Function>
Function* behind(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

std::vector<double> elements(const GLfloat* values, int count) { return {values, values + count}; }

}  // namespace

void GLCalls::start() {
  calls.clear();
  recording = true;
}

std::vector<GLCalls::Call> GLCalls::stop() {
  recording = false;
  return std::exchange(calls, {});
}

// NAME(PARAMETERS) notes the call with what follows as its arguments, and passes it on.
#define TARN_RECORDED(name, parameters, passed, ...)               \
  void name parameters {                                           \
    static auto* const original = behind<decltype(::name)>(#name); \
    note(#name, __VA_ARGS__);                                      \
    original passed;                                               \
  }                                                                \
  static_assert(true)

// Defined with the C linkage and the visibility of their declarations.
TARN_RECORDED(glBegin, (GLenum mode), (mode), {double(mode)});
TARN_RECORDED(glColor3fv, (const GLfloat* v), (v), elements(v, 3));
TARN_RECORDED(glColor4ub, (GLubyte r, GLubyte g, GLubyte b, GLubyte a), (r, g, b, a),
              {double(r), double(g), double(b), double(a)});
TARN_RECORDED(glDepthMask, (GLboolean flag), (flag), {double(flag)});
TARN_RECORDED(glDisable, (GLenum capability), (capability), {double(capability)});
TARN_RECORDED(glEnable, (GLenum capability), (capability), {double(capability)});
TARN_RECORDED(glEnd, (), (), {});
TARN_RECORDED(glLoadIdentity, (), (), {});
TARN_RECORDED(glLoadMatrixf, (const GLfloat* m), (m), elements(m, 16));
TARN_RECORDED(glMatrixMode, (GLenum mode), (mode), {double(mode)});
TARN_RECORDED(glMultMatrixf, (const GLfloat* m), (m), elements(m, 16));
TARN_RECORDED(glOrtho, (GLdouble l, GLdouble r, GLdouble b, GLdouble t, GLdouble n, GLdouble f),
              (l, r, b, t, n, f), {l, r, b, t, n, f});
TARN_RECORDED(glPopAttrib, (), (), {});
TARN_RECORDED(glPopMatrix, (), (), {});
TARN_RECORDED(glPushAttrib, (GLbitfield mask), (mask), {double(mask)});
TARN_RECORDED(glPushMatrix, (), (), {});
TARN_RECORDED(glVertex2i, (GLint x, GLint y), (x, y), {double(x), double(y)});
