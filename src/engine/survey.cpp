#include "engine/survey.h"

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
  return torvale::Val(Text(row, column));
}

std::int16_t SurveyReader::Count(int row, int column) const {
  return StoreInt16(Val(row, column));
}

}  // namespace torvale
