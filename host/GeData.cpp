#include "host/GeData.h"

#include <utility>

#include "host/BaseContainer.h"
#include "host/BaseList2D.h"
#include "host/CustomDataTypeClass.h"
#include "host/PluginRegistry.h"

GeData::GeData(const GeData& other) { copyFrom(other); }

GeData& GeData::operator=(const GeData& other) {
  if (this != &other) {
    SetNil();
    copyFrom(other);
  }
  return *this;
}

GeData::GeData(GeData&& other) noexcept { *this = std::move(other); }

GeData& GeData::operator=(GeData&& other) noexcept {
  if (this != &other) {
    SetNil();
    type_ = other.type_;
    integer_ = other.integer_;
    real_ = other.real_;
    vector_ = other.vector_;
    matrix_ = other.matrix_;
    string_ = std::move(other.string_);
    linkId_ = other.linkId_;
    container_ = other.container_;
    other.container_ = nullptr;
    custom_ = other.custom_;
    other.custom_ = nullptr;
    other.type_ = DA_NIL;
  }
  return *this;
}

GeData::~GeData() { SetNil(); }

void GeData::copyFrom(const GeData& other) {
  if (other.custom_) {
    SetCustomDataType(other.type_, *other.custom_);
    return;
  }
  type_ = other.type_;
  integer_ = other.integer_;
  real_ = other.real_;
  vector_ = other.vector_;
  matrix_ = other.matrix_;
  string_ = other.string_;
  linkId_ = other.linkId_;
  if (other.container_) container_ = new BaseContainer(*other.container_);
}

void GeData::releaseCustom() {
  if (!custom_) return;
  if (CustomDataTypeClass* cls = PluginRegistry::FindCustomDataType(type_)) {
    cls->FreeData(custom_);
  } else {
    delete custom_;
  }
  custom_ = nullptr;
}

void GeData::SetNil() {
  releaseCustom();
  delete container_;
  container_ = nullptr;
  string_.clear();
  type_ = DA_NIL;
}

Int32 GeData::GetInt32() const {
  if (type_ == DA_LONG) return integer_;
  if (type_ == DA_REAL) return static_cast<Int32>(real_);
  return 0;
}

Float GeData::GetFloat() const {
  if (type_ == DA_REAL) return real_;
  if (type_ == DA_LONG) return integer_;
  return 0.0;
}

const String& GeData::GetString() const {
  static const String empty;
  return type_ == DA_STRING ? string_ : empty;
}

BaseList2D* GeData::GetLink() const {
  return type_ == DA_ALIASLINK ? BaseList2D::FindByUniqueId(linkId_) : nullptr;
}

const BaseContainer* GeData::GetContainer() const {
  return type_ == DA_CONTAINER ? container_ : nullptr;
}

BaseContainer* GeData::GetContainerInstance() {
  return type_ == DA_CONTAINER ? container_ : nullptr;
}

CustomDataType* GeData::GetCustomDataType(Int32 type) const {
  return type_ == type ? custom_ : nullptr;
}

void GeData::SetInt32(Int32 value) {
  SetNil();
  type_ = DA_LONG;
  integer_ = value;
}

void GeData::SetFloat(Float value) {
  SetNil();
  type_ = DA_REAL;
  real_ = value;
}

void GeData::SetVector(const Vector& value) {
  SetNil();
  type_ = DA_VECTOR;
  vector_ = value;
}

void GeData::SetMatrix(const Matrix& value) {
  SetNil();
  type_ = DA_MATRIX;
  matrix_ = value;
}

void GeData::SetString(const String& value) {
  SetNil();
  type_ = DA_STRING;
  string_ = value;
}

void GeData::SetBaseList2D(BaseList2D* link) {
  SetNil();
  type_ = DA_ALIASLINK;
  linkId_ = link ? link->GetUniqueId() : 0;
}

void GeData::SetContainer(const BaseContainer& value) {
  auto* copy = new BaseContainer(value);  // value may live inside this GeData
  SetNil();
  type_ = DA_CONTAINER;
  container_ = copy;
}

void GeData::SetCustomDataType(Int32 type, const CustomDataType& data) {
  CustomDataTypeClass* cls = PluginRegistry::FindCustomDataType(type);
  CustomDataType* copy = cls ? cls->AllocData() : nullptr;
  if (copy && !cls->CopyData(&data, copy, nullptr)) {
    cls->FreeData(copy);
    copy = nullptr;
  }
  SetNil();
  if (!copy) return;
  type_ = type;
  custom_ = copy;
}

bool GeData::operator==(const GeData& other) const {
  if (type_ != other.type_) return false;
  switch (type_) {
    case DA_NIL:
      return true;
    case DA_LONG:
      return integer_ == other.integer_;
    case DA_REAL:
      return real_ == other.real_;
    case DA_VECTOR:
      return vector_ == other.vector_;
    case DA_MATRIX:
      return matrix_ == other.matrix_;
    case DA_STRING:
      return string_ == other.string_;
    case DA_ALIASLINK:
      return linkId_ == other.linkId_;
    case DA_CONTAINER:
      return *container_ == *other.container_;
    default:
      break;
  }
  CustomDataTypeClass* cls = PluginRegistry::FindCustomDataType(type_);
  return cls && custom_ && other.custom_ && cls->Compare(custom_, other.custom_) == 0;
}
