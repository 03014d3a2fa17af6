#include "nodes/cameras/ImagePlane.h"

#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTextureCoordinate2.h>

#include "nodes/framework/TarnOITexture.h"
#include "tests/nodes/cameras/StationFixture.h"
#include "viewer/Picture.h"

#include <array>
#include <filesystem>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Read = PreferenceRead;

// The image plane as the station's node builds it.
class ImagePlaneTest : public StationFixture {
protected:
  // A photograph of that many pixels, all of one grey.
  std::string writePhotograph(const std::string& name, int width, int height, int grey = 90) {
    Picture picture(width, height);
    picture.bytes.assign(picture.bytes.size(), static_cast<std::uint8_t>(grey));
    const std::string file = folder.file(name);
    picture.writePng(file);
    photograph.SetImageFile(file.c_str());
    return file;
  }

  // The station's node with the image plane and nothing else after the scale.
  SoSeparator* plane() {
    node = built(1, 0);
    return childAs<SoSeparator>(node.get(), 5);
  }
  TarnOITexture* texture() { return childAs<TarnOITexture>(plane(), 1); }

  static bool exists(const std::string& file) { return std::filesystem::exists(file); }

  TemporaryFolder folder;
  NodeRef<OpenStationSeparator> node;
};

TEST_F(ImagePlaneTest, ChildrenAreInTheirOrder) {
  EXPECT_THAT(typesOf(plane()), ElementsAre("Translation", "TarnOITexture", "TextureCoordinate2",
                                            "ShapeHints", "Coordinate3", "IndexedFaceSet"));
}

TEST_F(ImagePlaneTest, StandsFourHundredFocalLengthsAway) {
  EXPECT_EQ(childAs<SoTranslation>(plane(), 0)->translation.getValue(),
            SbVec3f(0.0F, 0.0F, 35.5F * 400.0F));
}

TEST_F(ImagePlaneTest, CornersAreFormedInSinglePrecisionAndHalvedInDouble) {
  const auto* coordinates = childAs<SoCoordinate3>(plane(), 4);
  ASSERT_EQ(coordinates->point.getNum(), 4);
  const float width = static_cast<float>(36.1) * 400.0F;
  const float height = static_cast<float>(24.1) * 400.0F;
  const auto x = static_cast<float>(static_cast<double>(width) / 2.0);
  const auto y = static_cast<float>(static_cast<double>(height) / 2.0);
  EXPECT_EQ(coordinates->point[0], SbVec3f(-x, -y, 0.0F));
  EXPECT_EQ(coordinates->point[1], SbVec3f(x, -y, 0.0F));
  EXPECT_EQ(coordinates->point[2], SbVec3f(x, y, 0.0F));
  EXPECT_EQ(coordinates->point[3], SbVec3f(-x, y, 0.0F));
  // The product in double would be another number.
  EXPECT_NE(width, static_cast<float>(36.1 * 400.0));
}

TEST_F(ImagePlaneTest, PictureIsUpsideDownInTheSymbolsAxes) {
  const auto* coordinates = childAs<SoTextureCoordinate2>(plane(), 2);
  ASSERT_EQ(coordinates->point.getNum(), 4);
  EXPECT_EQ(coordinates->point[0], SbVec2f(0, 1));
  EXPECT_EQ(coordinates->point[1], SbVec2f(1, 1));
  EXPECT_EQ(coordinates->point[2], SbVec2f(1, 0));
  EXPECT_EQ(coordinates->point[3], SbVec2f(0, 0));
  const auto* face = childAs<SoIndexedFaceSet>(childAs<SoSeparator>(node.get(), 5), 5);
  ASSERT_EQ(face->coordIndex.getNum(), 5);
  ASSERT_EQ(face->textureCoordIndex.getNum(), 5);
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(face->coordIndex[i], i < 4 ? i : -1);
    EXPECT_EQ(face->textureCoordIndex[i], i < 4 ? i : -1);
  }
}

TEST_F(ImagePlaneTest, IsLitOnBothSidesUnlessTheStoreSaysOtherwise) {
  const auto* hints = childAs<SoShapeHints>(plane(), 3);
  EXPECT_EQ(hints->shapeType.getValue(), SoShapeHints::UNKNOWN_SHAPE_TYPE);
  EXPECT_EQ(hints->vertexOrdering.getValue(), SoShapeHints::COUNTERCLOCKWISE);
  preferences.Set("ShowDoubleSidedImagePlaneCam", "0", viewerSection);
  hints = childAs<SoShapeHints>(plane(), 3);
  EXPECT_EQ(hints->shapeType.getValue(), SoShapeHints::SOLID);
  EXPECT_EQ(hints->vertexOrdering.getValue(), SoShapeHints::CLOCKWISE);
}

