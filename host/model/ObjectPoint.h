#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VOrdCollect.h"
#include "host/classes/VString.h"
#include "host/general/Colour.h"
#include "host/model/Ray3D.h"
#include "host/model/ThreeDPoint.h"

#include <memory>
#include <optional>
#include <vector>

namespace tarn {

class ImportedPoint;
class MarkedPoint;

extern TARN_HOST_EXPORT VClass ObjectPointCls;

/// What AllMarksAreSubPixel tells about the marks, for hosts that keep it.
struct SubPixelInfo;

/// An object point: a point of the object, marked on photographs and computed from
/// its rays.
///
///   ObjectPoint& point = project.AddObjectPoint();
///   point.SetNumber(12);
///   point.SetApproximation(Point3DRandom({1.0, 2.0, 3.0}));
///   point.AddMarkedPoint(&photograph.AddMarkedPoint({812.25, 431.5}));
class TARN_HOST_EXPORT ObjectPoint : public ThreeDPoint {
public:
  ObjectPoint() = default;
  ObjectPoint(const ObjectPoint&) = delete;  // marks and rays point to it
  ObjectPoint& operator=(const ObjectPoint&) = delete;

  virtual long GetNumber() const { return _number; }
  /// The name that the user gave; null when there is none.
  virtual const VString* GetUserName() const { return _userName.get(); }
  /// Non-zero for a coded target, with its code and the ring of targets it is of.
  virtual int GetTargetCode(int& code, int& ring) const;
  /// Non-zero when there are marks and all were measured to a fraction of a pixel.
  /// `info`, which may be null, receives what the host keeps about it (here null).
  virtual int AllMarksAreSubPixel(SubPixelInfo** info) const;
  /// The colour the photographs show there; null when it is not known.
  virtual const Colour* GetRGBTextureColor() const { return _colour ? &*_colour : nullptr; }
  /// Non-zero for a point that the adjustment holds fixed.
  virtual int GetFrozen() const { return _frozen; }
  /// Non-zero for a control point; with `showOnlyActive` only while it is active.
  virtual int IsControlPoint(int showOnlyActive) const;
  /// The imported point that this point is tied to; null when there is none.
  virtual ImportedPoint* GetLinkedImportedPoint() const { return _linkedPoint; }
  virtual int HasTState() const { return _tState; }
  virtual int HasSecondState() const { return _secondState; }
  /// Non-zero when the point has a 3D position; with `processedOnly` only when the
  /// adjustment computed it.
  virtual int HasUsablePosition(int processedOnly) const;
  /// The object that stands for the rays of this point: always the same one, which is made
  /// on first use and lives as long as the point.
  virtual Ray3D* GetRay3D();
  /// The photographs on which the point is marked, each once, in the order of its track: a
  /// new collection that the caller deletes. `selection` is for hosts that tell apart
  /// photographs in use and others.
  virtual VOrdCollect* GetPhotographs(int selection) const;

  /// Where it is marked on the photograph, in pixels; the projection where it is not.
  int BestProjectionOnto(Photograph* photograph, Point2DDouble& pixel) const override;

  /// The marks of this point, in the order of its track; not owned.
  const std::vector<MarkedPoint*>& GetMarkedPoints() const { return _marks; }

  void SetNumber(long number) { _number = number; }
  void SetUserName(const VString& name) { _userName = std::make_unique<VString>(name); }
  void SetTargetCode(int code, int ring);
  void SetRGBTextureColor(const Colour& colour) { _colour = colour; }
  void SetFrozen(int frozen) { _frozen = frozen != 0; }
  void SetControlPoint(int control, int active = 1);
  void SetLinkedImportedPoint(ImportedPoint* point) { _linkedPoint = point; }
  void SetTState(int state) { _tState = state != 0; }
  void SetSecondState(int state) { _secondState = state != 0; }
  /// Adds a mark and ties it to this point; a null mark is ignored. The mark must not
  /// belong to another point.
  void AddMarkedPoint(MarkedPoint* mark);

  VClass* iam() const override { return &ObjectPointCls; }

private:
  // Points come by the hundred thousand: small members first, so that they fill the
  // padding after the base's; the rare user name and rays are kept apart.
  std::optional<Colour> _colour;
  bool _codedTarget = false;
  bool _frozen = false;
  bool _control = false;
  bool _controlActive = false;
  bool _tState = false;
  bool _secondState = false;
  int _targetCode = 0;
  int _targetRing = 0;
  long _number = 0;
  std::unique_ptr<VString> _userName;
  ImportedPoint* _linkedPoint = nullptr;
  std::vector<MarkedPoint*> _marks;
  std::unique_ptr<Ray3D> _ray;
};

}  // namespace tarn
