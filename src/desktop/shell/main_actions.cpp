#include "desktop/shell/main_actions.h"

#include <QAction>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

#include "desktop/look/icons.h"
#include "desktop/look/look.h"

namespace desktop {
namespace {

constexpr int kSearchCharacters = 30;

QAction* Make(QObject* parent, const QString& text, const QList<QKeySequence>& keys, const QString& tip) {
  auto* action = new QAction(text, parent);
  action->setShortcuts(keys);
  const QString key =
      keys.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(keys[0].toString(QKeySequence::NativeText));
  action->setToolTip(tip + key);
  action->setStatusTip(tip);
  return action;
}

/// A command that stands in the bar as well, under a word of its own.
QAction* Signed(QAction* action, Sign sign, const char* word) {
  action->setIconText(QString::fromUtf8(word));
  action->setIcon(SignIcon(sign));
  action->setIconVisibleInMenu(false);
  return action;
}

}  // namespace

MainActions::MainActions(QMainWindow* window)
    : QObject(window),
      open(Make(window, "&Abrir base de dados…", {QKeySequence("Ctrl+O")}, "Abrir outra base de dados")),
      create(Make(window, "Nova &base de dados…", {}, "Criar uma base de dados vazia")),
      connect_to(Make(window, "&Ligar a servidor…", {}, "Trabalhar num servidor, ou de novo num ficheiro")),
      copy(Make(window, "&Guardar cópia…", {}, "Guardar uma cópia da base de dados")),
      restore(Make(window, "&Repor cópia…", {}, "Pôr uma cópia no lugar da base de dados")),
      check(Make(window, "&Verificar base de dados", {},
                 "Ler a base de dados toda e dizer o que não está bem")),
      import_file(Make(window, "I&mportar…", {QKeySequence("Ctrl+I")},
                       "Trazer registos de uma folha de cálculo ou do ficheiro de uma empresa")),
      export_list(Signed(
          Make(window, "&Exportar…", {QKeySequence("Ctrl+E")}, "Exportar a lista para folha de cálculo"),
          Sign::kExport, "Exportar")),
      print(Signed(Make(window, "&Imprimir…", {QKeySequence("Ctrl+P")}, "Imprimir a lista"), Sign::kPrint,
                   "Imprimir")),
      quit(Make(window, "&Sair", {QKeySequence("Ctrl+Q")}, "Sair do programa")),
      add(Signed(Make(window, "&Novo", {QKeySequence("Ins"), QKeySequence("Ctrl+N")}, "Novo registo"),
                 Sign::kNew, "Novo")),
      edit(Signed(Make(window, "&Editar\tEnter", {}, "Editar o registo (Enter)"), Sign::kEdit, "Editar")),
      remove(Signed(Make(window, "&Remover\tDel", {}, "Remover o registo (Del)"), Sign::kRemove, "Remover")),
      undo(Make(window, "A&nular a última operação", {QKeySequence("Ctrl+Z")},
                "Pôr tudo como estava antes do que se fez por último")),
      reload(Signed(Make(window, "&Recarregar", {QKeySequence("F5")}, "Ler a lista de novo"), Sign::kReload,
                    "Recarregar")),
      find(Make(window, "&Procurar", {QKeySequence("Ctrl+F")}, "Procurar na lista")),
      switch_side(Make(window, "Listas e re&gistos", {QKeySequence("F6")},
                       "Ir das listas para os registos, e voltar")),
      reset_columns(Make(window, "Repor &larguras das colunas", {}, "Repor as larguras que a lista dá")),
      filter(Make(window, "&Filtros das colunas", {QKeySequence("F8")},
                  "Escrever por baixo dos títulos que linhas se querem ver")),
      manual(Make(window, "&Manual", {QKeySequence("F1")}, "A página do manual sobre o que está à frente")),
      keys(Make(window, "&Teclas", {QKeySequence("Shift+F1")}, "As teclas do programa")),
      about(Make(window, "&Acerca", {}, "O que é o programa")),
      search(new QLineEdit(window)),
      window_(window) {
  window->addAction(undo);  // the menu that shows it is made anew each time
  BuildMenus();
  BuildBar();
}

void MainActions::BuildMenus() {
  QMenuBar* bar = window_->menuBar();
  QMenu* file = bar->addMenu(QStringLiteral("&Ficheiro"));
  file->addActions({open, create});
  recent_menu = file->addMenu(QStringLiteral("Bases de dados re&centes"));
  file->addActions({connect_to, copy, restore, check});
  file->addSeparator();
  file->addActions({import_file, export_list, print});
  file->addSeparator();
  file->addAction(quit);
  record_menu = bar->addMenu(QStringLiteral("&Registo"));
  for (QMenu* menu : {file, record_menu}) menu->setToolTipsVisible(true);  // why a command is disabled
  QMenu* view = bar->addMenu(QStringLiteral("&Ver"));
  view->addActions({reload, find, switch_side});
  view->addSeparator();
  view->addAction(filter);
  columns_menu = view->addMenu(QStringLiteral("C&olunas e grupos"));
  views_menu = view->addMenu(QStringLiteral("&Vistas"));
  view->addAction(reset_columns);
  ficha_menu = bar->addMenu(QStringLiteral("Fic&has"));
  QMenu* help = bar->addMenu(QStringLiteral("&Ajuda"));
  help->addActions({manual, keys, about});
}

void MainActions::BuildBar() {
  auto* bar = new QToolBar(window_);
  bar->setObjectName(QStringLiteral("barra"));
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  bar->setIconSize(QSize(Em(bar), Em(bar)));
  bar->addActions({add, edit, remove});
  bar->addSeparator();
  bar->addAction(reload);
  bar->addSeparator();
  bar->addActions({print, export_list});
  auto* space = new QWidget(bar);
  space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(space);
  search->setPlaceholderText(QStringLiteral("Procurar…"));
  search->setToolTip(QStringLiteral("Procurar na lista (Ctrl+F)"));
  search->setAccessibleName(QStringLiteral("Procurar na lista"));
  search->setClearButtonEnabled(true);
  search->setFixedWidth(bar->fontMetrics().averageCharWidth() * kSearchCharacters);
  search->addAction(SignIcon(Sign::kSearch), QLineEdit::LeadingPosition);
  bar->addWidget(search);
  auto* margin = new QWidget(bar);
  margin->setFixedWidth(Gap(bar));
  bar->addWidget(margin);
  window_->addToolBar(bar);
}

}  // namespace desktop
