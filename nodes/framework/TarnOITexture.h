#pragma once

#include <memory>

#include <Inventor/nodes/SoTexture2.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

namespace tarn {
class VDictionary;
class VPathString;
}  // namespace tarn

/// A texture bound to an image file. It enters itself into a texture dictionary under
/// the file's path, so that all surfaces with the same image can share one node.
class TARNOI_EXPORT TarnOITexture : public SoTexture2 {
  TARNOI_NODE_HEADER(TarnOITexture);

public:
  TarnOITexture();
  TarnOITexture(const TarnOITexture& other);
  TarnOITexture& operator=(const TarnOITexture& other);

  /// Binds the texture to the file and reads the image, also when the path is the same
  /// as before. The dictionary is remembered whenever the path changes. Neither is owned;
  /// both must outlive the texture. Neither may be null.
  void SetFileName(tarn::VPathString* path, tarn::VDictionary* dict);
  /// The same with a path that nobody else keeps: it lives as long as this texture and
  /// its copies.
  void SetFileName(std::shared_ptr<tarn::VPathString> path, tarn::VDictionary* dict);
  tarn::VPathString* GetFileName() const { return fileName; }

  /// The ordinary copy, bound to the same path: the dictionary's entry moves to it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void search(SoSearchAction* action) override;

protected:
  /// Reports a texture that never was given a dictionary: every texture is made through
  /// SetFileName.
  ~TarnOITexture() override;

private:
  tarn::VPathString* fileName = nullptr;
  tarn::VDictionary* tarnoi_searchDict = nullptr;
  std::shared_ptr<tarn::VPathString> ownedFileName;
};
