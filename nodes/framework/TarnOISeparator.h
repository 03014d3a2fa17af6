#pragma once

#include <Inventor/nodes/SoSeparator.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

class SoMaterial;
class SoTransform;
class TarnOISearchAction;

namespace tarn {
class BasicAffine;
class VClass;
class VDictionary;
class VObject;
}  // namespace tarn

/// The model-bound separator: a separator that shows one object of the host's model.
///
/// It remembers the object, enters the pair (object, node) into the host's search
/// dictionary, answers a TarnOISearchAction for the object, takes highlight materials in
/// at the place where they win, and is neither measured nor picked under an invisible
/// draw style. All nodes that show a model object derive from it; it is abstract itself.
///
/// It draws its children without a render cache of its own: one highlight among a
/// hundred thousand nodes must not make each of them build a display list.
class TARNOI_EXPORT TarnOISeparator : public SoSeparator {
  TARNOI_ABSTRACT_NODE_HEADER(TarnOISeparator);

public:
  /// Binds the node: enters it into `dict` under `object`. Nothing happens when the node
  /// shows that object already. The key of an object shown before is removed from the
  /// dictionary passed in, not from the one it was entered into: hosts rely on it, and
  /// pass the same dictionary for a node always. Null unbinds the node and keeps the
  /// dictionary; a null `dict` binds without an entry. Neither is owned; both must
  /// outlive the node.
  void SetTarnObject(tarn::VObject* object, tarn::VDictionary* dict);
  /// The model object that the node shows; null while it is unbound.
  tarn::VObject* GetTarnObject() const { return tarnObject; }

  /// With `on` non-zero puts `material` directly after the last material that the node
  /// holds (at the front when it holds none), so that it wins; among materials with
  /// priority the highest wins, and of equal ones the one inserted first. A material that
  /// is a child already is left where it is. With `on` zero takes it out. One material may
  /// be shared by many nodes; a null one is ignored.
  virtual void Highlight(SoMaterial* material, int on);

  /// Sets `transform` to the affine, converted to the viewer frame: scale, rotation and
  /// the two translations of the affine, each where it is present; scale and translation
  /// only when their flag is non-zero; then, with `applyViewOffset`, the translation by
  /// minus the view offset. `inverse` non-zero gives the exact inverse of the affine's
  /// part, for which the rotation matrix that the affine hands out is inverted in place.
  /// `affine` may be null.
  static void ConvertTarnAffineToSoTransform(tarn::BasicAffine* affine, SoTransform* transform,
                                             int applyScale, int applyTranslation,
                                             int applyViewOffset, int inverse);

  /// Draws the children without a render cache for them alone.
  void GLRenderBelowPath(SoGLRenderAction* action) override;
  /// This and the next two do nothing under an invisible draw style.
  void getBoundingBox(SoGetBoundingBoxAction* action) override;
  void pick(SoPickAction* action) override;
  void rayPick(SoRayPickAction* action) override;
  /// Matches a TarnOISearchAction that seeks the model object; then as any separator.
  void search(SoSearchAction* action) override;

protected:
  TarnOISeparator();
  /// Copies the members; no entry is made in the dictionary.
  TarnOISeparator(const TarnOISeparator& other);
  TarnOISeparator& operator=(const TarnOISeparator& other);
  ~TarnOISeparator() override;

  /// Lets the bounding-box and ray-pick actions know the draw style, for every class
  /// derived from this one; each calls it after its registration.
  /// @param className the class's name, for reports
  static void enableElements(const char* className);

  /// The model object as an `Object`, whose record is `record`; null while the node is
  /// unbound or bound to an object of another class.
  template <typename Object>
  Object* tarnObjectAs(const tarn::VClass& record) const {
    return isBoundTo(record) ? static_cast<Object*>(tarnObject) : nullptr;
  }

  /// Binds a copy of this node to what this node shows: the dictionary's entry moves to
  /// the copy. Returns the copy.
  SoNode* boundCopy(SoNode* copy) const;

  /// The binding rule, for every member that holds a key of a dictionary: nothing when
  /// the key is the same; else the old key is removed from the dictionary passed in, the
  /// new one entered there, and the dictionary remembered unless the new key is null.
  template <typename Key>
  static void bindToDictionary(SoNode* node, Key*& current, tarn::VDictionary*& remembered,
                               Key* key, tarn::VDictionary* dict) {
    if (key == current) return;
    if (current) removeEntry(dict, current);
    current = key;
    if (!key) return;
    putEntry(dict, key, node);
    remembered = dict;
  }

  tarn::VObject* tarnObject = nullptr;
  tarn::VDictionary* searchDict = nullptr;

private:
  static void putEntry(tarn::VDictionary* dict, tarn::VObject* key, SoNode* node);
  static void removeEntry(tarn::VDictionary* dict, tarn::VObject* key);
  bool isBoundTo(const tarn::VClass& record) const;
  bool isInvisible(SoAction* action) const;
  bool childrenMayMatch(TarnOISearchAction& search) const;
};

/// The definition of initClass of a class derived from TarnOISeparator.
#define TARNOI_SEPARATOR_INIT_CLASS(Class)     \
  void Class::initClass() {                    \
    registration.init(&Class::atexit_cleanup); \
    enableElements(#Class);                    \
  }                                            \
  static_assert(true)
