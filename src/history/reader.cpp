#include "history/reader.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace history {
namespace {

using platform::Date;
using platform::Variant;
using zorCrmParvel::fixed;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::value;

constexpr long kFirstSpan = 2000;  // numbers looked at in one go for a text
constexpr const char* kHead =
    "Id, Momento, Operador, Posto, Texto, Registo, Anula FROM parvel_historico WHERE Operacao IS NULL";

RecordsetRef Open(KeepingStore& store, const std::string& statement) {
  RecordsetRef rows;
  store.inner()->AbrirLeitura("", statement.c_str(), rows);
  return rows;
}

std::string Text(platform::Recordset& rows, const char* column) {
  const Variant value = rows.Fields(column).Value();
  return value.IsNull() ? std::string() : value.ToText();
}

long Number(platform::Recordset& rows, const char* column) {
  const Variant value = rows.Fields(column).Value();
  return value.IsNull() ? 0 : value.ToLong();
}

/// The operation that undid another and stands: one that was undone itself did not.
long UndoneBy(KeepingStore& store, long number) {
  const RecordsetRef rows =
      Open(store, "SELECT TOP 1 Id FROM parvel_historico WHERE Anula = " + std::to_string(number) +
                      " ORDER BY Id DESC");
  if (rows->Eof()) return 0;
  const long undo = Number(*rows, "Id");
  return UndoneBy(store, undo) == 0 ? undo : 0;
}

Operation OperationOf(KeepingStore& store, platform::Recordset& rows) {
  Operation operation;
  operation.number = Number(rows, "Id");
  const Variant moment = rows.Fields("Momento").Value();
  if (!moment.IsNull()) operation.moment = moment.ToDate();
  operation.operador = Text(rows, "Operador");
  operation.posto = Text(rows, "Posto");
  operation.words = Text(rows, "Texto");
  operation.record = Text(rows, "Registo");
  operation.undoes = Number(rows, "Anula");
  operation.undoneBy = UndoneBy(store, operation.number);
  return operation;
}

std::string Quoted(const std::string& text) {
  std::string literal = "N'";
  for (const char c : text) literal += c == '\'' ? std::string("''") : std::string(1, c);
  return literal + "'";
}

/// As a pattern takes it: what stands for other characters stands for itself.
std::string Anywhere(const std::string& text) {
  std::string pattern = "%";
  for (const char c : text)
    pattern += c == '%' || c == '_' || c == '[' ? std::string("[") + c + "]" : std::string(1, c);
  return Quoted(pattern + "%");
}

std::string Condition(const Filter& filter) {
  std::string condition;
  if (!filter.record.empty()) condition += " AND Registo = " + Quoted(filter.record);
  if (!filter.operador.empty()) condition += " AND Operador = " + Quoted(filter.operador);
  const auto day = [](Date date) {
    return "'" + std::to_string(date.year()) + "-" + platform::Padded(date.month(), 2) + "-" +
           platform::Padded(date.day(), 2) + "'";
  };
  if (filter.from) condition += " AND Momento >= " + day(*filter.from);
  if (filter.to) condition += " AND Momento < " + day(filter.to->AddDays(1));
  if (!filter.text.empty()) {
    const std::string pattern = Anywhere(filter.text);
    condition +=
        " AND (Texto LIKE " + pattern + " OR Registo LIKE " + pattern + " OR Operador LIKE " + pattern + ")";
  }
  return condition;
}

std::vector<Image> Images(const tsql::Table& table, const std::string& json) {
  return json.empty() ? std::vector<Image>() : FromJson(table, json);
}

std::vector<Step> StepsOf(KeepingStore& store, const RecordsetRef& rows) {
  std::vector<Step> steps;
  for (; !rows->Eof(); rows->MoveNext()) {
    Step step;
    step.number = Number(*rows, "Id");
    step.table = store.catalog().Find(Text(*rows, "Tabela"));
    if (step.table != nullptr) {
      step.before = Images(*step.table, Text(*rows, "Antes"));
      step.after = Images(*step.table, Text(*rows, "Depois"));
    }
    steps.push_back(std::move(step));
  }
  return steps;
}

constexpr const char* kStep = "SELECT Id, Tabela, Antes, Depois FROM parvel_historico WHERE ";

}  // namespace

