#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "host/ficha.h"

namespace zorCrmParvel {

/// The fichas by name, so that screens can open one another without knowing one another. The entry class
/// fills it.
class FormCatalog {
 public:
  using Factory = std::function<std::unique_ptr<Ficha>()>;

  static FormCatalog& Shared();

  void Register(const std::string& name, Factory factory);
  bool Has(const std::string& name) const { return factories_.count(name) != 0; }
  /// A new ficha, not loaded yet; null when the name is unknown.
  std::unique_ptr<Ficha> Make(const std::string& name) const;

 private:
  std::map<std::string, Factory> factories_;
};

}  // namespace zorCrmParvel
