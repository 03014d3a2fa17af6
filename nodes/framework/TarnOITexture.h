#pragma once

#include <Inventor/nodes/SoTexture2.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

#include <memory>

namespace tarn {
class VDictionary;
class VPathString;
}  // namespace tarn

/// A texture bound to an image file. It enters itself into a texture dictionary under
/// the file's path, so that all surfaces with the same image can share one node.
///
///     auto* texture = new TarnOITexture;
///     texture->SetFileName(&path, &textureDictionary);
class TARNOI_EXPORT TarnOITexture : public SoTexture2 {
  TARNOI_NODE_HEADER(TarnOITexture);

public:
  TarnOITexture();
  /// Copies the members; the dictionary's entry stays with the other texture.
  TarnOITexture(const TarnOITexture& other);
  TarnOITexture& operator=(const TarnOITexture& other);

  /// Binds the texture to the file and reads the image, also when the path is the same
  /// as before. The dictionary is remembered whenever the path changes. Neither is owned;
  /// both must outlive the texture. Neither may be null.
  void SetFileName(tarn::VPathString* path, tarn::VDictionary* dict);
  /// The same with a path that nobody else keeps: it lives as long as this texture and
  /// its copies, and leaves every dictionary before it ends.
  void SetFileName(std::shared_ptr<tarn::VPathString> path, tarn::VDictionary* dict);
  /// Remembers the dictionary of a texture that has no image to show (a photograph that is
  /// missing). Nothing is entered. Not owned; null is ignored.
  void SetDictionary(tarn::VDictionary* dict);
  /// The path; null while there is none.
  tarn::VPathString* GetFileName() const { return fileName; }

  /// The ordinary copy, bound to the same path: the dictionary's entry moves to it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  /// Matches a search for the path; other searches as any node.
  void search(SoSearchAction* action) override;

protected:
  /// Reports a texture that never was given a dictionary: every texture is made through
  /// SetFileName.
  ~TarnOITexture() override;

private:
  void releaseOwnedFileName();

  tarn::VPathString* fileName = nullptr;
  tarn::VDictionary* tarnoi_searchDict = nullptr;
  std::shared_ptr<tarn::VPathString> ownedFileName;
};
