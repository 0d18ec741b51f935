#include "embedded/parameters.h"

#include "embedded/conversion.h"
#include "embedded/server_error.h"

namespace embedded {
namespace {

constexpr std::int64_t kUnit = 10000;
constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kFirstOf1900 = 2 * kSecondsPerDay;

bool IsText(const LiteralSpan& literal) { return literal.kind <= LiteralClass::kNationalText; }

std::int64_t StoredNumber(std::string_view digits, LiteralClass kind, Kind as) {
  std::int64_t money = 0;
  if (kind == LiteralClass::kReal) return FloatToStored(NumberOf(digits), as);
  if (!TenThousandthsOf(digits, money))
    Refuse("Arithmetic overflow error converting expression to data type money.");
  if (as == Kind::kMoney) return money;
  if (as == Kind::kBit) return money != 0 ? 1 : 0;
  if (as == Kind::kDate) return money / kUnit * kSecondsPerDay + kFirstOf1900;
  return WholeToKind(money / kUnit, as);
}

void BindText(sqlite3_stmt* target, int index, const LiteralSpan& literal, std::string_view statement) {
  std::string scratch;
  const std::string_view value = ValueOf(literal, statement, scratch);
  sqlite3_bind_text(target, index, value.data(), static_cast<int>(value.size()),
                    literal.doubledQuotes ? SQLITE_TRANSIENT : SQLITE_STATIC);
}

void BindLiteral(sqlite3_stmt* target, int index, const Parameter& parameter, const LiteralSpan& literal,
                 std::string_view statement) {
  if (parameter.kind == Kind::kText) return BindText(target, index, literal, statement);
  std::string scratch;
  const std::string_view value = ValueOf(literal, statement, scratch);
  const char* textType = literal.kind == LiteralClass::kText ? "varchar" : "nvarchar";
  if (parameter.kind == Kind::kFloat) {
    const double number = IsText(literal) ? ReadFloat(value, textType) : NumberOf(value);
    sqlite3_bind_double(target, index, parameter.inTenThousandths ? number * kUnit : number);
  } else {
    sqlite3_bind_int64(target, index,
                       IsText(literal) ? ReadStored(value, parameter.kind, textType)
                                       : StoredNumber(value, literal.kind, parameter.kind));
  }
}

}  // namespace

std::size_t Parameters::Add(Parameter parameter) {
  all_.push_back(parameter);
  return all_.size() - 1;
}

void Bind(const SqliteStatement& target, const std::vector<Parameter>& parameters,
          const Arguments& arguments) {
  int index = 0;
  for (const Parameter& parameter : parameters) {
    ++index;
    if (parameter.literal) {
      BindLiteral(target.get(), index, parameter, (*arguments.literals)[*parameter.literal],
                  arguments.statement);
    } else {
      sqlite3_bind_int64(target.get(), index, arguments.now);
    }
  }
}

}  // namespace embedded
