#include "engine/slope_field.h"

#include "base/arithmetic.h"
#include "record/kinds.h"

namespace torvale {

void PrepareSlopeField(const Design& record, double first_head, std::string_view survey_kind, SlopeField& field) {
  const int rows = record.HoleRows;
  const auto size = static_cast<std::size_t>(rows) + 1;
  field.elevations = ReadsElevations(survey_kind);
  field.grows_downward = ReadsRods(survey_kind);
  PrepareLine(record, field.elevations, field.line);
  field.target = record.TargetGPM;
  field.first_head = first_head;
  field.crown_beyond = record.DesignElev[0];
  field.first_crown = record.CrownElev[1];
  field.low_quarter = record.LowQuarter;
  field.average_flow = record.AverageFurrowFlow;
  field.span.assign(size, 0);
  for (int row = 2; row <= rows; ++row) {
    field.span[static_cast<std::size_t>(row)] = SpanInFeet(record.Station[row], record.Station[row - 1]);
  }
  field.furrow_length.assign(record.FurrowLength.data(), record.FurrowLength.data() + size);
  field.flow_ratio.assign(record.FlowRatio.data(), record.FlowRatio.data() + size);
}

void LayCrownAt(float slope, const float* span, int rows, bool grows_downward, float* crown) {
  const double sign = grows_downward ? 1 : -1;
  for (int i = 2; i <= rows; ++i) {
    const float drop = Store32(Wide(slope) * Wide(span[i]));
    crown[i] = Store32(crown[i - 1] + sign * drop);
  }
}

}  // namespace torvale
