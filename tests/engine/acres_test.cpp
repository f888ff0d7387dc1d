#include "engine/acres.h"

#include <gtest/gtest.h>

namespace torvale {
namespace {

// 1,000 ft * 43.56 ft is one acre. The last row closes the field and owns no strip.
TEST(AcreCalc, LastRowOwnsNoStrip) {
  DesignRecord record;
  record.HoleRows = 3;
  for (int row = 1; row <= 3; ++row) {
    record.FurrowLength[row] = 1000;
    record.PlantedWidth[row] = 43.56F;
  }
  EXPECT_TRUE(AcreCalc(record));
  EXPECT_NEAR(static_cast<double>(record.TotalAcres), 2, 1e-6);
}

TEST(AcreCalc, OneRowOrNoneHasNoArea) {
  for (const std::int16_t rows : {std::int16_t{0}, std::int16_t{1}}) {
    DesignRecord record;
    record.HoleRows = rows;
    record.TotalAcres = 9;
    record.FurrowLength[1] = 1000;
    record.PlantedWidth[1] = 60;
    EXPECT_TRUE(AcreCalc(record));
    EXPECT_EQ(record.TotalAcres, 0);
  }
}

// 2,000 ft of the widest width that 32 bits hold, in each of many rows, is more acres than they hold.
TEST(AcreCalc, AreaBeyondTheRangeIsRefused) {
  DesignRecord record;
  record.HoleRows = 30;
  record.TotalAcres = 9;
  for (int row = 1; row <= 30; ++row) {
    record.FurrowLength[row] = 2000;
    record.PlantedWidth[row] = 3e38F;
  }
  EXPECT_FALSE(AcreCalc(record));
  EXPECT_EQ(record.TotalAcres, 0);
}

TEST(AcreCalc, RowPastTheArrayIsRefused) {
  DesignRecord record;
  record.HoleRows = 6000;
  EXPECT_FALSE(AcreCalc(record));
}

}  // namespace
}  // namespace torvale
