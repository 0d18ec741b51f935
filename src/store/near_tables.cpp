#include "store/near_tables.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "tsql/parser.h"

namespace store {
namespace {

using platform::RuntimeError;
using zorCrmParvel::fixed;
using zorCrmParvel::RecordsetRef;

constexpr std::size_t kRowsATime = 256;

std::shared_ptr<embedded::Database> InMemory(const std::string& schema) {
  embedded::OpenOptions options;
  options.schema = schema;
  return embedded::Database::Open(":memory:", options);
}

bool Alike(const std::vector<platform::FieldInfo>& a, const std::vector<platform::FieldInfo>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& one, const auto& other) {
    return one.name == other.name && one.type == other.type && one.definedSize == other.definedSize;
  });
}

zorCrmParvel::RowValues ValuesOf(platform::Recordset& rows, std::size_t row) {
  zorCrmParvel::RowValues values;
  for (std::size_t i = 0; i < rows.FieldList().size(); ++i)
    values.emplace_back(rows.CellAt(row, i).ToVariant());
  return values;
}

bool HoldsDocuments(const tsql::Table& table) {
  return std::any_of(table.columns.begin(), table.columns.end(),
                     [](const tsql::Column& column) { return column.type.width == tsql::Type::kMax; });
}

}  // namespace

NearTables::NearTables(zorCrmParvel::Store& server, const std::string& schema, std::size_t mostRows,
                       Keep keep)
    : server_(server),
      mostRows_(mostRows),
      keep_(keep),
      catalog_(tsql::ParseSchema(schema)),
      memory_(InMemory(schema)) {}

bool NearTables::Take(const std::vector<std::string>& tables) {
  return std::all_of(tables.begin(), tables.end(), [this](const std::string& name) {
    const tsql::Table* table = catalog_.Find(name);
    if (table == nullptr) return false;
    const auto known = here_.find(table->name);
    if (known != here_.end()) return known->second;
    if (HoldsDocuments(*table) || none_.count(table->name) != 0) return false;
    return here_.emplace(table->name, Bring(table->name)).first->second;
  });
}

bool NearTables::TakeNone(const std::string& name) {
  const tsql::Table* table = catalog_.Find(name);
  if (table == nullptr || HoldsDocuments(*table)) return false;
  if (const auto known = here_.find(table->name); known != here_.end()) return known->second;
  if (none_.insert(table->name).second) taken_[table->name] = Open("SELECT * FROM [" + table->name + "]");
  return true;
}

bool NearTables::TakeOnly(const std::string& name, platform::Recordset& rows) {
  const tsql::Table* table = catalog_.Find(name);
  return table != nullptr && !HoldsDocuments(*table) && Fill(table->name, rows);
}

bool NearTables::Bring(const std::string& table) {
  RecordsetRef rows;
  const std::string most = std::to_string(mostRows_ + 1);
  server_.AbrirLeitura("", {"SELECT TOP ", fixed(most), " * FROM [", fixed(table), "]"}, rows);
  const bool whole = static_cast<std::size_t>(rows->RecordCount()) <= mostRows_ && Fill(table, *rows);
  if (whole && keep_ == Keep::kRows)
    taken_[table] = rows;
  else
    rows->Close();
  return whole;
}

bool NearTables::Fill(const std::string& table, platform::Recordset& rows) {
  try {
    if (!Alike(Open("SELECT * FROM [" + table + "] WHERE 1 = 0")->FieldList(), rows.FieldList()))
      return false;
    std::vector<std::string> columns;
    for (const platform::FieldInfo& field : rows.FieldList()) columns.push_back(field.name);
    while (rows.FetchMore(kRowsATime)) continue;
    zorCrmParvel::Batch batch(*memory_);
    for (std::size_t row = 0; row < rows.RowsAtHand();) {
      std::vector<zorCrmParvel::RowValues> part;
      while (row < rows.RowsAtHand() && part.size() < kRowsATime) part.push_back(ValuesOf(rows, row++));
      std::vector<const zorCrmParvel::RowValues*> places(part.size());
      std::transform(part.begin(), part.end(), places.begin(), [](const auto& each) { return &each; });
      memory_->AddRows(table, columns, places);
    }
    batch.Commit();
    return true;
  } catch (const RuntimeError&) {
    return false;  // a row that can't be kept here: the server answers as before
  }
}

RecordsetRef NearTables::Open(const std::string& statement) {
  RecordsetRef rows;
  memory_->AbrirLeitura("", statement.c_str(), rows);
  return rows;
}

}  // namespace store
