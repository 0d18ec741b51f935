#include <QAction>
#include <QMenu>

#include "desktop/list/context_menu.h"
#include "desktop/list/list_form.h"
#include "desktop/list/row_entry.h"
#include "desktop/list/table_export.h"
#include "desktop/look/text.h"
#include "desktop/print/report_dialog.h"
#include "history/act.h"
#include "platform/host.h"

namespace desktop {

/// The list reloads itself in its verbs, whatever happened in them.
void ListPage::Verb(const QString& name, const std::function<void()>& verb) {
  const std::string words = FromQt(Title() + QStringLiteral(": ") + name);
  ShowAfter([&] { Guarded(window(), [&] { history::ActHere(words, verb); }); });
  Q_EMIT Worked();
}

void ListPage::New() {
  if (Can(kNewCommand)) Verb(QStringLiteral("Novo"), [this] { list_->ICrmVwList_Novo(); });
}

void ListPage::Edit() {
  if (!Can(kEditCommand)) return;
  platform::GridRow row = form_->master.RowAt(table_->CurrentRow());
  Verb(QStringLiteral("Editar"), [&] { list_->ICrmVwList_Editar(&row); });
}

void ListPage::Remove() {
  if (!Can(kRemoveCommand)) return;
  const long current = table_->CurrentRow();
  const std::string key = KeyOf(current);
  const QString question = QStringLiteral("Remover este registo de %1?\n\n%2").arg(Title(), NameOf(current));
  const int style = platform::kYesNo | platform::kQuestion | platform::kDefaultButton2;
  if (ShowMessage(window(), question, style, QStringLiteral("Remover")) != platform::kYes) return;
  platform::GridRow row = form_->master.RowAt(current);
  Verb(QStringLiteral("Remover"), [&] { list_->ICrmVwList_Remover(&row); });
  if (!failure_ && table_->CurrentRow() >= 0 && KeyOf(table_->CurrentRow()) == key)
    Q_EMIT Told(QStringLiteral("O registo não foi removido."));
}

void ListPage::Run(long command) {
  Verb(ToQt(commands_.NameOf(command)), [&] { commands_.Run(*list_, command); });
}

void ListPage::Print() {
  if (!Can(kPrintCommand)) return;
  Guarded(window(), [this] {
    ReportDialog(table_->grid().source(), Title(), window(), &table_->grid().order()).exec();
  });
}

void ListPage::Export() {
  const QString file = AskForTableFile(window(), Title());
  if (file.isEmpty()) return;
  const bool done =
      Guarded(window(), [&] { ExportRows(file, table_->grid().source(), table_->grid().order(), Title()); });
  if (done) Q_EMIT Told(QStringLiteral("Escrito em %1").arg(file));
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
  if (!table_->indexAt(place).isValid()) return;
  Guarded(window(), [this] { commands_ = ListCommands(list_.get()); });
  QMenu menu(this);
  std::optional<long> chosen;
  FillMenu(menu, commands_.menu(), [&](long command) { chosen = command; });
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
    addAction(action);
    own_ << action;
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
