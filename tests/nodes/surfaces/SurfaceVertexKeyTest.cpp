#include "nodes/surfaces/SurfaceVertexKey.h"

#include "host/model/ObjectName.h"
#include "host/model/ObjectPoint.h"
#include "tests/support/TarnTest.h"

#include <memory>

namespace {

/// An object whose hash is told.
class Hashed : public tarn::VObject {
public:
  explicit Hashed(std::uint64_t hash) : told(hash) {}
  std::uint64_t hash() const override { return told; }
  int isEqual(const tarn::VObject* other) const override { return other->hash() == told; }

private:
  std::uint64_t told;
};

constexpr std::uint64_t topBit = 0x8000000000000000;
constexpr std::uint64_t most = 0xFFFFFFFFFFFFFFFF;

}  // namespace

class SurfaceVertexKeyTest : public TarnTest {
protected:
  static std::uint64_t hashOf(std::uint64_t ownerName, std::uint64_t vertex) {
    Hashed name(ownerName);
    Hashed point(vertex);
    return SurfaceVertexKey(&name, &point).hash();
  }

  tarn::ObjectName wall{"wall"};
  tarn::ObjectName roof{"roof"};
  tarn::ObjectPoint vertex;
  tarn::ObjectPoint equalVertex;
};

TEST_F(SurfaceVertexKeyTest, IsAClassOfTheHostsWithEmptyKeysFromItsFactory) {
  tarn::VClass* record = tarn::VClass::find("SurfaceVertexKey");
  ASSERT_EQ(record, &SurfaceVertexKeyCls);
  EXPECT_EQ(record->parent(), &tarn::VObjectCls);
  const std::unique_ptr<tarn::VObject> made(record->create());
  ASSERT_TRUE(made->isA(SurfaceVertexKeyCls));
  EXPECT_EQ(made->iam(), &SurfaceVertexKeyCls);
  const auto* key = static_cast<SurfaceVertexKey*>(made.get());
  EXPECT_EQ(key->ownerName, nullptr);
  EXPECT_EQ(key->vertex, nullptr);
  EXPECT_EQ(key->hash(), 0U);
}

TEST_F(SurfaceVertexKeyTest, TheHashIsTheSumOfBoth) { EXPECT_EQ(hashOf(12, 30), 42U); }

TEST_F(SurfaceVertexKeyTest, TheTopBitOfTheNamesHashDoesNotCount) {
  EXPECT_EQ(hashOf(topBit + 5, 2), 7U);
  EXPECT_EQ(hashOf(most, 0), most - topBit);
}

TEST_F(SurfaceVertexKeyTest, TheSumIsMaskedAgain) {
  EXPECT_EQ(hashOf(5, topBit + 2), 7U);
  EXPECT_EQ(hashOf(most - topBit, 1), 0U) << "the sum is the top bit alone";
  EXPECT_EQ(hashOf(most, most), most - topBit - 1) << "the sum wraps";
}

TEST_F(SurfaceVertexKeyTest, KeysOfTheSameObjectsAreEqual) {
  const SurfaceVertexKey key(&wall, &vertex);
  const SurfaceVertexKey other(&wall, &vertex);
  EXPECT_TRUE(key.isEqual(&other));
  EXPECT_EQ(key.hash(), other.hash());
}

TEST_F(SurfaceVertexKeyTest, AnotherVertexIsAnotherKeyHoweverEqualItIs) {
  Hashed first(7);
  Hashed second(7);
  ASSERT_TRUE(first.isEqual(&second));
  const SurfaceVertexKey key(&wall, &first);
  const SurfaceVertexKey other(&wall, &second);
  EXPECT_FALSE(key.isEqual(&other));
  const SurfaceVertexKey point(&wall, &vertex);
  const SurfaceVertexKey equalPoint(&wall, &equalVertex);
  EXPECT_FALSE(point.isEqual(&equalPoint));
}

TEST_F(SurfaceVertexKeyTest, AnotherNameIsAnotherKeyHoweverEqualItIs) {
  const SurfaceVertexKey key(&wall, &vertex);
  const SurfaceVertexKey ofOther(&roof, &vertex);
  tarn::ObjectName alsoWall("wall");
  const SurfaceVertexKey ofSameText(&alsoWall, &vertex);
  EXPECT_FALSE(key.isEqual(&ofOther));
  EXPECT_FALSE(key.isEqual(&ofSameText));
}

TEST_F(SurfaceVertexKeyTest, ObjectsOfOtherClassesAndNullAreNotEqual) {
  const SurfaceVertexKey key(&wall, &vertex);
  EXPECT_FALSE(key.isEqual(&vertex));
  EXPECT_FALSE(key.isEqual(&wall));
  EXPECT_FALSE(key.isEqual(nullptr));
}

TEST_F(SurfaceVertexKeyTest, ADictionaryFindsANormalByAnotherKeyOfTheSameObjects) {
  SurfaceVertexKey ofWall(&wall, &vertex);
  SurfaceVertexKey ofRoof(&roof, &vertex);
  tarn::VDictionary normals;
  int wallNormal = 0;
  int roofNormal = 0;
  normals.atKeyPut(&ofWall, &wallNormal);
  normals.atKeyPut(&ofRoof, &roofNormal);
  SurfaceVertexKey sought(&roof, &vertex);
  EXPECT_EQ(normals.atKey(&sought), &roofNormal);
  sought.vertex = &equalVertex;
  EXPECT_EQ(normals.atKey(&sought), nullptr);
}
