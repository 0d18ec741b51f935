#pragma once

#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "exchange/plan/km_proposals.h"
#include "exchange/plan/plan_data.h"

namespace exchange {

/// One pass of a plan's rows through the rules, within a batch of the caller: each row's state becomes what
/// came of it. Whether what it wrote stays is the batch's affair.
class PlanRun {
 public:
  explicit PlanRun(PlanData& plan);

  /// Writes the codes that are to be created.
  void CreateCodes();
  /// To be called in the order in which rows are stored.
  void Row(std::size_t row);
  void Finish() { target_->Finish(); }

  /// A row that was stored: of the plan, or a code created beside.
  struct Stored {
    std::size_t row;
    std::string key;  // of tables whose key the row has; else the plate
    std::string transaction;
  };
  const std::vector<Stored>& stored() const { return stored_; }

 private:
  void AddOthers(std::size_t row);
  bool SettleCode();
  void SettlePrice();
  void ProposeKm(const PlanRow& row);
  void Decide(std::size_t row);
  std::string RefusalOfKm(const PlanRow& row) const;
  void Remember(std::size_t row);

  PlanData& plan_;
  std::unique_ptr<ImportTarget> target_;
  std::unordered_set<std::string> transactions_;  // known, also those of this run
  MappedRow mapped_;
  MappedRow other_;
  std::vector<TableCell> cells_;
  KmProposals proposals_;
  struct Fill {
    platform::Date date;
    platform::Currency km;
    long line;
  };
  std::unordered_map<std::string, std::vector<Fill>> fills_;  // stored in this run, by plate
  std::set<std::string> codes_;                               // of the kind's table, where the file has none
  std::vector<Stored> stored_;
  bool expenses_;
};

}  // namespace exchange
