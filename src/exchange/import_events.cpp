#include <algorithm>
#include <functional>
#include <set>

#include "drivers/motoristas.h"
#include "events/acessorios.h"
#include "events/cost_sums.h"
#include "events/inspecoes.h"
#include "events/multas.h"
#include "events/revisoes.h"
#include "events/seguros.h"
#include "events/sinistros.h"
#include "exchange/import_codes.h"
#include "exchange/import_repetitions.h"
#include "exchange/import_targets.h"
#include "host/tools.h"
#include "platform/format.h"
#include "vehicles/viaturas.h"

namespace exchange {
namespace {

using namespace zorCrmParvel;
using platform::Currency;
using platform::Date;

/// A field of an event: the column that the file may have, and where its value goes.
template <typename Entity>
struct EventField {
  ImportColumn column;
  std::function<void(Entity&, const ImportRow&, const char*)> take;
};

template <typename Entity>
EventField<Entity> Text(const char* name, int limit, std::string Entity::*member) {
  return {{name, ColumnKind::kText, limit},
          [member](Entity& e, const ImportRow& row, const char* column) { e.*member = row.text(column); }};
}

template <typename Entity>
EventField<Entity> Money(const char* name, Currency Entity::*member) {
  return {{name, ColumnKind::kNumber}, [member](Entity& e, const ImportRow& row, const char* column) {
            e.*member = row.number(column).value_or(Currency());
          }};
}

template <typename Entity>
EventField<Entity> Flag(const char* name, std::int16_t Entity::*member) {
  return {{name, ColumnKind::kInteger}, [member](Entity& e, const ImportRow& row, const char* column) {
            e.*member = row.integer(column) != 0 ? 1 : 0;
          }};
}

template <typename Entity>
EventField<Entity> Day(const char* name, Date Entity::*member) {
  return {{name, ColumnKind::kDate}, [member](Entity& e, const ImportRow& row, const char* column) {
            e.*member = row.date(column).value_or(Date());
          }};
}

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
  const char* date;  // column of the date that orders the sequence
  const char* notes = "Obs";
  std::vector<EventField<Entity>> fields;
  std::vector<CodeRule<Entity>> codes = {};
  const char* table;
  const char* id;
  std::vector<const char*> same;  // columns that tell two events of a day apart
  Currency (*total)(const DataAccessRef&, const std::string&) = nullptr;  // null: the vehicle's figures stay
};

template <typename Entity>
class EventTarget : public ImportTarget {
 public:
  EventTarget(const DataAccessRef& bd, EventImport<Entity> import)
      : bd_(bd), import_(std::move(import)), repetitions_(bd, import_.table, import_.id), plates_(bd) {
    columns_ = {{"Matricula", ColumnKind::kText, 10, true}, {import_.date, ColumnKind::kDate, 0, true}};
    if (import_.notes != nullptr) columns_.push_back({import_.notes, ColumnKind::kText, 150});
    for (const auto& field : import_.fields) columns_.push_back(field.column);
  }

  const std::vector<ImportColumn>& Columns() const override { return columns_; }

  Outcome Store(const ImportRow& row) override {
    plates_.Require(row.text("Matricula"));
    Entity event;
    event.bd = bd_;
    event.Codigo = row.text("Matricula");
    event.Data = *row.date(import_.date);
    if (import_.notes != nullptr) event.Obs = row.text(import_.notes);
    for (const auto& field : import_.fields) field.take(event, row, field.column.name);
    for (const auto& rule : import_.codes) CheckCode(rule, row, event);
    if (IsKnown(event, row)) return Outcome::kKnown;
    event.Escrever();
    touched_.insert(event.Codigo);
    return Outcome::kAdded;
  }

