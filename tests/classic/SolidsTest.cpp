// The primitives of scene files: their grids of points, their defaults and their inside tests.
#include <gtest/gtest.h>

#include <cmath>

#include "classic/AttractorPrim.h"
#include "classic/Box.h"
#include "classic/Disk.h"
#include "classic/Plane.h"
#include "classic/SolidCone.h"
#include "classic/SolidCylinder.h"
#include "classic/SolidParameters.h"
#include "classic/Sphere.h"
#include "core/ChildRole.h"
#include "curves/ParameterSetData.h"
#include "geometry/OPolygonStream.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/MeshExpectations.h"
#include "support/PatchRecorder.h"

using namespace mv;

namespace {

struct Evaluated {
  int result = 0;
  PlacementList placements;
  PatchRecorder stream;
};

void evaluatePrimitive(Simple& primitive, ParameterSetData& params, Evaluated& out,
                       int roleMask = RoleOther) {
  out.result = primitive.evaluate(params, out.stream, roleMask, out.placements, 1.0);
}

ParameterSetData defaultsOf(Simple& primitive, double size = 1.0) {
  ParameterSetData params;
  primitive.initParameters(params, size);
  return params;
}

}  // namespace

TEST(Solids, defaultsFollowTheSize) {
  Sphere sphere;
  SolidCone cone;
  SolidCylinder cylinder;
  Plane plane;
  Box box;
  ParameterSetData s = defaultsOf(sphere, 3.0), c = defaultsOf(cone, 3.0),
                   y = defaultsOf(cylinder, 3.0), p = defaultsOf(plane, 3.0),
                   b = defaultsOf(box, 3.0);
  EXPECT_EQ(s.getInt(IdSlices), 4);
  EXPECT_EQ(s.getInt(IdStacks), 4);
  EXPECT_DOUBLE_EQ(s.getDouble(IdSphereRadius), 1.5);
  EXPECT_DOUBLE_EQ(c.getDouble(IdConeRadius), 1.5);
  EXPECT_DOUBLE_EQ(c.getDouble(IdConeHeight), 3.0);
  EXPECT_EQ(y.getInt(IdSlices), 8);
  EXPECT_DOUBLE_EQ(y.getDouble(IdCylinderRadius), 1.5);
  EXPECT_DOUBLE_EQ(y.getDouble(IdCylinderHeight), 3.0);
  EXPECT_EQ(p.getInt(IdSlices), 1);
  EXPECT_DOUBLE_EQ(p.getDouble(IdPlaneSize), 3.0);
  expectNear(b.getVector(IdBoxSize), {1, 1, 1});  // the box ignores the size
}

TEST(Solids, sphereWritesFullRowsAtBothPoles) {
  Sphere sphere;
  ParameterSetData params = defaultsOf(sphere, 2.0);
  Evaluated out;
  evaluatePrimitive(sphere, params, out);
  ASSERT_EQ(out.stream.patches.size(), 1u);
  const auto& patch = out.stream.patches[0];
  EXPECT_EQ(patch.countU, 5);
  EXPECT_EQ(patch.countV, 5);
  ASSERT_EQ(patch.points.size(), 25u);
  for (int u = 0; u <= 4; ++u) {
    expectNear(patch.at(u, 0), {0, 0, -1}, 1e-15);
    expectNear(patch.at(u, 4), {0, 0, 1}, 1e-15);
  }
  // The equator starts at +y and turns toward -x; the seam repeats the first column.
  expectNear(patch.at(0, 2), {0, 1, 0}, 1e-15);
  expectNear(patch.at(1, 2), {-1, 0, 0}, 1e-15);
  expectNear(patch.at(2, 2), {0, -1, 0}, 1e-15);
  expectNear(patch.at(4, 2), patch.at(0, 2), 1e-15);
  for (const Vector3& point : patch.points) EXPECT_NEAR(point.length(), 1.0, 1e-15);
}

