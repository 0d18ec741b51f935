#include "stand_in.h"

#include <thread>
#include <utility>

#include "stand_in_values.h"

namespace bench {
namespace {

std::function<void(const std::string& text, Milliseconds took)> tell;

/// One trip, with what the server works for it.
class Trip {
 public:
  explicit Trip(std::string text) : text_(std::move(text)) { std::this_thread::sleep_for(delay); }
  ~Trip() {
    if (tell) tell(text_, std::chrono::steady_clock::now() - begin_);
  }
  Trip(const Trip&) = delete;
  Trip& operator=(const Trip&) = delete;

 private:
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
  std::string text_;
};

}  // namespace

std::string StandInConnection(const std::string& file) {
  return "Driver=StandIn;Server=longe;Database=" + file;
}
void DelayTrips(std::chrono::milliseconds trip) { delay = trip; }
void TellTrips(std::function<void(const std::string& text, Milliseconds took)> told) {
  tell = std::move(told);
}

extern "C" {

SQLRETURN SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE parent, SQLHANDLE* handle) {
  Thing* made = nullptr;
  if (kind == SQL_HANDLE_ENV) made = new Environment;
  if (kind == SQL_HANDLE_DBC) made = new Connection;
  if (kind == SQL_HANDLE_STMT) made = new Request(As<Connection>(parent));
  *handle = made;
  return SQL_SUCCESS;
}

SQLRETURN SQLFreeHandle(SQLSMALLINT, SQLHANDLE handle) {
  delete static_cast<Thing*>(handle);
  return SQL_SUCCESS;
}

SQLRETURN SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }
SQLRETURN SQLGetConnectAttr(SQLHDBC, SQLINTEGER, SQLPOINTER, SQLINTEGER, SQLINTEGER*) { return SQL_ERROR; }
SQLRETURN SQLDisconnect(SQLHDBC) { return SQL_SUCCESS; }

SQLRETURN SQLSetConnectAttr(SQLHDBC handle, SQLINTEGER what, SQLPOINTER value, SQLINTEGER) {
  if (what != SQL_ATTR_AUTOCOMMIT || value != nullptr) return SQL_SUCCESS;
  auto& connection = As<Connection>(handle);
  const Trip trip("BEGIN");
  return Guarded(connection, [&] {
    connection.database->BeginBatch();
    connection.batch = true;
    return SQL_SUCCESS;
  });
}

SQLRETURN SQLEndTran(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT how) {
  auto& connection = As<Connection>(handle);
  if (!std::exchange(connection.batch, false)) return SQL_SUCCESS;
  const Trip trip(how == SQL_COMMIT ? "COMMIT" : "ROLLBACK");
  return Guarded(connection, [&] {
    if (how == SQL_COMMIT)
      connection.database->CommitBatch();
    else
      connection.database->AbandonBatch();
    return SQL_SUCCESS;
  });
}

SQLRETURN SQLDriverConnectW(SQLHDBC handle, SQLHWND, SQLWCHAR* in, SQLSMALLINT length, SQLWCHAR*, SQLSMALLINT,
                            SQLSMALLINT*, SQLUSMALLINT) {
  auto& connection = As<Connection>(handle);
  return Guarded(connection, [&] {
    connection.database =
        embedded::Database::Open(sqlserver::ConnectionText(TextOf(in, length)).Get("Database"));
    return SQL_SUCCESS;
  });
}

SQLRETURN SQLGetInfoW(SQLHDBC, SQLUSMALLINT, SQLPOINTER value, SQLSMALLINT, SQLSMALLINT*) {
  Give("Microsoft SQL Server", value);
  return SQL_SUCCESS;
}

SQLRETURN SQLBindParameter(SQLHSTMT handle, SQLUSMALLINT, SQLSMALLINT, SQLSMALLINT value, SQLSMALLINT,
                           SQLULEN, SQLSMALLINT, SQLPOINTER buffer, SQLLEN, SQLLEN* length) {
  As<Request>(handle).parameters.push_back({value, static_cast<const char*>(buffer), length});
  return SQL_SUCCESS;
}

SQLRETURN SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* text, SQLINTEGER length) {
  const std::string sent = TextOf(text, length);
  const Trip trip(sent);
  auto& request = As<Request>(handle);
  request.statements = Statements(sent, request.parameters);
  return RunNext(request);
}

SQLRETURN SQLMoreResults(SQLHSTMT handle) { return RunNext(As<Request>(handle)); }

