#include "viewer/Tarnview.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>

#include "host/general/Preferences.h"
#include "host/model/Project.h"
#include "nodes/TarnOI.h"
#include "viewer/CloudCut.h"
#include "viewer/CommandLine.h"
#include "viewer/HeadlessContext.h"
#include "viewer/OffscreenRenderer.h"
#include "viewer/ProfileFile.h"
#include "viewer/Progress.h"
#include "viewer/ProjectFile.h"
#include "viewer/ProjectScene.h"
#include "viewer/SceneWriter.h"
#include "viewer/SectionMark.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <optional>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace {

using View = CommandLine::View;

/// Coin and the classes of the library, for the time of one call. A window's toolkit ends
/// Coin on its own.
class Coin {
public:
  explicit Coin(bool endsHere) : endsHere(endsHere) {
    SoDB::init();
    SoInteraction::init();
    TarnOI::initClasses();
  }
  ~Coin() {
    if (!endsHere) return;
    TarnOI::cleanUpClasses();
    SoDB::finish();
  }
  Coin(const Coin&) = delete;
  Coin& operator=(const Coin&) = delete;

private:
  bool endsHere;
};

// The photograph's proportions, its longer side as long as the usual picture's.
CommandLine::Size sizeFor(const tarn::CameraStation& station) {
  CommandLine::Size size;
  const int longest = std::max(size.width, size.height);
  double width = 0.0;
  double height = 0.0;
  if (const tarn::Camera* camera = station.GetCamera(1)) camera->GetFormatSize(width, height);
  if (!(width > 0.0 && height > 0.0)) return size;
  const double scale = longest / std::max(width, height);
  size.width = std::max(1, static_cast<int>(std::lround(scale * width)));
  size.height = std::max(1, static_cast<int>(std::lround(scale * height)));
  return size;
}

// Whether all that was printed since errno was cleared has gone out; says so if not.
bool isWritten(std::ostream& output, std::ostream& errors) {
  if (output.flush()) return true;
  errors << "tarnview: the standard output cannot be written";
  if (errno) errors << ": " << std::error_code(errno, std::generic_category()).message();
  errors << '\n';
  return false;
}

/// One call on one project.
class Call {
public:
  Call(const CommandLine& commandLine, std::ostream& errors)
      : commandLine(commandLine), errors(errors) {}

  int carryOut(const Tarnview::Window& window) {
    const auto report = [this](const char* step, double done) { progress.report(step, done); };
    ProjectFile::Options input;
    input.cloud = commandLine.cloud;
    input.findCloud = commandLine.findCloud;
    input.progress = report;
    const std::string cloudProblem = ProjectFile::open(commandLine.project, project, input);
    if (!cloudProblem.empty()) say(cloudProblem);
    keepInput();
    resolveNames();
    ProjectScene::Options options;
    options.imagePlanes = commandLine.imagePlanes;
    options.frusta = commandLine.frusta;
    options.ellipsoidScale = commandLine.ellipsoidScale;
    options.color = commandLine.color;
    options.contourSpacing = commandLine.contourSpacing;
    options.mostPointNodes = commandLine.mostPointNodes;
    options.axis = commandLine.axis;
    options.groundPlane = commandLine.groundPlane;
    options.meshes = !commandLine.box;
    options.background = commandLine.background;
    options.progress = report;
    ProjectScene scene(project, options);
    for (tarn::ObjectPoint* point : rayPoints) scene.showRays(*point);
    for (tarn::CameraStation* station : rayStations) scene.showRays(*station);
    if (surfaceStation) scene.showSurface(*surfaceStation);
    if (highlightPoint) scene.highlight(*highlightPoint);
    if (highlightStation) scene.highlight(*highlightStation);
    const CommandLine::Size size = commandLine.size ? *commandLine.size
                                   : viewStation    ? sizeFor(*viewStation)
                                                    : CommandLine::Size();
    look(scene, size);
    if (viewStation && viewStation == highlightStation && !commandLine.imagePlanes) {
      say("station \"" + viewStation->GetName().str() +
          "\" is not marked: the view is through its own camera; --image-planes shows its "
          "photograph marked");
    }
    if (commandLine.box) keepBox(scene, size);
    if (commandLine.section) cutSection(scene, size);
    progress.clear();
    for (const std::string& note : scene.notes()) say(note);
    if (commandLine.heightScale) {
      const std::string reason = scene.showHeightScale();
      if (!reason.empty()) say(reason);
    }
    Tarnview::tellProblems(scene.problems(), 0, errors);
    if (commandLine.wantsWindow()) {
      progress.clear();
      return window.open("tarnview - " + commandLine.project, scene, commandLine.labels, errors);
    }
    if (commandLine.labels) {
      scene.showLabels(
          SbViewportRegion(static_cast<short>(size.width), static_cast<short>(size.height)));
    }
    if (!commandLine.writeFile.empty()) {
      report("writing", 0.0);
      SceneWriter::write(scene.root(), commandLine.writeFile);
    }
    if (!commandLine.renderFile.empty()) {
      report("drawing", 0.0);
      OffscreenRenderer renderer(size.width, size.height);
      renderer.setBackgroundColor(scene.background().color());
      const bool transparent = commandLine.background == CommandLine::Background::eNone;
      (transparent ? renderer.renderTransparent(scene.root()) : renderer.render(scene.root()))
          .writePng(commandLine.renderFile);
    }
    return 0;
  }

