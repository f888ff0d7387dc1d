// Marches in lanes against the march of one line, bit by bit.
#include "engine/wide_march.h"

#include <gtest/gtest.h>

#include <bit>
#include <memory>

#include "engine/trial_crew.h"
#include "support/lanes_here.h"
#include "support/random_slope_field.h"

namespace torvale {
namespace {

template <typename T>
auto Bits(T value) {
  if constexpr (sizeof(T) == 4) {
    return std::bit_cast<std::uint32_t>(value);
  } else {
    return std::bit_cast<std::uint64_t>(value);
  }
}

// The whole march of one line, as far as a negative head lets it come.
struct Alone {
  Alone(const Line& line, double end_head) {
    const auto size = static_cast<std::size_t>(line.rows) + 1;
    head.assign(size, 0);
    flow.assign(size, 0);
    area.assign(size, 0);
    head.back() = end_head;
    const Profile profile = {head.data(), flow.data(), area.data()};
    MarchPlace place = {line.rows, 0};
    MarchRows(line, profile, place, line.rows);
    negative = head[static_cast<std::size_t>(place.row)] < 0;
    if (negative) return;
    TakeOrifice(line, profile, place);
    CarryHead(line, profile, place);
    sum = place.flow;
  }
  std::vector<double> head;
  std::vector<float> flow, area;
  float sum = 0;
  bool negative = false;
};

struct Counts {
  int marched = 0;
  int negative = 0;
};

// Crowns of as many slopes as the form takes, heads from nothing to more than is wanted.
void CompareForm(const SlopeField& field, VectorLanes lanes, RandomSlopeField& random, Counts& counts) {
  const WideForm form = FormOf(lanes);
  const int rows = field.line.rows;
  const auto size = static_cast<std::size_t>(rows) + 1;
  std::vector<WideRow> wide_rows(size);
  for (std::size_t i = 1; i < size; ++i) {
    wide_rows[i] = {static_cast<double>(field.line.opening[i]), field.line.length[i], field.line.dia_power[i], 0};
  }
  const WideLine wide = {wide_rows.data(),           rows,
                         field.line.friction_factor, field.line.discharge_coef,
                         field.elevations,           random.Whole(-20, 20)};
  AlignedFloats crowns;
  AlignedFloats flows;
  crowns.Allocate(size * static_cast<std::size_t>(form.slots));
  flows.Allocate(size * static_cast<std::size_t>(form.jobs));
  std::vector<std::vector<float>> crown(static_cast<std::size_t>(form.slots), std::vector<float>(size));
  for (int slot = 0; slot < form.slots; ++slot) {
    std::vector<float>& laid = crown[static_cast<std::size_t>(slot)];
    laid[0] = field.crown_beyond;
    laid[1] = field.first_crown;
    const auto slope = static_cast<float>(random.Real(-0.002, 0.002));
    LayCrownAt(slope, field.span.data(), rows, field.grows_downward, laid.data());
    for (std::size_t i = 0; i < size; ++i)
      crowns.data()[i * static_cast<std::size_t>(form.slots) + static_cast<std::size_t>(slot)] = laid[i];
  }
  WideJobs jobs;
  for (int job = 0; job < form.jobs; ++job) {
    jobs.head[job] = random.OneIn(10) ? 0 : random.Real(0, 4);
    jobs.slot[job] = random.Whole(0, form.slots - 1);
  }
  const int count = random.Whole(1, form.jobs);
  form.march(wide, crowns.data(), jobs, count, flows.data());
  Line line = field.line;
  for (int job = 0; job < count; ++job) {
    LayOnLine(crown[static_cast<std::size_t>(jobs.slot[job])].data(), field.elevations, line);
    const Alone alone(line, jobs.head[job]);
    ++counts.marched;
    ASSERT_EQ(jobs.lowest[job] < 0, alone.negative);
    if (alone.negative) {
      ++counts.negative;
      continue;
    }
    ASSERT_EQ(Bits(jobs.flow[job]), Bits(alone.sum));
    ASSERT_EQ(Bits(jobs.beyond[job]), Bits(alone.head[0]));
    const auto [low, high] = std::minmax_element(alone.head.begin() + 1, alone.head.end());
    ASSERT_EQ(jobs.lowest[job], *low);
    ASSERT_EQ(jobs.highest[job], *high);
    for (int row = 1; row <= rows; ++row) {
      const auto i = static_cast<std::size_t>(row);
      if (!(line.opening[i] > 0)) continue;
      ASSERT_EQ(Bits(flows.data()[FlowPlace(form.width, rows, job, row)]), Bits(alone.flow[i]))
          << "row " << row << ", job " << job;
    }
  }
}

TEST(WideMarch, EveryLaneGivesTheBitsOfOneMarch) {
  Counts counts;
  for (unsigned seed = 1; seed <= 300 && !HasFailure(); ++seed) {
    RandomSlopeField random(seed);
    const auto record = std::make_unique<DesignRecord>();
    random.Fill(*record, 150);
    SlopeField field;
    PrepareSlopeField(*record, 2, random.SurveyKind(), field);
    if (field.line.rows < 1 || !IsMonotone(field.line, 1000)) continue;
    for (const VectorLanes lanes : LanesHere()) {
      SCOPED_TRACE("seed " + std::to_string(seed) + ", lanes " + std::to_string(static_cast<int>(lanes)));
      CompareForm(field, lanes, random, counts);
    }
  }
  EXPECT_GT(counts.marched, 3000);
  EXPECT_GT(counts.negative, 300);
  EXPECT_LT(counts.negative, counts.marched / 2);
}

}  // namespace
}  // namespace torvale
