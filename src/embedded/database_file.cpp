#include "embedded/database_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <thread>

#include "embedded/collation.h"
#include "embedded/functions.h"
#include "embedded/schema.h"
#include "platform/runtime_error.h"

namespace embedded {
namespace {

namespace fs = std::filesystem;

// The head of a SQLite file.
constexpr std::string_view kMagic{"SQLite format 3\0", 16};
constexpr std::size_t kVersionAt = 60;
constexpr std::size_t kApplicationAt = 68;
using Head = std::array<char, 100>;

[[noreturn]] void Fail(const std::string& path, const std::string& text) {
  throw platform::RuntimeError(platform::kEngineFailure, path, text);
}

/// A file descriptor that closes itself.
class Descriptor {
 public:
  Descriptor(const std::string& path, int flags) : number_(open(path.c_str(), flags | O_CLOEXEC)) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int number() const { return number_; }

 private:
  int number_;
};

std::int64_t BigEndian32(const Head& head, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(head[at + i]);
  return static_cast<std::int32_t>(value);
}

/// "file:…" with the characters escaped that mean something in it.
std::string ImmutableUri(const std::string& path) {
  std::string uri = "file:";
  for (const char c : path) {
    if (std::strchr("%?#", c) != nullptr) {
      constexpr const char* kHex = "0123456789ABCDEF";
      uri += '%';
      uri += kHex[static_cast<unsigned char>(c) >> 4];
      uri += kHex[c & 15];
    } else {
      uri += c;
    }
  }
  return uri + "?immutable=1";
}

SqliteConnection OpenImmutable(const std::string& path) {
  return {ImmutableUri(fs::absolute(path).string()), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI};
}

/// Reads the head; false when the file is empty.
bool ReadHead(const std::string& path, Head& head) {
  const Descriptor file(path, O_RDONLY);
  if (file.number() < 0)
    Fail(path, "Não é possível ler o ficheiro \"" + path + "\" (" + std::strerror(errno) +
                   "). Verifique as permissões do ficheiro e da pasta.");
  head.fill('\0');
  const ssize_t length = read(file.number(), head.data(), head.size());
  if (length < 0)
    Fail(path, "O disco falhou a ler o ficheiro \"" + path + "\" (" + std::strerror(errno) + ").");
  if (length == 0) return false;
  if (std::string_view(head.data(), kMagic.size()) != kMagic)
    Fail(path, "O ficheiro \"" + path +
                   "\" não é uma base de dados. Escolha outro ficheiro, ou um nome novo para criar "
                   "uma base de dados.");
  return true;
}

/// A look at a file without touching it or leaving anything beside it.
void RequireSound(const std::string& path, bool own) {
  try {
    const SqliteConnection look = OpenImmutable(path);
    if (look.Number("SELECT count(*) FROM sqlite_master") > 0 && !own) RefuseForeign(path);
  } catch (const platform::RuntimeError& failure) {
    if (failure.source().starts_with("SQLite"))
      Fail(path, "A base de dados \"" + path + "\" está danificada. Reponha a última cópia de segurança.");
    throw;
  }
}

/// Raises an error unless the file can become, or is, a database of this program.
void Examine(const std::string& path, std::int64_t knownVersion) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    const fs::path folder = fs::absolute(path).parent_path();
    std::error_code ignored;
    if (errno == ENOENT && fs::is_directory(folder, ignored)) return;
    Fail(path, "Não é possível abrir \"" + path + "\": a pasta \"" + folder.string() +
                   "\" não existe ou não se pode entrar nela. Verifique o caminho.");
  }
  if (S_ISDIR(status.st_mode)) Fail(path, "\"" + path + "\" é uma pasta. Indique um ficheiro.");
  if (!S_ISREG(status.st_mode)) Fail(path, "\"" + path + "\" não é um ficheiro. Indique um ficheiro.");
  Head head;
  if (!ReadHead(path, head)) return;
  const std::int64_t application = BigEndian32(head, kApplicationAt);
  const std::int64_t version = BigEndian32(head, kVersionAt);
  const bool own = application == kApplicationId;
  if (!own && application != 0) RefuseForeign(path);
  if (own && version > knownVersion) RefuseNewer(path, version, knownVersion);
  std::error_code ignored;
  const bool inUse = fs::exists(path + "-wal", ignored);  // what the file holds may be on its way to it
  if (!inUse) RequireSound(path, own);
}

bool NobodyMayWrite(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

SqliteConnection Connect(const std::string& path) {
  if (NobodyMayWrite(path)) return OpenImmutable(path);
  SqliteConnection connection(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  if (sqlite3_db_readonly(connection.get(), "main") != 1) return connection;
  try {
    connection.Number("SELECT count(*) FROM sqlite_master");
    return connection;
  } catch (const platform::RuntimeError&) {
    return OpenImmutable(path);  // nor may anything be written beside it
  }
}

}  // namespace

SqliteConnection OpenDatabaseFile(const std::string& path, std::int64_t knownVersion,
                                  std::chrono::milliseconds busyTimeout) {
  const bool inMemory = path == ":memory:";
  if (!inMemory) Examine(path, knownVersion);
  SqliteConnection connection =
      inMemory ? SqliteConnection(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE) : Connect(path);
  sqlite3_busy_timeout(connection.get(), static_cast<int>(busyTimeout.count()));
  RegisterCollation(connection.get());
  RegisterFunctions(connection.get());
  connection.Execute("PRAGMA synchronous = FULL");
  connection.Execute("PRAGMA temp_store = MEMORY");
  connection.Execute("PRAGMA cache_size = -16384");
  return connection;
}

// SQLite wants the file for itself to change it, and gives up at once where another program reads it.
void UseWriteAheadLog(const SqliteConnection& connection, std::chrono::milliseconds busyTimeout) {
  constexpr auto kPause = std::chrono::milliseconds(5);
  if (sqlite3_db_readonly(connection.get(), "main") == 1) return;
  const auto last = std::chrono::steady_clock::now() + busyTimeout;
  while (connection.Text("PRAGMA journal_mode") != "wal") {
    try {
      connection.Text("PRAGMA journal_mode = WAL");
      return;
    } catch (const platform::RuntimeError&) {
      const bool busy = (sqlite3_errcode(connection.get()) & 0xFF) == SQLITE_BUSY;
      if (!busy || std::chrono::steady_clock::now() >= last) throw;
    }
    std::this_thread::sleep_for(kPause);
  }
}

void CopyDatabase(const SqliteConnection& connection, const std::string& file) {
  std::error_code ignored;
  if (fs::exists(fs::symlink_status(file, ignored)))
    Fail(file, "O ficheiro \"" + file + "\" já existe e não foi alterado. Escolha outro nome para a cópia.");
  try {
    const SqliteStatement copy(connection.get(), "VACUUM INTO ?");
    copy.BindText(1, file);
    copy.Step();
  } catch (const platform::RuntimeError& failure) {
    fs::remove(file, ignored);
    fs::remove(file + "-journal", ignored);
    Fail(file, "A cópia \"" + file + "\" não pôde ser escrita. Verifique a pasta e o espaço no disco. (" +
                   failure.description() + ")");
  }
  const Descriptor written(file, O_RDONLY);
  const Descriptor folder(fs::absolute(file).parent_path().string(), O_RDONLY | O_DIRECTORY);
  if (written.number() < 0 || fsync(written.number()) != 0 || folder.number() < 0 ||
      fsync(folder.number()) != 0)
    Fail(file, "A cópia \"" + file + "\" não pôde ser gravada no disco (" + std::strerror(errno) + ").");
}

}  // namespace embedded
