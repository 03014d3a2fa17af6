#include "nodes/TarnOI.h"

#include <Inventor/SbName.h>
#include <Inventor/nodes/SoMarkerSet.h>
#include <Inventor/nodes/SoNode.h>

#include "host/general/DisplayBitmaps.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIMaterial.h"
#include "tests/support/BoundNode.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <cstring>
#include <ostream>
#include <string>
#include <vector>

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::StrEq;

namespace TarnOI {
void PrintTo(const ClassEntry& entry, std::ostream* out) { *out << entry.name; }
}  // namespace TarnOI

namespace {

bool isSearchAction(const TarnOI::ClassEntry& entry) {
  return std::strcmp(entry.name, "TarnOISearchAction") == 0;
}

// Classes that are only derived from, and the action, which is no node.
bool isAbstract(const TarnOI::ClassEntry& entry) {
  const std::string name = entry.name;
  return name == "TarnOISeparator" || name == "SoBackground" || isSearchAction(entry);
}

std::vector<TarnOI::ClassEntry> table() {
  const auto classes = TarnOI::classes();
  return {classes.begin(), classes.end()};
}

}  // namespace

class TarnOITest : public TarnTest {};

TEST_F(TarnOITest, TheFrameworksClassesStandUnderTheirParents) {
  const std::vector<std::pair<const char*, const char*>> expected = {
      {"TarnOISeparator", "SoSeparator"},
      {"TarnOISearchAction", "SoSearchAction"},
      {"TarnOILayerSeparator", "TarnOISeparator"},
      {"TarnOISwitch", "SoSwitch"},
      {"SoSeparatorWithLayerDict", "SoSeparator"},
      {"TarnOIMaterial", "SoMaterial"},
      {"TarnOIMaterialWithPriority", "SoMaterial"},
      {"TarnOIDrawStyle", "SoDrawStyle"},
      {"TarnOITexture", "SoTexture2"},
      {"TarnOIText2", "SoText2"},
      {"TarnOIPerspectiveCamera", "SoPerspectiveCamera"},
      {"TarnOIOrthographicCamera", "SoOrthographicCamera"},
      {"TarnOIOverlaySeparator", "TarnOISeparator"},
      {"SoBackground", "SoNode"},
      {"SoGradientBackground", "SoBackground"}};
  for (const auto& [name, parent] : expected) {
    EXPECT_THAT(table(), Contains(AllOf(Field(&TarnOI::ClassEntry::name, StrEq(name)),
                                        Field(&TarnOI::ClassEntry::parent, StrEq(parent)))));
  }
}

TEST_F(TarnOITest, ParentsComeBeforeTheirChildrenAndNoClassTwice) {
  std::vector<std::string> before;
  for (const TarnOI::ClassEntry& entry : table()) {
    EXPECT_THAT(before, Each(::testing::Ne(entry.name)));
    const bool ours = std::ranges::any_of(table(), [&](const TarnOI::ClassEntry& other) {
      return std::strcmp(other.name, entry.parent) == 0;
    });
    if (ours) {
      EXPECT_THAT(before, Contains(entry.parent));
    }
    before.emplace_back(entry.name);
  }
}

TEST_F(TarnOITest, InitialisingAgainReportsNothingAndEntersNoMarkers) {
  const int markers = SoMarkerSet::getNumDefinedMarkers();
  const int point = tarn::gSymbols.point;
  TarnOI::initClasses();
  EXPECT_EQ(SoMarkerSet::getNumDefinedMarkers(), markers);
  EXPECT_EQ(tarn::gSymbols.point, point);
}

TEST_F(TarnOITest, InitialisingRegistersOnlyWhatIsMissing) {
  const SoType separator = SoType::fromName("TarnOISeparator");
  TarnOIMaterial::CleanUpInitClass();
  TarnOI::initClasses();
  EXPECT_FALSE(TarnOIMaterial::getClassTypeId().isBad());
  EXPECT_EQ(SoType::fromName("TarnOISeparator"), separator);
}

