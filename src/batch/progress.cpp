#include "batch/progress.h"

#include <algorithm>
#include <cmath>

#include "base/format.h"

namespace torvale {
namespace {

constexpr std::chrono::milliseconds kBarPause{200};
constexpr std::chrono::milliseconds kLongestPause{60'000};
constexpr std::size_t kBarLength = 24;

std::string Clock(double seconds) {
  const auto whole = static_cast<long long>(std::ceil(seconds));
  const auto two = [](long long number) { return (number < 10 ? "0" : "") + std::to_string(number); };
  if (whole >= 3600) return std::to_string(whole / 3600) + ":" + two(whole / 60 % 60) + ":" + two(whole % 60);
  return std::to_string(whole / 60) + ":" + two(whole % 60);
}

}  // namespace

std::string ProgressText(std::size_t finished, std::size_t refused, std::size_t total, double seconds) {
  std::string text = std::to_string(finished) + " of " + std::to_string(total) + (total == 1 ? " field" : " fields");
  if (finished > 0 && seconds > 0) {
    const double rate = static_cast<double>(finished) / seconds;
    text += ", " + Format(rate, rate < 10 ? "0.0" : "0") + " a second";
    if (finished < total) text += ", " + Clock(static_cast<double>(total - finished) / rate) + " left";
  }
  if (refused > 0) text += ", " + std::to_string(refused) + " refused";
  return text;
}

void Progress::Tell(std::size_t finished, std::size_t refused) {
  const Clock::time_point now = Clock::now();
  if (kind_ == Kind::kNone || now - shown_ < (kind_ == Kind::kBar ? kBarPause : pause_)) return;
  pause_ = std::min(pause_ * 2, kLongestPause);
  Draw(finished, refused, now);
}

void Progress::End(std::size_t finished, std::size_t refused) {
  if (kind_ == Kind::kNone) return;
  Draw(finished, refused, Clock::now());
  if (kind_ == Kind::kBar) out_ << '\n' << std::flush;
}

void Progress::Draw(std::size_t finished, std::size_t refused, Clock::time_point now) {
  shown_ = now;
  const std::string text = ProgressText(finished, refused, total_, std::chrono::duration<double>(now - begun_).count());
  if (kind_ == Kind::kLines) {
    out_ << text << '\n' << std::flush;
    return;
  }
  const std::size_t full = total_ == 0 ? kBarLength : kBarLength * finished / total_;
  const std::string line = "[" + std::string(full, '#') + std::string(kBarLength - full, '.') + "] " + text;
  out_ << '\r' << line << std::string(width_ > line.size() ? width_ - line.size() : 0, ' ') << std::flush;
  width_ = line.size();
}

}  // namespace torvale
