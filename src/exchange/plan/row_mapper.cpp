#include "exchange/plan/row_mapper.h"

#include <algorithm>
#include <stdexcept>

#include "exchange/csv_text.h"
#include "exchange/plan/cell_reading.h"
#include "exchange/shape/column_words.h"
#include "exchange/shape/profile_guess.h"
#include "exchange/values/fold.h"
#include "exchange/values/plates.h"
#include "platform/text.h"

namespace exchange {
namespace {

using platform::Currency;

/// The words that a column of whole numbers understands.
std::optional<WordSet> WordsFor(const ImportKind& kind, std::string_view column) {
  if (column == "Combustivel")
    return std::string_view(kind.name) == "viaturas" ? WordSet::kFuel : WordSet::kTruth;
  if (column == "TipoCarta" || column == "TipoCartaCond") return WordSet::kLicence;
  if (column == "Modalidade") return WordSet::kPayment;
  for (const char* truth :
       {"Inactiva", "Inactivo", "Tacografo", "SeloPago", "Responsabilidade", "Responsavel"})
    if (column == truth) return WordSet::kTruth;
  return std::nullopt;
}

/// Nothing of the row before stays.
void Clear(ImportRow::Field& field) {
  field.given = false;
  field.text.clear();
  field.number.reset();
  field.date.reset();
}

/// A code that the file lacks comes from the name.
bool MayBeProposed(const ImportColumn& column) { return std::string_view(column.name) == "Codigo"; }

}  // namespace

RowMapper::RowMapper(const Profile& profile, const ImportKind& kind, const std::vector<std::string>& header,
                     Reading reading, CodeFinder& codes)
    : profile_(profile), kind_(kind), columns_(ColumnsOfKind(kind.name)), reading_(reading), codes_(codes) {
  const auto place = [&](const Piece& piece) {
    const int found = PlaceOf(piece, header);
    if (found < 0 && piece.position >= 0)
      throw std::runtime_error("O ficheiro não tem a coluna «" + piece.header + "», que o perfil lê.");
    return found;
  };
  for (const ImportColumn& column : columns_) {
    Source source;
    source.mapping = profile.Find(column.name);
    if (source.mapping != nullptr)
      for (const Piece& piece : source.mapping->pieces) source.places.push_back(place(piece));
    if (source.places.empty()) source.mapping = nullptr;
    if (source.mapping == nullptr && column.required && !MayBeProposed(column))
      throw std::runtime_error("Falta dizer de onde vem «" + LabelOf(kind, column.name) + "».");
    source.codes = CodeTableOf(kind, column.name);
    // Of accidents the column holds a truth, of vehicles a name.
    if (column.kind == ColumnKind::kInteger) source.words = WordsFor(kind, column.name);
    sources_.push_back(std::move(source));
  }
  if (profile.transaction) transaction_ = place(*profile.transaction);
}

std::size_t RowMapper::PlaceOfColumn(std::string_view column) const {
  const auto found =
      std::find_if(columns_.begin(), columns_.end(), [&](const ImportColumn& c) { return column == c.name; });
  return static_cast<std::size_t>(found - columns_.begin());
}

bool RowMapper::IsMapped(std::string_view column) const {
  const std::size_t place = PlaceOfColumn(column);
  return place < sources_.size() && sources_[place].mapping != nullptr;
}

std::string RowMapper::JoinedText(const Source& from, const SourceRow& source,
                                  const ImportColumn& column) const {
  if (const std::string* corrected = CorrectionOf(source, column.name)) return *corrected;
  std::string joined;
  if (from.mapping == nullptr) return joined;
  for (std::size_t i = 0; i < from.places.size(); ++i) {
    const Piece& piece = from.mapping->pieces[i];
    std::string text;
    if (piece.section) {
      text = source.section;
    } else if (from.places[i] < 0) {
      text = piece.constant;
    } else if (const TableCell* cell = CellAt(source, from.places[i])) {
      RequireSound(*cell, column);
      text = Stripped(cell->text);
    }
    if (text.empty()) continue;
    if (!joined.empty()) joined += from.mapping->joint;
    joined += text;
  }
  return joined;
}

void RowMapper::FillText(std::size_t place, const SourceRow& source, MappedRow& out) {
  const ImportColumn& column = columns_[place];
  const Source& from = sources_[place];
  ImportRow::Field& field = out.row.at(place);
  field.text = WithoutGuard(JoinedText(from, source, column));
  if (field.text.empty()) return;
  if (from.codes != nullptr) {
    const FoundCode& found = codes_.Find(from.codes, column.name, field.text, profile_);
    if (found.how == FoundCode::How::kSeveral) {
      std::string several;
      for (const std::string& code : found.candidates) several += (several.empty() ? "" : ", ") + code;
      throw Refusal{column.name, Quoted(field.text) + " serve a vários (" + several + "): escolha um."};
    }
    if (found.how == FoundCode::How::kUnknown)
      throw Refusal{column.name, Quoted(field.text) + " não se conhece: escolha o código, ou crie-o."};
    field.text = found.code;
  } else if (std::string_view(column.name) == "Matricula") {
    if (!IsPortuguesePlate(field.text)) out.warning = "A matrícula não é portuguesa: fica como está.";
    field.text = WrittenPlate(field.text, codes_.Hyphens());
  }
  if (platform::Length(field.text) <= static_cast<std::size_t>(column.limit)) return;
  const std::string limit = std::to_string(column.limit) + " caracteres.";
  if (std::string_view(column.name) != "Obs") throw Refusal{column.name, "Tem mais de " + limit};
  field.text = platform::Left(field.text, static_cast<std::size_t>(column.limit));
  out.warning = "As observações foram cortadas a " + limit;
}

void RowMapper::Fill(std::size_t place, const SourceRow& source, MappedRow& out) {
  const ImportColumn& column = columns_[place];
  ImportRow::Field& field = out.row.at(place);
  Clear(field);
  if (column.kind == ColumnKind::kText)
    FillText(place, source, out);
  else if (column.kind == ColumnKind::kDate)
    field.date = Date(place, source);
  else
    field.number = Number(place, source);
  field.given = !field.text.empty() || field.number || field.date;
  if (column.required && !field.given && !MayBeProposed(column))
    throw Refusal{column.name, "Campo obrigatório!"};
}

void RowMapper::Map(const SourceRow& source, MappedRow& out) {
  out.refusal.reset();
  out.warning.clear();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (sources_[i].mapping == nullptr && source.corrections == nullptr) {
      Clear(out.row.at(i));
      continue;
    }
    try {
      Fill(i, source, out);
    } catch (Refusal& refusal) {
      if (!out.refusal) out.refusal = std::move(refusal);
    }
  }
  out.transaction.clear();
  if (transaction_)
    if (const TableCell* cell = CellAt(source, *transaction_)) out.transaction = Stripped(cell->text);
}

