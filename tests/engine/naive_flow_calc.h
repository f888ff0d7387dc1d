// The march and its search written out row by row in the plainest way, as the reference that the fast one must match
// bit by bit. Nothing is prepared ahead, every power is the general one, every row yields by itself.
#pragma once

#include <cmath>
#include <string>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "base/power.h"
#include "engine/flow_calc.h"
#include "engine/survey.h"

namespace torvale::naive {

inline double Wide(float value) {
  return static_cast<double>(value);
}

// Whether the far-end head moves, and how: stage by stage, with no table.
inline void Correct(double& head, std::string& last, float flow, float target) {
  int stage = 1;
  if (last == "highflow1" || last == "lowflow1") stage = 2;
  if (last == "highflow2" || last == "lowflow2") stage = 3;
  if (last == "highflow3" || last == "lowflow3") stage = 4;
  if (last == "highflow4" || last == "lowflow4") stage = 5;
  const auto move = [&](double by, const char* mark) {
    head = head + by;
    last = mark;
  };
  if (stage == 1) {
    if (flow > target) {
      if (!(head <= 0.5 || last == "lowflow")) return move(-0.5, "highflow");
    } else if (flow < target) {
      if (last != "highflow") return move(0.5, "lowflow");
    }
    stage = 2;
  }
  if (stage == 2) {
    if (flow > target) {
      if (!(head <= 0.1 || last == "lowflow1")) return move(-0.1, "highflow1");
    } else if (flow < target) {
      if (last != "highflow1") return move(0.1, "lowflow1");
    }
    stage = 3;
  }
  if (stage == 3) {
    if (flow > target) {
      if (!(head <= 0.01 || last == "lowflow2")) return move(-0.01, "highflow2");
    } else if (flow < target) {
      if (last != "highflow2") return move(0.01, "lowflow2");
    }
    stage = 4;
  }
  if (stage == 4) {
    if (flow > target) {
      if (!(head <= 0.0001 || last == "lowflow3")) return move(-0.001, "highflow3");
    } else if (flow < target) {
      if (last != "highflow3") return move(0.001, "lowflow3");
    }
    stage = 5;
  }
  if (flow > target) move(-0.0001, "highflow4");
  if (flow < target) move(0.0001, "lowflow4");
}

inline double FrictionAt(const DesignRecord& r, int row) {
  const double length = Int((Wide(r.Station[row]) - Wide(r.Station[row - 1])) * 100 + 0.5) / 100;
  const double factor = 0.2083 * Power(Divide(100, Wide(r.HazenWilliamsC)), 1.852);
  const double ratio = Divide(Power(Wide(r.AccumGPM), 1.852), Power(Wide(r.PipeDia[row]), 4.866));
  return Finite(length * (ratio * factor / 100));
}

inline void TakeHoles(DesignRecord& r, int row) {
  if (!(r.HoleDia[row] > 0)) return;
  if (r.DesignType == 4 || r.DesignType == 6) {
    const double d = Wide(r.DesignType == 4 ? r.ComputerHoleDia[row] : r.LimitedHoleDia[row]);
    r.HoleArea[row] = Store32(d * d * 3.14 / 4 / 144 * r.HolesPerFurrow[row]);
  } else {
    const double d = Wide(r.HoleDia[row]);
    r.HoleArea[row] = Store32(d * d * 3.14 / 4 * r.HolesPerFurrow[row]);
  }
  r.FurrowFlow[row] = Store32(Wide(r.HoleArea[row]) * Root(r.Head[row] * 64.4) * 448.8 * Wide(r.DischargeCoef));
  r.AccumGPM = Store32(Wide(r.AccumGPM) + Wide(r.FurrowFlow[row]));
}

inline void CarryHead(DesignRecord& r, const std::string& kind, int row) {
  const double friction = FrictionAt(r, row);
  const RowArray<float>& elev = r.DesignType == 2 || r.DesignType == 3 ? r.DesignElev : r.CrownElev;
  const double rise = kind == "E" ? Wide(elev[row - 1]) - Wide(elev[row]) : Wide(elev[row]) - Wide(elev[row - 1]);
  r.Head[row - 1] = Finite(r.Head[row] - rise + friction);
}

inline void GiveUp(DesignRecord& r) {
  const bool selection = r.DesignType == 4 || r.DesignType == 6;
  const bool slope = r.DesignType == 2 || r.DesignType == 3;
  if (selection) r.FlowCalcStatus = "Ok";
  if (!slope) r.CalcProblem = "Problem";
  r.DesignOK = "False";
  r.CancelFlag = true;
}

inline void ListFurrows(DesignRecord& r) {
  r.WateredFurrows = 0;
  r.TotalFurrowLength = 0;
  double acres = 0;
  for (int i = 1; i <= r.HoleRows - 1; ++i) acres = acres + r.FurrowLength[i] * Wide(r.PlantedWidth[i]) / 43560;
  r.TotalAcres = Store32(acres);
  int count = 0;
  for (int i = 1; i <= r.HoleRows; ++i) {
    if (!(r.FurrowLength[i] > 0 && r.FurrowFlow[i] > 0)) continue;
    count = count + 1;
    r.FurrowNumber[i] = static_cast<float>(count);
    r.WateredFurrows = StoreInt16(r.WateredFurrows + 1);
    r.NormFurrowFlow[count] = Store32(Divide(Wide(r.FurrowFlow[i]), Wide(r.FlowRatio[i])));
    r.NormFurrowLength[count] = StoreInt16(Divide(r.FurrowLength[i], Wide(r.FlowRatio[i])));
    r.TotalFurrowLength = Store32(Wide(r.TotalFurrowLength) + r.FurrowLength[i]);
  }
  r.FlowCalcStatus = "Ok";
}

inline void Extremes(DesignRecord& r) {
  for (int i = 1; i <= r.HoleRows; ++i) {
    if (Narrow(r.Head[i]) > r.MaxHead) {
      r.MaxHead = Store32(r.Head[i]);
      r.MaxHeadStation = StoreInt16(Wide(r.Station[i]));
    }
    if (Narrow(r.Head[i]) < r.MinHead) {
      r.MinHead = Store32(r.Head[i]);
      r.MinHeadStation = StoreInt16(Wide(r.Station[i]));
    }
    if (r.FurrowFlow[i] > 0 && r.FurrowFlow[i] > r.MaxFurrowFlow) r.MaxFurrowFlow = r.FurrowFlow[i];
    if (r.FurrowFlow[i] > 0 && r.FurrowFlow[i] < r.MinFurrowFlow) r.MinFurrowFlow = r.FurrowFlow[i];
  }
}

// True once the flow meets the target.
inline bool Meets(const DesignRecord& r) {
  return Narrow(Wide(r.TargetGPM) * 0.0005) > Narrow(std::fabs(Wide(r.AccumGPM) - Wide(r.TargetGPM)));
}

// The marches; false where the procedure was left before its last two steps.
inline bool March(DesignRecord& r, const std::string& kind, EngineHost& host, FlowEnd& end) {
  int& tries = end.tries;
  std::string last_step;
  int fail_row = 0;
  int row = r.HoleRows;
  for (;;) {
    if (row == 0) return true;
    if (row % 10 != 0) {
      host.Yield(1);
      if (r.CancelFlag) {
        end.way = FlowEnd::Way::kCancelled;
        return false;
      }
    }
    if (r.Head[row] < 0) {
      fail_row = row;
      row = 1;
      r.Head[1] = 2.0;
      r.AccumGPM = 0;
    }
    TakeHoles(r, row);
    if (row == 1 && Meets(r)) break;
    CarryHead(r, kind, row);
    if (tries == 200) {
      GiveUp(r);
      end.way = FlowEnd::Way::kTryLimit;
      end.fail_row = fail_row;
      return false;
    }
    if (row == 1 || r.Head[row - 1] < 0) {
      tries = tries + 1;
      fail_row = row;
    }
    if (row == 1) {
      Correct(r.Head[r.HoleRows], last_step, r.AccumGPM, r.TargetGPM);
      r.AccumGPM = 0;
      row = r.HoleRows + 1;
    }
    row = row - 1;
  }
  ListFurrows(r);
  return true;
}

inline void Run(DesignRecord& r, const TypedTexts& texts, EngineHost& host, FlowEnd& end) {
  for (RowArray<float>* list : {&r.FurrowFlow, &r.HoleArea, &r.FurrowNumber, &r.NormFurrowFlow}) list->Clear();
  r.NormFurrowLength.Clear();
  r.MaxHead = 0;
  r.MaxHeadStation = StoreInt16(Wide(r.Station[1]));
  r.MinHeadStation = 2000;
  r.MinHead = 200000;
  r.MaxFurrowFlow = 0;
  r.MinFurrowFlow = 200000;
  const bool selection = r.DesignType == 4 || r.DesignType == 6;
  r.Head[r.HoleRows] = selection ? Wide(r.SeedEndHead) : Finite(Val(texts.target_head));
  const double dia = Val(texts.sheet.Text(r.SurveyRows, 4));
  r.PipeArea[r.WateredFurrows] = Store32(dia * dia * 3.14 / 4);
  r.AccumGPM = 0;
  if (March(r, texts.survey_kind, host, end)) Extremes(r);
}

inline FlowEnd FlowCalc(DesignRecord& r, const TypedTexts& texts, EngineHost& host) {
  FlowEnd end;
  try {
    Run(r, texts, host, end);
  } catch (const RunTimeFault&) {
    end.way = FlowEnd::Way::kFault;
    end.tries = 100;
    r.MissingData = -1;
    r.CancelFlag = true;
  }
  return end;
}

}  // namespace torvale::naive
