#include "shell/desk.h"

#include <algorithm>
#include <string>

namespace torvale {
namespace {

constexpr std::string_view kComparison = "Comparison";
constexpr std::string_view kRemarks = "SurveyRemarks";

void ShowSection(Program& program, std::size_t section, bool open) {
  FindControl(program, kDeskSections.at(section).frame)->visible = open;
  program.main.mnuDesk.at(section).ticked = open;
  // What was compared last may be long out of date.
  if (open && section == 0) program.desk.compared_inputs = 0;
}

}  // namespace

void OpenDesk(Program& program) {
  for (std::size_t section = 0; section < kDeskSections.size(); ++section) {
    ShowSection(program, section, program.host.Setting(kDeskSections.at(section).setting) == "1");
  }
}

void ToggleDeskSection(Program& program, std::size_t section) {
  const bool open = !FindControl(program, kDeskSections.at(section).frame)->visible;
  ShowSection(program, section, open);
  program.host.SaveSetting(kDeskSections.at(section).setting, open ? "1" : "0");
}

void ShowRemarks(Program& program) {
  Grid& grid = program.desk.SurveyRemarks;
  const SurveyRemarks& remarks = program.remarks;
  grid.Resize(static_cast<int>(remarks.size()) + 1, grid.column_count());
  if (grid.row >= grid.rows() && grid.rows() > 1) grid.SetCurrent(grid.rows() - 1, 0);
  const Grid& sheet = program.main.Grid1;
  for (int row = 1; row < grid.rows(); ++row) {
    const SurveyRemark& remark = remarks[static_cast<std::size_t>(row - 1)];
    const bool in_sheet = remark.cell.row > 0 && remark.cell.column < sheet.column_count();
    grid.Set(row, 0, in_sheet ? std::to_string(remark.cell.row) : "");
    grid.Set(row, 1, in_sheet ? std::string_view(sheet.Text(0, remark.cell.column)) : std::string_view());
    grid.Set(row, 2, remark.sentence);
    grid.SetTip(row, 2, remark.sentence);
  }
}

bool IsDeskGrid(std::string_view grid) {
  return grid == kComparison || grid == kRemarks;
}

void SortComparisonBy(Program& program, int column) {
  DeskScreen& desk = program.desk;
  const bool again = desk.sorted_by == column;
  desk.sorted_by = column;
  desk.descending = again ? !desk.descending : TraitOf(static_cast<ComparisonColumn>(column)).better == Better::kHigher;
  SortComparison(desk);
  ShowComparison(desk);
}

}  // namespace torvale
