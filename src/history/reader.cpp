#include "history/reader.h"

#include <algorithm>
#include <map>
#include <set>

#include "history/json.h"
#include "history/rows.h"
#include "platform/text.h"

namespace history {
namespace {

using platform::Date;
using platform::Variant;
using zorCrmParvel::RecordsetRef;

constexpr long kSpan = 10000;      // numbers looked at in one go where no index finds what is asked for
constexpr long kTableSpan = 2000;  // and where the rows of one table are
constexpr long kDisorder = 5000;   // how far a clock that went back may have put a moment out of order
constexpr std::size_t kMostNumbers = 200;  // of one statement
constexpr const char* kFields =
    "Id, Momento, Operador, Posto, Texto, Registo, Anula, Tabela FROM parvel_historico WHERE ";
constexpr const char* kHead = "Operacao IS NULL";
constexpr const char* kHeadOfSpan = "ISNULL(Operacao, 0) = 0";  // row after row, not from an index to each

/// The operation that undid each of some, and stands: one that was undone itself did not.
std::map<long, long> UndoneBy(KeepingStore& store, const std::vector<long>& numbers) {
  std::map<long, long> undone;
  std::vector<long> undoings;
  for (const std::string& list : ListsOf(numbers, kMostNumbers)) {
    const RecordsetRef rows =
        OpenRows(store, "SELECT Id, Anula FROM parvel_historico WHERE Anula IN (" + list + ") ORDER BY Id");
    for (; !rows->Eof(); rows->MoveNext()) {
      undoings.push_back(NumberIn(*rows, "Id"));
      undone[NumberIn(*rows, "Anula")] = undoings.back();
    }
  }
  if (undoings.empty()) return undone;
  const std::map<long, long> taken = UndoneBy(store, undoings);
  std::erase_if(undone, [&](const auto& each) { return taken.contains(each.second); });
  return undone;
}

std::vector<Operation> TakeOperations(KeepingStore& store, const RecordsetRef& rows) {
  std::vector<Operation> operations;
  std::vector<long> numbers;
  for (; !rows->Eof(); rows->MoveNext()) {
    Operation operation;
    operation.number = NumberIn(*rows, "Id");
    const Variant moment = rows->Fields("Momento").Value();
    if (!moment.IsNull()) operation.moment = moment.ToDate();
    operation.operador = TextIn(*rows, "Operador");
    operation.posto = TextIn(*rows, "Posto");
    operation.words = TextIn(*rows, "Texto");
    operation.record = TextIn(*rows, "Registo");
    operation.undoes = NumberIn(*rows, "Anula");
    operation.emptied = TextIn(*rows, "Tabela").empty();
    numbers.push_back(operation.number);
    operations.push_back(std::move(operation));
  }
  const std::map<long, long> undone = UndoneBy(store, numbers);
  for (Operation& each : operations)
    if (const auto found = undone.find(each.number); found != undone.end()) each.undoneBy = found->second;
  return operations;
}

const char* ConditionOf(Kind kind) {
  switch (kind) {
    case Kind::kCreation:
      return " AND Antes IS NULL AND Depois IS NOT NULL AND Anula IS NULL";
    case Kind::kChange:
      return " AND Antes IS NOT NULL AND Depois IS NOT NULL AND Anula IS NULL";
    case Kind::kRemoval:
      return " AND Antes IS NOT NULL AND Depois IS NULL AND Anula IS NULL";
    case Kind::kUndoing:
      return " AND Anula IS NOT NULL";
    case Kind::kAny:
      break;
  }
  return "";
}

std::string ConditionOf(const Filter& filter) {
  std::string condition = ConditionOf(filter.kind);
  if (!filter.record.empty()) condition += " AND Registo = " + TextLiteral(filter.record);
  if (!filter.operador.empty()) condition += " AND Operador = " + TextLiteral(filter.operador);
  if (filter.from) condition += " AND Momento >= " + DayLiteral(*filter.from);
  if (filter.to) condition += " AND Momento < " + DayLiteral(filter.to->AddDays(1));
  if (!filter.text.empty()) {
    const std::string pattern = Anywhere(filter.text);
    // The words end with the record.
    condition += " AND (Texto LIKE " + pattern + " OR Operador LIKE " + pattern + ")";
  }
  return condition;
}

bool IsRecord(KeepingStore& store, const std::string& text) {
  return !OpenRows(store, "SELECT TOP 1 Id FROM parvel_historico WHERE Registo = " + TextLiteral(text))
              ->Eof();
}

/// The numbers of the operations of a span that wrote rows of a table. An operation that began below the span
/// draws its floor down to itself.
std::vector<long> WritersOf(KeepingStore& store, const std::string& table, long below, long& floor) {
  for (;;) {
    std::set<long, std::greater<>> heads;
    const RecordsetRef rows =
        OpenRows(store, "SELECT Id, Operacao FROM parvel_historico WHERE Tabela = " + TextLiteral(table) +
                            " AND Id < " + std::to_string(below) + " AND Id >= " + std::to_string(floor));
    for (; !rows->Eof(); rows->MoveNext()) {
      const long head = NumberIn(*rows, "Operacao");
      heads.insert(head == 0 ? NumberIn(*rows, "Id") : head);
    }
    if (heads.empty() || *heads.rbegin() >= floor) return {heads.begin(), heads.end()};
    floor = *heads.rbegin();
  }
}

Slice ReadWriters(KeepingStore& store, const Filter& filter, const std::string& condition, long below) {
  Slice slice;
  long floor = std::max(0L, below - kTableSpan);
  const std::vector<long> numbers = WritersOf(store, filter.table, below, floor);
  const std::string heads = std::string("SELECT ") + kFields + kHead + condition + " AND Id IN (";
  for (const std::string& list : ListsOf(numbers, kMostNumbers)) {
    std::string statement = heads;
    const RecordsetRef rows = OpenRows(store, statement.append(list).append(") ORDER BY Id DESC"));
    for (Operation& each : TakeOperations(store, rows)) slice.operations.push_back(std::move(each));
  }
  slice.next = floor;
  return slice;
}

/// The moment of the first operation from a number on; nothing when there is none.
std::optional<Date> MomentFrom(KeepingStore& store, long number) {
  const RecordsetRef rows = OpenRows(store,
                                     "SELECT TOP 1 Momento FROM parvel_historico WHERE Operacao IS NULL "
                                     "AND Id >= " +
                                         std::to_string(number) + " ORDER BY Id");
  if (rows->Eof() || rows->Fields("Momento").Value().IsNull()) return {};
  return rows->Fields("Momento").Value().ToDate();
}

/// A number that lies above all operations before a moment: numbers grow with time, but for a clock that was
/// put back.
long NumberAbove(KeepingStore& store, Date moment, long newest) {
  long low = 0;
  long high = newest;
  while (low < high) {
    const long middle = low + (high - low) / 2;
    const std::optional<Date> at = MomentFrom(store, middle);
    if (at && *at < moment)
      low = middle + 1;
    else
      high = middle;
  }
  return std::min(newest, low + kDisorder);
}

bool IsBefore(KeepingStore& store, const std::optional<Date>& from, long number) {
  if (!from) return false;
  const std::optional<Date> at = MomentFrom(store, number);
  return at && *at < *from;
}

std::vector<Step> StepsOf(KeepingStore& store, const RecordsetRef& rows) {
  std::vector<Step> steps;
  for (; !rows->Eof(); rows->MoveNext()) {
    Step step;
    step.number = NumberIn(*rows, "Id");
    step.table = store.catalog().Find(TextIn(*rows, "Tabela"));
    if (step.table != nullptr) {
      step.before = ImagesOf(*step.table, TextIn(*rows, "Antes"));
      step.after = ImagesOf(*step.table, TextIn(*rows, "Depois"));
    }
    steps.push_back(std::move(step));
  }
  return steps;
}

constexpr const char* kStep = "SELECT Id, Tabela, Antes, Depois FROM parvel_historico WHERE ";

}  // namespace

std::vector<Image> ImagesOf(const tsql::Table& table, const std::string& json) {
  return json.empty() ? std::vector<Image>() : FromJson(table, json);
}

Slice ReadOperations(KeepingStore& store, const Filter& asked, long below, int most) {
  if (!store.HasHistory()) return {};
  if (below == 0) {
    below = NewestNumber(store) + 1;
    if (asked.to) below = NumberAbove(store, asked.to->AddDays(1), below);
  }
  Filter filter = asked;
  if (filter.record.empty() && !filter.text.empty() && IsRecord(store, filter.text))
    filter.record = std::exchange(filter.text, {});
  const std::string condition = ConditionOf(filter);
  Slice slice;
  if (!filter.table.empty()) {
    slice = ReadWriters(store, filter, condition, below);
  } else {
    const bool indexed = condition.empty() || !filter.record.empty();
    const long floor = indexed ? 0 : std::max(0L, below - kSpan);
    std::string statement = "SELECT TOP " + std::to_string(most) + " " + kFields +
                            (indexed ? kHead : kHeadOfSpan) + condition + " AND Id < " +
                            std::to_string(below);
    if (floor > 0) statement += " AND Id >= " + std::to_string(floor);
    slice.operations = TakeOperations(store, OpenRows(store, statement + " ORDER BY Id DESC"));
    const bool full = slice.operations.size() == static_cast<std::size_t>(most);
    slice.next = full ? slice.operations.back().number : floor;
  }
  if (slice.next > 0 && IsBefore(store, filter.from, slice.next + kDisorder)) slice.next = 0;
  return slice;
}

std::optional<Operation> ReadOperation(KeepingStore& store, long number) {
  const std::vector<Operation> found = ReadOperations(store, std::vector<long>{number});
  return found.empty() ? std::nullopt : std::optional(found.front());
}

std::vector<Operation> ReadOperations(KeepingStore& store, const std::vector<long>& numbers) {
  std::vector<Operation> operations;
  if (!store.HasHistory()) return operations;
  for (const std::string& list : ListsOf(numbers, kMostNumbers))
    for (Operation& each : TakeOperations(
             store, OpenRows(store, std::string("SELECT ") + kFields + kHead + " AND Id IN (" + list + ")")))
      operations.push_back(std::move(each));
  std::sort(operations.begin(), operations.end(),
            [](const Operation& a, const Operation& b) { return a.number > b.number; });
  return operations;
}

std::optional<Operation> LastToUndo(KeepingStore& store) {
  Filter own;
  own.operador = store.who().operador;
  for (const Operation& each : ReadOperations(store, own).operations)
    if (each.posto == store.who().posto && each.undoneBy == 0 && each.undoes == 0 && !each.emptied)
      return each;
  return {};
}

std::vector<Step> ReadSteps(KeepingStore& store, long number) {
  const std::string n = std::to_string(number);
  std::vector<Step> steps = StepsOf(store, OpenRows(store, kStep + ("Id = " + n)));
  for (Step& step : StepsOf(store, OpenRows(store, kStep + ("Operacao = " + n + " ORDER BY Id"))))
    steps.push_back(std::move(step));
  return steps;
}

std::vector<std::string> ReadOperators(KeepingStore& store) {
  std::set<std::string> operators;
  if (store.HasHistory()) {
    const RecordsetRef rows = OpenRows(
        store, "SELECT TOP 2000 Operador FROM parvel_historico WHERE Operacao IS NULL ORDER BY Id DESC");
    for (; !rows->Eof(); rows->MoveNext()) operators.insert(TextIn(*rows, "Operador"));
  }
  operators.erase("");
  return {operators.begin(), operators.end()};
}

}  // namespace history
