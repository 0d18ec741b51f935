#include "events/expense_figures.h"

#include <algorithm>

#include "events/cost_sums.h"
#include "events/gastos.h"
#include "host/tools.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {
namespace {

using platform::Currency;

Currency AtLeastZero(Currency value) { return value > 0 ? value : Currency(); }

}  // namespace

void ResumoDeGastos::Ler(const DataAccessRef& bd, const std::string& Matricula) {
  clGastos gasto;
  gasto.bd = bd;
  gasto.Codigo = Matricula;
  const RecordsetRef rs = gasto.LerGastos();
  TotalQtd = TotalCustoComb = TotalCustoOutros = KmMax = CustoPrimeiro = 0;
  std::int16_t abastecimentos = 0;
  const auto combustivel = rs->Fields("Combustivel");
  const auto qtd = rs->Fields("Qtd");
  const auto km = rs->Fields("Km");
  const auto custo = rs->Fields("Custo");
  for (; !rs->Eof(); rs->MoveNext()) {
    const Currency valor = custo.Value().ToCurrency();
    if (combustivel.Value().ToInteger() != 1) {
      TotalCustoOutros += valor;
      continue;
    }
    abastecimentos = platform::ToInteger(std::int64_t{abastecimentos} + 1);
    QtdPrimeira = qtd.Value().ToCurrency();  // rows come newest first: the oldest stays
    CustoPrimeiro = valor;
    TotalQtd += QtdPrimeira;
    TotalCustoComb += valor;
    KmMax = std::max(KmMax, km.Value().ToCurrency());
  }
  rs->Close();
  UmaLeitura = abastecimentos == 1;
}

void ResumoDeGastos::ActualizaAposGravar(const DataAccessRef& bd, const std::string& Matricula,
                                         const Inicio& inicio, Currency outrosCustos) const {
  ActualizaViatura(bd, Matricula, inicio, TotalCustoComb - CustoPrimeiro,
                   TotalCustoComb + TotalCustoOutros + outrosCustos);
}

void ResumoDeGastos::ActualizaAposAnular(const DataAccessRef& bd, const std::string& Matricula,
                                         const Inicio& inicio) const {
  const Currency acessorios = Tools::SomaCustoAcessorios(bd, Matricula);
  ActualizaViatura(bd, Matricula, inicio, TotalCustoComb,
                   TotalCustoComb + TotalCustoOutros + acessorios + acessorios);
}

void ResumoDeGastos::ActualizaViatura(const DataAccessRef& bd, const std::string& Matricula,
                                      const Inicio& inicio, Currency custoComb, Currency total) const {
  const Currency km = KmMax - inicio.Km;
  const Currency consumo = Tools::ConsumoMedio((TotalQtd - QtdPrimeira) + inicio.Qtd, km);
  const Currency custoKm = Tools::CustoPorKm(custoComb, km);
  clViaturas viatura;
  viatura.bd = bd;
  viatura.Matricula = Matricula;
  viatura.Ler();
  viatura.KmActual = KmMax;
  viatura.Media = UmaLeitura ? Currency() : AtLeastZero(consumo);
  viatura.CustoMedioKmC = UmaLeitura ? Currency() : AtLeastZero(custoKm);
  viatura.CustoTotal = total;
  viatura.CustoMedioKmT = Tools::CustoPorKm(total, KmMax);
  viatura.Escrever();
}

Currency OutrosCustos(const DataAccessRef& bd, const std::string& Matricula) {
  Currency total = Tools::SomaCustoAcessorios(bd, Matricula);
  return total += Tools::SomaCustoInspecoes(bd, Matricula);
}

void RecalcularViatura(const DataAccessRef& bd, const std::string& Matricula) {
  clViaturas viatura;
  viatura.bd = bd;
  viatura.Matricula = Matricula;
  viatura.Ler();
  ResumoDeGastos resumo;
  resumo.Ler(bd, Matricula);
  resumo.ActualizaAposGravar(bd, Matricula, {.Km = viatura.KmInicial, .Qtd = viatura.QtdInicial},
                             OutrosCustos(bd, Matricula));
}

}  // namespace zorCrmParvel
