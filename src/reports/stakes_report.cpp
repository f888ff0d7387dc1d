#include "reports/stakes_report.h"

#include <array>

#include "display/stake_table.h"
#include "reports/csv.h"
#include "reports/document_writer.h"
#include "reports/print_frame.h"
#include "reports/stale_mark.h"
#include "screen/fields.h"

namespace torvale {
namespace {

constexpr double kLeft = 0.5;
constexpr double kMiddle = 4;
constexpr double kRoom = 3.3;
constexpr double kHeadingHeight = 0.5;
constexpr double kLowestRow = 10.3;
constexpr double kFoot = 0.03;  // from the foot of a line of text to the rule below it

// Left edges of the columns, and the right edge of the last.
constexpr std::array<double, kStakeColumns + 1> kRules = {kLeft, 1.25, 2.25, 3.25, 4.25, 5.45, 6.5, 7.5};
// Two or three lines each.
using Heading = std::array<std::string_view, 3>;
constexpr std::array<Heading, kStakeColumns> kElevationHeadings = {{{"Station", "", "Feet"},
                                                                    {"Existing", "Elevation", "Feet"},
                                                                    {"Designed", "Elevation", "Feet"},
                                                                    {"Cut or", "Fill", "Feet"},
                                                                    {"Designed", "Crown", "Feet/100 Feet"},
                                                                    {"Fill since", "Stake Before", "Cubic Yards"},
                                                                    {"Cut since", "Stake Before", "Cubic Yards"}}};

bool HasElevations(const Program& program) {
  return ReadsElevations(program.main);
}

void Names(DocumentWriter& writer, const Program& program, double& y) {
  const auto& info = program.main.txtInfo;
  writer.SetFontSize(10);
  writer.Text(kLeft, y, "Name: " + info[InfoField::kDesignName].text(), kRoom);
  writer.Text(kMiddle, y, "Date: " + info[InfoField::kDate].text(), kRoom);
  y += 0.2;
  writer.Text(kLeft, y, "Location: " + info[InfoField::kLocation].text(), kRoom);
  writer.Text(kMiddle, y, program.main.lblCrownSlope.caption, kRoom + 0.2);
  y += 0.3;
}

void ColumnHeadings(DocumentWriter& writer, bool elevations, double& y) {
  writer.SetFontSize(10);
  writer.SetDrawWidth(2);
  writer.Line(kRules.front(), y, kRules.back(), y);
  for (std::size_t c = 0; c < kStakeColumns; ++c) {
    for (std::size_t line = 0; line < 3; ++line) {
      std::string_view word = kElevationHeadings.at(c).at(line);
      if (!elevations && word == "Elevation") word = "Rod Reading";
      writer.Text(kRules.at(c) + 0.05, y + kFoot + static_cast<double>(line) * kLineHeight, word,
                  kRules.at(c + 1) - kRules.at(c) - 0.05 - kRuleGap);
    }
  }
  y += kHeadingHeight + kFoot;
  writer.Line(kRules.front(), y, kRules.back(), y);
}

void Row(DocumentWriter& writer, const StakeRow& row, double& y) {
  for (std::size_t c = 0; c < row.size(); ++c) {
    writer.Text(kRules.at(c) + 0.05, y + kFoot / 2, row.at(c), kRules.at(c + 1) - kRules.at(c) - 0.05 - kRuleGap);
  }
  y += kLineHeight + kFoot;
  writer.SetDrawWidth(1);
  writer.Line(kRules.front(), y, kRules.back(), y);
}

void Uprights(DocumentWriter& writer, double from, double to) {
  writer.SetDrawWidth(1);
  for (const double x : kRules) writer.Line(x, from, x, to);
}

}  // namespace

Document StakesReport(const Program& program, const Stakes& stakes, double width) {
  DocumentWriter writer("Stakes");
  PrintTitle(writer, program.record, &DesignKind::in_reports);
  double y = 1.2;
  Names(writer, program, y);
  double top = y;
  ColumnHeadings(writer, HasElevations(program), y);
  for (const Stake& stake : stakes.stakes) {
    if (y > kLowestRow) {
      Uprights(writer, top, y);
      writer.StartPage();
      PrintTitle(writer, program.record, &DesignKind::in_reports);
      y = top = 1.2;
      ColumnHeadings(writer, HasElevations(program), y);
    }
    Row(writer, StakeTexts(stake, width > 0), y);
  }
  Uprights(writer, top, y);
  y += 0.1;
  for (const std::string& sentence : StakeSentences(stakes, width)) {
    writer.Text(kLeft, y, sentence, kRules.back() - kLeft);
    y += 0.2;
  }
  Document document = writer.Take();
  MarkStalePages(program, document);
  return document;
}

std::string StakesCsv(const Program& program, const Stakes& stakes, double width) {
  std::vector<std::vector<std::string>> rows;
  const auto add = [&](const StakeRow& row) { rows.emplace_back(row.begin(), row.end()); };
  add(StakeHeadings(HasElevations(program)));
  for (const Stake& stake : stakes.stakes) add(StakeTexts(stake, width > 0));
  MarkStaleRows(program, rows);
  return Csv(rows);
}

}  // namespace torvale
