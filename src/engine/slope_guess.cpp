#include "engine/slope_guess.h"

#include <algorithm>
#include <cmath>

#include "base/arithmetic.h"

namespace torvale {
namespace {

constexpr double kTolerance = 0.0005;
constexpr double kLeastSpread = 5e-4;  // feet between two marches that tell how the flow grows
constexpr double kMostSpread = 0.1;
constexpr double kLeastGap = 1e-9;  // feet of mean rise below which two crowns count as one

double SquareOf(const MarchedHead& marched) {
  return Wide(marched.flow) * Wide(marched.flow);
}

}  // namespace

void FlowModel::Take(const MarchedHead& marched, float target) {
  if (marched.flow < target) {
    if (!has_low || marched.head > low.head) low = marched;
    has_low = true;
  } else {
    if (!has_high || marched.head < high.head) high = marched;
    has_high = true;
  }
}

double HeadGuess::FlowAt(double other) const {
  return std::sqrt(std::max(0.0, SquareAt(other)));
}

Judgement HeadGuess::Of(double other) const {
  if (other <= negative) return Judgement::kNegative;
  const double squared = SquareAt(other);
  if (squared <= least) return Judgement::kTooLittle;
  return squared >= most ? Judgement::kTooMuch : Judgement::kMeets;
}

const SlopeGuess::Node* SlopeGuess::NodeAt(int ordinal) const {
  const Node& node = nodes_[(ordinal + kNodes) % kNodes];
  return node.ordinal == ordinal ? &node : nullptr;
}

// A node some `reach` trials before another, of another rise; the nearest there is where none goes back that far.
const SlopeGuess::Node* SlopeGuess::Earlier(const Node& node, int reach) const {
  for (int back = std::min(reach, node.ordinal + 1); back > 0; back /= 2) {
    const Node* const earlier = NodeAtOrBefore(node.ordinal - back);
    if (earlier != nullptr && std::fabs(earlier->rise - node.rise) > kLeastGap) return earlier;
  }
  return nullptr;
}

const SlopeGuess::Node* SlopeGuess::NodeAtOrBefore(int ordinal) const {
  for (int tried = 0; tried < kNodes / 2 && ordinal >= -1; ++tried, --ordinal) {
    if (const Node* node = NodeAt(ordinal)) return node;
  }
  return nullptr;
}

void SlopeGuess::Begin(double end_head, double flow, double lowest_head, const FlowBounds& bounds,
                       const SlopeCurve& curve) {
  target_ = bounds.target;
  gain_ = bounds.gain;
  const double root = end_head + (target_ * target_ - flow * flow) / gain_;
  curve_ = curve;
  nodes_[kNodes - 1] = {-1, 0, root - curve_.RootAt(0), end_head - lowest_head - curve_.DropAt(0)};
  known_ = 0;
}

HeadGuess SlopeGuess::For(int ordinal, const FlowModel& model) const {
  HeadGuess guess;
  const auto squared = [](double x) { return x * x; };
  guess.least = squared(target_ * (1 - kTolerance));
  guess.most = squared(target_ * (1 + kTolerance));
  guess.gain = gain_;
  if (model.has_low || model.has_high) {
    guess.gain = GainBy(model);
    const MarchedHead& marched = Nearest(model, guess.gain);
    guess.head = marched.head;
    guess.square = SquareOf(marched);
    guess.certified = marched.head - marched.lowest;
    guess.negative = guess.certified + negative_;
    // A head that was marched can't have gone negative.
    const double lowest = std::min(model.has_low ? model.low.head : marched.head, marched.head);
    if (guess.negative >= lowest) guess.negative = guess.certified;
    guess.margin = 1e-5;
    return guess;
  }
  guess.square = squared(target_);
  const Node& first = *NodeAtOrBefore(std::min(ordinal, newest_));
  const double x = model.mean_rise;
  double root = first.root;
  double drop = first.drop;
  const int reach = std::max(1, ordinal - first.ordinal);
  const Node* const second = Earlier(first, reach);
  if (second != nullptr) {
    const double slope = (first.root - second->root) / (first.rise - second->rise);
    root = first.root + slope * (x - first.rise);
    drop += (first.drop - second->drop) / (first.rise - second->rise) * (x - first.rise);
    if (const Node* const third = Earlier(*second, reach); third != nullptr) {
      const double before = (second->root - third->root) / (second->rise - third->rise);
      root += (slope - before) / (first.rise - third->rise) * (x - first.rise) * (x - second->rise);
    }
  }
  guess.head = curve_.RootAt(x) + root;
  guess.certified = curve_.DropAt(x) + drop;
  guess.negative = guess.certified + negative_;
  guess.margin = 1e-4;
  return guess;
}

double SlopeGuess::RootBy(const MarchedHead& marched, double gain) const {
  return marched.head + (target_ * target_ - SquareOf(marched)) / gain;
}

// Two marches near each other tell the gain; two too near drown it in the rounding of their flows.
double SlopeGuess::GainBy(const FlowModel& model) const {
  if (!model.has_low || !model.has_high) return gain_;
  const double spread = model.high.head - model.low.head;
  const double gain = (SquareOf(model.high) - SquareOf(model.low)) / spread;
  const bool learned = known_ > 0;
  return spread > kLeastSpread && (spread < kMostSpread || !learned) ? gain : gain_;
}

const MarchedHead& SlopeGuess::Nearest(const FlowModel& model, double gain) const {
  if (!model.has_high) return model.low;
  if (!model.has_low) return model.high;
  const double to_high = std::fabs(RootBy(model.high, gain) - model.high.head);
  const double to_low = std::fabs(RootBy(model.low, gain) - model.low.head);
  return to_high < to_low ? model.high : model.low;
}

void SlopeGuess::LearnNegative(const FlowModel& model, double negative) {
  const MarchedHead& nearest = Nearest(model, gain_);
  negative_ = std::max(0.0, negative - (nearest.head - nearest.lowest));
}

void SlopeGuess::Learn(int ordinal, const FlowModel& model) {
  if (!model.has_low && !model.has_high) return;
  gain_ = GainBy(model);
  const MarchedHead& nearest = Nearest(model, gain_);
  Node& node = nodes_[ordinal % kNodes];
  if (node.ordinal != ordinal) ++known_;
  const double rise = model.mean_rise;
  node = {ordinal, rise, RootBy(nearest, gain_) - curve_.RootAt(rise),
          nearest.head - nearest.lowest - curve_.DropAt(rise)};
  newest_ = std::max(newest_, ordinal);
}

}  // namespace torvale
