#pragma once

#include "platform/currency.h"

/// The rules of an expense's fields, for the ficha and for imports: each function answers with the message of
/// the rule that fails, null when all is well. The names are messages of codes that don't exist.
namespace zorCrmParvel::RegrasDeGastos {

inline constexpr const char* kViaturaInexistente = "Viatura não existente!";
inline constexpr const char* kViagemInexistente = "Viagem não existente!";
inline constexpr const char* kMotoristaInexistente = "Motorista não existente!";
inline constexpr const char* kTipoInexistente = "Tipo Gasto não existente!";

const char* Quantidade(bool combustivel, platform::Currency quantidade);
const char* Custo(platform::Currency custo);
/// `anterior` is the odometer of the latest fuel expense before this one; an equal one passes.
const char* Km(bool combustivel, platform::Currency km, platform::Currency anterior);

}  // namespace zorCrmParvel::RegrasDeGastos
