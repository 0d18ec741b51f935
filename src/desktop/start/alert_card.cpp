#include "desktop/start/alert_card.h"

#include <QKeyEvent>
#include <QPainter>

#include "desktop/look/icons.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

constexpr int kWidth = 17;  // in lines of text
constexpr int kHeight = 10;
constexpr double kTitleFactor = 1.15;
constexpr double kTotalFactor = 1.7;
constexpr double kBackgroundShare = 0.04;
constexpr double kHoverShare = 0.09;
// The colours of the bands, as most lists have them.
constexpr QRgb kRed = qRgb(255, 0, 0);
constexpr QRgb kOrange = qRgb(255, 128, 0);
constexpr QRgb kYellow = qRgb(255, 255, 0);

QFont Larger(const QFont& font, double factor) {
  QFont larger = font;
  larger.setPointSizeF(font.pointSizeF() * factor);
  larger.setBold(true);
  return larger;
}

/// Takes a line of the height of a font off the top of a place.
QRect TakeLine(QRect& place, int height) {
  const QRect line(place.topLeft(), QSize(place.width(), height));
  place.setTop(place.top() + height);
  return line;
}

}  // namespace

AlertCard::AlertCard(const ListEntry& entry, QWidget* parent) : QAbstractButton(parent), entry_(entry) {
  setText(QString::fromUtf8(entry.title));
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::PointingHandCursor);
  setAttribute(Qt::WA_Hover);
}

void AlertCard::Show(const AlertFamily& family) {
  bands_.clear();
  total_.clear();
  feed_ = family.feed;
  handled_ = family.handled;
  message_ = QStringLiteral("A contar…");
  setToolTip(QStringLiteral("Abrir a lista"));
  if (family.failure) {
    message_ = QStringLiteral("Não foi possível ler a lista.\n") + family.failure->headline;
    setToolTip(PlainToolTip(WithDetails(*family.failure)));
  } else if (family.counts) {
    ShowBands(family);
  }
  setAccessibleName(Lines().join(QStringLiteral(", ")));
  update();
}

void AlertCard::ShowBands(const AlertFamily& family) {
  const zorCrmParvel::ContagemDeAlertas& counts = *family.counts;
  message_.clear();
  if (counts.linhas == 0) {
    // The feed judges by rules of its own.
    message_ = feed_.isEmpty() ? QStringLiteral("Nada a tratar.") : QStringLiteral("A lista está vazia.");
    return;
  }
  if (feed_.isEmpty()) feed_ = QStringLiteral("Só na lista");
  total_ = Grouped(counts.linhas);
  bands_.push_back({0, kRed, QStringLiteral("Vencidos"), counts.passadas});
  if (family.has_very_soon)
    bands_.push_back({1, kOrange, QStringLiteral("Muito em breve"), counts.muitoBreves});
  bands_.push_back({2, kYellow, QStringLiteral("Em breve"), counts.breves});
}

QStringList AlertCard::Lines() const {
  QStringList lines{text()};
  if (!total_.isEmpty()) lines << total_;
  if (!feed_.isEmpty()) lines << feed_;
  if (!message_.isEmpty()) lines << message_;
  for (const Band& band : bands_) lines << band.word + QStringLiteral(": ") + Grouped(band.rows);
  if (!HandledText().isEmpty()) lines << HandledText();
  return lines;
}

QString AlertCard::HandledText() const {
  return handled_ == 0 || bands_.empty()
             ? QString()
             : QStringLiteral("Destes, tratados ou adiados: ") + Grouped(handled_);
}

QSize AlertCard::sizeHint() const { return {Em(this) * kWidth, Em(this) * kHeight}; }

void AlertCard::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else
    QAbstractButton::keyPressEvent(event);
}

void AlertCard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor base = palette().color(QPalette::Base);
  const double share = underMouse() ? kHoverShare : kBackgroundShare;
  painter.fillRect(rect(), Blend(base, palette().color(QPalette::Text), share));
  const int line = hasFocus() ? std::max(2, Em(this) / 8) : 1;
  painter.setPen(QPen(hasFocus() ? Accent(palette()) : LineColor(palette()), line, Qt::SolidLine,
                      Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(QRectF(rect()).adjusted(line / 2.0, line / 2.0, -line / 2.0, -line / 2.0));

  const int gap = WideGap(this);
  QRect place = rect().adjusted(gap, gap * 3 / 4, -gap, -gap / 2);
  PaintHead(painter, place);
  painter.setPen(palette().color(QPalette::Text));
  painter.setFont(font());
  painter.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, message_);
  for (const Band& band : bands_) PaintBand(painter, place, band);
  painter.setPen(MutedText(palette()));
  painter.drawText(TakeLine(place, Em(this) * 11 / 8), Qt::AlignLeft | Qt::AlignVCenter, HandledText());
}

/// The family's name with the number of rows, and below it what the feed says.
void AlertCard::PaintHead(QPainter& painter, QRect& place) const {
  const QRect head = TakeLine(place, Em(this) * 3 / 2);
  painter.setPen(palette().color(QPalette::Text));
  painter.setFont(Larger(font(), kTotalFactor));
  painter.drawText(head, Qt::AlignRight | Qt::AlignVCenter, total_);
  painter.setFont(Larger(font(), kTitleFactor));
  painter.drawText(head, Qt::AlignLeft | Qt::AlignVCenter, text());
  painter.setFont(font());
  painter.setPen(MutedText(palette()));
  painter.drawText(TakeLine(place, Em(this) * 3 / 2), Qt::AlignLeft | Qt::AlignVCenter, feed_);
  TakeLine(place, Em(this) / 4);
}

void AlertCard::PaintBand(QPainter& painter, QRect& place, const Band& band) const {
  const QRect line = TakeLine(place, Em(this) * 11 / 8);
  const QRect chip(line.left(), line.top() + (line.height() - Em(this)) / 2, Em(this), Em(this));
  if (band.rows > 0) {
    painter.fillRect(chip, QColor(band.color));
    const double inset = chip.width() * 0.2;
    DrawBandMark(painter, QRectF(chip).adjusted(inset, inset, -inset, -inset), band.order,
                 ReadableOn(QColor(band.color)));
  }
  painter.setPen(band.rows > 0 ? palette().color(QPalette::Text) : MutedText(palette()));
  painter.drawText(line.adjusted(Em(this) * 3 / 2, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, band.word);
  painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, Grouped(band.rows));
}

}  // namespace desktop
