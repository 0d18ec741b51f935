#pragma once

#include <functional>
#include <string>

#include "store/forwarding_store.h"

namespace store {

/// The rows of a statement that nobody has waited for yet: they are brought by whoever read them elsewhere,
/// or read when the first of them is asked for.
class LateRows : public platform::Recordset {
 public:
  using Read = std::function<zorCrmParvel::RecordsetRef()>;

  /// `columns`: how many the statement gives; their names and kinds come with the rows.
  LateRows(std::size_t columns, std::string statement, Read read);

  const std::string& statement() const { return statement_; }
  /// True while the rows are neither brought nor read.
  bool IsWaiting() const { return waiting_; }
  /// Takes the rows of another recordset, all of them. Those that came before stay.
  void Bring(platform::Recordset& rows);

 protected:
  bool Reach(std::size_t row) override { return row < Count(); }
  std::size_t Count() override;

 private:
  std::string statement_;
  Read read_;
  bool waiting_ = true;
};

/// A database whose connection for lookups and reports answers with rows that come late.
class LateLookups : public ForwardingStore {
 public:
  using ForwardingStore::ForwardingStore;

  bool ObterLigacao(platform::Ref<platform::Connection>& connection) override;
};

}  // namespace store
