#include "nodes/cameras/CameraSymbols.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/general/Colour.h"
#include "host/general/Preferences.h"
#include "nodes/cameras/DetailedCameraMesh.h"
#include "nodes/framework/SceneColor.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace CameraSymbols {

namespace {

// Handed to the reader with their terminating zero, which would be refused after the last
// node but is part of the comment there.
constexpr char box[] = R"iv(#Inventor V2.1 ascii
# body - blue
ShapeHints {
  vertexOrdering COUNTERCLOCKWISE
  shapeType SOLID
  faceType CONVEX
}
Material { diffuseColor 0 0 1 }
Cube {
  width 1
  height 1
  depth 0.5
}

# lens - green
Material { diffuseColor 0 1 0 }
Translation {
  translation 0 0 0.2
}
Rotation {
  rotation 1 0 0 1.5708
}
Cylinder {
  parts ALL
  radius 0.25
  height 0.8
}

# viewfinder - red
Material { diffuseColor 1 0 0 }
Translation {
  translation 0.0 -0.2 0.48
}
Cylinder {
  parts ALL
  radius 0.2
  height 0.35
}
# end)iv";
static_assert(sizeof box == 523);

constexpr char sphere[] = R"iv(#Inventor V2.1 ascii
# globe in yellow
ShapeHints {
  vertexOrdering COUNTERCLOCKWISE
  shapeType SOLID
  faceType CONVEX
}
Material { diffuseColor 1 1 0 }
Sphere {
  radius 0.7
}

# ring in green
Material { diffuseColor 0 1 0 }
Rotation {
  rotation 0 0 0 0
}
Cylinder {
  parts ALL
  radius 0.71
  height 0.05
}

# ring in red
Material { diffuseColor 1 0 0 }
Rotation {
  rotation 1 0 0 -1.5708
}
Cylinder {
  parts ALL
  radius 0.71
  height 0.05
}

# ring in black
Material { diffuseColor 0 0 0 }
Rotation {
  rotation 0 0 1 1.5708
}
Cylinder {
  parts ALL
  radius 0.71
  height 0.05
}
# end)iv";
static_assert(sizeof sphere == 597);

NodeRef<SoSeparator> read(const char* text, std::size_t size) {
  SoInput in;
  // The reader only reads, whatever its signature says.
  in.setBuffer(const_cast<char*>(text), size);
  return NodeRef<SoSeparator>(SoDB::readAll(&in));
}

// Six decimals and a point whatever the program's locale is: the scene reader knows no
// other.
std::string decimal(double number) {
  std::array<char, 400> text;
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, 6);
  return error == std::errc{} ? std::string(text.data(), end) : std::string();
}

struct Rgb {
  double red;
  double green;
  double blue;
};

std::string printed(const Rgb& color) {
  return decimal(color.red) + " " + decimal(color.green) + " " + decimal(color.blue);
}

std::string material(const Rgb& ambient, const Rgb& diffuse, const Rgb& specular) {
  return "Material {\nambientColor  " + printed(ambient) + "\ndiffuseColor  " + printed(diffuse) +
         "\nspecularColor " + printed(specular) +
         "\nemissiveColor 0 0 0\nshininess     1\ntransparency  0\n}\n";
}

// The colour PART_KIND_R, _G, _B of section "CSSymbol".
Rgb partColor(const char* partAndKind, double defaultValue) {
  const auto component = [&](const char* name) {
    const std::string key = std::string(partAndKind) + name;
    return tarn::gPref->GetPreference(key.c_str(), defaultValue, "CSSymbol");
  };
  const double red = component("_R");
  const double green = component("_G");
  const double blue = component("_B");
  return {red, green, blue};
}

Rgb stationColor() {
  const tarn::Colour colour = tarn::gPref->GetPreference(
      "CameraStationColor(RRRGGGBBB_0-255)", tarn::Colour(44, 43, 43), "ProjectViewer(3D_Viewer)");
  const auto [red, green, blue] = SceneColor::componentsOf(colour);
  return {red, green, blue};
}

constexpr double dark = 0.1137254901960784;    // 29 / 255
constexpr double middle = 0.4117647058823529;  // 105 / 255
constexpr double light = 0.7529411764705882;   // 192 / 255

// From the mesh's millimetres and axes (z up, lens towards -y, projection centre at
// (15, 0, -20)) to the symbol's (y down, looking along z).
constexpr std::string_view toSymbol =
    "Scale {\nscaleFactor 0.004 0.004 0.004\n }\n"
    "Rotation { rotation 1 0 0  -1.571 }\n"
    "Rotation { rotation 0 1 0  3.141592654 }\n"
    "Translation { translation -15 0 20 }\n";

std::string detailedText() {
  const Rgb bodyDiffuse = stationColor();
  const Rgb bodyAmbient = partColor("Body_ambient", dark);
  const Rgb bodySpecular = partColor("Body_specular", light);
  const Rgb viewfinderAmbient = partColor("ViewFinder_ambient", dark);
  const Rgb viewfinderDiffuse = partColor("ViewFinder_diffuse", middle);
  const Rgb viewfinderSpecular = partColor("ViewFinder_specular", light);
  const Rgb lensAmbient = partColor("Lens_ambient", dark);
  const Rgb lensDiffuse = partColor("Lens_diffuse", light);
  const Rgb lensSpecular = partColor("Lens_specular", light);

  std::string text = material(bodyAmbient, bodyDiffuse, bodySpecular);
  text.append("\n").append(toSymbol);
  text.append("\n").append(DetailedCameraMesh::body);
  text.append("\n").append(material(viewfinderAmbient, viewfinderDiffuse, viewfinderSpecular));
  text.append("\n").append(DetailedCameraMesh::viewfinder);
  text.append("\n").append(material(lensAmbient, lensDiffuse, lensSpecular));
  text.append("\n").append(DetailedCameraMesh::lensCoordinates);
  text.append(DetailedCameraMesh::lensFaces);
  return text;
}

}  // namespace

NodeRef<SoSeparator> readBox() { return read(box, sizeof box); }

NodeRef<SoSeparator> readSphere() { return read(sphere, sizeof sphere); }

NodeRef<SoSeparator> readDetailed() {
  const std::string text = detailedText();
  return read(text.c_str(), text.size());
}

}  // namespace CameraSymbols
