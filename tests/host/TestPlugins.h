// TestPlugins: small plug-ins of the tests' own, registered once: a generator that clones its
// children and places copies of them along x, a modifier that shifts the points of a line, a
// spline plug-in that makes a straight spline, and an expression tag that counts its runs.
#pragma once

#include <vector>

#include "host/BaseObject.h"
#include "host/BaseTag.h"
#include "host/HierarchyHelp.h"
#include "host/LineObject.h"
#include "host/ObjectData.h"
#include "host/PluginRegistry.h"
#include "host/SplineObject.h"
#include "host/TagData.h"

constexpr Int32 kCloneGeneratorId = 1999100;
constexpr Int32 kShiftModifierId = 1999101;
constexpr Int32 kStraightSplineId = 1999102;
constexpr Int32 kCountingTagId = 1999103;

// Parameters of the clone generator: copies of each child, spacing along x.
constexpr Int32 kCopies = 1000;
constexpr Int32 kSpacing = 1001;
// Parameter of the shift modifier and of the straight spline.
constexpr Int32 kShift = 1000;
constexpr Int32 kPointCount = 1000;

struct PluginCounters {
  int generatorCalls = 0;        // GetVirtualObjects calls
  int rebuilds = 0;              // calls that built a new result
  std::vector<Vector> lastLine;  // the points of the last spline child's line seen
};

inline PluginCounters& counters() {
  static PluginCounters state;
  return state;
}

class CloneGenerator : public ObjectData {
 public:
  static NodeData* Alloc() { return new CloneGenerator(); }
  Bool Init(GeListNode* node) override {
    auto* op = static_cast<BaseObject*>(node);
    op->GetDataInstance()->SetLong(kCopies, 2);
    op->GetDataInstance()->SetReal(kSpacing, 10.0);
    return true;
  }
  BaseObject* GetVirtualObjects(BaseObject* op, HierarchyHelp* hh) override {
    ++counters().generatorCalls;
    if (cacheStands(op, hh)) return op->GetCache(hh);
    ++counters().rebuilds;
    BaseObject* result = BaseObject::Alloc(Onull);
    result->SetName(op->GetName());
    op->NewDependenceList();
    for (BaseObject* child = op->GetDown(); child; child = child->GetNext()) {
      if (child->GetInfo() & OBJECT_ISSPLINE) {
        readLine(op, child, hh);
      } else {
        place(op, op->GetHierarchyClone(hh, child, HIERARCHYCLONEFLAGS_ASIS, nullptr, nullptr),
              result);
      }
    }
    return result;
  }

 private:
  // The cache test of a generator: no rebuild while nothing it reads has changed.
  static bool cacheStands(BaseObject* op, HierarchyHelp* hh) {
    if (op->CheckCache(hh) || op->IsDirty(DIRTYFLAGS_DATA)) return false;
    Bool dirty = false;
    op->NewDependenceList();
    for (BaseObject* child = op->GetDown(); child; child = child->GetNext()) {
      if (child->GetInfo() & OBJECT_ISSPLINE) {
        Matrix m;
        LineObject* line =
            op->GetVirtualLineObject(child, hh, child->GetMl(), false, false, &m, &dirty);
        if (line) op->AddDependence(hh, line);
      } else {
        op->GetHierarchyClone(hh, child, HIERARCHYCLONEFLAGS_ASIS, &dirty, nullptr);
      }
    }
    if (dirty || !op->CompareDependenceList()) return false;
    op->TouchDependenceList();
    return true;
  }
  static void readLine(BaseObject* op, BaseObject* child, HierarchyHelp* hh) {
    Matrix m;
    LineObject* line =
        op->GetVirtualLineObject(child, hh, child->GetMl(), false, false, &m, nullptr);
    counters().lastLine.clear();
    if (!line) return;
    op->AddDependence(hh, line);
    for (Int32 i = 0; i < line->GetPointCount(); ++i) {
      counters().lastLine.push_back(m * line->GetPointR()[i]);
    }
  }
  static void place(BaseObject* op, BaseObject* clone, BaseObject* result) {
    if (!clone) return;
    Int32 copies = op->GetDataInstance()->GetLong(kCopies);
    Float spacing = op->GetDataInstance()->GetReal(kSpacing);
    Matrix local = clone->GetMl();
    String base = clone->GetName();
    for (Int32 i = 0; i < copies; ++i) {
      BaseObject* copy = i == 0 ? clone : clone->GetClone(COPYFLAGS_NONE, nullptr);
      copy->SetName(base + "." + std::to_string(i));
      copy->SetMl(MatrixMove(Vector(spacing * i, 0, 0)) * local);
      copy->InsertUnderLast(result);
    }
    if (copies <= 0) BaseObject::Free(clone);
  }
};

