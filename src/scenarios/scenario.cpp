#include "scenarios/scenario.h"

#include <map>

#include "base/numbers.h"
#include "display/cell_texts.h"
#include "display/colour_meanings.h"
#include "display/grid_layout.h"
#include "display/hole_summary.h"
#include "input/focus.h"
#include "record/kinds.h"
#include "screen/fields.h"
#include "screen/status_line.h"
#include "search/design_commands.h"
#include "shell/commands.h"
#include "shell/start_up.h"

namespace torvale {
namespace {

// For the ends of a run at which the program says nothing at all.
constexpr std::string_view kEndedInSilence = "The design ended without a result.";

// Controls whose colour warns of something in a finished design.
constexpr std::array<std::string_view, 4> kWarningControls = {"lblEffic", "frmDisplayLbl(1)", "frmDisplayLbl(5)",
                                                              "frmDisplayLbl(15)"};

// A text that is too large a number stands in its field all the same; what the record took is laid by itself.
void LayText(TextField& field, std::string_view text) {
  try {
    field.Set(text);
  } catch (const RunTimeFault&) {
    return;
  }
}

void Lay(const ScenarioInput& input, Program& program) {
  MainScreen& main = program.main;
  DesignRecord& record = program.record;
  for (std::size_t i = 0; i < input.preferences.size(); ++i) LayText(main.txtDefault.at(i), input.preferences.at(i));
  for (std::size_t i = 0; i < input.fields.size(); ++i) LayText(main.txtInfo.at(i), input.fields.at(i));
  main.Grid1.cells() = input.sheet;
  record.PipeKind = input.pipe_kind;
  TickPipe(program);
  main.listHolesSelected.Clear();
  for (const std::string& size : input.hole_sizes) main.listHolesSelected.Add(size);
  for (std::size_t i = 0; i < input.best_limits.size(); ++i) LayText(main.txtBest.at(i), input.best_limits.at(i));
  main.listSoils.Deselect();
  main.listSoils.Select(input.soil.line, true);
  record.SoilName = input.soil.name;
  record.RecFurrowFlow = input.soil.furrow_flow;
  main.lblRecFurrowFlow.caption = input.soil.advice;
  record.TargetGPM = input.target_gpm;
  record.HazenWilliamsC = input.hazen_williams_c;
  record.DischargeCoef = input.discharge_coef;
  record.StationInterval = input.station_interval;
  record.SurveyRows = input.survey_rows;
  record.SpacingWarningOff = input.spacing_warning_off;
  program.pipe_strengths = input.pipe_strengths;
}

void ClickDesign(Program& program, const DesignKind& kind) {
  Click(program, kind.entry);
  if (!kind.panel_button.empty()) Click(program, kind.panel_button);
}

bool IsDone(const Program& program, std::int16_t design_type) {
  const DesignRecord& record = program.record;
  return record.DesignType == design_type && record.DesignOK == "True" && record.MissingData == 0 &&
         !record.CancelFlag && program.main.Grid2.control.visible;
}

void CountHoles(const Program& program, ScenarioResult& result) {
  const DesignRecord& record = program.record;
  const RowArray<Inches>& chosen = ChosenHoleDia(record);
  std::map<Inches, SizeCount> sizes;
  std::optional<float> before;
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!(record.FurrowFlow[i] > 0)) continue;
    const Inches inches = chosen[i];
    SizeCount& size = sizes[inches];
    if (size.furrows == 0) size.name = ChosenSizeName(program, i);
    if (size.name.empty()) size.name = GeneralText(inches);
    ++size.furrows;
    size.holes += record.HolesPerFurrow[i];
    if (before && *before != inches) ++result.size_changes;
    before = inches;
  }
  for (auto& [inches, size] : sizes) result.sizes.push_back(std::move(size));
}

// The dual slope is carried, and shown, in other units than the constant one.
void TakeSlope(const DesignRecord& record, ScenarioResult& result) {
  const double slope = record.CrownSlope;
  if (record.DesignType == kConstantSlope) result.slope = slope * 100;
  if (record.DesignType == kDualSlope) {
    result.slope = slope + slope;
    result.slope_ends = Number(record.DualBreakStation);
  }
  if (result.slope) result.highest_fill = record.HighestFill;
}

// "Yellow: the lowest head is below half a foot." without the colour's name.
std::string WithoutColour(std::string_view words) {
  const std::size_t colon = words.find(": ");
  if (colon == std::string_view::npos) return std::string(words);
  std::string sentence(words.substr(colon + 2));
  return UpperCase(sentence.substr(0, 1)) + sentence.substr(1);
}

