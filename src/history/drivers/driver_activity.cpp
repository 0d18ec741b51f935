#include "history/drivers/driver_activity.h"

#include <algorithm>
#include <map>

#include "history/drivers/driver_tables.h"
#include "history/rows.h"

namespace history {
namespace {

using platform::Date;

/// A code as the database compares it.
std::string Folded(std::string code) {
  code.erase(code.find_last_not_of(' ') + 1);
  for (char& c : code)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return code;
}

std::map<std::string, Date> LastEvents(KeepingStore& store) {
  std::map<std::string, Date> last;
  for (const DriverTable& each : DriverTables()) {
    if (each.own) continue;
    const auto rows = OpenRows(store, "SELECT Motorista, Data FROM " + Bracketed(each.table) +
                                          " WHERE Motorista > N'' AND Data IS NOT NULL");
    for (; !rows->Eof(); rows->MoveNext()) {
      const Date date = rows->Fields("Data").Value().ToDate();
      const auto [place, fresh] = last.try_emplace(Folded(TextIn(*rows, "Motorista")), date);
      if (!fresh) place->second = std::max(place->second, date);
    }
    rows->Close();
  }
  return last;
}

}  // namespace

std::vector<QuietDriver> DriversQuietSince(KeepingStore& store, Date day) {
  const std::map<std::string, Date> last = LastEvents(store);
  std::vector<QuietDriver> quiet;
  const auto rows = OpenRows(store, "SELECT Codigo, Nome FROM zor_Funcionarios ORDER BY Codigo");
  for (; !rows->Eof(); rows->MoveNext()) {
    QuietDriver driver{TextIn(*rows, "Codigo"), TextIn(*rows, "Nome"), {}};
    if (driver.name.empty()) continue;  // erased already
    const auto found = last.find(Folded(driver.code));
    if (found != last.end()) driver.last = found->second;
    if (!driver.last || *driver.last < day) quiet.push_back(std::move(driver));
  }
  std::stable_sort(quiet.begin(), quiet.end(),
                   [](const QuietDriver& a, const QuietDriver& b) { return a.last < b.last; });
  return quiet;
}

std::optional<std::string> NameOfDriver(KeepingStore& store, const std::string& code) {
  const auto rows = OpenRows(store, "SELECT Nome FROM zor_Funcionarios WHERE Codigo = " + TextLiteral(code));
  if (rows->Eof()) return {};
  return TextIn(*rows, "Nome");
}

}  // namespace history
