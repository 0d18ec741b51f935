#include "notice/month_of_costs.h"

#include <filesystem>

#include "exchange/export/report_table.h"
#include "platform/files.h"
#include "platform/format.h"
#include "platform/host.h"
#include "reports/relatorio.h"

namespace notice {
namespace {

/// A file that goes when it has been read.
class PassingFile {
 public:
  explicit PassingFile(const char* name) : path(platform::Host::Current().TemporaryFolder() + name) {}
  ~PassingFile() {
    std::error_code failure;
    std::filesystem::remove(path, failure);
  }
  PassingFile(const PassingFile&) = delete;
  PassingFile& operator=(const PassingFile&) = delete;

  const std::string path;
};

}  // namespace

Attachment MonthOfCosts(const zorCrmParvel::DataAccessRef& bd, const std::vector<std::string>& plates) {
  const platform::Date today = platform::Today();
  const platform::Date before = today.AddDays(-today.day());  // the last day of the month before
  reports::Pedido request;
  request.periodo = reports::Periodo::Mes(before.year(), before.month());
  request.viaturas = plates;
  const reports::Relatorio report = reports::Fazer(bd, reports::TipoDeRelatorio::kCustos, request);
  const std::string month = platform::FormatDate(before, "yyyy-mm");
  const PassingFile file("custos-do-mes.xlsx");
  exchange::WriteTable(exchange::ExportTableOf(report.tabelas.front(), "Custos " + month), file.path,
                       exchange::ExportFormat::kXlsx);
  const platform::Bytes bytes = platform::ReadFile(file.path);
  return {"custos-" + month + ".xlsx", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet",
          std::string(bytes.begin(), bytes.end())};
}

}  // namespace notice
