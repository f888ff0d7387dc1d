#include "reports/crown_profile.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "display/cell_texts.h"
#include "display/design_display.h"
#include "display/result_tables.h"
#include "engine/survey.h"
#include "reports/stale_mark.h"
#include "screen/fields.h"
#include "screen/file_choice.h"
#include "screen/message_box.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr int kValueTitleSize = 14;
constexpr int kMajorDivisions = 12;
constexpr int kMinorDivisions = 6;

void ShowLabels(Program& program) {
  const DesignRecord& record = program.record;
  CrownProfileScreen& profile = program.profile;
  profile.lblFillHeight.visible = IsSlopeDesign(record);
  profile.lblProfileHiHead.caption = "Highest Head = " + Format(record.MaxHead, "##.##");
  profile.lblFillHeight.caption = "Highest Fill in Crown is " + Format(record.HighestFill, "##.00");
  profile.lblDistUnif.caption = " Distribution Uniformity = " + GeneralText(record.Uniformity) + " Percent ";
}

// Extremes of the crowns that are drawn.
struct Range {
  double High = 0;
  double Low;
};

Range RangeOfCrowns(const DesignRecord& record, double Low) {
  Range range{.Low = Low};
  const auto take = [&](const RowArray<float>& crown) {
    for (int i = 1; i <= record.HoleRows; ++i) {
      range.High = std::max(range.High, Wide(crown[i]));
      range.Low = std::min(range.Low, Wide(crown[i]));
    }
  };
  take(record.CrownElev);
  if (IsSlopeDesign(record)) take(record.DesignElev);
  return range;
}

// The two limits are not symmetrical on purpose: the lower one is rounded up before one foot is taken off.
void SetLimits(const Program& program, LineChart& chart) {
  if (ReadsElevations(program.main)) {
    const Range range = RangeOfCrowns(program.record, 100000.0);
    chart.maximum = Store32(Int(range.High + 0.9) + 1);
    chart.minimum = Store32(Int(range.Low + 0.9) - 1);
    return;
  }
  const Range range = RangeOfCrowns(program.record, 10000.0);
  chart.maximum = Store32(Int(-range.Low + 0.9) + 1);
  chart.minimum = Store32(Int(-range.High - 0.9) + 1);
}

// Writes one row of points; the list grows where more rows are drawn than the Summary table has.
void WritePoint(const Program& program, LineChart& chart, int row, const std::string& label, int i) {
  TextGrid& points = chart.Points;
  if (row >= points.rows()) points.Resize(row + 1, points.columns());
  points.Set(row, 0, label);
  const auto value = [&](float crown) {
    const double feet = crown;
    if (ReadsElevations(program.main)) return Format(feet, "####.00");
    return row == 1 ? Format(-feet, "####.00") : Format(feet, "-####.00");
  };
  points.Set(row, 1, value(program.record.CrownElev[i]));
  if (IsSlopeDesign(program.record)) points.Set(row, 2, value(program.record.DesignElev[i]));
}

// Whether something changes at row i of the line, or a survey station has been reached.
bool IsPoint(const DesignRecord& record, int i, double survey_station) {
  const auto differs = [i](const RowArray<float>& field) { return field[i] != field[i - 1]; };
  return survey_station <= Int(record.Station[i]) ||
         (record.DesignType != kComputerHoles && differs(record.SurveyHoleDia)) ||
         (record.DesignType == kComputerHoles && differs(record.ComputerHoleDia)) ||
         (record.DesignType == kLimitedHoles && differs(record.LimitedHoleDia)) || differs(record.PipeDia) ||
         record.SurveyHoleDia[i] != AtRow(record, record.SurveyHoleDia, i + 1);
}

