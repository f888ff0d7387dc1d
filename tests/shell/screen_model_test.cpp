// Random sequences of what a user does over all design types and every way out of them: after each statement the screen
// is as the model of the rules says.
#include "shell/screen_model.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "display/grid_layout.h"
#include "engine/survey.h"
#include "reports/stale_mark.h"
#include "shell/commands.h"
#include "shell/started_program.h"
#include "support/long_runs.h"

namespace torvale {
namespace {

std::string Differences(const std::vector<std::pair<std::string, std::pair<std::string, std::string>>>& pairs) {
  std::string text;
  for (const auto& [name, values] : pairs) {
    if (values.first != values.second) text += name + ": is " + values.first + ", should be " + values.second + "\n";
  }
  return text;
}

std::string Yes(bool value) {
  return value ? "yes" : "no";
}

// One user, and the model that follows.
struct ModelledUser : StartedProgramTest {
  ModelledUser() : main(program.main) {
    TypeText(program, "txtDefault(13)", "2");
    TypeText(program, "txtDefault(14)", ".2");
    Type(Input::kGood);
  }

  // Eleven 3/8 inch holes on a level line; the same without a flow; without holes; two rows of which the one hole would
  // have to give 100,000 GPM.
  void Type(Input input) {
    const bool few = input == Input::kTooMuchFlow;
    const bool dry = input == Input::kNoHoles;
    const std::vector<std::vector<std::string>> rows = {
        {"0", "100", few || dry ? "" : "1000", few || dry ? "" : "10", "15", few || dry ? "" : "3/8",
         few || dry ? "" : "1", "10", few || dry ? "" : "10"},
        {few ? "10" : "100", "100", dry ? "" : "1000", dry ? "" : "10", "15", dry ? "" : "3/8", dry ? "" : "1", "10",
         dry ? "" : "10"}};
    sheet().cells().Erase(1, 0, sheet().rows() - 1, sheet().column_count() - 1);
    for (int row = 0; row < 2; ++row) {
      for (int column = 0; column < 9; ++column) {
        sheet().Set(row + 1, column, rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]);
      }
    }
    TypeText(program, "txtInfo(2)", input == Input::kNoFlow ? "" : few ? "100000" : "6.4");
    TypeText(program, "txtInfo(3)", "2");
    TypeText(program, "txtInfo(5)", "E");
    TypeText(program, "txtInfo(4)", "field " + std::to_string(++typed));
    model.Typed(input);
  }

  // What the screen shows, beside what it should.
  std::string Wrong() {
    const auto shown = [](const Control& control) { return Yes(control.visible); };
    std::string ticks;
    for (const NamedControl& named : ControlsOf(main)) {
      if (named.parent == "mnuDesign" && named.control->ticked) ticks += named.name;
    }
    bool enabled = true;
    for (const Control* menu : {&main.mnuFile, &main.mnuEdit, &main.mnuPreference, &main.mnuDesign, &main.mnuTypeOfPipe,
                                &main.mnuHelp, &main.cmdCancel}) {
      enabled = enabled && menu->enabled;
    }
    return Differences({
        {"DesignType", {std::to_string(program.record.DesignType), std::to_string(model.type)}},
        {"title", {main.title, model.title}},
        {"ticks", {ticks, model.ticked}},
        {"table", {main.cmdDesignToggle.caption, model.table}},
        {"Grid1", {shown(main.Grid1.control), Yes(model.sheet)}},
        {"Grid2", {shown(main.Grid2.control), Yes(model.results)}},
        {"Frame1", {shown(main.Frame1), Yes(model.preferences)}},
        {"frameHoleSelection", {shown(main.frameHoleSelection), Yes(model.panel)}},
        {"cmdInterpolate", {shown(main.cmdInterpolate), Yes(model.interpolate)}},
        {"cmdCancel", {shown(main.cmdCancel), Yes(false)}},
        {"cmdReCalc", {shown(main.cmdReCalc), Yes(model.recalc)}},
        {"cmdDesignToggle", {shown(main.cmdDesignToggle), Yes(model.toggle)}},
        {"lblEffic", {shown(main.lblEffic), Yes(model.uniformity)}},
        {"frmDisplay", {shown(main.frmDisplay), Yes(model.read_outs)}},
        {"lblCrownSlope", {shown(main.lblCrownSlope), Yes(model.crown_slope)}},
        {"lblHeadCount", {shown(main.lblHeadCount), Yes(false)}},
        {"lblAvgFurrowFlow", {shown(main.lblAvgFurrowFlow), Yes(model.average_flow)}},
        {"GridInchesApplied", {shown(main.GridInchesApplied.control), Yes(model.applied_water)}},
        {"frameShowLimitedHoles", {shown(main.frameShowLimitedHoles), Yes(model.hole_summary)}},
        {"hole summary's left edge",
         {std::to_string(main.frameShowLimitedHoles.place.left), std::to_string(model.hole_summary_left)}},
        {"mnuWindowInfo", {shown(main.mnuWindowInfo), Yes(model.back_entry)}},
        {"mnuWindowInfo enabled", {Yes(main.mnuWindowInfo.enabled), Yes(model.back_enabled)}},
        {"mnuProfile", {shown(main.mnuProfile), Yes(model.profile)}},
        {"mnuSurveyCopy", {shown(main.mnuSurveyCopy), Yes(model.survey_paste)}},
        {"lblActiveInactive", {main.lblActiveInactive.caption, model.active ? "Active Design" : "Inactive Design"}},
        {"green", {Yes(main.lblActiveInactive.back == kBrightGreen), Yes(model.active)}},
        {"menus enabled", {Yes(enabled), Yes(true)}},
        {"busy", {Yes(main.busy), Yes(model.busy)}},
        {"main busy", {Yes(main.main_busy), Yes(false)}},
        {"mnuLayflatPipe", {Yes(main.mnuLayflatPipe.ticked), Yes(model.pipe == "L")}},
        {"mnuRigidPipe", {Yes(main.mnuRigidPipe.ticked), Yes(model.pipe == "R")}},
        {"heading of the crown", {sheet().Text(0, kCrownColumn), model.crown_heading}},
        {"heading of the hole size", {sheet().Text(0, kHoleSizeColumn), model.size_heading}},
        {"heading of the hole number", {results().Text(0, kResultHoleNumber), model.number_heading}},
        {"heading of the opening", {results().Text(0, kResultOpening), model.opening_heading}},
    });
  }

