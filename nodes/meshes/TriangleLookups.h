#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/meshes/OI_To_Tarn_TriangleLookup.h"
#include "nodes/meshes/TrianglePositions.h"

#include <vector>

class SoGroup;

/// The records of a surface that is drawn by several face sets.
class TARNOI_EXPORT TriangleLookups {
public:
  /// A face of one of the records; without a face set it is none.
  struct Face {
    const SoNode* faceSet = nullptr;
    int index = 0;
  };

  /// The record of that face set; null where there is none.
  const OI_To_Tarn_TriangleLookup* find(const SoNode* faceSet) const;

  /// For each of the triangles its first face, of the first record that has it. Every record is
  /// read once.
  std::vector<Face> firstFacesOf(const std::vector<const tarn::VObject*>& triangles) const;

  /// The same records for `copy`, which was copied from `original` by Coin: with the face sets
  /// that stand where the original's do.
  TriangleLookups counterpart(const SoGroup& copy, const SoGroup& original) const;

  /// In the order of the groups of triangles.
  std::vector<OI_To_Tarn_TriangleLookup> records;
  /// Of the records' triangles in the model's list.
  TrianglePositions positions;
};
