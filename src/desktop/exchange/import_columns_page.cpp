#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/exchange/import_pages.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "exchange/import.h"
#include "exchange/shape/column_words.h"

namespace desktop {
namespace {

constexpr std::size_t kSamples = 12;
constexpr int kColumnWidth = 9;  // in lines of text

}  // namespace

ImportColumnsPage::ImportColumnsPage(QWidget* parent)
    : QWidget(parent),
      table_(new QTableWidget(this)),
      constants_(nullptr),
      constants_place_(new QWidget(this)),
      propose_(
          new QCheckBox(QStringLiteral("Propor os &quilómetros dos abastecimentos que não os trazem"), this)),
      name_(new QLineEdit(this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(Gap(this));
  auto* what = new QLabel(
      QStringLiteral("Por cima de cada coluna do ficheiro escolha o que ela é. O que não interessa "
                     "fica por importar."),
      this);
  what->setWordWrap(true);
  column->addWidget(what);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionMode(QAbstractItemView::NoSelection);
  table_->setFocusPolicy(Qt::NoFocus);
  table_->verticalHeader()->hide();
  table_->setAccessibleName(QStringLiteral("Colunas do ficheiro"));
  column->addWidget(table_, 1);
  column->addWidget(constants_place_);
  column->addWidget(propose_);
  auto* form = new QFormLayout;
  name_->setObjectName(QStringLiteral("nome"));
  name_->setPlaceholderText(QStringLiteral("Por exemplo, o nome de quem envia o ficheiro"));
  form->addRow(QStringLiteral("&Guardar como perfil"), name_);
  column->addLayout(form);
}

QWidget* ImportColumnsPage::Chooser(std::size_t column) {
  auto* chooser = new QComboBox(table_);
  chooser->addItem(QStringLiteral("(não importar)"), QString());
  for (const exchange::ImportColumn& target : exchange::ColumnsOfKind(session_->profile().kind))
    chooser->addItem(ToQt(exchange::LabelOf(session_->kind(), target.name)), QString::fromUtf8(target.name));
  chooser->setCurrentIndex(std::max(0, chooser->findData(ToQt(session_->TargetOf(column)))));
  chooser->setAccessibleName(ToQt(session_->Heading(column)));
  connect(chooser, &QComboBox::currentIndexChanged, this, [this, chooser, column] {
    session_->Map(column, FromQt(chooser->currentData().toString()));
    ShowConstants();
  });
  return chooser;
}

void ImportColumnsPage::Show(exchange::ImportSession* session) {
  session_ = session;
  table_->clear();
  table_->setColumnCount(static_cast<int>(session_->columns()));
  table_->setRowCount(static_cast<int>(kSamples) + 1);
  QStringList headings;
  for (std::size_t i = 0; i < session_->columns(); ++i) {
    const int column = static_cast<int>(i);
    headings << ToQt(session_->Heading(i)) +
                    (session_->IsHidden(i) ? QStringLiteral(" (escondida)") : QString());
    table_->setCellWidget(0, column, Chooser(i));
    table_->setColumnWidth(column, Em(this) * kColumnWidth);
    int row = 0;
    for (const std::string& sample : session_->Samples(i, kSamples))
      table_->setItem(++row, column, new QTableWidgetItem(ToQt(sample)));
  }
  table_->setHorizontalHeaderLabels(headings);
  table_->setRowHeight(0, Em(this) * 2);
  const bool fills = session_->profile().kind == "gastos";
  propose_->setVisible(fills);
  propose_->setChecked(session_->profile().proposeKm);
  name_->setText(ToQt(session_->profile().name));
  ShowConstants();
}

/// What every row must have and the file lacks, and what has the same text in every row already.
void ImportColumnsPage::ShowConstants() {
  std::vector<std::string> wanted = session_->Missing();
  for (const exchange::ImportColumn& column : exchange::ColumnsOfKind(session_->profile().kind))
    if (!session_->ConstantOf(column.name).empty()) wanted.emplace_back(column.name);
  texts_.clear();
  delete constants_;
  qDeleteAll(constants_place_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly));
  constants_ = new QFormLayout(constants_place_);
  constants_->setContentsMargins(0, 0, 0, 0);
  for (const std::string& column : wanted) {
    auto* text = new QLineEdit(ToQt(session_->ConstantOf(column)), constants_place_);
    text->setPlaceholderText(QStringLiteral("O ficheiro não o traz: o mesmo em todas as linhas"));
    constants_->addRow(ToQt(exchange::LabelOf(session_->kind(), column)), text);
    texts_.emplace_back(column, text);
  }
}

QString ImportColumnsPage::Take() {
  for (const auto& [column, text] : texts_) session_->SetConstant(column, FromQt(text->text().trimmed()));
  session_->profile().proposeKm = propose_->isVisible() && propose_->isChecked();
  session_->profile().name = FromQt(name_->text().trimmed());
  const std::vector<std::string> missing = session_->Missing();
  if (missing.empty()) return {};
  QStringList names;
  for (const std::string& column : missing) names << ToQt(exchange::LabelOf(session_->kind(), column));
  return QStringLiteral(
             "Falta dizer de onde vem: %1.\nEscolha a coluna, ou escreva o que vale para todas as linhas.")
      .arg(names.join(QStringLiteral(", ")));
}

}  // namespace desktop
