#include "host/list_frame.h"

namespace zorCrmParvel {

using platform::RuntimeError;

SGGrid& ListFrame::Grid() const {
  if (master_ == nullptr) throw RuntimeError(platform::kObjectNotSet, Titulo());
  return *master_;
}

void ListFrame::ICrmVwList_Iniciar() {
  Executar("::Iniciar", [this] { PreencheGrid(AbrirLinhas()); });
}

void ListFrame::ICrmVwList_Processar() {
  try {
    Grid().SetFocus();
  } catch (const RuntimeError&) {
    // a grid that can't take the focus is left alone
  }
}

void ListFrame::PreencheGrid(const RecordsetRef& linhas) {
  SGGrid& grid = Grid();
  grid.Redraw = false;
  grid.Setting = 0;
  grid.SetDataSource(linhas);
  for (const ColunaDeLista& coluna : Colunas()) {
    platform::GridColumn& column = grid.Column(coluna.nome);
    column.cellAlignment = coluna.alinhamento;
    column.width = coluna.largura;
    if (coluna.legenda != nullptr) column.caption = coluna.legenda;
    column.dataType = coluna.tipo;
    column.headingAlignment = coluna.alinhamentoTitulo;
    column.option = coluna.opcao;
    column.hidden = column.caption == "SISTEMA";
  }
  grid.Redraw = true;
}

std::optional<std::string> ListFrame::Chave(GridRow* row, const char* coluna) const {
  if (row == nullptr || row->isGroup() || row->kind() != 0) return std::nullopt;
  return row->Cell(Grid().ColumnIndex(coluna)).ToText();
}

void ListFrame::Executar(const char* verbo, const std::function<void()>& accao) const {
  try {
    accao();
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), Titulo() + verbo, error.description());
  }
}

}  // namespace zorCrmParvel
