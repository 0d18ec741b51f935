#pragma once

#include "sqlserver/session.h"
#include "tsql/catalog.h"

namespace sqlserver {

/// While it lives, rows added to a table bring the number of its identity column, where it has one and the
/// server must be told. A connection allows it to one table at a time.
class BroughtNumbers {
 public:
  /// Both outlive it.
  BroughtNumbers(Session& session, const tsql::Table& table);
  ~BroughtNumbers();
  BroughtNumbers(const BroughtNumbers&) = delete;
  BroughtNumbers& operator=(const BroughtNumbers&) = delete;

 private:
  void Set(const char* onOrOff);

  Session& session_;
  const tsql::Table& table_;
  bool told_;
};

}  // namespace sqlserver