TEST_F(ImagePlaneTest, CameraLineRunsFromTheProjectionCentreToThePlane) {
  plane();
  const auto* line = childAs<SoSeparator>(node.get(), 6);
  EXPECT_THAT(typesOf(line), ElementsAre("PointSet", "Coordinate3", "LineSet"));
  const auto* coordinates = childAs<SoCoordinate3>(line, 1);
  ASSERT_EQ(coordinates->point.getNum(), 2);
  EXPECT_EQ(coordinates->point[0], SbVec3f(0, 0, 0));
  EXPECT_EQ(coordinates->point[1], SbVec3f(0.0F, 0.0F, 14200.0F));
  const auto* lines = childAs<SoLineSet>(line, 2);
  ASSERT_EQ(lines->numVertices.getNum(), 1);
  EXPECT_EQ(lines->numVertices[0], 2);
}

TEST_F(ImagePlaneTest, PreferencesAreReadInTheirOrder) {
  writePhotograph("wall.png", 40, 30);
  plane();
  const std::vector<Read> first = preferences.takeReads();
  EXPECT_THAT(first,
              ElementsAre(Read{Read::eInt, "CamStnImageResampleFactor", "10", viewerSection},
                          Read{Read::eBool, "ShowDoubleSidedImagePlaneCam", "1", viewerSection},
                          Read{Read::eBool, "ShowCamsAsLines", "1", viewerSection}));
  // The factor is asked for only when the copy is made.
  plane();
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(Read{Read::eBool, "ShowDoubleSidedImagePlaneCam", "1", viewerSection},
                          Read{Read::eBool, "ShowCamsAsLines", "1", viewerSection}));
}

TEST_F(ImagePlaneTest, TextureShowsAReducedCopyBesideThePhotograph) {
  const std::string file = writePhotograph("wall.front.png", 58, 39);
  TarnOITexture* shown = texture();
  const std::string copy = folder.file("wall.front.sgi.3dvip");
  EXPECT_TRUE(exists(copy));
  EXPECT_STREQ(shown->filename.getValue().getString(), copy.c_str());
  EXPECT_EQ(shown->GetFileName()->str(), copy);
  EXPECT_EQ(dictionary.atKey(shown->GetFileName()), shown);
  // Integer divisions; an SGI file, which the scene graph reads.
  SbVec2s size;
  int components = 0;
  ASSERT_NE(shown->image.getValue(size, components), nullptr);
  EXPECT_EQ(size, SbVec2s(5, 3));
  const Picture written = Picture::read(copy);
  EXPECT_EQ(written.width, 5);
  EXPECT_EQ(written.height, 3);
  EXPECT_EQ(written.bytes[0], 90);
  EXPECT_TRUE(exists(file));
}

TEST_F(ImagePlaneTest, PixelsOfTheReducedCopyAreMeansOfThePhotographs) {
  // In every square of 10 x 10 pixels two columns are red, three rows green, and one pixel is
  // blue; none of them stands where a single sample would be taken. The left half is dark.
  Picture picture(40, 30);
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 40; ++x) {
      std::uint8_t* pixel = &picture.bytes[static_cast<std::size_t>(y * 40 + x) * 3];
      const int brightness = x < 20 ? 1 : 2;
      pixel[0] = static_cast<std::uint8_t>(x % 10 < 2 ? 100 * brightness : 0);
      pixel[1] = static_cast<std::uint8_t>(y % 10 > 6 ? 120 * brightness : 0);
      pixel[2] = static_cast<std::uint8_t>(x % 10 == 0 && y % 10 == 0 ? 100 * brightness : 0);
    }
  }
  const std::string file = folder.file("pattern.png");
  picture.writePng(file);
  photograph.SetImageFile(file.c_str());
  plane();
  const Picture written = Picture::read(folder.file("pattern.sgi.3dvip"));
  ASSERT_EQ(written.width, 4);
  ASSERT_EQ(written.height, 3);
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 4; ++x) {
      const int brightness = x < 2 ? 1 : 2;
      EXPECT_EQ(written.at(x, y)[0], 20 * brightness) << x << ", " << y;
      EXPECT_EQ(written.at(x, y)[1], 36 * brightness) << x << ", " << y;
      EXPECT_EQ(written.at(x, y)[2], brightness) << x << ", " << y;
    }
  }
}

