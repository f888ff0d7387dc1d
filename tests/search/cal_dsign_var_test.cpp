#include "search/cal_dsign_var.h"

#include "search/hole_selection.h"
#include "search/survey_completion.h"
#include "search_program.h"

namespace torvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Shown kFieldsMissing{"Some Information Data is missing(i.e. GPM, Target Head)", "Missing Data"};
const Shown kSurveyMissing{"You must compelte all Survey information on the survey grid (i.e Hole Size Mil).",
                           "Missing Data"};
const Shown kHoleMissing{"You must compelte all Survey information on the survey grid.", "Missing Data"};

class CalDsignVarTest : public SearchTest {
 protected:
  // The state that a design command leaves ahead of the calculation.
  void Run(std::int16_t design_type = kPlanned) {
    record.DesignType = design_type;
    main.busy = true;
    main.cmdInterpolate.visible = false;
    main.cmdCancel.visible = false;
    cmdInterpolate_Click(program);
    Cal_Dsign_Var(program);
  }

  // A limited selection, which shows nothing after each run.
  void ListOneSize() {
    LevelLine();
    main.listHolesSelected.Add("3/8");
    main.listSortSelectedHoles.Add(" .375");
    record.SelectedHoleValue[0] = 0.375F;
    Run(kLimitedHoles);
  }

  void ExpectRefused(const std::vector<Shown>& messages) {
    EXPECT_EQ(host.messages, messages);
    EXPECT_EQ(record.MissingData, -1);
    EXPECT_EQ(record.DesignOK, "True");
    EXPECT_FALSE(record.CancelFlag);
    EXPECT_FALSE(main.busy);
    EXPECT_TRUE(main.cmdInterpolate.visible);
    EXPECT_FALSE(main.cmdCancel.visible);
  }
};

TEST_F(CalDsignVarTest, StartsEachRunAfresh) {
  LevelLine();
  record.MissingData = -1;
  record.DesignOK = "False";
  record.CancelFlag = true;
  bool cancel_offered = false;
  WatchYields([&] { cancel_offered = main.cmdCancel.visible; });
  Run();
  EXPECT_TRUE(cancel_offered);
  EXPECT_EQ(record.MissingData, 0);
  EXPECT_EQ(record.DesignOK, "True");
  EXPECT_FALSE(record.CancelFlag);
  EXPECT_TRUE(main.Grid2.control.visible);
  EXPECT_EQ(main.lblActiveInactive.caption, "Active Design");
  EXPECT_FALSE(main.cmdCancel.visible);  // the shown design takes it away
}

// Rows that stand are taken over with what a march has changed of them: the count of furrows, by which the flow is
// shared out, and one pipe.
TEST_F(CalDsignVarTest, TakesOverRowsThatStand) {
  ListOneSize();
  BuiltRows rows;
  Cal_Dsign_Var(program, rows);
  const float average = record.AverageFurrowFlow;
  const float pipe = record.PipeArea[3];
  record.WateredFurrows = 5;
  record.PipeArea[3] = 7;
  record.HoleSpacing[2] = 77;
  Cal_Dsign_Var(program, rows);
  EXPECT_EQ(record.WateredFurrows, 11);
  EXPECT_EQ(record.AverageFurrowFlow, average);
  EXPECT_EQ(record.PipeArea[3], pipe);
  EXPECT_EQ(record.HoleSpacing[2], 77);  // not built again
}

// Another flow, another sheet or no run before: the rows are built.
TEST_F(CalDsignVarTest, BuildsRowsThatDoNotStand) {
  ListOneSize();
  BuiltRows rows;
  const auto built = [&] {
    record.HoleSpacing[2] = 77;
    Cal_Dsign_Var(program, rows);
    return record.HoleSpacing[2] == 10;
  };
  EXPECT_TRUE(built());
  EXPECT_FALSE(built());
  record.TargetGPM = 6;
  EXPECT_TRUE(built());
  main.Grid1.Set(2, kPipeDiaColumn, "12");
  EXPECT_TRUE(built());
  EXPECT_EQ(record.PipeDia[2], 12);
  EXPECT_FALSE(built());
}

struct EmptyField {
  std::size_t index;
  const char* sentence;
};

