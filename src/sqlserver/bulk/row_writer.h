#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/recordset.h"
#include "sqlserver/parameters.h"
#include "sqlserver/session.h"
#include "tsql/catalog.h"

namespace sqlserver {

/// Rows of one table on their way to the server, several hundred a trip. Values stand in the statements as
/// literals, each closed off by its own rules; what no literal carries safely, and a server that takes one
/// statement at a time, get them as parameters.
class RowWriter {
 public:
  /// One a field; nothing leaves the column as it is.
  using Values = std::vector<std::optional<platform::Variant>>;

  /// `fields`: the columns that rows may bring. Both outlive the writer.
  RowWriter(Session& session, const tsql::Table& table, const std::vector<platform::FieldInfo>& fields);

  // Each is sent with the others of its parcel. A failure names the table and the row of the parcel that it
  // hit; a row that is changed or removed and not there is error -2147217864. What was sent before stays,
  // within the batch of the caller.
  /// `numbered`: the server numbers the row, and `numbers` will have what it gave.
  void Add(const Values& row, bool numbered);
  /// `key`: the values of the primary key as they are.
  void Change(const std::vector<platform::Variant>& key, const Values& row);
  void Remove(const std::vector<platform::Variant>& key);
  /// Sends what is left. The numbers of the rows added with one, in their order.
  std::vector<long> Finish();

 private:
  struct Piece {
    std::string sql;
    Parameters parameters;
    bool literal = true;  // no value of it is a parameter
    bool numbered = false;
    bool must_hit = false;
    std::string row;  // as a failure names it
  };

  std::string Place(Piece& piece, const platform::FieldInfo& field, const platform::Variant& value) const;
  std::string Where(Piece& piece, const std::vector<platform::Variant>& key) const;
  std::string NameOf(const Values& row) const;
  std::string NameOf(const std::vector<platform::Variant>& key) const;
  void Take(Piece piece);
  void Send();
  void SendAlone(Piece& piece);
  void Answered(const Piece& piece, long answer);
  [[noreturn]] void Fail(const platform::RuntimeError& error, const Piece& piece) const;

  Session& session_;
  const tsql::Table& table_;
  const std::vector<platform::FieldInfo>& fields_;
  bool together_;
  std::vector<Piece> parcel_;
  std::size_t size_ = 0;  // bytes of the parcel's statements
  std::vector<long> numbers_;
};

}  // namespace sqlserver