  // Clicks, perhaps with a Cancel at the first yield. The model follows where the control can be reached.
  bool Clicked(const std::string& control, bool reachable, bool cancel) {
    said += control + (cancel ? " cancelled\n" : "\n");
    if (cancel) {
      host.event_at = host.yields + 1;
      host.event = [this] { Click(program, "cmdCancel"); };
    }
    host.answers.assign(FiguresAreStale(program) ? 1 : 0, true);  // a report of stale figures asks first
    const Reach reach = Click(program, control);
    host.event = nullptr;
    EXPECT_EQ(reach == Reach::kUsable, reachable) << control;
    return reachable;
  }

  void Statement(unsigned what, bool cancel) {
    const auto on_crown = [&](const char* name, int type) {
      if (Clicked(name, true, cancel)) model.OnExistingCrown(type, cancel);
    };
    const auto search = [&](const char* name, int type) {
      if (Clicked(name, true, cancel)) model.Search(type, cancel);
    };
    switch (what) {
      case 0:
        return on_crown("mnuDesignField", kPlanned);
      case 1:
        return on_crown("mnuExistingDesign", kExistingField);
      case 2:
        return search("mnuDesignConstSlope", kConstantSlope);
      case 3:
        return search("mnuDesignDualSlope", kDualSlope);
      case 4:
        return search("mnuComputerHoleSelection", kComputerHoles);
      case 5:
      case 6:
        if (Clicked("mnuManHoleSelection", true, false)) model.OpenPanel();
        return;
      case 7:
      case 8: {
        const bool empty_list = what == 7;
        Guarded(program, [&] {
          main.listHolesSelected.Clear();
          if (!empty_list) main.listHolesSelected.Add("3/8");
        });
        if (Clicked("cmdExitHoleSelect", model.panel, false)) model.LeavePanel(empty_list);
        return;
      }
      case 9:
        if (Clicked("cmdReCalc", model.recalc, cancel)) model.ReCalculate(cancel);
        return;
      case 10:
        if (Clicked("cmdDesignToggle", model.toggle, false)) model.Toggle();
        return;
      case 11:
        if (Clicked("mnuPreference", true, false)) model.Preferences();
        return;
      case 12:
        if (Clicked("btnDefaultExit", model.preferences, false)) model.LeavePreferences();
        return;
      case 13:
        said += "txtInfo(0)\n";
        FocusGained(program, "txtInfo(0)");
        return model.LeavePreferences();
      case 14:
        if (Clicked("mnuWindowInfo", model.back_entry && model.back_enabled, false)) model.InputScreen();
        return;
      case 15:
        if (Clicked("mnuFileNew", true, false)) model.New();
        return;
      case 16:
      case 17: {
        const char* const kind = what == 16 ? "L" : "R";
        if (Clicked(what == 16 ? "mnuLayflatPipe" : "mnuRigidPipe", true, cancel)) model.Pipe(kind, cancel);
        return;
      }
      case 18:
      case 19:
        if (model.results) Clicked("mnuPreview(0)", true, false);  // leaves the screen as it was
        return;
      default: {
        constexpr Input kInputs[] = {Input::kGood,   Input::kGood,    Input::kGood,
                                     Input::kNoFlow, Input::kNoHoles, Input::kTooMuchFlow};
        const Input input = kInputs[what - 20];
        said += "input " + std::to_string(static_cast<int>(input)) + "\n";
        Type(input);
      }
    }
  }

  void TestBody() override {}

  MainScreen& main;
  ScreenModel model;
  std::string said;  // the statements so far
  int typed = 0;
};

void ExpectScreensOfOneUser(unsigned seed, int statements) {
  ModelledUser user;
  std::mt19937 random(seed);
  ASSERT_EQ(user.Wrong(), "");
  for (int i = 0; i < statements; ++i) {
    const auto what = static_cast<unsigned>(random() % 26);
    user.Statement(what, random() % 4 == 0);
    const std::string wrong = user.Wrong();
    ASSERT_EQ(wrong, "") << "TORVALE_FIRST=" << seed << ", statement " << i << " of\n" << user.said;
    ASSERT_EQ(user.program.running.calculations, 0);
    for (const Shown& message : user.host.messages) {
      ASSERT_FALSE(message.body.starts_with("The program could not finish this")) << user.said;
    }
    user.host.messages.clear();
    ASSERT_FALSE(testing::Test::HasFailure()) << "TORVALE_FIRST=" << seed << ", of\n" << user.said;
  }
}

TEST(ScreenModelTest, TheScreenIsAsTheRulesSayAfterEachStatement) {
  constexpr int kOfOneUser = 200;
  const unsigned users = LongRun(2'000U, 200'000U, 2'000'000U) / kOfOneUser;
  const unsigned first = FirstRound(0);
  for (unsigned seed = first; seed < first + users && !testing::Test::HasFailure(); ++seed) {
    ExpectScreensOfOneUser(seed, kOfOneUser);
  }
}

}  // namespace
}  // namespace torvale
