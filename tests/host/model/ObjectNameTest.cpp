#include "host/model/ObjectName.h"

#include "tests/support/TarnTest.h"

using tarn::ObjectName;

class ObjectNameTest : public TarnTest {};

TEST_F(ObjectNameTest, GivesItsName) {
  EXPECT_STREQ(ObjectName("Walls").GetName().text(), "Walls");
}

TEST_F(ObjectNameTest, TheDefaultLayerIsCalledDefault) {
  ASSERT_NE(ObjectName::gDefault, nullptr);
  EXPECT_STREQ(ObjectName::gDefault->GetName().text(), "Default");
  EXPECT_STREQ(ObjectName().GetName().text(), "Default");
}

TEST_F(ObjectNameTest, TwoLayersOfOneNameAreTwoKeys) {
  ObjectName a("Walls");
  ObjectName b("Walls");
  int first = 1;
  int second = 2;
  dictionary.atKeyPut(&a, &first);
  dictionary.atKeyPut(&b, &second);
  EXPECT_EQ(dictionary.atKey(&a), &first);
  EXPECT_EQ(dictionary.atKey(&b), &second);
}
