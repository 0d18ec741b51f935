#include "sqlserver/session.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/runtime_error.h"
#include "sqlserver/errors.h"
#include "sqlserver/password_check.h"
#include "sqlserver/result_numbers.h"

namespace sqlserver {
namespace {

using std::chrono::steady_clock;

SQLPOINTER AsAttribute(SQLULEN value) { return reinterpret_cast<SQLPOINTER>(value); }  // NOLINT: ODBC's way

/// The statement, and behind it what is read ahead.
std::string WithReads(std::string sql, const Session::Ahead& ahead) {
  for (const std::string& read : ahead) sql += "; " + read;
  return sql;
}

}  // namespace

Session::Session(ConnectionText connection, const Secret& password, Limits limits,
                 std::shared_ptr<Traffic> traffic)
    : text_(std::move(connection)),
      password_(password),
      limits_(limits),
      environment_(SQL_HANDLE_ENV, SQL_NULL_HANDLE),
      traffic_(traffic ? std::move(traffic) : std::make_shared<Traffic>()) {
  try {
    environment_.Check(
        SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION, AsAttribute(SQL_OV_ODBC3), 0));
  } catch (const OdbcFailure& failure) {
    RaiseNotConnected(failure, Place());
  }
  RequireReadablePassword(environment_, text_, password_.text());
  Connect(limits_.login);
}

Session::~Session() = default;