std::optional<platform::Date> RowMapper::DateOf(const SourceRow& source) const {
  if (kind_.date == nullptr) return std::nullopt;
  try {
    return Date(PlaceOfColumn(kind_.date), source);
  } catch (const Refusal&) {
    return std::nullopt;
  }
}

std::optional<Currency> RowMapper::AmountOf(const SourceRow& source) const {
  if (kind_.amount == nullptr || !IsMapped(kind_.amount)) return std::nullopt;
  try {
    return Number(PlaceOfColumn(kind_.amount), source);
  } catch (const Refusal&) {
    return std::nullopt;
  }
}

std::string RowMapper::TextOf(const std::string& column, const SourceRow& source) {
  const std::size_t place = PlaceOfColumn(column);
  const char* codes = sources_[place].codes;
  const std::string text = RawText(place, source);
  return codes == nullptr || text.empty() ? text : codes_.Find(codes, column, text, profile_).code;
}

std::optional<std::string> RowMapper::UnknownCode(const std::string& column, const SourceRow& source) {
  const std::size_t place = PlaceOfColumn(column);
  std::string text = RawText(place, source);
  if (text.empty()) return std::nullopt;
  const FoundCode& found = codes_.Find(sources_[place].codes, column, text, profile_);
  return found.how == FoundCode::How::kUnknown ? std::optional(std::move(text)) : std::nullopt;
}

/// Empty where a formula left nothing.
std::string RowMapper::RawText(std::size_t place, const SourceRow& source) const {
  try {
    return WithoutGuard(JoinedText(sources_[place], source, columns_[place]));
  } catch (const Refusal&) {
    return {};
  }
}

}  // namespace exchange
