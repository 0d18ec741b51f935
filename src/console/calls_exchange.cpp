#include <CLI/CLI.hpp>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>

#include "console/calls.h"
#include "console/import_commands.h"
#include "console/program.h"
#include "exchange/import.h"

namespace console {
namespace {

struct ImportOptions {
  std::string what;
  std::string file;
  bool simulate = false;
  std::string decimal;    // empty: found out
  ProfileImport profile;  // without a name: the file has our own columns
};

/// Others may read meanwhile, but wait to write: who starts a long import knows it before.
void TellOfLongImport(const std::string& name, std::ostream& err) {
  constexpr std::uintmax_t kLong = 2'000'000;  // bytes, some seconds
  std::error_code unknown;
  const std::uintmax_t bytes = std::filesystem::file_size(name, unknown);
  if (!unknown && bytes > kLong)
    err << "O ficheiro é grande: até ao fim da importação, que entra toda junta ou não entra, os outros "
           "programas só podem ler esta base de dados, e o que quiserem gravar é recusado.\n";
}

int Import(const Calls& calls, const ImportOptions& options) {
  if (!options.profile.profile.empty()) {
    ProfileImport import = options.profile;
    import.kind = options.what;
    import.file = options.file;
    import.simulate = options.simulate;
    TellOfLongImport(options.file, calls.err);
    return ImportWithProfile(calls, import);
  }
  std::ifstream file(options.file, std::ios::binary);
  if (!file) throw std::runtime_error("Não é possível ler o ficheiro " + options.file);
  const auto database = calls.Open();
  const auto target = exchange::MakeImportTarget(options.what, database);
  if (!target) {
    calls.err << "Não se importa «" << options.what << "». Pode importar: " << exchange::ImportTargetNames()
              << ".\n";
    return kUsage;
  }
  TellOfLongImport(options.file, calls.err);
  const exchange::ImportResult result =
      exchange::ImportCsv(*database, *target, file, options.simulate, calls.out,
                          options.decimal.empty() ? std::nullopt : std::optional(options.decimal[0]));
  calls.out << result.added << (options.simulate ? " entrariam, " : " novos, ") << result.known
            << " já existiam, " << result.refused << " recusados\n";
  return result.refused == 0 ? kDone : kRefused;
}

}  // namespace

void AddExchangeCalls(Calls& calls) {
  const auto options = std::make_shared<ImportOptions>();
  auto& importar = calls.Add("importar", "Importa um ficheiro CSV; diz cada linha recusada e porquê.",
                             [&calls, options] { return Import(calls, *options); });
  importar.add_option("o-quê", options->what, "Um de: " + exchange::ImportTargetNames() + ".")
      ->type_name("")
      ->required();
  importar.add_option("ficheiro", options->file, "Ficheiro CSV; a primeira linha tem os nomes das colunas.")
      ->type_name("")
      ->required();
  importar.add_flag("--simular", options->simulate, "Verifica e conta, sem gravar.");
  importar
      .add_option("--decimal", options->decimal,
                  "Sinal dos decimais no ficheiro, vírgula ou ponto, em vez do que os números mostram.")
      ->type_name("SINAL")
      ->check(CLI::Validator(CLI::IsMember({",", "."})).description(""));
  ProfileImport& profile = options->profile;
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
