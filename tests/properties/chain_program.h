// The whole program on a desktop that answers as it likes, and what must hold of it after anything a user does.
#pragma once

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "properties/random.h"
#include "record/record_fields.h"
#include "screen/program.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/start_up.h"

namespace torvale {

// Answers questions at random and presses Cancel at one yield when it was told to.
class RandomHost final : public Host {
 public:
  explicit RandomHost(Random& random) : random_(random) {}

  long Yield(long due) override {
    yields += due;
    if (!cancel) return random_.OneIn(2) ? 1'000'000 : random_.Whole(0, 50);
    if (yields < cancel_at) return std::min<long>(cancel_at - yields - 1, random_.Whole(0, 50));
    const std::function<void()> now = std::move(cancel);
    cancel = nullptr;
    now();
    return 1'000'000;
  }
  void Message(std::string_view body, std::string_view title) override {
    last_message = std::string(title) + ": " + std::string(body);
    if (body.find("could not finish") != std::string_view::npos) ++untrapped;
  }
  bool Question(std::string_view, std::string_view) override { return random_.OneIn(2); }
  void Beep() override {}
  std::optional<std::string> OpenDialog(const FileDialog& /*dialog*/) override { return std::nullopt; }
  std::optional<std::string> SaveDialog(const FileDialog& /*dialog*/) override { return std::nullopt; }
  bool HasPrinter() override { return false; }
  std::optional<int> PrinterDialog() override { return std::nullopt; }
  bool Print(const Document& /*document*/) override { return false; }
  void Preview(const Document& /*document*/) override {}
  WholeFileResult WritePdf(const Document& /*document*/, const std::string& /*path*/) override { return {EIO, {}}; }
  std::string ClipboardText() override { return ""; }
  void SetClipboardText(std::string_view) override {}
  std::optional<std::string> Setting(std::string_view) override { return std::nullopt; }
  void SaveSetting(std::string_view, std::string_view) override {}
  std::string Today() override { return "1/1/2030"; }
  std::string ProgramFolder() override { return "no such folder"; }
  std::string UserDataFolder() override { return ""; }

  void CancelAfter(long count, std::function<void()> press) {
    cancel_at = yields + count;
    cancel = std::move(press);
  }

  long yields = 0;
  int untrapped = 0;  // faults that no procedure trapped
  std::string last_message;
  long cancel_at = 0;
  std::function<void()> cancel;

 private:
  Random& random_;
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
