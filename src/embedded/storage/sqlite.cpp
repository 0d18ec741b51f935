#include "embedded/storage/sqlite.h"

#include "embedded/compiler/server_error.h"

namespace embedded {
namespace {

using platform::RuntimeError;

/// "table.column" of a message such as "NOT NULL constraint failed: table.column", or of its first column.
struct Place {
  std::string table;
  std::string column;
};

Place PlaceOf(std::string_view message) {
  const auto colon = message.find(": ");
  if (colon == std::string_view::npos) return {};
  const std::string_view first = message.substr(colon + 2, message.find(',') - colon - 2);
  const auto point = first.find('.');
  if (point == std::string_view::npos) return {std::string(first), {}};
  return {std::string(first.substr(0, point)), std::string(first.substr(point + 1))};
}

std::string ConstraintWords(int extendedCode, std::string_view message) {
  const Place place = PlaceOf(message);
  switch (extendedCode) {
    case SQLITE_CONSTRAINT_NOTNULL:
      return "Cannot insert the value NULL into column '" + place.column + "', table '" + place.table +
             "'; column does not allow nulls.";
    case SQLITE_CONSTRAINT_UNIQUE:
      return "Cannot insert duplicate key row in object '" + place.table + "' with a unique index.";
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return "Violation of PRIMARY KEY constraint 'PK_" + place.table +
             "'. Cannot insert duplicate key in object '" + place.table + "'.";
    default:
      return std::string(message);
  }
}

/// What the user reads when the file or the disk fails; null for a failure of the statement.
const char* FailureText(int code) {
  switch (code) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "A base de dados está ocupada por outro programa e nada foi gravado. Espere um momento e tente "
             "de novo.";
    case SQLITE_READONLY:
      return "A base de dados só permite leitura e nada foi gravado. Verifique as permissões do ficheiro e "
             "da pasta.";
    case SQLITE_FULL:
      return "O disco está cheio e nada foi gravado. Liberte espaço e tente de novo.";
    case SQLITE_CANTOPEN:
      return "Não foi possível abrir o ficheiro da base de dados. Verifique o caminho e as permissões da "
             "pasta.";
    case SQLITE_CORRUPT:
      return "A base de dados está danificada. Feche o programa e reponha a última cópia de segurança: "
             "«parvel "
             "repor CÓPIA», ou \"Ficheiro > Repor cópia…\".";
    case SQLITE_NOTADB:
      return "O ficheiro não é uma base de dados deste programa. Escolha outro ficheiro.";
    case SQLITE_IOERR:
      return "O disco falhou a ler ou a gravar a base de dados. Verifique o disco e tente de novo.";
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return "Sem permissão para usar a base de dados. Verifique as permissões do ficheiro e da pasta.";
    case SQLITE_NOMEM:
      return "Não há memória que chegue para esta operação. Feche outros programas e tente de novo.";
    default:
      return nullptr;
  }
}

}  // namespace

void RaiseSqlite(sqlite3* connection, int code) {
  const int primary = code & 0xFF;
  const std::string message = connection == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(connection);
  if (primary == SQLITE_CONSTRAINT) {
    const int extended = connection == nullptr ? code : sqlite3_extended_errcode(connection);
    throw RuntimeError(platform::kConstraint, "", ConstraintWords(extended, message));
  }
  if (const char* text = FailureText(primary))
    throw RuntimeError(platform::kEngineFailure, "SQLite: " + message, text);
  if (message == "integer overflow")
    Refuse("Arithmetic overflow error converting expression to its data type.");
  Refuse(message);
}

SqliteConnection::SqliteConnection(const std::string& file, int flags) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(file.c_str(), &opened, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  connection_.reset(opened);
  if (code != SQLITE_OK) RaiseSqlite(opened, code);
  sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);  // "x" is a name, never a text
  sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
}

void SqliteConnection::Execute(const std::string& sql) const {
  const int code = sqlite3_exec(get(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) RaiseSqlite(get(), code);
}

std::int64_t SqliteConnection::Number(const std::string& sql) const {
  const SqliteStatement statement(get(), sql);
  return statement.Step() ? statement.Number(0) : 0;
}

std::string SqliteConnection::Text(const std::string& sql) const {
  const SqliteStatement statement(get(), sql);
  return statement.Step() ? statement.Text(0) : std::string();
}

// The characters that mean something in a URI are escaped.
SqliteConnection OpenStill(const std::string& path) {
  constexpr const char* kHex = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : path) {
    if (c == '%' || c == '?' || c == '#')
      uri.append({'%', kHex[static_cast<unsigned char>(c) >> 4], kHex[c & 15]});
    else
      uri += c;
  }
  return {uri + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI};
}

SqliteStatement::SqliteStatement(sqlite3* connection, std::string_view sql) {
  sqlite3_stmt* prepared = nullptr;
  const int code = sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
  statement_.reset(prepared);
  if (code != SQLITE_OK) RaiseSqlite(connection, code);
}

void SqliteStatement::BindText(int index, std::string_view text) const {
  sqlite3_bind_text(get(), index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

std::string SqliteStatement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(get(), column));
  return text == nullptr ? std::string()
                         : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(get(), column)));
}

void SqliteStatement::Fail(int code) const { RaiseSqlite(sqlite3_db_handle(get()), code); }

SqliteTransaction::SqliteTransaction(const SqliteConnection& connection) : connection_(connection) {
  connection_.Execute("BEGIN IMMEDIATE");
}

SqliteTransaction::~SqliteTransaction() {
  if (open_) sqlite3_exec(connection_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void SqliteTransaction::Commit() {
  connection_.Execute("COMMIT");
  open_ = false;
}

namespace {

std::string Quoted(std::string_view text, char quote) {
  std::string quoted(1, quote);
  for (const char c : text) {
    if (c == quote) quoted += quote;
    quoted += c;
  }
  return quoted += quote;
}

}  // namespace

std::string QuotedName(std::string_view name) { return Quoted(name, '"'); }

std::string QuotedText(std::string_view text) { return Quoted(text, '\''); }

}  // namespace embedded
