// What a list page does with 100,000 expenses: search, filters, sort, groups and the footer, each with the
// columns that it needs read from rows that are at hand; and the window's own columns. Each within 100 ms.

#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "baseline.h"
#include "embedded/database.h"
#include "embedded/storage/functions.h"
#include "lists/footer.h"
#include "lists/host_columns.h"
#include "lists/row_order.h"
#include "platform/host.h"
#include "quiet_host.h"

namespace {

constexpr int kRows = 100000;
constexpr double kLimit = 100;  // ms
constexpr int kSamples = 9;
constexpr const char* kList =
    "SELECT zor_PV_Gastos.Matricula, zor_PV_Marcas.Nome AS Marca, zor_PV_Gastos.Data AS Data, "
    "zor_PV_TiposGastos.Nome as TpGasto, zor_PV_Gastos.Gst_Id as Seg_Id FROM zor_PV_Gastos "
    "LEFT OUTER JOIN zor_PV_Viaturas ON zor_PV_Viaturas.Matricula=zor_PV_Gastos.Matricula "
    "Left outer join zor_PV_Marcas ON zor_PV_Marcas.Codigo = zor_PV_Viaturas.Marca "
    "left outer join zor_PV_TiposGastos ON zor_PV_TiposGastos.Codigo=zor_PV_Gastos.TipoGasto "
    "ORDER BY zor_PV_Gastos.Matricula, Data";
enum Column : std::size_t { kPlate, kMake, kDate, kType, kId, kQuantity, kPrice, kCost };

/// The list's rows with the window's own columns behind them, all at hand.
class Page : public lists::Cells {
 public:
  explicit Page(const zorCrmParvel::DataAccessRef& bd)
      : own_(*lists::HostTableOf("Gastos"), bd, [this](long row) { return Shown(row, kId); }) {
    bd->AbrirLeitura("", kList, rows_);
    while (rows_->FetchMore(kRows)) {
    }
    own_.Reset(kRows);
  }
  long Rows() const override { return kRows; }
  std::size_t ColumnCount() const override { return kQuantity + own_.table().columns.size(); }
  bool IsSearched(std::size_t column) const override { return column != kId && column < kQuantity + 5; }
  platform::Variant Value(long row, std::size_t column) const override {
    if (column >= kQuantity) return own_.Value(row, column - kQuantity);
    return rows_->CellAt(static_cast<std::size_t>(row), column).ToVariant();
  }
  std::string Shown(long row, std::size_t column) const override {
    if (column >= kQuantity) return own_.Shown(row, column - kQuantity);
    return rows_->CellAt(static_cast<std::size_t>(row), column).ToText();
  }
  std::optional<lists::Kind> KindOf(std::size_t column) const override {
    if (column >= kQuantity) return own_.KindOf(column - kQuantity);
    return column == kDate ? std::optional(lists::Kind::kDate) : std::nullopt;
  }
  void ReadOwn() { own_.PrepareAll(); }
  void ReadScreen() {
    std::vector<long> rows;
    for (long row = 0; row < 60; ++row) rows.push_back(row * 1000);
    own_.Prepare(rows);
  }
  void Forget() { own_.Reset(kRows); }

