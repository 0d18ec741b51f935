#pragma once

#include <functional>
#include <memory>
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
  bool escondida = false;
  const char* formato = "";  // mask
  const char* marca = "";    // see `GridColumn::mark`
};

/// The frame of every list: it keeps what the host sets, opens and reloads rows, and finds the record of a
/// row. A list says its title, its rows and its columns, and by the hooks what the verbs do to a record; a
/// hook that it leaves alone is a verb that does nothing.
class ListFrame : public clListView {
 public:
  DataAccessRef mybd;  // the database of the list and of the fichas that it opens

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
  void ICrmVwList_Editar(GridRow* row) override;
  void ICrmVwList_Novo() override;
  void ICrmVwList_Remover(GridRow* row) override;

 protected:
  /// What the host shows above the list, and the head of an error's source.
  virtual std::string Titulo() const = 0;
  /// Runs the list's statement.
  virtual RecordsetRef AbrirLinhas() = 0;
  virtual const std::vector<ColunaDeLista>& Colunas() const = 0;
  /// Binds the rows to the master grid and sets its columns.
  virtual void PreencheGrid(const RecordsetRef& linhas);

  /// The column that holds a record's key; null where rows are no records.
  virtual const char* ColunaChave() const { return nullptr; }
  /// A ficha for a new record, ready to be shown; null when the list makes none.
  virtual std::unique_ptr<Ficha> FichaNova() { return nullptr; }
  /// A ficha that shows the record of a row, ready to be shown itself; null when there is none.
  virtual std::unique_ptr<Ficha> FichaDe(const std::string& /*chave*/, const GridRow& /*row*/) {
    return nullptr;
  }
  /// Removes the record of a row.
  virtual void Anular(const std::string& /*chave*/, const GridRow& /*row*/) {}

  /// Loads a ficha and sets it on the list's database.
  template <typename T>
  std::unique_ptr<T> Pronta(std::unique_ptr<T> ficha) const {
    ficha->Load();
    ficha->mybd = mybd;
    return ficha;
  }
  /// The text of a row's cell.
  std::string Celula(const GridRow& row, const char* coluna) const;
  /// The master grid; error 91 when the host hasn't set one.
  SGGrid& Grid() const;
  /// Runs a verb; its errors go on with the list's title and the verb as their source.
  void Executar(const char* verbo, const std::function<void()>& accao) const;

 private:
  /// Runs a verb on the record of a row, by its key, and reloads. Does nothing for no row, for one that is no
  /// record, and in a list without a key.
  void NoRegisto(const char* verbo, GridRow* row, const std::function<void(const std::string& chave)>& accao);

  SGGrid* master_ = nullptr;
  SGGrid* detail_ = nullptr;
  Viewer* viewer_ = nullptr;
  Form* parent_ = nullptr;
};

}  // namespace zorCrmParvel
