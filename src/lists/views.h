#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "host/data_access.h"

namespace lists {

/// How a list is shown: which columns, in which order; search, filters, sort and groups. Columns by their
/// keys.
struct ListLook {
  std::vector<std::string> columns;  // those shown, in their order; none: as the list gives them
  std::string search;
  std::map<std::string, std::string> filters;
  std::string sort;  // empty for the list's own order
  bool descending = false;
  std::string group;

  friend bool operator==(const ListLook&, const ListLook&) = default;
};

/// A look under a name, for everybody in the office or for one person.
struct ListView {
  std::string name;
  std::string list;   // by its key
  std::string owner;  // who has it for oneself; empty for the office's
  ListLook look;
};

/// The office's views and a person's own, by list and name. None in a database that has no table for them.
std::vector<ListView> ViewsOf(const zorCrmParvel::DataAccessRef& bd, const std::string& person);
/// Keeps a view; one of the same list, owner and name is replaced. Error 5 for a name that is empty or too
/// long.
void KeepView(const zorCrmParvel::DataAccessRef& bd, const ListView& view);
void RemoveView(const zorCrmParvel::DataAccessRef& bd, const ListView& view);

std::string LookText(const ListLook& look);
/// The other way round; what can't be read is left out.
ListLook LookOf(const std::string& text);

}  // namespace lists
