#include <gtest/gtest.h>
#include <tiny_gltf.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <set>

#include "ExportSamples.h"
#include "GlbReading.h"
#include "export/FileAxes.h"
#include "export/GlbWriter.h"
#include "support/CapturingMessageHandler.h"
#include "support/TestOutput.h"

namespace {

// Twice the area of all triangles of a primitive.
double twiceArea(const tinygltf::Model& model, const tinygltf::Primitive& primitive) {
  const std::vector<double> positions = accessorValues(model, primitive.attributes.at("POSITION"));
  const std::vector<double> indices = accessorValues(model, primitive.indices);
  double sum = 0.0;
  for (size_t t = 0; t < indices.size(); t += 3) {
    const mv::Vector3 a = at(positions, size_t(indices[t])),
                      b = at(positions, size_t(indices[t + 1])),
                      c = at(positions, size_t(indices[t + 2]));
    sum += (b - a).cross(c - a).length();
  }
  return sum;
}

}  // namespace

TEST(GlbWriter, roundTripGivesOnePrimitivePerMaterialWithItsArea) {
  const mv::MeshData mesh = sampleMesh();
  const std::string path = testOutputPath("sample.glb");
  ASSERT_TRUE(mv::GlbWriter(sampleMaterials()).write(mesh, path));
  writeSampleTexture(testOutputPath("bark.png"));
  const tinygltf::Model model = readGlb(path);

  ASSERT_EQ(model.meshes.size(), 1u);
  const std::vector<tinygltf::Primitive>& primitives = model.meshes[0].primitives;
  ASSERT_EQ(primitives.size(), 3u);  // materials -1, 0, 1
  const std::vector<std::string> names = {"default", "bark", "leaf green"};
  for (size_t k = 0; k < 3; ++k) {
    const tinygltf::Primitive& primitive = primitives[k];
    const int material = static_cast<int>(k) - 1;
    EXPECT_EQ(model.materials[static_cast<size_t>(primitive.material)].name, names[k]);
    EXPECT_EQ(model.accessors[static_cast<size_t>(primitive.indices)].componentType,
              TINYGLTF_COMPONENT_TYPE_UNSIGNED_SHORT);
    double expected = 0.0;
    size_t triangles = 0;
    for (const mv::MeshPolygon& p : mesh.polygons) {
      if (p.material != material) continue;
      expected += twiceArea(mesh, p);
      triangles += p.isTriangle() ? 1 : 2;
    }
    EXPECT_EQ(model.accessors[static_cast<size_t>(primitive.indices)].count, 3 * triangles);
    EXPECT_NEAR(twiceArea(model, primitive), expected, 1e-5 * expected);
  }
  const tinygltf::Material& bark = model.materials[static_cast<size_t>(primitives[1].material)];
  // sRGB 0.4, 0.3, 0.2 in linear light.
  const std::vector<double>& colour = bark.pbrMetallicRoughness.baseColorFactor;
  ASSERT_EQ(colour.size(), 4u);
  EXPECT_NEAR(colour[0], 0.13286832155381798, 1e-15);
  EXPECT_NEAR(colour[1], 0.07323895587840543, 1e-15);
  EXPECT_NEAR(colour[2], 0.033104766570885055, 1e-15);
  EXPECT_EQ(colour[3], 1.0);
  const int texture = bark.pbrMetallicRoughness.baseColorTexture.index;
  ASSERT_GE(texture, 0);
  EXPECT_EQ(model.images[static_cast<size_t>(model.textures[size_t(texture)].source)].uri,
            "bark.png");
}

TEST(GlbWriter, tubeNormalsPointOutwardAndAreUnitLength) {
  const std::string path = testOutputPath("tube.glb");
  ASSERT_TRUE(mv::GlbWriter(sampleMaterials()).write(sampleMesh(), path));
  writeSampleTexture(testOutputPath("bark.png"));
  const tinygltf::Model model = readGlb(path);
  const tinygltf::Primitive& tube = model.meshes[0].primitives[1];
  const std::vector<double> positions = accessorValues(model, tube.attributes.at("POSITION"));
  const std::vector<double> normals = accessorValues(model, tube.attributes.at("NORMAL"));
  ASSERT_EQ(positions.size(), normals.size());
  // Smooth: one vertex per point of the welded tube, and one more per row where u jumps from 1
  // back to 0 at the seam.
  EXPECT_EQ(positions.size(), 3u * 13u * 4u);
  for (size_t v = 0; v < positions.size() / 3; ++v) {
    const mv::Vector3 p = mv::FileAxes::toLibrary(at(positions, v));
    const mv::Vector3 n = mv::FileAxes::toLibrary(at(normals, v));
    EXPECT_NEAR(n.length(), 1.0, 1e-6);
    EXPECT_GT(n.dot(mv::Vector3(p.x, p.y, 0.0).normalized()), 0.95) << "vertex " << v;
  }
}

