#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "exchange/table/table_reader.h"

namespace exchange {

/// Cells of each kind, with the text that is their face.
TableCell TextCell(std::string text);
TableCell NumberCell(double number);
TableCell DateCell(platform::Date date);
TableCell TruthCell(bool truth);
TableCell ErrorCell(std::string name);

/// A day counted by a spreadsheet: the day with its time; the number itself where that calendar has no such
/// day (29-02-1900, days before it begins, years beyond 9999).
TableCell SerialCell(double serial, bool calendar1904);
/// The day that a serial means.
std::optional<platform::Date> DateOfSerial(double serial, bool calendar1904);
/// True when a number format ("dd/mm/yyyy", "[$-816]d \"de\" mmmm") shows a day or a time of the day.
bool ShowsDate(std::string_view format);
/// The same of the formats that have only a number.
bool IsBuiltInDate(int format);

/// Reads a whole number or a decimal one with a point; nothing when the text is none.
std::optional<double> ReadNumber(std::string_view text);
/// Reads "2026-07-01", with "T12:30:00" and fractions or without.
std::optional<platform::Date> ReadIsoDate(std::string_view text);

}  // namespace exchange
