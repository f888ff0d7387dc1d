#pragma once

#include <array>
#include <string>
#include <string_view>

#include "reports/document_writer.h"
#include "screen/design_types.h"
#include "screen/program.h"

namespace torvale {

// What the three reports have in common.

// The vertical rules of a table, from its left edge to its right.
inline constexpr std::array<double, 13> kTableRules = {0.1,  0.87, 1.47, 2.07, 2.77, 3.27, 3.87,
                                                       4.57, 5.22, 5.92, 6.37, 7.02, 7.9};
inline constexpr double kRuleGap = 0.02;  // between a text and the rule behind it

// The type of design, by the name that the report has for it, and the kind of pipe. Empty before any design.
std::string DesignLine(const DesignRecord& record, std::string_view DesignKind::*name);

// The page's number, then the program's lines and the design line, centred. Leaves font size 12.
void PrintTitle(DocumentWriter& writer, const DesignRecord& record, std::string_view DesignKind::*name);

// Box of hours and days that apply 0.5 to 3 gross inches, its top at y, at font size 10. The box is drawn in the line
// width in force.
void PrintAppliedWater(DocumentWriter& writer, const DesignRecord& record, double y);

// The soil, the furrow flow recommended for it and the average furrow flow, beside the rows of the applied water whose
// box begins at y.
void PrintSoil(DocumentWriter& writer, const Program& program, double y);

// Top of row `row` (from 0) in the box of applied water that begins at y.
double AppliedWaterRow(double y, int row);

// Begins a page of a design report: the header and, on the first page, the applied water from `y` on; then the headings
// of the table. `y` moves on to the upper line of the headings. Leaves font size 10 and line width 2.
void PrintPageHeader(DocumentWriter& writer, const Program& program, float& y);

// The first page's header with the figures of the design. Leaves font size 10 and line width 3.
void PrintDesignData(DocumentWriter& writer, const Program& program);

}  // namespace torvale
