#include "viewer/CommandLine.h"

#include <CLI/CLI.hpp>

#include "viewer/CommandLineHelp.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <utility>

namespace fs = std::filesystem;

namespace {

/// A whole number that takes the whole text.
template <typename Number>
bool parseNumber(std::string_view text, Number& number) {
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end;
}

/// What follows `prefix` in the text; absent when the text does not begin with it.
std::optional<std::string> after(const std::string& text, std::string_view prefix) {
  if (!std::string_view(text).starts_with(prefix)) return std::nullopt;
  return text.substr(prefix.size());
}

CommandLine::Size parseSize(const std::string& text) {
  CommandLine::Size size;
  const std::size_t cross = text.find('x');
  const std::string_view view = text;
  if (cross == std::string::npos || !parseNumber(view.substr(0, cross), size.width) ||
      !parseNumber(view.substr(cross + 1), size.height)) {
    throw CLI::ValidationError("--size", "found \"" + text +
                                             "\", expected WIDTHxHEIGHT in pixels, for example "
                                             "1600x1200");
  }
  constexpr int most = CommandLine::Size::mostPixels;
  if (size.width < 1 || size.height < 1 || size.width > most || size.height > most) {
    throw CLI::ValidationError("--size", "found \"" + text + "\", expected sides from 1 to " +
                                             std::to_string(most) + " pixels");
  }
  return size;
}

void parseView(const std::string& text, CommandLine& commandLine) {
  using View = CommandLine::View;
  if (text == "iso") {
    commandLine.view = View::eIso;
  } else if (text == "top") {
    commandLine.view = View::eTop;
  } else if (text == "front") {
    commandLine.view = View::eFront;
  } else if (text == "right") {
    commandLine.view = View::eRight;
  } else if (const auto name = after(text, "station:"); name && !name->empty()) {
    commandLine.view = View::eStation;
    commandLine.viewStation = *name;
  } else {
    throw CLI::ValidationError("--view", "found \"" + text +
                                             "\", expected iso, top, front, right or "
                                             "station:NAME");
  }
}

CommandLine::Object parseObject(const std::string& option, const std::string& text) {
  CommandLine::Object object;
  if (const auto number = after(text, "point:");
      number && parseNumber(*number, object.pointNumber)) {
    return object;
  }
  if (const auto name = after(text, "station:"); name && !name->empty()) {
    object.kind = CommandLine::Object::Kind::eStation;
    object.stationName = *name;
    return object;
  }
  throw CLI::ValidationError(option,
                             "found \"" + text + "\", expected point:NUMBER or station:NAME");
}

CommandLine::Background parseBackground(const std::string& text) {
  using Background = CommandLine::Background;
  if (text == "none") return Background::eNone;
  if (text == "plain") return Background::ePlain;
  if (text == "gradient") return Background::eGradient;
  throw CLI::ValidationError("--background",
                             "found \"" + text + "\", expected none, plain or gradient");
}

CommandLine::Color parseColor(const std::string& text) {
  using Color = CommandLine::Color;
  if (text == "height") return Color::eHeight;
  if (text == "rgb") return Color::eRgb;
  if (text == "none") return Color::eNone;
  throw CLI::ValidationError("--color", "found \"" + text + "\", expected height, rgb or none");
}

/// A size, within the bounds of what can be drawn.
double parseSizeOf(const std::string& option, const std::string& text) {
  double size = 0.0;
  if (!parseNumber(text, size) || !(size >= 1e-9 && size <= 1e9)) {
    throw CLI::ValidationError(option,
                               "found \"" + text + "\", expected a number from 1e-9 to 1e9");
  }
  return size;
}

CommandLine::Corners parseCorners(const std::string& option, const std::string& text) {
  CommandLine::Corners corners;
  std::string_view rest = text;
  const auto take = [&rest](double& number, bool isLast) {
    const std::size_t comma = rest.find(',');
    if ((comma == std::string_view::npos) != isLast) return false;
    if (!parseNumber(rest.substr(0, comma), number)) return false;
    if (!isLast) rest.remove_prefix(comma + 1);
    return number >= 0.0 && number <= 1.0;
  };
  if (!take(corners.x0, false) || !take(corners.y0, false) || !take(corners.x1, false) ||
      !take(corners.y1, true)) {
    throw CLI::ValidationError(option, "found \"" + text +
                                           "\", expected x0,y0,x1,y1 from 0 to 1, in fractions of "
                                           "the picture, x to the right and y up");
  }
  return corners;
}

CommandLine::Corners parseSection(const std::string& text) {
  const CommandLine::Corners line = parseCorners("--section", text);
  if (line.x0 == line.x1 && line.y0 == line.y1) {
    throw CLI::ValidationError("--section", "found \"" + text + "\", expected two places");
  }
  return line;
}

CommandLine::Corners parseBox(const std::string& text) {
  const CommandLine::Corners box = parseCorners("--box", text);
  if (box.x0 == box.x1 || box.y0 == box.y1) {
    throw CLI::ValidationError("--box",
                               "found \"" + text + "\", expected a box of some width and height");
  }
  return box;
}

int parseCount(const std::string& option, const std::string& text) {
  int count = 0;
  if (!parseNumber(text, count) || count < 0) {
    throw CLI::ValidationError(option, "found \"" + text + "\", expected a whole number from 0 on");
  }
  return count;
}

void checkFiles(const std::string& picture, const std::string& scene, const std::string& profile) {
  const auto place = [](const std::string& file) {
    std::error_code ignored;
    const fs::path path = fs::weakly_canonical(fs::absolute(file, ignored), ignored);
    return path.empty() ? fs::path(file) : path;
  };
  if (!picture.empty()) {
    std::string extension = fs::path(picture).extension().string();
    std::ranges::transform(extension, extension.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (extension != ".png") {
      throw CLI::ValidationError("--render", "found \"" + picture + "\", expected a name in .png");
    }
  }
  if (!picture.empty() && !scene.empty() && place(picture) == place(scene)) {
    throw CLI::ValidationError(
        "--write", "found \"" + scene + "\", expected another file than that of --render");
  }
  for (const auto& [option, file] : {std::pair("--render", picture), std::pair("--write", scene)}) {
    if (profile.empty() || file.empty() || place(profile) != place(file)) continue;
    throw CLI::ValidationError(
        "--profile", "found \"" + profile + "\", expected another file than that of " + option);
  }
}

}  // namespace

CommandLine::Parsed CommandLine::parse(const std::vector<std::string>& arguments) {
  CommandLine commandLine;
  std::string size;
  std::string view;
  std::string highlight;
  std::vector<std::string> rays;
  std::string background;
  std::string color;
  bool noCloud = false;
  std::string contours;
  std::string pointNodes;
  std::string ellipsoids;
  std::string box;
  std::string section;
  std::string thickness;

  CLI::App app(CommandLineHelp::description, "tarnview");
  app.footer(CommandLineHelp::examples);
  app.set_version_flag("--version", "tarnview " TARN_VERSION, "Print the version");
  app.add_option("PROJECT", commandLine.project,
                 "Folder of a COLMAP model, the one above it, or a PLY file");
  const CLI::Option* renderOption = app.add_option("--render", commandLine.renderFile,
                                                   "Draw into this PNG file, without a window")
                                        ->type_name("FILE");
  const CLI::Option* sizeOption =
      app.add_option("--size", size, "Size of the picture in pixels [1600x1200]")->type_name("WxH");
  const CLI::Option* viewOption =
      app.add_option("--view", view, "iso, top, front, right or station:NAME [iso]")
          ->type_name("VIEW");
  app.add_flag("--image-planes", commandLine.imagePlanes, "Show the photographs in the cameras");
  app.add_flag("--frusta", commandLine.frusta, "Show what each camera saw");
  app.add_flag("--labels", commandLine.labels,
               "Name as many cameras and object points as there is room for");
  const CLI::Option* ellipsoidOption =
      app.add_option("--ellipsoids", ellipsoids, "Show error ellipsoids, SCALE times their size")
          ->type_name("SCALE");
  const CLI::Option* highlightOption =
      app.add_option("--highlight", highlight, "Mark point:NUMBER or station:NAME")
          ->type_name("WHAT");
  const CLI::Option* cloudOption =
      app.add_option("--cloud", commandLine.cloud, "Show this dense cloud or mesh, a PLY file")
          ->type_name("FILE");
  app.add_flag("--no-cloud", noCloud, "Leave the model's own dense cloud out");
  const CLI::Option* colorOption =
      app.add_option("--color", color,
                     "Colour clouds and meshes by height, in their own colours (rgb) or not at "
                     "all (none) [rgb where there are colours]")
          ->type_name("KIND");
  app.add_flag("--scale", commandLine.heightScale, "Show which colour stands for which height");
  const CLI::Option* contourOption =
      app.add_option("--contours", contours,
                     "Draw lines of equal height over clouds and meshes, SPACING units apart")
          ->type_name("SPACING");
  const CLI::Option* boxOption =
      app.add_option("--box", box,
                     "Keep what is seen of clouds and meshes inside this box of the picture")
          ->type_name("x0,y0,x1,y1");
  const CLI::Option* sectionOption =
      app.add_option("--section", section,
                     "Cut clouds and meshes along this line of the picture, and mark the cut")
          ->type_name("x0,y0,x1,y1");
  const CLI::Option* thicknessOption =
      app.add_option("--thickness", thickness,
                     "Take points up to so many units on either side of the section [twice the "
                     "distance of neighbouring points]")
          ->type_name("UNITS");
  const CLI::Option* profileOption =
      app.add_option("--profile", commandLine.profileFile,
                     "Write the section's points into this CSV file: distance, height")
          ->type_name("FILE");
  app.add_option("--rays", rays,
                 "Show the rays of point:NUMBER or station:NAME; may be given several times")
      ->type_name("WHAT")
      ->allow_extra_args(false);  // what follows is PROJECT
  app.add_flag("--axis", commandLine.axis, "Show the axes X, Y and Z");
  app.add_flag("--ground-plane", commandLine.groundPlane, "Show a plane under the object");
  const CLI::Option* backgroundOption =
      app.add_option("--background", background,
                     "none (transparent in a picture), plain or gradient [gradient]")
          ->type_name("KIND");
  const CLI::Option* pointNodesOption =
      app.add_option("--point-nodes", pointNodes,
                     "Show more than COUNT object points as one cloud [50000]")
          ->type_name("COUNT");
  const CLI::Option* writeOption =
      app.add_option("--write", commandLine.writeFile, "Write the scene into this Inventor file")
          ->type_name("FILE");
  app.add_flag("--nodes", commandLine.listNodes,
               "List the registered node classes, each with its parent");

  Parsed parsed;
  try {
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    app.parse(reversed);
    for (const CLI::Option* option : {renderOption, writeOption, cloudOption, profileOption}) {
      if (option->count() > 0 && option->as<std::string>().empty()) {
        throw CLI::ValidationError(option->get_name(), "found \"\", expected a file name");
      }
    }
    if (sizeOption->count() > 0) commandLine.size = parseSize(size);
    if (viewOption->count() > 0) parseView(view, commandLine);
    if (noCloud && cloudOption->count() > 0) {
      throw CLI::ValidationError("--no-cloud", "found together with --cloud, expected one of them");
    }
    commandLine.findCloud = !noCloud;
    if (colorOption->count() > 0) commandLine.color = parseColor(color);
    if (highlightOption->count() > 0) commandLine.highlight = parseObject("--highlight", highlight);
    for (const std::string& what : rays) {
      commandLine.rays.push_back(parseObject("--rays", what));
    }
    if (backgroundOption->count() > 0) commandLine.background = parseBackground(background);
    if (ellipsoidOption->count() > 0) {
      commandLine.ellipsoidScale = parseSizeOf("--ellipsoids", ellipsoids);
    }
    if (pointNodesOption->count() > 0) {
      commandLine.mostPointNodes = parseCount("--point-nodes", pointNodes);
    }
    if (contourOption->count() > 0) {
      commandLine.contourSpacing = parseSizeOf("--contours", contours);
    }
    if (boxOption->count() > 0) commandLine.box = parseBox(box);
    if (sectionOption->count() > 0) commandLine.section = parseSection(section);
    if (thicknessOption->count() > 0) commandLine.thickness = parseSizeOf("--thickness", thickness);
    for (const CLI::Option* option : {thicknessOption, profileOption}) {
      if (option->count() > 0 && !commandLine.section) {
        throw CLI::ValidationError(option->get_name(), "found without --section, expected both");
      }
    }
    checkFiles(commandLine.renderFile, commandLine.writeFile, commandLine.profileFile);
    if (commandLine.project.empty() && (commandLine.makesFiles() || !commandLine.listNodes)) {
      throw CLI::RequiredError("PROJECT");
    }
    parsed.commandLine = commandLine;
  } catch (const CLI::ParseError& error) {
    std::ostringstream output;
    std::ostringstream errors;
    const int status = app.exit(error, output, errors);
    parsed.exitStatus = status == 0 ? 0 : 2;
    parsed.output = output.str();
    parsed.error = errors.str();
    if (status != 0) parsed.error = "tarnview: " + parsed.error;
  }
  return parsed;
}
