// The march against its plain reference, bit by bit, on random lines of every kind.
#include <gtest/gtest.h>

#include <bit>
#include <random>
#include <type_traits>

#include "engine/fake_engine_host.h"
#include "engine/naive_flow_calc.h"
#include "engine/sheet.h"
#include "record/hole_sizes.h"
#include "support/long_runs.h"

namespace torvale {
namespace {

// A line and all that its march reads.
struct Case {
  DesignRecord record;
  TextGrid sheet = Sheet({{"0", "", "", "", "8"}});
  std::string target_head;
  std::string survey_kind;
};

class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}
  int Whole(int low, int high) { return low + static_cast<int>(engine_() % static_cast<unsigned>(high - low + 1)); }
  double Real(double low, double high) { return low + (high - low) * static_cast<double>(engine_()) / 4294967295.0; }
  bool OneIn(int n) { return Whole(1, n) == 1; }

 private:
  std::mt19937 engine_;
};

void FillRow(DesignRecord& r, Random& random, int row, double& station, double fall) {
  station += random.OneIn(12) ? 0 : random.Whole(1, 20000) / 100.0;
  r.Station[row] = static_cast<float>(Int(station * 100 + 0.9) / 100);
  const bool watered = !random.OneIn(5);
  const int size = random.Whole(1, random.OneIn(10) ? 50 : 18);
  r.HoleDia[row] = watered ? static_cast<float>(static_cast<double>(r.HoleSizeValue[size]) / 12) : 0;
  r.ComputerHoleDia[row] = r.HoleSizeValue[random.Whole(0, 18)];
  r.LimitedHoleDia[row] = r.HoleSizeValue[random.Whole(0, 18)];
  r.HolesPerFurrow[row] = static_cast<std::int16_t>(random.Whole(watered ? 1 : 0, 3));
  if (random.OneIn(300)) r.HolesPerFurrow[row] = -1;
  r.FurrowLength[row] = static_cast<std::int16_t>(watered && !random.OneIn(10) ? random.Whole(100, 1320) : 0);
  r.FlowRatio[row] = static_cast<float>(random.OneIn(400) ? 0 : random.Real(0.5, 1.5));
  r.PlantedWidth[row] = static_cast<float>(random.Whole(30, 60));
  r.PipeDia[row] = row > 1 && !random.OneIn(6) ? r.PipeDia[row - 1] : static_cast<float>(random.Whole(4, 22));
  if (random.OneIn(800)) r.PipeDia[row] = 0;
  r.CrownElev[row] = static_cast<float>(100 + station * fall + random.Real(-0.1, 0.1));
  r.DesignElev[row] = static_cast<float>(100 + station * fall);
}

Case MakeCase(unsigned seed, int most_rows) {
  Random random(seed);
  Case made;
  DesignRecord& r = made.record;
  r.DesignType = static_cast<std::int16_t>(random.Whole(0, 6));
  r.HoleRows = static_cast<std::int16_t>(random.Whole(0, most_rows));
  r.SurveyRows = 1;
  r.WateredFurrows = r.HoleRows;
  r.TargetGPM = static_cast<float>(random.Real(20, 2000));
  if (random.OneIn(40)) r.TargetGPM = 0;
  r.HazenWilliamsC = static_cast<float>(random.OneIn(60) ? random.Whole(-1, 0) : random.Whole(90, 150));
  r.DischargeCoef = static_cast<float>(random.OneIn(60) ? -0.65 : random.Real(0.5, 1));
  r.SeedEndHead = static_cast<float>(random.Real(-0.5, 4));
  r.DesignOK = "True";
  made.target_head = GeneralText(random.Real(random.OneIn(20) ? -2 : 0, random.OneIn(20) ? 40 : 4));
  const char* const kinds[] = {"E", "R", "e", "E ", ""};
  made.survey_kind = kinds[random.Whole(0, 4)];
  double station = random.OneIn(2) ? 0 : random.Real(0, 100);
  const double fall = random.OneIn(3) ? 0 : random.Real(-0.02, 0.02);
  for (int row = 1; row <= r.HoleRows; ++row) FillRow(r, random, row, station, fall);
  return made;
}

template <typename T>
bool SameBits(const T& a, const T& b) {
  if constexpr (std::is_same_v<T, float>) {
    return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b);
  } else if constexpr (std::is_same_v<T, double>) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
  } else {
    return a == b;
  }
}

template <typename T>
void ExpectSameRows(const char* name, const RowArray<T>& a, const RowArray<T>& b) {
  for (int row = 0; row <= kLastRow; ++row) {
    ASSERT_TRUE(SameBits(a[row], b[row])) << name << "[" << row << "]: " << a[row] << " against " << b[row];
  }
}

