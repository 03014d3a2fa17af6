#include "viewer/window/ViewerWindow.h"

#include <Inventor/Qt/SoQt.h>
#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>
#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/nodes/SoCamera.h>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>

#include "host/model/CameraStation.h"
#include "host/model/ObjectPoint.h"
#include "viewer/ProjectScene.h"
#include "viewer/Tarnview.h"

#include <cmath>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <xcb/xcb.h>

namespace {

/// What keys and clicks do.
class Controller {
public:
  Controller(SoQtExaminerViewer& viewer, ProjectScene& scene, std::ostream& errors)
      : viewer(viewer), scene(scene), errors(errors) {}

  static SbBool handle(void* controller, QEvent* event) {
    return static_cast<Controller*>(controller)->handle(*event) ? TRUE : FALSE;
  }

private:
  bool handle(const QEvent& event) {
    switch (event.type()) {
      case QEvent::KeyPress:
        return pressed(static_cast<const QKeyEvent&>(event).key());
      case QEvent::MouseButtonPress: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        pressedAt = mouse.pos();
        return false;
      }
      case QEvent::MouseButtonRelease: {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        // A drag turns the scene; only a click that stays where it is means an object.
        if (mouse.button() == Qt::LeftButton && (mouse.pos() - pressedAt).manhattanLength() <= 3) {
          click(mouse.pos());
        }
        return false;
      }
      default:
        return false;
    }
  }

  bool pressed(int key) {
    switch (key) {
      case Qt::Key_I: {
        const std::size_t told = scene.problems().size();
        scene.setImagePlanes(!scene.showsImagePlanes());
        Tarnview::tellProblems(scene.problems(), told, errors);
        return true;
      }
      case Qt::Key_F:
        scene.setFrusta(!scene.showsFrusta());
        return true;
      case Qt::Key_L:
        if (scene.showsLabels()) {
          scene.hideLabels();
        } else {
          scene.showLabels(viewer.getViewportRegion());
        }
        return true;
      case Qt::Key_R:
        scene.toggleRaysOfHighlighted();
        return true;
      case Qt::Key_A:
        scene.setAxis(!scene.showsAxis());
        return true;
      case Qt::Key_G:
        scene.setGroundPlane(!scene.showsGroundPlane());
        return true;
      case Qt::Key_D:
        scene.setMeshesVisible(!scene.areMeshesVisible());
        return true;
      case Qt::Key_C: {
        using Color = CommandLine::Color;
        const std::optional<Color> color = scene.color();
        scene.setColor(!color                    ? Color::eHeight
                       : color == Color::eHeight ? Color::eNone
                                                 : std::optional<Color>());
        return true;
      }
      case Qt::Key_B: {
        using Kind = SceneBackground::Kind;
        const Kind kind = scene.background().kind();
        scene.setBackground(kind == Kind::eGradient ? Kind::ePlain
                            : kind == Kind::ePlain  ? Kind::eNone
                                                    : Kind::eGradient);
        viewer.setBackgroundColor(scene.background().color());
        return true;
      }
      default:
        return false;
    }
  }

  void click(const QPoint& at) {
    const SbViewportRegion viewport = viewer.getViewportRegion();
    const double ratio = viewer.getGLWidget()->devicePixelRatioF();
    SoRayPickAction pick(viewport);
    pick.setPoint(SbVec2s(
        static_cast<short>(at.x() * ratio),
        static_cast<short>(viewport.getWindowSize()[1] - 1 - static_cast<int>(at.y() * ratio))));
    pick.setRadius(6.0F);
    pick.apply(viewer.getSceneManager()->getSceneGraph());
    const SoPickedPoint* picked = pick.getPickedPoint();
    scene.clearHighlight();
    if (!picked) return;
    tarn::VObject* object = scene.objectAt(*picked);
    if (!object) return;
    if (object->isA(tarn::CameraStationCls)) {
      scene.highlight(*static_cast<tarn::CameraStation*>(object));
    } else {
      scene.highlight(*static_cast<tarn::ObjectPoint*>(object));
    }
  }

  SoQtExaminerViewer& viewer;
  ProjectScene& scene;
  std::ostream& errors;
  QPoint pressedAt;
};

}  // namespace

bool ViewerWindow::prepare(std::ostream& errors) {
  // Coin draws through GLX, which only this platform of Qt has; a desktop's own setting
  // (wayland, say) is for other programs.
  setenv("QT_QPA_PLATFORM", "xcb", 1);
  // Qt aborts the program when it finds no display, so it is looked for first.
  const char* name = std::getenv("DISPLAY");
  std::string reason = "DISPLAY is not set";
  if (name && *name) {
    if (xcb_connection_t* connection = xcb_connect(name, nullptr)) {
      const bool reached = xcb_connection_has_error(connection) == 0;
      xcb_disconnect(connection);
      if (reached) return true;
    }
    reason = "DISPLAY is " + std::string(name) + ", which cannot be reached";
  }
  errors << "tarnview: there is no display to open a window on (" << reason
         << "); --render FILE.png draws a picture without one\n";
  return false;
}

int ViewerWindow::open(const std::string& title, ProjectScene& scene, bool labels,
                       std::ostream& errors) {
  QWidget* window = SoQt::init(title.c_str());
  if (!window) {
    errors << "tarnview: no window could be opened; --render FILE.png draws a picture without "
              "one\n";
    return 1;
  }
  window->resize(1280, 960);
  {
    SoQtExaminerViewer viewer(window);
    Controller controller(viewer, scene, errors);
    viewer.setTitle(title.c_str());
    viewer.setBackgroundColor(scene.background().color());
    // The scene has a light that follows the camera.
    viewer.setHeadlight(FALSE);
    scene.camera()->viewportMapping = SoCamera::ADJUST_CAMERA;
    viewer.setSceneGraph(scene.root());
    viewer.setEventCallback(&Controller::handle, &controller);
    viewer.show();
    SoQt::show(window);
    // The first frame is drawn before the window has its size and stays until something
    // changes; the labels' places depend on the size, too.
    QTimer::singleShot(200, window, [&viewer, &scene, labels] {
      if (labels) scene.showLabels(viewer.getViewportRegion());
      viewer.scheduleRedraw();
    });
    SoQt::mainLoop();
    viewer.setSceneGraph(nullptr);
  }
  // Not SoQt::done: it shuts Coin down, and the scene still has to be let go.
  return 0;
}
