// From a line of the table of fields to the inputs of its designs.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "batch/field_table.h"
#include "scenarios/scenario.h"

namespace torvale {

// A field that never comes to its designs; the words say why, with file, row and column.
struct FieldFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The bytes of a field's survey. Throws FieldFault where the file can't be read.
std::string ReadSurveyFile(const FieldRow& field, const std::filesystem::path& folder);

struct FieldInputs {
  ScenarioInput input;
  std::vector<std::string> remarks;  // what the program reads otherwise than it says
};

// Brings a program to where a user would have it who starts it, sets the preferences, begins a new design, types the
// fields, and enters the survey, or opens it where it is a design file; gives back the inputs. `survey` is the file's
// content. Throws FieldFault.
FieldInputs TypeField(QuietProgram& quiet, const FieldRow& field, const std::filesystem::path& folder,
                      const std::string& survey);

}  // namespace torvale
