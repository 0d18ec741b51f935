#include "desktop/look/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include "desktop/look/look.h"

namespace desktop {
namespace {

using Line = std::initializer_list<QPointF>;

/// Paths are drawn on a square of 16 by 16.
constexpr double kGrid = 16;

void AddLine(QPainterPath& path, Line points) {
  bool first = true;
  for (const QPointF& point : points) {
    first ? path.moveTo(point) : path.lineTo(point);
    first = false;
  }
}

QPainterPath PathOf(Sign sign) {
  QPainterPath path;
  switch (sign) {
    case Sign::kNew:
      AddLine(path, {{8, 3}, {8, 13}});
      AddLine(path, {{3, 8}, {13, 8}});
      break;
    case Sign::kEdit:
      AddLine(path, {{3, 13}, {4, 9.5}, {10.5, 3}, {13, 5.5}, {6.5, 12}, {3, 13}});
      AddLine(path, {{9, 4.5}, {11.5, 7}});
      break;
    case Sign::kRemove:
      AddLine(path, {{4, 4}, {12, 12}});
      AddLine(path, {{12, 4}, {4, 12}});
      break;
    case Sign::kReload:
      path.arcMoveTo(QRectF(3, 3, 10, 10), 40);
      path.arcTo(QRectF(3, 3, 10, 10), 40, 290);
      AddLine(path, {{12.6, 1.8}, {12.2, 5.2}, {8.8, 4.8}});
      break;
    case Sign::kPrint:
      AddLine(path, {{4.5, 6}, {4.5, 2.5}, {11.5, 2.5}, {11.5, 6}});
      AddLine(path, {{4.5, 11}, {2.5, 11}, {2.5, 6}, {13.5, 6}, {13.5, 11}, {11.5, 11}});
      AddLine(path, {{4.5, 9}, {11.5, 9}, {11.5, 13.5}, {4.5, 13.5}, {4.5, 9}});
      break;
    case Sign::kExport:
      AddLine(path, {{3, 9}, {3, 13}, {13, 13}, {13, 9}});
      AddLine(path, {{8, 10.5}, {8, 2.5}});
      AddLine(path, {{5, 5.5}, {8, 2.5}, {11, 5.5}});
      break;
    case Sign::kSearch:
      path.addEllipse(QRectF(2.5, 2.5, 8, 8));
      AddLine(path, {{9.5, 9.5}, {13.5, 13.5}});
      break;
    case Sign::kFirst:
      AddLine(path, {{3.5, 3.5}, {3.5, 12.5}});
      AddLine(path, {{12, 3.5}, {6.5, 8}, {12, 12.5}});
      break;
    case Sign::kPrevious:
      AddLine(path, {{10.5, 3.5}, {5, 8}, {10.5, 12.5}});
      break;
    case Sign::kNext:
      AddLine(path, {{5.5, 3.5}, {11, 8}, {5.5, 12.5}});
      break;
    case Sign::kLast:
      AddLine(path, {{12.5, 3.5}, {12.5, 12.5}});
      AddLine(path, {{4, 3.5}, {9.5, 8}, {4, 12.5}});
      break;
  }
  return path;
}

/// What is drawn anew at any size, in the colours of the moment.
class DrawnEngine : public QIconEngine {
 public:
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
};

class SignEngine : public DrawnEngine {
 public:
  explicit SignEngine(Sign sign) : sign_(sign) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const QColor color = QApplication::palette().color(group, QPalette::WindowText);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / kGrid, rect.height() / kGrid);
    painter->setPen(QPen(color, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPath(PathOf(sign_));
    painter->restore();
  }
  QIconEngine* clone() const override { return new SignEngine(sign_); }

 private:
  Sign sign_;
};

class BoxEngine : public DrawnEngine {
 public:
  explicit BoxEngine(QChar letter) : letter_(letter) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override {
    QFont font = QApplication::font();
    font.setPixelSize(rect.height() * 5 / 8);
    font.setBold(true);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(Accent(QApplication::palette()));
    painter->drawEllipse(rect);
    painter->setPen(Qt::white);
    painter->setFont(font);
    painter->drawText(rect, Qt::AlignCenter, letter_);
    painter->restore();
  }
  QIconEngine* clone() const override { return new BoxEngine(letter_); }

 private:
  QChar letter_;
};

}  // namespace

QIcon SignIcon(Sign sign) { return QIcon(new SignEngine(sign)); }
QIcon BoxIcon(QChar letter) { return QIcon(new BoxEngine(letter)); }

void DrawBandMark(QPainter& painter, const QRectF& square, int order, const QColor& color) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  const QPointF top(square.center().x(), square.top());
  switch (order % 3) {
    case 0:
      painter.drawPolygon(QPolygonF({top, square.bottomRight(), square.bottomLeft()}));
      break;
    case 1:
      painter.drawPolygon(QPolygonF({top,
                                     {square.right(), square.center().y()},
                                     {square.center().x(), square.bottom()},
                                     {square.left(), square.center().y()}}));
      break;
    default:
      painter.drawEllipse(square);
  }
  painter.restore();
}

}  // namespace desktop
