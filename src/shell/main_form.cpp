#include "shell/main_form.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "base/version.h"
#include "display/design_display.h"
#include "display/grid_layout.h"
#include "engine/survey.h"
#include "files/file_commands.h"
#include "files/new_design.h"
#include "files/pipe_strengths.h"
#include "files/preferences.h"
#include "files/preferences_panel.h"
#include "files/soils.h"
#include "input/focus.h"
#include "screen/design_types.h"
#include "screen/field_facts.h"
#include "screen/fields.h"
#include "screen/status_line.h"
#include "search/best_holes_panel.h"
#include "shell/desk.h"
#include "shell/recovery.h"

namespace torvale {
namespace {

constexpr std::string_view kZoomKey = "MainZoom";
constexpr int kScreenMargin = 120;  // twips to the right of what stands on the screens, and below it

// The saved place of the main screen, by the key of each value.
struct PlaceSetting {
  std::string_view key;
  int Place::*value;
  int missing;  // twips where the setting is missing or no length
  bool is_size;
};

constexpr std::array<PlaceSetting, 4> kPlaceSettings = {{
    {"MainLeft", &Place::left, 1000, false},
    {"MainTop", &Place::top, 1000, false},
    {"MainWidth", &Place::width, 6500, true},
    {"MainHeight", &Place::height, 6500, true},
}};

// The whole number of twips nearest to a setting, or `missing` where it is no number that fits.
int Twips(const std::optional<std::string>& setting, const PlaceSetting& place) {
  if (!setting || !IsNumber(*setting)) return place.missing;
  try {
    const int twips = ToWhole(Store32(Val(*setting)));
    return place.is_size && twips <= 0 ? place.missing : twips;
  } catch (const RunTimeFault&) {
    return place.missing;
  }
}

void PlaceMainScreen(Program& program) {
  for (const PlaceSetting& place : kPlaceSettings) {
    program.main.window.*place.value = Twips(program.host.Setting(place.key), place);
  }
}

void ShowZoom(MainScreen& main, int percent) {
  main.zoom = percent;
  for (std::size_t i = 0; i < kZoomSteps.size(); ++i) main.mnuZoomTo[i].ticked = kZoomSteps[i] == percent;
}

void LoadZoom(Program& program) {
  const double saved = Val(program.host.Setting(kZoomKey).value_or(""));
  const auto* const step = std::find(kZoomSteps.begin(), kZoomSteps.end(), saved);
  ShowZoom(program.main, step == kZoomSteps.end() ? kPlainZoom : *step);
}

void FillBlankPreferences(MainScreen& main) {
  for (std::size_t i = 0; i < kPreferenceFacts.size(); ++i) {
    const std::string_view start = kPreferenceFacts.at(i).start;
    if (!start.empty() && main.txtDefault.at(i).text().empty()) main.txtDefault.at(i).Set(start);
  }
}

void SetIfEmpty(Grid& sheet, int column, std::string_view text) {
  if (sheet.Text(1, column).empty()) sheet.Set(1, column, text);
}

}  // namespace

void Form_Load(Program& program) {
  MainScreen& main = program.main;
  DesignRecord& record = program.record;
  SetGrd_Soils_FurrowFlow(program);
  OpenSoils(program);
  ReadPipeStrengths(program);
  GridSet(program);
  PlaceMainScreen(program);
  LoadZoom(program);
  OpenDesk(program);
  EnablePrinting(main, false);
  for (const std::string_view name : {"Frame1", "frameHoleSelection", "frmDisplay", "lblEffic"})
    PutInPlace(program, name);
  record.FileVersion = ProgramVersion();
  record.PipeKind = kLayflat;
  TickPipe(program);
  if (record.StationInterval == 0) record.StationInterval = 100;
  FillBlankPreferences(main);
  ResetBestHoleLimits(main);
  record.LowQuarter = 0.25F;
  main.txtInfo[InfoField::kDate].Set(program.host.Today());
  LabelColorSet(program);
  TickDesign(program, kNoDesign);
  main.frmDisplayLbl[Figure::kCrownDifferential].caption.clear();
  main.title = TitleWith("");
  main.lblCrownSlope.visible = false;
  main.cmdInterpolate.visible = true;
  SetIfEmpty(main.Grid1, kCrownColumn, kFirstCrown);
  SetIfEmpty(main.Grid1, kFurrowLengthColumn, "1320");
  FillFirstRow(program);
  TakeDefaultFields(program);
  main.frameFirstSteps.visible = true;
  program.events.first_steps = main.Grid1.cells().revision();
}

void Form_Resize(Program& program) {
  if (program.main.state != WindowState::kNormal) return;
  program.main.window.width = 10000;
  program.main.window.top = 500;
}

void Form_Activate(Program& program) {
  // What the start had to tell is not yet read.
  const std::string news = NewsOf(program);
  MoveFocus(program, NameOf(InfoField::kDesignName));
  if (!news.empty()) ForgetNews(program);
  SayAgain(program, news);
  OfferLastWork(program);
}

void Form_Unload(Program& program) {
  MainScreen& main = program.main;
  if (main.closed) return;
  if (main.state != WindowState::kMinimized) {
    for (const PlaceSetting& place : kPlaceSettings) {
      program.host.SaveSetting(place.key, GeneralText(main.window.*place.value));
    }
  }
  EndWork(program);
  program.record.CancelFlag = true;
  program.record.DesignOK = "False";
  main.closed = true;
}

void mnuFileExit_Click(Program& program) {
  btnDefaultExit_Click(program);
  Form_Unload(program);
}

void SetZoom(Program& program, int percent) {
  ShowZoom(program.main, percent);
  program.host.SaveSetting(kZoomKey, GeneralText(percent));
}

void StepZoom(Program& program, int steps) {
  const auto* const at = std::lower_bound(kZoomSteps.begin(), kZoomSteps.end(), program.main.zoom);
  const auto last = static_cast<std::ptrdiff_t>(kZoomSteps.size()) - 1;
  SetZoom(program, *(kZoomSteps.begin() + std::clamp<std::ptrdiff_t>(at - kZoomSteps.begin() + steps, 0, last)));
}

void mnuZoomFit_Click(Program& program) {
  const MainScreen& main = program.main;
  const Place& corner = main.frameShowLimitedHoles.place;  // the rightmost and lowest of what stands on the screens
  const int width = corner.left + corner.width + kScreenMargin;
  const int height = corner.top + corner.height + kScreenMargin + main.bars_height;
  const auto whole = [&](int percent) {
    const auto fits = [percent](int length, int room) { return length * percent / 100 <= room; };
    const bool beside = fits(width + main.desk_width, main.room_width);
    return fits(width, main.room_width) && fits(height + (beside ? 0 : main.desk_height), main.room_height);
  };
  int best = kZoomSteps.front();
  for (const int step : kZoomSteps) {
    if (whole(step)) best = step;
  }
  if (main.room_width > 0) SetZoom(program, best);
}

}  // namespace torvale
