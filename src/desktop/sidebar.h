#pragma once

#include <QListWidget>

#include "desktop/list_catalog.h"

namespace desktop {

/// The lists of the program under their groups. A list that the module doesn't have is left out, and so is a
/// group without lists.
class Sidebar : public QListWidget {
  Q_OBJECT

 public:
  explicit Sidebar(QWidget* parent);
  /// Marks the list that is shown.
  void Mark(const ListEntry& entry);
  QSize sizeHint() const override;

 Q_SIGNALS:
  /// The user wants to see a list; with the mouse or Enter also to work in it.
  void Chosen(const ListEntry* entry, bool to_work);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Fill();
  void AddGroup(const QString& title);
  void AddList(int index);
  void StyleItems();
  static const ListEntry* EntryOf(const QListWidgetItem* item);

  bool marking_ = false;
};

}  // namespace desktop