// A grid of 320 x 320 points: more vertices than 16-bit indices can reach.
TEST(GlbWriter, largePrimitiveUses32BitIndicesThatStillNameTheRightPoints) {
  const int n = 320;
  mv::MeshData mesh;
  {
    std::vector<mv::Vector3> points;
    for (int j = 0; j < n; ++j) {
      for (int i = 0; i < n; ++i) points.emplace_back(i, j, 0.0);
    }
    mv::OPolygonStream stream(&mesh, true);
    mv::GeomPrimitiveWriter::writePatch(stream, n, n, points);
  }
  const std::string path = testOutputPath("large.glb");
  ASSERT_TRUE(mv::GlbWriter().write(mesh, path));
  const tinygltf::Model model = readGlb(path);
  const tinygltf::Primitive& primitive = model.meshes[0].primitives.at(0);
  EXPECT_EQ(model.accessors[static_cast<size_t>(primitive.indices)].componentType,
            TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT);
  const std::vector<double> positions = accessorValues(model, primitive.attributes.at("POSITION"));
  const std::vector<double> indices = accessorValues(model, primitive.indices);
  ASSERT_EQ(positions.size(), 3u * n * n);
  EXPECT_EQ(std::set<double>(indices.begin(), indices.end()).size(), size_t(n) * n);
  // Every triangle is half a unit cell: a wrapped 16-bit index would land rows away.
  for (size_t t = 0; t < indices.size(); t += 3) {
    const mv::Vector3 a = at(positions, size_t(indices[t])),
                      b = at(positions, size_t(indices[t + 1])),
                      c = at(positions, size_t(indices[t + 2]));
    ASSERT_NEAR((b - a).cross(c - a).length(), 1.0, 1e-9) << "triangle " << t / 3;
  }
}

TEST(GlbWriter, emptyMeshIsAValidFileWithoutGeometry) {
  const std::string path = testOutputPath("empty.glb");
  ASSERT_TRUE(mv::GlbWriter().write(mv::MeshData(), path));
  const tinygltf::Model model = readGlb(path);
  EXPECT_TRUE(model.meshes.empty());
  EXPECT_TRUE(model.scenes.empty());
  EXPECT_EQ(model.asset.version, "2.0");
}

TEST(GlbWriter, refusesWhatCannotBeWritten) {
  CapturingMessageHandler capture;
  EXPECT_FALSE(mv::GlbWriter().write(sampleMesh(), "/nonexistent-directory/plant.glb"));
  EXPECT_EQ(capture.errors.back(), "Cannot write /nonexistent-directory/plant.glb");

  mv::MeshData huge = sampleMesh();
  huge.points[3].y = 1e300;
  const std::string path = testOutputPath("refused.glb");
  EXPECT_FALSE(mv::GlbWriter().write(huge, path));
  EXPECT_EQ(capture.errors.back(), "glTF: a point is not a finite single-precision number");
  EXPECT_FALSE(std::filesystem::exists(path));
}

// Two blades of three points and a single point that draws nothing.
mv::LineStrips sampleStrips() {
  mv::LineStrips lines;
  lines.add({{0, 0, 0}, {0, 0, 1}, {0.5, 0, 2}});
  lines.add({{4, 4, 4}});
  lines.add({{1, 2, 0}, {1, 2.5, 1}, {1, 3, 1.5}});
  return lines;
}

TEST(GlbWriter, lineStripsBecomeOneLinePrimitiveAfterTheTriangles) {
  const mv::LineStrips lines = sampleStrips();
  const std::string path = testOutputPath("strips.glb");
  mv::ExportMaterial grass;
  grass.name = "grass";
  ASSERT_TRUE(mv::GlbWriter({grass}).write(sampleMesh(), lines, 0, path));
  writeSampleTexture(testOutputPath("bark.png"));
  const tinygltf::Model model = readGlb(path);
  ASSERT_EQ(model.meshes.at(0).primitives.size(), 4u);
  const tinygltf::Primitive& primitive = model.meshes[0].primitives.back();
  EXPECT_EQ(primitive.mode, TINYGLTF_MODE_LINE);
  EXPECT_EQ(model.materials[size_t(primitive.material)].name, "grass");
  const std::vector<double> positions = accessorValues(model, primitive.attributes.at("POSITION"));
  const std::vector<double> indices = accessorValues(model, primitive.indices);
  EXPECT_EQ(indices, (std::vector<double>{0, 1, 1, 2, 4, 5, 5, 6}));
  ASSERT_EQ(positions.size(), 3 * lines.points.size());
  for (size_t k = 0; k < lines.points.size(); ++k) {
    EXPECT_EQ(mv::FileAxes::toLibrary(at(positions, k)), lines.points[k]) << "point " << k;
  }
}

TEST(GlbWriter, linesAloneMakeAFileAndBadStripsAreRefused) {
  const std::string path = testOutputPath("strips-only.glb");
  ASSERT_TRUE(mv::GlbWriter().write(mv::MeshData(), sampleStrips(), 0, path));
  EXPECT_EQ(readGlb(path).meshes.at(0).primitives.size(), 1u);

  CapturingMessageHandler capture;
  mv::LineStrips short_ = sampleStrips();
  short_.counts.back() = 4;
  EXPECT_FALSE(mv::GlbWriter().write(mv::MeshData(), short_, 0, testOutputPath("bad.glb")));
  EXPECT_EQ(capture.errors.back(), "glTF: the line strips do not add up to their points");
  mv::LineStrips far = sampleStrips();
  far.points[2].x = std::nan("");
  EXPECT_FALSE(mv::GlbWriter().write(mv::MeshData(), far, 0, testOutputPath("bad.glb")));
  EXPECT_EQ(capture.errors.back(), "glTF: a line point is not a finite single-precision number");
  EXPECT_FALSE(std::filesystem::exists(testOutputPath("bad.glb")));
}
