#include "embedded/storage/database_copy.h"

#include <optional>

#include "embedded/storage/database_look.h"
#include "embedded/storage/file_steps.h"
#include "embedded/storage/write_ahead_log.h"
#include "platform/runtime_error.h"

namespace embedded {
namespace {

using platform::RuntimeError;
using Counts = std::map<std::string, std::int64_t>;

/// Changes whenever another connection has written.
std::int64_t StateOf(const SqliteConnection& connection) { return connection.Number("PRAGMA data_version"); }

/// Keeps others from writing to the file of a connection. One that was moved away has no others.
class WriteHold {
 public:
  explicit WriteHold(const SqliteConnection& source)
      : other_(sqlite3_db_filename(source.get(), "main"), SQLITE_OPEN_READWRITE) {
    Equip(other_, std::chrono::seconds(5));
    transaction_.emplace(other_);
  }

 private:
  SqliteConnection other_;
  std::optional<SqliteTransaction> transaction_;
};

void Vacuum(const SqliteConnection& source, const std::string& file) {
  const SqliteStatement copy(source.get(), "VACUUM INTO ?");
  copy.BindText(1, file);
  copy.Step();
}

/// Copies, and gives back the numbers of rows that the copied state had.
Counts CopyCounted(const SqliteConnection& source, const std::string& file) {
  const std::int64_t state = StateOf(source);
  Counts counts = CountRows(source);
  Vacuum(source, file);
  if (StateOf(source) == state) return counts;
  RemoveUnfinished(file);  // somebody wrote meanwhile
  CreatePrivate(file);
  const WriteHold hold(source);
  counts = CountRows(source);
  Vacuum(source, file);
  return counts;
}

}  // namespace

Counts CountRows(const SqliteConnection& connection) {
  const SqliteStatement tables(connection.get(),
                               "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE "
                               "'sqlite\\_%' ESCAPE '\\'");
  Counts counts;
  while (tables.Step()) {
    const std::string name = tables.Text(0);
    counts[name] = connection.Number("SELECT count(*) FROM " + QuotedName(name));
  }
  return counts;
}

void WriteCopy(const SqliteConnection& source, const std::string& unfinished) {
  CreatePrivate(unfinished);
  try {
    const Counts counts = CopyCounted(source, unfinished);
    {
      const SqliteConnection copy(unfinished, SQLITE_OPEN_READWRITE);
      Equip(copy, std::chrono::milliseconds(0));
      LeaveToOneSync(copy);
      const bool complete = CountRows(copy) == counts;
      MarkAsNew(copy);
      if (!complete || Faults(copy) != "ok")
        FailOn(unfinished,
               "A cópia não ficou igual ao original e não foi guardada. Verifique o disco e repita.");
    }
    SyncFile(unfinished);
  } catch (...) {
    RemoveUnfinished(unfinished);
    throw;
  }
}

void CopyDatabase(const SqliteConnection& source, const std::string& name) {
  const std::string file = RealPath(name);
  if (IsThere(name) || IsThere(file))
    FailOn(file,
           "O ficheiro \"" + name + "\" já existe e não foi alterado. Escolha outro nome para a cópia.");
  try {
    const std::string unfinished = UnfinishedName(file);
    WriteCopy(source, unfinished);
    MoveToNewName(unfinished, file);
  } catch (const RuntimeError& failure) {
    FailOn(file, "A cópia \"" + name + "\" não pôde ser escrita. Verifique a pasta e o espaço no disco. (" +
                     failure.description() + ")");
  }
}

}  // namespace embedded
