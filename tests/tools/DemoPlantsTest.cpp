#include <gtest/gtest.h>

#include <cmath>

#include "commands/DemoPlants.h"

namespace {

// Every point finite, every polygon's corners inside the point list.
void expectSoundMesh(const mv::MeshData& mesh) {
  const uint32_t points = mesh.getPointCount();
  for (const mv::Vector3& p : mesh.points) {
    ASSERT_TRUE(std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z));
  }
  for (const mv::MeshPolygon& q : mesh.polygons) {
    ASSERT_TRUE(q.a < points && q.b < points && q.c < points && q.d < points);
  }
  EXPECT_EQ(mesh.texturePolygons.size(), mesh.polygons.size());
}

size_t materialCount(const mv::MeshData& mesh, int material) {
  size_t count = 0;
  for (const mv::MeshPolygon& q : mesh.polygons) count += q.material == material ? 1 : 0;
  return count;
}

}  // namespace

TEST(DemoPlants, branchShowsATwigAtEveryNodeAndAMarkerAtTheEnd) {
  mv::MeshData mesh;
  const DemoCounts counts = buildDemoBranch(mesh);
  EXPECT_EQ(counts.nodes, 12);
  EXPECT_EQ(counts.ends, 1);
  // The stem: two rows of 16 quads, the marker 8 triangles; each twig grows to the part that
  // its node carries, so it has one or two rows.
  const size_t twigPolygons = mesh.polygons.size() - 32 - 8;
  EXPECT_EQ(twigPolygons % 16, 0u);
  EXPECT_GE(twigPolygons, 12u * 16u);
  EXPECT_LE(twigPolygons, 12u * 2u * 16u);
  double top = 0;
  for (const mv::Vector3& p : mesh.points) top = std::fmax(top, p.z);
  EXPECT_NEAR(top, 2.4 + 0.04, 1e-3);
  EXPECT_EQ(materialCount(mesh, kDemoLeaf),
            8u);  // the marker alone  // the marker's tip, along the end's slight slant
  expectSoundMesh(mesh);
}

TEST(DemoPlants, phyllotaxisShowsAConeAtEveryElement) {
  mv::MeshData mesh;
  const DemoCounts counts = buildDemoPhyllotaxis(mesh);
  EXPECT_EQ(counts.elements, 50);
  EXPECT_EQ(mesh.polygons.size(), 50u * 16u);
  EXPECT_EQ(materialCount(mesh, kDemoLeaf), mesh.polygons.size());
  expectSoundMesh(mesh);
}
