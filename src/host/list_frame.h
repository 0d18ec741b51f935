#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/ficha.h"
#include "host/list_view.h"

namespace zorCrmParvel {

/// One column of a list, as the list sets it on the grid.
struct ColunaDeLista {
  const char* nome;     // in the recordset
  float largura;        // twips
  const char* legenda;  // null keeps the column's name
  int tipo = platform::kGridText;
  int alinhamento = 5;
  int alinhamentoTitulo = 4;
  bool opcao = true;
};

/// The frame of every list: it keeps what the host sets, opens and reloads rows, and finds the record of a
/// row. A list says its title, its rows, its columns and what its verbs do.
class ListFrame : public clListView {
 public:
  DataAccessRef mybd;

  std::string ICrmVwList_Name() override { return Titulo(); }
  SGGrid* ICrmVwList_GridMaster() override { return master_; }
  void ICrmVwList_GridMaster(SGGrid* grid) override { master_ = grid; }
  SGGrid* ICrmVwList_GridDetail() override { return detail_; }
  void ICrmVwList_GridDetail(SGGrid* grid) override { detail_ = grid; }
  Viewer* ICrmVwList_Viewer() override { return viewer_; }
  void ICrmVwList_Viewer(Viewer* viewer) override { viewer_ = viewer; }
  Form* ICrmVwList_ParentForm() override { return parent_; }
  void ICrmVwList_ParentForm(Form* form) override { parent_ = form; }
  long ICrmVwList_NumeroItens() override { return Grid().RowCount(); }
  void ICrmVwList_Iniciar() override;
  void ICrmVwList_Processar() override;

 protected:
  virtual std::string Titulo() const = 0;
  /// Runs the list's statement.
  virtual RecordsetRef AbrirLinhas() = 0;
  virtual const std::vector<ColunaDeLista>& Colunas() const = 0;
  /// Binds the rows to the master grid and sets its columns.
  virtual void PreencheGrid(const RecordsetRef& linhas);

  /// The master grid; error 91 when the host hasn't set one.
  SGGrid& Grid() const;
  /// The text of a row's cell in a column; nothing for no row, group headers and rows of other kinds.
  std::optional<std::string> Chave(GridRow* row, const char* coluna) const;
  /// Runs a verb; its errors go on with the list's title and the verb as their source.
  void Executar(const char* verbo, const std::function<void()>& accao) const;

 private:
  SGGrid* master_ = nullptr;
  SGGrid* detail_ = nullptr;
  Viewer* viewer_ = nullptr;
  Form* parent_ = nullptr;
};

}  // namespace zorCrmParvel
