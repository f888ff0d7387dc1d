#include "scenarios/scenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <thread>

#include "base/format.h"
#include "display/cell_texts.h"
#include "input/focus.h"
#include "input/info_fields.h"
#include "record/kinds.h"
#include "record/record_fields.h"
#include "scenarios/fields_by_hand.h"

namespace torvale {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// The six types and the best holes.
std::vector<const DesignKind*> AllKinds() {
  std::vector<const DesignKind*> kinds;
  for (const DesignKind& kind : DesignKinds()) kinds.push_back(&kind);
  kinds.push_back(&BestHolesKind());
  return kinds;
}

// A program on the script's desktop, brought by hand to where a design command may be clicked.
struct ByHand {
  std::ostringstream transcript;
  Session session{transcript};
  Program& program = session.program;
};

// Field `index` of the test: the samples first, then random fields.
void TypeField(int index, ByHand& hand) {
  const std::vector<std::filesystem::path> samples = SampleScripts();
  if (index < static_cast<int>(samples.size())) {
    std::istringstream script(InputPartOf(samples.at(static_cast<std::size_t>(index))));
    ReplayScript(hand.session, script);
    for (const std::string_view size : {"3/8", "1/2", "9/16"}) hand.program.main.listHolesSelected.Add(size);
  } else {
    TypeRandomField(static_cast<unsigned>(index), hand.program);
  }
  // Few enough plans to be looked at one by one, and heads that some of the fields keep and some don't.
  hand.program.main.txtBest[0].Set("2");
  hand.program.main.txtBest[1].Set("0.01");
  hand.program.main.txtBest[2].Set("20");
}

void ClickByHand(ByHand& hand, std::string_view kind) {
  static const std::map<std::string_view, std::vector<std::string_view>> kClicks = {
      {"planned", {"mnuDesignField"}},
      {"constant", {"mnuDesignConstSlope"}},
      {"dual", {"mnuDesignDualSlope"}},
      {"computer", {"mnuComputerHoleSelection"}},
      {"existing", {"mnuExistingDesign"}},
      {"limited", {"mnuManHoleSelection", "cmdExitHoleSelect"}},
      {"best", {"mnuBestHoles", "cmdFindBestHoles"}}};
  for (const std::string_view control : kClicks.at(kind)) Click(hand.program, control);
}

std::vector<std::string> CellsOf(const Grid& grid) {
  std::vector<std::string> cells;
  for (int row = 0; row < grid.rows(); ++row) {
    for (int column = 0; column < grid.column_count(); ++column) cells.push_back(grid.Text(row, column));
  }
  return cells;
}

// Names of the fields of the record in which two programs differ.
std::vector<std::string> Differences(const DesignRecord& a, const DesignRecord& b) {
  std::vector<std::string> names;
  ForEachRecordField([&](const auto& field) {
    if constexpr (!std::is_same_v<std::decay_t<decltype(a.*field.member)>, TextGrid>) {
      if (!(a.*field.member == b.*field.member)) names.emplace_back(field.name);
    }
  });
  return names;
}

std::string Label(const Program& program, std::size_t index) {
  return program.main.frmDisplayLbl.at(index).caption;
}

// Every figure against what the screen and the record show after the click.
void ExpectFigures(const ScenarioResult& result, const Program& shown) {
  const DesignRecord& record = shown.record;
  EXPECT_EQ("Distribution Uniformity = " + GeneralText(result.uniformity), shown.main.lblEffic.caption);
  EXPECT_EQ(result.uniformity, record.Uniformity);
  EXPECT_EQ(Format(static_cast<double>(result.max_head), "##.00"), Label(shown, 1));
  EXPECT_EQ(Format(result.max_head_station, "####0"), Label(shown, 3));
  EXPECT_EQ(Format(static_cast<double>(result.min_head), "##.00"), Label(shown, 5));
  EXPECT_EQ(Format(result.min_head_station, "####0"), Label(shown, 7));
  EXPECT_EQ(Format(static_cast<double>(result.max_furrow_flow), "####.00"), Label(shown, 9));
  EXPECT_EQ(Format(static_cast<double>(result.min_furrow_flow), "####.00"), Label(shown, 11));
  EXPECT_EQ(Format(static_cast<double>(result.flow), "####0"), Label(shown, 13));
  EXPECT_EQ(result.hours_for_inch, record.HoursOneInch);
  EXPECT_EQ(result.acres, record.TotalAcres);
  EXPECT_EQ(result.target_head, shown.main.txtInfo[3].text());
  int furrows = 0;
  int holes = 0;
  int changes = 0;
  float before = 0;
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!(record.FurrowFlow[i] > 0)) continue;
    ++furrows;
    holes += record.HolesPerFurrow[i];
    const float size = ChosenHoleDia(record)[i];
    if (furrows > 1 && size != before) ++changes;
    before = size;
  }
  int counted_furrows = 0;
  int counted_holes = 0;
  for (const SizeCount& size : result.sizes) {
    counted_furrows += size.furrows;
    counted_holes += size.holes;
  }
  EXPECT_EQ(counted_furrows, furrows);
  EXPECT_EQ(counted_holes, holes);
  EXPECT_EQ(result.size_changes, changes);
  const bool slope_design = result.design_type == kConstantSlope || result.design_type == kDualSlope;
  EXPECT_EQ(result.slope.has_value(), slope_design);
  EXPECT_EQ(result.highest_fill.value_or(record.HighestFill), record.HighestFill);
  if (result.design_type == kConstantSlope) {
    EXPECT_EQ("Crown Slope = " + Format(*result.slope, "##.###") + " feet per 100 feet",
              shown.main.lblCrownSlope.caption);
  }
  if (result.design_type == kDualSlope) {
    EXPECT_EQ("Crown Slope = " + Format(*result.slope, "##.00") + " ft. /100 ft. from Station  0 to " +
                  Format(*result.slope_ends, "#######"),
              shown.main.lblCrownSlope.caption);
  }
}

