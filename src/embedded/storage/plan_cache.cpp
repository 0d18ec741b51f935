#include "embedded/storage/plan_cache.h"

#include <algorithm>

namespace embedded {

std::shared_ptr<Plan> PlanCache::Begin(const std::string& statement, Plan::Use use, const Clock& clock) {
  shape_.Read(statement);
  shape_.AppendToKey(static_cast<char>(use));
  std::shared_ptr<Plan> plan = Find(statement, use);
  plan->Begin(statement, shape_.literals(), clock);
  return plan;
}

std::shared_ptr<Plan> PlanCache::Find(const std::string& statement, Plan::Use use) {
  const auto found = entries_.find(std::string_view{shape_.key()});
  if (found != entries_.end()) {
    found->second.lastUse = ++uses_;
    for (const auto& plan : found->second.plans)
      if (plan.use_count() == 1 && plan->Takes(statement, shape_.literals())) return plan;
  }
  auto plan = std::make_shared<Plan>(connection_, catalog_, statement, shape_.literals(), use);
  if (shape_.key().size() > kLargestKey) return plan;
  if (found == entries_.end()) MakeRoom();
  Entry& entry = entries_[shape_.key()];
  entry.lastUse = ++uses_;
  if (entry.plans.size() == kMostPlansOfAShape) entry.plans.erase(entry.plans.begin());
  entry.plans.push_back(std::move(plan));
  return entry.plans.back();
}

void PlanCache::MakeRoom() {
  if (entries_.size() < kMostShapes) return;
  const auto oldest = std::min_element(entries_.begin(), entries_.end(), [](const auto& a, const auto& b) {
    return a.second.lastUse < b.second.lastUse;
  });
  entries_.erase(oldest);
}

}  // namespace embedded