  void Finish() override {
    if (import_.total == nullptr) return;
    for (const std::string& plate : touched_) {
      clViaturas viatura;
      viatura.bd = bd_;
      viatura.Matricula = plate;
      viatura.Ler();
      viatura.CustoTotal = import_.total(bd_, plate);
      viatura.CustoMedioKmT = Tools::CustoPorKm(viatura.CustoTotal, viatura.KmActual);
      viatura.Escrever();
    }
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

  /// True when the vehicle has had an event of this moment whose columns hold what the row holds.
  bool IsKnown(const Entity& event, const ImportRow& row) {
    const std::string moment = platform::FormatDate(event.Data, "yyyy.mm.dd hh:mm:ss");
    return repetitions_.Stand({"SELECT * From ", fixed(import_.table), " WHERE Matricula=N'",
                               value(event.Codigo), "' and ", fixed(import_.date), "='", value(moment), "'"},
                              [&](platform::Recordset& stored) {
                                return std::all_of(import_.same.begin(), import_.same.end(),
                                                   [&](const char* column) {
                                                     return Same(stored.Fields(column).Value(), row, column);
                                                   });
                              });
  }

  static bool Same(const platform::Variant& stored, const ImportRow& row, const char* column) {
    if (stored.IsNull()) return row.text(column).empty();
    if (stored.As<Currency>()) return stored.ToCurrency() == row.number(column).value_or(Currency());
    return stored.ToText() == row.text(column);
  }

  DataAccessRef bd_;
  EventImport<Entity> import_;
  std::vector<ImportColumn> columns_;
  Repetitions repetitions_;
  Plates plates_;
  std::unordered_map<std::string, bool> codes_;
  std::set<std::string> touched_;
};

template <typename Entity>
std::unique_ptr<CodeTable> NewTable() {
  return std::make_unique<Entity>();
}

Currency TotalWithRevisions(const DataAccessRef& bd, const std::string& plate) {
  return Tools::SomaCustoSemRevisoes(bd, plate) + Tools::SomaCustoRevisoes(bd, plate);
}

}  // namespace

std::unique_ptr<ImportTarget> MakePolicyImport(const DataAccessRef& bd) {
  using E = clSeguros;
  return std::make_unique<EventTarget<E>>(
      bd, EventImport<E>{
              .date = "Validade",
              .notes = nullptr,
              .fields = {Text("Companhia", 10, &E::Companhia), Text("TipoSeguro", 10, &E::TipoSeguro),
                         Text("Apolice", 15, &E::Apolice), Money("Premio", &E::Premio),
                         Money("Franquia", &E::Franquia), Flag("Modalidade", &E::Modalidade),
                         Day("DataInicio", &E::DataInicio), Flag("Inactiva", &E::Inactiva),
                         Text("Coberturas", 200, &E::Coberturas)},
              .codes = {{"Companhia", &E::Companhia, &NewTable<clCompanhias>, "Companhia não existente!"},
                        {"TipoSeguro", &E::TipoSeguro, &NewTable<clTiposSeguros>,
                         "Tipo de Seguro não existente!"}},
              .table = "zor_PV_Seguros",
              .id = "Seg_Id",
              .same = {"Apolice", "Premio"}});
}

std::unique_ptr<ImportTarget> MakeRevisionImport(const DataAccessRef& bd) {
  using E = clRevisoes;
  return std::make_unique<EventTarget<E>>(
      bd,
      EventImport<E>{
          .date = "Data",
          .fields = {Text("TipoManut", 10, &E::TipoManut), Money("Km", &E::Km), Money("Custo", &E::Custo)},
          .codes = {{"TipoManut", &E::TipoManut, &NewTable<clTiposManut>, "Tipo Manutenção não existente!"}},
          .table = "zor_PV_Revisoes",
          .id = "Manu_Id",
          .same = {"TipoManut", "Km", "Custo"},
          .total = &TotalWithRevisions});
}

std::unique_ptr<ImportTarget> MakeInspectionImport(const DataAccessRef& bd) {
  using E = clInspecoes;
  return std::make_unique<EventTarget<E>>(
      bd, EventImport<E>{.date = "Data",
                         .fields = {Money("Km", &E::Km), Money("Custo", &E::Custo)},
                         .table = "zor_PV_Inspecoes",
                         .id = "Insp_Id",
                         .same = {"Km", "Custo"},
                         .total = &Tools::SomaCustoSemRevisoes});
}

std::unique_ptr<ImportTarget> MakeFineImport(const DataAccessRef& bd) {
  using E = clMultas;
  return std::make_unique<EventTarget<E>>(
      bd, EventImport<E>{
              .date = "Data",
              .fields = {Text("Motorista", 10, &E::Motorista), Money("ValorMulta", &E::Valor),
                         Flag("Responsabilidade", &E::Responsabilidade)},
              .codes = {{"Motorista", &E::Motorista, &NewTable<clMotoristas>, "Motorista não existente!"}},
              .table = "zor_PV_Multas",
              .id = "Id",
              .same = {"Motorista", "ValorMulta"}});
}

std::unique_ptr<ImportTarget> MakeAccidentImport(const DataAccessRef& bd) {
  using E = clSinistros;
  return std::make_unique<EventTarget<E>>(
      bd, EventImport<E>{
              .date = "Data",
              .fields = {Text("Motorista", 10, &E::Motorista), Text("LocalAc", 50, &E::LocalAc),
                         Flag("Responsavel", &E::Responsavel), Money("Custo", &E::Custo)},
              .codes = {{"Motorista", &E::Motorista, &NewTable<clMotoristas>, "Motorista não existente!"}},
              .table = "zor_PV_Sinistros",
              .id = "Id",
              .same = {"Motorista", "LocalAc", "Custo"}});
}

std::unique_ptr<ImportTarget> MakeAccessoryImport(const DataAccessRef& bd) {
  using E = clAcessorios;
  return std::make_unique<EventTarget<E>>(
      bd,
      EventImport<E>{
          .date = "Data",
          .fields = {Text("TipoAcessorio", 10, &E::TipoAcessorio), Text("Marca", 25, &E::Marca),
                     Text("Modelo", 25, &E::Modelo), Money("Qtd", &E::Qtd), Money("KmInicial", &E::KmInicial),
                     Money("KmFinal", &E::KmFinal), Money("Custo", &E::Custo), Day("DataVal", &E::DataVal)},
          .codes = {{"TipoAcessorio", &E::TipoAcessorio, &NewTable<clTiposAcessorios>,
                     "Tipo Acessório não existente!"}},
          .table = "zor_PV_Acessorios",
          .id = "Id",
          .same = {"TipoAcessorio", "Marca", "Custo"},
          .total = &Tools::SomaCustoSemRevisoes});
}

}  // namespace exchange
