#include "embedded/storage/plan.h"

#include <algorithm>
#include <charconv>

#include "embedded/compiler/select_compiler.h"
#include "embedded/compiler/server_error.h"
#include "embedded/compiler/write_compiler.h"
#include "tsql/parser.h"

namespace embedded {
namespace {

std::string_view WrittenValue(const LiteralSpan& literal, const std::string& statement) {
  return std::string_view{statement}.substr(literal.begin, literal.length);
}

/// The SQL with plain question marks, the parameters in their order: SQLite looks a number up among all.
std::string InOrder(const std::string& sql, const Parameters& numbered, std::vector<Parameter>& inOrder) {
  std::string plain;
  char quote = '\0';
  for (const char* at = sql.data(); at != sql.data() + sql.size(); ++at) {
    plain += *at;
    if (quote != '\0' || *at == '\'' || *at == '"') {
      quote = quote == '\0' ? *at : *at == quote ? '\0' : quote;
    } else if (*at == '?') {
      std::size_t number = 0;
      at = std::from_chars(at + 1, sql.data() + sql.size(), number).ptr - 1;
      inOrder.push_back(numbered.all()[number - 1]);
    }
  }
  return plain;
}

/// SQLite refuses what is sound only when it is more than it takes: brackets, tables, parameters.
SqliteStatement Prepared(sqlite3* connection, const std::string& sql) {
  try {
    return {connection, sql};
  } catch (const platform::RuntimeError& error) {
    const std::string words = error.description();
    for (const char* limit : {"too many ", "too large", "too big", "at most ", "stack overflow"})
      if (error.number() == platform::kStatementRefused && words.find(limit) != std::string::npos)
        RefuseAsTooComplex();
    throw;
  }
}

/// Compiles a statement of any kind; only a SELECT has more than SQL.
CompiledSelect Compile(const tsql::StatementNode& node, const tsql::Catalog& catalog, Parameters& parameters,
                       Plan::Use use) {
  CompiledSelect compiled;
  if (const auto* select = std::get_if<tsql::Select>(&node)) {
    SelectCompiler compiler(catalog, parameters);
    return use == Plan::Use::kEdit ? compiler.EditableRows(*select) : compiler.Rows(*select);
  }
  if (use == Plan::Use::kEdit) Refuse("Only the rows of a SELECT statement can be opened for editing.");
  if (const auto* insert = std::get_if<tsql::Insert>(&node))
    compiled.sql = CompileInsert(*insert, catalog, parameters);
  if (const auto* update = std::get_if<tsql::Update>(&node))
    compiled.sql = CompileUpdate(*update, catalog, parameters);
  if (const auto* removal = std::get_if<tsql::Delete>(&node))
    compiled.sql = CompileDelete(*removal, catalog, parameters);
  return compiled;
}

}  // namespace

Plan::Plan(sqlite3* connection, const tsql::Catalog& catalog, const std::string& statement,
           const std::vector<LiteralSpan>& literals, Use use) {
  const tsql::StatementNode node = tsql::ParseStatement(statement);
  Parameters parameters;
  CompiledSelect compiled = Compile(node, catalog, parameters, use);
  reads_ = std::holds_alternative<tsql::Select>(node);
  fields_ = std::move(compiled.fields);
  platform::MarkThoseAlone(fields_);
  for (const platform::FieldInfo& field : fields_) fieldTypes_.push_back(field.type);
  table_ = compiled.table;
  columns_ = std::move(compiled.columns);
  rows_ = Prepared(connection, InOrder(compiled.sql, parameters, parameters_));
  asksClock_ =
      std::any_of(parameters_.begin(), parameters_.end(), [](const Parameter& p) { return !p.literal; });
  KeepFixedLiterals(statement, literals);
}

// A literal that did not become a parameter is part of the SQL: the number of TOP, a width, a style, an
// alias.
void Plan::KeepFixedLiterals(const std::string& statement, const std::vector<LiteralSpan>& literals) {
  std::vector<bool> varies(literals.size());
  for (const Parameter& parameter : parameters_)
    if (parameter.literal && !parameter.fixedValue) varies[*parameter.literal] = true;
  for (std::size_t i = 0; i < literals.size(); ++i)
    if (!varies[i]) fixed_.push_back({i, std::string(WrittenValue(literals[i], statement))});
}

bool Plan::Takes(const std::string& statement, const std::vector<LiteralSpan>& literals) const {
  return std::all_of(fixed_.begin(), fixed_.end(), [&](const FixedLiteral& fixed) {
    return WrittenValue(literals[fixed.ordinal], statement) == fixed.value;
  });
}

void Plan::Begin(const std::string& statement, const std::vector<LiteralSpan>& literals, const Clock& clock) {
  rows_.Reset();
  text_ = statement;
  literals_ = literals;
  if (asksClock_) now_ = clock().seconds();
  Bind(rows_, parameters_, RunArguments());
}

std::int64_t Plan::Count(sqlite3* connection, const tsql::Catalog& catalog) {
  if (!counter_) {
    const tsql::StatementNode node = tsql::ParseStatement(text_);
    Parameters parameters;
    const std::string sql = SelectCompiler(catalog, parameters).Count(std::get<tsql::Select>(node));
    std::vector<Parameter> inOrder;
    SqliteStatement statement = Prepared(connection, InOrder(sql, parameters, inOrder));
    counter_ = std::make_unique<Counter>(Counter{std::move(statement), std::move(inOrder)});
  }
  Bind(counter_->statement, counter_->parameters, RunArguments());
  const std::int64_t count = counter_->statement.Step() ? counter_->statement.Number(0) : 0;
  counter_->statement.Reset();
  return count;
}

}  // namespace embedded
