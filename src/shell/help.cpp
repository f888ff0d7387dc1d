#include "shell/help.h"

#include <array>
#include <utility>

#include "files/file_fault.h"
#include "files/file_store.h"
#include "input/focus.h"
#include "screen/field_facts.h"
#include "screen/message_box.h"
#include "screen/words.h"
#include "shell/help_pages.h"

namespace torvale {
namespace {

constexpr std::string_view kHelpFile = "TORVALEHELP.hlp";  // in the program's folder

constexpr std::string_view kContents = "contents";
constexpr std::string_view kFirstDesign = "first-design";
constexpr std::string_view kResults = "results";
constexpr std::string_view kPreferences = "preferences";
constexpr std::string_view kHoleSelection = "hole-selection";
constexpr std::string_view kBestHoles = "best-holes";

// The first row whose name the control's name begins with tells the place. Those of the information fields stand in
// screen/field_facts.h.
struct Topic {
  std::string_view name;
  std::string_view place;
};

constexpr Topic kTopics[] = {
    {"Grid2", kResults},
    {"GridInchesApplied", "applied-water"},
    {"frameShowLimitedHoles", "hole-summary"},
    {"listSoils", "soils"},
    {"Grd_Soils_FurrowFlow", "soils"},
    {"CrownProfile", "profile"},
    {"cmdInterpolate", "survey"},
    {"cmdReCalc", kResults},
    {"cmdDesignToggle", kResults},
    {"cmdCancel", "design-types"},
    {"txtDefault", kPreferences},
    {"btnDefaultExit", kPreferences},
    {"listAllHoles", kHoleSelection},
    {"listHolesSelected", kHoleSelection},
    {"cmdADDtoSelected", kHoleSelection},
    {"cmdremoveSelected", kHoleSelection},
    {"Command1", kHoleSelection},
    {"cmdExitHoleSelect", kHoleSelection},
    {"txtBest", kBestHoles},
    {"cmdFindBestHoles", kBestHoles},
    {"cmdCloseBestHoles", kBestHoles},
    {"mnuPrint", "printing"},
    {"mnuPrtHoleSummary", "printing"},
    {"mnuPreview", "printing"},
    {"mnuExportPhone", "phone"},
    {"mnuExportPicture", "phone"},
    {"mnuExport", "printing"},
    {"Grd_EarlierVersions", "earlier-versions"},
    {"mnuFileEarlier", "earlier-versions"},
    {"Grd_Stakes", "stakes"},
    {"mnuStakes", "stakes"},
    {"mnuClearFilled", "survey-remarks"},
    {"mnuFileBringBack", "bring-back"},
    {"cmdBringBack", "bring-back"},
    {"mnuFile", "files"},
    {"mnuEditUndo", "undo"},
    {"mnuEditRedo", "undo"},
    {"mnuEdit", "clipboard"},
    {"mnuSurveyCopy", "clipboard"},
    {"mnuInsertRow", "keys"},
    {"mnuDeleteRow", "keys"},
    {"mnuSoils_and_Furrow", "soils"},
    {"mnuManHoleSelection", kHoleSelection},
    {"mnuBestHoles", kBestHoles},
    {"mnuDesign", "design-types"},
    {"mnuExistingDesign", "design-types"},
    {"mnuComputerHoleSelection", "design-types"},
    {"mnuTypeOfPipe", "pipe"},
    {"mnuLayflatPipe", "pipe"},
    {"mnuRigidPipe", "pipe"},
    {"Comparison", "desk"},
    {"btnCloseComparison", "desk"},
    {"SurveyRemarks", "desk-remarks"},
    {"btnCloseRemarks", "desk-remarks"},
    {"btnCloseChart", "desk-chart"},
    {"mnuDesk(0)", "desk"},
    {"mnuDesk(1)", "desk-remarks"},
    {"mnuDesk(2)", "desk-chart"},
    {"frameFirstSteps", "first-steps"},
    {"cmdOpenSample", "first-steps"},
    {"cmdWorkedExample", "first-steps"},
    {"cmdCloseFirstSteps", "first-steps"},
    {"mnuHelpFirstSteps", "first-steps"},
    {"mnuView", "keys"},
    {"mnuZoom", "keys"},
    {"mnuWindowInfo", "survey"},
    {"mnuPreference", kPreferences},
    {"mnuProfile", "profile"},
    {"mnuHelp", kContents},
};

// The survey sheet, column by column.
constexpr std::array<std::string_view, 9> kColumnPlaces = {"col-station", "col-reading",  "col-length",
                                                           "col-spacing", "col-diameter", "col-hole",
                                                           "col-holes",   "col-mil",      "col-planted"};

std::string_view NamedPlace(std::string_view control) {
  if (const int field = InfoIndex(control); field >= 0) return kInfoFacts.at(static_cast<std::size_t>(field)).help;
  for (const Topic& row : kTopics) {
    if (control.starts_with(row.name)) return row.place;
  }
  return "";
}

bool IsOnMainScreen(std::string_view control) {
  for (const ControlFacts& facts : MainScreen::Rows()) {
    if (facts.name == control) return facts.kind != ControlKind::kMenu;
  }
  return control.empty();
}

// A panel lies over the screen while it is open.
std::string_view OpenPanel(const MainScreen& main) {
  if (main.Frame1.visible) return kPreferences;
  return main.frameHoleSelection.visible ? kHoleSelection : std::string_view();
}

}  // namespace

std::string_view HelpPlaceFor(Program& program, std::string_view control) {
  const MainScreen& main = program.main;
  const std::string_view named = NamedPlace(control);
  if (IsOnMainScreen(control)) {
    const std::string_view panel = OpenPanel(main);
    if (!panel.empty() && named != kPreferences && named != kHoleSelection && named != kBestHoles) return panel;
    if (control == "Grid1" && !main.Grid2.control.visible) {
      return kColumnPlaces.at(static_cast<std::size_t>(main.Grid1.column));
    }
  }
  if (!named.empty()) return named;
  return main.Grid2.control.visible ? kResults : kFirstDesign;
}

std::vector<std::string_view> HelpPlaces() {
  std::vector<std::string_view> places = {kContents, kFirstDesign, kResults};
  for (const InfoFacts& field : kInfoFacts) places.push_back(field.help);
  for (const Topic& row : kTopics) places.push_back(row.place);
  places.insert(places.end(), kColumnPlaces.begin(), kColumnPlaces.end());
  return places;
}

namespace {

// Reads the guide anew. False where it can't be, with a message.
bool ReadGuide(Program& program) {
  HelpScreen& help = program.help;
  try {
    std::vector<HelpPage> pages = ReadHelpPages(ReadBytes(InProgramFolder(program.host, kHelpFile)));
    if (pages != help.pages) {
      help.pages = std::move(pages);
      ++help.revision;
    }
  } catch (const FileFault&) {
    Tell(program, words::kHelpMissing);
    return false;
  } catch (const HelpFault& fault) {
    Tell(program, words::kHelpDamaged(fault.what()));
    return false;
  }
  return true;
}

void ShowGuide(Program& program, std::string_view place) {
  HelpScreen& help = program.help;
  help.folder = program.host.ProgramFolder();
  help.place = place;
  ++help.times_asked;
  help.frmHelp.visible = true;
}

}  // namespace

void OpenHelp(Program& program, std::string_view place) {
  if (ReadGuide(program)) ShowGuide(program, place);
}

void OpenHelpOnMessage(Program& program, std::string_view body) {
  if (ReadGuide(program)) ShowGuide(program, PlaceOfMessage(program.help.pages, body));
}

void CloseHelp(Program& program) {
  program.help.frmHelp.visible = false;
}

void mnuHelpContents_Click(Program& program) {
  OpenHelp(program, kContents);
}

void mnuHelpScreen_Click(Program& program) {
  OpenHelp(program, HelpPlaceFor(program, program.main.focus));
}

}  // namespace torvale
