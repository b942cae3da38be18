// HairLibrary: the records through which a tag plugs a guide generator into the hair system
// (library id 1018173). The hair object sends each of its tags the message
// MSG_HAIR_GET_OBJECT_TYPE with a HairPluginMessageData; a tag that generates guides puts the
// address of its HairPluginObjectData into `data`, and the hair object calls its `generate`
// with pass 0, then pass 1.
#pragma once

#include "host/HostTypes.h"

class BaseDocument;
class BaseList2D;
class BaseThread;
class HairGuides;
class HairObject;

constexpr Int32 HAIR_LIBRARY_ID = 1018173;
constexpr Int32 MSG_HAIR_GET_OBJECT_TYPE = 1018952;

// pass 0: read parameters (the result is ignored); pass 1: the guides, set on the hair object
// or null for none.
using HairGenerateFn = HairGuides* (*)(BaseDocument* doc, BaseList2D* tag, HairObject* hair,
                                       BaseThread* thread, void* renderData, Int32 pass);

struct HairPluginObjectData {
  Int32 version = 0;
  Int32 size = 0;
  HairGenerateFn generate = nullptr;
};

struct HairPluginMessageData {
  void* data = nullptr;  // the tag's HairPluginObjectData, when it answers
};
