#pragma once

#include <array>
#include <memory>
#include <string>

#include "masterdata/code_table.h"
#include "vehicles/viaturas.h"

namespace zorCrmParvel {

/// How a field of the vehicle's ficha is typed and shown.
enum class Escrita { kTexto, kNotas, kAno, kKm, kValor };

/// A field of the vehicle's ficha, by its place in `Campo`: one of the vehicle, with the property that it
/// shows and fills, or a detail of an event, which is read only.
struct CampoDaViatura {
  const char* legenda;
  int maxlength = 0;
  Escrita escrita = Escrita::kTexto;
  bool activo = false;
  std::string clViaturas::*texto = nullptr;
  platform::Currency clViaturas::*numero = nullptr;
};

extern const std::array<CampoDaViatura, 63> kCamposDaViatura;

/// A date of the ficha, by its place in `DTPicker1`.
struct DataDaViatura {
  const char* legenda;
  bool opcional = false;  // may be without a date
  bool activo = true;
  const char* formato = "dd-mm-yyyy";
};

extern const std::array<DataDaViatura, 14> kDatasDaViatura;

/// A field that holds a code of another table.
struct CodigoDaViatura {
  int campo;   // and its list button
  int titulo;  // the label with what the code stands for
  std::unique_ptr<CodeTable> (*nova)();
  const char* inexistente;  // the message for an unknown code
  const char* dicaLista;
  const char* ficha = nullptr;  // that the field opens
  bool opcional = false;        // an empty field isn't looked at
};

extern const std::array<CodigoDaViatura, 5> kCodigosDaViatura;

/// Null when the field holds no code.
const CodigoDaViatura* CodigoDoCampo(int campo);

}  // namespace zorCrmParvel
