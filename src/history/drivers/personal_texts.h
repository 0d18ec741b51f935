#pragma once

#include <set>
#include <string>
#include <vector>

#include "history/image.h"

namespace history {

/// The texts by which a person is known, and how they are taken out of others.
class PersonalTexts {
 public:
  explicit PersonalTexts(std::string code) : code_(std::move(code)) {}

  /// Takes in what a record of a driver tells of him.
  void Learn(const tsql::Table& drivers, const Image& record);
  /// The texts, as they stand and as JSON spells them.
  const std::set<std::string>& all() const { return texts_; }
  /// A text without them; case doesn't count. The name becomes the code.
  std::string Cleared(const std::string& text) const;

 private:
  std::string code_;  // that stands for the person
  std::set<std::string> texts_;
  std::set<std::string> names_;
};

}  // namespace history
