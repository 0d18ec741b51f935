#include "events/cost_sums.h"

#include "events/gastos.h"
#include "events/upkeep.h"
#include "host/tools.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel::Tools {
namespace {

using platform::Currency;

template <typename Entity>
Currency Soma(const DataAccessRef& bd, const std::string& Matricula, RecordsetRef (Entity::*ler)()) {
  Entity entity;
  entity.bd = bd;
  entity.Codigo = Matricula;
  const RecordsetRef rs = (entity.*ler)();
  const auto custo = rs->Fields("Custo");
  Currency total;
  for (; !rs->Eof(); rs->MoveNext()) total += custo.Value().ToCurrency();
  return total;
}

}  // namespace

Currency SomaCustoGastos(const DataAccessRef& bd, const std::string& Matricula) {
  return Soma(bd, Matricula, &clGastos::LerGastos);
}

Currency SomaCustoRevisoes(const DataAccessRef& bd, const std::string& Matricula) {
  return Soma(bd, Matricula, &clRevisoes::LerRevisoes);
}

Currency SomaCustoInspecoes(const DataAccessRef& bd, const std::string& Matricula) {
  return Soma(bd, Matricula, &clInspecoes::LerInspecoes);
}

Currency SomaCustoAcessorios(const DataAccessRef& bd, const std::string& Matricula) {
  return Soma(bd, Matricula, &clAcessorios::LerAcessorios);
}

Currency SomaCustoSemRevisoes(const DataAccessRef& bd, const std::string& Matricula) {
  // One by one: in a sum of calls the compiler chooses which statement goes out first.
  Currency total = SomaCustoGastos(bd, Matricula);
  total += SomaCustoAcessorios(bd, Matricula);
  return total += SomaCustoInspecoes(bd, Matricula);
}

Currency SomaCustoComRevisoes(const DataAccessRef& bd, const std::string& Matricula) {
  Currency total = SomaCustoSemRevisoes(bd, Matricula);
  return total += SomaCustoRevisoes(bd, Matricula);
}

}  // namespace zorCrmParvel::Tools

namespace zorCrmParvel {

void GuardarCustoTotal(const DataAccessRef& bd, const std::string& Matricula, platform::Currency total) {
  clViaturas viatura;
  viatura.bd = bd;
  viatura.Matricula = Matricula;
  viatura.Ler();
  viatura.CustoTotal = total;
  viatura.CustoMedioKmT = Tools::CustoPorKm(total, viatura.KmActual);
  viatura.Escrever();
}

}  // namespace zorCrmParvel
