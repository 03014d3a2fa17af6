#include "nodes/meshes/OI_To_Tarn_TriangleLookup.h"

tarn::VClass OI_To_Tarn_TriangleLookupCls("OI_To_Tarn_TriangleLookup", &tarn::VObjectCls,
                                          []() -> tarn::VObject* {
                                            return new OI_To_Tarn_TriangleLookup;
                                          });
