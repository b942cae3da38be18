#include "source/C4dLine.h"

#include "host/HostIds.h"
#include "host/LineTag.h"
#include "host/SegmentTag.h"
#include "source/MatrixConversion.h"

C4dLine::C4dLine(LineObject* lineObject, const Matrix& matrix) { setLine(lineObject, matrix); }

void C4dLine::setLine(LineObject* newLine, const Matrix& newMatrix) {
  lineObject = newLine;
  matrix = newMatrix;
}

namespace {

const SegmentTag* segmentsOf(LineObject* line) {
  return line != nullptr ? static_cast<const SegmentTag*>(line->GetTag(Tsegment, 0)) : nullptr;
}

}  // namespace

uint32_t C4dLine::getSegmentCount() const {
  const SegmentTag* segments = segmentsOf(lineObject);
  return segments != nullptr ? static_cast<uint32_t>(segments->GetDataCount()) : 0;
}

uint32_t C4dLine::getSegmentPointCount(uint32_t segment) const {
  if (segment >= getSegmentCount()) return 0;
  return static_cast<uint32_t>(segmentsOf(lineObject)->GetDataAddressR()[segment].cnt);
}

bool C4dLine::isSegmentClosed(uint32_t segment) const {
  if (segment >= getSegmentCount()) return false;
  return segmentsOf(lineObject)->GetDataAddressR()[segment].closed;
}

uint32_t C4dLine::getPointCount() const {
  return lineObject != nullptr ? static_cast<uint32_t>(lineObject->GetPointCount()) : 0;
}

double C4dLine::parameterOf(uint32_t index) const {
  const auto* parameters = static_cast<const LineTag*>(lineObject->GetTag(Tline, 0));
  if (parameters == nullptr || static_cast<Int32>(index) >= parameters->GetDataCount()) return 0.0;
  return parameters->GetDataAddressR()[index];
}

mv::Vector3 C4dLine::libraryPoint(uint32_t index) const {
  return toLibraryVector(matrix * lineObject->GetPointR()[index]);
}

bool C4dLine::getPoint(uint32_t index, double& t, mv::Vector3& point) const {
  if (index >= getPointCount()) return false;
  t = parameterOf(index);
  point = libraryPoint(index);
  return true;
}

// Linear between the two stored points whose parameters enclose t.
void C4dLine::getPosition(double t, uint32_t segment, bool, mv::Vector3& position) const {
  position = mv::Vector3();
  uint32_t first = 0;
  uint32_t count = 0;
  if (!segmentRange(segment, first, count) || count == 0) return;
  if (count == 1) {
    position = libraryPoint(first);
    return;
  }
  uint32_t index = first;
  while (index < first + count && parameterOf(index) < t) ++index;
  if (index == first + count) {
    position = libraryPoint(first + count - 1);
  } else if (index == first || parameterOf(index) == t) {
    position = libraryPoint(index);
  } else {
    const double before = parameterOf(index - 1);
    const double share = (t - before) / (parameterOf(index) - before);
    const mv::Vector3 a = libraryPoint(index - 1);
    const mv::Vector3 b = libraryPoint(index);
    position = a + (b - a) * share;
  }
}

bool C4dLine::allocate(uint32_t, uint32_t) { return false; }

bool C4dLine::finish() {
  if (lineObject == nullptr) return false;
  lineObject->Message(MSG_UPDATE, nullptr);
  return true;
}

bool C4dLine::setPoint(uint32_t index, double, const mv::Vector3& point) {
  if (index >= getPointCount()) return false;
  lineObject->GetPointW()[index] = toHostVector(point);
  return true;
}

bool C4dLine::setSegment(uint32_t, uint32_t, bool) { return false; }
