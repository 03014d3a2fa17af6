#pragma once

#include <Inventor/nodes/SoText2.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

/// The text of a label: SoText2 under a type of its own, by which the labels of
/// model-bound nodes are told apart from other text.
class TARNOI_EXPORT TarnOIText2 : public SoText2 {
  TARNOI_NODE_HEADER(TarnOIText2);

public:
  TarnOIText2();
  TarnOIText2(const TarnOIText2& other);
  TarnOIText2& operator=(const TarnOIText2& other);

protected:
  ~TarnOIText2() override;
};
