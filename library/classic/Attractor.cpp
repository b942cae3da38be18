#include "classic/Attractor.h"

#include <cmath>
#include <string>

#include "classic/Node.h"
#include "classic/SolidParameters.h"
#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "geometry/EditableMesh.h"

namespace mv {

namespace {

// The field's centre in the child's space by attractorMode; another mode keeps the centre of the
// last acting child before it.
void updateCentre(int mode, Vector3& centre) {
  static const Vector3 kCentres[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 1}};
  if (mode >= 0 && mode < 5) centre = kCentres[mode];
}

// One field acting on one point of the child's space. Distance and weight are single precision,
// as the fields of scene files were tuned with them.
Vector3 pushed(const Vector3& p, const Vector3& centre, double strength) {
  const Vector3 v = p - centre;
  const float d = static_cast<float>(v.length());
  if (d == 0.0f || d >= Attractor::kFalloffRadius) return p;  // no direction, or out of reach
  const float ratio = d / static_cast<float>(Attractor::kFalloffRadius);
  const float w = static_cast<float>((std::cos(ratio * kPi) + 1.0) * 0.5);
  return p + v / d * w * strength;
}

void applyField(EditableMesh& mesh, Node& child, const Vector3& centre, double strength) {
  Matrix4 local;
  child.localMatrix(local);
  const Matrix4 inverse = local.inverse();
  const uint32_t count = mesh.getPointCount();
  for (uint32_t i = 0; i < count; ++i) {
    Vector3 point;
    mesh.getPoint(i, point);
    mesh.setPoint(i, local.transformPoint(pushed(inverse.transformPoint(point), centre, strength)));
  }
}

}  // namespace

std::string& Attractor::typeName(std::string& out) { return out = "Attractor"; }

int Attractor::modifierKinds() { return ModifierDeformPoints; }

bool Attractor::deformPoints(ParameterSet&, EditableMesh& mesh, PlacementList&, Node& node) {
  messageSink.debug("Attractor::deform points" + std::to_string(mesh.getPointCount()));
  Vector3 centre;
  for (Node* child : node.children()) {
    ParameterSetData& params = child->parameters();
    const double value = params.getDouble(IdAttractorStrength);
    if (value == 0.0) continue;
    updateCentre(params.getInt(IdAttractorMode), centre);
    const double strength = static_cast<float>(value * kStrengthScale);
    messageSink.debug(" child: " + std::to_string(child->children().size()));
    applyField(mesh, *child, centre, strength);
  }
  return true;
}

}  // namespace mv
