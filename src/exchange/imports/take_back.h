#pragma once

#include <functional>
#include <string>
#include <vector>

#include "exchange/imports/import_log.h"
#include "store/store.h"

namespace exchange {

/// A row that stays although its import was taken back.
struct KeptRow {
  std::string table;
  std::string key;
  long line = 0;
  std::string why;
};

struct TakenBack {
  long removed = 0;
  long gone = 0;  // that somebody had removed already
  std::vector<KeptRow> kept;
};

/// Removes the rows that an import stored and nobody has changed since, and computes the vehicles anew; all
/// of it at once. Rows that were changed, and vehicles, drivers and codes that others use by now, stay and
/// are told. `beforeCommit` writes what is to be kept with it. Throws std::runtime_error when there is no
/// such import, or it was taken back already.
TakenBack TakeBackImport(const platform::Ref<zorCrmParvel::Store>& bd, long number,
                         const std::function<void()>& beforeCommit = {});

}  // namespace exchange
