#pragma once

#include <string>
#include <string_view>

#include "base/format.h"
#include "display/grid_layout.h"
#include "screen/program.h"

namespace torvale {

// The texts that stand for one row of the design, in the result tables and the hole summary.

// A field of the design at row i; past the far end it counts as empty, whatever an earlier, longer design left there.
template <typename T>
T AtRow(const DesignRecord& record, const RowArray<T>& field, int i) {
  return i > record.HoleRows ? T{} : field[i];
}

// Index in the hole size table of the chosen size of row i, or 0 where the table has no such size.
int ChosenSizeIndex(const DesignRecord& record, int i);

// The number formats that depend on the table and on the row's place in it.
struct RowPatterns {
  NumberPattern flow;
  NumberPattern head;
  NumberPattern circular_gate;
  NumberPattern hole_number;  // empty: the number as it is
};

inline constexpr NumberPattern kTwoDecimals("####.00");
inline constexpr NumberPattern kShortTwoDecimals("###.00");
inline constexpr NumberPattern kGate("#.##0");
inline constexpr NumberPattern kShortGate("#.###");
inline constexpr NumberPattern kHoleNumber("####");
inline constexpr NumberPattern kAsItIs("");

inline constexpr RowPatterns kCompleteFirstRow = {kTwoDecimals, kTwoDecimals, kGate, kHoleNumber};
inline constexpr RowPatterns kCompleteRow = {kShortTwoDecimals, kTwoDecimals, kGate, kHoleNumber};
inline constexpr RowPatterns kSummaryFirstRow = {kTwoDecimals, kTwoDecimals, kShortGate, kAsItIs};
inline constexpr RowPatterns kSummaryRow = {kShortTwoDecimals, kShortTwoDecimals, kGate, kAsItIs};
inline constexpr RowPatterns kSummaryLastRow = {kShortTwoDecimals, kTwoDecimals, kGate, kAsItIs};

// `Station` of row i in whole feet.
std::string StationText(const DesignRecord& record, int i);

// The mean flow of a watered furrow, in that pattern; "0" where none is watered.
std::string AverageFurrowFlowText(const DesignRecord& record, std::string_view pattern);

// How far the gates of row i open in rigid pipe, inches: the height of a rectangular gate (`txtDefault(11)` "R") of the
// width `txtDefault(12)`, or the travel of a circular gate as wide as the survey's hole. Faults of Divide and GateMove
// pass through.
double GateOpening(const Program& program, int i);

// How far each single gate opens, in a sentence, where a furrow of row i has several, which share that area; empty
// where it has one, in layflat tubing, and where it can't be worked out.
std::string EachGateText(const Program& program, int i);

// Any cell of row i; the opening is that of the chosen size. The margin is empty.
std::string CellText(const Program& program, ResultColumn column, int i, const RowPatterns& patterns);

}  // namespace torvale
