#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "geometry/GeomPrimitiveWriter.h"
#include "geometry/MeshData.h"
#include "geometry/OMeshDummy.h"
#include "geometry/OPolygonStream.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/MeshExpectations.h"

using mv::GeomPrimitiveWriter;
using mv::MeshPolygon;
using mv::TexturePolygon;
using mv::Vector3;

namespace {

// A grid in the x-y plane: column i at x = i, row j at y = j.
std::vector<Vector3> grid(int nu, int nv) {
  std::vector<Vector3> points;
  for (int j = 0; j < nv; ++j) {
    for (int i = 0; i < nu; ++i) points.emplace_back(i, j, 0.0);
  }
  return points;
}

// A tube of radius 1 around +z written the outward-facing way: rows go up, columns run clockwise
// seen from +z. The last column repeats the first, offset by seam (0 closes it exactly).
std::vector<Vector3> tube(int nu, int nv, double seam = 0.0) {
  std::vector<Vector3> points;
  for (int j = 0; j < nv; ++j) {
    for (int i = 0; i < nu; ++i) {
      const double angle = -2.0 * M_PI * i / (nu - 1);
      points.emplace_back(std::cos(angle), std::sin(angle) + (i == nu - 1 ? seam : 0.0), j);
    }
  }
  return points;
}

struct PatchCase {
  std::string name;
  int nu, nv, order;
  std::vector<Vector3> points;
  bool weld;
  uint32_t pointCount, polygonCount;
  bool wraps;
};

// Corners of a concave outline (an arrow head), counter-clockwise in the x-y plane.
std::vector<Vector3> arrowHead() { return {{0, 0, 0}, {4, 2, 0}, {0, 4, 0}, {1, 2, 0}}; }

// A mesh whose allocate always fails.
class FullMesh : public mv::OMeshDummy {
 public:
  bool allocate(uint32_t, uint32_t, uint32_t&, uint32_t&) override { return false; }
};

}  // namespace

TEST(PolygonStream, patchCountsFollowOrderAndSeam) {
  const std::vector<PatchCase> cases = {
      {"open 5 x 4", 5, 4, 2, grid(5, 4), true, 20, 12, false},
      {"2 x 2", 2, 2, 2, grid(2, 2), true, 4, 1, false},
      {"closed tube", 9, 3, 2, tube(9, 3), true, 24, 16, true},
      {"tube seam just open", 9, 3, 2, tube(9, 3, 1.01e-6), true, 27, 16, false},
      {"tube seam within limit", 9, 3, 2, tube(9, 3, 0.99e-6), true, 24, 16, true},
      {"tube without welding", 9, 3, 2, tube(9, 3), false, 27, 16, false},
      {"order 3", 6, 5, 3, grid(6, 5), true, 30, 12, false},
      {"order 4", 6, 5, 4, grid(6, 5), true, 30, 6, false},
      {"order above the count", 3, 3, 4, grid(3, 3), true, 9, 0, false},
      {"single row", 4, 1, 2, grid(4, 1), true, 4, 0, false},
  };
  for (const PatchCase& c : cases) {
    SCOPED_TRACE(c.name);
    mv::MeshData mesh;
    {
      mv::OPolygonStream stream(&mesh, c.weld);
      GeomPrimitiveWriter::writePatch(stream, c.nu, c.nv, c.points, {}, c.order);
    }
    EXPECT_EQ(mesh.getPointCount(), c.pointCount);
    EXPECT_EQ(mesh.getPolygonCount(), c.polygonCount);
    expectWellFormedMesh(mesh);
    if (c.polygonCount == 0) continue;
    const MeshPolygon& last = mesh.polygons[static_cast<size_t>(c.nu) - c.order];  // row 0
    EXPECT_EQ(last.b == mesh.polygons[0].a, c.wraps);
  }
}

