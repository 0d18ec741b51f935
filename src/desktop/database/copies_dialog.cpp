#include "desktop/database/copies_dialog.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/database/copy_keeper.h"
#include "desktop/database/database_dialogs.h"
#include "desktop/history/side_by_side.h"
#include "desktop/look/house_style.h"
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
      table_(SideBySide({"Dia", "Tamanho"}, this)),
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
  table_->setAccessibleName(QStringLiteral("Cópias"));
  column->addWidget(table_, 1);
  for (QLabel* label : {holdings_, folder_}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    column->addWidget(label);
  }
  SetMuted(folder_);
  auto* buttons = new QHBoxLayout;
  const auto add = [this, buttons](const QString& text) {
    auto* button = new QPushButton(text, this);
    button->setAutoDefault(false);
    buttons->addWidget(button);
    return button;
  };
  QPushButton* another = add(QStringLiteral("&Outro ficheiro…"));
  QPushButton* folder = add(QStringLiteral("&Mudar de pasta…"));
  buttons->addStretch(1);
  QPushButton* cancel = add(QStringLiteral("&Cancelar"));
  restore_ = add(QStringLiteral("&Repor esta"));
  restore_->setDefault(true);
  HouseStyle::SetAccent(restore_);
  column->addLayout(buttons);
  connect(table_, &QTableWidget::currentCellChanged, this, &CopiesDialog::ShowHoldings);
  connect(table_, &QTableWidget::cellActivated, this, &CopiesDialog::RestoreChosen);
  connect(restore_, &QPushButton::clicked, this, &CopiesDialog::RestoreChosen);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
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
