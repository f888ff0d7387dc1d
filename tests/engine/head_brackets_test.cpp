// What marches tell of the marches beyond them.
#include "engine/head_brackets.h"

#include <gtest/gtest.h>

#include <memory>

#include "engine/end_head.h"
#include "support/random_slope_field.h"

namespace torvale {
namespace {

TEST(HeadBrackets, NothingIsCertainAtFirstButANegativeHead) {
  const HeadBrackets brackets;
  EXPECT_EQ(brackets.Of(-0.001), Verdict::kNegative);
  for (const double head : {0.0, 1.0, 100.0}) EXPECT_EQ(brackets.Of(head), Verdict::kUnknown);
}

// 100 gallons per minute are wanted. At 1 ft there are 80, at 3 ft 130: between them nothing is known but what the
// bounds reach.
TEST(HeadBrackets, MarchesTellOfHeadsBeyondThem) {
  const FlowBounds bounds = {100, 1000, 1, 1};
  HeadBrackets brackets;
  TakeMarch(bounds, {1, 80, 0.4, 1.5}, brackets);
  TakeMarch(bounds, {3, 130, 2.4, 3.5}, brackets);
  EXPECT_EQ(brackets.Of(1), Verdict::kTooLittle);
  EXPECT_EQ(brackets.Of(3), Verdict::kTooMuch);
  EXPECT_EQ(brackets.Of(9), Verdict::kTooMuch);
  // 130^2 is above 99.95^2 by 6,910, so that not before 6.91 ft below 3 there is surely too little.
  EXPECT_EQ(brackets.Of(2), Verdict::kUnknown);
  // The lowest head at 1 ft is 0.4: from 0.6 ft less a hair down some head goes negative, in between nothing is known.
  EXPECT_EQ(brackets.Of(0.5999), Verdict::kNegative);
  EXPECT_EQ(brackets.Of(0.61), Verdict::kUnknown);
  TakeRise(0.7, brackets);
  EXPECT_EQ(brackets.Of(0.71), Verdict::kTooLittle);
  EXPECT_EQ(brackets.Of(0.69), Verdict::kUnknown);
}

// At 2 ft there are the 100 wanted. 100.0501^2 is 10.02 more, 99.9499^2 is 10.02 less: 0.01002 ft at a gain of 1,000.
TEST(HeadBrackets, AMarchThatMeetsTheTargetCertifiesItsNeighbours) {
  const FlowBounds bounds = {100, 1000, 1, 1};
  HeadBrackets brackets;
  TakeMarch(bounds, {2, 100, 1.4, 2.5}, brackets);
  EXPECT_EQ(brackets.Of(2.0101), Verdict::kTooMuch);
  EXPECT_EQ(brackets.Of(2.0099), Verdict::kUnknown);
  EXPECT_EQ(brackets.Of(2.0), Verdict::kUnknown);
  EXPECT_EQ(brackets.Of(1.9901), Verdict::kUnknown);
  // Too little, or negative: that it isn't negative is not known.
  EXPECT_EQ(brackets.Of(1.9899), Verdict::kUnknown);
  TakeRise(0, brackets);
  EXPECT_EQ(brackets.Of(1.9899), Verdict::kTooLittle);
}

TEST(HeadBrackets, ANegativeMarchTellsOfLowerOnes) {
  HeadBrackets brackets;
  TakeMarch({100, 1000, 1, 1}, {1.5, 0, -0.2, 0}, brackets);
  EXPECT_EQ(brackets.Of(1.5), Verdict::kNegative);
  EXPECT_EQ(brackets.Of(1.6), Verdict::kUnknown);
}

// A march from `end_head`, as far as it comes.
MarchedHead Marched(const Line& line, double end_head) {
  std::vector<double> head(static_cast<std::size_t>(line.rows) + 1);
  std::vector<float> flow(head.size());
  std::vector<float> area(head.size());
  head.back() = end_head;
  const Profile profile = {head.data(), flow.data(), area.data()};
  MarchPlace place = {line.rows, 0};
  MarchRows(line, profile, place, line.rows);
  if (head[static_cast<std::size_t>(place.row)] < 0) return {end_head, 0, -1, 0};
  TakeOrifice(line, profile, place);
  const auto [low, high] = std::minmax_element(head.begin() + 1, head.end());
  return {end_head, place.flow, *low, *high};
}

// Every verdict that follows from one march is what the march itself gives, at heads all around it.
TEST(HeadBrackets, VerdictsAreWhatMarchesGive) {
  int certain = 0;
  for (unsigned seed = 1; seed <= 300 && !HasFailure(); ++seed) {
    RandomSlopeField random(seed);
    const auto record = std::make_unique<DesignRecord>();
    random.Fill(*record, 100);
    SlopeField field;
    PrepareSlopeField(*record, 2, random.SurveyKind(), field);
    const Line& line = field.line;
    if (line.rows < 2 || !(field.target > 0) || !IsMonotone(line, 1000)) continue;
    const FlowBounds bounds = BoundsOf(line, field.target);
    const double head = random.Real(0, 3);
    HeadBrackets brackets;
    TakeMarch(bounds, Marched(line, head), brackets);
    for (int i = 0; i < 40; ++i) {
      const double other = std::max(0.0, head + random.Real(-1, 1) * std::pow(10, -random.Whole(0, 5)));
      const Verdict verdict = brackets.Of(other);
      if (verdict == Verdict::kUnknown) continue;
      ++certain;
      const MarchedHead made = Marched(line, other);
      const Verdict real = made.lowest < 0                        ? Verdict::kNegative
                           : MeetsTarget(made.flow, field.target) ? Verdict::kUnknown
                           : made.flow < field.target             ? Verdict::kTooLittle
                                                                  : Verdict::kTooMuch;
      EXPECT_EQ(verdict, real) << "seed " << seed << ", from " << head << " to " << other;
    }
  }
  EXPECT_GT(certain, 2000);
}

}  // namespace
}  // namespace torvale
