#include "desktop/shell/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSplitter>
#include <QStatusBar>
#include <functional>

#include "desktop/database/copy_keeper.h"
#include "desktop/help/help_key.h"
#include "desktop/help/manual_reader.h"
#include "desktop/list/context_menu.h"
#include "desktop/look/look.h"
#include "desktop/look/text.h"
#include "desktop/reports/month_panel.h"
#include "desktop/shell/desktop_notices.h"
#include "desktop/shell/help_page.h"
#include "desktop/shell/keyboard_habits.h"
#include "desktop/shell/main_actions.h"
#include "desktop/shell/sidebar.h"
#include "desktop/start/alert_board.h"
#include "desktop/start/due_notifier.h"
#include "desktop/start/start_page.h"
#include "host/form_catalog.h"
#include "platform/host.h"

namespace desktop {
namespace {

constexpr char kPlace[] = "janela/lugar";
constexpr char kSplit[] = "janela/lado";

}  // namespace

MainWindow::MainWindow(QSettings& settings)
    : settings_(settings),
      actions_(new MainActions(this)),
      sidebar_(new Sidebar(this)),
      splitter_(new QSplitter(this)),
      place_(new QWidget(this)),
      alerts_(new AlertBoard(this)),
      due_(new DueNotifier(this)),
      copies_(new CopyKeeper(settings, this)),
      start_(new StartPage(*alerts_, place_)),
      count_(new QLabel(this)),
      file_(new QLabel(this)),
      copy_(new QLabel(this)),
      alert_count_(new QLabel(this)),
      only_reads_(new QLabel(QStringLiteral("Só leitura"), this)) {
  setWindowTitle(QStringLiteral("Gestão de frota"));
  Build();
  Connect();
  ConnectDatabase();
  ConnectList();
  ConnectPage();
  ConnectAlerts();
  ConnectNotices();
  ConnectViews();
  FillFichas();
  Update();
  resize(QSize(Em(this) * 72, Em(this) * 46).boundedTo(RoomOnScreen(this)));
  restoreGeometry(settings_.value(kPlace).toByteArray());
  splitter_->restoreState(settings_.value(kSplit).toByteArray());
}

MainWindow::~MainWindow() { ClosePage(); }

void MainWindow::Build() {
  auto* row = new QHBoxLayout(place_);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(start_);
  start_->hide();
  place_->setBackgroundRole(QPalette::Base);
  place_->setAutoFillBackground(true);
  splitter_->addWidget(sidebar_);
  splitter_->addWidget(place_);
  splitter_->setStretchFactor(1, 1);
  splitter_->setCollapsible(1, false);
  splitter_->setHandleWidth(1);
  setCentralWidget(splitter_);
  for (QLabel* label : {count_, file_, copy_, alert_count_}) label->setTextFormat(Qt::PlainText);
  count_->setContentsMargins(WideGap(this), 0, 0, 0);
  statusBar()->addWidget(count_);
  only_reads_->hide();
  for (QLabel* label : {only_reads_, copy_, file_, alert_count_}) {
    label->setContentsMargins(0, 0, WideGap(this), 0);
    statusBar()->addPermanentWidget(label);
  }
  statusBar()->setSizeGripEnabled(false);
  actions_->search->installEventFilter(this);
}

void MainWindow::Connect() {
  connect(actions_->quit, &QAction::triggered, this, &QWidget::close);
  connect(actions_->manual, &QAction::triggered, this, [this] { ShowManual(this, FromQt(objectName())); });
  new HelpKey(this);
  new KeyboardHabits(this);
  connect(actions_->keys, &QAction::triggered, this, [this] { ShowKeys(this); });
  connect(actions_->about, &QAction::triggered, this, [this] { ShowAbout(this); });
  connect(actions_->undo, &QAction::triggered, this, &MainWindow::Undo);
  connect(actions_->switch_side, &QAction::triggered, this, &MainWindow::SwitchSide);
  connect(actions_->record_menu, &QMenu::aboutToShow, this, &MainWindow::UpdateRecordMenu);
  connect(actions_->find, &QAction::triggered, this, [this] {
    actions_->search->setFocus();
    actions_->search->selectAll();
  });
  connect(sidebar_, &Sidebar::Chosen, this,
          [this](const ListEntry* entry, bool to_work) { Show(*entry, to_work); });
  connect(sidebar_, &Sidebar::StartChosen, this, &MainWindow::ShowStart);
}

void MainWindow::ConnectAlerts() {
  connect(alerts_, &AlertBoard::Changed, this, [this] {
    sidebar_->ShowCounts(*alerts_);
    ShowAlertCount();
  });
  connect(start_, &StartPage::ListWanted, this, [this](const ListEntry* entry) { Show(*entry, true); });
  connect(start_, &StartPage::FichaWanted, this, &MainWindow::ShowFicha);
  connect(start_, &StartPage::CodesWanted, this, &MainWindow::WriteBaseCodes);
  connect(start_, &StartPage::ImportWanted, this, [this] { Import({}); });
  connect(start_, &StartPage::DemoWanted, this, &MainWindow::OpenDemo);
}

/// What has become due is said on the desktop, since this window may be behind others; one press leads here.
void MainWindow::ConnectNotices() {
  auto* notices = new DesktopNotices(this);
  connect(due_, &DueNotifier::BecameDue, notices, &DesktopNotices::Show);
  connect(due_, &DueNotifier::BecameDue, this, &MainWindow::FindAlerts);
  connect(notices, &DesktopNotices::Pressed, this, [this] {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
    if (QApplication::activeModalWidget() == nullptr) ShowStart(true);
  });
}

void MainWindow::ConnectList() {
  const auto run = [this](QAction* action, const std::function<void(ListPage&)>& verb) {
    connect(action, &QAction::triggered, this, [this, verb] {
      if (list_ != nullptr) verb(*list_);
    });
  };
  run(actions_->add, &ListPage::New);
  run(actions_->edit, &ListPage::Edit);
  run(actions_->remove, &ListPage::Remove);
  run(actions_->reset_columns, &ListPage::ResetColumns);
  run(actions_->filter, &ListPage::GoToFilters);
}

void MainWindow::ConnectPage() {
  connect(actions_->print, &QAction::triggered, this, [this] {
    if (page_ != nullptr) page_->Print();
  });
  connect(actions_->export_list, &QAction::triggered, this, [this] {
    if (page_ != nullptr) page_->Export();
  });
  connect(actions_->reload, &QAction::triggered, this, &MainWindow::Reload);
  connect(actions_->search, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (page_ != nullptr && page_->SearchText() != text) page_->Search(text);
  });
}

