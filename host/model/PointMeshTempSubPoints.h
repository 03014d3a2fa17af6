#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"

namespace tarn {

class VOrdCollect;

extern TARN_HOST_EXPORT VClass PointMeshTempSubPointsCls;

/// Points of a mesh that are selected for the moment.
class TARN_HOST_EXPORT PointMeshTempSubPoints : public VObject {
public:
  /// The indexes of the selected points, counted from 0, as indexes of a collection; null
  /// where none are selected. Not owned.
  virtual VOrdCollect* GetSelectedIndexes() const { return _indexes; }
  void SetSelectedIndexes(VOrdCollect* indexes) { _indexes = indexes; }

  VClass* iam() const override { return &PointMeshTempSubPointsCls; }

private:
  VOrdCollect* _indexes = nullptr;
};

}  // namespace tarn
