#pragma once

#include <memory>
#include <string>
#include <vector>

#include "history/reader.h"

namespace history {

/// What an operation did to one row, as people read it.
struct DetailLine {
  std::string record;  // "Gastos 17"
  std::string words;   // "Custo: 66,36 → 70", one column in each; "Criado", "Removido" before all
};

/// The page of the history: the operations that a filter takes, read bit by bit, and what each did.
class Browser {
 public:
  explicit Browser(std::shared_ptr<KeepingStore> store) : store_(std::move(store)) {}

  /// Begins anew with other wishes.
  void Ask(Filter filter);
  const Filter& filter() const { return filter_; }
  /// Reads on: a slice, which never takes long. What it finds stands at the end of `operations`.
  void ReadOn() {
    if (!ended_) Take(ReadOperations(*store_, filter_, below_));
  }
  /// The same with the slice below `below`, which was read elsewhere.
  void Take(Slice slice);
  long below() const { return below_; }
  bool AtEnd() const { return ended_; }
  const std::vector<Operation>& operations() const { return operations_; }

  /// What an operation did, at most so many lines; the last tells how many rows more there were.
  std::vector<DetailLine> DetailOf(long number, std::size_t most = 200) const;
  const std::shared_ptr<KeepingStore>& store() const { return store_; }

 private:
  std::shared_ptr<KeepingStore> store_;
  Filter filter_;
  std::vector<Operation> operations_;
  long below_ = 0;
  bool ended_ = false;
};

/// "24-11-2026 10:12".
std::string ShownMoment(platform::Date moment);
/// The operation's words with the record that they are about.
std::string ShownWords(const Operation& operation);
/// What stands behind it: "anulada pela operação 12"; empty for nothing.
std::string ShownState(const Operation& operation);

}  // namespace history
