// Where a trial of a slope search will end: guesses, on which nothing but the work depends.
#pragma once

#include "engine/end_head_replay.h"
#include "engine/head_brackets.h"
#include "engine/slope_curve.h"

namespace torvale {

// What the marches of one trial have told so far. The square of the flow is nearly a straight line of the head.
struct FlowModel {
  double mean_rise = 0;  // feet from the far end up to the holes, by their area
  bool has_low = false;
  bool has_high = false;
  MarchedHead low;   // the highest head of too little flow
  MarchedHead high;  // the lowest of too much

  void Take(const MarchedHead& marched, float target);
};

// A guess at every march of one trial.
struct HeadGuess {
  double head = 0;       // a head
  double square = 0;     // of the flow there
  double gain = 0;       // of the square of the flow with each foot
  double least = 0;      // square of the lowest flow that meets the target
  double most = 0;       // of the highest
  double negative = 0;   // up to this head marches go negative
  double certified = 0;  // below this one a march at the end will prove it
  double margin = 0;     // feet that the guess may be off

  double SquareAt(double other) const { return square + gain * (other - head); }
  double FlowAt(double other) const;
  Judgement Of(double other) const;
};

// Learns from the marches of the trials. The far-end head that meets the target follows the mean rise of the crown
// from the far end to the holes: by the curve of a rough line, where there is one, and by a parabola through what three
// trials, further apart the further ahead it must reach, differ from it.
class SlopeGuess {
 public:
  void Begin(double end_head, double flow, double lowest_head, const FlowBounds& bounds, const SlopeCurve& curve = {});
  HeadGuess For(int ordinal, const FlowModel& model) const;
  // Takes what the marches of a trial have told.
  void Learn(int ordinal, const FlowModel& model);
  // Takes where the marches of a solved trial went negative.
  void LearnNegative(const FlowModel& model, double negative);
  // Trials that have been marched.
  int known() const { return known_; }

 private:
  struct Node {
    int ordinal = -2;
    double rise = 0;
    double root = 0;  // far-end head of exactly the target, beyond the curve's
    double drop = 0;  // from there to the lowest head, beyond the curve's
  };
  static constexpr int kNodes = 256;

  const Node* NodeAt(int ordinal) const;
  const Node* NodeAtOrBefore(int ordinal) const;
  const Node* Earlier(const Node& node, int reach) const;
  double RootBy(const MarchedHead& marched, double gain) const;
  double GainBy(const FlowModel& model) const;
  const MarchedHead& Nearest(const FlowModel& model, double gain) const;

  SlopeCurve curve_;
  Node nodes_[kNodes];
  int newest_ = -1;
  int known_ = 0;
  double target_ = 0;
  double gain_ = 0;
  double negative_ = 0;  // feet that marches of the last solved trial went negative above what is certain
};

}  // namespace torvale
