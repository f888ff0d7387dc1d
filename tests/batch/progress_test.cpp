#include "batch/progress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace torvale {
namespace {

// 50 fields in 10 seconds are 5 a second; the other 950 take 190 seconds more, which are 3:10.
TEST(Progress, TellsRateAndTimeLeft) {
  EXPECT_EQ(ProgressText(50, 3, 1000, 10), "50 of 1000 fields, 5.0 a second, 3:10 left, 3 refused");
  EXPECT_EQ(ProgressText(0, 0, 1000, 10), "0 of 1000 fields");
  EXPECT_EQ(ProgressText(1, 0, 1, 0.05), "1 of 1 field, 20 a second");
  // 99,990 fields at one in ten seconds: 999,900 seconds are 277 hours and 45 minutes.
  EXPECT_EQ(ProgressText(10, 0, 100'000, 100), "10 of 100000 fields, 0.1 a second, 277:45:00 left");
}

TEST(Progress, DrawsABarOverItself) {
  std::ostringstream out;
  Progress progress(out, Progress::Kind::kBar, 2);
  progress.End(1, 0);
  EXPECT_TRUE(out.str().starts_with("\r[############............] 1 of 2 fields")) << out.str();
  EXPECT_TRUE(out.str().ends_with("\n"));
}

TEST(Progress, SaysNothingWhereNothingIsAskedFor) {
  std::ostringstream out;
  Progress(out, Progress::Kind::kNone, 2).End(2, 0);
  EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace torvale
