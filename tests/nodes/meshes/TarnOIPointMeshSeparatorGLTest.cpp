#include "nodes/meshes/TarnOIPointMeshSeparator.h"

#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "host/classes/VDictionary.h"
#include "host/classes/VOrdCollect.h"
#include "host/model/MatrixDouble.h"
#include "host/model/PointMeshTempSubPoints.h"
#include "host/model/PointMeshTempSubTriangles.h"
#include "host/model/Project.h"
#include "host/model/Triangle.h"
#include "nodes/framework/TarnOITexture.h"
#include "tests/nodes/meshes/OpenMeshNode.h"
#include "tests/support/Baseline.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <array>
#include <cmath>
#include <deque>
#include <vector>

/// Draws a hill of 10 by 10 units with a second, lower top at the right, seen from the front
/// and above: as a cloud without light, or as a mesh lit from the upper left.
class TarnOIPointMeshSeparatorGLTest : public TarnTest {
protected:
  TarnOIPointMeshSeparatorGLTest() {
    auto* camera = new SoOrthographicCamera;
    camera->height = 10.0F;
    camera->orientation.setValue(SbVec3f(1, 0, 0), -0.7F);
    camera->position.setValue(0.0F, 33.2F, 38.2F);
    camera->nearDistance = 1.0F;
    camera->farDistance = 100.0F;
    scene->addChild(camera);
    makePoints();
    preferences.Set("SelectionColor", "255000255", "Colors");
    node->SetSubHighlightColor(255, 0, 255);
  }
  void TearDown() override {
    scene.reset();
    node.reset();
    TarnTest::TearDown();
  }

  static double heightAt(double x, double y) {
    const auto top = [&](double cx, double cy, double height, double width) {
      return height * std::exp(-((x - cx) * (x - cx) + (y - cy) * (y - cy)) / width);
    };
    return top(-1.5, 0.5, 3.0, 5.0) + top(3.0, 1.5, 1.8, 2.0);
  }

  void makePoints() {
    mesh.Allocate(row * row, 1);
    float* xyz = mesh.GetPointStorage().data();
    unsigned char* bgr = mesh.GetColourStorage().data();
    for (int j = 0; j < row; ++j) {
      for (int i = 0; i < row; ++i) {
        const double x = 10.0 * i / cells - 5.0;
        const double y = 10.0 * j / cells - 5.0;
        for (const double value :
             {viewOffset.x + x, viewOffset.y + y, viewOffset.z + heightAt(x, y)}) {
          *xyz++ = static_cast<float>(value);
        }
        // White and green squares, and a red one at the left in front.
        const bool first = i < row / 4 && j < row / 4;
        const bool white = (i * 4 / row + j * 4 / row) % 2 == 0;
        *bgr++ = static_cast<unsigned char>(white && !first ? 230 : 0);
        *bgr++ = static_cast<unsigned char>(first ? 0 : white ? 230 : 140);
        *bgr++ = static_cast<unsigned char>(white || first ? 230 : 0);
      }
    }
    mesh.PointsChanged();
  }

  void makeTriangles(bool withNormals) {
    std::vector<tarn::PointMesh::Corners> triangles;
    std::vector<tarn::Point3DDouble> normals;
    for (int j = 0; j < cells; ++j) {
      for (int i = 0; i < cells; ++i) {
        const int corner = j * row + i;
        triangles.push_back({corner, corner + 1, corner + row + 1});
        triangles.push_back({corner, corner + row + 1, corner + row});
      }
    }
    for (int i = 0; withNormals && i < row * row; ++i) {
      const double x = 10.0 * (i % row) / cells - 5.0;
      const double y = 10.0 * (i / row) / cells - 5.0;
      constexpr double step = 1e-3;
      const tarn::Point3DDouble up((heightAt(x - step, y) - heightAt(x + step, y)) / (2 * step),
                                   (heightAt(x, y - step) - heightAt(x, y + step)) / (2 * step),
                                   1.0);
      normals.push_back(1.0 / up.length() * up);
    }
    ASSERT_TRUE(mesh.SetTriangles(triangles, normals));
  }

