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
    column.hidden = coluna.escondida;
    column.format = coluna.formato;
    column.mark = coluna.marca;
  }
  grid.Redraw = true;
}

void ListFrame::ICrmVwList_Novo() {
  Executar("Novo", [this] {
    const auto ficha = FichaNova();
    if (!ficha) return;
    ficha->ShowModal();
    ICrmVwList_Iniciar();
  });
}

void ListFrame::ICrmVwList_Editar(GridRow* row) {
  NoRegisto("Editar", row, [&](const std::string& chave) {
    if (const auto ficha = FichaDe(chave, *row)) ficha->ShowModal();
  });
}

void ListFrame::ICrmVwList_Remover(GridRow* row) {
  NoRegisto("Remover", row, [&](const std::string& chave) { Anular(chave, *row); });
}

void ListFrame::NoRegisto(const char* verbo, GridRow* row,
                          const std::function<void(const std::string& chave)>& accao) {
  if (ColunaChave() == nullptr || row == nullptr || row->isGroup() || row->kind() != 0) return;
  Executar(verbo, [&] {
    accao(Celula(*row, ColunaChave()));
    ICrmVwList_Iniciar();
  });
}

std::string ListFrame::Celula(const GridRow& row, const char* coluna) const {
  return row.Cell(Grid().ColumnIndex(coluna)).ToText();
}

void ListFrame::Executar(const char* verbo, const std::function<void()>& accao) const {
  try {
    accao();
  } catch (const RuntimeError& error) {
    throw RuntimeError(error.number(), Titulo() + verbo, error.description());
  }
}

}  // namespace zorCrmParvel
