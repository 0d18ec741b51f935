#pragma once

#include <memory>
#include <optional>
#include <string>

#include "desktop/database/workspace.h"
#include "desktop/list/list_catalog.h"
#include "desktop/list/list_commands.h"
#include "desktop/list/list_memory.h"
#include "desktop/list/row_entry.h"
#include "desktop/list/table_view.h"
#include "desktop/shell/message_box.h"
#include "desktop/shell/page.h"
#include "lists/views.h"

class QLabel;
class QMenu;
class QSettings;
class QStackedWidget;

namespace desktop {

class FilterBar;
class ListSource;
class MessagePage;
class OneLine;

/// One list of the module in the window: its rows, or why there are none. Owns the list and the grid it
/// fills, for as long as it is shown. Sort, search and column widths are kept in the settings under the
/// list's key.
class ListPage : public Page {
  Q_OBJECT

 public:
  /// Workspace and settings outlive it.
  ListPage(Workspace& workspace, const ListEntry& entry, QSettings& settings, QWidget* parent);
  ~ListPage() override;

  const ListEntry& entry() const { return entry_; }
  QString Title() const override;
  TableView& table() { return *table_; }
  const ListCommands& commands() const { return commands_; }
  Workspace& workspace() { return workspace_; }
  /// The window's own commands on rows.
  const QList<QAction*>& own_commands() const { return own_; }
  /// The rows that commands work on: those that are marked, when they are several, else the current one.
  std::vector<long> WorkRows() const;
  /// True when a command of the list can run now: it is offered, and has a row when it needs one.
  bool Can(StandardCommand command) const;
  /// Why the user has no right to a command of the list; empty when he has.
  QString WhyNot(long command) const;
  /// Enables the window's own commands that can run now, and that the user has a right to.
  void ShowOwnCommands();
  /// "40 registos · 1 seleccionado", or "12 de 40" while search or filters narrow the rows.
  QString CountText() const override;

  /// Reads the rows anew, those of a server away from the window's thread: until they come, those that were
  /// there stay. A failure is shown in the place of the rows.
  void Load() override;
  void New();
  void Edit();
  /// Asks, naming the records, then removes those that are marked.
  void Remove();
  /// A command of the list's own.
  void Run(long command);
  bool CanPrint() const override { return Can(kPrintCommand); }
  void Print() override;
  /// Asks for a file and writes the rows shown, or those that are marked when they are several.
  void Export() override;
  bool CanSearch() const override { return true; }
  QString SearchText() const override;
  void Search(const QString& text) override;
  void ResetColumns();
  /// Shows the fields under the headings, if need be, and gives them the keyboard; once more hides them.
  void GoToFilters();
  /// Takes search and filters away; false when there are none.
  bool ShowAll();
  /// The commands on columns, for the menu that is about to be shown.
  void FillColumns(QMenu& menu);
  /// How the list is shown, and shows it so.
  lists::ListLook Look() const;
  void ShowLook(const lists::ListLook& look);
  FilterBar& filter_bar() const { return *bar_; }
  /// What the rows shown, or those marked, come to.
  QString FooterText() const;
  void TakeFocus() override;

 private:
  class ListForm;
  class PageViewer;

  void Build();
  void Connect();
  void Verb(
      const QString& name, const std::function<void()>& verb, std::function<void()> then = [] {});
  void ShowAfter(const std::function<void()>& change);
  static store::Foreseen ReadAhead(const std::shared_ptr<zorCrmParvel::Store>& store, const std::string& key);
  void Take(store::Foreseen rows);
  ListSource& Source() const;
  void ReadOwn();
  void FinishReading();
  void RestoreOnce();
  void ShowReading();
  void ShowState();
  void ChooseKey(const std::string& key, long place);
  std::string KeyOf(long row) const;
  QString NameOf(long row) const;
  void RowMenu(const QPoint& place);
  void RunCommand(long command);
  void RowChosen(long row);
  void ConnectLook();
  void Filter(std::size_t column, const QString& text);
  void FilterByKey(const QString& key, const QString& text);
  void ChooseFrom(std::size_t column);
  void LookChanged();
  void ShowFooter();
  bool RemoveRows(std::vector<long> rows);
  bool TellWhatStayed(const std::string& last, long expected, bool one);
  std::vector<std::string> AllKeys() const;
  void ChooseNew(const std::vector<std::string>& before);
  void AddEntries();
  MarkedRows Marked() const;

  Workspace& workspace_;
  const ListEntry& entry_;
  ListMemory memory_;
  std::unique_ptr<ListForm> form_;
  std::unique_ptr<PageViewer> viewer_;
  std::unique_ptr<zorCrmParvel::ICrmVwList> list_;
  ListCommands commands_;
  std::optional<ErrorText> failure_;
  ReadTicket reading_;
  bool is_reading_ = false;             // rows are on their way
  store::Foreseen rows_;                // what a server answered the list
  std::function<void()> then_ = [] {};  // what waits for the rows that are on their way
  ReadTicket reading_own_;
  bool own_stale_ = false;  // the window's columns of a server's list are of earlier rows
  bool reads_own_ = false;  // and are on their way
  bool restored_ = false;
  QString objection_;  // to the filter that was typed last
  QList<QAction*> own_;

  QLabel* title_;
  QLabel* count_;
  FilterBar* bar_;
  OneLine* footer_;
  QStackedWidget* stack_;
  TableView* table_;
  MessagePage* message_;
};

}  // namespace desktop
