#include <QAction>

#include "desktop/look/text.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/message_box.h"
#include "history/reader.h"
#include "history/undo.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr std::size_t kConflictsShown = 8;

QString WordsOf(const history::Operation& operation) {
  const QString words = ToQt(operation.words);
  const QString record = ToQt(operation.record);
  return record.isEmpty() || words.endsWith(record) ? words : words + QStringLiteral(", ") + record;
}

/// "Nome: agora «Renault SA», ficaria «Renault»".
QString LineOf(const history::Conflict& conflict) {
  const QString what = ToQt(conflict.column.empty() ? conflict.table : conflict.column);
  return QStringLiteral("%1 %2: agora «%3», ficaria «%4»")
      .arg(ToQt(conflict.key), what, ToQt(conflict.now), ToQt(conflict.before));
}

}  // namespace

/// The menu names what would be undone.
void MainWindow::UpdateUndo() {
  std::optional<history::Operation> last;
  if (workspace_ != nullptr && workspace_->kept()->Keeps())
    Guarded(this, [&] { last = history::LastToUndo(*workspace_->kept()); });
  actions_->undo->setText(last
                              ? QStringLiteral("A&nular: ") + WordsOf(*last).replace('&', QLatin1String("&&"))
                              : QStringLiteral("A&nular a última operação"));
}

/// What somebody changed since is never overwritten silently.
bool MainWindow::MayUndo(const history::Operation& operation) {
  const std::vector<history::Conflict> conflicts = history::Conflicts(*workspace_->kept(), operation.number);
  if (conflicts.empty()) return true;
  QStringList lines = {QStringLiteral("Depois de «%1» alguém alterou o mesmo:").arg(WordsOf(operation)),
                       QString()};
  for (std::size_t i = 0; i < conflicts.size() && i < kConflictsShown; ++i) lines << LineOf(conflicts[i]);
  if (conflicts.size() > kConflictsShown)
    lines << QStringLiteral("… e mais %1").arg(conflicts.size() - kConflictsShown);
  lines << QString() << QStringLiteral("Pôr mesmo assim tudo como estava antes?");
  return ShowMessage(this, lines.join(QLatin1Char('\n')),
                     platform::kYesNo | platform::kQuestion | platform::kDefaultButton2,
                     QStringLiteral("Anular")) == platform::kYes;
}

void MainWindow::Undo() {
  if (workspace_ == nullptr) return;
  Guarded(this, [this] {
    const auto last = history::LastToUndo(*workspace_->kept());
    if (!last) return Tell(QStringLiteral("Não há nada a anular."));
    if (!MayUndo(*last)) return;
    history::Undo(workspace_->kept(), last->number);
    Tell(QStringLiteral("Anulado: ") + WordsOf(*last));
    Reload();
  });
}

}  // namespace desktop