  void say(const std::string& text) {
    progress.clear();
    errors << "tarnview: " << text << '\n';
  }

private:
  void look(ProjectScene& scene, const CommandLine::Size& size) {
    if (!viewStation) {
      scene.setView(commandLine.view, static_cast<double>(size.width) / size.height);
    } else if (!scene.setView(*viewStation)) {
      throw std::runtime_error("station \"" + viewStation->GetName().str() +
                               "\" is not oriented: there is no looking through it");
    }
  }

  // Box and section are drawn on the picture of the whole.
  static CloudCut cutOf(const ProjectScene& scene, const CommandLine::Size& size) {
    return {*scene.camera(), scene.framing().objectExtents(),
            SbViewportRegion(static_cast<short>(size.width), static_cast<short>(size.height))};
  }

  void keepBox(ProjectScene& scene, const CommandLine::Size& size) {
    const int left = cutOf(scene, size).keepBox(project, *commandLine.box);
    say("box: " + std::to_string(left) + " points of clouds and meshes are left");
    scene.showMeshes();
    look(scene, size);  // the same way, as deep as what is shown now
  }

  void cutSection(ProjectScene& scene, const CommandLine::Size& size) {
    if (!scene.framing().isZUp()) {
      throw std::runtime_error(
          "a section needs heights along Z, and by its cameras the project stands upright about "
          "another direction");
    }
    const tarn::Units& units = *project.GetUnits();
    std::optional<double> thickness = commandLine.thickness;
    if (thickness) thickness = units.UnitsToMeters(*thickness);
    const CloudSection section =
        cutOf(scene, size).section(project, *commandLine.section, thickness);
    tell(section, units);
    if (!commandLine.profileFile.empty()) {
      ProfileFile::write(commandLine.profileFile, section.profile, units);
    }
    const bool overPhotograph = viewStation && commandLine.imagePlanes;
    scene.root()->addChild(SectionMark::points(section, overPhotograph).get());
    // A window's camera moves, and the line would not.
    if (!commandLine.wantsWindow()) scene.root()->addChild(SectionMark::line(section).get());
  }

  void tell(const CloudSection& section, const tarn::Units& units) {
    const auto& [low, high] =
        std::ranges::minmax(section.profile, {}, &tarn::Profile::Point::height);
    std::ostringstream text;
    text << "section: " << section.points.size() << " points up to "
         << units.MetersToUnits(section.thickness) << " to either side (--thickness), distances "
         << units.MetersToUnits(section.profile.front().distance) << " to "
         << units.MetersToUnits(section.profile.back().distance) << ", heights "
         << units.MetersToUnits(low.height) << " to " << units.MetersToUnits(high.height);
    say(text.str());
  }

  // What is read stays as it is: the picture of house.obj is easily given the name of its texture.
  void keepInput() const {
    for (const std::string& file :
         {commandLine.renderFile, commandLine.writeFile, commandLine.profileFile}) {
      std::error_code ignored;
      if (file.empty() || !std::filesystem::exists(file, ignored)) continue;
      if (std::filesystem::equivalent(file, commandLine.project, ignored) ||
          std::filesystem::equivalent(file, commandLine.cloud, ignored) ||
          ProjectFile::isPictureOf(project, file)) {
        throw std::runtime_error(file + ": found a file of the project's own, expected another " +
                                 "name for what is written");
      }
    }
  }