TEST(Solids, coneNarrowsToItsApexAtPlusZ) {
  SolidCone cone;
  ParameterSetData params = defaultsOf(cone);
  params.setDouble(IdConeRadius, 2.0);
  params.setDouble(IdConeHeight, 6.0);
  Evaluated out;
  evaluatePrimitive(cone, params, out);
  const auto& patch = out.stream.patches.at(0);
  ASSERT_EQ(patch.points.size(), 25u);
  for (int u = 0; u <= 4; ++u) {
    expectNear(patch.at(u, 4), {0, 0, 3}, 1e-15);
    EXPECT_NEAR(std::hypot(patch.at(u, 0).x, patch.at(u, 0).y), 2.0, 1e-15);
    EXPECT_DOUBLE_EQ(patch.at(u, 0).z, -3.0);
    EXPECT_NEAR(std::hypot(patch.at(u, 2).x, patch.at(u, 2).y), 1.0, 1e-15);
  }
}

TEST(Solids, cylinderRowsAreEvenlySpacedRings) {
  SolidCylinder cylinder;
  ParameterSetData params = defaultsOf(cylinder);
  Evaluated out;
  evaluatePrimitive(cylinder, params, out);
  const auto& patch = out.stream.patches.at(0);
  EXPECT_EQ(patch.countU, 9);
  EXPECT_EQ(patch.countV, 5);
  for (int v = 0; v <= 4; ++v) {
    for (int u = 0; u <= 8; ++u) {
      EXPECT_NEAR(std::hypot(patch.at(u, v).x, patch.at(u, v).y), 0.5, 1e-15);
      EXPECT_DOUBLE_EQ(patch.at(u, v).z, v / 4.0 - 0.5);
    }
  }
}

TEST(Solids, boxWritesSixFacesOfACube) {
  CapturingMessageHandler messages;
  Box box;
  ParameterSetData params = defaultsOf(box);
  params.setInt(IdBoxResolution, 1);
  params.setVector(IdBoxSize, {2, 2, 2});
  Evaluated out;
  evaluatePrimitive(box, params, out);
  ASSERT_EQ(out.stream.patches.size(), 6u);
  const Vector3 faceCentres[6] = {{0, 0, 1},  {1, 0, 0}, {0, 0, -1},
                                  {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}};
  for (int face = 0; face < 6; ++face) {
    const auto& patch = out.stream.patches[face];
    ASSERT_EQ(patch.points.size(), 4u);
    Vector3 centre;
    for (const Vector3& point : patch.points) {
      centre += point * 0.25;
      EXPECT_NEAR(std::fabs(point.x), 1.0, 1e-15);
      EXPECT_NEAR(std::fabs(point.y), 1.0, 1e-15);
      EXPECT_NEAR(std::fabs(point.z), 1.0, 1e-15);
    }
    expectNear(centre, faceCentres[face], 1e-15);
  }
  EXPECT_EQ(messages.debugs, std::vector<std::string>{"Box::evaluate"});
}

TEST(Solids, planeLiesFlatUnlessItFacesAlongY) {
  Plane plane;
  ParameterSetData params = defaultsOf(plane, 2.0);
  params.setInt(IdPlaneFacing, FacingPlusZ);
  Evaluated flat;
  evaluatePrimitive(plane, params, flat);
  const auto& patch = flat.stream.patches.at(0);
  ASSERT_EQ(patch.points.size(), 4u);
  expectNear(patch.at(0, 0), {1, -1, 0});
  expectNear(patch.at(1, 0), {-1, -1, 0});
  expectNear(patch.at(0, 1), {1, 1, 0});  // rows run along y
  params.setInt(IdPlaneFacing, FacingMinusY);
  Evaluated upright;
  evaluatePrimitive(plane, params, upright);
  for (const Vector3& point : upright.stream.patches.at(0).points) {
    EXPECT_NEAR(point.y, 0.0, 1e-15);
    EXPECT_NEAR(std::fabs(point.z), 1.0, 1e-15);
  }
}

