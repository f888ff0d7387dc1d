#include "shell/stakes.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "display/input_screen.h"
#include "display/stake_table.h"
#include "input/field_marks.h"
#include "input/focus.h"
#include "reports/print_commands.h"
#include "reports/stakes_report.h"
#include "reports/stale_mark.h"
#include "screen/fields.h"
#include "screen/words.h"
#include "shell/csv_export.h"

namespace torvale {
namespace {

constexpr std::string_view kTitle = "Stakes";
constexpr std::string_view kIntervalKey = "StakeInterval";
constexpr std::string_view kWidthKey = "CrownWidth";
constexpr double kNearestStakes = 1;  // feet

constexpr std::array<int, kStakeColumns> kWidths = {1000, 1500, 1500, 1300, 1500, 1500, 1300};  // twips
constexpr int kHeadingHeight = 735;

// The usual one where the field holds no distance.
double Interval(const Program& program) {
  const double typed = Val(program.stakes.txtStakeInterval.text());
  return typed >= kNearestStakes ? typed : Val(kUsualStakeInterval);
}

// 0 for none.
double Width(const Program& program) {
  return std::max(0.0, Val(program.stakes.txtCrownWidth.text()));
}

bool SlopeIsShown(const Program& program) {
  return program.main.Grid2.control.visible && DesignStands(program) && IsSlopeDesign(program.record);
}

Stakes StakesOf(const Program& program) {
  return LayStakes(program.record, program.main.Grid1.cells(), ReadsElevations(program.main), Interval(program),
                   Width(program));
}

void WriteRow(Grid& grid, int row, const StakeRow& texts) {
  for (int c = 0; c < kStakeColumns; ++c) grid.Set(row, c, texts.at(static_cast<std::size_t>(c)));
}

void LayOut(Grid& grid, int rows) {
  grid.Clear();
  grid.Resize(rows, kStakeColumns);
  grid.heading_height = kHeadingHeight;
  grid.fixed_back = kTeal;
  grid.fixed_fore = kWhite;
  grid.control.fore = kBlack;
  for (int c = 0; c < kStakeColumns; ++c) {
    grid.columns[static_cast<std::size_t>(c)].width = kWidths.at(static_cast<std::size_t>(c));
    grid.SetAlign(0, c, Align::kCentreBottom);
  }
  for (const std::size_t c : {std::size_t{kStakeWork}, std::size_t{kStakeCrown}}) {
    grid.columns[c].align = Align::kCentreBottom;
  }
  grid.SetCurrent(1, 0);
  grid.top_row = 1;
}

void ShowStakes(Program& program) {
  const Stakes all = StakesOf(program);
  const std::string stale = StaleHeading(program);
  program.stakes.frmStakes.caption = std::string(kTitle) + (stale.empty() ? "" : ": " + stale);
  Grid& grid = program.stakes.Grd_Stakes;
  LayOut(grid, std::max(2, static_cast<int>(all.stakes.size()) + 1));
  WriteRow(grid, 0, StakeHeadings(ReadsElevations(program.main)));
  const double width = Width(program);
  for (std::size_t i = 0; i < all.stakes.size(); ++i) {
    WriteRow(grid, static_cast<int>(i) + 1, StakeTexts(all.stakes[i], width > 0));
  }
  std::string& told = program.stakes.lblEarth.caption;
  told.clear();
  for (const std::string& sentence : StakeSentences(all, width)) told += (told.empty() ? "" : "\r") + sentence;
}

void Changed(Program& program, TextField& field, std::string_view key) {
  MarkField(field, FieldForm::kNumber);
  program.host.SaveSetting(key, field.text());
  if (program.stakes.frmStakes.visible) ShowStakes(program);
}

void IntervalChanged(Program& program) {
  TextField& field = program.stakes.txtStakeInterval;
  Changed(program, field, kIntervalKey);
  if (field.control.mark.empty() && !(Val(field.text()) >= kNearestStakes)) {
    field.control.mark = words::kStakesTooNear.text();
  }
}

Document StakesDocument(const Program& program) {
  return StakesReport(program, StakesOf(program), Width(program));
}

}  // namespace

void ConnectStakes(Program& program) {
  StakesScreen& screen = program.stakes;
  screen.txtStakeInterval.Set(program.host.Setting(kIntervalKey).value_or(std::string(kUsualStakeInterval)));
  screen.txtCrownWidth.Set(program.host.Setting(kWidthKey).value_or(""));
  screen.txtStakeInterval.on_change = [&program] { IntervalChanged(program); };
  screen.txtCrownWidth.on_change = [&program] { Changed(program, program.stakes.txtCrownWidth, kWidthKey); };
}

void OfferStakes(Program& program) {
  program.main.mnuStakes.enabled = SlopeIsShown(program);
}

void mnuStakes_Click(Program& program) {
  ShowStakes(program);
  program.stakes.frmStakes.visible = true;
  MoveFocus(program, "txtStakeInterval");
}

void btnPrintStakes_Click(Program& program) {
  PrintWithDialog(program, [&] { return StakesDocument(program); });
}

void btnPreviewStakes_Click(Program& program) {
  PreviewDocument(program, [&] { return StakesDocument(program); });
}

void btnPdfStakes_Click(Program& program) {
  ExportPdf(program, [&] { return StakesDocument(program); });
}

void btnCsvStakes_Click(Program& program) {
  ExportCsv(program, "Export Stakes", "Stakes", StakesCsv(program, StakesOf(program), Width(program)));
}

void btnCloseStakes_Click(Program& program) {
  program.stakes.frmStakes.visible = false;
}

}  // namespace torvale
