#include "core/ParameterSet.h"

#include "core/BaseNode.h"

namespace mv {

Spline* ParameterSet::getSpline(int id, bool* ok) {
  BaseNode* node = getNode(id, nullptr);
  Spline* result = node ? node->spline() : nullptr;
  if (ok) *ok = result != nullptr;
  return result;
}

IMesh* ParameterSet::getMesh(int id, bool* ok) {
  BaseNode* node = getNode(id, nullptr);
  IMesh* result = node ? node->mesh() : nullptr;
  if (ok) *ok = result != nullptr;
  return result;
}

}  // namespace mv