  /// As dots of three pixels in their colours.
  void showCloud() {
    auto* light = new SoLightModel;
    light->model = SoLightModel::BASE_COLOR;
    auto* dots = new SoDrawStyle;
    dots->pointSize = 3.0F;
    scene->addChild(light);
    scene->addChild(dots);
    scene->addChild(node.get());
    node->SetPointCloudPointMesh(&mesh, &dictionary);
  }
  void showLit() {
    auto* light = new SoDirectionalLight;
    light->direction.setValue(1.0F, -1.0F, -0.5F);
    scene->addChild(light);
    scene->addChild(node.get());
  }
  void showMesh(bool withNormals) {
    makeTriangles(withNormals);
    showLit();
    node->SetTarnObject(&mesh, &dictionary);
    node->SetTriMeshData(&mesh);
  }
  /// The left half in red and white squares, the right half in blue and yellow ones, each with
  /// a black square at its lower left.
  void showTextured() {
    makeTriangles(true);
    showLit();
    const auto& triangles = *mesh.GetTriangles();
    for (int t = 0; t < triangles.size(); ++t) {
      const bool right = t / 2 % cells >= cells / 2;
      groups[right ? 1 : 0].add(triangles.at(t));
      tarn::PointMesh::Corners corners;
      mesh.GetTriangleCorners(t, corners);
      tarn::MatrixDouble& uv = uvs.emplace_back(3, 2);
      for (int k = 0; k < 3; ++k) {
        const int point = corners[static_cast<std::size_t>(k)];
        uv(k + 1, 1) = 2.0 * (point % row) / cells - (right ? 1.0 : 0.0);
        uv(k + 1, 2) = 1.0 - 1.0 * (point / row) / cells;  // from the back
      }
      uvByTriangle.atKeyPut(triangles.at(t), &uv);
    }
    for (tarn::VOrdCollect& group : groups) allGroups.add(&group);
    const auto first = squares({220, 30, 30}, {240, 240, 240});
    const auto second = squares({40, 60, 220}, {240, 220, 40});
    TarnOITexture* textures[] = {first.get(), second.get()};
    tarn::VOrdCollect* all = &allGroups;
    node->SetTriangulatedPointMeshAndTextures(&mesh, &dictionary, hints.get(), hints.get(),
                                              textures, &all, &uvByTriangle);
  }
  NodeRef<TarnOITexture> squares(const std::array<int, 3>& one, const std::array<int, 3>& other) {
    constexpr short size = 8;
    std::vector<unsigned char> bytes;
    for (int y = 0; y < size; ++y) {
      for (int x = 0; x < size; ++x) {
        const auto& colour = (x / 2 + y) % 2 == 0 ? one : other;
        const bool black = x < 2 && y == 0;
        for (const int byte : colour) bytes.push_back(static_cast<unsigned char>(black ? 0 : byte));
      }
    }
    auto texture = makeNode<TarnOITexture>();
    texture->SetDictionary(&textureDictionary);
    texture->image.setValue(SbVec2s(size, size), 3, bytes.data());
    return texture;
  }

  /// The points within a ring around the higher top.
  tarn::VOrdCollect* ring() {
    for (int i = 0; i < row * row; ++i) {
      const double x = 10.0 * (i % row) / cells - 3.5;
      const double y = 10.0 * (i / row) / cells - 5.5;
      if (std::abs(std::hypot(x, y) - 2.0) < 0.3) indexes.addIndex(i);
    }
    return &indexes;
  }
  /// The triangles of every fourth row of cells, which is 2 cells wide.
  tarn::VOrdCollect* stripes() {
    for (int t = 0; t < 2 * cells * cells; ++t) {
      if (t / (2 * cells) % 8 < 2) indexes.addIndex(t);
    }
    return &indexes;
  }

