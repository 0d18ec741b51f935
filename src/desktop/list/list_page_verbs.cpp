#include <QAction>
#include <QMenu>
#include <QScrollBar>
#include <algorithm>
#include <functional>
#include <unordered_set>

#include "desktop/list/context_menu.h"
#include "desktop/list/list_form.h"
#include "desktop/list/row_entry.h"
#include "desktop/list/table_export.h"
#include "desktop/list/tools/list_paper.h"
#include "desktop/look/text.h"
#include "desktop/print/report_dialog.h"
#include "history/act.h"
#include "platform/host.h"

namespace desktop {
namespace {

/// Records that the question before a removal names.
constexpr std::size_t kNamesAsked = 12;

}  // namespace

/// The list reloads itself in its verbs, whatever happened in them; one of a server gets the rows that it had
/// until those come that there are now. What is to happen with these is done `then`.
void ListPage::Verb(const QString& name, const std::function<void()>& verb, std::function<void()> then) {
  const std::string words = FromQt(Title() + QStringLiteral(": ") + name);
  const history::KeepingStore& kept = *workspace_.kept();
  const long before = kept.Newest().head;
  workspace_.Foresee(rows_);
  ShowAfter([&] { Guarded(window(), [&] { history::ActHere(words, verb); }); });
  workspace_.Foresee({});
  const history::ActRecord& last = kept.Newest();
  if (last.head != 0 && last.head != before) {
    const std::string record = last.about.empty() ? std::string() : ", " + last.about;
    Q_EMIT Told(ToQt("Guardado: " + last.words + record + " (Ctrl+Z anula)"));
  }
  Q_EMIT Worked();
  if (!workspace_.IsFar()) return then();
  then_ = std::move(then);
  Load();
}

void ListPage::New() {
  if (!Can(kNewCommand)) return;
  const std::vector<std::string> before = AllKeys();
  Verb(
      QStringLiteral("Novo"), [this] { list_->ICrmVwList_Novo(); }, [this, before] { ChooseNew(before); });
}

void ListPage::Edit() {
  if (!Can(kEditCommand)) return;
  platform::GridRow row = form_->master.RowAt(table_->CurrentRow());
  Verb(QStringLiteral("Editar"), [&] { list_->ICrmVwList_Editar(&row); });
}

/// The rows that a command works on: those marked, else the current one.
std::vector<long> ListPage::WorkRows() const {
  std::vector<long> rows = table_->MarkedRows();
  if (rows.size() < 2) {
    rows.clear();
    if (table_->CurrentRow() >= 0) rows.push_back(table_->CurrentRow());
  }
  return rows;
}

void ListPage::Remove() {
  if (!Can(kRemoveCommand)) return;
  const std::vector<long> rows = WorkRows();
  const bool one = rows.size() == 1;
  QStringList names;
  for (std::size_t i = 0; i < rows.size() && i < kNamesAsked; ++i) names << NameOf(rows[i]);
  if (rows.size() > kNamesAsked) names << QStringLiteral("… e mais %1").arg(rows.size() - kNamesAsked);
  const QString what =
      one ? QStringLiteral("este registo") : QStringLiteral("estes %1 registos").arg(rows.size());
  const QString question =
      QStringLiteral("Remover %1 de %2?\n\n%3").arg(what, Title(), names.join(QLatin1Char('\n')));
  const int style = platform::kYesNo | platform::kQuestion | platform::kDefaultButton2;
  if (ShowMessage(window(), question, style, QStringLiteral("Remover")) != platform::kYes) return;
  const std::string last = KeyOf(rows.back());
  const long place = table_->grid().order().PlaceOf(rows.front());
  const int scrolled = table_->verticalScrollBar()->value();
  const long count = table_->grid().source().Rows();
  const auto removed = static_cast<long>(rows.size());
  Verb(
      one ? QStringLiteral("Remover") : QStringLiteral("Remover %1 registos").arg(removed),
      [&] { RemoveRows(rows); },
      [this, last, place, scrolled, expected = count - removed, one] {
        if (TellWhatStayed(last, expected, one)) return;
        table_->verticalScrollBar()->setValue(scrolled);
        table_->GoToPlace(place);
      });
}

/// Says so when there are more rows than expected after a removal, the last of which was of this key; true
/// then.
bool ListPage::TellWhatStayed(const std::string& last, long expected, bool one) {
  if (failure_) return true;
  const long left = table_->grid().source().Rows() - expected;
  if (one && left > 0 && table_->CurrentRow() >= 0 && KeyOf(table_->CurrentRow()) == last)
    Q_EMIT Told(QStringLiteral("O registo não foi removido."));
  else if (!one && left > 0)
    Q_EMIT Told(QStringLiteral("%1 dos registos não foram removidos.").arg(left));
  return left > 0;
}

/// From the bottom: the list reads its rows anew after each, and those above stay where they are. A row that
/// isn't where it was any more is left alone; false then.
bool ListPage::RemoveRows(std::vector<long> rows) {
  std::sort(rows.begin(), rows.end(), std::greater<>());
  std::vector<std::string> keys;
  keys.reserve(rows.size());
  for (long row : rows) keys.push_back(KeyOf(row));
  bool all = true;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto column = form_->master.ColumnIndex(entry_.keyColumn);
    if (rows[i] >= form_->master.RowCount() || form_->master.CellText(rows[i], column) != keys[i]) {
      all = false;
      continue;
    }
    platform::GridRow row = form_->master.RowAt(rows[i]);
    list_->ICrmVwList_Remover(&row);
  }
  return all;
}

