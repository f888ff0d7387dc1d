#include "search/best_grade.h"

#include <cmath>
#include <string>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "search/elev_adjust.h"
#include "search/flow_run.h"

namespace torvale {
namespace {

// Four fifths of the least squares slope of head plus friction loss against station, over the rows with holes.
double EasedSlope(const DesignRecord& record) {
  int rows = 0;
  double sum_x = 0;
  double sum_y = 0;
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!(record.SurveyHoleDia[i] > 0)) continue;
    ++rows;
    sum_x += record.Station[i];
    sum_y += record.Head[i] + record.FrictionLoss[i];
  }
  const double mean_x = Divide(sum_x, rows);
  const double mean_y = Divide(sum_y, rows);
  double sxy = 0;
  double sxx = 0;
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (!(record.SurveyHoleDia[i] > 0)) continue;
    const double x = record.Station[i] - mean_x;
    sxy += x * (record.Head[i] + record.FrictionLoss[i] - mean_y);
    sxx += x * x;
  }
  return Divide(0.8 * sxy, sxx);
}

}  // namespace

void CalConstantSlopeElev(DesignRecord& record) {
  for (int i = 2; i <= record.HoleRows; ++i) record.DesignElev[i] = record.DesignElev[i - 1];
}

void BestGrade(Program& program) {
  DesignRecord& record = program.record;
  CalConstantSlopeElev(record);
  const double slope = EasedSlope(record);
  for (int i = 2; i <= record.HoleRows; ++i) {
    if (!(record.SurveyHoleDia[i] > 0)) continue;
    const double span = Wide(record.Station[i]) - Wide(record.Station[i - 1]);
    record.DesignElev[i] = Store32(record.DesignElev[i - 1] - span * slope);
  }
  const std::string shown = Format(std::fabs(100 * slope), "0.00");
  record.CrownSlope = Store32(Val(shown));
  program.main.lblCrownSlope.caption = "Crown Slope = " + shown + " feet per 100 feet";
  LiftCrown(program);
  int tries = 0;
  RunFlowCalc(program, tries);
}

}  // namespace torvale
