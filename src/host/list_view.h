#pragma once

#include <string>

#include "platform/screen/form.h"
#include "platform/screen/grid.h"
#include "platform/screen/popup_menu.h"

namespace zorCrmParvel {

using platform::Form;
using platform::GridRow;
using platform::PopUpMenu;
using platform::SGGrid;

/// Something that the host keeps with a list and gets back; the module never looks inside.
class Viewer {
 public:
  virtual ~Viewer() = default;
};

/// A list that the host shows inside its own window: the host owns grid and menus, the list its rows and
/// verbs. The order of the members is that of the interface that the host expects. Grids, forms and viewer
/// are handed in by pointer, stay the host's, and have to be there as long as the list is asked for anything.
class ICrmVwList {
 public:
  virtual ~ICrmVwList() = default;

  virtual std::string ICrmVwList_Name() = 0;
  virtual SGGrid* ICrmVwList_GridMaster() = 0;
  virtual void ICrmVwList_GridMaster(SGGrid* grid) = 0;
  virtual SGGrid* ICrmVwList_GridDetail() = 0;
  virtual void ICrmVwList_GridDetail(SGGrid* grid) = 0;
  virtual Viewer* ICrmVwList_Viewer() = 0;
  virtual void ICrmVwList_Viewer(Viewer* viewer) = 0;
  virtual Form* ICrmVwList_ParentForm() = 0;
  virtual void ICrmVwList_ParentForm(Form* form) = 0;
  /// The row count of the master grid.
  virtual long ICrmVwList_NumeroItens() = 0;
  /// Loads or reloads the rows. Errors carry the list's title and the verb as their source, here and in
  /// `Editar`, `Novo` and `Remover`.
  virtual void ICrmVwList_Iniciar() = 0;
  virtual void ICrmVwList_Terminar() = 0;
  /// Gives the focus to the master grid.
  virtual void ICrmVwList_Processar() = 0;
  virtual void ICrmVwList_Imprimir() = 0;
  virtual void ICrmVwList_Preview() = 0;
  /// Opens the ficha of a row, then reloads. Null, group and special rows do nothing.
  virtual void ICrmVwList_Editar(GridRow* row) = 0;
  virtual void ICrmVwList_Novo() = 0;
  /// Removes the record of a row without a question, then reloads.
  virtual void ICrmVwList_Remover(GridRow* row) = 0;
  virtual void ICrmVwList_Move(int a, int b, int c, int d) = 0;
  // A list changes the host's menu before it is shown, and is told of the command chosen: `menu.Command`, on
  // the master grid's current row. Once for the menu of rows, once for that of headings.
  virtual void ICrmVwList_BeforePopUpViewListEdit(PopUpMenu& menu) = 0;
  virtual void ICrmVwList_ExecutePopUpViewListEdit(PopUpMenu& menu) = 0;
  virtual void ICrmVwList_BeforePopUpViewListHeader(PopUpMenu& menu) = 0;
  virtual void ICrmVwList_ExecutePopUpViewListHeader(PopUpMenu& menu) = 0;
};

/// The frame with nothing in it: every member does nothing and answers nothing.
class clListView : public ICrmVwList {
 public:
  std::string ICrmVwList_Name() override { return {}; }
  SGGrid* ICrmVwList_GridMaster() override { return nullptr; }
  void ICrmVwList_GridMaster(SGGrid*) override {}
  SGGrid* ICrmVwList_GridDetail() override { return nullptr; }
  void ICrmVwList_GridDetail(SGGrid*) override {}
  Viewer* ICrmVwList_Viewer() override { return nullptr; }
  void ICrmVwList_Viewer(Viewer*) override {}
  Form* ICrmVwList_ParentForm() override { return nullptr; }
  void ICrmVwList_ParentForm(Form*) override {}
  long ICrmVwList_NumeroItens() override { return 0; }
  void ICrmVwList_Iniciar() override {}
  void ICrmVwList_Terminar() override {}
  void ICrmVwList_Processar() override {}
  void ICrmVwList_Imprimir() override {}
  void ICrmVwList_Preview() override {}
  void ICrmVwList_Editar(GridRow*) override {}
  void ICrmVwList_Novo() override {}
  void ICrmVwList_Remover(GridRow*) override {}
  void ICrmVwList_Move(int, int, int, int) override {}
  void ICrmVwList_BeforePopUpViewListEdit(PopUpMenu&) override {}
  void ICrmVwList_ExecutePopUpViewListEdit(PopUpMenu&) override {}
  void ICrmVwList_BeforePopUpViewListHeader(PopUpMenu&) override {}
  void ICrmVwList_ExecutePopUpViewListHeader(PopUpMenu&) override {}
};

}  // namespace zorCrmParvel
