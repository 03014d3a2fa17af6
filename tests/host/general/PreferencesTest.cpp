#include "host/general/Preferences.h"

#include "tests/support/TarnTest.h"

#include <clocale>
#include <cmath>
#include <locale>
#include <stdexcept>

using tarn::Colour;
using tarn::Preferences;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PreferencesTest : public TarnTest {
protected:
  /// The store after reading a file of that content, and the file's name.
  Preferences& read(const std::string& content) {
    fileName = folder.write("tarnview.ini", content);
    EXPECT_TRUE(store.Read(fileName.c_str()));
    return store;
  }

  TemporaryFolder folder;
  std::string fileName;
  Preferences store;
};

TEST_F(PreferencesTest, AnEmptyStoreAnswersEveryQuestionWithItsDefault) {
  EXPECT_EQ(store.GetPreference("Key", 7, "Section"), 7);
  EXPECT_EQ(store.GetPreference("Key", 0.25, nullptr), 0.25);
  EXPECT_EQ(store.GetPreference("Key", Colour(1, 2, 3), "Section"), Colour(1, 2, 3));
  EXPECT_STREQ(store.GetPreference("Key", "text", "Section").text(), "text");
  EXPECT_EQ(store.GetBoolPreference("Key", 1, "Section"), 1);
  EXPECT_EQ(store.GetBoolPreference("Key", 0, "Section"), 0);
}

TEST_F(PreferencesTest, TheGlobalStoreIsNeverNull) { ASSERT_NE(tarn::gPref, nullptr); }

TEST_F(PreferencesTest, ReadsSectionsKeysAndEveryKindOfValue) {
  read(
      "; a comment\n"
      "# another\n"
      "ShowUserNameInIDs = no\n"
      "\n"
      "[ProjectViewer(3D_Viewer)]\n"
      "  CamStnImageResampleFactor=4  \n"
      "CSIDOffset = -2.5e-1\n"
      "CameraStationColor(RRRGGGBBB_0-255) = 044043255\n"
      "[ Control ]\n"
      "Title = Two words = one text ; and this too\n");
  EXPECT_EQ(store.GetBoolPreference("ShowUserNameInIDs", 1, nullptr), 0);
  EXPECT_EQ(store.GetPreference("CamStnImageResampleFactor", 10, "ProjectViewer(3D_Viewer)"), 4);
  EXPECT_EQ(store.GetPreference("CSIDOffset", 0.5, "ProjectViewer(3D_Viewer)"), -0.25);
  EXPECT_EQ(store.GetPreference("CameraStationColor(RRRGGGBBB_0-255)", Colour(),
                                "ProjectViewer(3D_Viewer)"),
            Colour(44, 43, 255));
  EXPECT_STREQ(store.GetPreference("Title", "", "Control").text(),
               "Two words = one text ; and this too");
}

TEST_F(PreferencesTest, AKeyIsFoundInItsOwnSectionOnly) {
  read("Key = 1\n[A]\nKey = 2\n[B]\nOther = 3\n");
  EXPECT_EQ(store.GetPreference("Key", 0, nullptr), 1);
  EXPECT_EQ(store.GetPreference("Key", 0, ""), 1);
  EXPECT_EQ(store.GetPreference("Key", 0, "A"), 2);
  EXPECT_EQ(store.GetPreference("Key", 0, "B"), 0);
  EXPECT_EQ(store.GetPreference("key", 0, "A"), 0) << "keys are told apart by case";
}

TEST_F(PreferencesTest, TheLaterValueOfAKeyHolds) {
  read("[A]\nKey = 1\n[B]\n[A]\nKey = 2\n");
  EXPECT_EQ(store.GetPreference("Key", 0, "A"), 2);
  store.Set("Key", "3", "A");
  EXPECT_EQ(store.GetPreference("Key", 0, "A"), 3);
  read("[A]\nKey = 4\n");
  EXPECT_EQ(store.GetPreference("Key", 0, "A"), 4);
}

TEST_F(PreferencesTest, ReadsLineEndsOfEverySystemAndALastLineWithoutOne) {
  read("[A]\r\nKey = 1\r\nOther = 2");
  EXPECT_EQ(store.GetPreference("Key", 0, "A"), 1);
  EXPECT_EQ(store.GetPreference("Other", 0, "A"), 2);
}

TEST_F(PreferencesTest, AByteOrderMarkAtTheStartIsNoPartOfTheFirstLine) {
  read("\xEF\xBB\xBF[A]\nKey = 1\n");
  EXPECT_EQ(store.GetPreference("Key", 0, "A"), 1);
}

