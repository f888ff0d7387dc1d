#include "qt/supply_chart_view.h"

#include <QMouseEvent>
#include <algorithm>
#include <utility>

namespace torvale {
namespace {

constexpr int kChartLetters = 10;  // pixels at 100 percent
constexpr double kRoom = 0.06;     // of the range, above and below its lines
constexpr int kGap = 4;            // pixels
constexpr int kPlainZoom = 100;    // percent
constexpr double kApart = 0.2;     // of the height, between head and flow where both are level
constexpr double kNearEdge = 0.2;  // the same, where a name has no room
constexpr double kLineWidth = 1.6;

struct Look {
  QColor on_light;
  QColor on_dark;
  Qt::PenStyle line;
};
const Look kHead{QColor(0, 70, 180), QColor(130, 180, 255), Qt::SolidLine};
const Look kFlow{QColor(0, 120, 60), QColor(110, 220, 150), Qt::SolidLine};
const Look kWanted{QColor(0, 120, 60), QColor(110, 220, 150), Qt::DashLine};
const Look kSafe{QColor(190, 0, 0), QColor(255, 120, 120), Qt::DashDotLine};
const Look kSizes{QColor(120, 70, 0), QColor(240, 190, 110), Qt::SolidLine};

QVector<double> ToQt(const std::vector<double>& values) {
  return QVector<double>(values.begin(), values.end());
}

// From 0 to the highest of the values and of `also`, with some room above it.
QCPRange RangeOf(const std::vector<double>& values, double also) {
  if (values.empty()) return {0, 1};
  const double most = std::max(*std::max_element(values.begin(), values.end()), also);
  return {0, most + std::max(most * kRoom, 0.05)};
}

double MeanOf(const std::vector<double>& values) {
  double sum = 0;
  int count = 0;
  for (const double value : values) {
    if (value <= 0) continue;
    sum += value;
    ++count;
  }
  return count == 0 ? 0 : sum / count;
}

// The range of the flows, which reaches so high that on the whole they don't run upon the heads.
QCPRange RangeApart(const std::vector<double>& flows, double wanted, double head_level) {
  const QCPRange plain = RangeOf(flows, wanted);
  for (const double higher : {1.0, 1.5, 2.0}) {
    if (std::abs(MeanOf(flows) / (plain.upper * higher) - head_level) >= kApart) return {0, plain.upper * higher};
  }
  return plain;
}

enum class Corner { kLeftAbove, kRightAbove, kRightBelow };

// The name of a line, at one of its ends; on the other side of the line where the edge is too near.
void PutName(QCPItemText& name, const QString& words, QCPAxis* along, QCPAxis* up, double station, double value,
             Corner corner) {
  name.setVisible(!words.isEmpty());
  if (words.isEmpty()) return;
  name.setText(words);
  name.position->setAxes(along, up);
  name.position->setCoords(station, value);
  const double level = value / up->range().upper;
  const bool above = corner == Corner::kRightBelow ? level < kNearEdge : level <= 1 - kNearEdge;
  const bool left = corner == Corner::kLeftAbove;
  name.setPositionAlignment((left ? Qt::AlignLeft : Qt::AlignRight) | (above ? Qt::AlignBottom : Qt::AlignTop));
}

}  // namespace

SupplyChartView::SupplyChartView(QWidget* parent, std::function<void(double)> point)
    : QCustomPlot(parent), point_(std::move(point)) {
  setObjectName("SupplyChart");
  setAccessibleName("Head and flow along the line");
  plotLayout()->clear();
  upper_ = new QCPAxisRect(this);
  lower_ = new QCPAxisRect(this);
  upper_->setupFullAxesBox(false);
  plotLayout()->addElement(0, 0, upper_);
  plotLayout()->addElement(1, 0, lower_);
  plotLayout()->setRowStretchFactor(0, 2);
  plotLayout()->setRowStretchFactor(1, 1);
  plotLayout()->setRowSpacing(0);
  upper_->setMinimumMargins({kGap, kGap, kGap, 0});
  lower_->setMinimumMargins({kGap, kGap, kGap, 0});
  auto* group = new QCPMarginGroup(this);
  for (QCPAxisRect* rect : {upper_, lower_}) {
    rect->setMarginGroup(QCP::msLeft | QCP::msRight, group);
    for (QCPAxis* axis : rect->axes()) {
      axis->setLayer("axes");
      axis->grid()->setLayer("grid");
    }
  }
  upper_->axis(QCPAxis::atTop)->setVisible(false);
  upper_->axis(QCPAxis::atBottom)->setTickLabels(false);
  upper_->axis(QCPAxis::atRight)->setTickLabels(true);
  upper_->axis(QCPAxis::atLeft)->setLabel("Head, ft");
  upper_->axis(QCPAxis::atRight)->setLabel("Flow, GPM");
  lower_->axis(QCPAxis::atLeft)->setLabel("Hole, in");
  lower_->axis(QCPAxis::atLeft)->ticker()->setTickCount(2);
  for (const auto side : {QCPAxis::atLeft, QCPAxis::atRight}) upper_->axis(side)->ticker()->setTickCount(3);
  lower_->axis(QCPAxis::atBottom)->setLabel("Station, ft");
  QCPAxis* along = upper_->axis(QCPAxis::atBottom);
  head_ = addGraph(along, upper_->axis(QCPAxis::atLeft));
  flow_ = addGraph(along, upper_->axis(QCPAxis::atRight));
  wanted_ = addGraph(along, upper_->axis(QCPAxis::atRight));
  safe_ = addGraph(along, upper_->axis(QCPAxis::atLeft));
  sizes_ = addGraph(lower_->axis(QCPAxis::atBottom), lower_->axis(QCPAxis::atLeft));
  // A size, like a pipe, reaches from the row before up to its own.
  for (QCPGraph* graph : {safe_, sizes_}) graph->setLineStyle(QCPGraph::lsStepRight);
  const auto line = [this](QCPAxisRect* rect) {
    auto* item = new QCPItemStraightLine(this);
    item->setClipAxisRect(rect);
    for (QCPItemPosition* position : {item->point1, item->point2}) {
      position->setType(QCPItemPosition::ptPlotCoords);
      position->setAxisRect(rect);
      position->setAxes(rect->axis(QCPAxis::atBottom), rect->axis(QCPAxis::atLeft));
    }
    return item;
  };
  const auto name = [this] {
    auto* item = new QCPItemText(this);
    item->position->setType(QCPItemPosition::ptPlotCoords);
    item->position->setAxisRect(upper_);
    item->setClipAxisRect(upper_);
    item->setPadding(QMargins(kGap, 1, kGap, 1));
    return item;
  };
  for (QCPItemText** item : {&head_name_, &flow_name_, &wanted_name_, &safe_name_}) *item = name();
  lit_ = line(upper_);
  lit_below_ = line(lower_);
  Show({}, Scale(kPlainZoom));
}

void SupplyChartView::Show(const SupplyChart& chart, const Scale& scale) {
  const int letters = scale.Zoomed(kChartLetters);
  const bool same = drawn_ == chart.revision && drawn_row_ == chart.row && letters_ == letters;
  if (same) return;
  if (std::exchange(letters_, letters) != letters) {
    UseLetters(scale);
    UseColours();
  }
  if (std::exchange(drawn_, chart.revision) != chart.revision) DrawLines(chart);
  drawn_row_ = chart.row;
  DrawLit(chart);
  replot(QCustomPlot::rpQueuedReplot);
}

void SupplyChartView::DrawLines(const SupplyChart& chart) {
  const QVector<double> stations = ToQt(chart.stations);
  head_->setData(stations, ToQt(chart.heads), true);
  const auto with_holes = [&](QCPGraph* graph, const std::vector<double>& values) {
    QVector<double> keys;
    QVector<double> kept;
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (values[i] <= 0) continue;
      keys.append(chart.stations[i]);
      kept.append(values[i]);
    }
    graph->setData(keys, kept, true);
  };
  with_holes(flow_, chart.flows);
  with_holes(sizes_, chart.sizes);
  const double first = chart.stations.empty() ? 0 : chart.stations.front();
  const double last = chart.stations.empty() ? 1 : chart.stations.back();
  const auto level = [&](QCPGraph* graph, const std::optional<double>& value) {
    graph->setVisible(value.has_value() && !chart.stations.empty());
    if (value) graph->setData({first, last}, {*value, *value}, true);
  };
  level(wanted_, chart.wanted_flow);
  const double safest = DrawSafeHeads(chart, stations);
  for (QCPAxisRect* rect : {upper_, lower_}) rect->axis(QCPAxis::atBottom)->setRange(first, std::max(last, first + 1));
  upper_->axis(QCPAxis::atLeft)->setRange(RangeOf(chart.heads, safest));
  const double head_level = MeanOf(chart.heads) / upper_->axis(QCPAxis::atLeft)->range().upper;
  upper_->axis(QCPAxis::atRight)->setRange(RangeApart(chart.flows, chart.wanted_flow.value_or(0), head_level));
  lower_->axis(QCPAxis::atLeft)->setRange(RangeOf(chart.sizes, 0));
  NameLines(chart);
  // Scales of nothing would only look like something.
  for (QCPAxisRect* rect : {upper_, lower_}) rect->setVisible(!chart.stations.empty());
}

