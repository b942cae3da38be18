// About: the menu command that shows the About dialog. The menu's separators are About objects
// too; the host never runs them, since their names make them separator lines.
#pragma once

#include "host/CommandData.h"
#include "source/AboutDialog.h"

class About : public CommandData {
 public:
  static constexpr Int32 kRestoreId = 1011502;

  // Opens the dialog, modal, at the default place and size.
  Bool Execute(BaseDocument* doc) override;
  Int32 GetState(BaseDocument* doc) override;
  Bool RestoreLayout(void* secret) override;

 private:
  AboutDialog dialog;
};
