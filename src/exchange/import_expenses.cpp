#include <algorithm>
#include <cstdint>
#include <limits>
#include <set>

#include "drivers/motoristas.h"
#include "events/expense_figures.h"
#include "events/expense_rules.h"
#include "events/gastos.h"
#include "exchange/bulk/event_history.h"
#include "exchange/import_codes.h"
#include "exchange/import_targets.h"
#include "masterdata/tipos_gastos.h"
#include "vehicles/viaturas.h"

namespace exchange {
namespace {

using namespace zorCrmParvel;
using platform::Currency;
using platform::Date;

class ExpenseTarget : public ImportTarget {
 public:
  explicit ExpenseTarget(const DataAccessRef& bd)
      : bd_(bd),
        history_(bd, kTabelaDeGastos.tabela, kTabelaDeGastos.data, {"TipoGasto", "Qtd", "Km", "Custo"},
                 [this](const std::string& plate, platform::Recordset& row) { Seen(plate, row); }),
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

  void Expect(const std::vector<std::string>& plates, Date oldest, Date newest) override {
    history_.Expect(plates, oldest, newest);
  }

  Outcome Judge(const ImportRow& row) override {
    RefuseApostrophe("TipoGasto", row.text("TipoGasto"));
    const Type& type = TypeOf(row.text("TipoGasto"));
    plates_.Require(row.text("Matricula"));
    if (!type.exists) throw Refusal{"TipoGasto", RegrasDeGastos::kTipoInexistente};
    if (row.given("Motorista"))
      drivers_.Require("Motorista", row.text("Motorista"), RegrasDeGastos::kMotoristaInexistente);
    if (!row.text("Viagem").empty())
      trips_.Require("Viagem", row.text("Viagem"), RegrasDeGastos::kViagemInexistente);
    Take(row, type);
    history_.Know(gasto_.Codigo);
    if (!row.numbered && history_.Stand(gasto_.Codigo, gasto_.Data, Values())) return Outcome::kKnown;
    Check(type.fuel);
    return Outcome::kAdded;
  }

  void Write() override {
    gasto_.Escrever();
    touched_.insert(gasto_.Codigo);
  }
  bool JudgesAlone() const override { return true; }

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
      place->second.exists = code.find('\'') == std::string::npos && tipo.Ler();
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
    pass("Km", RegrasDeGastos::Km(fuel, gasto_.Km, KmBefore()));
    Enter(FillsOf(gasto_.Codigo), {gasto_.Data.seconds(), gasto_.Km});
  }

  struct Fill {
    std::int64_t moment;  // seconds
    Currency km;
    static bool Earlier(const Fill& a, const Fill& b) { return a.moment < b.moment; }
  };
  using Fills = std::vector<Fill>;  // by moment; of one moment the newest last

  static void Enter(Fills& fills, const Fill& fill) {
    fills.insert(std::upper_bound(fills.begin(), fills.end(), fill, Fill::Earlier), fill);
  }
  Fills& FillsOf(const std::string& plate) { return fills_[EventHistory::KeyOf(plate)]; }

  /// The kilometres of the last fill before, stored or judged.
  Currency KmBefore() {
    Fills& fills = FillsOf(gasto_.Codigo);
    const auto after =
        std::lower_bound(fills.begin(), fills.end(), Fill{gasto_.Data.seconds(), {}}, Fill::Earlier);
    if (after != fills.begin()) return std::prev(after)->km;
    if (history_.KnowsAll()) return {};
    const Currency km = clGastos::KmAnterior(bd_, gasto_.Codigo, gasto_.Data);
    fills.insert(fills.begin(), {std::numeric_limits<std::int64_t>::min(), km});
    return km;
  }

  void Seen(const std::string& plate, platform::Recordset& row) {
    const platform::Variant type = row.Fields("TipoGasto").Value();
    const platform::Variant km = row.Fields("Km").Value();
    if (type.IsNull() || !TypeOf(type.ToText()).fuel) return;
    Enter(fills_[plate],
          {row.Fields("Data").Value().ToDate().seconds(), km.IsNull() ? Currency() : km.ToCurrency()});
  }

  std::string Values() const {
    std::string values;
    EventHistory::Join(values, gasto_.TipoGasto);
    for (const Currency number : {gasto_.Qtd, gasto_.Km, gasto_.Custo}) EventHistory::Join(values, number);
    return values;
  }

  DataAccessRef bd_;
  clGastos gasto_;
  EventHistory history_;
  Plates plates_;
  Codes<clMotoristas> drivers_;
  Codes<clViagens> trips_;
  std::unordered_map<std::string, Type> types_;
  std::set<std::string> touched_;
  std::unordered_map<std::string, Fills> fills_;  // by the plate as the history knows it
};

}  // namespace

std::unique_ptr<ImportTarget> MakeExpenseImport(const DataAccessRef& bd) {
  return std::make_unique<ExpenseTarget>(bd);
}

}  // namespace exchange
