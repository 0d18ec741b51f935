#include <CLI/CLI.hpp>
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "console/alerts_command.h"
#include "console/attachments_command.h"
#include "console/calls.h"
#include "console/kept_store.h"
#include "console/list_printer.h"
#include "console/program.h"
#include "console/record_command.h"
#include "exchange/export/export_table.h"
#include "history/act.h"
#include "host/sistema.h"

namespace console {
namespace {

using zorCrmParvel::Sistema;

struct KeyedOptions {
  std::string key;
  bool csv = false;
  bool json = false;
};

struct ExportOptions {
  std::string key;
  std::string file;
};

struct AttachmentOptions {
  std::int16_t kind = 0;
  std::string key;
  std::string file;
};

/// Shows the list of a key to `use`, and gives the exit code; a key that no list has gets the keys that there
/// are.
int WithList(const Calls& calls, const std::string& key,
             const std::function<void(const GridForm& form, const std::string& title)>& use) {
  Sistema sistema;
  sistema.ICrmSistema_ZorDataAccess = calls.Open();
  const auto list = sistema.MostraListas(key);
  if (!list) {
    calls.err << "Não há lista com a chave «" << key << "». As chaves são:\n";
    for (const std::string& other : sistema.ChavesDasListas()) calls.err << "  " << other << '\n';
    return kRefused;
  }
  GridForm form;
  list->ICrmVwList_GridMaster(&form.Grelha);
  list->ICrmVwList_Iniciar();
  use(form, list->ICrmVwList_Name());
  list->ICrmVwList_Terminar();
  return kDone;
}

int PrintOneList(const Calls& calls, const KeyedOptions& options) {
  if (options.key.empty()) {
    for (const std::string& key : Sistema().ChavesDasListas()) calls.out << key << '\n';
    return kDone;
  }
  return WithList(calls, options.key, [&](const GridForm& form, const std::string&) {
    PrintList(calls.out, form.Grelha,
              options.json  ? Output::kJson
              : options.csv ? Output::kCsv
                            : Output::kTable);
  });
}

int ExportOneList(const Calls& calls, const ExportOptions& options) {
  const exchange::ExportFormat format = exchange::FormatOf(options.file);
  return WithList(calls, options.key, [&](const GridForm& form, const std::string& title) {
    const exchange::ExportTable table = TableOf(form.Grelha, title.empty() ? options.key : title);
    exchange::WriteTable(table, options.file, format);
    calls.out << (table.rows.size() == 1 ? "1 linha" : std::to_string(table.rows.size()) + " linhas")
              << " em " << options.file << ".\n";
  });
}

int PrintOneVehicle(const Calls& calls, const KeyedOptions& options) {
  if (PrintVehicle(calls.Open(), options.key, options.json, calls.out)) return kDone;
  calls.err << "Não há viatura com a matrícula «" << options.key << "».\n";
  return kRefused;
}

int PrintAllAlerts(const Calls& calls, const AlertsOptions& options) {
  if (!options.family.empty() && !IsAlertFamily(options.family)) {
    calls.err << "Não há a família «" << options.family << "». Pode ser: " << AlertFamilyNames() << ".\n";
    return kUsage;
  }
  return PrintAlerts(calls.Open(), options, calls.out, calls.err);
}

void AddAlerts(Calls& calls) {
  const auto options = std::make_shared<AlertsOptions>();
  auto& alertas =
      calls.Add("alertas", "Mostra o que está a vencer ou vencido, em todas as listas de alertas.",
                [&calls, options] { return PrintAllAlerts(calls, *options); });
  alertas.add_flag("--json", options->json, "Em JSON, um membro por família.");
  alertas.add_option("--familia", options->family, "Só uma família: " + AlertFamilyNames() + ".")
      ->type_name("NOME");
  alertas.add_option("--ics", options->calendar, "Escreve também um calendário com as datas.")
      ->type_name("FICHEIRO");
}

void AddAttachments(Calls& calls) {
  const auto options = std::make_shared<AttachmentOptions>();
  auto& anexos = calls.Add("anexos", "Mostra os ficheiros anexados a um registo.", [&calls, options] {
    if (!options->file.empty()) {
      const auto kept = OpenKept(calls);
      history::Act(kept.get(), "Anexos: Juntar",
                   [&] { Attach(kept, options->kind, options->key, options->file); });
    }
    PrintAttachments(calls.Open(), options->kind, options->key, calls.out);
    return kDone;
  });
  anexos.add_option("tipo", options->kind, "Tipo do registo, um número.")->type_name("")->required();
  anexos.add_option("código", options->key, "Código do registo.")->type_name("")->required();
  anexos.add_option("--juntar", options->file, "Anexa antes este ficheiro, pelo seu caminho.")
      ->type_name("FICHEIRO");
}

void AddExport(Calls& calls) {
  const auto options = std::make_shared<ExportOptions>();
  auto& exportar =
      calls.Add("exportar", "Escreve uma lista num ficheiro XLSX, ODS ou CSV, pelo fim do seu nome.",
                [&calls, options] { return ExportOneList(calls, *options); });
  exportar.add_option("lista", options->key, "Chave da lista, por exemplo Marcas.")
      ->type_name("")
      ->required();
  exportar.add_option("ficheiro", options->file, "Ficheiro a escrever; um que lá esteja é substituído.")
      ->type_name("")
      ->required();
}

}  // namespace

void AddListCalls(Calls& calls) {
  const auto options = std::make_shared<KeyedOptions>();
  auto& lista = calls.Add("lista", "Mostra uma lista; sem chave, as chaves das listas.",
                          [&calls, options] { return PrintOneList(calls, *options); });
  lista.add_option("chave", options->key, "Chave da lista, por exemplo Marcas.")->type_name("");
  auto* csv = lista.add_flag("--csv", options->csv, "Em CSV, separado por ponto e vírgula.");
  lista.add_flag("--json", options->json, "Em JSON.")->excludes(csv);

  auto& viatura = calls.Add("viatura", "Mostra uma viatura com tudo o que lhe aconteceu.",
                            [&calls, options] { return PrintOneVehicle(calls, *options); });
  viatura.add_option("matrícula", options->key, "Matrícula da viatura.")->type_name("")->required();
  viatura.add_flag("--json", options->json, "Em JSON.");

  AddExport(calls);
  AddAlerts(calls);
  AddAttachments(calls);
}

}  // namespace console
