#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/screen/form.h"
#include "reports/carregar.h"

namespace entry {

/// What is odd about the expense that stands on a ficha, by the rules that find exceptions: said before it is
/// confirmed, and stopping nothing. What the vehicles did last is read when it is needed first, and kept.
class ExpenseWarnings {
 public:
  /// In words, in the order of the rules. Empty while the record is not complete enough to be judged, and for
  /// any other ficha.
  std::vector<std::string> Of(const platform::Form& form);
  /// Something was written: what was read is old.
  void Forget();

 private:
  struct Kept {
    reports::Frota fleet;
    reports::Ajustes rules;
    std::int64_t day = 0;  // of the expense
  };
  const Kept& Read(const zorCrmParvel::DataAccessRef& bd, platform::Date date);

  std::unique_ptr<Kept> kept_;
  std::string judged_;  // what the last answer was about
  std::vector<std::string> said_;
};

}  // namespace entry
