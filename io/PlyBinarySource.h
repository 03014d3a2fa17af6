#pragma once

#include "io/BinaryCursor.h"
#include "io/PlySource.h"

namespace tarn {

/// The data of a binary PLY file, of either byte order.
class PlyBinarySource : public PlySource {
public:
  PlyBinarySource(const std::string& file, std::string_view content, const PlyHeader& header);

  void restart() override { _cursor = _start; }
  void skipElement(const PlyElement& element) override;
  double number(const PlyProperty& property) override;
  std::int64_t length(const PlyProperty& property, std::int64_t smallest) override;
  std::int64_t entry(const PlyProperty& property, std::int64_t smallest,
                     std::int64_t largest) override;
  void skipValue(const PlyProperty& property) override;
  std::optional<std::endian> order() const override { return _order; }
  const char* rows(const PlyElement& element, std::size_t count) override;
  double done() const override { return _cursor.done(); }
  std::string surplus() override;

protected:
  std::uint64_t room(const PlyElement& element) const override;
  void remember() override { _start = _cursor; }

private:
  std::int64_t integer(PlyType type, const char* what, std::int64_t smallest, std::int64_t largest);

  BinaryCursor _cursor;
  BinaryCursor _start;
  std::endian _order;
};

}  // namespace tarn
