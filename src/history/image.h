#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cell.h"
#include "platform/recordset.h"
#include "platform/variant.h"
#include "tsql/catalog.h"

namespace history {

/// Values of one row by the table's columns, in their order; nothing where a column was not recorded.
/// Bytes that were read back from the history are the text of their digest.
using Image = std::vector<std::optional<platform::Variant>>;

bool HoldsBytes(const tsql::Column& column);

/// A value as JSON: money with a point, dates as "2026-11-24 10:12:00", bytes as the digest of their content.
void AppendJson(const tsql::Column& column, const platform::Variant& value, std::string& json);
/// `{"Coluna": valor, …}` of the columns recorded.
std::string ToJson(const tsql::Table& table, const Image& image);
/// The rows of one such object or of a list of them. Columns that the table no longer has are left out.
/// Error -2147467259 when the text is none.
std::vector<Image> FromJson(const tsql::Table& table, std::string_view json);

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

/// Copies the current row of a recordset; its fields are found by the names of the columns.
Image ImageOf(const tsql::Table& table, platform::Recordset& rows);

/// True when two values are the same; bytes and their digest are.
bool SameValue(const tsql::Column& column, const platform::Variant& a, const platform::Variant& b);

}  // namespace history
