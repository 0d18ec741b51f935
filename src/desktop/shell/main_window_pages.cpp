#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <cstring>
#include <utility>

#include "desktop/database/copy_keeper.h"
#include "desktop/database/database_dialogs.h"
#include "desktop/look/text.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/main_window.h"
#include "desktop/shell/pages.h"
#include "desktop/shell/sidebar.h"
#include "desktop/start/alert_board.h"
#include "desktop/start/due_notifier.h"
#include "desktop/start/start_page.h"
#include "setup/first_steps.h"

namespace desktop {
namespace {

constexpr char kList[] = "janela/lista";

/// A file in which nobody has begun: it opens with the first steps, whatever list was shown last.
bool IsNew(const Workspace& workspace) {
  return setup::StepsDone(zorCrmParvel::DataAccessRef(workspace.store())).empty();
}

}  // namespace

void MainWindow::Open(std::unique_ptr<Workspace> workspace) {
  CloseDatabase();
  workspace_ = std::move(workspace);
  alerts_->Watch(workspace_.get());
  due_->Watch(workspace_.get());
  FindRights();
  ReadViews();
  const std::string file = OpenFileName();
  copies_->Watch(file);
  if (!file.empty()) RememberDatabase(settings_, ToQt(file));
  const ListEntry* last = FindList(FromQt(settings_.value(kList).toString()).c_str());
  if (last != nullptr && HasPage(*last) && (file.empty() || !IsNew(*workspace_)))
    Show(*last, true);
  else
    ShowStart(true);
  FindAlerts();
}

void MainWindow::ShowList(const char* key) {
  if (std::strcmp(key, kStartPage) == 0) return ShowStart(true);
  const ListEntry* entry = FindList(key);
  if (entry != nullptr && HasPage(*entry)) Show(*entry, true);
}

void MainWindow::Show(const ListEntry& entry, bool to_work) {
  if (workspace_ == nullptr) return;
  if (entry_ != &entry) {
    ClosePage();
    start_->hide();
    OpenPage(entry);
    sidebar_->Mark(entry);
    actions_->search->setText(page_->SearchText());
    Remember(entry.key);
  }
  if (to_work) page_->TakeFocus();
  Update();
}

void MainWindow::OpenPage(const ListEntry& entry) {
  page_ = MakePage(entry, *workspace_, settings_, place_);
  list_ = qobject_cast<ListPage*>(page_);
  entry_ = &entry;
  place_->layout()->addWidget(page_);
  page_->show();
  if (list_ != nullptr) list_->table().installEventFilter(this);
  connect(page_, &Page::Changed, this, &MainWindow::Update);
  connect(page_, &Page::Worked, this, [this] { alerts_->RefreshChanged(false); });
  connect(page_, &Page::SearchCleared, actions_->search, &QLineEdit::clear);
  connect(page_, &Page::Told, this, &MainWindow::Tell);
  // Later: the page that asks for another one is still at work.
  const auto show = [this](const QString& key) { ShowList(FromQt(key).c_str()); };
  connect(page_, &Page::PageWanted, this, show, Qt::QueuedConnection);
}

void MainWindow::ClosePage() {
  list_ = nullptr;
  entry_ = nullptr;
  delete std::exchange(page_, nullptr);
}

void MainWindow::ShowStart(bool to_work) {
  if (workspace_ == nullptr) return;
  ClosePage();
  if (start_->isHidden()) {
    start_->show();
    FindAlerts();
  }
  sidebar_->MarkStart();
  actions_->search->clear();
  Remember(kStartPage);
  if (to_work) start_->TakeFocus();
  Update();
}

/// By its name the window tells the manual what it is about. What is as it was isn't written: a write waits
/// for the disk.
void MainWindow::Remember(const char* key) {
  const QString shown = QString::fromUtf8(key);
  setObjectName(shown);
  if (settings_.value(kList) != shown) settings_.setValue(kList, shown);
}

/// Brings commands, counts and titles in step with what is shown.
void MainWindow::Update() {
  const bool open = page_ != nullptr;
  const bool searches = open && page_->CanSearch();
  if (searches && !actions_->search->hasFocus()) actions_->search->setText(page_->SearchText());
  UpdateRights();
  actions_->edit->setEnabled(list_ != nullptr && list_->Can(kEditCommand));
  for (QAction* action : {actions_->print, actions_->export_list})
    action->setEnabled(open && page_->CanPrint());
  actions_->find->setEnabled(searches);
  for (QAction* action : {actions_->reset_columns, actions_->filter, actions_->columns_menu->menuAction(),
                          actions_->views_menu->menuAction()})
    action->setEnabled(list_ != nullptr);
  actions_->reload->setEnabled(workspace_ != nullptr);
  for (QAction* action : {actions_->copy, actions_->restore, actions_->check})
    action->setEnabled(workspace_ != nullptr && workspace_->file() != nullptr);
  actions_->search->setEnabled(searches);
  count_->setText(open ? page_->CountText() : QString());
  const QString path = workspace_ != nullptr ? ToQt(workspace_->Place()) : QString();
  file_->setText(workspace_ != nullptr && workspace_->file() != nullptr ? QFileInfo(path).fileName() : path);
  file_->setToolTip(PlainToolTip(path));
  setWindowTitle(open ? page_->Title() + QStringLiteral(" — Gestão de frota")
                      : QStringLiteral("Gestão de frota"));
}

}  // namespace desktop
