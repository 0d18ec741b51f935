#include "sqlserver/session.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/runtime_error.h"
#include "sqlserver/errors.h"
#include "sqlserver/utf16.h"

namespace sqlserver {
namespace {

using std::chrono::steady_clock;

SQLPOINTER AsAttribute(SQLULEN value) { return reinterpret_cast<SQLPOINTER>(value); }  // NOLINT: ODBC's way

bool IsTimeout(const OdbcFailure& failure) {
  const auto& all = failure.diagnostics();
  return std::any_of(all.begin(), all.end(),
                     [](const Diagnostic& each) { return each.state.starts_with("HYT"); });
}

/// Goes to the next result of a statement; false when there is none.
bool NextResult(const OdbcStatement& statement) {
  const SQLRETURN code = SQLMoreResults(statement.get());
  if (code == SQL_NO_DATA) return false;
  statement.Check(code);
  return true;
}

SQLLEN RowsHit(const OdbcStatement& statement) {
  SQLLEN rows = 0;
  statement.Check(SQLRowCount(statement.get(), &rows));
  return rows;
}

/// Goes to the next result that has rows; false when there is none.
bool AtRows(const OdbcStatement& statement) {
  while (statement.Columns() == 0)
    if (!NextResult(statement)) return false;
  return true;
}

std::optional<long> NumberIn(const OdbcStatement& statement) {
  if (!AtRows(statement)) return {};
  const SQLRETURN code = SQLFetch(statement.get());
  if (code == SQL_NO_DATA) return {};
  statement.Check(code);
  SQLINTEGER number = 0;
  SQLLEN length = SQL_NULL_DATA;
  statement.Check(SQLGetData(statement.get(), 1, SQL_C_SLONG, &number, sizeof number, &length));
  if (length == SQL_NULL_DATA) return {};
  return number;
}

}  // namespace

/// An open connection.
class Session::Link : public Handle {
 public:
  Link(const Handle& environment, const std::string& text, std::chrono::seconds limit)
      : Handle(SQL_HANDLE_DBC, environment.get()) {
    SQLSetConnectAttr(get(), SQL_ATTR_LOGIN_TIMEOUT, AsAttribute(static_cast<SQLULEN>(limit.count())), 0);
    std::u16string wide = ToUtf16(text);
    Check(SQLDriverConnectW(get(), nullptr, Wide(wide), static_cast<SQLSMALLINT>(wide.size()), nullptr, 0,
                            nullptr, SQL_DRIVER_NOPROMPT));
  }
  ~Link() {
    SQLEndTran(SQL_HANDLE_DBC, get(), SQL_ROLLBACK);  // a connection with a batch in hand does not close
    SQLDisconnect(get());
  }
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  std::string Product() const {
    std::array<SQLWCHAR, 128> name{};
    SQLSMALLINT bytes = 0;
    Check(SQLGetInfoW(get(), SQL_DBMS_NAME, name.data(), static_cast<SQLSMALLINT>(sizeof name), &bytes));
    return ToUtf8(reinterpret_cast<const char16_t*>(name.data()));
  }
  bool IsDead() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    const SQLRETURN code = SQLGetConnectAttr(get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
    return SQL_SUCCEEDED(code) && dead == SQL_CD_TRUE;
  }
  void CommitEach(bool each) const {
    const SQLULEN mode = each ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
    Check(SQLSetConnectAttr(get(), SQL_ATTR_AUTOCOMMIT, AsAttribute(mode), 0));
  }
  void End(SQLSMALLINT how) const { Check(SQLEndTran(SQL_HANDLE_DBC, get(), how)); }
};

Session::Session(ConnectionText connection, std::string password, Limits limits)
    : text_(std::move(connection)),
      password_(std::move(password)),
      limits_(limits),
      environment_(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
  try {
    environment_.Check(
        SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION, AsAttribute(SQL_OV_ODBC3), 0));
  } catch (const OdbcFailure& failure) {
    RaiseNotConnected(failure, Place());
  }
  Connect();
}

Session::~Session() = default;

void Session::Connect() {
  try {
    auto link = std::make_unique<Link>(environment_, text_.WithPassword(password_), limits_.login);
    dialect_ = &Dialect::Of(link->Product());
    if (*dialect_->sessionSetup != '\0') OdbcStatement(*link).Execute(dialect_->sessionSetup);
    link_ = std::move(link);
    lastUse_ = steady_clock::now();
  } catch (const OdbcFailure& failure) {
    RaiseNotConnected(failure, Place());
  }
}

