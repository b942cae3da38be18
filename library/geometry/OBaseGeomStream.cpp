#include "geometry/OBaseGeomStream.h"

#include "core/MessageSink.h"

namespace mv {

OBaseGeomStream::OBaseGeomStream() : transforms_(1), attributes_(1) {}

int OBaseGeomStream::addMaterial(const std::string& name) {
  materialNames_.push_back(name);
  return static_cast<int>(materialNames_.size()) - 1;
}

OGeomStream& OBaseGeomStream::operator<<(char bracket) {
  if (bracket == '[') {
    beginList();
  } else if (bracket == ']') {
    endList();
  }
  return *this;
}

OGeomStream& OBaseGeomStream::param(int kind) {
  putParam(kind);
  return *this;
}

OGeomStream& OBaseGeomStream::operator<<(GeomCommand command) {
  putCommand(command);
  return *this;
}

OGeomStream& OBaseGeomStream::operator<<(double value) {
  putDouble(value);
  return *this;
}

OGeomStream& OBaseGeomStream::operator<<(int value) {
  putInt(value);
  return *this;
}

OGeomStream& OBaseGeomStream::operator<<(const std::string& value) {
  putString(value);
  return *this;
}

OGeomStream& OBaseGeomStream::operator<<(const Matrix4& value) {
  putMatrix(value);
  return *this;
}

OGeomStream& OBaseGeomStream::operator<<(const GeomPoint4& point) {
  putVector4(point);
  return *this;
}

OGeomStream& OBaseGeomStream::operator<<(const GeomNormal& normal) {
  putNormal(normal);
  return *this;
}

bool OBaseGeomStream::inPolygonCommand() const {
  return lastCommand_ == CmdPolygon || lastCommand_ == CmdPolygonMesh;
}

// Point forms only count patch values; the other primitives' points are the consumer's business.
void OBaseGeomStream::putPoint(const Vector3&) {
  if (lastCommand_ == CmdPatch && state_ == StateParamValues) countListValue();
}

void OBaseGeomStream::putVector4(const GeomPoint4&) { putPoint(Vector3()); }

void OBaseGeomStream::putNormal(const GeomNormal&) { putPoint(Vector3()); }

// A second matrix multiplies again: the earlier one carries a point first.
void OBaseGeomStream::putMatrix(const Matrix4& matrix) {
  if (lastCommand_ != CmdTransform || state_ != StateMatrix) return;
  transforms_.back() = transforms_.back() * matrix;
}

void OBaseGeomStream::putString(const std::string& value) {
  if (lastCommand_ == CmdAttribute && state_ == StateParamValues && paramKind_ == ParamSelection) {
    attributes_.back().selectionName = value;
  }
}

void OBaseGeomStream::putInt(int value) {
  if (lastCommand_ == CmdPatch) {
    switch (state_) {
      case StateUCount:
        state_ = StateUOrder;
        return;
      case StateUOrder:
        state_ = StateUKnots;
        return;
      case StateVCount:
        state_ = StateVOrder;
        return;
      case StateVOrder:
        state_ = StateVKnots;
        return;
      default:
        break;
    }
  }
  if (inPolygonCommand()) {
    if (state_ == StateListCount) {
      state_ = StateListValues;
    } else if (state_ == StateListValues) {
      countListValue();
    }
    return;
  }
  if (state_ == StateMaterial) {
    attributes_.back().material = value;
    return;
  }
  if (lastCommand_ == CmdAttribute && paramKind_ == ParamSelection && state_ == StateParamValues) {
    attributes_.back().selectionId = value;
    state_ = StateParamList;
    return;
  }
  putDouble(static_cast<double>(value));
}

void OBaseGeomStream::putDouble(double) {
  if (lastCommand_ != CmdPatch) return;
  switch (state_) {
    case StateUKnots:
    case StateVKnots:
    case StateParamValues:
      countListValue();
      return;
    case StateUMin:
      state_ = StateUMax;
      return;
    case StateUMax:
      state_ = StateVCount;
      return;
    case StateVMin:
      state_ = StateVMax;
      return;
    case StateVMax:
      state_ = StateParamList;
      return;
    default:
      messageSink.error("Unexpected value for currrent GeometryStream State: " +
                        std::to_string(state_));
  }
}

void OBaseGeomStream::putCommand(GeomCommand command) {
  lastCommand_ = command;
  switch (command) {
    case CmdGroupBeginLegacy:
    case CmdGroupBegin:
      attributes_.push_back(attributes_.back());
      transforms_.push_back(transforms_.back());
      break;
    case CmdGroupEndLegacy:
    case CmdGroupEnd:
      popAttributes();
      popTransform();
      break;
    case CmdTransformBegin:
      transforms_.push_back(transforms_.back());
      break;
    case CmdTransformEnd:
      popTransform();
      break;
    case CmdTransform:
      state_ = StateMatrix;
      break;
    case CmdMaterialIndex:
      state_ = StateMaterial;
      break;
    case CmdAttribute:
      state_ = StateParamList;
      break;
    case CmdPolygon:
    case CmdPolygonMesh:
      state_ = StateListCount;
      paramKind_ = ParamNone;
      break;
    case CmdPatch:
      state_ = StateUCount;
      paramKind_ = ParamNone;
      break;
    default:
      break;  // recorded as the last command, nothing else
  }
}

void OBaseGeomStream::putParam(int kind) {
  if (state_ != StateParamList) return;
  valueCounter_ = 0;
  paramKind_ = kind;
  state_ = StateParamValues;
}

void OBaseGeomStream::beginList() { valueCounter_ = 0; }

void OBaseGeomStream::endList() {
  valueCounter_ = -1;
  if (state_ == StateParamValues) {
    state_ = StateParamList;
  } else if (lastCommand_ == CmdPatch) {
    if (state_ == StateUKnots) state_ = StateUMin;
    if (state_ == StateVKnots) state_ = StateVMin;
  } else if (inPolygonCommand() && state_ == StateListValues) {
    state_ = StateParamList;
  }
}

// The first entry of each stack is never popped: an unbalanced end would leave no top.
void OBaseGeomStream::popTransform() {
  if (transforms_.size() > 1) {
    transforms_.pop_back();
  } else {
    messageSink.error("Geometry stream: transform end without a matching begin");
  }
}

void OBaseGeomStream::popAttributes() {
  if (attributes_.size() > 1) {
    attributes_.pop_back();
  } else {
    messageSink.error("Geometry stream: group end without a matching begin");
  }
}

}  // namespace mv
