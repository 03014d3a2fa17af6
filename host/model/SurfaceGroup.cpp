#include "host/model/SurfaceGroup.h"

#include "host/model/ThreeDPoint.h"

#include <typeinfo>

namespace tarn {

VClass SurfaceGroupCls("SurfaceGroup", &SurfaceCls, []() -> VObject* { return new SurfaceGroup; });

VOrdCollect* SurfaceGroup::GetSelsCollection(int) { return &_allElements; }

VOrdCollect* SurfaceGroup::GetVertices(Project*) { return new VOrdCollect(_vertices); }

const std::vector<SurfaceGroup::Corners>* SurfaceGroup::cornerPositions() const {
  return typeid(*this) == typeid(SurfaceGroup) ? &_cornerPositions : nullptr;
}

SurfaceElement& SurfaceGroup::AddElement(ThreeDPoint* first, ThreeDPoint* second,
                                         ThreeDPoint* third) {
  SurfaceElement& element = _elements.emplace_back(first, second, third);
  _allElements.add(&element);
  _cornerPositions.push_back(
      {_vertexIndex.add(first), _vertexIndex.add(second), _vertexIndex.add(third)});
  return element;
}

}  // namespace tarn
