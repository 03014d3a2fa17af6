#include "viewer/CommandLineHelp.h"

namespace CommandLineHelp {

const char* const description =
    "tarnview - shows a photogrammetric project in three dimensions\n"
    "\n"
    "PROJECT is the folder of a COLMAP model (cameras, images and points3D, as .bin or\n"
    ".txt), or the folder above it, in which the model is looked for in sparse/, sparse/0/\n"
    "and 0/. The photographs are looked for in a folder images/ beside the model, a dense\n"
    "cloud or mesh beside the model and in dense/: fused.ply, cloud.ply, meshed-poisson.ply\n"
    "or meshed-delaunay.ply. Or PROJECT is a PLY file by itself, a cloud or a mesh.\n"
    "\n"
    "Without --render, --write or --nodes a window opens.";

const char* const examples =
    "Examples:\n"
    "  tarnview examples/demo\n"
    "      opens the demo project in a window\n"
    "  tarnview examples/demo --render demo.png --frusta --labels\n"
    "      draws it into a picture, with what each camera saw and with names\n"
    "  tarnview examples/demo --render view.png --view station:station01.jpg --image-planes\n"
    "      looks through one camera at its photograph, the points drawn over it\n"
    "  tarnview examples/demo --render close.png --view top --size 3000x3000 --ellipsoids 50\n"
    "      looks down, error ellipsoids fifty times their size\n"
    "  tarnview examples/demo --render point.png --highlight point:12\n"
    "      marks one object point\n"
    "  tarnview cloud.ply --render heights.png --color height\n"
    "      draws a point cloud by height\n"
    "  tarnview project --cloud cloud.ply --view top --render map.png\n"
    "      shows a cloud that is kept elsewhere with the project\n"
    "  tarnview examples/demo --write demo.iv\n"
    "      writes the scene for any Open Inventor program\n"
    "  tarnview --nodes\n"
    "      lists the node classes of the library\n"
    "\n"
    "Views: iso, top, front and right frame the object and the cameras, some outliers left\n"
    "aside. Z is up; where the cameras say otherwise (a model that nobody levelled), up is\n"
    "what is up in the photographs. station:NAME looks through that camera; the picture then\n"
    "has the photograph's proportions unless --size is given.\n"
    "\n"
    "Image planes show small copies of the photographs, which are kept in\n"
    "$XDG_CACHE_HOME/tarnview (~/.cache/tarnview); the project's own folders are only read.\n"
    "\n"
    "A written scene has no background: the program that shows it has its own.\n"
    "\n"
    "In the window: I image planes, F frusta, L labels, B background, a click marks a point or\n"
    "a camera.\n"
    "\n"
    "Exit status: 0 done; 1 the project was refused or a file could not be written, with the\n"
    "reason on standard error; 2 a wrong call.";

}  // namespace CommandLineHelp
