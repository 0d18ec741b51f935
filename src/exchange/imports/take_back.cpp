#include "exchange/imports/take_back.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <stdexcept>
#include <unordered_map>

#include "drivers/motoristas.h"
#include "events/cost_sums.h"
#include "events/expense_figures.h"
#include "exchange/imports/row_mark.h"
#include "exchange/imports/stored_rows.h"
#include "exchange/profile/import_kinds.h"
#include "host/row.h"
#include "host/tools.h"
#include "platform/format.h"
#include "platform/host.h"
#include "vehicles/viaturas.h"

namespace exchange {
namespace {

using namespace zorCrmParvel;

constexpr std::string_view kVehicles = "zor_PV_Viaturas";
constexpr std::string_view kDrivers = "zor_Funcionarios";

/// Where a key of a table stands in others' rows.
struct Use {
  std::string_view table;
  const char* by;
  const char* column;
};
constexpr std::array kUses = {Use{kVehicles, "zor_PV_Gastos", "Matricula"},
                              Use{kVehicles, "zor_PV_Seguros", "Matricula"},
                              Use{kVehicles, "zor_PV_Revisoes", "Matricula"},
                              Use{kVehicles, "zor_PV_Inspecoes", "Matricula"},
                              Use{kVehicles, "zor_PV_Multas", "Matricula"},
                              Use{kVehicles, "zor_PV_Sinistros", "Matricula"},
                              Use{kVehicles, "zor_PV_Acessorios", "Matricula"},
                              Use{kDrivers, "zor_CartasCond", "Motorista"},
                              Use{kDrivers, "zor_PV_Gastos", "Motorista"},
                              Use{kDrivers, "zor_PV_Multas", "Motorista"},
                              Use{kDrivers, "zor_PV_Sinistros", "Motorista"},
                              Use{"zor_PV_Marcas", "zor_PV_Viaturas", "Marca"},
                              Use{"zor_PV_Modelos", "zor_PV_Viaturas", "Modelo"},
                              Use{"zor_PV_Categorias", "zor_PV_Viaturas", "Categoria"},
                              Use{"zor_PV_Departamentos", "zor_PV_Viaturas", "Departamento"},
                              Use{"zor_PV_Companhias", "zor_PV_Viaturas", "CompLeasing"},
                              Use{"zor_PV_Companhias", "zor_PV_Seguros", "Companhia"},
                              Use{"zor_PV_TiposSeguro", "zor_PV_Seguros", "TipoSeguro"},
                              Use{"zor_PV_TiposManut", "zor_PV_Revisoes", "TipoManut"},
                              Use{"zor_PV_TiposAcessorios", "zor_PV_Acessorios", "TipoAcessorio"},
                              Use{"zor_PV_TiposGastos", "zor_PV_Gastos", "TipoGasto"},
                              Use{"zor_PV_Viagens", "zor_PV_Gastos", "Viagem"}};

class TakingBack {
 public:
  TakingBack(DataAccessRef bd, long number) : bd_(std::move(bd)), number_(number) {}

  TakenBack Run() {
    ReadRows();
    ReadEvents();
    for (auto row = rows_.rbegin(); row != rows_.rend(); ++row)
      if (!NumberedKeyOf(row->table).empty()) TakeEvent(*row);
    for (auto row = rows_.rbegin(); row != rows_.rend(); ++row)
      if (NumberedKeyOf(row->table).empty()) TakeRecord(*row);
    for (const auto& [plate, figures] : touched_) Recompute(plate, figures);
    bd_->ExecutarSql(
        "", {"DELETE FROM parvel_importacoes_linhas WHERE Importacao=", value(std::int64_t{number_})});
    bd_->ExecutarSql("", {"UPDATE parvel_importacoes SET Anulada='",
                          value(platform::FormatDate(platform::Host::Current().Now(), "yyyy.mm.dd hh:mm:ss")),
                          "' WHERE Numero=", value(std::int64_t{number_})});
    return std::move(result_);
  }

 private:
  void ReadRows() {
    RecordsetRef rows;
    bd_->AbrirLeitura("",
                      {"SELECT * FROM parvel_importacoes_linhas WHERE Importacao=",
                       value(std::int64_t{number_}), " ORDER BY Ordem"},
                      rows);
    for (; !rows->Eof(); rows->MoveNext()) {
      const Row row(*rows);
      rows_.push_back({.line = row.number("Linha"),
                       .table = row.text("Tabela"),
                       .key = row.text("Chave"),
                       .mark = row.text("Marca"),
                       .transaction = {}});
    }
    rows->Close();
  }

  void Keep(const ImportedRow& row, const char* why) {
    result_.kept.push_back({.table = row.table, .key = row.key, .line = row.line, .why = why});
  }