TEST_F(TarnOITest, AnInstanceOfAClassDerivedFromTheUnregisteredSeparatorIsReported) {
  BoundNode::initClass();
  const SoType::instantiationMethod create = BoundNode::getClassTypeId().getInstantiationMethod();
  for (auto entry = TarnOI::classes().rbegin(); entry != TarnOI::classes().rend(); ++entry) {
    if (!isSearchAction(*entry)) entry->cleanUpInitClass();
  }
  NodeRef<SoNode>(static_cast<SoNode*>(create())).reset();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("TarnOISeparator::classTypeId != SoType::badType() && "
                                      "\"you forgot init()!\"",
                                      "TarnOISeparator")));
  BoundNode::CleanUpInitClass();
  NodeRef<SoNode>(static_cast<SoNode*>(create())).reset();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("TarnOISeparator::classTypeId != SoType::badType() && "
                                      "\"you forgot init()!\"",
                                      "TarnOISeparator"),
                          IsAssertion("BoundNode::classTypeId != SoType::badType() && "
                                      "\"you forgot init()!\"",
                                      "BoundNode")));
  TarnOI::initClasses();
}

// ---- each class of the table

class EveryClass : public TarnTest, public ::testing::WithParamInterface<TarnOI::ClassEntry> {
protected:
  // Whatever a test did, the classes are registered for the next.
  void TearDown() override {
    takeIncidental();
    TarnOI::initClasses();
    TarnTest::TearDown();
  }

  // Layers and textures say so when they go without a dictionary; not what is tested here.
  void takeIncidental() {
    for (const Assertion& assertion : takeAssertions()) {
      EXPECT_EQ(assertion.condition, "tarnoi_searchDict");
    }
  }

  const char* name() const { return GetParam().name; }
  SoType type() const { return GetParam().getClassTypeId(); }
  std::string again() const {
    return isSearchAction(GetParam())
               ? "TarnOISearchAction::getClassTypeId() == SoType::badType()"
               : std::string(name()) +
                     "::classTypeId == SoType::badType() && \"don't init() twice!\"";
  }
  // The classes of the table that derive from this one, by way of others too.
  std::vector<TarnOI::ClassEntry> descendants() const {
    std::vector<std::string> names{name()};
    std::vector<TarnOI::ClassEntry> result;
    for (const TarnOI::ClassEntry& entry : table()) {
      if (std::ranges::find(names, entry.parent) == names.end()) continue;
      names.emplace_back(entry.name);
      result.push_back(entry);
    }
    return result;
  }
};

INSTANTIATE_TEST_SUITE_P(TarnOI, EveryClass, ::testing::ValuesIn(table()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(EveryClass, IsRegisteredUnderItsNameAndParent) {
  ASSERT_FALSE(type().isBad());
  EXPECT_STREQ(type().getName().getString(), name());
  EXPECT_EQ(type().getParent(), SoType::fromName(GetParam().parent));
  EXPECT_EQ(SoType::fromName(name()), type());
  EXPECT_STRNE(GetParam().summary, "");
}

TEST_P(EveryClass, IsMadeByItsTypeUnlessItIsAbstract) {
  ASSERT_EQ(static_cast<bool>(type().canCreateInstance()), !isAbstract(GetParam()));
  if (isAbstract(GetParam())) return;
  const NodeRef<SoNode> node(static_cast<SoNode*>(type().createInstance()));
  EXPECT_EQ(node->getTypeId(), type());
  EXPECT_FALSE(node->getIsBuiltIn());
}

TEST_P(EveryClass, HasTheFieldsOfItsParentFirst) {
  if (isAbstract(GetParam())) return;
  const NodeRef<SoNode> node(static_cast<SoNode*>(type().createInstance()));
  SoType parent = type().getParent();
  while (!parent.canCreateInstance()) {
    parent = parent.getParent();
    if (parent == SoNode::getClassTypeId()) return;
  }
  const NodeRef<SoNode> plain(static_cast<SoNode*>(parent.createInstance()));
  SoFieldList fields;
  SoFieldList plainFields;
  node->getFields(fields);
  plain->getFields(plainFields);
  ASSERT_GE(fields.getLength(), plainFields.getLength());
  for (int i = 0; i < plainFields.getLength(); ++i) {
    SbName fieldName;
    SbName plainName;
    ASSERT_TRUE(node->getFieldName(fields[i], fieldName));
    ASSERT_TRUE(plain->getFieldName(plainFields[i], plainName));
    EXPECT_EQ(fieldName, plainName);
    EXPECT_EQ(fields[i]->getContainer(), node.get());
  }
}

TEST_P(EveryClass, ASecondRegistrationIsReportedAndChangesNothing) {
  const SoType before = type();
  const uint16_t methodIndex = isSearchAction(GetParam()) ? 0 : before.getData();
  const int types = SoType::getNumTypes();
  GetParam().initClass();
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion(again(), name())));
  EXPECT_EQ(type(), before);
  EXPECT_EQ(isSearchAction(GetParam()) ? 0 : type().getData(), methodIndex);
  EXPECT_EQ(SoType::fromName(name()), before);
  EXPECT_EQ(SoType::getNumTypes(), types);
}

