#include "desktop/list/tools/filter_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include "desktop/list/table_view.h"
#include "desktop/list/tools/list_look.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "lists/condition.h"

namespace desktop {
namespace {

constexpr char kDate[] = "Data";
constexpr char kPlate[] = "Matricula";
constexpr char kDepartment[] = "Departamento";

/// "Período: este mês", or the name alone.
void ShowState(QToolButton& button, const TableView& table, const char* key) {
  const auto column = table.grid().source().FindColumn(key);
  button.setVisible(column.has_value());
  if (!column) return;
  const auto& filters = table.grid().order().filters();
  const auto filter = filters.find(*column);
  const QString name = button.accessibleName();
  button.setText(filter == filters.end() ? name : QStringLiteral("%1: %2").arg(name, ToQt(filter->second)));
}

}  // namespace

FilterBar::FilterBar(QWidget* parent)
    : QWidget(parent),
      period_(AddButton(QStringLiteral("Período"))),
      vehicle_(AddButton(QStringLiteral("Viatura"))),
      department_(AddButton(QStringLiteral("Departamento"))),
      summary_(new QLabel(this)),
      clear_(new QPushButton(QStringLiteral("Mostrar tudo (Esc)"), this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(Gap(this), 0, WideGap(this), Gap(this));
  row->setSpacing(Gap(this));
  for (QToolButton* button : {period_, vehicle_, department_}) row->addWidget(button);
  row->addWidget(summary_, 1);
  row->addWidget(clear_);
  summary_->setTextFormat(Qt::PlainText);
  summary_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  clear_->setAutoDefault(false);
  auto* periods = new QMenu(this);
  const auto add = [this, periods](const QString& text, const QString& condition) {
    connect(periods->addAction(text), &QAction::triggered, this,
            [this, condition] { Q_EMIT PeriodChosen(condition); });
  };
  add(QStringLiteral("sempre"), {});
  periods->addSeparator();
  for (const std::string& name : lists::Periods()) add(ToQt(name), ToQt(name));
  period_->setMenu(periods);
  period_->setPopupMode(QToolButton::InstantPopup);
  connect(vehicle_, &QToolButton::clicked, this, [this] { Q_EMIT ChoiceWanted(kPlate); });
  connect(department_, &QToolButton::clicked, this, [this] { Q_EMIT ChoiceWanted(kDepartment); });
  connect(clear_, &QPushButton::clicked, this, &FilterBar::ShowAllWanted);
}

QToolButton* FilterBar::AddButton(const QString& name) {
  auto* button = new QToolButton(this);
  button->setText(name);
  button->setAccessibleName(name);
  button->setFocusPolicy(Qt::TabFocus);
  button->setToolButtonStyle(Qt::ToolButtonTextOnly);
  return button;
}

QString FilterBar::Summary() const { return summary_->text(); }

void FilterBar::Show(const TableView& table) {
  ShowState(*period_, table, kDate);
  ShowState(*vehicle_, table, kPlate);
  ShowState(*department_, table, kDepartment);
  const QString all = FiltersInWords(table);
  summary_->setText(all);
  summary_->setToolTip(PlainToolTip(all));
  clear_->setVisible(!all.isEmpty());
  setVisible(!all.isEmpty() || !period_->isHidden() || !vehicle_->isHidden() || !department_->isHidden());
}

}  // namespace desktop