  void resolveNames() {
    if (commandLine.view == View::eStation) {
      viewStation = &ProjectFile::findStation(project, commandLine.viewStation);
    }
    if (!commandLine.surfaceStation.empty()) {
      surfaceStation = &ProjectFile::findStation(project, commandLine.surfaceStation);
    }
    if (const auto& object = commandLine.highlight) {
      if (object->kind == CommandLine::Object::Kind::ePoint) {
        highlightPoint = &ProjectFile::findPoint(project, object->pointNumber);
      } else {
        highlightStation = &ProjectFile::findStation(project, object->stationName);
      }
    }
    for (const CommandLine::Object& object : commandLine.rays) {
      if (object.kind == CommandLine::Object::Kind::ePoint) {
        rayPoints.push_back(&ProjectFile::findPoint(project, object.pointNumber));
      } else {
        rayStations.push_back(&ProjectFile::findStation(project, object.stationName));
      }
    }
  }

  const CommandLine& commandLine;
  std::ostream& errors;
  Progress progress;
  tarn::Project project;
  tarn::CameraStation* viewStation = nullptr;
  tarn::CameraStation* highlightStation = nullptr;
  tarn::CameraStation* surfaceStation = nullptr;
  tarn::ObjectPoint* highlightPoint = nullptr;
  std::vector<tarn::ObjectPoint*> rayPoints;
  std::vector<tarn::CameraStation*> rayStations;
};

}  // namespace

int Tarnview::run(const std::vector<std::string>& arguments, std::ostream& output,
                  std::ostream& errors, const Window& window) {
  const CommandLine::Parsed parsed = CommandLine::parse(arguments);
  if (!parsed.commandLine) {
    errno = 0;
    output << parsed.output;
    errors << parsed.error;
    return isWritten(output, errors) ? parsed.exitStatus : 1;
  }
  const CommandLine& commandLine = *parsed.commandLine;
  if (commandLine.wantsWindow()) {
    if (!window.prepare(errors)) return 1;
  } else {
    HeadlessContext::prepareEnvironment();
  }
  const Coin coin(!commandLine.wantsWindow());
  if (commandLine.listNodes) {
    errno = 0;
    listNodes(output);
    if (!isWritten(output, errors)) return 1;
    if (commandLine.project.empty()) return 0;
  }
  tarn::Preferences preferences;
  tarn::Preferences* earlierPreferences = std::exchange(tarn::gPref, &preferences);
  int status = 0;
  {
    Call call(commandLine, errors);
    try {
      status = call.carryOut(window);
    } catch (const ProjectFile::UnknownName& error) {
      call.say(error.what());
      status = 2;
    } catch (const std::exception& error) {
      call.say(error.what());
      status = 1;
    }
  }
  tarn::gPref = earlierPreferences;
  return status;
}

void Tarnview::tellProblems(const std::vector<std::string>& problems, std::size_t first,
                            std::ostream& errors) {
  constexpr std::size_t most = 10;
  for (std::size_t i = first; i < std::min(problems.size(), first + most); ++i) {
    errors << "tarnview: " << problems[i] << '\n';
  }
  if (problems.size() > first + most) {
    errors << "tarnview: and " << problems.size() - first - most
           << " more photographs that cannot be shown\n";
  }
}

void Tarnview::listNodes(std::ostream& output) {
  std::size_t nameWidth = 0;
  std::size_t parentWidth = 0;
  for (const TarnOI::ClassEntry& entry : TarnOI::classes()) {
    nameWidth = std::max(nameWidth, std::strlen(entry.name));
    parentWidth = std::max(parentWidth, std::strlen(entry.parent));
  }
  for (const TarnOI::ClassEntry& entry : TarnOI::classes()) {
    output << std::left << std::setw(static_cast<int>(nameWidth) + 2) << entry.name
           << std::setw(static_cast<int>(parentWidth) + 2) << entry.parent << entry.summary << '\n';
  }
}
