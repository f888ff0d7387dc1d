// A model of what the screen shows, built from the rules for its controls and not from the procedures that move them:
// each statement of a user takes it from one state to the next, and names what the screen must look like.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "record/design_record.h"
#include "screen/main_screen.h"

namespace torvale {

// Surveys of which it is known how every design ends: found at once; refused for want of a flow; ended in silence for
// want of holes; given up, since no head gives the flow.
enum class Input { kGood, kNoFlow, kNoHoles, kTooMuchFlow };

enum class Outcome { kShown, kRefused, kSilent, kGaveUp, kCancelled };

struct ScreenModel {
  Input input = Input::kNoFlow;
  int type = kNoDesign;
  std::string title = "TORVALE   ";
  std::string ticked;  // the design entry; "" for none
  std::string table = "Complete Design";
  std::string pipe = "L";
  bool active = false;

  bool sheet = true;
  bool results = false;
  bool preferences = false;
  bool panel = false;  // of the hole selection
  bool interpolate = true;
  bool recalc = false;
  bool toggle = false;
  bool uniformity = false;
  bool read_outs = false;
  bool crown_slope = false;
  bool average_flow = false;
  bool applied_water = false;
  bool hole_summary = false;
  int hole_summary_left = 10900;
  bool back_entry = false;  // "Input Screen" ...
  bool back_enabled = true;
  bool profile = false;
  bool survey_paste = true;
  bool busy = false;
  std::string crown_heading = "Elevation (feet)";   // of the sheet
  std::string number_heading = "Elevation (feet)";  // of the hole numbers
  std::string opening_heading = "Hole Dia. (Inches)";
  std::string size_heading = "Hole Width (fractions)";

  bool completed = false;  // the survey, since it was typed
  bool ok = true;          // the last run is still good ...
  bool missing = false;    // ... and its input was not refused

  // --- Statements ---

  void Typed(Input now) {
    input = now;
    completed = false;
    TextsChanged();
    InputChanged();
  }

  // Planned, Existing: the sheet comes back wherever no design came of it.
  void OnExistingCrown(int design, bool cancel) {
    Start(design);
    crown_slope = false;
    busy = true;
    const Outcome outcome = Run(cancel);
    if (outcome != Outcome::kShown) GoBack();                 // a silent or cancelled end leaves the pointer as it is
    if (outcome == Outcome::kCancelled) interpolate = false;  // until the input changes
  }

  // Constant and Dual Slope, Computer Hole Selection: refused input leaves the screen as it was.
  void Search(int design, bool cancel) {
    Start(design);
    if (design != kConstantSlope) crown_slope = false;
    if (design != kComputerHoles) {
      survey_paste = false;
      back_enabled = true;  // the lock ends with everything enabled
    }
    const Outcome outcome = Run(cancel);
    busy = false;
    if (outcome == Outcome::kRefused) {
      interpolate = true;
      if (!results && !(preferences && active)) survey_paste = true;
    } else if (outcome != Outcome::kShown) {
      InputScreen();
    }
  }

  void OpenPanel() {
    ok = true;
    missing = input == Input::kNoFlow;
    if (missing) {
      busy = false;
      interpolate = true;
    } else {
      panel = true;
    }
  }

  void LeavePanel(bool empty_list) {
    panel = false;
    busy = false;
    if (empty_list) {
      GoBack();
      back_entry = false;
      ticked = "";
      type = kNoDesign;
      title = "TORVALE   ";
      interpolate = false;
      return;
    }
    const bool failed_before = !ok || missing;
    Start(kLimitedHoles);
    crown_slope = false;
    back_enabled = true;
    if (!failed_before) {
      TextsChanged();  // the head is lowered
      if (Run(false) == Outcome::kShown) return;
      busy = false;
    }
    GoBack();
  }

  void ReCalculate(bool cancel) {
    CompleteSheet();
    if (type == kLimitedHoles) return OpenPanel();
    if (type == kConstantSlope) return Search(kConstantSlope, cancel);
    const bool searches = type == kDualSlope;
    const Outcome outcome = Run(cancel);
    if (outcome == Outcome::kRefused) {
      interpolate = true;
    } else if (outcome != Outcome::kShown) {
      InputScreen();
    }
    if (searches && outcome == Outcome::kCancelled) busy = true;  // nobody restores it on this way
  }

  void Toggle() {
    table = table == "Summary" ? "Complete Design" : "Summary";
    results = true;
    Display();
    if (table == "Summary" && SurveyEndsEarly()) GoBack();
  }

