#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>

#include "store/far_batch.h"
#include "store/forwarding_store.h"
#include "store/near_tables.h"
#include "store/store.h"
#include "tsql/ast.h"

namespace store {

/// A server's database for which a loop costs no waiting. Within a `Snapshot`, a statement that was asked
/// before is answered by its rows, one on rows that were read before by those, and one that comes back with
/// another key by the tables that it reads, which are then taken over whole. Answered so are only plain reads
/// without an order and without the server's clock, whose rows the two engines give alike. The first write,
/// and rows opened for editing, end it; outside a snapshot everything goes to the server. A large batch runs
/// in memory (see `FarBatch`) as long as all of its statements can.
class NearStore : public ForwardingStore {
 public:
  static constexpr std::size_t kMostRows = 20000;   // of a table that is taken over
  static constexpr std::size_t kMostKept = 100000;  // rows of answers

  /// `schema`: as of `NearTables`.
  /// `apply`: how a large batch writes; empty: as any other.
  NearStore(std::shared_ptr<zorCrmParvel::Store> server, std::string schema, std::size_t mostRows = kMostRows,
            ApplyChanges apply = {});

  std::function<std::shared_ptr<zorCrmParvel::Store>()> Opener() const override;
  void BeginBatch() override;
  void BeginLargeBatch() override;
  void CommitBatch() override;
  void AbandonBatch() override;
  long NumberGiven(const std::string& table, long number) override;
  void AddRows(const std::string& table, const std::vector<std::string>& columns,
               const std::vector<const zorCrmParvel::RowValues*>& rows) override;
  void BeginSnapshot() override { ++snapshots_; }
  void EndSnapshot() noexcept override;

 protected:
  bool Execute(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForEditing(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override;

 private:
  zorCrmParvel::RecordsetRef Near(const std::string& statement);
  zorCrmParvel::RecordsetRef OfMemory(const tsql::Select& select, const std::string& statement);
  zorCrmParvel::RecordsetRef OfServer(const tsql::Select& select, const std::string& statement);
  void Forget();
  void Written();
  bool InMemory(const std::string& statement);
  void SendLarge();

  std::string schema_;
  std::size_t mostRows_;
  int snapshots_ = 0;  // asked for, one in another
  bool over_ = false;  // something was written since the outermost began
  std::unordered_map<std::string, zorCrmParvel::RecordsetRef> asked_;  // answers of the server, by statement
  std::unordered_map<std::string, zorCrmParvel::RecordsetRef> parts_;  // rows of a table that have a value
  std::size_t kept_ = 0;                                               // rows in them
  std::unordered_map<std::string, int> shapes_;                        // how often each was asked
  std::unique_ptr<NearTables> tables_;
  ApplyChanges apply_;
  std::unique_ptr<FarBatch> large_;  // while a large batch runs in memory
  bool batch_ = false;               // the server's is under way
  GivenNumbers given_;               // of the last large batch
};

}  // namespace store
