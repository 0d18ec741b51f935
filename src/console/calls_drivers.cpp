#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>

#include "console/calls.h"
#include "console/kept_store.h"
#include "console/program.h"
#include "console/record_command.h"
#include "history/drivers/driver_activity.h"
#include "history/drivers/driver_erasure.h"
#include "history/drivers/driver_export.h"
#include "history/settings.h"
#include "platform/host.h"

namespace console {
namespace {

struct DriverOptions {
  std::string code;
  bool json = false;
  std::string folder;
  bool erase = false;
  std::string again;  // the code, typed a second time
  int years = 0;
};

int Export(const Calls& calls, const DriverOptions& options) {
  const long files = history::ExportDriver(*OpenKept(calls), options.code, options.folder);
  calls.out << files << " ficheiros em " << options.folder << "; para ler: motorista.html\n";
  return kDone;
}

int Erase(const Calls& calls, const DriverOptions& options) {
  const auto store = OpenKept(calls);
  const auto name = history::NameOfDriver(*store, options.code);
  if (name && options.again != options.code) {
    calls.err << "Apagar para sempre os dados pessoais de " << options.code << " " << *name
              << ": ficha, cartas, fotografia, documentos e histórico? Isto não se pode anular.\n"
              << "Para o fazer, repita com --confirmar " << options.code << "\n";
    return kRefused;
  }
  const history::Erased erased = history::EraseDriver(store, options.code);
  calls.out << "Dados pessoais apagados; os gastos, multas e sinistros ficam sob o código " << erased.code
            << ".\n";
  if (!erased.fromFile)
    calls.err << "Do ficheiro, ou dos ficheiros do servidor, ainda não saiu tudo: outro programa tem a base "
                 "de dados "
                 "aberta, ou é a quem administra o servidor que cabe renová-los.\n";
  calls.err << "As cópias de segurança já feitas ainda os têm.\n";
  return kDone;
}

int Show(const Calls& calls, const DriverOptions& options) {
  if (PrintDriver(calls.Open(), options.code, options.json, calls.out)) return kDone;
  calls.err << "Não há motorista com o código «" << options.code << "».\n";
  return kRefused;
}

int Run(const Calls& calls, const DriverOptions& options) {
  if (options.erase) return Erase(calls, options);
  return options.folder.empty() ? Show(calls, options) : Export(calls, options);
}

int PrintQuiet(const Calls& calls, const DriverOptions& options) {
  const auto store = OpenKept(calls);
  const zorCrmParvel::DataAccessRef bd(store->inner());
  const int years = options.years > 0 ? options.years : history::ReadSettings(bd).driverYears;
  for (const history::QuietDriver& each :
       history::DriversQuietSince(*store, platform::Today().AddMonths(-12 * years)))
    calls.out << each.code << "  " << each.name << "  "
              << (each.last ? each.last->DayOnly().ToText() : "nunca") << '\n';
  return kDone;
}

}  // namespace

void AddDriverCalls(Calls& calls) {
  const auto options = std::make_shared<DriverOptions>();
  auto& motorista = calls.Add("motorista", "Mostra um motorista com as cartas, gastos, multas e sinistros.",
                              [&calls, options] { return Run(calls, *options); });
  motorista.add_option("código", options->code, "Código do motorista.")->type_name("")->required();
  auto* json = motorista.add_flag("--json", options->json, "Em JSON.");
  auto* folder =
      motorista
          .add_option("--exportar", options->folder,
                      "Escreve tudo o que há sobre ele numa pasta nova: JSON, ficheiros, uma página.")
          ->type_name("PASTA")
          ->excludes(json);
  auto* erase = motorista
                    .add_flag("--apagar-dados-pessoais", options->erase,
                              "Põe um código sem nome no lugar da pessoa, para sempre; os valores ficam.")
                    ->excludes(json)
                    ->excludes(folder);
  motorista.add_option("--confirmar", options->again, "O código outra vez, para apagar.")
      ->type_name("CÓDIGO")
      ->needs(erase);

  auto& quiet =
      calls.Add("motoristas-inactivos", "Mostra os motoristas sem gastos, multas ou sinistros há muito.",
                [&calls, options] { return PrintQuiet(calls, *options); });
  quiet.add_option("--anos", options->years, "Há quantos anos; sem isto, o prazo escolhido.")
      ->type_name("ANOS");
}

}  // namespace console
