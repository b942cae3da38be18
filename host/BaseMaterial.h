// BaseMaterial: a material of a document (Mmaterial): a container and channels (colour 0,
// luminance 1, transparency 2, alpha 7, specular 9, ...), each switched on or off and with a
// container of its own (colour 1000, brightness 1001, texture file 1002, ...).
#pragma once

#include <map>

#include "host/BaseList2D.h"

constexpr Int32 CHANNEL_COLOR = 0;
constexpr Int32 CHANNEL_LUMINANCE = 1;
constexpr Int32 CHANNEL_TRANSPARENCY = 2;
constexpr Int32 CHANNEL_ALPHA = 7;
constexpr Int32 CHANNEL_SPECULARCOLOR = 9;
constexpr Int32 CHANNEL_COLOR_VALUE = 1000;
constexpr Int32 CHANNEL_BRIGHTNESS = 1001;
constexpr Int32 CHANNEL_TEXTURE = 1002;

class BaseChannel {
 public:
  BaseContainer GetData() const { return data_; }
  void SetData(const BaseContainer& data) { data_ = data; }
  BaseContainer* GetDataInstance() { return &data_; }

 private:
  BaseContainer data_;
};

class BaseMaterial : public BaseList2D {
 public:
  BaseMaterial() : BaseList2D(Mmaterial) {}
  static BaseMaterial* Alloc(Int32 type);
  static void Free(BaseMaterial*& material);

  BaseMaterial* GetNext() const { return static_cast<BaseMaterial*>(GeListNode::GetNext()); }
  BaseMaterial* GetPred() const { return static_cast<BaseMaterial*>(GeListNode::GetPred()); }
  BaseMaterial* GetClone(COPYFLAGS flags, AliasTrans* trans) const;

  // The channel of that id, made on first use.
  BaseChannel* GetChannel(Int32 id) { return &channels_[id].channel; }
  Bool GetChannelState(Int32 id) const;
  void SetChannelState(Int32 id, Bool on);
  // Ids of the channels used so far, in order.
  std::vector<Int32> GetChannelIds() const;

 private:
  struct ChannelState {
    BaseChannel channel;
    bool on = false;
  };
  std::map<Int32, ChannelState> channels_;
};

using Material = BaseMaterial;