  /// Events, of one kind in an import, were stored one after the other, so that one statement reads all.
  void ReadEvents() {
    const auto event = std::find_if(rows_.begin(), rows_.end(),
                                    [](const ImportedRow& row) { return !NumberedKeyOf(row.table).empty(); });
    if (event == rows_.end()) return;
    const std::string& table = event->table;
    const std::string id = NumberedKeyOf(table);
    std::int64_t first = INT32_MAX;
    std::int64_t last = 0;
    for (const ImportedRow& row : rows_) {
      if (row.table != table) continue;
      first = std::min<std::int64_t>(first, std::stoll(row.key));
      last = std::max<std::int64_t>(last, std::stoll(row.key));
    }
    RecordsetRef rows;
    bd_->AbrirLeitura("",
                      {"SELECT * FROM ", fixed(table), " WHERE ", fixed(id), ">=", value(first), " and ",
                       fixed(id), "<=", value(last)},
                      rows);
    for (; !rows->Eof(); rows->MoveNext())
      events_[rows->Fields(id).Value().ToLong()] = {MarkOf(*rows, id), Row(*rows).textOrEmpty("Matricula")};
    rows->Close();
  }

  void TakeEvent(const ImportedRow& row) {
    const auto event = events_.find(static_cast<std::int32_t>(std::stol(row.key)));
    if (event == events_.end()) {
      ++result_.gone;
      return;
    }
    const auto& [mark, plate] = event->second;
    if (mark != row.mark) return Keep(row, "foi alterada depois de importada");
    bd_->ExecutarSql("", RowByKey("DELETE", row.table, row.key));
    ++result_.removed;
    for (const ImportKind& kind : ImportKinds())
      if (row.table == kind.table && kind.figures != Figures::kNone) touched_[plate] = kind.figures;
  }

  void TakeRecord(const ImportedRow& row) {
    RecordsetRef rows;
    bd_->AbrirLeitura("", RowByKey("SELECT *", row.table, row.key), rows);
    const bool gone = rows->Eof();
    const bool changed = !gone && MarkOf(*rows, "") != row.mark;
    rows->Close();
    if (gone) {
      ++result_.gone;
      return;
    }
    if (changed) return Keep(row, "foi alterada depois de importada");
    for (const Use& use : kUses)
      if (row.table == use.table && IsUsed(use, row.key)) return Keep(row, "está em uso");
    Remove(row);
    ++result_.removed;
  }

  bool IsUsed(const Use& use, const std::string& key) {
    RecordsetRef rows;
    bd_->AbrirLeitura("",
                      {"SELECT TOP 1 ", fixed(use.column), " FROM ", fixed(use.by), " WHERE ",
                       fixed(use.column), "=N'", value(key), "'"},
                      rows);
    const bool used = !rows->Eof();
    rows->Close();
    return used;
  }

  /// Vehicles and drivers go with what hangs on them, as on their fichas.
  void Remove(const ImportedRow& row) {
    if (row.table == kVehicles) {
      clViaturas vehicle;
      vehicle.bd = bd_;
      vehicle.Matricula = row.key;
      vehicle.Anular();
    } else if (row.table == kDrivers) {
      clMotoristas driver;
      driver.bd = bd_;
      driver.Codigo = row.key;
      driver.Anular();
    } else {
      bd_->ExecutarSql("", RowByKey("DELETE", row.table, row.key));
    }
  }

  /// As a save on the ficha does; a vehicle without any fill left is back at its initial kilometres.
  void Recompute(const std::string& plate, Figures figures) {
    clViaturas vehicle;
    vehicle.bd = bd_;
    vehicle.Matricula = plate;
    if (!vehicle.Ler()) return;
    if (figures == Figures::kExpenses) {
      RecalcularViatura(bd_, plate);
      vehicle.Ler();
      if (vehicle.KmActual < vehicle.KmInicial) vehicle.KmActual = vehicle.KmInicial;
      vehicle.Escrever();
    } else {
      GuardarCustoTotal(bd_, plate,
                        figures == Figures::kCosts ? Tools::SomaCustoSemRevisoes(bd_, plate)
                                                   : Tools::SomaCustoComRevisoes(bd_, plate));
    }
  }

  DataAccessRef bd_;
  long number_;
  std::vector<ImportedRow> rows_;
  std::unordered_map<std::int32_t, std::pair<std::string, std::string>> events_;  // mark and plate, by number
  std::map<std::string, Figures> touched_;
  TakenBack result_;
};

}  // namespace

TakenBack TakeBackImport(const platform::Ref<Store>& bd, long number,
                         const std::function<void()>& beforeCommit) {
  const auto imports = ListImports(bd);
  const auto found = std::find_if(imports.begin(), imports.end(),
                                  [&](const ImportEntry& entry) { return entry.number == number; });
  if (found == imports.end())
    throw std::runtime_error("Não há a importação " + std::to_string(number) +
                             ". Veja «parvel importacoes».");
  if (found->takenBack)
    throw std::runtime_error("A importação " + std::to_string(number) + " já foi anulada, em " +
                             found->takenBack->ToText() + ".");
  LargeBatch batch(*bd);
  TakenBack result = TakingBack(bd, number).Run();
  if (beforeCommit) beforeCommit();
  batch.Commit();
  return result;
}

}  // namespace exchange
