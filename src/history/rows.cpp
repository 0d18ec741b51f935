#include "history/rows.h"

#include <algorithm>

#include "platform/text.h"

namespace history {

using platform::Variant;

zorCrmParvel::RecordsetRef OpenRows(KeepingStore& store, const std::string& statement) {
  zorCrmParvel::RecordsetRef rows;
  store.inner()->AbrirLeitura("", statement.c_str(), rows);
  return rows;
}

std::string TextIn(platform::Recordset& rows, const char* column) {
  const Variant value = rows.Fields(column).Value();
  return value.IsNull() ? std::string() : value.ToText();
}

long NumberIn(platform::Recordset& rows, const char* column) {
  const Variant value = rows.Fields(column).Value();
  return value.IsNull() ? 0 : value.ToLong();
}

std::string Anywhere(const std::string& text) {
  std::string pattern = "%";
  for (const char c : text)
    pattern += c == '%' || c == '_' || c == '[' ? std::string("[") + c + "]" : std::string(1, c);
  return TextLiteral(pattern + "%");
}

std::string DayLiteral(platform::Date day) {
  return "'" + std::to_string(day.year()) + "-" + platform::Padded(day.month(), 2) + "-" +
         platform::Padded(day.day(), 2) + "'";
}

std::vector<std::string> ListsOf(const std::vector<long>& numbers, std::size_t most) {
  std::vector<std::string> lists;
  for (std::size_t from = 0; from < numbers.size(); from += most) {
    std::string list;
    for (std::size_t i = from; i < std::min(numbers.size(), from + most); ++i)
      list += (list.empty() ? "" : ", ") + std::to_string(numbers[i]);
    lists.push_back(list);
  }
  return lists;
}

long NewestNumber(KeepingStore& store) {
  const auto rows = OpenRows(store, "SELECT MAX(Id) AS Ultimo FROM parvel_historico");
  return rows->Eof() ? 0 : NumberIn(*rows, "Ultimo");
}

}  // namespace history
