#include "engine/flow_calc.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "base/power.h"
#include "engine/acres.h"
#include "engine/march.h"
#include "engine/survey.h"

namespace torvale {
namespace {

bool IsSlopeDesign(const DesignRecord& record) {
  return record.DesignType == kConstantSlope || record.DesignType == kDualSlope;
}

bool IsHoleSelection(const DesignRecord& record) {
  return record.DesignType == kComputerHoles || record.DesignType == kLimitedHoles;
}

// Square feet of all holes of a row, by the hole that the design type gives it.
float Opening(const DesignRecord& record, int row) {
  const double holes = record.HolesPerFurrow[row];
  if (!IsHoleSelection(record)) {
    const double feet = static_cast<double>(record.HoleDia[row]);
    return Store32(feet * feet * 3.14 / 4 * holes);
  }
  const double inches = static_cast<double>(record.DesignType == kComputerHoles ? record.ComputerHoleDia[row]
                                                                                : record.LimitedHoleDia[row]);
  return Store32(inches * inches * 3.14 / 4 / 144 * holes);
}

// A power that can't be formed becomes no number, which stops the march at the row that needs it and not before.
double PowerOrNone(double base, double exponent) {
  try {
    return Power(base, exponent);
  } catch (const RunTimeFault&) {
    return std::numeric_limits<double>::quiet_NaN();
  }
}

Line PrepareLine(const DesignRecord& record, bool elevations) {
  const int rows = record.HoleRows;
  const auto size = static_cast<std::size_t>(rows) + 1;
  Line line{rows,
            std::vector<float>(size),
            std::vector<unsigned char>(size),
            std::vector<double>(size),
            std::vector<double>(size),
            std::vector<double>(size),
            0,
            static_cast<double>(record.DischargeCoef)};
  const double roughness = static_cast<double>(record.HazenWilliamsC);
  line.friction_factor = 0.2083 * PowerOrNone(roughness == 0 ? -1 : 100 / roughness, 1.852);
  const RowArray<float>& crown = IsSlopeDesign(record) ? record.DesignElev : record.CrownElev;
  for (int row = 1; row <= rows; ++row) {
    const auto i = static_cast<std::size_t>(row);
    line.watered[i] = record.HoleDia[row] > 0;
    if (line.watered[i] != 0) line.opening[i] = Opening(record, row);
    line.length[i] =
        Hundredths(static_cast<double>(record.Station[row]) - static_cast<double>(record.Station[row - 1]));
    line.dia_power[i] = row > 1 && record.PipeDia[row] == record.PipeDia[row - 1]
                            ? line.dia_power[i - 1]
                            : PowerOrNone(static_cast<double>(record.PipeDia[row]), 4.866);
    const double here = static_cast<double>(crown[row]);
    const double upstream = static_cast<double>(crown[row - 1]);
    line.rise[i] = elevations ? upstream - here : here - upstream;
  }
  return line;
}

enum class Outcome { kConverged, kNoRows, kCancelled, kTryLimit };

// The search on the far-end head: marches, counts, corrects.
class Search {
 public:
  Search(DesignRecord& record, EngineHost& host, const Line& line, int& tries)
      : record_(record),
        host_(host),
        line_(line),
        profile_{record.Head.data(), record.FurrowFlow.data(), record.HoleArea.data()},
        tries_(tries),
        place_{line.rows, 0} {}

  Outcome Run() {
    if (place_.row == 0) return Outcome::kNoRows;
    try {
      const Outcome outcome = Loop();
      Leave();
      return outcome;
    } catch (const RunTimeFault&) {
      PassOver(stretch_ - 1, place_.row);  // the row of the fault had its yield, too
      Leave();
      throw;
    }
  }

  int fail_row() const { return fail_row_; }

