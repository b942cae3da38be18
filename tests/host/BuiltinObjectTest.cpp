#include <gtest/gtest.h>

#include <cmath>

#include "core/MathConstants.h"
#include "host/BaseDocument.h"
#include "host/DeformerGrid.h"
#include "host/DocumentMesh.h"
#include "host/InstanceObject.h"
#include "host/LineObject.h"
#include "host/ModelingCommand.h"
#include "host/PolygonObject.h"
#include "host/SplineObject.h"
#include "support/MeshExpectations.h"

namespace {

class BuiltinObjectTest : public ::testing::Test {
 protected:
  BaseObject* add(Int32 type, BaseObject* parent = nullptr) {
    BaseObject* op = BaseObject::Alloc(type);
    if (parent) {
      op->InsertUnderLast(parent);
    } else {
      doc.InsertObject(op, nullptr, doc.GetFirstObject() ? lastTop() : nullptr);
    }
    return op;
  }
  BaseObject* lastTop() {
    BaseObject* op = doc.GetFirstObject();
    while (op->GetNext()) op = op->GetNext();
    return op;
  }
  mv::MeshData mesh() {
    DocumentMesh collected;
    collected.collect(&doc);
    return collected.mesh();
  }
  BaseDocument doc;
};

TEST_F(BuiltinObjectTest, CircleLineHasItsPointsOnTheCircle) {
  BaseObject* circle = add(Osplinecircle);
  circle->GetDataInstance()->SetLong(SPLINEOBJECT_INTERPOLATION,
                                     SPLINEOBJECT_INTERPOLATION_UNIFORM);
  circle->GetDataInstance()->SetLong(SPLINEOBJECT_SUB, 3);
  doc.ExecutePasses(nullptr, true, true, true, 0);
  SplineObject* spline = circle->GetRealSpline();
  ASSERT_NE(spline, nullptr);
  LineObject* line = spline->GetLineObject(&doc, 1.0, nullptr);
  ASSERT_EQ(line->GetPointCount(), 16);
  EXPECT_TRUE(line->GetSegmentR()[0].closed);
  for (Int32 i = 0; i < 16; ++i) EXPECT_NEAR(line->GetPointR()[i].GetLength(), 200.0, 1e-9);
  BaseObject* base = line;
  BaseObject::Free(base);
}

TEST_F(BuiltinObjectTest, ArcRunsFromStartToEndAngle) {
  BaseObject* arc = add(Osplinearc);
  arc->GetDataInstance()->SetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_NONE);
  arc->GetDataInstance()->SetLong(PRIM_PLANE, 2);
  SplineObject* spline = arc->GetRealSpline();
  ASSERT_EQ(spline->GetPointCount(), 2);
  EXPECT_NEAR(spline->GetPointR()[0].x, 200.0, 1e-9);
  EXPECT_NEAR(spline->GetPointR()[1].z, 200.0, 1e-9);  // xz plane: y goes to z
  EXPECT_FALSE(spline->GetSegmentR()[0].closed);
}

TEST_F(BuiltinObjectTest, NSideIsARegularPolygon) {
  BaseObject* nside = add(Osplinenside);
  nside->GetDataInstance()->SetLong(2131, 5);
  SplineObject* spline = nside->GetRealSpline();
  ASSERT_EQ(spline->GetPointCount(), 5);
  EXPECT_NEAR(spline->GetPointR()[0].y, 200.0, 1e-9);
}

BaseObject* sweepOfCircle(BuiltinObjectTest& t, BaseDocument& doc, Float radius, Float length) {
  BaseObject* sweep = BaseObject::Alloc(Osweep);
  doc.InsertObject(sweep, nullptr, nullptr);
  BaseObject* circle = BaseObject::Alloc(Osplinecircle);
  circle->GetDataInstance()->SetReal(2012, radius);
  circle->GetDataInstance()->SetLong(SPLINEOBJECT_INTERPOLATION, SPLINEOBJECT_INTERPOLATION_NONE);
  circle->InsertUnderLast(sweep);
  SplineObject* path = SplineObject::Alloc(2, SPLINETYPE_LINEAR);
  path->GetPointW()[1] = Vector(0, length, 0);
  path->InsertUnderLast(sweep);
  (void)t;
  return sweep;
}

TEST_F(BuiltinObjectTest, SweepOfAClosedProfileIsClosedWithItsVolume) {
  BaseObject* sweep = sweepOfCircle(*this, doc, 10.0, 100.0);
  mv::MeshData full = mesh();
  EXPECT_EQ(full.polygons.size(), 4u + 2 * 4);  // four sides, two caps of four triangles
  // A square of diagonal 20 swept along 100.
  EXPECT_NEAR(expectClosedMesh(full), 200.0 * 100.0, 1e-6);
  sweep->SetParameter(DescID(1002), GeData(0.25), 0);
  EXPECT_NEAR(expectClosedMesh(mesh()), 200.0 * 25.0, 1e-6);
}

