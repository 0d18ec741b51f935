#pragma once

#include <QMainWindow>
#include <QSettings>
#include <memory>

#include "desktop/list_page.h"
#include "desktop/workspace.h"

class QLabel;
class QSplitter;

namespace desktop {

class MainActions;
class Sidebar;

/// The window of the program: lists at the side, the rows of one of them in the middle, commands above.
class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// The settings keep the list shown and the window's place; they outlive the window.
  explicit MainWindow(QSettings& settings);
  ~MainWindow() override;

  /// Works on a database from now on, and shows the list that was shown last.
  void Open(std::unique_ptr<Workspace> workspace);
  /// Shows a list; an unknown key does nothing.
  void ShowList(const char* key);

  /// The list shown; null while no database is open.
  ListPage* page() const { return page_; }
  Workspace* workspace() const { return workspace_.get(); }
  const MainActions& actions() const { return *actions_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  void Connect();
  void ConnectList();
  void Show(const ListEntry& entry, bool to_work);
  void Update();
  void UpdateRecordMenu();
  void FillFichas();
  void SwitchSide();
  bool ListKey(int key);
  bool SearchKey(int key);
  void AskAndOpen();
  void AskAndCreate();
  void OpenFile(const QString& file);
  void AskAndCopy();

  QSettings& settings_;
  std::unique_ptr<Workspace> workspace_;
  MainActions* actions_;
  Sidebar* sidebar_;
  QSplitter* splitter_;
  QWidget* place_;
  ListPage* page_ = nullptr;
  QLabel* count_;
  QLabel* file_;
};

/// Asks for a database file to open, or for a new one; empty when the user gave up.
QString AskForDatabase(QWidget* parent);
QString AskForNewDatabase(QWidget* parent);

/// The setting that keeps the database which the user chose.
inline constexpr char kDatabaseSetting[] = "basededados";

}  // namespace desktop
