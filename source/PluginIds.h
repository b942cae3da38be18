// PluginIds: the identifiers under which the plug-in's classes live in the host and in its
// documents. They are stored in files, so they never change.
#pragma once

enum PluginId : int {
  ID_CURVE_DATA_TYPE = 1010405,
  ID_MORVO_TAG = 1011272,
  ID_TOOLBAR = 1011501,
  ID_WEBSITE = 1011969,
  ID_SEPARATOR_1 = 1011610,
  ID_SEPARATOR_2 = 1011611,
  ID_SEPARATOR_3 = 1011612,
  ID_BRANCH_OBJECT = 1009761,
  ID_PHYLLOTAXIS_OBJECT = 1009762,
  ID_VARIATION_OBJECT = 1011514,
  ID_HYDRA_OBJECT = 1010598,
  ID_CURVATURE_SPLINE = 1011291,
  ID_TROPISM_OBJECT = 1011500,
  ID_DEVIATION_OBJECT = 1015132,
  ID_GRASS_TAG = 1019021,
  ID_ABOUT = 1011502,
  ID_MVR_LOADER = 1009919,
  ID_MVR_LOADER_DESCRIPTION = 1011638,
};

// Parameter ids that the driver itself reads.
enum DriverParameterId : int {
  ID_SEPARATE_OBJECTS = 1115,
  ID_CLIP_OBJECT = 1120,
  ID_TARGET_NODE = 7002,
};
