#include "growth/Variation.h"

#include <cmath>

#include "core/ChildRole.h"
#include "core/MessageSink.h"
#include "core/ParameterSet.h"
#include "curves/MersenneTwister.h"

namespace mv {

namespace {

// index / count * childCount, cut to an int; a run of no length selects the first child.
int relativeChoice(int index, int count, int childCount) {
  const double choice = static_cast<double>(index) / count * childCount;
  return std::isfinite(choice) && std::fabs(choice) < 2147483647.0 ? static_cast<int>(choice) : 0;
}

// The index + 1-th draw of a generator seeded anew, so the same seed and index always choose
// alike and neighbouring instances draw neighbouring numbers of one sequence.
int randomChoice(int index, int seed, int childCount) {
  MersenneTwister generator(static_cast<uint32_t>(seed));
  double r = 0.0;
  for (long long i = 0; i <= index; ++i) r = generator.next();
  return static_cast<int>(r / (1.0 / childCount));
}

}  // namespace

bool Variation::initParameters(ParameterSet& params, double size) {
  Simple::initParameters(params, size);
  params.setInt(variationMode, ModeRandom);
  params.setInt(variationSeed, static_cast<int>(MersenneTwister::kDefaultSeed));
  params.setInt(variationIndex, 0);
  params.setInt(distanceMode, 0);
  params.setDouble(distanceNear, 0.0);
  params.setDouble(distanceFar, 100.0);
  return true;
}

std::string& Variation::typeName(std::string& out) { return out = "Variation"; }

int Variation::selectChild(ParameterSet& params, int childCount) {
  const int index = params.getInt(IdIndex);
  switch (params.getInt(variationMode)) {
    case ModeRelative:
      return relativeChoice(index, params.getInt(IdCount), childCount);
    case ModeRandom:
      return randomChoice(index, params.getInt(variationSeed), childCount);
    case ModeSpecial:
      return childCount > 1 && index == params.getInt(variationIndex) ? 1 : 0;
    default:
      return index % childCount;
  }
}

bool Variation::assignRoles(ParameterSet& params, std::vector<int>& roles, int childCount) {
  if (childCount <= 0) return true;
  if (params.getNode(distanceReference)) messageSink.debug("Distance Reference found...");
  const int selected = selectChild(params, childCount);
  for (int i = 0; i < childCount; ++i) roles.push_back(i == selected ? RoleOther : RoleUnused);
  return true;
}

}  // namespace mv
