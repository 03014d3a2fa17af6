#pragma once

#include "host/model/PointMesh.h"

#include <cstddef>
#include <typeinfo>

/// The three numbers of each of a mesh's points, its row. This library's own meshes keep the rows
/// one after the other: walking along them takes two thirds of the time of following a pointer to
/// each. A host's own class of mesh has the pointers only.
namespace MeshRows {

/// Rows that lie one after the other.
template <typename Number>
struct Stored {
  static constexpr bool areTheLibrarys = true;
  const Number* first;
  const Number* operator()(int point) const {
    return first + 3 * static_cast<std::ptrdiff_t>(point);
  }
};

/// Rows that lie anywhere.
template <typename Number>
struct Pointed {
  static constexpr bool areTheLibrarys = false;
  const Number* const* rows;
  const Number* operator()(int point) const { return rows[point]; }
};

/// Calls `work` with the positions of a mesh that has some: with what gives the row of a point's
/// index, a Stored or a Pointed.
template <typename Work>
void withPositions(tarn::PointMesh& mesh, Work work) {
  if (typeid(mesh) == typeid(tarn::PointMesh)) {
    work(Stored<float>{mesh.GetPointStorage().data()});
  } else {
    work(Pointed<float>{mesh.GetPoints()});
  }
}

/// The same with the colours, of which a row has blue, green and red.
template <typename Work>
void withColours(tarn::PointMesh& mesh, Work work) {
  if (typeid(mesh) == typeid(tarn::PointMesh)) {
    work(Stored<unsigned char>{mesh.GetColourStorage().data()});
  } else {
    work(Pointed<unsigned char>{mesh.GetRGBsForPoints()});
  }
}

}  // namespace MeshRows
