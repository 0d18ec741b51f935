#include "console/program.h"

#include <CLI/CLI.hpp>
#include <ostream>

#include "console/console_host.h"
#include "console/demo.h"
#include "console/list_printer.h"
#include "console/paths.h"
#include "embedded/database.h"
#include "host/sistema.h"

namespace console {
namespace {

using platform::RuntimeError;
using zorCrmParvel::Sistema;

/// The form in which the terminal keeps a list's grid; it is never shown.
class GridForm : public platform::Form {
 public:
  platform::SGGrid Grelha{*this, "Grelha"};
};

struct Options {
  std::string database;
  std::string key;
  bool csv = false;
  bool json = false;
  std::string copy;
};

class Program {
 public:
  Program(const Options& options, std::ostream& out, std::ostream& err)
      : options_(options), out_(out), err_(err) {}

  int PrintOneList() {
    if (options_.key.empty()) return PrintKeys();
    Sistema sistema;
    sistema.ICrmSistema_ZorDataAccess = Open();
    const auto list = sistema.MostraListas(options_.key);
    if (!list) {
      err_ << "Não há lista com a chave «" << options_.key << "». As chaves são:\n";
      for (const std::string& key : sistema.ChavesDasListas()) err_ << "  " << key << '\n';
      return kRefused;
    }
    GridForm form;
    list->ICrmVwList_GridMaster(&form.Grelha);
    list->ICrmVwList_Iniciar();
    PrintList(out_, form.Grelha,
              options_.json  ? Output::kJson
              : options_.csv ? Output::kCsv
                             : Output::kTable);
    list->ICrmVwList_Terminar();
    return kDone;
  }

  int Demo() {
    const auto database = Open();
    FillDemo(database);
    out_ << "Dados de demonstração escritos em " << database->path() << '\n';
    return kDone;
  }

  int Copy() {
    Open()->CopyTo(options_.copy);
    out_ << "Cópia escrita em " << options_.copy << '\n';
    return kDone;
  }

 private:
  std::shared_ptr<embedded::Database> Open() {
    return embedded::Database::Open(options_.database.empty() ? DefaultDatabasePath() : options_.database);
  }

  int PrintKeys() {
    for (const std::string& key : Sistema().ChavesDasListas()) out_ << key << '\n';
    return kDone;
  }

  const Options& options_;
  std::ostream& out_;
  std::ostream& err_;
};

/// A parse error in the user's language.
std::string InPortuguese(const CLI::ParseError& error) {
  if (dynamic_cast<const CLI::RequiredError*>(&error)) return "Falta um argumento ou um comando.";
  if (dynamic_cast<const CLI::ExtrasError*>(&error))
    return "Há um argumento a mais ou uma opção desconhecida.";
  if (dynamic_cast<const CLI::ExcludesError*>(&error)) return "Há duas opções que não vão juntas.";
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
    return "Há uma opção sem o seu valor, ou com valores a mais.";
  return "Os argumentos não se entendem.";
}

/// Runs a command; a failure is a message and an exit code.
int Guard(std::ostream& err, const std::function<int()>& command) {
  try {
    return command();
  } catch (const RuntimeError& error) {
    err << error.description() << '\n';
    return error.number() == platform::kKeyInUse ? kRefused : kFailed;
  } catch (const std::exception& error) {
    err << error.what() << '\n';
    return kFailed;
  }
}

void Translate(CLI::App& app) {
  auto formatter = app.get_formatter();
  for (const auto& [label, text] : {std::pair{"Usage", "Uso"},
                                    {"OPTIONS", "OPÇÕES"},
                                    {"SUBCOMMAND", "COMANDO"},
                                    {"SUBCOMMANDS", "COMANDOS"},
                                    {"Subcommands", "Comandos"},
                                    {"Options", "Opções"},
                                    {"Positionals", "Argumentos"},
                                    {"TEXT", "TEXTO"},
                                    {"REQUIRED", "obrigatório"},
                                    {"Excludes", "sem"}})
    formatter->label(label, text);
  formatter->column_width(28);
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  ConsoleHost host(err);
  const platform::HostInstallation installation(host);
  Options options;
  Program program(options, out, err);
  std::function<int()> command;

  CLI::App app("Gestão de frota no terminal.", "parvel");
  app.set_help_flag("-h,--help", "Mostra esta ajuda.");
  app.set_version_flag("--version", "parvel " PARVEL_VERSION, "Mostra a versão.");
  app.add_option("--db", options.database, "Ficheiro da base de dados, em vez do habitual.")
      ->type_name("FICHEIRO");
  app.require_subcommand(1);
  app.fallthrough();
  Translate(app);
  app.footer(
      "Códigos de saída: 0 feito, 1 recusado, 2 argumentos errados, 3 falha da base de dados ou do disco.\n"
      "Sem --db, a base de dados é parvel/frota.db na pasta de dados do utilizador.");

  auto* lista = app.add_subcommand("lista", "Mostra uma lista; sem chave, as chaves das listas.");
  lista->add_option("chave", options.key, "Chave da lista, por exemplo Marcas.")->type_name("");
  auto* csv = lista->add_flag("--csv", options.csv, "Em CSV, separado por ponto e vírgula.");
  lista->add_flag("--json", options.json, "Em JSON.")->excludes(csv);
  lista->callback([&] { command = [&] { return program.PrintOneList(); }; });

  auto* demo = app.add_subcommand("demo", "Enche uma base de dados vazia com dados de demonstração.");
  demo->callback([&] { command = [&] { return program.Demo(); }; });

  auto* copia = app.add_subcommand("copia", "Escreve uma cópia coerente da base de dados, mesmo em uso.");
  copia->add_option("ficheiro", options.copy, "Ficheiro novo para a cópia.")->type_name("")->required();
  copia->callback([&] { command = [&] { return program.Copy(); }; });

  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::Success& done) {
    app.exit(done, out, err);
    return kDone;
  } catch (const CLI::ParseError& error) {
    err << InPortuguese(error) << " Veja parvel --help.\n";
    return kUsage;
  }
  return Guard(err, command);
}

}  // namespace console
