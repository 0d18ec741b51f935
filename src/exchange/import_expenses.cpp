#include <set>

#include "drivers/motoristas.h"
#include "events/expense_figures.h"
#include "events/expense_rules.h"
#include "events/gastos.h"
#include "exchange/import_codes.h"
#include "exchange/import_repetitions.h"
#include "exchange/import_targets.h"
#include "masterdata/tipos_gastos.h"
#include "platform/format.h"
#include "vehicles/viaturas.h"

namespace exchange {
namespace {

using namespace zorCrmParvel;
using platform::Currency;

class ExpenseTarget : public ImportTarget {
 public:
  explicit ExpenseTarget(const DataAccessRef& bd)
      : bd_(bd),
        repetitions_(bd, kTabelaDeGastos.tabela, kTabelaDeGastos.id),
        plates_(bd),
        drivers_(bd),
        trips_(bd) {
    gasto_.bd = bd;
  }

  const std::vector<ImportColumn>& Columns() const override {
    static const std::vector<ImportColumn> columns = {{"Matricula", ColumnKind::kText, 10, true},
                                                      {"Data", ColumnKind::kDate, 0, true},
                                                      {"TipoGasto", ColumnKind::kText, 25, true},
                                                      {"Motorista", ColumnKind::kText, 25},
                                                      {"Viagem", ColumnKind::kText, 50},
                                                      {"Qtd", ColumnKind::kNumber},
                                                      {"ValorUn", ColumnKind::kNumber},
                                                      {"Custo", ColumnKind::kNumber},
                                                      {"Km", ColumnKind::kNumber},
                                                      {"Obs", ColumnKind::kText, 150}};
    return columns;
  }

  Outcome Store(const ImportRow& row) override {
    RefuseApostrophe("TipoGasto", row.text("TipoGasto"));
    const Type& type = TypeOf(row.text("TipoGasto"));
    plates_.Require(row.text("Matricula"));
    if (!type.exists) throw Refusal{"TipoGasto", RegrasDeGastos::kTipoInexistente};
    if (row.given("Motorista"))
      drivers_.Require("Motorista", row.text("Motorista"), RegrasDeGastos::kMotoristaInexistente);
    if (!row.text("Viagem").empty())
      trips_.Require("Viagem", row.text("Viagem"), RegrasDeGastos::kViagemInexistente);
    Take(row, type);
    if (!row.numbered && IsKnown()) return Outcome::kKnown;
    Check(type.fuel);
    gasto_.Escrever();
    touched_.insert(gasto_.Codigo);
    return Outcome::kAdded;
  }

  void Finish() override {
    for (const std::string& plate : touched_) RecalcularViatura(bd_, plate);
  }

 private:
  struct Type {
    bool exists = false;
    bool fuel = false;
    Currency price;
  };

  const Type& TypeOf(const std::string& code) {
    const auto [place, fresh] = types_.try_emplace(code);
    if (fresh) {
      clTiposGastos tipo;
      tipo.bd = bd_;
      tipo.Codigo = code;
      place->second.exists = tipo.Ler();
      place->second.fuel = tipo.Combustivel == 1;
      place->second.price = tipo.CustoUnit;
    }
    return place->second;
  }

  /// What the ficha would hold: the type's price and the product where the file says nothing.
  void Take(const ImportRow& row, const Type& type) {
    gasto_.Codigo = row.text("Matricula");
    gasto_.Data = *row.date("Data");
    gasto_.TipoGasto = row.text("TipoGasto");
    gasto_.Motorista = row.text("Motorista");
    gasto_.Viagem = row.text("Viagem");
    gasto_.Obs = row.text("Obs");
    gasto_.Qtd = row.number("Qtd").value_or(Currency());
    gasto_.ValorUn = row.number("ValorUn").value_or(type.price);
    gasto_.Km = row.number("Km").value_or(Currency());
    if (const auto cost = row.number("Custo")) {
      gasto_.Custo = *cost;
      return;
    }
    try {
      gasto_.Custo = gasto_.Qtd * gasto_.ValorUn;
    } catch (const platform::RuntimeError&) {
      throw Refusal{"Custo", "O produto da quantidade pelo valor unitário não cabe."};
    }
  }

  void Check(bool fuel) {
    const auto pass = [](const char* column, const char* message) {
      if (message != nullptr) throw Refusal{column, message};
    };
    pass("Qtd", RegrasDeGastos::Quantidade(fuel, gasto_.Qtd));
    pass("Custo", RegrasDeGastos::Custo(gasto_.Custo));
    if (!fuel) return;
    pass("Km", RegrasDeGastos::Km(fuel, gasto_.Km, clGastos::KmAnterior(bd_, gasto_.Codigo, gasto_.Data)));
  }

  /// The same expense, stored already by an earlier run.
  bool IsKnown() {
    return repetitions_.Stand(
        {"SELECT Gst_Id From zor_PV_Gastos WHERE Matricula=N'", value(gasto_.Codigo), "' and Data='",
         value(platform::FormatDate(gasto_.Data, "yyyy.mm.dd hh:mm:ss")), "' and TipoGasto=N'",
         value(gasto_.TipoGasto), "' and Qtd=", value(gasto_.Qtd.ToText('.')),
         " and Km=", value(gasto_.Km.ToText('.')), " and Custo=", value(gasto_.Custo.ToText('.'))});
  }

  DataAccessRef bd_;
  clGastos gasto_;
  Repetitions repetitions_;
  Plates plates_;
  Codes<clMotoristas> drivers_;
  Codes<clViagens> trips_;
  std::unordered_map<std::string, Type> types_;
  std::set<std::string> touched_;
};

}  // namespace

std::unique_ptr<ImportTarget> MakeExpenseImport(const DataAccessRef& bd) {
  return std::make_unique<ExpenseTarget>(bd);
}

}  // namespace exchange