TEST(Solids, primitivesPlaceNothingAndAnswer16WhateverTheMask) {
  Sphere sphere;
  Disk disk;
  AttractorPrim attractor;
  Box box;
  for (Simple* primitive : std::initializer_list<Simple*>{&sphere, &disk, &attractor, &box}) {
    ParameterSetData params = defaultsOf(*primitive);
    Evaluated out;
    evaluatePrimitive(*primitive, params, out, 0);
    EXPECT_EQ(out.result, RoleOther);
    EXPECT_TRUE(out.placements.empty());
    EXPECT_TRUE(primitive->hasGeometry(params));
  }
  Evaluated diskOut;
  ParameterSetData diskParams = defaultsOf(disk);
  evaluatePrimitive(disk, diskParams, diskOut);
  EXPECT_TRUE(diskOut.stream.patches.empty());
}

TEST(Solids, onlyTheBoxTakesChildren) {
  Box box;
  Sphere sphere;
  Plane plane;
  ParameterSetData params;
  std::vector<int> boxRoles, sphereRoles, planeRoles;
  EXPECT_TRUE(box.assignRoles(params, boxRoles, 3));
  EXPECT_TRUE(sphere.assignRoles(params, sphereRoles, 3));
  EXPECT_TRUE(plane.assignRoles(params, planeRoles, 3));
  EXPECT_EQ(boxRoles, (std::vector<int>{16, 16, 16}));
  EXPECT_TRUE(sphereRoles.empty());
  EXPECT_TRUE(planeRoles.empty());
}

TEST(Solids, degenerateOrHugeGridsWriteNothing) {
  CapturingMessageHandler messages;
  Sphere sphere;
  ParameterSetData params = defaultsOf(sphere);
  params.setInt(IdSlices, 0);
  Evaluated none;
  evaluatePrimitive(sphere, params, none);
  EXPECT_TRUE(none.stream.patches.empty());
  params.setInt(IdSlices, 2000000000);
  Evaluated huge;
  evaluatePrimitive(sphere, params, huge);
  EXPECT_TRUE(huge.stream.patches.empty());
  params.setInt(IdSlices, 3000);  // within the side limit, too many points in all
  params.setInt(IdStacks, 3000);
  Evaluated many;
  evaluatePrimitive(sphere, params, many);
  EXPECT_TRUE(many.stream.patches.empty());
  EXPECT_EQ(messages.warnings.size(), 2u);
}

TEST(Solids, insideTestsAreInclusiveAtTheirBounds) {
  struct Case {
    Solid* solid;
    Vector3 inside, outside;
  };
  Box box;
  Sphere sphere;
  SolidCone cone;
  SolidCylinder cylinder;
  ParameterSetData boxParams = defaultsOf(box), sphereParams = defaultsOf(sphere, 2.0),
                   coneParams = defaultsOf(cone, 2.0), cylinderParams = defaultsOf(cylinder, 2.0);
  boxParams.setVector(IdBoxSize, {2, 4, 6});
  const double in = 1 - 1e-9, out = 1 + 1e-9;
  EXPECT_TRUE(box.contains(boxParams, {in, 2 * in, 0}));
  EXPECT_TRUE(box.contains(boxParams, {1, 2, 0}));
  EXPECT_TRUE(box.contains(boxParams, {0, 0, 100}));  // z is not tested
  EXPECT_FALSE(box.contains(boxParams, {out, 0, 0}));
  EXPECT_FALSE(box.contains(boxParams, {0, -2 * out, 0}));
  EXPECT_TRUE(sphere.contains(sphereParams, {0, 0, 1}));  // on the surface
  EXPECT_TRUE(sphere.contains(sphereParams, Vector3{1, 1, 1}.normalized() * in));
  EXPECT_FALSE(sphere.contains(sphereParams, Vector3{1, 1, 1}.normalized() * out));
  // The cone is tested as its bounding cylinder: a point beside the apex is inside.
  EXPECT_TRUE(cone.contains(coneParams, {in, 0, in}));
  EXPECT_FALSE(cone.contains(coneParams, {out, 0, 0}));
  EXPECT_FALSE(cone.contains(coneParams, {0, 0, -out}));
  EXPECT_TRUE(cylinder.contains(cylinderParams, {0, -in, -in}));
  EXPECT_FALSE(cylinder.contains(cylinderParams, {0.8 * out, 0.6 * out, 0}));
  EXPECT_FALSE(cylinder.contains(cylinderParams, {0, 0, out}));
}

