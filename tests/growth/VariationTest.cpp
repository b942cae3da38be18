#include <gtest/gtest.h>

#include "core/BaseNode.h"
#include "core/ChildRole.h"
#include "curves/MersenneTwister.h"
#include "curves/ParameterSetData.h"
#include "growth/Variation.h"
#include "support/CapturingMessageHandler.h"
#include "support/StubNode.h"

namespace {

using mv::Variation;

// Roles for an instance of the given index and count among childCount children.
std::vector<int> rolesFor(mv::ParameterSetData& params, int index, int count, int childCount) {
  params.index = index;
  params.count = count;
  std::vector<int> roles;
  Variation variation;
  EXPECT_TRUE(variation.assignRoles(params, roles, childCount));
  EXPECT_EQ(roles.size(), static_cast<size_t>(childCount));
  return roles;
}

// Index of the child with role 16, or -1 when no child is used; every other role must be 0.
int selected(const std::vector<int>& roles) {
  int found = -1;
  for (size_t i = 0; i < roles.size(); ++i) {
    if (roles[i] == mv::RoleOther) {
      EXPECT_EQ(found, -1) << "two children selected";
      found = static_cast<int>(i);
    } else {
      EXPECT_EQ(roles[i], mv::RoleUnused);
    }
  }
  return found;
}

mv::ParameterSetData withMode(int mode) {
  mv::ParameterSetData params;
  Variation().initParameters(params, 100.0);
  params.setInt(Variation::variationMode, mode);
  return params;
}

}  // namespace

TEST(Variation, byIndexWrapsRoundTheChildren) {
  mv::ParameterSetData params = withMode(Variation::ModeIndex);
  EXPECT_EQ(selected(rolesFor(params, 0, 9, 3)), 0);
  EXPECT_EQ(selected(rolesFor(params, 5, 9, 3)), 2);
  EXPECT_EQ(selected(rolesFor(params, 3, 9, 3)), 0);
  EXPECT_EQ(selected(rolesFor(params, -1, 9, 3)), -1);  // a negative index selects nobody
  params.setInt(Variation::variationMode, 7);           // unknown modes count by index
  EXPECT_EQ(selected(rolesFor(params, 4, 9, 3)), 1);
}

TEST(Variation, byRelativeIndexSpreadsTheRunOverTheChildren) {
  mv::ParameterSetData params = withMode(Variation::ModeRelative);
  EXPECT_EQ(selected(rolesFor(params, 0, 10, 3)), 0);
  EXPECT_EQ(selected(rolesFor(params, 3, 10, 3)), 0);  // 0.9
  EXPECT_EQ(selected(rolesFor(params, 4, 10, 3)), 1);  // 1.2
  EXPECT_EQ(selected(rolesFor(params, 7, 10, 3)), 2);  // 2.1
  EXPECT_EQ(selected(rolesFor(params, 9, 10, 3)), 2);
  EXPECT_EQ(selected(rolesFor(params, 3, 0, 3)), 0);  // a run of no length
}

TEST(Variation, randomTakesTheDrawOfTheIndexFromAFreshSequence) {
  mv::ParameterSetData params = withMode(Variation::ModeRandom);
  params.setInt(Variation::variationSeed, 99);
  mv::MersenneTwister sequence(99);
  for (int index = 0; index < 50; ++index) {
    const int expected = static_cast<int>(sequence.next() * 5);
    EXPECT_EQ(selected(rolesFor(params, index, 50, 5)), expected) << index;
  }
  // The same index chooses alike whatever ran before, and the default seed's first draw
  // decides index 0.
  EXPECT_EQ(selected(rolesFor(params, 17, 50, 5)), selected(rolesFor(params, 17, 50, 5)));
  mv::ParameterSetData defaults = withMode(Variation::ModeRandom);
  EXPECT_EQ(selected(rolesFor(defaults, 0, 1, 4)),
            static_cast<int>(mv::MersenneTwister(4357).next() * 4));
  EXPECT_EQ(selected(rolesFor(defaults, -3, 1, 4)), 0);
}

TEST(Variation, specialIndexTakesTheSecondChild) {
  mv::ParameterSetData params = withMode(Variation::ModeSpecial);
  params.setInt(Variation::variationIndex, 4);
  EXPECT_EQ(selected(rolesFor(params, 4, 9, 3)), 1);
  EXPECT_EQ(selected(rolesFor(params, 5, 9, 3)), 0);
  EXPECT_EQ(selected(rolesFor(params, 4, 9, 1)), 0);  // one child is always chosen
  EXPECT_EQ(selected(rolesFor(params, 8, 9, 1)), 0);
}

TEST(Variation, noChildrenGiveNoRolesAndADistanceReferenceIsMentioned) {
  CapturingMessageHandler messages;
  mv::ParameterSetData params = withMode(Variation::ModeRandom);
  EXPECT_TRUE(rolesFor(params, 0, 1, 0).empty());
  EXPECT_TRUE(messages.debugs.empty());
  StubNode reference;
  params.setNode(Variation::distanceReference, &reference);
  rolesFor(params, 0, 1, 2);
  ASSERT_EQ(messages.debugs.size(), 1u);
  EXPECT_EQ(messages.debugs[0], "Distance Reference found...");
}
