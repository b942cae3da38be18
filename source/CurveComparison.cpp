#include "source/CurveComparison.h"

using mv::CurveParam;
using mv::CurvePoint;

bool CurveComparison::samePoint(const CurvePoint& a, const CurvePoint& b) {
  return sameReal(a.x, b.x) && sameReal(a.y, b.y) && sameReal(a.inX, b.inX) &&
         sameReal(a.inY, b.inY) && sameReal(a.outX, b.outX) && sameReal(a.outY, b.outY) &&
         a.type == b.type;
}

int CurveComparison::compare(const CurveParam* a, const CurveParam* b) {
  if (!a || !b) return 0;
  const int count = a->getPointCount();
  if (!samePoint(*a->getPoint(0), *b->getPoint(0))) return 1;
  if (!samePoint(*a->getPoint(count - 1), *b->getPoint(b->getPointCount() - 1))) return 1;
  if (count != b->getPointCount()) return 1;
  for (int index = 1; index + 1 < count; ++index) {
    if (!samePoint(*a->getPoint(index), *b->getPoint(index))) return 1;
  }
  const bool same = a->expression() == b->expression() && sameReal(a->minimum(), b->minimum()) &&
                    sameReal(a->maximum(), b->maximum()) && a->fixedLimits() == b->fixedLimits();
  return same ? 0 : 1;
}
