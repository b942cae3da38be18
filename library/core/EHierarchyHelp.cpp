#include "core/EHierarchyHelp.h"

#include "core/ProgressSink.h"

namespace mv {

EHierarchyHelp::EHierarchyHelp()
    : selections(new std::map<std::string, int>()),
      ownsSelections(true),
      progress(progressSink.handler) {}

EHierarchyHelp::EHierarchyHelp(const EHierarchyHelp& other) { *this = other; }

EHierarchyHelp& EHierarchyHelp::operator=(const EHierarchyHelp& other) {
  if (this == &other) return *this;
  if (ownsSelections) delete selections;
  matrix = other.matrix;
  material = other.material;
  parentMaterial = other.parentMaterial;
  stopped = other.stopped;
  selections = other.selections;
  ownsSelections = false;
  carriedGrowth = other.carriedGrowth;
  carriedThickness = other.carriedThickness;
  carriedDensity = other.carriedDensity;
  index = other.index;
  count = other.count;
  depth = other.depth;
  progress = other.progress;
  progressStart = other.progressStart;
  progressSpan = other.progressSpan;
  pruneNode = other.pruneNode;
  return *this;
}

EHierarchyHelp::~EHierarchyHelp() {
  if (ownsSelections) delete selections;
}

}  // namespace mv