  void Preferences() {
    preferences = true;
    results = recalc = toggle = false;
  }
  // By Exit or by entering a field.
  void LeavePreferences() {
    if (!preferences) return;
    preferences = false;
    if (type >= kPlanned && type <= kExistingField && active) {
      results = recalc = toggle = true;
    } else if (!results || type != kNoDesign) {
      sheet = true;
    }
  }

  void New() {
    GoBack();
    back_enabled = false;
    hole_summary = false;
    title = "TORVALE   ";
    ticked = "mnuDesignField";
    input = Input::kNoFlow;
    LayOutHeadings();
    TextsChanged();
    LeavePreferences();
  }

  void Pipe(std::string_view kind, bool cancel) {
    pipe = kind;
    size_heading = kind == "L" ? "Hole Diameter (fractions)" : "Hole Width (fractions)";
    if (!results) return;
    if (type != kLimitedHoles) return ReCalculate(cancel);
    // The line stands as it was; these inputs have the same flow.
    ok = input == Input::kGood || input == Input::kNoHoles;
    if (ok) Display();
    if (table == "Summary" && SurveyEndsEarly()) ok = false;
    if (ok) return;
    busy = false;
    back_enabled = true;
    GoBack();
  }

  void InputScreen() {
    GoBack();
    CompleteSheet();
    title = "TORVALE   ";
    back_entry = false;
    if (ticked != "mnuExistingDesign") ticked = "";
    type = kNoDesign;
  }

 private:
  // What every design command does first.
  void Start(int design) {
    static const std::map<int, std::pair<std::string, std::string>> kTypes = {
        {kPlanned, {"mnuDesignField", "TORVALE   Planned Design"}},
        {kConstantSlope, {"mnuDesignConstSlope", "TORVALE   Constant Slope Design"}},
        {kDualSlope, {"mnuDesignDualSlope", "TORVALE   Dual Slope Design"}},
        {kComputerHoles, {"mnuComputerHoleSelection", "TORVALE   Computer Selected Hole Design"}},
        {kExistingField, {"mnuExistingDesign", "TORVALE   Existing Field Design"}},
        {kLimitedHoles, {"mnuManHoleSelection", "TORVALE   Limited Computer Selected Hole Design"}},
    };
    type = design;
    ticked = kTypes.at(design).first;
    title = kTypes.at(design).second;
    interpolate = false;
    CompleteSheet();
  }

  // The sheet is shown with it.
  void CompleteSheet() { completed = sheet = true; }

  // The Summary goes by the stations of the survey. Two rows of ten feet end before the hundred feet of a shown design;
  // so does a survey without holes, whose end is found at its second row when it is completed.
  bool SurveyEndsEarly() const { return input == Input::kTooMuchFlow || (input == Input::kNoHoles && completed); }

  Outcome Run(bool cancel) {
    ok = true;
    missing = false;
    switch (input) {
      case Input::kNoFlow:
        missing = true;
        busy = false;
        return Outcome::kRefused;
      case Input::kNoHoles:
        missing = true;
        return Outcome::kSilent;
      case Input::kTooMuchFlow:
        if (!cancel) busy = false;
        ok = false;
        return cancel ? Outcome::kCancelled : Outcome::kGaveUp;
      case Input::kGood:
        break;
    }
    if (cancel) {
      ok = false;
      return Outcome::kCancelled;
    }
    Display();
    return Outcome::kShown;
  }

  void Display() {
    active = back_entry = back_enabled = profile = hole_summary = true;
    uniformity = read_outs = toggle = recalc = average_flow = applied_water = results = true;
    hole_summary_left = 10900;
    interpolate = survey_paste = busy = false;
    if (ticked == "mnuDesignConstSlope" || ticked == "mnuDesignDualSlope") crown_slope = true;
    if (table == "Complete Design") sheet = false;
    LayOutHeadings();
  }

  // The sheet, whole, and nothing that speaks of results.
  void GoBack() {
    active = results = recalc = toggle = uniformity = read_outs = crown_slope = false;
    average_flow = applied_water = profile = false;
    hole_summary_left = 9350;
    sheet = interpolate = survey_paste = true;
  }

  void TextsChanged() { crown_heading = number_heading = "Elevation (feet)"; }
  void LayOutHeadings() {
    crown_heading = "Elevations (feet)";
    number_heading = "Hole Number";
    opening_heading = pipe == "L" ? "Hole Dia. (Inches)" : "Rectangle Gate Opening (Inches)";
    size_heading = "Hole Width (fractions)";
  }
  void InputChanged() {
    if (!active && !results) interpolate = true;
  }
};

}  // namespace torvale
