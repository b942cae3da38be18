#include <gtest/gtest.h>

#include "geometry/MeshData.h"
#include "geometry/OMeshDummy.h"
#include "support/GeometryExpectations.h"

using mv::MeshData;
using mv::MeshPolygon;
using mv::TexturePolygon;
using mv::Vector3;

namespace {

// A unit quad in the xy plane with texture coordinates equal to its corners.
MeshData unitQuad(int material) {
  MeshData mesh;
  uint32_t p = 0, q = 0;
  mesh.allocate(4, 1, p, q);
  const Vector3 corners[4] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  for (uint32_t i = 0; i < 4; ++i) mesh.setPoint(i, corners[i]);
  mesh.setPolygon(0, {0, 1, 2, 3, material});
  mesh.setTexturePolygon(0, {corners[0], corners[1], corners[2], corners[3]});
  return mesh;
}

}  // namespace

TEST(MeshData, emptyMeshIsFalseAndHasNoBoundingBox) {
  MeshData mesh;
  EXPECT_EQ(mesh.truthValue(), 0);
  EXPECT_TRUE(!mesh);
  Vector3 min{7, 7, 7}, max{8, 8, 8};
  EXPECT_FALSE(mesh.getBoundingBox(min, max));
  EXPECT_EQ(min, Vector3(7, 7, 7));
  EXPECT_EQ(max, Vector3(8, 8, 8));
}

TEST(MeshData, boundingBoxOfOnePointIsThatPoint) {
  MeshData mesh;
  mesh.points = {{1, -2, 3}};
  EXPECT_EQ(mesh.truthValue(), -1);
  Vector3 min, max;
  ASSERT_TRUE(mesh.getBoundingBox(min, max));
  EXPECT_EQ(min, Vector3(1, -2, 3));
  EXPECT_EQ(max, Vector3(1, -2, 3));
}

TEST(MeshData, boundingBoxSpansEveryComponent) {
  MeshData mesh;
  mesh.points = {{1, 5, -1}, {-3, 2, 4}, {0, 9, 0}};
  Vector3 min, max;
  ASSERT_TRUE(mesh.getBoundingBox(min, max));
  EXPECT_EQ(min, Vector3(-3, 2, -1));
  EXPECT_EQ(max, Vector3(1, 9, 4));
}

TEST(MeshData, allocateAppendsAndHandsOutFirstIndices) {
  MeshData mesh = unitQuad(-1);
  uint32_t firstPoint = 99, firstPolygon = 99;
  ASSERT_TRUE(mesh.allocate(0, 0, firstPoint, firstPolygon));
  EXPECT_EQ(firstPoint, 4u);
  EXPECT_EQ(firstPolygon, 1u);
  EXPECT_EQ(mesh.getPointCount(), 4u);

  ASSERT_TRUE(mesh.allocate(3, 2, firstPoint, firstPolygon));
  EXPECT_EQ(firstPoint, 4u);
  EXPECT_EQ(firstPolygon, 1u);
  EXPECT_EQ(mesh.getPointCount(), 7u);
  EXPECT_EQ(mesh.getPolygonCount(), 3u);
  EXPECT_EQ(mesh.texturePolygons.size(), 3u);
  EXPECT_EQ(mesh.polygons[2].material, -1);  // new polygons take the defaults
  expectNear(mesh.points[2], {1, 1, 0});     // earlier points survive
}

TEST(MeshData, allocateRefusesIndexOverflow) {
  MeshData mesh = unitQuad(-1);
  uint32_t firstPoint = 0, firstPolygon = 0;
  EXPECT_FALSE(mesh.allocate(0xFFFFFFFFu, 0, firstPoint, firstPolygon));
  EXPECT_EQ(mesh.getPointCount(), 4u);
}

TEST(MeshData, settersRefuseIndicesOutsideTheReservedRange) {
  MeshData mesh = unitQuad(-1);
  EXPECT_FALSE(mesh.setPoint(4, {9, 9, 9}));
  EXPECT_FALSE(mesh.setPolygon(1, {0, 0, 0, 0, 2}));
  EXPECT_FALSE(mesh.setTexturePolygon(1, {}));
  EXPECT_EQ(mesh.getPointCount(), 4u);
  EXPECT_EQ(mesh.getPolygonCount(), 1u);
}

TEST(MeshData, readsPastTheEndGiveNeutralValues) {
  MeshData mesh = unitQuad(3);
  Vector3 point{1, 1, 1};
  mesh.getPoint(4, point);
  EXPECT_EQ(point, Vector3());
  MeshPolygon polygon;
  mesh.getPolygon(1, polygon);
  EXPECT_EQ(polygon, (MeshPolygon{0, 0, 0, 0, -1}));
  TexturePolygon texture{{1, 1, 1}, {1, 1, 1}, {1, 1, 1}, {1, 1, 1}};
  mesh.getTexturePolygon(7, texture);
  EXPECT_EQ(texture, TexturePolygon());
}

TEST(MeshData, resizeTruncatesAllLists) {
  MeshData mesh = unitQuad(0);
  ASSERT_TRUE(mesh.resize(2, 0));
  EXPECT_EQ(mesh.points.size(), 2u);
  EXPECT_TRUE(mesh.polygons.empty());
  EXPECT_TRUE(mesh.texturePolygons.empty());
}

TEST(MeshData, lastSelectionCallForANameWins) {
  MeshData mesh;
  mesh.setSelection("bark", {0, 1, 2});
  mesh.setSelection("bark", {5});
  mesh.setSelection("leaf", {1});
  EXPECT_EQ(mesh.selections.at("bark"), (std::set<uint32_t>{5}));
  EXPECT_EQ(mesh.selections.size(), 2u);
}

TEST(OMesh, addMeshTransformsPointsAndOffsetsCorners) {
  const MeshData source = unitQuad(-1);
  MeshData target = unitQuad(7);
  mv::Matrix4 transform = mv::Matrix4::translation({0, 0, 5});
  transform.rotateZ(M_PI / 2);
  ASSERT_TRUE(target.addMesh(source, transform, -1));
  ASSERT_EQ(target.getPointCount(), 8u);
  expectNear(target.points[5], {0, 1, 5});
  expectNear(target.points[6], {-1, 1, 5});
  EXPECT_EQ(target.polygons[1], (MeshPolygon{4, 5, 6, 7, -1}));  // own material kept
  EXPECT_EQ(target.texturePolygons[1], source.texturePolygons[0]);
  EXPECT_EQ(target.polygons[0].material, 7);
}

TEST(OMesh, addMeshWithMaterialReplacesEveryPolygonsMaterial) {
  MeshData source = unitQuad(4);
  source.setSelection("s", {0});
  MeshData target;
  ASSERT_TRUE(target.addMesh(source, mv::Matrix4(), 0));
  EXPECT_EQ(target.polygons[0].material, 0);
  EXPECT_TRUE(target.selections.empty());  // selections are not carried over
}

TEST(OMeshDummy, acceptsEverythingAndKeepsNothing) {
  mv::OMeshDummy dummy;
  uint32_t firstPoint = 5, firstPolygon = 5;
  EXPECT_TRUE(dummy.allocate(10, 10, firstPoint, firstPolygon));
  EXPECT_EQ(firstPoint, 0u);
  EXPECT_EQ(firstPolygon, 0u);
  EXPECT_TRUE(dummy.setPoint(1000, {}));
  EXPECT_TRUE(dummy.setPolygon(1000, {}));
  EXPECT_TRUE(dummy.addMesh(unitQuad(1), mv::Matrix4(), -1));
  EXPECT_TRUE(dummy.finish());
}
