#include "reports/design_reports.h"

#include <array>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/put_back.h"
#include "display/design_display.h"
#include "display/grid_layout.h"
#include "reports/print_frame.h"

namespace torvale {
namespace {

constexpr double kLeft = kTableRules.front();
constexpr double kRight = kTableRules.back();

constexpr double kFirstRow = 4.85;
constexpr double kSummaryRules = 4.84;  // the rules of the Summary begin a little above its first row
constexpr double kPageFoot = 10.5;
constexpr double kNextPageHeader = 1.7;
constexpr double kNextPageRules = 2.2;
constexpr int kLastGridRow = 5282;  // the last that a summary can end at

// How a column of the grid is printed. An empty pattern leaves the cell's text as it stands.
struct PrintedColumn {
  double x;
  std::string_view summary;
  std::string_view complete;
};

// In the order of the grid's columns; each stands between the rule of its index and the next. The two tables differ on
// purpose: the complete one prints ratios as they stand, and the number of holes with two decimals.
constexpr std::array<PrintedColumn, 11> kColumns = {{
    {0.45, "####0", "#####0"},
    {0.95, "", ""},
    {1.55, "####", "#####"},
    {2.4, "##.00", "##.00"},
    {2.85, "###.00", "###.00"},
    {3.35, "###.00", ""},
    {3.95, "######", "######"},
    {4.65, "##.00", "##.00"},
    {5.3, "##", "####.00"},
    {6, "", ""},
    {6.45, "", ""},
}};
constexpr double kAccumulatedX = 7.05;

// A table on its way to paper: where the next row stands, and where the rules of the page begin.
struct TablePrint {
  DocumentWriter& writer;
  const Program& program;
  bool summary;
  float y;
  double top;
};

double At(const TablePrint& print) {
  return print.y;
}

void MoveDown(TablePrint& print, double by) {
  print.y = Store32(At(print) + by);
}

void RuleAcross(const TablePrint& print, double y) {
  print.writer.Line(kLeft, y, kRight, y);
}

void RulesDown(const TablePrint& print) {
  for (const double x : kTableRules) print.writer.Line(x, print.top, x, At(print));
}

// Around a row of text and the one below it.
void SupplyRules(const TablePrint& print) {
  for (const double down : {0.0, 0.165, 0.33}) RuleAcross(print, At(print) + down);
}

void PrintCells(const TablePrint& print, int row, double accumulated) {
  const Grid& grid = print.program.main.Grid2;
  for (std::size_t c = 0; c < kColumns.size(); ++c) {
    const PrintedColumn& column = kColumns.at(c);
    const std::string_view pattern = print.summary ? column.summary : column.complete;
    const std::string& text = grid.Text(row, static_cast<int>(c));
    print.writer.Text(column.x, At(print), pattern.empty() ? text : FormatText(text, pattern),
                      kTableRules.at(c + 1) - column.x - kRuleGap);
  }
  print.writer.Text(kAccumulatedX, At(print), Format(accumulated, "#######"), kRight - kAccumulatedX - kRuleGap);
}

// The table writes two blanks, so the row's own rules stay idle; those for the row before don't.
void PrintSummarySupplyRules(const TablePrint& print, int row) {
  const Grid& grid = print.program.main.Grid2;
  if (grid.Text(row, kResultOpening) == "   Supply") {
    RuleAcross(print, At(print));
    RuleAcross(print, At(print) + 0.165);
  }
  if (grid.Text(row - 1, kResultOpening) == "  Supply") SupplyRules(print);
}

void BreakPage(TablePrint& print, int row) {
  RuleAcross(print, At(print));
  print.writer.StartPage();
  print.y = Store32(kNextPageHeader);
  PrintPageHeader(print.writer, print.program, print.y);
  print.top = kNextPageRules;
  MoveDown(print, 0.5);
  RulesDown(print);
  MoveDown(print, kLineHeight - 0.05);
  // The supply words stand in another column of this table, so these rules stay idle.
  if (!print.summary && print.program.main.Grid2.Text(row - 1, kResultFlow) == "  Supply") SupplyRules(print);
}

// Brings a table to the screen; the caption of the toggle comes back whatever happens. The table stays, so that after
// printing the other one the screen shows it under this caption until the next toggle.
void ForceTable(Program& program, std::string_view name) {
  std::string& caption = program.main.cmdDesignToggle.caption;
  const PutBack kept(caption);
  caption = name;
  DisplayDesign(program);
  program.main.Grid2.control.visible = true;
}

int LastSummaryRow(const Grid& grid) {
  int last = 0;
  for (int row = 1; row <= kLastGridRow; ++row) {
    if (!grid.Text(row, kResultStation).empty()) last = row;
  }
  return last;
}

Document PrintTable(Program& program, std::string title, bool summary) {
  DocumentWriter writer(std::move(title));
  PrintDesignData(writer, program);
  const DesignRecord& record = program.record;
  const int last = summary ? LastSummaryRow(program.main.Grid2) : record.HoleRows;
  TablePrint print{writer, program, summary, Store32(kFirstRow), summary ? kSummaryRules : kFirstRow};
  double running = 0;
  for (int row = 1; row <= last; ++row) {
    // The grid's row serves as the index of the design's, also where the table has skipped rows.
    running += record.FurrowFlow[row];
    PrintCells(print, row, summary ? record.DisplayHoleNumber[row] : running);
    if (summary) PrintSummarySupplyRules(print, row);
    MoveDown(print, kLineHeight);
    RulesDown(print);
    if (At(print) >= kPageFoot && row < last) BreakPage(print, row);
  }
  RuleAcross(print, At(print));
  return writer.Take();
}

}  // namespace

Document SummaryReport(Program& program) {
  ForceTable(program, kSummary);
  return PrintTable(program, std::string(kSummary), true);
}

Document CompleteReport(Program& program) {
  ForceTable(program, kCompleteDesign);
  return PrintTable(program, std::string(kCompleteDesign), false);
}

}  // namespace torvale