TEST_F(BuiltinObjectTest, SweepWithoutPathMakesNothing) {
  BaseObject* sweep = add(Osweep);
  add(Osplinecircle, sweep);
  doc.ExecutePasses(nullptr, true, true, true, 0);
  EXPECT_EQ(sweep->GetCache(), nullptr);
}

TEST_F(BuiltinObjectTest, InstanceCopiesItsTargetAtItsOwnPlaceAndFollowsChanges) {
  BaseObject* cube = add(Ocube);
  cube->SetMl(MatrixMove(Vector(500, 0, 0)));
  BaseObject* instance = add(Oinstance);
  instance->GetDataInstance()->SetLink(INSTANCEOBJECT_LINK, cube);
  instance->SetMl(MatrixMove(Vector(0, 0, 300)));
  doc.ExecutePasses(nullptr, true, true, true, 0);
  BaseObject* copy = instance->GetCache();
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->GetType(), Ocube);
  ASSERT_NE(copy->GetCache(), nullptr);
  EXPECT_EQ(copy->GetMg().off, Vector(0, 0, 300));
  doc.ExecutePasses(nullptr, true, true, true, 0);
  EXPECT_EQ(instance->GetCache(), copy);
  cube->SetParameter(DescID(1100), GeData(Vector(10.0)), 0);
  doc.ExecutePasses(nullptr, true, true, true, 0);
  ASSERT_NE(instance->GetCache(), copy);
  EXPECT_EQ(instance->GetCache()->GetDataInstance()->GetVector(1100), Vector(10.0));
  EXPECT_EQ(mesh().polygons.size(), 12u);
}

TEST_F(BuiltinObjectTest, InstanceOfItsOwnParentMakesNothing) {
  BaseObject* null = add(Onull);
  BaseObject* instance = add(Oinstance, null);
  instance->GetDataInstance()->SetLink(INSTANCEOBJECT_LINK, null);
  doc.ExecutePasses(nullptr, true, true, true, 0);
  EXPECT_EQ(instance->GetCache(), nullptr);
}

TEST_F(BuiltinObjectTest, DeformerGridAtRestChangesNothing) {
  BaseObject* grid = add(Offd);
  BaseObject* cube = add(Ocube, grid);
  cube->GetDataInstance()->SetVector(1100, Vector(100.0));
  cube->SetMl(MatrixMove(Vector(10, 20, 30)));
  mv::MeshData bent = mesh();
  BaseObject* free = BaseObject::Alloc(Ocube);
  free->GetDataInstance()->SetVector(1100, Vector(100.0));
  free->SetMl(MatrixMove(Vector(10, 20, 30)));
  BaseDocument plain;
  plain.InsertObject(free, nullptr, nullptr);
  DocumentMesh reference;
  reference.collect(&plain);
  ASSERT_EQ(bent.points.size(), reference.mesh().points.size());
  for (size_t i = 0; i < bent.points.size(); ++i) {
    EXPECT_NEAR((bent.points[i] - reference.mesh().points[i]).length(), 0.0, 1e-9);
  }
}

TEST_F(BuiltinObjectTest, MovedGridPointDragsTheMeshTrilinearly) {
  auto* grid = static_cast<PointObject*>(add(Offd));
  grid->GetDataInstance()->SetLong(1001, 2);
  grid->GetDataInstance()->SetLong(1002, 2);
  grid->GetDataInstance()->SetLong(1003, 2);
  grid->GetDataInstance()->SetVector(1000, Vector(100.0));
  ASSERT_TRUE(DeformerGrid::ResetLattice(grid));
  // Corner (1, 1, 1) at (50, 50, 50) moves up by 40.
  grid->GetPointW()[7] += Vector(0, 40, 0);
  grid->Message(MSG_UPDATE);
  Vector p(25, 0, -25);  // fractions 0.75, 0.5, 0.25 of the box
  EXPECT_EQ(DeformerGrid::Deform(grid, p), Vector(25, 40 * 0.75 * 0.5 * 0.25, -25));
  EXPECT_EQ(DeformerGrid::Deform(grid, Vector(60, 0, 0)), Vector(60, 0, 0));  // outside
  BaseObject* cube = add(Ocube, grid);
  cube->GetDataInstance()->SetVector(1100, Vector(100.0));
  mv::MeshData bent = mesh();
  expectClosedMesh(bent);
  // The cube's corner at the moved grid point (host (50, 50, 50), library (50, 50, 50)).
  bool found = false;
  for (const mv::Vector3& q : bent.points) found |= (q - mv::Vector3(50, 50, 90)).length() < 1e-9;
  EXPECT_TRUE(found);
}

TEST_F(BuiltinObjectTest, LatticeOfWrongSizeDeformsNothing) {
  auto* grid = static_cast<PointObject*>(add(Offd));
  grid->ResizePoints(5);
  EXPECT_EQ(DeformerGrid::Deform(grid, Vector(1, 2, 3)), Vector(1, 2, 3));
}

}  // namespace
