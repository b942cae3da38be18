#include <gtest/gtest.h>

#include <cmath>

#include "host/GeRayCollider.h"
#include "host/Noise.h"
#include "host/PolygonObject.h"
#include "host/PrimitiveShapes.h"
#include "host/Random.h"

namespace {

TEST(Random, FollowsTheHostsGenerator) {
  Random random;
  random.Init(100);
  UInt32 seed = (100u * 69069u + 69069u) & 0x7fffffffu;
  EXPECT_DOUBLE_EQ(random.Get01(), seed / 2147483649.0);
  seed = (seed * 69069u + 69069u) & 0x7fffffffu;
  EXPECT_DOUBLE_EQ(random.Get11(), 2.0 * seed / 2147483649.0 - 1.0);
  Random again;
  again.Init(84564);
  Random same;
  same.Init(84564);
  for (int i = 0; i < 1000; ++i) {
    Float v = again.Get01();
    EXPECT_EQ(v, same.Get01());
    EXPECT_GE(v, 0.0);
    EXPECT_LT(v, 1.0);
  }
}

TEST(Noise, IsHalfOnTheLatticeSmoothAndBounded) {
  EXPECT_DOUBLE_EQ(Noise(Vector(3, -7, 12)), 0.5);
  Float sum = 0.0;
  for (int i = 0; i < 2000; ++i) {
    Vector p(i * 0.137, i * 0.071 - 5, std::sin(i) * 9);
    Float n = Noise(p);
    EXPECT_GE(n, 0.0);
    EXPECT_LE(n, 1.0);
    EXPECT_NEAR(Noise(p + Vector(1e-6, 0, 0)), n, 1e-4);
    sum += n;
  }
  EXPECT_NEAR(sum / 2000, 0.5, 0.05);
  EXPECT_NE(Noise(Vector(0.3, 0.4, 0.5)), Noise(Vector(1.3, 0.4, 0.5)));
}

TEST(GeRayCollider, FindsTheNearestFaceOfABox) {
  PolygonObject* box = PrimitiveShapes::box(Vector(2.0), 1, 1, 1);
  GeRayCollider collider;
  ASSERT_TRUE(collider.Init(box));
  ASSERT_TRUE(collider.Intersect(Vector(-5, 0.2, 0.3), Vector(2, 0, 0), 100.0));
  EXPECT_EQ(collider.GetIntersectionCount(), 2);  // in and out
  GeRayColResult hit;
  ASSERT_TRUE(collider.GetNearestIntersection(&hit));
  EXPECT_NEAR(hit.distance, 4.0, 1e-12);
  EXPECT_NEAR(hit.hitpos.x, -1.0, 1e-12);
  EXPECT_FALSE(collider.Intersect(Vector(-5, 0.2, 0.3), Vector(1, 0, 0), 3.9));
  EXPECT_FALSE(collider.Intersect(Vector(-5, 3, 0), Vector(1, 0, 0), 100.0));
  BaseObject* base = box;
  BaseObject::Free(base);
  EXPECT_FALSE(collider.Init(nullptr));
}

}  // namespace
