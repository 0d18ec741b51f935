#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/data_access.h"
#include "platform/variant.h"

namespace zorCrmParvel {

/// What may be done with the rows of a table.
enum class TableUse { kRead, kAdd, kChange, kRemove };
/// By table, what is refused to the user of a connection. Of a table that isn't named nothing is.
using Refusals = std::map<std::string, std::set<TableUse>>;

/// Values of one row for columns that are named beside it; nothing leaves a column as it is by itself.
using RowValues = std::vector<std::optional<platform::Variant>>;

/// A data-access object with what the programs around the module need as well. Both engines are one; programs
/// hold it by shared pointer, and recordsets that are still open keep the engine behind it alive.
class Store : public DataAccess {
 public:
  /// Where the data is, for people.
  virtual std::string Place() const = 0;
  /// Opens the same database once more, for a reader on another thread, which may be the one that calls it;
  /// empty where the data can't be reached by a second connection.
  virtual std::function<std::shared_ptr<Store>()> Opener() const { return {}; }

  /// What its user may not do, as far as that can be told beforehand.
  virtual Refusals Refused() { return {}; }

  // Used through `Batch`.
  virtual void BeginBatch() = 0;
  virtual void CommitBatch() = 0;
  virtual void AbandonBatch() = 0;
  /// A batch that will touch many rows.
  virtual void BeginLargeBatch() { BeginBatch(); }
  /// The number that a row of a table has for good, by the one that the large batch saw that is under way, or
  /// the last one. One under way is sent for it.
  virtual long NumberGiven(const std::string& /*table*/, long number) { return number; }

  /// Puts rows into a table, many of them in one go; they bring the number of an identity column along.
  /// Errors as of a row that is put in by `AbrirEdicao`. Some may stand after one: use it within a batch.
  virtual void AddRows(const std::string& table, const std::vector<std::string>& columns,
                       const std::vector<const RowValues*>& rows) = 0;
};

/// Everything written while it lives is kept by `Commit` at once, or not at all. One at a time; others may
/// have to wait for it.
class Batch {
 public:
  /// Error -2147467259 when another program holds a write.
  explicit Batch(Store& store) : Batch(store, &Store::BeginBatch) {}
  ~Batch() {
    if (open_) store_.AbandonBatch();
  }
  Batch(const Batch&) = delete;
  Batch& operator=(const Batch&) = delete;
  void Commit() {
    store_.CommitBatch();
    open_ = false;
  }

 protected:
  Batch(Store& store, void (Store::*begin)()) : store_(store) { (store.*begin)(); }

 private:
  Store& store_;
  bool open_ = true;
};

/// A batch that reads and writes many rows, as an import does. On a server that is far away it runs in memory
/// and is sent in few pieces: numbers of new rows are final only with `NumberGiven`.
class LargeBatch : public Batch {
 public:
  explicit LargeBatch(Store& store) : Batch(store, &Store::BeginLargeBatch) {}
};

}  // namespace zorCrmParvel
