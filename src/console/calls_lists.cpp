#include <CLI/CLI.hpp>
#include <cstdint>
#include <memory>
#include <ostream>
#include <string>

#include "console/alerts_command.h"
#include "console/attachments_command.h"
#include "console/calls.h"
#include "console/list_printer.h"
#include "console/program.h"
#include "console/record_command.h"
#include "host/sistema.h"

namespace console {
namespace {

using zorCrmParvel::Sistema;

struct KeyedOptions {
  std::string key;
  bool csv = false;
  bool json = false;
};

struct AttachmentOptions {
  std::int16_t kind = 0;
  std::string key;
  std::string file;
};

int PrintOneList(const Calls& calls, const KeyedOptions& options) {
  Sistema sistema;
  if (options.key.empty()) {
    for (const std::string& key : sistema.ChavesDasListas()) calls.out << key << '\n';
    return kDone;
  }
  sistema.ICrmSistema_ZorDataAccess = calls.Open();
  const auto list = sistema.MostraListas(options.key);
  if (!list) {
    calls.err << "Não há lista com a chave «" << options.key << "». As chaves são:\n";
    for (const std::string& key : sistema.ChavesDasListas()) calls.err << "  " << key << '\n';
    return kRefused;
  }
  GridForm form;
  list->ICrmVwList_GridMaster(&form.Grelha);
  list->ICrmVwList_Iniciar();
  PrintList(calls.out, form.Grelha,
            options.json  ? Output::kJson
            : options.csv ? Output::kCsv
                          : Output::kTable);
  list->ICrmVwList_Terminar();
  return kDone;
}

int PrintOneVehicle(const Calls& calls, const KeyedOptions& options) {
  if (PrintVehicle(calls.Open(), options.key, options.json, calls.out)) return kDone;
  calls.err << "Não há viatura com a matrícula «" << options.key << "».\n";
  return kRefused;
}

int PrintOneDriver(const Calls& calls, const KeyedOptions& options) {
  if (PrintDriver(calls.Open(), options.key, options.json, calls.out)) return kDone;
  calls.err << "Não há motorista com o código «" << options.key << "».\n";
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
    PrintAttachments(calls.Open(), options->kind, options->key, options->file, calls.out);
    return kDone;
  });
  anexos.add_option("tipo", options->kind, "Tipo do registo, um número.")->type_name("")->required();
  anexos.add_option("código", options->key, "Código do registo.")->type_name("")->required();
  anexos.add_option("--juntar", options->file, "Anexa antes este ficheiro, pelo seu caminho.")
      ->type_name("FICHEIRO");
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

  auto& motorista = calls.Add("motorista", "Mostra um motorista com as cartas, gastos, multas e sinistros.",
                              [&calls, options] { return PrintOneDriver(calls, *options); });
  motorista.add_option("código", options->key, "Código do motorista.")->type_name("")->required();
  motorista.add_flag("--json", options->json, "Em JSON.");

  AddAlerts(calls);
  AddAttachments(calls);
}

}  // namespace console
