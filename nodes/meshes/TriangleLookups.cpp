#include "nodes/meshes/TriangleLookups.h"

#include "nodes/framework/ChildNodes.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>

const OI_To_Tarn_TriangleLookup* TriangleLookups::find(const SoNode* faceSet) const {
  const auto found = std::ranges::find_if(records, [faceSet](const auto& record) {
    return faceSet && record.faceSet.get() == faceSet;
  });
  return found == records.end() ? nullptr : &*found;
}

std::vector<TriangleLookups::Face> TriangleLookups::firstFacesOf(
    const std::vector<const tarn::VObject*>& triangles) const {
  std::unordered_map<const tarn::VObject*, Face> faces(triangles.size());
  for (const tarn::VObject* triangle : triangles) faces.try_emplace(triangle);
  for (const OI_To_Tarn_TriangleLookup& record : records) {
    for (std::size_t i = 0; i < record.triangles.size(); ++i) {
      const auto found = faces.find(record.triangles[i]);
      if (found == faces.end() || found->second.faceSet) continue;
      found->second = {record.faceSet.get(), static_cast<int>(i)};
    }
  }
  std::vector<Face> result;
  result.reserve(triangles.size());
  for (const tarn::VObject* triangle : triangles) result.push_back(faces[triangle]);
  return result;
}

TriangleLookups TriangleLookups::counterpart(const SoGroup& copy, const SoGroup& original) const {
  TriangleLookups result = *this;
  for (OI_To_Tarn_TriangleLookup& record : result.records) {
    record.faceSet = ChildNodes::counterpart(copy, original, record.faceSet);
  }
  return result;
}