constexpr int kFieldsForBest = 5;  // the best holes take the longest by far: one field of so many

struct Tally {
  std::atomic<int> done = 0;
  std::atomic<int> refused = 0;
  std::atomic<int> proven = 0;  // best holes
};

// One design of one field: by hand, and as a scenario of the inputs that were copied out before the click.
void CompareOne(int field, const DesignKind& kind, QuietProgram& quiet, Tally& tally) {
  ByHand hand;
  TypeField(field, hand);
  const ScenarioInput input = InputOf(hand.program);
  const std::vector<std::string> sheet = CellsOf(hand.program.main.Grid1);
  const ScenarioResult result = quiet.Run(input, kind);
  EXPECT_EQ(CellsOf(hand.program.main.Grid1), sheet) << "the shown program was touched";
  EXPECT_EQ(result.key, kind.key);
  ClickByHand(hand, kind.key);
  EXPECT_THAT(Differences(quiet.program().record, hand.program.record), IsEmpty());
  EXPECT_EQ(CellsOf(quiet.program().main.Grid1), CellsOf(hand.program.main.Grid1));
  EXPECT_EQ(CellsOf(quiet.program().main.Grid2), CellsOf(hand.program.main.Grid2));
  EXPECT_EQ(CellsOf(quiet.program().main.GridInchesApplied), CellsOf(hand.program.main.GridInchesApplied));
  // Nobody is anywhere in a scenario, and no hint stands in its status bar.
  EXPECT_EQ(NewsOf(quiet.program()), NewsOf(hand.program));
  const bool shown = hand.program.main.lblActiveInactive.caption == "Active Design";
  EXPECT_EQ(result.outcome == ScenarioOutcome::kDone, shown);
  if (result.outcome == ScenarioOutcome::kDone) {
    ExpectFigures(result, hand.program);
    EXPECT_EQ(result.proof, hand.program.main.lblBestHoles.caption);
    EXPECT_EQ(result.proof.empty(), kind.key != "best");
    ++tally.done;
    if (!result.proof.empty()) ++tally.proven;
  } else {
    EXPECT_FALSE(result.words.empty()) << "a refusal without a word ";
    ++tally.refused;
  }
}

