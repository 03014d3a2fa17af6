#pragma once

#include "io/Place.h"
#include "io/PlyHeader.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarn {

/// The data of a PLY file, stepped through element by element, record by record and value by
/// value in the order of the header. What a file does not hold is refused where it is asked for.
class PlySource {
public:
  /// The data of `file`, whose content is `content`, in the form that the header names. None
  /// of the three is copied: they outlive the source.
  static std::unique_ptr<PlySource> of(const std::string& file, std::string_view content,
                                       const PlyHeader& header);
  virtual ~PlySource();

  /// Begins an element: refuses more records than the rest of the file has room for, so that
  /// no file makes a reader ask for more memory than the file's own size accounts for.
  void begin(const PlyElement& element);
  /// Goes back to the first record of the element that was begun last.
  virtual void restart() = 0;
  /// Passes over all records of an element, which was begun.
  virtual void skipElement(const PlyElement& element);

  /// Every record's values are taken between these two.
  virtual void beginRecord() {}
  virtual void endRecord() {}
  /// The value of a property that is no list; infinity and NaN are handed on.
  virtual double number(const PlyProperty& property) = 0;
  /// A list's length, followed by its numbers; each a whole number within the limits.
  virtual std::int64_t length(const PlyProperty& property, std::int64_t smallest) = 0;
  virtual std::int64_t entry(const PlyProperty& property, std::int64_t smallest,
                             std::int64_t largest) = 0;
  /// Passes over a property's value or list.
  virtual void skipValue(const PlyProperty& property) = 0;

  /// The order of the bytes of binary data; none for text.
  virtual std::optional<std::endian> order() const = 0;
  /// Passes over the next `count` records of binary data that have no lists, and returns their
  /// bytes.
  virtual const char* rows(const PlyElement& element, std::size_t count) = 0;

  /// How much of the file was read, 0 to 1.
  virtual double done() const = 0;
  /// Where the file goes on, "line 17" or "byte 612"; empty at its end.
  virtual std::string surplus() = 0;

protected:
  /// The most records of an element that the rest of the file has room for.
  virtual std::uint64_t room(const PlyElement& element) const = 0;
  /// Remembers where the element begins, for restart().
  virtual void remember() = 0;
};

}  // namespace tarn