TEST_F(PreferencesTest, AnEmptyValueIsATextButNoNumber) {
  read("Text =\nNumber =\n");
  EXPECT_STREQ(store.GetPreference("Text", "default", nullptr).text(), "");
  EXPECT_EQ(store.GetPreference("Number", 5, nullptr), 5);
  EXPECT_THAT(takeWarnings(),
              ElementsAre(fileName + ":2: preference Number: found \"\", expected a whole "
                                     "number; the default is used"));
}

TEST_F(PreferencesTest, YesAndNoHaveFourSpellingsEachInAnyCase) {
  for (const char* yes : {"1", "true", "Yes", "ON"}) {
    store.Set("Key", yes);
    EXPECT_EQ(store.GetBoolPreference("Key", 0, nullptr), 1) << yes;
  }
  for (const char* no : {"0", "FALSE", "no", "Off"}) {
    store.Set("Key", no);
    EXPECT_EQ(store.GetBoolPreference("Key", 1, nullptr), 0) << no;
  }
}

TEST_F(PreferencesTest, AColoursZerosAtTheFrontMayBeMissing) {
  store.Set("Key", "44043043");
  EXPECT_EQ(store.GetPreference("Key", Colour(), nullptr), Colour(44, 43, 43));
  store.Set("Key", "255");
  EXPECT_EQ(store.GetPreference("Key", Colour(), nullptr), Colour(0, 0, 255));
}

TEST_F(PreferencesTest, APlusSignIsPartOfANumber) {
  store.Set("Key", "+5");
  EXPECT_EQ(store.GetPreference("Key", 0, nullptr), 5);
  EXPECT_EQ(store.GetPreference("Key", 0.0, nullptr), 5.0);
}

TEST_F(PreferencesTest, NullKeysAreNowhere) {
  store.Set(nullptr, "1");
  EXPECT_EQ(store.GetPreference(nullptr, 7, nullptr), 7);
}

// Values that cannot be used: the default is used, and the refusal names file and line.

struct BadValue {
  const char* name;
  const char* kind;  ///< int, double, colour or bool
  const char* text;
  const char* expected;
  friend void PrintTo(const BadValue& value, std::ostream* out) { *out << value.text; }
};

class BadValueTest : public PreferencesTest, public ::testing::WithParamInterface<BadValue> {
protected:
  /// Whether asking for a value of that kind gives the default.
  bool givesDefault() const {
    const std::string kind = GetParam().kind;
    if (kind == "int") return store.GetPreference("Key", 7, "A") == 7;
    if (kind == "double") return store.GetPreference("Key", 0.5, "A") == 0.5;
    if (kind == "bool") {
      return store.GetBoolPreference("Key", 1, "A") == 1 &&
             store.GetBoolPreference("Key", 0, "A") == 0;
    }
    return store.GetPreference("Key", Colour(9, 8, 7), "A") == Colour(9, 8, 7);
  }
};

TEST_P(BadValueTest, GivesTheDefaultAndIsRefusedOnceByFileAndLine) {
  read(std::string("[A]\n\nKey = ") + GetParam().text + "\n");
  EXPECT_THAT(takeWarnings(), IsEmpty());
  EXPECT_TRUE(givesDefault());
  EXPECT_TRUE(givesDefault());
  EXPECT_THAT(takeWarnings(),
              ElementsAre(fileName + ":3: preference Key: found \"" + GetParam().text +
                          "\", expected " + GetParam().expected + "; the default is used"));
}

TEST_P(BadValueTest, IsRefusedAgainWhenItIsSetAgainNamingNoFile) {
  store.Set("Key", GetParam().text, "A");
  EXPECT_TRUE(givesDefault());
  EXPECT_TRUE(givesDefault());
  store.Set("Key", GetParam().text, "A");
  EXPECT_TRUE(givesDefault());
  const std::string refusal = std::string("preference Key: found \"") + GetParam().text +
                              "\", expected " + GetParam().expected + "; the default is used";
  EXPECT_THAT(takeWarnings(), ElementsAre(refusal, refusal));
}

