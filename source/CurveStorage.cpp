#include "source/CurveStorage.h"

#include "core/MessageSink.h"

using mv::CurveParam;
using mv::CurvePoint;

bool CurveStorage::write(const CurveParam& curve, CurveStream& stream) {
  const int count = curve.getPointCount();
  bool written = stream.writeInt32(count);
  for (int index = 0; index < count; ++index) {
    const CurvePoint& point = *curve.getPoint(index);
    written = written && stream.writeInt32(point.id);
    for (double value : {point.x, point.y, point.inX, point.inY, point.outX, point.outY}) {
      written = written && stream.writeFloat64(value);
    }
    written = written && stream.writeInt32(point.type);
  }
  std::string text;
  curve.getExpression(text);
  return written && stream.writeString(text) && stream.writeFloat64(curve.maximum()) &&
         stream.writeFloat64(curve.minimum()) && stream.writeInt32(curve.fixedLimits());
}

bool CurveStorage::read(CurveParam& curve, CurveStream& stream, int32_t level) {
  if (level < 1 || level > kLevel) {
    mv::messageSink.error("Invalid Instance Data Version");
    return true;
  }
  if (readPoints(curve, stream, level)) readTail(curve, stream, level);
  return true;
}

// points := count { point }; false when the stream ran out.
bool CurveStorage::readPoints(CurveParam& curve, CurveStream& stream, int32_t level) {
  int32_t count = 0;
  if (!stream.readInt32(count)) return false;
  curve.clearPoints();
  for (int32_t index = 0; index < count; ++index) {
    CurvePoint point;
    if (!readPoint(stream, level, point)) return false;
    if (level == 1) {
      curve.addPoint(point.x, point.y, mv::PointSmooth);
    } else {
      curve.setPoint(point, true);
    }
  }
  return true;
}

// point := [id] x y [inX inY outX outY type], by level.
bool CurveStorage::readPoint(CurveStream& stream, int32_t level, CurvePoint& point) {
  if (level >= 2 && !stream.readInt32(point.id)) return false;
  if (!stream.readFloat64(point.x) || !stream.readFloat64(point.y)) return false;
  if (level < 3) {
    point = CurvePoint::at(point.x, point.y, mv::PointSmooth, point.id);
    return true;
  }
  return stream.readFloat64(point.inX) && stream.readFloat64(point.inY) &&
         stream.readFloat64(point.outX) && stream.readFloat64(point.outY) &&
         stream.readInt32(point.type);
}

// tail := text maximum minimum [type] fixedLimits
bool CurveStorage::readTail(CurveParam& curve, CurveStream& stream, int32_t level) {
  std::string text;
  if (!stream.readString(text)) return false;
  curve.setExpression(text);
  double limit = 0.0;
  if (!stream.readFloat64(limit)) return false;
  curve.setMaximum(limit);
  if (!stream.readFloat64(limit)) return false;
  curve.setMinimum(limit);
  int32_t value = 0;
  if (level < 3) {
    if (!stream.readInt32(value)) return false;
    curve.setAllPointTypes(value);
  }
  if (!stream.readInt32(value)) return false;
  curve.setFixedLimits(value);
  return true;
}