  void expectPicture(const std::string& name) {
    // Another renderer may draw an edge or a dot one pixel further.
    Baseline::expectMatch(renderer.render(scene.get()), name, {255, 1.0});
  }

  static constexpr int cells = 40;
  static constexpr int row = cells + 1;

  tarn::Project project;
  tarn::PointMesh& mesh = project.AddPointMesh();
  std::array<tarn::VOrdCollect, 2> groups;
  tarn::VOrdCollect allGroups;
  std::deque<tarn::MatrixDouble> uvs;
  tarn::VDictionary uvByTriangle;
  tarn::VDictionary textureDictionary;
  tarn::VOrdCollect indexes;
  NodeRef<SoShapeHints> hints = makeNode<SoShapeHints>();
  OffscreenRenderer renderer{240, 180};
  NodeRef<SoSeparator> scene = makeNode<SoSeparator>();
  NodeRef<OpenMeshNode> node = makeNode<OpenMeshNode>();
};

// --- Clouds

TEST_F(TarnOIPointMeshSeparatorGLTest, ACloudByHeightGoesFromBlueOverGreenAndRedToTheTops) {
  showCloud();
  node->ColorPointsWithTexture(1, 2, &project);
  expectPicture("cloud_by_height");
}

TEST_F(TarnOIPointMeshSeparatorGLTest, ACloudByColourShowsThatOfEachPoint) {
  showCloud();
  node->ColorPointsWithTexture(1, 1, &project);
  expectPicture("cloud_by_colour");
}

TEST_F(TarnOIPointMeshSeparatorGLTest, AHighlightPaintsTheWholeCloudAndNothingAfterwards) {
  showCloud();
  node->ColorPointsWithTexture(1, 1, &project);
  const Picture coloured = renderer.render(scene.get());
  const auto highlight = makeNode<SoMaterial>();
  highlight->diffuseColor.setValue(1.0F, 0.8F, 0.0F);
  node->Highlight(highlight.get(), 1);
  expectPicture("cloud_highlighted");
  node->Highlight(highlight.get(), 0);
  EXPECT_EQ(renderer.render(scene.get()).bytes, coloured.bytes);
}

TEST_F(TarnOIPointMeshSeparatorGLTest, SubPointsAreARingInTheHighlightColour) {
  showCloud();
  node->ColorPointsWithTexture(1, 2, &project);
  const Picture coloured = renderer.render(scene.get());
  node->HighlightSubPoints(ring());
  expectPicture("cloud_sub_points");
  node->ClearSubPointHighlights();
  EXPECT_EQ(renderer.render(scene.get()).bytes, coloured.bytes);
}

TEST_F(TarnOIPointMeshSeparatorGLTest, AHighlightPaintsSubPointsToo) {
  showCloud();
  node->ColorPointsWithTexture(1, 2, &project);
  node->HighlightSubPoints(ring());
  const auto highlight = makeNode<SoMaterial>();
  highlight->diffuseColor.setValue(1.0F, 0.8F, 0.0F);
  node->Highlight(highlight.get(), 1);
  expectPicture("cloud_highlighted");
}

TEST_F(TarnOIPointMeshSeparatorGLTest, AMeshWithALocalAffineIsDrawnAtTheSamePlace) {
  showCloud();
  node->ColorPointsWithTexture(1, 1, &project);
  const Picture expected = renderer.render(scene.get());
  float* xyz = mesh.GetPointStorage().data();
  for (int i = 0; i < 3 * row * row; i += 3) {
    xyz[i] -= 64.0F;
    xyz[i + 2] += 32.0F;
  }
  mesh.PointsChanged();
  tarn::BasicAffine affine;
  affine.SetTranslation({64, 0, -32}, {0, 0, 0});
  mesh.SetLocalAffine(affine);
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->ColorPointsWithTexture(1, 1, &project);
  const Picture moved = renderer.render(scene.get());
  int different = 0;
  for (std::size_t i = 0; i < moved.bytes.size(); ++i)
    different += moved.bytes[i] != expected.bytes[i];
  // Dots on the border of two pixels may fall to the other one.
  EXPECT_LT(different, static_cast<int>(moved.bytes.size() / 50));
}

