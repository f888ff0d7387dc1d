#include "screen/main_screen.h"

namespace torvale {
namespace {

constexpr MenuTrait kMenuTraits[] = {
    {"mnuFileOpen", "Ctrl+O", false},
    {"mnuFileSave", "Ctrl+S", false},
    {"mnuFileSaveAs", "Ctrl+Shift+S", false},
    {"mnuPrintSummary", "", true},
    {"mnuFileList(0)", "", true},
    {"mnuSoils_and_Furrow", "", true},
    {"mnuFileNew", "Ctrl+N", false},
    {"mnuFileExit", "Ctrl+Q", true},
    {"mnuInsertRow", "Ctrl+Ins", true},
    {"mnuDeleteRow", "Ctrl+Del", false},
    {"mnuDesignField", "F5", false},
    {"mnuDesignConstSlope", "F6", false},
    {"mnuDesignDualSlope", "F7", false},
    {"mnuComputerHoleSelection", "F8", true},
    {"mnuManHoleSelection", "Shift+F8", false},
    {"mnuExistingDesign", "F9", false},
    {"mnuWindowInfo", "F4", false},
    {"mnuHelpScreen", "F1", false},
    {"mnuHelpAbout", "", true},
    {"mnuEditUndo", "Ctrl+Z", false},
    {"mnuEditRedo", "Ctrl+Y", false},
    {"mnuEditCut", "Ctrl+X", true, ShortcutOwner::kControl},
    {"mnuEditCopy", "Ctrl+C", false, ShortcutOwner::kControl},
    {"mnuEditPaste", "Ctrl+V", false, ShortcutOwner::kControl},
    {"mnuCut", "Ctrl+X", false, ShortcutOwner::kControl},
    {"mnuCopy", "Ctrl+C", false, ShortcutOwner::kControl},
    {"mnuPaste", "Ctrl+V", false, ShortcutOwner::kControl},
};

}  // namespace

MenuTrait MenuTraitOf(std::string_view name) {
  for (const MenuTrait& trait : kMenuTraits) {
    if (trait.name == name) return trait;
  }
  return {name, "", false};
}

}  // namespace torvale