void MainWindow::ShowFicha(const char* ficha) {
  if (workspace_ == nullptr) return;
  Guarded(this, [&] { workspace_->sistema().MostraFicha(ficha); });
  Reload();
}

/// Reads what is shown anew, and what is due.
void MainWindow::Reload() {
  if (page_ != nullptr) page_->Load();
  FindAlerts();
}

/// The start page alone shows what the feed says.
void MainWindow::FindAlerts() {
  alerts_->Refresh(page_ == nullptr);
  if (page_ == nullptr) start_->month().Refresh(workspace_.get());
}

void MainWindow::ShowAlertCount() {
  const std::optional<long> total = alerts_->Total();
  alert_count_->setText(total ? AlertsCounted(*total) : QString());
  if (!total && !alerts_->IsBusy()) alert_count_->setText(QStringLiteral("Alertas por ler"));
}

void MainWindow::UpdateRecordMenu() {
  QMenu& menu = *actions_->record_menu;
  menu.clear();
  menu.addActions({actions_->add, actions_->edit, actions_->remove});
  menu.addSeparator();
  UpdateUndo();
  menu.addAction(actions_->undo);
  if (list_ == nullptr) return;
  menu.addSeparator();
  menu.addActions(list_->own_commands());
  for (const platform::MenuItem& item : list_->commands().menu().Items()) {
    if (IsStandard(item.id) || !item.visible) continue;
    QAction* action = menu.addAction(ToQt(item.caption));
    Allow(*action, item.enabled && list_->table().CurrentRow() >= 0, list_->WhyNot(item.id));
    connect(action, &QAction::triggered, list_, [this, id = item.id] { list_->Run(id); });
  }
}

void MainWindow::FillFichas() {
  const zorCrmParvel::Sistema names;  // fills the catalogue of fichas
  const char* group = nullptr;
  QString taken;
  for (const ListEntry& entry : AllLists()) {
    if (entry.ficha == nullptr || !zorCrmParvel::FormCatalog::Shared().Has(entry.ficha)) continue;
    if (group != nullptr && group != entry.group) actions_->ficha_menu->addSeparator();
    group = entry.group;
    QAction* action = actions_->ficha_menu->addAction(WithMnemonic(QString::fromUtf8(entry.title), taken));
    connect(action, &QAction::triggered, this, [this, ficha = entry.ficha] { ShowFicha(ficha); });
  }
}

void MainWindow::SwitchSide() {
  if (place_->isAncestorOf(focusWidget()))
    sidebar_->setFocus();
  else if (page_ != nullptr)
    page_->TakeFocus();
  else
    start_->TakeFocus();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (watched == actions_->search) return SearchKey(key);
  return list_ != nullptr && watched == &list_->table() && ListKey(key);
}

/// Keys that belong to the rows alone: elsewhere they have their usual meaning.
bool MainWindow::ListKey(int key) {
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!list_->table().TurnGroup()) actions_->edit->trigger();
      return true;
    case Qt::Key_Delete:
      actions_->remove->trigger();
      return true;
    case Qt::Key_Escape:
      return list_->ShowAll();
    default:
      return false;
  }
}

bool MainWindow::SearchKey(int key) {
  const bool clears = key == Qt::Key_Escape;
  if (!clears && key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Down) return false;
  if (clears) actions_->search->clear();
  if (page_ != nullptr) page_->TakeFocus();
  return true;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  settings_.setValue(kPlace, saveGeometry());
  settings_.setValue(kSplit, splitter_->saveState());
  event->accept();
}

}  // namespace desktop
