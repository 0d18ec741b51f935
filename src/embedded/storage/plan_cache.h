#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "embedded/compiler/shape.h"
#include "embedded/storage/plan.h"

namespace embedded {

/// Plans by the shape of their statements; those not used for longest make room for new ones.
class PlanCache {
 public:
  PlanCache(sqlite3* connection, const tsql::Catalog& catalog) : connection_(connection), catalog_(catalog) {}

  /// The plan of a statement, compiled when it is new, with its run begun. A plan that somebody else still
  /// holds is running and is left alone.
  std::shared_ptr<Plan> Begin(const std::string& statement, Plan::Use use, const Clock& clock);

 private:
  static constexpr std::size_t kMostShapes = 256;
  static constexpr std::size_t kMostPlansOfAShape = 8;
  /// Bytes; a longer statement is compiled each time.
  static constexpr std::size_t kLargestKey = std::size_t{32} << 10;

  struct Entry {
    std::vector<std::shared_ptr<Plan>> plans;  // of one shape, apart in their fixed literals
    std::uint64_t lastUse = 0;
  };
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
  };

  std::shared_ptr<Plan> Find(const std::string& statement, Plan::Use use);
  void MakeRoom();

  sqlite3* connection_;
  const tsql::Catalog& catalog_;
  Shape shape_;
  std::unordered_map<std::string, Entry, Hash, std::equal_to<>> entries_;
  std::uint64_t uses_ = 0;
};

}  // namespace embedded
