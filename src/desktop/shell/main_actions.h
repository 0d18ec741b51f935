#pragma once

#include <QObject>

class QAction;
class QLineEdit;
class QMainWindow;
class QMenu;

namespace desktop {

/// The commands of the main window, with their texts, keys and signs, and the menus and the bar that they
/// stand in. What they do is connected by the window.
class MainActions : public QObject {
 public:
  explicit MainActions(QMainWindow* window);

  QAction* open;
  QAction* create;
  QAction* connect_to;
  QAction* copy;
  QAction* restore;
  QAction* check;
  QAction* import_file;
  QAction* export_list;
  QAction* print;
  QAction* quit;
  QAction* add;
  QAction* edit;
  QAction* remove;
  QAction* undo;
  QAction* reload;
  QAction* find;
  QAction* switch_side;
  QAction* reset_columns;
  QAction* filter;
  QAction* manual;
  QAction* keys;
  QAction* about;
  QMenu* recent_menu;
  QMenu* record_menu;
  QMenu* ficha_menu;
  QMenu* columns_menu;
  QMenu* views_menu;
  QLineEdit* search;

 private:
  void BuildMenus();
  void BuildBar();

  QMainWindow* window_;
};

}  // namespace desktop