TEST_F(CalDsignVarTest, RefusesEachEmptyField) {
  for (const EmptyField& field : {EmptyField{2, "The GPM is missing: enter the pumped flow."},
                                  EmptyField{3, "The Target Head is missing: enter it in feet."},
                                  EmptyField{5, "Enter R for rod readings or E for elevations."}}) {
    SCOPED_TRACE(field.index);
    LevelLine();
    main.txtInfo[field.index].Set("");
    host.messages.clear();
    Run();
    ExpectRefused({kFieldsMissing});
    EXPECT_EQ(Status(), field.sentence);
  }
}

TEST_F(CalDsignVarTest, TellsOfTwoEmptyFieldsOnce) {
  LevelLine();
  main.txtInfo[2].Set("");
  main.txtInfo[3].Set("");
  main.Grid1.Set(1, kCrownColumn, "");  // and of nothing that comes after
  Run();
  ExpectRefused({kFieldsMissing});
}

// The test is for empty text only: a blank counts as filled in, and as rod readings.
TEST_F(CalDsignVarTest, TakesABlankForAFilledField) {
  LevelLine("6.4", " ");
  Run();
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_EQ(record.MissingData, 0);
}

TEST_F(CalDsignVarTest, RefusesASurveyWithoutCrownPipeOrStation) {
  struct Gap {
    int column;
    const char* sentence;
  };
  for (const Gap& gap : {Gap{kPipeDiaColumn, "Row 1: the pipe diameter is missing."},
                         Gap{kCrownColumn, "Row 1: the rod reading or elevation is missing."},
                         Gap{kStationColumn, "Row 1: the station is missing."}}) {
    SCOPED_TRACE(gap.sentence);
    LevelLine();
    cmdInterpolate_Click(program);
    main.Grid1.Set(1, gap.column, "");
    host.messages.clear();
    record.DesignType = kPlanned;
    main.busy = true;
    main.cmdInterpolate.visible = false;
    Cal_Dsign_Var(program);
    ExpectRefused({kSurveyMissing});
    EXPECT_EQ(Status(), gap.sentence);
  }
}

// Rows are looked at in order, and in each row the pipe comes first, the crown next, the station last.
TEST_F(CalDsignVarTest, NamesTheFirstGapOfTheSurvey) {
  LevelLine();
  cmdInterpolate_Click(program);
  main.Grid1.Set(2, kPipeDiaColumn, "");
  main.Grid1.Set(1, kStationColumn, "");
  main.Grid1.Set(1, kCrownColumn, "");
  Cal_Dsign_Var(program);
  EXPECT_EQ(Status(), "Row 1: the rod reading or elevation is missing.");
  EXPECT_EQ(host.messages.size(), 1U);
}

TEST_F(CalDsignVarTest, RefusesAHoleWithoutItsNumberOrMil) {
  struct Gap {
    int column;
    const char* sentence;
  };
  for (const Gap& gap : {Gap{kHoleCountColumn, "Row 4: the number of holes is missing."},
                         Gap{kMilColumn, "Row 4: the mil is missing."}}) {
    for (std::int16_t type = kPlanned; type <= kLimitedHoles; ++type) {
      SCOPED_TRACE(testing::Message() << gap.sentence << " type " << type);
      TypeInfo("6.4", "2", "E");
      FillSheet({WateredRow("0", "100"), WateredRow("10", "100"), WateredRow("20", "100"), WateredRow("30", "100")});
      cmdInterpolate_Click(program);
      main.Grid1.Set(4, gap.column, "");
      host.messages.clear();
      record.DesignType = type;
      main.busy = true;
      main.cmdInterpolate.visible = false;
      Cal_Dsign_Var(program);
      ExpectRefused({kHoleMissing});
      EXPECT_EQ(Status(), gap.sentence);
    }
  }
}

// Neither the hole size nor the mil of a row without a hole is asked for, whatever the words of the message say.
TEST_F(CalDsignVarTest, AsksForNoHoleSizeOrMilOfASupplyRow) {
  OneHole("0.6");
  cmdInterpolate_Click(program);
  main.Grid1.Set(1, kMilColumn, "");
  record.DesignType = kPlanned;
  Cal_Dsign_Var(program);
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_EQ(record.MissingData, 0);
}

// ---- Stations that fail to rise ----

std::string Question(const std::string& here, const std::string& before) {
  return "Your distance between holes at station " + here + " is greater than the distance between Station " + before +
         " and " + here + " is this ok?";
}

