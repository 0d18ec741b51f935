#include "console/commands.h"

#include <filesystem>
#include <fstream>
#include <ostream>
#include <stdexcept>

#include "console/attachments_command.h"
#include "console/list_printer.h"
#include "console/program.h"
#include "console/record_command.h"
#include "console/server_commands.h"
#include "demo/demo.h"
#include "exchange/import.h"
#include "host/sistema.h"
#include "store/paths.h"

namespace console {

using zorCrmParvel::Sistema;

namespace {

/// Others may read meanwhile, but wait to write: who starts a long import knows it before.
void TellOfLongImport(const std::string& name, std::ostream& err) {
  constexpr std::uintmax_t kLong = 2'000'000;  // bytes, some seconds
  std::error_code unknown;
  const std::uintmax_t bytes = std::filesystem::file_size(name, unknown);
  if (!unknown && bytes > kLong)
    err << "O ficheiro é grande: até ao fim da importação, que entra toda junta ou não entra, os outros "
           "programas só podem ler esta base de dados, e o que quiserem gravar é recusado.\n";
}

}  // namespace

int Commands::PrintOneList() {
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
  PrintList(out_, form.Grelha, options_.json ? Output::kJson : options_.csv ? Output::kCsv : Output::kTable);
  list->ICrmVwList_Terminar();
  return kDone;
}

int Commands::Demo() {
  const auto database = Open();
  demo::FillDemo(database);
  out_ << "Dados de demonstração escritos em " << database->Place() << '\n';
  return kDone;
}

int Commands::Import() {
  std::ifstream file(options_.file, std::ios::binary);
  if (!file) throw std::runtime_error("Não é possível ler o ficheiro " + options_.file);
  const auto database = Open();
  const auto target = exchange::MakeImportTarget(options_.what, database);
  if (!target) {
    err_ << "Não se importa «" << options_.what << "». Pode importar: " << exchange::ImportTargetNames()
         << ".\n";
    return kUsage;
  }
  TellOfLongImport(options_.file, err_);
  const exchange::ImportResult result =
      exchange::ImportCsv(*database, *target, file, options_.simulate, out_,
                          options_.decimal.empty() ? std::nullopt : std::optional(options_.decimal[0]));
  out_ << result.added << (options_.simulate ? " entrariam, " : " novos, ") << result.known
       << " já existiam, " << result.refused << " recusados\n";
  return result.refused == 0 ? kDone : kRefused;
}

int Commands::Alerts() {
  const std::string& family = options_.alerts.family;
  if (!family.empty() && !IsAlertFamily(family)) {
    err_ << "Não há a família «" << family << "». Pode ser: " << AlertFamilyNames() << ".\n";
    return kUsage;
  }
  return PrintAlerts(Open(), options_.alerts, out_, err_);
}

int Commands::Attachments() {
  PrintAttachments(Open(), options_.kind, options_.key, options_.file, out_);
  return kDone;
}

int Commands::Vehicle() {
  if (PrintVehicle(Open(), options_.key, options_.json, out_)) return kDone;
  err_ << "Não há viatura com a matrícula «" << options_.key << "».\n";
  return kRefused;
}

int Commands::Driver() {
  if (PrintDriver(Open(), options_.key, options_.json, out_)) return kDone;
  err_ << "Não há motorista com o código «" << options_.key << "».\n";
  return kRefused;
}

int Commands::Copy() {
  store::OpenFile(options_.database)->CopyTo(options_.file);
  out_ << "Cópia escrita em " << options_.file << '\n';
  return kDone;
}

int Commands::Restore() {
  const std::string file = store::FileOf(options_.database);
  const std::string aside = embedded::Database::Restore(file, store::DatabaseFileNamed(options_.file));
  embedded::Database::Open(file);
  out_ << "A cópia " << options_.file << " está no lugar de " << file << ".\n";
  if (!aside.empty()) out_ << "O que lá estava ficou em " << aside << ".\n";
  return kDone;
}

int Commands::Schema() { return RunSchemaCommand(options_.database, options_.apply, out_); }
int Commands::Check() { return RunCheckCommand(options_.database, out_); }
int Commands::Transfer() { return RunTransferCommand(options_.database, options_.file, out_); }

int Commands::PrintKeys() {
  for (const std::string& key : Sistema().ChavesDasListas()) out_ << key << '\n';
  return kDone;
}

}  // namespace console