TEST_F(TarnOIPointMeshSeparatorGLTest, TemporaryPointsAreDrawnByThemselves) {
  showCloud();
  tarn::PointMeshTempSubPoints selection;
  selection.SetSelectedIndexes(ring());
  const auto target = makeNode<SoSeparator>();
  auto* yellow = new SoMaterial;
  yellow->diffuseColor.setValue(1, 1, 0);
  target->addChild(yellow);
  node->AddTempSubPointsSeparator(target.get(), &selection);
  scene->replaceChild(node.get(), target.get());
  expectPicture("cloud_temporary_points");
}

// --- Triangles

TEST_F(TarnOIPointMeshSeparatorGLTest, AMeshWithoutNormalsHasFlatFaces) {
  showMesh(false);
  expectPicture("mesh_without_normals");
}

TEST_F(TarnOIPointMeshSeparatorGLTest, AMeshWithNormalsIsSmooth) {
  showMesh(true);
  expectPicture("mesh_with_normals");
}

TEST_F(TarnOIPointMeshSeparatorGLTest, ATexturedSurfaceShowsBothTexturesTheRightWayUp) {
  showTextured();
  expectPicture("surface_textured");
}

TEST_F(TarnOIPointMeshSeparatorGLTest, SubTrianglesAreStripesInTheSelectionColour) {
  showMesh(true);
  const Picture plain = renderer.render(scene.get());
  node->HighlightSubTriangles(stripes());
  expectPicture("mesh_sub_triangles");
  node->ClearSubTriangleHighlights();
  EXPECT_EQ(renderer.render(scene.get()).bytes, plain.bytes);
}

TEST_F(TarnOIPointMeshSeparatorGLTest, SubTrianglesOfATexturedSurfaceLoseTheTextures) {
  showTextured();
  node->HighlightSubTriangles(stripes());
  expectPicture("mesh_sub_triangles");
}

TEST_F(TarnOIPointMeshSeparatorGLTest, SubTrianglesMayKeepTheTextures) {
  showTextured();
  const Picture plain = renderer.render(scene.get());
  node->HighlightSubTrianglesMultiPhotoTexture(stripes());
  expectPicture("surface_sub_triangles");
  node->ClearSubTriangleHighlights();
  EXPECT_EQ(renderer.render(scene.get()).bytes, plain.bytes);
}

TEST_F(TarnOIPointMeshSeparatorGLTest, TemporaryTrianglesAreTheirCorners) {
  showMesh(true);
  tarn::PointMeshTempSubTriangles selection;
  selection.SetSelectedIndexes(stripes());
  const auto target = makeNode<SoSeparator>();
  auto* light = new SoLightModel;
  light->model = SoLightModel::BASE_COLOR;
  target->addChild(light);
  node->AddTempSubTrianglesSeparator(target.get(), &selection);
  scene->replaceChild(node.get(), target.get());
  expectPicture("mesh_temporary_triangles");
}

TEST_F(TarnOIPointMeshSeparatorGLTest, NormalsThatEndEarlyAreDrawnWithoutHarm) {
  makeTriangles(true);
  for (int t = 100; t < mesh.GetNumTriangles(); ++t) {
    auto* triangle = static_cast<tarn::Triangle*>(mesh.GetTriangles()->at(t));
    for (int k = 0; k < 3; ++k) triangle->SetNormal(k, nullptr);
  }
  showLit();
  node->SetTarnObject(&mesh, &dictionary);
  node->SetTriMeshData(&mesh);
  const Picture picture = renderer.render(scene.get());
  EXPECT_GT(picture.at(120, 159)[0], 50) << "the first row is lit by its normals";
}
