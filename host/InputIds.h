// InputIds: the keys of an input event container and of a polled input state, with the values
// of their devices, channels and qualifiers, and the keys of the message an area sends its parent.
#pragma once

#include "host/FourCharCode.h"
#include "host/HostTypes.h"

constexpr Int32 BFM_INPUT_DEVICE = fourCharCode("ipdv");
constexpr Int32 BFM_INPUT_CHANNEL = fourCharCode("ipca");
constexpr Int32 BFM_INPUT_VALUE = fourCharCode("ipva");  // non-zero: pressed
constexpr Int32 BFM_INPUT_QUALIFIER = fourCharCode("ipqa");
constexpr Int32 BFM_INPUT_X = fourCharCode("ipvx");
constexpr Int32 BFM_INPUT_Y = fourCharCode("ipvy");
constexpr Int32 BFM_INPUT_DOUBLECLICK = fourCharCode("ipdb");

constexpr Int32 BFM_INPUT_MOUSE = fourCharCode("mous");
constexpr Int32 BFM_INPUT_KEYBOARD = fourCharCode("keyb");
constexpr Int32 BFM_INPUT_MOUSELEFT = 1;
constexpr Int32 BFM_INPUT_MOUSERIGHT = 2;
constexpr Int32 QCTRL = 2;
// The keyboard channel of the key that extends a selection.
constexpr Int32 KEY_EXTEND_SELECTION = 61456;

// The message of a gadget whose value changed, to its parent.
constexpr Int32 BFM_ACTION = fourCharCode("bACT");
constexpr Int32 BFM_ACTION_ID = fourCharCode("meid");
constexpr Int32 BFM_ACTION_VALUE = fourCharCode("meva");
constexpr Int32 BFM_ACTION_VALCHG = fourCharCode("vchg");
