#include "embedded/compiler/parameters.h"

#include "embedded/compiler/conversion.h"

namespace embedded {
namespace {

constexpr std::int64_t kUnit = 10000;

bool IsText(const LiteralSpan& literal) { return literal.kind <= LiteralClass::kNationalText; }

void BindText(sqlite3_stmt* target, int index, std::string_view text, bool stays) {
  sqlite3_bind_text(target, index, text.data(), static_cast<int>(text.size()),
                    stays ? SQLITE_STATIC : SQLITE_TRANSIENT);
}

void BindNumber(sqlite3_stmt* target, int index, const Parameter& parameter, std::string_view digits) {
  if (parameter.kind == Kind::kText) {
    BindText(target, index, NumberToText(digits, parameter.negative), false);
  } else if (parameter.kind == Kind::kFloat) {
    const double number = parameter.negative ? -NumberOf(digits) : NumberOf(digits);
    sqlite3_bind_double(target, index, parameter.inTenThousandths ? number * kUnit : number);
  } else {
    sqlite3_bind_int64(target, index, NumberToStored(digits, parameter.negative, parameter.kind));
  }
}

void BindLiteral(sqlite3_stmt* target, int index, const Parameter& parameter, const LiteralSpan& literal,
                 std::string_view statement) {
  std::string scratch;
  const std::string_view value = ValueOf(literal, statement, scratch);
  if (!IsText(literal)) return BindNumber(target, index, parameter, value);
  const char* textType = literal.kind == LiteralClass::kText ? "varchar" : "nvarchar";
  if (parameter.kind == Kind::kText)
    BindText(target, index, value, !literal.doubledQuotes);
  else if (parameter.kind == Kind::kFloat)
    sqlite3_bind_double(target, index, ReadFloat(value, textType));
  else
    sqlite3_bind_int64(target, index, ReadStored(value, parameter.kind, textType));
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
