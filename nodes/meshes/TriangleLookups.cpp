#include "nodes/meshes/TriangleLookups.h"

#include "nodes/framework/ChildNodes.h"

#include <algorithm>

const OI_To_Tarn_TriangleLookup* TriangleLookups::find(const SoNode* faceSet) const {
  const auto found = std::ranges::find_if(records, [faceSet](const auto& record) {
    return faceSet && record.faceSet.get() == faceSet;
  });
  return found == records.end() ? nullptr : &*found;
}

TriangleLookups TriangleLookups::counterpart(const SoGroup& copy, const SoGroup& original) const {
  TriangleLookups result = *this;
  for (OI_To_Tarn_TriangleLookup& record : result.records) {
    record.faceSet = ChildNodes::counterpart(copy, original, record.faceSet);
  }
  return result;
}
