#include "embedded/storage/database_restore.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <thread>
#include <vector>

#include "embedded/storage/database_copy.h"
#include "embedded/storage/database_file.h"
#include "embedded/storage/database_look.h"
#include "embedded/storage/file_steps.h"
#include "embedded/storage/sqlite.h"
#include "platform/runtime_error.h"

namespace embedded {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

// The steps: the copy is written beside the file and takes the name "file.reposta-WHEN". From then on the
// restore is decided: the file becomes "file.antes-WHEN", with what stands beside it, and the copy becomes
// the file. Who opens the file first ends what a kill left undone.
constexpr std::string_view kReady = ".reposta-";
constexpr std::string_view kAside = ".antes-";

/// The moment in a name that was not given yet.
std::string Stamp(const std::string& path, platform::Date now) {
  while (true) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d%02d%02d-%02d%02d%02d", now.year(), now.month(), now.day(),
                  now.hour(), now.minute(), now.second());
    if (!IsThere(path + std::string(kAside) + text.data())) return text.data();
    now = platform::Date::FromSeconds(now.seconds() + 1);
  }
}

/// Holds a file for this program alone, whatever is in it: nothing is read and nothing recovered.
class Hold {
 public:
  Hold(const std::string& path, milliseconds busyTimeout) : connection_(path, SQLITE_OPEN_READWRITE) {
    if (sqlite3_db_readonly(connection_.get(), "main") == 1)
      FailOn(path, "O ficheiro \"" + path +
                       "\" só permite leitura e não foi trocado. Dê permissão de escrita e tente de novo.");
    sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file_);
    const auto last = std::chrono::steady_clock::now() + busyTimeout;
    while (!Lock()) {
      if (std::chrono::steady_clock::now() >= last)
        FailOn(path,
               "A base de dados \"" + path +
                   "\" está aberta noutro programa ou noutra janela e não foi trocada. Feche-os e tente "
                   "de novo.");
      std::this_thread::sleep_for(milliseconds(10));
    }
  }
  ~Hold() { file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE); }
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

 private:
  bool Lock() {
    const bool done = file_->pMethods->xLock(file_, SQLITE_LOCK_SHARED) == SQLITE_OK &&
                      file_->pMethods->xLock(file_, SQLITE_LOCK_EXCLUSIVE) == SQLITE_OK;
    if (!done) file_->pMethods->xUnlock(file_, SQLITE_LOCK_NONE);
    return done;
  }

  SqliteConnection connection_;
  sqlite3_file* file_ = nullptr;
};

/// Renames; all of them, or none.
class Renames {
 public:
  explicit Renames(std::string path) : path_(std::move(path)) {}
  void Add(const std::string& from, const std::string& to) {
    if (!IsThere(from)) return;
    std::error_code failure;
    fs::rename(from, to, failure);
    if (failure) {
      for (auto done = done_.rbegin(); done != done_.rend(); ++done) {
        std::error_code ignored;  // the failure that is told is the first
        fs::rename(done->second, done->first, ignored);
      }
      FailOn(path_, "\"" + from + "\" não pôde ser posto de lado (" + failure.message() +
                        ") e a base de dados ficou como estava. Verifique as permissões da pasta.");
    }
    done_.emplace_back(from, to);
  }

 private:
  std::string path_;
  std::vector<std::pair<std::string, std::string>> done_;
};

void PutInPlace(const std::string& path, const std::string& when) {
  const std::string ready = path + std::string(kReady) + when;
  const std::string aside = path + std::string(kAside) + when;
  try {
    Renames renames(path);
    renames.Add(path, aside);
    for (const std::string_view beside : kBeside)
      renames.Add(path + std::string(beside), aside + std::string(beside));
    renames.Add(ready, path);
  } catch (...) {
    RemoveUnfinished(ready);
    throw;
  }
  SyncFolderOf(path);
}

/// The copy takes over who may read and write the file, where this user may give that.
void TakeOverMode(const std::string& from, const std::string& to) {
  struct stat status {};
  if (stat(from.c_str(), &status) != 0) return;
  const bool given = chown(to.c_str(), status.st_uid, status.st_gid) == 0 || status.st_uid == geteuid();
  if (given) chmod(to.c_str(), status.st_mode & 0777);
}

void RequireAnother(const std::string& path, const std::string& copy) {
  if (!IsThere(copy)) FailOn(copy, "Não há o ficheiro \"" + copy + "\". Indique a cópia a repor.");
  std::error_code different;
  if (fs::equivalent(path, copy, different))
    FailOn(path, "\"" + copy + "\" é a própria base de dados. Indique uma cópia.");
}

}  // namespace

std::string RestoreDatabase(const std::string& name, const std::string& copy, std::int64_t knownVersion,
                            const platform::Date& now, milliseconds busyTimeout) {
  const std::string path = RealPath(name);
  const std::string from = RealPath(copy);
  RequireFolder(path);
  RequireAnother(path, from);
  const FolderLock lock(path, busyTimeout);
  FinishRestore(path, busyTimeout);
  std::optional<Hold> hold;
  if (IsThere(path)) hold.emplace(path, busyTimeout);
  const std::string unfinished = UnfinishedName(path);
  WriteCopy(OpenExamined(from, knownVersion, busyTimeout), unfinished);
  if (hold) TakeOverMode(path, unfinished);
  const std::string when = Stamp(path, now);
  MoveToNewName(unfinished, path + std::string(kReady) + when);
  PutInPlace(path, when);
  const std::string aside = path + std::string(kAside) + when;
  const bool left = IsThere(aside) || IsThere(aside + std::string(kLog));
  return left ? aside : std::string();
}

void FinishRestore(const std::string& path, milliseconds busyTimeout) {
  const fs::path file(path);
  const std::string begin = file.filename().string() + std::string(kReady);
  std::error_code unreadable;  // such a folder was never restored in
  for (const fs::directory_entry& entry : fs::directory_iterator(file.parent_path(), unreadable)) {
    const std::string name = entry.path().filename().string();
    if (!name.starts_with(begin)) continue;
    std::optional<Hold> hold;
    if (IsThere(path)) hold.emplace(path, busyTimeout);
    PutInPlace(path, name.substr(begin.size()));
    return;
  }
}

}  // namespace embedded
