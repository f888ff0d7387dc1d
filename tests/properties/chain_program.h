// The whole program on a desktop that answers as it likes, and what must hold of it after anything a user does.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "properties/random.h"
#include "record/record_fields.h"
#include "screen/program.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/start_up.h"
#include "support/silent_host.h"

namespace torvale {

// Answers questions at random and presses Cancel at one yield when it was told to.
struct RandomDesktop {
  explicit RandomDesktop(Random& numbers) : random(numbers) {
    host.folder = "no such folder";
    host.on_yield = [this](long due) { return Yield(due); };
    host.on_question = [this] { return random.OneIn(2); };
    host.on_message = [this](std::string_view body, std::string_view title) {
      last_message = std::string(title) + ": " + std::string(body);
      if (body.find("could not finish") != std::string_view::npos) ++untrapped;
    };
  }
  RandomDesktop(const RandomDesktop&) = delete;
  RandomDesktop& operator=(const RandomDesktop&) = delete;

  long Yield(long due) {
    yields += due;
    if (!cancel) return random.OneIn(2) ? 1'000'000 : random.Whole(0, 50);
    if (yields < cancel_at) return std::min<long>(cancel_at - yields - 1, random.Whole(0, 50));
    const std::function<void()> now = std::move(cancel);
    cancel = nullptr;
    now();
    return 1'000'000;
  }
  void CancelAfter(long count, std::function<void()> press) {
    cancel_at = yields + count;
    cancel = std::move(press);
  }

  Random& random;
  SilentHost host;
  long yields = 0;
  int untrapped = 0;  // faults that no procedure trapped
  std::string last_message;
  long cancel_at = 0;
  std::function<void()> cancel;
};

// Counts the elements that are no finite numbers.
template <typename T>
int NotFinite(const T&) {
  return 0;
}
inline int NotFinite(float value) {
  return std::isfinite(value) ? 0 : 1;
}
inline int NotFinite(double value) {
  return std::isfinite(value) ? 0 : 1;
}
inline int NotFinite(const FreeValue& value) {
  return NotFinite(Number(value));
}
template <typename T, int kLast>
int NotFinite(const BoundedArray<T, kLast>& array) {
  int count = 0;
  for (int i = 0; i <= kLast; ++i) count += NotFinite(array[i]);
  return count;
}

// No field of the record holds an infinity or something that is no number.
inline void ExpectFinite(const DesignRecord& record) {
  ForEachRecordField([&](const auto& field) { EXPECT_EQ(NotFinite(record.*field.member), 0) << field.name; });
}

// No result reads as an infinity or as no number.
inline void ExpectPlainResults(const Grid& results) {
  for (int row = 1; row < results.rows(); ++row) {
    for (int column = 0; column < results.column_count(); ++column) {
      const std::string& text = results.Text(row, column);
      EXPECT_TRUE(text.find("nan") == std::string::npos && text.find("inf") == std::string::npos) << text;
    }
  }
}

// How far the flows of all holes together lie from the target, as a part of it.
inline double Imbalance(const DesignRecord& record) {
  double sum = 0;
  for (int row = 1; row <= record.HoleRows; ++row) sum += static_cast<double>(record.FurrowFlow[row]);
  const double target = static_cast<double>(record.TargetGPM);
  return std::fabs(sum - target) / target;
}

// A finished march meets its target, and the flow of all its holes is the flow of the line. A march that went negative
// and met its target at the head of the line alone leaves the flows of other marches in the list.
inline bool ExpectMassBalance(const DesignRecord& record) {
  const double target = static_cast<double>(record.TargetGPM);
  const double flow = static_cast<double>(record.AccumGPM);
  EXPECT_LT(std::fabs(flow - target), target * 0.0005 * (1 + 1e-6));
  double sum = 0;
  for (int row = 1; row <= record.HoleRows; ++row) {
    if (record.Head[row] < 0 || record.Head[1] == 2.0) return false;
    sum += static_cast<double>(record.FurrowFlow[row]);
  }
  EXPECT_NEAR(sum, flow, flow * 6e-8 * (record.HoleRows + 1));
  return true;
}

}  // namespace torvale