// All samples and 200 random fields, each in the six ways and some in the seventh, on four threads with a quiet program
// each that is used again and again, so that nothing of one field is left for the next.
TEST(Scenario, GivesWhatTheCommandGives) {
  const int fields = static_cast<int>(SampleScripts().size()) + static_cast<int>(Rounds(200));
  std::atomic<int> next = 0;
  Tally tally;
  const auto work = [&] {
    QuietProgram quiet;
    for (int field = next++; field < fields; field = next++) {
      for (const DesignKind* kind : AllKinds()) {
        const std::string name = "field " + std::to_string(field) + " " + std::string(kind->key);
        SCOPED_TRACE(name);
        if (kind->key == "best" && field % kFieldsForBest != 0) continue;
        CompareOne(field, *kind, quiet, tally);
      }
    }
  };
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) threads.emplace_back(work);
  }
  // The fields are mostly sound, and some are not: both ways out are compared.
  EXPECT_GT(tally.done, fields * 2);
  EXPECT_GT(tally.refused, fields / 10);
  EXPECT_GT(tally.proven, fields / kFieldsForBest / 4);
}

// One row with a half-inch hole at each of two furrows: nothing to choose, sizes and changes by hand.
class SmallField : public ::testing::Test {
 protected:
  SmallField() {
    constexpr std::array<std::array<std::string_view, 9>, 3> kRows = {{
        {"0", "100", "600", "20", "10", "1/2", "1", "7", "20"},
        {"40", "100", "600", "20", "10", "1/2", "1", "7", "20"},
        {"80", "100", "600", "20", "10", "3/8", "2", "7", "20"},
    }};
    for (int row = 0; row < 3; ++row) {
      for (int column = 0; column < 9; ++column) {
        hand.program.main.Grid1.Set(row + 1, column,
                                    kRows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)));
      }
    }
    TypeText(hand.program, "txtInfo(2)", "60");
    TypeText(hand.program, "txtInfo(3)", "3");
    TypeText(hand.program, "txtInfo(5)", "E");
  }

  ScenarioResult Run(std::int16_t type) { return quiet.Run(InputOf(hand.program), type); }

  ByHand hand;
  QuietProgram quiet;
};

// The line has furrows at 0, 20, 40, 60 and 80 feet. The hole of a span is that of the survey row at its far end: the
// two furrows beyond 40 feet have two holes of 3/8, the other three one of 1/2 each.
TEST_F(SmallField, CountsHolesBySizeAndTheChangesBetweenThem) {
  const ScenarioResult result = Run(kPlanned);
  ASSERT_EQ(result.outcome, ScenarioOutcome::kDone) << ::testing::PrintToString(result.words);
  EXPECT_THAT(result.sizes, ElementsAre(SizeCount{"3/8", 2, 4}, SizeCount{"1/2", 3, 3}));
  EXPECT_EQ(result.size_changes, 1);
  EXPECT_FALSE(result.slope);
}

// A high head for the target flow: the lowest head is at the far end or nowhere low.
TEST_F(SmallField, WarnsInWordsOfWhatTheScreenColours) {
  TypeText(hand.program, "txtInfo(3)", "0.1");
  const ScenarioResult result = Run(kPlanned);
  ASSERT_EQ(result.outcome, ScenarioOutcome::kDone);
  EXPECT_GE(result.max_head, 0.1F);
  EXPECT_THAT(result.warnings, ::testing::Contains("The highest head reaches or exceeds the target head."));
}

