#pragma once

#include <string>
#include <utility>

#include "host/data_access.h"
#include "platform/runtime_error.h"

namespace zorCrmParvel {

/// A data-access object with what the programs around the module need as well. Both engines are one; programs
/// hold it by shared pointer, and recordsets that are still open keep the engine behind it alive.
class Store : public DataAccess {
 public:
  /// Where the data is, for people.
  virtual std::string Place() const = 0;

  // Used through `Batch`.
  virtual void BeginBatch() = 0;
  virtual void CommitBatch() = 0;
  virtual void AbandonBatch() = 0;

  // Used through `OwnNumbers`.
  virtual void BringNumbers(const std::string& table, bool on) = 0;
};

/// Everything written while it lives is kept by `Commit` at once, or not at all. One at a time; others may
/// have to wait for it.
class Batch {
 public:
  /// Error -2147467259 when another program holds a write.
  explicit Batch(Store& store) : store_(store) { store_.BeginBatch(); }
  ~Batch() {
    if (open_) store_.AbandonBatch();
  }
  Batch(const Batch&) = delete;
  Batch& operator=(const Batch&) = delete;
  void Commit() {
    store_.CommitBatch();
    open_ = false;
  }

 private:
  Store& store_;
  bool open_ = true;
};

/// While it lives, rows added to a table through `AbrirEdicao` bring the value of its identity column along.
/// One table at a time.
class OwnNumbers {
 public:
  OwnNumbers(Store& store, std::string table) : store_(store), table_(std::move(table)) {
    store_.BringNumbers(table_, true);
  }
  ~OwnNumbers() {
    try {
      store_.BringNumbers(table_, false);
    } catch (const platform::RuntimeError&) {
      // the connection is lost, and what it allowed with it
    }
  }
  OwnNumbers(const OwnNumbers&) = delete;
  OwnNumbers& operator=(const OwnNumbers&) = delete;

 private:
  Store& store_;
  std::string table_;
};

}  // namespace zorCrmParvel
