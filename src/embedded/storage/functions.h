#pragma once

#include <sqlite3.h>

namespace embedded {

/// Makes the functions that compiled statements call known to a connection. Each gives null for a null; a
/// failure ends the statement with the server's words.
///
///   sv_convert(value, from, to)  a conversion between two kinds (numbers of `Kind`)
///   sv_money_text(money)         text of an amount
///   sv_date_text(date, style)    text of a date
///   sv_left(text, n), sv_len(text)
///   sv_fit(text, n)              the text without blanks beyond the width, or the truncation error
///   sv_narrow(text, n)           a number's text, or the overflow error when it is longer
///   sv_like(text, pattern)
///   sv_add, sv_subtract, sv_multiply, sv_divide  on money
///   sv_quotient, sv_remainder    on whole numbers
///   sv_ratio                     on doubles
void RegisterFunctions(sqlite3* connection);

}  // namespace embedded
