#include "history/drivers/driver_history.h"

#include "history/json.h"
#include "history/reader.h"
#include "history/rows.h"
#include "platform/text.h"

namespace history {
namespace {

using platform::Variant;
using zorCrmParvel::RecordsetRef;

constexpr std::size_t kMostNumbers = 200;  // of one statement

/// Rows of a list as the history stores them: one alone, or several.
std::string Joined(const tsql::Table& table, const std::vector<Image>& images) {
  if (images.size() == 1) return ToJson(table, images.front());
  std::string json;
  for (const Image& image : images) json += (json.empty() ? "[" : ",\n") + ToJson(table, image);
  return json + "]";
}

void Put(platform::Recordset& row, const char* column, const tsql::Table& table,
         const std::vector<Image>& images) {
  if (images.empty())
    row.Fields(column).SetValue(Variant::Null{});
  else
    row.Fields(column).SetValue(Joined(table, images));
}

}  // namespace

RecordsetRef DriverHistory::Open(const DriverTable& from, const std::string& condition) {
  RecordsetRef rows;
  const std::string statement =
      "SELECT Id, Operacao, Tabela, Chave, Linhas, Antes, Depois FROM parvel_historico WHERE Tabela = " +
      TextLiteral(from.table) + condition;
  store_.inner()->AbrirEdicao(statement.c_str(), rows);
  return rows;
}

DriverHistory::Sides DriverHistory::Read(const tsql::Table& table, platform::Recordset& row) const {
  return {ImagesOf(table, TextIn(row, "Antes")), ImagesOf(table, TextIn(row, "Depois"))};
}

std::vector<Image> DriverHistory::Records() {
  const DriverTable& from = DriverTables().front();
  const tsql::Table& table = store_.catalog().Get(from.table);
  std::vector<Image> records;
  const RecordsetRef rows = Open(from, "");
  for (; !rows->Eof(); rows->MoveNext()) {
    const Sides sides = Read(table, *rows);
    for (std::size_t i = 0; i < std::max(sides.before.size(), sides.after.size()); ++i) {
      // What a change left behind has no key: it belongs to the row before.
      const bool changed = i < sides.before.size();
      if (!IsOf(from, table, changed ? sides.before[i] : sides.after[i], code_)) continue;
      if (changed) records.push_back(sides.before[i]);
      if (i < sides.after.size()) records.push_back(sides.after[i]);
    }
  }
  rows->Close();
  return records;
}

void DriverHistory::Erase() {
  for (const DriverTable& from : DriverTables()) from.own ? Take(from) : Replace(from);
  RenameHeads();
  for (const std::string& list : ListsOf(gone_, kMostNumbers))
    store_.inner()->ExecutarSql("", ("DELETE FROM parvel_historico WHERE Id IN (" + list + ")").c_str());
}

/// Takes the driver's own rows out of what operations wrote.
void DriverHistory::Take(const DriverTable& from) {
  const tsql::Table& table = store_.catalog().Get(from.table);
  const RecordsetRef rows = Open(from, "");
  for (; !rows->Eof(); rows->MoveNext()) {
    const Sides all = Read(table, *rows);
    Sides others;
    const std::size_t count = std::max(all.before.size(), all.after.size());
    std::size_t kept = 0;
    for (std::size_t i = 0; i < count; ++i) {
      if (IsOf(from, table, i < all.before.size() ? all.before[i] : all.after[i], code_)) continue;
      if (i < all.before.size()) others.before.push_back(all.before[i]);
      if (i < all.after.size()) others.after.push_back(all.after[i]);
      ++kept;
    }
    if (kept == count) continue;
    const long head = NumberIn(*rows, "Operacao");
    heads_.insert(head == 0 ? NumberIn(*rows, "Id") : head);
    if (kept == 0 && head != 0) {
      gone_.push_back(NumberIn(*rows, "Id"));
      continue;
    }
    if (kept == 0)
      for (const char* column : {"Tabela", "Chave"}) rows->Fields(column).SetValue(Variant::Null{});
    rows->Fields("Linhas").SetValue(static_cast<std::int32_t>(kept));
    Store(table, *rows, others);
  }
  rows->Close();
}

void DriverHistory::Store(const tsql::Table& table, platform::Recordset& row, const Sides& sides) {
  Put(row, "Antes", table, sides.before);
  Put(row, "Depois", table, sides.after);
  row.Update();
}

/// Puts the other code into events.
void DriverHistory::Replace(const DriverTable& from) {
  const tsql::Table& table = store_.catalog().Get(from.table);
  const auto place = static_cast<std::size_t>(table.Find(from.column) - table.columns.data());
  // Beside the column's name in rows that stand alone, without it in lists.
  std::string code;
  AppendJson(table.columns[place], Variant(code_), code);
  const std::string pattern = Anywhere(code.substr(0, code.size() - 1));  // blanks may follow
  const RecordsetRef rows = Open(from, " AND (Antes LIKE " + pattern + " OR Depois LIKE " + pattern + ")");
  for (; !rows->Eof(); rows->MoveNext()) {
    Sides sides = Read(table, *rows);
    bool changed = false;
    for (std::vector<Image>* side : {&sides.before, &sides.after})
      for (Image& image : *side) {
        auto& value = image[place];
        if (!value || value->IsNull() || !SameCode(value->ToText(), code_)) continue;
        value = with_;
        changed = true;
      }
    if (changed) Store(table, *rows, sides);
  }
  rows->Close();
}

/// "Motoristas: Confirmar, 0001" names him by the other code.
void DriverHistory::RenameHeads() {
  const std::vector<long> heads(heads_.begin(), heads_.end());
  for (const std::string& list : ListsOf(heads, kMostNumbers)) {
    RecordsetRef rows;
    store_.inner()->AbrirEdicao(
        ("SELECT Id, Texto, Registo FROM parvel_historico WHERE Id IN (" + list + ")").c_str(), rows);
    for (; !rows->Eof(); rows->MoveNext()) {
      if (!SameCode(TextIn(*rows, "Registo"), code_)) continue;
      const std::string ending = ", " + TextIn(*rows, "Registo");
      std::string words = TextIn(*rows, "Texto");
      if (words.ends_with(ending)) words = words.substr(0, words.size() - ending.size()) + ", " + with_;
      rows->Fields("Texto").SetValue(words);
      rows->Fields("Registo").SetValue(with_);
      rows->Update();
    }
    rows->Close();
  }
}

}  // namespace history