class ShiftModifier : public ObjectData {
 public:
  static NodeData* Alloc() { return new ShiftModifier(); }
  Bool Init(GeListNode* node) override {
    static_cast<BaseObject*>(node)->GetDataInstance()->SetVector(kShift, Vector(0, 10, 0));
    return true;
  }
  Bool ModifyObject(BaseObject* mod, BaseDocument*, BaseObject* op, const Matrix&, const Matrix&,
                    Float, Int32, BaseThread*) override {
    auto* line = dynamic_cast<LineObject*>(op);
    if (!line) return true;
    Vector shift = mod->GetDataInstance()->GetVector(kShift);
    for (Int32 i = 0; i < line->GetPointCount(); ++i) line->GetPointW()[i] += shift;
    line->Message(MSG_UPDATE);
    return true;
  }
};

class StraightSpline : public ObjectData {
 public:
  static NodeData* Alloc() { return new StraightSpline(); }
  Bool Init(GeListNode* node) override {
    static_cast<BaseObject*>(node)->GetDataInstance()->SetLong(kPointCount, 3);
    return true;
  }
  SplineObject* GetContour(BaseObject* op, BaseDocument*, Float, BaseThread*) override {
    ++contours;
    Int32 count = op->GetDataInstance()->GetLong(kPointCount);
    SplineObject* spline = SplineObject::Alloc(count, SPLINETYPE_LINEAR);
    if (!spline) return nullptr;
    spline->GetDataInstance()->SetLong(SPLINEOBJECT_INTERPOLATION, 0);
    for (Int32 i = 0; i < count; ++i) spline->GetPointW()[i] = Vector(i, 0, 0);
    return spline;
  }
  static inline int contours = 0;
};

class CountingTag : public TagData {
 public:
  static NodeData* Alloc() { return new CountingTag(); }
  EXECUTIONRESULT Execute(BaseTag* tag, BaseDocument*, BaseObject*, BaseThread*, Int32,
                          Int32) override {
    BaseContainer* data = tag->GetDataInstance();
    data->SetLong(1, data->GetLong(1) + 1);
    return EXECUTIONRESULT_OK;
  }
};

inline void registerTestPlugins() {
  static const bool registered = [] {
    RegisterObjectPlugin(kCloneGeneratorId, "Clone", OBJECT_GENERATOR | OBJECT_INPUT,
                         CloneGenerator::Alloc, "Otestclone", nullptr, 0);
    RegisterObjectPlugin(kShiftModifierId, "Shift", OBJECT_MODIFIER, ShiftModifier::Alloc,
                         "Otestshift", nullptr, 0);
    RegisterObjectPlugin(kStraightSplineId, "Straight", OBJECT_ISSPLINE, StraightSpline::Alloc,
                         "Oteststraight", nullptr, 0);
    RegisterTagPlugin(kCountingTagId, "Counting", TAG_VISIBLE | TAG_EXPRESSION, CountingTag::Alloc,
                      "Ttestcounting", nullptr, 0);
    return true;
  }();
  (void)registered;
}
