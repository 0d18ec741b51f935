#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "console/calls.h"
#include "console/import_commands.h"
#include "exchange/import.h"

namespace console {
namespace {

struct ImportOptions {
  ProfileImport import;
  std::string decimal;  // empty: found out
};

int Import(const Calls& calls, ImportOptions& options) {
  ProfileImport& import = options.import;
  if (!options.decimal.empty()) import.decimal = options.decimal[0];
  return import.profile.empty() ? ImportOwnColumns(calls, import) : ImportWithProfile(calls, import);
}

}  // namespace

void AddExchangeCalls(Calls& calls) {
  const auto options = std::make_shared<ImportOptions>();
  auto& importar = calls.Add("importar", "Importa um ficheiro CSV; diz cada linha recusada e porquê.",
                             [&calls, options] { return Import(calls, *options); });
  importar.add_option("o-quê", options->import.kind, "Um de: " + exchange::ImportTargetNames() + ".")
      ->type_name("")
      ->required();
  importar
      .add_option("ficheiro", options->import.file,
                  "Ficheiro CSV; a primeira linha tem os nomes das colunas.")
      ->type_name("")
      ->required();
  importar.add_flag("--simular", options->import.simulate, "Verifica e conta, sem gravar.");
  importar
      .add_option("--decimal", options->decimal,
                  "Sinal dos decimais no ficheiro, vírgula ou ponto, em vez do que os números mostram.")
      ->type_name("SINAL")
      ->check(CLI::Validator(CLI::IsMember({",", "."})).description(""));
  ProfileImport& profile = options->import;
  auto* named = importar.add_option(
      "--perfil", profile.profile, "Perfil com que se lê um ficheiro de outros: CSV, XLSX, ODS, XLS, texto.");
  named->type_name("NOME");
  importar.add_option("--recusadas", profile.refused, "Escreve as linhas recusadas como vieram.")
      ->type_name("FICHEIRO")
      ->needs(named);
  importar
      .add_option("--linhas", profile.rows,
                  "Escreve todas as linhas, com o que lhes acontece e porquê, em XLSX, ODS ou CSV.")
      ->type_name("FICHEIRO")
      ->needs(named);
  importar
      .add_flag("--criar-codigos", profile.createCodes, "Cria os códigos que o ficheiro nomeia e que faltam.")
      ->needs(named);
  importar
      .add_flag("--aceitar-km", profile.acceptProposals,
                "Aceita os quilómetros propostos, depois de os ver com --simular.")
      ->needs(named);

  const auto words = std::make_shared<std::vector<std::string>>();
  auto& perfis = calls.Add("perfis", "Perfis de importação: listar, exportar, importar, remover, propor.",
                           [&calls, words] { return RunProfiles(calls, *words); });
  perfis
      .add_option("acção", *words,
                  "listar; exportar NOME; importar FICHEIRO; remover NOME; propor TIPO FICHEIRO.")
      ->type_name("");
  auto& importacoes = calls.Add("importacoes", "Mostra as importações feitas; com anular NÚMERO, tira uma.",
                                [&calls, words] { return RunImports(calls, *words); });
  importacoes.add_option("acção", *words, "anular NÚMERO.")->type_name("");
}

}  // namespace console
