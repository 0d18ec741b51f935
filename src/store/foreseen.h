#pragma once

#include <map>
#include <string>
#include <utility>

#include "store/copied_rows.h"
#include "store/forwarding_store.h"

namespace store {

/// Answers by their statements.
using Foreseen = std::map<std::string, zorCrmParvel::RecordsetRef>;

/// A database that keeps what is read through it, for one that will ask the same on another thread.
class RecordedReads : public ForwardingStore {
 public:
  using ForwardingStore::ForwardingStore;

  Foreseen Take() { return std::exchange(answers_, {}); }

 protected:
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override {
    zorCrmParvel::RecordsetRef rows = ForwardingStore::OpenForReading(statement);
    answers_.insert_or_assign(statement, platform::MakeRef<CopiedRows>(*rows));
    return rows;
  }

 private:
  Foreseen answers_;
};

/// A database some of whose answers are at hand already, as often as they are asked for.
class ForeseenStore : public ForwardingStore {
 public:
  using ForwardingStore::ForwardingStore;

  /// From now on these are the answers to their statements; none of them ends it. Gives back those before.
  Foreseen Foresee(Foreseen answers) { return std::exchange(answers_, std::move(answers)); }

 protected:
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override {
    const auto known = answers_.find(statement);
    if (known == answers_.end()) return ForwardingStore::OpenForReading(statement);
    return platform::MakeRef<CopiedRows>(*known->second);
  }

 private:
  Foreseen answers_;
};

}  // namespace store
