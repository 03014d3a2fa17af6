#include "host/classes/VString.h"

#include "host/classes/VPathString.h"
#include "tests/support/TarnTest.h"

#include <string>

using tarn::VString;

class VStringTest : public TarnTest {};

TEST_F(VStringTest, NullIsTheEmptyText) {
  const VString null(static_cast<const char*>(nullptr));
  EXPECT_STREQ(null.text(), "");
  EXPECT_TRUE(null.isEmpty());
  EXPECT_EQ(VString().length(), 0);
}

TEST_F(VStringTest, LengthCountsBytes) { EXPECT_EQ(VString("Größe").length(), 7); }

TEST_F(VStringTest, PrintsFillsTheFormat) {
  VString string("before");
  string.prints("T [%ld]:%s: (cpm:%s)", 12L, "A", "P7");
  EXPECT_STREQ(string.text(), "T [12]:A: (cpm:P7)");
}

TEST_F(VStringTest, PrintsTakesItsOwnTextAsArgument) {
  VString string("12");
  string.prints("[%s] and [%s]", string.text(), string.text());
  EXPECT_STREQ(string.text(), "[12] and [12]");
}

TEST_F(VStringTest, PrintsHoldsAnyLength) {
  const std::string longText(100000, 'x');
  VString string;
  string.prints("<%s>", longText.c_str());
  EXPECT_EQ(string.str(), "<" + longText + ">");
}

TEST_F(VStringTest, PrintsOfNothingIsTheEmptyText) {
  VString string("before");
  string.prints("%s", "");
  EXPECT_TRUE(string.isEmpty());
}

TEST_F(VStringTest, EqualTextsAreEqualAndHashAlike) {
  const VString a("Größe 7");
  const VString b(std::string("Größe 7"));
  EXPECT_TRUE(a.isEqual(&b));
  EXPECT_EQ(a.hash(), b.hash());
  const VString other("größe 7");
  EXPECT_FALSE(a.isEqual(&other));
}

TEST_F(VStringTest, APathAndATextOfTheSameCharactersAreEqualBothWays) {
  const VString text("a/b");
  const tarn::VPathString path("a\\b");
  EXPECT_TRUE(text.isEqual(&path));
  EXPECT_TRUE(path.isEqual(&text));
  EXPECT_EQ(text.hash(), path.hash());
}

TEST_F(VStringTest, IsNotEqualToAnObjectOfAnotherKindOrNull) {
  const VString text("");
  const tarn::VObject object;
  EXPECT_FALSE(text.isEqual(&object));
  EXPECT_FALSE(text.isEqual(nullptr));
}

TEST_F(VStringTest, ResourcesSayFromWhereAShapeIsSeen) {
  EXPECT_STREQ(VString::getResource(6398).text(), "outside");
  EXPECT_STREQ(VString::getResource(6441).text(), "inside out");
}

TEST_F(VStringTest, AResourceIsEmptyUntilItIsSet) {
  EXPECT_TRUE(VString::getResource(987654).isEmpty());
  VString::setResource(987654, "Keine Fotos");
  EXPECT_STREQ(VString::getResource(987654).text(), "Keine Fotos");
  VString::setResource(987654, "");
}
