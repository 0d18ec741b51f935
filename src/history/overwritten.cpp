#include "history/overwritten.h"

#include <algorithm>
#include <map>
#include <set>

#include "history/act.h"
#include "history/figures.h"
#include "history/rows.h"

namespace history {
namespace {

/// A value of a row: table, folded key, column.
using Place = std::tuple<const tsql::Table*, std::string, std::size_t>;

/// The values that a step stored: of a row that was changed those that differ, of a new one all.
template <typename Visit>
void EachStored(const Step& step, const Visit& visit) {
  if (step.table == nullptr) return;
  for (std::size_t row = 0; row < step.after.size(); ++row) {
    const Image& key = row < step.before.size() ? step.before[row] : step.after[row];
    for (std::size_t i = 0; i < step.after[row].size(); ++i)
      if (step.after[row][i] && !HoldsBytes(step.table->columns[i]) &&
          !IsFigure(*step.table, step.table->columns[i]))
        visit(Place(step.table, FoldedKey(*step.table, key), i), row);
  }
}

/// The values that others changed between two numbers, and the operations that did.
std::map<Place, long> ChangedByOthers(KeepingStore& store, long since, long until) {
  std::map<Place, long> changed;
  const auto rows =
      OpenRows(store, "SELECT Id, Operacao, Tabela, Antes, Depois FROM parvel_historico WHERE Id > " +
                          std::to_string(since) + " AND Id < " + std::to_string(until) + " ORDER BY Id");
  for (; !rows->Eof(); rows->MoveNext()) {
    const long head = NumberIn(*rows, "Operacao");
    const long operation = head == 0 ? NumberIn(*rows, "Id") : head;
    Step step;
    step.table = store.catalog().Find(TextIn(*rows, "Tabela"));
    if (step.table == nullptr || store.IsOwn(operation)) continue;
    step.before = ImagesOf(*step.table, TextIn(*rows, "Antes"));
    step.after = ImagesOf(*step.table, TextIn(*rows, "Depois"));
    EachStored(step, [&](const Place& place, std::size_t) { changed[place] = operation; });
  }
  rows->Close();
  return changed;
}

}  // namespace

std::vector<Overwritten> OverwrittenBy(KeepingStore& store, long operation, long since) {
  std::vector<Overwritten> overwritten;
  const std::map<Place, long> theirs = ChangedByOthers(store, since, operation);
  if (theirs.empty()) return overwritten;
  std::set<long> others;
  for (const Step& step : ReadSteps(store, operation))
    EachStored(step, [&](const Place& place, std::size_t row) {
      const auto found = theirs.find(place);
      const std::size_t column = std::get<2>(place);
      if (found == theirs.end() || row >= step.before.size() || !step.before[row][column]) return;
      Overwritten value{
          step.table, step.before[row], column, *step.before[row][column], *step.after[row][column], {}};
      value.by.number = found->second;
      others.insert(found->second);
      overwritten.push_back(std::move(value));
    });
  for (const Operation& each : ReadOperations(store, std::vector<long>(others.begin(), others.end())))
    for (Overwritten& value : overwritten)
      if (value.by.number == each.number) value.by = each;
  return overwritten;
}

void PutBack(KeepingStore& store, const Overwritten& value) {
  const tsql::Table& table = *value.table;
  const std::string& column = table.columns[value.column].name;
  Act(&store, "Repor o valor de " + value.by.operador + ": " + column, [&] {
    zorCrmParvel::RecordsetRef rows;
    store.AbrirEdicao(
        ("SELECT * FROM " + Bracketed(table.name) + " WHERE " + KeyCondition(table, value.row)).c_str(),
        rows);
    if (!rows->Eof()) {
      rows->Fields(column).SetValue(value.theirs);
      rows->Update();
    }
    rows->Close();
  });
}

}  // namespace history
