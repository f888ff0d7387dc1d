#include "engine/survey.h"

#include <algorithm>
#include <cstdint>

#include "base/arithmetic.h"
#include "base/numbers.h"

namespace torvale {

const std::string& SurveyReader::Text(int row, int column) const {
  static const std::string kEmpty;
  if (row > survey_rows_ || row >= sheet_.rows()) return kEmpty;
  return sheet_.Text(row, column);
}

double SurveyReader::Val(int row, int column) const {
  const std::string& text = Text(row, column);
  if (row < 0 || row > survey_rows_ || row >= sheet_.rows() || column >= kSurveyColumns) return torvale::Val(text);
  if (number_.empty()) {
    number_.resize(static_cast<std::size_t>((std::min(survey_rows_, sheet_.rows() - 1) + 1) * kSurveyColumns));
  }
  std::optional<double>& number = number_[static_cast<std::size_t>(row * kSurveyColumns + column)];
  if (!number) number = torvale::Val(text);
  return *number;
}

std::int16_t SurveyReader::Count(int row, int column) const {
  return StoreInt16(Val(row, column));
}

}  // namespace torvale
