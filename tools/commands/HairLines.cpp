#include "commands/HairLines.h"

#include "host/BaseDocument.h"
#include "host/HairGuides.h"
#include "host/HairObject.h"
#include "source/MatrixConversion.h"

namespace HairLines {

namespace {

void walk(BaseObject* op, mv::LineStrips& lines) {
  for (; op; op = op->GetNext()) {
    auto* hair = dynamic_cast<HairObject*>(op);
    if (hair && hair->GetGuides()) append(*hair->GetGuides(), hair->GetMg(), lines);
    walk(op->GetDown(), lines);
  }
}

}  // namespace

void append(const HairGuides& guides, const Matrix& placement, mv::LineStrips& lines) {
  const Int32 perGuide = guides.GetSegmentCount() + 1;
  lines.points.reserve(lines.points.size() + size_t(guides.GetPointCount()));
  for (Int32 k = 0; k < guides.GetPointCount(); ++k) {
    lines.points.push_back(toLibraryVector(placement * guides.GetPoints()[k]));
  }
  lines.counts.insert(lines.counts.end(), size_t(guides.GetCount()), uint32_t(perGuide));
}

mv::LineStrips ofDocument(BaseDocument* doc) {
  mv::LineStrips lines;
  walk(doc->GetFirstObject(), lines);
  return lines;
}

}  // namespace HairLines
