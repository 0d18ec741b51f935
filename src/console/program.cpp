#include "console/program.h"

#include <CLI/CLI.hpp>
#include <exception>
#include <functional>
#include <ostream>

#include "console/call_texts.h"
#include "console/commands.h"
#include "console/console_host.h"
#include "console/error_output.h"
#include "exchange/import.h"

namespace console {
namespace {

using platform::RuntimeError;

/// Runs a command; a failure is a message and an exit code.
int Guard(std::ostream& err, const std::function<int()>& command) {
  try {
    return command();
  } catch (const RuntimeError& error) {
    PrintError(err, error);
    return error.number() == platform::kKeyInUse ? kRefused : kFailed;
  } catch (const std::exception& error) {
    err << error.what() << '\n';
    return kFailed;
  }
}

int Obey(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  ConsoleHost host(err);
  const platform::HostInstallation installation(host);
  CallOptions options;
  Commands commands(options, out, err);
  std::function<int()> command;

  CLI::App app("Gestão de frota no terminal.", "parvel");
  app.option_defaults()->group("Opções");
  app.set_help_flag("-h,--help", "Mostra esta ajuda.");
  app.set_version_flag("--version", "parvel " PARVEL_VERSION, "Mostra a versão.");
  auto* db = app.add_option("--db", options.database.file, "Ficheiro da base de dados, em vez do habitual.")
                 ->type_name("FICHEIRO");
  auto* server = app.add_option("--ligacao", options.database.connection,
                                "Servidor em vez de um ficheiro: ligação ODBC ou DSN, sem a senha.")
                     ->type_name("LIGAÇÃO")
                     ->excludes(db);
  app.add_option("--senha-ficheiro", options.database.passwordFile,
                 "Ficheiro, legível só por si, com a senha do servidor.")
      ->type_name("FICHEIRO");
  app.add_option("--tempo-limite", options.database.timeLimit,
                 "Segundos que o servidor tem para cada pedido; 0 para esperar sempre.")
      ->type_name("SEGUNDOS")
      ->check(CLI::Validator(CLI::NonNegativeNumber).description(""));
  app.require_subcommand(1);
  const auto comando = [&app](const char* nome, const char* texto) {
    auto* novo = app.add_subcommand(nome, texto)->group("Comandos");
    novo->option_defaults()->group("Opções");
    novo->set_help_flag("-h,--help", "Mostra esta ajuda.");
    return novo;
  };
  app.fallthrough();
  Translate(app);
  app.footer(
      "Códigos de saída: 0 feito, 1 recusado, 2 argumentos errados, 3 falha da base de dados ou do disco,\n"
      "10 há alertas.\n"
      "Sem --db nem --ligacao, a base de dados é parvel/frota.db na pasta de dados do utilizador.\n"
      "Em CSV, um texto que começa como uma fórmula (= + - @) leva um apóstrofo antes; a importação tira-o.\n"
      "A senha de um servidor vem da variável PARVEL_SENHA, de --senha-ficheiro, ou é pedida.");

  auto* lista = comando("lista", "Mostra uma lista; sem chave, as chaves das listas.");
  lista->add_option("chave", options.key, "Chave da lista, por exemplo Marcas.")->type_name("");
  auto* csv = lista->add_flag("--csv", options.csv, "Em CSV, separado por ponto e vírgula.");
  lista->add_flag("--json", options.json, "Em JSON.")->excludes(csv);
  lista->callback([&] { command = [&] { return commands.PrintOneList(); }; });

  auto* viatura = comando("viatura", "Mostra uma viatura com tudo o que lhe aconteceu.");
  viatura->add_option("matrícula", options.key, "Matrícula da viatura.")->type_name("")->required();
  viatura->add_flag("--json", options.json, "Em JSON.");
  viatura->callback([&] { command = [&] { return commands.Vehicle(); }; });

  auto* motorista = comando("motorista", "Mostra um motorista com as cartas, gastos, multas e sinistros.");
  motorista->add_option("código", options.key, "Código do motorista.")->type_name("")->required();
  motorista->add_flag("--json", options.json, "Em JSON.");
  motorista->callback([&] { command = [&] { return commands.Driver(); }; });

  auto* alertas = comando("alertas", "Mostra o que está a vencer ou vencido, em todas as listas de alertas.");
  alertas->add_flag("--json", options.alerts.json, "Em JSON, um membro por família.");
  alertas->add_option("--familia", options.alerts.family, "Só uma família: " + AlertFamilyNames() + ".")
      ->type_name("NOME");
  alertas->add_option("--ics", options.alerts.calendar, "Escreve também um calendário com as datas.")
      ->type_name("FICHEIRO");
  alertas->callback([&] { command = [&] { return commands.Alerts(); }; });

  auto* anexos = comando("anexos", "Mostra os ficheiros anexados a um registo.");
  anexos->add_option("tipo", options.kind, "Tipo do registo, um número.")->type_name("")->required();
  anexos->add_option("código", options.key, "Código do registo.")->type_name("")->required();
  anexos->add_option("--juntar", options.file, "Anexa antes este ficheiro, pelo seu caminho.")
      ->type_name("FICHEIRO");
  anexos->callback([&] { command = [&] { return commands.Attachments(); }; });

  auto* demo = comando("demo", "Enche uma base de dados vazia com dados de demonstração.");
  demo->callback([&] { command = [&] { return commands.Demo(); }; });

  auto* copia = comando("copia", "Escreve uma cópia coerente da base de dados, mesmo em uso.");
  copia->add_option("ficheiro", options.file, "Ficheiro novo para a cópia.")->type_name("")->required();
  copia->callback([&] { command = [&] { return commands.Copy(); }; });

  auto* repor =
      comando("repor", "Põe uma cópia no lugar da base de dados; o que lá está fica posto de lado.");
  repor->add_option("ficheiro", options.file, "Cópia a repor.")->type_name("")->required();
  repor->callback([&] { command = [&] { return commands.Restore(); }; });

  auto* importar = comando("importar", "Importa um ficheiro CSV; diz cada linha recusada e porquê.");
  importar->add_option("o-quê", options.what, "Um de: " + exchange::ImportTargetNames() + ".")
      ->type_name("")
      ->required();
  importar->add_option("ficheiro", options.file, "Ficheiro CSV; a primeira linha tem os nomes das colunas.")
      ->type_name("")
      ->required();
  importar->add_flag("--simular", options.simulate, "Verifica e conta, sem gravar.");
  importar
      ->add_option("--decimal", options.decimal,
                   "Sinal dos decimais no ficheiro, vírgula ou ponto, em vez do que os números mostram.")
      ->type_name("SINAL")
      ->check(CLI::Validator(CLI::IsMember({",", "."})).description(""));
  importar->callback([&] { command = [&] { return commands.Import(); }; });

  auto* esquema = comando("esquema", "Mostra como se criam as tabelas; num servidor, as que lá faltam.");
  esquema->add_flag("--aplicar", options.apply, "Cria no servidor as que faltam, sem tocar nas que há.");
  esquema->callback([&] { command = [&] { return commands.Schema(); }; });

  auto* verificar =
      comando("verificar", "Lê a base de dados toda, ou liga ao servidor, e diz o que não está bem.");
  verificar->callback([&] { command = [&] { return commands.Check(); }; });

  auto* transferir = comando("transferir", "Passa uma base de dados de um ficheiro para o servidor.");
  transferir->add_option("--de", options.file, "Ficheiro da base de dados a passar.")
      ->type_name("FICHEIRO")
      ->required();
  transferir->callback([&] { command = [&] { return commands.Transfer(); }; });

  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::Success& done) {
    app.exit(done, out, err);
    return kDone;
  } catch (const CLI::ParseError& error) {
    err << InPortuguese(error) << " Veja parvel --help.\n";
    return kUsage;
  }
  for (const auto& [option, name] :
       {std::pair{db, &options.database.file}, {server, &options.database.connection}})
    if (option->count() > 0 && name->empty()) {
      err << "Falta o nome em " << option->get_name() << ". Veja parvel --help.\n";
      return kUsage;
    }
  return Guard(err, command);
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  const int code = Obey(arguments, out, err);
  if (out.flush()) return code;
  err << "Não foi possível escrever tudo o que o comando mostra. Veja se o disco está cheio ou se a saída "
         "foi "
         "fechada.\n";
  return kFailed;
}

}  // namespace console