// What would harm the field comes first.
void TakeWarnings(Program& program, const std::vector<Told>& told, ScenarioResult& result) {
  for (std::size_t i = 0; i < kWarningFigures.size(); ++i) {
    result.marks.at(i) = program.main.frmDisplayLbl[kWarningFigures.at(i)].mark;
    if (!result.marks.at(i).empty()) result.warnings.push_back(result.marks.at(i));
  }
  for (const Told& message : told) result.warnings.push_back(message.body);
  for (const std::string_view name : kWarningControls) {
    const Control* control = FindControl(program, name);
    if (control == nullptr || !control->visible || control->back != kYellow) continue;
    result.warnings.push_back(WithoutColour(MeaningOfColour(name, kYellow)));
  }
}

void TakeFigures(const Program& program, ScenarioResult& result) {
  const DesignRecord& record = program.record;
  result.uniformity = record.Uniformity;
  result.max_head = record.MaxHead;
  result.max_head_station = record.MaxHeadStation;
  result.min_head = record.MinHead;
  result.min_head_station = record.MinHeadStation;
  result.max_furrow_flow = record.MaxFurrowFlow;
  result.min_furrow_flow = record.MinFurrowFlow;
  result.flow = record.AccumGPM;
  result.acres = record.TotalAcres;
  result.hours_for_inch = record.HoursOneInch;
  result.target_head = TextOf(program.main, InfoField::kTargetHead);
  if (program.main.lblBestHoles.visible) result.proof = program.main.lblBestHoles.caption;
  TakeSlope(record, result);
  CountHoles(program, result);
}

// What was said in boxes, then what the status bar says, which names the cell.
std::vector<std::string> RefusalWords(const Program& program, const std::vector<Told>& told,
                                      const std::string& status_before) {
  const std::string& status = News(program);
  const bool news = !status.empty() && status != status_before && !(FocusHint(program, program.main.focus) == status);
  std::vector<std::string> words;
  words.reserve(told.size() + 1);
  for (const Told& message : told) words.push_back(message.body);
  if (news) words.push_back(status);
  if (words.empty()) words.emplace_back(kEndedInSilence);
  return words;
}

}  // namespace

ScenarioInput InputOf(const Program& program) {
  const MainScreen& main = program.main;
  const DesignRecord& record = program.record;
  ScenarioInput input;
  input.sheet = main.Grid1.cells();
  for (std::size_t i = 0; i < input.fields.size(); ++i) input.fields.at(i) = main.txtInfo.at(i).text();
  for (std::size_t i = 0; i < input.preferences.size(); ++i) input.preferences.at(i) = main.txtDefault.at(i).text();
  input.pipe_kind = record.PipeKind;
  const ListBox& sizes = main.listHolesSelected;
  for (int i = 0; i < sizes.count(); ++i) input.hole_sizes.push_back(sizes.Line(i));
  for (std::size_t i = 0; i < input.best_limits.size(); ++i) input.best_limits.at(i) = main.txtBest.at(i).text();
  input.soil = {main.listSoils.Current(), record.SoilName, record.RecFurrowFlow, main.lblRecFurrowFlow.caption};
  input.target_gpm = record.TargetGPM;
  input.hazen_williams_c = record.HazenWilliamsC;
  input.discharge_coef = record.DischargeCoef;
  input.station_interval = record.StationInterval;
  input.survey_rows = record.SurveyRows;
  input.spacing_warning_off = record.SpacingWarningOff;
  input.pipe_strengths = program.pipe_strengths;
  return input;
}

QuietProgram::QuietProgram(const std::string& data_folder) : host_(data_folder), program_(host_) {
  StartProgram(program_);
  host_.LeaveFolder();
  // Nobody takes anything back here, and what one run left must not mark the figures of the next as stale.
  program_.history.reset();
  start_design_ = program_.record;
  start_names_ = program_.record;
  start_screen_ = program_.main;
}

void QuietProgram::StartAnew() {
  // No run touches the list of soils or the clipboard of the sheets.
  static_cast<Design&>(program_.record) = start_design_;
  static_cast<FileNames&>(program_.record) = start_names_;
  program_.main = start_screen_;
  host_.told.clear();
  host_.cancelled = false;
}

ScenarioResult QuietProgram::Run(const ScenarioInput& input, std::int16_t design_type, const Until& until) {
  return Run(input, *FindDesignKind(design_type), until);
}

ScenarioResult QuietProgram::Run(const ScenarioInput& input, const DesignKind& kind, const Until& until) {
  StartAnew();
  ScenarioResult result;
  result.design_type = kind.type;
  result.key = kind.key;
  Lay(input, program_);
  const std::string status = program_.main.sbStatusBar.caption;
  host_.told.clear();
  host_.until = until;
  host_.cancel = [this] { cmdCancel_Click(program_); };
  ClickDesign(program_, kind);
  host_.cancel = nullptr;
  if (host_.cancelled) {
    result.outcome = ScenarioOutcome::kCancelled;
  } else if (IsDone(program_, kind.type)) {
    result.outcome = ScenarioOutcome::kDone;
    TakeFigures(program_, result);
    TakeWarnings(program_, host_.told, result);
  } else {
    result.words = RefusalWords(program_, host_.told, status);
    result.cell = program_.main.refused;
  }
  return result;
}

}  // namespace torvale
