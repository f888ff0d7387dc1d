#include "reports/design_reports.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/version.h"
#include "display/small_line.h"
#include "reports/document_writer.h"
#include "reports/hole_summary_report.h"
#include "reports/print_frame.h"

namespace torvale {
namespace {

constexpr double kNear = 1e-5;  // the position is a 32-bit float, moved some fifty times a page

std::vector<PrintedText> Texts(const Document& document) {
  std::vector<PrintedText> texts;
  for (const PrintOperation& operation : document.operations) {
    if (const auto* text = std::get_if<PrintedText>(&operation)) texts.push_back(*text);
  }
  return texts;
}

// The operations of each page.
std::vector<std::vector<PrintOperation>> PagesOf(const Document& document) {
  std::vector<std::vector<PrintOperation>> pages(1);
  for (const PrintOperation& operation : document.operations) {
    if (std::holds_alternative<NewPage>(operation)) {
      pages.emplace_back();
    } else {
      pages.back().push_back(operation);
    }
  }
  return pages;
}

// The text that stands at the place, or nothing.
std::string TextAt(const Document& document, double x, double y) {
  for (const PrintedText& text : Texts(document)) {
    if (std::fabs(text.x - x) < kNear && std::fabs(text.y - y) < kNear) return text.text;
  }
  return "";
}

int LinesAcross(const std::vector<PrintOperation>& page, double y) {
  int count = 0;
  for (const PrintOperation& operation : page) {
    const auto* line = std::get_if<PrintedLine>(&operation);
    if (line != nullptr && line->x1 == 0.1 && line->x2 == 7.9 && std::fabs(line->y1 - y) < kNear) ++count;
  }
  return count;
}

struct ReportsTest : ::testing::Test, SmallLine {
  void AddHoles(int count) {
    for (int i = 0; i < count; ++i) AddHole(static_cast<float>(10 * i), kQuarterInch, 5);
  }
};

TEST_F(ReportsTest, TheFirstPageBeginsWithTheFrame) {
  AddHoles(2);
  record.DisplayFileName = "north.PFD";
  main.txtInfo[0].Set("North");
  main.txtInfo[1].Set("1/2/2030");
  main.txtInfo[4].Set("Sunflower");
  record.MaxHead = 2.5F;
  record.MaxHeadStation = 30;
  record.Uniformity = 93.5F;
  const Document document = CompleteReport(program);
  const std::vector<PrintedText> texts = Texts(document);
  ASSERT_GT(texts.size(), 7U);
  EXPECT_EQ(texts[0], (PrintedText{6.5, 0.2, 10, "Page 1"}));
  EXPECT_EQ(texts[1], (PrintedText{4, 0.2, 14, "Kelmar Programming", true, 8}));
  EXPECT_EQ(texts[2], (PrintedText{4, 0.4, 14, " TORVALE Version " + ProgramVersion(), true, 8}));
  EXPECT_EQ(texts[3], (PrintedText{4, 0.6, 12, "Gated Line And Crown Planning Aid", true, 8}));
  EXPECT_EQ(texts[4], (PrintedText{4, 0.8, 12, "Planned Design using Layflat Pipe", true, 8}));
  EXPECT_EQ(TextAt(document, 0.5, 1.1), "Saved as north.PFD");
  EXPECT_EQ(TextAt(document, 0.5, 1.4), "Name: North");
  EXPECT_EQ(TextAt(document, 4, 1.4), "Date: 1/2/2030");
  EXPECT_EQ(TextAt(document, 0.5, 1.6), "Location: Sunflower");
  EXPECT_EQ(TextAt(document, 4, 1.6), "Designed using Elevations");
  EXPECT_EQ(TextAt(document, 0.5, 1.8), "Target Head: 2.0");
  EXPECT_EQ(TextAt(document, 4, 1.8), "GPM: 400");
  EXPECT_EQ(TextAt(document, 0.5, 2.0), "Maximum Head: 2.50");
  EXPECT_EQ(TextAt(document, 4, 2.0), "Maximum Head Station: 30");
  EXPECT_EQ(TextAt(document, 0.5, 2.6), "Distribution Efficiency = 93.5");
  // The box begins at 3, its rows at 3.34, 0.17 apart. No soil was chosen: nothing follows the words.
  EXPECT_EQ(TextAt(document, 0.55, 3), "Gross Inches");
  EXPECT_EQ(TextAt(document, 0.85, 3.34 + 4 * 0.17), "3.0");
  EXPECT_EQ(TextAt(document, 4, 3.34), "Soil Type ");
  // The last row at 4.02 and 0.3: the headings begin at 4.32.
  EXPECT_EQ(TextAt(document, 0.2, 4.42), "Station");
  EXPECT_EQ(TextAt(document, 4.6, 4.42), "Elevation");
  EXPECT_EQ(TextAt(document, 6.05, 4.62), "Mil");
}

TEST_F(ReportsTest, RodsHaveTheirOwnWords) {
  AddHoles(1);
  main.txtInfo[5].Set("R");
  const Document document = SummaryReport(program);
  EXPECT_EQ(TextAt(document, 4, 1.6), "Designed using Rod Readings");
  EXPECT_EQ(TextAt(document, 4.55, 4.42), "Rod Reading");
}

TEST_F(ReportsTest, ACompleteRowPassesThroughThePatterns) {
  AddHole(0, kQuarterInch, 5);
  AddHole(10, kEighthInch, 7.25F);
  const Document document = CompleteReport(program);
  // The second row stands a line below 4.85. 5 and 7.25 have accumulated: 12.25, in whole gallons 12.
  const double y = 4.85 + kLineHeight;
  const std::pair<double, const char*> cells[] = {{0.45, "10"},   {0.95, "1/8"}, {1.55, "2"},    {2.4, "7.25"},
                                                  {2.85, "2.50"}, {3.35, ".07"}, {3.95, "1100"}, {4.65, "60.00"},
                                                  {5.3, "1.00"},  {6, "10"},     {6.45, "15"},   {7.05, "12"}};
  for (const auto& [x, text] : cells) EXPECT_EQ(TextAt(document, x, y), text) << x;
  // Two rows end at 5.18, where the table closes.
  EXPECT_EQ(LinesAcross(document.operations, 4.85 + 2 * kLineHeight), 1);
}

// 4.85 and 35 lines of 0.165 make 10.625, the first position at 10.5 or past it.
TEST_F(ReportsTest, APageThatIsJustFullTakesNoOther) {
  AddHoles(35);
  EXPECT_EQ(PagesOf(CompleteReport(program)).size(), 1U);
}

// Below a page break the header moves 1.7 to 2.0, 0.5 makes 2.5, and a line less 0.05 makes 2.615.
TEST_F(ReportsTest, ARowMoreBeginsTheNextPage) {
  AddHoles(36);
  const auto pages = PagesOf(CompleteReport(program));
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(LinesAcross(pages[0], 10.625), 1);
  const Document second{"", pages[1]};
  EXPECT_EQ(TextAt(second, 6.5, 0.2), "Page 2");
  EXPECT_EQ(TextAt(second, 0.2, 2.1), "Station");
  EXPECT_EQ(TextAt(second, 0.55, 1.7), "") << "the applied water stands on the first page alone";
  EXPECT_EQ(TextAt(second, 0.45, 2.615), "350");
  EXPECT_EQ(LinesAcross(pages[1], 2.78), 1);
  // Rules are 3 wide on the first page, 2 on the later ones.
  EXPECT_EQ(std::get<PrintedLine>(pages[0].back()).width, 3);
  EXPECT_EQ(std::get<PrintedLine>(pages[1].back()), (PrintedLine{0.1, std::get<PrintedLine>(pages[1].back()).y1, 7.9,
                                                                 std::get<PrintedLine>(pages[1].back()).y2, 2}));
}

// 35 rows on the first page and 48 on each later one: 2.615 and 48 lines make 10.535.
TEST_F(ReportsTest, ALongLineTakesItsPages) {
  AddHoles(5000);
  // 4,965 rows over 48 are 103 full pages and 21 rows.
  EXPECT_EQ(PagesOf(CompleteReport(program)).size(), 1U + 103U + 1U);
}

TEST_F(ReportsTest, TheToggleKeepsItsCaptionOverAnotherTable) {
  AddHoles(3);
  AddSurvey("0", "1/4");
  AddSurvey("20", "1/4");
  ShowTable("Summary");
  CompleteReport(program);
  EXPECT_EQ(main.cmdDesignToggle.caption, "Summary");
  EXPECT_TRUE(main.Grid2.control.visible);
  EXPECT_EQ(main.Grid2.Text(2, kResultStation), "10");  // every outlet
  ShowTable("Complete Design");
  SummaryReport(program);
  EXPECT_EQ(main.cmdDesignToggle.caption, "Complete Design");
}

// A row behind "  Supply" has three rules; the row of the words itself has none. Printed are the first hole, the supply
// line, the hole behind it, where the size changes, and the last: the table closes four lines below 4.85.
TEST_F(ReportsTest, TheSummaryRulesTheRowBehindASupplyLine) {
  AddHole(0, kEighthInch, 5);
  AddDry(10);
  for (const float station : {20.0F, 30.0F, 40.0F, 50.0F}) AddHole(station, kEighthInch, 5);
  AddSurvey("0", "1/8");
  AddSurvey("10", "");
  AddSurvey("50", "1/8");
  const Document document = SummaryReport(program);
  ASSERT_EQ(main.Grid2.Text(2, kResultOpening), "  Supply");
  const double third = 4.85 + 2 * kLineHeight;
  EXPECT_EQ(LinesAcross(document.operations, third - kLineHeight), 0);
  EXPECT_EQ(LinesAcross(document.operations, third), 1);
  EXPECT_EQ(LinesAcross(document.operations, third + 0.165), 1);
  // The third rule and the table's close.
  EXPECT_EQ(LinesAcross(document.operations, third + 0.33), 2);
}

TEST_F(ReportsTest, DesignLinesByTypeAndPipe) {
  const char* const names[] = {"",
                               "Planned Design",
                               "Constant Slope Design",
                               "Dual Slope Design",
                               "Multiple Hole Design",
                               "Existing Slope Design",
                               "Limited Computer Hole Selection Design"};
  for (std::int16_t type = 1; type <= 6; ++type) {
    record.DesignType = type;
    record.PipeKind = "L";
    EXPECT_EQ(DesignLine(record, kLimitedInDesignReports), std::string(names[type]) + " using Layflat Pipe");
    record.PipeKind = "R";
    EXPECT_EQ(DesignLine(record, kLimitedInDesignReports), std::string(names[type]) + " using Rigid Pipe");
  }
  EXPECT_EQ(DesignLine(record, kLimitedInHoleSummary), "Limited Computer Selected Hole Design using Rigid Pipe");
  record.DesignType = 0;
  EXPECT_EQ(DesignLine(record, kLimitedInDesignReports), "");
}

// One size and one spacing: a line at 2.5; the spacing's title at 2.5 + 0.2 + 0.2, its headings at 3.1, its lines
// at 3.3 and 3.5; the applied water 0.6 below 3.7.
TEST_F(ReportsTest, TheHoleSummaryHasALineForEachRun) {
  AddHoles(3);
  for (int i = 1; i <= 3; ++i) record.HoleSpacing[i] = 10;
  record.Uniformity = 93.5F;
  record.MinHeadStation = 20;
  const Document document = HoleSummaryReport(program);
  EXPECT_EQ(TextAt(document, 0.5, 1.6), "Distribution Uniformity: 93.5");
  EXPECT_EQ(TextAt(document, 3, 2), "Hole Summary");
  EXPECT_EQ(TextAt(document, 0.5, 2.5), "0 - 20");
  EXPECT_EQ(TextAt(document, 2.5, 2.5), "1100 - 1100");
  EXPECT_EQ(TextAt(document, 5, 2.5), "3");
  EXPECT_EQ(TextAt(document, 6.5, 2.5), "1 Ea. -  1/4");
  EXPECT_EQ(TextAt(document, 3, 2.9), "Hole Spacing Summary");
  EXPECT_EQ(TextAt(document, 3, 3.1), "Hole Spacing");
  EXPECT_EQ(TextAt(document, 0.5, 3.3), "0 - 20");
  EXPECT_EQ(TextAt(document, 1.7, 3.3), "Distance between punched holes  10 ft. ");
  EXPECT_EQ(TextAt(document, 1.7, 3.5), "Planted width between holes 6 ft.");
  EXPECT_EQ(TextAt(document, 0.55, 4.3), "Gross Inches");
  EXPECT_EQ(TextAt(document, 4, 4.64 + 6 * 0.17), "Minimum Head Station = 20");
  EXPECT_EQ(PagesOf(document).size(), 1U);
}

// A rectangular gate of 1.2 inches width: a hole of 0.01 square feet is 1.44 square inches, 1.2 inches high.
TEST_F(ReportsTest, TheHoleSummaryOfGatedPipeTellsTheOpening) {
  AddHoles(1);
  record.PipeKind = "R";
  record.HoleArea[1] = 0.01F;
  EXPECT_EQ(TextAt(HoleSummaryReport(program), 6.5, 2.5), "1 Ea. -  1.2");
  record.DesignType = kComputerHoles;
  record.ComputerHoleDia[1] = kQuarterInch;
  EXPECT_EQ(TextAt(HoleSummaryReport(program), 6.5, 2.5), "1 Ea. - 1.2");
}

}  // namespace
}  // namespace torvale
