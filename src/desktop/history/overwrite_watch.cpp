#include "desktop/history/overwrite_watch.h"

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
#include "history/view/browser.h"
#include "history/view/life.h"
#include "history/view/table_names.h"

namespace desktop {
namespace {

constexpr int kWidth = 46;  // in lines of text
constexpr int kHeight = 16;

void AddValue(QTableWidget& table, history::KeepingStore& store, const history::Overwritten& value,
              QWidget* parent) {
  const tsql::Column& column = value.table->columns[value.column];
  const QString who = ToQt(value.by.operador);
  AddLine(table,
          {ToQt(history::NameOfTable(value.table->name) + " " + history::KeyText(*value.table, value.row)),
           ToQt(column.name),
           ToQt(history::Shown(column, value.theirs)),
           who + QStringLiteral(", ") + ToQt(history::ShownMoment(value.by.moment)),
           ToQt(history::Shown(column, value.ours)),
           {}});
  auto* put_back = new QPushButton(QStringLiteral("&Repor o valor de %1").arg(who), &table);
  put_back->setAutoDefault(false);
  QObject::connect(put_back, &QPushButton::clicked, parent, [&store, value, put_back, parent] {
    if (!Guarded(parent, [&] { history::PutBack(store, value); })) return;
    put_back->setText(QStringLiteral("Reposto"));
    put_back->setEnabled(false);
  });
  table.setCellWidget(table.rowCount() - 1, table.columnCount() - 1, put_back);
}

void Tell(history::KeepingStore& store, const std::vector<history::Overwritten>& values, QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("alterado-entretanto"));
  dialog.setWindowTitle(QStringLiteral("Alterado entretanto"));
  auto* column = new QVBoxLayout(&dialog);
  column->setSpacing(Gap(&dialog));
  auto* what =
      new QLabel(QStringLiteral("Enquanto a ficha estava aberta, o registo foi alterado por outra pessoa. O "
                                "que confirmou ficou gravado por cima do seguinte:"),
                 &dialog);
  what->setWordWrap(true);
  column->addWidget(what);
  QTableWidget* table = SideBySide({"Registo", "Campo", "Estava", "Posto por", "Ficou", ""}, &dialog);
  for (const history::Overwritten& value : values) AddValue(*table, store, value, &dialog);
  table->resizeColumnsToContents();
  table->resizeRowsToContents();
  column->addWidget(table, 1);
  auto* buttons = new QDialogButtonBox(&dialog);
  QPushButton* close = buttons->addButton(QStringLiteral("&Fechar"), QDialogButtonBox::RejectRole);
  close->setDefault(true);
  close->setFocus();
  column->addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  dialog.resize(Em(&dialog) * kWidth, Em(&dialog) * kHeight);
  dialog.exec();
}

}  // namespace

OverwriteWatch::OverwriteWatch()
    : store_(history::OpenStores().empty() ? nullptr : history::OpenStores().back()) {
  Shown();
}

void OverwriteWatch::Shown() {
  if (store_ != nullptr) seen_ = std::max(seen_, store_->Mark());
}

void OverwriteWatch::Written(QWidget* parent) {
  const long operation = store_ != nullptr ? store_->LastOperation() : 0;
  if (operation <= seen_) return;
  Guarded(parent, [&] {
    const std::vector<history::Overwritten> values = history::OverwrittenBy(*store_, operation, seen_);
    seen_ = operation;  // what others had stored before it is told now
    if (!values.empty()) Tell(*store_, values, parent);
  });
}

}  // namespace desktop
