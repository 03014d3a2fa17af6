// Opens the window of tarnview on the display that there is, as a user would: looks at what
// is drawn, presses a key, closes it.
#include <Inventor/sensors/SoTimerSensor.h>
#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QPixmap>
#include <QScreen>
#include <QWidget>
#include <gtest/gtest.h>

#include "viewer/ProjectScene.h"
#include "viewer/Tarnview.h"
#include "viewer/window/ViewerWindow.h"

#include <cstdlib>
#include <set>
#include <sstream>
#include <string>

namespace {

/// What the user sees and does; a timer calls it while the window is open.
struct User {
  ProjectScene* scene = nullptr;
  int looks = 0;
  std::size_t colours = 0;
  bool planesBefore = false;
  bool planesAfter = true;

  void look() {
    QWidget* window = findWindow();
    if (!window) return;
    colours = coloursOf(*window).size();
    // A slow machine takes its time to draw; a hundred looks are half a minute and more.
    if (colours < 50 && ++looks < 100) return;
    planesBefore = scene->showsImagePlanes();
    QKeyEvent event(QEvent::KeyPress, Qt::Key_I, Qt::NoModifier);
    QApplication::sendEvent(widgetUnder(*window), &event);
    planesAfter = scene->showsImagePlanes();
    window->close();
  }

private:
  static QWidget* findWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->isVisible() && widget->width() >= 1000) return widget;
    }
    return nullptr;
  }

  static QWidget* widgetUnder(QWidget& window) {
    QWidget* widget = window.childAt(window.width() / 2, window.height() / 2);
    return widget ? widget : &window;
  }

  // The colours that the screen shows in the middle of the window.
  static std::set<QRgb> coloursOf(const QWidget& window) {
    const int width = window.width() / 2;
    const int height = window.height() / 2;
    const QPoint corner = window.mapToGlobal(QPoint(width / 2, height / 2));
    const QImage picture = QApplication::primaryScreen()
                               ->grabWindow(0, corner.x(), corner.y(), width, height)
                               .toImage();
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) colours.insert(picture.pixel(x, y));
    }
    return colours;
  }
};

User user;

int openAndWatch(const std::string& title, ProjectScene& scene, bool labels, std::ostream& errors) {
  user.scene = &scene;
  SoTimerSensor timer([](void*, SoSensor*) { user.look(); }, nullptr);
  timer.setInterval(SbTime(0.25));
  timer.schedule();
  return ViewerWindow::open(title, scene, labels, errors);
}

TEST(ViewerWindowTest, ShowsTheProjectAndTakesKeysUntilItIsClosed) {
  std::ostringstream output;
  std::ostringstream errors;
  const int status = Tarnview::run({TARN_SOURCE_DIR "/examples/demo", "--image-planes", "--labels"},
                                   output, errors, {&ViewerWindow::prepare, &openAndWatch});
  EXPECT_EQ(status, 0);
  EXPECT_EQ(errors.str(), "");
  EXPECT_GE(user.colours, 50U) << "nothing but the background was drawn";
  EXPECT_TRUE(user.planesBefore);
  EXPECT_FALSE(user.planesAfter);
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
