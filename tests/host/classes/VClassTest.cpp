#include "host/classes/VClass.h"

#include "host/classes/VDictionary.h"
#include "host/classes/VOrdCollect.h"
#include "host/classes/VPathString.h"
#include "host/model/Material.h"
#include "host/model/Project.h"
#include "host/model/SurfacePoint.h"
#include "tests/support/TarnTest.h"

#include <memory>
#include <string>

class VClassTest : public TarnTest {};

TEST_F(VClassTest, FindsARecordByItsName) {
  EXPECT_EQ(tarn::VClass::find("CameraStation"), &tarn::CameraStationCls);
  EXPECT_EQ(tarn::VClass::find("VObject"), &tarn::VObjectCls);
}

TEST_F(VClassTest, FindsNothingForAnUnknownOrNullName) {
  EXPECT_EQ(tarn::VClass::find("cameraStation"), nullptr);
  EXPECT_EQ(tarn::VClass::find(""), nullptr);
  EXPECT_EQ(tarn::VClass::find(nullptr), nullptr);
}

TEST_F(VClassTest, ARecordIsFoundAsLongAsItLives) {
  {
    const tarn::VClass first("FirstOfAPlugin");
    const tarn::VClass second("SecondOfAPlugin", &first);
    EXPECT_EQ(tarn::VClass::find("FirstOfAPlugin"), &first);
    EXPECT_EQ(tarn::VClass::find("SecondOfAPlugin"), &second);
  }
  EXPECT_EQ(tarn::VClass::find("FirstOfAPlugin"), nullptr);
  EXPECT_EQ(tarn::VClass::find("SecondOfAPlugin"), nullptr);
  EXPECT_EQ(tarn::VClass::find("VString"), &tarn::VStringCls);
}

TEST_F(VClassTest, DerivesFromItselfAndItsAncestors) {
  EXPECT_TRUE(tarn::VPathStringCls.isDerivedFrom(tarn::VPathStringCls));
  EXPECT_TRUE(tarn::VPathStringCls.isDerivedFrom(tarn::VStringCls));
  EXPECT_TRUE(tarn::VPathStringCls.isDerivedFrom(tarn::VObjectCls));
  EXPECT_FALSE(tarn::VStringCls.isDerivedFrom(tarn::VPathStringCls));
  EXPECT_FALSE(tarn::VObjectCls.isDerivedFrom(tarn::VStringCls));
}

TEST_F(VClassTest, AClassWithoutFactoryMakesNothing) {
  EXPECT_EQ(tarn::VObjectCls.create(), nullptr);
}

// Every class of the host that can be made by its record.
class VClassFactoryTest : public TarnTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(VClassFactoryTest, MakesAnInstanceOfItsClass) {
  const tarn::VClass* record = tarn::VClass::find(GetParam());
  ASSERT_NE(record, nullptr);
  EXPECT_STREQ(record->name(), GetParam());
  const std::unique_ptr<tarn::VObject> made(record->create());
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->iam(), record);
  EXPECT_TRUE(made->isA(tarn::VObjectCls));
}

INSTANTIATE_TEST_SUITE_P(VClassTest, VClassFactoryTest,
                         ::testing::Values("VString", "VPathString", "VOrdCollect", "VDictionary",
                                           "Project", "Camera", "CameraStation", "Photograph",
                                           "PhotoCollection", "Image", "MarkedPoint", "ThreeDPoint",
                                           "ObjectPoint", "SurfacePoint", "ImportedPoint",
                                           "Material", "ObjectName", "BasicAffine"),
                         [](const auto& info) { return std::string(info.param); });
