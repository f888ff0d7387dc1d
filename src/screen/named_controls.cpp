#include "screen/main_screen.h"

namespace torvale {
namespace {

NamedControl Plain(std::string_view name, ControlKind kind, Control& control, std::string_view parent = "") {
  return {std::string(name), kind, std::string(parent), &control};
}

NamedControl Label(std::string_view name, Control& control, std::string_view parent = "") {
  return Plain(name, ControlKind::kLabel, control, parent);
}

NamedControl Button(std::string_view name, Control& control, std::string_view parent = "") {
  return Plain(name, ControlKind::kButton, control, parent);
}

NamedControl Frame(std::string_view name, Control& control, std::string_view parent = "") {
  return Plain(name, ControlKind::kFrame, control, parent);
}

NamedControl Menu(std::string_view name, Control& control, std::string_view parent = "") {
  return Plain(name, ControlKind::kMenu, control, parent);
}

NamedControl Sheet(std::string_view name, Grid& grid) {
  return {std::string(name), ControlKind::kGrid, "", &grid.control, nullptr, &grid};
}

NamedControl List(std::string_view name, ListBox& list, std::string_view parent) {
  return {std::string(name), ControlKind::kList, std::string(parent), &list.control, nullptr, nullptr, &list};
}

std::string Indexed(std::string_view name, std::size_t index) {
  return std::string(name) + "(" + std::to_string(index) + ")";
}

void AddMenus(MainScreen& s, std::vector<NamedControl>& all) {
  all.insert(all.end(), {Menu("mnuFile", s.mnuFile),
                         Menu("mnuFileNew", s.mnuFileNew, "mnuFile"),
                         Menu("mnuFileOpen", s.mnuFileOpen, "mnuFile"),
                         Menu("mnuFileSave", s.mnuFileSave, "mnuFile"),
                         Menu("mnuFileSaveAs", s.mnuFileSaveAs, "mnuFile"),
                         Menu("mnuFileEarlier", s.mnuFileEarlier, "mnuFile"),
                         Menu("mnuFileBringBack", s.mnuFileBringBack, "mnuFile"),
                         Menu("mnuPrintSummary", s.mnuPrintSummary, "mnuFile"),
                         Menu("mnuPrintComplete", s.mnuPrintComplete, "mnuFile"),
                         Menu("mnuPrtHoleSummary", s.mnuPrtHoleSummary, "mnuFile"),
                         Menu("mnuPrintPreview", s.mnuPrintPreview, "mnuFile"),
                         Menu("mnuPreview(0)", s.mnuPreview[0], "mnuPrintPreview"),
                         Menu("mnuPreview(1)", s.mnuPreview[1], "mnuPrintPreview"),
                         Menu("mnuPreview(2)", s.mnuPreview[2], "mnuPrintPreview"),
                         Menu("mnuExport", s.mnuExport, "mnuFile"),
                         Menu("mnuExportPdf(0)", s.mnuExportPdf[0], "mnuExport"),
                         Menu("mnuExportPdf(1)", s.mnuExportPdf[1], "mnuExport"),
                         Menu("mnuExportPdf(2)", s.mnuExportPdf[2], "mnuExport"),
                         Menu("mnuExportCsv", s.mnuExportCsv, "mnuFile"),
                         Menu("mnuExportHoleCsv", s.mnuExportHoleCsv, "mnuFile"),
                         Menu("mnuFileList(0)", s.mnuFileList[0], "mnuFile"),
                         Menu("mnuFileList(1)", s.mnuFileList[1], "mnuFile"),
                         Menu("mnuFileList(2)", s.mnuFileList[2], "mnuFile"),
                         Menu("mnuFileList(3)", s.mnuFileList[3], "mnuFile"),
                         Menu("mnuFileBar3", s.mnuFileBar3, "mnuFile"),
                         Menu("mnuFileExit", s.mnuFileExit, "mnuFile"),
                         Menu("mnuEdit", s.mnuEdit),
                         Menu("mnuEditUndo", s.mnuEditUndo, "mnuEdit"),
                         Menu("mnuEditRedo", s.mnuEditRedo, "mnuEdit"),
                         Menu("mnuEditCut", s.mnuEditCut, "mnuEdit"),
                         Menu("mnuEditCopy", s.mnuEditCopy, "mnuEdit"),
                         Menu("mnuEditPaste", s.mnuEditPaste, "mnuEdit"),
                         Menu("mnuInsertRow", s.mnuInsertRow, "mnuEdit"),
                         Menu("mnuDeleteRow", s.mnuDeleteRow, "mnuEdit"),
                         Menu("mnuSoils_and_Furrow", s.mnuSoils_and_Furrow, "mnuEdit"),
                         Menu("mnuPreference", s.mnuPreference),
                         Menu("mnuDesign", s.mnuDesign),
                         Menu("mnuDesignField", s.mnuDesignField, "mnuDesign"),
                         Menu("mnuDesignConstSlope", s.mnuDesignConstSlope, "mnuDesign"),
                         Menu("mnuDesignDualSlope", s.mnuDesignDualSlope, "mnuDesign"),
                         Menu("mnuComputerHoleSelection", s.mnuComputerHoleSelection, "mnuDesign"),
                         Menu("mnuManHoleSelection", s.mnuManHoleSelection, "mnuDesign"),
                         Menu("mnuExistingDesign", s.mnuExistingDesign, "mnuDesign"),
                         Menu("mnuTypeOfPipe", s.mnuTypeOfPipe),
                         Menu("mnuLayflatPipe", s.mnuLayflatPipe, "mnuTypeOfPipe"),
                         Menu("mnuRigidPipe", s.mnuRigidPipe, "mnuTypeOfPipe"),
                         Menu("mnuView", s.mnuView),
                         Menu("mnuZoom", s.mnuZoom, "mnuView")});
  for (std::size_t i = 0; i < s.mnuZoomTo.size(); ++i) {
    all.push_back(Menu(Indexed("mnuZoomTo", i), s.mnuZoomTo[i], "mnuZoom"));
  }
  all.insert(
      all.end(),
      {Menu("mnuWindowInfo", s.mnuWindowInfo), Menu("mnuProfile", s.mnuProfile), Menu("mnuSurveyCopy", s.mnuSurveyCopy),
       Menu("mnuHelp", s.mnuHelp), Menu("mnuHelpContents", s.mnuHelpContents, "mnuHelp"),
       Menu("mnuHelpScreen", s.mnuHelpScreen, "mnuHelp"), Menu("mnuHelpAbout", s.mnuHelpAbout, "mnuHelp")});
}

void AddFields(std::array<TextField, 6>& fields, std::vector<NamedControl>& all) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    all.push_back({Indexed("txtInfo", i), ControlKind::kField, "", &fields[i].control, &fields[i]});
  }
}

