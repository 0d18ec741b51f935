#include "desktop/history/life_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/history/side_by_side.h"
#include "desktop/history/undo_dialog.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"
#include "history/view/browser.h"
#include "history/view/table_names.h"

namespace desktop {
namespace {

constexpr int kWidth = 56;  // in lines of text
constexpr int kHeight = 24;
constexpr int kLetters[] = {36, 11, 22, 30};  // of the columns; the last has what is left

}  // namespace

LifeDialog::LifeDialog(std::shared_ptr<history::KeepingStore> store, const std::string& table,
                       std::string key, const QString& name, QWidget* parent)
    : QDialog(parent),
      store_(std::move(store)),
      of_(store_->catalog().Get(table)),
      key_(std::move(key)),
      table_(SideBySide({"O que mudou", "Quem", "Quando", "Operação", ""}, this)),
      undo_(new QPushButton(QStringLiteral("&Anular a operação…"), this)) {
  Build(name);
  Fill();
}

void LifeDialog::Build(const QString& name) {
  setObjectName(QStringLiteral("vida-do-registo"));
  setWindowTitle(QStringLiteral("Histórico: %1").arg(name));
  auto* column = new QVBoxLayout(this);
  column->setSpacing(Gap(this));
  auto* title = new QLabel(ToQt(history::NameOfTable(of_.name)) + QStringLiteral(" · ") + name, this);
  title->setTextFormat(Qt::PlainText);
  SetTitleFont(title, 1.15);
  column->addWidget(title);
  table_->setAccessibleName(QStringLiteral("Histórico do registo"));
  table_->setWordWrap(true);
  const int letter = fontMetrics().averageCharWidth();
  for (int i = 0; i < 4; ++i) table_->setColumnWidth(i, letter * kLetters[i]);
  column->addWidget(table_, 1);
  auto* buttons = new QDialogButtonBox(this);
  undo_->setAutoDefault(false);
  buttons->addButton(undo_, QDialogButtonBox::ActionRole);
  buttons->addButton(QStringLiteral("&Fechar"), QDialogButtonBox::RejectRole)->setDefault(true);
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(undo_, &QPushButton::clicked, this, &LifeDialog::Undo);
  connect(table_, &QTableWidget::currentCellChanged, this, [this] {
    const history::Change* chosen = Chosen();
    undo_->setEnabled(chosen != nullptr && chosen->operation.undoneBy == 0 && !chosen->operation.emptied);
  });
  resize(Em(this) * kWidth, Em(this) * kHeight);
}

void LifeDialog::Fill() {
  table_->clearSpans();
  table_->setRowCount(0);
  Guarded(this, [this] { life_ = history::ReadLife(*store_, of_, key_); });
  for (const history::Change& change : life_)
    AddLine(*table_, {ToQt(change.words), ToQt(change.operation.operador),
                      ToQt(history::ShownMoment(change.operation.moment)), ToQt(change.operation.words),
                      ToQt(history::ShownState(change.operation))});
  if (life_.empty()) {
    AddLine(*table_,
            {QStringLiteral("Desde que há histórico, aqui ninguém mexeu neste registo."), {}, {}, {}, {}});
    table_->setSpan(0, 0, 1, table_->columnCount());
  }
  table_->resizeRowsToContents();
  undo_->setEnabled(false);
  table_->setCurrentCell(0, 0);
}

const history::Change* LifeDialog::Chosen() const {
  const int row = table_->currentRow();
  return row >= 0 && static_cast<std::size_t>(row) < life_.size() ? &life_[static_cast<std::size_t>(row)]
                                                                  : nullptr;
}

void LifeDialog::Undo() {
  const history::Change* chosen = Chosen();
  if (chosen == nullptr) return;
  const history::Operation operation = chosen->operation;
  const bool done = Guarded(this, [&] { undone_ = AskAndUndo(store_, operation, this) || undone_; });
  if (done) Fill();
}

bool LifeDialog::Show(const std::shared_ptr<history::KeepingStore>& store, const std::string& table,
                      const std::string& key, const QString& name, QWidget* parent) {
  LifeDialog dialog(store, table, key, name, parent);
  dialog.exec();
  return dialog.undone_;
}

}  // namespace desktop
