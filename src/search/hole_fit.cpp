#include "search/hole_fit.h"

#include "base/arithmetic.h"
#include "engine/hydraulics.h"

namespace torvale {
namespace {

// Flow out of row `i` with holes of `inches`, gallons per minute.
double FlowThrough(const DesignRecord& record, int i, float inches) {
  const double area = AreaByInches(inches, record.HolesPerFurrow[i]);
  return Finite(OrificeFlow(area, record.Head[i], record.DischargeCoef));
}

double Wanted(const DesignRecord& record, int i, FitFlow flow) {
  return Wide(flow.wanted) * Wide(record.FlowRatio[i]);
}

// Which of two neighbouring sizes row `i` takes. The differences are signed, so that the size of the lesser flow is the
// nearer one.
float Nearer(const DesignRecord& record, int i, FitFlow flow, float lower, double lower_flow, float upper) {
  const double wanted = Wanted(record, i, flow);
  return FlowThrough(record, i, upper) - wanted < lower_flow - wanted ? upper : lower;
}

float TableSize(const DesignRecord& record, int i, FitFlow flow) {
  const float ideal = record.HoleSizeIdeal[i];
  for (int size = 1; size < kHoleSizes; ++size) {
    if (ideal <= record.HoleSizeValue[size]) {
      // The flow of the lower size is not worked out here and counts as 0.
      return Nearer(record, i, flow, record.HoleSizeValue[size - 1], 0, record.HoleSizeValue[size]);
    }
    if (ideal > record.HoleSizeValue[kHoleSizes]) return record.HoleSizeValue[kHoleSizes];
  }
  return record.ComputerHoleDia[i];
}

float ListedSize(const DesignRecord& record, int i, FitFlow flow, int listed, int valued) {
  const float ideal = record.HoleSizeIdeal[i];
  for (int size = 1; size < listed; ++size) {
    const float upper = record.SelectedHoleValue[size];
    if (ideal <= upper) {
      const float lower = record.SelectedHoleValue[size - 1];
      return Nearer(record, i, flow, lower, FlowThrough(record, i, lower), upper);
    }
    if (ideal > record.SelectedHoleValue[listed - 1]) return record.SelectedHoleValue[valued - 1];
  }
  return record.LimitedHoleDia[i];
}

}  // namespace

void FitToTable(DesignRecord& record, FitFlow flow) {
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (record.HoleSizeIdeal[i] > 0) record.ComputerHoleDia[i] = TableSize(record, i, flow);
  }
}

void FitToList(DesignRecord& record, FitFlow flow, int listed, int valued) {
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (listed == 1) {
      record.LimitedHoleDia[i] = record.SelectedHoleValue[0];
    } else if (record.HoleSizeIdeal[i] > 0) {
      record.LimitedHoleDia[i] = ListedSize(record, i, flow, listed, valued);
    }
  }
}

}  // namespace torvale
