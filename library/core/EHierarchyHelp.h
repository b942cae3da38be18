// EHierarchyHelp: the record that the classic scene graph hands down its hierarchy in place of
// host context: accumulated matrix, material, carried data, progress share and prune node.
// A copy made for a child takes every field but never owns the selection map.
#pragma once

#include <map>
#include <string>

#include "core/Matrix4.h"

namespace mv {

class Node;
class ProgressHandler;

class EHierarchyHelp {
 public:
  EHierarchyHelp();
  EHierarchyHelp(const EHierarchyHelp& other);
  EHierarchyHelp& operator=(const EHierarchyHelp& other);
  virtual ~EHierarchyHelp();

  Matrix4 matrix;
  int material = -1;
  int parentMaterial = -1;
  bool stopped = false;
  std::map<std::string, int>* selections;  // owned only when ownsSelections is set
  bool ownsSelections = false;
  double carriedGrowth = 1.0;
  double carriedThickness = 1.0;
  double carriedDensity = 1.0;
  int index = 0;
  int count = 1;
  int depth = 0;
  ProgressHandler* progress;
  double progressStart = 0.0;
  double progressSpan = 1.0;
  Node* pruneNode = nullptr;
};

}  // namespace mv
