#include "nodes/framework/TarnOITexture.h"

#include <Inventor/SbVec2s.h>
#include <Inventor/SoPath.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/sensors/SoFieldSensor.h>

#include "host/classes/VPathString.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "tests/support/TarnTest.h"
#include "viewer/Picture.h"

#include <memory>
#include <string>
#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Change = RecordingDictionary::Change;

class TarnOITextureTest : public TarnTest {
protected:
  // An image file of that size.
  std::string image(const std::string& name, int width, int height) {
    Picture(width, height).writePng(folder.file(name));
    return folder.file(name);
  }
  static SbVec2s sizeOf(TarnOITexture& texture) {
    SbVec2s size;
    int components = 0;
    texture.image.getValue(size, components);
    return size;
  }
  static std::vector<SoNode*> foundAll(SoNode* root, TarnOISearchAction& search) {
    search.setInterest(SoSearchAction::ALL);
    search.apply(root);
    std::vector<SoNode*> tails;
    for (int i = 0; i < search.getPaths().getLength(); ++i) {
      tails.push_back(search.getPaths()[i]->getTail());
    }
    return tails;
  }

  TemporaryFolder folder;
  RecordingDictionary otherDictionary;
  tarn::VPathString path{std::string_view(image("a.png", 4, 2))};
  tarn::VPathString second{std::string_view(image("b.png", 8, 4))};
};

TEST_F(TarnOITextureTest, ANewTextureHasNoFile) {
  auto texture = makeNode<TarnOITexture>();
  EXPECT_EQ(texture->GetFileName(), nullptr);
  texture->SetFileName(&path, &dictionary);
}

TEST_F(TarnOITextureTest, SetFileNameEntersItAndReadsTheImage) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, &dictionary);
  EXPECT_EQ(texture->GetFileName(), &path);
  EXPECT_STREQ(texture->filename.getValue().getString(), path.text());
  EXPECT_EQ(sizeOf(*texture), SbVec2s(4, 2));
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::ePut, &path, texture.get()}));
}

TEST_F(TarnOITextureTest, TheSamePathAgainLeavesOneEntry) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, &dictionary);
  dictionary.takeChanges();
  texture->SetFileName(&path, &dictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_EQ(dictionary.size(), 1);
}

TEST_F(TarnOITextureTest, TheFilenameIsSetOnEveryCall) {
  auto texture = makeNode<TarnOITexture>();
  int set = 0;
  SoFieldSensor sensor([](void* data, SoSensor*) { ++*static_cast<int*>(data); }, &set);
  sensor.setPriority(0);
  sensor.attach(&texture->filename);
  texture->SetFileName(&path, &dictionary);
  texture->SetFileName(&path, &dictionary);
  EXPECT_EQ(set, 2);
}

TEST_F(TarnOITextureTest, TheSamePathAgainReadsTheImageAnew) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, &dictionary);
  image("a.png", 16, 8);
  texture->SetFileName(&path, &dictionary);
  EXPECT_EQ(sizeOf(*texture), SbVec2s(16, 8));
}

TEST_F(TarnOITextureTest, AnotherPathRemovesTheOldKeyFromTheDictionaryPassedIn) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, &dictionary);
  dictionary.takeChanges();
  texture->SetFileName(&second, &otherDictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_THAT(otherDictionary.takeChanges(),
              ElementsAre(Change{Change::eRemove, &path, nullptr},
                          Change{Change::ePut, &second, texture.get()}));
  EXPECT_EQ(sizeOf(*texture), SbVec2s(8, 4));
  texture.reset();
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  EXPECT_THAT(otherDictionary.takeChanges(),
              ElementsAre(Change{Change::eRemove, &second, nullptr}));
}

TEST_F(TarnOITextureTest, TheSamePathWithAnotherDictionaryKeepsTheFirst) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, &dictionary);
  dictionary.takeChanges();
  texture->SetFileName(&path, &otherDictionary);
  EXPECT_THAT(otherDictionary.takeChanges(), IsEmpty());
  texture.reset();
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::eRemove, &path, nullptr}));
}