constexpr const char* nineDigits = "nine digits RRRGGGBBB, each component 000 to 255";
constexpr const char* yesOrNo = "1 or 0, true or false, yes or no, on or off";
INSTANTIATE_TEST_SUITE_P(
    PreferencesTest, BadValueTest,
    ::testing::Values(BadValue{"IntOfLetters", "int", "ten", "a whole number"},
                      BadValue{"IntWithFraction", "int", "2.5", "a whole number"},
                      BadValue{"IntWithTail", "int", "10px", "a whole number"},
                      BadValue{"IntTooLarge", "int", "99999999999", "a whole number"},
                      BadValue{"IntOfTwoSigns", "int", "+-5", "a whole number"},
                      BadValue{"DoubleOfLetters", "double", "half", "a number"},
                      BadValue{"DoubleWithComma", "double", "0,5", "a number"},
                      BadValue{"DoubleNaN", "double", "nan", "a number"},
                      BadValue{"DoubleInfinite", "double", "inf", "a number"},
                      BadValue{"DoubleTooLarge", "double", "1e999", "a number"},
                      BadValue{"ColourComponentAbove255", "colour", "256000000", nineDigits},
                      BadValue{"ColourOfTenDigits", "colour", "0044043043", nineDigits},
                      BadValue{"ColourOfLetters", "colour", "red", nineDigits},
                      BadValue{"ColourWithSign", "colour", "-44043043", nineDigits},
                      BadValue{"ColourWithCommas", "colour", "44,43,43", nineDigits},
                      BadValue{"ColourHexadecimal", "colour", "#2c2b2b", nineDigits},
                      BadValue{"BoolOfLetters", "bool", "maybe", yesOrNo},
                      BadValue{"BoolOfAnotherNumber", "bool", "2", yesOrNo}),
    [](const auto& info) { return std::string(info.param.name); });

// Values outside the range that makes sense for their key are refused when they are read.

struct OutOfRange {
  const char* name;
  const char* section;
  const char* key;
  const char* text;
  const char* expected;
  friend void PrintTo(const OutOfRange& value, std::ostream* out) {
    *out << value.key << " = " << value.text;
  }
};
class OutOfRangeTest : public PreferencesTest, public ::testing::WithParamInterface<OutOfRange> {};

TEST_P(OutOfRangeTest, IsRefusedWhenItIsReadAndTheDefaultIsUsed) {
  const auto [name, section, key, text, expected] = GetParam();
  store.Set(key, "1", section);  // an earlier value does not come back
  const std::string head = *section ? std::string("[") + section + "]\n" : std::string("\n");
  read(head + key + " = " + text + "\n");
  EXPECT_THAT(takeWarnings(), ElementsAre(fileName + ":2: preference " + key + ": found \"" + text +
                                          "\", expected " + expected + "; the default is used"));
  EXPECT_EQ(store.GetPreference(key, 0.75, section), 0.75);
}

