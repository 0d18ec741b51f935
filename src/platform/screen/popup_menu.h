#pragma once

#include <string>
#include <vector>

namespace platform {

/// A command of a menu. Without `visible` it isn't there, without `enabled` it stands grey.
struct MenuItem {
  long id = 0;  // what a choice is told by
  std::string caption;
  std::string toolTip;
  bool visible = true;
  bool enabled = true;
  int key = 0;  // the one of `Key` that runs the command on the chosen row, if any
};

/// A context menu: the host fills in its standard commands, the list changes what it wants, the host shows it
/// and tells which command was chosen.
class PopUpMenu {
 public:
  MenuItem& Add(long id, std::string caption);
  /// Null when the menu has no such command.
  MenuItem* Find(long id);
  /// The command that a key runs; null when none does.
  const MenuItem* OfKey(int key) const;
  const std::vector<MenuItem>& Items() const { return items_; }

  long Command = 0;  // the command chosen

 private:
  std::vector<MenuItem> items_;
};

}  // namespace platform
