#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "history/json.h"
#include "history/who.h"
#include "platform/date.h"
#include "store/store.h"

namespace history {

/// One row of a table as a write found it and as it left it; an empty side: there was none.
struct Alteration {
  const tsql::Table* table;
  std::string key;
  std::string before;  // JSON
  std::string after;   // JSON; of a row that was changed the columns that are different now
  long rows = 1;       // several of a key "*" stand together
};

/// What an act of the user is remembered by.
struct ActRecord {
  std::string words;  // "Gastos: Confirmar"
  long undoes = 0;    // the operation that it undoes; 0: none
  long head = 0;      // its number, once the first of its rows is stored
  std::string about;  // the record that it is about, by its first row
};

/// Writes the table of the history: rows are collected while a unit is under way and stored with it.
class Journal {
 public:
  Journal(std::shared_ptr<zorCrmParvel::Store> store, Who who, std::function<platform::Date()> clock);

  /// False when the database has no table for it, or it may not be read.
  bool Exists() const { return exists_; }
  /// False, too, when the office turned the history off; true for one that may not be read: then every write
  /// is refused.
  bool Keeps() const { return keeps_; }
  /// Looks for the table and the office's setting anew.
  void Look();

  void Add(ActRecord& act, const tsql::Table& table, const Image* before, const Image* after);
  /// Rows of a table that a statement took away.
  void AddRemoved(ActRecord& act, const tsql::Table& table, platform::Recordset& rows);
  /// Rows that were put into a table; `places`: of its columns in them.
  void AddAdded(ActRecord& act, const tsql::Table& table, const Places& places,
                const std::vector<const zorCrmParvel::RowValues*>& rows);
  /// Stores what was collected as part of an act.
  void Flush(ActRecord& act);
  void Forget();
  /// Stores an operation of which no rows are recorded at once; its number. Without a table it can't be
  /// undone.
  long Note(const std::string& words, long undoes, const std::string& table, const std::string& key);

 private:
  void Collect(ActRecord& act, Alteration row);
  void CollectList(ActRecord& act, const tsql::Table& table, JsonList& list, std::string Alteration::*side);
  void Store(ActRecord& act, const tsql::Table& table, const std::string& key, long rows, std::string before,
             std::string after);
  void StorePending(ActRecord& act);
  void KeepContents(const tsql::Table& table, const Image& image);
  void KeepContent(const std::string& digest, const platform::Variant& content);
  /// Columns of the history's table, in the order of `kColumns`.
  enum Column {
    kId,
    kHead,
    kMoment,
    kWho,
    kWhere,
    kWords,
    kAbout,
    kUndoes,
    kTable,
    kKey,
    kRows,
    kBefore,
    kAfter
  };
  static const std::array<const char*, kAfter + 1> kColumns;
  void Open();
  void PutHead(const std::string& words, const std::string& about, long undoes);
  void Put(Column column, platform::Variant value);
  void Cut(Column column, const std::string& text);
  platform::Recordset::Field FieldOf(Column column) { return rows_->Fields(places_.at(column)); }

  std::shared_ptr<zorCrmParvel::Store> store_;
  Who who_;
  std::function<platform::Date()> clock_;
  bool exists_ = false;
  bool keeps_ = false;
  std::vector<Alteration> pending_;
  std::size_t pendingBytes_ = 0;
  zorCrmParvel::RecordsetRef rows_;
  std::array<std::size_t, kAfter + 1> places_{};  // the fields of `rows_`
  int stored_ = 0;                                // through `rows_`
};

}  // namespace history
