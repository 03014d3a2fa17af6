// Opens the window of tarnview on the display that there is, as a user would: looks at what
// is drawn, presses keys and looks again, closes it.
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/sensors/SoTimerSensor.h>
#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QPixmap>
#include <QScreen>
#include <QWidget>
#include <gtest/gtest.h>

#include "nodes/cameras/TarnOICameraRaysSeparator.h"
#include "viewer/ProjectScene.h"
#include "viewer/Tarnview.h"
#include "viewer/window/ViewerWindow.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

/// A key, and what it goes through: as many states as it takes presses to come back.
struct Key {
  Qt::Key code;
  int presses;
  std::function<int(const ProjectScene&)> state;
};

/// What the user sees and does; a timer calls it while the window is open. Each press of a
/// key has to change what the screen shows, and the last one to bring it back.
struct User {
  ProjectScene* scene = nullptr;
  std::vector<Key> keys;
  std::size_t colours = 0;
  std::vector<std::string> failures;

  void look() {
    QWidget* window = findWindow();
    if (!window) return;
    const QImage seen = middleOf(*window);
    // A slow machine takes its time to draw; a hundred looks are half a minute and more.
    const bool waitsLonger = ++looks < 100;
    if (atFirst.isNull()) {
      colours = coloursOf(seen);
      if (colours < 50 && waitsLonger) return;
      atFirst = seen;
    } else {
      const bool back = pressed == keys.front().presses;
      const bool asExpected = back ? isLike(seen, atFirst) : !isLike(seen, before);
      if (!asExpected && waitsLonger) return;
      if (!asExpected) fail(back ? "the picture did not come back" : "the picture stayed");
      if (back) {
        keys.erase(keys.begin());
        pressed = 0;
      }
    }
    before = seen;
    looks = 0;
    if (keys.empty()) {
      window->close();
    } else {
      press(*window);
    }
  }

private:
  void press(QWidget& window) {
    const int state = keys.front().state(*scene);
    QKeyEvent event(QEvent::KeyPress, keys.front().code, Qt::NoModifier);
    QApplication::sendEvent(widgetUnder(window), &event);
    ++pressed;
    if (keys.front().state(*scene) == state) fail("nothing was switched");
  }

  void fail(const std::string& what) {
    failures.push_back(std::string("key ") + static_cast<char>(keys.front().code) + ", press " +
                       std::to_string(pressed) + ": " + what);
  }

  // The viewer fits near and far to what there is, which moves single pixels.
  static bool isLike(const QImage& one, const QImage& other) {
    int different = 0;
    for (int y = 0; y < one.height(); ++y) {
      for (int x = 0; x < one.width(); ++x) different += one.pixel(x, y) != other.pixel(x, y);
    }
    return different < 500;
  }

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

  // What the screen shows in the middle of the window.
  static QImage middleOf(const QWidget& window) {
    const int width = window.width() / 2;
    const int height = window.height() / 2;
    const QPoint corner = window.mapToGlobal(QPoint(width / 2, height / 2));
    return QApplication::primaryScreen()
        ->grabWindow(0, corner.x(), corner.y(), width, height)
        .toImage();
  }

  static std::size_t coloursOf(const QImage& picture) {
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) colours.insert(picture.pixel(x, y));
    }
    return colours.size();
  }

  int looks = 0;
  int pressed = 0;
  QImage atFirst;
  QImage before;
};

User user;

int openAndWatch(const std::string& title, ProjectScene& scene, bool labels, std::ostream& errors) {
  user.scene = &scene;
  SoTimerSensor timer([](void*, SoSensor*) { user.look(); }, nullptr);
  timer.setInterval(SbTime(0.25));
  timer.schedule();
  return ViewerWindow::open(title, scene, labels, errors);
}

// How many nodes of the scene show rays.
int raysShown(const ProjectScene& scene) {
  SoSearchAction search;
  search.setType(TarnOICameraRaysSeparator::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.apply(scene.root());
  return search.getPaths().getLength();
}

TEST(ViewerWindowTest, ShowsTheProjectAndTakesKeysUntilItIsClosed) {
  user.keys = {{Qt::Key_I, 2, &ProjectScene::showsImagePlanes},
               {Qt::Key_F, 2, &ProjectScene::showsFrusta},
               {Qt::Key_L, 2, &ProjectScene::showsLabels},
               {Qt::Key_R, 2, &raysShown},
               {Qt::Key_A, 2, &ProjectScene::showsAxis},
               {Qt::Key_G, 2, &ProjectScene::showsGroundPlane},
               {Qt::Key_D, 2, &ProjectScene::areMeshesVisible},
               {Qt::Key_C, 3,
                [](const ProjectScene& scene) {
                  return scene.color() ? static_cast<int>(*scene.color()) : -1;
                }},
               {Qt::Key_B, 3, [](const ProjectScene& scene) {
                  return static_cast<int>(scene.background().kind());
                }}};
  // A patch of coloured points over the object.
  const std::string cloud = (std::filesystem::temp_directory_path() / "tarn_window.ply").string();
  std::ofstream ply(cloud);
  ply << "ply\nformat ascii 1.0\nelement vertex 900\nproperty float x\nproperty float y\n"
         "property float z\nproperty uchar red\nproperty uchar green\nproperty uchar blue\n"
         "end_header\n";
  for (int i = 0; i < 900; ++i) {
    ply << 119.9 + 0.01 * (i % 30) << ' ' << 249.9 + 0.01 * (i / 30) << ' '
        << 32.4 + 0.01 * (i % 10) << " 200 " << i % 100 << " 50\n";
  }
  ply.close();
  std::ostringstream output;
  std::ostringstream errors;
  // On one colour it is the project that has the many.
  const int status =
      Tarnview::run({TARN_SOURCE_DIR "/examples/demo", "--image-planes", "--labels", "--background",
                     "plain", "--highlight", "station:station08", "--cloud", cloud},
                    output, errors, {&ViewerWindow::prepare, &openAndWatch});
  std::filesystem::remove(cloud);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(errors.str(), "");
  EXPECT_GE(user.colours, 50U) << "nothing but the background was drawn";
  EXPECT_EQ(user.failures, std::vector<std::string>());
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
