#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VPathString.h"

namespace tarn {

/// Where files are and may be written.
class TARN_HOST_EXPORT PathFinder {
public:
  /// Non-zero when `path` names an existing regular file.
  static int IsExistingFile(const VPathString& path);
};

}  // namespace tarn
