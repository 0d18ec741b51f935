#include "events/event_list.h"

#include "events/gastos_form.h"
#include "events/incidents_form.h"
#include "events/seguros_form.h"
#include "events/upkeep_form.h"

namespace zorCrmParvel {
namespace {

constexpr ColunaDeLista kMatricula{"Matricula", 1500, "Matrícula"};
constexpr ColunaDeLista kMarca{"Marca", 2500, nullptr};
constexpr ColunaDeLista kData{"Data", 1500, nullptr};
/// The key column, which users have no need of. Where it has no alignment of its own, 0.
constexpr ColunaDeLista SegId(int alinhamento) {
  return {.nome = "Seg_Id",
          .largura = 2500,
          .legenda = "SISTEMA",
          .tipo = platform::kGridLong,
          .alinhamento = alinhamento,
          .escondida = true};
}
constexpr ColunaDeLista kSegId = SegId(0);
constexpr ColunaDeLista kSegIdAlinhado = SegId(5);
constexpr ColunaDeLista kMotorista{"Motorista", 4000, nullptr};

}  // namespace

const ListaDeEventos kListaDeGastos{
    "Gastos",
    " SELECT  zor_PV_Gastos.Matricula, zor_PV_Marcas.Nome AS Marca, zor_PV_Gastos.Data AS Data, "
    "zor_PV_TiposGastos.Nome as TpGasto, zor_PV_Gastos.Gst_Id as Seg_Id "
    "FROM         zor_PV_Gastos "
    "LEFT OUTER JOIN zor_PV_Viaturas ON zor_PV_Viaturas.Matricula=zor_PV_Gastos.Matricula "
    "Left outer join  zor_PV_Marcas ON zor_PV_Marcas.Codigo = zor_PV_Viaturas.Marca "
    "left outer join zor_PV_TiposGastos ON zor_PV_TiposGastos.Codigo=zor_PV_Gastos.TipoGasto "
    "ORDER BY zor_PV_Gastos.Matricula, Data",
    {kMatricula, kMarca, kData, {"TpGasto", 2500, "Tipo Gasto"}, kSegId},
    &NovaFichaDeEvento<Gastos>,
    true};

const ListaDeEventos kListaDeInspecoes{
    "Inspecções",
    " SELECT  zor_PV_Inspecoes.Matricula, zor_PV_Marcas.Nome AS Marca, zor_PV_Inspecoes.Data AS Data, "
    "zor_PV_Inspecoes.Insp_Id as Seg_Id "
    "FROM         zor_PV_Inspecoes "
    "LEFT OUTER JOIN zor_PV_Viaturas ON zor_PV_Viaturas.Matricula=zor_PV_Inspecoes.Matricula "
    "Left outer join  zor_PV_Marcas ON zor_PV_Marcas.Codigo = zor_PV_Viaturas.Marca "
    "ORDER BY zor_PV_Inspecoes.Matricula, Data",
    {kMatricula, kMarca, kData, kSegId},
    &NovaFichaDeEvento<Inspecoes>,
    true};

const ListaDeEventos kListaDeRevisoes{
    "Revisões",
    " SELECT  zor_PV_Revisoes.Matricula, zor_PV_Marcas.Nome AS Marca, zor_PV_Revisoes.Data AS Data, "
    "zor_PV_TiposManut.Nome as TpRev, zor_PV_Revisoes.Manu_Id as Seg_Id "
    "FROM         zor_PV_Revisoes "
    "LEFT OUTER JOIN zor_PV_Viaturas ON zor_PV_Viaturas.Matricula=zor_PV_Revisoes.Matricula "
    "Left outer join  zor_PV_Marcas ON zor_PV_Marcas.Codigo = zor_PV_Viaturas.Marca "
    "left outer join zor_PV_TiposManut ON zor_PV_TiposManut.Codigo=zor_PV_Revisoes.TipoManut "
    "ORDER BY zor_PV_Revisoes.Matricula, Data",
    {kMatricula, kMarca, kData, {"TpRev", 2500, "Tipo Revisão"}, kSegId},
    &NovaFichaDeEvento<Revisoes>,
    true};

const ListaDeEventos kListaDeMultas{
    "Multas",
    " SELECT  zor_PV_Multas.Matricula, zor_PV_Marcas.Nome AS Marca, "
    "zor_Funcionarios.Nome AS Motorista, zor_PV_Multas.Data AS Data, zor_PV_Multas.Id as Seg_Id "
    "FROM         zor_PV_Multas "
    "LEFT OUTER JOIN zor_PV_Viaturas ON zor_PV_Viaturas.Matricula=zor_PV_Multas.Matricula "
    "Left outer join  zor_PV_Marcas ON zor_PV_Marcas.Codigo = zor_PV_Viaturas.Marca "
    "left outer join zor_Funcionarios ON zor_Funcionarios.Codigo=zor_PV_Multas.Motorista "
    "ORDER BY zor_PV_Multas.Matricula, Data",
    {kMatricula, kMarca, kMotorista, {"Data", 1500, "Data "}, kSegIdAlinhado},
    &NovaFichaDeEvento<Multas>,
    false};

const ListaDeEventos kListaDeSinistros{
    "Sinistros",
    " SELECT  zor_PV_Sinistros.Matricula, zor_PV_Marcas.Nome AS Marca, "
    "zor_Funcionarios.Nome AS Motorista, zor_PV_Sinistros.Data AS Data, zor_PV_Sinistros.Id as Seg_Id "
    "FROM         zor_PV_Sinistros "
    "LEFT OUTER JOIN zor_PV_Viaturas ON zor_PV_Viaturas.Matricula=zor_PV_Sinistros.Matricula "
    "Left outer join  zor_PV_Marcas ON zor_PV_Marcas.Codigo = zor_PV_Viaturas.Marca "
    "left outer join zor_Funcionarios ON zor_Funcionarios.Codigo=zor_PV_Sinistros.Motorista "
    "ORDER BY zor_PV_Sinistros.Matricula, Data",
    {kMatricula, kMarca, kMotorista, {"Data", 1500, "Data Sinistro"}, kSegIdAlinhado},
    &NovaFichaDeEvento<Sinistros>,
    false};

const ListaDeEventos kListaDeSeguros{
    "Apólices",
    " SELECT  zor_PV_Seguros.Matricula, zor_PV_Companhias.Nome AS Companhia, zor_PV_Seguros.Apolice, "
    "zor_PV_Seguros.Validade AS Data, "
    "case when zor_PV_Seguros.Inactiva=0 then 'Activa' else 'Inactiva' End as Estado, "
    "zor_PV_Seguros.Seg_Id  "
    "FROM         zor_PV_Seguros "
    "LEFT OUTER JOIN zor_PV_Companhias ON zor_PV_Companhias.Codigo=zor_PV_Seguros.Companhia "
    "ORDER BY zor_PV_Seguros.Matricula, Data, Inactiva",
    {kMatricula,
     {"Companhia", 4500, nullptr},
     {"Apolice", 2000, "Apólice"},
     {"Data", 1500, "Data Validade"},
     {"Estado", 1000, nullptr},
     kSegIdAlinhado},
    &NovaFichaDeEvento<Seguros>,
    false};

const ListaDeEventos kListaDeAcessorios{
    "Acessórios",
    " SELECT  zor_PV_Acessorios.Matricula, zor_PV_Marcas.Nome AS Marca, "
    "zor_PV_Acessorios.Data AS Data, zor_PV_TiposAcessorios.Nome as TpAcess, "
    "zor_PV_Acessorios.Id as Seg_Id,zor_PV_Acessorios.KmInicial,zor_PV_Acessorios.KmFinal  "
    "FROM         zor_PV_Acessorios "
    "LEFT OUTER JOIN zor_PV_Viaturas ON zor_PV_Viaturas.Matricula=zor_PV_Acessorios.Matricula "
    "Left outer join  zor_PV_Marcas ON zor_PV_Marcas.Codigo = zor_PV_Viaturas.Marca "
    "left outer join zor_PV_TiposAcessorios ON zor_PV_TiposAcessorios.Codigo=zor_PV_Acessorios.TipoAcessorio "
    "ORDER BY zor_PV_Acessorios.Matricula, Data",
    {kMatricula,
     kMarca,
     kData,
     {"TpAcess", 2500, "Tipo Acessório"},
     kSegIdAlinhado,
     {"KmInicial", 2500, "Km. Iniciais", platform::kGridLong},
     {"KmFinal", 2500, "Km. Finais", platform::kGridLong}},
    &NovaFichaDeEvento<Acessorios>,
    true,
    true};

RecordsetRef EventList::AbrirLinhas() {
  RecordsetRef linhas;
  mybd->AbrirLeitura("", lista_.sql, linhas);
  return linhas;
}

std::unique_ptr<EventForm> EventList::NovaFicha() const {
  auto ficha = Pronta(lista_.ficha());
  ficha->TipoMostrar = 0;
  return ficha;
}

std::unique_ptr<Ficha> EventList::FichaNova() { return NovaFicha(); }

std::unique_ptr<Ficha> EventList::FichaDe(const std::string& id, const GridRow& row) {
  auto ficha = NovaFicha();
  if (lista_.editaComMatricula) ficha->Matricula = Celula(row, "Matricula");
  ficha->Carrega(platform::Variant(id).ToLong());
  return ficha;
}

void EventList::Anular(const std::string& id, const GridRow& row) {
  const std::string matricula = lista_.anulaComMatricula ? Celula(row, "Matricula") : "";
  NovaFicha()->Anular(platform::Variant(id).ToLong(), matricula);
}

}  // namespace zorCrmParvel