 private:
  zorCrmParvel::RecordsetRef rows_;
  mutable lists::HostCells own_;
};

void Fill(const std::string& file) {
  const bench::ConnectionPtr connection = bench::Connect(file);
  embedded::RegisterFunctions(connection.get());
  const std::string sql =
      "BEGIN; INSERT INTO zor_PV_Marcas (Codigo, Nome) VALUES ('REN','Renault'), ('CIT','Citroën');"
      "INSERT INTO zor_PV_TiposGastos (Codigo, Nome, Combustivel) VALUES ('GASOLEO','Gasóleo',1), "
      "('PORTAGEM','Portagens',0), ('LAVAGEM','Lavagem',0);"
      "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<499) INSERT INTO zor_PV_Viaturas "
      "(Matricula, Marca) SELECT printf('%02d-AB-%02d', i/100, i%100), CASE i%2 WHEN 0 THEN 'REN' ELSE 'CIT' "
      "END "
      "FROM n;"
      "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<99999) INSERT INTO zor_PV_Gastos "
      "(Matricula, Data, TipoGasto, Qtd, ValorUn, Custo, Km) SELECT printf('%02d-AB-%02d', i%500/100, "
      "i%100), "
      "3900000000 + (i*7919%100000)*1200, CASE i%3 WHEN 0 THEN 'GASOLEO' WHEN 1 THEN 'PORTAGEM' ELSE "
      "'LAVAGEM' END, "
      "i*7%600000, 16590, i*131%990000, i*10000 FROM n; COMMIT; ANALYZE";
  bench::Require(sqlite3_exec(connection.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK);
}

/// The median of some runs, each on an order that has read nothing yet.
double Median(const Page& page, const std::function<void(lists::RowOrder&)>& prepare,
              const std::function<void(lists::RowOrder&)>& run) {
  std::vector<double> times;
  for (int i = 0; i < kSamples; ++i) {
    lists::RowOrder order(page);
    prepare(order);
    const auto begin = std::chrono::steady_clock::now();
    run(order);
    times.push_back(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

}  // namespace

int main() {
  bench::QuietHost host;
  bench::Folder folder("parvel-bench-list-pages");
  const auto database = embedded::Database::Open(folder.File());
  Fill(folder.File());
  Page page{zorCrmParvel::DataAccessRef(database)};
  bool passed = true;
  const auto tell = [&passed](const char* what, double ms, bool limited) {
    std::printf("%-58s %7.1f ms\n", what, ms);
    passed = passed && (!limited || ms < kLimit);
  };
  const auto nothing = [](lists::RowOrder&) {};
  const auto own = [&](const char* what, const std::function<void()>& run, bool limited) {
    tell(what,
         Median(
             page, [&](lists::RowOrder&) { page.Forget(); }, [&](lists::RowOrder&) { run(); }),
         limited);
  };
  own(
      "own columns of 60 rows in view", [&] { page.ReadScreen(); }, true);
  own(
      "own columns of all rows", [&] { page.ReadOwn(); }, false);
  using lists::SortBy;
  using lists::SortDirection;
  const std::pair<const char*, std::function<void(lists::RowOrder&)>> first[] = {
      {"search for a word, nothing read yet", [](auto& order) { order.Search("gasoleo"); }},
      {"search for digits, nothing read yet", [](auto& order) { order.Search("2024"); }},
      {"filter of dates", [](auto& order) { order.Filter(kDate, "este ano"); }},
      {"filter of numbers, own column", [](auto& order) { order.Filter(kCost, "> 50"); }},
      {"filter of texts", [](auto& order) { order.Filter(kType, "port"); }},
      {"sort by dates",
       [](auto& order) {
         order.Sort(SortBy{kDate, SortDirection::kDescending});
       }},
      {"sort by numbers, own column",
       [](auto& order) {
         order.Sort(SortBy{kCost, SortDirection::kAscending});
       }},
      {"sort by texts",
       [](auto& order) {
         order.Sort(SortBy{kPlate, SortDirection::kAscending});
       }},
      {"group by texts", [](auto& order) { order.GroupBy(kPlate); }},
      {"group by months", [](auto& order) { order.GroupBy(kDate); }},
      {"footer of two columns",
       [](auto& order) {
         lists::FooterText(order,
                           {{kQuantity, "Qtd.", "0", lists::Summed::kSumAndMean},
                            {kCost, "Custo", "0", lists::Summed::kSumAndMean}},
                           order.Rows());
       }},
  };
  for (const auto& [what, run] : first) tell(what, Median(page, nothing, run), true);
  return passed ? 0 : 1;
}
