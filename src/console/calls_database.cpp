#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>

#include "console/calls.h"
#include "console/kept_store.h"
#include "console/program.h"
#include "console/server_commands.h"
#include "demo/demo.h"
#include "history/act.h"
#include "setup/base_codes.h"
#include "store/paths.h"

namespace console {
namespace {

struct FiguresOptions {
  bool check = false;
  bool correct = false;
};

int Demo(const Calls& calls) {
  const auto database = calls.Open();
  demo::FillDemo(database, calls.database.IsServer() ? "Indique outra base de dados em --ligacao."
                                                     : "Indique outro ficheiro com --db.");
  calls.out << "Dados de demonstração escritos em " << database->Place() << '\n';
  return kDone;
}

int BaseCodes(const Calls& calls) {
  const auto database = OpenKept(calls);
  long written = 0;
  history::Act(database.get(), "Tabelas de base", [&] {
    zorCrmParvel::Batch batch(*database);
    written = setup::WriteBaseCodes(database);
    batch.Commit();
  });
  calls.out << written << (written == 1 ? " código novo" : " códigos novos") << " nas tabelas de base\n";
  return kDone;
}

int Copy(const Calls& calls, const std::string& to) {
  store::OpenFile(calls.database)->CopyTo(to);
  calls.out << "Cópia escrita em " << to << '\n';
  return kDone;
}

int Restore(const Calls& calls, const std::string& copy) {
  const std::string file = store::FileOf(calls.database);
  const std::string aside = embedded::Database::Restore(file, store::DatabaseFileNamed(copy));
  embedded::Database::Open(file);
  calls.out << "A cópia " << copy << " está no lugar de " << file << ".\n";
  if (!aside.empty()) calls.out << "O que lá estava ficou em " << aside << ".\n";
  return kDone;
}

}  // namespace

void AddDatabaseCalls(Calls& calls) {
  calls.Add("demo", "Enche uma base de dados vazia com dados de demonstração.",
            [&calls] { return Demo(calls); });

  calls.Add("base", "Escreve os códigos usuais que faltem: categorias, combustíveis, seguros e outros.",
            [&calls] { return BaseCodes(calls); });

  const auto file = std::make_shared<std::string>();
  auto& copia = calls.Add("copia", "Escreve uma cópia coerente da base de dados, mesmo em uso.",
                          [&calls, file] { return Copy(calls, *file); });
  copia.add_option("ficheiro", *file, "Ficheiro novo para a cópia.")->type_name("")->required();

  auto& repor =
      calls.Add("repor", "Põe uma cópia no lugar da base de dados; o que lá está fica posto de lado.",
                [&calls, file] { return Restore(calls, *file); });
  repor.add_option("ficheiro", *file, "Cópia a repor.")->type_name("")->required();

  const auto apply = std::make_shared<bool>(false);
  auto& esquema = calls.Add("esquema", "Mostra como se criam as tabelas; num servidor, as que lá faltam.",
                            [&calls, apply] { return RunSchemaCommand(calls.database, *apply, calls.out); });
  esquema.add_flag("--aplicar", *apply, "Cria no servidor as que faltam, sem tocar nas que há.");

  const auto figures = std::make_shared<FiguresOptions>();
  auto& verificar =
      calls.Add("verificar", "Lê a base de dados toda, ou liga ao servidor, e diz o que não está bem.",
                [&calls, figures] {
                  return figures->check ? RunFiguresCheck(calls, figures->correct)
                                        : RunCheckCommand(calls.database, calls.out);
                });
  auto* check = verificar.add_flag("--figuras", figures->check,
                                   "Compara antes as figuras de cada viatura com um novo cálculo.");
  verificar.add_flag("--corrigir", figures->correct, "Corrige as que estão erradas.")->needs(check);

  auto& transferir =
      calls.Add("transferir", "Passa uma base de dados de um ficheiro para o servidor.",
                [&calls, file] { return RunTransferCommand(calls.database, *file, calls.out); });
  transferir.add_option("--de", *file, "Ficheiro da base de dados a passar.")
      ->type_name("FICHEIRO")
      ->required();
}

}  // namespace console
