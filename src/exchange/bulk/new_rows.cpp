#include "exchange/bulk/new_rows.h"

#include "platform/runtime_error.h"

namespace exchange {

using zorCrmParvel::fixed;

std::vector<std::int32_t> AddRows(const zorCrmParvel::DataAccessRef& bd, const NewRows& added) {
  std::vector<std::int32_t> numbers;
  if (added.rows.empty()) return numbers;
  zorCrmParvel::RecordsetRef open;
  bd->AbrirEdicao({"SELECT * FROM ", fixed(added.table), " WHERE 1=0"}, open);
  std::vector<std::size_t> places;
  for (const std::string& column : added.columns) {
    const auto place = open->FindField(column);
    if (!place) throw platform::RuntimeError(platform::kNoSuchField, column);
    places.push_back(*place);
  }
  for (const auto& row : added.rows) {
    open->AddNew();
    for (std::size_t i = 0; i < places.size(); ++i) open->Fields(places[i]).SetValue(row[i]);
    open->Update();
    if (!added.number.empty()) numbers.push_back(open->Fields(added.number).Value().ToLong());
  }
  open->Close();
  return numbers;
}

}  // namespace exchange
