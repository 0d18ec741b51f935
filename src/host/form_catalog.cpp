#include "host/form_catalog.h"

namespace zorCrmParvel {

FormCatalog& FormCatalog::Shared() {
  static FormCatalog catalog;
  return catalog;
}

void FormCatalog::Register(const std::string& name, Factory factory) {
  const std::lock_guard lock(mutex_);
  factories_[name] = std::move(factory);
}

bool FormCatalog::Has(const std::string& name) const {
  const std::lock_guard lock(mutex_);
  return factories_.count(name) != 0;
}

std::unique_ptr<Ficha> FormCatalog::Make(const std::string& name) const {
  Factory factory;
  {
    const std::lock_guard lock(mutex_);
    const auto found = factories_.find(name);
    if (found == factories_.end()) return nullptr;
    factory = found->second;
  }
  return factory();
}

}  // namespace zorCrmParvel
