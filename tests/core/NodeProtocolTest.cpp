#include <gtest/gtest.h>

#include "core/ChildRole.h"
#include "core/EHierarchyHelp.h"
#include "core/Simple.h"
#include "curves/ParameterSetData.h"
#include "support/CountingGeomStream.h"

TEST(Simple, noChildrenMeansNoRolesAndNoPlacements) {
  mv::Simple node;
  mv::ParameterSetData params;
  CountingGeomStream stream;
  std::vector<int> roles;
  EXPECT_TRUE(node.assignRoles(params, roles, 0));
  EXPECT_TRUE(roles.empty());
  EXPECT_EQ(mv::roleMaskOf(roles), 0);
  mv::PlacementList placements;
  EXPECT_EQ(node.evaluate(params, stream, mv::roleMaskOf(roles), placements, 1.0), 0);
  EXPECT_TRUE(placements.empty());
}

TEST(Simple, passesEveryChildThroughAtTheIdentity) {
  mv::Simple node;
  mv::ParameterSetData params;
  CountingGeomStream stream;
  std::vector<int> roles{4};  // roles are appended, never replaced
  EXPECT_TRUE(node.assignRoles(params, roles, 3));
  EXPECT_EQ(roles, (std::vector<int>{4, 16, 16, 16}));

  mv::PlacementList placements(1);  // evaluate appends and never clears
  EXPECT_EQ(node.evaluate(params, stream, mv::roleMaskOf(roles), placements, 1.0), mv::RoleOther);
  ASSERT_EQ(placements.size(), 2u);
  const mv::PlacementGroup& group = placements[1];
  EXPECT_EQ(group.role, mv::RoleOther);
  EXPECT_FALSE(group.closed);
  ASSERT_EQ(group.placements.size(), 1u);
  const mv::Placement& p = group.placements[0];
  EXPECT_EQ(p.matrix, mv::Matrix4());
  EXPECT_FALSE(p.wantsData);
  EXPECT_EQ(p.index, 0);
  EXPECT_EQ(p.count, 1);
  EXPECT_EQ(p.carriedGrowth, 1.0);
  EXPECT_EQ(p.carriedThickness, 1.0);
  EXPECT_EQ(p.carriedDensity, 1.0);
  EXPECT_TRUE(p.trail.empty());
}

TEST(Simple, placesNothingWithoutRoleOtherInMask) {
  mv::Simple node;
  mv::ParameterSetData params;
  CountingGeomStream stream;
  mv::PlacementList placements;
  EXPECT_EQ(node.evaluate(params, stream, mv::RoleNodes | mv::RoleEnd, placements, 1.0), 0);
  EXPECT_TRUE(placements.empty());
}

TEST(Placement, copyCarriesTrail) {
  mv::Placement a;
  a.trail = {{1, 2, 3}};
  mv::Placement b = a;
  a.trail.clear();
  ASSERT_EQ(b.trail.size(), 1u);
  EXPECT_EQ(b.trail[0], mv::Vector3(1, 2, 3));
}

TEST(EHierarchyHelp, childCopySharesSelectionsWithoutOwningThem) {
  auto root = std::make_unique<mv::EHierarchyHelp>();
  EXPECT_TRUE(root->ownsSelections);
  EXPECT_EQ(root->material, -1);
  EXPECT_EQ(root->count, 1);
  root->depth = 2;
  (*root->selections)["bark"] = 3;

  mv::EHierarchyHelp child(*root);
  EXPECT_FALSE(child.ownsSelections);
  EXPECT_EQ(child.selections, root->selections);
  EXPECT_EQ(child.depth, 2);
  (*child.selections)["leaf"] = 4;
  EXPECT_EQ(root->selections->size(), 2u);

  mv::EHierarchyHelp grandchild;
  grandchild = child;  // the map grandchild made itself is freed, the shared one is not taken
  EXPECT_FALSE(grandchild.ownsSelections);
  EXPECT_EQ(grandchild.selections->at("bark"), 3);
}
