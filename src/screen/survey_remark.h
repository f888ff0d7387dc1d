#pragma once

#include <string>
#include <vector>

#include "screen/main_screen.h"

namespace torvale {

// One thing that is wrong with the survey, or may be: a sentence that names row and column and says what to do.
struct SurveyRemark {
  SheetCell cell;  // that it speaks of
  std::string sentence;
  bool operator==(const SurveyRemark&) const = default;
};
// Row by row, from the left.
using SurveyRemarks = std::vector<SurveyRemark>;

}  // namespace torvale
