// MvrLoader: the host's scene loader for classic scene files (suffix "mvr"). The host offers it
// every file it is asked to open; for one it accepts it loads the scene into the document by one
// of two roads: the polygon import (mode 2) evaluates the classic scene once and lands it as one
// polygon object with its materials; the generator import (mode 3) converts it into a hierarchy
// of live growth objects that stays editable.
//
// Its settings live in the container of its node: texture sampling 1000, texture mix 1002, alpha
// from image 1003, import mode 1004 (2 polygons, 3 generators), circle mode 2005, perfect spheres
// 2006, fractional curvature 2007, horn knot path 2008, tree knot path 2009, unit 2011 (100).
// Modes 0 and 1 belong to a companion plug-in when one has announced itself.
#pragma once

#include "host/SceneLoaderData.h"

class BaseContainer;
class BaseObject;

namespace mv {
class ParameterSetData;
}

class MvrLoader : public SceneLoaderData {
 public:
  enum SettingId : Int32 {
    IdTextureSampling = 1000,
    IdImportFlag1001 = 1001,
    IdTextureMix = 1002,
    IdAlphaFromImage = 1003,
    IdImportMode = 1004,
    IdImportOption2002 = 2002,
    IdCircleMode = 2005,
    IdPerfectSpheres = 2006,
    IdFractionalCurvature = 2007,
    IdHornKnotPath = 2008,
    IdTreeKnotPath = 2009,
    IdImportOption2010 = 2010,
    IdUnit = 2011,
  };
  enum ImportMode : Int32 { ModePolygons = 2, ModeGenerators = 3 };
  // The form's group, the description's id, and the event that hands modes 0 and 1 on.
  static constexpr Int32 kSettingsGroup = 3003;
  static constexpr Int32 kDescriptionId = 1011638;
  static constexpr Int32 kCompanionEvent = 1011639;

  static NodeData* Alloc() { return new MvrLoader; }

  Bool Init(GeListNode* node) override;
  Bool GetDDescription(GeListNode* node, Description* description, DESCFLAGS_DESC& flags) override;
  Bool GetDEnabling(GeListNode* node, const DescID& id, const GeData& value, DESCFLAGS_ENABLE flags,
                    const BaseContainer* itemdesc) override;
  Bool Identify(BaseSceneLoader* node, const Filename& name, UChar* probe, Int32 size) override;
  Int32 Load(BaseSceneLoader* node, const Filename& name, BaseDocument* doc, Int32 filterflags,
             String* error, BaseThread* thread) override;

  // The defaults of the settings.
  static void initSettings(BaseContainer& settings);
  // The settings as the library reads them.
  static void copySettings(const BaseContainer& settings, mv::ParameterSetData& out);
  // The polygon import and the generator import of a file into a document; the host's file
  // error code.
  static Int32 importPolygons(const Filename& name, BaseDocument* doc, const BaseContainer& data,
                              mv::ParameterSetData& settings);
  static Int32 importGenerators(const Filename& name, BaseDocument* doc, Int32 filterflags,
                                BaseContainer& data, mv::ParameterSetData& settings);
};