std::vector<std::string> ListPage::AllKeys() const {
  std::vector<std::string> keys;
  const long count = failure_ ? 0 : table_->grid().source().Rows();
  for (long row = 0; row < count; ++row) keys.push_back(KeyOf(row));
  return keys;
}

/// Chooses the record that wasn't there before, and brings it into view.
void ListPage::ChooseNew(const std::vector<std::string>& before) {
  if (failure_) return;
  const std::unordered_set<std::string> known(before.begin(), before.end());
  long made = -1;
  const long count = table_->grid().source().Rows();
  for (long row = 0; row < count; ++row)
    if (known.count(KeyOf(row)) == 0) made = row;
  if (made < 0) return;
  if (table_->grid().order().PlaceOf(made) < 0)
    return Q_EMIT Told(
        QStringLiteral("O registo novo está guardado, mas o filtro não o mostra (Esc mostra tudo)."));
  table_->SetCurrentRow(made);
  table_->scrollTo(table_->currentIndex());
}

void ListPage::Run(long command) {
  Verb(ToQt(commands_.NameOf(command)), [&] { commands_.Run(*list_, command); });
}

void ListPage::Print() {
  if (!Can(kPrintCommand)) return;
  FinishReading();
  Guarded(window(), [&] {
    ReportDialog(table_->grid().source(), Title(), window(), PaperOf(*table_, WorkRows())).exec();
  });
}

void ListPage::Export() {
  const QString file = AskForTableFile(window(), Title());
  if (file.isEmpty()) return;
  FinishReading();
  const std::vector<long> marked = WorkRows();
  const std::vector<long> rows = marked.size() > 1 ? marked : table_->grid().order().Rows();
  const bool done = Guarded(window(), [&] { ExportRows(file, table_->grid().source(), rows, Title()); });
  if (!done) return;
  const QString count =
      Counted(static_cast<long>(rows.size()), QStringLiteral("registo"), QStringLiteral("registos"));
  Q_EMIT Told(QStringLiteral("%1 em %2").arg(count, file));
}

QString ListPage::NameOf(long row) const {
  QStringList parts;
  for (std::size_t column : table_->grid().source().VisibleColumns()) {
    const QString text = table_->grid().source().Text(row, column);
    if (!text.isEmpty() && parts.size() < 3) parts << text;
  }
  return parts.join(QStringLiteral(" – "));
}

void ListPage::RowMenu(const QPoint& place) {
  if (!table_->indexAt(place).isValid() || table_->CurrentRow() < 0) return;
  Guarded(window(), [this] { commands_ = ListCommands(list_.get()); });
  QMenu menu(this);
  std::optional<long> chosen;
  FillMenu(
      menu, commands_.menu(), [&](long command) { chosen = command; },
      [this](long command) { return WhyNot(command); });
  if (!own_.isEmpty()) menu.addSeparator();
  menu.addActions(own_);
  menu.exec(table_->viewport()->mapToGlobal(place));
  if (chosen) RunCommand(*chosen);
}

void ListPage::RunCommand(long command) {
  switch (command) {
    case kNewCommand:
      return New();
    case kEditCommand:
      return Edit();
    case kRemoveCommand:
      return Remove();
    case kPrintCommand:
      return Print();
    default:
      return Run(command);
  }
}

/// The window's own commands on rows, with their keys.
void ListPage::AddEntries() {
  for (const RowEntry& entry : RowEntries()) {
    if (!entry.suits(entry_)) continue;
    auto* action = new QAction(QString::fromUtf8(entry.text), this);
    action->setShortcut(QKeySequence(QString::fromUtf8(entry.shortcut)));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [this, run = entry.run] {
      if (table_->CurrentRow() >= 0) Guarded(window(), [&] { run(*this, Marked()); });
    });
    if (entry.writes != nullptr) action->setData(QString::fromUtf8(entry.writes));
    addAction(action);
    own_ << action;
  }
  ShowOwnCommands();
}

void ListPage::ShowOwnCommands() {
  const bool can = !failure_ && table_->CurrentRow() >= 0;
  for (QAction* action : own_) {
    const std::string table = FromQt(action->data().toString());
    Allow(*action, can, workspace_.rights().WhyNot(zorCrmParvel::TableUse::kChange, table));
  }
}

MarkedRows ListPage::Marked() const {
  const long current = table_->CurrentRow();
  MarkedRows marked{.list = entry_, .keys = {KeyOf(current)}, .plate = {}};
  for (long row : table_->MarkedRows())
    if (row != current) marked.keys.push_back(KeyOf(row));
  const TableSource& source = table_->grid().source();
  if (const auto plate = source.FindColumn("Matricula")) marked.plate = FromQt(source.Text(current, *plate));
  return marked;
}

}  // namespace desktop
