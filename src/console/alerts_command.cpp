#include "console/alerts_command.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <vector>

#include "console/error_output.h"
#include "console/list_printer.h"
#include "console/program.h"
#include "exchange/calendar_file.h"
#include "host/sistema.h"
#include "notice/due_dates.h"
#include "platform/files.h"
#include "platform/format.h"
#include "platform/host.h"

namespace console {
namespace {

using zorCrmParvel::Sistema;

constexpr std::int32_t kDiasNoCalendario = 30;

class AlertPrinter {
 public:
  AlertPrinter(const zorCrmParvel::DataAccessRef& bd, const AlertsOptions& options, std::ostream& out,
               std::ostream& err)
      : options_(options), out_(out), err_(err) {
    sistema_.ICrmSistema_ZorDataAccess = bd;
  }

  int Run() {
    for (const notice::AlertFamily& family : notice::AlertFamilies())
      if (options_.family.empty() || options_.family == family.word) Print(family);
    if (options_.json) out_ << json_.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    if (!options_.calendar.empty()) WriteDates();
    if (failed_) return kFailed;
    return rows_ > 0 ? kDue : kDone;
  }

 private:
  void WriteDates() {
    try {
      platform::WriteFile(options_.calendar,
                          exchange::WriteCalendar(notice::CalendarOf(dates_), platform::Now()));
    } catch (const platform::RuntimeError& error) {
      throw platform::RuntimeError(error.number(), "--ics",
                                   "Não foi possível escrever o calendário " + options_.calendar + ".");
    }
  }

  void Print(const notice::AlertFamily& family) {
    const auto list = sistema_.MostraListas(family.list);
    GridForm form;
    list->ICrmVwList_GridMaster(&form.Grelha);
    try {
      list->ICrmVwList_Iniciar();
    } catch (const platform::RuntimeError& error) {
      err_ << list->ICrmVwList_Name() << ": ";
      PrintError(err_, error);
      json_[family.word] = nullptr;
      failed_ = true;
      return;
    }
    rows_ += list->ICrmVwList_NumeroItens();
    if (!options_.calendar.empty())
      for (notice::DueDate& due : notice::DueDatesIn(family, form.Grelha, kDiasNoCalendario))
        dates_.push_back(std::move(due));
    if (options_.json)
      AddJson(family, form.Grelha);
    else
      PrintText(list->ICrmVwList_Name(), form.Grelha);
    list->ICrmVwList_Terminar();
  }

  void PrintText(const std::string& title, const platform::SGGrid& grid) {
    out_ << (first_ ? "" : "\n") << title << ": ";
    first_ = false;
    if (grid.RowCount() == 0) {
      out_ << "nada a tratar.\n";
      return;
    }
    out_ << grid.RowCount() << '\n';
    PrintList(out_, grid, Output::kTable);
  }

  void AddJson(const notice::AlertFamily& family, const platform::SGGrid& grid) {
    std::ostringstream rows;
    PrintList(rows, grid, Output::kJson);
    json_[family.word] = nlohmann::ordered_json::parse(rows.str());
  }

  const AlertsOptions& options_;
  std::ostream& out_;
  std::ostream& err_;
  Sistema sistema_;
  std::vector<notice::DueDate> dates_;
  nlohmann::ordered_json json_ = nlohmann::ordered_json::object();
  long rows_ = 0;
  bool first_ = true;
  bool failed_ = false;
};

}  // namespace

std::string AlertFamilyNames() {
  std::string names;
  for (const notice::AlertFamily& family : notice::AlertFamilies())
    names += (names.empty() ? "" : ", ") + std::string(family.word);
  return names;
}

bool IsAlertFamily(const std::string& name) {
  const auto& families = notice::AlertFamilies();
  return std::any_of(families.begin(), families.end(),
                     [&](const notice::AlertFamily& family) { return name == family.word; });
}

int PrintAlerts(const zorCrmParvel::DataAccessRef& bd, const AlertsOptions& options, std::ostream& out,
                std::ostream& err) {
  return AlertPrinter(bd, options, out, err).Run();
}

}  // namespace console
