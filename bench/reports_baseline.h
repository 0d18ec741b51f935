#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "baseline.h"
#include "reports/periodo.h"

/// What a report computes, made of rows that are stepped on SQLite's own interface: the least that a program
/// has to do which knows nothing of the odd cases.
namespace bench {

constexpr int kVehicles = 2000;
constexpr std::int64_t kDay = 86400;

/// One event as the figures need it. Amounts in ten-thousandths, dates in seconds.
struct Row {
  std::int64_t date = 0, km = 0, amount = 0, price = 0, cost = 0;
  int vehicle = 0, id = 0, type = -1, driver = -1;
};

class ReportsBaseline {
 public:
  explicit ReportsBaseline(sqlite3* connection) : connection_(connection) {
    Codes("SELECT Matricula FROM zor_PV_Viaturas", vehicles_);
    Codes("SELECT Codigo FROM zor_PV_TiposGastos", types_);
    Codes("SELECT Codigo FROM zor_Funcionarios", drivers_);
  }

  /// Costs by vehicle and month: `Custos`, and by the quantity of fills `Emissoes`.
  void Months(const reports::Periodo& period, const reports::Periodo& policies, bool quantities) {
    const std::size_t months = MonthOf(period.ate * kDay, period) + 1;
    std::vector<std::int64_t> cells(kVehicles * months);
    for (const Table& table : Tables())
      if (!quantities || table.fills)
        Step(table, table.policies ? policies : period, [&](const Row& row) {
          if (row.date >= period.de * kDay && row.date < (period.ate + 1) * kDay)
            cells[static_cast<std::size_t>(row.vehicle) * months + MonthOf(row.date, period)] +=
                quantities ? row.amount * 2 : row.cost;
        });
    Taken(cells);
  }

  /// All rows of the fills and of the others, by vehicle and in order.
  const std::vector<std::vector<Row>>& Gather(const reports::Periodo& fills, const reports::Periodo* others) {
    for (auto& rows : gathered_) rows.clear();
    gathered_.resize(kVehicles);
    for (const Table& table : Tables()) {
      if (!table.fills && others == nullptr) continue;
      Step(table, table.fills ? fills : *others,
           [&](const Row& row) { gathered_[static_cast<std::size_t>(row.vehicle)].push_back(row); });
    }
    for (auto& rows : gathered_)
      std::sort(rows.begin(), rows.end(),
                [](const Row& a, const Row& b) { return a.date != b.date ? a.date < b.date : a.id < b.id; });
    return gathered_;
  }

  /// Quantity, distance and cost of each vehicle and type: `Consumos`; with the kilometres of each month
  /// `Quilometros`, with running sums `Movimentos`.
  void Follow(const std::vector<std::vector<Row>>& vehicles, const reports::Periodo& period) {
    std::vector<std::int64_t> figures;
    for (const auto& rows : vehicles) {
      std::array<std::int64_t, 4> first{}, last{}, amount{};
      std::int64_t cost = 0;
      for (const Row& row : rows) {
        figures.push_back(cost += row.cost);
        if (row.type < 0 || row.km == 0) continue;
        const auto type = static_cast<std::size_t>(row.type);
        if (first[type] == 0) first[type] = row.km;
        last[type] = std::max(last[type], row.km);
        amount[type] += row.amount;
        figures.push_back(static_cast<std::int64_t>(MonthOf(row.date, period)));
      }
      for (std::size_t i = 0; i < 4; ++i)
        if (last[i] != first[i]) figures.push_back(amount[i] * 100 / (last[i] - first[i]));
    }
    Taken(figures);
  }