INSTANTIATE_TEST_SUITE_P(
    PreferencesTest, OutOfRangeTest,
    ::testing::Values(OutOfRange{"ResampleFactorZero", "ProjectViewer(3D_Viewer)",
                                 "CamStnImageResampleFactor", "0", "a number from 1 to 1000"},
                      OutOfRange{"ResampleFactorNegative", "ProjectViewer(3D_Viewer)",
                                 "CamStnImageResampleFactor", "-10", "a number from 1 to 1000"},
                      OutOfRange{"ResampleFactorBelowOne", "ProjectViewer(3D_Viewer)",
                                 "CamStnImageResampleFactor", "0.5", "a number from 1 to 1000"},
                      OutOfRange{"ResampleFactorHuge", "ProjectViewer(3D_Viewer)",
                                 "CamStnImageResampleFactor", "1001", "a number from 1 to 1000"},
                      OutOfRange{"SphereSizeNegative", "", "ExagerationSphereSize", "-0.1",
                                 "a number of 0 or more"},
                      OutOfRange{"SphereSizeNaN", "", "ExagerationSphereSize", "nan",
                                 "a number of 0 or more"},
                      OutOfRange{"VertexRadiusNegative", "ShapeViewer", "VertexRadius", "-0.2",
                                 "a number of 0 or more"},
                      OutOfRange{"SymbolColourAboveOne", "CSSymbol", "Body_ambient_R", "29",
                                 "a number from 0 to 1"},
                      OutOfRange{"SymbolColourNegative", "CSSymbol", "Lens_specular_B", "-0.5",
                                 "a number from 0 to 1"},
                      OutOfRange{"GroundMultiplierZero", "GroundPlane", "GroundPlaneMultiplier",
                                 "0", "a number from 0.001 to 1000000"},
                      OutOfRange{"GroundMultiplierNegative", "GroundPlane", "GroundPlaneMultiplier",
                                 "-2", "a number from 0.001 to 1000000"},
                      OutOfRange{"GroundMultiplierHuge", "GroundPlane", "GroundPlaneMultiplier",
                                 "1e7", "a number from 0.001 to 1000000"},
                      OutOfRange{"GroundTransparencyNegative", "Colors", "GroundPlaneTransparency",
                                 "-0.1", "a number from 0 to 1"},
                      OutOfRange{"GroundTransparencyAboveOne", "Colors", "GroundPlaneTransparency",
                                 "50", "a number from 0 to 1"},
                      OutOfRange{"GroundTransparencyTypeNegative", "Colors",
                                 "GroundPlaneTransparencyType", "-1", "a number from 0 to 9"},
                      OutOfRange{"GroundTransparencyTypeUnknown", "Colors",
                                 "GroundPlaneTransparencyType", "10", "a number from 0 to 9"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(PreferencesTest, TheEndsOfARangeBelongToIt) {
  read(
      "ExagerationSphereSize = 0\n"
      "[ProjectViewer(3D_Viewer)]\nCamStnImageResampleFactor = 1\n"
      "[CSSymbol]\nBody_ambient_R = 0\nBody_ambient_G = 1\n"
      "[GroundPlane]\nGroundPlaneMultiplier = 0.001\n"
      "[Colors]\nGroundPlaneTransparency = 1\nGroundPlaneTransparencyType = 9\n");
  EXPECT_EQ(store.GetPreference("ExagerationSphereSize", 1.0, nullptr), 0.0);
  EXPECT_EQ(store.GetPreference("CamStnImageResampleFactor", 10, "ProjectViewer(3D_Viewer)"), 1);
  EXPECT_EQ(store.GetPreference("Body_ambient_R", 0.5, "CSSymbol"), 0.0);
  EXPECT_EQ(store.GetPreference("Body_ambient_G", 0.5, "CSSymbol"), 1.0);
  EXPECT_EQ(store.GetPreference("GroundPlaneMultiplier", 2.0, "GroundPlane"), 0.001);
  EXPECT_EQ(store.GetPreference("GroundPlaneTransparency", 0.5, "Colors"), 1.0);
  EXPECT_EQ(store.GetPreference("GroundPlaneTransparencyType", 5, "Colors"), 9);
}

// Lines of another form.

class BadLineTest : public PreferencesTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadLineTest, IsRefusedByFileAndLineAndSkipped) {
  read(std::string("[A]\nBefore = 1\n") + GetParam() + "\nAfter = 2\n");
  EXPECT_THAT(takeWarnings(), ElementsAre(fileName + ":3: found \"" + GetParam() +
                                          "\", expected [section] or key = value"));
  EXPECT_EQ(store.GetPreference("Before", 0, "A"), 1);
  EXPECT_EQ(store.GetPreference("After", 0, "A"), 2);
}

INSTANTIATE_TEST_SUITE_P(PreferencesTest, BadLineTest,
                         ::testing::Values("a word", "= 5", "[A", "[]", "100%s %n"));

TEST_F(PreferencesTest, AMissingFileIsReported) {
  const std::string missing = folder.file("missing.ini");
  EXPECT_FALSE(store.Read(missing.c_str()));
  EXPECT_THAT(takeWarnings(), ElementsAre(missing + ": the preference file cannot be read"));
}

TEST_F(PreferencesTest, AFolderIsNoPreferenceFile) {
  EXPECT_FALSE(store.Read(folder.path().c_str()));
  EXPECT_THAT(takeWarnings(), ElementsAre(folder.path() + ": the preference file cannot be read"));
}

TEST_F(PreferencesTest, AnEmptyFileIsRead) {
  read("");
  EXPECT_EQ(store.GetPreference("Key", 7, nullptr), 7);
}

TEST_F(PreferencesTest, NumbersAreReadTheSameInALocaleWithDecimalCommas) {
  // Both the C library's locale and that of C++ streams.
  struct CommaPoint : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };
  const std::locale earlier = std::locale::global(std::locale(std::locale(), new CommaPoint));
  const std::string earlierC = std::setlocale(LC_NUMERIC, nullptr);
  for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"}) {
    if (std::setlocale(LC_NUMERIC, name)) break;
  }
  read("Length = 1234.5\nCount = 1234567\n");
  EXPECT_EQ(store.GetPreference("Length", 0.0, nullptr), 1234.5);
  EXPECT_EQ(store.GetPreference("Count", 0, nullptr), 1234567);
  std::setlocale(LC_NUMERIC, earlierC.c_str());
  std::locale::global(earlier);
}
