#include <array>

#include "demo/demo_parts.h"
#include "events/cost_sums.h"
#include "events/incidents.h"
#include "events/seguros.h"
#include "events/upkeep.h"
#include "host/tools.h"
#include "platform/host.h"
#include "vehicles/viaturas.h"

namespace demo {
namespace {

using namespace zorCrmParvel;
using platform::Currency;
using platform::Date;

Currency Euros(DemoDice& dice, int least, int most) {
  return Currency::FromTenThousandths(std::int64_t{dice.Roll(least * 100, most * 100)} * 100);
}

/// What a vehicle has gone through since it came to the fleet, beside its expenses.
class History {
 public:
  History(const clViaturas& viatura, const std::vector<std::string>& drivers, DemoDice& dice)
      : viatura_(viatura), drivers_(drivers), dice_(dice) {}

  void Write() {
    Policies();
    Revisions();
    Inspections();
    Accessories();
    if (dice_.Roll(1, 3) == 1) Fine();
    if (dice_.Roll(1, 5) == 1) Accident();
  }

 private:
  template <typename Entity>
  Entity& Begin(Entity& event, Date date) const {
    event.bd = viatura_.bd;
    event.Codigo = viatura_.Matricula;
    event.Data = date;
    return event;
  }
  Date PastDay() { return today_.AddDays(-dice_.Roll(5, 900)); }
  Currency KmAt(Date date) const {
    const auto days = std::max<std::int64_t>(1, platform::DaysBetween(viatura_.DataKmInicial, today_));
    const auto gone = std::max<std::int64_t>(0, platform::DaysBetween(viatura_.DataKmInicial, date));
    const auto driven = (viatura_.KmActual - viatura_.KmInicial).ToWhole();
    return viatura_.KmInicial + Currency(static_cast<long long>(driven * gone / days));
  }

  /// The policy in force and the one before it, which is closed.
  void Policies() {
    const bool yearly = dice_.Roll(1, 4) != 1;
    const int months = yearly ? 12 : 6;
    Date end = today_.AddDays(dice_.Roll(1, 8) == 1 ? dice_.Roll(-12, 30) : dice_.Roll(31, months * 30));
    const std::string number = std::to_string(dice_.Roll(1000000, 9999999));
    for (int i = 0; i < 2; ++i) {
      clSeguros seguro;
      Begin(seguro, end);
      seguro.Companhia = std::array{"ATLSEG", "BALUARTE", "MONDEGO", "TEJOSEG"}[viatura_.Marca.size() % 4];
      seguro.TipoSeguro = i == 0 && dice_.Roll(0, 1) == 0 ? "DANOS" : "RC";
      seguro.Apolice = number;
      seguro.Premio = Euros(dice_, 180, 950);
      seguro.Franquia = Currency(dice_.Roll(0, 4) * 100);
      seguro.Modalidade = yearly ? 0 : 1;
      seguro.DataInicio = end.AddMonths(-months);
      seguro.Inactiva = static_cast<std::int16_t>(i);
      seguro.Coberturas = "Responsabilidade civil obrigatória, assistência em viagem";
      seguro.Escrever();
      end = seguro.DataInicio;
    }
  }

  void Revisions() {
    static constexpr std::array kKinds = {"OLEO", "REVANUAL", "CALC", "PNEUS", "REV30"};
    for (int i = dice_.Roll(2, 5); i > 0; --i) {
      clRevisoes revisao;
      Begin(revisao, PastDay());
      revisao.TipoManut = dice_.Pick(kKinds);
      revisao.Km = KmAt(revisao.Data);
      revisao.Custo = Euros(dice_, 90, 640);
      revisao.Obs = "Oficina da marca";
      revisao.Escrever();
    }
  }

  void Inspections() {
    for (int i = dice_.Roll(0, 2); i > 0; --i) {
      clInspecoes inspecao;
      Begin(inspecao, today_.AddDays(-365 * i - dice_.Roll(0, 60) + 200));
      inspecao.Km = KmAt(inspecao.Data);
      inspecao.Custo = Currency::Parse("34,28");
      inspecao.Obs = "Aprovada";
      inspecao.Escrever();
    }
  }

  void Accessories() {
    static constexpr std::array kKinds = {"EXTINTOR", "PRIMSOC", "GPS", "PNEUS", "TRIANG"};
    for (int i = dice_.Roll(1, 3); i > 0; --i) {
      clAcessorios acessorio;
      Begin(acessorio, PastDay());
      acessorio.TipoAcessorio = dice_.Pick(kKinds);
      acessorio.Marca = std::array{"Sicur", "Tecnauto", "Rota"}[static_cast<std::size_t>(dice_.Roll(0, 2))];
      acessorio.Qtd = acessorio.TipoAcessorio == "PNEUS" ? 4 : 1;
      acessorio.KmInicial = KmAt(acessorio.Data);
      acessorio.Custo = Euros(dice_, 15, 480);
      if (acessorio.TipoAcessorio == "EXTINTOR" || acessorio.TipoAcessorio == "PRIMSOC")
        acessorio.DataVal = today_.AddDays(dice_.Roll(1, 5) == 1 ? dice_.Roll(-20, 30) : dice_.Roll(31, 900));
      acessorio.Escrever();
    }
  }

  void Fine() {
    clMultas multa;
    Begin(multa, PastDay());
    multa.Motorista = dice_.Pick(drivers_);
    multa.Valor = Currency(std::array{30, 60, 120, 300}[static_cast<std::size_t>(dice_.Roll(0, 3))]);
    multa.Responsabilidade = static_cast<std::int16_t>(dice_.Roll(0, 1));
    multa.Obs = dice_.Roll(0, 1) == 0 ? "Excesso de velocidade" : "Estacionamento";
    multa.Escrever();
  }

  void Accident() {
    clSinistros sinistro;
    Begin(sinistro, PastDay());
    sinistro.Motorista = dice_.Pick(drivers_);
    sinistro.LocalAc = dice_.Roll(0, 1) == 0 ? "A1, km 183" : "Rotunda do Relógio";
    sinistro.Responsavel = static_cast<std::int16_t>(dice_.Roll(0, 1));
    sinistro.Custo = Euros(dice_, 150, 3200);
    sinistro.Obs = "Danos na frente";
    sinistro.Escrever();
  }

  const clViaturas& viatura_;
  const std::vector<std::string>& drivers_;
  DemoDice& dice_;
  const Date today_ = platform::Today();
};

}  // namespace

void FillDemoEvents(const DataAccessRef& bd, const std::vector<std::string>& drivers, DemoDice& dice) {
  clViaturas viatura;
  viatura.bd = bd;
  while (viatura.LerProximo()) {
    viatura.Ler();
    History(viatura, drivers, dice).Write();
    viatura.KmPrxRev = viatura.KmActual + Currency(dice.Roll(-2, 40) * 500);
    viatura.CustoTotal = Tools::SomaCustoSemRevisoes(bd, viatura.Matricula);
    viatura.CustoMedioKmT = Tools::CustoPorKm(viatura.CustoTotal, viatura.KmActual);
    viatura.Escrever();
  }
}

}  // namespace demo
