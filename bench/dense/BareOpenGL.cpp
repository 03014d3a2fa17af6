#include "bench/dense/BareOpenGL.h"

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>

#include <cmath>
#include <numbers>
#include <utility>

namespace bench {

namespace {

template <typename Value>
void fill(GLenum target, const std::vector<Value>& values) {
  GLuint buffer = 0;
  glGenBuffers(1, &buffer);
  glBindBuffer(target, buffer);
  glBufferData(target, static_cast<GLsizeiptr>(values.size() * sizeof(Value)), values.data(),
               GL_STATIC_DRAW);
}

}  // namespace

BareOpenGL::BareOpenGL() : framebuffer(View::width, View::height) {
  // Coin's state while it draws shapes without textures or transparency, as asked of OpenGL
  // in the middle of a frame.
  glEnable(GL_DEPTH_TEST);
  glDepthFunc(GL_LEQUAL);
  glEnable(GL_NORMALIZE);
  glEnable(GL_COLOR_MATERIAL);
  glDisable(GL_CULL_FACE);
  glShadeModel(GL_SMOOTH);
  glColor4ub(204, 204, 204, 255);
}

void BareOpenGL::setCloud(std::vector<float> p, std::vector<std::uint8_t> c) {
  positions = std::move(p);
  colours = std::move(c);
}

void BareOpenGL::setMesh(std::vector<float> p, std::vector<float> n, std::vector<std::uint32_t> c) {
  positions = std::move(p);
  normals = std::move(n);
  corners = std::move(c);
}

void BareOpenGL::fillBuffers() {
  fill(GL_ARRAY_BUFFER, positions);
  glVertexPointer(3, GL_FLOAT, 0, nullptr);
  glEnableClientState(GL_VERTEX_ARRAY);
  if (!colours.empty()) {
    fill(GL_ARRAY_BUFFER, colours);
    glColorPointer(4, GL_UNSIGNED_BYTE, 0, nullptr);
    glEnableClientState(GL_COLOR_ARRAY);
  }
  if (!normals.empty()) {
    fill(GL_ARRAY_BUFFER, normals);
    glNormalPointer(GL_FLOAT, 0, nullptr);
    glEnableClientState(GL_NORMAL_ARRAY);
  }
  if (!corners.empty()) fill(GL_ELEMENT_ARRAY_BUFFER, corners);
  filled = true;
}

void BareOpenGL::place(const View& view) {
  const double radians = View::verticalAngleDegrees * std::numbers::pi / 180;
  const double top = View::nearDistance * std::tan(radians / 2);
  const double right = top * View::width / View::height;
  glMatrixMode(GL_PROJECTION);
  glLoadIdentity();
  glFrustum(-right, right, -top, top, View::nearDistance, View::farDistance);
  glMatrixMode(GL_MODELVIEW);
  glLoadIdentity();
  glRotatef(view.downDegrees, 1, 0, 0);
  glTranslatef(-view.x, -view.y, -view.z);
}

void BareOpenGL::lightUp() {
  const GLfloat black[] = {0, 0, 0, 1};
  const GLfloat dim[] = {0.2F, 0.2F, 0.2F, 1};
  const GLfloat white[] = {1, 1, 1, 1};
  const GLfloat fromTheFront[] = {0, 0, 1, 0};
  glEnable(GL_LIGHTING);
  glEnable(GL_LIGHT0);
  glLightModelfv(GL_LIGHT_MODEL_AMBIENT, dim);
  glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, 0);
  glLightfv(GL_LIGHT0, GL_AMBIENT, black);
  glLightfv(GL_LIGHT0, GL_DIFFUSE, white);
  glLightfv(GL_LIGHT0, GL_SPECULAR, white);
  glLightfv(GL_LIGHT0, GL_POSITION, fromTheFront);
  glColorMaterial(GL_FRONT_AND_BACK, GL_DIFFUSE);
  glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, dim);
  glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, black);
  glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, black);
  glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 0.2F * 128);
}

void BareOpenGL::draw(const View& view) {
  context.makeCurrent();
  framebuffer.bind();
  glClearColor(0, 0, 0, 1);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
  place(view);
  if (!filled && !positions.empty()) fillBuffers();
  const auto vertices = static_cast<GLsizei>(positions.size() / 3);
  if (normals.empty()) {
    glDrawArrays(GL_POINTS, 0, vertices);
  } else {
    lightUp();
    if (corners.empty()) {
      glDrawArrays(GL_TRIANGLES, 0, vertices);
    } else {
      glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(corners.size()), GL_UNSIGNED_INT, nullptr);
    }
  }
  glFinish();
}

Picture BareOpenGL::read() {
  context.makeCurrent();
  framebuffer.bind();
  return framebuffer.read();
}

}  // namespace bench