TEST_P(EveryClass, IsUnregisteredAndRegisteredAgain) {
  for (int round = 0; round < 2; ++round) {
    GetParam().cleanUpInitClass();
    EXPECT_EQ(type(), SoType::badType());
    EXPECT_TRUE(SoType::fromName(name()).isBad());
    GetParam().initClass();
    EXPECT_FALSE(type().isBad());
    EXPECT_EQ(SoType::fromName(name()), type());
    if (!isAbstract(GetParam())) {
      const NodeRef<SoNode> node(static_cast<SoNode*>(type().createInstance()));
      EXPECT_EQ(node->getTypeId(), type());
    }
    takeIncidental();
    // Classes derived from it named a type that is gone.
    for (const TarnOI::ClassEntry& entry : descendants()) {
      entry.cleanUpInitClass();
      entry.initClass();
      EXPECT_EQ(entry.getClassTypeId().getParent(), SoType::fromName(entry.parent));
    }
  }
}

TEST_P(EveryClass, MayBeCleanedUpTwice) {
  for (const TarnOI::ClassEntry& entry : descendants()) entry.cleanUpInitClass();
  GetParam().cleanUpInitClass();
  GetParam().cleanUpInitClass();
  EXPECT_EQ(type(), SoType::badType());
}

TEST_P(EveryClass, TakesAFreshActionMethodIndexEachTime) {
  if (isSearchAction(GetParam()) || !descendants().empty()) return;
  const uint16_t before = type().getData();
  GetParam().cleanUpInitClass();
  GetParam().initClass();
  EXPECT_GT(type().getData(), before);
}

TEST_P(EveryClass, ReportsAParentThatIsNotRegistered) {
  for (const TarnOI::ClassEntry& entry : descendants()) {
    entry.cleanUpInitClass();
  }
  GetParam().cleanUpInitClass();
  for (const TarnOI::ClassEntry& entry : descendants()) {
    if (std::strcmp(entry.parent, name()) != 0) continue;
    entry.initClass();
    EXPECT_THAT(takeAssertions(),
                ElementsAre(IsAssertion(
                    "parentType != SoType::badType() && \"you forgot init() on parentclass!\"",
                    entry.name)));
    EXPECT_EQ(entry.getClassTypeId(), SoType::badType());
  }
}

TEST_P(EveryClass, ReportsAnInstanceMadeBeforeTheRegistration) {
  if (isAbstract(GetParam())) return;
  const SoType::instantiationMethod create = type().getInstantiationMethod();
  for (const TarnOI::ClassEntry& entry : descendants()) entry.cleanUpInitClass();
  GetParam().cleanUpInitClass();
  NodeRef<SoNode> node(static_cast<SoNode*>(create()));
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion(std::string(name()) + "::classTypeId != SoType::badType() && "
                                                            "\"you forgot init()!\"",
                                      name())));
  EXPECT_TRUE(node->getTypeId().isBad());
  node.reset();
  takeIncidental();
  // What the instance left behind does not reach the next registration.
  GetParam().initClass();
  const NodeRef<SoNode> second(static_cast<SoNode*>(type().createInstance()));
  const SoType parent = type().getParent();
  if (!parent.canCreateInstance()) return;
  const NodeRef<SoNode> plain(static_cast<SoNode*>(parent.createInstance()));
  SoFieldList fields;
  SoFieldList plainFields;
  EXPECT_GE(second->getFields(fields), plain->getFields(plainFields));
}
