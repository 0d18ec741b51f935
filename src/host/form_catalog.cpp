#include "host/form_catalog.h"

namespace zorCrmParvel {

FormCatalog& FormCatalog::Shared() {
  static FormCatalog catalog;
  return catalog;
}

void FormCatalog::Register(const std::string& name, Factory factory) {
  factories_[name] = std::move(factory);
}

std::unique_ptr<Ficha> FormCatalog::Make(const std::string& name) const {
  const auto found = factories_.find(name);
  return found == factories_.end() ? nullptr : found->second();
}

}  // namespace zorCrmParvel
