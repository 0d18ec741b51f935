#include "platform/recordset.h"

#include <algorithm>
#include <numeric>

#include "platform/text.h"

namespace platform {

void MarkThoseAlone(std::vector<FieldInfo>& fields) {
  for (FieldInfo& field : fields)
    field.alone = std::count_if(fields.begin(), fields.end(), [&](const FieldInfo& other) {
                    return EqualsIgnoringCase(other.name, field.name);
                  }) == 1;
}

void Recordset::Opened(std::vector<FieldInfo> fields) {
  fields_ = std::move(fields);
  store_ = std::make_unique<RowStore>(fields_.size());
  open_ = true;
  row_ = 0;
  after_ = 0;
  following_.clear();
}

void Recordset::RequireOpen() const {
  if (!open_) throw RuntimeError(kObjectClosed);
}

void Recordset::RequireRow() {
  RequireOpen();
  if (!adding_ && !Reach(row_)) throw RuntimeError(kNoCurrentRecord);
}

bool Recordset::Eof() {
  RequireOpen();
  return !adding_ && !Reach(row_);
}

void Recordset::MoveNext() {
  RequireRow();
  MoveTo(row_ + 1);
}

void Recordset::MoveFirst() {
  RequireOpen();
  MoveTo(0);
}

void Recordset::MoveLast() {
  RequireOpen();
  const std::size_t count = Count();
  if (count > 0) MoveTo(count - 1);
}

void Recordset::MoveTo(std::size_t row) {
  if (pending_) ForgetAssignments();
  row_ = row;
}

void Recordset::ForgetAssignments() {
  assigned_.assign(fields_.size(), std::nullopt);
  adding_ = false;
  pending_ = false;
}

long Recordset::RecordCount() {
  RequireOpen();
  return static_cast<long>(Count());
}

void Recordset::AddNew() {
  RequireOpen();
  ForgetAssignments();
  adding_ = true;
  pending_ = true;
}

void Recordset::Update() {
  RequireRow();
  if (adding_) {
    Insert(assigned_);
    row_ = Count() - 1;
  } else if (pending_) {
    Change(row_, assigned_);
  }
  ForgetAssignments();
}

void Recordset::Close() {
  RequireOpen();
  open_ = false;
  adding_ = false;
  Released();
}

std::optional<std::size_t> Recordset::FindField(std::string_view name) const {
  for (std::size_t i = 0; i < fields_.size(); ++i)
    if (EqualsIgnoringCase(fields_[i].name, name)) return i;
  return std::nullopt;
}

Recordset::Field Recordset::Fields(std::size_t index) {
  if (index >= fields_.size()) throw RuntimeError(kNoSuchField, std::to_string(index));
  return Field(this, index);
}

// A field is looked for first where it was on the row before. Entities read all columns of a row in one
// order, and walks over a table read the same few of many: over the 35 columns of a vehicle a field is found
// in some 10 nanoseconds by this, and in 30 to 60 by comparing names from the first on. The first row, which
// often is the only one, is expected in the fields' own order, and nothing is kept for it.
Recordset::Field Recordset::Fields(std::string_view name) {
  RequireOpen();
  std::size_t index = Expected();
  const bool asExpected =
      index < fields_.size() && fields_[index].alone && EqualsIgnoringCase(fields_[index].name, name);
  if (!asExpected) {
    const auto found = FindField(name);
    if (!found) throw RuntimeError(kNoSuchField, std::string(name));
    index = *found;
    if (row_ > 0) Expect(index);
  }
  after_ = index + 1;
  return Field(this, index);
}

/// From now on this field is looked for first after the one that was found last.
void Recordset::Expect(std::size_t field) {
  if (following_.empty()) {
    following_.resize(fields_.size() + 1);
    std::iota(following_.begin(), following_.end(), std::size_t{0});
  }
  following_[after_] = field;
}

const Cell& Recordset::CellAt(std::size_t row, std::size_t column) {
  if (column >= fields_.size()) throw RuntimeError(kSubscriptOutOfRange);
  if (store_ == nullptr || row >= store_->rows()) {
    RequireOpen();
    if (!Reach(row)) throw RuntimeError(kNoCurrentRecord);
  }
  return store_->At(row, column);
}

bool Recordset::FetchMore(std::size_t rows) {
  RequireOpen();
  return rows == 0 || Reach(store_->rows() + rows - 1);
}

Variant Recordset::ValueOf(std::size_t column) {
  RequireRow();
  if (pending_ && assigned_[column]) return *assigned_[column];
  if (adding_) return Variant::Null{};
  return store_->At(row_, column).ToVariant();
}

void Recordset::Assign(std::size_t column, Variant value) {
  RequireRow();
  const FieldInfo& field = fields_[column];
  Variant converted = ConvertTo(field.type, std::move(value));
  const auto* text = converted.As<std::string>();
  const bool tooLong = text && field.definedSize < kUnlimitedSize &&
                       Length(*text) > static_cast<std::size_t>(field.definedSize);
  if (tooLong || (converted.IsNull() && !field.nullable)) throw RuntimeError(kMultipleStep, field.name);
  if (!pending_) ForgetAssignments();
  assigned_[column] = std::move(converted);
  pending_ = true;
}

void Recordset::Insert(const Assignments&) { throw RuntimeError(kNotUpdatable); }
void Recordset::Change(std::size_t, const Assignments&) { throw RuntimeError(kNotUpdatable); }

Variant ConvertTo(FieldType type, Variant value) {
  if (value.IsNull()) return value;
  switch (type) {
    case FieldType::kBool:
      return value.ToBool();
    case FieldType::kInteger:
      return value.ToInteger();
    case FieldType::kLong:
      return value.ToLong();
    case FieldType::kDouble:
      return value.ToDouble();
    case FieldType::kCurrency:
      return value.ToCurrency();
    case FieldType::kDate:
      return value.ToDate();
    case FieldType::kText:
      return value.As<std::string>() ? value : Variant(value.ToText());
    case FieldType::kBytes:
      (void)value.ToBytes();
      return value;
  }
  return value;
}

void MemoryRecordset::Append(std::string name, FieldType type, long size, bool nullable) {
  appended_.push_back({std::move(name), type, size, nullable});
}

void MemoryRecordset::Open() {
  MarkThoseAlone(appended_);
  Opened(appended_);
}

void MemoryRecordset::Insert(const Assignments& values) {
  const std::size_t row = store().AddRow();
  Change(row, values);
}

void MemoryRecordset::Change(std::size_t row, const Assignments& values) {
  for (std::size_t i = 0; i < values.size(); ++i)
    if (values[i]) store().Put(row, i, fields_[i].type, *values[i]);
}

}  // namespace platform
