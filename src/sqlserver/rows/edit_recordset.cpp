#include "sqlserver/rows/edit_recordset.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/stored_dates.h"
#include "platform/text.h"
#include "sqlserver/dialect.h"

namespace sqlserver {
namespace {

using platform::EqualsIgnoringCase;
using platform::RuntimeError;

constexpr int kRowVanished = -2147217864;

}  // namespace

EditRecordset::EditRecordset(std::shared_ptr<Session> session, std::shared_ptr<const tsql::Catalog> catalog,
                             const std::string& statement)
    : session_(std::move(session)),
      catalog_(std::move(catalog)),
      rows_(EditableRows::Of(statement, *catalog_)) {
  session_->ReadRows(rows_.statement,
                     [this](const std::vector<platform::FieldInfo>& fields) -> platform::RowStore& {
                       Opened(fields);
                       return store();
                     });
  TakeFields();
}

void EditRecordset::TakeFields() {
  columns_ = rows_.columns;
  if (columns_.empty())
    for (const platform::FieldInfo& field : fields_) columns_.push_back(field.name);
  const std::size_t own = fields_.size() - rows_.addedKeys;
  keys_.clear();
  for (const std::string& name : rows_.table->primaryKey) {
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](const std::string& each) { return EqualsIgnoringCase(each, name); });
    const auto place = static_cast<std::size_t>(found - columns_.begin());
    if (found == columns_.end()) columns_.push_back(name);  // one of those added
    keys_.push_back({place, fields_.at(place)});
  }
  fields_.resize(own);
  for (std::size_t i = 0; i < own; ++i) {
    const tsql::Column* column = rows_.table->Find(columns_[i]);
    if (column != nullptr && !column->nullable) fields_[i].nullable = false;
  }
}

std::vector<std::size_t> EditRecordset::AssignedFields(const Assignments& values) const {
  platform::RequireStorableDates(fields_, values);
  std::vector<std::size_t> assigned;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!values[i]) continue;
    const tsql::Column* column = rows_.table->Find(columns_[i]);
    if (columns_[i].empty() || (column != nullptr && column->identity))
      throw RuntimeError(platform::kMultipleStep, fields_[i].name);
    assigned.push_back(i);
  }
  return assigned;
}

void EditRecordset::KeepValues(std::size_t row, const std::vector<std::size_t>& fields,
                               const Assignments& values) {
  for (const std::size_t field : fields) store().Put(row, field, fields_[field].type, *values[field]);
}

/// What may be read next, when a row has been written; `row` is behind the last for a new one.
Session::Ahead EditRecordset::Expected(std::size_t row, const Assignments& values) {
  return session_->Expected(rows_.table->name, [&](const char* column) -> std::string {
    const auto place = FindField(column);
    if (!place) return {};
    if (values[*place]) return values[*place]->IsNull() ? std::string() : values[*place]->ToText();
    if (row >= store().rows() || store().At(row, *place).IsNull()) return {};
    return store().At(row, *place).ToVariant().ToText();
  });
}

void EditRecordset::Insert(const Assignments& values) {
  const std::vector<std::size_t> fields = AssignedFields(values);
  Parameters parameters;
  std::string names;
  std::string places;
  for (const std::size_t field : fields) {
    names += (names.empty() ? "" : ", ") + Bracketed(columns_[field]);
    places += places.empty() ? "?" : ", ?";
    parameters.Add(fields_[field], *values[field]);
  }
  const std::string sql = "INSERT INTO " + Bracketed(rows_.table->name) +
                          (fields.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + places + ")");
  const auto& columns = rows_.table->columns;
  const auto numbered =
      std::find_if(columns.begin(), columns.end(), [](const tsql::Column& each) { return each.identity; });
  long number = 0;
  if (numbered == columns.end())
    session_->Write(sql, parameters);
  else
    number = session_->InsertNumbered(sql, parameters, Expected(store().rows(), values));

  const std::size_t row = store().AddRow();
  KeepValues(row, fields, values);
  for (std::size_t i = 0; numbered != columns.end() && i < columns_.size(); ++i)
    if (EqualsIgnoringCase(columns_[i], numbered->name))
      store().Put(row, i, platform::Cell::Number(platform::FieldType::kLong, number));
}

void EditRecordset::Change(std::size_t row, const Assignments& values) {
  const std::vector<std::size_t> fields = AssignedFields(values);
  Parameters parameters;
  std::string sql = "UPDATE " + Bracketed(rows_.table->name) + " SET ";
  for (std::size_t i = 0; i < fields.size(); ++i) {
    sql += (i == 0 ? "" : ", ") + Bracketed(columns_[fields[i]]) + " = ?";
    parameters.Add(fields_[fields[i]], *values[fields[i]]);
  }
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    sql += (i == 0 ? " WHERE " : " AND ") + Bracketed(rows_.table->Find(rows_.table->primaryKey[i])->name) +
           " = ?";
    parameters.Add(keys_[i].field, store().At(row, keys_[i].place).ToVariant());
  }
  if (session_->Write(sql, parameters, Expected(row, values)) == 0)
    throw RuntimeError(
        kRowVanished, rows_.table->name,
        "Row cannot be located for updating. Some values may have been changed since it was last read.");
  KeepValues(row, fields, values);
}

}  // namespace sqlserver
