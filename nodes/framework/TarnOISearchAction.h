#pragma once

#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/actions/SoSubAction.h>

#include "nodes/TarnOIExport.h"

class SoNode;

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
  static TarnOISearchAction* from(SoSearchAction* action);

  /// Whether the object is all that is sought: no node, name or type besides it.
  bool seeksOnlyTarnObject() const { return getFind() == 0; }

  /// Whether a search for a model object alone has to visit `node`: groups, and leaves
  /// that can answer for an object, such as materials and textures. Coordinates, shapes and
  /// transforms need no visit.
  static bool mayMatch(const SoNode& node);

  /// Changes, and is never 0, whenever answers of mayMatch may: a traversal method was added,
  /// or the class registered anew.
  static unsigned int methodsVersion() { return version; }

  /// Adds a copy of the current path; returns whether the search is at its end.
  bool addCurrentPath();

private:
  static void atexit_cleanup();
  static SoEnabledElementsList* enabledElements;
  static SoActionMethodList* methods;
  static SoType classTypeId;
  static unsigned int version;

  tarn::VObject* tarnObject = nullptr;
};