void SupplyChartView::NameLines(const SupplyChart& chart) {
  QCPAxis* along = upper_->axis(QCPAxis::atBottom);
  QCPAxis* heads = upper_->axis(QCPAxis::atLeft);
  QCPAxis* flows = upper_->axis(QCPAxis::atRight);
  const bool any = !chart.stations.empty();
  const double first = any ? chart.stations.front() : 0;
  const double last = any ? chart.stations.back() : 0;
  const auto flow = std::find_if(chart.flows.begin(), chart.flows.end(), [](double value) { return value > 0; });
  const auto safe =
      std::find_if(chart.safe_heads.rbegin(), chart.safe_heads.rend(), [](double head) { return head > 0; });
  PutName(*head_name_, any ? "Head" : "", along, heads, first, any ? chart.heads.front() : 0, Corner::kLeftAbove);
  PutName(*flow_name_, flow != chart.flows.end() ? "Furrow flow" : "", along, flows, first,
          flow != chart.flows.end() ? *flow : 0, Corner::kLeftAbove);
  PutName(*wanted_name_, QString::fromStdString(chart.wanted_words), along, flows, last, chart.wanted_flow.value_or(0),
          Corner::kRightBelow);
  const auto safe_row = static_cast<std::size_t>(chart.safe_heads.rend() - safe);
  PutName(*safe_name_, QString::fromStdString(chart.safe_words), along, heads,
          safe_row > 0 ? chart.stations[safe_row - 1] : last, safe_row > 0 ? *safe : 0, Corner::kRightAbove);
}

