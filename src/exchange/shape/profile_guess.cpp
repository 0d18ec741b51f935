#include "exchange/shape/profile_guess.h"

#include <algorithm>
#include <cstdlib>
#include <set>

#include "exchange/import.h"
#include "exchange/shape/column_words.h"
#include "exchange/values/date_texts.h"
#include "exchange/values/fold.h"

namespace exchange {
namespace {

constexpr int kSure = 45;

struct Match {
  int fit;
  std::string column;
  std::size_t place;
};

/// Which of our columns each of the file's is, the surest first, each used once.
std::vector<Match> Assign(const ImportKind& kind, const std::vector<std::string>& header) {
  std::vector<Match> all;
  const auto look = [&](const std::string& column) {
    for (std::size_t i = 0; i < header.size(); ++i)
      if (const int fit = Fit(kind, column, header[i]); fit >= kSure) all.push_back({fit, column, i});
  };
  for (const ImportColumn& column : ColumnsOfKind(kind.name)) look(column.name);
  if (kind.date != nullptr) look("Hora");
  std::stable_sort(all.begin(), all.end(), [](const Match& a, const Match& b) { return a.fit > b.fit; });
  std::vector<Match> assigned;
  std::set<std::string> columns;
  std::set<std::size_t> places;
  for (const Match& match : all) {
    if (places.contains(match.place)) continue;
    if (match.column != "Obs" && !columns.insert(match.column).second) continue;
    places.insert(match.place);
    assigned.push_back(match);
  }
  return assigned;
}

/// True when some of the first cells of a column hold a time of day beside the day.
bool HasTimes(const std::vector<TableRow>& rows, std::size_t begin, std::size_t column) {
  for (std::size_t i = begin; i < std::min(rows.size(), begin + 50); ++i) {
    if (column >= rows[i].cells.size()) continue;
    const TableCell& cell = rows[i].cells[column];
    if (cell.kind == CellKind::kDate && cell.date.seconds() % 86400 != 0) return true;
    if (cell.kind == CellKind::kText && cell.text.find(':') != std::string::npos) return true;
  }
  return false;
}

Piece PieceAt(const std::vector<std::string>& header, std::size_t place) {
  return {.header = place < header.size() ? header[place] : "", .position = static_cast<int>(place)};
}

/// The column of a number that the sender gives each row.
std::optional<Piece> TransactionIn(const std::vector<std::string>& header) {
  static constexpr const char* kNames[] = {"n transaccao",    "no transaccao",  "n transacao",
                                           "no transacao",    "transaction id", "transaction number",
                                           "id transaccao",   "id transacao",   "transaction no",
                                           "no talao",        "n talao",        "talao",
                                           "receipt",         "receipt number", "numero transaccao",
                                           "no movimento",    "session id",     "id sessao",
                                           "no recibo",       "n recibo",       "id de la operacion",
                                           "numero operacion"};
  for (std::size_t i = 0; i < header.size(); ++i)
    for (const char* name : kNames)
      if (Folded(header[i]) == name) return PieceAt(header, i);
  return std::nullopt;
}

}  // namespace

const ImportKind* GuessKind(const std::vector<std::string>& header) {
  const ImportKind* best = nullptr;
  int most = 0;
  for (const ImportKind& kind : ImportKinds()) {
    const std::vector<Match> assigned = Assign(kind, header);
    int score = 0;
    for (const Match& match : assigned) score += match.fit;
    for (const ImportColumn& column : ColumnsOfKind(kind.name)) {
      const bool found = std::any_of(assigned.begin(), assigned.end(),
                                     [&](const Match& match) { return match.column == column.name; });
      if (column.required && !found) score -= 60;
    }
    if (score > most) {
      best = &kind;
      most = score;
    }
  }
  return best;
}

Profile GuessProfile(const ImportKind& kind, const std::vector<TableRow>& rows) {
  const TableShape shape = FindShape(rows);
  Profile profile;
  profile.kind = kind.name;
  profile.headerRow = shape.headerRows == 0 ? static_cast<int>(shape.before) : -1;
  profile.headerRows = static_cast<int>(shape.headerRows);
  profile.header = shape.header;
  std::vector<Match> assigned = Assign(kind, shape.header);
  std::stable_sort(assigned.begin(), assigned.end(),
                   [](const Match& a, const Match& b) { return a.place < b.place; });
  for (const Match& match : assigned)
    if (match.column != "Hora") profile.At(match.column).pieces.push_back(PieceAt(shape.header, match.place));
  for (ColumnMapping& mapping : profile.columns)
    if (mapping.target == "Obs") mapping.joint = " / ";
  for (const Match& match : assigned) {
    if (match.column != "Hora" || profile.Find(kind.date) == nullptr) continue;
    ColumnMapping& date = profile.At(kind.date);
    const auto place = static_cast<std::size_t>(date.pieces.front().position);
    if (!HasTimes(rows, shape.before + shape.headerRows, place))
      date.pieces.push_back(PieceAt(shape.header, match.place));
  }
  if (kind.amount != nullptr) profile.transaction = TransactionIn(shape.header);
  return profile;
}

int PlaceOf(const Piece& piece, const std::vector<std::string>& header) {
  if (piece.position < 0) return -1;
  if (piece.header.empty()) return piece.position;
  const std::string wanted = Folded(piece.header);
  const auto at = static_cast<std::size_t>(piece.position);
  if (at < header.size() && Folded(header[at]) == wanted) return piece.position;
  for (std::size_t i = 0; i < header.size(); ++i)
    if (Folded(header[i]) == wanted) return static_cast<int>(i);
  return -1;
}

bool Recognises(const Profile& profile, const std::vector<std::string>& header) {
  if (profile.headerRows == 0 || header.empty()) return false;
  const auto has = [&](const Piece& piece) { return piece.position < 0 || PlaceOf(piece, header) >= 0; };
  bool reads = false;
  for (const ColumnMapping& mapping : profile.columns)
    for (const Piece& piece : mapping.pieces) {
      if (!has(piece)) return false;
      reads = reads || piece.position >= 0;
    }
  for (const AsideRule& rule : profile.aside)
    if (!has(rule.column)) return false;
  return reads;
}

}  // namespace exchange
