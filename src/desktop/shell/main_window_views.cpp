#include <QLineEdit>
#include <QMenu>

#include "desktop/list/tools/view_dialog.h"
#include "desktop/look/text.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/message_box.h"
#include "desktop/shell/sidebar.h"
#include "history/who.h"
#include "platform/runtime_error.h"

namespace desktop {

void MainWindow::ConnectViews() {
  connect(sidebar_, &Sidebar::ViewChosen, this, [this](int view, bool to_work) {
    if (view < static_cast<int>(views_.size())) ShowView(views_[static_cast<std::size_t>(view)], to_work);
  });
  connect(actions_->views_menu, &QMenu::aboutToShow, this, &MainWindow::FillViews);
  connect(actions_->columns_menu, &QMenu::aboutToShow, this, [this] {
    actions_->columns_menu->clear();
    if (list_ != nullptr) list_->FillColumns(*actions_->columns_menu);
  });
}

void MainWindow::ReadViews() {
  views_.clear();
  try {
    views_ = lists::ViewsOf(zorCrmParvel::DataAccessRef(workspace_->store()),
                            history::Who::OfThisProcess().operador);
  } catch (const platform::RuntimeError&) {
    Tell(QStringLiteral("Não foi possível ler as vistas das listas."));
  }
  sidebar_->ShowViews(views_);
}

void MainWindow::ShowView(const lists::ListView& view, bool to_work) {
  const ListEntry* entry = FindList(view.list.c_str());
  if (entry == nullptr) return;
  Show(*entry, false);
  if (list_ == nullptr) return;
  for (std::size_t i = 0; i < views_.size(); ++i)
    if (views_[i].name == view.name && views_[i].owner == view.owner) sidebar_->MarkView(static_cast<int>(i));
  list_->ShowLook(view.look);
  actions_->search->setText(list_->SearchText());
  if (to_work) list_->TakeFocus();
}

void MainWindow::FillViews() {
  QMenu& menu = *actions_->views_menu;
  menu.clear();
  if (list_ == nullptr) return;
  connect(menu.addAction(QStringLiteral("&Guardar vista…")), &QAction::triggered, this,
          &MainWindow::KeepView);
  QMenu* drop = menu.addMenu(QStringLiteral("&Apagar vista"));
  menu.addSeparator();
  for (const lists::ListView& view : views_) {
    if (view.list != list_->entry().key) continue;
    const QString name = ToQt(view.name).replace(QLatin1Char('&'), QLatin1String("&&"));
    connect(menu.addAction(name), &QAction::triggered, this, [this, view] { ShowView(view, true); });
    connect(drop->addAction(name), &QAction::triggered, this, [this, view] { DropView(view); });
  }
  drop->setEnabled(!drop->isEmpty());
}

void MainWindow::KeepView() {
  ViewDialog dialog(this);
  if (list_ == nullptr || dialog.exec() != QDialog::Accepted) return;
  const lists::ListView view{
      .name = FromQt(dialog.Name()),
      .list = list_->entry().key,
      .owner = dialog.ForAll() ? std::string() : history::Who::OfThisProcess().operador,
      .look = list_->Look()};
  const bool kept =
      Guarded(this, [&] { lists::KeepView(zorCrmParvel::DataAccessRef(workspace_->store()), view); });
  if (!kept) return;
  ReadViews();
  Tell(QStringLiteral("Vista guardada: %1").arg(dialog.Name()));
}

void MainWindow::DropView(const lists::ListView& view) {
  Guarded(this, [&] { lists::RemoveView(zorCrmParvel::DataAccessRef(workspace_->store()), view); });
  ReadViews();
  Tell(QStringLiteral("Vista apagada: %1").arg(ToQt(view.name)));
}

}  // namespace desktop
