#include "sqlserver/password_check.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace sqlserver {
namespace {

/// The driver behind a DSN; empty when there is no such DSN.
std::string DriverOf(const Handle& environment, const std::string& dsn) {
  std::array<SQLCHAR, 256> name{};
  std::array<SQLCHAR, 1024> driver{};
  SQLSMALLINT nameLength = 0;
  SQLSMALLINT driverLength = 0;
  const auto next = [&](SQLUSMALLINT which) {
    return SQL_SUCCEEDED(SQLDataSources(environment.get(), which, name.data(),
                                        static_cast<SQLSMALLINT>(name.size()), &nameLength, driver.data(),
                                        static_cast<SQLSMALLINT>(driver.size()), &driverLength));
  };
  for (bool more = !dsn.empty() && next(SQL_FETCH_FIRST); more; more = next(SQL_FETCH_NEXT))
    if (platform::EqualsIgnoringCase(reinterpret_cast<const char*>(name.data()), dsn))
      return reinterpret_cast<const char*>(driver.data());
  return {};
}

bool IsFreeTds(std::string driver) {
  std::transform(driver.begin(), driver.end(), driver.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return driver.find("freetds") != std::string::npos || driver.find("tdsodbc") != std::string::npos;
}

}  // namespace

void RequireReadablePassword(const Handle& environment, const ConnectionText& connection,
                             const std::string& password) {
  if (!ConnectionText::DoublesBraces(password)) return;
  if (!IsFreeTds(connection.Get("Driver") + " " + DriverOf(environment, connection.Get("DSN")))) return;
  throw platform::RuntimeError(platform::kEngineFailure, "ODBC",
                               "A senha tem uma chaveta «}» e ainda um ponto e vírgula, uma chaveta «{» no "
                               "princípio ou um espaço numa "
                               "ponta, e o controlador FreeTDS não a recebe como é. Nada foi enviado. Mude a "
                               "senha no servidor, ou use "
                               "na ligação o controlador do fabricante.");
}

}  // namespace sqlserver
