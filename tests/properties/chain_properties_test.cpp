// Surveys of every quality, thrown at the whole program through its commands.
#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "properties/chain_program.h"
#include "properties/random_survey.h"
#include "properties/typed_text.h"
#include "properties/watchdog.h"

namespace torvale {
namespace {

constexpr std::chrono::seconds kLongestRound{60};

struct Counts {
  int shown = 0;     // designs that came to their results
  int refused = 0;   // refused or stopped
  int balanced = 0;  // designs whose flows were summed
  double largest_imbalance = 0;
};

std::string FieldText(Random& random, const SurveyStyle& style, double low, double high) {
  if (style.garbage_odds > 0 && random.OneIn(style.garbage_odds)) return GarbageText(random);
  // Small numbers as often as large ones.
  return GeneralText(static_cast<float>(std::exp(random.Real(std::log(low), std::log(high)))));
}

SurveyStyle RandomStyle(Random& random) {
  const int rows = random.OneIn(40) ? random.Whole(20, 319) : random.Whole(1, 8);
  const int most_holes = random.OneIn(60) ? 1500 : random.Whole(2, 40);
  switch (random.Whole(0, 3)) {
    case 0:
      return {rows, most_holes, 0, 0, 0};
    case 1:
      return {rows, most_holes, 3, 0, 5};
    case 2:
      return {rows, most_holes, 4, 15, 6};
    default:
      return {std::min(rows, 8), most_holes, 3, 2, 4};
  }
}

// One user with one program for some rounds, so that each design meets what the one before it left.
class Session {
 public:
  explicit Session(unsigned seed) : random_(seed), desktop_(random_), program_(desktop_.host) {
    StartProgram(program_);
  }

  void Round(Counts& counts) {
    const SurveyStyle style = RandomStyle(random_);
    if (random_.OneIn(2)) Click(program_, "mnuFileNew");
    FillSurvey(random_, style, program_.main.Grid1.cells());
    TypeFields(style);
    if (random_.OneIn(3)) Click(program_, random_.OneIn(2) ? "mnuRigidPipe" : "mnuLayflatPipe");
    if (random_.OneIn(10)) desktop_.CancelAfter(random_.Whole(1, 400), [this] { Click(program_, "cmdCancel"); });
    Design(random_.OneIn(2) ? "mnuDesignField" : "mnuExistingDesign", counts);
    desktop_.cancel = nullptr;
    static constexpr std::string_view kAfterwards[] = {"cmdDesignToggle", "cmdReCalc", "mnuRigidPipe", "mnuLayflatPipe",
                                                       "cmdInterpolate"};
    for (int i = random_.Whole(0, 2); i > 0; --i) Click(program_, random_.Of(kAfterwards));
    // The summary takes stations as they are, and reports one that is no number. A design whose figures were too large
    // to show ended in silence; asked for again, as the other table, it is reported.
    if (!StationsAreNumbers() || program_.record.MissingData == -1) desktop_.untrapped = 0;
    Click(program_, "mnuWindowInfo");
    ExpectWhole();
  }

 private:
  void TypeFields(const SurveyStyle& style) {
    TypeText(program_, "txtInfo(2)", FieldText(random_, style, 40, 2000));
    TypeText(program_, "txtInfo(3)", FieldText(random_, style, 0.4, 5));
    static constexpr std::string_view kKinds[] = {"E", "R", "r", "e"};
    TypeText(program_, "txtInfo(5)", random_.Of(kKinds));
    if (random_.OneIn(8)) TypeText(program_, "txtInfo(0)", GarbageText(random_));
    // A flow that no field can hold is reported as it is typed.
    if (Narrow(std::fabs(Val(program_.main.txtInfo[2].text()))) > FLT_MAX) desktop_.untrapped = 0;
  }

  bool StationsAreNumbers() const {
    for (int row = 1; row <= program_.record.SurveyRows; ++row) {
      if (!IsNumber(program_.main.Grid1.Text(row, kStationColumn))) return false;
    }
    return true;
  }

  std::vector<std::string> Fields() const {
    std::vector<std::string> texts;
    for (const TextField& field : program_.main.txtInfo) texts.push_back(field.text());
    return texts;
  }

  void Design(std::string_view command, Counts& counts) {
    const DesignRecord& record = program_.record;
    const TextGrid before = program_.main.Grid1.cells();
    const std::vector<std::string> fields = Fields();
    const Reach reach = Click(program_, command);
    ASSERT_EQ(reach, Reach::kUsable) << command;
    ExpectTypedTextKept(before, program_.main.Grid1.cells(), record.SurveyRows);
    EXPECT_EQ(Fields(), fields);
    ExpectWhole();
    if (record.MissingData == -1 || record.CancelFlag || record.DesignOK != "True") {
      ++counts.refused;
      return;
    }
    ++counts.shown;
    EXPECT_TRUE(program_.main.Grid2.control.visible);
    EXPECT_FALSE(program_.main.busy);
    ExpectPlainResults(program_.main.Grid2);
    if (!ExpectMassBalance(record)) return;
    ++counts.balanced;
    counts.largest_imbalance = std::max(counts.largest_imbalance, Imbalance(record));
  }

  void ExpectWhole() {
    EXPECT_EQ(desktop_.untrapped, 0) << desktop_.last_message;
    ExpectFinite(program_.record);
    EXPECT_EQ(program_.main.Grid1.rows(), kSurveyGridRows);
    EXPECT_EQ(program_.main.Grid1.column_count(), kSurveyColumns);
    EXPECT_TRUE(program_.main.Grid1.control.visible || program_.main.Grid2.control.visible);
  }

  Random random_;
  RandomDesktop desktop_;
  Program program_;
};

TEST(ChainProperties, AnySurveyIsDesignedOrRefused) {
  constexpr unsigned kRoundsOfASession = 20;
  Watchdog watchdog(kLongestRound);
  Counts counts;
  for (unsigned seed = 1; seed <= Rounds(500) && !HasFailure(); ++seed) {
    Session session(seed);
    for (unsigned round = 1; round <= kRoundsOfASession && !HasFailure(); ++round) {
      const std::string name = "seed " + std::to_string(seed) + ", round " + std::to_string(round);
      watchdog.Begin(name);
      SCOPED_TRACE(name);
      session.Round(counts);
    }
  }
  // Both ends must be met often, or nothing was learned.
  EXPECT_GT(counts.shown, 1500);
  EXPECT_GT(counts.refused, 1500);
  EXPECT_GT(counts.balanced, 1000);
  RecordProperty("shown", counts.shown);
  RecordProperty("refused", counts.refused);
  RecordProperty("balanced", counts.balanced);
  RecordProperty("largest_imbalance", std::to_string(counts.largest_imbalance));
}

}  // namespace
}  // namespace torvale
