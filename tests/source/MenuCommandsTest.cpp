#include <gtest/gtest.h>

#include "host/CommandData.h"
#include "host/DescriptionResource.h"
#include "host/LoadFile.h"
#include "host/PluginRegistry.h"
#include "source/About.h"
#include "source/PluginIds.h"
#include "source/Toolbar.h"
#include "support/CapturingConsole.h"

TEST(MenuCommands, registerUnderTheirIdsPrefixesAndStrings) {
  const struct {
    Int32 id;
    const char* name;
  } rows[] = {{ID_TOOLBAR, "#$06Morvo Toolbar"}, {ID_WEBSITE, "#$07Morvo Website"},
              {ID_SEPARATOR_1, "#$08--"},        {ID_SEPARATOR_2, "#$13--"},
              {ID_SEPARATOR_3, "#$15--"},        {ID_ABOUT, "#$05About Morvo..."}};
  for (const auto& row : rows) {
    const PluginEntry* entry = PluginRegistry::Find(row.id);
    ASSERT_NE(entry, nullptr) << row.name;
    EXPECT_EQ(entry->kind, PluginKind::Command);
    EXPECT_EQ(entry->name, row.name);
    ASSERT_NE(entry->command, nullptr);
    EXPECT_EQ(entry->command->GetState(nullptr), 0x40000000) << row.name;
  }
  const PluginEntry* grass = PluginRegistry::Find(ID_GRASS_TAG);
  ASSERT_NE(grass, nullptr);
  EXPECT_EQ(grass->kind, PluginKind::Tag);
  EXPECT_EQ(grass->info, TAG_VISIBLE | TAG_EXPRESSION);
  EXPECT_EQ(grass->description, "TMGrassTag");
  ASSERT_NE(PluginRegistry::FindDescription(ID_GRASS_TAG), nullptr);
  EXPECT_EQ(PluginRegistry::FindDescription(ID_GRASS_TAG)->FindByName("clumpSize")->id, 1006);
}

TEST(MenuCommands, toolbarLoadsThePluginsWindowLayout) {
  EXPECT_EQ(Toolbar::layoutPath().GetString(), MORVO_SOURCE_DIR "/res/Morvo.l4d");
  CapturingConsole console;
  EXPECT_TRUE(PluginRegistry::Find(ID_TOOLBAR)->command->Execute(nullptr));
  EXPECT_TRUE(console.lines.empty());
  const std::vector<Int32>& palette = CurrentLayoutCommands();
  ASSERT_FALSE(palette.empty());
  EXPECT_EQ(palette.front(), ID_BRANCH_OBJECT);
  EXPECT_EQ(palette.back(), ID_ABOUT);
}

TEST(MenuCommands, aboutShowsTheDialogAndOkClosesIt) {
  CapturingConsole console;
  About about;
  EXPECT_TRUE(about.Execute(nullptr));
  ASSERT_EQ(console.lines.size(), 4u);
  EXPECT_EQ(console.lines[0], "About Morvo");
  EXPECT_EQ(console.lines[1], "Core Version 5.0.2 (Dec 16 2013)");
  EXPECT_EQ(console.lines[2], AboutDialog::attributionLine());
  EXPECT_EQ(console.lines[3], AboutDialog::addressLine());
}

TEST(MenuCommands, aboutDialogLaysOutItsGadgetsInOrder) {
  AboutDialog dialog;
  ASSERT_TRUE(dialog.RestoreLayout(ID_ABOUT, 0, nullptr));
  EXPECT_FALSE(dialog.IsOpen());
  EXPECT_EQ(dialog.GetTitle(), "About Morvo");
  const std::vector<ModalGadget>& gadgets = dialog.GetGadgets();
  ASSERT_EQ(gadgets.size(), 6u);
  const Int32 ids[] = {1000, 1001, 1002, 1003, 1004};
  for (size_t k = 0; k < 5; ++k) EXPECT_EQ(gadgets[k].id, ids[k]);
  EXPECT_EQ(gadgets[1].kind, ModalGadget::Kind::CustomGui);
  EXPECT_EQ(gadgets[1].type, CUSTOMGUI_BITMAPBUTTON);
  EXPECT_EQ(gadgets[1].text, "Splash");
  EXPECT_FALSE(gadgets[1].image.Content());  // the folder holds no splash picture
  EXPECT_EQ(gadgets[5].kind, ModalGadget::Kind::ButtonGroup);
  EXPECT_EQ(gadgets[5].type, DLG_OK);
  // Anything but OK goes to the base class, which does not handle it.
  EXPECT_FALSE(dialog.Command(1002, BaseContainer()));
}
