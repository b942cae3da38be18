#include "host/BaseMaterial.h"

#include "host/AliasTrans.h"
#include "host/PluginRegistry.h"

BaseMaterial* BaseMaterial::Alloc(Int32 type) {
  if (type != Mmaterial) return nullptr;
  auto* material = new BaseMaterial();
  // Colour is on in a new material, as a user expects of a plain material.
  material->SetChannelState(CHANNEL_COLOR, true);
  material->GetChannel(CHANNEL_COLOR)
      ->GetDataInstance()
      ->SetVector(CHANNEL_COLOR_VALUE, Vector(0.8));
  material->GetChannel(CHANNEL_COLOR)->GetDataInstance()->SetReal(CHANNEL_BRIGHTNESS, 1.0);
  return material;
}

void BaseMaterial::Free(BaseMaterial*& material) {
  if (!material) return;
  material->Remove();
  delete material;
  material = nullptr;
}

BaseMaterial* BaseMaterial::GetClone(COPYFLAGS flags, AliasTrans* trans) const {
  auto* clone = new BaseMaterial();
  copyBaseTo(clone, flags, trans);
  clone->channels_ = channels_;
  if (trans) trans->Record(this, clone);
  return clone;
}

Bool BaseMaterial::GetChannelState(Int32 id) const {
  auto it = channels_.find(id);
  return it != channels_.end() && it->second.on;
}

void BaseMaterial::SetChannelState(Int32 id, Bool on) {
  channels_[id].on = on;
  SetDirty(DIRTYFLAGS_DATA);
}

std::vector<Int32> BaseMaterial::GetChannelIds() const {
  std::vector<Int32> ids;
  for (const auto& [id, state] : channels_) ids.push_back(id);
  return ids;
}