void FillPoints(Program& program, LineChart& chart) {
  const DesignRecord& record = program.record;
  const SurveyReader survey(program.main.Grid1.cells(), record.SurveyRows);
  chart.series = IsSlopeDesign(record) ? 2 : 1;
  chart.Points.Clear();
  chart.Points.Resize(ToWhole(record.ProfileScale) + 1, chart.series + 1);
  chart.Points.Set(0, 1, "Existing Crown");
  if (chart.series == 2) chart.Points.Set(0, 2, "Designed Crown");
  WritePoint(program, chart, 1, GeneralText(record.Station[1]), 1);
  int NextPoint = 2;
  int SurveyRow = 2;
  for (int i = 2; i <= record.HoleRows; ++i) {
    const double survey_station = survey.Val(SurveyRow, kStationColumn);
    if (IsPoint(record, i, survey_station)) WritePoint(program, chart, NextPoint++, StationText(record, i) + " ", i);
    if (survey_station < record.Station[i]) ++SurveyRow;
  }
  chart.rows = NextPoint;
}

void ShowButtons(CrownProfileScreen& profile, bool visible) {
  for (Control* button : {&profile.btnPrintProfile, &profile.btnExportPicture, &profile.btnBack}) {
    button->visible = visible;
  }
}

// What stands above the picture, and what goes with it where its figures are out of date.
void NameProfile(Program& program) {
  std::string name = TextOf(program.main, InfoField::kDesignName) + "   " + TextOf(program.main, InfoField::kLocation);
  if (const std::string stale = StaleHeading(program); !stale.empty()) name += "   " + stale;
  program.profile.lblProfileName.caption = name;
}

// What went wrong; nothing where all copies were printed.
SpokenMessage PrintCopies(Program& program) {
  NameProfile(program);
  const std::optional<int> copies = program.host.PrinterDialog();
  if (!copies) return words::kPrintingCancelled;
  ShowButtons(program.profile, false);
  for (int copy = 0; copy < *copies; ++copy) {
    if (!program.host.PrintProfile()) return words::kPictureNotTaken;
  }
  return {};
}

}  // namespace

void BuildCrownChart(Program& program) {
  LineChart& chart = program.profile.chart;
  ShowLabels(program);
  SetLimits(program, chart);
  FillPoints(program, chart);
  chart.value_title_size = kValueTitleSize;
  chart.value_title_visible = true;
  chart.value_title = ReadsElevations(program.main) ? "Elevations (ft.)" : "Rod Readings (ft.)";
  chart.legend_visible = true;
  chart.automatic_scale = false;
  chart.minor_divisions = kMinorDivisions;
  chart.major_divisions = kMajorDivisions;
  chart.title = "PROFILE of CROWN ELEVATIONS";
}

void mnuProfile_Click(Program& program) {
  MainScreen& main = program.main;
  CrownProfileScreen& profile = program.profile;
  profile.CrownProfile.visible = true;
  Control& toggle = main.cmdDesignToggle;
  program.record.ProfileTitle = NamesSummary(program) ? kSummary : kCompleteDesign;
  toggle.caption = kSummary;
  try {
    DisplayDesign(program);
    NameProfile(program);
    BuildCrownChart(program);
  } catch (const RunTimeFault&) {
    // The sheet behind the table can have been cut or pasted over since the design was worked out.
    btnBack_Click(program);
    Tell(program, words::kProfileCannotBeDrawn);
  }
}

void btnBack_Click(Program& program) {
  program.profile.CrownProfile.visible = false;
  program.main.cmdDesignToggle.caption = program.record.ProfileTitle;
}

void btnPrintProfile_Click(Program& program) {
  if (!program.host.HasPrinter()) return Tell(program, words::kNoPrinterForPicture);
  TakeOut(program, [&] {
    const SpokenMessage failure = PrintCopies(program);
    ShowButtons(program.profile, true);
    if (!failure.empty()) Tell(program, failure);
  });
}

void btnExportPicture_Click(Program& program) {
  TakeOut(program, [&] {
    NameProfile(program);
    const auto path = ChooseExport(
        program,
        {"Export Picture", "PNG picture (*.png)|*.png|PDF document (*.pdf)|*.pdf", "Crown Profile", {".png", ".pdf"}});
    if (path) TellExported(program, *path, program.host.WriteProfile(*path), words::kPictureNotWritten);
  });
}

}  // namespace torvale
