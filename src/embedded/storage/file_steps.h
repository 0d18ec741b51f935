#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace embedded {

// Steps on files beside those of SQLite. A database file, or its log, is never opened here: closing any
// descriptor of a file drops every lock that the process holds on it.

/// Raises error -2147467259 about a file.
[[noreturn]] void FailOn(const std::string& path, const std::string& text);

/// The absolute path of a file, links followed, as SQLite takes it: never a URI, never a name that means
/// something. Error -2147467259 for an empty name.
std::string RealPath(const std::string& name);

/// What SQLite keeps beside a file, behind its name. The first two hold data, the last can be made anew.
inline constexpr std::string_view kBeside[] = {"-wal", "-journal", "-shm"};
inline constexpr std::string_view kLog = "-wal";
inline constexpr std::string_view kJournal = "-journal";

/// True when there is anything by that name, a broken link included.
bool IsThere(const std::string& path);
/// True when there is a file with something in it.
bool HasContent(const std::string& path);

/// The name under which a file is written before it is complete. What an earlier run left there is removed.
std::string UnfinishedName(const std::string& path);
/// Removes a file that was not finished, with what stands beside it.
void RemoveUnfinished(const std::string& path) noexcept;

/// Makes an empty file that its owner alone reads and writes.
void CreatePrivate(const std::string& path);
/// Makes the contents of a file durable. Nobody in this process has it open.
void SyncFile(const std::string& path);
/// Makes the names in the folder of a file durable.
void SyncFolderOf(const std::string& path);
/// Gives a file its final name, which nobody may have taken, and makes it durable.
void MoveToNewName(const std::string& from, const std::string& to);

/// One program at a time looks at, creates or restores the databases of a folder. Waits for the others at
/// most so long; error -2147467259 after that. A folder that can't be read is not locked.
class FolderLock {
 public:
  FolderLock(const std::string& path, std::chrono::milliseconds wait);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  int folder_;
};

}  // namespace embedded
