#pragma once

#include <string>
#include <unordered_map>

#include "events/expense_rules.h"
#include "exchange/import.h"
#include "platform/runtime_error.h"
#include "vehicles/viaturas.h"

namespace exchange {

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

/// The plates of a file. Those of the fleet are read at once; others may be spelled otherwise, and each is
/// looked up once.
class Plates {
 public:
  explicit Plates(const zorCrmParvel::DataAccessRef& bd) { vehicle_.bd = bd; }
  /// Throws Refusal unless the vehicle exists.
  void Require(const std::string& plate) {
    RefuseApostrophe("Matricula", plate);
    if (known_.empty()) ReadFleet();
    const auto [place, fresh] = known_.try_emplace(plate, false);
    if (fresh) {
      vehicle_.Matricula = plate;
      place->second = vehicle_.Ler();
    }
    if (!place->second) throw Refusal{"Matricula", zorCrmParvel::RegrasDeGastos::kViaturaInexistente};
  }

 private:
  void ReadFleet() {
    zorCrmParvel::RecordsetRef rows;
    vehicle_.bd->AbrirLeitura("", "SELECT Matricula FROM zor_PV_Viaturas", rows);
    for (; !rows->Eof(); rows->MoveNext()) known_.emplace(rows->Fields("Matricula").Value().ToText(), true);
    rows->Close();
  }

  zorCrmParvel::clViaturas vehicle_;
  std::unordered_map<std::string, bool> known_;
};

}  // namespace exchange