void ExpectSameResults(const DesignRecord& a, const DesignRecord& b) {
  ExpectSameRows("Head", a.Head, b.Head);
  ExpectSameRows("HoleArea", a.HoleArea, b.HoleArea);
  ExpectSameRows("FurrowFlow", a.FurrowFlow, b.FurrowFlow);
  ExpectSameRows("PipeArea", a.PipeArea, b.PipeArea);
  ExpectSameRows("FurrowNumber", a.FurrowNumber, b.FurrowNumber);
  ExpectSameRows("NormFurrowFlow", a.NormFurrowFlow, b.NormFurrowFlow);
  ExpectSameRows("NormFurrowLength", a.NormFurrowLength, b.NormFurrowLength);
  EXPECT_TRUE(SameBits(a.AccumGPM, b.AccumGPM)) << a.AccumGPM << " against " << b.AccumGPM;
  EXPECT_EQ(a.WateredFurrows, b.WateredFurrows);
  EXPECT_TRUE(SameBits(a.TotalFurrowLength, b.TotalFurrowLength));
  EXPECT_TRUE(SameBits(a.TotalAcres, b.TotalAcres));
  EXPECT_TRUE(SameBits(a.MaxHead, b.MaxHead));
  EXPECT_TRUE(SameBits(a.MinHead, b.MinHead));
  EXPECT_EQ(a.MaxHeadStation, b.MaxHeadStation);
  EXPECT_EQ(a.MinHeadStation, b.MinHeadStation);
  EXPECT_TRUE(SameBits(a.MaxFurrowFlow, b.MaxFurrowFlow));
  EXPECT_TRUE(SameBits(a.MinFurrowFlow, b.MinFurrowFlow));
  EXPECT_EQ(a.DesignOK, b.DesignOK);
  EXPECT_EQ(a.CalcProblem, b.CalcProblem);
  EXPECT_EQ(a.FlowCalcStatus, b.FlowCalcStatus);
  EXPECT_EQ(a.CancelFlag, b.CancelFlag);
  EXPECT_EQ(a.MissingData, b.MissingData);
}

struct Ends {
  int converged = 0;
  int cancelled = 0;
  int try_limit = 0;
  int fault = 0;
};

// Runs both on the same line: the reference asked at every row, the march by a host that promises `idle` quiet yields.
void Compare(unsigned seed, int most_rows, long idle, long cancel_at, Ends& ends) {
  Case fast = MakeCase(seed, most_rows);
  Case slow = MakeCase(seed, most_rows);
  FakeEngineHost fast_host(idle);
  FakeEngineHost slow_host;
  if (cancel_at > 0) {
    fast_host.CancelAt(cancel_at, fast.record);
    slow_host.CancelAt(cancel_at, slow.record);
  }
  const FlowEnd fast_end = FlowCalc(fast.record, {fast.sheet, fast.target_head, fast.survey_kind}, fast_host);
  const FlowEnd slow_end = naive::FlowCalc(slow.record, {slow.sheet, slow.target_head, slow.survey_kind}, slow_host);
  SCOPED_TRACE("seed " + std::to_string(seed) + ", " + std::to_string(fast.record.HoleRows) + " rows, idle " +
               std::to_string(idle) + ", cancel at " + std::to_string(cancel_at));
  EXPECT_EQ(fast_end.tries, slow_end.tries);
  EXPECT_EQ(fast_end.way, slow_end.way);
  EXPECT_EQ(fast_end.fail_row, slow_end.fail_row);
  EXPECT_EQ(fast_host.yields, slow_host.yields);
  ExpectSameResults(fast.record, slow.record);
  switch (slow_end.way) {
    case FlowEnd::Way::kDone:
      ++ends.converged;
      break;
    case FlowEnd::Way::kCancelled:
      ++ends.cancelled;
      break;
    case FlowEnd::Way::kTryLimit:
      ++ends.try_limit;
      break;
    case FlowEnd::Way::kFault:
      ++ends.fault;
      break;
  }
}

unsigned Times(unsigned count) {
  return LongRun(count, count * 8, count * 40);
}

TEST(FlowCalcReference, RandomLines) {
  Ends ends;
  for (unsigned seed = 1; seed <= Times(1500) && !testing::Test::HasFailure(); ++seed) {
    const long idles[] = {0, 1, 7, 40, 1000000000};
    Compare(seed, 40, idles[seed % 5], 0, ends);
  }
  // Every way out must have been taken often, or the comparison would say little.
  EXPECT_GT(ends.converged, 300);
  EXPECT_GT(ends.try_limit, 100);
  EXPECT_GT(ends.fault, 50);
}

TEST(FlowCalcReference, RandomLongLines) {
  Ends ends;
  for (unsigned seed = 1; seed <= Times(40) && !testing::Test::HasFailure(); ++seed) {
    Compare(seed, 700, 1000000000, 0, ends);
  }
  EXPECT_GT(ends.converged + ends.try_limit, 10);
}

TEST(FlowCalcReference, CancelledAtAnyYield) {
  Ends ends;
  Random random(5);
  for (unsigned seed = 1; seed <= Times(400) && !testing::Test::HasFailure(); ++seed) {
    const long idles[] = {0, 3, 1000000000};
    Compare(seed, 40, idles[seed % 3], random.Whole(1, 300), ends);
  }
  EXPECT_GT(ends.cancelled, 200);
}

}  // namespace
}  // namespace torvale
