#pragma once

#include <string>

namespace tarn {

/// Where the files of a COLMAP model are.
struct ColmapFolder {
  std::string folder;
  bool binary = false;

  /// The path of a file of the model, by its name without extension.
  std::string file(const char* name) const;
  /// Whether the model has that file, by its name without extension.
  bool has(const char* name) const;

  /// The model in `folder`, or in "sparse", "sparse/0" or "0" in it; the binary form where
  /// both are complete. Returns false when there is none.
  static bool find(const std::string& folder, ColmapFolder& found);
  /// The same; throws ReadError, which names the file that is missing where only some
  /// of a model's three files are there.
  static ColmapFolder require(const std::string& folder);

  /// The folder of the photographs: "images" beside the model folder or beside that
  /// folder's parent, or in the model folder; the first of them when there is none.
  std::string imageFolder() const;
};

}  // namespace tarn
