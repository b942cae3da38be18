#include "host/PrimitiveObject.h"

#include <gtest/gtest.h>

#include "core/MathConstants.h"
#include "host/BaseDocument.h"
#include "host/DocumentMesh.h"
#include "host/PolygonObject.h"
#include "support/MeshExpectations.h"

namespace {

mv::MeshData meshOf(BaseObject* op) {
  BaseDocument doc;
  doc.InsertObject(op, nullptr, nullptr);
  DocumentMesh collected;
  EXPECT_TRUE(collected.collect(&doc));
  return collected.mesh();
}

struct ClosedCase {
  Int32 type;
  double volume;  // of the default parameters
  double tolerance;
};

TEST(Primitive, ClosedPrimitivesEncloseTheirVolumeWithOutwardNormals) {
  const double pi = mt::kPi;
  // A polygonal sphere and cone stay a little inside the round ones.
  const ClosedCase cases[] = {
      {Ocube, 200.0 * 200 * 200, 1e-6},
      {Ocylinder, 36 * 0.5 * 50 * 50 * std::sin(2 * pi / 36) * 200, 1e-6},
      {Ocone, 36 * 0.5 * 100 * 100 * std::sin(2 * pi / 36) * 200 / 3, 1e-6},
      {Osphere, 4.0 / 3 * pi * 1e6, 0.03},
  };
  for (const ClosedCase& c : cases) {
    SCOPED_TRACE(c.type);
    mv::MeshData mesh = meshOf(BaseObject::Alloc(c.type));
    expectWellFormedMesh(mesh);
    double volume = expectClosedMesh(mesh);
    EXPECT_NEAR(volume, c.volume, c.volume * c.tolerance);
  }
}

TEST(Primitive, SegmentsMultiplyTheCubesQuads) {
  BaseObject* cube = BaseObject::Alloc(Ocube);
  cube->GetDataInstance()->SetLong(1102, 2);
  cube->GetDataInstance()->SetLong(1103, 3);
  cube->GetDataInstance()->SetLong(1104, 4);
  mv::MeshData mesh = meshOf(cube);
  EXPECT_EQ(mesh.polygons.size(), 2u * (2 * 3 + 3 * 4 + 2 * 4));
  EXPECT_EQ(mesh.points.size(), 2u * (2 * 3 + 3 * 4 + 2 * 4) + 2);  // Euler: V = F + 2 on a box
  expectClosedMesh(mesh);
}

TEST(Primitive, OpenPrimitivesFaceTheirOrientation) {
  for (Int32 type : {Oplane, Odisc}) {
    for (Int32 axis = 0; axis < 6; ++axis) {
      BaseObject* op = BaseObject::Alloc(type);
      op->GetDataInstance()->SetLong(1300, axis);
      mv::MeshData mesh = meshOf(op);
      // The host's axis in library axes (y and z swapped).
      mv::Vector3 expected[] = {{1, 0, 0},  {-1, 0, 0}, {0, 0, 1},
                                {0, 0, -1}, {0, 1, 0},  {0, -1, 0}};
      for (const mv::MeshPolygon& polygon : mesh.polygons) {
        mv::Vector3 n = polygonNormal(mesh, polygon).normalized();
        EXPECT_NEAR(n.dot(expected[axis]), 1.0, 1e-9) << type << " axis " << axis;
      }
    }
  }
}

TEST(Primitive, PlaneAndDiscCoverTheirArea) {
  BaseObject* plane = BaseObject::Alloc(Oplane);
  EXPECT_EQ(meshOf(plane).polygons.size(), 400u);
  BaseObject* disc = BaseObject::Alloc(Odisc);
  disc->GetDataInstance()->SetReal(1160, 50.0);
  disc->GetDataInstance()->SetLong(1162, 2);
  EXPECT_EQ(meshOf(disc).polygons.size(), 72u);
}

TEST(Primitive, ParameterChangeRebuildsTheCache) {
  BaseDocument doc;
  BaseObject* sphere = BaseObject::Alloc(Osphere);
  doc.InsertObject(sphere, nullptr, nullptr);
  doc.ExecutePasses(nullptr, true, true, true, 0);
  BaseObject* first = sphere->GetCache();
  doc.ExecutePasses(nullptr, true, true, true, 0);
  EXPECT_EQ(sphere->GetCache(), first);
  sphere->SetParameter(DescID(1111), GeData(Int32(8)), 0);
  doc.ExecutePasses(nullptr, true, true, true, 0);
  ASSERT_NE(sphere->GetCache(), first);
  EXPECT_EQ(static_cast<PolygonObject*>(sphere->GetCache())->GetPolygonCount(), 8 * 4);
}

}  // namespace
