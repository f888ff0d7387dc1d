// The shape of the grids on the main screen: columns, headings, widths, places.
#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

// Columns of the results grid `Grid2`.
enum ResultColumn : int {
  kResultStation = 0,
  kResultOpening = 1,  // hole size or gate opening
  kResultHoleNumber = 2,
  kResultFlow = 3,
  kResultHead = 4,
  kResultFlowRatio = 5,  // flow over required flow
  kResultFurrowLength = 6,
  kResultCrown = 7,
  kResultHoleCount = 8,  // holes per furrow
  kResultMil = 9,
  kResultPipeDia = 10,
  kResultPlantedWidth = 11,
  kResultMargin = 12,  // no heading, never written
};

// Headings that follow what is typed.
inline constexpr std::string_view kRodHeading = "Rod Reading (feet)";
inline constexpr std::string_view kElevationHeading = "Elevation (feet)";
inline constexpr std::string_view kHoleWidthHeading = "Hole Width (fractions)";
inline constexpr std::string_view kHoleDiameterHeading = "Hole Diameter (fractions)";

inline constexpr int kResultColumns = 13;

// The heading of a column of the results, as the layout has it: what is typed may stand in the grid's own cell instead.
std::string_view ResultHeading(const Program& program, int column);

// Ticks the menu entry of the kind of pipe, `PipeKind`: whatever isn't layflat counts as rigid.
void TickPipe(Program& program);

// Gives `Grid1`, `Grid2`, `GridInchesApplied` and the frame beside them their fixed shape: place, size, headings,
// widths, alignment and colours. Typed data stays, but for cell (1,0) of `Grid1`, which becomes "0", and, before any
// design, an empty cell (1,5), which takes the first hole size. `Grid2` is made invisible. The ticks of the two pipe
// menu entries follow `PipeKind`.
void GridSet(Program& program);

}  // namespace torvale
