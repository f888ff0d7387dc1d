#include "qt/crown_chart.h"

#include <QFontMetrics>
#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "base/numbers.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr int kTitlePixels = 18;
constexpr int kEdge = 6;              // pixels around the title and the legend
constexpr double kSideMargin = 0.02;  // of the line's length, on either side
constexpr double kZoomStep = 0.8;
constexpr qsizetype kMostMarkers = 80;
constexpr int kMarkerSize = 8;
constexpr double kLineWidth = 2;

// The lines differ in dash and marker, so that they can be told apart without their colours.
struct SeriesLook {
  Qt::PenStyle line;
  QCPScatterStyle::ScatterShape marker;
  QColor on_light;
  QColor on_dark;
};

const std::array<SeriesLook, 2> kSeriesLooks = {{
    {Qt::SolidLine, QCPScatterStyle::ssDisc, QColor(120, 63, 4), QColor(240, 180, 110)},
    {Qt::DashLine, QCPScatterStyle::ssSquare, QColor(0, 84, 166), QColor(120, 190, 255)},
}};

QFont Letters(QFont font, double pixels) {
  font.setPixelSize(std::max(qRound(pixels), 1));
  return font;
}

// A cell as it is drawn; one that is no number leaves a gap. A crown above the rods' zero has a negative reading, which
// the minus sign ahead of every reading turns: "--1.35" is drawn at 1.35.
double ValueOf(std::string_view cell) {
  if (cell.starts_with("--")) cell.remove_prefix(2);
  return IsNumber(cell) ? Val(cell) : std::numeric_limits<double>::quiet_NaN();
}

QPalette Paper() {
  QPalette colours;
  colours.setColor(QPalette::Base, Qt::white);
  colours.setColor(QPalette::Text, Qt::black);
  return colours;
}

}  // namespace

CrownChart::CrownChart(QWidget* parent)
    : QCustomPlot(parent), title_(new QCPTextElement(this)), stations_(new StationTicker), values_(new DivisionTicker) {
  setObjectName("CrownChart");
  setAccessibleName("Profile of crown");
  setToolTip("Turn the wheel to zoom, drag to move, double click to see the whole line");
  setFocusPolicy(Qt::StrongFocus);
  setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
  plotLayout()->insertRow(0);
  plotLayout()->addElement(0, 0, title_);
  auto* below = new QCPLayoutGrid;
  plotLayout()->addElement(2, 0, below);
  plotLayout()->setRowStretchFactor(2, 0.001);
  below->addElement(0, 0, legend);
  legend->setFillOrder(QCPLegend::foColumnsFirst);
  legend->setBorderPen(Qt::NoPen);
  legend->setMargins(QMargins(kEdge, 0, kEdge, kEdge));
  title_->setMargins(QMargins(kEdge, kEdge, kEdge, kEdge));
  xAxis->setTicker(stations_);
  xAxis->setLabel("Station (ft.)");
  yAxis->setTicker(values_);
  yAxis->grid()->setSubGridVisible(false);
  const auto stay_inside = [](QCPAxis* axis, const QCPRange& all) {
    connect(axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), axis,
            [axis, &all](const QCPRange& range) { axis->setRange(range.bounded(all.lower, all.upper)); });
  };
  stay_inside(xAxis, all_stations_);
  stay_inside(yAxis, all_values_);
  connect(this, &QCustomPlot::afterLayout, this, [this] { SpaceLabels(); });
  connect(this, &QCustomPlot::mouseDoubleClick, this, [this] { ShowAll(); });
}

void CrownChart::Show(const LineChart& chart, const Scale& scale) {
  title_->setText(ToQt(chart.title));
  yAxis->setLabel(chart.value_title_visible ? ToQt(chart.value_title) : QString());
  legend->setVisible(chart.legend_visible);
  values_->SetScale(static_cast<double>(chart.minimum), static_cast<double>(chart.maximum), chart.major_divisions,
                    chart.minor_divisions);
  DrawSeries(chart);
  SetLetters(chart, scale);
  UseColours(palette());
  Describe(chart);
  all_values_ = QCPRange(static_cast<double>(chart.minimum), static_cast<double>(chart.maximum));
  ShowAll();
}

void CrownChart::SetLetters(const LineChart& chart, const Scale& scale) {
  const int small = scale.Zoomed(kTextPixels);
  QFont title = Letters(font(), scale.Zoomed(kTitlePixels));
  title.setBold(true);
  title_->setFont(title);
  for (QCPAxis* axis : {xAxis, yAxis}) {
    axis->setTickLabelFont(Letters(font(), small));
    axis->setLabelFont(Letters(font(), small));
  }
  yAxis->setLabelFont(Letters(font(), scale.Zoomed(qRound(chart.value_title_size * kPixelsPerPoint))));
  legend->setFont(Letters(font(), small));
  const QFontMetrics metrics(xAxis->tickLabelFont());
  widest_label_ = 0;
  for (int row = 1; row < chart.rows; ++row) {
    widest_label_ = std::max(widest_label_, metrics.horizontalAdvance(ToQt(chart.Points.Text(row, 0)) + "  "));
  }
  // Half of the last label stands to the right of the axis.
  axisRect()->setMinimumMargins(QMargins(0, 0, widest_label_ / 2, 0));
}

