#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "exchange/plan/km_proposals.h"
#include "exchange/plan/plan_data.h"
#include "exchange/plan/plausibility.h"

namespace exchange {

/// One pass of a plan's rows through the rules: each row's state becomes what came of it. What it writes, it
/// writes within a batch of the caller, whose affair it is whether that stays.
class PlanRun {
 public:
  enum class Purpose { kCheck, kStore };
  /// Writes through `bd`. To check, rows of targets that judge alone are not written.
  PlanRun(PlanData& plan, const zorCrmParvel::DataAccessRef& bd, Purpose purpose);

  bool JudgesAlone() const { return target_->JudgesAlone(); }

  /// Writes the codes that are to be created.
  void CreateCodes();
  /// To be called in the order in which rows are stored.
  void Row(std::size_t row);
  void Finish() { target_->Finish(); }
  /// The rows that will come, in their order.
  void Expect(const std::vector<std::uint32_t>& rows);

  /// It is given each expense that would be stored; it outlives the run.
  void AddTo(Plausibility& plausibility) { plausibility_ = &plausibility; }
  /// Told of each row that was written: its place in the plan, its key (of tables whose key the row has), the
  /// sender's number.
  using Stored = std::function<void(std::size_t row, const std::string& key, const std::string& transaction)>;
  void OnStored(Stored stored) { stored_ = std::move(stored); }

 private:
  void AddOthers(std::size_t row);
  bool SettleCode();
  void SettlePrice();
  void ProposeKm(const PlanRow& row);
  const char* StoredUnsaid() const;
  std::string Decide(std::size_t row);
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
    std::int32_t line = 0;
  };
  /// The last fills of two moments.
  struct Fills {
    Fill last;
    Fill before;
  };
  std::unordered_map<std::string, Fills> fills_;  // of this run, by plate
  std::set<std::string> codes_;                   // of the kind's table, where the file has none
  Stored stored_;
  Plausibility* plausibility_ = nullptr;
  bool expenses_;
  bool writes_;
};

}  // namespace exchange
