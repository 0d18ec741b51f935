#include <algorithm>
#include <set>

#include "drivers/motoristas.h"
#include "events/cost_sums.h"
#include "events/incidents.h"
#include "events/seguros.h"
#include "events/upkeep.h"
#include "exchange/bulk/event_history.h"
#include "exchange/import_fields.h"
#include "exchange/import_targets.h"

namespace exchange {
namespace {

using namespace zorCrmParvel;
using platform::Currency;

/// A column whose code must exist.
template <typename Entity>
struct CodeRule {
  const char* column;
  std::string Entity::*code;
  std::unique_ptr<CodeTable> (*table)();
  const char* missing;
};

/// What one kind of event adds to the plate, the date and the notes that all have.
template <typename Entity>
struct EventImport {
  const char* notes = "Obs";
  std::vector<ImportField<Entity>> fields;
  std::vector<CodeRule<Entity>> codes = {};
  const TabelaDeEventos& table;
  std::vector<const char*> same;  // columns that tell two events of a day apart
  Currency (*total)(const DataAccessRef&, const std::string&) = nullptr;  // null: the vehicle's figures stay
};

template <typename Entity>
class EventTarget : public ImportTarget {
 public:
  EventTarget(const DataAccessRef& bd, EventImport<Entity> import)
      : bd_(bd),
        import_(std::move(import)),
        history_(bd, import_.table.tabela, import_.table.data, import_.same),
        plates_(bd) {
    columns_ = {{"Matricula", ColumnKind::kText, 10, true}, {import_.table.data, ColumnKind::kDate, 0, true}};
    if (import_.notes != nullptr) columns_.push_back({import_.notes, ColumnKind::kText, 150});
    for (const auto& field : import_.fields) columns_.push_back(field.column);
  }

  const std::vector<ImportColumn>& Columns() const override { return columns_; }

  void Expect(const std::vector<std::string>& plates, platform::Date oldest, platform::Date newest) override {
    history_.Expect(plates, oldest, newest);
  }

  Outcome Judge(const ImportRow& row) override {
    plates_.Require(row.text("Matricula"));
    event_ = std::make_unique<Entity>();
    Entity& event = *event_;
    event.bd = bd_;
    event.Codigo = row.text("Matricula");
    event.Data = *row.date(import_.table.data);
    if (import_.notes != nullptr) event.Obs = row.text(import_.notes);
    for (const auto& field : import_.fields) field.take(event, row, field.column.name);
    for (const auto& rule : import_.codes) CheckCode(rule, row, event);
    if (!row.numbered && history_.Stand(event.Codigo, event.Data, ValuesOf(row))) return Outcome::kKnown;
    return Outcome::kAdded;
  }
  void Write() override {
    event_->Escrever();
    touched_.insert(event_->Codigo);
  }
  bool JudgesAlone() const override { return true; }

  void Finish() override {
    if (import_.total == nullptr) return;
    for (const std::string& plate : touched_) GuardarCustoTotal(bd_, plate, import_.total(bd_, plate));
  }

 private:
  void CheckCode(const CodeRule<Entity>& rule, const ImportRow& row, const Entity& event) {
    if (!row.given(rule.column)) return;
    const std::string& code = event.*rule.code;
    RefuseApostrophe(rule.column, code);
    const auto [place, fresh] = codes_.try_emplace(rule.column + (":" + code), false);
    if (fresh) {
      const auto table = rule.table();
      table->bd = bd_;
      table->Codigo = code;
      place->second = table->Ler();
    }
    if (!place->second) throw Refusal{rule.column, rule.missing};
  }

  /// What tells the row's event from others of its moment.
  std::string ValuesOf(const ImportRow& row) const {
    std::string values;
    for (const char* name : import_.same) {
      const auto column = std::find_if(columns_.begin(), columns_.end(), [&](const ImportColumn& one) {
        return std::string_view(name) == one.name;
      });
      if (column->kind == ColumnKind::kText)
        EventHistory::Join(values, row.text(name));
      else
        EventHistory::Join(values, row.number(name).value_or(Currency()));
    }
    return values;
  }

