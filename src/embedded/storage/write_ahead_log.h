#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <list>
#include <string>

#include "embedded/storage/sqlite.h"
#include "platform/files.h"

namespace embedded {

// A log bears no sign of the file that it belongs to. So each log is marked: once something was written to
// it, a row of the settings takes the log's own number, and the mark that the file bore without the log. A
// file that bears neither mark is another one, or the same as it was before this log began.

/// Gives a file that has no log a mark of its own.
void MarkAsNew(const SqliteConnection& connection);

/// False when a log that was left beside a file is surely not the file's own. `connection` reads through the
/// log, of a file that nobody else has open.
bool LogBelongs(const SqliteConnection& connection, const std::string& path);

/// The log of an open file: keeps it marked, short, and, like the file, from being read or written past
/// SQLite. A database in memory has none.
class WriteAheadLog {
 public:
  /// Past `limit` bytes the log is brought back to nothing. The connection outlives this.
  WriteAheadLog(const SqliteConnection& connection, std::int64_t limit,
                std::chrono::milliseconds busyTimeout);
  WriteAheadLog(const WriteAheadLog&) = delete;
  WriteAheadLog& operator=(const WriteAheadLog&) = delete;
  ~WriteAheadLog();

  /// Raises -2147467259 when a file that is read as it lies there was written to meanwhile.
  void RequireStill() const;
  /// After something was written and kept.
  void Written();
  /// True past the limit.
  bool IsLong() const;
  /// True when there is nothing in the file of the log.
  bool IsEmpty() const { return SizeOfFile() == 0; }
  /// Writes all of it into the file and empties it. Does what it can at once where others still read.
  void BringBack() const;

 private:
  static int Committed(void* self, sqlite3* connection, const char* database, int frames);
  void Mark();
  std::int64_t SizeOfFile() const;  // 0 when there is none

  const SqliteConnection& connection_;
  std::string file_;  // empty: in memory
  std::list<platform::FileInUse> inUse_;
  bool still_ = false;  // read without locks
  std::filesystem::file_time_type writtenAt_;
  std::int64_t limit_;
  int busyTimeout_;
  std::int64_t frameSize_ = 0;
  std::string marked_;  // the number of the log that bears its mark
};

}  // namespace embedded