TEST(PolygonStream, quadCornersRunTopRowFirst) {
  mv::MeshData mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    GeomPrimitiveWriter::writePatch(stream, 3, 2, grid(3, 2));
  }
  ASSERT_EQ(mesh.polygons.size(), 2u);
  EXPECT_EQ(mesh.polygons[0], (MeshPolygon{3, 4, 1, 0, -1}));
  EXPECT_EQ(mesh.polygons[1], (MeshPolygon{4, 5, 2, 1, -1}));
  // Without a texture list the grid gives u along the columns, v along the rows.
  EXPECT_EQ(mesh.texturePolygons[1],
            (TexturePolygon{{0.5, 1, 0}, {1, 1, 0}, {1, 0, 0}, {0.5, 0, 0}}));
}

TEST(PolygonStream, closedTubeFacesOutwardAndWraps) {
  mv::MeshData mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    GeomPrimitiveWriter::writePatch(stream, 17, 4, tube(17, 4));
  }
  ASSERT_EQ(mesh.getPolygonCount(), 16u * 3u);
  for (const MeshPolygon& polygon : mesh.polygons) {
    const Vector3 centre = polygonCentroid(mesh, polygon);
    const Vector3 outward(centre.x, centre.y, 0.0);
    EXPECT_GT(polygonNormal(mesh, polygon).normalized().dot(outward.normalized()), 0.9);
  }
  EXPECT_EQ(mesh.polygons[15], (MeshPolygon{16 + 15, 16, 0, 15, -1}));
}

TEST(PolygonStream, textureValuesLandPerCornerFromTheUnweldedGrid) {
  const int nu = 5, nv = 2;
  std::vector<double> texture;
  for (int j = 0; j < nv; ++j) {
    for (int i = 0; i < nu; ++i) texture.insert(texture.end(), {0.25 * i, 1.0 - j});
  }
  mv::MeshData mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    GeomPrimitiveWriter::writePatch(stream, nu, nv, tube(nu, nv), texture);
  }
  ASSERT_EQ(mesh.getPointCount(), 8u);
  ASSERT_EQ(mesh.getPolygonCount(), 4u);
  // The wrapped quad shares the seam's points but keeps the left-out column's u of 1.
  EXPECT_EQ(mesh.polygons[3], (MeshPolygon{7, 4, 0, 3, -1}));
  EXPECT_EQ(mesh.texturePolygons[3],
            (TexturePolygon{{0.75, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0.75, 1, 0}}));

  texture.pop_back();  // the wrong length: the grid's own coordinates instead
  mv::MeshData gridMesh;
  {
    mv::OPolygonStream stream(&gridMesh, true);
    GeomPrimitiveWriter::writePatch(stream, nu, nv, tube(nu, nv), texture);
  }
  EXPECT_EQ(gridMesh.texturePolygons[3],
            (TexturePolygon{{0.75, 1, 0}, {1, 1, 0}, {1, 0, 0}, {0.75, 0, 0}}));
}

TEST(PolygonStream, intsInATextureListAreNotTextureValues) {
  mv::MeshData mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    stream << mv::CmdPolygon << 1 << '[' << 3 << ']';
    stream.param(mv::ParamPoints) << '[' << Vector3(0, 0, 0) << Vector3(1, 0, 0) << Vector3(0, 1, 0)
                                  << ']';
    stream.param(mv::ParamTexture) << '[' << 0.0 << 0.0 << 7 << 1.0 << 0.0 << 0.0 << 1.0 << ']';
  }
  ASSERT_EQ(mesh.getPolygonCount(), 1u);
  EXPECT_EQ(mesh.texturePolygons[0], (TexturePolygon{{0, 1, 0}, {0, 0, 0}, {1, 0, 0}, {1, 0, 0}}));
}

TEST(PolygonStream, groupTransformAndMaterialApplyToThePrimitiveBeforeGroupEnd) {
  mv::MeshData mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    stream << mv::CmdGroupBegin << mv::CmdTransform << mv::Matrix4::translation({10, 0, 0});
    stream << mv::CmdTransform << mv::Matrix4::scaling({1, 1, 2}) << mv::CmdMaterialIndex << 3;
    GeomPrimitiveWriter::writePatch(stream, 2, 2, {{0, 0, 1}, {1, 0, 1}, {0, 1, 1}, {1, 1, 1}});
    stream << mv::CmdGroupEnd;
    GeomPrimitiveWriter::writePatch(stream, 2, 2, grid(2, 2));
  }
  ASSERT_EQ(mesh.getPointCount(), 8u);
  expectNear(mesh.points[3], {11, 1, 2});  // translated first, then scaled
  expectNear(mesh.points[7], {1, 1, 0});
  EXPECT_EQ(mesh.polygons[0].material, 3);
  EXPECT_EQ(mesh.polygons[1], (MeshPolygon{6, 7, 5, 4, -1}));
}