  DataAccessRef bd_;
  EventImport<Entity> import_;
  std::vector<ImportColumn> columns_;
  EventHistory history_;
  Plates plates_;
  std::unordered_map<std::string, bool> codes_;
  std::set<std::string> touched_;
  std::unique_ptr<Entity> event_;  // judged last
};

template <typename Entity>
std::unique_ptr<CodeTable> NewTable() {
  return std::make_unique<Entity>();
}

}  // namespace

std::unique_ptr<ImportTarget> MakePolicyImport(const DataAccessRef& bd) {
  using E = clSeguros;
  using F = Fields<E>;
  return std::make_unique<EventTarget<E>>(
      bd, EventImport<E>{
              .notes = nullptr,
              .fields = {F::Text("Companhia", 10, &E::Companhia), F::Text("TipoSeguro", 10, &E::TipoSeguro),
                         F::Text("Apolice", 15, &E::Apolice), F::Number("Premio", &E::Premio),
                         F::Number("Franquia", &E::Franquia), F::Flag("Modalidade", &E::Modalidade),
                         F::Day("DataInicio", &E::DataInicio), F::Flag("Inactiva", &E::Inactiva),
                         F::Text("Coberturas", 200, &E::Coberturas)},
              .codes = {{"Companhia", &E::Companhia, &NewTable<clCompanhias>, "Companhia não existente!"},
                        {"TipoSeguro", &E::TipoSeguro, &NewTable<clTiposSeguros>,
                         "Tipo de Seguro não existente!"}},
              .table = kTabelaDeSeguros,
              .same = {"Apolice", "Premio"}});
}

std::unique_ptr<ImportTarget> MakeRevisionImport(const DataAccessRef& bd) {
  using E = clRevisoes;
  using F = Fields<E>;
  return std::make_unique<EventTarget<E>>(
      bd, EventImport<E>{.fields = {F::Text("TipoManut", 10, &E::TipoManut), F::Number("Km", &E::Km),
                                    F::Number("Custo", &E::Custo)},
                         .codes = {{"TipoManut", &E::TipoManut, &NewTable<clTiposManut>,
                                    "Tipo Manutenção não existente!"}},
                         .table = kTabelaDeRevisoes,
                         .same = {"TipoManut", "Km", "Custo"},
                         .total = &Tools::SomaCustoComRevisoes});
}

std::unique_ptr<ImportTarget> MakeInspectionImport(const DataAccessRef& bd) {
  using E = clInspecoes;
  using F = Fields<E>;
  return std::make_unique<EventTarget<E>>(
      bd, EventImport<E>{.fields = {F::Number("Km", &E::Km), F::Number("Custo", &E::Custo)},
                         .table = kTabelaDeInspecoes,
                         .same = {"Km", "Custo"},
                         .total = &Tools::SomaCustoSemRevisoes});
}

std::unique_ptr<ImportTarget> MakeFineImport(const DataAccessRef& bd) {
  using E = clMultas;
  using F = Fields<E>;
  return std::make_unique<EventTarget<E>>(
      bd, EventImport<E>{
              .fields = {F::Text("Motorista", 10, &E::Motorista), F::Number("ValorMulta", &E::Valor),
                         F::Flag("Responsabilidade", &E::Responsabilidade)},
              .codes = {{"Motorista", &E::Motorista, &NewTable<clMotoristas>, "Motorista não existente!"}},
              .table = kTabelaDeMultas,
              .same = {"Motorista", "ValorMulta"}});
}

std::unique_ptr<ImportTarget> MakeAccidentImport(const DataAccessRef& bd) {
  using E = clSinistros;
  using F = Fields<E>;
  return std::make_unique<EventTarget<E>>(
      bd, EventImport<E>{
              .fields = {F::Text("Motorista", 10, &E::Motorista), F::Text("LocalAc", 50, &E::LocalAc),
                         F::Flag("Responsavel", &E::Responsavel), F::Number("Custo", &E::Custo)},
              .codes = {{"Motorista", &E::Motorista, &NewTable<clMotoristas>, "Motorista não existente!"}},
              .table = kTabelaDeSinistros,
              .same = {"Motorista", "LocalAc", "Custo"}});
}

std::unique_ptr<ImportTarget> MakeAccessoryImport(const DataAccessRef& bd) {
  using E = clAcessorios;
  using F = Fields<E>;
  return std::make_unique<EventTarget<E>>(
      bd, EventImport<E>{
              .fields = {F::Text("TipoAcessorio", 10, &E::TipoAcessorio), F::Text("Marca", 25, &E::Marca),
                         F::Text("Modelo", 25, &E::Modelo), F::Number("Qtd", &E::Qtd),
                         F::Number("KmInicial", &E::KmInicial), F::Number("KmFinal", &E::KmFinal),
                         F::Number("Custo", &E::Custo), F::Day("DataVal", &E::DataVal)},
              .codes = {{"TipoAcessorio", &E::TipoAcessorio, &NewTable<clTiposAcessorios>,
                         "Tipo Acessório não existente!"}},
              .table = kTabelaDeAcessorios,
              .same = {"TipoAcessorio", "Marca", "Custo"},
              .total = &Tools::SomaCustoSemRevisoes});
}

}  // namespace exchange
