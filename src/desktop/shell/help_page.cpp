#include "desktop/shell/help_page.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/look/house_style.h"
#include "desktop/look/look.h"

namespace desktop {
namespace {

struct KeyText {
  const char* keys;
  const char* text;
};

constexpr KeyText kListKeys[] = {
    {"↑ ↓", "Mudar de registo"},
    {"Home, End, letra", "Primeiro registo, último, o seguinte com essa letra"},
    {"Enter", "Editar o registo; no início, abrir a lista"},
    {"Ins, Ctrl+N", "Novo registo"},
    {"Del", "Remover o registo, depois de confirmar"},
    {"Shift, Ctrl com ↑ ↓", "Escolher vários registos"},
    {"Ctrl+A, Ctrl+C", "Escolher todos; copiar os escolhidos"},
    {"F8", "Filtrar por colunas; num campo, F3 escolhe do que há"},
    {"Esc", "Mostrar tudo de novo"},
    {"F5", "Recarregar a lista"},
    {"Ctrl+F", "Procurar na lista"},
    {"Esc", "Na procura: limpar e voltar à lista"},
    {"Ctrl+Z", "Anular a última operação"},
    {"Shift+F10", "O menu do registo; num filtro, o da coluna"},
    {"Ctrl+P", "Imprimir a lista"},
    {"Ctrl+E", "Exportar a lista"},
    {"F6", "Ir das listas ao lado para os registos, e voltar"},
    {"F1", "Manual, na página do que está à frente"},
    {"Shift+F1", "Esta página"},
};

constexpr KeyText kFichaKeys[] = {
    {"Enter, Tab", "Avançar para o campo seguinte"},
    {"Shift+Tab", "Voltar ao campo anterior"},
    {"Esc", "Recuar; no primeiro campo, sair"},
    {"F3", "Lista dos códigos do campo"},
    {"F4", "Ficha do código que está no campo"},
    {"F7", "Mapa: imprimir a tabela do campo"},
    {"Ctrl+Enter", "Nova linha nas observações"},
    {"Ctrl+PgUp, PgDn", "Separador anterior, seguinte"},
    {"Alt+letra", "O botão com essa letra sublinhada"},
    {"F2, Del", "No arquivo: mudar o título, apagar"},
    {"Alt+↓", "O botão «…» do campo; numa data, o calendário"},
    {"Ctrl+D", "Gasto novo: como o último; de novo, outro tipo"},
    {"Ctrl+N", "Num separador: novo registo"},
};

template <std::size_t N>
void AddKeys(QGridLayout& grid, int column, const char* title, const KeyText (&keys)[N], QWidget* parent) {
  auto* heading = new QLabel(QString::fromUtf8(title), parent);
  SetTitleFont(heading, 1.15);
  grid.addWidget(heading, 0, column, 1, 2);
  int line = 1;
  for (const KeyText& key : keys) {
    auto* name = new QLabel(QString::fromUtf8(key.keys), parent);
    QFont font = name->font();
    font.setBold(true);
    name->setFont(font);
    grid.addWidget(name, line, column);
    grid.addWidget(new QLabel(QString::fromUtf8(key.text), parent), line++, column + 1);
  }
}

}  // namespace

void ShowKeys(QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName(QStringLiteral("teclas"));
  dialog.setWindowTitle(QStringLiteral("Teclas"));
  auto* column = new QVBoxLayout(&dialog);
  const int margin = WideGap(&dialog);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(margin);
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(margin);
  grid->setVerticalSpacing(Gap(&dialog));
  AddKeys(*grid, 0, "Nas listas", kListKeys, &dialog);
  grid->setColumnMinimumWidth(2, margin);
  AddKeys(*grid, 3, "Nas fichas", kFichaKeys, &dialog);
  column->addLayout(grid);
  column->addStretch(1);

  auto* close = new QPushButton(QStringLiteral("&Fechar"), &dialog);
  close->setDefault(true);
  HouseStyle::SetAccent(close);
  QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
  column->addWidget(close, 0, Qt::AlignRight);
  dialog.exec();
}

void ShowAbout(QWidget* parent) {
  QMessageBox box(parent);
  box.setWindowTitle(QStringLiteral("Acerca"));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(QMessageBox::Information);
  box.setText(
      QStringLiteral("Gestão de frota\nVersão %1\n\nViaturas, motoristas, eventos e alertas de uma frota.")
          .arg(QStringLiteral(PARVEL_VERSION)));
  box.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace desktop
