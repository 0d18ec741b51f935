#include "vehicles/viaturas_tabs.h"

#include "drivers/motoristas.h"
#include "events/gastos.h"
#include "events/incidents.h"
#include "events/seguros.h"
#include "events/upkeep.h"
#include "platform/format.h"

namespace zorCrmParvel {
namespace {

using platform::Variant;

Variant Estado(const Variant& inactiva, const DataAccessRef&) {
  return !inactiva.IsNull() && inactiva.ToInteger() == 0 ? "Activa" : "Inactiva";
}

Variant DataOuVazio(const Variant& data, const DataAccessRef&) {
  return data.IsNull() || data.ToDate().IsZero() ? Variant("") : data;
}

Variant DataEHora(const Variant& data, const DataAccessRef&) {
  return platform::Format(data, "dd-mm-yyyy hh:mm");
}

Variant DataSo(const Variant& data, const DataAccessRef&) { return platform::Format(data, "dd-mm-yyyy"); }

template <typename Evento>
std::unique_ptr<EventEntity> Novo() {
  return std::make_unique<Evento>();
}

Variant Motorista(const Variant& codigo, const DataAccessRef& bd) {
  return NomeDe<clMotoristas>(bd, codigo.ToText());
}

}  // namespace

const std::array<SeparadorDeEventos, 7>& SeparadoresDeEventos() {
  static const std::array<SeparadorDeEventos, 7> separadores = {{
      {.indice = kApolices,
       .grelha = &Viaturas::Grelha,
       .colunas = {{"Apolice", "Apólice", 1600, "", "Apolice"},
                   {"Data", "Data Validade", 1300, "", "Validade"},
                   {"Estado", "Estado", 1000, "", "Inactiva", &Estado}},
       .origemId = "Seg_Id",
       .preenchida = "Apolice",
       .eventos = &LerEventos<clSeguros, &clSeguros::LerApolices>,
       .novo = &Novo<clSeguros>,
       .campoId = 36,
       .detalhes = DetalhesDaApolice(),
       .editar = &Viaturas::zorBotao1,
       .arquivo = 1,
       .ficha = "Seguros",
       .carrega = "CarregaSeguro",
       .mudaValores = false},
      {.indice = kAcessorios,
       .grelha = &Viaturas::GrelhaAces,
       .colunas = {{"TpA", "Tp.Acess.", 1000, "", "TipoAcessorio"},
                   {"Marca", "Marca", 1500, "", "Marca"},
                   {"Data", "Data Val.", 1400, "", "DataVal", &DataOuVazio}},
       .origemId = "Id",
       .preenchida = "TpA",
       .eventos = &LerEventos<clAcessorios, &clAcessorios::LerAcessorios>,
       .novo = &Novo<clAcessorios>,
       .campoId = 37,
       .detalhes = DetalhesDoAcessorio(),
       .editar = &Viaturas::zorBotao2,
       .arquivo = 7,
       .ficha = "Acessorios",
       .carrega = "CarregaAcessorio",
       .mudaValores = true},
      {.indice = kGastos,
       .grelha = &Viaturas::GrelhaGst,
       .colunas = {{"Data", "Data", 1950, "", "Data", &DataEHora},
                   {"Qtd", "Qtd", 900, "#,##0", "Qtd"},
                   {"Custo", "Custo", 1050, "#,##0.00", "Custo"}},
       .origemId = "Gst_Id",
       .preenchida = "Data",
       .eventos = &LerEventos<clGastos, &clGastos::LerGastos>,
       .novo = &Novo<clGastos>,
       .campoId = 41,
       .detalhes = DetalhesDoGasto(),
       .editar = &Viaturas::zorBotao3,
       .arquivo = 8,
       .ficha = "Gastos",
       .carrega = "CarregaGasto",
       .mudaValores = true},
      {.indice = kInspeccao,
       .grelha = &Viaturas::GrelhaInsp,
       .colunas = {{"Data", "Data", 1250, "", "Data"},
                   {"Km", "Km", 1400, "#,###,##0", "Km"},
                   {"Custo", "Custo", 1250, "#,##0.00", "Custo"}},
       .origemId = "Insp_Id",
       .preenchida = "Data",
       .eventos = &LerEventos<clInspecoes, &clInspecoes::LerInspecoes>,
       .novo = &Novo<clInspecoes>,
       .campoId = 48,
       .detalhes = DetalhesDaInspeccao(),
       .editar = &Viaturas::zorBotao4,
       .arquivo = 3,
       .ficha = "Inspecoes",
       .carrega = "CarregaInspecao",
       .mudaValores = true},
      {.indice = kRevisoes,
       .grelha = &Viaturas::GrelhaManut,
       .colunas = {{"Data", "Data", 1300, "", "Data"},
                   {"Km", "Km", 1450, "#,###,##0", "Km"},
                   {"Custo", "Custo", 1150, "##,##0.00", "Custo"}},
       .origemId = "Manu_Id",
       .preenchida = "Data",
       .eventos = &LerEventos<clRevisoes, &clRevisoes::LerRevisoes>,
       .novo = &Novo<clRevisoes>,
       .campoId = 49,
       .detalhes = DetalhesDaRevisao(),
       .editar = &Viaturas::zorBotao5,
       .arquivo = 4,
       .ficha = "Revisoes",
       .carrega = "CarregaRevisao",
       .mudaValores = true},
      {.indice = kSinistros,
       .grelha = &Viaturas::GrelhaSin,
       .colunas = {{"Motorista", "Motorista", 2750, "", "Motorista", &Motorista},
                   {"Data", "Data", 1200, "", "Data", &DataSo}},
       .origemId = "Id",
       .preenchida = "Data",
       .eventos = &LerEventos<clSinistros, &clSinistros::LerSinistros>,
       .novo = &Novo<clSinistros>,
       .campoId = 56,
       .detalhes = DetalhesDoSinistro(),
       .editar = &Viaturas::PushButton1,
       .arquivo = 5,
       .ficha = "Sinistros",
       .carrega = "CarregaSinistro",
       .mudaValores = true},
      {.indice = kMultas,
       .grelha = &Viaturas::GrelhaMul,
       .colunas = {{"Motorista", "Motorista", 2750, "", "Motorista", &Motorista},
                   {"Data", "Data", 1200, "", "Data", &DataSo}},
       .origemId = "Id",
       .preenchida = "Data",
       .eventos = &LerEventos<clMultas, &clMultas::LerMultas>,
       .novo = &Novo<clMultas>,
       .campoId = 61,
       .detalhes = DetalhesDaMulta(),
       .editar = &Viaturas::PushButton2,
       .arquivo = 6,
       .ficha = "Multas",
       .carrega = "CarregaMulta",
       .mudaValores = true},
  }};
  return separadores;
}

}  // namespace zorCrmParvel
