#include "host/model/SurfaceGroup.h"

#include "host/model/ThreeDPoint.h"

namespace tarn {

VClass SurfaceGroupCls("SurfaceGroup", &SurfaceCls, []() -> VObject* { return new SurfaceGroup; });

VOrdCollect* SurfaceGroup::GetSelsCollection(int) { return &_allElements; }

VOrdCollect* SurfaceGroup::GetVertices(Project*) { return new VOrdCollect(_vertices); }

SurfaceElement& SurfaceGroup::AddElement(ThreeDPoint* first, ThreeDPoint* second,
                                         ThreeDPoint* third) {
  SurfaceElement& element = _elements.emplace_back(first, second, third);
  _allElements.add(&element);
  for (ThreeDPoint* point : {first, second, third}) _vertexIndex.add(point);
  return element;
}

}  // namespace tarn
