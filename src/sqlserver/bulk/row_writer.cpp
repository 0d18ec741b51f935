#include "sqlserver/bulk/row_writer.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/stored_dates.h"
#include "platform/text.h"
#include "sqlserver/bulk/literals.h"
#include "sqlserver/dialect.h"

namespace sqlserver {
namespace {

using platform::FieldInfo;
using platform::RuntimeError;
using platform::Variant;

constexpr int kRowVanished = -2147217864;
constexpr std::size_t kMostRows = 250;     // of a parcel
constexpr std::size_t kMostSize = 200000;  // bytes of its statements
constexpr std::size_t kFieldsNamed = 2;    // of a row without a key of its own

}  // namespace

RowWriter::RowWriter(Session& session, const tsql::Table& table, const std::vector<FieldInfo>& fields)
    : session_(session), table_(table), fields_(fields), together_(session.dialect().batches) {}

std::string RowWriter::Place(Piece& piece, const FieldInfo& field, const Variant& value) const {
  if (together_)
    if (auto literal = LiteralOf(field.type, value)) return *literal;
  piece.literal = false;
  piece.parameters.Add(field, value);
  return "?";
}

std::string RowWriter::Where(Piece& piece, const std::vector<Variant>& key) const {
  std::string text;
  for (std::size_t i = 0; i < key.size(); ++i) {
    const std::string& name = table_.primaryKey[i];
    const auto field = std::find_if(fields_.begin(), fields_.end(), [&](const FieldInfo& each) {
      return platform::EqualsIgnoringCase(each.name, name);
    });
    text += (i == 0 ? " WHERE " : " AND ") + Bracketed(name) + " = " + Place(piece, *field, key[i]);
  }
  return text;
}

std::string RowWriter::NameOf(const Values& row) const {
  std::string name;
  std::size_t named = 0;
  for (std::size_t i = 0; i < row.size() && named < kFieldsNamed; ++i) {
    if (!row[i] || row[i]->IsNull() || fields_[i].type == platform::FieldType::kBytes) continue;
    name += (named++ == 0 ? "" : ", ") + fields_[i].name + " «" + row[i]->ToText() + "»";
  }
  return name;
}

std::string RowWriter::NameOf(const std::vector<Variant>& key) const {
  std::string name;
  for (std::size_t i = 0; i < key.size(); ++i)
    name += (i == 0 ? "" : ", ") + table_.primaryKey[i] + " «" + key[i].ToText() + "»";
  return name;
}

void RowWriter::Take(Piece piece) {
  size_ += piece.sql.size();
  parcel_.push_back(std::move(piece));
  if (!parcel_.back().literal || parcel_.size() == kMostRows || size_ > kMostSize) Send();
}

void RowWriter::Add(const Values& row, bool numbered) {
  Piece piece;
  piece.literal = together_;
  piece.numbered = numbered;
  piece.row = NameOf(row);
  try {
    platform::RequireStorableDates(fields_, row);
  } catch (const RuntimeError& error) {
    Fail(error, piece);
  }
  std::string names;
  std::string places;
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (!row[i]) continue;
    names += (names.empty() ? "" : ", ") + Bracketed(fields_[i].name);
    places += (places.empty() ? "" : ", ") + Place(piece, fields_[i], *row[i]);
  }
  piece.sql = "INSERT INTO " + Bracketed(table_.name) +
              (names.empty() ? " DEFAULT VALUES" : " (" + names + ") VALUES (" + places + ")");
  Take(std::move(piece));
}

void RowWriter::Change(const std::vector<Variant>& key, const Values& row) {
  Piece piece;
  piece.literal = together_;
  piece.must_hit = true;
  piece.row = NameOf(key);
  std::string assigned;
  for (std::size_t i = 0; i < row.size(); ++i)
    if (row[i])
      assigned += (assigned.empty() ? "" : ", ") + Bracketed(fields_[i].name) + " = " +
                  Place(piece, fields_[i], *row[i]);
  piece.sql = "UPDATE " + Bracketed(table_.name) + " SET " + assigned + Where(piece, key);
  Take(std::move(piece));
}

void RowWriter::Remove(const std::vector<Variant>& key) {
  Piece piece;
  piece.literal = together_;
  piece.must_hit = true;
  piece.row = NameOf(key);
  piece.sql = "DELETE FROM " + Bracketed(table_.name) + Where(piece, key);
  Take(std::move(piece));
}

/// A piece with parameters is the last of its parcel.
void RowWriter::Send() {
  std::vector<Piece> parcel = std::exchange(parcel_, {});
  size_ = 0;
  std::vector<Session::Together> statements;
  for (const Piece& piece : parcel)
    if (piece.literal) statements.push_back({piece.sql, piece.numbered});
  std::vector<long> answers;
  try {
    session_.WriteTogether(statements, answers);
  } catch (const RuntimeError& error) {
    Fail(error, parcel[std::min(answers.size(), statements.size() - 1)]);
  }
  for (std::size_t i = 0; i < answers.size(); ++i) Answered(parcel[i], answers[i]);
  if (answers.size() < statements.size())
    Fail(RuntimeError(platform::kEngineFailure, table_.name, "O servidor não disse se o gravou."),
         parcel[answers.size()]);
  if (!parcel.empty() && !parcel.back().literal) SendAlone(parcel.back());
}

void RowWriter::SendAlone(Piece& piece) {
  long answer = 0;
  try {
    answer = piece.numbered ? session_.InsertNumbered(piece.sql, piece.parameters)
                            : session_.Write(piece.sql, piece.parameters);
  } catch (const RuntimeError& error) {
    Fail(error, piece);
  }
  Answered(piece, answer);
}

void RowWriter::Answered(const Piece& piece, long answer) {
  if (piece.numbered) numbers_.push_back(answer);
  if (piece.must_hit && answer == 0)
    Fail(RuntimeError(kRowVanished, table_.name, "O registo já não está na base de dados."), piece);
}

void RowWriter::Fail(const RuntimeError& error, const Piece& piece) const {
  throw RuntimeError(error.number(), table_.name,
                     table_.name + ", registo de " + piece.row + ": " + error.description());
}

std::vector<long> RowWriter::Finish() {
  Send();
  return std::exchange(numbers_, {});
}

}  // namespace sqlserver
