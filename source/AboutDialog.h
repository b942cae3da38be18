// AboutDialog: the dialog that shows which version of the plug-in's core runs, with its splash
// picture, the attribution and the product's web address.
#pragma once

#include "host/GeModalDialog.h"

class AboutDialog : public GeModalDialog {
 public:
  static constexpr Int32 kTitleString = 10012;
  static constexpr const char* kSplashFile = "morvo5.tif";

  // Group 1000 with the splash (1001), the version (1002), the attribution (1003), the address
  // (1004) and the OK button.
  Bool CreateLayout() override;
  // OK closes the dialog.
  Bool Command(Int32 id, const BaseContainer& msg) override;

  // "Core Version 5.0.2 (Dec 16 2013)".
  static String versionLine();
  static String attributionLine();
  static String addressLine();
};
