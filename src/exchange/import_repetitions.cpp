#include "exchange/import_repetitions.h"

namespace exchange {

using zorCrmParvel::fixed;
using zorCrmParvel::RecordsetRef;
using zorCrmParvel::Statement;

bool Repetitions::Stand(Statement rows, const std::function<bool(platform::Recordset&)>& equal) {
  if (!begun_) FindLast();
  if (last_ == 0) return false;
  rows << " and " << fixed(id_) << "<=" << zorCrmParvel::value(last_);
  RecordsetRef found;
  bd_->AbrirLeitura("", rows, found);
  bool stands = false;
  for (; !stands && !found->Eof(); found->MoveNext())
    stands = equal(*found) && Take(found->Fields(id_).Value().ToLong());
  found->Close();
  return stands;
}

void Repetitions::FindLast() {
  begun_ = true;
  RecordsetRef rows;
  bd_->AbrirLeitura("", {"SELECT MAX(", fixed(id_), ") AS Ultimo FROM ", fixed(table_)}, rows);
  const platform::Variant last = rows->Fields("Ultimo").Value();
  rows->Close();
  if (!last.IsNull()) last_ = last.ToLong();
}

bool Repetitions::Take(std::int32_t id) {
  const auto place = static_cast<std::size_t>(id);
  if (place >= taken_.size()) taken_.resize(static_cast<std::size_t>(last_) + 1);
  if (taken_[place]) return false;
  taken_[place] = true;
  return true;
}

}  // namespace exchange