  /// Fills against the median of those before, prices against that of their month, equal rows: `Excepcoes`.
  void Find(const std::vector<std::vector<Row>>& vehicles, const reports::Periodo& period) {
    std::map<std::pair<std::size_t, int>, std::vector<std::int64_t>> prices;
    std::int64_t found = 0;
    for (const auto& rows : vehicles) {
      std::map<int, std::vector<std::int64_t>> before;
      std::map<int, std::int64_t> km;
      for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        for (std::size_t j = i; j-- > 0 && rows[j].date == row.date;)
          if (rows[j].type == row.type && rows[j].cost == row.cost) ++found;
        if (row.type < 0 || row.km == 0) continue;
        prices[{MonthOf(row.date, period), row.type}].push_back(row.price);
        auto& windows = before[row.type];
        const std::int64_t use = row.amount * 100 / std::max<std::int64_t>(1, row.km - km[row.type]);
        if (windows.size() > 4 && use * 3 > windows[windows.size() / 2] * 4) ++found;
        windows.insert(std::upper_bound(windows.begin(), windows.end(), use), use);
        km[row.type] = row.km;
      }
    }
    for (auto& [month, values] : prices)
      std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                       values.end());
    Require(found >= 0);
  }

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  using Numbers = std::unordered_map<std::string, int, Hash, std::equal_to<>>;

  struct Table {
    const char* name;
    const char* columns;
    const char* date;
    bool fills = false;
    bool policies = false;
  };

  static const std::vector<Table>& Tables() {
    static const std::vector<Table> kTables = {
        {"zor_PV_Gastos", "Gst_Id, Custo, Motorista, Km, Qtd, ValorUn, TipoGasto", "Data", true},
        {"zor_PV_Revisoes", "Manu_Id, Custo, NULL, Km", "Data"},
        {"zor_PV_Inspecoes", "Insp_Id, Custo", "Data"},
        {"zor_PV_Acessorios", "Id, Custo", "Data"},
        {"zor_PV_Multas", "Id, ValorMulta, Motorista", "Data"},
        {"zor_PV_Sinistros", "Id, Custo, Motorista", "Data"},
        {"zor_PV_Seguros", "Seg_Id, Premio", "DataInicio", false, true},
    };
    return kTables;
  }

  void Codes(const char* sql, Numbers& numbers) {
    const StatementPtr statement = Prepare(connection_, sql);
    while (sqlite3_step(statement.get()) == SQLITE_ROW)
      numbers.emplace(Text(statement.get(), 0), static_cast<int>(numbers.size()));
  }

  static std::string_view Text(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text == nullptr
               ? std::string_view()
               : std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
  }

  static int In(const Numbers& numbers, std::string_view code) {
    const auto found = numbers.find(code);
    return found == numbers.end() ? -1 : found->second;
  }

  template <typename Take>
  void Step(const Table& table, const reports::Periodo& period, const Take& take) {
    const std::string sql = std::string("SELECT Matricula, ") + table.date + ", " + table.columns + " FROM " +
                            table.name + " WHERE " + table.date + " >= " + std::to_string(period.de * kDay) +
                            " AND " + table.date + " < " + std::to_string((period.ate + 1) * kDay);
    const StatementPtr statement = Prepare(connection_, sql.c_str());
    sqlite3_stmt* const s = statement.get();
    const int columns = sqlite3_column_count(s);
    while (sqlite3_step(s) == SQLITE_ROW) {
      Row row;
      row.vehicle = In(vehicles_, Text(s, 0));
      row.date = sqlite3_column_int64(s, 1);
      row.id = sqlite3_column_int(s, 2);
      row.cost = sqlite3_column_int64(s, 3);
      if (columns > 4) row.driver = In(drivers_, Text(s, 4));
      if (columns > 5) row.km = sqlite3_column_int64(s, 5);
      if (columns > 6) row.amount = sqlite3_column_int64(s, 6);
      if (columns > 7) row.price = sqlite3_column_int64(s, 7);
      if (columns > 8) row.type = In(types_, Text(s, 8));
      take(row);
    }
  }

  /// Months from the first of the period, roughly: all that a cell needs.
  static std::size_t MonthOf(std::int64_t seconds, const reports::Periodo& period) {
    return static_cast<std::size_t>(std::max<std::int64_t>(0, seconds / kDay - period.de) * 12 / 366);
  }

  static void Taken(const std::vector<std::int64_t>& figures) {
    std::int64_t sum = 0;
    for (const std::int64_t figure : figures) sum += figure & 1;
    Require(sum >= 0);
  }

  sqlite3* connection_;
  Numbers vehicles_, types_, drivers_;
  std::vector<std::vector<Row>> gathered_;
};

}  // namespace bench