namespace {

MeshData polygonsOf(Simple& primitive, ParameterSetData& params) {
  MeshData mesh;
  {
    OPolygonStream stream(&mesh, true);
    PlacementList placements;
    primitive.evaluate(params, stream, RoleOther, placements, 1.0);
  }
  return mesh;
}

// The sweep runs counter-clockwise about z and the rows go up, so by the right-hand rule every
// quad faces the axis: all alike, the inside of the surface.
void expectFacingTheAxis(const MeshData& mesh) {
  for (const MeshPolygon& polygon : mesh.polygons) {
    const Vector3 centre = polygonCentroid(mesh, polygon);
    EXPECT_LT(polygonNormal(mesh, polygon).dot({centre.x, centre.y, 0}), 0.0);
  }
}

}  // namespace

// The grids of the Part make every solid turn its faces one way, by the right-hand rule inward:
// a closed solid encloses a negative volume.
TEST(SolidSurfaces, boxAndSphereAreClosedAndConsistentlyTurned) {
  Box box;
  ParameterSetData boxParams = defaultsOf(box);
  for (int resolution : {1, 3}) {
    boxParams.setInt(IdBoxResolution, resolution);
    const MeshData mesh = polygonsOf(box, boxParams);
    EXPECT_EQ(mesh.polygons.size(), 6u * resolution * resolution);
    EXPECT_NEAR(expectClosedMesh(mesh), -1.0, 1e-12);
  }
  Sphere sphere;
  ParameterSetData sphereParams = defaultsOf(sphere, 2.0);
  const MeshData coarse = polygonsOf(sphere, sphereParams);
  EXPECT_EQ(coarse.points.size(), 20u);  // the seam column is welded
  EXPECT_EQ(coarse.polygons.size(), 16u);
  const double coarseVolume = -expectClosedMesh(coarse);
  EXPECT_GT(coarseVolume, 0.0);
  EXPECT_LT(coarseVolume, 4.0 / 3.0 * M_PI);
  sphereParams.setInt(IdSlices, 64);
  sphereParams.setInt(IdStacks, 32);
  EXPECT_NEAR(-expectClosedMesh(polygonsOf(sphere, sphereParams)), 4.0 / 3.0 * M_PI, 0.02);
}

TEST(SolidSurfaces, coneAndCylinderAreOpenOnlyAtTheirRims) {
  SolidCylinder cylinder;
  ParameterSetData cylinderParams = defaultsOf(cylinder);
  const MeshData tube = polygonsOf(cylinder, cylinderParams);
  EXPECT_EQ(tube.points.size(), 8u * 5u);
  EXPECT_EQ(tube.polygons.size(), 8u * 4u);
  EXPECT_EQ(WeldedEdges(tube).unmatchedEdges(), 2 * 8);  // top and bottom rims
  expectFacingTheAxis(tube);
  SolidCone cone;
  ParameterSetData coneParams = defaultsOf(cone);
  coneParams.setInt(IdSlices, 6);
  const MeshData shell = polygonsOf(cone, coneParams);
  EXPECT_EQ(WeldedEdges(shell).unmatchedEdges(), 6);  // the base rim; the apex is welded shut
  expectFacingTheAxis(shell);
}
