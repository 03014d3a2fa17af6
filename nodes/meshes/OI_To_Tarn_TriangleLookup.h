#pragma once

#include <Inventor/nodes/SoIndexedFaceSet.h>

#include "host/classes/VObject.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"

#include <vector>

namespace tarn {
class Triangle;
}

extern TARNOI_EXPORT tarn::VClass OI_To_Tarn_TriangleLookupCls;

/// Which triangles of the model the faces of one face set are: a picked face is traced back by it.
class TARNOI_EXPORT OI_To_Tarn_TriangleLookup : public tarn::VObject {
public:
  tarn::VClass* iam() const override { return &OI_To_Tarn_TriangleLookupCls; }

  NodeRef<SoIndexedFaceSet> faceSet;
  /// The tarn::Triangle of each face, in the faces' order. Not owned.
  std::vector<const tarn::VObject*> triangles;
};
