// libFuzzer target: any byte string read as a stored curve. The first byte picks the level (so
// that the unknown levels are reached too); the curve that results is then written, read back,
// compared, read part by part and evaluated, since a stored curve reaches all of these in a
// document.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "source/CurveComparison.h"
#include "source/CurveStorage.h"
#include "source/CurveSubParameters.h"
#include "support/ByteCurveStream.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const int32_t level = data[0] % 5;
  ByteCurveStream stream(std::vector<uint8_t>(data + 1, data + size));
  mv::CurveParam curve;
  CurveStorage::read(curve, stream, level);
  ByteCurveStream again;
  CurveStorage::write(curve, again);
  mv::CurveParam copy;
  CurveStorage::read(copy, again, CurveStorage::kLevel);
  CurveComparison::compare(&curve, &copy);
  for (int index = 0; index < curve.getPointCount(); ++index) {
    CurveSubValue value;
    for (int field = 0; field < 7; ++field) {
      CurveSubParameters::get(
          curve, CurveSubParameters::pointNumber(curve.getPoint(index)->id, field), value);
    }
  }
  for (int i = 0; i <= 8; ++i) curve.evaluate(i / 8.0);
  return 0;
}
