#include "reports/design_reports.h"

#include <gtest/gtest.h>

#include "base/version.h"
#include "display/small_line.h"
#include "reports/document_writer.h"
#include "reports/operations.h"
#include "reports/print_frame.h"

namespace torvale {
namespace {

struct ReportsTest : ::testing::Test, SmallLine {
  void AddHoles(int count) {
    for (int i = 0; i < count; ++i) AddHole(static_cast<float>(10 * i), kQuarterInch, 5);
  }
  // Holes of two sizes in turn, each of them a row of the Summary, on a survey that reaches past them.
  void AddAlternating(int count) {
    if (record.SurveyRows == 0) {
      AddSurvey("0", "1/4");
      AddSurvey("99999", "1/8");
    }
    for (int i = 0; i < count; ++i) {
      const auto station = static_cast<float>(10 * record.HoleRows);
      AddHole(station, record.HoleRows % 2 == 0 ? kQuarterInch : kEighthInch, 5);
    }
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

// The first page has 35 rows: 4.85 and 35 lines of 0.165 make 10.625, the first position at 10.5 or past it. Each later
// one has 48: below its header the first row stands at 2.615, and 48 lines make 10.535. A page that is just full takes
// no other.
TEST_F(ReportsTest, PagesBreakWhereARowMoreFollows) {
  const std::pair<int, std::size_t> pages[] = {{34, 1}, {35, 1}, {36, 2},  {82, 2},
                                               {83, 2}, {84, 3}, {131, 3}, {132, 4}};
  for (const auto& [rows, count] : pages) {
    AddAlternating(rows - record.HoleRows);
    EXPECT_EQ(PagesOf(CompleteReport(program)).size(), count) << rows;
    EXPECT_EQ(PagesOf(SummaryReport(program)).size(), count) << rows;
  }
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

// The longest line: 35 rows on the first page, 5,247 over 48 make 109 full pages and one of 15 rows. Row 5283 is past
// what the Summary looks at; the Complete Design prints as many rows as the design has.
TEST_F(ReportsTest, TheLongestLineTakesItsPages) {
  AddAlternating(5282);
  const Document complete = CompleteReport(program);
  const auto pages = PagesOf(complete);
  ASSERT_EQ(pages.size(), 1U + 109U + 1U);
  const Document last{"", pages.back()};
  EXPECT_EQ(TextAt(last, 6.5, 0.2), "Page 111");
  const double row = 2.615 + 14 * kLineHeight;
  EXPECT_EQ(TextAt(last, 0.45, row), "52810");
  EXPECT_EQ(TextAt(last, 7.05, row), "26410") << "5 GPM from each of 5,282 rows";
  EXPECT_EQ(LinesAcross(pages.back(), row + kLineHeight), 1);
  EXPECT_EQ(PagesOf(SummaryReport(program)).size(), pages.size());
}

TEST_F(ReportsTest, TheSummaryEndsAtTheLastRowThatItLooksAt) {
  AddAlternating(5283);
  const auto stations = [](const Document& document) {
    std::vector<std::string> found;
    for (const PrintedText& text : Texts(document)) {
      if (text.x == 0.45) found.push_back(text.text);
    }
    return found;
  };
  const std::vector<std::string> summary = stations(SummaryReport(program));
  ASSERT_EQ(summary.size(), 5282U);
  EXPECT_EQ(summary.back(), "52810");
  EXPECT_EQ(stations(CompleteReport(program)).back(), "52820");
}

// A summary of fewer rows than the table had before ends with its own: sixty rows, then with one size the first and the
// last.
TEST_F(ReportsTest, AnEarlierLongerTableLeavesNothing) {
  AddAlternating(60);
  EXPECT_EQ(PagesOf(SummaryReport(program)).size(), 2U);
  for (int i = 1; i <= 60; ++i) record.SurveyHoleDia[i] = kQuarterInch;
  const Document document = SummaryReport(program);
  EXPECT_EQ(PagesOf(document).size(), 1U);
  EXPECT_EQ(TextAt(document, 0.45, 4.85 + kLineHeight), "590");
  EXPECT_EQ(TextAt(document, 0.45, 4.85 + 2 * kLineHeight), "");
}

// A soil that was chosen is named; a name as long as it likes is handed on whole, with the room that it has.
TEST_F(ReportsTest, NamesAreHandedOnWholeWithTheirRoom) {
  AddHoles(1);
  const std::string name(300, 'N');
  main.txtInfo[0].Set(name);
  main.listSoils.Add("Sandy loam");
  main.listSoils.Select(0, true);
  const Document document = SummaryReport(program);
  EXPECT_EQ(TextAt(document, 0.5, 1.4), "Name: " + name);
  EXPECT_EQ(TextAt(document, 4, 3.34), "Soil Type Sandy loam");
  for (const PrintedText& text : Texts(document)) {
    if (text.text == "Name: " + name) {
      EXPECT_EQ(text.room, 3.4) << "up to the date at 4";
    }
  }
}

// The row at 5 feet has neither a hole nor a station of the survey: the table passes over it. Printed are as many rows
// as the design has, and the grid's row is the index of the flow: 5 at the first row, no more at the second, which
// shows the hole at 10, and its 7.25 at the third, which shows nothing.
TEST_F(ReportsTest, TheRunningSumGoesByTheRowsOfTheDesign) {
  AddHole(0, kQuarterInch, 5);
  AddDry(5);
  AddHole(10, kQuarterInch, 7.25F);
  AddSurvey("0", "1/4");
  AddSurvey("10", "1/4");
  const Document document = CompleteReport(program);
  const char* const rows[3][2] = {{"0", "5"}, {"10", "5"}, {"", "12"}};
  for (int row = 0; row < 3; ++row) {
    EXPECT_EQ(TextAt(document, 0.45, 4.85 + row * kLineHeight), rows[row][0]);
    EXPECT_EQ(TextAt(document, 7.05, 4.85 + row * kLineHeight), rows[row][1]);
  }
  EXPECT_EQ(LinesAcross(document.operations, 4.85 + 3 * kLineHeight), 1);
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
    EXPECT_EQ(DesignLine(record, &DesignKind::in_reports), std::string(names[type]) + " using Layflat Pipe");
    record.PipeKind = "R";
    EXPECT_EQ(DesignLine(record, &DesignKind::in_reports), std::string(names[type]) + " using Rigid Pipe");
  }
  EXPECT_EQ(DesignLine(record, &DesignKind::in_hole_report), "Limited Computer Selected Hole Design using Rigid Pipe");
  record.DesignType = 0;
  EXPECT_EQ(DesignLine(record, &DesignKind::in_reports), "");
}

}  // namespace
}  // namespace torvale