TEST(PolygonStream, fourDoublePointsDropTheFourthValue) {
  mv::MeshData mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    stream << mv::CmdPatch << 2 << 2 << '[' << 0.0 << 0.0 << 1.0 << 1.0 << ']' << 0.0 << 1.0;
    stream << 2 << 2 << '[' << 0.0 << 0.0 << 1.0 << 1.0 << ']' << 0.0 << 1.0;
    stream.param(mv::ParamPoints) << '[';
    for (int k = 0; k < 4; ++k) stream << mv::GeomPoint4{double(k), 2.0, 4.0, 2.0};
    stream << mv::GeomNormal{9, 9, 9} << ']';
  }
  ASSERT_EQ(mesh.getPointCount(), 4u);
  expectNear(mesh.points[3], {3, 2, 4});
}

TEST(PolygonStream, outlineBecomesTrianglesInItsSelection) {
  const std::vector<double> texture = {0, 0, 1, 0.5, 0, 1, 0.25, 0.5};
  mv::MeshData mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    GeomPrimitiveWriter::writePatch(stream, 2, 2, grid(2, 2));  // points 0 to 3, polygon 0
    stream << mv::CmdGroupBegin << mv::CmdAttribute;
    stream.param(mv::ParamSelection) << std::string("C1");
    stream << mv::CmdMaterialIndex << 2 << mv::CmdTransform << mv::Matrix4::translation({0, 0, 5});
    GeomPrimitiveWriter::writeOutline(stream, arrowHead(), texture);
    stream << mv::CmdGroupEnd;
    GeomPrimitiveWriter::writeOutline(stream, arrowHead());  // outside the group
  }
  ASSERT_EQ(mesh.getPointCount(), 12u);
  ASSERT_EQ(mesh.getPolygonCount(), 5u);
  expectWellFormedMesh(mesh);
  EXPECT_EQ(mesh.selections.size(), 1u);
  EXPECT_EQ(mesh.selections["C1"], (std::set<uint32_t>{1, 2}));
  double area = 0.0;
  for (uint32_t k = 1; k <= 2; ++k) {
    const MeshPolygon& triangle = mesh.polygons[k];
    EXPECT_TRUE(triangle.isTriangle());
    EXPECT_EQ(triangle.material, 2);
    EXPECT_GE(triangle.a, 4u);
    EXPECT_LT(triangle.a, 8u);
    EXPECT_GT(polygonNormal(mesh, triangle).z, 0.0);  // turns as the outline does
    area += 0.5 * polygonNormal(mesh, triangle).z;
    // Each corner's texture value is the one given for its point; d repeats c.
    const TexturePolygon& uv = mesh.texturePolygons[k];
    EXPECT_EQ(uv.a, Vector3(texture[2 * (triangle.a - 4)], texture[2 * (triangle.a - 4) + 1], 0));
    EXPECT_EQ(uv.c, Vector3(texture[2 * (triangle.c - 4)], texture[2 * (triangle.c - 4) + 1], 0));
    EXPECT_EQ(uv.d, uv.c);
  }
  EXPECT_NEAR(area, outlineArea(arrowHead()), 1e-12);
  expectNear(mesh.points[4], {0, 0, 5});
  EXPECT_EQ(mesh.polygons[3].material, -1);
  expectNear(mesh.points[8], {0, 0, 0});
}

