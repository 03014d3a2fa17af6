#pragma once

#include "nodes/framework/TarnOISeparator.h"

/// The smallest class that shows a model object: TarnOISeparator itself is abstract. A
/// test that uses it registers it in SetUpTestSuite and cleans up in TearDownTestSuite.
class BoundNode : public TarnOISeparator {
  TARNOI_NODE_HEADER(BoundNode);

public:
  BoundNode();
  BoundNode(const BoundNode& other) = default;
  BoundNode& operator=(const BoundNode& other) = default;

  tarn::VDictionary* dictionary() const { return searchDict; }
  SoNode* copy(SbBool copyConnections = FALSE) const override;

protected:
  ~BoundNode() override = default;
};
