#include "tests/support/RecordingPreferences.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using Read = PreferenceRead;

TEST(RecordingPreferencesTest, TellsWhichKindOfValueWasAskedFor) {
  RecordingPreferences preferences;
  preferences.GetPreference("key", 1, "section");
  preferences.GetPreference("key", 1.0, "section");
  preferences.GetPreference("key", tarn::Colour(1, 20, 255), "section");
  preferences.GetPreference("key", "1", "section");
  preferences.GetBoolPreference("key", 1, nullptr);
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(Read{Read::eInt, "key", "1", "section"},
                          Read{Read::eDouble, "key", "1", "section"},
                          Read{Read::eColour, "key", "001020255", "section"},
                          Read{Read::eText, "key", "1", "section"},
                          Read{Read::eBool, "key", "1", "(null)"}));
  EXPECT_THAT(preferences.takeReads(), ElementsAre());
}