 private:
  Outcome Loop() {
    for (;;) {
      if (!Yield()) return Outcome::kCancelled;
      if (profile_.head[place_.row] < 0) GoToHeadOfLine();
      stretch_ = place_.row;
      if (place_.row == 1) {
        TakeOrifice(line_, profile_, place_);
        if (Converged()) return Outcome::kConverged;
        CarryHead(line_, profile_, place_);
        if (tries_ == kTryLimit) return Outcome::kTryLimit;
        CountTry(1);
        CorrectEndHead(profile_.head[line_.rows], last_step_, place_.flow, record_.TargetGPM);
        place_ = {line_.rows, 0};
        continue;
      }
      MarchRows(line_, profile_, place_, tries_ == kTryLimit ? 1 : RowsUntilYield());
      PassOver(stretch_ - 1, place_.row + 1);
      if (tries_ == kTryLimit) return Outcome::kTryLimit;
      if (profile_.head[place_.row] < 0) CountTry(place_.row + 1);
    }
  }

  // The yield comes on nine rows out of ten, on those that are no multiple of ten. False once the user has cancelled.
  static bool YieldsAt(int row) { return row % 10 != 0; }

  bool Yield() {
    if (!YieldsAt(place_.row)) return true;
    if (idle_ > 0) {
      --idle_;
      ++passed_;
      return true;
    }
    record_.AccumGPM = place_.flow;
    idle_ = host_.Yield(passed_ + 1);
    passed_ = 0;
    return !record_.CancelFlag;
  }

  // How many rows from this one on can be worked before a yield must reach the host. The row's own has been made.
  int RowsUntilYield() const {
    if (idle_ >= place_.row) return place_.row;
    long left = idle_;
    int rows = 1;
    for (int row = place_.row - 1; row >= 2; --row, ++rows) {
      if (YieldsAt(row) && --left < 0) break;
    }
    return rows;
  }

  // Counts the yields of rows `from` down to `to`, which the march passed over.
  void PassOver(int from, int to) {
    if (from < to) return;
    const long yields = (from - from / 10) - ((to - 1) - (to - 1) / 10);
    idle_ -= yields;
    passed_ += yields;
  }

  // A negative head ends the march: the head of the line is tried with a small head instead, so that the flow there as
  // a rule comes out short and the far end is raised.
  void GoToHeadOfLine() {
    fail_row_ = place_.row;
    place_ = {1, 0};
    profile_.head[1] = 2.0;
  }

  bool Converged() const {
    const double target = static_cast<double>(record_.TargetGPM);
    const float error = Narrow(std::fabs(static_cast<double>(place_.flow) - target));
    return Narrow(target * 0.0005) > error;
  }

  void CountTry(int row) {
    ++tries_;
    fail_row_ = row;
  }

  void Leave() {
    record_.AccumGPM = place_.flow;
    if (passed_ > 0) host_.Yield(passed_);
  }

