#pragma once

#include <string>
#include <vector>

#include "history/keeping_store.h"
#include "host/literal.h"

/// Small steps on the tables of the history that its readers share.
namespace history {

/// The rows of a statement, past the recording.
zorCrmParvel::RecordsetRef OpenRows(KeepingStore& store, const std::string& statement);
/// A field of the current row; a null is an empty text, or 0.
std::string TextIn(platform::Recordset& rows, const char* column);
long NumberIn(platform::Recordset& rows, const char* column);

using zorCrmParvel::TextLiteral;
/// A pattern that finds a text anywhere: what stands for other characters in a pattern stands for itself.
std::string Anywhere(const std::string& text);
/// A day as statements spell it.
std::string DayLiteral(platform::Date day);
/// "1, 2, 3": numbers as conditions take them, some in each text.
std::vector<std::string> ListsOf(const std::vector<long>& numbers, std::size_t most);

/// The highest number that stands in the history; 0 when it is empty.
long NewestNumber(KeepingStore& store);

}  // namespace history
