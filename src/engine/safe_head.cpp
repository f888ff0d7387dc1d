#include "engine/safe_head.h"

#include <algorithm>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "record/kinds.h"

namespace torvale {

std::optional<double> SafeHead(const PipeStrengths& strengths, double diameter, double mil) {
  const auto found = std::find_if(strengths.begin(), strengths.end(), [&](const PipeStrength& pipe) {
    return pipe.diameter == diameter && pipe.mil == mil;
  });
  return found == strengths.end() ? std::nullopt : std::optional(found->head);
}

std::optional<double> SafeHeadAt(const Design& record, const PipeStrengths& strengths, int i) {
  if (!IsLayflat(record) || !IsNumber(record.MilText[i])) return std::nullopt;
  return SafeHead(strengths, record.PipeDia[i], Val(record.MilText[i]));
}

std::optional<Overload> WorstOverload(const Design& record, const PipeStrengths& strengths) {
  std::optional<Overload> worst;
  if (strengths.empty()) return worst;
  for (int row = 1; row <= record.HoleRows; ++row) {
    // The head at a row stands at the end of its own pipe and at the beginning of the next one's.
    for (int pipe = row; pipe <= std::min<int>(row + 1, record.HoleRows); ++pipe) {
      const std::optional<double> safe = SafeHeadAt(record, strengths, pipe);
      if (!safe) continue;
      const double over = Hundredths(record.Head[row]) - Hundredths(*safe);
      if (over > 0 && (!worst || over > Hundredths(worst->head) - Hundredths(worst->safe))) {
        worst = {row, pipe, record.Head[row], *safe};
      }
    }
  }
  return worst;
}

}  // namespace torvale
