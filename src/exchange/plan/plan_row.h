#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>

#include "platform/currency.h"
#include "platform/date.h"

namespace exchange {

/// What becomes of a row: not looked at yet, would be stored, is stored already, would be stored with a
/// warning, is refused, isn't one of those wanted.
enum class RowState : std::uint8_t { kUnchecked, kNew, kKnown, kWarning, kRefused, kAside };

/// "nova", "repetida", "aviso", "recusada", "posta de parte".
const char* NameOf(RowState state);

/// Why a row is what it is, for the operator.
struct Why {
  std::string column;  // whose value it is; empty: the row's
  std::string reason;
};

/// A row of the file and what becomes of it. A plan holds one for each row: kept small.
struct PlanRow {
  std::uint64_t cells = 0;    // where the table keeps them, as `PackCells` makes them
  platform::Date date;        // orders the rows; the zero date: none
  platform::Currency amount;  // in the file, 0 where there is none
  std::int32_t line = 0;      // in the file
  std::uint32_t section = 0;  // of the table's section rows
  std::uint32_t owner = 0;    // of the plan's owners: plate or code
  std::int32_t leader = -1;   // the row into whose event this one is added; -1: it is its own
  RowState state = RowState::kUnchecked;
  bool hidden = false;  // the file hides it
  bool byHand = false;  // the operator said whether it is set aside
  bool credit = false;  // set aside as a credit note
  bool total = false;   // a sum that the file states
  bool counts = true;   // one of the file's rows of data: not a sum, a section or a header
};

/// Called now and then while rows are read, checked or stored; false gives up.
using Progress = std::function<bool(std::size_t done, std::size_t total)>;

/// Thrown where `Progress` gave up: nothing was stored.
class Cancelled : public std::runtime_error {
 public:
  Cancelled() : std::runtime_error("A importação foi cancelada: nada ficou gravado.") {}
};

/// Calls `progress` every few rows.
void Step(const Progress& progress, std::size_t done, std::size_t total);

}  // namespace exchange
