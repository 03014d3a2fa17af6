#include "viewer/CommandLine.h"

#include <CLI/CLI.hpp>

#include "viewer/CommandLineHelp.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <tuple>
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

CommandLine::Size parseSize(const std::string& option, const std::string& text) {
  CommandLine::Size size;
  const std::size_t cross = text.find('x');
  const std::string_view view = text;
  if (cross == std::string::npos || !parseNumber(view.substr(0, cross), size.width) ||
      !parseNumber(view.substr(cross + 1), size.height)) {
    throw CLI::ValidationError(option, "found \"" + text +
                                           "\", expected WIDTHxHEIGHT in pixels, for example "
                                           "1600x1200");
  }
  constexpr int most = CommandLine::Size::mostPixels;
  if (size.width < 1 || size.height < 1 || size.width > most || size.height > most) {
    throw CLI::ValidationError(option, "found \"" + text + "\", expected sides from 1 to " +
                                           std::to_string(most) + " pixels");
  }
  return size;
}

/// The view, and for View::eStation the station's name.
std::pair<CommandLine::View, std::string> parseView(const std::string& option,
                                                    const std::string& text) {
  using View = CommandLine::View;
  if (text == "iso") return {View::eIso, {}};
  if (text == "top") return {View::eTop, {}};
  if (text == "front") return {View::eFront, {}};
  if (text == "right") return {View::eRight, {}};
  if (const auto name = after(text, "station:"); name && !name->empty()) {
    return {View::eStation, *name};
  }
  throw CLI::ValidationError(
      option, "found \"" + text + "\", expected iso, top, front, right or station:NAME");
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

CommandLine::Background parseBackground(const std::string& option, const std::string& text) {
  using Background = CommandLine::Background;
  if (text == "none") return Background::eNone;
  if (text == "plain") return Background::ePlain;
  if (text == "gradient") return Background::eGradient;
  throw CLI::ValidationError(option, "found \"" + text + "\", expected none, plain or gradient");
}

CommandLine::Color parseColor(const std::string& option, const std::string& text) {
  using Color = CommandLine::Color;
  if (text == "height") return Color::eHeight;
  if (text == "rgb") return Color::eRgb;
  if (text == "none") return Color::eNone;
  throw CLI::ValidationError(option, "found \"" + text + "\", expected height, rgb or none");
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

CommandLine::Corners parseSection(const std::string& option, const std::string& text) {
  const CommandLine::Corners line = parseCorners(option, text);
  if (line.x0 == line.x1 && line.y0 == line.y1) {
    throw CLI::ValidationError(option, "found \"" + text + "\", expected two places");
  }
  return line;
}

CommandLine::Corners parseBox(const std::string& option, const std::string& text) {
  const CommandLine::Corners box = parseCorners(option, text);
  if (box.x0 == box.x1 || box.y0 == box.y1) {
    throw CLI::ValidationError(option,
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

std::string parseStation(const std::string& option, const std::string& text) {
  if (text.empty()) throw CLI::ValidationError(option, "found \"\", expected a station's name");
  return text;
}

std::string parseFileName(const std::string& option, const std::string& text) {
  if (text.empty()) throw CLI::ValidationError(option, "found \"\", expected a file name");
  return text;
}

/// Adds an option whose value is what `parse` makes of its name and its text.
template <typename Value, typename Parse>
CLI::Option* addOption(CLI::App& app, const std::string& name, const char* type,
                       const char* description, Value& value, Parse parse) {
  const auto take = [&value, name, parse](const std::string& text) { value = parse(name, text); };
  return app.add_option_function<std::string>(name, take, description)->type_name(type);
}

}  // namespace

CommandLine::Parsed CommandLine::parse(const std::vector<std::string>& arguments) {
  CommandLine line;
  std::pair<View, std::string> view;

  CLI::App app(CommandLineHelp::description, "tarnview");
  app.footer(CommandLineHelp::examples);
  app.set_version_flag("--version", "tarnview " TARN_VERSION, "Print the version");
  app.add_option("PROJECT", line.project,
                 "Folder of a COLMAP model, the one above it, a PLY file or one of surfaces (OBJ)");
  addOption(app, "--render", "FILE", "Draw into this PNG file, without a window", line.renderFile,
            parseFileName);
  addOption(app, "--size", "WxH", "Size of the picture in pixels [1600x1200]", line.size,
            parseSize);
  addOption(app, "--view", "VIEW", "iso, top, front, right or station:NAME [iso]", view, parseView);
  app.add_flag("--image-planes", line.imagePlanes, "Show the photographs in the cameras");
  app.add_flag("--frusta", line.frusta, "Show what each camera saw");
  app.add_flag("--labels", line.labels,
               "Name as many cameras and object points as there is room for");
  addOption(app, "--ellipsoids", "SCALE", "Show error ellipsoids, SCALE times their size",
            line.ellipsoidScale, parseSizeOf);
  addOption(app, "--highlight", "WHAT", "Mark point:NUMBER or station:NAME", line.highlight,
            parseObject);
  const CLI::Option* cloudOption =
      addOption(app, "--cloud", "FILE", "Show this dense cloud or mesh, a PLY file", line.cloud,
                parseFileName);
  bool noCloud = false;
  app.add_flag("--no-cloud", noCloud, "Leave the model's own dense cloud out");
  addOption(app, "--color", "KIND",
            "Colour clouds and meshes by height, in their own colours (rgb) or not at all (none) "
            "[rgb where there are colours]",
            line.color, parseColor);
  app.add_flag("--scale", line.heightScale, "Show which colour stands for which height");
  addOption(app, "--contours", "SPACING",
            "Draw lines of equal height over clouds and meshes, SPACING units apart",
            line.contourSpacing, parseSizeOf);
  addOption(app, "--box", "x0,y0,x1,y1",
            "Keep what is seen of clouds and meshes inside this box of the picture", line.box,
            parseBox);
  addOption(app, "--section", "x0,y0,x1,y1",
            "Cut clouds and meshes along this line of the picture, and mark the cut", line.section,
            parseSection);
  const CLI::Option* thicknessOption =
      addOption(app, "--thickness", "UNITS",
                "Take points up to so many units on either side of the section [twice the distance "
                "of neighbouring points]",
                line.thickness, parseSizeOf);
  const CLI::Option* profileOption = addOption(
      app, "--profile", "FILE", "Write the section's points into this CSV file: distance, height",
      line.profileFile, parseFileName);
  const auto takeRays = [&line](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) line.rays.push_back(parseObject("--rays", text));
  };
  app.add_option_function<std::vector<std::string>>(
         "--rays", takeRays,
         "Show the rays of point:NUMBER or station:NAME; may be given several times")
      ->type_name("WHAT")
      ->allow_extra_args(false);  // what follows is PROJECT
  addOption(app, "--surface", "STATION",
            "Show a surface over the points on this station's photograph, with its picture",
            line.surfaceStation, parseStation);
  app.add_flag("--axis", line.axis, "Show the axes X, Y and Z");
  app.add_flag("--ground-plane", line.groundPlane, "Show a plane under the object");
  addOption(app, "--background", "KIND",
            "none (transparent in a picture), plain or gradient [gradient]", line.background,
            parseBackground);
  addOption(app, "--point-nodes", "COUNT",
            "Show more than COUNT object points as one cloud [50000]", line.mostPointNodes,
            parseCount);
  addOption(app, "--write", "FILE", "Write the scene into this Inventor file", line.writeFile,
            parseFileName);
  app.add_flag("--nodes", line.listNodes, "List the registered node classes, each with its parent");

  Parsed parsed;
  try {
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    app.parse(reversed);
    std::tie(line.view, line.viewStation) = view;
    if (noCloud && cloudOption->count() > 0) {
      throw CLI::ValidationError("--no-cloud", "found together with --cloud, expected one of them");
    }
    line.findCloud = !noCloud;
    for (const CLI::Option* option : {thicknessOption, profileOption}) {
      if (option->count() > 0 && !line.section) {
        throw CLI::ValidationError(option->get_name(), "found without --section, expected both");
      }
    }
    checkFiles(line.renderFile, line.writeFile, line.profileFile);
    if (line.project.empty() && (line.makesFiles() || !line.listNodes)) {
      throw CLI::RequiredError("PROJECT");
    }
    parsed.commandLine = line;
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
