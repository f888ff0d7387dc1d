// A design worked out with nobody at the screen: inputs in, figures or the words of a refusal out.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "record/text_grid.h"
#include "scenarios/scenario_host.h"
#include "screen/design_types.h"
#include "screen/fields.h"
#include "screen/program.h"

namespace torvale {

// The soil that was chosen: advice on the reports, no part of the hydraulics.
struct ChosenSoil {
  int line = -1;  // of the list of soils; -1 for none
  std::string name;
  std::int16_t furrow_flow = 0;
  std::string advice;  // the sentence that names the recommended flow
  bool operator==(const ChosenSoil&) const = default;
};

// What a design is worked out from: everything that a design command reads, as a plain value. It can be kept, compared,
// changed, and handed to another thread.
struct ScenarioInput {
  TextGrid sheet;                           // the survey, headings included
  std::array<std::string, 6> fields;        // `txtInfo`
  std::array<std::string, 16> preferences;  // `txtDefault`
  std::string pipe_kind = "L";              // see record/kinds.h
  std::vector<std::string> hole_sizes;      // `listHolesSelected`
  std::array<std::string, 3> best_limits;   // `txtBest`
  ChosenSoil soil;
  // What the record has taken from the fields, which keeps its value where a field holds no number that fits.
  float target_gpm = 0;
  float hazen_williams_c = 0;
  float discharge_coef = 0;
  std::int16_t station_interval = 0;
  std::int16_t survey_rows = 0;
  std::int16_t spacing_warning_off = 0;
  PipeStrengths pipe_strengths;  // for the warning of a head that the tubing is not to bear
};

// The inputs as they stand in a program. Nothing of the program is touched.
ScenarioInput InputOf(const Program& program);

enum class ScenarioOutcome {
  kDone,
  kRefused,    // the program said why in `words`
  kCancelled,  // stopped, or out of time
};

// The holes of one size along a line.
struct SizeCount {
  std::string name;  // fraction of an inch, as the hole size table has it
  int furrows = 0;
  int holes = 0;
  bool operator==(const SizeCount&) const = default;
};

// What came of it. The figures are those of the record after the command, and 0 unless it is done.
struct ScenarioResult {
  std::int16_t design_type = kNoDesign;
  std::string_view key;  // of its kind, see DesignKind
  ScenarioOutcome outcome = ScenarioOutcome::kRefused;

  float uniformity = 0;  // percent
  float max_head = 0;    // feet
  int max_head_station = 0;
  float min_head = 0;
  int min_head_station = 0;
  float max_furrow_flow = 0;  // gallons per minute
  float min_furrow_flow = 0;
  float flow = 0;                     // out of all holes
  std::vector<SizeCount> sizes;       // from the smallest hole
  int size_changes = 0;               // from one watered furrow to the next along the line
  std::optional<double> slope;        // slope designs: feet in 100 feet, as the screen shows it, not rounded
  std::optional<double> slope_ends;   // dual slope: the station to which it holds
  std::optional<float> highest_fill;  // slope designs, feet
  float acres = 0;
  float hours_for_inch = 0;
  std::string target_head;  // the field afterwards: a limited selection chooses the head itself

  std::vector<std::string> warnings;  // whole sentences
  std::array<std::string, kWarningFigures.size()>
      marks;                       // those that `kWarningFigures` are marked with, which are first
  std::string proof;               // best holes: what is proven of other plans
  std::vector<std::string> words;  // of a refusal: what was said, one message after the other
  SheetCell cell;                  // of a refusal: the cell of the survey that it speaks of

  bool operator==(const ScenarioResult&) const = default;
};

// The whole program with nobody at it, to be used again and again by one thread at a time. Two of them share nothing.
class QuietProgram {
 public:
  explicit QuietProgram(const std::string& data_folder = "");

  // The program as it was after its start: nothing is left of what was done with it.
  void StartAnew();

  // Puts the inputs through the command of a kind of design, from its menu entry to the result table on the screen, as
  // a user who has just started the program and typed them would see it. The program stands there afterwards, to be
  // saved, exported and printed from, until the next run.
  ScenarioResult Run(const ScenarioInput& input, const DesignKind& kind, const Until& until = {});
  // The same for one of the six types.
  ScenarioResult Run(const ScenarioInput& input, std::int16_t design_type, const Until& until = {});

  Program& program() { return program_; }
  ScenarioHost& host() { return host_; }

 private:
  ScenarioHost host_;
  Program program_;
  Design start_design_;
  FileNames start_names_;
  MainScreen start_screen_;
};

}  // namespace torvale
