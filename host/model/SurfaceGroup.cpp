#include "host/model/SurfaceGroup.h"

#include "host/model/ThreeDPoint.h"

#include <memory>
#include <unordered_set>

namespace tarn {

VClass SurfaceGroupCls("SurfaceGroup", &SurfaceCls, []() -> VObject* { return new SurfaceGroup; });

VOrdCollect* SurfaceGroup::GetSelsCollection(int) { return &_allElements; }

VOrdCollect* SurfaceGroup::GetVertices(Project*) {
  auto vertices = std::make_unique<VOrdCollect>();
  const VOrdCollect* elements = GetSelsCollection(0);
  if (!elements) return vertices.release();
  std::unordered_set<const ThreeDPoint*> listed;
  listed.reserve(static_cast<std::size_t>(elements->size()));
  for (int i = 0; i < elements->size(); ++i) {
    const auto* element = static_cast<const SurfaceElement*>(elements->at(i));
    for (int corner = 0; corner < 3; ++corner) {
      ThreeDPoint* point = element->GetThreeDPoint(corner);
      if (point && listed.insert(point).second) vertices->add(point);
    }
  }
  return vertices.release();
}

SurfaceElement& SurfaceGroup::AddElement(ThreeDPoint* first, ThreeDPoint* second,
                                         ThreeDPoint* third) {
  SurfaceElement& element = _elements.emplace_back(first, second, third);
  _allElements.add(&element);
  return element;
}

}  // namespace tarn
