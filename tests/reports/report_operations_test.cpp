// The reports down to the last operation, for a line that can be worked out by hand, and what the type of the design
// and the kind of pipe change in them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "base/version.h"
#include "display/small_line.h"
#include "reports/design_reports.h"
#include "reports/hole_summary_report.h"
#include "reports/operations.h"

namespace torvale {
namespace {

// An operation in one line: positions as the sheet has them, a text's font size, a line's width.
std::string Line(const PrintOperation& operation) {
  std::ostringstream line;
  if (const auto* text = std::get_if<PrintedText>(&operation)) {
    line << (text->centred ? "centred " : "") << text->x << ' ' << text->y << " at " << text->points << " "
         << text->text;
  } else if (const auto* rule = std::get_if<PrintedLine>(&operation)) {
    line << "line " << rule->x1 << ' ' << rule->y1 << ' ' << rule->x2 << ' ' << rule->y2 << " width " << rule->width;
  } else if (const auto* box = std::get_if<PrintedBox>(&operation)) {
    line << "box " << box->x1 << ' ' << box->y1 << ' ' << box->x2 << ' ' << box->y2 << " width " << box->width;
  } else {
    line << "page";
  }
  return line.str();
}

std::vector<std::string> Lines(const Document& document) {
  std::vector<std::string> lines;
  for (const PrintOperation& operation : document.operations) lines.push_back(Line(operation));
  return lines;
}

// One hole of 1/4 inch at the head of the line with all of the water, 100 GPM; 12 acres at 1000 GPM.
struct OneHole : SmallLine {
  OneHole() {
    AddHole(0, kQuarterInch, 100);
    AddSurvey("0", "1/4");
    record.HoleSpacing[1] = 6.5F;
    record.TargetGPM = 100;
    record.TotalAcres = 12;
    record.MaxHead = 2.5F;
    record.MinHead = 2.25F;
    record.MinHeadStation = 7;
    record.MaxFurrowFlow = 100;
    record.MinFurrowFlow = 99.5F;
    record.Uniformity = 93.2F;
    record.DisplayFileName = "north.PFD";
    const char* const info[] = {"North", "1/2/2030", "1000", "2.0", "Section 7", "E"};
    for (std::size_t i = 0; i < std::size(info); ++i) main.txtInfo[i].Set(info[i]);
    main.lblRecFurrowFlow.caption = "Recommended flow 9";
  }
};

std::vector<std::string> operator+(std::vector<std::string> left, const std::vector<std::string>& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

const std::vector<std::string>& Titles() {
  static const std::vector<std::string> titles = {
      "6.5 0.2 at 10 Page 1",
      "centred 4 0.2 at 14 Kelmar Programming",
      "centred 4 0.4 at 14  TORVALE Version " + ProgramVersion(),
      "centred 4 0.6 at 12 Gated Line And Crown Planning Aid",
      "centred 4 0.8 at 12 Planned Design using Layflat Pipe",
  };
  return titles;
}

// One inch over 12 acres at 1000 GPM: 12 x 27154.285 / 1000 / 60 = 5.43 hours, held as 5.4; 5.4 / 24 = .225 days. The
// others are 2.72, 8.15, 10.86 and 16.29 hours.
const char* const kHoursAndDays[5][3] = {
    {"0.5", "2.7", ".1"}, {"1.0", "5.4", ".2"}, {"1.5", "8.1", ".3"}, {"2.0", "10.9", ".5"}, {"3.0", "16.3", ".7"}};

// The box of applied water with its top at y, and the soil beside it. Rows stand 0.17 apart from 0.34 down. The average
// flow, 100 GPM for one furrow, has a blank and a point of its pattern.
std::vector<std::string> AppliedWater(double y, int width) {
  std::vector<std::string> lines;
  const auto add = [&](auto... parts) {
    std::ostringstream line;
    (line << ... << parts);
    lines.push_back(line.str());
  };
  add("box 0.5 ", y, " 3 ", y + 1.2, " width ", width);
  for (const char* x : {"1.6", "2.2"}) add("line ", x, ' ', y + 0.34, ' ', x, ' ', y + 1.2, " width ", width);
  add("0.55 ", y, " at 10 Gross Inches");
  add("0.8 ", y + 0.17, " at 10 Pumped");
  add("1.7 ", y + 0.17, " at 10 Hours");
  add("2.3 ", y + 0.17, " at 10 Days");
  for (int row = 0; row < 5; ++row) {
    const double at = y + 0.34 + 0.17 * row;
    add("line 0.5 ", at, " 3 ", at, " width ", width);
    add("0.85 ", at, " at 10 ", kHoursAndDays[row][0]);
    add("1.7 ", at, " at 10 ", kHoursAndDays[row][1]);
    add("2.4 ", at, " at 10 ", kHoursAndDays[row][2]);
  }
  add("4 ", y + 0.34, " at 10 Soil Type ");
  add("4 ", y + 0.51, " at 10 Recommended flow 9");
  add("4 ", y + 0.68, " at 10 Average Furrow Flow  100. GPM");
  return lines;
}

const std::vector<std::string> kDesignData = {
    "0.5 1.1 at 10 Saved as north.PFD",
    "0.5 1.4 at 10 Name: North",
    "4 1.4 at 10 Date: 1/2/2030",
    "0.5 1.6 at 10 Location: Section 7",
    "4 1.6 at 10 Designed using Elevations",
    "0.5 1.8 at 10 Target Head: 2.0",
    "4 1.8 at 10 GPM: 1000",
    "0.5 2 at 10 Maximum Head: 2.50",
    "4 2 at 10 Maximum Head Station: 0",
    "0.5 2.2 at 10 Minimum Head: 2.25",
    "4 2.2 at 10 Minimum Head Station: 7",
    "0.5 2.4 at 10 Maximum Furrow Flow (GPM): 100.00",
    "4 2.4 at 10 Minimum Furrow Flow(GPM): 99.50",
    "0.5 2.6 at 10 Distribution Efficiency = 93.2",
    "4 2.6 at 10 Acres = 12.0",
};

// The last row of the applied water stands at 3 + 0.34 + 4 x 0.17 = 4.02; 0.3 below it the headings begin.
const std::vector<std::string> kHeadings = {
    "line 0.1 4.32 7.9 4.32 width 3",
    "line 0.1 4.62 7.9 4.62 width 3",
    "0.2 4.42 at 10 Station",
    "0.3 4.62 at 10 Feet",
    "0.9 4.42 at 10 Hole Size",
    "0.95 4.62 at 10 Inches",
    "1.6 4.42 at 10 Hole",
    "1.5 4.62 at 10 Number",
    "2.2 4.42 at 10 Furrow",
    "2.25 4.62 at 10 Flow",
    "2.8 4.42 at 10 Head",
    "2.8 4.62 at 10 Feet",
    "3.3 4.42 at 10 Flow",
    "3.3 4.62 at 10 Ratio",
    "4 4.42 at 10 Furrow",
    "3.9 4.62 at 10 Length Ft.",
    "4.6 4.42 at 10 Elevation",
    "4.75 4.62 at 10 Feet",
    "5.4 4.42 at 10 Holes",
    "5.25 4.62 at 10 Per Furrow",
    "6.05 4.62 at 10 Mil",
    "6.4 4.42 at 10 Pipe Dia.",
    "6.45 4.62 at 10 Inches",
    "7.1 4.42 at 10 Accum.",
    "7.15 4.62 at 10 GPM",
};

// Rules of a single row from `top` to 4.85 + 0.165, and the line that closes the table there.
std::vector<std::string> Rules(const std::string& top) {
  std::vector<std::string> rules = {"line 0.1 5.015 7.9 5.015 width 3"};
  for (const std::string x :
       {"0.1", "0.87", "1.47", "2.07", "2.77", "3.27", "3.87", "4.57", "5.22", "5.92", "6.37", "7.02", "7.9"}) {
    rules.push_back("line " + x + " " + top + " " + x + " 5.015 width 3");
  }
  return rules;
}

TEST(ReportOperations, OfACompleteDesignOfOneHole) {
  OneHole line;
  // 100 GPM where 100 are required; the count of holes has the decimals of its pattern.
  const std::vector<std::string> row = {
      "0.45 4.85 at 10 0",    "0.95 4.85 at 10 1/4",  "1.55 4.85 at 10 1",    "2.4 4.85 at 10 100.00",
      "2.85 4.85 at 10 2.50", "3.35 4.85 at 10 1.00", "3.95 4.85 at 10 1100", "4.65 4.85 at 10 60.00",
      "5.3 4.85 at 10 1.00",  "6 4.85 at 10 10",      "6.45 4.85 at 10 15",   "7.05 4.85 at 10 100",
  };
  EXPECT_THAT(Lines(CompleteReport(line.program)),
              testing::UnorderedElementsAreArray(Titles() + AppliedWater(3, 3) + kDesignData + kHeadings + row +
                                                 Rules("4.85")));
}

// The Summary writes the last row by itself, so a line of one row stands in it twice, and its flow counts twice. The
// rules begin a hundredth higher than those of the other report, and the count of holes is whole.
TEST(ReportOperations, OfASummaryOfOneHole) {
  OneHole line;
  const Document document = SummaryReport(line.program);
  EXPECT_THAT(Lines(document), testing::IsSupersetOf(Titles() + AppliedWater(3, 3) + kDesignData + kHeadings));
  EXPECT_THAT(Lines(document), testing::IsSupersetOf({
                                   "7.05 4.85 at 10 100",
                                   "7.05 5.015 at 10 200",
                                   "5.3 4.85 at 10 1",
                                   "3.35 4.85 at 10 1.00",
                                   "line 0.87 4.84 0.87 5.015 width 3",
                                   "line 0.87 4.84 0.87 5.18 width 3",
                                   "line 0.1 5.18 7.9 5.18 width 3",
                               }));
  EXPECT_EQ(TextAt(document, 0.45, 4.85 + 2 * 0.165), "");
}

// One run of each kind: sizes at 2.5; the title of the spacing 0.2 + 0.2 below at 2.9, its headings at 3.1, its pair of
// lines at 3.3 and 3.5; the box 0.6 below what follows at 3.7.
TEST(ReportOperations, OfAHoleSummaryOfOneRun) {
  OneHole line;
  CompleteReport(line.program);  // the hours are those of the last display
  const std::vector<std::string> figures = {
      "0.5 1 at 10 Saved as north.PFD",    "0.5 1.2 at 10 Name: North",
      "3.5 1.2 at 10 Date: 1/2/2030",      "0.5 1.4 at 10 GPM: 1000",
      "3.5 1.4 at 10 Location: Section 7", "0.5 1.6 at 10 Distribution Uniformity: 93.2",
      "3.5 1.6 at 10 Acres: 12.",
  };
  const std::vector<std::string> sizes = {
      "3 2 at 14 Hole Summary",       "0.5 2.3 at 12 Stations",
      "2.5 2.3 at 12 Furrow Lengths", "4.5 2.3 at 12 Number of Holes",
      "6.5 2.3 at 12 Hole Diameter",  "0.5 2.5 at 12 0 - 0",
      "2.5 2.5 at 12 1100 - 1100",    "5 2.5 at 12 1",
      "6.5 2.5 at 12 1 Ea. -  1/4",
  };
  const std::vector<std::string> spacings = {
      "3 2.9 at 14 Hole Spacing Summary",
      "0.5 3.1 at 12 Stations",
      "3 3.1 at 12 Hole Spacing",
      "0.5 3.3 at 12 0 - 0",
      "1.7 3.3 at 12 Distance between punched holes  6.5 ft. ",
      "0.5 3.5 at 12 0 - 0",
      "1.7 3.5 at 12 Planted width between holes 6 ft.",
  };
  const std::vector<std::string> heads = {
      "4 5.15 at 10 Maximum Head = 2.50",
      "4 5.32 at 10 Maximum Head Station = 0",
      "4 5.49 at 10 Minimum Head = 2.25",
      "4 5.66 at 10 Minimum Head Station = 7",
  };
  EXPECT_THAT(Lines(HoleSummaryReport(line.program)),
              testing::UnorderedElementsAreArray(Titles() + figures + sizes + spacings + AppliedWater(4.3, 2) + heads));
}

}  // namespace
}  // namespace torvale
