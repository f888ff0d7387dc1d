// Completing a survey: what each step fills in. Refusals stand in interpolation_refusals_test.cpp.
#include "engine/interpolation.h"

#include <gtest/gtest.h>

#include "engine/sheet.h"

namespace torvale {
namespace {

using Texts = std::vector<std::string>;

struct Completed {
  explicit Completed(const std::vector<SheetRow>& rows) : sheet(Sheet(rows)) { Again(); }
  void Again() { end = InterpolateSurvey(record, sheet, {spacing, hole_count, mil}); }
  Texts Column(int column) const { return ColumnOf(sheet, column, record.SurveyRows); }

  std::string spacing = "30";
  std::string hole_count = "2";
  std::string mil = "9";
  TextGrid sheet;
  DesignRecord record;
  SurveyEnd end;
};

SheetRow Full(const std::string& station, const std::string& crown, const std::string& length,
              const std::string& hole = "1/4") {
  return {station, crown, length, "50", "8", hole, "1", "7", "60"};
}
SheetRow StationOnly(const std::string& station) {
  return {station};
}
// Marks as the three steps leave them: in row 1, in a row without a hole text, and in every row without a hole.
const char* const kMark = "    Supply";

TEST(InterpolateSurvey, FirstRowTakesTheDefaultsForCountAndMil) {
  const Completed done({{"0", "10", "600", "50", "8", "1/4", "", "", "60"}, Full("100", "10", "600")});
  EXPECT_EQ(RowOf(done.sheet, 1), (SheetRow{"0", "10", "600", "50", "8", "1/4", "2", "9", "60"}));
  const Completed kept({Full("0", "10", "600"), Full("100", "10", "600")});
  EXPECT_EQ(RowOf(kept.sheet, 1), Full("0", "10", "600"));
}

TEST(InterpolateSurvey, SurveyEndsAheadOfTheFirstRowWithoutLengthAndHole) {
  const Completed done(
      {Full("0", "10", "600"), Full("100", "10", "600"), StationOnly("200"), Full("300", "10", "600")});
  EXPECT_EQ(done.record.SurveyRows, 2);
  EXPECT_EQ(RowOf(done.sheet, 3), RowOf(Sheet({StationOnly("200")}), 1));  // left alone
}

TEST(InterpolateSurvey, StationWithNothingElseIsNoSurveyRow) {
  const Completed done({{"0", "10", "600", "50", "8", "1/4"}, StationOnly("100")});
  EXPECT_EQ(done.record.SurveyRows, 1);
}

// A hole carries the survey across a missing length, and so does the mark of a supply line, blanks aside.
TEST(InterpolateSurvey, HoleOrSupplyMarkCarriesTheSurveyOn) {
  const Completed hole({Full("0", "10", "600"), Full("100", "10", ""), Full("200", "10", "600")});
  EXPECT_EQ(hole.record.SurveyRows, 3);
  for (const char* const mark : {"Supply", "  Supply", "   Supply ", "    Supply"}) {
    const Completed supply(
        {Full("0", "10", "600"), {"100", "10", mark, "Line", "8", "", "", "7", ""}, Full("200", "10", "600")});
    EXPECT_EQ(supply.record.SurveyRows, 3) << mark;
  }
  for (const SheetRow& no_mark : {SheetRow{"100", "10", "Supply", "line", "8"}, SheetRow{"100", "10", "supply", "Line"},
                                  SheetRow{"100", "10", "Supply", " Line"}, SheetRow{"100", "10", "", "Line"}}) {
    const Completed ended({Full("0", "10", "600"), no_mark, Full("200", "10", "600")});
    EXPECT_EQ(ended.record.SurveyRows, 1);
  }
}

// "0" in the hole column is a text, so it carries the survey on; as a number it is no hole, so the row is supply line.
TEST(InterpolateSurvey, HoleOfZeroIsSupplyLine) {
  const Completed done({Full("0", "10", "600"), Full("100", "10", "", "0"), Full("200", "10", "600")});
  EXPECT_EQ(done.record.SurveyRows, 3);
  EXPECT_EQ(RowOf(done.sheet, 2), (SheetRow{"100", "10", kMark, "Line", "8", "0", "", "7", ""}));
}

TEST(InterpolateSurvey, FullSheetHas319Rows) {
  std::vector<SheetRow> rows;
  for (int row = 1; row <= 319; ++row) rows.push_back(Full(std::to_string(row), "10", "600"));
  const Completed done(rows);
  EXPECT_EQ(done.record.SurveyRows, 319);
}

// The lowest reading on the sheet goes to the last row, to hundredths. The row at 100 lies half way from 10 to 9.5.
TEST(InterpolateSurvey, LastRowTakesTheLowestReading) {
  const Completed done(
      {Full("0", "10", "600"), Full("100", "", "600"), Full("200", "9.5", "600"), Full("300", "", "600")});
  EXPECT_EQ(done.Column(kCrownColumn), (Texts{"10", "9.75", "9.5", "9.50"}));
}

TEST(InterpolateSurvey, ReadingsLieOnStraightLines) {
  const Completed done(
      {Full("0", "10", "600"), Full("100", "", "600"), Full("200", "", "600"), Full("300", "9", "600")});
  EXPECT_EQ(done.Column(kCrownColumn), (Texts{"10", "9.67", "9.34", "9.00"}));
  // The step that was added last, in 32 bits: 100 ft of -1/300.
  EXPECT_EQ(done.record.SlopeDelta, static_cast<float>(100 * (-1.0 / 300)));
}

// Each reading is rounded before the next is worked out from it: thirds of a hundredth never add up. 0.01 over 3 rows:
// 10 + 0.0033 rounds to 10.00 again and again.
TEST(InterpolateSurvey, RoundingEntersTheNextRow) {
  const Completed done(
      {Full("0", "10", "600"), Full("100", "", "600"), Full("200", "", "600"), Full("300", "10.01", "600")});
  EXPECT_EQ(done.Column(kCrownColumn), (Texts{"10", "10.00", "10.00", "10.01"}));
}

// The text of a support stays as typed, but for the last row's.
TEST(InterpolateSurvey, TypedReadingsStay) {
  const Completed done({Full("0", "10.123", "600"), Full("100", " 9.5 ", "600"), Full("200", "9.4567", "600")});
  EXPECT_EQ(done.Column(kCrownColumn), (Texts{"10.123", " 9.5 ", "9.46"}));
}

// A first reading of 0 supports no line, nor does 0 further down: what is missing is copied from above.
TEST(InterpolateSurvey, ReadingOfZeroIsNoSupport) {
  const Completed first({Full("0", "0.00", "600"), Full("100", "", "600"), Full("200", "5", "600")});
  EXPECT_EQ(first.Column(kCrownColumn), (Texts{"0.00", "0.00", "5.00"}));
  const Completed between(
      {Full("0", "10", "600"), Full("100", "0", "600"), Full("200", "", "600"), Full("300", "13", "600")});
  // The line runs from 10 to 13 over all three spans, but the row at 100 keeps its 0 and the next starts from it.
  EXPECT_EQ(between.Column(kCrownColumn), (Texts{"10", "0", "1.00", "13.00"}));
}

// With no reading in row 1 nothing is interpolated, and the last row isn't filled either; rows copy what stands above.
TEST(InterpolateSurvey, NoFirstReadingLeavesTheCrown) {
  const Completed done({Full("0", "", "600"), Full("100", "9", "600"), Full("200", "", "600")});
  EXPECT_EQ(done.Column(kCrownColumn), (Texts{"", "9", "9"}));
}

// 600 to 800 over 300 ft from the row at 0: 666.67 shows as 667, and the next starts there: 667 + 66.67 = 734.
TEST(InterpolateSurvey, LengthsLieOnStraightLines) {
  const Completed done(
      {Full("0", "10", "600"), Full("100", "10", ""), Full("200", "10", ""), Full("300", "10", "800")});
  EXPECT_EQ(done.Column(kFurrowLengthColumn), (Texts{"600", "667", "734", "800"}));
}

// The last row takes the lowest length that stands at a hole; then the rows before it lie level with it.
TEST(InterpolateSurvey, LastRowTakesTheLowestLength) {
  const Completed done(
      {Full("0", "10", "600"), Full("100", "10", "650.4"), Full("200", "10", ""), Full("300", "10", "")});
  EXPECT_EQ(done.Column(kFurrowLengthColumn), (Texts{"600", "650.4", "650", "650"}));
}

// A row without a hole neither supports the line nor receives a length. It is passed by the line from 600 to 900, and
// the row after it starts from its 0: 0 + 100 ft of slope 1.
TEST(InterpolateSurvey, RowsWithoutAHoleTakeNoPartInLengths) {
  const Completed done(
      {Full("0", "10", "600"), {"100", "10", "", "Line", "8", "0"}, Full("200", "10", ""), Full("300", "10", "900")});
  EXPECT_EQ(done.Column(kFurrowLengthColumn), (Texts{"600", kMark, "100", "900"}));
}

// No row has both a length and a hole above the last: no length is placed there.
TEST(InterpolateSurvey, NoFurrowAboveLeavesTheLastLengthEmpty) {
  const Completed done({Full("0", "10", "", ""), Full("100", "10", ""), Full("200", "10", "")});
  EXPECT_EQ(done.Column(kFurrowLengthColumn), (Texts{kMark, "", ""}));
}

// A first row with a hole and no length: marked with two blanks, without its count; the hole and the width stay.
TEST(InterpolateSurvey, FirstRowWithoutALengthIsSupplyLine) {
  const Completed done({Full("0", "10", ""), Full("100", "10", "600")});
  EXPECT_EQ(RowOf(done.sheet, 1), (SheetRow{"0", "10", "  Supply", "Line", "8", "1/4", "", "7", "60"}));
}

// Without a hole the last step marks it again, with four blanks, and takes the width too.
TEST(InterpolateSurvey, RowsWithoutAHoleAreSupplyLine) {
  const Completed done({Full("0", "10", "600", ""), Full("100", "10", "600", "")});
  EXPECT_EQ(RowOf(done.sheet, 1), (SheetRow{"0", "10", kMark, "Line", "8", "", "", "7", ""}));
  EXPECT_EQ(RowOf(done.sheet, 2), (SheetRow{"100", "10.00", kMark, "Line", "8", "", "", "7", ""}));
}

TEST(InterpolateSurvey, PipeAndHoleCellsAreCopiedDown) {
  const Completed done(
      {Full("0", "10", "600"), {"100", "10", "600", "", "", "1/2"}, {"200", "10", "600", "", "6", "1/2"}});
  EXPECT_EQ(RowOf(done.sheet, 2), (SheetRow{"100", "10", "600", "50", "8", "1/2", "1", "7", "60"}));
  EXPECT_EQ(RowOf(done.sheet, 3), (SheetRow{"200", "10.00", "600", "50", "6", "1/2", "1", "7", "60"}));
}

// A hole size isn't copied: a row without one is supply line. What passes through it reaches the rows below.
TEST(InterpolateSurvey, CopiesPassThroughSupplyRows) {
  const Completed done({Full("0", "10", "600"), {"100", "10", "600"}, {"200", "10", "600", "", "", "1/2"}});
  EXPECT_EQ(RowOf(done.sheet, 2), (SheetRow{"100", "10", kMark, "Line", "8", "", "", "7", ""}));
  EXPECT_EQ(RowOf(done.sheet, 3), (SheetRow{"200", "10.00", "600", "50", "8", "1/2", "1", "7", "60"}));
}

// The word of a supply line is no spacing: the last number above counts, and with none the default.
TEST(InterpolateSurvey, SpacingIsNeverCopiedFromASupplyMark) {
  const Completed default_spacing({{"0", "10", "", "", "8", ""}, {"100", "10", "600", "", "", "1/2"}});
  EXPECT_EQ(default_spacing.sheet.Text(2, kSpacingColumn), "30");
  const Completed from_above(
      {Full("0", "10", "600"), {"100", "10", "600"}, {"200", "10", "600"}, {"300", "10", "600", "", "", "1/2"}});
  EXPECT_EQ(from_above.Column(kSpacingColumn), (Texts{"50", "Line", "Line", "50"}));
}

// Through the interpolated readings, then down the last column.
TEST(InterpolateSurvey, CursorEndsInTheLastRow) {
  const Completed done({Full("0", "10", "600"), Full("100", "", "600"), Full("200", "9", "600")});
  EXPECT_EQ(done.end.way, SurveyEnd::Way::kCompleted);
  EXPECT_EQ(done.end.cursor, (SheetCell{3, kPlantedWidthColumn}));
}

TEST(InterpolateSurvey, RunningItAgainChangesNothing) {
  Completed done({Full("0", "10", "", ""),
                  Full("100", "", "", ""),
                  {"150", "", "600", "", "", "1/2"},
                  {"250", "", "", "", "", "1/2"},
                  {"300", "", "800", "", "", "1/2"},
                  {"350", "", "", "", "", "0"},
                  {"400", "8", "", "", "", "5/8"}});
  const TextGrid once = done.sheet;
  const int rows = done.record.SurveyRows;
  done.Again();
  EXPECT_TRUE(done.sheet == once);
  EXPECT_EQ(done.record.SurveyRows, rows);
}

}  // namespace
}  // namespace torvale
