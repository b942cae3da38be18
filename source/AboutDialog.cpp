#include "source/AboutDialog.h"

#include <fstream>

#include "host/GeResource.h"
#include "source/CoreVersion.h"

namespace {

enum : Int32 {
  kGroup = 1000,
  kSplash = 1001,
  kVersion = 1002,
  kAttribution = 1003,
  kAddress = 1004,
};

// The splash picture in the plug-in's resource folder, or an empty name when it is not there.
Filename splashImage() {
  const Filename path = GeResource::GetFolder() + AboutDialog::kSplashFile;
  return std::ifstream(path.GetString()) ? path : Filename();
}

}  // namespace

String AboutDialog::versionLine() {
  return String("Core Version ") + kCoreVersion + " (" + kCoreDate + ")";
}

String AboutDialog::attributionLine() {
  return "Procedural plants: growth generators, curves and classic scenes";
}

String AboutDialog::addressLine() { return "https://morvo.example.org"; }

Bool AboutDialog::CreateLayout() {
  SetTitle(GeLoadString(kTitleString));
  GroupBegin(kGroup, BFH_CENTER, 1, 5, String(), 0);
  AddCustomGui(kSplash, CUSTOMGUI_BITMAPBUTTON, "Splash", BFH_CENTER, 0, 0, BaseContainer())
      ->image = splashImage();
  AddStaticText(kVersion, BFH_CENTER, 0, 0, versionLine(), 0);
  AddStaticText(kAttribution, BFH_CENTER, 0, 0, attributionLine(), 0);
  AddStaticText(kAddress, BFH_CENTER, 0, 0, addressLine(), 0);
  AddDlgGroup(DLG_OK);
  return GroupEnd();
}

Bool AboutDialog::Command(Int32 id, const BaseContainer& msg) {
  if (id == DLG_OK) return Close(true);
  return GeModalDialog::Command(id, msg);
}
