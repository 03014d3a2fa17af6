#include "nodes/framework/NodeRegistration.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/SoOutput.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/fields/SoSFFloat.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIMaterial.h"
#include "nodes/framework/TarnOISwitch.h"
#include "nodes/framework/TarnOIText2.h"
#include "tests/support/TarnTest.h"

#include <string>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

// A class whose registration can be looked into.
class Registered : public SoSeparator {
public:
  static SoType getClassTypeId() { return registration.type(); }
  static void* createInstance() { return new Registered; }
  static void cleanUp() { registration.cleanUp(); }
  SoType getTypeId() const override { return registration.type(); }
  Registered() { TARNOI_NODE_CONSTRUCTOR(); }

  static const SoFieldData* parentFields() { return *SoSeparator::getFieldDataPtr(); }
  static NodeRegistration registration;

protected:
  static const SoFieldData** getFieldDataPtr() { return registration.getFieldDataPtr(); }
  const SoFieldData* getFieldData() const override { return registration.getFieldData(); }
};

constinit NodeRegistration Registered::registration{"Registered", "SoSeparator",
                                                    [] { return Registered::getFieldDataPtr(); },
                                                    &Registered::createInstance};

}  // namespace

class NodeRegistrationTest : public TarnTest {
protected:
  NodeRegistrationTest() { Registered::registration.init(&Registered::cleanUp); }
  ~NodeRegistrationTest() override { Registered::cleanUp(); }

  static std::string written(SoNode* node) {
    SoOutput output;
    std::string buffer(1 << 16, '\0');
    output.setBuffer(buffer.data(), buffer.size(), nullptr);
    SoWriteAction action(&output);
    action.apply(node);
    void* data = nullptr;
    std::size_t size = 0;
    output.getBuffer(data, size);
    return {static_cast<const char*>(data), size};
  }
  static NodeRef<SoSeparator> read(const std::string& text) {
    SoInput input;
    input.setBuffer(text.data(), text.size());
    return NodeRef<SoSeparator>(SoDB::readAll(&input));
  }
};

TEST_F(NodeRegistrationTest, FieldDataIsMadeByTheFirstInstance) {
  EXPECT_EQ(Registered::registration.getFieldData(), nullptr);
  auto node = makeNode<Registered>();
  const SoFieldData* fields = Registered::registration.getFieldData();
  ASSERT_NE(fields, nullptr);
  EXPECT_EQ(*Registered::registration.getFieldDataPtr(), fields);
  auto second = makeNode<Registered>();
  EXPECT_EQ(Registered::registration.getFieldData(), fields);
}

TEST_F(NodeRegistrationTest, InstancesAreCountedFromTheRegistrationOn) {
  EXPECT_EQ(Registered::registration.getNumInstances(), 0U);
  makeNode<Registered>().reset();
  makeNode<Registered>().reset();
  EXPECT_EQ(Registered::registration.getNumInstances(), 2U);
  Registered::cleanUp();
  EXPECT_EQ(Registered::registration.getNumInstances(), 0U);
  EXPECT_EQ(Registered::registration.getFieldData(), nullptr);
  Registered::registration.init(&Registered::cleanUp);
  EXPECT_EQ(Registered::registration.getNumInstances(), 0U);
}

TEST_F(NodeRegistrationTest, ANodeIsReadByItsName) {
  const auto root = read(
      "TarnOIMaterial { diffuseColor 0.1 0.2 0.3 shininess 0.5 }"
      "TarnOIText2 { string [\"a\", \"b\"] }"
      "TarnOISwitch { whichChild 0 Cube { width 3 } }");
  ASSERT_TRUE(root);
  ASSERT_EQ(root->getNumChildren(), 3);
  ASSERT_EQ(root->getChild(0)->getTypeId(), TarnOIMaterial::getClassTypeId());
  auto* material = static_cast<TarnOIMaterial*>(root->getChild(0));
  EXPECT_EQ(material->diffuseColor[0], SbColor(0.1F, 0.2F, 0.3F));
  EXPECT_EQ(material->shininess[0], 0.5F);
  EXPECT_EQ(material->GetMaterial(), nullptr);
  ASSERT_EQ(root->getChild(1)->getTypeId(), TarnOIText2::getClassTypeId());
  EXPECT_EQ(static_cast<TarnOIText2*>(root->getChild(1))->string.getNum(), 2);
  ASSERT_EQ(root->getChild(2)->getTypeId(), TarnOISwitch::getClassTypeId());
  auto* opened = static_cast<TarnOISwitch*>(root->getChild(2));
  EXPECT_EQ(opened->whichChild.getValue(), 0);
  ASSERT_EQ(opened->getNumChildren(), 1);
  EXPECT_EQ(static_cast<SoCube*>(opened->getChild(0))->width.getValue(), 3.0F);
}

TEST_F(NodeRegistrationTest, ANodeIsWrittenWithItsFieldListAndReadBack) {
  auto root = makeNode<SoSeparator>();
  auto* material = new TarnOIMaterial;
  material->diffuseColor.setValue(0.25F, 0.5F, 0.75F);
  material->transparency.setValue(0.125F);
  root->addChild(material);
  const std::string text = written(root.get());
  EXPECT_THAT(text, HasSubstr("TarnOIMaterial {"));
  // Not built in: other programs learn its fields from the file.
  EXPECT_THAT(text, HasSubstr("fields ["));
  const auto again = read(text);
  ASSERT_TRUE(again);
  ASSERT_EQ(again->getNumChildren(), 1);
  ASSERT_EQ(again->getChild(0)->getTypeId(), TarnOIMaterial::getClassTypeId());
  auto* copy = static_cast<TarnOIMaterial*>(again->getChild(0));
  EXPECT_EQ(copy->diffuseColor[0], SbColor(0.25F, 0.5F, 0.75F));
  EXPECT_EQ(copy->transparency[0], 0.125F);
}

TEST_F(NodeRegistrationTest, AnAbstractClassIsNotRead) {
  const auto root = read("TarnOISeparator { Cube { } }");
  EXPECT_FALSE(root);
  EXPECT_THAT(takeCoinErrors(), ElementsAre(HasSubstr("TarnOISeparator")));
}
