#include "embedded/storage/edit_recordset.h"

#include "platform/stored_dates.h"

namespace embedded {
namespace {

using platform::FieldType;
using platform::Variant;

constexpr int kRowVanished = -2147217864;

void BindVariant(sqlite3_stmt* statement, int index, FieldType type, const Variant& value) {
  if (value.IsNull()) {
    sqlite3_bind_null(statement, index);
    return;
  }
  switch (type) {
    case FieldType::kBool:
      sqlite3_bind_int(statement, index, value.ToBool() ? 1 : 0);
      return;
    case FieldType::kInteger:
    case FieldType::kLong:
      sqlite3_bind_int64(statement, index, value.ToLong());
      return;
    case FieldType::kDouble:
      sqlite3_bind_double(statement, index, value.ToDouble());
      return;
    case FieldType::kCurrency:
      sqlite3_bind_int64(statement, index, value.ToCurrency().tenThousandths());
      return;
    case FieldType::kDate:
      sqlite3_bind_int64(statement, index, value.ToDate().seconds());
      return;
    case FieldType::kText: {
      const std::string text = value.ToText();
      sqlite3_bind_text(statement, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
      return;
    }
    case FieldType::kBytes: {
      const platform::Bytes& bytes = value.ToBytes();
      sqlite3_bind_blob64(statement, index, bytes.empty() ? "" : static_cast<const void*>(bytes.data()),
                          bytes.size(), SQLITE_STATIC);
      return;
    }
  }
}

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

std::vector<std::size_t> EditRecordset::AssignedFields(const Assignments& values, bool numbers) const {
  platform::RequireStorableDates(fields_, values);
  std::vector<std::size_t> assigned;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!values[i]) continue;
    if (columns_[i] == nullptr || (columns_[i]->identity && !numbers))
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

std::string EditRecordset::InsertOf(const std::vector<std::size_t>& fields) const {
  std::string names;
  std::string places;
  for (const std::size_t field : fields) {
    names += (names.empty() ? "" : ", ") + QuotedName(columns_[field]->name);
    places += places.empty() ? "?" : ", ?";
  }
  return "INSERT INTO " + QuotedName(table_.name) +
         (fields.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + places + ")");
}

void EditRecordset::Insert(const Assignments& values) {
  std::vector<std::size_t> fields = AssignedFields(values, engine_->TakesNumbers(table_));
  if (insert_.empty() || fields != inserted_) {
    inserted_ = std::move(fields);
    insert_ = InsertOf(inserted_);
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
  const std::vector<std::size_t> fields = AssignedFields(values, false);
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
