#include "host/model/Feature.h"

namespace tarn {

VClass FeatureCls("Feature", &VObjectCls, nullptr);

}  // namespace tarn
