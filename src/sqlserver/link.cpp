#include "sqlserver/link.h"

#include <algorithm>
#include <array>
#include <mutex>

#include "sqlserver/secret.h"
#include "sqlserver/utf16.h"

namespace sqlserver {
namespace {

constexpr std::chrono::seconds kGrace{1};  // beyond the limit, for a driver to end by itself

SQLPOINTER AsAttribute(SQLULEN value) { return reinterpret_cast<SQLPOINTER>(value); }  // NOLINT: ODBC's way

}  // namespace

Link::Link(const Handle& environment, const std::string& text, const Limits& limits)
    : Handle(SQL_HANDLE_DBC, environment.get()), limit_(limits.statement) {
  static std::mutex oneAtATime;  // the sockets that appear are this connection's
  const std::scoped_lock lock(oneAtATime);
  const std::vector<Socket> before = OpenSockets();
  SQLSetConnectAttr(get(), SQL_ATTR_LOGIN_TIMEOUT, AsAttribute(static_cast<SQLULEN>(limits.login.count())),
                    0);
  std::u16string wide = ToUtf16(text);
  const SQLRETURN code = SQLDriverConnectW(get(), nullptr, Wide(wide), static_cast<SQLSMALLINT>(wide.size()),
                                           nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
  Wipe(wide);
  Check(code);
  std::vector<Socket> made = OpenSockets();
  std::erase_if(made, [&](const Socket& each) {
    return std::find(before.begin(), before.end(), each) != before.end();
  });
  watch_ = std::make_unique<NetworkWatch>(std::move(made));
}

Link::~Link() {
  const WatchedCall call(watch_.get(), kGrace);
  SQLEndTran(SQL_HANDLE_DBC, get(), SQL_ROLLBACK);  // a connection with a batch in hand does not close
  SQLDisconnect(get());
}

std::chrono::milliseconds Link::Patience() const { return limit_.count() == 0 ? limit_ : limit_ + kGrace; }

std::string Link::Product() const {
  std::array<SQLWCHAR, 128> name{};
  SQLSMALLINT bytes = 0;
  Check(SQLGetInfoW(get(), SQL_DBMS_NAME, name.data(), static_cast<SQLSMALLINT>(sizeof name), &bytes));
  return ToUtf8(reinterpret_cast<const char16_t*>(name.data()));
}

bool Link::IsDead() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  const SQLRETURN code = SQLGetConnectAttr(get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  return SQL_SUCCEEDED(code) && dead == SQL_CD_TRUE;
}

void Link::CommitEach(bool each) const {
  const WatchedCall call(watch_.get(), Patience());
  const SQLULEN mode = each ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
  Check(SQLSetConnectAttr(get(), SQL_ATTR_AUTOCOMMIT, AsAttribute(mode), 0));
}

void Link::End(SQLSMALLINT how) const {
  const WatchedCall call(watch_.get(), Patience());
  Check(SQLEndTran(SQL_HANDLE_DBC, get(), how));
}

std::unique_ptr<OdbcStatement> Link::NewStatement() const {
  auto statement = std::make_unique<OdbcStatement>(*this, watch_.get(), Patience());
  // A driver that knows no time limit says so; statements then run without one.
  SQLSetStmtAttr(statement->get(), SQL_ATTR_QUERY_TIMEOUT, AsAttribute(static_cast<SQLULEN>(limit_.count())),
                 0);
  return statement;
}

}  // namespace sqlserver