TEST_F(SmallField, RefusesInTheProgramsWordsAndNamesTheCell) {
  hand.program.main.Grid1.Set(1, 1, "");
  hand.program.main.Grid1.Set(2, 1, "");
  hand.program.main.Grid1.Set(3, 1, "");
  const ScenarioResult result = Run(kPlanned);
  EXPECT_EQ(result.outcome, ScenarioOutcome::kRefused);
  EXPECT_THAT(result.words,
              ElementsAre("You must compelte all Survey information on the survey grid (i.e Hole Size Mil).",
                          "Row 1: the rod reading or elevation is missing."));
  EXPECT_EQ(result.cell, (SheetCell{1, 1}));
  EXPECT_EQ(result.uniformity, 0);
}

TEST_F(SmallField, NamesTheRowOfAMissingStation) {
  hand.program.main.Grid1.Set(2, 0, "");
  const ScenarioResult result = Run(kConstantSlope);
  EXPECT_EQ(result.outcome, ScenarioOutcome::kRefused);
  EXPECT_THAT(result.words, ::testing::Contains("Data in row 2 of the station column is missing"));
}

TEST_F(SmallField, NamesTheStationThatDoesNotRise) {
  hand.program.main.Grid1.Set(3, 0, "40");
  const ScenarioResult result = Run(kExistingField);
  EXPECT_EQ(result.outcome, ScenarioOutcome::kRefused);
  ASSERT_EQ(result.words.size(), 2U);
  EXPECT_THAT(result.words[0], HasSubstr("is greater than the distance between Station 40 and 40"));
  EXPECT_EQ(result.words[1], "Rows 2 and 3: the station does not rise.");
  EXPECT_EQ(result.cell, (SheetCell{3, 0}));
}

// Accepted once, it is asked no more: what the user answered goes with the inputs.
TEST_F(SmallField, CarriesTheAcceptedOrderOfStations) {
  hand.program.main.Grid1.Set(3, 0, "39");
  hand.program.record.SpacingWarningOff = 1;
  EXPECT_EQ(Run(kPlanned).outcome, ScenarioOutcome::kDone);
  hand.program.record.SpacingWarningOff = 0;
  EXPECT_EQ(Run(kPlanned).outcome, ScenarioOutcome::kRefused);
}

// The same table row by row, worked out from another flow: not the figures of the former run with a mark on them.
TEST_F(SmallField, NothingOfTheFormerRunMakesItsFiguresStale) {
  ASSERT_EQ(Run(kPlanned).outcome, ScenarioOutcome::kDone);
  TypeText(hand.program, "txtInfo(2)", "61");
  ASSERT_EQ(Run(kPlanned).outcome, ScenarioOutcome::kDone);
  EXPECT_EQ(quiet.program().main.cmdReCalc.mark, "");
  EXPECT_EQ(quiet.program().main.txtInfo[2].control.mark, "");
}

TEST_F(SmallField, RefusesALimitedSelectionWithoutSizes) {
  const ScenarioResult result = Run(kLimitedHoles);
  EXPECT_EQ(result.outcome, ScenarioOutcome::kRefused);
  EXPECT_THAT(result.words, ::testing::Contains("No Holes were Selected"));
}

TEST_F(SmallField, ADesignThatIsStoppedOrOutOfTimeIsCancelled) {
  std::stop_source stop;
  stop.request_stop();
  for (const DesignKind* kind : AllKinds()) {
    hand.program.main.listHolesSelected.Add("1/2");
    const ScenarioInput input = InputOf(hand.program);
    const ScenarioResult stopped = quiet.Run(input, *kind, {stop.get_token(), {}});
    EXPECT_EQ(stopped.outcome, ScenarioOutcome::kCancelled) << kind->key;
    EXPECT_EQ(stopped.uniformity, 0);
    const ScenarioResult late = quiet.Run(input, *kind, {{}, std::chrono::steady_clock::now()});
    EXPECT_EQ(late.outcome, ScenarioOutcome::kCancelled) << kind->key;
    // The next run knows nothing of it.
    EXPECT_NE(quiet.Run(input, *kind).outcome, ScenarioOutcome::kCancelled) << kind->key;
  }
}

}  // namespace
}  // namespace torvale
