#include "embedded/storage/write_ahead_log.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <vector>

#include "embedded/storage/file_steps.h"
#include "platform/runtime_error.h"

namespace embedded {
namespace {

constexpr int kFramesToCheckpoint = 1000;  // SQLite's own measure
constexpr const char* kReadMark = "SELECT value FROM parvel_settings WHERE name = 'registo'";

constexpr std::size_t kMarkLength = 16;  // of hexadecimal digits

using Marks = std::vector<std::string>;

/// The mark that a file bears, then those that it may bear without its log.
Marks ReadMarks(const SqliteConnection& connection) {
  std::istringstream words(connection.Text(kReadMark));
  Marks marks;
  for (std::string mark; words >> mark;) marks.push_back(mark);
  if (marks.empty()) marks.emplace_back("-");  // a file of before there were marks
  return marks;
}

bool IsMark(const std::string& text) {
  return text.size() == kMarkLength && text.find_first_not_of("0123456789abcdef") == std::string::npos;
}

void WriteMarks(const SqliteConnection& connection, const std::string& marks) {
  const SqliteStatement statement(
      connection.get(), "INSERT OR REPLACE INTO parvel_settings (name, value) VALUES ('registo', ?)");
  statement.BindText(1, marks);
  statement.Step();
}

/// The number that SQLite gives to each log: the salts of its head. Empty when there is no log yet.
std::string NumberOfLog(const SqliteConnection& connection) {
  constexpr int kSaltsAt = 16;
  std::array<unsigned char, 8> salts{};
  sqlite3_file* log = nullptr;
  sqlite3_file_control(connection.get(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
  if (log == nullptr || log->pMethods == nullptr ||
      log->pMethods->xRead(log, salts.data(), static_cast<int>(salts.size()), kSaltsAt) != SQLITE_OK)
    return {};
  constexpr const char* kHex = "0123456789abcdef";
  std::string number;
  for (const unsigned char byte : salts) number.append({kHex[byte >> 4], kHex[byte & 15]});
  return number;
}

/// The mark of the file alone, without what the log holds. Raises when the file can't be read so.
std::string MarkWithoutLog(const std::string& path) { return ReadMarks(OpenStill(path)).front(); }

}  // namespace

void MarkAsNew(const SqliteConnection& connection) {
  WriteMarks(connection, connection.Text("SELECT lower(hex(randomblob(8)))"));
}

// A kill while the log goes into the file may leave half of it there: then the file alone says nothing.
bool LogBelongs(const SqliteConnection& connection, const std::string& path) {
  try {
    const Marks marks = ReadMarks(connection);
    if (marks.front() != NumberOfLog(connection)) return true;  // never marked: nothing can be said
    const std::string alone = MarkWithoutLog(path);
    if (!IsMark(alone)) return true;
    return std::find(marks.begin(), marks.end(), alone) != marks.end();
  } catch (const platform::RuntimeError&) {
    return true;
  }
}

WriteAheadLog::WriteAheadLog(const SqliteConnection& connection, std::int64_t limit,
                             std::chrono::milliseconds busyTimeout)
    : connection_(connection), limit_(limit), busyTimeout_(static_cast<int>(busyTimeout.count())) {
  const char* file = sqlite3_db_filename(connection.get(), "main");
  if (file == nullptr || *file == '\0') return;
  file_ = file;
  still_ = sqlite3_uri_boolean(file, "immutable", 0) != 0;
  std::error_code gone;
  writtenAt_ = std::filesystem::last_write_time(file_, gone);
  inUse_.emplace_back(file_);
  for (const std::string_view beside : kBeside) inUse_.emplace_back(file_ + std::string(beside));
  frameSize_ = connection.Number("PRAGMA page_size");
  connection.Number("PRAGMA journal_size_limit = " + std::to_string(limit));
  sqlite3_wal_hook(connection.get(), &WriteAheadLog::Committed, this);
}

WriteAheadLog::~WriteAheadLog() { sqlite3_wal_hook(connection_.get(), nullptr, nullptr); }

int WriteAheadLog::Committed(void* self, sqlite3* connection, const char* database, int frames) {
  const auto& log = *static_cast<const WriteAheadLog*>(self);
  if (frames * log.frameSize_ > log.limit_)
    log.BringBack();
  else if (frames >= kFramesToCheckpoint)
    sqlite3_wal_checkpoint_v2(connection, database, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
  return SQLITE_OK;
}

void WriteAheadLog::RequireStill() const {
  if (!still_) return;
  std::error_code gone;
  if (std::filesystem::last_write_time(file_, gone) == writtenAt_ && !HasContent(file_ + std::string(kLog)))
    return;
  FailOn(file_, "A base de dados, que aqui só se lê, foi alterada por outro programa. Abra-a de novo.");
}

std::int64_t WriteAheadLog::SizeOfFile() const {
  if (file_.empty()) return 0;
  std::error_code failure;
  const auto size = std::filesystem::file_size(file_ + std::string(kLog), failure);
  return failure ? 0 : static_cast<std::int64_t>(size);
}

bool WriteAheadLog::IsLong() const { return SizeOfFile() > limit_; }

void WriteAheadLog::BringBack() const {
  sqlite3_busy_timeout(connection_.get(), 0);
  sqlite3_wal_checkpoint_v2(connection_.get(), "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
  sqlite3_busy_timeout(connection_.get(), busyTimeout_);
}

// What was written is safe without a mark. One that can't be set now is set after the next write.
void WriteAheadLog::Written() {
  if (file_.empty() || NumberOfLog(connection_) == marked_) return;
  sqlite3_busy_timeout(connection_.get(), 0);
  try {
    Mark();
  } catch (const platform::RuntimeError&) {
    marked_.clear();
  }
  sqlite3_busy_timeout(connection_.get(), busyTimeout_);
}

// SQLite may begin a new log to write the mark: that one is marked after the next write.
void WriteAheadLog::Mark() {
  SqliteTransaction transaction(connection_);
  std::string number = NumberOfLog(connection_);
  const std::string before = ReadMarks(connection_).front();
  if (!number.empty() && before != number) {
    WriteMarks(connection_, number + ' ' + MarkWithoutLog(file_) + ' ' + before);
    transaction.Commit();
  }
  marked_ = std::move(number);
}

}  // namespace embedded
