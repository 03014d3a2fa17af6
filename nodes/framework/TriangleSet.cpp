#include "nodes/framework/TriangleSet.h"

#include <Inventor/nodes/SoGroup.h>

TriangleSet::TriangleSet(bool textured) {
  if (textured) textureCoordinates = makeNode<SoTextureCoordinate2>();
}

void TriangleSet::append(SoGroup& node, SoNode* texture) const {
  node.addChild(texture);
  node.addChild(textureCoordinates.get());
  node.addChild(normals.get());
  node.addChild(coordinates.get());
  node.addChild(faces.get());
}

void TriangleSet::insert(SoGroup& node, int index) const {
  node.insertChild(normals.get(), index);
  node.insertChild(coordinates.get(), index + 1);
  node.insertChild(faces.get(), index + 2);
}

void TriangleSet::completeCopy(SoGroup& copy) {
  for (int i = 1; i < copy.getNumChildren(); ++i) {
    SoNode* const front = copy.getChild(i - 1);
    const SoNode* const back = copy.getChild(i);
    if (!front->isOfType(SoNormal::getClassTypeId())) continue;
    if (!back->isOfType(SoCoordinate3::getClassTypeId())) continue;
    NormalFill::makeRoomFor(static_cast<SoNormal&>(*front),
                            static_cast<const SoCoordinate3&>(*back).point.getNum());
  }
}

void TriangleSet::fillIndexes(int triangles) {
  const FieldFill indexes(faces->coordIndex, 4 * triangles);
  std::int32_t* index = indexes.values();
  for (int corner = 0; corner < 3 * triangles; corner += 3) {
    *index++ = corner;
    *index++ = corner + 1;
    *index++ = corner + 2;
    *index++ = SO_END_FACE_INDEX;
  }
}
