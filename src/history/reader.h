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
  std::string record;  // the plate or code that it is about
  long undoes = 0;     // the operation that it undid; 0: none
  long undoneBy = 0;   // the last that undid it, itself not undone; 0: none
};

/// What an act did to rows of one table.
struct Step {
  long number = 0;
  const tsql::Table* table = nullptr;  // null for one that the program no longer knows
  std::vector<Image> before;
  std::vector<Image> after;
};

/// What the page asks for. Empty members ask for everything.
struct Filter {
  std::string text;      // anywhere in words, record or operator
  std::string record;    // exactly
  std::string operador;  // exactly
  std::optional<platform::Date> from;
  std::optional<platform::Date> to;  // this day included
};

/// The operations of a span of numbers that a filter takes, the newest first.
struct Slice {
  std::vector<Operation> operations;
  long next = 0;  // where the next slice begins; 0: there is none
};

/// Reads up to `most` operations with numbers below `below` (0: the newest), looking at no more than a part
/// of a long history: an empty slice with `next` set asks to go on there.
Slice ReadOperations(KeepingStore& store, const Filter& filter, long below = 0, int most = 100);
std::optional<Operation> ReadOperation(KeepingStore& store, long number);
/// The newest operation of this operator and workstation that can be undone.
std::optional<Operation> LastToUndo(KeepingStore& store);
/// What an operation did, in the order in which it did.
std::vector<Step> ReadSteps(KeepingStore& store, long number);

/// One change of a record's life.
struct Change {
  Operation operation;
  std::string words;  // "Km: 10500 → 10560"
};
/// All changes of one row, the newest first. `key` is its key as one text.
std::vector<Change> ReadLife(KeepingStore& store, const tsql::Table& table, const std::string& key);
/// The differences of one row as people read them, a line each.
std::vector<std::string> Describe(const tsql::Table& table, const Image* before, const Image* after);
/// A value as people read it.
std::string Shown(const tsql::Column& column, const platform::Variant& value);

}  // namespace history
