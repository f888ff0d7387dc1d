#include "engine/march.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#include "base/power.h"
#include "base/run_time_fault.h"

namespace torvale {
namespace {

[[noreturn]] void Overflow() {
  throw RunTimeFault{Fault::kOverflow};
}

// Flow out of the row's holes, in gallons per minute before rounding.
inline double OrificeFlow(const Line& line, int row, double head) {
  return static_cast<double>(line.opening[static_cast<std::size_t>(row)]) * std::sqrt(head * 64.4) * 448.8 *
         line.discharge_coef;
}

// Head at the next row upstream.
inline double UpstreamHead(const Line& line, int row, double head, float flow) {
  const auto i = static_cast<std::size_t>(row);
  const double ratio = FlowPower(flow) / line.dia_power[i];
  const double friction = line.length[i] * (ratio * line.friction_factor / 100);
  return head - line.rise[i] + friction;
}

inline bool Finite32(float value) {
  return std::fabs(value) <= FLT_MAX;
}
// A division by a zero diameter or roughness leaves an infinity or no number at all, and is caught here too.
inline bool Finite64(double value) {
  return std::fabs(value) <= DBL_MAX;
}

}  // namespace

void TakeOrifice(const Line& line, const Profile& profile, MarchPlace& place) {
  const int row = place.row;
  if (line.watered[static_cast<std::size_t>(row)] == 0) return;
  profile.area[row] = line.opening[static_cast<std::size_t>(row)];
  const float out = static_cast<float>(OrificeFlow(line, row, profile.head[row]));
  if (!Finite32(out)) Overflow();
  profile.flow[row] = out;
  const float flow = place.flow + out;
  if (!Finite32(flow)) Overflow();
  place.flow = flow;
}

void CarryHead(const Line& line, const Profile& profile, const MarchPlace& place) {
  if (place.flow < 0) throw RunTimeFault{Fault::kInvalidArgument};
  const double head = UpstreamHead(line, place.row, profile.head[place.row], place.flow);
  if (!Finite64(head)) Overflow();
  profile.head[place.row - 1] = head;
}

void MarchRows(const Line& line, const Profile& profile, MarchPlace& place, int count) {
  const int end = std::max(place.row - count, 1);
  while (place.row > end) {
    TakeOrifice(line, profile, place);
    CarryHead(line, profile, place);
    --place.row;
    if (profile.head[place.row] < 0) return;
  }
}

}  // namespace torvale
