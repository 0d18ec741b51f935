#include "exchange/import.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>

#include "exchange/csv_number.h"
#include "exchange/csv_text.h"
#include "exchange/imports/import_log.h"
#include "exchange/imports/stored_rows.h"
#include "exchange/profile/import_kinds.h"
#include "platform/host.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace exchange {

using platform::Currency;
using platform::Date;

constexpr int kFirstYear = 1753;  // the databases hold no earlier day

ImportRow::ImportRow(const std::vector<ImportColumn>& columns) {
  for (const ImportColumn& column : columns)
    fields_.push_back({.name = column.name, .given = false, .text = {}, .number = {}, .date = {}});
}

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
  ImportReader(std::istream& file, const std::vector<ImportColumn>& columns, std::optional<char> decimal)
      : columns_(columns), shape_(DetectCsv(file)), reader_(file, shape_), row_(columns) {
    std::vector<std::string> header;
    reader_.Next(header);
    for (const ImportColumn& column : columns_) {
      places_.push_back(PlaceOf(header, column.name));
      if (column.required && places_.back() < 0)
        throw std::runtime_error("Falta a coluna «" + std::string(column.name) +
                                 "» na primeira linha do ficheiro.");
      row_.at(places_.size() - 1).given = places_.back() >= 0;
    }
    RefuseUnknownColumns(header);
    width_ = header.size();
    const DecimalMark found = LookThrough();
    decimal_ = decimal ? *decimal : found.Found();
    reader_.Rewind();
    reader_.Next(header);
  }

  bool Next() { return reader_.Next(values_); }
  long line() const { return static_cast<long>(reader_.line()); }
  /// Where the row read last stands.
  std::string Place() const {
    const std::string first = std::to_string(reader_.line());
    if (reader_.lastLine() == reader_.line()) return "linha " + first;
    return "linhas " + first + " a " + std::to_string(reader_.lastLine());
  }

  /// The row read last. Throws Refusal when a field isn't of its column's kind.
  const ImportRow& Checked() {
    if (values_.size() > width_) throw Refusal{"", "A linha tem mais campos do que a primeira."};
    for (std::size_t i = 0; i < columns_.size(); ++i) Read(columns_[i], ValueOf(i), row_.at(i));
    return row_;
  }

 private:
  static int PlaceOf(const std::vector<std::string>& header, std::string_view name) {
    for (std::size_t i = 0; i < header.size(); ++i)
      if (platform::EqualsIgnoringCase(platform::Trim(header[i]), name)) return static_cast<int>(i);
    return -1;
  }

  /// What the row read last has in a column.
  const std::string& ValueOf(std::size_t column) const {
    static const std::string nothing;
    const auto place = static_cast<std::size_t>(places_[column]);
    return places_[column] >= 0 && place < values_.size() ? values_[place] : nothing;
  }

  /// Reads the file to its end before any row of it is taken.
  DecimalMark LookThrough() {
    DecimalMark mark;
    while (Next())
      for (std::size_t i = 0; i < columns_.size(); ++i)
        if (IsNumber(columns_[i]))
          mark.Look(columns_[i].name, ValueOf(i), columns_[i].kind == ColumnKind::kInteger, reader_.line());
    return mark;
  }

  static bool IsNumber(const ImportColumn& column) {
    return column.kind == ColumnKind::kNumber || column.kind == ColumnKind::kInteger;
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
    field.text = column.kind == ColumnKind::kText ? WithoutGuard(value) : value;
    field.number.reset();
    field.date.reset();
    const std::string trimmed = platform::Trim(field.text);
    if (column.kind == ColumnKind::kText) {
      if (platform::Length(field.text) > static_cast<std::size_t>(column.limit))
        throw Refusal{column.name, "Tem mais de " + std::to_string(column.limit) + " caracteres."};
    } else if (!trimmed.empty()) {
      if (column.kind == ColumnKind::kDate)
        field.date = ReadDate(column, trimmed);
      else
        field.number = ReadNumber(column, trimmed);
    }
    const bool nothing = column.kind == ColumnKind::kDate ? !field.date : trimmed.empty();
    if (column.required && nothing) throw Refusal{column.name, "Campo obrigatório!"};
  }

  Currency ReadNumber(const ImportColumn& column, const std::string& text) const {
    const bool whole = column.kind == ColumnKind::kInteger;
    if (const auto number = NumberOf(text, decimal_, whole)) return *number;
    throw Refusal{column.name, "«" + text + "» não é um número" + (whole ? " inteiro." : ".")};
  }

  /// None for the zero date, which stands for none.
  static std::optional<Date> ReadDate(const ImportColumn& column, std::string text) {
    std::replace(text.begin(), text.end(), 'T', ' ');  // as other programs write dates with times
    Date date;
    if (!Date::TryParse(text, date)) throw Refusal{column.name, "«" + text + "» não é uma data."};
    if (date.IsZero()) return std::nullopt;
    if (date.days() == 0) throw Refusal{column.name, "«" + text + "» é só uma hora: falta o dia."};
    if (date.year() < kFirstYear)
      throw Refusal{column.name, "«" + text + "» é uma data antes de " + std::to_string(kFirstYear) + "."};
    return date;
  }

  const std::vector<ImportColumn>& columns_;
  CsvShape shape_;
  CsvReader reader_;
  std::vector<int> places_;
  std::size_t width_ = 0;
  char decimal_ = ',';
  std::vector<std::string> values_;
  ImportRow row_;
};

