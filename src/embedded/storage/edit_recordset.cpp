#include "embedded/storage/edit_recordset.h"

#include "embedded/storage/row_insert.h"
#include "platform/stored_dates.h"

namespace embedded {
namespace {

constexpr int kRowVanished = -2147217864;

}  // namespace

platform::RecordsetRef EditRecordset::Start(std::shared_ptr<Engine> engine,
                                            const std::shared_ptr<Plan>& plan) {
  const auto rows = std::make_shared<EditRecordset>(std::move(engine), plan);
  rows->Reach(0);
  return platform::RecordsetRef(rows);
}

EditRecordset::EditRecordset(std::shared_ptr<Engine> engine, const std::shared_ptr<Plan>& plan)
    : SelectRecordset(engine, plan),
      engine_(std::move(engine)),
      table_(*plan->table()),
      columns_(plan->columns()) {}

void EditRecordset::RowRead(sqlite3_stmt* statement) {
  rowIds_.push_back(sqlite3_column_int64(statement, static_cast<int>(columns_.size())));
}

std::vector<std::size_t> EditRecordset::AssignedFields(const Assignments& values) const {
  platform::RequireStorableDates(fields_, values);
  std::vector<std::size_t> assigned;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!values[i]) continue;
    if (columns_[i] == nullptr || columns_[i]->identity)
      throw platform::RuntimeError(platform::kMultipleStep, fields_[i].name);
    assigned.push_back(i);
  }
  return assigned;
}

void EditRecordset::BindValues(sqlite3_stmt* statement, const std::vector<std::size_t>& fields,
                               const Assignments& values) const {
  for (std::size_t i = 0; i < fields.size(); ++i)
    BindVariant(statement, static_cast<int>(i + 1), fields_[fields[i]].type, *values[fields[i]]);
}

void EditRecordset::KeepValues(std::size_t row, const std::vector<std::size_t>& fields,
                               const Assignments& values) {
  for (const std::size_t field : fields) store().Put(row, field, fields_[field].type, *values[field]);
}

void EditRecordset::Insert(const Assignments& values) {
  std::vector<std::size_t> fields = AssignedFields(values);
  if (insert_.empty() || fields != inserted_) {
    inserted_ = std::move(fields);
    std::vector<std::string> columns;
    for (const std::size_t field : inserted_) columns.push_back(columns_[field]->name);
    insert_ = InsertSql(table_.name, columns);
  }
  engine_->Write(insert_, [&](sqlite3_stmt* statement) { BindValues(statement, inserted_, values); });

  rowIds_.push_back(engine_->LastRowId());
  const std::size_t row = store().AddRow();
  KeepValues(row, inserted_, values);
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (columns_[i] != nullptr && columns_[i]->identity)
      store().Put(row, i, platform::Cell::Number(fields_[i].type, rowIds_.back()));
}

void EditRecordset::Change(std::size_t row, const Assignments& values) {
  const std::vector<std::size_t> fields = AssignedFields(values);
  std::string sql = "UPDATE " + QuotedName(table_.name) + " SET ";
  for (std::size_t i = 0; i < fields.size(); ++i)
    sql += (i == 0 ? "" : ", ") + QuotedName(columns_[fields[i]]->name) + " = ?";
  const int hit = engine_->Write(sql + " WHERE rowid = ?", [&](sqlite3_stmt* statement) {
    BindValues(statement, fields, values);
    sqlite3_bind_int64(statement, static_cast<int>(fields.size() + 1), rowIds_[row]);
  });
  if (hit == 0)
    throw platform::RuntimeError(
        kRowVanished, table_.name,
        "Row cannot be located for updating. Some values may have been changed since it was last read.");
  KeepValues(row, fields, values);
}

}  // namespace embedded
