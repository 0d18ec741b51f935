#include "desktop/reports/evolution_dialog.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/reports/chart_panel.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr std::size_t kCharts = 4;

/// Periods of several months: a line needs points.
constexpr reports::Prazo kPeriods[] = {reports::Prazo::k12Meses, reports::Prazo::kAno,
                                       reports::Prazo::kAnoAnterior};
constexpr int kYearsBack = 3;

}  // namespace

EvolutionDialog::EvolutionDialog(Workspace& workspace, const QString& plate, QWidget* parent)
    : QDialog(parent),
      workspace_(workspace),
      plate_(plate),
      title_(new QLabel(plate, this)),
      notice_(new QLabel(this)) {
  setObjectName(QStringLiteral("evolucao"));
  setWindowTitle(QStringLiteral("Evolução de ") + plate);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(WideGap(this), WideGap(this), WideGap(this), WideGap(this));
  column->setSpacing(Gap(this));
  auto* heading = new QHBoxLayout;
  SetTitleFont(title_, 1.3);
  title_->setTextFormat(Qt::PlainText);
  heading->addWidget(title_, 1);
  auto* period = new QComboBox(this);
  period->setAccessibleName(QStringLiteral("Período"));
  for (const reports::Prazo each : kPeriods)
    period->addItem(QString::fromUtf8(reports::Prazos()[static_cast<std::size_t>(each)].titulo));
  period->addItem(QStringLiteral("Últimos %1 anos").arg(kYearsBack));
  connect(period, &QComboBox::activated, this, [this](int index) {
    const bool years = static_cast<std::size_t>(index) == std::size(kPeriods);
    period_ = years ? reports::Prazo::kDias : kPeriods[index];
    Compute();
  });
  heading->addWidget(period);
  column->addLayout(heading);
  notice_->setWordWrap(true);
  notice_->hide();
  column->addWidget(notice_);
  auto* grid = new QGridLayout;
  grid->setSpacing(Gap(this));
  for (std::size_t i = 0; i < kCharts; ++i) {
    charts_.push_back(new ChartPanel(this));
    grid->addWidget(charts_.back(), static_cast<int>(i) / 2, static_cast<int>(i) % 2);
  }
  column->addLayout(grid, 1);
  auto* close = new QPushButton(QStringLiteral("&Fechar"), this);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  column->addWidget(close, 0, Qt::AlignRight);
  resize(QSize(Em(this) * 66, Em(this) * 42).boundedTo(RoomOnScreen(this)));
  Compute();
}

void EvolutionDialog::Compute() {
  const platform::Date today = platform::Today();
  const reports::Periodo years{reports::Periodo::Ano(today.year() - kYearsBack + 1).de,
                               reports::Periodo::Mes(today.year(), today.month()).ate};
  const reports::Periodo period = reports::PeriodoDe(period_, today, years);
  reading_.GiveUp();
  reading_ = workspace_.reader().Ask(
      this,
      [plate = FromQt(plate_), period](const auto& store) {
        return reports::EvolucaoDa(zorCrmParvel::DataAccessRef(store), plate, period);
      },
      [this](const reports::Evolucao& shown) { Show(shown); },
      [this](const ErrorText& failure) {
        notice_->setText(WithDetails(failure));
        notice_->show();
      });
}

void EvolutionDialog::Show(const reports::Evolucao& shown) {
  notice_->hide();
  title_->setText(ToQt(shown.titulo));
  for (std::size_t i = 0; i < charts_.size() && i < shown.graficos.size(); ++i)
    charts_[i]->Show(shown.graficos[i]);
}

void ShowEvolution(Workspace& workspace, const QString& plate, QWidget* parent) {
  Guarded(parent, [&] { EvolutionDialog(workspace, plate, parent).exec(); });
}

}  // namespace desktop
