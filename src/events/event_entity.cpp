#include "events/event_entity.h"

#include "host/one_row.h"
#include "platform/format.h"
#include "platform/screen/dialogs.h"

namespace zorCrmParvel {

RecordsetRef EventEntity::Abrir(const Statement& statement) const {
  RecordsetRef rs;
  bd->AbrirLeitura("", statement, rs);
  return rs;
}

RecordsetRef EventEntity::LerDaViatura() const {
  return Abrir({"SELECT *  From ", fixed(tabela_.tabela), " WHERE     (Matricula = N'", value(Codigo), "')"});
}

RecordsetRef EventEntity::LerDaViaturaOuTodos(const char* ordem) const {
  Statement statement{"SELECT *  From ", fixed(tabela_.tabela)};
  if (!Codigo.empty()) statement << " WHERE     (Matricula = N'" << value(Codigo) << "')";
  statement << fixed(ordem);
  return Abrir(statement);
}

Statement EventEntity::Seleccao() const {
  return {
      "SELECT *  From ", fixed(tabela_.tabela), " WHERE     (", fixed(tabela_.id), " = N'", value(Id), "')"};
}

bool EventEntity::LerExtremo(const Statement& statement) {
  return LerLinha(bd, statement, [this](const Row& row) { Id = row.number(tabela_.id); });
}

bool EventEntity::LerPrimeiro() {
  const Piece data = fixed(tabela_.data);
  return LerExtremo({"SELECT Top 1 *  From ", fixed(tabela_.tabela), " WHERE     (Matricula > '' and ", data,
                     ">'') order by Matricula,", data, " "});
}

bool EventEntity::LerUltimo() {
  const Piece data = fixed(tabela_.data);
  return LerExtremo({"SELECT Top 1 *  From ", fixed(tabela_.tabela), fixed(tabela_.fimDoUltimo),
                     " WHERE     (Matricula < 'zzzzzzzzzzzz') and ", data,
                     " <'2050-12-31' order by Matricula desc,", data, " Desc"});
}

bool EventEntity::LerProximo() {
  Statement statement = Sequencia(">=");
  statement << " order by Matricula," << fixed(tabela_.data) << " ";
  return Passo(statement);
}

bool EventEntity::LerAnterior() {
  Statement statement = Sequencia("<=");
  statement << " order by Matricula Desc," << fixed(tabela_.data) << " desc";
  return Passo(statement);
}

/// All events at or past the plate and day in hand. Both sides make one text of them: the plate filled up
/// with zeros to 15 characters, then the day.
Statement EventEntity::Sequencia(const char* comparacao) const {
  return {"SELECT  *  From ",
          fixed(tabela_.tabela),
          " where LEFT(Matricula + '000000000000000 ', 15) + CONVERT(nvarchar(10), ",
          fixed(tabela_.data),
          ", 102)",
          fixed(comparacao),
          " left('",
          value(Codigo),
          "'+'000000000000000',15)+'",
          value(platform::FormatDate(Data, "yyyy.mm.dd")),
          "'"};
}

bool EventEntity::Passo(const Statement& statement) {
  const RecordsetRef rs = Abrir(statement);
  if (rs->RecordCount() != 1) rs->MoveNext();
  Id = Row(*rs).number(tabela_.id);
  rs->Close();
  return true;
}

bool EventEntity::Ler() {
  return LerLinha(bd, Seleccao(), [this](const Row& row) { LerCampos(row); });
}

bool EventEntity::Escrever() {
  EscreverLinha(bd, Seleccao(), "Matricula", Codigo, [this](Row& row) { EscreverCampos(row); });
  return true;
}

bool EventEntity::Anular() {
  return Remover(
      bd, {"Delete  From ", fixed(tabela_.tabela), "  WHERE (", fixed(tabela_.id), " ='", value(Id), "' )"});
}

std::string EventEntity::MostraLista(int TipoMostrar) {
  Statement sql{fixed(tabela_.sqlLista)};
  if (TipoMostrar == 1 && tabela_.listaPorViatura)
    sql << " where " << fixed(tabela_.tabela) << ".Matricula='" << value(Codigo) << "'";
  sql.Verify();
  platform::ListaPesquisa lista;
  bd->ObterLigacao(lista.Ligacao);
  lista.Titulo = tabela_.tituloLista;
  lista.Sql = sql.text();
  lista.Carrega();
  lista.Largura = tabela_.larguraLista;
  int coluna = 1;
  for (float largura : tabela_.colunasLista) lista.Coluna(coluna++).Width = largura;
  lista.Coluna(1).Option = true;
  return lista.Escolhe();
}

bool EventEntity::MostraMapa() {
  if (tabela_.sqlMapa == nullptr) return false;
  platform::MapaListagem mapa;
  bd->ObterLigacao(mapa.Ligacao);
  mapa.Opcao = 0;
  mapa.Titulo = tabela_.tituloMapa;
  mapa.Sql = tabela_.sqlMapa;
  mapa.Carrega();
  mapa.Coluna(1).Width = 2000;
  mapa.Coluna(2).Width = 5000;
  mapa.Mostra();
  return false;
}

}  // namespace zorCrmParvel