void Session::Connect(std::chrono::seconds limit) {
  Limits limits = limits_;
  limits.login = limit;
  try {
    const Secret text(text_.WithPassword(password_.text()));
    ++traffic_->trips;
    auto link = std::make_unique<Link>(environment_, text.text(), limits);
    dialect_ = &Dialect::Of(link->Product());
    if (*dialect_->sessionSetup != '\0') {
      ++traffic_->trips;
      link->NewStatement()->Execute(dialect_->sessionSetup);
    }
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
  const bool first = link_ == nullptr && dialect_ == nullptr;
  link_.reset();
  // Whoever waits for a statement waits no longer for the connection that it needs.
  const bool hurried = !first && limits_.statement.count() > 0;
  Connect(hurried ? std::min(limits_.login, limits_.statement) : limits_.login);
  return true;
}

/// Error -2147467259 when the time limit passes: the server has gone silent.
bool Session::Answers() {
  try {
    ++traffic_->trips;
    link_->NewStatement()->Execute("SELECT 1");
    return true;
  } catch (const OdbcFailure& failure) {
    if (!IsTimeout(failure) && !link_->BrokeOff()) return false;  // made anew, which says what is wrong
    link_.reset();
    RaiseTooSlow(Translated(failure));
  }
}

void Session::Do(Work work, const std::function<void(const Link&)>& action) {
  for (bool again = false;; again = true) {
    const bool fresh = Ready(work);
    const std::string begin = begin_;
    try {
      action(*link_);
      lastUse_ = steady_clock::now();
      return;
    } catch (const OdbcFailure& raw) {
      const OdbcFailure failure = Translated(raw);
      if (IsTimeout(failure) || link_->BrokeOff()) {
        link_.reset();  // the answer may still be on its way
        RaiseTooSlow(failure);
      }
      const bool lost = IsConnectionLost(failure) || link_->IsDead();
      if (!lost) {
        if (begin_ != begin)
          NotBegun(begin);
        else if (batch_ && work == Work::kWrite)
          RequireBatchStands();
        RaiseRefused(failure);
      }
      link_.reset();
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
                                            bool* hit) {
  ++traffic_->statements;
  ++traffic_->trips;
  auto statement = link.NewStatement();
  parameters.Bind(*statement);
  const bool any = statement->Execute(sql);
  if (hit != nullptr) *hit = any;
  return statement;
}

void Session::Count(const std::string& sql, steady_clock::time_point begin) {
  const auto time = std::chrono::duration_cast<std::chrono::microseconds>(steady_clock::now() - begin);
  if (time <= traffic_->slowest) return;
  traffic_->slowest = time;
  traffic_->slowestStatement = sql;
}

void Session::Read(const std::string& sql, const std::function<void(ResultReader&)>& take) {
  Parameters none;
  const auto begin = steady_clock::now();
  Do(Work::kRead, [&](const Link& link) {
    const std::string begun = std::exchange(begin_, "");
    const auto statement = Run(link, begun + sql, none);
    if (!begun.empty()) AtRows(*statement);
    ResultReader reader(*statement);
    take(reader);
    traffic_->rows += reader.rows();
    traffic_->bytes += reader.bytes();
    while (statement->NextResult()) {  // so that a failure further on is not missed
    }
  });
  Count(sql, begin);
}

void Session::ReadRows(const std::string& sql, const RowsPlace& place) {
  if (batch_ && link_ != nullptr && known_.Give(sql, place)) return;
  Read(sql, [&](ResultReader& result) {
    platform::RowStore& rows = place(result.fields());
    result.ReadAll(rows);
    if (batch_ && dialect_->batches) known_.Keep(sql, result.fields(), rows);
  });
}

long Session::Write(const std::string& sql, Parameters& parameters, const Ahead& ahead) {
  BeginAlone();
  SQLLEN rows = 0;
  known_.Forget();
  const auto begin = steady_clock::now();
  Do(Work::kWrite, [&](const Link& link) {
    bool hit = false;
    if (!ahead.empty()) {
      const auto statement = Run(link, WithReads(sql + "; " + dialect_->rowsHit, ahead), parameters);
      rows = AtRows(*statement) ? NumberHere(*statement).value_or(0) : 0;
      return TakeAhead(*statement, ahead);
    }
    const auto statement = Run(link, sql, parameters, &hit);
    if (hit) rows = statement->RowsHit();
    // A trigger counts its own rows before the statement's.
    while (statement->NextResult()) rows = std::max(rows, statement->RowsHit());
  });
  batchWrote_ = true;
  Count(sql, begin);
  return static_cast<long>(rows);
}

long Session::InsertNumbered(const std::string& sql, Parameters& parameters, const Ahead& ahead) {
  BeginAlone();
  std::optional<long> number;
  known_.Forget();
  const auto begin = steady_clock::now();
  Do(Work::kWrite, [&](const Link& link) {
    if (dialect_->batches) {
      const auto statement = Run(link, WithReads(sql + "; " + dialect_->lastIdentity, ahead), parameters);
      if (ahead.empty()) {
        number = NumberIn(*statement);
        return;
      }
      if (AtRows(*statement)) number = NumberHere(*statement);
      return TakeAhead(*statement, ahead);
    }
    Run(link, sql, parameters);
    const auto statement = link.NewStatement();
    statement->Execute(dialect_->lastIdentity);
    number = NumberIn(*statement);
  });
  batchWrote_ = true;
  Count(sql, begin);
  if (!number)
    throw platform::RuntimeError(platform::kEngineFailure, "ODBC",
                                 "O registo ficou gravado, mas o servidor não lhe deu número.");
  return *number;
}

void Session::WriteTogether(const std::vector<Together>& statements, std::vector<long>& answers) {
  if (statements.empty()) return;
  Parameters none;
  known_.Forget();
  std::string text;
  for (const Together& each : statements)
    text += each.sql + "; " + (each.numbered ? dialect_->lastIdentity : dialect_->rowsHit) + ";\n";
  const auto begin = steady_clock::now();
  Do(Work::kWrite, [&](const Link& link) {
    const std::string begun = std::exchange(begin_, "");
    const auto statement = Run(link, begun + text, none);
    while (AtRows(*statement)) {
      answers.push_back(NumberHere(*statement).value_or(0));
      if (!statement->NextResult()) break;
    }
  });
  batchWrote_ = true;
  Count(statements.front().sql, begin);
}

}  // namespace sqlserver
