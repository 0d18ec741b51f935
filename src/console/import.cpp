#include "console/import.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace console {

using platform::Currency;
using platform::Date;

const ImportRow::Field& ImportRow::field(std::string_view column) const {
  const auto found =
      std::find_if(fields_.begin(), fields_.end(), [&](const Field& f) { return f.name == column; });
  if (found == fields_.end())
    throw std::logic_error("a column that the target doesn't declare: " + std::string(column));
  return *found;
}

std::int16_t ImportRow::integer(std::string_view column) const {
  const auto value = number(column).value_or(Currency());
  if (value < -32768 || value > 32767) throw Refusal{std::string(column), "Valor inválido!"};
  return static_cast<std::int16_t>(value.ToWhole());
}

/// Turns the rows of a file into checked ones.
class ImportReader {
 public:
  ImportReader(std::istream& file, const std::vector<ImportColumn>& columns)
      : columns_(columns), shape_(DetectCsv(file)), reader_(file, shape_) {
    std::vector<std::string> header;
    reader_.Next(header);
    for (const ImportColumn& column : columns_) {
      places_.push_back(PlaceOf(header, column.name));
      if (column.required && places_.back() < 0)
        throw std::runtime_error("Falta a coluna «" + std::string(column.name) +
                                 "» na primeira linha do ficheiro.");
      row_.fields_.push_back(
          {.name = column.name, .given = places_.back() >= 0, .text = {}, .number = {}, .date = {}});
    }
    RefuseUnknownColumns(header);
    width_ = header.size();
  }

  bool Next() { return reader_.Next(values_); }
  long line() const { return reader_.line(); }

  /// The row read last. Throws Refusal when a field isn't of its column's kind.
  const ImportRow& Checked() {
    if (values_.size() > width_) throw Refusal{"", "A linha tem mais campos do que a primeira."};
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const auto place = static_cast<std::size_t>(places_[i]);
      const bool there = places_[i] >= 0 && place < values_.size();
      Read(columns_[i], there ? values_[place] : std::string(), row_.fields_[i]);
    }
    return row_;
  }

 private:
  static int PlaceOf(const std::vector<std::string>& header, std::string_view name) {
    for (std::size_t i = 0; i < header.size(); ++i)
      if (platform::EqualsIgnoringCase(platform::Trim(header[i]), name)) return static_cast<int>(i);
    return -1;
  }

  void RefuseUnknownColumns(const std::vector<std::string>& header) const {
    for (std::size_t i = 0; i < header.size(); ++i) {
      const bool known = std::find(places_.begin(), places_.end(), static_cast<int>(i)) != places_.end();
      if (!known && !platform::Trim(header[i]).empty())
        throw std::runtime_error("A coluna «" + header[i] +
                                 "» não se conhece, ou está duas vezes na primeira linha.");
    }
  }

  void Read(const ImportColumn& column, const std::string& value, ImportRow::Field& field) const {
    field.text = value;
    field.number.reset();
    field.date.reset();
    const std::string trimmed = platform::Trim(value);
    if (trimmed.empty()) {
      if (column.required) throw Refusal{column.name, "Campo obrigatório!"};
      if (column.kind != ColumnKind::kText) field.text.clear();
      return;
    }
    switch (column.kind) {
      case ColumnKind::kText:
        if (platform::Length(value) > static_cast<std::size_t>(column.limit))
          throw Refusal{column.name, "Tem mais de " + std::to_string(column.limit) + " caracteres."};
        break;
      case ColumnKind::kNumber:
      case ColumnKind::kInteger:
        field.number = ReadNumber(column, trimmed);
        break;
      case ColumnKind::kDate:
        field.date = ReadDate(column, trimmed);
        break;
    }
  }

  Currency ReadNumber(const ImportColumn& column, const std::string& text) const {
    try {
      const Currency number = Currency::Parse(RegionalNumber(text, shape_.decimal));
      if (column.kind == ColumnKind::kNumber || Currency(static_cast<long long>(number.ToWhole())) == number)
        return number;
    } catch (const platform::RuntimeError&) {
      // said below, with the text that was read
    }
    throw Refusal{column.name, "«" + text + "» não é um número" +
                                   (column.kind == ColumnKind::kInteger ? " inteiro." : ".")};
  }

  static Date ReadDate(const ImportColumn& column, std::string text) {
    std::replace(text.begin(), text.end(), 'T', ' ');  // as other programs write dates with times
    Date date;
    if (!Date::TryParse(text, date)) throw Refusal{column.name, "«" + text + "» não é uma data."};
    return date;
  }

  const std::vector<ImportColumn>& columns_;
  CsvShape shape_;
  CsvReader reader_;
  std::vector<int> places_;
  std::size_t width_ = 0;
  std::vector<std::string> values_;
  ImportRow row_;
};

ImportResult ImportCsv(zorCrmParvel::Store& database, ImportTarget& target, std::istream& file, bool simulate,
                       std::ostream& report) {
  ImportReader reader(file, target.Columns());
  zorCrmParvel::Batch batch(database);
  ImportResult result;
  while (reader.Next()) {
    try {
      const Outcome outcome = target.Store(reader.Checked());
      ++(outcome == Outcome::kAdded ? result.added : result.known);
    } catch (const Refusal& refusal) {
      ++result.refused;
      report << "linha " << reader.line();
      if (!refusal.column.empty()) report << ", " << refusal.column;
      report << ": " << refusal.reason << '\n';
    }
  }
  target.Finish();
  if (!simulate) batch.Commit();
  return result;
}

}  // namespace console
