// SubDialog: a dialog that lives inside another one, such as a parameter's panel inside the
// attribute manager.
#pragma once

#include "host/GeDialog.h"

class SubDialog : public GeDialog {};
