#include "shell/commands.h"

#include <algorithm>

#include "display/design_display.h"
#include "display/result_tables.h"
#include "files/file_commands.h"
#include "files/new_design.h"
#include "files/preferences_panel.h"
#include "files/soils.h"
#include "files/version_commands.h"
#include "input/edit_commands.h"
#include "input/info_fields.h"
#include "input/sheet_rows.h"
#include "input/survey_paste.h"
#include "reports/crown_profile.h"
#include "reports/print_commands.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/best_holes_panel.h"
#include "search/design_commands.h"
#include "search/hole_selection_panel.h"
#include "search/survey_completion.h"
#include "shell/about.h"
#include "shell/csv_export.h"
#include "shell/desk.h"
#include "shell/event_end.h"
#include "shell/events.h"
#include "shell/first_steps.h"
#include "shell/help.h"
#include "shell/history.h"
#include "shell/main_form.h"
#include "shell/phone_export.h"
#include "shell/recovery.h"
#include "shell/splash.h"
#include "shell/stakes.h"
#include "shell/tool_bar.h"

namespace torvale {
namespace {

template <std::size_t kStep>
void mnuZoomTo_Click(Program& program) {
  SetZoom(program, kZoomSteps[kStep]);
}

template <int kEntry>
void mnuFileListAt_Click(Program& program) {
  mnuFileList_Click(program, kEntry);
}

template <int kReport>
void mnuPreviewAt_Click(Program& program) {
  mnuPreview_Click(program, kReport);
}

template <int kReport>
void mnuExportPdfAt_Click(Program& program) {
  mnuExportPdf_Click(program, kReport);
}

template <std::size_t kSection>
void mnuDeskAt_Click(Program& program) {
  ToggleDeskSection(program, kSection);
}

constexpr bool kAlone = true;

constexpr Command kCommands[] = {
    {"frmSplash", frmSplash_Click},
    {"frmSplash.Frame1", frmSplash_Click},
    {"Image1", frmSplash_Click},
    {"Image2", frmSplash_Click},
    {"imgLogo", frmSplash_Click},
    {"Label1", frmSplash_Click},
    {"Label2", frmSplash_Click},
    {"Label3", frmSplash_Click},
    {"lblCompany", frmSplash_Click},
    {"lblHolePuch", frmSplash_Click},
    {"lblPlatform", frmSplash_Click},
    {"lblProductDescription", frmSplash_Click},
    {"lblProductName", frmSplash_Click},
    {"lblVersion", frmSplash_Click},
    {"lblWarning", frmSplash_Click},
    {"mnuFileNew", mnuFileNew_Click, kAlone},
    {"mnuFileOpen", mnuFileOpen_Click, kAlone},
    {"mnuFileSave", mnuFileSave_Click},
    {"mnuFileSaveAs", mnuFileSaveAs_Click},
    {"mnuPrintSummary", mnuPrintSummary_Click},
    {"mnuPrintComplete", mnuPrintComplete_Click},
    {"mnuPrtHoleSummary", mnuPrtHoleSummary_Click},
    {"mnuPreview(0)", mnuPreviewAt_Click<0>},
    {"mnuPreview(1)", mnuPreviewAt_Click<1>},
    {"mnuPreview(2)", mnuPreviewAt_Click<2>},
    {"mnuExportCsv", mnuExportCsv_Click},
    {"mnuExportHoleCsv", mnuExportHoleCsv_Click},
    {"mnuExportPhone", mnuExportPhone_Click},
    {"mnuExportPicture", mnuExportPicture_Click},
    {"mnuExportPdf(0)", mnuExportPdfAt_Click<0>},
    {"mnuExportPdf(1)", mnuExportPdfAt_Click<1>},
    {"mnuExportPdf(2)", mnuExportPdfAt_Click<2>},
    {"mnuFileList(0)", mnuFileListAt_Click<0>, kAlone},
    {"mnuFileList(1)", mnuFileListAt_Click<1>, kAlone},
    {"mnuFileList(2)", mnuFileListAt_Click<2>, kAlone},
    {"mnuFileList(3)", mnuFileListAt_Click<3>, kAlone},
    {"mnuFileEarlier", mnuFileEarlier_Click},
    {"btnOpenVersion", btnOpenVersion_Click, kAlone},
    {"btnCloseVersions", btnCloseVersions_Click},
    {"mnuFileBringBack", mnuFileBringBack_Click},
    {"cmdBringBack", mnuFileBringBack_Click},
    {"mnuFileExit", mnuFileExit_Click},
    {"mnuPreference", mnuPreference_Click},
    {"btnDefaultExit", btnDefaultExit_Click},
    {"mnuSoils_and_Furrow", mnuSoils_and_Furrow_Click},
    {"mnu_Save_Exit", mnu_Save_Exit_Click},
    {"MnuExit", MnuExit_Click},
    {"mnuCut", mnuCut_Click},
    {"mnuCopy", mnuCopy_Click},
    {"mnuPaste", mnuPaste_Click},
    {"mnuEditUndo", mnuEditUndo_Click},
    {"mnuEditRedo", mnuEditRedo_Click},
    {"mnuEditCut", mnuEditCut_Click},
    {"mnuEditCopy", mnuEditCopy_Click},
    {"mnuEditPaste", mnuEditPaste_Click},
    {"mnuSurveyCopy", mnuSurveyCopy_Click},
    {"mnuInsertRow", mnuInsertRow_Click},
    {"mnuDeleteRow", mnuDeleteRow_Click},
    {"mnuClearFilled", mnuClearFilled_Click},
    {"mnuDesignField", mnuDesignField_Click, kAlone},
    {"mnuExistingDesign", mnuExistingDesign_Click, kAlone},
    {"mnuDesignConstSlope", mnuDesignConstSlope_Click, kAlone},
    {"mnuDesignDualSlope", mnuDesignDualSlope_Click, kAlone},
    {"mnuComputerHoleSelection", mnuComputerHoleSelection_Click, kAlone},
    {"mnuManHoleSelection", mnuManHoleSelection_Click, kAlone},
    {"mnuBestHoles", mnuBestHoles_Click, kAlone},
    {"mnuLayflatPipe", mnuLayflatPipe_Click, kAlone},
    {"mnuRigidPipe", mnuRigidPipe_Click, kAlone},
    {"mnuStakes", mnuStakes_Click},
    {"btnPrintStakes", btnPrintStakes_Click},
    {"btnPreviewStakes", btnPreviewStakes_Click},
    {"btnPdfStakes", btnPdfStakes_Click},
    {"btnCsvStakes", btnCsvStakes_Click},
    {"btnCloseStakes", btnCloseStakes_Click},
    {"mnuZoomTo(0)", mnuZoomTo_Click<0>},
    {"mnuZoomTo(1)", mnuZoomTo_Click<1>},
    {"mnuZoomTo(2)", mnuZoomTo_Click<2>},
    {"mnuZoomTo(3)", mnuZoomTo_Click<3>},
    {"mnuZoomTo(4)", mnuZoomTo_Click<4>},
    {"mnuZoomTo(5)", mnuZoomTo_Click<5>},
    {"mnuZoomTo(6)", mnuZoomTo_Click<6>},
    {"mnuZoomFit", mnuZoomFit_Click},
    {"mnuDesk(0)", mnuDeskAt_Click<0>},
    {"mnuDesk(1)", mnuDeskAt_Click<1>},
    {"mnuDesk(2)", mnuDeskAt_Click<2>},
    {"btnCloseComparison", mnuDeskAt_Click<0>},
    {"btnCloseRemarks", mnuDeskAt_Click<1>},
    {"btnCloseChart", mnuDeskAt_Click<2>},
    {"mnuWindowInfo", mnuWindowInfo_Click, kAlone},
    {"mnuProfile", mnuProfile_Click},
    {"mnuHelpContents", mnuHelpContents_Click},
    {"mnuHelpScreen", mnuHelpScreen_Click},
    {"mnuHelpFirstSteps", mnuHelpFirstSteps_Click},
    {"cmdOpenSample", cmdOpenSample_Click, kAlone},
    {"cmdWorkedExample", cmdWorkedExample_Click},
    {"cmdCloseFirstSteps", cmdCloseFirstSteps_Click},
    {"mnuHelpAbout", mnuHelpAbout_Click},
    {"btnPrintProfile", btnPrintProfile_Click},
    {"btnExportPicture", btnExportPicture_Click},
    {"btnBack", btnBack_Click},
    {"cmdInterpolate", cmdInterpolate_Click},
    {"cmdCancel", cmdCancel_Click},
    {"cmdReCalc", cmdReCalc_Click, kAlone},
    {"cmdDesignToggle", cmdDesignToggle_Click},
    {"cmdADDtoSelected", cmdADDtoSelected_Click},
    {"cmdremoveSelected", cmdremoveSelected_Click},
    {"Command1", Command1_Click},
    {"cmdExitHoleSelect", cmdExitHoleSelect_Click, kAlone},
    {"cmdFindBestHoles", cmdFindBestHoles_Click, kAlone},
    {"cmdCloseBestHoles", cmdCloseBestHoles_Click},
};

const Command* FindCommand(std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(kCommands), std::end(kCommands), [&](const Command& c) { return c.name == name; });
  return found == std::end(kCommands) ? nullptr : found;
}

// Name of the menu that an entry stands in; empty where it stands in none.
std::string_view MenuOf(std::string_view name) {
  const ControlFacts* facts = FactsOf(name);
  return facts != nullptr && facts->kind == ControlKind::kMenu ? facts->parent : std::string_view();
}

// Says so where there is nothing to print.
bool ResultsShown(Program& program) {
  const bool shown = program.main.Grid2.control.visible;
  if (!shown) Say(program, words::kNothingToPrint);
  return shown;
}

void PrintNow(Program& program, Report report) {
  if (!ResultsShown(program)) return;
  Guarded(program, [&] {
    NameCause(program, "tbToolBar(Print)");
    PrintAtOnce(program, report);
  });
}

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

bool HasCommand(std::string_view name) {
  return FindCommand(name) != nullptr || ToolKeyOf(name).has_value();
}

Reach Click(Program& program, std::string_view name) {
  if (const auto key = ToolKeyOf(name)) return tbToolBar_ButtonClick(program, *key);
  const Command* command = FindCommand(name);
  if (command == nullptr) return Reach::kUnknown;
  // A menu drops down before an entry of it is clicked, and settles then which of them can be.
  for (std::string_view menu = MenuOf(name); !menu.empty(); menu = MenuOf(menu)) MenuOpened(program, menu);
  const Reach reach = ReachOf(program, name);
  if (reach != Reach::kUsable) return reach;
  if (command->alone) {
    // It may have to wait, and finds then what has become of its control.
    RunAlone(program, [&program, command] {
      if (ReachOf(program, command->name) != Reach::kUsable) return;
      NameCause(program, command->name);
      command->run(program);
    });
  } else {
    Guarded(program, [&] {
      NameCause(program, name);
      command->run(program);
    });
  }
  return reach;
}

bool HasToolCommand(const ControlFacts& button) {
  return PrintsAtOnce(button).has_value() || HasCommand(button.name);
}

void ScreenKey(Program& program, const KeyStroke& stroke) {
  if (stroke.key != Key::kPrint || !ResultsShown(program)) return;
  Click(program, NamesCompleteDesign(program) ? "mnuPrintComplete" : "mnuPrintSummary");
}

Reach tbToolBar_ButtonClick(Program& program, std::string_view key) {
  const std::vector<const ControlFacts*> buttons = ToolButtons();
  const auto found =
      std::find_if(buttons.begin(), buttons.end(), [&](const ControlFacts* b) { return b->tool.key == key; });
  if (found == buttons.end()) return Reach::kUsable;
  const ControlFacts& button = **found;
  const Reach reach = ReachOfToolButton(program, button);
  if (reach != Reach::kUsable) return reach;
  const std::optional<Report> report = PrintsAtOnce(button);
  if (!report) return Click(program, button.name);
  PrintNow(program, *report);
  return Reach::kUsable;
}

}  // namespace torvale
