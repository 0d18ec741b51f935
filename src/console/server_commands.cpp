#include "console/server_commands.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <stdexcept>

#include "console/program.h"
#include "platform/format.h"
#include "platform/text.h"
#include "sqlserver/schema/schema_script.h"
#include "sqlserver/schema/table_check.h"
#include "sqlserver/schema/transfer.h"
#include "sqlserver/session.h"
#include "store/paths.h"
#include "tsql/catalog.h"

namespace schema {
extern const char* const kTables;
}

namespace console {
namespace {

int CheckFile(const std::string& file, std::ostream& out) {
  const embedded::FileReport report = embedded::Database::Check(file);
  for (const std::string& problem : report.problems) out << problem << '\n';
  out << file << ": versão " << report.version << ", " << report.rows << " registos em " << report.tables
      << " tabelas, " << (report.problems.empty() ? "tudo em ordem.\n" : "com o que fica dito acima.\n");
  return report.problems.empty() ? kDone : kRefused;
}

}  // namespace

int RunSchemaCommand(const store::DatabaseChoice& choice, bool apply, std::ostream& out) {
  if (!choice.IsServer() && !apply) {
    out << schema::kTables;
    return kDone;
  }
  const auto database = store::OpenServer(choice);
  if (!apply) {
    for (const sqlserver::TableScript& script :
         sqlserver::LackingTables(database->session(), schema::kTables))
      for (const std::string& statement : script.statements) out << statement << ";\n\n";
    return kDone;
  }
  const auto created = sqlserver::CreateLackingTables(*database, schema::kTables);
  for (const std::string& table : created) out << table << ": criada\n";
  out << (created.empty() ? "Não falta nenhuma tabela em " : "As tabelas que faltavam estão criadas em ")
      << database->Place() << ".\n";
  return kDone;
}

int RunCheckCommand(const store::DatabaseChoice& choice, std::ostream& out) {
  if (!choice.IsServer()) return CheckFile(store::FileOf(choice), out);
  const auto database = store::OpenServer(choice);
  const auto differences = sqlserver::Differences(database->session(), database->catalog());
  for (const std::string& difference : differences) out << difference << '\n';
  if (differences.empty()) {
    out << "As tabelas de " << database->Place() << " estão como o programa precisa.\n";
    return kDone;
  }
  out << differences.size() << (differences.size() == 1 ? " diferença em " : " diferenças em ")
      << database->Place() << ". «parvel esquema --aplicar» cria as tabelas que faltam; o resto muda-o quem "
      << "administra a base de dados.\n";
  return kRefused;
}

int RunTransferCommand(const store::DatabaseChoice& choice, const std::string& file, std::ostream& out) {
  if (file.empty() || !std::filesystem::exists(file))
    throw std::runtime_error("Não há o ficheiro " + file + ".");
  const auto server = store::OpenServer(choice);
  const auto from = embedded::Database::Open(store::DatabaseFileNamed(file));
  long total = 0;
  bool whole = true;
  sqlserver::Transfer(*from, *server, [&](const sqlserver::TransferredTable& table) {
    if (!table.refused.empty()) {
      out << "Não foi transferida: " << table.refused << std::endl;
      whole = false;
      return;
    }
    out << table.table << ": " << table.rows << (table.rows == 1 ? " registo" : " registos")
        << (table.already ? ", já lá estavam" : "") << std::endl;
    total += table.rows;
  });
  out << "Transferido e conferido: " << total << " registos de " << file << " para " << server->Place()
      << ".\n";
  if (!whole) out << "As tabelas recusadas ficaram vazias: corrija os registos em " << file << " e repita.\n";
  return whole ? kDone : kRefused;
}

void PrintTraffic(const sqlserver::Traffic& traffic, std::ostream& out) {
  constexpr std::size_t kMost = 200;  // characters of the slowest
  const auto number = [](long value) {
    return platform::FormatNumber(platform::Currency(static_cast<long long>(value)), "###,###,##0");
  };
  const auto seconds = platform::Currency::FromDouble(std::chrono::duration<double>(traffic.slowest).count());
  std::string slowest = platform::Left(traffic.slowestStatement, kMost);
  std::replace(slowest.begin(), slowest.end(), '\n', ' ');
  out << "Servidor: " << number(traffic.statements) << " pedidos, " << number(traffic.trips)
      << " esperas pela rede, " << number(traffic.rows) << " registos lidos (" << number(traffic.bytes / 1024)
      << " kB).\n";
  if (!slowest.empty())
    out << "O mais lento: " << platform::FormatNumber(seconds, "0.000") << " s, " << slowest << '\n';
}

}  // namespace console
