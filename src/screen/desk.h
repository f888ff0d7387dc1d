#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "screen/control_facts.h"
#include "screen/controls.h"
#include "screen/main_screen.h"

namespace torvale {

// The desk: what stands beside the two screens and tells of the survey while it is typed. It has sections, each of
// which the user opens and closes; which are open is remembered from one start to the next.

// Columns of the comparison, from the left.
enum ComparisonColumn {
  kComparedName,
  kComparedUniformity,
  kComparedHighestHead,
  kComparedLowestHead,
  kComparedLeastFlow,
  kComparedGreatestFlow,
  kComparedSizes,
  kComparedChanges,
  kComparedSlope,
  kComparedFill,
  kComparedHours,
  kComparedWarning,
  kComparisonColumns
};

// A row of the comparison: a design that was tried on what stands on the screen.
struct ComparedDesign {
  std::string key;                    // one word
  std::vector<std::string> commands;  // the clicks that make it, one after the other
  bool tried = false;
  bool made = false;                                  // else why not, in `words`
  std::array<std::string, kComparisonColumns> texts;  // the name always, the others of one that was made
  std::array<std::optional<double>, kComparisonColumns> values = {};  // what the columns are sorted and compared by
  std::array<std::string, kComparisonColumns> marks;                  // what would harm the field, at its figure
  std::vector<std::string> words;                                     // warnings, or why it can't be made: sentences
  SheetCell cell;                                                     // of the survey, that these speak of
  bool operator==(const ComparedDesign&) const = default;
};

// Head and flow along the line of the design that is shown.
struct SupplyChart {
  std::vector<double> stations;       // feet, of each row of the design
  std::vector<double> heads;          // feet
  std::vector<double> flows;          // gallons per minute of a furrow; 0 where a row has no hole
  std::vector<double> sizes;          // inches; 0 where a row has no hole
  std::vector<double> safe_heads;     // feet that the tubing up to the row is to bear; 0 where nothing is known of it
  std::optional<double> wanted_flow;  // of a furrow
  std::string wanted_words;           // what that line is called ...
  std::string safe_words;             // ... and that of the safe heads
  int row = 0;                        // of the design, that is lit; 0 for none
  std::uint64_t revision = 0;         // moves with every change of the lines, not of `row`
};

struct DeskScreen {
  DeskScreen();
  static std::span<const ControlRow<DeskScreen>> Rows();

  // A section is a frame; its caption is its title.
  Control frmComparison, lblComparisonWords, btnCloseComparison;
  Grid Comparison;
  std::vector<ComparedDesign> designs;  // in the order of the rows
  int sorted_by = -1;                   // column; -1: in the order of their making
  bool descending = false;              // the largest first
  std::uint64_t compared_inputs = 0;    // `Program::inputs_count` that was last asked about; 0 for none

  Control frmRemarks, btnCloseRemarks;
  Grid SurveyRemarks;  // a row for each of `Program::remarks`

  Control frmChart, lblChartPoint, btnCloseChart;
  SupplyChart chart;
};

// A section: what opens and closes it, and where that is remembered.
struct DeskSection {
  std::string_view frame;
  std::string_view entry;    // of the View menu
  std::string_view setting;  // "1" while it is open
};
inline constexpr std::array<DeskSection, 3> kDeskSections = {{
    {"frmComparison", "mnuDesk(0)", "DeskComparison"},
    {"frmRemarks", "mnuDesk(1)", "DeskRemarks"},
    {"frmChart", "mnuDesk(2)", "DeskChart"},
}};

// Which of two figures of a column is the better one.
enum class Better { kNone, kHigher, kLower };
struct ComparisonTrait {
  std::string_view heading;
  int width;  // twips
  Better better;
  std::string_view tip;
};
const ComparisonTrait& TraitOf(ComparisonColumn column);

// Behind the best figure of a column.
inline constexpr Colour kBestBack{198, 239, 206};

// Puts the designs in the order that the user chose. The current row goes with its design.
void SortComparison(DeskScreen& desk);
// Writes the designs to the grid: figures, the best of each column, and the words of the current row below it.
void ShowComparison(DeskScreen& desk);

}  // namespace torvale
