#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cell.h"
#include "platform/recordset.h"
#include "platform/variant.h"
#include "store/store.h"
#include "tsql/catalog.h"

namespace history {

/// Values of one row by the table's columns, in their order; nothing where a column was not recorded.
/// Bytes that were read back from the history are the text of their digest.
using Image = zorCrmParvel::RowValues;

bool HoldsBytes(const tsql::Column& column);

/// The values of the primary key as one text.
std::string KeyText(const tsql::Table& table, const Image& image);
/// The same, equal for keys that the database takes as one: ASCII case and blanks at the end don't count.
std::string FoldedKey(const tsql::Table& table, const Image& image);
/// The condition that finds the row by its key: `[Codigo] = N'1'`.
std::string KeyCondition(const tsql::Table& table, const Image& image);
/// A value as a statement spells it.
std::string SqlLiteral(const tsql::Column& column, const platform::Variant& value);
/// The columns' names in brackets, parted by commas.
std::string NamesOf(const std::vector<const tsql::Column*>& columns);
std::string Bracketed(std::string_view name);

/// The field of a recordset for each column of a table; nothing where it has none of the name.
using Places = std::vector<std::optional<std::size_t>>;
Places PlacesOf(const tsql::Table& table, const platform::Recordset& rows);
/// The place of each column in a list of names.
Places PlacesOf(const tsql::Table& table, const std::vector<std::string>& names);
/// A row that was put in; a column that it lacks is null.
Image ImageOf(const Places& places, const zorCrmParvel::RowValues& row);
/// Copies a row of a recordset.
Image ImageAt(const tsql::Table& table, platform::Recordset& rows, std::size_t row, const Places& places);
/// Copies all of them.
std::vector<Image> ImagesOf(const tsql::Table& table, platform::Recordset& rows);
/// Rows to ask a recordset for in one go.
inline constexpr std::size_t kRowsATime = 256;

/// True when two values are the same; bytes and their digest are.
bool SameValue(const tsql::Column& column, const platform::Variant& a, const platform::Variant& b);

}  // namespace history
