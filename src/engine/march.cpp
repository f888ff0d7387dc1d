#include "engine/march.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#include "base/power.h"
#include "base/run_time_fault.h"
#include "engine/hydraulics.h"

namespace torvale {
namespace {

[[noreturn]] void Overflow() {
  throw RunTimeFault{Fault::kOverflow};
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
  const double area = line.opening[static_cast<std::size_t>(row)];
  const float out = static_cast<float>(OrificeFlow(area, profile.head[row], line.discharge_coef));
  if (!Finite32(out)) Overflow();
  profile.flow[row] = out;
  const float flow = place.flow + out;
  if (!Finite32(flow)) Overflow();
  place.flow = flow;
}

void CarryHead(const Line& line, const Profile& profile, const MarchPlace& place) {
  if (place.flow < 0) throw RunTimeFault{Fault::kInvalidArgument};
  const auto row = static_cast<std::size_t>(place.row);
  const double ratio = FlowPower(place.flow) / line.dia_power[row];
  const double friction = SpanFriction(line.length[row], ratio, line.friction_factor);
  const double head = profile.head[place.row] - line.rise[row] + friction;
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
