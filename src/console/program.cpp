#include "console/program.h"

#include <ostream>

#include "console/calls.h"
#include "console/console_host.h"

namespace console {

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  ConsoleHost host(err);
  const platform::HostInstallation installation(host);
  Calls calls(out, err);
  for (const auto add : {AddListCalls, AddExchangeCalls, AddReportCalls, AddDatabaseCalls, AddHistoryCalls,
                         AddDriverCalls, AddNoticeCalls})
    add(calls);
  calls.AddManual();
  const int code = calls.Obey(arguments);
  if (out.flush()) return code;
  err << "Não foi possível escrever tudo o que o comando mostra. Veja se o disco está cheio ou se a saída "
         "foi fechada.\n";
  return kFailed;
}

}  // namespace console
