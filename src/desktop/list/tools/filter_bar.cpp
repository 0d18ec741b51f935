#include "desktop/list/tools/filter_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <optional>
#include <set>
#include <utility>

#include "desktop/list/table_view.h"
#include "desktop/list/tools/list_look.h"
#include "desktop/look/look.h"
#include "desktop/look/one_line.h"
#include "desktop/look/text.h"
#include "lists/condition.h"

namespace desktop {
namespace {

constexpr char kDate[] = "Data";
constexpr char kPlate[] = "Matricula";
constexpr char kDepartment[] = "Departamento";
constexpr int kLongestCondition = 14;  // in heights of a line

/// "Período: este mês", or the name alone. Gives the button's column, if the table has it.
std::optional<std::size_t> ShowState(QToolButton& button, const TableView& table, const char* key) {
  const auto column = table.grid().source().FindColumn(key);
  button.setVisible(column.has_value());
  if (!column) return column;
  const auto& filters = table.grid().order().filters();
  const auto filter = filters.find(*column);
  const QString name = button.accessibleName();
  const QString words = filter == filters.end() ? QString() : ToQt(lists::ConditionInWords(filter->second));
  const int most = Em(&button) * kLongestCondition;
  button.setText(words.isEmpty() ? name
                                 : QStringLiteral("%1: %2").arg(
                                       name, button.fontMetrics().elidedText(words, Qt::ElideRight, most)));
  button.setToolTip(PlainToolTip(words));
  return column;
}

}  // namespace

FilterBar::FilterBar(QWidget* parent)
    : QWidget(parent),
      period_(AddButton(QStringLiteral("Período"))),
      vehicle_(AddButton(QStringLiteral("Viatura"))),
      department_(AddButton(QStringLiteral("Departamento"))),
      summary_(new OneLine(this)),
      clear_(new QPushButton(QStringLiteral("Mostrar tudo (Esc)"), this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(Gap(this), 0, WideGap(this), Gap(this));
  row->setSpacing(Gap(this));
  for (QToolButton* button : {period_, vehicle_, department_}) row->addWidget(button);
  row->addWidget(summary_, 1);
  row->addWidget(clear_);
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

void FilterBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !clear_->isHidden())
    Q_EMIT ShowAllWanted();
  else
    QWidget::keyPressEvent(event);
}

QString FilterBar::Summary() const { return summary_->text(); }

void FilterBar::Show(const TableView& table) {
  std::set<std::size_t> told;
  for (const auto& [button, key] :
       {std::pair(period_, kDate), {vehicle_, kPlate}, {department_, kDepartment}})
    if (const auto column = ShowState(*button, table, key)) told.insert(*column);
  const QString all = FiltersInWords(table);
  summary_->setText(FiltersInWords(table, told));
  summary_->setToolTip(PlainToolTip(all));
  clear_->setVisible(!all.isEmpty());
  setVisible(!all.isEmpty() || !period_->isHidden() || !vehicle_->isHidden() || !department_->isHidden());
}

}  // namespace desktop
