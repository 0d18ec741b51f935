#include "embedded/storage/file_steps.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <thread>

#include "platform/runtime_error.h"

namespace embedded {
namespace {

namespace fs = std::filesystem;

/// A file descriptor that closes itself.
class Descriptor {
 public:
  Descriptor(const std::string& path, int flags) : number_(open(path.c_str(), flags | O_CLOEXEC, 0600)) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int number() const { return number_; }

 private:
  int number_;
};

std::string FolderOf(const std::string& path) { return fs::path(path).parent_path().string(); }

std::string Reason() { return std::string(" (") + std::strerror(errno) + ")"; }

/// A rename that leaves what has the new name alone. Where the folder's kind can't do that in one step, it is
/// done in two.
bool RenameToNew(const std::string& from, const std::string& to) {
  if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno != EINVAL && errno != ENOSYS) return false;
  if (IsThere(to)) {
    errno = EEXIST;
    return false;
  }
  return std::rename(from.c_str(), to.c_str()) == 0;
}

}  // namespace

void FailOn(const std::string& path, const std::string& text) {
  throw platform::RuntimeError(platform::kEngineFailure, path, text);
}

std::string RealPath(const std::string& name) {
  if (name.empty()) FailOn(name, "Falta o nome do ficheiro da base de dados.");
  std::error_code failure;
  const fs::path path = fs::weakly_canonical(fs::absolute(name), failure);
  return (failure ? fs::absolute(name).lexically_normal() : path).string();
}

bool IsThere(const std::string& path) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(path, ignored));
}

bool HasContent(const std::string& path) {
  std::error_code failure;
  const auto size = fs::file_size(path, failure);
  return !failure && size > 0;
}

std::string UnfinishedName(const std::string& path) {
  std::string name = path + ".incompleto";
  RemoveUnfinished(name);
  return name;
}

void RemoveUnfinished(const std::string& path) noexcept {
  unlink(path.c_str());
  for (const std::string_view beside : kBeside) unlink((path + std::string(beside)).c_str());
}

void CreatePrivate(const std::string& path) {
  const Descriptor file(path, O_RDWR | O_CREAT | O_EXCL);
  if (file.number() < 0)
    FailOn(path, "Não é possível criar o ficheiro \"" + path + "\"" + Reason() +
                     ". Verifique a pasta e as suas permissões.");
}

void SyncFile(const std::string& path) {
  const Descriptor file(path, O_RDONLY);
  if (file.number() < 0 || fsync(file.number()) != 0)
    FailOn(path, "O ficheiro \"" + path + "\" não pôde ser gravado no disco" + Reason() + ".");
}

void SyncFolderOf(const std::string& path) {
  const Descriptor folder(FolderOf(path), O_RDONLY | O_DIRECTORY);
  const bool done = folder.number() >= 0 && (fsync(folder.number()) == 0 || errno == EINVAL);
  if (!done) FailOn(path, "A pasta de \"" + path + "\" não pôde ser gravada no disco" + Reason() + ".");
}

void MoveToNewName(const std::string& from, const std::string& to) {
  if (!RenameToNew(from, to))
    FailOn(to, "O ficheiro \"" + to + "\" não pôde ficar com este nome" + Reason() +
                   ". Verifique a pasta e escolha um nome que lá não haja.");
  SyncFolderOf(to);
}

FolderLock::FolderLock(const std::string& path, std::chrono::milliseconds wait)
    : folder_(open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  constexpr auto kPause = std::chrono::milliseconds(5);
  const auto last = std::chrono::steady_clock::now() + wait;
  while (folder_ >= 0 && flock(folder_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    if (std::chrono::steady_clock::now() >= last) {
      close(folder_);
      FailOn(path, "Outro programa está a abrir ou a repor a base de dados \"" + path +
                       "\". Espere um momento e tente de novo.");
    }
    std::this_thread::sleep_for(kPause);
  }
}

FolderLock::~FolderLock() {
  if (folder_ >= 0) close(folder_);
}

}  // namespace embedded
