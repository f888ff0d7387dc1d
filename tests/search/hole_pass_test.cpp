// One pass of the computer selection: the march of the wanted flows from the far end to the head of the line.
#include "search/hole_selection.h"
#include "search_program.h"

namespace torvale {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Shown kTableFault{
    "There is a programming problem calculating Computer Selected Holes. Try Changing Head or Hole Sizes",
    "Computer Selected Hole Error"};
const Shown kListFault{"There is a programming problem calculating Computer Selected Holes. Try Changing Head ",
                       "Computer Selected Hole Error"};

class HolePassTest : public SearchTest {
 protected:
  // Two rows ten feet apart, one hole at the far end and, where asked for, one at the head of the line.
  void TwoRows(const std::string& kind, float head_crown, float far_crown, bool hole_at_head = false) {
    TypeInfo("3", "2", kind);
    record.DesignOK = "True";
    record.HoleRows = 2;
    record.WateredFurrows = hole_at_head ? 2 : 1;
    for (int i = 1; i <= 2; ++i) {
      record.Station[i] = static_cast<float>(10 * (i - 1));
      record.HoleDia[i] = i == 1 && !hole_at_head ? 0 : 0.375F / 12;
      record.HolesPerFurrow[i] = 1;
      record.PipeDia[i] = 15;
      record.FlowRatio[i] = 1;
    }
    record.CrownElev[1] = head_crown;
    record.CrownElev[2] = far_crown;
    record.Head[2] = 2;
    record.SeedEndHead = 2;
    main.listHolesSelected.Clear();
    main.listHolesSelected.Add("3/8");
    record.SelectedHoleValue[0] = 0.375F;
  }
  void ExpectFault(const Shown& message) {
    EXPECT_THAT(host.messages, ElementsAre(message));
    EXPECT_EQ(record.DesignOK, "False");
    EXPECT_TRUE(record.CancelFlag);
    EXPECT_EQ(record.DesignType, kNoDesign);
    EXPECT_TRUE(main.cmdInterpolate.visible);
    EXPECT_TRUE(main.Grid1.control.visible);
    for (const Control* hidden : {&main.frmDisplay, &main.lblCrownSlope, &main.lblEffic, &main.cmdDesignToggle,
                                  &main.cmdReCalc, &main.Grid2.control, &main.mnuWindowInfo, &main.mnuProfile}) {
      EXPECT_FALSE(hidden->visible);
    }
    EXPECT_FALSE(main.busy);
  }
  void ShowEverything() {
    for (const NamedControl& control : ControlsOf(main)) control.control->visible = true;
    main.cmdInterpolate.visible = false;
    main.busy = true;
  }
};

// Wanted 3 GPM at 2 feet: capacity = sqrt(2 x 64.4) x 448.81 x 0.65 = 3310.8066; opening = 3 / 3310.8066 x 144 =
// 0.13048180; ideal = sqrt(0.13048180) x 1.128 = 0.4074591. The constant 448.8 of the main march would give 0.4074637.
TEST_F(HolePassTest, FindsTheIdealDiameter) {
  TwoRows("E", 100, 100);
  MultiHoleOne(program);
  EXPECT_NEAR(record.HoleSizeIdeal[2], 0.4074591F, 1e-7F);
  EXPECT_EQ(record.HoleSizeIdeal[1], 0);
  EXPECT_EQ(record.ComputerHoleDia[2], 0.375F);  // the size below 7/16
  EXPECT_EQ(record.ComputerHoleDia[1], 0);
  EXPECT_EQ(record.AccumGPM, 3);
  EXPECT_EQ(record.SeedEndHead, 2);
}

// Two holes share the flow: each has half the area, so the diameter is smaller by the root of 2.
TEST_F(HolePassTest, SharesTheFlowAmongTheHolesOfAFurrow) {
  TwoRows("E", 100, 100);
  record.HolesPerFurrow[2] = 2;
  MultiHoleOne(program);
  EXPECT_NEAR(record.HoleSizeIdeal[2], 0.4074591 / std::sqrt(2.0), 2e-7);
}

// Longer furrows want more: the flow is the share times the mean, 2 x 3 GPM.
TEST_F(HolePassTest, FollowsTheShareOfTheFurrow) {
  TwoRows("E", 100, 100);
  record.FlowRatio[2] = 2;
  MultiHoleOne(program);
  EXPECT_EQ(record.AccumGPM, 6);
  EXPECT_NEAR(record.HoleSizeIdeal[2], 0.4074591 * std::sqrt(2.0), 2e-7);
}

// Friction over ten feet at 3 GPM: 10 x (3^1.852 / 15^4.866 x 0.2083 x (100 / 140)^1.852 / 100) = 1.6176e-7. A row
// without a hole keeps the friction of the last row that had one, so that it comes again above row 2.
TEST_F(HolePassTest, CarriesFrictionThroughRowsWithoutHoles) {
  TwoRows("E", 100, 100);
  record.HoleRows = 3;
  record.Station[3] = 20;
  record.HoleDia[3] = record.HoleDia[2];
  record.HoleDia[2] = 0;
  record.HolesPerFurrow[3] = 1;
  record.PipeDia[3] = 15;
  record.FlowRatio[3] = 1;
  record.CrownElev[3] = 100;
  record.Head[3] = 2;
  MultiHoleOne(program);
  const double friction = 0.1 * std::pow(3, 1.852) / std::pow(15, 4.866) * 0.2083 * std::pow(100.0 / 140, 1.852);
  EXPECT_NEAR(record.Head[2] - 2, friction, 1e-15);
  EXPECT_NEAR(record.Head[1] - 2, 2 * friction, 1e-15);
}

TEST_F(HolePassTest, ElevationsAndRodsPointTheOtherWay) {
  TwoRows("E", 100, 99.5F);
  MultiHoleOne(program);
  EXPECT_NEAR(record.Head[1], 1.5, 1e-6);
  TwoRows("R", 99.5F, 100);
  MultiHoleOne(program);
  EXPECT_NEAR(record.Head[1], 1.5, 1e-6);
}

TEST_F(HolePassTest, StartsFromClearedSizes) {
  for (const bool table : {true, false}) {
    TwoRows("E", 100, 100);
    record.HoleSizeIdeal[1] = 5;
    record.ComputerHoleDia[1] = 5;
    record.LimitedHoleDia[5] = 5;
    record.HoleSizeIndexLimit = 12;
    if (table) {
      MultiHoleOne(program);
    } else {
      ManHoleCalSelected(program);
    }
    EXPECT_EQ(record.DesignType, table ? kComputerHoles : kLimitedHoles);
    EXPECT_EQ(record.HoleSizeIdeal[1], 0);
    EXPECT_EQ(record.ComputerHoleDia[1], 0);
    EXPECT_EQ(record.LimitedHoleDia[5], 5);  // the limited sizes are not cleared
    EXPECT_EQ(Number(record.HoleSizeIndexLimit), 0);
  }
}

// ---- Lost head ----

// The head of the line lies three feet above the far end: from 2 feet on the far end gets tenths until more than 3 feet
// stand there. Ten of them make 3 feet and the friction above it is more than nothing.
TEST_F(HolePassTest, RaisesTheFarEndUntilNoHeadIsLost) {
  for (const bool table : {true, false}) {
    TwoRows("E", 103, 100);
    if (table) {
      MultiHoleOne(program);
    } else {
      ManHoleCalSelected(program);
    }
    EXPECT_EQ(record.SeedEndHead, 3);
    EXPECT_GT(record.Head[1], 0);
    EXPECT_EQ(record.AccumGPM, 3);  // counted afresh in each march
    EXPECT_THAT(host.messages, IsEmpty());
  }
}

// With rods the whole table looks at the head of the row in hand. At the head of the line it is lost, and the row has
// no hole that could fail over it: the march begins again. The list looks one row ahead and comes to the same.
TEST_F(HolePassTest, RaisesTheFarEndWithRodsToo) {
  for (const bool table : {true, false}) {
    TwoRows("R", 97, 100);
    if (table) {
      MultiHoleOne(program);
    } else {
      ManHoleCalSelected(program);
    }
    EXPECT_EQ(record.SeedEndHead, 3);
    EXPECT_THAT(host.messages, IsEmpty());
  }
}

// With a hole at the head of the line the table's pass reaches it with a negative head, whose root can't be drawn. The
// list's pass begins again a row earlier.
TEST_F(HolePassTest, WithRodsOnlyTheListLooksAhead) {
  TwoRows("R", 97, 100, true);
  ShowEverything();
  main.cmdCancel.visible = true;
  MultiHoleOne(program);
  ExpectFault(kTableFault);
  EXPECT_FALSE(main.cmdCancel.visible);
  EXPECT_EQ(record.SeedEndHead, 2);

  host.messages.clear();
  record.CancelFlag = false;
  TwoRows("R", 97, 100, true);
  ManHoleCalSelected(program);
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_EQ(record.SeedEndHead, 3);
}

// Above row 1 there is no row: what the march leaves in element 0 (with rods of 100 feet a head of -98) restarts
// nothing.
TEST_F(HolePassTest, DoesNotLookAboveTheHeadOfTheLine) {
  TwoRows("R", 100, 100);
  ManHoleCalSelected(program);
  EXPECT_EQ(record.SeedEndHead, 2);
  EXPECT_LT(record.Head[0], 0);
  TwoRows("E", -100, -100);
  MultiHoleOne(program);
  EXPECT_EQ(record.SeedEndHead, 2);
  EXPECT_LT(record.Head[0], 0);
}

// A survey kind that is neither letter restarts nothing: the lost head fails at the next hole.
TEST_F(HolePassTest, OtherLettersRestartNothing) {
  TwoRows("X", 97, 100);
  MultiHoleOne(program);
  EXPECT_THAT(host.messages, IsEmpty());
  EXPECT_LT(record.Head[1], 0);
  EXPECT_EQ(record.SeedEndHead, 2);
}

// The rows are worked without a yield, but for one ahead of each new start: so a head that never comes back above the
// ground can be cancelled.
TEST_F(HolePassTest, ANewStartCanBeCancelled) {
  TwoRows("E", 103, 100);
  main.txtInfo[3].Set("-1000000");
  record.Head[2] = -1000000;
  record.HoleDia[2] = 0;  // no hole that could fail over the negative head
  CancelAt(5);
  MultiHoleOne(program);
  EXPECT_EQ(host.yields, 5);
  EXPECT_NEAR(record.Head[2], -1000000 + 0.5, 1e-6);
  EXPECT_EQ(record.SeedEndHead, 2);  // not taken over
}

TEST_F(HolePassTest, DoesNotYieldOtherwise) {
  TwoRows("E", 100, 100);
  MultiHoleOne(program);
  ManHoleCalSelected(program);
  EXPECT_EQ(host.yields, 0);
}

// ---- Faults ----

TEST_F(HolePassTest, ReportsAFaultOfTheTable) {
  struct Spoil {
    const char* about;
    void (*run)(DesignRecord&);
  };
  for (const Spoil& spoil : {Spoil{"no pipe", [](DesignRecord& r) { r.PipeDia[2] = 0; }},
                             Spoil{"no furrow", [](DesignRecord& r) { r.WateredFurrows = 0; }},
                             Spoil{"no head", [](DesignRecord& r) { r.Head[2] = 0; }},
                             Spoil{"no holes at the furrow", [](DesignRecord& r) { r.HolesPerFurrow[2] = 0; }},
                             Spoil{"no roughness", [](DesignRecord& r) { r.HazenWilliamsC = 0; }}}) {
    SCOPED_TRACE(spoil.about);
    TwoRows("E", 100, 100);
    record.HazenWilliamsC = 140;
    spoil.run(record);
    record.CancelFlag = false;
    host.messages.clear();
    ShowEverything();
    main.cmdCancel.visible = true;
    MultiHoleOne(program);
    ExpectFault(kTableFault);
    EXPECT_FALSE(main.cmdCancel.visible);
  }
}

// The list's pass leaves the Cancel button as it is.
TEST_F(HolePassTest, ReportsAFaultOfTheList) {
  TwoRows("E", 100, 100);
  record.PipeDia[2] = 0;
  ShowEverything();
  ManHoleCalSelected(program);
  ExpectFault(kListFault);
  EXPECT_FALSE(main.cmdCancel.visible);
}

// A whole computer selection that fails leads back to the input screen.
TEST_F(HolePassTest, AFaultEndsTheDesignOnTheInputScreen) {
  OneHole("3");
  main.Grid1.Set(2, kPipeDiaColumn, "0");
  mnuComputerHoleSelection_Click(program);
  EXPECT_THAT(host.messages, ElementsAre(kTableFault));
  EXPECT_EQ(record.DesignType, kNoDesign);
  EXPECT_THAT(Ticked(), IsEmpty());
  EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");
  EXPECT_FALSE(record.CancelFlag);
}

// ---- The outer loop ----

// The far end of the march that follows begins where the pass ended.
TEST_F(HolePassTest, HandsItsFarEndToTheMarch) {
  TypeInfo("3", "2", "E");
  FillSheet({SupplyRow("0", "103"), WateredRow("10", "100")});
  mnuComputerHoleSelection_Click(program);
  ASSERT_EQ(record.DesignOK, "True");
  EXPECT_EQ(record.SeedEndHead, 3);
  EXPECT_EQ(record.FlowCalcStatus, "Ok");
  EXPECT_NEAR(record.AccumGPM, 3, 0.0015);
}

TEST_F(HolePassTest, StartsAtTheTargetHead) {
  TwoRows("E", 100, 100);
  record.DesignType = kComputerHoles;
  record.FlowCalcStatus = "Ok";
  record.MaxHead = 9;
  record.HoleSizeIdeal[1] = 4;
  record.CancelFlag = true;
  main.txtInfo[3].Set("1.25 ft");
  MultiHoleSize(program);
  EXPECT_EQ(record.FlowCalcStatus, "");
  EXPECT_EQ(record.SeedEndHead, 1.25F);
  EXPECT_EQ(record.Head[2], 1.25);
  EXPECT_EQ(record.MaxHead, 0);
  EXPECT_EQ(record.HoleSizeIdeal[1], 0);
}

}  // namespace
}  // namespace torvale