TEST_F(TarnOITextureTest, ANullPathTakesTheEntryAndTheImageAway) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, &dictionary);
  dictionary.takeChanges();
  texture->SetFileName(static_cast<tarn::VPathString*>(nullptr), &otherDictionary);
  EXPECT_EQ(texture->GetFileName(), nullptr);
  EXPECT_EQ(texture->filename.getValue(), SbString(""));
  EXPECT_THAT(otherDictionary.takeChanges(), ElementsAre(Change{Change::eRemove, &path, nullptr}));
}

TEST_F(TarnOITextureTest, TheDictionaryIsRememberedForANullPathToo) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("searchDict", "TarnOITexture")));
  texture->SetFileName(static_cast<tarn::VPathString*>(nullptr), &dictionary);
  // A texture that remembers none would say so now.
  texture.reset();
  EXPECT_THAT(takeAssertions(), IsEmpty());
}

TEST_F(TarnOITextureTest, ANullDictionaryIsReportedAndTheFileReadAllTheSame) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("searchDict", "TarnOITexture")));
  EXPECT_EQ(texture->GetFileName(), &path);
  EXPECT_EQ(sizeOf(*texture), SbVec2s(4, 2));
  texture.reset();
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOITexture")));
}

TEST_F(TarnOITextureTest, DestroyedWithoutAFileNameIsReported) {
  makeNode<TarnOITexture>().reset();
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOITexture")));
}

TEST_F(TarnOITextureTest, DestructionRemovesTheKey) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, &dictionary);
  dictionary.takeChanges();
  texture.reset();
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::eRemove, &path, nullptr}));
}

TEST_F(TarnOITextureTest, ANodeCopyTakesTheEntry) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, &dictionary);
  texture->wrapS.setValue(SoTexture2::CLAMP);
  dictionary.takeChanges();
  const NodeRef<SoNode> copied(texture->copy());
  auto* copy = static_cast<TarnOITexture*>(copied.get());
  EXPECT_EQ(copy->GetFileName(), &path);
  EXPECT_EQ(copy->wrapS.getValue(), SoTexture2::CLAMP);
  EXPECT_EQ(sizeOf(*copy), SbVec2s(4, 2));
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::ePut, &path, copy}));
}

TEST_F(TarnOITextureTest, ANodeCopyOfATextureWithoutAFileIsReported) {
  auto texture = makeNode<TarnOITexture>();
  NodeRef<SoNode> copy(texture->copy());
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("searchDict", "TarnOITexture")));
  copy.reset();
  texture.reset();
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOITexture"),
                                            IsAssertion("tarnoi_searchDict", "TarnOITexture")));
}

TEST_F(TarnOITextureTest, CopyConstructionAndAssignmentTakeTheMembersWithoutAnEntry) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, &dictionary);
  dictionary.takeChanges();
  auto copy = makeNode<TarnOITexture>(*texture);
  EXPECT_EQ(copy->GetFileName(), &path);
  auto assigned = makeNode<TarnOITexture>();
  *assigned = *texture;
  EXPECT_EQ(assigned->GetFileName(), &path);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  copy.reset();
  EXPECT_THAT(dictionary.takeChanges(), ElementsAre(Change{Change::eRemove, &path, nullptr}));
}

TEST_F(TarnOITextureTest, APathOfItsOwnLivesAsLongAsTheTextureAndItsCopies) {
  auto own = std::make_shared<tarn::VPathString>(path.text());
  const std::weak_ptr<tarn::VPathString> watched = own;
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(std::move(own), &dictionary);
  EXPECT_EQ(texture->GetFileName(), watched.lock().get());
  NodeRef<SoNode> copy(texture->copy());
  texture.reset();
  EXPECT_FALSE(watched.expired());
  EXPECT_EQ(static_cast<TarnOITexture*>(copy.get())->GetFileName(), watched.lock().get());
  copy.reset();
  EXPECT_TRUE(watched.expired());
  EXPECT_EQ(dictionary.size(), 0);
}