class StationOrderTest : public CalDsignVarTest {
 protected:
  // Rows 3 and 5 stand before the row above them.
  void TwoSteps() {
    TypeInfo("6.4", "2", "E");
    FillSheet({WateredRow("0", "100"), WateredRow("30", "100"), WateredRow("20", "100"), WateredRow("50", "100"),
               WateredRow("40", "100"), WateredRow("60", "100")});
    main.Grid1.control.visible = false;
  }
};

TEST_F(StationOrderTest, ANoRefuses) {
  TwoSteps();
  host.answers = {false};
  Run();
  EXPECT_THAT(host.questions, ElementsAre(Shown{Question("20", "30"), ""}));
  ExpectRefused({});
  EXPECT_TRUE(main.Grid1.control.visible);
  EXPECT_EQ(record.SpacingWarningOff, 0);
  EXPECT_EQ(Status(), "Rows 2 and 3: the station does not rise.");
}

// A selection that begins on its panel interpolates nothing, and the sheet may be hidden.
TEST_F(StationOrderTest, TheSheetIsThereForTheQuestion) {
  TwoSteps();
  cmdInterpolate_Click(program);
  main.Grid1.control.visible = false;
  record.DesignType = kPlanned;
  host.answers = {false};
  Cal_Dsign_Var(program);
  EXPECT_EQ(host.questions.size(), 1U);
  EXPECT_TRUE(main.Grid1.control.visible);
}

TEST_F(StationOrderTest, AYesGoesOnWithTheRowsBelowInTheSameRun) {
  TwoSteps();
  host.answers = {true, false};
  Run();
  EXPECT_THAT(host.questions, ElementsAre(Shown{Question("20", "30"), ""}, Shown{Question("40", "50"), ""}));
  ExpectRefused({});
  EXPECT_EQ(record.SpacingWarningOff, 1);
}

TEST_F(StationOrderTest, IsNotAskedAgainInTheNextRun) {
  TwoSteps();
  host.answers = {true, true};
  Run();
  EXPECT_EQ(host.questions.size(), 2U);
  Run();
  EXPECT_EQ(host.questions.size(), 2U);
}

TEST_F(StationOrderTest, AsksAgainAfterTheInputScreen) {
  TwoSteps();
  host.answers = {true, true, false};
  Run();
  mnuWindowInfo_Click(program);
  Run();
  EXPECT_EQ(host.questions.size(), 3U);
}

// Equal stations give a span of no length, whose slope can't be formed: after the Yes the run ends without a box.
TEST_F(StationOrderTest, EqualStationsEndTheRunInTheStatusBar) {
  TypeInfo("6.4", "2", "E");
  FillSheet({WateredRow("0", "100"), WateredRow("50", "100"), WateredRow("50", "100"), WateredRow("100", "100")});
  host.answers = {true};
  Run();
  EXPECT_THAT(host.questions, ElementsAre(Shown{Question("50", "50"), ""}));
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_EQ(record.MissingData, -1);
  EXPECT_TRUE(record.CancelFlag);
  EXPECT_EQ(Status(), "Rows 2 and 3: the station does not rise.");
}

// ---- Ends without a message box: the status bar tells, the screen stays as it was ----

class SilentEndTest : public CalDsignVarTest {
 protected:
  void ExpectSilentEnd(const std::string& sentence) {
    EXPECT_THAT(host.messages, IsEmpty());
    EXPECT_THAT(host.questions, IsEmpty());
    EXPECT_EQ(record.MissingData, -1);
    EXPECT_TRUE(record.CancelFlag);
    EXPECT_EQ(record.DesignOK, "True");
    EXPECT_TRUE(main.busy);
    EXPECT_TRUE(main.cmdCancel.visible);
    EXPECT_FALSE(main.cmdInterpolate.visible);
    EXPECT_EQ(Status(), sentence);
  }
};

TEST_F(SilentEndTest, NoRowWithHoles) {
  TypeInfo("6.4", "2", "E");
  FillSheet({SupplyRow("0", "100"), SupplyRow("100", "100")});
  record.SurveyRows = 2;
  record.DesignType = kPlanned;
  main.busy = true;
  main.cmdInterpolate.visible = false;
  Cal_Dsign_Var(program);
  ExpectSilentEnd("No row has holes: a watered row needs a furrow length, a hole size and a number of holes.");
}

TEST_F(SilentEndTest, ASingleRow) {
  TypeInfo("6.4", "2", "E");
  FillSheet({WateredRow("0", "100")});
  Run();
  ExpectSilentEnd("The survey has one row only: a line needs at least two stations.");
}

