// Solid: a primitive with an inside, the base of box, sphere, cone and cylinder. The inside test
// is how a prune object clips a tree. Solids take no children and place nothing.
#pragma once

#include <functional>

#include "core/Simple.h"
#include "core/Vector3.h"

namespace mv {

class Solid : public Simple {
 public:
  bool hasGeometry(ParameterSet& params) override;
  // Appends nothing: a primitive has no use for children.
  bool assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) override;
  // True when point, given in the solid's local space, lies inside; the bounds are inclusive.
  virtual bool contains(ParameterSet& params, const Vector3& point) = 0;

 protected:
  // The point of a surface of revolution about z at sweep angle a and axial fraction v (0 to 1).
  using RevolutionPoint = std::function<Vector3(double a, double v)>;

  // Writes slices by stacks cells; the angle runs negative, from +y toward -x, and the seam at
  // +y repeats the first column as the last.
  static void writeRevolution(ParameterSet& params, OGeomStream& stream,
                              const RevolutionPoint& point);
  // Inside the upright cylinder of this radius and height about the origin.
  static bool withinCylinder(const Vector3& point, double radius, double height);
};

}  // namespace mv
