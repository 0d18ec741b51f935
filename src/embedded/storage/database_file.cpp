#include "embedded/storage/database_file.h"

#include <filesystem>
#include <thread>

#include "embedded/storage/database_look.h"
#include "embedded/storage/database_restore.h"
#include "embedded/storage/file_steps.h"
#include "embedded/storage/file_system.h"
#include "embedded/storage/write_ahead_log.h"
#include "platform/runtime_error.h"

namespace embedded {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

void Tune(const SqliteConnection& connection) {
  connection.Execute("PRAGMA synchronous = FULL");  // every commit waits for the disk
  connection.Execute("PRAGMA temp_store = MEMORY");
  connection.Execute("PRAGMA cache_size = -16384");
}

/// Lets readers and one writer work at the same time. SQLite wants the file for itself to change it, and
/// gives up at once where another program reads it.
void UseWriteAheadLog(const SqliteConnection& connection, milliseconds busyTimeout) {
  constexpr auto kPause = milliseconds(5);
  if (sqlite3_db_readonly(connection.get(), "main") == 1) return;
  const auto last = std::chrono::steady_clock::now() + busyTimeout;
  while (connection.Text("PRAGMA journal_mode") != "wal") {
    try {
      connection.Text("PRAGMA journal_mode = WAL");
      return;
    } catch (const platform::RuntimeError&) {
      if (!connection.WasBusy() || std::chrono::steady_clock::now() >= last) throw;
    }
    std::this_thread::sleep_for(kPause);
  }
}

void RequireNothingLeft(const std::string& path) {
  for (const std::string_view kind : {kLog, kJournal}) {
    const std::string left = path + std::string(kind);
    if (HasContent(left))
      FailOn(path, "Não há o ficheiro \"" + path + "\", mas há \"" + left +
                       "\", com gravações que eram dele. Ponha o ficheiro de novo no seu lugar, reponha uma "
                       "cópia com «parvel repor CÓPIA», ou mude \"" +
                       left + "\" para outra pasta, e abra de novo.");
  }
}

/// A file takes its name only when it is complete: whatever happens meanwhile, nobody sees half of one.
void CreateDatabaseFile(const std::string& path, const Schema& schema) {
  RequireNothingLeft(path);
  const std::string unfinished = UnfinishedName(path);
  CreatePrivate(unfinished);
  try {
    {
      const SqliteConnection connection(unfinished, SQLITE_OPEN_READWRITE);
      Equip(connection, milliseconds(0));
      LeaveToOneSync(connection);
      BringUpToDate(connection, schema, path);
      MarkAsNew(connection);
      UseWriteAheadLog(connection, milliseconds(0));
    }
    SyncFile(unfinished);
    MoveToNewName(unfinished, path);
  } catch (...) {
    RemoveUnfinished(unfinished);
    throw;
  }
}

}  // namespace

SqliteConnection OpenDatabaseFile(const std::string& name, const Schema& schema, milliseconds busyTimeout) {
  const std::string path = RealPath(name);
  RequireFolder(path);
  const FolderLock lock(path, busyTimeout);
  FinishRestore(path, busyTimeout);
  if (!IsThere(path)) CreateDatabaseFile(path, schema);
  SqliteConnection connection = OpenExamined(path, schema.version, busyTimeout);
  Tune(connection);
  UseWriteAheadLog(connection, busyTimeout);
  BringUpToDate(connection, schema, path);
  connection.KeepLogAtClose(false);
  return connection;
}

SqliteConnection OpenDatabaseInMemory(const Schema& schema) {
  SqliteConnection connection(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  Equip(connection, milliseconds(0));
  Tune(connection);
  BringUpToDate(connection, schema, ":memory:");
  return connection;
}

void RequireFolder(const std::string& path) {
  const std::string folder = fs::path(path).parent_path().string();
  std::error_code failure;
  if (!fs::is_directory(folder, failure))
    FailOn(path, "Não é possível abrir \"" + path + "\": a pasta \"" + folder +
                     "\" não existe ou não se pode entrar nela. Verifique o caminho.");
  if (IsOnNetwork(folder))
    FailOn(path,
           "A pasta \"" + folder +
               "\" está noutra máquina da rede, onde os programas não vêem as gravações uns dos outros e "
               "se perdem dados. Ponha a base de dados num disco desta máquina. Para trabalhar em várias "
               "máquinas use um servidor: --ligacao, ou \"Ficheiro > Ligar a servidor…\".");
}

}  // namespace embedded
