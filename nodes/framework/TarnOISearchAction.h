#pragma once

#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/actions/SoSubAction.h>
#include <Inventor/nodes/SoNode.h>

#include "nodes/TarnOIExport.h"

#include <cstddef>
#include <vector>

namespace tarn {
class VObject;
}

/// Searches a scene for the nodes that show a model object, hidden layers included.
///
/// Set the object with SetTarnObject, the interest (FIRST, LAST, ALL) as for any search,
/// apply it to a root and read the path or paths. A null object finds the model-bound
/// nodes that are still unbound. Conditions on node, name or type work as in
/// SoSearchAction, besides the object.
class TARNOI_EXPORT TarnOISearchAction : public SoSearchAction {
public:
  static void initClass();
  static void CleanUpInitClass();
  static SoType getClassTypeId();
  SoType getTypeId() const override;

  /// Adds a traversal method for a node type to this class's list.
  static void addMethod(SoType nodeType, SoActionMethod method);
  /// Enables an element in this class's list.
  static void enableElement(SoType elementType, int stackIndex);
  const SoEnabledElementsList& getEnabledElements() const override;
  static SoEnabledElementsList* getClassEnabledElements();
  static SoActionMethodList* getClassActionMethods();

  TarnOISearchAction();

  /// The object sought; not owned.
  void SetTarnObject(tarn::VObject* object) { tarnObject = object; }
  tarn::VObject* GetTarnObject() const { return tarnObject; }

  /// `action` as an action of this class; null when it is another.
  static TarnOISearchAction* from(SoSearchAction* action) {
    const SoType type = action->getTypeId();
    return type == classTypeId || type.isDerivedFrom(classTypeId)
               ? static_cast<TarnOISearchAction*>(action)
               : nullptr;
  }

  /// Whether the object is all that is sought: no node, name or type besides it.
  bool seeksOnlyTarnObject() const { return getFind() == 0; }

  /// Whether a search for a model object alone has to visit nodes of this type, of which
  /// `node` is one: groups, and leaves that can answer for an object, such as materials and
  /// textures. Coordinates, shapes and transforms need no visit. Known only while the action
  /// is applied; before, every node is to be visited.
  bool mayMatch(const SoNode& node) {
    const auto key = static_cast<std::size_t>(node.getTypeId().getKey());
    if (key >= verdicts.size()) return true;
    if (verdicts[key] == Verdict::unknown) verdicts[key] = judge(node);
    return verdicts[key] == Verdict::visit;
  }

  /// Adds a copy of the current path; returns whether the search is at its end.
  bool addCurrentPath();

  /// The search of a leaf that answers for `object`, such as a material for its host
  /// material: nothing once the action has found what it seeks. An action of this class
  /// matches it by the object alone, never by name or type.
  /// @return whether this was all; else the leaf's ordinary search is to run
  static bool searchLeaf(SoSearchAction* action, const tarn::VObject* object);

protected:
  void beginTraversal(SoNode* node) override;

private:
  // What is known of a type, by its key; found out once for each search.
  enum class Verdict : unsigned char { unknown, visit, skip };
  static Verdict judge(const SoNode& node);

  static void atexit_cleanup();
  static SoEnabledElementsList* enabledElements;
  static SoActionMethodList* methods;
  static SoType classTypeId;

  tarn::VObject* tarnObject = nullptr;
  std::vector<Verdict> verdicts;
};
