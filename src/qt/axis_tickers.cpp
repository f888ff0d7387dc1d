#include "qt/axis_tickers.h"

#include <algorithm>
#include <cmath>

namespace torvale {
namespace {

constexpr int kLeastDivisions = 4;  // in sight
constexpr double kCoarseStep = 0.05;

}  // namespace

QVector<double> StationTicker::createTickVector(double /*step*/, const QCPRange& range) {
  std::vector<double> seen;
  for (const LabelledPlace& place : places_) {
    if (range.contains(place.station)) seen.push_back(place.station);
  }
  if (seen.empty()) return {};
  const double gap = range.size() * least_gap_;
  QVector<double> ticks{seen.front()};
  for (const double station : seen) {
    if (station - ticks.back() >= gap && seen.back() - station >= gap) ticks.append(station);
  }
  if (seen.back() - ticks.back() >= gap) ticks.append(seen.back());
  return ticks;
}

QString StationTicker::getTickLabel(double tick, const QLocale& /*locale*/, QChar /*format*/, int /*precision*/) {
  const auto place =
      std::find_if(places_.begin(), places_.end(), [tick](const LabelledPlace& p) { return p.station == tick; });
  return place == places_.end() ? QString() : place->label;
}

void DivisionTicker::SetScale(double minimum, double maximum, int major, int minor) {
  minimum_ = minimum;
  step_ = (maximum - minimum) / std::max(major, 1);
  minor_ = std::max(minor, 1);
}

double DivisionTicker::getTickStep(const QCPRange& range) {
  double step = step_;
  while (step > 0 && range.size() < kLeastDivisions * step) step /= 2;
  decimals_ = step < kCoarseStep ? 3 : 2;
  return step;
}

QVector<double> DivisionTicker::createTickVector(double step, const QCPRange& range) {
  QVector<double> ticks;
  if (!(step > 0)) return ticks;
  const auto first = static_cast<long>(std::floor((range.lower - minimum_) / step));
  const auto last = static_cast<long>(std::ceil((range.upper - minimum_) / step));
  for (long i = first; i <= last; ++i) ticks.append(minimum_ + static_cast<double>(i) * step);
  return ticks;
}

QString DivisionTicker::getTickLabel(double tick, const QLocale& /*locale*/, QChar /*format*/, int /*precision*/) {
  return QString::number(tick, 'f', decimals_);
}

}  // namespace torvale
