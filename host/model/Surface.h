#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"

namespace tarn {

class Material;
class VOrdCollect;

extern TARN_HOST_EXPORT VClass SurfaceCls;

/// A surface of the model, made of triangles.
class TARN_HOST_EXPORT Surface : public VObject {
public:
  /// Non-zero when it is seen, and lit, from both sides.
  virtual int IsDoubleSided() const { return _doubleSided; }
  /// Its material; null where it has none. Not owned.
  virtual Material* GetMaterial() const { return _material; }
  /// Its triangles, of class Triangle; null or empty where it has none. The collection and
  /// what it lists stay the surface's.
  virtual VOrdCollect* GetTriangles() { return _triangles; }

  void SetDoubleSided(int doubleSided) { _doubleSided = doubleSided != 0; }
  void SetMaterial(Material* material) { _material = material; }
  /// Neither the collection nor its triangles become the surface's: both must outlive it.
  void SetTriangles(VOrdCollect* triangles) { _triangles = triangles; }

  VClass* iam() const override { return &SurfaceCls; }

private:
  Material* _material = nullptr;
  VOrdCollect* _triangles = nullptr;
  int _doubleSided = 0;
};

}  // namespace tarn
