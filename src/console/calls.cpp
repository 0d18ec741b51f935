#include "console/calls.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <ostream>
#include <utility>

#include "console/call_texts.h"
#include "console/error_output.h"
#include "console/manual_pages.h"
#include "console/program.h"
#include "console/server_commands.h"
#include "platform/runtime_error.h"

namespace console {
namespace {

constexpr char kFooter[] =
    "Códigos de saída: 0 feito, 1 recusado, 2 argumentos errados, 3 falha da base de dados ou do disco,\n"
    "10 há alertas, ou excepções por ver.\n"
    "Sem --db nem --ligacao, a base de dados é parvel/frota.db na pasta de dados do utilizador.\n"
    "Em CSV, um texto que começa como uma fórmula (= + - @) leva um apóstrofo antes; a importação tira-o.\n"
    "A senha de um servidor vem da variável PARVEL_SENHA, de --senha-ficheiro, ou é pedida.";

/// Runs a command; a failure is a message and an exit code.
int Guard(std::ostream& err, const std::function<int()>& command) {
  try {
    return command();
  } catch (const platform::RuntimeError& error) {
    PrintError(err, error);
    return error.number() == platform::kKeyInUse ? kRefused : kFailed;
  } catch (const std::exception& error) {
    err << error.what() << '\n';
    return kFailed;
  }
}

}  // namespace

Calls::Calls(std::ostream& result, std::ostream& messages)
    : out(result), err(messages), app_(std::make_unique<CLI::App>("Gestão de frota no terminal.", "parvel")) {
  AddCommonOptions();
  app_->require_subcommand(1);
  app_->fallthrough();
  Translate(*app_);
  app_->footer(kFooter);
}

Calls::~Calls() = default;

void Calls::AddManual() {
  auto folder = std::make_shared<std::string>();
  CLI::App& command =
      Add("manual", "Escreve as páginas de manual e o que completa palavras na consola.", [this, folder] {
        WriteManual(*app_, *folder);
        return static_cast<int>(kDone);
      });
  command.group("");
  command.add_option("pasta", *folder, "Pasta onde ficam.")->required();
}

void Calls::AddCommonOptions() {
  app_->option_defaults()->group("Opções");
  app_->set_help_flag("-h,--help", "Mostra esta ajuda.");
  app_->set_version_flag("--version", "parvel " PARVEL_VERSION, "Mostra a versão.");
  auto* file = app_->add_option("--db", database.file, "Ficheiro da base de dados, em vez do habitual.")
                   ->type_name("FICHEIRO");
  auto* server = app_->add_option("--ligacao", database.connection,
                                  "Servidor em vez de um ficheiro: ligação ODBC ou DSN, sem a senha.")
                     ->type_name("LIGAÇÃO")
                     ->excludes(file);
  app_->add_flag("--diagnostico", diagnose_,
                 "Diz no fim o que foi ao servidor e veio: pedidos, esperas, registos, o mais lento.")
      ->needs(server);
  app_->add_option("--senha-ficheiro", database.passwordFile,
                   "Ficheiro, legível só por si, com a senha do servidor.")
      ->type_name("FICHEIRO");
  app_->add_option("--tempo-limite", database.timeLimit,
                   "Segundos que o servidor tem para cada pedido; 0 para esperar sempre.")
      ->type_name("SEGUNDOS")
      ->check(CLI::Validator(CLI::NonNegativeNumber).description(""));
}

CLI::App& Calls::Add(const char* name, const char* text, std::function<int()> run) {
  return AddBelow(*app_, name, text, std::move(run));
}

CLI::App& Calls::AddBelow(CLI::App& command, const char* name, const char* text, std::function<int()> run) {
  auto* added = command.add_subcommand(name, text)->group("Comandos");
  added->option_defaults()->group("Opções");
  added->set_help_flag("-h,--help", "Mostra esta ajuda.");
  added->callback([this, added, run = std::move(run)] {
    if (added->get_subcommands().empty()) run_ = run;
  });
  return *added;
}

/// An empty name is a mistake of the caller's, not the usual database.
bool Calls::NamesAreGiven() const {
  for (const auto& [option, name] : {std::pair{"--db", &database.file}, {"--ligacao", &database.connection}})
    if (app_->count(option) > 0 && name->empty()) {
      err << "Falta o nome em " << option << ". Veja parvel --help.\n";
      return false;
    }
  return true;
}

int Calls::Obey(const std::vector<std::string>& arguments) {
  try {
    app_->parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::Success& done) {
    app_->exit(done, out, err);
    return kDone;
  } catch (const CLI::ParseError& error) {
    err << InPortuguese(error) << " Veja parvel --help.\n";
    return kUsage;
  }
  if (!NamesAreGiven()) return kUsage;
  if (diagnose_) database.traffic = std::make_shared<sqlserver::Traffic>();
  const int code = Guard(err, run_);
  if (diagnose_) PrintTraffic(*database.traffic, err);
  return code;
}

}  // namespace console
