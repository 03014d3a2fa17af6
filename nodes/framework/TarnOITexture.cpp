#include "nodes/framework/TarnOITexture.h"

#include "host/classes/VDictionary.h"
#include "host/classes/VPathString.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/TarnOISearchAction.h"

#include <utility>

TARNOI_NODE_SOURCE(TarnOITexture, SoTexture2);

void TarnOITexture::initClass() { registration.init(&TarnOITexture::atexit_cleanup); }

namespace {
constexpr const char* sourceFile = "TarnOITexture";
}

TarnOITexture::TarnOITexture() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOITexture::TarnOITexture(const TarnOITexture& other) : TarnOITexture() { *this = other; }

TarnOITexture& TarnOITexture::operator=(const TarnOITexture& other) {
  if (this == &other) return *this;
  if (ownedFileName != other.ownedFileName) releaseOwnedFileName();
  fileName = other.fileName;
  tarnoi_searchDict = other.tarnoi_searchDict;
  ownedFileName = other.ownedFileName;
  return *this;
}

TarnOITexture::~TarnOITexture() {
  if (TARNOI_ASSERT(tarnoi_searchDict, "tarnoi_searchDict", sourceFile) && fileName) {
    tarnoi_searchDict->removeKey(fileName);
  }
}

void TarnOITexture::SetFileName(tarn::VPathString* path, tarn::VDictionary* dict) {
  TARNOI_ASSERT(dict, "searchDict", sourceFile);
  if (path != ownedFileName.get()) releaseOwnedFileName();
  if (path != fileName) {
    if (fileName && dict) dict->removeKey(fileName);
    if (path && dict) dict->atKeyPut(path, this);
    // Also for a null path, unlike the dictionary of a model-bound node.
    tarnoi_searchDict = dict;
  }
  fileName = path;
  filename.setValue(path ? path->text() : "");
}

void TarnOITexture::SetFileName(std::shared_ptr<tarn::VPathString> path, tarn::VDictionary* dict) {
  SetFileName(path.get(), dict);
  ownedFileName = std::move(path);
}

void TarnOITexture::SetDictionary(tarn::VDictionary* dict) {
  if (dict) tarnoi_searchDict = dict;
}

SoNode* TarnOITexture::copy(SbBool copyConnections) const {
  auto* result = static_cast<TarnOITexture*>(SoTexture2::copy(copyConnections));
  result->SetFileName(fileName, tarnoi_searchDict);
  result->ownedFileName = ownedFileName;
  result->SetDictionary(tarnoi_searchDict);
  return result;
}

void TarnOITexture::search(SoSearchAction* action) {
  if (!TarnOISearchAction::searchLeaf(action, fileName)) SoTexture2::search(action);
}

void TarnOITexture::releaseOwnedFileName() {
  if (!ownedFileName) return;
  // The path may end here: no dictionary may keep it as a key, whichever is passed next.
  if (tarnoi_searchDict && fileName == ownedFileName.get()) tarnoi_searchDict->removeKey(fileName);
  if (fileName == ownedFileName.get()) fileName = nullptr;
  ownedFileName.reset();
}