void AddPreferences(MainScreen& s, std::vector<NamedControl>& all) {
  constexpr std::string_view kPanel = "Frame1";
  constexpr std::size_t kFirstLabelled = 2;  // the fields before it and the last have labels of their own names
  all.insert(all.end(), {Frame(kPanel, s.Frame1), Label("lblDefDistance", s.lblDefDistance, kPanel),
                         Label("lblHoleSize", s.lblHoleSize, kPanel)});
  for (std::size_t i = 0; i < s.lblDefault.size(); ++i) {
    all.push_back(Label(Indexed("lblDefault", i + kFirstLabelled), s.lblDefault[i], kPanel));
  }
  all.push_back(Label("lblOpenFilter", s.lblOpenFilter, kPanel));
  for (std::size_t i = 0; i < s.txtDefault.size(); ++i) {
    all.push_back({Indexed("txtDefault", i), ControlKind::kField, std::string(kPanel), &s.txtDefault[i].control,
                   &s.txtDefault[i]});
  }
  all.push_back(Button("btnDefaultExit", s.btnDefaultExit, kPanel));
}

void AddHoleSelection(MainScreen& s, std::vector<NamedControl>& all) {
  constexpr std::string_view kPanel = "frameHoleSelection";
  all.insert(
      all.end(),
      {Frame(kPanel, s.frameHoleSelection), Label("lblAllHoles", s.lblAllHoles, kPanel),
       List("listAllHoles", s.listAllHoles, kPanel), Button("cmdADDtoSelected", s.cmdADDtoSelected, kPanel),
       Label("cmdHoleSelected", s.cmdHoleSelected, kPanel), List("listHolesSelected", s.listHolesSelected, kPanel),
       Button("cmdremoveSelected", s.cmdremoveSelected, kPanel), Button("Command1", s.Command1, kPanel),
       Button("cmdExitHoleSelect", s.cmdExitHoleSelect, kPanel),
       List("listSortSelectedHoles", s.listSortSelectedHoles, kPanel)});
}

