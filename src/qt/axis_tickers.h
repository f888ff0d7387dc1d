// Where the axes of a chart have their ticks, and what stands there.
#pragma once

#include <qcustomplot.h>

#include <QString>
#include <vector>

namespace torvale {

// A place on the axis along the line that has a label.
struct LabelledPlace {
  double station;
  QString label;
};

// Ticks at the points of a chart, as many as can be read side by side: the ends first, then from the left.
class StationTicker final : public QCPAxisTicker {
 public:
  // `places` in rising order.
  void SetPlaces(std::vector<LabelledPlace> places) { places_ = std::move(places); }
  // Labels stand at least that share of the axis apart.
  void SetLeastGap(double share) { least_gap_ = share; }

 protected:
  QVector<double> createTickVector(double step, const QCPRange& range) override;
  QString getTickLabel(double tick, const QLocale& locale, QChar format, int precision) override;
  int getSubTickCount(double /*step*/) override { return 0; }

 private:
  std::vector<LabelledPlace> places_;
  double least_gap_ = 0;
};

// The axis from `minimum` to `maximum` in equal divisions, each in equal parts. Looked at more closely, the divisions
// are halved until there are enough in sight.
class DivisionTicker final : public QCPAxisTicker {
 public:
  void SetScale(double minimum, double maximum, int major, int minor);

 protected:
  double getTickStep(const QCPRange& range) override;
  QVector<double> createTickVector(double step, const QCPRange& range) override;
  QString getTickLabel(double tick, const QLocale& locale, QChar format, int precision) override;
  int getSubTickCount(double /*step*/) override { return minor_ - 1; }

 private:
  double minimum_ = 0;
  double step_ = 1;
  int minor_ = 1;
  int decimals_ = 2;
};

}  // namespace torvale
