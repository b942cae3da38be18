// GeData: one value of a container: nothing, an integer (bools are integers), a real, a vector,
// a matrix, a string, a link to an object, tag or material, a nested container, or custom data
// of a registered type. Copies are deep: custom data is copied through its class, so each
// GeData owns what it holds. A link does not own: it resolves to null once its target is gone.
#pragma once

#include "host/HostIds.h"
#include "host/HostTypes.h"
#include "host/Matrix.h"

class BaseContainer;
class BaseList2D;
class CustomDataType;

class GeData {
 public:
  GeData() = default;
  GeData(Int32 value) { SetInt32(value); }
  GeData(Bool value) { SetInt32(value ? 1 : 0); }
  GeData(Float value) { SetFloat(value); }
  GeData(const Vector& value) { SetVector(value); }
  GeData(const Matrix& value) { SetMatrix(value); }
  GeData(const String& value) { SetString(value); }
  GeData(const char* value) { SetString(value); }
  GeData(const BaseContainer& value) { SetContainer(value); }
  GeData(BaseList2D* link) { SetBaseList2D(link); }
  // Custom data: a copy of `data` made by the class registered for `type`; nothing when no
  // class is registered for it.
  GeData(Int32 type, const CustomDataType& data) { SetCustomDataType(type, data); }
  GeData(const GeData& other);
  GeData& operator=(const GeData& other);
  GeData(GeData&& other) noexcept;
  GeData& operator=(GeData&& other) noexcept;
  ~GeData();

  // DA_NIL, DA_LONG, DA_REAL, DA_VECTOR, DA_MATRIX, DA_STRING, DA_ALIASLINK, DA_CONTAINER, or
  // the id of a registered custom data type.
  Int32 GetType() const { return type_; }

  // Reads convert between integer and real; any other kind gives the zero value.
  Int32 GetInt32() const;
  Bool GetBool() const { return GetInt32() != 0; }
  Float GetFloat() const;
  Vector GetVector() const { return type_ == DA_VECTOR ? vector_ : Vector(); }
  Matrix GetMatrix() const { return type_ == DA_MATRIX ? matrix_ : Matrix(); }
  const String& GetString() const;
  BaseList2D* GetLink() const;
  Int64 GetLinkId() const { return type_ == DA_ALIASLINK ? linkId_ : 0; }
  const BaseContainer* GetContainer() const;
  BaseContainer* GetContainerInstance();
  // The custom data when the value is of that type, else null.
  CustomDataType* GetCustomDataType(Int32 type) const;

  void SetInt32(Int32 value);
  void SetFloat(Float value);
  void SetVector(const Vector& value);
  void SetMatrix(const Matrix& value);
  void SetString(const String& value);
  void SetBaseList2D(BaseList2D* link);
  void SetContainer(const BaseContainer& value);
  void SetCustomDataType(Int32 type, const CustomDataType& data);
  void SetNil();

  // Same kind and value; custom data compares through its class.
  bool operator==(const GeData& other) const;
  bool operator!=(const GeData& other) const { return !(*this == other); }

 private:
  void copyFrom(const GeData& other);
  void releaseCustom();

  Int32 type_ = 0;
  Int32 integer_ = 0;
  Float real_ = 0.0;
  Vector vector_;
  Matrix matrix_;
  String string_;
  Int64 linkId_ = 0;
  BaseContainer* container_ = nullptr;  // owned
  CustomDataType* custom_ = nullptr;    // owned; freed through its class
};