// The slope search divides each furrow's flow by its share of the lengths.
TEST_F(SilentEndTest, HolesButNoFurrowLength) {
  TypeInfo("6.4", "2", "E");
  FillSheet({SupplyRow("0", "100"), WateredRow("100", "100", "0")});
  Run(kConstantSlope);
  ExpectSilentEnd("The rows with holes have no furrow length.");
}

TEST_F(SilentEndTest, OneHoleWithoutItsFurrowLength) {
  TypeInfo("6.4", "2", "E");
  FillSheet({WateredRow("0", "100"), WateredRow("50", "100", "500", "50"), WateredRow("100", "100", "0", "50")});
  Run(kConstantSlope);
  ExpectSilentEnd("The row with holes at station 100 has no furrow length.");
}

TEST_F(SilentEndTest, ANumberTooLargeForItsField) {
  TypeInfo("6.4", "2", "E");
  FillSheet({WateredRow("0", "100", "40000"), WateredRow("100", "100", "40000")});  // lengths end at 32767
  Run();
  ExpectSilentEnd("A number in the survey is too large or out of place for a design.");
}

// ---- The road by design type ----

TEST_F(CalDsignVarTest, SharesTheFlowAmongTheFurrows) {
  LevelLine();
  Run();
  EXPECT_EQ(record.WateredFurrows, 11);
  EXPECT_EQ(record.AverageFurrowFlow, 6.4F / 11);
  EXPECT_EQ(record.Uniformity, 100);
  EXPECT_GT(record.TotalAcres, 0);
}

TEST_F(CalDsignVarTest, SortsTheFlowsUpward) {
  TypeInfo("6.4", "2", "E");
  FillSheet({WateredRow("0", "100"), WateredRow("50", "100.02"), WateredRow("100", "99.98")});
  Run();
  ASSERT_EQ(record.WateredFurrows, 11);
  for (int i = 2; i <= 11; ++i) EXPECT_GE(record.NormFurrowFlow[i], record.NormFurrowFlow[i - 1]) << i;
  EXPECT_LT(record.NormFurrowFlow[1], record.NormFurrowFlow[11]);
}

// Planned, existing and computer selected designs are shown from here, the other three from their own commands.
TEST_F(CalDsignVarTest, ShowsThreeOfTheDesignTypesItself) {
  LevelLine();
  for (const auto& [type, shown] : {std::pair{kPlanned, true}, {kExistingField, true}, {kComputerHoles, true}}) {
    SCOPED_TRACE(type);
    main.lblActiveInactive.caption.clear();
    Run(type);
    EXPECT_EQ(main.lblActiveInactive.caption == "Active Design", shown);
  }
  main.listHolesSelected.Add("3/8");
  main.listSortSelectedHoles.Add(" .375");
  record.SelectedHoleValue[0] = 0.375F;
  main.lblActiveInactive.caption.clear();
  Run(kLimitedHoles);
  EXPECT_EQ(record.DesignOK, "True");
  EXPECT_GT(record.Uniformity, 0);
  EXPECT_EQ(main.lblActiveInactive.caption, "");
}

// A selection whose highest head lies above the Target Head is made twice; the second repeats the first, so that the
// yields of the run double. Holes come out on the small side, so the head ends above the target as a rule.
TEST_F(CalDsignVarTest, SelectsTwiceWhereTheHeadEndsAboveTheTarget) {
  LevelLine("20");
  const long before = host.yields;
  Run(kComputerHoles);
  const long whole = host.yields - before;
  ASSERT_EQ(record.DesignOK, "True");
  ASSERT_GT(record.MaxHead, 2);
  const long start = host.yields;
  MultiHoleSize(program);
  EXPECT_EQ(whole, 2 * (host.yields - start));
}

// A Target Head beyond the one that the chosen holes need: with a head of 99 feet no size of the table is small enough
// for 1/20 GPM in each furrow: 1/32 inch gives 0.12 already. All rows stay dry then, the flow never meets the
// target, and no highest head is found that a second selection could follow from.
TEST_F(CalDsignVarTest, SelectsOnceWhereNoHeadWasFound) {
  LevelLine("0.55");
  main.txtInfo[3].Set("99");
  Run(kComputerHoles);
  EXPECT_EQ(record.DesignOK, "False");
  EXPECT_EQ(record.MaxHead, 0);
  EXPECT_EQ(host.messages.size(), 1U);
}

}  // namespace
}  // namespace torvale
