#pragma once

#include <qcustomplot.h>

#include <QPalette>
#include <QSharedPointer>

#include "qt/axis_tickers.h"
#include "qt/scale.h"
#include "screen/crown_profile_screen.h"

namespace torvale {

// A line chart along the stations of the line, true to scale: a constant slope is a straight line. The wheel and the
// keys + and - zoom, dragging moves, a double click and the key Home show all of it.
class CrownChart final : public QCustomPlot {
 public:
  explicit CrownChart(QWidget* parent);

  // Shows the chart in letters of that scale. Where the points are new, all of it is in sight.
  void Show(const LineChart& chart, const Scale& scale);
  // Draws the chart in that size, in dark ink on white, whatever the desktop's colours.
  void PaintOnPaper(QCPPainter& painter, const QSize& size);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void SetLetters(const LineChart& chart, const Scale& scale);
  void DrawSeries(const LineChart& chart);
  void Describe(const LineChart& chart);
  void UseColours(const QPalette& colours);
  void ShowAll();
  void Zoom(double factor);
  void SpaceLabels();

  QCPTextElement* title_;
  QSharedPointer<StationTicker> stations_;
  QSharedPointer<DivisionTicker> values_;
  QCPRange all_stations_{0, 1};
  QCPRange all_values_{0, 1};
  int widest_label_ = 0;  // pixels
};

}  // namespace torvale
