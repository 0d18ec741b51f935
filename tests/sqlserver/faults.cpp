#include "faults.h"

#include <dlfcn.h>
#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <cstring>
#include <deque>
#include <optional>
#include <utility>

#include "sqlserver/utf16.h"

namespace sqlserver_tests {
namespace {

std::deque<Fault> statementFaults;
std::deque<Fault> connectionFaults;
std::optional<Fault> current;  // what the failing handle has to say
bool pretending = false;
std::string settings;
std::string bindings;
int statements = 0;
int connections = 0;

template <typename Function>
Function Real(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

/// Takes the first fault when it hits the text.
bool Hits(std::deque<Fault>& faults, const std::string& text) {
  current.reset();
  if (faults.empty() || text.find(faults.front().in) == std::string::npos) return false;
  current = faults.front();
  faults.pop_front();
  return true;
}

std::string TextOf(const SQLWCHAR* text, SQLINTEGER length) {
  return sqlserver::ToUtf8({reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(length)});
}

void Give(const std::string& text, SQLWCHAR* place) {
  const std::u16string wide = sqlserver::ToUtf16(text);
  std::memcpy(place, wide.c_str(), (wide.size() + 1) * sizeof(char16_t));
}

}  // namespace

void FailNextStatement(const Fault& fault) { statementFaults.push_back(fault); }
void FailNextConnection(const Fault& fault) { connectionFaults.push_back(fault); }
void PretendServer() { pretending = true; }
std::string Bindings() { return std::exchange(bindings, ""); }
std::string Settings() { return std::exchange(settings, ""); }
void ClearFaults() {
  pretending = false;
  statementFaults.clear();
  connectionFaults.clear();
}
int StatementsSent() { return std::exchange(statements, 0); }
int ConnectionsMade() { return std::exchange(connections, 0); }

extern "C" {

SQLRETURN SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* text, SQLINTEGER length) {
  ++statements;
  if (const std::string sent = TextOf(text, length); pretending && sent.starts_with("SET ")) {
    settings += sent + "; ";
    std::u16string nothing = u"PRAGMA user_version = 0";
    return Real<decltype(&SQLExecDirectW)>("SQLExecDirectW")(
        handle, reinterpret_cast<SQLWCHAR*>(nothing.data()), static_cast<SQLINTEGER>(nothing.size()));
  }
  if (Hits(statementFaults, TextOf(text, length))) return SQL_ERROR;
  return Real<decltype(&SQLExecDirectW)>("SQLExecDirectW")(handle, text, length);
}

SQLRETURN SQLGetInfoW(SQLHDBC handle, SQLUSMALLINT what, SQLPOINTER value, SQLSMALLINT room,
                      SQLSMALLINT* length) {
  const SQLRETURN code = Real<decltype(&SQLGetInfoW)>("SQLGetInfoW")(handle, what, value, room, length);
  if (pretending && what == SQL_DBMS_NAME) Give("Microsoft SQL Server", static_cast<SQLWCHAR*>(value));
  return code;
}

SQLRETURN SQLSetConnectAttr(SQLHDBC handle, SQLINTEGER what, SQLPOINTER value, SQLINTEGER length) {
  if (pretending && what == SQL_ATTR_LOGIN_TIMEOUT)
    settings += std::to_string(reinterpret_cast<std::uintptr_t>(value)) + " s; ";
  return Real<decltype(&SQLSetConnectAttr)>("SQLSetConnectAttr")(handle, what, value, length);
}

SQLRETURN SQLBindParameter(SQLHSTMT handle, SQLUSMALLINT place, SQLSMALLINT kind, SQLSMALLINT value,
                           SQLSMALLINT column, SQLULEN size, SQLSMALLINT decimals, SQLPOINTER buffer,
                           SQLLEN room, SQLLEN* length) {
  for (const auto part : {static_cast<SQLLEN>(value), static_cast<SQLLEN>(column), static_cast<SQLLEN>(size),
                          static_cast<SQLLEN>(decimals), *length})
    bindings += std::to_string(part) + "/";
  bindings += " ";
  return Real<decltype(&SQLBindParameter)>("SQLBindParameter")(handle, place, kind, value, column, size,
                                                               decimals, buffer, room, length);
}

SQLRETURN SQLDriverConnectW(SQLHDBC handle, SQLHWND window, SQLWCHAR* in, SQLSMALLINT inLength, SQLWCHAR* out,
                            SQLSMALLINT outRoom, SQLSMALLINT* outLength, SQLUSMALLINT completion) {
  ++connections;
  if (Hits(connectionFaults, TextOf(in, inLength))) return SQL_ERROR;
  return Real<decltype(&SQLDriverConnectW)>("SQLDriverConnectW")(handle, window, in, inLength, out, outRoom,
                                                                 outLength, completion);
}

SQLRETURN SQLGetDiagRecW(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record, SQLWCHAR* state,
                         SQLINTEGER* native, SQLWCHAR* words, SQLSMALLINT room, SQLSMALLINT* length) {
  if (!current)
    return Real<decltype(&SQLGetDiagRecW)>("SQLGetDiagRecW")(kind, handle, record, state, native, words, room,
                                                             length);
  if (record > 1) return SQL_NO_DATA;
  Give(current->state, state);
  Give(current->words, words);
  *native = current->native;
  *length = static_cast<SQLSMALLINT>(sqlserver::ToUtf16(current->words).size());
  return SQL_SUCCESS;
}

}  // extern "C"

}  // namespace sqlserver_tests