TEST_F(TarnOITextureTest, AnotherPathOfItsOwnReplacesTheFirstInTheDictionaryBeforeItGoes) {
  auto first = std::make_shared<tarn::VPathString>(path.text());
  const std::weak_ptr<tarn::VPathString> watched = first;
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(std::move(first), &dictionary);
  texture->SetFileName(std::make_shared<tarn::VPathString>(second.text()), &dictionary);
  EXPECT_TRUE(watched.expired());
  EXPECT_EQ(dictionary.size(), 1);
  EXPECT_EQ(dictionary.atKey(&second), texture.get());
}

TEST_F(TarnOITextureTest, ASearchForAPathCollectsTheTexturesThatUseIt) {
  auto root = makeNode<SoSeparator>();
  std::vector<TarnOITexture*> textures;
  for (tarn::VPathString* file : {&path, &second, &path}) {
    textures.push_back(new TarnOITexture);
    textures.back()->SetFileName(file, &dictionary);
    textures.back()->setName("facade");
    root->addChild(textures.back());
  }
  TarnOISearchAction search;
  search.SetTarnObject(&path);
  EXPECT_THAT(foundAll(root.get(), search), ElementsAre(textures[0], textures[2]));

  // By the path alone: neither by name nor by type.
  tarn::VObject nobody;
  TarnOISearchAction byName;
  byName.SetTarnObject(&nobody);
  byName.setName("facade");
  byName.setType(TarnOITexture::getClassTypeId());
  EXPECT_THAT(foundAll(root.get(), byName), IsEmpty());

  SoSearchAction plain;
  plain.setType(TarnOITexture::getClassTypeId());
  plain.setInterest(SoSearchAction::ALL);
  plain.apply(root.get());
  EXPECT_EQ(plain.getPaths().getLength(), 3);
}

TEST_F(TarnOITextureTest, ASearchThatIsAtItsEndAddsNothing) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(&path, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(&path);
  search.apply(texture.get());
  ASSERT_TRUE(search.isFound());
  SoPath* const found = search.getPath();
  texture->search(&search);
  EXPECT_EQ(search.getPath(), found);
}

TEST_F(TarnOITextureTest, OwnedPathLeavesTheDictionaryItWasEnteredIntoBeforeItEnds) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(std::make_shared<tarn::VPathString>(path), &dictionary);
  EXPECT_EQ(dictionary.size(), 1);
  texture->SetFileName(std::make_shared<tarn::VPathString>(second), &otherDictionary);
  EXPECT_EQ(dictionary.size(), 0);
  EXPECT_EQ(otherDictionary.atKey(&second), texture.get());
}

TEST_F(TarnOITextureTest, OwnedPathLeavesTheDictionaryWhenAPathOfTheHostFollows) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(std::make_shared<tarn::VPathString>(path), &dictionary);
  texture->SetFileName(&second, &otherDictionary);
  EXPECT_EQ(dictionary.size(), 0);
  EXPECT_EQ(texture->GetFileName(), &second);
}

TEST_F(TarnOITextureTest, AssignmentTakesAnOwnedPathOutOfItsDictionary) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetFileName(std::make_shared<tarn::VPathString>(path), &dictionary);
  auto other = makeNode<TarnOITexture>();
  other->SetFileName(&second, &otherDictionary);
  *texture = *other;
  EXPECT_EQ(dictionary.size(), 0);
  EXPECT_EQ(texture->GetFileName(), &second);
}

TEST_F(TarnOITextureTest, RememberedDictionaryIsNotEnteredAndSparesTheReport) {
  auto texture = makeNode<TarnOITexture>();
  texture->SetDictionary(&dictionary);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
  const NodeRef<SoNode> copied(texture->copy());
  texture.reset();
}
