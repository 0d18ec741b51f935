// The numbers and dates of a mapped row.

#include "exchange/plan/cell_reading.h"
#include "exchange/plan/row_mapper.h"
#include "exchange/values/number_texts.h"
#include "platform/runtime_error.h"

namespace exchange {

using platform::Currency;

namespace {

constexpr int kFirstYear = 1753;  // the databases hold no earlier day

/// Seconds of a day that a cell adds; none when it is no time.
std::optional<int> TimeIn(const TableCell& cell) {
  if (cell.kind == CellKind::kDate) return static_cast<int>(((cell.date.seconds() % 86400) + 86400) % 86400);
  return ReadTimeText(cell.text);
}

}  // namespace

std::optional<Currency> RowMapper::NumberOfText(const Source& from, std::string_view column,
                                                const std::string& text) const {
  if (const auto learned = profile_.learned.find(std::string(column)); learned != profile_.learned.end())
    if (const auto word = learned->second.find(Folded(text)); word != learned->second.end())
      return ReadNumberText(word->second, {.decimal = ','});
  if (from.words)
    if (const auto number = NumberOfWord(*from.words, text)) return Currency(*number);
  return ReadNumberText(text, {.decimal = reading_.decimal,
                               .impliedDecimals = from.mapping != nullptr ? from.mapping->impliedDecimals : 0,
                               .turned = from.mapping != nullptr && from.mapping->turned});
}

std::optional<Currency> RowMapper::Number(std::size_t place, const SourceRow& source) const {
  const ImportColumn& column = columns_[place];
  const Source& from = sources_[place];
  const bool whole = column.kind == ColumnKind::kInteger;
  std::optional<Currency> number;
  std::string text;
  const TableCell* cell = nullptr;
  if (CorrectionOf(source, column.name) == nullptr)
    for (const int at : from.places)
      if (cell = CellAt(source, at); !IsBlank(cell)) break;
  if (!IsBlank(cell)) RequireSound(*cell, column);
  if (!IsBlank(cell) && cell->kind == CellKind::kNumber && !from.words) {
    double value = cell->number;
    for (int i = 0; i < from.mapping->impliedDecimals; ++i) value /= 10;
    try {
      number = Currency::FromDouble(from.mapping->turned ? -value : value);
    } catch (const platform::RuntimeError&) {
      throw Refusal{column.name, Quoted(cell->text) + " é um número grande demais."};
    }
  } else {
    text = !IsBlank(cell) ? cell->text : JoinedText(from, source, column);
    if (Stripped(text).empty()) return std::nullopt;
    if (!IsBlank(cell) && cell->kind == CellKind::kTruth) text = cell->number != 0 ? "1" : "0";
    number = NumberOfText(from, column.name, text);
  }
  const bool hasDecimals = number && number->tenThousandths() % Currency(1).tenThousandths() != 0;
  if (number && !(whole && hasDecimals)) return number;
  throw Refusal{column.name,
                Quoted(text.empty() ? cell->text : text) + " não é um número" + (whole ? " inteiro." : ".")};
}

std::optional<platform::Date> RowMapper::FirstDate(const TableCell& cell) const {
  if (cell.kind == CellKind::kDate) return cell.date;
  if (cell.kind == CellKind::kNumber && cell.number < 100000)
    return DayOfSerial(cell.number, reading_.calendar1904);
  return ReadDateText(cell.text, reading_.order, reading_.calendar1904);
}

std::optional<platform::Date> RowMapper::Date(std::size_t place, const SourceRow& source) const {
  const ImportColumn& column = columns_[place];
  const Source& from = sources_[place];
  if (from.mapping == nullptr && CorrectionOf(source, column.name) == nullptr) return std::nullopt;
  std::optional<platform::Date> date;
  const std::string* corrected = CorrectionOf(source, column.name);
  const TableCell* first = from.places.empty() ? nullptr : CellAt(source, from.places[0]);
  std::string text;
  if (corrected != nullptr) {
    text = *corrected;
    date = ReadDateText(text, DateOrder::kDayFirst);
  } else if (!IsBlank(first)) {
    RequireSound(*first, column);
    text = first->text;
    date = FirstDate(*first);
    for (std::size_t i = 1; date && i < from.places.size(); ++i) {
      const TableCell* more = CellAt(source, from.places[i]);
      if (IsBlank(more)) continue;
      RequireSound(*more, column);
      const auto time = TimeIn(*more);
      if (!time) throw Refusal{column.name, Quoted(more->text) + " não é uma hora."};
      date = platform::Date::FromSeconds(date->DayOnly().seconds() + *time);
    }
    if (!date && from.places.size() > 1)
      date = ReadDateText(JoinedText(from, source, column), reading_.order);
  } else {
    text = JoinedText(from, source, column);  // a constant
    date = ReadDateText(text, DateOrder::kDayFirst);
  }
  if (Stripped(text).empty()) return std::nullopt;
  if (!date) throw Refusal{column.name, Quoted(text) + " não é uma data."};
  if (date->IsZero()) return std::nullopt;
  if (date->days() == 0) throw Refusal{column.name, Quoted(text) + " é só uma hora: falta o dia."};
  if (date->year() < kFirstYear)
    throw Refusal{column.name, Quoted(text) + " é uma data antes de " + std::to_string(kFirstYear) + "."};
  return date;
}

}  // namespace exchange
