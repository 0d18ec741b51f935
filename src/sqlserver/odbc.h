#pragma once

#include <sql.h>
#include <sqlext.h>

#include <chrono>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "sqlserver/network_watch.h"

namespace sqlserver {

/// One thing that the driver or the server said of a call.
struct Diagnostic {
  std::string state;  // SQLSTATE
  int native = 0;     // the server's number, 0 when it did not come from the server
  std::string words;  // without the names of driver and server before it
};

/// A call to ODBC that failed. It does not leave the room: see `errors.h`.
class OdbcFailure : public std::runtime_error {
 public:
  explicit OdbcFailure(std::vector<Diagnostic> diagnostics)
      : std::runtime_error("ODBC"), diagnostics_(std::move(diagnostics)) {}
  const std::vector<Diagnostic>& diagnostics() const { return diagnostics_; }

 private:
  std::vector<Diagnostic> diagnostics_;
};

/// An ODBC handle of any kind.
class Handle {
 public:
  /// Error -2147467259 when the driver manager has no memory for one.
  Handle(SQLSMALLINT kind, SQLHANDLE parent);
  ~Handle() { SQLFreeHandle(kind_, handle_); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  SQLHANDLE get() const { return handle_; }
  /// Raises `OdbcFailure` when a call on the handle failed.
  void Check(SQLRETURN code) const {
    if (!SQL_SUCCEEDED(code)) Fail(code);
  }
  [[noreturn]] void Fail(SQLRETURN code) const;
  /// What the driver has to say of the last call on the handle; empty when nothing.
  std::vector<Diagnostic> Diagnostics() const;

 private:
  SQLSMALLINT kind_;
  SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

/// A statement on a connection; it closes its result when it goes. With a watch, no call of it waits for the
/// server longer than `limit`.
class OdbcStatement : public Handle {
 public:
  explicit OdbcStatement(const Handle& connection, NetworkWatch* watch = nullptr,
                         std::chrono::milliseconds limit = {})
      : Handle(SQL_HANDLE_STMT, connection.get()), watch_(watch), limit_(limit) {}
  ~OdbcStatement();
  OdbcStatement(const OdbcStatement&) = delete;
  OdbcStatement& operator=(const OdbcStatement&) = delete;

  void Set(SQLINTEGER attribute, SQLULEN value) const;
  /// Sends a text of any length. False when the server said that no row was hit.
  bool Execute(std::string_view sql) const;
  /// Goes to the next row, or block of rows; false behind the last.
  bool Fetch() const;
  /// Goes to the next result; false when there is none.
  bool NextResult() const;
  /// The number of rows hit, -1 when the server did not tell.
  SQLLEN RowsHit() const;
  /// Lets go of the places that rows of a result were read into.
  void Unbind() const;
  /// Of the result; 0 when the statement gave none.
  SQLSMALLINT Columns() const;
  /// A numeric property of a result column, 0 when the driver does not know it.
  SQLLEN Number(SQLUSMALLINT column, SQLUSMALLINT property) const;
  std::string Text(SQLUSMALLINT column, SQLUSMALLINT property) const;
  /// Reads a value, or a part of it, of the current row; false when there is no more of it.
  bool Get(SQLUSMALLINT column, SQLSMALLINT type, void* value, SQLLEN room, SQLLEN* length) const;

 private:
  bool More(SQLRETURN code) const;

  NetworkWatch* watch_;
  std::chrono::milliseconds limit_;
};

/// Text as ODBC's wide functions take it.
SQLWCHAR* Wide(std::u16string& text);

}  // namespace sqlserver