Slice ReadOperations(KeepingStore& store, const Filter& filter, long below, int most) {
  Slice slice;
  if (!store.Keeps()) return slice;
  const std::string condition = Condition(filter);
  const std::string top = "SELECT TOP " + std::to_string(most) + " ";
  if (below == 0) {
    const RecordsetRef last = Open(store, "SELECT TOP 1 Id FROM parvel_historico ORDER BY Id DESC");
    if (last->Eof()) return slice;
    below = Number(*last, "Id") + 1;
  }
  // What no index finds is looked for in a span, so that the page never waits for the whole history.
  const bool everywhere = condition.empty() || !filter.record.empty();
  const long floor = everywhere ? 0 : std::max(0L, below - kFirstSpan * 10);
  std::string statement = top + kHead + condition + " AND Id < " + std::to_string(below);
  if (floor > 0) statement += " AND Id >= " + std::to_string(floor);
  const RecordsetRef rows = Open(store, statement + " ORDER BY Id DESC");
  for (; !rows->Eof(); rows->MoveNext()) slice.operations.push_back(OperationOf(store, *rows));
  const bool full = slice.operations.size() == static_cast<std::size_t>(most);
  slice.next = full ? slice.operations.back().number : floor;
  return slice;
}

std::optional<Operation> ReadOperation(KeepingStore& store, long number) {
  if (!store.Keeps()) return {};
  const RecordsetRef rows =
      Open(store, std::string("SELECT ") + kHead + " AND Id = " + std::to_string(number));
  if (rows->Eof()) return {};
  return OperationOf(store, *rows);
}

std::optional<Operation> LastToUndo(KeepingStore& store) {
  Filter own;
  own.operador = store.who().operador;
  for (const Operation& each : ReadOperations(store, own).operations)
    if (each.posto == store.who().posto && each.undoneBy == 0 && each.undoes == 0) return each;
  return {};
}

std::vector<Step> ReadSteps(KeepingStore& store, long number) {
  const std::string n = std::to_string(number);
  std::vector<Step> steps = StepsOf(store, Open(store, kStep + ("Id = " + n)));
  for (Step& step : StepsOf(store, Open(store, kStep + ("Operacao = " + n + " ORDER BY Id"))))
    steps.push_back(std::move(step));
  return steps;
}

std::string Shown(const tsql::Column& column, const Variant& value) {
  if (value.IsNull()) return "(vazio)";
  if (HoldsBytes(column)) return "(conteúdo)";
  const std::string text = value.ToText();
  return text.empty() ? "(vazio)" : text;
}

std::vector<std::string> Describe(const tsql::Table& table, const Image* before, const Image* after) {
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const tsql::Column& column = table.columns[i];
    const auto* was = before != nullptr && (*before)[i] ? &*(*before)[i] : nullptr;
    const auto* is = after != nullptr && (*after)[i] ? &*(*after)[i] : nullptr;
    if (before != nullptr && after != nullptr) {
      if (is == nullptr || was == nullptr || SameValue(column, *was, *is)) continue;
      lines.push_back(column.name + ": " + Shown(column, *was) + " → " + Shown(column, *is));
    } else if (const auto* only = is != nullptr ? is : was; only != nullptr && !only->IsNull()) {
      lines.push_back(column.name + ": " + Shown(column, *only));
    }
  }
  return lines;
}

namespace {

/// What a step did to the row with a key; nothing when it did nothing to it.
std::optional<std::string> WordsAbout(const Step& step, const std::string& key) {
  const tsql::Table& table = *step.table;
  const auto find = [&](const std::vector<Image>& images) -> const Image* {
    for (const Image& image : images)
      if (platform::EqualsIgnoringCase(KeyText(table, image), key)) return &image;
    return nullptr;
  };
  const Image* before = find(step.before);
  // The columns that a change left behind have no key: they belong to the row before.
  const Image* after = before != nullptr && !step.after.empty() ? &step.after.front()
                       : step.before.empty()                    ? find(step.after)
                                                                : nullptr;
  if (before == nullptr && after == nullptr) return {};
  std::string words = before == nullptr ? "Criado: " : after == nullptr ? "Removido: " : "";
  bool first = true;
  for (const std::string& line : Describe(table, before, after)) {
    words += (first ? "" : "; ") + line;
    first = false;
  }
  return words;
}

}  // namespace

std::vector<Change> ReadLife(KeepingStore& store, const tsql::Table& table, const std::string& key) {
  std::vector<Change> life;
  if (!store.Keeps()) return life;
  const RecordsetRef rows =
      Open(store, "SELECT Id, Operacao, Tabela, Antes, Depois FROM parvel_historico WHERE Tabela = " +
                      Quoted(table.name) + " AND Chave IN (" + Quoted(key) + ", '*') ORDER BY Id DESC");
  for (; !rows->Eof(); rows->MoveNext()) {
    Step step;
    step.table = &table;
    step.before = Images(table, Text(*rows, "Antes"));
    step.after = Images(table, Text(*rows, "Depois"));
    const auto words = WordsAbout(step, key);
    if (!words) continue;
    const long head = Number(*rows, "Operacao");
    const auto operation = ReadOperation(store, head == 0 ? Number(*rows, "Id") : head);
    if (operation) life.push_back({*operation, *words});
  }
  return life;
}

}  // namespace history
