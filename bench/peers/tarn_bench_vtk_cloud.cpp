// The cloud's work done by VTK. It draws through GLX: its OpenGL loader refuses EGL.
#include <vtkActor.h>
#include <vtkAutoInit.h>
#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkLookupTable.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>
#include <vtkTypeInt32Array.h>
#include <vtkUnsignedCharArray.h>

#include "bench/dense/CloudWork.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

VTK_MODULE_INIT(vtkRenderingOpenGL2);

namespace {

class VtkCloud : public bench::CloudWork {
protected:
  // One cell of all points and 32-bit indexes: the least that VTK draws points from.
  void build() override {
    vtkNew<vtkFloatArray> coordinates;
    coordinates->SetNumberOfComponents(3);
    coordinates->SetNumberOfTuples(count());
    float* out = coordinates->GetPointer(0);
    const float* point = positions();
    for (int i = 0; i < count(); ++i, out += 3, point += 3) {
      out[0] = point[0];
      out[1] = point[2];
      out[2] = -point[1];
    }
    vtkNew<vtkPoints> points;
    points->SetData(coordinates);
    vtkNew<vtkTypeInt32Array> offsets;
    offsets->SetNumberOfValues(2);
    offsets->SetValue(0, 0);
    offsets->SetValue(1, count());
    vtkNew<vtkTypeInt32Array> indexes;
    indexes->SetNumberOfValues(count());
    int* index = indexes->GetPointer(0);
    for (int i = 0; i < count(); ++i) index[i] = i;
    vtkNew<vtkCellArray> cells;
    cells->SetData(offsets, indexes);
    cloud = vtkSmartPointer<vtkPolyData>::New();
    cloud->SetPoints(points);
    cloud->SetVerts(cells);
  }

  void colour() override {
    vtkNew<vtkFloatArray> heights;
    heights->SetNumberOfValues(count());
    float* out = heights->GetPointer(0);
    const float* point = positions();
    for (int i = 0; i < count(); ++i, point += 3) out[i] = point[2];
    vtkNew<vtkLookupTable> ramp;
    ramp->SetNumberOfTableValues(256);
    ramp->SetHueRange(0, 0.8);
    ramp->SetRange(0, 1);
    ramp->Build();
    cloud->GetPointData()->SetScalars(vtkSmartPointer<vtkUnsignedCharArray>::Take(
        ramp->MapScalars(heights, VTK_COLOR_MODE_MAP_SCALARS, -1)));
  }

  void drop() override { cloud = nullptr; }

  bool open() override {
    if (!std::getenv("DISPLAY")) return false;
    window->SetShowWindow(false);
    window->SetUseOffScreenBuffers(true);
    window->SetMultiSamples(0);
    window->SetSize(bench::View::width, bench::View::height);
    window->AddRenderer(renderer);
    renderer->GetActiveCamera()->SetViewAngle(bench::View::verticalAngleDegrees);
    renderer->GetActiveCamera()->SetViewUp(0, 1, 0);
    return true;
  }

  void draw(const bench::View& view) override {
    if (cloud && !shown) {
      vtkNew<vtkPolyDataMapper> mapper;
      mapper->SetInputData(cloud);
      vtkNew<vtkActor> actor;
      actor->SetMapper(mapper);
      actor->GetProperty()->SetPointSize(1);
      actor->GetProperty()->LightingOff();
      renderer->AddActor(actor);
      shown = true;
    }
    vtkCamera* camera = renderer->GetActiveCamera();
    const double down = view.downDegrees * std::numbers::pi / 180;
    camera->SetPosition(view.x, view.y, view.z);
    camera->SetFocalPoint(view.x, view.y - std::sin(down), view.z - std::cos(down));
    camera->SetClippingRange(bench::View::nearDistance, bench::View::farDistance);
    window->Render();
    window->WaitForCompletion();
  }

private:
  vtkSmartPointer<vtkPolyData> cloud;
  vtkNew<vtkRenderWindow> window;
  vtkNew<vtkRenderer> renderer;
  bool shown = false;
};

}  // namespace

int main(int argc, char** argv) { return VtkCloud().run(argc, argv); }
