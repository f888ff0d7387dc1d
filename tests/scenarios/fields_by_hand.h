// Fields for tests of scenarios, typed into a program as a user would type them.
#pragma once

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "properties/random.h"
#include "properties/random_survey.h"
#include "script/runner.h"
#include "script/session.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "support/source_folder.h"

namespace torvale {

// The scripts of data/samples, in the order of their names.
inline std::vector<std::filesystem::path> SampleScripts() {
  std::vector<std::filesystem::path> samples;
  for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(kSourceFolder) / "data/samples")) {
    if (entry.path().extension() == ".script") samples.push_back(entry.path());
  }
  std::sort(samples.begin(), samples.end());
  return samples;
}

// A sample's script up to its first design command: the inputs, typed.
inline std::string InputPartOf(const std::filesystem::path& sample) {
  std::ifstream script(sample);
  std::string part;
  std::string line;
  while (std::getline(script, line)) {
    if (line.starts_with("click mnu") &&
        (line.find("Design") != std::string::npos || line.find("HoleSelection") != std::string::npos)) {
      break;
    }
    part += line + '\n';
  }
  return part;
}

// A random field, mostly sound, typed into a program: survey, flow, head, kind of survey and of pipe, hole sizes.
inline void TypeRandomField(unsigned seed, Program& program) {
  Random random(seed);
  static constexpr std::string_view kPlain[] = {"1/4", "3/8", "1/2", "9/16", "5/8", "3/4"};
  const int rows = random.Whole(2, 9);
  const SurveyStyle style{rows, random.Whole(5, 60), random.OneIn(2) ? 3 : 0, random.OneIn(8) ? 15 : 0,
                          random.OneIn(4) ? 5 : 0};
  FillSurvey(random, style, program.main.Grid1.cells());
  const bool rods = random.OneIn(2);
  TypeText(program, "txtInfo(2)", std::to_string(random.Whole(80, 1500)));
  TypeText(program, "txtInfo(3)", GeneralText(static_cast<float>(random.Whole(2, 12)) / 2));
  TypeText(program, "txtInfo(5)", rods ? "R" : "E");
  if (random.OneIn(3)) Click(program, "mnuRigidPipe");
  for (const std::string_view size : kPlain) {
    if (random.OneIn(2)) program.main.listHolesSelected.Add(size);
  }
  if (random.OneIn(20)) TypeText(program, "txtInfo(2)", "");  // refused
}

}  // namespace torvale
