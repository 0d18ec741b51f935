#include "desktop/exchange/import_preview_page.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>

#include "desktop/exchange/plan_model.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"

namespace desktop {
namespace {

using exchange::RowState;

constexpr int kReasonWidth = 18;  // in lines of text

QString Number(long rows) { return QLocale().toString(static_cast<qlonglong>(rows)); }

QString Money(const exchange::Tally& tally) {
  return QLocale().toString(tally.amount.ToDouble(), 'f', 2) + QStringLiteral(" €");
}

}  // namespace

ImportPreviewPage::ImportPreviewPage(QWidget* parent)
    : QWidget(parent),
      model_(new PlanModel(this)),
      table_(new QTableView(this)),
      sums_(new QLabel(this)),
      codes_(new QPushButton(QStringLiteral("Criar &códigos em falta…"), this)),
      refused_(new QPushButton(QStringLiteral("Recusadas para &ficheiro…"), this)),
      export_(new QPushButton(QStringLiteral("&Exportar…"), this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(Gap(this));
  auto* filters = new QHBoxLayout;
  AddFilter({}, QStringLiteral("Todas"), *filters);
  AddFilter(RowState::kNew, QStringLiteral("Novas"), *filters);
  AddFilter(RowState::kWarning, QStringLiteral("Avisos"), *filters);
  AddFilter(RowState::kKnown, QStringLiteral("Repetidas"), *filters);
  AddFilter(RowState::kRefused, QStringLiteral("Recusadas"), *filters);
  AddFilter(RowState::kAside, QStringLiteral("Postas de parte"), *filters);
  filters->addStretch(1);
  column->addLayout(filters);
  table_->setObjectName(QStringLiteral("linhas"));
  table_->setModel(model_);
  table_->verticalHeader()->hide();
  table_->setAccessibleName(QStringLiteral("Linhas do ficheiro"));
  table_->setAlternatingRowColors(false);
  table_->verticalHeader()->setDefaultSectionSize(Em(this) * 3 / 2);
  table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  column->addWidget(table_, 1);
  auto* foot = new QHBoxLayout;
  SetMuted(sums_);
  foot->addWidget(sums_, 1);
  for (QPushButton* button : {codes_, refused_, export_}) {
    button->setAutoDefault(false);
    foot->addWidget(button);
  }
  column->addLayout(foot);
  connect(codes_, &QPushButton::clicked, this, &ImportPreviewPage::CodesWanted);
  connect(refused_, &QPushButton::clicked, this, &ImportPreviewPage::RefusedWanted);
  connect(export_, &QPushButton::clicked, this, &ImportPreviewPage::TableWanted);
  connect(model_, &PlanModel::Corrected, this, [this] {
    ShowCounts();
    Q_EMIT Corrected();
  });
}

void ImportPreviewPage::AddFilter(std::optional<RowState> state, const QString& name, QHBoxLayout& row) {
  auto* button = new QToolButton(this);
  button->setCheckable(true);
  button->setAutoExclusive(true);
  button->setChecked(!state);
  button->setFocusPolicy(Qt::StrongFocus);
  row.addWidget(button);
  connect(button, &QToolButton::clicked, this, [this, state] { model_->ShowOnly(state); });
  filters_.push_back({state, name, button});
}

void ImportPreviewPage::Show(exchange::ImportPlan* plan) {
  plan_ = plan;
  model_->Show(plan);
  for (const Filter& filter : filters_)
    if (!filter.state) filter.button->click();
  table_->resizeColumnsToContents();
  table_->setColumnWidth(2, Em(this) * kReasonWidth);
  ShowCounts();
}

void ImportPreviewPage::Refresh() {
  model_->Refresh();
  table_->resizeColumnsToContents();
  table_->setColumnWidth(2, Em(this) * kReasonWidth);
  ShowCounts();
}

void ImportPreviewPage::ShowCounts() {
  if (plan_ == nullptr) return;
  const exchange::Reconciliation sums = plan_->Sums();
  const auto count = [&](const std::optional<RowState>& state) {
    if (!state) return sums.file.rows;
    switch (*state) {
      case RowState::kNew:
        return sums.stored.rows - sums.warned.rows;
      case RowState::kWarning:
        return sums.warned.rows;
      case RowState::kKnown:
        return sums.known.rows;
      case RowState::kRefused:
        return sums.refused.rows;
      default:
        return sums.aside.rows;
    }
  };
  for (const Filter& filter : filters_) {
    filter.button->setText(filter.name + QLatin1Char(' ') + Number(count(filter.state)));
    filter.button->setEnabled(!filter.state || count(filter.state) > 0);
  }
  refused_->setEnabled(sums.refused.rows > 0);
  codes_->setEnabled(sums.refused.rows > 0);
  setFocusProxy(codes_->isEnabled() ? static_cast<QWidget*>(codes_) : table_);
  sums_->setText(exchange::KindOf(plan_->profile().kind)->amount == nullptr
                     ? QString()
                     : QStringLiteral("A guardar %1 de %2").arg(Money(sums.stored), Money(sums.file)));
}

}  // namespace desktop
