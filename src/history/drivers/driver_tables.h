#pragma once

#include <string>
#include <vector>

#include "history/keeping_store.h"

namespace history {

/// A table that holds something on a driver, and how his rows are found in it.
struct DriverTable {
  const char* word;   // in JSON
  const char* title;  // for people
  const char* table;
  const char* column;     // that holds the driver's code
  const char* condition;  // that his rows fulfil beside it; empty: none
  bool own;               // rows that are about nobody else; the others are events, which stay
};

const std::vector<DriverTable>& DriverTables();
/// The rows on a driver, whole.
std::vector<Image> ReadDriverRows(KeepingStore& store, const DriverTable& from, const std::string& code);
/// True when an image is a row on a driver. Columns that it lacks are taken as they should be.
bool IsOf(const DriverTable& from, const tsql::Table& table, const Image& image, const std::string& code);
/// True when the database takes two texts as one key: case and blanks at the end don't count.
bool SameCode(std::string a, std::string b);

}  // namespace history
