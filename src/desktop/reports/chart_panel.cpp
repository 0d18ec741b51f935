#include "desktop/reports/chart_panel.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGraphicsLayout>
#include <QGuiApplication>
#include <QLegend>
#include <QLegendMarker>
#include <QLineSeries>
#include <QLocale>
#include <QMenu>
#include <QResizeEvent>
#include <QScatterSeries>
#include <QStackedBarSeries>
#include <QToolTip>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "platform/format.h"

namespace desktop {
namespace {

constexpr Qt::PenStyle kLines[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};
constexpr QScatterSeries::MarkerShape kMarks[] = {
    QScatterSeries::MarkerShapeCircle, QScatterSeries::MarkerShapeRectangle,
    QScatterSeries::MarkerShapeRotatedRectangle, QScatterSeries::MarkerShapeTriangle};
constexpr Qt::BrushStyle kHatches[] = {Qt::SolidPattern,  Qt::BDiagPattern,    Qt::Dense4Pattern,
                                       Qt::CrossPattern,  Qt::FDiagPattern,    Qt::HorPattern,
                                       Qt::Dense6Pattern, Qt::DiagCrossPattern};
constexpr double kHeadroom = 1.08;
constexpr int kLongestName = 5;          // of a place along the axis, in lines' heights
constexpr double kLineRoom = 0.3;        // of the span, above and below
constexpr double kLeastLineRoom = 0.05;  // of the highest

template <typename T, std::size_t n>
T Styled(const T (&styles)[n], std::size_t series) {
  return styles[series % n];
}

double Highest(const reports::Grafico& chart) {
  double highest = 0;
  for (std::size_t i = 0; i < chart.lugares.size(); ++i) {
    double stacked = 0;
    for (const reports::Serie& series : chart.series) {
      const double value = series.valores[i].value_or(0);
      stacked += std::max(0.0, value);
      highest = std::max(highest, value);
    }
    if (chart.forma == reports::Forma::kBarrasEmpilhadas) highest = std::max(highest, stacked);
  }
  return highest;
}

double Lowest(const reports::Grafico& chart) {
  double lowest = 0;
  for (const reports::Serie& series : chart.series)
    for (const auto& value : series.valores) lowest = std::min(lowest, value.value_or(0));
  return lowest;
}

/// Bars stand on zero; lines are shown where they move.
std::pair<double, double> RangeOf(const reports::Grafico& chart) {
  const double highest = Highest(chart);
  if (chart.forma != reports::Forma::kLinhas)
    return {Lowest(chart) * kHeadroom, highest > 0 ? highest * kHeadroom : 1};
  double lowest = highest;
  for (const reports::Serie& series : chart.series)
    for (const auto& value : series.valores) lowest = std::min(lowest, value.value_or(lowest));
  const double room = std::max((highest - lowest) * kLineRoom, std::abs(highest) * kLeastLineRoom);
  return {std::max(0.0, lowest - room), highest + room};
}

}  // namespace

ChartPanel::ChartPanel(QWidget* parent) : QWidget(parent), view_(new QChartView(new QChart, this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(view_);
  view_->setFrameShape(QFrame::NoFrame);
  view_->setRenderHint(QPainter::Antialiasing);
  view_->viewport()->installEventFilter(this);
  setMinimumSize(Em(this) * 14, Em(this) * 10);
  Draw();
}

void ChartPanel::Show(const reports::Grafico& chart) {
  shown_ = chart;
  Draw();
}

void ChartPanel::Draw() {
  auto* chart = new QChart;
  chart->setBackgroundRoundness(0);
  chart->layout()->setContentsMargins(0, 0, 0, 0);
  chart->setBackgroundBrush(palette().color(QPalette::Base));
  chart->setMargins(QMargins(Gap(this), Gap(this), Gap(this), Gap(this)));
  chart->setTitle(ToQt(shown_.titulo + (shown_.unidade.empty() ? "" : " (" + shown_.unidade + ")")));
  QFont title = font();
  title.setBold(true);
  chart->setTitleFont(title);
  chart->setTitleBrush(palette().color(QPalette::Text));
  chart->legend()->setFont(font());
  chart->legend()->setLabelColor(palette().color(QPalette::Text));
  chart->legend()->setAlignment(LegendFits() ? Qt::AlignBottom : Qt::AlignRight);
  chart->legend()->setShowToolTips(true);
  const bool lines = shown_.forma == reports::Forma::kLinhas;
  chart->legend()->setMarkerShape(lines ? QLegend::MarkerShapeFromSeries : QLegend::MarkerShapeRectangle);
  chart->legend()->setVisible(shown_.series.size() > 1);
  if (shown_.Vazio()) {
    chart->setTitle(shown_.titulo.empty() ? QString()
                                          : ToQt(shown_.titulo) + QStringLiteral(": sem valores"));
  } else {
    if (lines)
      AddLines(*chart);
    else
      AddBars(*chart);
    AddAxes(*chart);
  }
  QChart* const before = view_->chart();
  view_->setChart(chart);
  view_->setBackgroundBrush(palette().color(QPalette::Base));
  view_->setAccessibleName(chart->title());
  delete before;
}

/// A line that is interrupted where there is no value, and a mark on each value.
void ChartPanel::AddLines(QChart& chart) {
  for (std::size_t s = 0; s < shown_.series.size(); ++s) {
    const reports::Serie& series = shown_.series[s];
    auto* marks = new QScatterSeries;
    marks->setName(ToQt(series.nome));
    marks->setMarkerShape(Styled(kMarks, s));
    marks->setMarkerSize(Em(this) * 0.6);
    marks->setColor(SeriesColor(s));
    marks->setBorderColor(SeriesColor(s));
    connect(marks, &QScatterSeries::hovered, this, [this, s](const QPointF& point, bool in) {
      Point(s, static_cast<int>(std::lround(point.x())), in);
    });
    QLineSeries* line = nullptr;
    for (std::size_t i = 0; i < series.valores.size(); ++i) {
      if (!series.valores[i]) {
        line = nullptr;
        continue;
      }
      if (line == nullptr) {
        line = new QLineSeries;
        line->setPen(QPen(SeriesColor(s), 2, Styled(kLines, s)));
        chart.addSeries(line);
        for (QLegendMarker* marker : chart.legend()->markers(line)) marker->setVisible(false);
      }
      line->append(static_cast<double>(i), *series.valores[i]);
      marks->append(static_cast<double>(i), *series.valores[i]);
    }
    chart.addSeries(marks);
  }
}

void ChartPanel::AddBars(QChart& chart) {
  QAbstractBarSeries* bars = nullptr;
  if (shown_.forma == reports::Forma::kBarrasEmpilhadas)
    bars = new QStackedBarSeries;
  else
    bars = new QBarSeries;
  bars->setBarWidth(0.7);
  for (std::size_t s = 0; s < shown_.series.size(); ++s) {
    auto* set = new QBarSet(ToQt(shown_.series[s].nome));
    for (const auto& value : shown_.series[s].valores) set->append(value.value_or(0));
    set->setBrush(QBrush(SeriesColor(s), Styled(kHatches, s)));
    set->setPen(QPen(SeriesColor(s), 1));
    connect(set, &QBarSet::hovered, this, [this, s](bool in, int place) { Point(s, place, in); });
    bars->append(set);
  }
  chart.addSeries(bars);
}

void ChartPanel::AddAxes(QChart& chart) {
  auto* places = new QBarCategoryAxis;
  QStringList names;
  for (const std::string& place : shown_.lugares) {
    const QString short_name = fontMetrics().elidedText(ToQt(place), Qt::ElideRight, Em(this) * kLongestName);
    names << (names.contains(short_name) ? ToQt(place) : short_name);
  }
  places->append(names);
  auto* values = new QValueAxis;
  const auto [lowest, highest] = RangeOf(shown_);
  values->setRange(lowest, highest);
  values->applyNiceNumbers();
  values->setLabelFormat(values->max() - values->min() < 10 ? QStringLiteral("%.2f")
                                                            : QStringLiteral("%.0f"));
  chart.setLocalizeNumbers(true);
  chart.setLocale(QLocale(QLocale::Portuguese, QLocale::Portugal));
  chart.addAxis(places, Qt::AlignBottom);
  chart.addAxis(values, Qt::AlignLeft);
  for (QAbstractSeries* series : chart.series()) {
    series->attachAxis(places);
    series->attachAxis(values);
  }
  for (QAbstractAxis* axis : {static_cast<QAbstractAxis*>(places), static_cast<QAbstractAxis*>(values)}) {
    axis->setLabelsFont(font());
    axis->setTruncateLabels(false);
    axis->setLabelsColor(palette().color(QPalette::Text));
    axis->setLinePenColor(LineColor(palette()));
    axis->setGridLineColor(LineColor(palette()));
  }
  places->setGridLineVisible(false);
  int widest = 0;
  for (const QString& name : names) widest = std::max(widest, fontMetrics().horizontalAdvance(name));
  // Upright a name keeps within its place; at any other angle the first and the last would be left out.
  if ((widest + Gap(this)) * names.size() > width() - 3 * Em(this)) places->setLabelsAngle(-90);
}

/// One line below the chart holds the names of all series.
bool ChartPanel::LegendFits() const {
  int needed = 0;
  for (const reports::Serie& series : shown_.series)
    needed += fontMetrics().horizontalAdvance(ToQt(series.nome)) + 3 * Em(this);
  return needed < width();
}

QString ChartPanel::ValueText(std::size_t series, int place) const {
  if (place < 0 || static_cast<std::size_t>(place) >= shown_.lugares.size()) return {};
  const auto& value = shown_.series[series].valores[static_cast<std::size_t>(place)];
  if (!value) return {};
  return QStringLiteral("%1\n%2: %3 %4")
      .arg(ToQt(shown_.lugares[static_cast<std::size_t>(place)]), ToQt(shown_.series[series].nome),
           ToQt(platform::FormatNumber(platform::Variant(*value), "###,##0.00")), ToQt(shown_.unidade));
}

void ChartPanel::Point(std::size_t series, int place, bool in) {
  pointed_ = in;
  if (in)
    QToolTip::showText(QCursor::pos(), PlainToolTip(ValueText(series, place)), this);
  else
    QToolTip::hideText();
}

/// When the pointer rests the scene would put the tip of its item, which has none, in place of the value.
bool ChartPanel::eventFilter(QObject* watched, QEvent* event) {
  return (pointed_ && event->type() == QEvent::ToolTip) || QWidget::eventFilter(watched, event);
}

/// The accent, then the text's colour, then shades between them: told apart in grey, too.
QColor ChartPanel::SeriesColor(std::size_t series) const {
  const QColor accent = Contrast(Accent(palette()), palette().color(QPalette::Base)) >= 3
                            ? Accent(palette())
                            : palette().color(QPalette::Highlight);
  const QColor text = palette().color(QPalette::Text);
  static constexpr double kShares[] = {0, 1, 0.45, 0.75, 0.2, 0.6, 0.9, 0.3};
  return Blend(accent, text, Styled(kShares, series));
}

void ChartPanel::CopyPicture() { QGuiApplication::clipboard()->setPixmap(view_->grab()); }

void ChartPanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) Draw();
}

/// What fits is another matter now.
void ChartPanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (event->size().width() != event->oldSize().width()) Draw();
}

void ChartPanel::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  menu.addAction(QStringLiteral("&Copiar imagem"), this, &ChartPanel::CopyPicture);
  menu.exec(event->globalPos());
}

}  // namespace desktop
