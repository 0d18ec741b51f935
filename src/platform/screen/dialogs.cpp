#include "platform/screen/dialogs.h"

#include "platform/host.h"

namespace platform {

void ListDialog::Carrega() {
  rows_ = Ligacao->Execute(Sql);
  columns_.clear();
  for (std::size_t i = 1; i <= rows_->FieldList().size(); ++i) columns_[static_cast<int>(i)] = {};
}

DialogColumn& ListDialog::Coluna(int index) {
  const auto found = columns_.find(index);
  if (found == columns_.end()) throw RuntimeError(kSubscriptOutOfRange);
  return found->second;
}

std::string ListaPesquisa::Escolhe() { return Host::Current().ShowLookup(*this); }

void MapaListagem::Mostra() { Host::Current().ShowReport(*this); }

}  // namespace platform
