#include "desktop/exchange/new_codes_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/look/house_style.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "exchange/shape/column_words.h"

namespace desktop {
namespace {

enum : int { kCreate, kColumn, kCode, kName, kMeant, kRows, kColumns };

constexpr int kWidth = 44;  // in lines of text
constexpr int kHeight = 26;

}  // namespace

NewCodesDialog::NewCodesDialog(std::vector<exchange::NewCode> codes, const exchange::ImportKind& kind,
                               QWidget* parent)
    : QDialog(parent),
      codes_(std::move(codes)),
      table_(new QTableWidget(static_cast<int>(codes_.size()), kColumns, this)) {
  setObjectName(QStringLiteral("codigos-em-falta"));
  setWindowTitle(QStringLiteral("Códigos em falta"));
  auto* column = new QVBoxLayout(this);
  auto* what = new QLabel(
      QStringLiteral("O ficheiro fala destes códigos, que ainda não existem. Os marcados são criados com a "
                     "importação; o código e o nome podem ser corrigidos. Quando a palavra do ficheiro é a "
                     "de um código que já existe, "
                     "escreva-o em «Ou é o código»: o perfil fica a sabê-lo."),
      this);
  what->setWordWrap(true);
  column->addWidget(what);
  table_->setHorizontalHeaderLabels({QStringLiteral("Criar"), QStringLiteral("Para"),
                                     QStringLiteral("Código"), QStringLiteral("Nome"),
                                     QStringLiteral("Ou é o código"), QStringLiteral("Linhas")});
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  for (int row = 0; row < table_->rowCount(); ++row) {
    const exchange::NewCode& code = codes_[static_cast<std::size_t>(row)];
    const auto put = [&](int at, const QString& text, bool editable) {
      auto* item = new QTableWidgetItem(text);
      if (!editable) item->setFlags(item->flags() & ~Qt::ItemIsEditable);
      table_->setItem(row, at, item);
      return item;
    };
    QTableWidgetItem* create = put(kCreate, QString(), false);
    create->setFlags(create->flags() | Qt::ItemIsUserCheckable);
    create->setCheckState(code.similar.empty() ? Qt::Checked : Qt::Unchecked);
    put(kColumn, ToQt(exchange::LabelOf(kind, code.column)), false);
    put(kCode, ToQt(code.code), true);
    put(kName, ToQt(code.name), true);
    put(kMeant, code.similar.empty() ? QString() : ToQt(code.similar.front().code), true);
    put(kRows, QString::number(code.rows), false);
  }
  table_->resizeColumnsToContents();
  table_->horizontalHeader()->setSectionResizeMode(kName, QHeaderView::Stretch);
  column->addWidget(table_, 1);
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* accept = buttons->addButton(QStringLiteral("&Aceitar"), QDialogButtonBox::AcceptRole);
  buttons->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
  HouseStyle::SetAccent(accept);
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  resize(Em(this) * kWidth, Em(this) * kHeight);
}

QString NewCodesDialog::MeantAt(int row) const { return table_->item(row, kMeant)->text().trimmed(); }

std::vector<exchange::NewCode> NewCodesDialog::Meant() const {
  std::vector<exchange::NewCode> meant;
  for (int row = 0; row < table_->rowCount(); ++row) {
    if (MeantAt(row).isEmpty()) continue;
    meant.push_back(codes_[static_cast<std::size_t>(row)]);
    meant.back().code = FromQt(MeantAt(row));
  }
  return meant;
}

std::vector<exchange::NewCode> NewCodesDialog::Chosen() const {
  std::vector<exchange::NewCode> chosen;
  for (int row = 0; row < table_->rowCount(); ++row) {
    if (table_->item(row, kCreate)->checkState() != Qt::Checked || !MeantAt(row).isEmpty()) continue;
    exchange::NewCode code = codes_[static_cast<std::size_t>(row)];
    code.code = FromQt(table_->item(row, kCode)->text().trimmed());
    code.name = FromQt(table_->item(row, kName)->text().trimmed());
    chosen.push_back(std::move(code));
  }
  return chosen;
}

}  // namespace desktop
