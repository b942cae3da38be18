#include "source/C4dProgressHandler.h"

#include "host/HostConsole.h"

void C4dProgressHandler::finish() { StatusClear(); }

void C4dProgressHandler::spin() { StatusSetSpin(); }

void C4dProgressHandler::setProgress(double value) {
  StatusSetBar(static_cast<Int32>(value * 100.0));
}
