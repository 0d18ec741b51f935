#pragma once

#include <QMainWindow>
#include <QSettings>
#include <memory>

#include "desktop/database/workspace.h"
#include "desktop/list/list_page.h"
#include "desktop/shell/page.h"
#include "lists/views.h"

class QLabel;
class QSplitter;
class QTimer;

namespace desktop {

class AlertBoard;
class CopyKeeper;
class DueNotifier;
class MainActions;
class Sidebar;
class StartPage;

/// The window of the program: lists at the side, the rows of one of them or the start page in the middle,
/// commands above.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// The settings keep the list shown and the window's place; they outlive the window.
  explicit MainWindow(QSettings& settings);
  ~MainWindow() override;

  /// Works on a database from now on, and shows the list that was shown last, or the start page.
  void Open(std::unique_ptr<Workspace> workspace);
  /// Shows a list or a page, also the start page, by its key; an unknown key does nothing.
  void ShowList(const char* key);

  /// The list shown; null on other pages, on the start page and while no database is open.
  ListPage* page() const { return list_; }
  /// The page or list shown; null on the start page and while no database is open.
  Page* shown() const { return page_; }
  StartPage& start() const { return *start_; }
  AlertBoard& alerts() const { return *alerts_; }
  DueNotifier& due() const { return *due_; }
  Workspace* workspace() const { return workspace_.get(); }
  const MainActions& actions() const { return *actions_; }
  /// Why a ficha can only be looked at; empty when it may be confirmed.
  QString WhyNotConfirm(const std::string& ficha) const;
  CopyKeeper& copies() const { return *copies_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  void Connect();
  void ConnectList();
  void ConnectPage();
  void ConnectAlerts();
  void ConnectNotices();
  void Show(const ListEntry& entry, bool to_work);
  void ShowStart(bool to_work);
  void OpenPage(const ListEntry& entry);
  void ClosePage();
  void Remember(const char* key);
  void ShowFicha(const char* ficha);
  void Reload();
  void FindAlerts();
  /// Shows a short text that nobody has to answer.
  void Tell(const QString& text);
  void Update();
  void ShowAlertCount();
  void UpdateRecordMenu();
  void UpdateUndo();
  void FindRights();
  void UpdateRights();
  void Undo();
  void ForgetOldHistory();
  void FillFichas();
  void ConnectViews();
  void ReadViews();
  void ShowView(const lists::ListView& view, bool to_work);
  void FillViews();
  void KeepView();
  void DropView(const lists::ListView& view);
  void SwitchSide();
  bool ListKey(int key);
  bool SearchKey(int key);
  void AskAndOpen();
  void AskAndCreate();
  void AskAndConnect();
  void OpenFile(const QString& file);
  void AskAndCopy();
  void AskAndRestore();
  void Restore(const QString& copy);
  void CheckDatabase();
  void WriteBaseCodes();
  void OpenDemo();
  void Import(const QString& file);
  void FillRecent();
  void ConnectDatabase();
  std::string OpenFileName() const;
  void CloseDatabase();
  void KeepLogShort();

  QSettings& settings_;
  std::unique_ptr<Workspace> workspace_;
  ReadTicket finding_undo_;
  MainActions* actions_;
  Sidebar* sidebar_;
  QSplitter* splitter_;
  QWidget* place_;
  AlertBoard* alerts_;
  DueNotifier* due_;
  CopyKeeper* copies_;
  QTimer* rest_;
  StartPage* start_;
  Page* page_ = nullptr;
  ListPage* list_ = nullptr;          // the same, when it is a list
  const ListEntry* entry_ = nullptr;  // what is shown
  std::vector<lists::ListView> views_;
  QLabel* count_;
  QLabel* file_;
  QLabel* copy_;
  QLabel* alert_count_;
  QLabel* only_reads_;
};

}  // namespace desktop
