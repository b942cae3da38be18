// HostIds: the numbers by which the host names its object, tag and material types, its class
// flags, dirty flags, messages and commands. Plug-ins and stored documents use these values.
#pragma once

#include "host/HostTypes.h"

// Object types.
constexpr Int32 Opolygon = 5100;
constexpr Int32 Ospline = 5101;
constexpr Int32 Offd = 5108;  // the deformer grid
constexpr Int32 Osweep = 5118;
constexpr Int32 Oinstance = 5126;
constexpr Int32 Oline = 5137;
constexpr Int32 Onull = 5140;
constexpr Int32 Ocube = 5159;
constexpr Int32 Osphere = 5160;
constexpr Int32 Ocone = 5162;
constexpr Int32 Odisc = 5164;
constexpr Int32 Ocylinder = 5170;
constexpr Int32 Oplane = 5174;
constexpr Int32 Osplinenside = 5179;
constexpr Int32 Osplinecircle = 5181;
constexpr Int32 Osplinearc = 5182;
constexpr Int32 Ohair = 1017305;

// Tag types.
constexpr Int32 Tphong = 5612;
constexpr Int32 Tdisplay = 5613;
constexpr Int32 Ttexture = 5616;
constexpr Int32 Tuvw = 5671;
constexpr Int32 Tsegment = 5672;
constexpr Int32 Tpolygonselection = 5673;
constexpr Int32 Tpointselection = 5674;
constexpr Int32 Tline = 5680;

// Material type.
constexpr Int32 Mmaterial = 5703;

// Info flags of an object class.
constexpr Int32 OBJECT_MODIFIER = 1;
constexpr Int32 OBJECT_HIERARCHYMODIFIER = 2;
constexpr Int32 OBJECT_GENERATOR = 4;
constexpr Int32 OBJECT_INPUT = 8;
constexpr Int32 OBJECT_POLYGONOBJECT = 16;
constexpr Int32 OBJECT_POINTOBJECT = 32;
constexpr Int32 OBJECT_ISSPLINE = 128;

// Info flags of a tag class.
constexpr Int32 TAG_VISIBLE = 1;
constexpr Int32 TAG_MULTIPLE = 2;
constexpr Int32 TAG_HIERARCHICAL = 4;
constexpr Int32 TAG_EXPRESSION = 8;

// Plug-in flags that hide a class from the menus.
constexpr Int32 PLUGINFLAG_HIDEPLUGINMENU = 0x10000000;
constexpr Int32 PLUGINFLAG_HIDE = 0x20000000;

// Dirty flags.
constexpr DIRTYFLAGS DIRTYFLAGS_MATRIX = 2;
constexpr DIRTYFLAGS DIRTYFLAGS_DATA = 4;
constexpr DIRTYFLAGS DIRTYFLAGS_CACHE = 16;
constexpr DIRTYFLAGS DIRTYFLAGS_CHILDREN = 32;

// Messages.
constexpr Int32 MSG_POINTS_CHANGED = 1;
constexpr Int32 MSG_UPDATE = 5;
constexpr Int32 MSG_MENUPREPARE = 22;

// Copy flags of GetClone.
constexpr COPYFLAGS COPYFLAGS_NONE = 0;
constexpr COPYFLAGS COPYFLAGS_NO_HIERARCHY = 4;

// Flags of GetHierarchyClone.
constexpr HIERARCHYCLONEFLAGS HIERARCHYCLONEFLAGS_ASIS = 1;

// Parameter and description flag bits.
constexpr Int32 DESCFLAGS_SET_PARAM_SET = 2;
constexpr Int32 DESCFLAGS_GET_PARAM_GET = 2;
constexpr Int32 DESCFLAGS_DESC_LOADED = 2;

// Modeling commands.
constexpr Int32 MCOMMAND_CURRENTSTATETOOBJECT = 245;

// Editor and render modes.
constexpr Int32 MODE_ON = 0;
constexpr Int32 MODE_OFF = 1;
constexpr Int32 MODE_UNDEF = 2;

// Value kinds of GeData.
constexpr Int32 DA_NIL = 0;
constexpr Int32 DA_LONG = 15;
constexpr Int32 DA_REAL = 19;
constexpr Int32 DA_VECTOR = 23;
constexpr Int32 DA_MATRIX = 25;
constexpr Int32 DA_STRING = 130;
constexpr Int32 DA_ALIASLINK = 133;
constexpr Int32 DA_CONTAINER = 178;

// Spline object settings: type, intermediate points, closed, number, angle.
constexpr Int32 SPLINEOBJECT_TYPE = 1000;
constexpr Int32 SPLINEOBJECT_INTERPOLATION = 1001;
constexpr Int32 SPLINEOBJECT_CLOSED = 1002;
constexpr Int32 SPLINEOBJECT_SUB = 1003;
constexpr Int32 SPLINEOBJECT_ANGLE = 1004;
constexpr Int32 SPLINETYPE_LINEAR = 0;
constexpr Int32 SPLINETYPE_CUBIC = 1;
constexpr Int32 SPLINEOBJECT_INTERPOLATION_NONE = 0;
constexpr Int32 SPLINEOBJECT_INTERPOLATION_NATURAL = 1;
constexpr Int32 SPLINEOBJECT_INTERPOLATION_UNIFORM = 2;
constexpr Int32 SPLINEOBJECT_INTERPOLATION_ADAPTIVE = 3;
constexpr Int32 SPLINEOBJECT_INTERPOLATION_SUBDIV = 4;

// Result of a tag's Execute.
constexpr EXECUTIONRESULT EXECUTIONRESULT_OK = 0;

// The plane a spline primitive lies in (parameter 2300).
constexpr Int32 PRIM_PLANE = 2300;