void CrownChart::DrawSeries(const LineChart& chart) {
  clearGraphs();
  std::vector<LabelledPlace> places;
  QVector<double> stations;
  for (int row = 1; row < chart.rows; ++row) {
    const std::string& label = chart.Points.Text(row, 0);
    stations.append(Val(label));
    places.push_back({Val(label), ToQt(label).trimmed()});
  }
  for (int series = 1; series <= chart.series; ++series) {
    QVector<double> values;
    for (int row = 1; row < chart.rows; ++row) values.append(ValueOf(chart.Points.Text(row, series)));
    QCPGraph* line = addGraph();
    line->setName(ToQt(chart.Points.Text(0, series)));
    line->setData(stations, values);
    line->setScatterSkip(static_cast<int>(stations.size() / kMostMarkers));
  }
  if (stations.empty()) return;
  const auto [first, last] = std::minmax_element(stations.begin(), stations.end());
  const double margin = std::max((*last - *first) * kSideMargin, 1.0);
  all_stations_ = QCPRange(*first - margin, *last + margin);
  std::stable_sort(places.begin(), places.end(), [](const auto& a, const auto& b) { return a.station < b.station; });
  stations_->SetPlaces(std::move(places));
}

// What a reader of the screen says of the lines.
void CrownChart::Describe(const LineChart& chart) {
  QStringList lines;
  const int last = chart.rows - 1;
  for (int series = 1; last >= 1 && series <= chart.series; ++series) {
    lines.append(QString("%1 from %2 at station %3 to %4 at station %5")
                     .arg(ToQt(chart.Points.Text(0, series)), ToQt(chart.Points.Text(1, series)),
                          ToQt(chart.Points.Text(1, 0)), ToQt(chart.Points.Text(last, series)),
                          ToQt(chart.Points.Text(last, 0)).trimmed()));
  }
  setAccessibleDescription(lines.join("; "));
}

void CrownChart::UseColours(const QPalette& colours) {
  const QColor ground = colours.color(QPalette::Base);
  const QColor ink = colours.color(QPalette::Text);
  const bool dark = ground.lightness() < ink.lightness();
  QColor faint = ink;
  faint.setAlphaF(0.2F);
  setBackground(ground);
  title_->setTextColor(ink);
  legend->setTextColor(ink);
  legend->setBrush(Qt::NoBrush);
  for (QCPAxis* axis : {xAxis, yAxis}) {
    for (const auto set : {&QCPAxis::setBasePen, &QCPAxis::setTickPen, &QCPAxis::setSubTickPen}) (axis->*set)(ink);
    axis->setTickLabelColor(ink);
    axis->setLabelColor(ink);
    axis->grid()->setPen(QPen(faint, 1, Qt::SolidLine));
    axis->grid()->setZeroLinePen(QPen(faint, 1, Qt::SolidLine));
  }
  for (int i = 0; i < graphCount(); ++i) {
    const SeriesLook& look = kSeriesLooks.at(static_cast<std::size_t>(i));
    const QColor colour = dark ? look.on_dark : look.on_light;
    graph(i)->setPen(QPen(colour, kLineWidth, look.line));
    graph(i)->setScatterStyle(QCPScatterStyle(look.marker, QPen(colour, kLineWidth), QBrush(ground), kMarkerSize));
  }
}

void CrownChart::ShowAll() {
  xAxis->setRange(all_stations_);
  yAxis->setRange(all_values_);
  replot();
}

void CrownChart::Zoom(double factor) {
  for (QCPAxis* axis : {xAxis, yAxis}) axis->scaleRange(factor);
  replot();
}

// Chooses the labels for the axis as long as it is now. Its length is known once the values' labels are laid out.
void CrownChart::SpaceLabels() {
  stations_->SetLeastGap(widest_label_ / static_cast<double>(std::max(axisRect()->width(), 1)));
  axisRect()->update(QCPLayoutElement::upPreparation);
}

void CrownChart::PaintOnPaper(QCPPainter& painter, const QSize& size) {
  UseColours(Paper());
  toPainter(&painter, size.width(), size.height());
  UseColours(palette());
  replot();
}

void CrownChart::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return Zoom(kZoomStep);
    case Qt::Key_Minus:
      return Zoom(1 / kZoomStep);
    case Qt::Key_Home:
      return ShowAll();
    default:
      QCustomPlot::keyPressEvent(event);
  }
}

void CrownChart::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    UseColours(palette());
    replot();
  }
  QCustomPlot::changeEvent(event);
}

}  // namespace torvale
