#include "reports/print_frame.h"

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "base/version.h"
#include "display/applied_water.h"
#include "display/cell_texts.h"
#include "screen/fields.h"

namespace torvale {
namespace {

constexpr double kLeft = 0.5;
constexpr double kRight = 4;        // second column of texts
constexpr double kLeftRoom = 3.4;   // up to the second column
constexpr double kRightRoom = 3.9;  // up to the edge of the table
constexpr double kWholeRoom = 7.4;  // from the first column to that edge

constexpr double kAppliedHeading = 0.34;  // two lines of headings

// One word or two, the second below the first, ahead of the rule at `end`.
struct ColumnHeading {
  double upper_x;
  std::string_view upper;
  double lower_x;
  std::string_view lower;
  double end;
};

constexpr ColumnHeading kHeadings[] = {
    {0.2, "Station", 0.3, "Feet", kTableRules[1]},    {0.9, "Hole Size", 0.95, "Inches", kTableRules[2]},
    {1.6, "Hole", 1.5, "Number", kTableRules[3]},     {2.2, "Furrow", 2.25, "Flow", kTableRules[4]},
    {2.8, "Head", 2.8, "Feet", kTableRules[5]},       {3.3, "Flow", 3.3, "Ratio", kTableRules[6]},
    {4, "Furrow", 3.9, "Length Ft.", kTableRules[7]},
};
constexpr ColumnHeading kRodHeading = {4.55, "Rod Reading", 4.75, "Feet", kTableRules[8]};
constexpr ColumnHeading kElevationHeading = {4.6, "Elevation", 4.75, "Feet", kTableRules[8]};
constexpr ColumnHeading kLastHeadings[] = {
    {5.4, "Holes", 5.25, "Per Furrow", kTableRules[9]},
    {0, "", 6.05, "Mil", kTableRules[10]},
    {6.4, "Pipe Dia.", 6.45, "Inches", kTableRules[11]},
    {7.1, "Accum.", 7.15, "GPM", kTableRules[12]},
};

void PrintHeading(DocumentWriter& writer, const ColumnHeading& heading, double y) {
  writer.Text(heading.upper_x, y + 0.1, heading.upper, heading.end - kRuleGap - heading.upper_x);
  writer.Text(heading.lower_x, y + 0.3, heading.lower, heading.end - kRuleGap - heading.lower_x);
}

void PrintColumnHeadings(DocumentWriter& writer, bool rods, double y) {
  writer.SetDrawWidth(3);
  writer.Line(kTableRules.front(), y, kTableRules.back(), y);
  writer.Line(kTableRules.front(), y + 0.3, kTableRules.back(), y + 0.3);
  writer.SetDrawWidth(2);
  for (const ColumnHeading& heading : kHeadings) PrintHeading(writer, heading, y);
  PrintHeading(writer, rods ? kRodHeading : kElevationHeading, y);
  for (const ColumnHeading& heading : kLastHeadings) PrintHeading(writer, heading, y);
}

std::string SurveyKindText(const MainScreen& main) {
  if (ReadsRods(main)) return "Designed using Rod Readings";
  return ReadsElevations(main) ? "Designed using Elevations" : "";
}

}  // namespace

std::string DesignLine(const DesignRecord& record, std::string_view DesignKind::*name) {
  const DesignKind* kind = FindDesignKind(record.DesignType);
  if (kind == nullptr) return "";
  return std::string(kind->*name) + (IsLayflat(record) ? " using Layflat Pipe" : " using Rigid Pipe");
}

void PrintTitle(DocumentWriter& writer, const DesignRecord& record, std::string_view DesignKind::*name) {
  writer.Text(6.5, 0.2, "Page " + GeneralText(writer.page()));
  writer.SetFontSize(14);
  writer.Centred(0.2, "Kelmar Programming");
  writer.Centred(0.4, " TORVALE Version " + ProgramVersion());
  writer.SetFontSize(12);
  writer.Centred(0.6, kProgramPurpose);
  writer.Centred(0.8, DesignLine(record, name));
}

double AppliedWaterRow(double y, int row) {
  return y + kAppliedHeading + row * (kLineHeight + 0.005);
}

void PrintAppliedWater(DocumentWriter& writer, const DesignRecord& record, double y) {
  writer.SetFontSize(10);
  const double foot = y + 1.2;
  writer.Box(kLeft, y, 3, foot);
  writer.Line(1.6, y + kAppliedHeading, 1.6, foot);
  writer.Line(2.2, y + kAppliedHeading, 2.2, foot);
  for (const double down : {0.34, 0.51, 0.68, 0.85, 1.02}) writer.Line(kLeft, y + down, 3, y + down);
  writer.SetDrawWidth(1);
  writer.Text(0.55, y, "Gross Inches");
  writer.Text(0.8, y + 0.17, "Pumped");
  writer.Text(1.7, y + 0.17, "Hours");
  writer.Text(2.3, y + 0.17, "Days");
  int row = 0;
  for (const AppliedDepth& depth : kAppliedDepths) {
    const double at = AppliedWaterRow(y, row++);
    const float hours = record.*depth.hours;
    writer.Text(0.85, at, depth.inches);
    writer.Text(1.7, at, GeneralText(hours), 0.48);
    writer.Text(2.4, at, Format(Wide(hours) / 24, "##.0"), 0.58);
  }
}

void PrintSoil(DocumentWriter& writer, const Program& program, double y) {
  const ListBox& soils = program.main.listSoils;
  writer.Text(kRight, AppliedWaterRow(y, 0), "Soil Type " + soils.Line(soils.Current()), kRightRoom);
  writer.Text(kRight, AppliedWaterRow(y, 1), program.main.lblRecFurrowFlow.caption, kRightRoom);
  writer.Text(kRight, AppliedWaterRow(y, 2),
              "Average Furrow Flow " + AverageFurrowFlowText(program.record, " .#") + " GPM", kRightRoom);
}

void PrintPageHeader(DocumentWriter& writer, const Program& program, float& y) {
  const DesignRecord& record = program.record;
  PrintTitle(writer, record, &DesignKind::in_reports);
  writer.SetFontSize(10);
  writer.Text(kLeft, 1.1, "Saved as " + record.DisplayFileName, kWholeRoom);
  writer.Text(kLeft, 1.4, "Name: " + TextOf(program.main, InfoField::kDesignName), kLeftRoom);
  if (writer.page() < 2) {
    const double top = y;
    writer.SetDrawWidth(3);
    PrintAppliedWater(writer, record, top);
    PrintSoil(writer, program, top);
    y = Store32(AppliedWaterRow(top, static_cast<int>(kAppliedDepths.size()) - 1));
  }
  y = Store32(y + 0.3);
  PrintColumnHeadings(writer, ReadsRods(program.main), y);
}

void PrintDesignData(DocumentWriter& writer, const Program& program) {
  const DesignRecord& record = program.record;
  const MainScreen& main = program.main;
  float y = 3;
  PrintPageHeader(writer, program, y);
  const auto left = [&](double at, const std::string& text) { writer.Text(kLeft, at, text, kLeftRoom); };
  const auto right = [&](double at, const std::string& text) { writer.Text(kRight, at, text, kRightRoom); };
  right(1.4, "Date: " + TextOf(main, InfoField::kDate));
  left(1.6, "Location: " + TextOf(main, InfoField::kLocation));
  right(1.6, SurveyKindText(main));
  left(1.8, "Target Head: " + TextOf(main, InfoField::kTargetHead));
  right(1.8, "GPM: " + TextOf(main, InfoField::kGpm));
  left(2.0, "Maximum Head: " + Format(record.MaxHead, "##.00"));
  right(2.0, "Maximum Head Station: " + GeneralText(record.MaxHeadStation));
  left(2.2, "Minimum Head: " + Format(record.MinHead, "##.00"));
  right(2.2, "Minimum Head Station: " + GeneralText(record.MinHeadStation));
  left(2.4, "Maximum Furrow Flow (GPM): " + Format(record.MaxFurrowFlow, "##.00"));
  right(2.4, "Minimum Furrow Flow(GPM): " + Format(record.MinFurrowFlow, "##.00"));
  left(2.6, "Distribution Efficiency = " + GeneralText(record.Uniformity));
  right(2.6, "Acres = " + Format(record.TotalAcres, "###0.0"));
  if (IsSlopeDesign(record)) writer.Text(kLeft, 2.8, main.lblCrownSlope.caption, kWholeRoom);
  writer.SetDrawWidth(3);
}

}  // namespace torvale
