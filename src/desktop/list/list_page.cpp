#include "desktop/list/list_page.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>

#include "desktop/list/list_form.h"
#include "desktop/list/list_source.h"
#include "desktop/list/tools/filter_bar.h"
#include "desktop/list/tools/list_look.h"
#include "desktop/look/look.h"
#include "desktop/look/one_line.h"
#include "desktop/look/parts.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_page.h"

namespace desktop {

class ListPage::PageViewer : public zorCrmParvel::Viewer {};

ListPage::ListPage(Workspace& workspace, const ListEntry& entry, QSettings& settings, QWidget* parent)
    : Page(parent),
      workspace_(workspace),
      entry_(entry),
      memory_(settings, QString::fromUtf8(entry.key)),
      form_(std::make_unique<ListForm>()),
      viewer_(std::make_unique<PageViewer>()),
      list_(workspace.sistema().MostraListas(entry.key)),
      commands_(list_.get()),
      title_(new QLabel(this)),
      count_(new QLabel(this)),
      bar_(new FilterBar(this)),
      footer_(new OneLine(this)),
      stack_(new QStackedWidget(this)),
      table_(new TableView(
          std::make_unique<ListSource>(form_->master, entry, workspace.sistema().ICrmSistema_ZorDataAccess,
                                       workspace.IsFar()),
          true, this)),
      message_(new MessagePage(this)) {
  list_->ICrmVwList_GridMaster(&form_->master);
  list_->ICrmVwList_GridDetail(&form_->detail);
  list_->ICrmVwList_Viewer(viewer_.get());
  list_->ICrmVwList_ParentForm(form_.get());
  Build();
  Connect();
  ConnectLook();
  AddEntries();
  Load();
}

ListPage::~ListPage() {
  reading_.GiveUp();
  reading_own_.GiveUp();
  Guarded(this, [this] { list_->ICrmVwList_Terminar(); });
  // The table reads the grid, which goes before it.
  delete table_;
}

void ListPage::Build() {
  auto* column = new QVBoxLayout(this);
  title_->setTextFormat(Qt::PlainText);
  title_->setText(Title());
  SetMuted(count_);
  AddHeading(*column, title_)->addWidget(count_, 0, Qt::AlignBottom);
  column->addWidget(bar_);

  table_->setAccessibleName(Title());
  table_->ShowWhenEmpty(QStringLiteral("Nenhum registo corresponde ao filtro. Esc mostra todos."));
  table_->setFrameShape(QFrame::NoFrame);
  table_->setContextMenuPolicy(Qt::CustomContextMenu);
  stack_->addWidget(table_);
  stack_->addWidget(message_);
  column->addWidget(stack_, 1);
  footer_->setContentsMargins(Gap(this), Gap(this) / 2, WideGap(this), Gap(this) / 2);
  footer_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  column->addWidget(footer_);
}

void ListPage::Connect() {
  connect(table_, &TableView::RowChosen, this, &ListPage::RowChosen);
  connect(table_, &TableView::RowOpened, this, &ListPage::Edit);
  connect(table_, &TableView::SortChanged, this, [this] { memory_.Keep(*table_); });
  connect(table_, &TableView::WidthsChanged, this, [this] { memory_.Keep(*table_); });
  connect(table_, &QWidget::customContextMenuRequested, this, &ListPage::RowMenu);
  table_->grid().on_error = [this](const std::exception& error) {
    failure_ = Describe(error);
    QMetaObject::invokeMethod(this, &ListPage::ShowState, Qt::QueuedConnection);
  };
}

QString ListPage::Title() const {
  const QString name = ToQt(list_->ICrmVwList_Name());
  return name.isEmpty() ? QString::fromUtf8(entry_.title) : name;
}

bool ListPage::Can(StandardCommand command) const {
  if (failure_) return false;
  // Printing is the window's own affair, whether or not the list offers it in its menu.
  if (command == kPrintCommand) return table_->grid().order().Count() > 0;
  return commands_.Has(command) && WhyNot(command).isEmpty() &&
         (command == kNewCommand || table_->CurrentRow() >= 0);
}

/// "Editar" also shows a record that may not be changed.
QString ListPage::WhyNot(long command) const {
  using zorCrmParvel::TableUse;
  if (command == kPrintCommand || command == kEditCommand) return {};
  const TableUse use = command == kNewCommand      ? TableUse::kAdd
                       : command == kRemoveCommand ? TableUse::kRemove
                                                   : TableUse::kChange;
  return workspace_.rights().WhyNot(use, entry_);
}

QString ListPage::CountText() const {
  if (failure_ || (is_reading_ && table_->grid().order().Count() == 0)) return {};
  const RowOrder& order = table_->grid().order();
  const long all = table_->grid().source().Rows();
  QString count = order.IsNarrowed() ? QStringLiteral("%1 de %2").arg(Grouped(order.RowCount()), Grouped(all))
                                     : Counted(all, QStringLiteral("registo"), QStringLiteral("registos"));
  const std::size_t marked = WorkRows().size();
  if (marked == 0) return count;
  return count + QStringLiteral(" · ") +
         Counted(static_cast<long>(marked), QStringLiteral("seleccionado"), QStringLiteral("seleccionados"));
}

QString ListPage::SearchText() const { return ToQt(table_->grid().order().search()); }

void ListPage::Search(const QString& text) {
  table_->Search(text);
  if (table_->CurrentRow() < 0 && table_->grid().order().Count() > 0)
    table_->SetCurrentRow(table_->grid().order().RowAt(0));
  LookChanged();
}

/// Shows the rows that there are after a change, with the record that was chosen before it.
void ListPage::ShowAfter(const std::function<void()>& change) {
  reading_.GiveUp();
  is_reading_ = false;
  try {
    const long row = table_->CurrentRow();
    const std::string key = KeyOf(row);
    change();
    table_->Refresh();
    ChooseKey(key, row);
  } catch (const std::exception& error) {
    failure_ = Describe(error);
  }
  ShowState();
}

void ListPage::ResetColumns() {
  table_->SetUserWidths({});
  memory_.Keep(*table_);
}

void ListPage::TakeFocus() {
  list_->ICrmVwList_Processar();
  if (stack_->currentWidget() != table_) return message_->button()->setFocus();
  if (!table_->currentIndex().isValid()) table_->GoToTop();
  table_->setFocus();
}

void ListPage::ShowState() {
  const RowOrder& order = table_->grid().order();
  if (failure_) {
    message_->Show(QStringLiteral("Não foi possível ler a lista."), WithDetails(*failure_),
                   QStringLiteral("&Tentar de novo"), [this] { Load(); });
  } else if (is_reading_ && order.Count() == 0) {
    ShowReading();
  } else if (order.Count() == 0 && !order.search().empty()) {
    message_->Show(QStringLiteral("Nenhum registo corresponde a «%1».").arg(ToQt(order.search())), {},
                   QStringLiteral("&Limpar a procura"), [this] {
                     Search({});
                     Q_EMIT SearchCleared();
                   });
  } else if (order.Count() == 0 && commands_.Has(kNewCommand)) {
    message_->Show(QStringLiteral("A lista está vazia."),
                   QStringLiteral("Ainda não há registos em %1.").arg(Title()),
                   QStringLiteral("&Criar o primeiro registo"), [this] { New(); });
  } else if (order.Count() == 0) {
    message_->Show(QStringLiteral("A lista está vazia."), QStringLiteral("Não há nada a tratar."), {}, {});
  }
  ShowOwnCommands();
  // With filters the headings stay, and the fields in which they are typed.
  const bool rows = !failure_ && (order.Count() > 0 || (!is_reading_ && !order.filters().empty()));
  QWidget* shown = rows ? static_cast<QWidget*>(table_) : static_cast<QWidget*>(message_);
  const bool moves =
      stack_->currentWidget() != shown && stack_->currentWidget()->isAncestorOf(QApplication::focusWidget());
  stack_->setCurrentWidget(shown);
  if (moves) TakeFocus();
  bar_->Show(*table_);
  ShowFooter();
  count_->setText(failure_ || is_reading_ ? QString() : CountText().section(QStringLiteral(" · "), 0, 0));
  Q_EMIT Changed();
}

/// Chooses the record of a key again, or the row that took its place.
void ListPage::ChooseKey(const std::string& key, long place) {
  const long count = table_->grid().source().Rows();
  long row = std::min(std::max(0L, place), count - 1);
  if (!key.empty() && (row < 0 || KeyOf(row) != key))
    for (long i = 0; i < count; ++i)
      if (KeyOf(i) == key) row = i;
  table_->SetCurrentRow(row);
}

std::string ListPage::KeyOf(long row) const {
  const std::optional<std::size_t> column = table_->grid().source().FindColumn(entry_.keyColumn);
  if (row < 0 || row >= table_->grid().source().Rows() || !column) return {};
  return table_->grid().source().Shown(row, *column);
}

void ListPage::RowChosen(long row) {
  Guarded(window(), [&] {
    if (row >= 0 && row < form_->master.RowCount()) form_->master.SetRow(row);
  });
  ShowOwnCommands();
  Q_EMIT Changed();
}

}  // namespace desktop
