#include "embedded/storage/schema.h"

#include <charconv>

#include "embedded/storage/collation.h"
#include "embedded/storage/schema_upgrade.h"
#include "platform/runtime_error.h"
#include "tsql/parser.h"

namespace embedded {
namespace {

using platform::kEngineFailure;
using platform::RuntimeError;

// The rules of order that the indexes were built under.
constexpr const char* kCreateSettings =
    "CREATE TABLE IF NOT EXISTS parvel_settings (name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID";
constexpr const char* kReadCollation = "SELECT value FROM parvel_settings WHERE name = 'collation'";

void KeepCollationVersion(const SqliteConnection& connection) {
  const SqliteStatement statement(
      connection.get(), "INSERT OR REPLACE INTO parvel_settings (name, value) VALUES ('collation', ?)");
  statement.BindText(1, ServerCollation::Instance().version());
  statement.Step();
}

/// True when the database has the tables of the schema.
bool IsUpToDate(const SqliteConnection& connection, const Schema& schema) {
  return connection.Number("PRAGMA application_id") == kApplicationId &&
         connection.Number("PRAGMA user_version") == schema.version;
}

void Upgrade(const SqliteConnection& connection, const Schema& schema, const std::string& path,
             std::int64_t from) {
  try {
    UpgradeTables(connection, schema.catalog);
  } catch (const RuntimeError& failure) {
    if (from == 0 || failure.number() == kEngineFailure) throw;
    throw RuntimeError(kEngineFailure, path,
                       "A base de dados não pôde ser actualizada da versão " + std::to_string(from) +
                           " para a versão " + std::to_string(schema.version) +
                           " e ficou como estava: " + failure.description());
  }
}

void CreateOrUpgrade(const SqliteConnection& connection, const Schema& schema, const std::string& path) {
  if (sqlite3_db_readonly(connection.get(), "main") == 1)
    throw RuntimeError(
        kEngineFailure, path,
        "A base de dados \"" + path +
            "\" é de uma versão anterior e o ficheiro só permite leitura: não pode ser actualizada. Dê "
            "permissão de escrita e abra de novo.");
  SqliteTransaction transaction(connection);
  if (IsUpToDate(connection, schema)) return;  // another process was first
  const bool own = connection.Number("PRAGMA application_id") == kApplicationId;
  const std::int64_t version = connection.Number("PRAGMA user_version");
  if (own && version > schema.version) RefuseNewer(path, version, schema.version);
  if (!own && connection.Number("SELECT count(*) FROM sqlite_master") > 0) RefuseForeign(path);
  Upgrade(connection, schema, path, own ? version : 0);
  connection.Execute(kCreateSettings);
  KeepCollationVersion(connection);
  connection.Execute("PRAGMA application_id = " + std::to_string(kApplicationId));
  connection.Execute("PRAGMA user_version = " + std::to_string(schema.version));
  transaction.Commit();
}

/// Indexes that were built under other rules of order would not find their rows.
void RebuildIndexesOfOtherRules(const SqliteConnection& connection) {
  const auto outdated = [&] {
    return connection.Text(kReadCollation) != ServerCollation::Instance().version();
  };
  if (sqlite3_db_readonly(connection.get(), "main") == 1 || !outdated()) return;
  SqliteTransaction transaction(connection);
  if (!outdated()) return;
  connection.Execute("REINDEX SERVER");
  KeepCollationVersion(connection);
  transaction.Commit();
}

}  // namespace

Schema Schema::Parse(const std::string& text) {
  constexpr std::string_view kHead = "-- versão ";
  Schema schema;
  const char* end = text.data() + text.size();
  const bool headed = text.starts_with(kHead);
  if (!headed || std::from_chars(text.data() + kHead.size(), end, schema.version).ec != std::errc{} ||
      schema.version < 1)
    throw RuntimeError(kEngineFailure, "schema", "The first line of a schema is \"-- versão N\".");
  schema.catalog = tsql::ParseSchema(text);
  return schema;
}

void BringUpToDate(const SqliteConnection& connection, const Schema& schema, const std::string& path) {
  if (!IsUpToDate(connection, schema)) CreateOrUpgrade(connection, schema, path);
  RebuildIndexesOfOtherRules(connection);
}

void RefuseNewer(const std::string& path, std::int64_t version, std::int64_t known) {
  throw RuntimeError(kEngineFailure, path,
                     "A base de dados \"" + path + "\" é da versão " + std::to_string(version) +
                         " e este programa só conhece até à versão " + std::to_string(known) +
                         ". Actualize o programa e abra de novo.");
}

void RefuseForeign(const std::string& path) {
  throw RuntimeError(
      kEngineFailure, path,
      "O ficheiro \"" + path +
          "\" é uma base de dados de outro programa. Escolha outro ficheiro, ou um nome novo para criar "
          "uma base de dados.");
}

}  // namespace embedded
