// ModelingCommand: the host's modeling commands. Command 245, current state to object,
// evaluates `op` (in its document or, when it stands in none, by itself) and answers one new
// object: the object as it is seen, with caches resolved into their objects, recursively:
//  - a generator becomes what its cache becomes, with the generator's name, its local matrix
//    times the cache root's, its modes, and each of its tags whose type the result lacks;
//  - a polygon object becomes a copy of itself without children;
//  - a spline object or spline plug-in becomes a copy of its spline;
//  - anything else becomes a null object with its name, matrix and tags.
// The children follow, each in its current state, except children that are the inputs of a
// generator, modifiers, and objects that a parent consumed (Touch). Any other command fails.
#pragma once

#include "host/ModelingCommandData.h"

class HierarchyHelp;

class ModelingCommand {
 public:
  // The current state of an evaluated object, as described above; null for null.
  static BaseObject* CurrentState(BaseObject* op);
};

Bool SendModelingCommand(Int32 command, ModelingCommandData& data);
