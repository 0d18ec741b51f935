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

Currency ResumoDeGastos::Consumo(Currency kmInicial, Currency qtdInicial) const {
  return Tools::ConsumoMedio((TotalQtd - QtdPrimeira) + qtdInicial, KmMax - kmInicial);
}

Currency ResumoDeGastos::CustoPorKm(Currency custo, Currency kmInicial) const {
  return Tools::CustoPorKm(custo, KmMax - kmInicial);
}

void ResumoDeGastos::ActualizaViatura(const DataAccessRef& bd, const std::string& Matricula, Currency consumo,
                                      Currency custoKm, Currency total) const {
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

void RecalcularViatura(const DataAccessRef& bd, const std::string& Matricula) {
  clViaturas viatura;
  viatura.bd = bd;
  viatura.Matricula = Matricula;
  viatura.Ler();
  ResumoDeGastos resumo;
  resumo.Ler(bd, Matricula);
  resumo.ActualizaViatura(bd, Matricula, resumo.Consumo(viatura.KmInicial, viatura.QtdInicial),
                          resumo.CustoPorKm(resumo.TotalCustoComb - resumo.CustoPrimeiro, viatura.KmInicial),
                          resumo.TotalCustoComb + resumo.TotalCustoOutros +
                              Tools::SomaCustoAcessorios(bd, Matricula) +
                              Tools::SomaCustoInspecoes(bd, Matricula));
}

namespace RegrasDeGastos {

const char* Quantidade(bool combustivel, Currency quantidade) {
  return combustivel && quantidade <= 0 ? "O Tipo de Gasto exige quantidade superior a zero!" : nullptr;
}

const char* Custo(Currency custo) { return custo <= 0 ? "Deve ser superior zero!" : nullptr; }

const char* Km(bool combustivel, Currency km, Currency anterior) {
  if (!combustivel) return nullptr;
  if (km <= 0) return "O tipo de Gasto exige quilometragem superior a zero!";
  return km < anterior ? "Existe uma quilometragem superior para esta viatura em Gasto anterior." : nullptr;
}

}  // namespace RegrasDeGastos
}  // namespace zorCrmParvel
