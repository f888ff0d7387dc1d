#include "record/design_record.h"

#include <gtest/gtest.h>

namespace torvale {
namespace {

TEST(DesignRecord, BeginsWithNoDesignOnLayflatTubing) {
  const DesignRecord record;
  EXPECT_EQ(record.DesignType, kNoDesign);
  EXPECT_EQ(record.PipeKind, "L");
  EXPECT_FALSE(record.CancelFlag);
  EXPECT_EQ(record.HoleRows, 0);
  EXPECT_FALSE(record.DualBreakStation.has_value());
  EXPECT_EQ(Number(record.DualBreakStation), 0);  // unset counts as 0
}

TEST(DesignRecord, DesignTypesHaveTheNumbersOfTheDesignFile) {
  EXPECT_EQ(kPlanned, 1);
  EXPECT_EQ(kConstantSlope, 2);
  EXPECT_EQ(kDualSlope, 3);
  EXPECT_EQ(kComputerHoles, 4);
  EXPECT_EQ(kExistingField, 5);
  EXPECT_EQ(kLimitedHoles, 6);
}

// Hole sizes are chosen out of at most 51 places, the catalogue has one to spare.
TEST(DesignRecord, HoleListsHaveTheirBounds) {
  const DesignRecord record;
  EXPECT_EQ(record.HoleSizeName.last(), 51);
  EXPECT_EQ(record.HoleSizeValue.last(), 51);
  EXPECT_EQ(record.SelectedHoleName.last(), 50);
  EXPECT_EQ(record.SelectedHoleValue.last(), 50);
}

TEST(DesignRecord, ACopyOfTheDesignIsTheDesignWithoutTheDesk) {
  DesignRecord record;
  record.TargetGPM = 850;
  record.Station[2] = 10;
  record.Head[2] = 1.5;
  record.SaveFileName = "north.pln";
  const Design kept = record;
  DesignRecord other;
  other.SaveFileName = "south.pln";
  other.GridClipboard.Set(1, 1, "cut");
  static_cast<Design&>(other) = kept;
  EXPECT_EQ(other.TargetGPM, 850);
  EXPECT_EQ(other.Station[2], 10);
  EXPECT_EQ(other.Head[2], 1.5);
  EXPECT_EQ(other.SaveFileName, "south.pln");
  EXPECT_EQ(other.GridClipboard.Text(1, 1), "cut");
}

TEST(ClearRowArrays, EmptiesSurveyAndResults) {
  DesignRecord record;
  const auto mark = [](auto&... arrays) { ((arrays[2] = 3), ...); };
  mark(record.LimitedHoleDia, record.ComputerHoleDia, record.HoleSizeIdeal, record.SelectedHoleValue,
       record.NormFurrowFlow, record.Station, record.CrownElev, record.DesignElev, record.HoleSpacing,
       record.ReservedRowValue, record.Head, record.ElevByFoot, record.HoleDia, record.SurveyHoleDia, record.FurrowFlow,
       record.HolesPerFurrow, record.HoleArea, record.NormFurrowLength, record.FurrowLength, record.PipeArea,
       record.RequiredFlow, record.PipeDia, record.FurrowNumber);
  record.ReservedRowValue2[2] = record.SelectedHoleName[2] = record.MilText[2] = "text";
  ClearRowArrays(record);
  const auto expect_one_empty = [](const auto& array) { EXPECT_EQ(array[2], 0); };
  const auto expect_empty = [&](const auto&... arrays) { (expect_one_empty(arrays), ...); };
  expect_empty(record.LimitedHoleDia, record.ComputerHoleDia, record.HoleSizeIdeal, record.SelectedHoleValue,
               record.NormFurrowFlow, record.Station, record.CrownElev, record.DesignElev, record.HoleSpacing,
               record.ReservedRowValue, record.Head, record.ElevByFoot, record.HoleDia, record.SurveyHoleDia,
               record.FurrowFlow, record.HolesPerFurrow, record.HoleArea, record.NormFurrowLength, record.FurrowLength,
               record.PipeArea, record.RequiredFlow, record.PipeDia, record.FurrowNumber);
  EXPECT_EQ(record.ReservedRowValue2[2], "");
  EXPECT_EQ(record.SelectedHoleName[2], "");
  EXPECT_EQ(record.MilText[2], "");
}

// Settings, the catalogue of hole sizes and what each run fills from scratch anyway stay as they were.
TEST(ClearRowArrays, LeavesTheRest) {
  DesignRecord record;
  record.TargetGPM = 850;
  record.DesignType = kExistingField;
  record.PlantedWidth[2] = 60;
  record.FlowRatio[2] = 1;
  record.HoleRows = 4;
  ClearRowArrays(record);
  EXPECT_EQ(record.TargetGPM, 850);
  EXPECT_EQ(record.DesignType, kExistingField);
  EXPECT_EQ(record.PlantedWidth[2], 60);
  EXPECT_EQ(record.FlowRatio[2], 1);
  EXPECT_EQ(record.HoleRows, 4);
  EXPECT_EQ(record.HoleSizeName[6], "1/4");
}

}  // namespace
}  // namespace torvale
