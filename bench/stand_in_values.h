#pragma once

#include <algorithm>
#include <cstring>
#include <string>

#include "stand_in_request.h"

/// How the stand-in for a server gives the values of its rows, as the driver's functions ask for them.
namespace bench {

struct Shape {
  SQLSMALLINT type;
  SQLULEN width;
};

inline Shape ShapeOf(const platform::FieldInfo& field) {
  const bool bound = field.definedSize > 0 && static_cast<std::size_t>(field.definedSize) <= kWidest;
  switch (field.type) {
    case FieldType::kBool:
      return {SQL_BIT, 1};
    case FieldType::kInteger:
      return {SQL_SMALLINT, 5};
    case FieldType::kLong:
      return {SQL_INTEGER, 10};
    case FieldType::kDouble:
      return {SQL_DOUBLE, 15};
    case FieldType::kCurrency:
      return {SQL_DECIMAL, 19};
    case FieldType::kDate:
      return {SQL_TYPE_TIMESTAMP, 23};
    case FieldType::kBytes:
      return {SQL_VARBINARY, bound ? static_cast<SQLULEN>(field.definedSize) : 0};
    case FieldType::kText:
      break;
  }
  return {SQL_WVARCHAR, bound ? static_cast<SQLULEN>(field.definedSize) : 0};
}

template <typename T>
inline SQLLEN Put(const T& value, char* place) {
  std::memcpy(place, &value, sizeof value);
  return sizeof value;
}

inline SQLLEN Put(const Cell& cell, SQLSMALLINT type, char* place) {
  if (cell.IsNull()) return SQL_NULL_DATA;
  switch (type) {
    case SQL_C_BIT:
      return Put(static_cast<unsigned char>(cell.integer() != 0 ? 1 : 0), place);
    case SQL_C_SSHORT:
      return Put(static_cast<SQLSMALLINT>(cell.integer()), place);
    case SQL_C_SLONG:
      return Put(static_cast<SQLINTEGER>(cell.integer()), place);
    case SQL_C_SBIGINT:
      return Put(static_cast<SQLBIGINT>(cell.integer()), place);
    case SQL_C_DOUBLE:
      return Put(cell.real(), place);
    case SQL_C_TYPE_TIMESTAMP:
      return Put(sqlserver::MomentOf(cell.ToVariant().ToDate()), place);
    case SQL_C_CHAR: {
      const std::string money = sqlserver::MoneyText(cell.ToVariant().ToCurrency());
      std::memcpy(place, money.c_str(), money.size() + 1);
      return static_cast<SQLLEN>(money.size());
    }
    case SQL_C_WCHAR:
      return Give(std::string(cell.block()), place) * static_cast<SQLLEN>(sizeof(SQLWCHAR));
    default:
      std::memcpy(place, cell.block().data(), cell.block().size());
      return static_cast<SQLLEN>(cell.block().size());
  }
}

struct Room {
  char* value;
  SQLLEN size;
  SQLLEN* length;
};

/// The next part of a text or of bytes, a text's with a zero behind it. `given`: the bytes given so far.
inline SQLRETURN GivePart(const Cell& cell, SQLSMALLINT type, const Room& room, std::size_t& given,
                          bool first) {
  std::string all(cell.block());
  if (type == SQL_C_WCHAR) {
    const std::u16string wide = sqlserver::ToUtf16(all);
    all.assign(reinterpret_cast<const char*>(wide.data()), wide.size() * sizeof(char16_t));
  }
  if (!first && given == all.size()) return SQL_NO_DATA;
  const std::size_t left = all.size() - given;
  const std::size_t end = type == SQL_C_WCHAR ? sizeof(SQLWCHAR) : 0;
  const std::size_t part = std::min(left, static_cast<std::size_t>(room.size) - end);
  std::memcpy(room.value, all.data() + given, part);
  std::memset(room.value + part, 0, end);
  given += part;
  *room.length = static_cast<SQLLEN>(left);
  return part < left ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

inline std::size_t RowsAtOnce(const Request& request) {
  const auto found = request.attributes.find(SQL_ATTR_ROW_ARRAY_SIZE);
  return found == request.attributes.end() ? 1 : reinterpret_cast<SQLULEN>(found->second);
}

/// The place of a row's value in what was bound.
inline void Fill(Request& request, std::size_t place) {
  for (auto& [column, binding] : request.bindings)
    binding.length[place] = Put(request.rows->CellAt(request.next, column - 1U), binding.type,
                                binding.value + static_cast<SQLLEN>(place) * binding.room);
}

}  // namespace bench
