#include "desktop/history/undo_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/history/side_by_side.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "history/undo.h"
#include "history/view/browser.h"
#include "history/view/table_names.h"

namespace desktop {
namespace {

constexpr int kWidth = 42;  // in lines of text
constexpr int kHeight = 20;
constexpr std::size_t kMostShown = 200;

bool AskAbout(const std::vector<history::Conflict>& conflicts, const QString& words, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setWindowTitle(QStringLiteral("Anular"));
  auto* column = new QVBoxLayout(&dialog);
  column->setSpacing(Gap(&dialog));
  auto* what = new QLabel(
      QStringLiteral(
          "Depois de «%1» alguém alterou o mesmo. Anular põe os valores da última coluna por cima.")
          .arg(words),
      &dialog);
  what->setTextFormat(Qt::PlainText);
  what->setWordWrap(true);
  column->addWidget(what);
  QTableWidget* table = SideBySide({"Registo", "Campo", "Agora", "Ficaria"}, &dialog);
  for (std::size_t i = 0; i < conflicts.size() && i < kMostShown; ++i) {
    const history::Conflict& each = conflicts[i];
    AddLine(*table, {ToQt(history::NameOfTable(each.table) + " " + each.key), ToQt(each.column),
                     ToQt(each.now), ToQt(each.before)});
  }
  if (conflicts.size() > kMostShown)
    AddLine(*table, {QStringLiteral("… e mais %1").arg(conflicts.size() - kMostShown), {}, {}, {}});
  table->resizeColumnsToContents();
  column->addWidget(table, 1);
  auto* buttons = new QDialogButtonBox(&dialog);
  buttons->addButton(QStringLiteral("&Anular mesmo assim"), QDialogButtonBox::AcceptRole)
      ->setAutoDefault(false);
  QPushButton* keep = buttons->addButton(QStringLiteral("&Deixar como está"), QDialogButtonBox::RejectRole);
  keep->setDefault(true);
  keep->setFocus();
  column->addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  dialog.resize(Em(&dialog) * kWidth, Em(&dialog) * kHeight);
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace

bool AskAndUndo(const std::shared_ptr<history::KeepingStore>& store, const history::Operation& operation,
                QWidget* parent) {
  const std::vector<history::Conflict> conflicts = history::Conflicts(*store, operation.number);
  if (!conflicts.empty() && !AskAbout(conflicts, ToQt(history::ShownWords(operation)), parent)) return false;
  history::Undo(store, operation.number);
  return true;
}

}  // namespace desktop
