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
#include "desktop/shell/message_box.h"
#include "history/outside.h"
#include "history/undo.h"
#include "history/view/browser.h"
#include "history/view/table_names.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr int kWidth = 42;  // in lines of text
constexpr int kHeight = 20;
constexpr std::size_t kMostShown = 200;
constexpr std::size_t kMostTold = 12;
constexpr const char* kImports = "parvel_importacoes";

bool AskAbout(const std::vector<history::Conflict>& conflicts, const QString& words, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("anular"));
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
  table->setCurrentCell(0, 0);  // where the keyboard comes to
  table->setAccessibleName(QStringLiteral("O que ficaria"));
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
  history::SetUndoing(kImports, [](const auto& inner, const std::string& key, const auto&) {
    std::vector<std::string> lines;
    for (const exchange::KeptRow& kept : TakeBackNoted(inner, key).kept)
      lines.push_back(history::NameOfTable(kept.table) + " " + kept.key + " " + kept.why);
    return lines;
  });
  std::vector<std::string> kept;
  history::Undo(store, operation.number, &kept);
  if (kept.empty()) return true;
  QStringList lines = {QStringLiteral("Isto ficou como está:"), QString()};
  for (std::size_t i = 0; i < kept.size() && i < kMostTold; ++i) lines << ToQt(kept[i]);
  if (kept.size() > kMostTold) lines << QStringLiteral("… e mais %1").arg(kept.size() - kMostTold);
  ShowMessage(parent, lines.join(QLatin1Char('\n')), platform::kOkOnly | platform::kInformation,
              QStringLiteral("Anular"));
  return true;
}

exchange::TakenBack TakeBackNoted(const std::shared_ptr<zorCrmParvel::Store>& store,
                                  const std::string& import) {
  return exchange::TakeBackImport(store, std::stol(import), [&] {
    history::NoteUndoneIn(*store, "Anular: Importação " + import, kImports, import);
  });
}

}  // namespace desktop
