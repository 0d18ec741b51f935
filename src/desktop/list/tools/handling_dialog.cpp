#include "desktop/list/tools/handling_dialog.h"

#include <QDate>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/list/list_page.h"
#include "desktop/list/list_source.h"
#include "desktop/look/day_edit.h"
#include "desktop/look/look.h"
#include "desktop/look/parts.h"
#include "desktop/look/text.h"
#include "history/who.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr int kNoteLimit = 200;
constexpr int kNoteWidth = 26;  // in heights of a line
constexpr int kUsualDays = 7;

QDate Day(platform::Date date) { return {date.year(), date.month(), date.day()}; }

/// Runs on what each marked row is of, and reads the list anew.
template <typename Do>
void ForMarked(ListPage& page, const Do& act) {
  const auto& source = static_cast<const ListSource&>(page.table().grid().source());
  std::vector<std::string> alerts;
  for (long row : page.WorkRows()) alerts.push_back(source.AlertAt(row));
  const zorCrmParvel::DataAccessRef bd(page.workspace().store());
  for (const std::string& alert : alerts) act(bd, alert);
  page.Load();
  Q_EMIT page.Worked();
}

/// What the marked rows are: one by its record.
QString NameOf(const ListPage& page, const MarkedRows& rows) {
  const auto count = static_cast<long>(page.WorkRows().size());
  if (count == 1) return ToQt(rows.plate.empty() ? rows.keys.front() : rows.plate);
  return Counted(count, QStringLiteral("alerta"), QStringLiteral("alertas"));
}

void Ask(ListPage& page, const MarkedRows& rows, bool puts_off) {
  HandlingDialog dialog(puts_off, NameOf(page, rows), page.window());
  if (dialog.exec() != QDialog::Accepted) return;
  const due::Handling handling = dialog.Handling();
  ForMarked(page, [&](const zorCrmParvel::DataAccessRef& bd, const std::string& alert) {
    due::Handle(bd, page.entry().key, alert, handling);
  });
  Q_EMIT page.Told(ToQt(handling.Words()));
}

}  // namespace

HandlingDialog::HandlingDialog(bool puts_off, const QString& alerts, QWidget* parent)
    : QDialog(parent), until_(new DayEdit(this)), note_(new QLineEdit(this)), puts_off_(puts_off) {
  setObjectName(QStringLiteral("tratar-alertas"));
  setWindowTitle(puts_off ? QStringLiteral("Adiar") : QStringLiteral("Tratado"));
  auto* column = new QVBoxLayout(this);
  const int margin = WideGap(this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(Gap(this));
  auto* what = new QLabel(alerts, this);
  what->setTextFormat(Qt::PlainText);
  column->addWidget(what);
  auto* form = new QFormLayout;
  const QDate today = Day(platform::Today());
  until_->setMinimumDate(today.addDays(1));
  until_->setDate(today.addDays(kUsualDays));
  until_->setAccessibleName(QStringLiteral("Adiar até"));
  until_->setVisible(puts_off);
  if (puts_off) form->addRow(QStringLiteral("&Até"), until_);
  note_->setMaxLength(kNoteLimit);
  note_->setMinimumWidth(Em(this) * kNoteWidth);
  note_->setAccessibleName(QStringLiteral("Nota"));
  form->addRow(QStringLiteral("&Nota"), note_);
  column->addLayout(form);
  const QString done = puts_off ? QStringLiteral("A&diar") : QStringLiteral("&Marcar tratado");
  AddAnswers(*this, *column, new QPushButton(done, this));
  (puts_off ? static_cast<QWidget*>(until_) : note_)->setFocus();
}

due::Handling HandlingDialog::Handling() const {
  due::Handling handling;
  const QDate day = until_->date();
  if (puts_off_) handling.until = platform::Date::FromParts(day.year(), day.month(), day.day());
  handling.note = FromQt(note_->text().trimmed());
  handling.who = history::Who::OfThisProcess().operador;
  handling.when = platform::Now();
  return handling;
}

void PutOffAlerts(ListPage& page, const MarkedRows& rows) { Ask(page, rows, true); }
void SettleAlerts(ListPage& page, const MarkedRows& rows) { Ask(page, rows, false); }

void ReopenAlerts(ListPage& page, const MarkedRows&) {
  ForMarked(page, [&](const zorCrmParvel::DataAccessRef& bd, const std::string& alert) {
    due::Reopen(bd, page.entry().key, alert);
  });
  Q_EMIT page.Told(QStringLiteral("De novo por tratar"));
}

}  // namespace desktop
