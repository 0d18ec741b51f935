#pragma once

#include <string>
#include <unordered_map>

#include "console/import.h"
#include "platform/runtime_error.h"

namespace console {

/// Looks codes up once each: a file names few of them many times.
template <typename Entity>
class Codes {
 public:
  explicit Codes(const zorCrmParvel::DataAccessRef& bd) { entity_.bd = bd; }
  bool Has(const std::string& code) {
    const auto [place, fresh] = known_.try_emplace(code, false);
    if (fresh) {
      entity_.Codigo = code;
      place->second = Read();
    }
    return place->second;
  }
  /// Throws Refusal with the message unless the code exists.
  void Require(const char* column, const std::string& code, const char* message) {
    if (!Has(code)) throw Refusal{column, message};
  }

 private:
  /// A code that no statement can carry names nothing.
  bool Read() {
    try {
      return entity_.Ler();
    } catch (const platform::RuntimeError& error) {
      if (error.number() != platform::kStatementRefused) throw;
      return false;
    }
  }
  Entity entity_;
  std::unordered_map<std::string, bool> known_;
};

/// A statement that can't carry a value is a fault of the row, not of the import.
inline void RefuseApostrophe(const char* column, const std::string& text) {
  if (text.find('\'') != std::string::npos) throw Refusal{column, "Não pode ter apóstrofos."};
}

}  // namespace console
