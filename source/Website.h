// Website: the menu command that opens the web documentation of this plug-in version, for the
// host's platform and the user's language.
#pragma once

#include "host/CommandData.h"

class Website : public CommandData {
 public:
  // Resource strings: the documentation endpoint without query, and the language part, which
  // brings its own "=" (for example "=en").
  static constexpr Int32 kBaseString = 10020;
  static constexpr Int32 kLanguageString = 10021;

  // Hands the address to the host's browser; false when there is no endpoint.
  Bool Execute(BaseDocument* doc) override;
  Int32 GetState(BaseDocument* doc) override;

  // The address from the resource strings; empty when the endpoint string is empty.
  static String address();
};
