#pragma once

#include <sql.h>
#include <sqlext.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <deque>
#include <map>
#include <vector>

#include "embedded/database.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "sqlserver/connection_text.h"
#include "sqlserver/utf16.h"
#include "sqlserver/values.h"
#include "tsql/catalog.h"
#include "tsql/parser.h"

namespace schema {
extern const char* const kTables;
}

/// What the stand-in for a server keeps of environments, connections and requests, and how a request runs.
namespace bench {

using platform::Cell;
using platform::FieldType;
using zorCrmParvel::RecordsetRef;

constexpr std::size_t kWidest = 4000;  // of a text that is bound
inline std::chrono::milliseconds delay{0};

struct Thing {
  virtual ~Thing() = default;
  std::string words;  // of the last failure
};

struct Environment : Thing {};

struct Connection : Thing {
  std::shared_ptr<embedded::Database> database;
  std::string numbered;  // the table that got a row last
  std::string bringing;  // the table whose rows bring their numbers
  bool batch = false;
};

struct Binding {
  SQLSMALLINT type = 0;
  char* value = nullptr;
  SQLLEN room = 0;
  SQLLEN* length = nullptr;
};

struct Parameter {
  SQLSMALLINT type;
  const char* value;
  const SQLLEN* length;
};

struct Request : Thing {
  explicit Request(Connection& owner) : connection(owner) {}
  Connection& connection;
  std::vector<Parameter> parameters;
  std::deque<std::string> statements;  // still to run
  RecordsetRef rows;                   // of the result in hand
  std::size_t next = 0;
  std::map<SQLUSMALLINT, Binding> bindings;
  std::map<SQLINTEGER, SQLPOINTER> attributes;
  std::map<SQLUSMALLINT, std::size_t> given;  // bytes of this row's long values that were read
};

template <typename T>
T& As(SQLHANDLE handle) {
  return *static_cast<T*>(static_cast<Thing*>(handle));
}

inline std::string TextOf(const SQLWCHAR* text, SQLINTEGER length) {
  return sqlserver::ToUtf8({reinterpret_cast<const char16_t*>(text), static_cast<std::size_t>(length)});
}

inline SQLSMALLINT Give(const std::string& text, SQLPOINTER place) {
  const std::u16string wide = sqlserver::ToUtf16(text);
  std::memcpy(place, wide.c_str(), (wide.size() + 1) * sizeof(char16_t));
  return static_cast<SQLSMALLINT>(wide.size());
}

template <typename F>
inline SQLRETURN Guarded(Thing& thing, const F& act) {
  try {
    return static_cast<SQLRETURN>(act());
  } catch (const std::exception& error) {
    thing.words = error.what();
    return SQL_ERROR;
  }
}

inline std::string LiteralOf(const Parameter& parameter) {
  if (*parameter.length == SQL_NULL_DATA) return "NULL";
  const auto length = static_cast<std::size_t>(*parameter.length);
  switch (parameter.type) {
    case SQL_C_BIT:
      return *parameter.value != 0 ? "1" : "0";
    case SQL_C_SSHORT:
      return std::to_string(*reinterpret_cast<const SQLSMALLINT*>(parameter.value));
    case SQL_C_SLONG:
      return std::to_string(*reinterpret_cast<const SQLINTEGER*>(parameter.value));
    case SQL_C_DOUBLE:
      return std::to_string(*reinterpret_cast<const double*>(parameter.value));
    case SQL_C_CHAR:
      return {parameter.value, length};
    case SQL_C_TYPE_TIMESTAMP: {
      const auto& moment = *reinterpret_cast<const SQL_TIMESTAMP_STRUCT*>(parameter.value);
      char text[64];
      std::snprintf(text, sizeof text, "'%04d-%02d-%02d %02d:%02d:%02d'", moment.year, moment.month,
                    moment.day, moment.hour, moment.minute, moment.second);
      return text;
    }
    default:
      break;
  }
  std::string literal = "N'";
  for (const char c : TextOf(reinterpret_cast<const SQLWCHAR*>(parameter.value),
                             static_cast<SQLINTEGER>(length / sizeof(SQLWCHAR))))
    literal += c == '\'' ? std::string("''") : std::string(1, c);
  return literal + "'";
}

/// The statements of a text, with the parameters in their places.
inline std::deque<std::string> Statements(const std::string& text, const std::vector<Parameter>& parameters) {
  std::deque<std::string> statements(1);
  std::size_t next = 0;
  bool quoted = false;
  for (const char c : text) {
    if (c == '\'') quoted = !quoted;
    if (!quoted && c == ';')
      statements.emplace_back();
    else if (!quoted && c == '?')
      statements.back() += LiteralOf(parameters.at(next++));
    else if ((c != '\n' && c != ' ') || quoted || !statements.back().empty())
      statements.back() += c;
  }
  if (statements.back().empty()) statements.pop_back();
  return statements;
}

inline RecordsetRef OneNumber(long number) {
  const auto rows = platform::MakeRef<platform::MemoryRecordset>();
  rows->Append("Numero", FieldType::kLong, 4);
  rows->Open();
  rows->AddNew();
  rows->Fields(0).SetValue(platform::Variant(static_cast<std::int32_t>(number)));
  rows->Update();
  return rows;
}

inline long LastNumber(Connection& connection) {
  static const tsql::Catalog catalog = tsql::ParseSchema(schema::kTables);
  for (const tsql::Column& column : catalog.Get(connection.numbered).columns) {
    if (!column.identity) continue;
    RecordsetRef rows;
    const std::string statement = "SELECT MAX(" + column.name + ") AS n FROM " + connection.numbered;
    connection.database->AbrirLeitura("", statement.c_str(), rows);
    return rows->Fields("n").Value().ToLong();
  }
  return 0;
}

inline void Set(Connection& connection, const std::string& statement) {
  constexpr std::string_view kNumbers = "SET IDENTITY_INSERT [";
  if (!statement.starts_with(kNumbers)) return;
  const auto end = statement.find(']');
  connection.bringing =
      statement.ends_with("ON") ? statement.substr(kNumbers.size(), end - kNumbers.size()) : std::string();
}

/// Puts in a row that brings its number: its values are read as a statement of their own.
inline bool Brought(Connection& connection, const std::string& statement) {
  const std::string head = "INSERT INTO [" + connection.bringing + "] (";
  const auto values = statement.find(") VALUES (");
  if (connection.bringing.empty() || !statement.starts_with(head) || values == std::string::npos)
    return false;
  std::vector<std::string> columns;
  for (std::size_t at = statement.find('[', head.size()); at < values; at = statement.find('[', at + 1))
    columns.push_back(statement.substr(at + 1, statement.find(']', at) - at - 1));
  const auto first = values + std::string_view(") VALUES (").size();
  RecordsetRef row;
  connection.database->AbrirLeitura(
      "", ("SELECT " + statement.substr(first, statement.rfind(')') - first)).c_str(), row);
  zorCrmParvel::RowValues all;
  for (std::size_t i = 0; i < columns.size(); ++i) all.emplace_back(row->Fields(i).Value());
  connection.database->AddRows(connection.bringing, columns, {&all});
  return true;
}

inline SQLRETURN RunNext(Request& request) {
  request.rows.reset();
  request.next = 0;
  if (request.statements.empty()) return SQL_NO_DATA;
  const std::string statement = std::move(request.statements.front());
  request.statements.pop_front();
  return Guarded(request, [&] {
    Connection& connection = request.connection;
    embedded::Database& database = *connection.database;
    if (statement.starts_with("BEGIN TRANSACTION")) {
      database.BeginBatch();
    } else if (statement.starts_with("COMMIT TRANSACTION")) {
      database.CommitBatch();
    } else if (statement.starts_with("IF @@TRANCOUNT")) {
      database.AbandonBatch();
    } else if (statement.starts_with("SET ") || statement.starts_with("IF ")) {
      Set(connection, statement);
    } else if (statement.find("SCOPE_IDENTITY") != std::string::npos) {
      request.rows = OneNumber(LastNumber(connection));
    } else if (statement.find("@@ROWCOUNT") != std::string::npos ||
               statement.find("XACT_STATE") != std::string::npos) {
      request.rows = OneNumber(1);
    } else if (platform::EqualsIgnoringCase(platform::Trim(statement).substr(0, 6), "select")) {
      database.AbrirLeitura("", statement.c_str(), request.rows);
    } else if (!Brought(connection, statement)) {
      database.ExecutarSql("", statement.c_str());
      if (statement.starts_with("INSERT INTO ["))
        connection.numbered = statement.substr(13, statement.find(']') - 13);
    }
    return SQL_SUCCESS;
  });
}

}  // namespace bench
