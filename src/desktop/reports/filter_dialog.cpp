#include "desktop/reports/filter_dialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/house_style.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "lists/words.h"

namespace desktop {
namespace {

constexpr int kCode = Qt::UserRole;

}  // namespace

FilterDialog::FilterDialog(const std::vector<reports::Filtro>& filters, const reports::Escolhidos& chosen,
                           QWidget* parent)
    : QDialog(parent), search_(new QLineEdit(this)), tree_(new QTreeWidget(this)) {
  setObjectName(QStringLiteral("filtros-do-relatorio"));
  setWindowTitle(QStringLiteral("Filtros"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(WideGap(this), WideGap(this), WideGap(this), WideGap(this));
  column->setSpacing(Gap(this));
  search_->setPlaceholderText(QStringLiteral("Procurar"));
  search_->setClearButtonEnabled(true);
  connect(search_, &QLineEdit::textChanged, this, &FilterDialog::Search);
  column->addWidget(search_);
  tree_->header()->hide();
  tree_->setUniformRowHeights(true);
  Fill(filters, chosen);
  column->addWidget(tree_, 1);
  auto* buttons = new QDialogButtonBox(this);
  auto* apply = buttons->addButton(QStringLiteral("&Aplicar"), QDialogButtonBox::AcceptRole);
  HouseStyle::SetAccent(apply);
  auto* clear = buttons->addButton(QStringLiteral("&Limpar"), QDialogButtonBox::ResetRole);
  buttons->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
  connect(clear, &QPushButton::clicked, this, &FilterDialog::Clear);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  column->addWidget(buttons);
  resize(QSize(Em(this) * 24, Em(this) * 28).boundedTo(RoomOnScreen(this)));
}

void FilterDialog::Fill(const std::vector<reports::Filtro>& filters, const reports::Escolhidos& chosen) {
  for (const reports::Filtro& filter : filters) {
    auto* group = new QTreeWidgetItem(tree_, {QString::fromUtf8(filter.titulo)});
    group->setSizeHint(0, QSize(0, Em(this) * 7 / 4));
    group->setData(0, kCode, QString::fromUtf8(filter.chave));
    const auto found = chosen.find(filter.chave);
    bool any = false;
    for (const auto& option : filter.opcoes) {
      const QString code = ToQt(option.codigo);
      const bool bare = option.nome.empty() || filter.opcoes.size() < 5;
      const QString name = ToQt(option.nome);
      auto* item = new QTreeWidgetItem(group, {option.nome.empty() ? code
                                               : bare              ? name
                                                                   : code + QStringLiteral(" – ") + name});
      item->setData(0, kCode, code);
      const bool ticked = found != chosen.end() && std::find(found->second.begin(), found->second.end(),
                                                             option.codigo) != found->second.end();
      item->setCheckState(0, ticked ? Qt::Checked : Qt::Unchecked);
      any = any || ticked;
    }
    group->setExpanded(any || filter.opcoes.size() < 5);
  }
}

/// Groups with something found are opened, the others hidden.
void FilterDialog::Search(const QString& text) {
  const std::string wanted = lists::Folded(FromQt(text));
  for (int g = 0; g < tree_->topLevelItemCount(); ++g) {
    QTreeWidgetItem* group = tree_->topLevelItem(g);
    bool any = false;
    for (int i = 0; i < group->childCount(); ++i) {
      const bool found = lists::Folded(FromQt(group->child(i)->text(0))).find(wanted) != std::string::npos;
      group->child(i)->setHidden(!found);
      any = any || found;
    }
    group->setHidden(!any);
    if (!wanted.empty()) group->setExpanded(any);
  }
}

void FilterDialog::Clear() {
  for (int g = 0; g < tree_->topLevelItemCount(); ++g)
    for (int i = 0; i < tree_->topLevelItem(g)->childCount(); ++i)
      tree_->topLevelItem(g)->child(i)->setCheckState(0, Qt::Unchecked);
}

reports::Escolhidos FilterDialog::Chosen() const {
  reports::Escolhidos chosen;
  for (int g = 0; g < tree_->topLevelItemCount(); ++g) {
    const QTreeWidgetItem* group = tree_->topLevelItem(g);
    for (int i = 0; i < group->childCount(); ++i)
      if (group->child(i)->checkState(0) == Qt::Checked)
        chosen[FromQt(group->data(0, kCode).toString())].push_back(
            FromQt(group->child(i)->data(0, kCode).toString()));
  }
  return chosen;
}

}  // namespace desktop
