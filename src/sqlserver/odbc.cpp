#include "sqlserver/odbc.h"

#include <algorithm>
#include <array>

#include "platform/runtime_error.h"
#include "sqlserver/utf16.h"

namespace sqlserver {
namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

constexpr std::size_t kLongestWords = 4096;
constexpr std::size_t kLongestName = 512;
constexpr std::chrono::milliseconds kLongestClose{1000};

std::u16string_view View(const SQLWCHAR* text, std::size_t length) {
  return {reinterpret_cast<const char16_t*>(text), length};
}

/// "[Maker][Driver][Server]words": the words.
std::string WithoutOrigin(std::string words) {
  while (!words.empty() && words[0] == '[') {
    const auto end = words.find(']');
    if (end == std::string::npos) break;
    words.erase(0, end + 1);
  }
  return words;
}

}  // namespace

SQLWCHAR* Wide(std::u16string& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }

Handle::Handle(SQLSMALLINT kind, SQLHANDLE parent) : kind_(kind) {
  if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &handle_)))
    throw platform::RuntimeError(platform::kEngineFailure, "ODBC",
                                 "Não há memória para falar com o servidor.");
}

void Handle::Fail(SQLRETURN code) const {
  std::vector<Diagnostic> diagnostics = Diagnostics();
  if (diagnostics.empty())
    diagnostics.push_back(
        {"HY000", 0, "O controlador ODBC devolveu o código " + std::to_string(code) + " sem explicação."});
  throw OdbcFailure(std::move(diagnostics));
}

std::vector<Diagnostic> Handle::Diagnostics() const {
  std::vector<Diagnostic> all;
  std::array<SQLWCHAR, 6> state{};
  std::array<SQLWCHAR, kLongestWords> words{};
  SQLINTEGER native = 0;
  SQLSMALLINT length = 0;
  for (SQLSMALLINT i = 1; SQL_SUCCEEDED(SQLGetDiagRecW(kind_, handle_, i, state.data(), &native, words.data(),
                                                       static_cast<SQLSMALLINT>(words.size()), &length));
       ++i) {
    const auto shown = std::min(static_cast<std::size_t>(length), words.size() - 1);
    all.push_back({ToUtf8(View(state.data(), 5)), native, WithoutOrigin(ToUtf8(View(words.data(), shown)))});
  }
  return all;
}

void OdbcStatement::Set(SQLINTEGER attribute, SQLULEN value) const {
  Check(SQLSetStmtAttr(get(), attribute, reinterpret_cast<SQLPOINTER>(value), 0));  // NOLINT: ODBC's way
}

// What is still unread may have to be cancelled.
OdbcStatement::~OdbcStatement() {
  const WatchedCall call(watch_, std::min(limit_, kLongestClose));
  SQLFreeStmt(get(), SQL_CLOSE);
}

bool OdbcStatement::More(SQLRETURN code) const {
  if (code == SQL_NO_DATA) return false;
  Check(code);
  return true;
}

bool OdbcStatement::Execute(std::string_view sql) const {
  const WatchedCall call(watch_, limit_);
  std::u16string text = ToUtf16(sql);
  return More(SQLExecDirectW(get(), Wide(text), static_cast<SQLINTEGER>(text.size())));
}

bool OdbcStatement::Fetch() const {
  const WatchedCall call(watch_, limit_);
  return More(SQLFetch(get()));
}

bool OdbcStatement::NextResult() const {
  const WatchedCall call(watch_, limit_);
  return More(SQLMoreResults(get()));
}

bool OdbcStatement::Get(SQLUSMALLINT column, SQLSMALLINT type, void* value, SQLLEN room,
                        SQLLEN* length) const {
  const WatchedCall call(watch_, limit_);
  return More(SQLGetData(get(), column, type, value, room, length));
}

SQLLEN OdbcStatement::RowsHit() const {
  SQLLEN rows = 0;
  Check(SQLRowCount(get(), &rows));
  return rows;
}

void OdbcStatement::Unbind() const {
  SQLFreeStmt(get(), SQL_UNBIND);
  SQLSetStmtAttr(get(), SQL_ATTR_ROW_STATUS_PTR, nullptr, 0);
  SQLSetStmtAttr(get(), SQL_ATTR_ROWS_FETCHED_PTR, nullptr, 0);
  SQLSetStmtAttr(get(), SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(1), 0);  // NOLINT: ODBC's way
}

SQLSMALLINT OdbcStatement::Columns() const {
  SQLSMALLINT columns = 0;
  Check(SQLNumResultCols(get(), &columns));
  return columns;
}

SQLLEN OdbcStatement::Number(SQLUSMALLINT column, SQLUSMALLINT property) const {
  SQLLEN value = 0;
  const SQLRETURN code = SQLColAttributeW(get(), column, property, nullptr, 0, nullptr, &value);
  return SQL_SUCCEEDED(code) ? value : 0;
}

std::string OdbcStatement::Text(SQLUSMALLINT column, SQLUSMALLINT property) const {
  std::array<SQLWCHAR, kLongestName> text{};
  SQLSMALLINT bytes = 0;
  if (!SQL_SUCCEEDED(SQLColAttributeW(get(), column, property, text.data(),
                                      static_cast<SQLSMALLINT>(sizeof text), &bytes, nullptr)))
    return {};
  return ToUtf8(
      View(text.data(), std::char_traits<char16_t>::length(reinterpret_cast<const char16_t*>(text.data()))));
}

}  // namespace sqlserver
