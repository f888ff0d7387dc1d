// The line and the furrows that a slope search works on, and the crowns that it lays.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "base/arithmetic.h"
#include "engine/line.h"
#include "record/design_record.h"

namespace torvale {

// What all trials of a search share. The `rise` of the line belongs to the trial.
struct SlopeField {
  Line line;
  float target = 0;             // gallons per minute
  double first_head = 0;        // feet; where each search on the far-end head begins
  float crown_beyond = 0;       // the element ahead of row 1, which counts as upstream of it
  float first_crown = 0;        // of row 1, where every crown is laid from
  std::vector<float> span;      // feet from the row before, in 32 bits; rows 2 and up
  bool grows_downward = false;  // rod readings, by the letter "R": larger is lower ground, when a crown is laid
  bool elevations = false;      // by the letter "E": when it is marched
  std::vector<std::int16_t> furrow_length;  // feet
  std::vector<float> flow_ratio;
  float low_quarter = 0;
  float average_flow = 0;  // gallons per minute
};

// The field of the record, for design types 2 and 3. What can't be read is a RunTimeFault.
void PrepareSlopeField(const Design& record, double first_head, std::string_view survey_kind, SlopeField& field);

// Feet from one station to the next as a crown is laid by: in 32 bits.
inline float SpanInFeet(float station, float station_before) {
  return Narrow(Wide(station) - Wide(station_before));
}

// Lays a crown of `rows` rows from `crown[1]` on, falling where `slope` is above 0. Product and sum are rounded to 32
// bits at each row; beyond them is a RunTimeFault. Row 1 and the element ahead of it stay.
void LayCrownAt(float slope, const float* span, int rows, bool grows_downward, float* crown);

}  // namespace torvale
