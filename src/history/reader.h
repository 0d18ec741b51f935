#pragma once

#include <optional>
#include <string>
#include <vector>

#include "history/keeping_store.h"

namespace history {

/// One act of the user.
struct Operation {
  long number = 0;
  platform::Date moment;
  std::string operador;
  std::string posto;
  std::string words;
  std::string record;    // the plate or code that it is about
  long undoes = 0;       // the operation that it undid; 0: none
  long undoneBy = 0;     // the last that undid it, itself not undone; 0: none
  bool emptied = false;  // what it wrote is no longer kept
};

/// What an act did to rows of one table.
struct Step {
  long number = 0;
  const tsql::Table* table = nullptr;  // null for one that the program no longer knows
  std::vector<Image> before;
  std::vector<Image> after;
};

/// What an operation did to the first row that it wrote, or that it undid another.
enum class Kind { kAny, kCreation, kChange, kRemoval, kUndoing };

/// What the page asks for. Empty members ask for everything.
struct Filter {
  /// Anywhere in words, record or operator; the whole plate or code of a record finds that record's alone.
  std::string text = {};
  std::string record = {};    // exactly
  std::string operador = {};  // exactly
  std::optional<platform::Date> from = {};
  std::optional<platform::Date> to = {};  // this day included
  std::string table = {};                 // one of whose rows it wrote
  Kind kind = Kind::kAny;
};

/// The operations of a span of numbers that a filter takes, the newest first.
struct Slice {
  std::vector<Operation> operations;
  long next = 0;  // where the next slice begins; 0: there is none
};

/// Reads some `most` operations with numbers below `below` (0: the newest), looking at no more than a part of
/// a long history: an empty slice with `next` set asks to go on there.
Slice ReadOperations(KeepingStore& store, const Filter& filter, long below = 0, int most = 100);
std::optional<Operation> ReadOperation(KeepingStore& store, long number);
/// The operations of these numbers, the newest first; those that are no longer kept are left out.
std::vector<Operation> ReadOperations(KeepingStore& store, const std::vector<long>& numbers);
/// The newest operation of this operator and workstation that can be undone.
std::optional<Operation> LastToUndo(KeepingStore& store);
/// What an operation did, in the order in which it did.
std::vector<Step> ReadSteps(KeepingStore& store, long number);
/// The rows of a side of a step as they are stored.
std::vector<Image> ImagesOf(const tsql::Table& table, const std::string& json);
/// Everybody whose name stands in the newest part of the history.
std::vector<std::string> ReadOperators(KeepingStore& store);

}  // namespace history
