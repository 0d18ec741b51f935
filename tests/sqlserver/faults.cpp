#include "faults.h"

#include <arpa/inet.h>
#include <dlfcn.h>
#include <sql.h>
#include <sqlext.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <utility>

#include "sqlserver/odbc.h"
#include "sqlserver/utf16.h"

namespace sqlserver_tests {
namespace {

std::deque<Fault> statementFaults;
std::deque<Fault> connectionFaults;
std::deque<Fault> batchFaults;
std::vector<Fault> current;  // what the failing handle has to say
std::string silentOn;
std::pair<std::string, std::string> instead;  // what a statement contains, and what is sent in its place
bool pretending = false;
bool begun = false;  // a batch
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
  current.clear();
  if (faults.empty() || text.find(faults.front().in) == std::string::npos) return false;
  current.push_back(faults.front());
  current.insert(current.end(), faults.front().more.begin(), faults.front().more.end());
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

/// A connection to a server that takes it and says nothing.
class SilentServer {
 public:
  SilentServer() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* any = reinterpret_cast<sockaddr*>(&address);
    static_cast<void>(bind(server_, any, length));
    static_cast<void>(listen(server_, 1));
    static_cast<void>(getsockname(server_, any, &length));
    static_cast<void>(connect(client_, any, length));
  }
  ~SilentServer() {
    close(client_);
    close(server_);
  }
  SilentServer(const SilentServer&) = delete;
  SilentServer& operator=(const SilentServer&) = delete;
  /// Until somebody shuts the connection down.
  void Wait() const {
    char answer = 0;
    recv(client_, &answer, 1, 0);
  }

 private:
  int server_ = socket(AF_INET, SOCK_STREAM, 0);
  int client_ = socket(AF_INET, SOCK_STREAM, 0);
};

std::unique_ptr<SilentServer> silent;

/// What is still to run of a text of several statements, by the handle that it was sent on.
std::map<SQLHSTMT, std::deque<std::string>> pending;

/// The server's statements as SQLite reads them, one by one.
std::deque<std::string> Plain(const std::string& text) {
  std::deque<std::string> pieces(1);
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\'') quoted = !quoted;
    if (!quoted && text[i] == ';')
      pieces.emplace_back();
    else if (quoted || text[i] != 'N' || text[i + 1] != '\'')
      pieces.back() += text[i];
  }
  for (std::string& each : pieces) each.erase(0, each.find_first_not_of(" \n"));
  std::erase_if(pieces,
                [](const std::string& each) { return each.empty() || each.starts_with("IF OBJECT"); });
  for (std::string& each : pieces)
    for (const auto& [theirs, ours] :
         {std::pair{"@@ROWCOUNT", "changes()"},
          {"CAST(SCOPE_IDENTITY() AS int)", "last_insert_rowid()"},
          {"IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION", begun ? "ROLLBACK" : "PRAGMA user_version = 0"}})
      if (const auto at = each.find(theirs); at != std::string::npos)
        each.replace(at, std::strlen(theirs), ours);
  return pieces;
}

SQLRETURN RunNext(SQLHSTMT handle) {
  const std::string& piece = pending[handle].front();
  if (piece.starts_with("BEGIN")) begun = true;
  if (piece.starts_with("COMMIT") || piece.starts_with("ROLLBACK")) begun = false;
  std::u16string text = sqlserver::ToUtf16(pending[handle].front());
  pending[handle].pop_front();
  return Real<decltype(&SQLExecDirectW)>("SQLExecDirectW")(handle, sqlserver::Wide(text),
                                                           static_cast<SQLINTEGER>(text.size()));
}

}  // namespace

void FailAfterBatch(const Fault& fault) { batchFaults.push_back(fault); }
void AnswerInstead(const std::string& in, const std::string& sql) { instead = {in, sql}; }
void GoSilentOn(const std::string& text) { silentOn = text; }
void FailNextStatement(const Fault& fault) { statementFaults.push_back(fault); }
void FailNextConnection(const Fault& fault) { connectionFaults.push_back(fault); }
void PretendServer() { pretending = true; }
std::string Bindings() { return std::exchange(bindings, ""); }
std::string Settings() { return std::exchange(settings, ""); }
void ClearFaults() {
  pretending = begun = false;
  pending.clear();
  settings.clear();
  statementFaults.clear();
  connectionFaults.clear();
  batchFaults.clear();
  silentOn.clear();
  instead = {};
  silent.reset();
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
  const auto real = Real<decltype(&SQLExecDirectW)>("SQLExecDirectW");
  if (silent && TextOf(text, length).find(silentOn) != std::string::npos) {
    silent->Wait();
    current = {{"08S01", 20006, "Write to the server failed", ""}};
    return SQL_ERROR;
  }
  if (!instead.first.empty() && TextOf(text, length).find(instead.first) != std::string::npos) {
    std::u16string other = sqlserver::ToUtf16(instead.second);
    return real(handle, sqlserver::Wide(other), static_cast<SQLINTEGER>(other.size()));
  }
  if (!pretending) return real(handle, text, length);
  pending[handle] = Plain(TextOf(text, length));
  return RunNext(handle);
}

SQLRETURN SQLMoreResults(SQLHSTMT handle) {
  const auto rest = pending.find(handle);
  if (!pretending || rest == pending.end() || rest->second.empty())
    return Real<decltype(&SQLMoreResults)>("SQLMoreResults")(handle);
  SQLFreeStmt(handle, SQL_CLOSE);
  const SQLRETURN code = RunNext(handle);
  if (code == SQL_NO_DATA) return SQL_SUCCESS;  // of a write within a batch that hits no row
  return code;
}

SQLRETURN SQLGetInfoW(SQLHDBC handle, SQLUSMALLINT what, SQLPOINTER value, SQLSMALLINT room,
                      SQLSMALLINT* length) {
  const SQLRETURN code = Real<decltype(&SQLGetInfoW)>("SQLGetInfoW")(handle, what, value, room, length);
  if (pretending && what == SQL_DBMS_NAME) Give("Microsoft SQL Server", static_cast<SQLWCHAR*>(value));
  return code;
}

SQLRETURN SQLSetConnectAttr(SQLHDBC handle, SQLINTEGER what, SQLPOINTER value, SQLINTEGER length) {
  const bool each = what == SQL_ATTR_AUTOCOMMIT && reinterpret_cast<SQLULEN>(value) != 0;
  if (each && Hits(batchFaults, "")) return SQL_ERROR;
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
  if (!silentOn.empty()) silent = std::make_unique<SilentServer>();
  return Real<decltype(&SQLDriverConnectW)>("SQLDriverConnectW")(handle, window, in, inLength, out, outRoom,
                                                                 outLength, completion);
}

SQLRETURN SQLGetDiagRecW(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record, SQLWCHAR* state,
                         SQLINTEGER* native, SQLWCHAR* words, SQLSMALLINT room, SQLSMALLINT* length) {
  if (current.empty())
    return Real<decltype(&SQLGetDiagRecW)>("SQLGetDiagRecW")(kind, handle, record, state, native, words, room,
                                                             length);
  if (static_cast<std::size_t>(record) > current.size()) return SQL_NO_DATA;
  const Fault& told = current[static_cast<std::size_t>(record - 1)];
  Give(told.state, state);
  Give(told.words, words);
  *native = told.native;
  *length = static_cast<SQLSMALLINT>(sqlserver::ToUtf16(told.words).size());
  return SQL_SUCCESS;
}

}  // extern "C"

}  // namespace sqlserver_tests