void AddResults(MainScreen& s, std::vector<NamedControl>& all) {
  all.insert(all.end(), {Label("lblEffic", s.lblEffic), Label("lblCrownSlope", s.lblCrownSlope),
                         Label("lblAcresTotal", s.lblAcresTotal), Label("lblActiveInactive", s.lblActiveInactive),
                         Label("lblAvgFurrowFlow", s.lblAvgFurrowFlow), Label("lblHeadCount", s.lblHeadCount),
                         Frame("frmDisplay", s.frmDisplay)});
  for (std::size_t i = 0; i < s.frmDisplayLbl.size(); ++i) {
    all.push_back(Label(Indexed("frmDisplayLbl", i), s.frmDisplayLbl[i], "frmDisplay"));
  }
  all.insert(
      all.end(),
      {Frame("frameShowLimitedHoles", s.frameShowLimitedHoles),
       Label("lblSumHoleDia", s.lblSumHoleDia, "frameShowLimitedHoles"),
       Label("lblSumStation", s.lblSumStation, "frameShowLimitedHoles"),
       Label("lblSumlNumHoles", s.lblSumlNumHoles, "frameShowLimitedHoles"), Frame("frameHoleEquiv", s.frameHoleEquiv),
       Label("lblHoleEquiv", s.lblHoleEquiv, "frameHoleEquiv"), Plain("tbToolBar", ControlKind::kToolBar, s.tbToolBar),
       Plain("sbStatusBar", ControlKind::kStatusBar, s.sbStatusBar)});
}

}  // namespace

std::vector<NamedControl> ControlsOf(SoilsScreen& s) {
  return {Menu("mnuSoilsFile", s.mnuFile),
          Menu("mnuSave", s.mnuSave, "mnuSoilsFile"),
          Menu("mnu_Save_Exit", s.mnu_Save_Exit, "mnuSoilsFile"),
          Menu("MnuExit", s.MnuExit, "mnuSoilsFile"),
          Menu("mnuSoilsEdit", s.mnuEdit),
          Menu("mnuCut", s.mnuCut, "mnuSoilsEdit"),
          Menu("mnuCopy", s.mnuCopy, "mnuSoilsEdit"),
          Menu("mnuPaste", s.mnuPaste, "mnuSoilsEdit"),
          Sheet("Grd_Soils_FurrowFlow", s.Grd_Soils_FurrowFlow)};
}

std::vector<NamedControl> ControlsOf(MainScreen& s) {
  std::vector<NamedControl> all;
  AddMenus(s, all);
  all.insert(all.end(),
             {Label("lblName", s.lblName), Label("lblDate", s.lblDate), Label("lblGPM", s.lblGPM),
              Label("lblHead", s.lblHead), Label("lblLocation", s.lblLocation), Label("lblRodOrElev", s.lblRodOrElev)});
  AddFields(s.txtInfo, all);
  all.insert(all.end(), {Sheet("Grid1", s.Grid1), Sheet("Grid2", s.Grid2),
                         Sheet("GridInchesApplied", s.GridInchesApplied), Button("cmdInterpolate", s.cmdInterpolate),
                         Button("cmdCancel", s.cmdCancel), Button("cmdReCalc", s.cmdReCalc),
                         Button("cmdDesignToggle", s.cmdDesignToggle), Button("cmdBringBack", s.cmdBringBack)});
  all.insert(all.end(), {List("listSoils", s.listSoils, ""), Label("lblRecFurrowFlow", s.lblRecFurrowFlow)});
  AddResults(s, all);
  AddPreferences(s, all);
  AddHoleSelection(s, all);
  return all;
}

}  // namespace torvale
