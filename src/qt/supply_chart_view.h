#pragma once

#include <qcustomplot.h>

#include <functional>

#include "qt/scale.h"
#include "screen/desk.h"

namespace torvale {

// Head and furrow flow along the line, with the flow that is wanted and the head that the tubing is to bear, and
// below them the hole sizes as steps.
class SupplyChartView final : public QCustomPlot {
 public:
  // `point` is told of a station, feet, that the user points at.
  SupplyChartView(QWidget* parent, std::function<void(double)> point);

  // Applies what changed in the chart since the last call.
  void Show(const SupplyChart& chart, const Scale& scale);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void DrawLines(const SupplyChart& chart);
  void NameLines(const SupplyChart& chart);
  double DrawSafeHeads(const SupplyChart& chart, const QVector<double>& stations);
  void DrawLit(const SupplyChart& chart);
  void UseColours();
  void UseLetters(const Scale& scale);

  std::function<void(double)> point_;
  QCPAxisRect* upper_;
  QCPAxisRect* lower_;
  QCPGraph* head_;
  QCPGraph* flow_;
  QCPGraph* wanted_;
  QCPGraph* safe_;
  QCPGraph* sizes_;
  QCPItemText* head_name_;
  QCPItemText* flow_name_;
  QCPItemText* wanted_name_;
  QCPItemText* safe_name_;
  QCPItemStraightLine* lit_;
  QCPItemStraightLine* lit_below_;
  std::uint64_t drawn_ = ~std::uint64_t{0};
  int drawn_row_ = -1;
  int letters_ = 0;  // pixels
};

}  // namespace torvale
