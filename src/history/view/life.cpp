#include "history/view/life.h"

#include <algorithm>
#include <map>
#include <optional>

#include "history/rows.h"
#include "platform/text.h"

namespace history {
namespace {

using platform::Variant;

/// Thousands parted by blanks: "10 500,5".
std::string Grouped(std::string number) {
  const std::size_t begin = number.starts_with('-') ? 1 : 0;
  std::size_t end = std::min(number.find_first_not_of("0123456789", begin), number.size());
  for (; end > begin + 3; end -= 3) number.insert(end - 3, 1, ' ');
  return number;
}

}  // namespace

std::string Shown(const tsql::Column& column, const Variant& value) {
  if (value.IsNull()) return "(vazio)";
  if (HoldsBytes(column)) return "(conteúdo)";
  const std::string text =
      column.type.base == tsql::BaseType::kMoney ? Grouped(value.ToText()) : value.ToText();
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
      const std::string from = Shown(column, *was);
      const std::string to = Shown(column, *is);
      if (from != to || HoldsBytes(column))
        lines.push_back(std::string(column.name).append(": ").append(from).append(" → ").append(to));
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
  const auto find = [&](const std::vector<Image>& images) {
    return static_cast<std::size_t>(
        std::find_if(
            images.begin(), images.end(),
            [&](const Image& image) { return platform::EqualsIgnoringCase(KeyText(table, image), key); }) -
        images.begin());
  };
  // The columns that a change left behind have no key: they stand beside the row before.
  const std::size_t place = find(step.before.empty() ? step.after : step.before);
  const Image* before = place < step.before.size() ? &step.before[place] : nullptr;
  const Image* after = place < step.after.size() ? &step.after[place] : nullptr;
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

std::vector<Change> ReadLife(KeepingStore& store, const tsql::Table& table, const std::string& key,
                             int most) {
  std::vector<Change> life;
  if (!store.HasHistory()) return life;
  const auto rows = OpenRows(
      store, "SELECT Id, Operacao, Tabela, Antes, Depois FROM parvel_historico WHERE Tabela = " +
                 TextLiteral(table.name) + " AND Chave IN (" + TextLiteral(key) + ", '*') ORDER BY Id DESC");
  std::vector<long> heads;
  for (; !rows->Eof() && life.size() < static_cast<std::size_t>(most); rows->MoveNext()) {
    Step step;
    step.table = &table;
    step.before = ImagesOf(table, TextIn(*rows, "Antes"));
    step.after = ImagesOf(table, TextIn(*rows, "Depois"));
    const auto words = WordsAbout(step, key);
    if (!words) continue;
    const long head = NumberIn(*rows, "Operacao");
    heads.push_back(head == 0 ? NumberIn(*rows, "Id") : head);
    life.push_back({{}, *words});
    life.back().operation.number = heads.back();
  }
  rows->Close();
  std::map<long, Operation> operations;
  for (Operation& each : ReadOperations(store, heads)) operations.emplace(each.number, std::move(each));
  for (Change& change : life)
    if (const auto found = operations.find(change.operation.number); found != operations.end())
      change.operation = found->second;
  return life;
}

}  // namespace history
