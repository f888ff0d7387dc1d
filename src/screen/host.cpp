#include "screen/host.h"

#include <cerrno>
#include <chrono>

namespace torvale {
namespace {

std::string TwoDigits(unsigned number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

WholeFileResult Host::WriteProfile(const std::string& /*path*/) {
  return {EIO, {}};
}

WholeFileResult Host::WritePicture(const Document& /*document*/, const std::string& /*path*/) {
  return {EIO, {}};
}

std::int64_t Host::Clock() {
  using std::chrono::milliseconds;
  return std::chrono::duration_cast<milliseconds>(std::chrono::system_clock::now().time_since_epoch()).count();
}

std::string Host::TimeText(std::int64_t moment) {
  const std::chrono::sys_time<std::chrono::milliseconds> time{std::chrono::milliseconds(moment)};
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(time - day).count();
  return TwoDigits(static_cast<unsigned>(date.month())) + "/" + TwoDigits(static_cast<unsigned>(date.day())) + "/" +
         std::to_string(static_cast<int>(date.year())) + " " + TwoDigits(static_cast<unsigned>(minutes / 60)) + ":" +
         TwoDigits(static_cast<unsigned>(minutes % 60));
}

}  // namespace torvale
