#include "notice/month_of_costs.h"

#include <filesystem>

#include "exchange/export/export_table.h"
#include "platform/files.h"
#include "platform/format.h"
#include "platform/host.h"
#include "reports/relatorio.h"

namespace notice {
namespace {

exchange::ExportKind KindOf(reports::Formato format) {
  switch (format) {
    case reports::Formato::kEuros:
    case reports::Formato::kMedida:
    case reports::Formato::kPorUnidade:
      return exchange::ExportKind::kMoney;
    case reports::Formato::kInteiro:
      return exchange::ExportKind::kNumber;
    case reports::Formato::kData:
      return exchange::ExportKind::kDate;
    case reports::Formato::kLogico:
      return exchange::ExportKind::kTruth;
    case reports::Formato::kTexto:
      break;
  }
  return exchange::ExportKind::kText;
}

exchange::ExportCell CellOf(const reports::Celula& cell) {
  if (const auto* money = std::get_if<platform::Currency>(&cell)) return *money;
  if (const auto* whole = std::get_if<std::int64_t>(&cell)) return static_cast<double>(*whole);
  if (const auto* date = std::get_if<platform::Date>(&cell)) return *date;
  if (const auto* truth = std::get_if<bool>(&cell)) return *truth;
  const auto* text = std::get_if<std::string>(&cell);
  return text == nullptr ? std::string() : *text;
}

exchange::ExportTable SheetOf(const reports::Tabela& table, const std::string& title) {
  exchange::ExportTable sheet{.title = title, .columns = {}, .rows = {}};
  std::vector<std::size_t> shown;
  for (std::size_t i = 0; i < table.colunas.size(); ++i) {
    if (table.colunas[i].soParaMaquinas) continue;
    shown.push_back(i);
    sheet.columns.push_back({.heading = table.colunas[i].titulo, .kind = KindOf(table.colunas[i].formato)});
  }
  for (std::size_t i = 0; i < table.Quantas(); ++i) {
    const reports::LinhaDaTabela row = table.Linha(i);
    sheet.rows.emplace_back();
    for (const std::size_t column : shown) sheet.rows.back().push_back(CellOf(row.celulas[column]));
  }
  return sheet;
}

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
  exchange::WriteTable(SheetOf(report.tabelas.front(), "Custos " + month), file.path,
                       exchange::ExportFormat::kXlsx);
  const platform::Bytes bytes = platform::ReadFile(file.path);
  return {"custos-" + month + ".xlsx", "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet",
          std::string(bytes.begin(), bytes.end())};
}

}  // namespace notice
