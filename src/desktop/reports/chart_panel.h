#pragma once

#include <QWidget>

#include "reports/pages/grafico.h"

class QChart;
class QChartView;

namespace desktop {

/// A chart in the window's colours. Its series differ by line, mark or hatching as well, the values stand at
/// the pointer, and its picture can be put on the clipboard.
class ChartPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ChartPanel(QWidget* parent);

  void Show(const reports::Grafico& chart);
  const reports::Grafico& shown() const { return shown_; }
  /// Puts the chart on the clipboard as a picture.
  void CopyPicture();

 protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Draw();
  void AddLines(QChart& chart);
  void AddBars(QChart& chart);
  void AddAxes(QChart& chart);
  bool LegendFits() const;
  QString ValueText(std::size_t series, int place) const;
  void Point(std::size_t series, int place, bool in);
  QColor SeriesColor(std::size_t series) const;

  reports::Grafico shown_;
  QChartView* view_;
  bool pointed_ = false;  // at a value
};

}  // namespace desktop
