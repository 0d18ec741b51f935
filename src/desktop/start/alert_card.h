#pragma once

#include <QAbstractButton>
#include <vector>

#include "desktop/start/alert_board.h"

namespace desktop {

/// One family of alerts on the start page: what the feed says, and how many rows stand in each band. A click,
/// Enter or the space bar presses it.
class AlertCard : public QAbstractButton {
  Q_OBJECT

 public:
  explicit AlertCard(const ListEntry& entry, QWidget* parent);

  const ListEntry& entry() const { return entry_; }
  void Show(const AlertFamily& family);
  /// The lines of the card from top to bottom, as they are read out.
  QStringList Lines() const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// A band with its number of rows.
  struct Band {
    int order;  // of its mark
    QRgb color;
    QString word;
    long rows;
  };

  void ShowBands(const AlertFamily& family);
  QString HandledText() const;
  void PaintHead(QPainter& painter, QRect& place) const;
  void PaintBand(QPainter& painter, QRect& place, const Band& band) const;

  const ListEntry& entry_;
  QString total_;
  QString feed_;
  QString message_;   // instead of bands
  long handled_ = 0;  // of the rows, those dealt with or put off: they are counted apart
  std::vector<Band> bands_;
};

}  // namespace desktop