namespace {

using Stored = std::function<void(const ImportRow& row, long line)>;

ImportResult Take(ImportReader& reader, ImportTarget& target, std::ostream& report, const Stored& stored) {
  ImportResult result;
  while (reader.Next()) {
    try {
      const ImportRow& row = reader.Checked();
      const Outcome outcome = target.Store(row);
      ++(outcome == Outcome::kAdded ? result.added : result.known);
      if (outcome == Outcome::kAdded && stored) stored(row, reader.line());
    } catch (const Refusal& refusal) {
      ++result.refused;
      report << reader.Place();
      if (!refusal.column.empty()) report << ", " << refusal.column;
      report << ": " << refusal.reason << '\n';
    }
  }
  return result;
}

/// Nothing is imported of which nobody is told what was refused.
void Told(std::ostream& report) {
  if (!report.flush())
    throw std::runtime_error("Não foi possível escrever que linhas são recusadas: nada foi importado.");
}

bool HasLog(const zorCrmParvel::DataAccessRef& bd) {
  zorCrmParvel::RecordsetRef rows;
  try {
    bd->AbrirLeitura("", "SELECT Numero FROM parvel_importacoes WHERE Numero=0", rows);
    rows->Close();
    return true;
  } catch (const platform::RuntimeError& error) {
    if (error.number() != platform::kInvalidObject) throw;
    return false;
  }
}

/// The key by which a row is found again.
std::string KeyOf(const ImportKind& kind, const ImportRow& row) {
  if (kind.numbered) return {};
  const std::string& key = row.text(kind.key);
  const bool licence = std::string_view(kind.name) == "cartas";
  return licence ? key + "|" + std::to_string(row.integer("TipoCarta")) : key;
}

}  // namespace

ImportResult ImportCsv(zorCrmParvel::Store& database, ImportTarget& target, std::istream& file, bool simulate,
                       std::ostream& report, std::optional<char> decimal) {
  ImportReader reader(file, target.Columns(), decimal);
  zorCrmParvel::LargeBatch batch(database);
  const ImportResult result = Take(reader, target, report, {});
  target.Finish();
  Told(report);
  if (!simulate) batch.Commit();
  return result;
}

ImportResult ImportCsvToLog(const platform::Ref<zorCrmParvel::Store>& database, const ImportedFile& about,
                            std::istream& file, std::ostream& report, std::optional<char> decimal) {
  const ImportKind& kind = *KindOf(about.kind);
  if (!HasLog(database))
    return ImportCsv(*database, *MakeImportTarget(about.kind, database), file, false, report, decimal);
  ImportReader reader(file, ColumnsOfKind(about.kind), decimal);
  zorCrmParvel::LargeBatch batch(*database);
  ImportLog log(database, {.when = platform::Host::Current().Now(),
                           .who = about.who,
                           .kind = about.kind,
                           .file = about.name,
                           .profile = {},
                           .checksum = about.checksum,
                           .takenBack = {}});
  StoredRows rows(database, kind, log);
  const auto target = MakeImportTarget(about.kind, rows.through());
  ImportResult result = Take(reader, *target, report,
                             [&](const ImportRow& row, long line) { rows.Add(KeyOf(kind, row), line, {}); });
  rows.Finish();
  target->Finish();
  log.Finish();
  Told(report);
  if (result.added == 0) return result;
  result.number = database->NumberGiven("parvel_importacoes", log.number());
  if (about.beforeCommit) about.beforeCommit(result.number, log.rows());
  batch.Commit();
  return result;
}

}  // namespace exchange
