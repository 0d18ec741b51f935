#pragma once

#include <QListWidget>

#include "desktop/list/list_catalog.h"

#include <vector>

#include "lists/views.h"

namespace desktop {

class AlertBoard;
class Rights;

/// The start page, and the lists of the program under their groups. A list that the module doesn't have is
/// left out, and so is a group without any.
class Sidebar : public QListWidget {
  Q_OBJECT

 public:
  explicit Sidebar(QWidget* parent);
  /// Marks the list, or the view by its place, that is shown.
  void Mark(const ListEntry& entry);
  void MarkView(int view);
  void MarkStart();
  /// Shows the views that there are, below the start page.
  void ShowViews(const std::vector<lists::ListView>& views);
  /// Shows the number of rows behind each alert list.
  void ShowCounts(const AlertBoard& board);
  /// Disables the lists that the user has no right to see.
  void ShowRights(const Rights& rights);
  QSize sizeHint() const override;

 Q_SIGNALS:
  /// The user wants to see a list; with the mouse or Enter also to work in it.
  void Chosen(const ListEntry* entry, bool to_work);
  void StartChosen(bool to_work);
  /// A view, by its place among those that were shown.
  void ViewChosen(int view, bool to_work);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Fill();
  void RemoveViews();
  void AddGroup(const QString& title);
  void AddItem(const QString& title, int index);
  void StyleItems();
  void Choose(const QListWidgetItem* item, bool to_work);
  void MarkItem(QListWidgetItem* item);
  static void ShowCount(QListWidgetItem& item, const ListEntry& entry, long rows);
  /// Null for headings and for the start page.
  static const ListEntry* EntryOf(const QListWidgetItem* item);

  bool marking_ = false;
};

}  // namespace desktop
