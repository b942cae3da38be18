// TextureTag: puts a material on an object (Ttexture); string 1006 restricts it to the
// polygon selection of that name, empty for the whole object.
#pragma once

#include "host/BaseTag.h"

class BaseMaterial;

constexpr Int32 TEXTURETAG_RESTRICTION = 1006;
constexpr Int32 TEXTURETAG_MATERIAL = 1010;

class TextureTag : public BaseTag {
 public:
  TextureTag() : BaseTag(Ttexture) {}
  void SetMaterial(BaseMaterial* material);
  BaseMaterial* GetMaterial() const;

 protected:
  BaseTag* cloneTag() const override;
};
