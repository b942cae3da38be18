#include "host/TextureTag.h"

#include "host/BaseMaterial.h"

void TextureTag::SetMaterial(BaseMaterial* material) {
  GetDataInstance()->SetLink(TEXTURETAG_MATERIAL, material);
  SetDirty(DIRTYFLAGS_DATA);
}

BaseMaterial* TextureTag::GetMaterial() const {
  return dynamic_cast<BaseMaterial*>(GetDataInstance()->GetLink(TEXTURETAG_MATERIAL));
}

BaseTag* TextureTag::cloneTag() const { return new TextureTag(); }