/// Makes sure of a connection; true when it was made just now.
bool Session::Ready(Work work) {
  if (batch_) {
    if (link_ == nullptr)
      throw platform::RuntimeError(
          platform::kEngineFailure, "ODBC",
          "A ligação a " + Place() +
              " perdeu-se a meio de uma gravação em conjunto: nada dela ficou gravado.");
    return false;
  }
  const bool idle = steady_clock::now() - lastUse_ > limits_.idle;
  if (link_ != nullptr && !link_->IsDead() && (work == Work::kRead || !idle || Answers())) return false;
  link_.reset();
  Connect();
  return true;
}

bool Session::Answers() const {
  try {
    OdbcStatement(*link_).Execute("SELECT 1");
    return true;
  } catch (const OdbcFailure&) {
    return false;  // the connection is made anew, which says what is wrong
  }
}

void Session::Do(Work work, const std::function<void(const Link&)>& action) {
  for (bool again = false;; again = true) {
    const bool fresh = Ready(work);
    try {
      action(*link_);
      lastUse_ = steady_clock::now();
      return;
    } catch (const OdbcFailure& raw) {
      const OdbcFailure failure = Translated(raw);
      const bool lost = IsConnectionLost(failure) || link_->IsDead();
      // After a time limit the answer may still be on its way, so that the connection is of no use.
      if (lost || (IsTimeout(failure) && !batch_)) link_.reset();
      if (!lost) RaiseRefused(failure);
      if (batch_ || work != Work::kRead || fresh || again)
        RaiseLost(failure, Place(), work == Work::kCommit || (work == Work::kWrite && !batch_));
    }
  }
}

OdbcFailure Session::Translated(const OdbcFailure& failure) const {
  std::vector<Diagnostic> diagnostics = failure.diagnostics();
  for (Diagnostic& each : diagnostics) dialect_->translate(each);
  return OdbcFailure(std::move(diagnostics));
}

std::unique_ptr<OdbcStatement> Session::Run(const Link& link, const std::string& sql, Parameters& parameters,
                                            bool* hit) const {
  auto statement = std::make_unique<OdbcStatement>(link);
  // A driver that knows no time limit says so; statements then run without one.
  SQLSetStmtAttr(statement->get(), SQL_ATTR_QUERY_TIMEOUT,
                 AsAttribute(static_cast<SQLULEN>(limits_.statement.count())), 0);
  parameters.Bind(*statement);
  const bool any = statement->Execute(sql);
  if (hit != nullptr) *hit = any;
  return statement;
}

void Session::Read(const std::string& sql, const std::function<void(ResultReader&)>& take) {
  Parameters none;
  Do(Work::kRead, [&](const Link& link) {
    const auto statement = Run(link, sql, none);
    ResultReader reader(*statement);
    take(reader);
    while (NextResult(*statement)) {  // so that a failure further on is not missed
    }
  });
}

long Session::Write(const std::string& sql, Parameters& parameters) {
  SQLLEN rows = 0;
  Do(Work::kWrite, [&](const Link& link) {
    bool hit = false;
    const auto statement = Run(link, sql, parameters, &hit);
    if (hit) rows = RowsHit(*statement);
    // A trigger counts its own rows before the statement's.
    while (NextResult(*statement)) rows = std::max(rows, RowsHit(*statement));
  });
  return static_cast<long>(rows);
}

long Session::InsertNumbered(const std::string& sql, Parameters& parameters) {
  std::optional<long> number;
  Do(Work::kWrite, [&](const Link& link) {
    auto statement = Run(link, dialect_->batches ? sql + "; " + dialect_->lastIdentity : sql, parameters);
    if (!dialect_->batches) {
      statement = std::make_unique<OdbcStatement>(link);
      statement->Execute(dialect_->lastIdentity);
    }
    number = NumberIn(*statement);
  });
  if (!number)
    throw platform::RuntimeError(platform::kEngineFailure, "ODBC",
                                 "O registo ficou gravado, mas o servidor não lhe deu número.");
  return *number;
}

void Session::BeginBatch() {
  Do(Work::kRead, [](const Link& link) { link.CommitEach(false); });
  batch_ = true;
}

void Session::CommitBatch() {
  Do(Work::kCommit, [](const Link& link) {
    link.End(SQL_COMMIT);
    link.CommitEach(true);
  });
  batch_ = false;
}

void Session::AbandonBatch() {
  batch_ = false;
  if (link_ == nullptr) return;
  try {
    link_->End(SQL_ROLLBACK);
    link_->CommitEach(true);
  } catch (const OdbcFailure&) {
    link_.reset();  // the server undoes what a closed connection left
  }
}

}  // namespace sqlserver
