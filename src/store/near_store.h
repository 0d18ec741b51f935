#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>

#include "store/near_tables.h"
#include "store/store.h"

namespace store {

/// A server's database for which a loop costs no waiting. Within a `Snapshot`, a statement that was asked
/// before is answered by its rows, and one that comes back with another key by the tables that it reads,
/// which are then taken over whole. Answered so are only plain reads without an order and without the
/// server's clock, whose rows the two engines give alike. The first write, and rows opened for editing, end
/// it; outside a snapshot everything goes to the server.
class NearStore : public zorCrmParvel::Store {
 public:
  static constexpr std::size_t kMostRows = 20000;  // of a table that is taken over, and of rows kept

  /// `schema`: as of `NearTables`.
  NearStore(std::shared_ptr<zorCrmParvel::Store> server, std::string schema,
            std::size_t mostRows = kMostRows);

  std::string Place() const override { return server_->Place(); }
  void BeginBatch() override;
  void CommitBatch() override { server_->CommitBatch(); }
  void AbandonBatch() override { server_->AbandonBatch(); }
  void BringNumbers(const std::string& table, bool on) override { server_->BringNumbers(table, on); }
  bool ObterLigacao(platform::Ref<platform::Connection>& connection) override;
  void BeginSnapshot() override { ++snapshots_; }
  void EndSnapshot() noexcept override;

 protected:
  bool Execute(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForEditing(const std::string& statement) override;
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override;

 private:
  zorCrmParvel::RecordsetRef Far(const std::string& statement) const;
  zorCrmParvel::RecordsetRef Near(const std::string& statement);
  void Forget();
  void Written();

  std::shared_ptr<zorCrmParvel::Store> server_;
  std::string schema_;
  std::size_t mostRows_;
  int snapshots_ = 0;  // asked for, one in another
  bool over_ = false;  // something was written since the outermost began
  std::unordered_map<std::string, zorCrmParvel::RecordsetRef> asked_;  // answers of the server, by statement
  std::size_t kept_ = 0;                                               // rows in them
  std::unordered_map<std::string, int> shapes_;                        // how often each was asked
  std::unique_ptr<NearTables> tables_;
};

}  // namespace store
