#pragma once

#include <string>

#include "host/list_view.h"

namespace desktop {

/// The standard commands of a row's pop-up menu, by the numbers that lists know them by.
enum StandardCommand : long {
  kPrintCommand = 800,
  kNewCommand = 900,
  kEditCommand = 901,
  kRemoveCommand = 902
};

/// What a list lets its user do: the standard commands that it leaves standing, and those of its own.
class ListCommands {
 public:
  /// Asks the list; null for none.
  explicit ListCommands(zorCrmParvel::ICrmVwList* list);

  bool Has(StandardCommand command) const;
  const platform::PopUpMenu& menu() const { return menu_; }
  /// What a command is called, without the mark of its mnemonic.
  std::string NameOf(long command) const;
  /// Has the list run a command of its own.
  void Run(zorCrmParvel::ICrmVwList& list, long command);

 private:
  platform::PopUpMenu menu_;
};

/// True for the commands that the window runs itself.
bool IsStandard(long command);

}  // namespace desktop
