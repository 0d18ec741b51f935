#include <QLabel>
#include <QMenu>

#include "desktop/list/list_form.h"
#include "desktop/list/tools/choice_dialog.h"
#include "desktop/list/tools/column_menu.h"
#include "desktop/list/tools/filter_bar.h"
#include "desktop/list/tools/list_look.h"
#include "desktop/look/one_line.h"
#include "desktop/look/text.h"
#include "lists/condition.h"
#include "lists/footer.h"
#include "platform/runtime_error.h"

namespace desktop {

void ListPage::ConnectLook() {
  FilterHeader& header = table_->filters();
  connect(&header, &FilterHeader::Typed, this,
          [this](int section, const QString& text) { Filter(static_cast<std::size_t>(section), text); });
  connect(&header, &FilterHeader::ChoiceWanted, this,
          [this](int section) { ChooseFrom(static_cast<std::size_t>(section)); });
  connect(&header, &FilterHeader::Left, this, [this](bool clear) {
    if (clear) ShowAll();
    TakeFocus();
  });
  header.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&header, &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
    QMenu menu(this);
    FillColumnMenu(menu, *table_, table_->filters().logicalIndexAt(place), [this] { LookChanged(); });
    menu.exec(table_->filters().viewport()->mapToGlobal(place));
  });
  connect(bar_, &FilterBar::PeriodChosen, this,
          [this](const QString& condition) { FilterByKey(QStringLiteral("Data"), condition); });
  connect(bar_, &FilterBar::ChoiceWanted, this, [this](const QString& key) {
    if (const auto column = table_->grid().source().FindColumn(FromQt(key))) ChooseFrom(*column);
  });
  connect(bar_, &FilterBar::ShowAllWanted, this, [this] {
    ShowAll();
    TakeFocus();
  });
  connect(table_, &TableView::ColumnsChosen, this, &ListPage::LookChanged);
  connect(table_, &TableView::AllRead, this, &ListPage::ShowFooter);
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    ShowFooter();
    Q_EMIT Changed();
  });
}

void ListPage::Filter(std::size_t column, const QString& text) {
  QString objection;
  try {
    table_->Reorder([&](RowOrder& order) { order.Filter(column, FromQt(text)); });
  } catch (const platform::RuntimeError& error) {
    objection = ToQt(error.what());
  }
  table_->filters().SetObjection(static_cast<int>(column), objection);
  // What could not be read while it was half typed isn't said any longer.
  if (objection != objection_) Q_EMIT Told(objection);
  objection_ = objection;
  LookChanged();
}

void ListPage::FilterByKey(const QString& key, const QString& text) {
  const auto column = table_->grid().source().FindColumn(FromQt(key));
  if (!column) return;
  Filter(*column, text);
  ShowFilters(*table_);
  TakeFocus();
}

/// Dates are too many to be ticked: their field takes a period.
void ListPage::ChooseFrom(std::size_t column) {
  const RowOrder& order = table_->grid().order();
  const auto filter = order.filters().find(column);
  const std::vector<std::string> ticked =
      filter == order.filters().end() ? std::vector<std::string>() : lists::ChosenTexts(filter->second);
  const TableColumn& chosen = table_->grid().source().Columns()[column];
  const std::string key = chosen.key;
  Guarded(window(), [&] {
    ChoiceDialog dialog(chosen.caption, order.Occurring(column), ticked, window());
    if (dialog.exec() == QDialog::Accepted) FilterByKey(ToQt(key), ToQt(lists::ChoiceOf(dialog.Ticked())));
  });
}

void ListPage::GoToFilters() {
  FilterHeader& header = table_->filters();
  if (header.ShowsFields() && header.isAncestorOf(focusWidget())) {
    header.ShowFields(false);
    TakeFocus();
  } else {
    header.ShowFields(true);
    ShowFilters(*table_);
    const QModelIndex current = table_->currentIndex();
    header.FocusField(current.isValid() ? current.column() : -1);
  }
  memory_.Keep(*table_);
}

bool ListPage::ShowAll() {
  if (!table_->grid().order().IsNarrowed()) return false;
  const bool searched = !table_->grid().order().search().empty();
  table_->Reorder([](RowOrder& order) { order.ShowAll(); });
  ShowFilters(*table_);
  LookChanged();
  if (searched) Q_EMIT SearchCleared();
  return true;
}

void ListPage::LookChanged() {
  memory_.Keep(*table_);
  ReadOwn();
  ShowState();
}

void ListPage::FillColumns(QMenu& menu) {
  const QModelIndex current = table_->currentIndex();
  FillColumnMenu(menu, *table_, current.isValid() ? current.column() : -1, [this] { LookChanged(); });
}

lists::ListLook ListPage::Look() const { return LookOf(*table_); }

void ListPage::ShowLook(const lists::ListLook& look) {
  Guarded(window(), [&] { ApplyLook(*table_, look); });
  LookChanged();
}

QString ListPage::FooterText() const { return footer_->text(); }

void ListPage::ShowFooter() {
  std::vector<lists::SummedColumn> summed;
  const TableSource& source = table_->grid().source();
  for (std::size_t column : source.VisibleColumns()) {
    const TableColumn& shown = source.Columns()[column];
    if (shown.summed != lists::Summed::kNo)
      summed.push_back({column, FromQt(shown.caption), shown.mask, shown.summed});
  }
  QString text;
  // Sums wait until all rows are at hand, unless their column has been read for something else.
  if (!failure_ && !summed.empty() && !table_->IsReading() && !reads_own_) {
    const std::vector<long> marked = table_->MarkedRows();
    const bool of_marked = marked.size() > 1;
    Guarded(window(), [&] {
      const RowOrder& order = table_->grid().order();
      text = ToQt(lists::FooterText(order, summed, of_marked ? marked : order.Rows()));
    });
    if (of_marked && !text.isEmpty())
      text.prepend(QStringLiteral("Dos %1 seleccionados — ").arg(marked.size()));
  }
  footer_->setText(text);
  footer_->setToolTip(PlainToolTip(text));
  footer_->setVisible(!summed.empty());
}

}  // namespace desktop
