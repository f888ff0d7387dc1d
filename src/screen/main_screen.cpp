#include "screen/main_screen.h"

#include "screen/main_menu_rows.h"
#include "screen/main_panel_rows.h"
#include "screen/main_sheet_rows.h"

namespace torvale {
namespace {

constexpr auto kMainRows =
    rows::Joined(rows::kMenus, rows::kInput, rows::kResults, rows::kPreferences, rows::kHoleSelection);

constexpr ControlRow<SoilsScreen> kSoilsRows[] = {
    rows::Menu<&SoilsScreen::mnuFile>("mnuSoilsFile", "", "&File"),
    rows::Menu<&SoilsScreen::mnuSave>("mnuSave", "mnuSoilsFile", "&Save"),
    rows::Menu<&SoilsScreen::mnu_Save_Exit>("mnu_Save_Exit", "mnuSoilsFile", "S&ave and Exit"),
    rows::Menu<&SoilsScreen::MnuExit>("MnuExit", "mnuSoilsFile", "&Exit"),
    rows::Menu<&SoilsScreen::mnuEdit>("mnuSoilsEdit", "", "&Edit"),
    rows::Menu<&SoilsScreen::mnuCut>("mnuCut", "mnuSoilsEdit", "Cu&t", "",
                                     {.shortcut = "Ctrl+X", .shortcut_owner = ShortcutOwner::kControl}),
    rows::Menu<&SoilsScreen::mnuCopy>("mnuCopy", "mnuSoilsEdit", "&Copy", "",
                                      {.shortcut = "Ctrl+C", .shortcut_owner = ShortcutOwner::kControl}),
    rows::Menu<&SoilsScreen::mnuPaste>("mnuPaste", "mnuSoilsEdit", "&Paste", "",
                                       {.shortcut = "Ctrl+V", .shortcut_owner = ShortcutOwner::kControl}),
    rows::Sheet<&SoilsScreen::Grd_Soils_FurrowFlow>("Grd_Soils_FurrowFlow", "", {60, 60, 5400, 6600}, "",
                                                    {.spoken = "Soils and recommended furrow flows"}),
};

}  // namespace

std::span<const ControlRow<MainScreen>> MainScreen::Rows() {
  return kMainRows;
}

MainScreen::MainScreen() {
  TakeFacts(*this);
  listAllHoles.multiple = true;
  listHolesSelected.multiple = true;
  listSortSelectedHoles.sorted = true;
  listSoils.drop_down = true;
}

std::span<const ControlRow<SoilsScreen>> SoilsScreen::Rows() {
  return kSoilsRows;
}

SoilsScreen::SoilsScreen() {
  TakeFacts(*this);
  title = "Soils and Recommended Furrow Flow Editor";
}

}  // namespace torvale
