#include "embedded/storage/functions.h"

#include <memory>
#include <string>
#include <string_view>

#include "embedded/compiler/conversion.h"
#include "embedded/compiler/date_text.h"
#include "embedded/compiler/like.h"
#include "embedded/compiler/money.h"
#include "embedded/compiler/server_error.h"
#include "embedded/compiler/value_kind.h"
#include "embedded/storage/sqlite.h"
#include "platform/stored_dates.h"
#include "platform/text.h"

namespace embedded {
namespace {

using Context = sqlite3_context*;
using Arguments = sqlite3_value**;

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

/// A whole number; it is a double when arithmetic went beyond 64 bits.
std::int64_t WholeOf(sqlite3_value* value, Kind kind) {
  if (sqlite3_value_type(value) == SQLITE_FLOAT)
    Refuse("Arithmetic overflow error converting expression to data type " + std::string(NameOf(kind)) + ".");
  return sqlite3_value_int64(value);
}

Kind KindArgument(sqlite3_value* value) { return static_cast<Kind>(sqlite3_value_int(value)); }

void ReturnText(Context context, std::string_view text) {
  sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void Convert(Context context, Arguments a) {
  const Kind from = KindArgument(a[1]);
  const Kind to = KindArgument(a[2]);
  if (from == Kind::kText && to == Kind::kFloat)
    return sqlite3_result_double(context, ReadFloat(TextOf(a[0])));
  if (from == Kind::kText) return sqlite3_result_int64(context, ReadStored(TextOf(a[0]), to));
  if (from == Kind::kFloat)
    return sqlite3_result_int64(context, FloatToStored(sqlite3_value_double(a[0]), to));
  const std::int64_t value = WholeOf(a[0], from);
  sqlite3_result_int64(context, from == Kind::kMoney ? MoneyToWhole(value, to) : WholeToKind(value, to));
}

void MoneyText(Context context, Arguments a) {
  ReturnText(context, MoneyToText(WholeOf(a[0], Kind::kMoney)));
}

void DateText(Context context, Arguments a) {
  ReturnText(context, DateToText(sqlite3_value_int64(a[0]), sqlite3_value_int(a[1])));
}

void DaysDate(Context context, Arguments a) {
  sqlite3_result_int64(context, DaysToDate(WholeOf(a[0], Kind::kDate)));
}

/// A moment moved by seconds, which must be a date.
void MovedDate(Context context, Arguments a) {
  const std::int64_t moved = WholeOf(a[0], Kind::kDate) + sqlite3_value_int64(a[1]);
  if (!platform::FitsDatetime(platform::Date::FromSeconds(moved)))
    Refuse("Adding a value to a 'datetime' column caused an overflow.");
  sqlite3_result_int64(context, moved);
}

void LeftText(Context context, Arguments a) {
  const std::string_view text = TextOf(a[0]);
  const int length = sqlite3_value_int(a[1]);
  if (length < 0) Refuse("Invalid length parameter passed to the left function.");
  const auto units = static_cast<std::size_t>(length);
  if (text.size() <= units) return sqlite3_result_value(context, a[0]);
  ReturnText(context, platform::Left(text, units));
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

void TextLength(Context context, Arguments a) {
  sqlite3_result_int64(context,
                       static_cast<sqlite3_int64>(platform::Length(WithoutTrailingBlanks(TextOf(a[0])))));
}

void FitText(Context context, Arguments a) {
  const std::string_view text = TextOf(a[0]);
  const auto width = static_cast<std::size_t>(sqlite3_value_int(a[1]));
  if (text.size() <= width || platform::Length(text) <= width) return sqlite3_result_value(context, a[0]);
  if (platform::Length(WithoutTrailingBlanks(text)) > width)
    Refuse("String or binary data would be truncated.");
  ReturnText(context, platform::Left(text, width));
}

void NarrowText(Context context, Arguments a) {
  const std::string_view text = TextOf(a[0]);
  if (text.size() > static_cast<std::size_t>(sqlite3_value_int(a[1])))
    Refuse("Arithmetic overflow error converting expression to data type nvarchar.");
  sqlite3_result_value(context, a[0]);
}

/// A pattern that is the same for all rows is read once.
void LikeText(Context context, Arguments a) {
  const auto* known = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 1));
  if (known != nullptr) return sqlite3_result_int(context, known->Matches(TextOf(a[0])) ? 1 : 0);
  auto pattern = std::make_unique<LikePattern>(TextOf(a[1]));
  sqlite3_result_int(context, pattern->Matches(TextOf(a[0])) ? 1 : 0);
  sqlite3_set_auxdata(context, 1, pattern.release(),
                      [](void* each) { delete static_cast<LikePattern*>(each); });
}

template <std::int64_t (*operation)(std::int64_t, std::int64_t)>
void MoneyOperation(Context context, Arguments a) {
  sqlite3_result_int64(context, operation(WholeOf(a[0], Kind::kMoney), WholeOf(a[1], Kind::kMoney)));
}

std::int64_t Divisor(sqlite3_value* value) {
  const std::int64_t divisor = WholeOf(value, Kind::kInt);
  if (divisor == 0) Refuse("Divide by zero error encountered.");
  return divisor;
}

void Quotient(Context context, Arguments a) {
  const std::int64_t dividend = WholeOf(a[0], Kind::kInt);
  const std::int64_t divisor = Divisor(a[1]);
  sqlite3_result_int64(context, divisor == -1 ? SubtractMoney(0, dividend) : dividend / divisor);
}

void Remainder(Context context, Arguments a) {
  const std::int64_t dividend = WholeOf(a[0], Kind::kInt);
  const std::int64_t divisor = Divisor(a[1]);
  sqlite3_result_int64(context, divisor == -1 ? 0 : dividend % divisor);
}

void Ratio(Context context, Arguments a) {
  const double divisor = sqlite3_value_double(a[1]);
  if (divisor == 0) Refuse("Divide by zero error encountered.");
  sqlite3_result_double(context, sqlite3_value_double(a[0]) / divisor);
}

/// Calls a function unless an argument is null; no exception goes through SQLite.
template <void (*function)(Context, Arguments)>
void Guarded(Context context, int count, Arguments arguments) {
  for (int i = 0; i < count; ++i)
    if (sqlite3_value_type(arguments[i]) == SQLITE_NULL) return sqlite3_result_null(context);
  try {
    function(context, arguments);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& e) {
    sqlite3_result_error(context, e.what(), -1);
  }
}

struct Function {
  const char* name;
  int arguments;
  void (*call)(Context, int, Arguments);
};

constexpr Function kFunctions[] = {
    {"sv_convert", 3, &Guarded<&Convert>},
    {"sv_money_text", 1, &Guarded<&MoneyText>},
    {"sv_date_text", 2, &Guarded<&DateText>},
    {"sv_days_date", 1, &Guarded<&DaysDate>},
    {"sv_date", 2, &Guarded<&MovedDate>},
    {"sv_left", 2, &Guarded<&LeftText>},
    {"sv_len", 1, &Guarded<&TextLength>},
    {"sv_fit", 2, &Guarded<&FitText>},
    {"sv_narrow", 2, &Guarded<&NarrowText>},
    {"sv_like", 2, &Guarded<&LikeText>},
    {"sv_add", 2, &Guarded<&MoneyOperation<&AddMoney>>},
    {"sv_subtract", 2, &Guarded<&MoneyOperation<&SubtractMoney>>},
    {"sv_multiply", 2, &Guarded<&MoneyOperation<&MultiplyMoney>>},
    {"sv_divide", 2, &Guarded<&MoneyOperation<&DivideMoney>>},
    {"sv_quotient", 2, &Guarded<&Quotient>},
    {"sv_remainder", 2, &Guarded<&Remainder>},
    {"sv_ratio", 2, &Guarded<&Ratio>},
};

}  // namespace

void RegisterFunctions(sqlite3* connection) {
  for (const Function& function : kFunctions) {
    const int code = sqlite3_create_function_v2(connection, function.name, function.arguments,
                                                SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS,
                                                nullptr, function.call, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) RaiseSqlite(connection, code);
  }
}

}  // namespace embedded
