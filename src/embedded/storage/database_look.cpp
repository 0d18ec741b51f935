#include "embedded/storage/database_look.h"

#include <sys/stat.h>
#include <sys/statvfs.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "embedded/storage/collation.h"
#include "embedded/storage/file_steps.h"
#include "embedded/storage/functions.h"
#include "embedded/storage/schema.h"
#include "embedded/storage/write_ahead_log.h"
#include "platform/runtime_error.h"

namespace embedded {
namespace {

using platform::RuntimeError;

[[noreturn]] void RefuseEmpty(const std::string& path) {
  FailOn(path, "O ficheiro \"" + path +
                   "\" está vazio: não é uma base de dados. Reponha uma cópia de segurança («parvel repor "
                   "CÓPIA»), ou apague-o para criar uma base de dados nova.");
}

[[noreturn]] void RefuseDamaged(const std::string& path) {
  FailOn(path, "A base de dados \"" + path +
                   "\" está danificada. Reponha a última cópia de segurança: «parvel repor CÓPIA», ou "
                   "\"Ficheiro > Repor cópia…\".");
}

[[noreturn]] void RefuseLog(const std::string& path) {
  FailOn(path, "Ao lado de \"" + path + "\" ficou um registo de gravações, \"" + path +
                   "-wal\", que não é deste ficheiro ou está estragado. O ficheiro pode ter sido trocado por "
                   "uma cópia. "
                   "Nada foi alterado. Para repor uma cópia use «parvel repor CÓPIA», ou \"Ficheiro > Repor "
                   "cópia…\". Para abrir o ficheiro como está, mude \"" +
                   path + "-wal\" e \"" + path +
                   "-shm\" para outra pasta, onde fiquem guardados, e abra de novo.");
}

[[noreturn]] void RefuseUnreadableLog(const std::string& path) {
  FailOn(path,
         "O ficheiro \"" + path +
             "\" só permite leitura, e ao lado há gravações que ainda lá não entraram e que assim não se "
             "podem ler. Dê permissão de escrita no ficheiro e na pasta, ou copie para outra pasta o "
             "ficheiro e os que têm o mesmo nome seguido de -wal e -journal.");
}

void RequireRegularFile(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0)
    FailOn(path, "Não é possível abrir \"" + path + "\" (" + std::strerror(errno) +
                     "). Verifique o caminho e as permissões da pasta.");
  if (S_ISDIR(status.st_mode)) FailOn(path, "\"" + path + "\" é uma pasta. Indique um ficheiro.");
  if (!S_ISREG(status.st_mode)) FailOn(path, "\"" + path + "\" não é um ficheiro. Indique um ficheiro.");
  if (status.st_size == 0) RefuseEmpty(path);
}

bool NobodyMayWrite(const std::string& path) {
  struct stat status {};
  struct statvfs disk {};
  if (stat(path.c_str(), &status) == 0 && (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return true;
  return statvfs(path.c_str(), &disk) == 0 && (disk.f_flag & ST_RDONLY) != 0;
}

/// The words of SQLite about a file that it can't read as a database.
[[noreturn]] void Explain(const SqliteConnection& connection, const std::string& path) {
  switch (sqlite3_errcode(connection.get()) & 0xFF) {
    case SQLITE_NOTADB:
      FailOn(path,
             "O ficheiro \"" + path +
                 "\" não é uma base de dados. Escolha outro ficheiro, ou um nome novo para criar uma base "
                 "de dados.");
    case SQLITE_CORRUPT:
      RefuseDamaged(path);
    default:
      throw;
  }
}

void RequireOwn(const SqliteConnection& connection, const std::string& path, std::int64_t knownVersion) {
  try {
    const bool own = connection.Number("PRAGMA application_id") == kApplicationId;
    if (!own && !HasContent(path)) RefuseEmpty(path);  // what was half done is undone now
    if (!own) RefuseForeign(path);
    const std::int64_t version = connection.Number("PRAGMA user_version");
    if (version > knownVersion) RefuseNewer(path, version, knownVersion);
    connection.Number("SELECT count(*) FROM sqlite_master");
  } catch (const RuntimeError& failure) {
    if (!failure.source().starts_with("SQLite")) throw;
    Explain(connection, path);
  }
}

/// True when the file itself, whatever its log says, is of the kind that has no log, as every copy is.
bool HasNoLogOfItsOwn(const SqliteConnection& connection) {
  constexpr int kKindAt = 18;
  unsigned char kind = 0;
  sqlite3_file* file = nullptr;
  sqlite3_file_control(connection.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
  return file->pMethods->xRead(file, &kind, 1, kKindAt) == SQLITE_OK && kind == 1;
}

/// True when a file is sound when it is read without its log.
bool IsSoundAlone(const std::string& path, std::int64_t knownVersion) {
  try {
    const SqliteConnection alone = OpenStill(path);
    Equip(alone, std::chrono::milliseconds(0));
    RequireOwn(alone, path, knownVersion);
    return Faults(alone) == "ok";
  } catch (const RuntimeError&) {
    return false;
  }
}

void RequireSound(const SqliteConnection& connection, const std::string& path, std::int64_t knownVersion) {
  if (HasNoLogOfItsOwn(connection)) RefuseLog(path);
  RequireOwn(connection, path, knownVersion);
  if (Faults(connection) == "ok") return;
  if (IsSoundAlone(path, knownVersion)) RefuseLog(path);
  RefuseDamaged(path);
}

/// Looks at a log that a program which is gone left beside a file. While another program has the file open
/// the log is that program's, and was looked at when it began.
void ExamineLog(const std::string& path, std::int64_t knownVersion) {
  const SqliteConnection look(path, SQLITE_OPEN_READWRITE);
  look.KeepLogAtClose(true);
  Equip(look, std::chrono::milliseconds(0));
  look.Execute("PRAGMA locking_mode = EXCLUSIVE");
  try {
    look.Number("PRAGMA application_id");
  } catch (const RuntimeError&) {
    if (look.WasBusy()) return;
  }
  RequireSound(look, path, knownVersion);
  if (!LogBelongs(look, path)) RefuseLog(path);
}

/// Opens a file that may not be written. Without a log beside it, it is read as it lies there: a log of this
/// user would keep its owner from writing.
SqliteConnection OpenToRead(const std::string& path, std::int64_t knownVersion,
                            std::chrono::milliseconds busyTimeout) {
  const bool log = HasContent(path + std::string(kLog));
  const bool pending = log || HasContent(path + std::string(kJournal));
  if (pending || IsThere(path + std::string(kLog))) {
    try {
      SqliteConnection connection(path, SQLITE_OPEN_READONLY);
      Equip(connection, busyTimeout);
      connection.Number("PRAGMA application_id");
      if (log) RequireSound(connection, path, knownVersion);
      return connection;
    } catch (const RuntimeError& failure) {
      const bool unreadable = failure.source().starts_with("SQLite");
      if (!unreadable) throw;
      if (pending) RefuseUnreadableLog(path);
    }
  }
  SqliteConnection still = OpenStill(path);
  Equip(still, busyTimeout);
  return still;
}

}  // namespace

void Equip(const SqliteConnection& connection, std::chrono::milliseconds busyTimeout) {
  sqlite3_busy_timeout(connection.get(), static_cast<int>(busyTimeout.count()));
  RegisterCollation(connection.get());
  RegisterFunctions(connection.get());
}

void LeaveToOneSync(const SqliteConnection& connection) {
  connection.Execute("PRAGMA synchronous = OFF");
  connection.Execute("PRAGMA journal_mode = OFF");
}

std::string Faults(const SqliteConnection& connection) {
  try {
    const SqliteStatement check(connection.get(), "PRAGMA quick_check(20)");
    std::string faults;
    while (check.Step()) faults += (faults.empty() ? "" : "\n") + check.Text(0);
    return faults;
  } catch (const RuntimeError& failure) {
    return failure.source();
  }
}

SqliteConnection OpenExamined(const std::string& path, std::int64_t knownVersion,
                              std::chrono::milliseconds busyTimeout) {
  RequireRegularFile(path);
  const auto toWrite = [&]() -> SqliteConnection {
    if (NobodyMayWrite(path)) return {};
    SqliteConnection connection(path, SQLITE_OPEN_READWRITE);
    return sqlite3_db_readonly(connection.get(), "main") == 1 ? SqliteConnection() : std::move(connection);
  };
  SqliteConnection connection = toWrite();
  if (connection.get() == nullptr) {
    connection = OpenToRead(path, knownVersion, busyTimeout);
  } else {
    const bool log = HasContent(path + std::string(kLog));
    connection.KeepLogAtClose(log);
    if (log) ExamineLog(path, knownVersion);
    Equip(connection, busyTimeout);
  }
  RequireOwn(connection, path, knownVersion);
  return connection;
}

}  // namespace embedded
