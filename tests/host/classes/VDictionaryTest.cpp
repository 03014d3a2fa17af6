#include "host/classes/VDictionary.h"

#include <memory>
#include <vector>

#include "host/classes/VPathString.h"
#include "tests/support/TarnTest.h"

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