SQLRETURN SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* columns) {
  const auto& rows = As<Request>(handle).rows;
  *columns = rows ? static_cast<SQLSMALLINT>(rows->FieldList().size()) : SQLSMALLINT{0};
  return SQL_SUCCESS;
}

SQLRETURN SQLRowCount(SQLHSTMT, SQLLEN* rows) {
  *rows = 1;
  return SQL_SUCCESS;
}

SQLRETURN SQLDescribeColW(SQLHSTMT handle, SQLUSMALLINT column, SQLWCHAR* name, SQLSMALLINT,
                          SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* width, SQLSMALLINT* decimals,
                          SQLSMALLINT* nullable) {
  const platform::FieldInfo& field = As<Request>(handle).rows->FieldList()[column - 1U];
  *length = Give(field.name, name);
  *type = ShapeOf(field).type;
  *width = ShapeOf(field).width;
  *decimals = 4;
  *nullable = field.nullable ? SQL_NULLABLE : SQL_NO_NULLS;
  return SQL_SUCCESS;
}

SQLRETURN SQLColAttributeW(SQLHSTMT handle, SQLUSMALLINT column, SQLUSMALLINT, SQLPOINTER text, SQLSMALLINT,
                           SQLSMALLINT*, SQLLEN* number) {
  const platform::FieldInfo& field = As<Request>(handle).rows->FieldList()[column - 1U];
  if (text != nullptr) Give(field.type == FieldType::kCurrency ? "money" : "", text);
  if (number != nullptr) *number = 0;
  return SQL_SUCCESS;
}

SQLRETURN SQLSetStmtAttr(SQLHSTMT handle, SQLINTEGER what, SQLPOINTER value, SQLINTEGER) {
  As<Request>(handle).attributes[what] = value;
  return SQL_SUCCESS;
}

SQLRETURN SQLBindCol(SQLHSTMT handle, SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER value, SQLLEN room,
                     SQLLEN* length) {
  As<Request>(handle).bindings[column] = {type, static_cast<char*>(value), room, length};
  return SQL_SUCCESS;
}

SQLRETURN SQLFetch(SQLHSTMT handle) {
  auto& request = As<Request>(handle);
  return Guarded(request, [&] {
    request.given.clear();
    std::size_t fetched = 0;
    const auto there = [&] {
      return request.next < request.rows->RowsAtHand() || request.rows->FetchMore(1);
    };
    for (; fetched < RowsAtOnce(request) && there(); ++fetched, ++request.next) Fill(request, fetched);
    if (const auto count = request.attributes.find(SQL_ATTR_ROWS_FETCHED_PTR);
        count != request.attributes.end() && count->second != nullptr)
      *static_cast<SQLULEN*>(count->second) = fetched;
    return fetched == 0 ? SQL_NO_DATA : SQL_SUCCESS;
  });
}

/// Texts and bytes in parts, as there is room.
SQLRETURN SQLGetData(SQLHSTMT handle, SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER value, SQLLEN room,
                     SQLLEN* length) {
  auto& request = As<Request>(handle);
  const auto [given, first] = request.given.try_emplace(column, 0);
  const Cell& cell = request.rows->CellAt(request.next - 1, column - 1U);
  if (cell.IsNull() || (type != SQL_C_WCHAR && type != SQL_C_BINARY)) {
    if (!first) return SQL_NO_DATA;
    *length = Put(cell, type, static_cast<char*>(value));
    return SQL_SUCCESS;
  }
  return GivePart(cell, type, {static_cast<char*>(value), room, length}, given->second, first);
}

SQLRETURN SQLFreeStmt(SQLHSTMT handle, SQLUSMALLINT what) {
  auto& request = As<Request>(handle);
  if (what == SQL_UNBIND)
    request.bindings.clear();
  else
    request.rows.reset();
  return SQL_SUCCESS;
}

SQLRETURN SQLGetDiagRecW(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT record, SQLWCHAR* state,
                         SQLINTEGER* native, SQLWCHAR* words, SQLSMALLINT, SQLSMALLINT* length) {
  const std::string& said = static_cast<Thing*>(handle)->words;
  if (record != 1 || said.empty()) return SQL_NO_DATA;
  Give(said.find("Invalid object") != std::string::npos ? "42S02" : "42000", state);
  *native = 50000;
  *length = Give(said, words);
  return SQL_SUCCESS;
}

}  // extern "C"

}  // namespace bench
