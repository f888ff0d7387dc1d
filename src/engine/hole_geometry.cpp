#include "engine/hole_geometry.h"

#include <cmath>

#include "base/arithmetic.h"

namespace torvale {
namespace {

constexpr double kTolerance = 0.005;
constexpr int kMostSteps = 10000;

double Segment(double radius, double theta) {
  double area = 0;
  SegmentArea(radius, theta, area);
  return Finite(area);
}

// The start of the iteration. Its 360 stands for degrees while the segment takes radians; the iteration corrects it.
double FirstAngle(double share) {
  if (share > 50) return 360 - ((1 - share) + 0.5) * 360 * (1 - share);
  return ((0.5 - share) + 1) * 360 * share;
}

}  // namespace

void SegmentArea(double radius, double theta, double& area) {
  area = (theta - std::sin(theta)) * (radius * radius / 2);
}

void SegmentAreaD(double radius, double height, double& area) {
  area = 0;
  if (radius == 0) return;
  const double x = height / (2 * radius);
  const double theta = x == 1 ? 8 * std::atan(1.0) : 4 * std::atan(Divide(Root(x), Root(1 - x)));
  SegmentArea(radius, theta, area);
}

void GateMove(double wanted_area, double diameter, double& opening) {
  opening = 0;
  if (wanted_area == 0 || diameter == 0) return;
  const double radius = diameter / 2;
  const double full = radius * radius * (4 * std::atan(1.0));
  double theta0 = FirstAngle(Divide(wanted_area, full));
  double theta1 = 0;
  double area0 = Segment(radius, theta0);
  double area1 = 0;
  double error = Divide(std::fabs(area0 - wanted_area), wanted_area);
  for (int count = 0; error > kTolerance; ++count) {
    if (count == kMostSteps) throw RunTimeFault{Fault::kOverflow};
    if (count == 0) {
      theta1 = theta0 * Divide(wanted_area, area0);
    } else {
      const double theta2 = theta0 + Divide((theta1 - theta0) * (wanted_area - area0), area1 - area0);
      theta0 = theta1;
      theta1 = theta2;
      area0 = area1;
    }
    area1 = Segment(radius, theta1);
    error = Divide(std::fabs(area1 - wanted_area), wanted_area);
  }
  const double cosine = std::cos(theta1 / 4);
  opening = diameter - diameter * (cosine * cosine);
}

}  // namespace torvale
