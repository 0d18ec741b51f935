#include "console/alerts_command.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <vector>

#include "console/error_output.h"
#include "console/list_printer.h"
#include "console/program.h"
#include "exchange/calendar_file.h"
#include "host/sistema.h"
#include "platform/files.h"
#include "platform/format.h"
#include "platform/host.h"

namespace console {
namespace {

using platform::Variant;
using zorCrmParvel::Sistema;

constexpr std::int32_t kDiasNoCalendario = 30;

/// A column of days from today, and what they count to.
struct Prazo {
  const char* coluna;
  const char* nome;
};

struct Familia {
  const char* palavra;
  const char* lista;  // key
  std::vector<Prazo> prazos;
  std::vector<const char*> identidade;  // columns that tell one thing from another
  std::vector<const char*> resumo;      // columns for the eye
};

const std::vector<Familia>& Familias() {
  static const std::vector<Familia> familias = {
      {"viaturas",
       "AlertasViat",
       {{"DiasSelo", "Selo"}, {"DiasTac", "Descarga do tacógrafo"}},
       {"Matricula"},
       {"Matricula", "Marca"}},
      {"apolices", "AlertasAp", {{"Dias", "Apólice"}}, {"Matricula", "Apolice"}, {"Apolice", "Matricula"}},
      {"revisoes", "AlertasRev", {{"Dias", "Revisão"}}, {"Matricula"}, {"Matricula", "Nome"}},
      {"inspeccoes", "AlertasInsp", {{"Dias", "Inspecção"}}, {"Matricula"}, {"Matricula"}},
      {"motoristas",
       "AlertasMot",
       {{"Dias", "Motorista"}},
       {"Codigo", "Documento"},
       {"Documento", "Motorista"}},
      {"acessorios", "AlertasAcess", {{"Dias", "Acessório"}}, {"Id"}, {"Acessorio", "Marca", "Matricula"}}};
  return familias;
}

/// The due dates by their identifiers. One date of one thing is one entry, with all that there is to say.
class DueDates {
 public:
  void Add(const Familia& familia, const platform::SGGrid& grid) {
    for (long row = 0; row < grid.RowCount(); ++row)
      for (const Prazo& prazo : familia.prazos) {
        const Variant dias = grid.CellValue(row, grid.ColumnIndex(prazo.coluna));
        if (!dias.IsNull() && dias.ToLong() <= kDiasNoCalendario)
          Add(familia, prazo, grid, row, dias.ToLong());
      }
  }

  std::vector<exchange::CalendarEntry> Entries() const {
    std::vector<exchange::CalendarEntry> all;
    for (const auto& [uid, entry] : entries_) all.push_back(entry);
    return all;
  }

 private:
  void Add(const Familia& familia, const Prazo& prazo, const platform::SGGrid& grid, long row,
           std::int32_t dias) {
    const auto cells = [&](const std::vector<const char*>& columns, const char* between) {
      std::string text;
      for (const char* column : columns) text += between + grid.CellText(row, grid.ColumnIndex(column));
      return text;
    };
    const platform::Date day = platform::Today().AddDays(dias);
    const std::string uid = std::string(familia.lista) + "-" + prazo.coluna + cells(familia.identidade, "-") +
                            "-" + platform::FormatDate(day, "yyyymmdd") + "@parvel";
    exchange::CalendarEntry& entry = entries_[uid];
    entry.uid = uid;
    entry.day = day;
    entry.summary = std::string(prazo.nome) + ":" + cells(familia.resumo, " ");
    const std::string notas = grid.CellText(row, grid.ColumnIndex("Notas"));
    if (notas.empty() || entry.description.find(notas) != std::string::npos) return;
    entry.description += (entry.description.empty() ? "" : "\n") + notas;
  }

  std::map<std::string, exchange::CalendarEntry> entries_;
};

class AlertPrinter {
 public:
  AlertPrinter(const zorCrmParvel::DataAccessRef& bd, const AlertsOptions& options, std::ostream& out,
               std::ostream& err)
      : options_(options), out_(out), err_(err) {
    sistema_.ICrmSistema_ZorDataAccess = bd;
  }

  int Run() {
    for (const Familia& familia : Familias())
      if (options_.family.empty() || options_.family == familia.palavra) Print(familia);
    if (options_.json) out_ << json_.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    if (!options_.calendar.empty()) WriteDates();
    if (failed_) return kFailed;
    return rows_ > 0 ? kDue : kDone;
  }

 private:
  void WriteDates() {
    try {
      platform::WriteFile(options_.calendar, exchange::WriteCalendar(dates_.Entries(), platform::Now()));
    } catch (const platform::RuntimeError& error) {
      throw platform::RuntimeError(error.number(), "--ics",
                                   "Não foi possível escrever o calendário " + options_.calendar + ".");
    }
  }

  void Print(const Familia& familia) {
    const auto list = sistema_.MostraListas(familia.lista);
    GridForm form;
    list->ICrmVwList_GridMaster(&form.Grelha);
    try {
      list->ICrmVwList_Iniciar();
    } catch (const platform::RuntimeError& error) {
      err_ << list->ICrmVwList_Name() << ": ";
      PrintError(err_, error);
      json_[familia.palavra] = nullptr;
      failed_ = true;
      return;
    }
    rows_ += list->ICrmVwList_NumeroItens();
    if (!options_.calendar.empty()) dates_.Add(familia, form.Grelha);
    if (options_.json)
      AddJson(familia, form.Grelha);
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

  void AddJson(const Familia& familia, const platform::SGGrid& grid) {
    std::ostringstream rows;
    PrintList(rows, grid, Output::kJson);
    json_[familia.palavra] = nlohmann::ordered_json::parse(rows.str());
  }

  const AlertsOptions& options_;
  std::ostream& out_;
  std::ostream& err_;
  Sistema sistema_;
  DueDates dates_;
  nlohmann::ordered_json json_ = nlohmann::ordered_json::object();
  long rows_ = 0;
  bool first_ = true;
  bool failed_ = false;
};

}  // namespace

std::string AlertFamilyNames() {
  std::string names;
  for (const Familia& familia : Familias())
    names += (names.empty() ? "" : ", ") + std::string(familia.palavra);
  return names;
}

bool IsAlertFamily(const std::string& name) {
  const auto& familias = Familias();
  return std::any_of(familias.begin(), familias.end(),
                     [&](const Familia& familia) { return name == familia.palavra; });
}

int PrintAlerts(const zorCrmParvel::DataAccessRef& bd, const AlertsOptions& options, std::ostream& out,
                std::ostream& err) {
  return AlertPrinter(bd, options, out, err).Run();
}

}  // namespace console
