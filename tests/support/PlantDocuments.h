// PlantDocuments: small plants built in a document for tests of the object plug-ins: splines
// made point by point, and Branches with their profile and path.
#pragma once

#include <cmath>

#include "core/MathConstants.h"
#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/HostIds.h"
#include "host/SplineObject.h"
#include "source/PluginIds.h"

// A closed linear ring of n points and that radius in the host's x-y plane, the plane of a
// Branch's profile.
inline SplineObject* ringSpline(Float radius, Int32 n) {
  SplineObject* ring = SplineObject::Alloc(n, SPLINETYPE_LINEAR);
  for (Int32 i = 0; i < n; ++i) {
    const Float angle = 2.0 * mt::kPi * i / n;
    ring->GetPointW()[i] = Vector(radius * std::sin(angle), radius * std::cos(angle), 0.0);
  }
  ring->GetDataInstance()->SetBool(SPLINEOBJECT_CLOSED, true);
  ring->SetName("Profile");
  return ring;
}

// A straight linear path of n points up the host's y axis.
inline SplineObject* straightPath(Float length, Int32 n) {
  SplineObject* path = SplineObject::Alloc(n, SPLINETYPE_LINEAR);
  for (Int32 i = 0; i < n; ++i) path->GetPointW()[i] = Vector(0.0, length * i / (n - 1), 0.0);
  path->SetName("Path");
  return path;
}

// A Branch named name with a ring profile and a straight path; more children go behind them.
inline BaseObject* branchWithSplines(const String& name, Float radius, Float length) {
  BaseObject* branch = BaseObject::Alloc(ID_BRANCH_OBJECT);
  branch->SetName(name);
  ringSpline(radius, 8)->InsertUnderLast(branch);
  straightPath(length, 5)->InsertUnderLast(branch);
  return branch;
}
