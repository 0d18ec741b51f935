#include "desktop/reports/report_bar.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "desktop/ficha/date_views.h"
#include "desktop/look/day_edit.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "platform/host.h"

namespace desktop {

ReportBar::ReportBar(reports::TipoDeRelatorio report, const reports::Escolha& choice, QWidget* parent)
    : QWidget(parent), choice_(choice), filters_(new QPushButton(this)) {
  Build(reports::TextosDe(report));
}

void ReportBar::Build(const reports::TextosDoRelatorio& texts) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(Gap(this), 0, WideGap(this), Gap(this));
  row->setSpacing(Gap(this));
  AddPeriod();
  if (texts.por.size() > 1) AddGrouping(texts);
  if (texts.colunas) AddColumns();
  connect(filters_, &QPushButton::clicked, this, &ReportBar::FiltersWanted);
  row->addWidget(filters_);
  row->addStretch(1);
  ShowFilters();
}

QComboBox* ReportBar::AddCombo(const QString& label, const QString& name) {
  auto* combo = new QComboBox(this);
  combo->setAccessibleName(name);
  if (!label.isEmpty()) {
    auto* caption = new QLabel(label, this);
    caption->setBuddy(combo);
    layout()->addWidget(caption);
  }
  layout()->addWidget(combo);
  return combo;
}

void ReportBar::AddPeriod() {
  QComboBox* combo = AddCombo({}, QStringLiteral("Período"));
  for (const reports::PalavraDePrazo& word : reports::Prazos())
    combo->addItem(QString::fromUtf8(word.titulo));
  combo->setCurrentIndex(static_cast<int>(choice_.prazo));
  const reports::Periodo days = reports::PeriodoDe(choice_.prazo, platform::Today(), choice_.dias);
  AddDay(from_, days.de, QStringLiteral("Primeiro dia"));
  AddDay(to_, days.ate, QStringLiteral("Último dia"));
  ShowDays();
  connect(combo, &QComboBox::activated, this, [this](int index) {
    choice_.prazo = reports::Prazos()[static_cast<std::size_t>(index)].prazo;
    if (choice_.prazo == reports::Prazo::kDias) DaysTyped();
    ShowDays();
    Q_EMIT Changed();
  });
}

void ReportBar::AddDay(QDateEdit*& edit, reports::Dia day, const QString& name) {
  edit = new DayEdit(this);
  edit->setMinimumDate(QDate(1900, 1, 1));
  edit->setDate(ToQt(platform::Date().AddDays(day)).date());
  edit->setAccessibleName(name);
  edit->setToolTip(name);
  edit->setKeyboardTracking(false);
  connect(edit, &QDateEdit::dateChanged, this, [this] {
    if (choice_.prazo != reports::Prazo::kDias) return;
    DaysTyped();
    Q_EMIT Changed();
  });
  layout()->addWidget(edit);
}

/// The days are always in sight; only those "from … to …" can be typed.
void ReportBar::ShowDays() {
  const bool typed = choice_.prazo == reports::Prazo::kDias;
  const reports::Periodo days = reports::PeriodoDe(choice_.prazo, platform::Today(), choice_.dias);
  for (const auto& [edit, day] : {std::pair(from_, days.de), std::pair(to_, days.ate)}) {
    edit->setEnabled(typed);
    SetLocked(edit, !typed);
    if (!typed) edit->setDate(ToQt(platform::Date().AddDays(day)).date());
  }
}

void ReportBar::DaysTyped() {
  const auto day = [](const QDateEdit* edit) {
    return FromQt(QDateTime(edit->date(), QTime(0, 0), Qt::UTC)).days();
  };
  choice_.dias = {day(from_), day(to_)};
}

void ReportBar::AddGrouping(const reports::TextosDoRelatorio& texts) {
  QComboBox* combo = AddCombo(QStringLiteral("&Por"), QStringLiteral("Agrupar por"));
  for (const reports::Por por : texts.por) {
    combo->addItem(QString::fromUtf8(reports::TextosDe(por).titulo));
    if (por == choice_.por) combo->setCurrentIndex(combo->count() - 1);
  }
  connect(combo, &QComboBox::activated, this, [this, all = texts.por](int index) {
    choice_.por = all[static_cast<std::size_t>(index)];
    Q_EMIT Changed();
  });
}

void ReportBar::AddColumns() {
  QComboBox* combo = AddCombo(QStringLiteral("&Colunas"), QStringLiteral("Colunas"));
  for (const reports::PalavraDeColuna& word : reports::PalavrasDeColuna())
    combo->addItem(QString::fromUtf8(word.titulo));
  combo->setCurrentIndex(static_cast<int>(choice_.coluna));
  connect(combo, &QComboBox::activated, this, [this](int index) {
    choice_.coluna = static_cast<reports::Coluna>(index);
    Q_EMIT Changed();
  });
}

void ReportBar::SetFilters(const reports::Escolhidos& filters) {
  choice_.filtros = filters;
  ShowFilters();
  Q_EMIT Changed();
}

void ReportBar::ShowFilters() {
  int set = 0;
  QStringList words;
  for (const auto& [key, codes] : choice_.filtros) {
    if (codes.empty()) continue;
    ++set;
    QStringList names;
    for (const std::string& code : codes) names << ToQt(code);
    words << ToQt(key) + QStringLiteral(": ") + names.join(QStringLiteral(", "));
  }
  filters_->setText(set == 0   ? QStringLiteral("Fi&ltros…")
                    : set == 1 ? fontMetrics().elidedText(words.front(), Qt::ElideRight, Em(this) * 16)
                               : QStringLiteral("%1 fi&ltros…").arg(set));
  filters_->setToolTip(PlainToolTip(set == 0
                                        ? QStringLiteral("Só algumas viaturas, departamentos, categorias, …")
                                        : words.join(QLatin1Char('\n'))));
}

void ReportBar::ShowSeen(bool seen) {
  choice_.vistos = seen;
  Q_EMIT Changed();
}

}  // namespace desktop
