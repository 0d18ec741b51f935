#include "vehicles/event_details.h"

#include "events/gastos.h"
#include "events/incidents.h"
#include "events/seguros.h"
#include "events/upkeep.h"
#include "host/tools.h"
#include "masterdata/tipos_gastos.h"
#include "platform/format.h"
#include "platform/host.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;
using platform::Date;

template <typename Entity>
bool LerEvento(Entity& evento, const Viaturas& ficha, std::int32_t id) {
  evento.bd = ficha.mybd;
  evento.Id = id;
  return evento.Ler();
}

/// A date as far as its picker shows it.
Date DataPara(const platform::DTPicker& picker, Date data) {
  return Date::Parse(platform::FormatDate(data, picker.CustomFormat));
}

std::string PrazoDaApolice(const clSeguros& seguro) {
  if (seguro.Inactiva != 0) return {};
  const auto dias = platform::DaysBetween(platform::Today(), seguro.Validade);
  if (dias < 0) return "Prazo de pagamento ultrapassado!";
  return "Faltam ...  " + std::to_string(dias) + " dias";
}

/// How far the accessory has gone and what that cost per km: up to its last km, or to the vehicle's.
void MostrarPercurso(Viaturas& ficha, const clAcessorios& acessorio) {
  const Currency fim = acessorio.KmFinal == 0 ? ficha.viatura().KmActual : acessorio.KmFinal;
  const Currency km = fim - acessorio.KmInicial;
  const double custo = km <= 0 ? 0 : platform::Divide(acessorio.Custo.ToDouble(), km.ToDouble());
  ficha.Titulo[2].Caption = "Acessório com " + platform::Format(km, "###,##0") + " Km";
  ficha.Titulo[51].Caption = "Custo/Km " + platform::Format(custo, "#,##0.00") + " €";
}

}  // namespace

bool DadosSeguro(Viaturas& ficha, std::int32_t id) {
  clSeguros seguro;
  if (!LerEvento(seguro, ficha, id)) return false;
  ficha.Campo[25].Text = NomeDe<clCompanhias>(ficha.mybd, seguro.Companhia);
  ficha.Campo[26].Text = NomeDe<clTiposSeguros>(ficha.mybd, seguro.TipoSeguro);
  ficha.Campo[15].Text = seguro.Apolice;
  ficha.Campo[27].Text = seguro.Premio.ToText();
  ficha.Campo[28].Text = seguro.Franquia.ToText();
  ficha.DTPicker1[5].Value = seguro.Validade;
  ficha.Combo1.ListIndex = seguro.Modalidade;
  ficha.Titulo[64].Caption = PrazoDaApolice(seguro);
  return true;
}

bool DadosManut(Viaturas& ficha, std::int32_t id) {
  clRevisoes revisao;
  if (!LerEvento(revisao, ficha, id)) return false;
  ficha.Campo[50].Text = NomeDe<clTiposManut>(ficha.mybd, revisao.TipoManut);
  ficha.Campo[51].Text = revisao.Km.ToText();
  ficha.Campo[52].Text = revisao.Custo.ToText();
  ficha.Campo[54].Text = revisao.Obs;
  ficha.DTPicker1[7].Value = revisao.Data;
  return true;
}

bool DadosInspecoes(Viaturas& ficha, std::int32_t id) {
  clInspecoes inspecao;
  if (!LerEvento(inspecao, ficha, id)) return false;
  ficha.Campo[46].Text = inspecao.Km.ToText();
  ficha.Campo[47].Text = inspecao.Custo.ToText();
  ficha.Campo[45].Text = inspecao.Obs;
  ficha.DTPicker1[6].Value = inspecao.Data;
  return true;
}

bool DadosAcessorios(Viaturas& ficha, std::int32_t id) {
  clAcessorios acessorio;
  if (!LerEvento(acessorio, ficha, id)) return false;
  ficha.Campo[30].Text = NomeDe<clTiposAcessorios>(ficha.mybd, acessorio.TipoAcessorio);
  ficha.Campo[18].Text = acessorio.Marca;
  ficha.Campo[29].Text = acessorio.Modelo;
  ficha.Campo[32].Text = acessorio.KmInicial.ToText();
  ficha.Campo[31].Text = acessorio.Qtd.ToText();
  ficha.Campo[33].Text = acessorio.KmFinal.ToText();
  ficha.Campo[34].Text = acessorio.Custo.ToText();
  ficha.Campo[35].Text = acessorio.Obs;
  ficha.DTPicker1[2].Value = acessorio.Data;
  MostrarPercurso(ficha, acessorio);
  return true;
}

bool DadosGastos(Viaturas& ficha, std::int32_t id) {
  clGastos gasto;
  if (!LerEvento(gasto, ficha, id)) return false;
  ficha.Campo[39].Text = NomeDe<clMotoristas>(ficha.mybd, gasto.Motorista);
  ficha.Campo[38].Text = gasto.Qtd.ToText();
  ficha.Campo[40].Text = gasto.Custo.ToText();
  ficha.Campo[42].Text = gasto.Obs;
  ficha.Campo[44].Text = NomeDe<clTiposGastos>(ficha.mybd, gasto.TipoGasto);
  ficha.DTPicker1[4].Value = DataPara(ficha.DTPicker1[4], gasto.Data);
  return true;
}

bool DadosSinistros(Viaturas& ficha, std::int32_t id) {
  clSinistros sinistro;
  if (!LerEvento(sinistro, ficha, id)) return false;
  ficha.Campo[55].Text = NomeDe<clMotoristas>(ficha.mybd, sinistro.Motorista);
  ficha.Campo[58].Text = sinistro.Obs;
  ficha.Campo[57].Text = sinistro.LocalAc;
  ficha.DTPicker1[10].Value = DataPara(ficha.DTPicker1[10], sinistro.Data);
  return true;
}

bool DadosMultas(Viaturas& ficha, std::int32_t id) {
  clMultas multa;
  if (!LerEvento(multa, ficha, id)) return false;
  ficha.Campo[59].Text = NomeDe<clMotoristas>(ficha.mybd, multa.Motorista);
  ficha.Campo[60].Text = multa.Obs;
  ficha.Campo[62].Text = multa.Valor.ToText();
  ficha.DTPicker1[11].Value = DataPara(ficha.DTPicker1[11], multa.Data);
  return true;
}

}  // namespace zorCrmParvel
