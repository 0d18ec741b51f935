#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "exchange/import_codes.h"

namespace exchange {

/// A field of a record: the column that a file may have for it, and how a row's value gets into the record.
template <typename Entity>
struct ImportField {
  ImportColumn column;
  std::function<void(Entity&, const ImportRow&, const char* column)> take;
};

template <typename Entity>
std::vector<ImportColumn> ColumnsOf(const std::vector<ImportField<Entity>>& fields) {
  std::vector<ImportColumn> columns;
  columns.reserve(fields.size());
  for (const auto& field : fields) columns.push_back(field.column);
  return columns;
}

/// The usual fields of an entity, by the name of the column and the property that takes its value. Without a
/// value in the file, texts are empty, numbers 0 and dates what `otherwise` says, the zero date by itself.
template <typename Entity>
struct Fields {
  using Field = ImportField<Entity>;
  using Row = const ImportRow&;

  static Field Text(const char* name, int limit, std::string Entity::*property) {
    return {{name, ColumnKind::kText, limit},
            [property](Entity& e, Row row, const char* column) { e.*property = row.text(column); }};
  }
  /// A text that every row must have.
  static Field Key(const char* name, int limit, std::string Entity::*property) {
    Field field = Text(name, limit, property);
    field.column.required = true;
    return field;
  }
  static Field Number(const char* name, platform::Currency Entity::*property,
                      ColumnKind kind = ColumnKind::kNumber) {
    return {{name, kind}, [property](Entity& e, Row row, const char* column) {
              e.*property = row.number(column).value_or(platform::Currency());
            }};
  }
  /// A whole number, of kilometres for one.
  static Field Whole(const char* name, platform::Currency Entity::*property) {
    return Number(name, property, ColumnKind::kInteger);
  }
  static Field Whole(const char* name, std::int16_t Entity::*property) {
    return {{name, ColumnKind::kInteger},
            [property](Entity& e, Row row, const char* column) { e.*property = row.integer(column); }};
  }
  /// 1 for any number but 0.
  static Field Flag(const char* name, std::int16_t Entity::*property) {
    return {{name, ColumnKind::kInteger}, [property](Entity& e, Row row, const char* column) {
              e.*property = row.integer(column) != 0 ? 1 : 0;
            }};
  }
  static Field Day(
      const char* name, platform::Date Entity::*property,
      platform::Date (*otherwise)() = [] { return platform::Date(); }) {
    return {{name, ColumnKind::kDate}, [=](Entity& e, Row row, const char* column) {
              const auto date = row.date(column);
              e.*property = date ? *date : otherwise();
            }};
  }
};

/// The import of records that have a key of their own, the first of the fields. A record that exists stays as
/// it is.
template <typename Entity>
class RecordTarget : public ImportTarget {
 public:
  RecordTarget(zorCrmParvel::DataAccessRef bd, std::string Entity::*key,
               std::vector<ImportField<Entity>> fields)
      : bd_(std::move(bd)), key_(key), fields_(std::move(fields)), columns_(ColumnsOf(fields_)) {}

  const std::vector<ImportColumn>& Columns() const override { return columns_; }

  Outcome Judge(const ImportRow& row) override {
    const char* const keyColumn = columns_.front().name;
    RefuseApostrophe(keyColumn, row.text(keyColumn));
    record_ = std::make_unique<Entity>();
    record_->bd = bd_;
    (*record_).*key_ = row.text(keyColumn);
    if (record_->Ler()) return Outcome::kKnown;
    Check(row);
    for (const auto& field : fields_) field.take(*record_, row, field.column.name);
    return Outcome::kAdded;
  }
  void Write() override { record_->Escrever(); }

 protected:
  /// The rules of the fields. Throws Refusal when one fails.
  virtual void Check(const ImportRow& row) = 0;

 private:
  zorCrmParvel::DataAccessRef bd_;
  std::string Entity::*key_;
  std::vector<ImportField<Entity>> fields_;
  std::vector<ImportColumn> columns_;
  std::unique_ptr<Entity> record_;
};

}  // namespace exchange
