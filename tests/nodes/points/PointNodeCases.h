#pragma once

#include "host/model/AffineObjectNPoint.h"
#include "host/model/CheckPoint.h"
#include "host/model/ImportedPoint.h"
#include "host/model/ObjectPoint.h"
#include "host/model/OffsetPoint.h"
#include "host/model/ThreeDPointFromTarnObject.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/points/TarnOIAffineObjectSeparator.h"
#include "nodes/points/TarnOICheckPointSeparator.h"
#include "nodes/points/TarnOIImportedPointSeparator.h"
#include "nodes/points/TarnOIOffsetPointSeparator.h"
#include "nodes/points/TarnOIThreeDPointsSeparator.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

// The nodes that draw a plain point, for tests of what they have in common: each with its
// object, how that gets its position, and the setter.

/// A point that is placed by its approximation.
struct ApproximatedCase {
  static void place(tarn::ThreeDPoint& point, const tarn::Point3DDouble& position) {
    point.SetApproximation(tarn::Point3DRandom(position));
  }
};

struct OffsetPointCase : ApproximatedCase {
  using Node = TarnOIOffsetPointSeparator;
  using Object = tarn::OffsetPoint;
  static constexpr const char* className = "TarnOIOffsetPointSeparator";
  static void set(Node& node, Object* point, tarn::VDictionary* dict) {
    node.SetOffsetPoint(point, dict);
  }
  /// Gives the point what its label reads: `label` is "Offset " and a number.
  static void number(Object& point, tarn::ObjectPoint& from, int number) {
    from.SetNumber(number);
    point.SetOffset(&from, {});
  }
  static std::string label(int number) { return "Offset " + std::to_string(number); }
};

struct CheckPointCase : ApproximatedCase {
  using Node = TarnOICheckPointSeparator;
  using Object = tarn::CheckPoint;
  static constexpr const char* className = "TarnOICheckPointSeparator";
  static void set(Node& node, Object* point, tarn::VDictionary* dict) {
    node.SetCheckPoint(point, dict);
  }
};

struct ThreeDPointCase : ApproximatedCase {
  using Node = TarnOIThreeDPointsSeparator;
  using Object = tarn::ThreeDPointFromTarnObject;
  static constexpr const char* className = "TarnOIThreeDPointsSeparator";
  static void set(Node& node, Object* point, tarn::VDictionary* dict) {
    node.SetPoint(point, dict);
  }
};

struct ImportedPointCase {
  using Node = TarnOIImportedPointSeparator;
  using Object = tarn::ImportedPoint;
  static constexpr const char* className = "TarnOIImportedPointSeparator";
  static void place(Object& point, const tarn::Point3DDouble& position) {
    point.SetStoredPosition(tarn::Point3DRandom(position));
  }
  static void set(Node& node, Object* point, tarn::VDictionary* dict) {
    node.SetImportedPoint(point, dict);
  }
  /// Gives the point what its label reads: `label` is number and name.
  static void number(Object& point, tarn::ObjectPoint&, int number) {
    point.SetIDNumber(number);
    point.SetName("P");
  }
  static std::string label(int number) { return std::to_string(number) + ":P"; }
};

struct AffineObjectCase {
  using Node = TarnOIAffineObjectSeparator;
  using Object = tarn::AffineObjectNPoint;
  static constexpr const char* className = "TarnOIAffineObjectSeparator";
  static void place(Object& point, const tarn::Point3DDouble& position) {
    point.SetPosition(position);
  }
  static void set(Node& node, Object* point, tarn::VDictionary* dict) {
    node.SetAffineObject(point, dict);
  }
};

/// A node of one case with two objects of its kind, both with a position.
template <typename Case>
class PointNodeTest : public TarnTest {
protected:
  using Node = typename Case::Node;

  PointNodeTest() {
    Case::place(object, {1.5, 2.25, -3.75});
    Case::place(other, {11.5, -18.25, 33.125});
  }

  void set(typename Case::Object* shown) { Case::set(*node, shown, &dictionary); }

  /// Where a node built as a point draws it.
  static SbVec3f placeOf(const SoGroup& built) { return childOf<SoCoordinate3>(built).point[0]; }

  /// A copy made by Coin, as a host makes it.
  static NodeRef<Node> copied(const Node& original) {
    return NodeRef<Node>(static_cast<Node*>(original.copy()));
  }

  // With the fixture's view offset (10.5, -20.25, 30.125).
  const SbVec3f objectsPlace{-9.0F, -33.875F, -22.5F};
  const SbVec3f othersPlace{1.0F, 3.0F, -2.0F};

  typename Case::Object object;
  typename Case::Object other;
  NodeRef<Node> node = makeNode<Node>();
};

/// Names a typed test after its node.
struct PointNodeNames {
  template <typename Case>
  static std::string GetName(int) {
    return Case::className;
  }
};
