#include "geometry/OPolygonStream.h"

#include <algorithm>
#include <limits>
#include <set>
#include <sstream>
#include <string>

#include "core/MessageSink.h"
#include "geometry/Triangulation.h"

namespace mv {

namespace {

constexpr double kSeamTolerance = 1e-6;

bool isPolygonCommand(int command) { return command == CmdPolygon || command == CmdPolygonMesh; }

// Quads along one direction of a patch: count - order + 1, kept within the spans of the grid so
// that no quad reaches past it whatever order a writer sends.
int spanCount(int count, int order) {
  const long spans = static_cast<long>(count) - order + 1;
  return static_cast<int>(std::clamp(spans, 0L, static_cast<long>(count) - 1));
}

}  // namespace

OPolygonStream::OPolygonStream(OMesh* mesh, bool weldSeam) : mesh_(mesh), weldSeam_(weldSeam) {}

OPolygonStream::~OPolygonStream() { flush(); }

OGeomStream& OPolygonStream::operator<<(const Vector3& point) {
  putPoint(point);
  return *this;
}

// A normal only counts as a value; nothing reads it.
void OPolygonStream::putNormal(const GeomNormal&) { OBaseGeomStream::putPoint(Vector3()); }

// Four doubles are a point of a patch alone; the fourth is dropped, not divided by.
void OPolygonStream::putVector4(const GeomPoint4& point) {
  if (lastCommand() == CmdPatch) putPoint(Vector3(point.x, point.y, point.z));
}

void OPolygonStream::putPoint(const Vector3& point) {
  const bool primitive = lastCommand() == CmdPatch || isPolygonCommand(lastCommand());
  if (primitive && state() == StateParamValues && paramKind() == ParamPoints) {
    points_.push_back(point);
  }
  OBaseGeomStream::putPoint(point);
}

void OPolygonStream::putInt(int value) {
  if (lastCommand() == CmdPatch) {
    if (state() == StateUCount) nu_ = value;
    if (state() == StateUOrder) uOrder_ = value;
    if (state() == StateVCount) nv_ = value;
    if (state() == StateVOrder) vOrder_ = value;
  } else if (isPolygonCommand(lastCommand())) {
    if (state() == StateListCount) outlineCount_ = value;
    if (state() == StateListValues) indices_.push_back(value);
  }
  intInFlight_ = true;
  OBaseGeomStream::putInt(value);
  intInFlight_ = false;
}

void OPolygonStream::putDouble(double value) {
  const int command = lastCommand();
  if (command == CmdPatch) {
    switch (state()) {
      case StateUKnots:
        uKnots_.push_back(value);
        break;
      case StateVKnots:
        vKnots_.push_back(value);
        break;
      case StateUMin:
        uMin_ = value;
        break;
      case StateUMax:
        uMax_ = value;
        break;
      case StateVMin:
        vMin_ = value;
        break;
      case StateVMax:
        vMax_ = value;
        break;
      default:
        break;
    }
  }
  const bool primitive = command == CmdPatch || isPolygonCommand(command);
  if (primitive && !intInFlight_ && state() == StateParamValues && paramKind() == ParamTexture) {
    textureValues_.push_back(value);
  }
  OBaseGeomStream::putDouble(value);
}

// The primitive in hand is complete: write it under the attributes and transform still in
// force, before the base class acts on the new command.
void OPolygonStream::putCommand(GeomCommand command) {
  flush();
  OBaseGeomStream::putCommand(command);
}

void OPolygonStream::beginList() {
  if (lastCommand() == CmdPatch && state() == StateUKnots) uKnots_.clear();
  if (lastCommand() == CmdPatch && state() == StateVKnots) vKnots_.clear();
  OBaseGeomStream::beginList();
}

bool OPolygonStream::flush() {
  bool ok = true;
  if (lastCommand() == CmdPatch) ok = flushPatch();
  if (lastCommand() == CmdPolygon) ok = flushPolygon();
  if (lastCommand() == CmdPolygonMesh) ok = flushPolygonMesh();
  clear();
  return ok;
}

bool OPolygonStream::flushPatch() {
  if (nu_ < 1 || nv_ < 1) return true;
  if (points_.size() != static_cast<uint64_t>(nu_) * static_cast<uint64_t>(nv_)) {
    messageSink.error("Wrong Number of Parameters supplied! Patch Data may be invalid.");
    return false;
  }
  const int cols = spanCount(nu_, uOrder_), rows = spanCount(nv_, vOrder_);
  // Welding two columns into one would leave nothing but degenerate quads.
  const bool closed = weldSeam_ && nu_ >= 3 && patchSeamClosed();
  const uint32_t stored = static_cast<uint32_t>(closed ? nu_ - 1 : nu_);
  uint32_t firstPolygon = 0;
  if (!allocate(static_cast<uint64_t>(nv_) * stored, static_cast<uint64_t>(cols) * rows,
                firstPolygon)) {
    return false;
  }
  writePoints(static_cast<size_t>(nu_), stored);
  const int material = topAttributes().material;
  uint32_t polygon = firstPolygon;
  for (int j = 0; j < rows; ++j) {
    const uint32_t bottom = firstPoint_ + static_cast<uint32_t>(j) * stored;
    const uint32_t top = bottom + stored;
    for (uint32_t i = 0; i < static_cast<uint32_t>(cols); ++i, ++polygon) {
      const uint32_t next = i + 1 == stored ? 0 : i + 1;  // wraps across a welded seam
      mesh_->setPolygon(polygon, {top + i, top + next, bottom + next, bottom + i, material});
      writePatchTexture(polygon, static_cast<int>(i), j, cols, rows);
    }
  }
  return true;
}

bool OPolygonStream::flushPolygon() {
  if (outlineCount_ < 1 || indices_.empty() || indices_[0] < 1 ||
      points_.size() != static_cast<size_t>(indices_[0])) {
    return false;
  }
  // Outlines with holes have no defined output: refuse them rather than leave empty polygons.
  if (outlineCount_ != 1 || indices_.size() != 1) return false;
  std::vector<uint32_t> triangles;
  if (!triangulate(points_, triangles, true)) {
    reportTriangulationError();
    return false;
  }
  const size_t n = points_.size();
  uint32_t firstPolygon = 0;
  if (!allocate(n, n - 2, firstPolygon)) return false;
  writePoints(n, static_cast<uint32_t>(n));
  const GeomAttributes attributes = topAttributes();
  const bool textured = textureValues_.size() == 2 * n;
  std::set<uint32_t> selection;
  for (uint32_t k = 0; k < n - 2; ++k) {
    const uint32_t* corner = &triangles[3 * k];
    const uint32_t a = firstPoint_ + corner[0], b = firstPoint_ + corner[1];
    const uint32_t c = firstPoint_ + corner[2];
    mesh_->setPolygon(firstPolygon + k, {a, b, c, c, attributes.material});
    if (textured) {
      const Vector3 tc = textureValue(corner[2]);
      mesh_->setTexturePolygon(firstPolygon + k,
                               {textureValue(corner[0]), textureValue(corner[1]), tc, tc});
    }
    selection.insert(firstPolygon + k);
  }
  if (!attributes.selectionName.empty()) mesh_->setSelection(attributes.selectionName, selection);
  return true;
}

bool OPolygonStream::flushPolygonMesh() {
  const size_t polygonCount = indices_.size() / 4;
  messageSink.debug("PolygonStream: Polygons " + std::to_string(polygonCount) + " Points " +
                    std::to_string(points_.size()));
  const auto outside = [this](int index) {
    return index < 0 || static_cast<size_t>(index) >= points_.size();
  };
  if (std::any_of(indices_.begin(), indices_.begin() + static_cast<long>(4 * polygonCount),
                  outside)) {
    messageSink.error("PolygonStream: point index out of range");
    return false;
  }
  uint32_t firstPolygon = 0;
  if (!allocate(points_.size(), polygonCount, firstPolygon)) return false;
  writePoints(points_.size(), static_cast<uint32_t>(points_.size()));
  const int material = topAttributes().material;
  // Eight values a polygon; a shorter list leaves the texture polygons at zero.
  const bool textured = textureValues_.size() >= 8 * polygonCount;
  for (uint32_t k = 0; k < polygonCount; ++k) {
    const auto corner = [&](int c) {
      return firstPoint_ + static_cast<uint32_t>(indices_[4 * k + c]);
    };
    mesh_->setPolygon(firstPolygon + k, {corner(0), corner(1), corner(2), corner(3), material});
    if (!textured) continue;
    const auto uv = [&](int c) {
      return Vector3(textureValues_[8 * k + 2 * c], textureValues_[8 * k + 2 * c + 1], 0.0);
    };
    mesh_->setTexturePolygon(firstPolygon + k, {uv(0), uv(1), uv(2), uv(3)});
  }
  return true;
}

// Reserves room in the mesh; counts past 32 bits cannot be had either.
bool OPolygonStream::allocate(uint64_t pointCount, uint64_t polygonCount, uint32_t& firstPolygon) {
  constexpr uint64_t kMax = std::numeric_limits<uint32_t>::max();
  if (mesh_ == nullptr || pointCount > kMax || polygonCount > kMax ||
      !mesh_->allocate(static_cast<uint32_t>(pointCount), static_cast<uint32_t>(polygonCount),
                       firstPoint_, firstPolygon)) {
    messageSink.error("Memory Allocation failed!");
    return false;
  }
  return true;
}

bool OPolygonStream::patchSeamClosed() const {
  for (int j = 0; j < nv_; ++j) {
    const size_t first = static_cast<size_t>(j) * static_cast<size_t>(nu_);
    if ((points_[first + nu_ - 1] - points_[first]).length() > kSeamTolerance) return false;
  }
  return true;
}

// Writes the first storedPerRow points of every row of rowLength points, transformed, from
// firstPoint_ on.
void OPolygonStream::writePoints(size_t rowLength, uint32_t storedPerRow) {
  if (rowLength == 0) return;
  const Matrix4& transform = topTransform();
  uint32_t next = firstPoint_;
  for (size_t row = 0; row + rowLength <= points_.size(); row += rowLength) {
    for (size_t i = 0; i < storedPerRow; ++i) {
      mesh_->setPoint(next++, transform.transformPoint(points_[row + i]));
    }
  }
}

Vector3 OPolygonStream::textureValue(size_t point) const {
  return {textureValues_[2 * point], textureValues_[2 * point + 1], 0.0};
}

// Corner values of the unwelded grid when there are two a point, otherwise the grid's own
// coordinates, u along the columns.
void OPolygonStream::writePatchTexture(uint32_t polygon, int i, int j, int cols, int rows) const {
  TexturePolygon texture;
  if (textureValues_.size() == 2 * points_.size()) {
    const size_t bottom = static_cast<size_t>(j) * nu_ + i, top = bottom + nu_;
    texture = {textureValue(top), textureValue(top + 1), textureValue(bottom + 1),
               textureValue(bottom)};
  } else {
    const double u0 = double(i) / cols, u1 = double(i + 1) / cols;
    const double v0 = double(j) / rows, v1 = double(j + 1) / rows;
    texture = {{u0, v1, 0.0}, {u1, v1, 0.0}, {u1, v0, 0.0}, {u0, v0, 0.0}};
  }
  mesh_->setTexturePolygon(polygon, texture);
}

void OPolygonStream::reportTriangulationError() const {
  messageSink.debug("Triangulation Error");
  for (const Vector3& p : points_) {
    std::ostringstream line;
    line << "(" << p.x << ", " << p.y << ", " << p.z << ")";
    messageSink.debug(line.str());
  }
}

void OPolygonStream::clear() {
  nu_ = uOrder_ = nv_ = vOrder_ = 0;
  uMin_ = uMax_ = vMin_ = vMax_ = 0.0;
  uKnots_.clear();
  vKnots_.clear();
  outlineCount_ = 0;
  indices_.clear();
  points_.clear();
  textureValues_.clear();
}

}  // namespace mv