  DesignRecord& record_;
  EngineHost& host_;
  const Line& line_;
  Profile profile_;
  int& tries_;
  MarchPlace place_;
  std::string_view last_step_;
  int fail_row_ = 0;
  int stretch_ = 0;  // the row at which the stretch of rows now worked began
  long idle_ = 0;    // coming yields that the host would do nothing in
  long passed_ = 0;  // yields passed over and not yet reported to it
};

void ClearResults(DesignRecord& record) {
  record.FurrowFlow.Clear();
  record.HoleArea.Clear();
  record.FurrowNumber.Clear();
  record.NormFurrowFlow.Clear();
  record.NormFurrowLength.Clear();
  record.MaxHead = 0;
  record.MaxHeadStation = StoreInt16(static_cast<double>(record.Station[1]));
  record.MinHeadStation = 2000;
  record.MinHead = 200000.0F;
  record.MaxFurrowFlow = 0;
  record.MinFurrowFlow = 200000.0F;
}

// The furrows that the uniformity is worked out from: those with a length and a flow.
void ListFurrows(DesignRecord& record, EngineHost& host) {
  record.WateredFurrows = 0;
  record.TotalFurrowLength = 0;
  record.TotalAcres = 0;
  AcreCalc(record, host);
  int count = 0;
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (record.FurrowLength[i] <= 0 || !(record.FurrowFlow[i] > 0)) continue;
    ++count;
    const double ratio = static_cast<double>(record.FlowRatio[i]);
    record.FurrowNumber[i] = static_cast<float>(count);
    record.WateredFurrows = StoreInt16(count);
    record.NormFurrowFlow[count] = Store32(Divide(static_cast<double>(record.FurrowFlow[i]), ratio));
    record.NormFurrowLength[count] = StoreInt16(Divide(record.FurrowLength[i], ratio));
    record.TotalFurrowLength = Store32(static_cast<double>(record.TotalFurrowLength) + record.FurrowLength[i]);
  }
  host.TotalAcresChanged();
  record.FlowCalcStatus = "Ok";
}

// Extremes of head and flow; the first of equals wins.
void FindExtremes(DesignRecord& record) {
  for (int i = 1; i <= record.HoleRows; ++i) {
    const float head = Narrow(record.Head[i]);
    if (head > record.MaxHead) {
      record.MaxHead = Store32(record.Head[i]);
      record.MaxHeadStation = StoreInt16(static_cast<double>(record.Station[i]));
    }
    if (head < record.MinHead) {
      record.MinHead = Store32(record.Head[i]);
      record.MinHeadStation = StoreInt16(static_cast<double>(record.Station[i]));
    }
    const float flow = record.FurrowFlow[i];
    if (flow > 0 && flow > record.MaxFurrowFlow) record.MaxFurrowFlow = flow;
    if (flow > 0 && flow < record.MinFurrowFlow) record.MinFurrowFlow = flow;
  }
}

void ReportTryLimit(DesignRecord& record, EngineHost& host, int fail_row) {
  const bool selection = IsHoleSelection(record);
  const std::string body = "               Station " + Format(static_cast<double>(record.Station[fail_row]), "####0") +
                           "  Head " + GeneralText(Hundredths(record.Head[fail_row])) +
                           (selection ? "     GPM = " : "   GPM = ") +
                           Format(static_cast<double>(record.AccumGPM), "####0") + "\r" +
                           (selection ? "Can not calculate, try changing Target Head"
                                      : "Can not calculate, try reducing Hole Size or Pipe Diameter");
  host.Message(body, selection ? "Computer Selecter Hole Calculating Problem" : "Problem Calculating");
  record.DesignOK = "False";
  host.HideCancel();
  host.OfferInterpolation();
  record.CancelFlag = true;
  host.EndBusy();
  if (selection) record.FlowCalcStatus = "Ok";
  if (!IsSlopeDesign(record)) record.CalcProblem = "Problem";
}

void ReportFault(DesignRecord& record, EngineHost& host, int& tries) {
  host.Message(
      "There is a problem trying to calculate design with existing parameters. "
      "Check all of your inputs to see if they are entered correctly.",
      "");
  tries = kTriesAfterFault;
  host.HideCancel();
  record.MissingData = -1;
  record.CancelFlag = true;
}

void Calculate(DesignRecord& record, const TypedTexts& texts, EngineHost& host, int& tries) {
  ClearResults(record);
  record.Head[record.HoleRows] =
      IsHoleSelection(record) ? static_cast<double>(record.SeedEndHead) : Finite(Val(texts.target_head));
  // The index is the count of furrows, not of rows; nothing in the march reads this element.
  const double diameter = SurveyReader(texts.sheet, record.SurveyRows).Val(record.SurveyRows, kPipeDiaColumn);
  record.PipeArea[record.WateredFurrows] = Store32(diameter * diameter * 3.14 / 4);
  record.AccumGPM = 0;
  tries = 0;
  const Line line = PrepareLine(record, texts.survey_kind == "E");
  Search search(record, host, line, tries);
  switch (search.Run()) {
    case Outcome::kCancelled:
      return;
    case Outcome::kTryLimit:
      ReportTryLimit(record, host, search.fail_row());
      return;
    case Outcome::kConverged:
      ListFurrows(record, host);
      break;
    case Outcome::kNoRows:
      break;
  }
  FindExtremes(record);
}

}  // namespace

void FlowCalc(DesignRecord& record, const TypedTexts& texts, EngineHost& host, int& tries) {
  try {
    Calculate(record, texts, host, tries);
  } catch (const RunTimeFault&) {
    ReportFault(record, host, tries);
  }
}

}  // namespace torvale
