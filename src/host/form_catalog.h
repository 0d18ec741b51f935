#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "host/ficha.h"

namespace zorCrmParvel {

/// The fichas by name, so that screens can open one another without knowing one another. There is one in a
/// process, for all of its threads; the entry class fills it, and nobody takes a name out again.
class FormCatalog {
 public:
  using Factory = std::function<std::unique_ptr<Ficha>()>;

  static FormCatalog& Shared();

  /// The last factory of a name is the one that counts. Names are compared character for character.
  void Register(const std::string& name, Factory factory);
  bool Has(const std::string& name) const;
  /// A new ficha, not loaded yet; null when the name is unknown.
  std::unique_ptr<Ficha> Make(const std::string& name) const;

 private:
  mutable std::mutex mutex_;
  std::map<std::string, Factory> factories_;
};

}  // namespace zorCrmParvel