TEST_F(ImagePlaneTest, CopyIsMadeOnceAndUsedAsItIsWhenThePhotographChanges) {
  writePhotograph("wall.png", 40, 30, 90);
  texture();
  const std::string copy = folder.file("wall.sgi.3dvip");
  const auto written = std::filesystem::last_write_time(copy);
  writePhotograph("wall.png", 80, 60, 200);
  TarnOITexture* shown = texture();
  EXPECT_EQ(std::filesystem::last_write_time(copy), written);
  SbVec2s size;
  int components = 0;
  const unsigned char* pixels = shown->image.getValue(size, components);
  ASSERT_NE(pixels, nullptr);
  EXPECT_EQ(size, SbVec2s(4, 3));
  EXPECT_EQ(pixels[0], 90);
}

TEST_F(ImagePlaneTest, CopyThatIsThereIsUsedWithoutThePhotograph) {
  const std::string file = writePhotograph("wall.png", 40, 30);
  texture();
  std::filesystem::remove(file);
  EXPECT_STREQ(texture()->filename.getValue().getString(), folder.file("wall.sgi.3dvip").c_str());
}

TEST_F(ImagePlaneTest, FactorOfThePreferencesIsUsed) {
  writePhotograph("wall.png", 40, 30);
  preferences.Set("CamStnImageResampleFactor", "4", viewerSection);
  SbVec2s size;
  int components = 0;
  texture()->image.getValue(size, components);
  EXPECT_EQ(size, SbVec2s(10, 7));
}

TEST_F(ImagePlaneTest, PhotographSmallerThanTheFactorIsCopiedAsItIs) {
  writePhotograph("tiny.png", 8, 6);
  SbVec2s size;
  int components = 0;
  texture()->image.getValue(size, components);
  EXPECT_EQ(size, SbVec2s(8, 6));
}

TEST_F(ImagePlaneTest, FactorZeroLeavesTheTextureEmpty) {
  struct Zero : RecordingPreferences {
    int GetPreference(const char*, int, const char*) const override { return 0; }
    using RecordingPreferences::GetPreference;
  } zero;
  tarn::gPref = &zero;
  writePhotograph("wall.png", 40, 30);
  TarnOITexture* shown = texture();
  tarn::gPref = &preferences;
  EXPECT_STREQ(shown->filename.getValue().getString(), "");
  EXPECT_FALSE(exists(folder.file("wall.sgi.3dvip")));
}

TEST_F(ImagePlaneTest, MissingPhotographLeavesTheTextureEmptyWithoutAReport) {
  photograph.SetImageFile(folder.file("missing.jpg").c_str());
  TarnOITexture* shown = texture();
  EXPECT_STREQ(shown->filename.getValue().getString(), "");
  EXPECT_EQ(shown->GetFileName(), nullptr);
  EXPECT_EQ(dictionary.size(), 1);  // the station
  EXPECT_FALSE(exists(folder.file("missing.sgi.3dvip")));
  // Its end is reported no more than its beginning: the fixture sees to that.
  node.reset();
  EXPECT_EQ(dictionary.size(), 0);
}

TEST_F(ImagePlaneTest, MissingPhotographChangesNothingInTheDictionary) {
  photograph.SetImageFile(folder.file("missing.jpg").c_str());
  dictionary.takeChanges();
  texture();
  EXPECT_EQ(dictionary.takeChanges().size(), 1U);  // the station
}

TEST_F(ImagePlaneTest, UnreadablePhotographLeavesTheTextureEmptyWithoutAReport) {
  photograph.SetImageFile(folder.write("broken.jpg", "this is not a picture").c_str());
  EXPECT_STREQ(texture()->filename.getValue().getString(), "");
  EXPECT_FALSE(exists(folder.file("broken.sgi.3dvip")));
}

TEST_F(ImagePlaneTest, StationWithoutPhotographOrWithoutItsPictureHasAnEmptyTexture) {
  EXPECT_STREQ(texture()->filename.getValue().getString(), "");  // no picture
  station.SetPhotograph(nullptr);
  EXPECT_STREQ(texture()->filename.getValue().getString(), "");
}

TEST_F(ImagePlaneTest, TextureOfANodeThatIsGoneLeavesTheDictionary) {
  writePhotograph("wall.png", 40, 30);
  texture();
  EXPECT_EQ(dictionary.size(), 2);
  node.reset();
  EXPECT_EQ(dictionary.size(), 0);
}

TEST_F(ImagePlaneTest, TextureWithoutDictionaryIsReportedAtBothEnds) {
  writePhotograph("wall.png", 40, 30);
  auto unentered = makeNode<OpenStationSeparator>();
  unentered->SetCameraStation(&station, nullptr, scale.get(), 1, 0, nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("searchDict", "TarnOITexture")));
  unentered.reset();
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOITexture")));
}
