#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/reports/chart_panel.h"
#include "desktop/reports/evolution_dialog.h"
#include "desktop/reports/report_bar.h"
#include "desktop/reports/report_page.h"
#include "desktop/reports/report_window.h"
#include "desktop/reports/settings_dialog.h"
#include "events/event_form.h"
#include "host/form_catalog.h"
#include "reports/definicoes.h"

// What is done with the rows of a report.
namespace desktop {

using zorCrmParvel::DataAccessRef;

QWidget* ReportPage::Heading() {
  auto* heading = new QWidget(this);
  auto* row = new QHBoxLayout(heading);
  row->setContentsMargins(Gap(this), WideGap(this), WideGap(this), Gap(this));
  row->setSpacing(Gap(this));
  auto* title = new QLabel(Title(), heading);
  SetTitleFont(title, 1.5);
  SetMuted(count_);
  row->addWidget(title);
  row->addWidget(count_, 0, Qt::AlignBottom);
  row->addStretch(1);
  AddOwnButtons(heading);
  return heading;
}

void ReportPage::AddOwnButtons(QWidget* heading) {
  const auto add = [&](const QString& text, const QString& tip) {
    auto* button = new QPushButton(text, heading);
    button->setToolTip(PlainToolTip(tip));
    heading->layout()->addWidget(button);
    return button;
  };
  if (report_ == reports::TipoDeRelatorio::kExcepcoes) {
    auto* all = new QCheckBox(QStringLiteral("Mostrar vis&tas"), heading);
    heading->layout()->addWidget(all);
    connect(all, &QCheckBox::toggled, this, [this](bool on) { bar_->ShowSeen(on); });
    seen_ = add(QStringLiteral("&Dar por vista…"), QStringLiteral("Tira a excepção da lista, com uma nota"));
    connect(seen_, &QPushButton::clicked, this, &ReportPage::SwitchSeen);
    connect(this, &Page::Changed, this, [this] {
      const auto chosen = Chosen();
      seen_->setEnabled(chosen.has_value());
      const bool back =
          chosen && reports::TextoDaChave(result()->relatorio.tabelas[0], *chosen, "visto") == "sim";
      seen_->setText(back ? QStringLiteral("&Tornar a pôr na lista") : QStringLiteral("&Dar por vista…"));
    });
  }
  auto* chart = add(QStringLiteral("&Gráfico"), QStringLiteral("Mostra ou esconde o gráfico"));
  chart->setCheckable(true);
  chart->setChecked(true);
  connect(chart, &QPushButton::toggled, this, [this](bool on) {
    chart_->setVisible(on);
    if (on) Arrange();
  });
  auto* settings = add(QStringLiteral("Definiçõe&s…"),
                       QStringLiteral("Regras, depósitos, leasing, unidades e factores de CO2"));
  connect(settings, &QPushButton::clicked, this, [this] {
    SettingsDialog dialog(DataAccessRef(workspace_.store()), window());
    if (report_ == reports::TipoDeRelatorio::kExcepcoes) dialog.Choose("regras");
    dialog.exec();
    Compute();
  });
}

void ReportPage::OpenRow() {
  const auto row = Chosen();
  if (!row) return;
  if (row->alvo.especie) return OpenEvent(row->alvo);
  const auto closer = reports::DentroDa(*result(), source_->table(), *row);
  if (!closer) return;
  Guarded(window(), [&] { ReportWindow(workspace_, settings_, *closer, window()).exec(); });
  Q_EMIT Worked();
}

void ReportPage::OpenEvent(const reports::Alvo& target) {
  const reports::TextosDaEspecie& kind = reports::TextosDe(*target.especie);
  Guarded(window(), [&] {
    const auto made = zorCrmParvel::FormCatalog::Shared().Make(kind.ficha);
    auto* const ficha = dynamic_cast<zorCrmParvel::EventForm*>(made.get());
    if (ficha == nullptr) return;
    ficha->Load();
    ficha->mybd = workspace_.sistema().ICrmSistema_ZorDataAccess;
    ficha->Matricula = target.matricula;
    ficha->Carrega(target.id);
    ficha->ShowModal(workspace_.sistema().ICrmSistema_AppOwnerWnd);
  });
  Compute();
  Q_EMIT Worked();
}

void ReportPage::SwitchSeen() {
  const auto row = Chosen();
  if (!row || !row->alvo.especie) return;
  const reports::Tabela& table = result()->relatorio.tabelas[source_->table()];
  const std::string rule = reports::TextoDaChave(table, *row, "regra");
  const DataAccessRef database(workspace_.store());
  const std::string events = reports::TextosDe(*row->alvo.especie).tabela;
  if (reports::TextoDaChave(table, *row, "visto") == "sim") {
    Guarded(window(), [&] { reports::DesmarcarVisto(database, rule, events, row->alvo.id); });
    return Compute();
  }
  bool given = false;
  const QString note =
      QInputDialog::getText(window(), QStringLiteral("Dar por vista"),
                            ToQt(reports::TextoDaChave(table, *row, "texto")) + QStringLiteral("\n\nNota:"),
                            QLineEdit::Normal, {}, &given);
  if (!given) return;
  Guarded(window(), [&] { reports::MarcarVisto(database, rule, events, row->alvo.id, FromQt(note)); });
  Compute();
}

void ReportPage::RowMenu(const QPoint& place) {
  const auto row = Chosen();
  if (!row || !table_->indexAt(place).isValid()) return;
  QMenu menu(this);
  const bool opens = row->alvo.especie || reports::DentroDa(*result(), source_->table(), *row);
  menu.addAction(QStringLiteral("&Abrir"), this, &ReportPage::OpenRow)->setEnabled(opens);
  const QString plate = ToQt(row->alvo.matricula);
  if (!plate.isEmpty())
    menu.addAction(QStringLiteral("&Evolução…"), this,
                   [this, plate] { ShowEvolution(workspace_, plate, window()); });
  if (seen_ != nullptr) menu.addAction(seen_->text(), this, &ReportPage::SwitchSeen);
  menu.addSeparator();
  menu.addAction(QStringLiteral("&Copiar"), table_, &TableView::Copy);
  menu.exec(table_->viewport()->mapToGlobal(place));
}

}  // namespace desktop