TEST(PolygonStream, rejectedPrimitivesWriteNothingAndLeaveNothingBehind) {
  CapturingMessageHandler capture;
  mv::MeshData mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    GeomPrimitiveWriter::writePatch(stream, 3, 3, grid(3, 2));  // one row short
    stream << mv::CmdPolygon << 1 << '[' << 5 << ']';           // count without its points
    stream.param(mv::ParamPoints) << '[' << Vector3(0, 0, 0) << ']';
    GeomPrimitiveWriter::writeOutline(stream, {{0, 0, 0}, {1, 1, 1}, {2, 2, 2}});  // no area
    stream << mv::CmdPolygon << 2 << '[' << 3 << ']';  // two outlines declared, one given
    stream.param(mv::ParamPoints) << '[' << Vector3(0, 0, 0) << Vector3(1, 0, 0) << Vector3(0, 1, 0)
                                  << ']';
    GeomPrimitiveWriter::writeQuadMesh(stream, {0, 1, 2, 4}, grid(2, 2), std::vector<double>(8));
    GeomPrimitiveWriter::writePatch(stream, 2, 2, grid(2, 2));  // a good one after them
  }
  EXPECT_EQ(mesh.getPointCount(), 4u);
  EXPECT_EQ(mesh.getPolygonCount(), 1u);
  ASSERT_EQ(capture.errors.size(), 3u);
  EXPECT_EQ(capture.errors[0], "Wrong Number of Parameters supplied! Patch Data may be invalid.");
  EXPECT_EQ(capture.errors[1], "Triangulation: Probable Bad Polygon! 0");
  EXPECT_EQ(capture.errors[2], "PolygonStream: point index out of range");
  EXPECT_EQ(capture.debugs,
            (std::vector<std::string>{"Triangulation Error", "(0, 0, 0)", "(1, 1, 1)", "(2, 2, 2)",
                                      "PolygonStream: Polygons 1 Points 4"}));
}

TEST(PolygonStream, quadMeshKeepsItsIndicesAfterEarlierPoints) {
  CapturingMessageHandler capture;
  const std::vector<double> texture = {0, 0, 1, 0, 1, 1, 0, 1, 0.5, 0.5, 1, 0.5, 0.75, 0.75, 0, 0};
  mv::MeshData mesh;
  {
    mv::OPolygonStream stream(&mesh, true);
    GeomPrimitiveWriter::writePatch(stream, 2, 2, grid(2, 2));
    stream << mv::CmdMaterialIndex << 4;
    GeomPrimitiveWriter::writeQuadMesh(stream, {0, 1, 4, 3, 1, 2, 4, 4}, grid(3, 2), texture);
  }
  ASSERT_EQ(mesh.getPointCount(), 10u);
  ASSERT_EQ(mesh.getPolygonCount(), 3u);
  EXPECT_EQ(mesh.polygons[1], (MeshPolygon{4, 5, 8, 7, 4}));
  EXPECT_EQ(mesh.polygons[2], (MeshPolygon{5, 6, 8, 8, 4}));  // a triangle stays one
  EXPECT_EQ(mesh.texturePolygons[2],
            (TexturePolygon{{0.5, 0.5, 0}, {1, 0.5, 0}, {0.75, 0.75, 0}, {0, 0, 0}}));
  EXPECT_EQ(capture.debugs, (std::vector<std::string>{"PolygonStream: Polygons 2 Points 6"}));
}

TEST(PolygonStream, failedAllocationIsReportedAndDummyMeshKeepsNothing) {
  CapturingMessageHandler capture;
  FullMesh full;
  {
    mv::OPolygonStream stream(&full, true);
    GeomPrimitiveWriter::writePatch(stream, 2, 2, grid(2, 2));
    GeomPrimitiveWriter::writeOutline(stream, arrowHead());
    EXPECT_FALSE(stream.flush());
  }
  EXPECT_EQ(capture.errors, (std::vector<std::string>(2, "Memory Allocation failed!")));

  mv::OMeshDummy dummy;
  mv::OPolygonStream stream(&dummy, true);
  GeomPrimitiveWriter::writePatch(stream, 3, 3, grid(3, 3));
  EXPECT_TRUE(stream.flush());
  EXPECT_TRUE(stream.flush());  // nothing left to write
}
