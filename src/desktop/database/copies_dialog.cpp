#include "desktop/database/copies_dialog.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/database/copy_keeper.h"
#include "desktop/database/database_dialogs.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/shell/message_box.h"

namespace desktop {
namespace {

constexpr int kWidth = 34;  // in lines of text
constexpr int kHeight = 22;

}  // namespace

CopiesDialog::CopiesDialog(CopyKeeper& keeper, QWidget* parent)
    : QDialog(parent),
      keeper_(keeper),
      table_(new QTableWidget(0, 2, this)),
      holdings_(new QLabel(this)),
      folder_(new QLabel(this)) {
  setObjectName(QStringLiteral("copias"));
  setWindowTitle(QStringLiteral("Repor cópia"));
  Build();
  Fill();
  resize(Em(this) * kWidth, Em(this) * kHeight);
}

void CopiesDialog::Build() {
  auto* column = new QVBoxLayout(this);
  column->setSpacing(Gap(this));
  auto* what =
      new QLabel(QStringLiteral("O programa guarda uma cópia por dia, e mantém as dos últimos sete dias, "
                                "quatro semanas e doze meses. Escolha a que quer pôr no lugar da base de "
                                "dados; o que lá está agora não se perde."),
                 this);
  what->setWordWrap(true);
  column->addWidget(what);
  table_->setHorizontalHeaderLabels({QStringLiteral("Dia"), QStringLiteral("Tamanho")});
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  table_->verticalHeader()->hide();
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->setAccessibleName(QStringLiteral("Cópias"));
  column->addWidget(table_, 1);
  for (QLabel* label : {holdings_, folder_}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    column->addWidget(label);
  }
  SetMuted(folder_);
  auto* buttons = new QDialogButtonBox(this);
  restore_ = buttons->addButton(QStringLiteral("&Repor esta"), QDialogButtonBox::AcceptRole);
  QPushButton* another = buttons->addButton(QStringLiteral("&Outro ficheiro…"), QDialogButtonBox::ActionRole);
  QPushButton* folder = buttons->addButton(QStringLiteral("&Mudar de pasta…"), QDialogButtonBox::ActionRole);
  buttons->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
  column->addWidget(buttons);
  connect(table_, &QTableWidget::currentCellChanged, this, &CopiesDialog::ShowHoldings);
  connect(table_, &QTableWidget::cellActivated, this, &CopiesDialog::RestoreChosen);
  connect(buttons, &QDialogButtonBox::accepted, this, &CopiesDialog::RestoreChosen);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(another, &QPushButton::clicked, this, &CopiesDialog::ChooseAnother);
  connect(folder, &QPushButton::clicked, this, &CopiesDialog::ChooseFolder);
}

void CopiesDialog::Fill() {
  const store::KeptCopies copies = keeper_.copies();
  table_->setRowCount(0);
  for (const store::KeptCopy& copy : copies.All()) {
    const QString file = ToQt(copy.file);
    const int row = table_->rowCount();
    table_->insertRow(row);
    auto* day = new QTableWidgetItem(ToQt(copy.day.ToText()));
    day->setData(Qt::UserRole, file);
    table_->setItem(row, 0, day);
    table_->setItem(row, 1,
                    new QTableWidgetItem(QLocale().formattedDataSize(QFileInfo(file).size(), 1,
                                                                     QLocale::DataSizeTraditionalFormat)));
  }
  folder_->setText(QStringLiteral("Pasta das cópias: ") + ToQt(copies.folder()));
  restore_->setEnabled(table_->rowCount() > 0);
  if (table_->rowCount() > 0) table_->setCurrentCell(0, 0);
  ShowHoldings();
}

void CopiesDialog::ShowHoldings() {
  const QTableWidgetItem* day = table_->item(table_->currentRow(), 0);
  if (day == nullptr) return holdings_->setText(QStringLiteral("Ainda não há cópias nesta pasta."));
  try {
    holdings_->setText(QStringLiteral("Tem ") +
                       ToQt(store::Holdings(FromQt(day->data(Qt::UserRole).toString()))) + QLatin1Char('.'));
  } catch (const std::exception& error) {
    holdings_->setText(Describe(error).headline);
  }
}

void CopiesDialog::RestoreChosen() {
  const QTableWidgetItem* day = table_->item(table_->currentRow(), 0);
  if (day == nullptr) return;
  file_ = day->data(Qt::UserRole).toString();
  accept();
}

void CopiesDialog::ChooseAnother() {
  file_ = AskForCopyToRestore(this);
  if (!file_.isEmpty()) accept();
}

void CopiesDialog::ChooseFolder() {
  const QString folder = AskForFolder(this, QStringLiteral("Pasta das cópias"));
  if (folder.isEmpty()) return;
  keeper_.ChooseFolder(folder);
  Fill();
}

}  // namespace desktop
