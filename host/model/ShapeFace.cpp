#include "host/model/ShapeFace.h"

namespace tarn {

VClass ShapeFaceCls("ShapeFace", &TessellatedSurfaceCls,
                    []() -> VObject* { return new ShapeFace; });

int ShapeFace::GetNameUprightVectorPoints(Point3DDouble& first, Point3DDouble& second, int) const {
  if (!_nameUprightVector) return 0;
  first = _nameUprightVector->front();
  second = _nameUprightVector->back();
  return 1;
}

}  // namespace tarn
