#pragma once

#include <array>
#include <string>
#include <vector>

#include "masterdata/record_form.h"
#include "vehicles/viaturas.h"

/// What the vehicle's ficha holds of the vehicle itself; details of its events are told in viaturas_tabs.h.
namespace zorCrmParvel {

/// How a field is typed and shown.
enum class Escrita { kTexto, kNotas, kAno, kKm, kValor };

/// A field, with the property that it shows and fills, if one kind or the other.
struct CampoDaViatura {
  int indice;  // in `Campo`
  const char* legenda;
  int maxlength;  // characters
  Escrita escrita = Escrita::kTexto;
  std::string clViaturas::*texto = nullptr;
  platform::Currency clViaturas::*numero = nullptr;
  bool calculado = false;  // a figure that the events compute, which nobody types
};

extern const std::array<CampoDaViatura, 25> kCamposDaViatura;

/// A date, with the property that it shows and fills, null where the ficha does more than that.
struct DataDaViatura {
  int indice;  // in `DTPicker1`
  const char* legenda;
  platform::Date clViaturas::*propriedade;
  bool opcional = false;    // may be without a date
  bool hojeSeZero = false;  // no date shows as today
};

extern const std::array<DataDaViatura, 7> kDatasDaViatura;

/// The fields that hold a code of another table.
extern const std::vector<Referencia> kReferenciasDaViatura;

/// The field or date of a place; error 9 when the vehicle has none there.
const CampoDaViatura& CampoNoLugar(int indice);
const DataDaViatura& DataNoLugar(int indice);

}  // namespace zorCrmParvel
