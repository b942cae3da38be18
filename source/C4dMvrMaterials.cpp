// Materials of an imported scene: host materials with their channels, and texture tags.
#include <filesystem>

#include "host/BaseBitmap.h"
#include "host/BaseContainer.h"
#include "host/BaseDocument.h"
#include "host/BaseMaterial.h"
#include "host/BaseObject.h"
#include "host/HostIds.h"
#include "host/SceneLoaderData.h"
#include "host/TextureTag.h"
#include "source/C4dMvrLoader.h"

namespace {

// Settings of the scene loader that shape materials.
enum : int {
  IdTextureSampling = 1000,
  IdTextureMix = 1002,
  IdAlphaFromImage = 1003,
};

// Channel and material parameters.
enum : int {
  IdSampling = 1005,
  IdMixMode = 1006,
  IdUseAlpha = 1027,
  IdAlphaImage = 1014,
  IdAlphaInvert = 1012,
  IdTagOffsetX = 1000,
  IdTagOffsetY = 1001,
  IdTagScaleX = 1002,
  IdTagScaleY = 1003,
  IdTagProjection = 1004,
  IdTagSide = 1005,
  IdTagTile = 1007,
  IdTagSeamless = 1008,
  IdTagUseUvw = 1009,
};

constexpr Int32 kProjectionUvw = 6;

Vector vectorOf(const mv::MvrColor& color) { return Vector(color.red, color.green, color.blue); }

// The texture's absolute path beside the scene file when it is there, else as the file gives it.
std::string texturePath(const Filename& scene, const std::string& texture) {
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::path beside = fs::absolute(fs::path(scene.GetString()).parent_path() / texture, error);
  return !error && fs::exists(beside, error) ? beside.string() : texture;
}

void setChannel(BaseMaterial* material, Int32 channel, const Vector& color) {
  BaseContainer* data = material->GetChannel(channel)->GetDataInstance();
  data->SetVector(CHANNEL_COLOR_VALUE, color);
  data->SetReal(CHANNEL_BRIGHTNESS, 1.0);
  material->SetChannelState(channel, true);
}

}  // namespace

BaseMaterial* C4dMvrLoader::makeHostMaterial(const Filename& file, const BaseContainer* container,
                                             const mv::MvrMaterial& material) {
  BaseMaterial* host = BaseMaterial::Alloc(Mmaterial);
  if (!host) return nullptr;
  host->SetName(material.name);
  const bool sampling = container && container->GetBool(IdTextureSampling);
  const bool mix = container && container->GetBool(IdTextureMix);
  const bool alphaFromImage = !container || container->GetBool(IdAlphaFromImage, true);
  const std::string texture =
      material.textureFile.empty() ? std::string() : texturePath(file, material.textureFile);

  setChannel(host, CHANNEL_COLOR, vectorOf(material.diffuse));
  if (!texture.empty()) {
    BaseContainer* color = host->GetChannel(CHANNEL_COLOR)->GetDataInstance();
    color->SetString(CHANNEL_TEXTURE, texture);
    color->SetLong(IdMixMode, mix ? 0 : 3);
    color->SetLong(IdSampling, sampling ? 1 : 6);
  }
  const mv::MvrColor& specular = material.specular;
  if (!(specular == mv::MvrColor(1.0f, 1.0f, 1.0f)))
    setChannel(host, CHANNEL_SPECULARCOLOR, vectorOf(specular));
  const mv::MvrColor& emission = material.emission;
  if (emission.red > 0.0f || emission.green > 0.0f || emission.blue > 0.0f) {
    setChannel(host, CHANNEL_LUMINANCE, vectorOf(emission));
    if (!texture.empty()) {
      BaseContainer* luminance = host->GetChannel(CHANNEL_LUMINANCE)->GetDataInstance();
      luminance->SetString(CHANNEL_TEXTURE, texture);
      luminance->SetLong(IdMixMode, 2);
    }
  }
  BaseBitmap image;
  if (!texture.empty() && image.Init(texture) == IMAGERESULT_OK && image.HasAlpha()) {
    BaseContainer* alpha = host->GetChannel(CHANNEL_ALPHA)->GetDataInstance();
    alpha->SetString(CHANNEL_TEXTURE, texture);
    alpha->SetLong(IdSampling, sampling ? 1 : 6);
    host->SetChannelState(CHANNEL_ALPHA, true);
    BaseContainer* data = host->GetDataInstance();
    data->SetBool(IdUseAlpha, true);
    data->SetBool(IdAlphaImage, alphaFromImage);
    data->SetBool(IdAlphaInvert, !alphaFromImage);
  }
  return host;
}

TextureTag* C4dMvrLoader::makeTextureTag(BaseMaterial* material, const mv::Vector3& offset,
                                         const mv::Vector3& scale, const std::string& selection) {
  auto* tag = static_cast<TextureTag*>(BaseTag::Alloc(Ttexture));
  if (!tag) return nullptr;
  tag->SetMaterial(material);
  BaseContainer* data = tag->GetDataInstance();
  // The offset's x does not reach the tag: the classic texture shifts only along the object.
  data->SetReal(IdTagOffsetX, 0.0);
  data->SetReal(IdTagOffsetY, offset.y);
  data->SetReal(IdTagScaleX, scale.x);
  data->SetReal(IdTagScaleY, scale.y);
  data->SetLong(IdTagProjection, kProjectionUvw);
  data->SetLong(IdTagSide, 0);
  data->SetBool(IdTagTile, true);
  data->SetBool(IdTagSeamless, false);
  data->SetBool(IdTagUseUvw, false);
  data->SetString(TEXTURETAG_RESTRICTION, selection);
  return tag;
}

// Each call makes a material of its own: objects that share a colour get host materials alike.
bool C4dMvrLoader::addMaterial(const std::string& object, const mv::MvrMaterial& material,
                               const mv::Vector3& textureScale, const mv::Vector3& textureOffset,
                               int) {
  if (!(filterFlags & SCENEFILTER_MATERIALS)) return true;
  if (!document || !container) return false;
  BaseObject* target = find(object);
  if (!target) return false;
  BaseMaterial* host = makeHostMaterial(file, container, material);
  if (!host) return false;
  TextureTag* tag = makeTextureTag(host, textureOffset, textureScale, "");
  if (!tag) {
    BaseMaterial::Free(host);
    return false;
  }
  target->InsertTag(tag);
  document->InsertMaterial(host);
  return true;
}
