#include "host/classes/VDictionary.h"

#include "host/classes/VPathString.h"
#include "tests/support/TarnTest.h"

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <random>
#include <vector>

using tarn::VDictionary;

class VDictionaryTest : public TarnTest {
protected:
  VDictionary map;
  int first = 1;
  int second = 2;
};

TEST_F(VDictionaryTest, GivesWhatWasPut) {
  tarn::VObject key;
  map.atKeyPut(&key, &first);
  EXPECT_EQ(map.atKey(&key), &first);
  EXPECT_EQ(map.size(), 1);
}

TEST_F(VDictionaryTest, GivesNullForAnAbsentKey) {
  tarn::VObject key;
  EXPECT_EQ(map.atKey(&key), nullptr);
}

TEST_F(VDictionaryTest, ReplacesTheValueOfAKey) {
  tarn::VObject key;
  map.atKeyPut(&key, &first);
  map.atKeyPut(&key, &second);
  EXPECT_EQ(map.atKey(&key), &second);
  EXPECT_EQ(map.size(), 1);
}

TEST_F(VDictionaryTest, IgnoresANullKey) {
  map.atKeyPut(nullptr, &first);
  map.removeKey(nullptr);
  EXPECT_EQ(map.atKey(nullptr), nullptr);
  EXPECT_EQ(map.size(), 0);
}

TEST_F(VDictionaryTest, KeepsANullValueAsAnEntry) {
  tarn::VObject key;
  map.atKeyPut(&key, nullptr);
  EXPECT_EQ(map.size(), 1);
  EXPECT_EQ(map.atKey(&key), nullptr);
}

TEST_F(VDictionaryTest, RemovesAnEntryOnce) {
  tarn::VObject key;
  map.atKeyPut(&key, &first);
  map.removeKey(&key);
  map.removeKey(&key);
  EXPECT_EQ(map.atKey(&key), nullptr);
  EXPECT_EQ(map.size(), 0);
}

TEST_F(VDictionaryTest, TellsObjectsApartByIdentity) {
  tarn::VObject a;
  tarn::VObject b;
  map.atKeyPut(&a, &first);
  map.atKeyPut(&b, &second);
  EXPECT_EQ(map.atKey(&a), &first);
  EXPECT_EQ(map.atKey(&b), &second);
}

TEST_F(VDictionaryTest, TakesEqualTextsForOneKey) {
  tarn::VPathString path("photos/a.jpg");
  tarn::VPathString same("photos\\a.jpg");
  map.atKeyPut(&path, &first);
  EXPECT_EQ(map.atKey(&same), &first);
  map.removeKey(&same);
  EXPECT_EQ(map.size(), 0);
}

TEST_F(VDictionaryTest, ReplacingByAnEqualKeyKeepsTheNewKeyNotTheOld) {
  auto old = std::make_unique<tarn::VString>("photos/a.jpg");
  tarn::VString fresh("photos/a.jpg");
  map.atKeyPut(old.get(), &first);
  map.atKeyPut(&fresh, &second);
  // An entry that still pointed to the old key would be read after its death.
  old.reset();
  tarn::VString asked("photos/a.jpg");
  EXPECT_EQ(map.atKey(&asked), &second);
  EXPECT_EQ(map.size(), 1);
}

TEST_F(VDictionaryTest, HoldsManyKeysThroughGrowthAndRemoval) {
  constexpr int count = 10000;
  const std::unique_ptr<tarn::VObject[]> keys(new tarn::VObject[count]);
  map.reserve(count / 2);
  for (int i = 0; i < count; ++i) map.atKeyPut(&keys[i], &keys[i]);
  for (int i = 0; i < count; i += 2) map.removeKey(&keys[i]);
  EXPECT_EQ(map.size(), count / 2);
  for (int i = 0; i < count; ++i) {
    ASSERT_EQ(map.atKey(&keys[i]), i % 2 ? &keys[i] : nullptr);
  }
}

namespace {
// A key of a host's own class, whose hash tells little.
struct CrowdedKey : tarn::VObject {
  explicit CrowdedKey(std::uint64_t h) : crowd(h) {}
  std::uint64_t hash() const override { return crowd; }
  std::uint64_t crowd;
};
}  // namespace

TEST_F(VDictionaryTest, KeysOfFewHashesComeAndGoInAnyOrder) {
  std::deque<CrowdedKey> keys;
  for (std::uint64_t i = 0; i < 60; ++i) keys.emplace_back(i % 7);
  std::map<tarn::VObject*, void*> expected;
  std::mt19937 random(3);
  for (int step = 0; step < 5000; ++step) {
    CrowdedKey* key = &keys[random() % keys.size()];
    if (random() % 2 == 0) {
      void* value = random() % 2 == 0 ? &first : &second;
      map.atKeyPut(key, value);
      expected[key] = value;
    } else {
      map.removeKey(key);
      expected.erase(key);
    }
    ASSERT_EQ(map.size(), static_cast<int>(expected.size())) << "step " << step;
    for (CrowdedKey& each : keys) {
      const auto found = expected.find(&each);
      ASSERT_EQ(map.atKey(&each), found == expected.end() ? nullptr : found->second)
          << "step " << step;
    }
  }
}

TEST_F(VDictionaryTest, KeepsItsEntriesWhenRoomIsMade) {
  tarn::VObject key;
  map.reserve(-1);
  map.atKeyPut(&key, &first);
  map.reserve(1000);
  EXPECT_EQ(map.atKey(&key), &first);
  map.reserve(1);
  EXPECT_EQ(map.atKey(&key), &first);
  EXPECT_EQ(map.size(), 1);
}

TEST_F(VDictionaryTest, OperationsAreVirtualSoThatTheyCanBeWatched) {
  tarn::VObject key;
  VDictionary& watched = dictionary;
  watched.atKeyPut(&key, &first);
  watched.removeKey(&key);
  EXPECT_THAT(
      dictionary.takeChanges(),
      ::testing::ElementsAre(
          RecordingDictionary::Change{RecordingDictionary::Change::ePut, &key, &first},
          RecordingDictionary::Change{RecordingDictionary::Change::eRemove, &key, nullptr}));
}
