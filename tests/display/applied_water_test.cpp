#include "display/applied_water.h"

#include <gtest/gtest.h>

#include "display/small_line.h"

namespace torvale {
namespace {

std::string AppliedRow(const SmallLine& line, int row) {
  const Grid& grid = line.main.GridInchesApplied;
  return grid.Text(row, 0) + "|" + grid.Text(row, 1) + "|" + grid.Text(row, 2);
}

// 12 acres at 1000 GPM: 12 x 27154.285 / 1000 / 60 = 5.430857 hours for an inch. The hours are kept to one decimal,
// and the days are those of the hours shown: 5.4 / 24 = 0.225, ".2".
TEST(AcreInchPumped, ShowsHoursAndDays) {
  SmallLine line;
  line.record.TotalAcres = 12;
  line.main.txtInfo[2].Set("1000");
  line.main.GridInchesApplied.control.visible = false;
  AcreInchPumped(line.program);
  EXPECT_TRUE(line.main.GridInchesApplied.control.visible);
  EXPECT_EQ(AppliedRow(line, 1), "0.5|2.7|.1");   // 2.715; 0.1125
  EXPECT_EQ(AppliedRow(line, 2), "1.0|5.4|.2");   // 5.431; 0.225
  EXPECT_EQ(AppliedRow(line, 3), "1.5|8.1|.3");   // 8.146; 0.3375
  EXPECT_EQ(AppliedRow(line, 4), "2.0|10.9|.5");  // 10.862; 0.4542
  EXPECT_EQ(AppliedRow(line, 5), "3.0|16.3|.7");  // 16.293; 0.6792
  EXPECT_EQ(line.record.HoursHalfInch, 2.7F);
  EXPECT_EQ(line.record.HoursOneInch, 5.4F);
  EXPECT_EQ(line.record.HoursOneHalfInch, 8.1F);
  EXPECT_EQ(line.record.HoursTwoInch, 10.9F);
  EXPECT_EQ(line.record.HoursThreeInch, 16.3F);
}

// At 13577.1425 GPM half an inch takes acres / 60 hours: 70.2 / 60 = 1.17, shown as 1.2. The days are 1.2 / 24 = 0.05,
// ".1", where 1.17 / 24 would be ".0".
TEST(AcreInchPumped, TakesTheDaysFromTheHoursAsShown) {
  SmallLine line;
  line.record.TotalAcres = 70.2F;
  line.main.txtInfo[2].Set("13577.1425");
  AcreInchPumped(line.program);
  EXPECT_EQ(AppliedRow(line, 1), "0.5|1.2|.1");
}

// The hours follow the pumped flow as typed, not the flow of all holes.
TEST(AcreInchPumped, TakesTheFlowAsTyped) {
  SmallLine line;
  line.record.TotalAcres = 12;
  line.record.AccumGPM = 1000;
  line.record.TargetGPM = 1000;
  line.main.txtInfo[2].Set("500 gpm");
  AcreInchPumped(line.program);
  EXPECT_EQ(AppliedRow(line, 2), "1.0|10.9|.5");  // 10.862 hours
}

TEST(AcreInchPumped, ShowsNoHoursForNoField) {
  SmallLine line;
  line.main.txtInfo[2].Set("1000");
  AcreInchPumped(line.program);
  EXPECT_EQ(AppliedRow(line, 2), "1.0|0|.0");
}

TEST(AcreInchPumped, ShowsNoHoursForNoFlow) {
  SmallLine line;
  line.record.TotalAcres = 12;
  line.record.HoursOneInch = 5;
  line.main.txtInfo[2].Set("");
  AcreInchPumped(line.program);
  EXPECT_EQ(AppliedRow(line, 2), "1.0|0|.0");
  EXPECT_EQ(line.record.HoursOneInch, 0);
}

}  // namespace
}  // namespace torvale
