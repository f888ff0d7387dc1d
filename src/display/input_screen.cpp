#include "display/input_screen.h"

#include "screen/fields.h"

namespace torvale {
namespace {

constexpr int kSummaryBesideSheet = 9350;  // twips: left edge of the hole summary

void OfferInput(MainScreen& main) {
  main.cmdInterpolate.visible = true;
  main.mnuSurveyCopy.visible = true;
}

void MarkInactive(Control& label) {
  label.caption = kInactiveDesign;
  label.back = kPaleYellow;
  label.fore = kBlack;
}

}  // namespace

void ForgetBestHoles(MainScreen& main) {
  main.lblBestHoles.caption.clear();
  main.lblBestHoles.visible = false;
  for (Control& column : main.lblCurve) column.caption.clear();
  main.frameBestCurve.visible = false;
}

bool DesignStands(const Program& program) {
  return program.main.lblActiveInactive.caption == kActiveDesign;
}

void ShowInput(Program& program) {
  MainScreen& main = program.main;
  if (DesignStands(program)) MarkInactive(main.lblActiveInactive);
  for (Control* results :
       {&main.Grid2.control, &main.GridInchesApplied.control, &main.lblEffic, &main.lblCrownSlope, &main.lblBestHoles,
        &main.frameBestCurve, &main.lblHeadCount, &main.lblAvgFurrowFlow, &main.frmDisplay, &main.cmdDesignToggle,
        &main.cmdReCalc, &main.mnuProfile, &main.cmdCancel}) {
    results->visible = false;
  }
  program.record.TotalAcres = 0;
  main.lblAcresTotal.caption.clear();
  main.frameShowLimitedHoles.place.left = kSummaryBesideSheet;
  main.Grid1.control.visible = true;
  OfferInput(main);
}

void GiveUpDesign(Program& program) {
  ShowInput(program);
  MarkInactive(program.main.lblActiveInactive);
}

void ForgetDesign(Program& program) {
  MainScreen& main = program.main;
  ShowInput(program);
  main.lblActiveInactive.back.reset();
  main.lblActiveInactive.fore.reset();
  main.lblEffic.caption.clear();
  main.lblEffic.back = kLightGrey;
  main.lblCrownSlope.caption.clear();
  ForgetBestHoles(main);
  main.lblAvgFurrowFlow.caption.clear();
  main.lblHeadCount.caption.clear();
  main.frameShowLimitedHoles.visible = false;
  if (program.profile.CrownProfile.visible) {
    program.profile.CrownProfile.visible = false;
    main.cmdDesignToggle.caption = program.record.ProfileTitle;
  }
  // An odd index holds a value, the one before it its title.
  for (std::size_t i = 1; i < main.frmDisplayLbl.size(); i += 2) {
    main.frmDisplayLbl.at(i).caption.clear();
    main.frmDisplayLbl.at(i).back.reset();
  }
  main.frmDisplayLbl[Figure::kCrownDifferentialName].visible = false;
  main.frmDisplayLbl[Figure::kCrownDifferential].visible = false;
  main.GridInchesApplied.cells().Erase(1, 0, main.GridInchesApplied.rows() - 1,
                                       main.GridInchesApplied.column_count() - 1);
}

void LeaveRun(Program& program) {
  MainScreen& main = program.main;
  main.cmdCancel.visible = false;
  const bool behind_panel = main.Frame1.visible && DesignStands(program);
  if (!main.Grid2.control.visible && !behind_panel) OfferInput(main);
}

void ShowBehindPreferences(Program& program) {
  MainScreen& main = program.main;
  const std::int16_t type = program.record.DesignType;
  // A limited selection doesn't get its table and buttons back here.
  if (type >= kPlanned && type <= kExistingField && DesignStands(program)) {
    main.Grid2.control.visible = true;
    main.cmdReCalc.visible = true;
    main.cmdDesignToggle.visible = true;
  } else if (!main.Grid2.control.visible || type != kNoDesign) {
    main.Grid1.control.visible = true;
  }
}

}  // namespace torvale
