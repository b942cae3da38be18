// The attractor's push: falloff from the field's centre, child order, modes, and its place in
// the scene graph's walk.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "classic/Attractor.h"
#include "classic/AttractorPrim.h"
#include "classic/GridPatch.h"
#include "classic/SceneGraph.h"
#include "classic/SolidParameters.h"
#include "core/ChildRole.h"
#include "geometry/MeshData.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/SceneRendering.h"

using namespace mv;

namespace {

// The raised cosine of the falloff at distance d.
double weight(double d) { return d >= 50 ? 0.0 : (std::cos(d / 50 * M_PI) + 1) * 0.5; }

// An attractor node whose children are fields of the given strengths, modes and matrices.
struct Field {
  double strength;
  int mode;
  Matrix4 matrix;
};

struct AttractorCase {
  explicit AttractorCase(const std::vector<Field>& fields) {
    node.setSimple(new Attractor());
    for (const Field& field : fields) {
      Node* child = new Node();
      child->setSimple(new AttractorPrim());
      child->setMatrix(field.matrix);
      child->parameters().setDouble(IdAttractorStrength, field.strength);
      child->parameters().setInt(IdAttractorMode, field.mode);
      node.addChild(child, "");
    }
  }
  // The mesh of the given points after the deformation.
  MeshData deform(const std::vector<Vector3>& points) {
    MeshData mesh;
    mesh.points = points;
    PlacementList placements;
    EXPECT_TRUE(node.simple()->deformPoints(node.parameters(), mesh, placements, node));
    return mesh;
  }

  Node node;
};

}  // namespace

TEST(Attractor, pushesByARaisedCosineOfTheDistance) {
  AttractorCase c({{0.1, 0, Matrix4()}});  // 10 units at the centre
  const MeshData mesh = c.deform({{25, 0, 0}, {0, -10, 0}, {0, 0, 49}, {0, 50, 0}, {80, 0, 0}});
  expectNear(mesh.points[0], {30, 0, 0}, 1e-9);  // half way out: half the push
  expectNear(mesh.points[1], {0, -10 - 10 * weight(10), 0}, 1e-6);
  expectNear(mesh.points[2], {0, 0, 49 + 10 * weight(49)}, 1e-6);
  expectNear(mesh.points[3], {0, 50, 0}, 1e-12);  // at the radius and beyond: nothing
  expectNear(mesh.points[4], {80, 0, 0}, 1e-12);

  AttractorCase pull({{-0.1, 0, Matrix4()}});
  expectNear(pull.deform({{25, 0, 0}}).points[0], {20, 0, 0}, 1e-9);
  AttractorCase still({{0.5, 0, Matrix4()}});
  expectNear(still.deform({{0, 0, 0}}).points[0], {0, 0, 0});  // no way to push from the centre
}

TEST(Attractor, fieldStandsInItsChildsSpace) {
  // Mode 1 radiates from (1, 0, 0) of a child moved to (10, 0, 0) and scaled by 2: the world
  // centre is (12, 0, 0), distances there count half, and the push is scaled back up.
  const Matrix4 placed = Matrix4::scaling({2, 2, 2}) * Matrix4::translation({10, 0, 0});
  AttractorCase c({{0.1, 1, placed}});
  const MeshData mesh = c.deform({{12, 40, 0}});
  expectNear(mesh.points[0], {12, 40 + 2 * 10 * weight(20), 0}, 1e-6);

  for (const auto& [mode, centre] : std::vector<std::pair<int, Vector3>>{
           {0, {0, 0, 0}}, {2, {0, 1, 0}}, {3, {0, 0, 1}}, {4, {1, 1, 1}}}) {
    AttractorCase field({{0.1, mode, Matrix4()}});
    expectNear(field.deform({centre + Vector3(0, 0, 25)}).points[0], centre + Vector3(0, 0, 30),
               1e-9);
  }
}

TEST(Attractor, childrenActInOrderOnTheMovedPoints) {
  AttractorCase c({{0.1, 0, Matrix4()}, {0.0, 2, Matrix4()}, {0.1, 9, Matrix4()}});
  CapturingMessageHandler messages;
  const MeshData mesh = c.deform({{25, 0, 0}, {0, 0, 0}});
  // The second field reads 30 where the first left the point; the idle child between them
  // neither acts nor changes the centre that the unknown mode of the third keeps.
  expectNear(mesh.points[0], {30 + 10 * weight(30), 0, 0}, 1e-6);
  ASSERT_EQ(messages.debugs.size(), 3u);
  EXPECT_EQ(messages.debugs[0], "Attractor::deform points2");
  EXPECT_EQ(messages.debugs[1], " child: 0");
  EXPECT_EQ(messages.debugs[2], " child: 0");

  AttractorCase unknownFirst({{0.1, 7, Matrix4()}});
  expectNear(unknownFirst.deform({{25, 0, 0}}).points[0], {30, 0, 0}, 1e-9);
}

TEST(Attractor, emptyMeshOrNoFieldsChangeNothing) {
  CapturingMessageHandler messages;
  AttractorCase c({{0.1, 0, Matrix4()}});
  EXPECT_TRUE(c.deform({}).points.empty());
  AttractorCase none({});
  expectNear(none.deform({{1, 2, 3}}).points[0], {1, 2, 3});
  ASSERT_EQ(messages.debugs.size(), 3u);
  EXPECT_EQ(messages.debugs[0], "Attractor::deform points0");
  EXPECT_EQ(messages.debugs[2], "Attractor::deform points1");
}

namespace {

// A unit quad in the xy plane at the origin.
class Quad : public Simple {
 public:
  int evaluate(ParameterSet&, OGeomStream& stream, int, PlacementList&, double) override {
    GridPatch::write(stream, 1, 1, [](int u, int v) { return Vector3(u, v, 0); });
    return RoleOther;
  }
};

}  // namespace

TEST(Attractor, deformsItsSubtreeInTheSceneGraph) {
  SceneGraph graph;
  Node* attractor = new Node();
  attractor->setName("Attractor");
  attractor->setSimple(new Attractor());
  Node* quad = new Node();
  quad->setName("Quad");
  quad->setSimple(new Quad());
  Node* field = new Node();
  field->setName("Field");
  field->setSimple(new AttractorPrim());
  field->setMatrix(Matrix4::translation({0, 0, -10}));
  field->parameters().setDouble(IdAttractorStrength, 0.01);
  ASSERT_TRUE(attractor->addChild(quad, ""));
  ASSERT_TRUE(attractor->addChild(field, ""));
  graph.addChild(attractor, "");

  const MeshData mesh = renderNode(graph);
  ASSERT_EQ(mesh.points.size(), 4u);
  for (const Vector3& point : mesh.points) {
    // Each corner of the quad is pushed away from the field at (0, 0, -10) by one unit's share.
    const Vector3 before{std::round(point.x), std::round(point.y), 0};
    const Vector3 away = before - Vector3(0, 0, -10);
    expectNear(point, before + away.normalized() * weight(away.length()), 1e-6);
  }
}
