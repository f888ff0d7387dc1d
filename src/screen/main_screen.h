// The main screen and the editor of soils as plain data.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "engine/survey.h"
#include "screen/control_facts.h"
#include "screen/controls.h"

namespace torvale {

enum class WindowState { kNormal, kMinimized, kMaximized };

inline constexpr std::string_view kProgramTitle = "TORVALE";
inline constexpr std::string_view kProgramPurpose = "Gated Line And Crown Planning Aid";

// Captions by which the program goes: `cmdDesignToggle` names the table that is filled, `lblActiveInactive` tells
// whether a design stands.
inline constexpr std::string_view kCompleteDesign = "Complete Design";
inline constexpr std::string_view kSummary = "Summary";
inline constexpr std::string_view kActiveDesign = "Active Design";
inline constexpr std::string_view kInactiveDesign = "Inactive Design";

// A panel that is being moved by hand: where it was grabbed, from its corner, and where it stood.
struct PanelDrag {
  std::string panel;  // its name; empty while none is
  float DragX = 0;
  std::int16_t DragY = 0;
  Place from;
};

// The main design screen: the input sheet, the results and everything around them, by the names of the controls.
struct MainScreen {
  MainScreen();
  static std::span<const ControlRow<MainScreen>> Rows();

  std::string title;
  Place window;  // twips
  WindowState state = WindowState::kNormal;
  int zoom = 100;  // percent; one scale factor for the whole screen
  // Of a window, in twips: what it has for the screens and what grows as they do; 0 where there is no window.
  int room_width = 0;
  int room_height = 0;
  // What else takes of it at 100 percent: menus, tool bar and the line at the foot of the height, and an open desk of
  // the width beside the screens or of the height below them.
  int bars_height = 0;
  int desk_width = 0;
  int desk_height = 0;
  bool busy = false;        // the whole program's pointer is the hourglass
  bool main_busy = false;   // this screen's own pointer is
  bool closed = false;      // the screen was unloaded; the program ends
  std::string focus;        // name of the active control
  SheetCell refused;        // what the last refusal of a survey speaks of
  bool best_holes = false;  // the limited selection that is ticked was looked for among all plans
  PanelDrag drag;

  // Menus
  Control mnuFile, mnuFileNew, mnuFileOpen, mnuFileSave, mnuFileSaveAs, mnuFileEarlier, mnuFileBringBack, mnuFileBar3,
      mnuPrintComplete, mnuPrintSummary, mnuPrtHoleSummary, mnuPrintPreview, mnuExport, mnuExportCsv, mnuExportHoleCsv,
      mnuExportPhone, mnuExportPicture, mnuFileExit;
  // The summary, the complete design and the hole summary
  std::array<Control, 3> mnuPreview, mnuExportPdf;
  std::array<Control, 4> mnuFileList;
  Control mnuEdit, mnuEditUndo, mnuEditRedo, mnuEditCut, mnuEditCopy, mnuEditPaste, mnuInsertRow, mnuDeleteRow,
      mnuClearFilled, mnuSoils_and_Furrow, mnuSurveyCopy;
  Control mnuPreference;
  Control mnuDesign, mnuDesignField, mnuDesignConstSlope, mnuDesignDualSlope, mnuComputerHoleSelection,
      mnuExistingDesign, mnuManHoleSelection, mnuBestHoles;
  Control mnuTypeOfPipe, mnuLayflatPipe, mnuRigidPipe;
  Control mnuView, mnuStakes, mnuZoom, mnuZoomFit;
  std::array<Control, 3> mnuDesk;  // by section of the desk
  std::array<Control, 7> mnuZoomTo;
  Control mnuWindowInfo, mnuProfile, mnuHelp, mnuHelpContents, mnuHelpScreen, mnuHelpFirstSteps, mnuHelpAbout;

  // Information fields and their labels
  std::array<TextField, 6> txtInfo;
  Control lblName, lblDate, lblGPM, lblHead, lblLocation, lblRodOrElev;

  // Preferences
  Control Frame1, lblDefDistance, lblHoleSize, lblOpenFilter, btnDefaultExit;
  std::array<Control, 13> lblDefault;  // of fields 2 to 14
  std::array<TextField, 16> txtDefault;

  // Soils
  ListBox listSoils;
  Control lblRecFurrowFlow;

  // Hole selection
  Control frameHoleSelection, lblAllHoles, cmdADDtoSelected, cmdHoleSelected, cmdremoveSelected, Command1,
      cmdExitHoleSelect;
  ListBox listAllHoles, listHolesSelected, listSortSelectedHoles;
  // Limits of the best holes: stretches of one size, least head, highest head
  std::array<Control, 3> lblBest;
  std::array<TextField, 3> txtBest;
  Control cmdFindBestHoles, cmdCloseBestHoles;

  // Buttons
  Control cmdInterpolate, cmdCancel, cmdReCalc, cmdDesignToggle;
  Control cmdBringBack;  // on the empty screen, while there is work to bring back

  // The first steps, in the free half of the empty screen
  Control frameFirstSteps, lblFirstSteps, cmdOpenSample, cmdWorkedExample, cmdCloseFirstSteps;
  std::array<Control, 3> lblFirstStep;

  // Sheets
  Grid Grid1, Grid2, GridInchesApplied;

  // Results
  Control lblEffic, lblCrownSlope, lblBestHoles, lblAcresTotal, lblActiveInactive, lblAvgFurrowFlow, lblHeadCount;
  Control frmDisplay;
  std::array<Control, 16> frmDisplayLbl;
  Control frameShowLimitedHoles, lblSumHoleDia, lblSumStation, lblSumlNumHoles;
  // Best uniformity by stretches of one size: numbers of stretches, uniformities, bars
  Control frameBestCurve;
  std::array<Control, 3> lblCurve;
  Control frameHoleEquiv, lblHoleEquiv;

  // One line of buttons below the menus; its buttons are the keys of menu entries
  Control tbToolBar;
  // One line at the foot of the window
  Control sbStatusBar;
};

// The panels that open over the screen; the user may move them. One is open at a time.
inline constexpr std::array<std::string_view, 2> kPanels = {"Frame1", "frameHoleSelection"};

// The editor of soils and their recommended furrow flows, a window of its own.
struct SoilsScreen {
  SoilsScreen();
  static std::span<const ControlRow<SoilsScreen>> Rows();

  std::string title;
  bool visible = false;
  Control mnuFile, mnuSave, mnu_Save_Exit, MnuExit;
  Control mnuEdit, mnuCut, mnuCopy, mnuPaste;
  Grid Grd_Soils_FurrowFlow;
  std::vector<int> copies;  // the line of `listSoils` at which each reading of the soils file began
};

// Percentages that mnuZoomTo offers, by index.
inline constexpr std::array<int, 7> kZoomSteps = {75, 100, 125, 150, 175, 200, 250};

}  // namespace torvale