// A pipe of which nothing is known leaves a gap. Gives back the highest of the heads.
double SupplyChartView::DrawSafeHeads(const SupplyChart& chart, const QVector<double>& stations) {
  double safest = 0;
  QVector<double> heads;
  for (const double head : chart.safe_heads) {
    heads.append(head > 0 ? head : qQNaN());
    safest = std::max(safest, head);
  }
  safe_->setData(stations, heads, true);
  safe_->setVisible(safest > 0);
  return safest;
}

void SupplyChartView::DrawLit(const SupplyChart& chart) {
  const bool lit = chart.row > 0 && chart.row <= static_cast<int>(chart.stations.size());
  for (QCPItemStraightLine* line : {lit_, lit_below_}) {
    line->setVisible(lit);
    if (!lit) continue;
    const double station = chart.stations[static_cast<std::size_t>(chart.row - 1)];
    line->point1->setCoords(station, 0);
    line->point2->setCoords(station, 1);
  }
}

void SupplyChartView::UseLetters(const Scale& scale) {
  QFont font = this->font();
  font.setPixelSize(std::max(1, scale.Zoomed(kChartLetters)));
  for (QCPAxisRect* rect : {upper_, lower_}) {
    for (QCPAxis* axis : rect->axes()) {
      axis->setTickLabelFont(font);
      axis->setLabelFont(font);
    }
  }
  for (QCPItemText* name : {head_name_, flow_name_, wanted_name_, safe_name_}) name->setFont(font);
}

void SupplyChartView::UseColours() {
  const QColor ground = palette().color(QPalette::Base);
  const QColor ink = palette().color(QPalette::Text);
  const bool dark = ground.lightness() < ink.lightness();
  QColor faint = ink;
  faint.setAlphaF(0.15F);
  setBackground(ground);
  for (QCPAxisRect* rect : {upper_, lower_}) {
    for (QCPAxis* axis : rect->axes()) {
      for (const auto set : {&QCPAxis::setBasePen, &QCPAxis::setTickPen, &QCPAxis::setSubTickPen}) (axis->*set)(ink);
      axis->setTickLabelColor(ink);
      axis->setLabelColor(ink);
      axis->grid()->setPen(QPen(faint, 1));
      axis->grid()->setZeroLinePen(QPen(faint, 1));
    }
  }
  const double width = kLineWidth * std::max(letters_, kChartLetters) / kChartLetters;
  const auto pen = [&](QCPGraph* graph, const Look& look) {
    graph->setPen(QPen(dark ? look.on_dark : look.on_light, width, look.line));
  };
  pen(head_, kHead);
  pen(flow_, kFlow);
  pen(wanted_, kWanted);
  pen(safe_, kSafe);
  pen(sizes_, kSizes);
  // A name may lie on other lines, which shine through a little.
  QColor behind = ground;
  behind.setAlphaF(0.8F);
  const auto name = [&](QCPItemText* item, const QCPGraph* graph) {
    item->setColor(graph->pen().color());
    item->setBrush(behind);
  };
  name(head_name_, head_);
  name(flow_name_, flow_);
  name(wanted_name_, wanted_);
  name(safe_name_, safe_);
  // Each scale is written in the colour of its line.
  upper_->axis(QCPAxis::atLeft)->setLabelColor(head_->pen().color());
  upper_->axis(QCPAxis::atRight)->setLabelColor(flow_->pen().color());
  lower_->axis(QCPAxis::atLeft)->setLabelColor(sizes_->pen().color());
  for (QCPItemStraightLine* line : {lit_, lit_below_}) line->setPen(QPen(ink, 1, Qt::DotLine));
}

void SupplyChartView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  point_(upper_->axis(QCPAxis::atBottom)->pixelToCoord(event->position().x()));
}

void SupplyChartView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    UseColours();
    replot(QCustomPlot::rpQueuedReplot);
  }
  QCustomPlot::changeEvent(event);
}

}  // namespace torvale
